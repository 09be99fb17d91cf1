#include "language/default_texts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "language/language_table.h"

using namespace orvane;

namespace {

struct Row {
    Section section;
    int key;
    std::string text;
};

// English texts as the program must show them, typed from the published list.
// Non-ASCII characters are spelled as UTF-8 bytes: "\xC2\xB0" is the degree sign,
// "\xD0\x9C\xD0\x91" the Cyrillic letters EM and BE.
const std::vector<Row> kReference{
    {Section::orvMenu, 1, "File"},
    {Section::orvMenu, 6, "Save As..."},
    {Section::orvMenu, 20, "Tasks"},
    {Section::orvMenu, 24, ""},
    {Section::orvMenu, 26, ""},
    {Section::orvMenu, 31, "About Orvane..."},
    {Section::orvMenu, 33, ""},
    {Section::orvMenu, 35, ""},
    {Section::orvMenu, 45, "Tasks"},
    {Section::orvToolBar, 5, ""},
    {Section::orvToolBar, 12, "Show Output pane"},
    {Section::orvToolBar, 21, "Options"},
    {Section::orvTab, 1, "Start Page"},
    {Section::orvTab, 2, "Orbits"},
    {Section::orvStartPage, 24, "Show Calculated Elements"},
    {Section::orvBriefInfo, 5, "Long-period and unnumbered short- and intermediate-period comets:"},
    {Section::orvQuickSearch, 6, "Orbit type (C, P or D)"},
    {Section::orvAdvSearch, 2, "---"},
    {Section::orvAdvSearch, 40, "Person (or institution) who computed the orbit"},
    {Section::orvAdvSearch, 61, "Not equal to (/=)"},
    {Section::orvAdvSearch, 67, "or"},
    {Section::orvFilters, 5, "Search in the last update only"},
    {Section::orvOutDetails, 2, "Show errors of elements"},
    {Section::orvSets, 3, "ECS Format Elements"},
    {Section::orvElements, 20, "Non-grav. transverse acceleration parameter (10e-8 AU/day^2)"},
    {Section::orvElements, 48, "Date of record change"},
    {Section::orvCalcElements, 7, "Orbital period* (years)"},
    {Section::orvStatus, 16, "Error: No colums selected"},
    {Section::orvStatus, 27, "Editing Records in progress..."},
    {Section::orvListView, 1, "#"},
    {Section::orvListView, 72, "Fuller description of perturbers used (0000 if unperturbed)"},
    {Section::orvListView, 108, "Orbital period* (years)"},
    {Section::orvAbout, 2, "Orvane - Comet Ephemeris Desk"},
    {Section::orvAbout, 7, "OK"},
    {Section::orvUpdate, 21, "Update progress: Downloading (0 MB /"},
    {Section::orvUpdate, 28, "Update status: Setup canceled..."},
    {Section::orvOrvaneOptions, 11, "(from -3000-02-22 to 3000-03-03)"},
    {Section::orvEdit, 15, "apparision"},
    {Section::orvEdit, 21, ""},
    {Section::orvEdit, 44, "Epoch     :"},
    {Section::orvEdit, 67, "Epoch day must have 'DD' format."},
    {Section::orvEdit, 89, "Possible it's time to stop? Try to use Import service:)"},
    {Section::orvEdit, 154, "arcsec/h"},
    {Section::orvEdit, 155, "\"/h"},
    {Section::orvEdit, 166, "Hill Sph. :"},
    {Section::orvEdit, 167, "Hill Sph."},
    {Section::orvOrbits, 10, "\xC2\xB0 / Lon:"},
    {Section::orvOrbits, 11, "\xC2\xB0 / Field:"},
    {Section::orvOrbits, 29, ""},
    {Section::orvOrbits, 33, "MB. Try to change the step-size or the interval of integration."},
    {Section::orvPlanets, 1, "Sun"},
    {Section::orvPlanets, 12, "Earth"},
    {Section::orvElementsOptions, 35, ""},
    {Section::orvElementsOptions, 77,
     "Invalid numeric entry. JPL DE406: A Julian Date from 625359.5 to 2816848.5 required!"},
    {Section::orvElementsOptions, 83, "Invalid numeric entry. Acceptable File Size range from 1 to 20 MB!"},
    {Section::orvErrors, 1, "\"periodic comet number\""},
    {Section::orvErrors, 7, "\"name of comet\""},
    {Section::orvErrors, 32, "- Day of perihelion passage value should be in the range [1; 32)."},
    {Section::orvErrors, 227, "\"additional info\""},
    {Section::orvErrors, 355, "- Comet nuclear magnitude slope error value should be a real type."},
    {Section::orvElementsUpdate, 15, " date..."},
    {Section::orvElementsUpdate, 33, "You will lost all of changes, except your own!"},
    {Section::orvDEInstall, 4, "JPL DE406 Planetary and Lunar Ephemerides (190 \xD0\x9C\xD0\x91)"},
    {Section::orvDEInstall, 5, "JPL DE423 Planetary and Lunar Ephemerides (35 \xD0\x9C\xD0\x91)"},
    {Section::orvDEInstall, 25,
     "Covers from -3000-02-22 to 3000-03-03. JPL Long Ephemeris with reduced accuracy of interpolating "
     "polynomials, but covers a larger time interval. (1997)"},
    {Section::orvWnd, 9, "Never updated..."},
    {Section::orvCoSystem, 21, "Move to Move to Ephemerides Settings"},
    {Section::orvCoSystem, 28, "\xC2\xB0"},
    {Section::orvCoSystem, 29, "'"},
    {Section::orvCoSystem, 30, "\""},
    {Section::orvCoSystem, 47, ""},
    {Section::orvCoSystem, 52, "MB"},
};

}  // namespace

TEST(DefaultTexts, MatchTheEnglishListCharacterForCharacter) {
    ASSERT_GE(kReference.size(), 40u);
    for (const auto& row : kReference) {
        EXPECT_EQ(std::string(defaultText(row.section, row.key)), row.text)
            << sectionName(row.section) << " " << row.key;
    }
}

TEST(DefaultTexts, EverySectionHasOneTextPerKey) {
    for (const Section section : kAllSections) {
        EXPECT_EQ(defaultSectionTexts(section).size(), static_cast<std::size_t>(keyCount(section)))
            << sectionName(section);
    }
}

TEST(DefaultTexts, EveryTextFitsItsEntry) {
    for (const Section section : kAllSections) {
        for (int key = 1; key <= keyCount(section); ++key) {
            const auto text = defaultText(section, key);
            EXPECT_EQ(fitToEntry(section, text), text) << sectionName(section) << " " << key;
        }
    }
}

TEST(DefaultTexts, TheCyrillicMegabytesAreTwoCharacters) {
    // U+041C U+0411, the way the ephemeris download sizes were always written.
    const std::string megabytes = "\xD0\x9C\xD0\x91";
    EXPECT_NE(std::string(defaultText(Section::orvDEInstall, 4)).find(megabytes), std::string::npos);
    EXPECT_NE(std::string(defaultText(Section::orvDEInstall, 5)).find(megabytes), std::string::npos);
}

TEST(DefaultTexts, AboutBoxNamesTheProgramsAuthorsThanksAndCopyright) {
    EXPECT_EQ(defaultText(Section::orvAbout, 4), "Written by the Orvane developers");
    EXPECT_EQ(defaultText(Section::orvAbout, 5), "Thanks to the observers who report comet orbits");
    EXPECT_EQ(defaultText(Section::orvAbout, 6), "Copyright (c) 2026 the Orvane developers");
}

TEST(DefaultTexts, KeysOutsideASectionHaveNoText) {
    EXPECT_EQ(defaultText(Section::orvMenu, 0), "");
    EXPECT_EQ(defaultText(Section::orvMenu, 46), "");
    EXPECT_EQ(defaultText(Section::orvTab, -5), "");
    EXPECT_TRUE(defaultSectionTexts(static_cast<Section>(40)).empty());
}
