// ELS -> catalogue -> ELS and list -> catalogue -> list, with records built from the
// Minor Planet Center's one-line elements.
#include <gtest/gtest.h>

#include "records/catalogue_rows.h"
#include "records/els_format.h"
#include "records/import_export.h"
#include "records/list_format.h"
#include "records_test_support.h"

namespace {

using namespace orvane;
using orvane::testing::RecordingView;
using orvane::testing::TempHome;

const RecordTexts& texts() {
    static const RecordTexts t = orvane::testing::englishTexts();
    return t;
}

// Imports `file` into a fresh catalogue and exports all its rows to `out`.
void throughCatalogue(const TempHome& home, const std::string& dbName, const std::filesystem::path& file,
                      const std::filesystem::path& out, RecordArray& rows) {
    const std::string db = orvane::testing::freshCatalogue(home, dbName);
    RecordingView view;
    RecordArray array;
    const ImportResult result = importFile(file, db, array, view, texts());
    ASSERT_EQ(result.status, ImportStatus::Inserted) << (view.messages.empty() ? "" : view.messages[0]);
    ASSERT_EQ(loadCatalogueRecords(db, "order by id", rows), 0);
    ASSERT_EQ(exportRecords(out, std::span<const OrbitRecord>(rows.records.data(), rows.count), view, texts()),
              ExportStatus::Written);
}

TEST(RoundTrip, ElsThroughTheCatalogueIsByteIdentical) {
    TempHome home;
    const std::vector<OrbitRecord> records = orvane::testing::recordsFromCometEls(40, 23);
    ASSERT_EQ(records.size(), 40u);
    const auto first = home.root() / "first.els";
    ASSERT_TRUE(writeRecordFile(first, records));
    RecordArray rows;
    throughCatalogue(home, "a.db", first, home.root() / "second.els", rows);
    ASSERT_EQ(rows.count, 40u);
    const std::string before = orvane::testing::readFile(first);
    EXPECT_EQ(orvane::testing::readFile(home.root() / "second.els"), before);
    EXPECT_EQ(std::count(before.begin(), before.end(), '\n'), 40);

    // The values themselves, compared with the MPC line of the first record.
    // The line carries the value, not the text: "1.561010" comes back as 1.56101.
    EXPECT_EQ(std::stod(std::string(rows.records[0].get(Field::q))), std::stod(std::string(records[0].get(Field::q))));
    EXPECT_EQ(rows.records[0].get(Field::hyear), records[0].get(Field::hyear));
    EXPECT_EQ(rows.records[0].get(Field::hsystem), records[0].get(Field::hsystem));
    EXPECT_EQ(rows.records[0].get(Field::F_year), records[0].get(Field::F_year));
    EXPECT_EQ(rows.records[0].get(Field::A1), "0.0");
    EXPECT_TRUE(rows.records[1].blank(Field::A1));
    for (std::size_t k = 0; k < rows.count; ++k) {
        EXPECT_EQ(rows.records[k].get(Field::name), records[k].get(Field::name).substr(0, 30)) << k;
        EXPECT_EQ(rows.records[k].get(Field::des), records[k].get(Field::des)) << k;
        EXPECT_EQ(rows.records[k].get(Field::hinfo), "No Information Available...") << k;
    }
}

TEST(RoundTrip, HalleyValuesReachTheCatalogue) {
    TempHome home;
    const auto file = home.root() / "halley.els";
    const std::vector<OrbitRecord> one{orvane::testing::halley()};
    ASSERT_TRUE(writeRecordFile(file, one));
    RecordArray rows;
    throughCatalogue(home, "h.db", file, home.root() / "back.els", rows);
    ASSERT_EQ(rows.count, 1u);
    const OrbitRecord& r = rows.records[0];
    EXPECT_EQ(r.get(Field::comet), "1");
    EXPECT_EQ(r.get(Field::q), "0.588733");
    EXPECT_EQ(r.get(Field::e), "0.967048");
    EXPECT_EQ(r.get(Field::hday), "10.3628");
    EXPECT_EQ(r.get(Field::i), "162.207");
    EXPECT_EQ(r.get(Field::E_year), "2024");
    EXPECT_EQ(r.get(Field::class_calc), "Halley-type");
}

TEST(RoundTrip, NameWithAnApostropheSurvives) {
    TempHome home;
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::comet, "6");
    r.set(Field::name, "d'Arrest");
    const std::vector<OrbitRecord> one{r};
    for (const char* name : {"darrest.els", "darrest.txt"}) {
        const auto file = home.root() / name;
        ASSERT_TRUE(writeRecordFile(file, one));
        RecordArray rows;
        throughCatalogue(home, std::string(name) + ".db", file, home.root() / (std::string("back-") + name), rows);
        ASSERT_EQ(rows.count, 1u);
        EXPECT_EQ(rows.records[0].get(Field::name), "d'Arrest");
        if (isElsPath(name)) {
            EXPECT_EQ(orvane::testing::readFile(home.root() / (std::string("back-") + name)),
                      orvane::testing::readFile(file));
        }
    }
}

TEST(RoundTrip, ListThroughTheCatalogueKeepsEveryFieldAndTheInfo) {
    TempHome home;
    std::vector<OrbitRecord> records = orvane::testing::recordsFromCometEls(32, 31);
    ASSERT_EQ(records.size(), 32u);
    for (std::size_t k = 0; k < records.size(); ++k) {
        OrbitRecord& r = records[k];
        r.set(Field::q_err, "0.000012");
        r.set(Field::M1, "11.5");
        r.set(Field::K1, "8");
        r.set(Field::Producer, "O'Neil's orbit, \"fit\" #" + std::to_string(k));
        r.set(Field::hinfo, "First line.\r\nIt's the second line; 'quoted' too.\r\n\r\nLast, after a blank line.");
    }
    records[5].set(Field::name, "d'Arrest");
    records[7].set(Field::hinfo, "");

    // The first pass turns each number into the text the catalogue keeps ("4.0270" is
    // stored as 4.027); from then on the list text does not change.
    const auto zero = home.root() / "zero.txt";
    ASSERT_TRUE(writeRecordFile(zero, records));
    RecordArray rows1;
    const auto first = home.root() / "first.txt";
    throughCatalogue(home, "1.db", zero, first, rows1);
    RecordArray rows2;
    const auto second = home.root() / "second.txt";
    throughCatalogue(home, "2.db", first, second, rows2);
    EXPECT_EQ(orvane::testing::readFile(second), orvane::testing::readFile(first));

    ASSERT_EQ(rows1.count, 32u);
    EXPECT_EQ(rows1.records[0].get(Field::hinfo),
              "First line.\r\nIt's the second line; 'quoted' too.\r\n\r\nLast, after a blank line.");
    EXPECT_EQ(rows1.records[7].get(Field::hinfo), "No Information Available...");
    EXPECT_EQ(rows1.records[5].get(Field::name), "d'Arrest");
    EXPECT_EQ(rows1.records[3].get(Field::Producer), "O'Neil's orbit, \"fit\" #3");
    EXPECT_EQ(rows1.records[3].get(Field::q_err), "1.2e-05");
    EXPECT_EQ(rows1.records[3].get(Field::K1), "8.0");
    for (std::size_t k = 0; k < rows1.count; ++k) {
        for (const Field field : {Field::name, Field::des, Field::htype, Field::hsystem, Field::b_perturber,
                                  Field::f_perturber, Field::hreference, Field::Producer}) {
            EXPECT_EQ(rows1.records[k].get(field), records[k].get(field)) << k << " " << fieldName(field);
        }
    }
}

}  // namespace
