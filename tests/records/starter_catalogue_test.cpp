// The starter catalogue Data/Starter.els: made again from the reference copy of the
// MPC's CometEls.txt it must come out byte for byte as committed, and it must read
// back as good records with the values of that list.
#include "tools/starter_catalogue.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

#include "records/els_format.h"
#include "records/validation.h"
#include "records_test_support.h"

namespace {

using namespace orvane;
using orvane::testing::TempHome;

const std::filesystem::path kStarterFile = std::filesystem::path(ORVANE_SOURCE_DIR) / "Data" / "Starter.els";

std::filesystem::path cometEls() { return orvane::testing::sharedPath("reference/CometEls.txt"); }

std::vector<OrbitRecord> starterRecords() {
    std::vector<OrbitRecord> records;
    std::istringstream in(orvane::testing::readFile(kStarterFile));
    for (std::string line; std::getline(in, line);) {
        EXPECT_EQ(line.size(), kElsLineWidth);
        records.emplace_back();
        readElsLine(line, records.back());
    }
    return records;
}

// The designation of the table: "1P", "73P-B", "C/2020 F3".
std::string labelOf(const OrbitRecord& r) {
    if (r.blank(Field::comet)) return std::string(r.get(Field::htype)) + "/" + std::string(r.get(Field::des));
    if (!r.blank(Field::des)) return std::string(r.get(Field::des));
    return std::to_string(std::stoi(std::string(r.get(Field::comet)))) + std::string(r.get(Field::htype));
}

const OrbitRecord* findByLabel(const std::vector<OrbitRecord>& records, std::string_view label) {
    for (const OrbitRecord& r : records) {
        if (labelOf(r) == label) return &r;
    }
    return nullptr;
}

TEST(StarterCatalogue, MadeAgainItIsTheCommittedFile) {
    TempHome home;
    const auto out = home.root() / "Starter.els";
    const starter::StarterResult result = starter::makeStarterCatalogue(cometEls(), out);
    ASSERT_TRUE(result.ok) << result.message;
    EXPECT_EQ(result.written, starter::kStarterComets.size());
    ASSERT_EQ(result.notes.size(), 1u);
    EXPECT_EQ(result.notes[0], "109P: epoch left out, its century differs from the perihelion's");
    EXPECT_EQ(orvane::testing::readFile(out), orvane::testing::readFile(kStarterFile));
}

TEST(StarterCatalogue, TableHoldsTheCometsObserversAskFor) {
    std::set<std::string_view> designations;
    for (const auto& comet : starter::kStarterComets) {
        EXPECT_FALSE(comet.reason.empty()) << comet.designation;
        EXPECT_TRUE(designations.insert(comet.designation).second) << comet.designation;
    }
    for (const std::string_view wanted : {"1P", "2P", "9P", "12P", "19P", "21P", "29P", "46P", "67P", "73P",
                                          "103P", "109P", "C/2022 E3", "C/2020 F3", "C/2023 A3"}) {
        EXPECT_EQ(designations.count(wanted), 1u) << wanted;
    }
    EXPECT_GE(designations.size(), 45u);
}

TEST(StarterCatalogue, ReadsBackAsGoodRecordsWithTheListsValues) {
    std::vector<OrbitRecord> records = starterRecords();
    ASSERT_EQ(records.size(), starter::kStarterComets.size());
    const std::vector<OrbitRecord> asRead = records;
    const ValidationResult checked = validateRecords(std::span<OrbitRecord>(records), orvane::testing::englishTexts());
    EXPECT_EQ(checked.faultKind, 0) << checked.faultRecord << " " << checked.fieldLabel;

    // 0001P  2061 09 10.3628  0.588733  0.967048  112.6084  59.6962  162.2070  20240907
    const OrbitRecord& halley = asRead[0];
    EXPECT_EQ(halley.get(Field::comet), "0001");
    EXPECT_EQ(halley.get(Field::htype), "P");
    EXPECT_EQ(halley.get(Field::name), "Halley");
    EXPECT_EQ(halley.get(Field::hyear), "2061");
    EXPECT_EQ(halley.get(Field::hmonth), "9");
    EXPECT_EQ(halley.get(Field::hday), "10.3628");
    EXPECT_EQ(halley.get(Field::q), "0.588733");
    EXPECT_EQ(halley.get(Field::e), "0.967048");
    EXPECT_EQ(halley.get(Field::w), "112.6084");
    EXPECT_EQ(halley.get(Field::Om), "59.6962");
    EXPECT_EQ(halley.get(Field::i), "162.207");
    EXPECT_EQ(halley.get(Field::E_year), "2024");
    EXPECT_EQ(halley.get(Field::hreference), "98, 1083");

    // CK20F030  2020 07  4.4061  0.294606  0.999241  37.3860  61.0972  129.1538  20240907
    const OrbitRecord* neowise = findByLabel(asRead, "C/2020 F3");
    ASSERT_NE(neowise, nullptr);
    EXPECT_EQ(neowise->get(Field::name), "NEOWISE");
    EXPECT_EQ(neowise->get(Field::E_year), "2024");
    EXPECT_EQ(neowise->get(Field::E_month), "9");
    EXPECT_EQ(neowise->get(Field::E_day), "7");
    EXPECT_EQ(neowise->get(Field::hday), "4.4061");
    EXPECT_EQ(neowise->get(Field::w), "37.386");

    // 0109P  1992 12 20.2429 ... epoch 20240907: the line could only say 1924.
    const OrbitRecord* swiftTuttle = findByLabel(asRead, "109P");
    ASSERT_NE(swiftTuttle, nullptr);
    EXPECT_EQ(swiftTuttle->get(Field::hyear), "1992");
    EXPECT_TRUE(swiftTuttle->blank(Field::E_year));
    EXPECT_TRUE(swiftTuttle->blank(Field::E_month));
    EXPECT_TRUE(swiftTuttle->blank(Field::E_day));

    const OrbitRecord* fragment = findByLabel(asRead, "C/2019 Y4-B");
    ASSERT_NE(fragment, nullptr);
    EXPECT_EQ(fragment->get(Field::q), "0.256212");
    EXPECT_EQ(fragment->get(Field::i), "45.1601");
}

TEST(StarterCatalogue, RecordsStandInTheOrderOfTheTable) {
    const std::vector<OrbitRecord> records = starterRecords();
    ASSERT_EQ(records.size(), starter::kStarterComets.size());
    for (std::size_t k = 0; k < records.size(); ++k) {
        EXPECT_EQ(labelOf(records[k]), starter::kStarterComets[k].designation) << k;
    }
}

TEST(StarterCatalogue, RefusesWhatItCannotUse) {
    TempHome home;
    starter::StarterResult result = starter::makeStarterCatalogue(cometEls(), home.root() / "Starter.txt");
    EXPECT_FALSE(result.ok);
    EXPECT_NE(result.message.find("must be an .els file"), std::string::npos);
    result = starter::makeStarterCatalogue(home.root() / "missing.txt", home.root() / "Starter.els");
    EXPECT_FALSE(result.ok);
    EXPECT_NE(result.message.find("cannot read"), std::string::npos);
    // A list without Halley stops at the first comet of the table.
    orvane::testing::writeFile(home.root() / "short.txt",
                               "0002P         2023 10 22.5325  0.339450  0.846983  187.2837  334.0148   11.3392  "
                               "20240907  11.5  6.0  2P/Encke\n");
    result = starter::makeStarterCatalogue(home.root() / "short.txt", home.root() / "Starter.els");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.message, "1P is not in " + (home.root() / "short.txt").string());
    EXPECT_FALSE(std::filesystem::exists(home.root() / "Starter.els"));
}

}  // namespace
