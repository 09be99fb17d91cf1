#include "language/language_table.h"

#include <gtest/gtest.h>

#include <string>

#include "language/default_texts.h"

using namespace orvane;

TEST(LanguageTable, StartsWithTheDefaultsInBothArrays) {
    const LanguageTable table;
    for (const Section section : kAllSections) {
        for (int key = 1; key <= keyCount(section); ++key) {
            EXPECT_EQ(table.currentEntry(section, key), table.defaultEntry(section, key));
        }
    }
    EXPECT_EQ(table.text(Section::orvMenu, 6), "Save As...");
    EXPECT_EQ(table.text(Section::orvErrors, 1), "\"periodic comet number\"");
    EXPECT_EQ(table.text(Section::orvCoSystem, 30), "\"");
}

TEST(LanguageTable, EntriesAreBlankPaddedToAFixedWidth) {
    const LanguageTable table;
    // Four bytes per character of the width, so that any UTF-8 text of
    // width - 1 characters fits.
    EXPECT_EQ(entryBytes(Section::orvMenu), 200u);
    EXPECT_EQ(entryBytes(Section::orvErrors), 800u);
    const auto entry = table.currentEntry(Section::orvTab, 2);
    ASSERT_EQ(entry.size(), 80u);
    EXPECT_EQ(entry, "Orbits" + std::string(74, ' '));
    EXPECT_EQ(table.currentEntry(Section::orvMenu, 24), std::string(200, ' '));
}

TEST(LanguageTable, TextIsLeftAdjustedWithoutTrailingBlanks) {
    const LanguageTable table;
    // The stored default keeps its leading blank; every reader sees it adjusted.
    EXPECT_EQ(table.defaultEntry(Section::orvElementsUpdate, 15).substr(0, 9), " date... ");
    EXPECT_EQ(table.text(Section::orvElementsUpdate, 15), "date...");
    EXPECT_EQ(table.text(Section::orvEdit, 44), "Epoch     :");
    EXPECT_EQ(table.text(Section::orvMenu, 24), "");
}

TEST(LanguageTable, SetCurrentCutsAtWidthMinusOneCharacters) {
    LanguageTable table;
    table.setCurrent(Section::orvMenu, 6, std::string(60, 'x'));
    EXPECT_EQ(table.text(Section::orvMenu, 6), std::string(49, 'x'));
    // "\xD0\x96" is one character (ZHE): 60 of them are cut at 49, never mid-sequence.
    std::string cyrillic;
    for (int i = 0; i < 60; ++i) cyrillic += "\xD0\x96";
    table.setCurrent(Section::orvTab, 1, cyrillic);
    EXPECT_EQ(table.text(Section::orvTab, 1), cyrillic.substr(0, 2 * 19));
    EXPECT_EQ(table.defaultEntry(Section::orvTab, 1).substr(0, 10), "Start Page");
}

TEST(LanguageTable, ResetBringsBackTheDefaults) {
    LanguageTable table;
    table.setCurrent(Section::orvPlanets, 4, "Terra");
    EXPECT_EQ(table.text(Section::orvPlanets, 4), "Terra");
    table.resetToDefaults();
    EXPECT_EQ(table.text(Section::orvPlanets, 4), "Earth");
}

TEST(LanguageTable, KeysOutsideTheSectionReadEmptyAndAreNeverWritten) {
    LanguageTable table;
    table.setCurrent(Section::orvTab, 3, "beyond");
    table.setCurrent(Section::orvTab, 0, "before");
    EXPECT_EQ(table.text(Section::orvTab, 3), "");
    EXPECT_EQ(table.text(Section::orvTab, 0), "");
    EXPECT_EQ(table.text(static_cast<Section>(26), 1), "");
    EXPECT_EQ(table.text(Section::orvTab, 1), "Start Page");
    EXPECT_EQ(table.text(Section::orvTab, 2), "Orbits");
    EXPECT_EQ(table.text(Section::orvPlanets, 1), "Sun");
}

TEST(LanguageTable, ProgramWideTableAndReset) {
    ResetLanguage();
    EXPECT_EQ(text(Section::orvMenu, 1), "File");
    programLanguage().setCurrent(Section::orvMenu, 1, "Datei");
    EXPECT_EQ(text(Section::orvMenu, 1), "Datei");
    ResetLanguage();
    EXPECT_EQ(text(Section::orvMenu, 1), "File");
}
