#include "records/mpc_elements.h"

#include <gtest/gtest.h>

#include <string>

#include "records/validation.h"
#include "records_test_support.h"

namespace {

using namespace orvane;
using orvane::testing::TempHome;

// Lines as they stand in the MPC's CometEls.txt of 2024-09 (../shared/reference).
const std::string kHalley =
    "0001P         2061 09 10.3628  0.588733  0.967048  112.6084   59.6962  162.2070  20240907   4.0  6.0  "
    "1P/Halley                                                 98, 1083";
const std::string kNeowise =
    "    CK20F030  2020 07  4.4061  0.294606  0.999241   37.3860   61.0972  129.1538  20240907   7.5  5.2  "
    "C/2020 F3 (NEOWISE)                                      MPEC 2021-O56";
const std::string kFragmentB =
    "0073P      b  2022 09  1.9330  0.948265  0.692276   70.2201  198.4304   11.0817  20240907   9.0  4.0  "
    "73P-B/Schwassmann-Wachmann B                             NK   1613";
const std::string kFragmentC =
    "0073P      c  2022 08 28.8034  0.948945  0.691935   70.1778  198.5046   11.0826  20240907   9.0  4.0  "
    "73P-C/Schwassmann-Wachmann                               NK   2710";
const std::string kFragmentAa =
    "0073P     aa  2006 06  9.086   0.93905   0.69330   198.804    69.883    11.390              9.0  4.0  "
    "73P-AA/Schwassmann-Wachmann                              MPC 56798";
const std::string kLinearHillB =
    "    PK04V05b  2027 08  8.6846  4.433512  0.447583   87.3053   47.7411   19.3456  20240907   8.0  4.0  "
    "P/2004 V5-B (LINEAR-Hill)                                MPC 75705";
const std::string kDArrest =
    "0006P         2021 09 16.9872  1.357188  0.611958  178.0764  138.9502   19.5009  20240907   7.5 16.0  "
    "6P/d'Arrest                                              MPEC 2022-WD2";
const std::string kOumuamua =
    "0001I         2017 09  9.4886  0.255240  1.199252  241.6845   24.5997  122.6778  20170904  23.0  2.0  "
    "1I/`Oumuamua                                             MPC107687";
const std::string kAsteroidal =
    "    AK18V030  2019 09 10.2068  1.334037  0.989599    3.6032  308.7866  164.9289  20240907  15.7  2.0  "
    "A/2018 V3                                                MPEC 2022-VC5";
const std::string kSoho =
    "    PJ99R010  2023 08 21.0326  0.050216  0.979981   56.8459  351.6170   11.4300  20240907   9.0  4.0  "
    "P/1999 R1 (SOHO)                                         unp";

const RecordTexts& texts() {
    static const RecordTexts t = orvane::testing::englishTexts();
    return t;
}

// The line with columns `first` to `first + text.size() - 1` replaced.
std::string withColumns(std::string line, std::size_t first, const std::string& text) {
    line.replace(first - 1, text.size(), text);
    return line;
}

MpcLineOutcome read(const std::string& line, OrbitRecord& record) { return readMpcCometLine(line, record); }

TEST(MpcElements, PeriodicComet) {
    OrbitRecord r;
    ASSERT_EQ(read(kHalley, r).status, MpcLineStatus::Ok);
    EXPECT_EQ(r.get(Field::comet), "1");
    EXPECT_EQ(r.get(Field::htype), "P");
    EXPECT_EQ(r.get(Field::des), "");
    EXPECT_EQ(r.get(Field::name), "Halley");
    EXPECT_EQ(r.get(Field::hyear), "2061");
    EXPECT_EQ(r.get(Field::hmonth), "9");
    EXPECT_EQ(r.get(Field::hday), "10.3628");
    EXPECT_EQ(r.get(Field::q), "0.588733");
    EXPECT_EQ(r.get(Field::e), "0.967048");
    EXPECT_EQ(r.get(Field::w), "112.6084");
    EXPECT_EQ(r.get(Field::Om), "59.6962");
    EXPECT_EQ(r.get(Field::i), "162.2070");
    EXPECT_EQ(r.get(Field::E_year), "2024");
    EXPECT_EQ(r.get(Field::E_month), "9");
    EXPECT_EQ(r.get(Field::E_day), "7");
    EXPECT_EQ(r.get(Field::M1), "4.0");
    EXPECT_EQ(r.get(Field::K1), "15.0");
    EXPECT_EQ(r.get(Field::hreference), "98, 1083");
    EXPECT_EQ(r.get(Field::Producer), "MPC");
    EXPECT_TRUE(r.blank(Field::P));
    EXPECT_TRUE(r.blank(Field::A1));
    EXPECT_TRUE(r.blank(Field::hinfo));
}

TEST(MpcElements, NonPeriodicComet) {
    OrbitRecord r;
    ASSERT_EQ(read(kNeowise, r).status, MpcLineStatus::Ok);
    EXPECT_EQ(r.get(Field::comet), "");
    EXPECT_EQ(r.get(Field::htype), "C");
    EXPECT_EQ(r.get(Field::des), "2020 F3");
    EXPECT_EQ(r.get(Field::name), "NEOWISE");
    EXPECT_EQ(r.get(Field::hyear), "2020");
    EXPECT_EQ(r.get(Field::hmonth), "7");
    EXPECT_EQ(r.get(Field::hday), "4.4061");
    EXPECT_EQ(r.get(Field::q), "0.294606");
    EXPECT_EQ(r.get(Field::e), "0.999241");
    EXPECT_EQ(r.get(Field::w), "37.3860");
    EXPECT_EQ(r.get(Field::Om), "61.0972");
    EXPECT_EQ(r.get(Field::i), "129.1538");
    EXPECT_EQ(r.get(Field::E_year), "2024");
    EXPECT_EQ(r.get(Field::M1), "7.5");
    EXPECT_EQ(r.get(Field::K1), "13.0");
    EXPECT_EQ(r.get(Field::hreference), "MPEC 2021-O56");
}

TEST(MpcElements, FragmentsOfANumberedComet) {
    OrbitRecord b;
    ASSERT_EQ(read(kFragmentB, b).status, MpcLineStatus::Ok);
    EXPECT_EQ(b.get(Field::comet), "73");
    EXPECT_EQ(b.get(Field::des), "73P-B");
    EXPECT_EQ(b.get(Field::name), "Schwassmann-Wachmann B");  // the column already names B
    EXPECT_EQ(b.get(Field::K1), "10.0");
    OrbitRecord c;
    ASSERT_EQ(read(kFragmentC, c).status, MpcLineStatus::Ok);
    EXPECT_EQ(c.get(Field::des), "73P-C");
    EXPECT_EQ(c.get(Field::name), "Schwassmann-Wachmann C");
    // Two letters, three-decimal elements and no epoch.
    OrbitRecord aa;
    ASSERT_EQ(read(kFragmentAa, aa).status, MpcLineStatus::Ok);
    EXPECT_EQ(aa.get(Field::des), "73P-AA");
    EXPECT_EQ(aa.get(Field::name), "Schwassmann-Wachmann AA");
    EXPECT_EQ(aa.get(Field::hyear), "2006");
    EXPECT_EQ(aa.get(Field::hmonth), "6");
    EXPECT_EQ(aa.get(Field::hday), "9.086");
    EXPECT_EQ(aa.get(Field::q), "0.93905");
    EXPECT_EQ(aa.get(Field::e), "0.69330");
    EXPECT_EQ(aa.get(Field::w), "198.804");
    EXPECT_TRUE(aa.blank(Field::E_year));
    EXPECT_TRUE(aa.blank(Field::E_month));
    EXPECT_TRUE(aa.blank(Field::E_day));
}

TEST(MpcElements, FragmentWithAProvisionalDesignation) {
    OrbitRecord r;
    ASSERT_EQ(read(kLinearHillB, r).status, MpcLineStatus::Ok);
    EXPECT_EQ(r.get(Field::comet), "");
    EXPECT_EQ(r.get(Field::htype), "P");
    EXPECT_EQ(r.get(Field::des), "2004 V5-B");
    EXPECT_EQ(r.get(Field::name), "LINEAR-Hill");
}

TEST(MpcElements, BlankMagnitudeAndSlope) {
    // Halley's line with columns 92-100 blanked: no magnitude law, still a good record.
    OrbitRecord r;
    ASSERT_EQ(read(withColumns(kHalley, 92, "         "), r).status, MpcLineStatus::Ok);
    EXPECT_TRUE(r.blank(Field::M1));
    EXPECT_TRUE(r.blank(Field::K1));
    EXPECT_EQ(r.get(Field::q), "0.588733");
    // Only the slope blank.
    ASSERT_EQ(read(withColumns(kHalley, 97, "    "), r).status, MpcLineStatus::Ok);
    EXPECT_EQ(r.get(Field::M1), "4.0");
    EXPECT_TRUE(r.blank(Field::K1));
}

TEST(MpcElements, SlopeBecomesTheFactorOfLogR) {
    OrbitRecord r;
    ASSERT_EQ(read(kDArrest, r).status, MpcLineStatus::Ok);
    EXPECT_EQ(r.get(Field::K1), "40.0");  // G = 16.0
    EXPECT_EQ(r.get(Field::name), "d'Arrest");
    ASSERT_EQ(read(withColumns(kHalley, 97, "4.25"), r).status, MpcLineStatus::Ok);
    EXPECT_EQ(r.get(Field::K1), "10.625");
    ASSERT_EQ(read(withColumns(kHalley, 97, "  -2"), r).status, MpcLineStatus::Ok);
    EXPECT_EQ(r.get(Field::K1), "-5.0");
}

TEST(MpcElements, PackedEpoch) {
    OrbitRecord r;
    ASSERT_EQ(read(withColumns(kHalley, 82, "K2497   "), r).status, MpcLineStatus::Ok);
    EXPECT_EQ(r.get(Field::E_year), "2024");
    EXPECT_EQ(r.get(Field::E_month), "9");
    EXPECT_EQ(r.get(Field::E_day), "7");
    ASSERT_EQ(read(withColumns(kHalley, 82, "J97CV   "), r).status, MpcLineStatus::Ok);
    EXPECT_EQ(r.get(Field::E_year), "1997");
    EXPECT_EQ(r.get(Field::E_month), "12");
    EXPECT_EQ(r.get(Field::E_day), "31");
    EXPECT_EQ(read(withColumns(kHalley, 82, "K24D7   "), r).status, MpcLineStatus::BadNumber);
    EXPECT_EQ(read(withColumns(kHalley, 82, "2024097 "), r).status, MpcLineStatus::BadNumber);
    EXPECT_EQ(read(withColumns(kHalley, 82, "2024097 "), r).field, Field::E_year);
}

TEST(MpcElements, Designations) {
    MpcDesignation d;
    ASSERT_TRUE(decodeMpcDesignation("0001P", d));
    EXPECT_EQ(d.label, "1P");
    EXPECT_EQ(d.comet, "1");
    ASSERT_TRUE(decodeMpcDesignation("    CJ95O010", d));
    EXPECT_EQ(d.label, "C/1995 O1");
    EXPECT_EQ(d.des, "1995 O1");
    ASSERT_TRUE(decodeMpcDesignation("0073P      a", d));
    EXPECT_EQ(d.label, "73P-A");
    EXPECT_EQ(d.fragment, "A");
    ASSERT_TRUE(decodeMpcDesignation("    CK19Y04b", d));
    EXPECT_EQ(d.label, "C/2019 Y4-B");
    // Designations of the asteroid form, with an order number of three digits.
    ASSERT_TRUE(decodeMpcDesignation("    PJ98V24S", d));
    EXPECT_EQ(d.label, "P/1998 VS24");
    ASSERT_TRUE(decodeMpcDesignation("    PK04FE0Y", d));
    EXPECT_EQ(d.label, "P/2004 FY140");
    ASSERT_TRUE(decodeMpcDesignation("    CK14Od2G", d));
    EXPECT_EQ(d.label, "C/2014 OG392");
    ASSERT_TRUE(decodeMpcDesignation("    PK10W00K", d));
    EXPECT_EQ(d.label, "P/2010 WK");
    ASSERT_TRUE(decodeMpcDesignation("    DJ93F02a", d));
    EXPECT_EQ(d.label, "D/1993 F2-A");
    ASSERT_TRUE(decodeMpcDesignation("0001I", d));
    EXPECT_EQ(d.label, "1I");

    EXPECT_FALSE(decodeMpcDesignation("", d));
    EXPECT_FALSE(decodeMpcDesignation("0000P", d));
    EXPECT_FALSE(decodeMpcDesignation("00A1P", d));
    EXPECT_FALSE(decodeMpcDesignation("0001 ", d));
    EXPECT_FALSE(decodeMpcDesignation("0001p", d));
    EXPECT_FALSE(decodeMpcDesignation("0073P      B", d));  // fragment letters are lower case
    EXPECT_FALSE(decodeMpcDesignation("0073PK20F030", d));
    EXPECT_FALSE(decodeMpcDesignation("    CJ95I010", d));  // no half-month I
    EXPECT_FALSE(decodeMpcDesignation("    CM95O010", d));  // no century M
    EXPECT_FALSE(decodeMpcDesignation("    CJ95O000", d));  // a comet has an order number
    EXPECT_FALSE(decodeMpcDesignation("    CJ95O01", d));
    EXPECT_FALSE(decodeMpcDesignation("    CJ95O01-", d));
    EXPECT_FALSE(decodeMpcDesignation("    C", d));
    EXPECT_TRUE(d.label.empty());
}

TEST(MpcElements, TypesTheCatalogueDoesNotKeep) {
    OrbitRecord r;
    EXPECT_EQ(read(kOumuamua, r).status, MpcLineStatus::UnsupportedType);
    EXPECT_EQ(read(kOumuamua, r).field, Field::htype);
    EXPECT_EQ(read(kAsteroidal, r).status, MpcLineStatus::UnsupportedType);
    EXPECT_TRUE(r.blank(Field::q));
}

TEST(MpcElements, HostileLines) {
    OrbitRecord r;
    r.set(Field::name, "left over");
    EXPECT_EQ(read("", r).status, MpcLineStatus::Blank);
    EXPECT_TRUE(r.blank(Field::name));
    EXPECT_EQ(read("        ", r).status, MpcLineStatus::Blank);
    EXPECT_EQ(read("x", r).status, MpcLineStatus::TooShort);
    EXPECT_EQ(read(std::string(500, '7'), r).status, MpcLineStatus::TooLong);
    EXPECT_EQ(read(kHalley + std::string(500 - kHalley.size(), ' '), r).status, MpcLineStatus::TooLong);
    EXPECT_EQ(read(std::string(500, '\0'), r).status, MpcLineStatus::TooLong);
    EXPECT_EQ(read(std::string(100, '\0'), r).status, MpcLineStatus::BadCharacter);
    EXPECT_EQ(read(withColumns(kHalley, 33, std::string(1, '\0')), r).status, MpcLineStatus::BadCharacter);
    EXPECT_EQ(read(withColumns(kHalley, 120, "\t"), r).status, MpcLineStatus::BadCharacter);
    EXPECT_EQ(read(kHalley.substr(0, 60), r).status, MpcLineStatus::TooShort);
    EXPECT_EQ(read(kHalley.substr(0, 78), r).status, MpcLineStatus::TooShort);
    EXPECT_EQ(read("ZZZZP" + kHalley.substr(5), r).status, MpcLineStatus::BadDesignation);

    const auto expectNumberFault = [&](const std::string& line, MpcLineStatus status, Field field) {
        r.set(Field::name, "left over");
        const MpcLineOutcome outcome = read(line, r);
        EXPECT_EQ(outcome.status, status) << line;
        EXPECT_EQ(outcome.field, field) << line;
        EXPECT_TRUE(r.blank(Field::name)) << line;
    };
    expectNumberFault(withColumns(kHalley, 31, "0.5887xx"), MpcLineStatus::BadNumber, Field::q);
    expectNumberFault(withColumns(kHalley, 31, "0.58 733"), MpcLineStatus::BadNumber, Field::q);
    expectNumberFault(withColumns(kHalley, 31, "         "), MpcLineStatus::MissingValue, Field::q);
    expectNumberFault(withColumns(kHalley, 42, "abcdefgh"), MpcLineStatus::BadNumber, Field::e);
    expectNumberFault(withColumns(kHalley, 15, "20x1"), MpcLineStatus::BadNumber, Field::hyear);
    expectNumberFault(withColumns(kHalley, 20, "9."), MpcLineStatus::BadNumber, Field::hmonth);
    expectNumberFault(withColumns(kHalley, 23, "  nan  "), MpcLineStatus::BadNumber, Field::hday);
    expectNumberFault(withColumns(kHalley, 72, "     inf"), MpcLineStatus::BadNumber, Field::i);
    expectNumberFault(withColumns(kHalley, 92, " H  "), MpcLineStatus::BadNumber, Field::M1);
    expectNumberFault(withColumns(kHalley, 97, "6,0 "), MpcLineStatus::BadNumber, Field::K1);
    // Numbers that read but that the catalogue refuses.
    expectNumberFault(withColumns(kHalley, 31, " 0.000000"), MpcLineStatus::Invalid, Field::q);
    expectNumberFault(withColumns(kHalley, 42, "10.00000"), MpcLineStatus::Invalid, Field::e);
    expectNumberFault(withColumns(kHalley, 20, "13"), MpcLineStatus::Invalid, Field::hmonth);
    expectNumberFault(withColumns(kHalley, 72, "200.0000"), MpcLineStatus::Invalid, Field::i);
    expectNumberFault(withColumns(kHalley, 92, "99.0"), MpcLineStatus::Invalid, Field::M1);
    expectNumberFault(withColumns(kHalley, 97, "1e99"), MpcLineStatus::Invalid, Field::K1);
    expectNumberFault(withColumns(kHalley, 82, "20241307"), MpcLineStatus::Invalid, Field::E_month);
}

TEST(MpcElements, GoodLinesPassTheRecordChecksAsTheyStand) {
    for (const std::string& line : {kHalley, kNeowise, kFragmentB, kFragmentC, kFragmentAa, kLinearHillB, kDArrest, kSoho}) {
        RecordArray array;
        array.reset(1);
        ASSERT_EQ(readMpcCometLine(line, array.records[0]).status, MpcLineStatus::Ok) << line;
        EXPECT_EQ(validateRecords(array, texts()).faultKind, 0) << line;
    }
}

TEST(MpcElements, DescribesAnOutcome) {
    EXPECT_EQ(describeMpcOutcome({MpcLineStatus::BadNumber, Field::q, 7}), "line 7: q is not a number");
    EXPECT_EQ(describeMpcOutcome({MpcLineStatus::TooShort, Field::listWork1, 2}),
              "line 2: line ends before the inclination (column 79)");
    EXPECT_EQ(describeMpcOutcome({MpcLineStatus::UnsupportedType, Field::htype, 0}),
              "htype orbit type is not C, P or D");
}

TEST(MpcElements, FileOfGoodAndBadLines) {
    const std::string text = kHalley + "\r\n" +                               // 1 good, CR LF
                             "\n" +                                           // 2 blank
                             withColumns(kNeowise, 31, "0.29x606 ") + "\n" +  // 3 letters in q
                             kFragmentB + "\n" +                              // 4 good
                             "x\n" +                                          // 5 too short
                             kOumuamua + "\n" +                               // 6 type I
                             std::string("0001P\0\0\0", 8) + "\n" +           // 7 NUL bytes
                             kNeowise;                                        // 8 good, no line end
    RecordArray records;
    const MpcFileResult result = readMpcCometText(text, records);
    EXPECT_EQ(result.status, FileReadStatus::Ok);
    EXPECT_EQ(result.read, 3u);
    EXPECT_EQ(result.skipped, 4u);
    EXPECT_EQ(result.blank, 1u);
    ASSERT_EQ(records.count, 3u);
    ASSERT_EQ(records.records.size(), 3u);
    EXPECT_EQ(records.records[0].get(Field::name), "Halley");
    EXPECT_EQ(records.records[0].get(Field::hreference), "98, 1083");
    EXPECT_EQ(records.records[1].get(Field::des), "73P-B");
    EXPECT_EQ(records.records[2].get(Field::des), "2020 F3");
    EXPECT_EQ(records.records[2].get(Field::hreference), "MPEC 2021-O56");
    ASSERT_EQ(result.rejected.size(), 4u);
    EXPECT_EQ(describeMpcOutcome(result.rejected[0]), "line 3: q is not a number");
    EXPECT_EQ(describeMpcOutcome(result.rejected[1]), "line 5: line ends before the inclination (column 79)");
    EXPECT_EQ(describeMpcOutcome(result.rejected[2]), "line 6: htype orbit type is not C, P or D");
    EXPECT_EQ(describeMpcOutcome(result.rejected[3]), "line 7: control character in the line");
    EXPECT_EQ(validateRecords(records, texts()).faultKind, 0);
}

TEST(MpcElements, ListOfRefusedLinesIsBounded) {
    std::string text;
    for (std::size_t k = 0; k < kMpcRejectedListLimit + 5; ++k) text += "x\n";
    text += kHalley;
    RecordArray records;
    const MpcFileResult result = readMpcCometText(text, records);
    EXPECT_EQ(result.skipped, kMpcRejectedListLimit + 5);
    EXPECT_EQ(result.rejected.size(), kMpcRejectedListLimit);
    EXPECT_EQ(result.read, 1u);
}

TEST(MpcElements, ShortLinesTakeNoRoomInTheArray) {
    std::string text(200000, '\n');
    text += kHalley;
    RecordArray records;
    const MpcFileResult result = readMpcCometText(text, records);
    EXPECT_EQ(result.blank, 200000u);
    EXPECT_EQ(result.read, 1u);
    EXPECT_LE(records.records.capacity(), 1u);
    EXPECT_EQ(records.records[0].get(Field::name), "Halley");
}

TEST(MpcElements, WholeReferenceFile) {
    RecordArray records;
    const MpcFileResult result = readMpcCometFile(orvane::testing::sharedPath("reference/CometEls.txt"), records);
    ASSERT_EQ(result.status, FileReadStatus::Ok);
    // 1,163 lines: 19 asteroidal and 2 interstellar objects are not comets of the catalogue.
    EXPECT_EQ(result.read, 1142u);
    EXPECT_EQ(result.skipped, 21u);
    EXPECT_EQ(result.blank, 0u);
    for (const MpcLineOutcome& outcome : result.rejected) {
        EXPECT_EQ(outcome.status, MpcLineStatus::UnsupportedType) << describeMpcOutcome(outcome);
    }
    EXPECT_EQ(result.rejected.back().line, 1163u);
    const ValidationResult checked = validateRecords(records, texts());
    EXPECT_EQ(checked.faultKind, 0) << checked.faultRecord << " " << checked.fieldLabel;
}

TEST(MpcElements, MissingAndUnreadableFiles) {
    TempHome home;
    RecordArray records;
    records.reset(2);
    EXPECT_EQ(readMpcCometFile(home.root() / "none.txt", records).status, FileReadStatus::CannotOpen);
    EXPECT_EQ(records.count, 0u);
    EXPECT_EQ(readMpcCometFile(home.root(), records).status, FileReadStatus::CannotOpen);
    const auto path = home.root() / "CometEls.txt";
    orvane::testing::writeFile(path, kHalley + "\n" + kNeowise + "\n");
    const MpcFileResult result = readMpcCometFile(path, records);
    EXPECT_EQ(result.read, 2u);
    EXPECT_EQ(records.count, 2u);
}

TEST(MpcImport, InsertsTheGoodLinesAfterTheQuestion) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    const auto path = home.root() / "CometEls.txt";
    orvane::testing::writeFile(path, kHalley + "\nnot a comet\n" + kDArrest + "\n");
    orvane::testing::RecordingView view;
    RecordArray array;
    const MpcImportResult result = importMpcFile(path, db, array, view, texts());
    EXPECT_EQ(result.file.read, 2u);
    EXPECT_EQ(result.file.skipped, 1u);
    EXPECT_EQ(result.import.status, ImportStatus::Inserted);
    EXPECT_EQ(result.import.batch.inserted, 2u);
    ASSERT_EQ(view.questions.size(), 1u);
    EXPECT_EQ(view.questions[0], "Are you sure you want to import 2 Records?");
    EXPECT_EQ(view.questionTitles[0], "Confirm Records import");
    EXPECT_EQ(view.statuses.front(), "Reading elements...");
    EXPECT_EQ(view.statuses.back(), "Ready");
    EXPECT_EQ(orvane::testing::rowCount(db), 2);
    EXPECT_EQ(orvane::testing::queryText(db, "select name||'|'||Producer||'|'||hreference||'|'||K1 from elements "
                                             "where comet=6"),
              "d'Arrest|MPC|MPEC 2022-WD2|40.0");
    EXPECT_EQ(orvane::testing::queryText(db, "select E_year||'-'||E_month||'-'||E_day||' '||q from elements "
                                             "where comet=1"),
              "2024-9-7 0.588733");
}

TEST(MpcImport, DeclinedInsertsNothing) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    const auto path = home.root() / "one.txt";
    orvane::testing::writeFile(path, kNeowise + "\n");
    orvane::testing::RecordingView view;
    view.answer = false;
    RecordArray array;
    const MpcImportResult result = importMpcFile(path, db, array, view, texts());
    EXPECT_EQ(result.import.status, ImportStatus::Declined);
    EXPECT_EQ(view.questions.at(0), "Are you sure you want to import 1 Record?");
    EXPECT_EQ(view.statuses.back(), "Ready");
    EXPECT_EQ(orvane::testing::rowCount(db), 0);
}

TEST(MpcImport, FileWithoutAGoodLineShowsTheMessage) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    const auto path = home.root() / "bad.txt";
    orvane::testing::writeFile(path, kOumuamua + "\nx\n");
    for (const auto& file : {path, home.root() / "missing.txt"}) {
        orvane::testing::RecordingView view;
        RecordArray array;
        const MpcImportResult result = importMpcFile(file, db, array, view, texts());
        EXPECT_EQ(result.import.status, ImportStatus::ReadFailed);
        ASSERT_EQ(view.messages.size(), 1u);
        EXPECT_EQ(view.messages[0], "One or more strings contains an incorrect number of elements.\r\nSuggestions:");
        EXPECT_TRUE(view.questions.empty());
        EXPECT_EQ(view.statuses.back(), "Ready");
    }
    EXPECT_EQ(orvane::testing::rowCount(db), 0);
}

}  // namespace
