#include "language/sections.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace orvane;

namespace {

struct ExpectedShape {
    Section section;
    std::string name;
    int keys;
    int width;
};

// The table of sections, in the order a language file is read.
const std::vector<ExpectedShape> kExpected{
    {Section::orvMenu, "orvMenu", 45, 50},
    {Section::orvToolBar, "orvToolBar", 21, 50},
    {Section::orvTab, "orvTab", 2, 20},
    {Section::orvStartPage, "orvStartPage", 24, 50},
    {Section::orvBriefInfo, "orvBriefInfo", 7, 90},
    {Section::orvQuickSearch, "orvQuickSearch", 6, 50},
    {Section::orvAdvSearch, "orvAdvSearch", 67, 50},
    {Section::orvFilters, "orvFilters", 5, 50},
    {Section::orvOutDetails, "orvOutDetails", 2, 50},
    {Section::orvSets, "orvSets", 6, 50},
    {Section::orvElements, "orvElements", 48, 70},
    {Section::orvCalcElements, "orvCalcElements", 7, 70},
    {Section::orvStatus, "orvStatus", 27, 50},
    {Section::orvListView, "orvListView", 108, 70},
    {Section::orvAbout, "orvAbout", 11, 90},
    {Section::orvUpdate, "orvUpdate", 29, 90},
    {Section::orvOrvaneOptions, "orvOrvaneOptions", 16, 90},
    {Section::orvEdit, "orvEdit", 167, 90},
    {Section::orvOrbits, "orvOrbits", 37, 200},
    {Section::orvPlanets, "orvPlanets", 12, 20},
    {Section::orvElementsOptions, "orvElementsOptions", 83, 200},
    {Section::orvErrors, "orvErrors", 355, 200},
    {Section::orvElementsUpdate, "orvElementsUpdate", 33, 200},
    {Section::orvDEInstall, "orvDEInstall", 27, 200},
    {Section::orvWnd, "orvWnd", 9, 200},
    {Section::orvCoSystem, "orvCoSystem", 52, 90},
};

}  // namespace

TEST(LanguageSections, TwentySixSectionsInTableOrder) {
    ASSERT_EQ(kSectionCount, 26u);
    ASSERT_EQ(kExpected.size(), kSectionCount);
    for (std::size_t i = 0; i < kSectionCount; ++i) {
        EXPECT_EQ(kAllSections[i], kExpected[i].section) << i;
        EXPECT_EQ(static_cast<std::size_t>(kExpected[i].section), i) << kExpected[i].name;
    }
}

TEST(LanguageSections, EachSectionHasItsNameKeyCountAndWidth) {
    for (const auto& expected : kExpected) {
        EXPECT_EQ(sectionName(expected.section), expected.name);
        EXPECT_EQ(keyCount(expected.section), expected.keys) << expected.name;
        EXPECT_EQ(widthOf(expected.section), expected.width) << expected.name;
    }
}

TEST(LanguageSections, TheWholeTableHolds1206Texts) {
    // The start-up notes speak of 1,101 English texts; the section counts add up
    // to 1,196, and the section counts are what language files are written against.
    EXPECT_EQ(kTotalKeys, 1206);
}

TEST(LanguageSections, KeysRunFromOneToTheCount) {
    EXPECT_FALSE(isValidKey(Section::orvMenu, 0));
    EXPECT_TRUE(isValidKey(Section::orvMenu, 1));
    EXPECT_TRUE(isValidKey(Section::orvMenu, 45));
    EXPECT_FALSE(isValidKey(Section::orvMenu, 46));
    EXPECT_TRUE(isValidKey(Section::orvErrors, 355));
    EXPECT_FALSE(isValidKey(Section::orvErrors, 356));
    EXPECT_FALSE(isValidSection(static_cast<Section>(26)));
    EXPECT_FALSE(isValidSection(static_cast<Section>(-1)));
    EXPECT_EQ(keyCount(static_cast<Section>(99)), 0);
}
