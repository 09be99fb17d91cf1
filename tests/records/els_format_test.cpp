#include "records/els_format.h"

#include <gtest/gtest.h>

#include "base/fixed_text.h"
#include "records/els_codes.h"
#include "records_test_support.h"

namespace {

using namespace orvane;

std::string lineWith(std::initializer_list<std::pair<std::size_t, std::string_view>> parts) {
    std::string line(kElsLineWidth, ' ');
    for (const auto& [column, text] : parts) putColumns(line, column, text);
    return line;
}

// The columns of the written line, counted from 1.
std::string cols(const std::string& line, std::size_t first, std::size_t last) {
    return std::string(columnText(line, first, last));
}

TEST(ElsFormat, ChosenByTheExtension) {
    EXPECT_TRUE(isElsPath("/home/u/comets.els"));
    EXPECT_TRUE(isElsPath("COMETS.ELS"));
    EXPECT_FALSE(isElsPath("comets.Els"));
    EXPECT_FALSE(isElsPath("comets.txt"));
    EXPECT_FALSE(isElsPath("comets.els.bak"));
}

TEST(ElsFormat, ReaderCutsTheColumns) {
    const std::string line = lineWith({{1, "0001"}, {5, "P"}, {7, "1982 U1"}, {20, " 1986"}, {26, "Feb"},
                                       {31, " 9.4589"}, {39, " 0.587104"}, {50, "0.967277"}, {59, " 76.0"},
                                       {66, "111.8657"}, {76, " 58.8601"}, {86, "162.2422"}, {96, "86"},
                                       {99, "Feb"}, {104, "19"}, {107, " 7428"}, {112, "*"},
                                       {114, "I353B"}, {120, "J943C"}, {126, "j"}, {128, "M-v"},
                                       {132, "38h"}, {137, "9"}, {143, "Halley"}, {173, "MPC 17245"}});
    OrbitRecord r;
    readElsLine(line, r);
    EXPECT_EQ(r.get(Field::comet), "0001");
    EXPECT_EQ(r.get(Field::htype), "P");
    EXPECT_EQ(r.get(Field::des), "1982 U1");
    EXPECT_EQ(r.get(Field::hyear), "1986");
    EXPECT_EQ(r.get(Field::hmonth), "2");
    EXPECT_EQ(r.get(Field::hday), "9.4589");
    EXPECT_EQ(r.get(Field::q), "0.587104");
    EXPECT_EQ(r.get(Field::e), "0.967277");
    EXPECT_EQ(r.get(Field::P), "76.0");
    EXPECT_EQ(r.get(Field::w), "111.8657");
    EXPECT_EQ(r.get(Field::Om), "58.8601");
    EXPECT_EQ(r.get(Field::i), "162.2422");
    EXPECT_EQ(r.get(Field::E_year), "1986");
    EXPECT_EQ(r.get(Field::E_month), "2");
    EXPECT_EQ(r.get(Field::E_day), "19");
    EXPECT_EQ(r.get(Field::Obs), "7428");
    EXPECT_EQ(r.get(Field::A1), "0.0");
    EXPECT_EQ(r.get(Field::A2), "0.0");
    EXPECT_EQ(r.get(Field::A3), "0.0");
    EXPECT_EQ(r.get(Field::F_year), "1835");
    EXPECT_EQ(r.get(Field::F_month), "3");
    EXPECT_EQ(r.get(Field::F_day), "11");
    EXPECT_EQ(r.get(Field::L_year), "1994");
    EXPECT_EQ(r.get(Field::L_month), "3");
    EXPECT_EQ(r.get(Field::L_day), "12");
    EXPECT_EQ(r.get(Field::hsystem), "JPL DE405");
    EXPECT_EQ(r.get(Field::b_perturber), "M-v");
    EXPECT_EQ(r.get(Field::f_perturber), "38h");
    EXPECT_EQ(r.get(Field::hPlan), "9");
    EXPECT_EQ(r.get(Field::name), "Halley");
    EXPECT_EQ(r.get(Field::hreference), "MPC 17245");
    // The line carries no errors and no additional info.
    EXPECT_TRUE(r.blank(Field::q_err));
    EXPECT_TRUE(r.blank(Field::hinfo));
    EXPECT_TRUE(r.blank(Field::M1));
}

TEST(ElsFormat, EpochCenturyComesFromThePerihelionYear) {
    OrbitRecord r;
    readElsLine(lineWith({{20, " 1997"}, {96, "24"}}), r);
    EXPECT_EQ(r.get(Field::E_year), "1924");  // kept: the century of the perihelion year
    OrbitRecord blankEpoch;
    readElsLine(lineWith({{20, " 1997"}}), blankEpoch);
    EXPECT_TRUE(blankEpoch.blank(Field::E_year));
}

TEST(ElsFormat, MonthAbbreviations) {
    const char* months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (int m = 1; m <= 12; ++m) {
        EXPECT_EQ(monthFromAbbreviation(months[m - 1]), std::to_string(m));
        EXPECT_EQ(abbreviationOfMonth(std::to_string(m)), months[m - 1]);
    }
    EXPECT_EQ(monthFromAbbreviation("JAN"), "");
    EXPECT_EQ(monthFromAbbreviation("9"), "");
    EXPECT_EQ(abbreviationOfMonth("13"), "");
    EXPECT_EQ(abbreviationOfMonth("09"), "Sep");
}

TEST(ElsFormat, StarSetsTheNonGravitationalParameters) {
    OrbitRecord star;
    readElsLine(lineWith({{112, "*"}}), star);
    EXPECT_EQ(star.get(Field::A1), "0.0");
    OrbitRecord other;
    readElsLine(lineWith({{112, "x"}}), other);
    EXPECT_TRUE(other.blank(Field::A1));
    EXPECT_TRUE(other.blank(Field::A2));
    EXPECT_TRUE(other.blank(Field::A3));
}

TEST(ElsFormat, PackedDateK13IsYear2013) {
    OrbitRecord r;
    readElsLine(lineWith({{114, "K1315"}}), r);
    EXPECT_EQ(r.get(Field::F_year), "2013");
    EXPECT_EQ(r.get(Field::F_month), "1");
    EXPECT_EQ(r.get(Field::F_day), "5");
}

TEST(ElsFormat, PackedDateMinus43IsYearMinus43) {
    OrbitRecord r;
    readElsLine(lineWith({{114, "-4331"}}), r);
    EXPECT_EQ(r.get(Field::F_year), "-43");
    EXPECT_EQ(r.get(Field::F_month), "3");
    EXPECT_EQ(r.get(Field::F_day), "1");
}

TEST(ElsFormat, DayVIs31AndMonthCIs12) {
    OrbitRecord r;
    readElsLine(lineWith({{120, "K24CV"}}), r);
    EXPECT_EQ(r.get(Field::L_year), "2024");
    EXPECT_EQ(r.get(Field::L_month), "12");
    EXPECT_EQ(r.get(Field::L_day), "31");
    EXPECT_EQ(unpackDate("A00AA").year, "1000");
    EXPECT_EQ(unpackDate("L99B9").year, "2199");
    EXPECT_EQ(unpackDate("L99B9").month, "11");
    EXPECT_EQ(unpackDate(" 99A0").year, "99");
    EXPECT_EQ(unpackDate(" 99A0").day, "0");
    // Characters outside the tables give blank parts.
    EXPECT_EQ(unpackDate("K24DW").month, "");
    EXPECT_EQ(unpackDate("K24DW").day, "");
    const UnpackedDate blank = unpackDate("     ");
    EXPECT_EQ(blank.year, "");
    EXPECT_EQ(blank.month, "");
    EXPECT_EQ(blank.day, "");
}

TEST(ElsFormat, PackedDateWriter) {
    EXPECT_EQ(packDate("2013", "1", "5"), "K1315");
    EXPECT_EQ(packDate("2024", "12", "31"), "K24CV");
    EXPECT_EQ(packDate("1835", "3", "11"), "I353B");
    EXPECT_EQ(packDate("-43", "3", "1"), "-4331");
    EXPECT_EQ(packDate("843", "10", "10"), "843AA");
    EXPECT_EQ(packDate("", "", ""), "     ");
    // No form of three characters: the year's place stays blank.
    EXPECT_EQ(packDate("2500", "1", "1"), "   11");
    EXPECT_EQ(packDate("-3000", "2", "22"), "   2M");
}

TEST(ElsFormat, EphemerisLetters) {
    OrbitRecord r;
    readElsLine(lineWith({{126, "j"}}), r);
    EXPECT_EQ(r.get(Field::hsystem), "JPL DE405");
    EXPECT_EQ(ephemerisLabelOfLetter('d'), "JPL DE200");
    EXPECT_EQ(ephemerisLabelOfLetter('f'), "JPL DE245");
    EXPECT_EQ(ephemerisLabelOfLetter('h'), "JPL DE403");
    EXPECT_EQ(ephemerisLabelOfLetter('k'), "");
    OrbitRecord other;
    readElsLine(lineWith({{126, "J"}}), other);
    EXPECT_TRUE(other.blank(Field::hsystem));

    OrbitRecord de406 = orvane::testing::halley();
    de406.set(Field::hsystem, "JPL DE406");
    EXPECT_EQ(cols(writeElsLine(de406), 126, 126), " ");
    de406.set(Field::hsystem, "JPL DE405");
    EXPECT_EQ(cols(writeElsLine(de406), 126, 126), "j");
}

TEST(ElsFormat, LineOfSpacesGivesARecordWithNoValue) {
    OrbitRecord r;
    readElsLine(std::string(181, ' '), r);
    EXPECT_EQ(r, OrbitRecord());
    OrbitRecord empty;
    readElsLine("", empty);
    EXPECT_EQ(empty, OrbitRecord());
}

TEST(ElsFormat, OnlyTheFirst181ColumnsCount) {
    std::string line = lineWith({{173, "MPC 17245"}});
    line += "EXTRA TEXT BEYOND THE LINE";
    OrbitRecord r;
    readElsLine(line, r);
    EXPECT_EQ(r.get(Field::hreference), "MPC 17245");
}

TEST(ElsFormat, DayLayoutAlignsThePointInColumn33) {
    EXPECT_EQ(layoutElsNumber(Field::hday, "4.4537"), " 4.4537 ");
    EXPECT_EQ(layoutElsNumber(Field::hday, "15.4882"), "15.4882 ");
    EXPECT_EQ(layoutElsNumber(Field::hday, "15.5"), "15.5    ");
    EXPECT_EQ(layoutElsNumber(Field::hday, "15.5000"), "15.5    ");
    EXPECT_EQ(layoutElsNumber(Field::hday, "15.0"), "15.0    ");
    EXPECT_EQ(layoutElsNumber(Field::hday, "15.12345"), "15.1235 ");
}

TEST(ElsFormat, PerihelionDistanceLayout) {
    EXPECT_EQ(layoutElsNumber(Field::q, "1.561010"), " 1.56101 ");
    EXPECT_EQ(layoutElsNumber(Field::q, "12.5"), "12.500   ");
    EXPECT_EQ(layoutElsNumber(Field::q, "0.050216"), " 0.050216");
    EXPECT_EQ(layoutElsNumber(Field::q, "0.5"), " 0.500   ");
}

TEST(ElsFormat, EccentricityLayout) {
    EXPECT_EQ(layoutElsNumber(Field::e, "0.646932"), "0.646932");
    EXPECT_EQ(layoutElsNumber(Field::e, "1"), "1.000   ");
    EXPECT_EQ(layoutElsNumber(Field::e, "0.99"), "0.990   ");
}

TEST(ElsFormat, PeriodLayout) {
    EXPECT_EQ(layoutElsNumber(Field::P, "120.4"), " 120 ");
    EXPECT_EQ(layoutElsNumber(Field::P, "120.6"), " 121 ");
    EXPECT_EQ(layoutElsNumber(Field::P, "100.0"), " 100 ");  // a whole number keeps its zeros
    EXPECT_EQ(layoutElsNumber(Field::P, "5.43"), " 5.43");
    EXPECT_EQ(layoutElsNumber(Field::P, "5.4"), " 5.4 ");
    EXPECT_EQ(layoutElsNumber(Field::P, "13.25"), "13.25");
    EXPECT_EQ(layoutElsNumber(Field::P, "13"), "13.0 ");
}

TEST(ElsFormat, AngleLayoutAlignsThePointInColumn4) {
    EXPECT_EQ(layoutElsNumber(Field::w, "4.027"), "  4.027 ");
    EXPECT_EQ(layoutElsNumber(Field::w, "37.3860"), " 37.386 ");
    EXPECT_EQ(layoutElsNumber(Field::w, "112.6084"), "112.6084");
    EXPECT_EQ(layoutElsNumber(Field::i, "162.0"), "162.0   ");
    EXPECT_EQ(layoutElsNumber(Field::Om, "0.0001"), "  0.0001");
}

TEST(ElsFormat, NumberWithNoValueGivesBlankColumns) {
    EXPECT_EQ(layoutElsNumber(Field::q, ""), std::string(9, ' '));
    EXPECT_EQ(layoutElsNumber(Field::q, "n/a"), std::string(9, ' '));
    EXPECT_EQ(layoutElsNumber(Field::w, "1,5"), std::string(8, ' '));
    OrbitRecord r;
    const std::string line = writeElsLine(r);
    EXPECT_EQ(line, std::string(181, ' '));
}

TEST(ElsFormat, NumberWithoutAPointOrWithAnExponent) {
    EXPECT_EQ(layoutElsNumber(Field::w, "12"), " 12.0   ");
    EXPECT_EQ(layoutElsNumber(Field::w, "1.2e2"), "120.0   ");
    EXPECT_EQ(layoutElsNumber(Field::hday, "1e1"), "10.0    ");
}

TEST(ElsFormat, WriterLaysOutTheLine) {
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::des, "1982 U1");
    r.set(Field::P, "76.0");
    r.set(Field::Obs, "7428");
    r.set(Field::A2, "0.0155");
    r.set(Field::F_year, "1835");
    r.set(Field::F_month, "3");
    r.set(Field::F_day, "11");
    r.set(Field::hsystem, "JPL DE405");
    r.set(Field::hPlan, "9");
    r.set(Field::hreference, "MPC 17245");
    const std::string line = writeElsLine(r);
    ASSERT_EQ(line.size(), 181u);
    EXPECT_EQ(line, lineWith({{1, "0001P"}, {7, "1982 U1"}, {21, "2061"}, {26, "Sep"}, {31, "10.3628"},
                              {40, "0.588733"}, {50, "0.967048"}, {59, "76.0"}, {66, "112.6084"},
                              {77, "59.6962"}, {86, "162.207"}, {96, "24"}, {99, "Sep"}, {105, "7"},
                              {108, "7428*"}, {114, "I353B"}, {126, "j"}, {137, "9"}, {143, "Halley"},
                              {173, "MPC 17245"}}));
}

TEST(ElsFormat, CometNumberWithLeadingZeros) {
    OrbitRecord r;
    r.set(Field::comet, "12");
    EXPECT_EQ(cols(writeElsLine(r), 1, 4), "0012");
    r.set(Field::comet, "0012");
    EXPECT_EQ(cols(writeElsLine(r), 1, 4), "0012");
}

TEST(ElsFormat, LineEndsInsideTextsDoNotSplitTheLine) {
    OrbitRecord r;
    r.set(Field::name, "Two\r\nlines");
    const std::string line = writeElsLine(r);
    EXPECT_EQ(line.find('\n'), std::string::npos);
    EXPECT_EQ(cols(line, 143, 153), "Two  lines ");
}

}  // namespace
