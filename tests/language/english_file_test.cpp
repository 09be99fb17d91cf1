// The English.lng that the program ships reads back to exactly the built-in texts.
#include <gtest/gtest.h>

#include <filesystem>

#include "language/default_texts.h"
#include "language/load_language.h"

using namespace orvane;

TEST(EnglishLanguageFile, ReadsBackToEveryDefaultText) {
    LanguageTable table;
    const std::filesystem::path folder = std::filesystem::path(ORVANE_SOURCE_DIR) / "Languages";
    ASSERT_EQ(LoadLanguage(table, folder, "English.lng"), LanguageLoad::fileRead);
    int compared = 0;
    for (const Section section : kAllSections) {
        for (int key = 1; key <= keyCount(section); ++key) {
            EXPECT_EQ(table.currentEntry(section, key), table.defaultEntry(section, key))
                << sectionName(section) << " " << key;
            ++compared;
        }
    }
    EXPECT_EQ(compared, 1206);
}
