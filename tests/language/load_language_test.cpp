#include "language/load_language.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <set>
#include <string>
#include <utility>

#include "support/temp_home.h"
#include "language/default_texts.h"
#include "language/text_encoding.h"

using namespace orvane;
using namespace std::string_literals;

namespace {

class LoadLanguageTest : public ::testing::Test {
protected:
    LoadLanguageTest() : folder_(home_.root() / "Languages") { std::filesystem::create_directories(folder_); }

    // Writes Test.lng and loads it into the table.
    LanguageLoad load(const std::string& bytes) {
        orvane::testing::writeFile(folder_ / "Test.lng", bytes);
        return LoadLanguage(table_, folder_, "Test.lng");
    }

    // Every text is the default except the listed (section, key) pairs.
    void expectDefaultsExcept(const std::set<std::pair<Section, int>>& changed) const {
        for (const Section section : kAllSections) {
            for (int key = 1; key <= keyCount(section); ++key) {
                if (changed.count({section, key}) != 0) continue;
                EXPECT_EQ(table_.currentEntry(section, key), table_.defaultEntry(section, key))
                    << sectionName(section) << " " << key;
            }
        }
    }

    orvane::testing::TempHome home_;
    std::filesystem::path folder_;
    LanguageTable table_;
};

}  // namespace

// --- the file name --------------------------------------------------------

TEST_F(LoadLanguageTest, NameWithOrWithoutExtensionReadsTheSameFile) {
    EXPECT_EQ(LanguageFilePath(folder_, "English.lng"), folder_ / "English.lng");
    EXPECT_EQ(LanguageFilePath(folder_, "English"), folder_ / "English.lng");
    EXPECT_EQ(LanguageFilePath(folder_, "Deutsch.LNG"), folder_ / "Deutsch.LNG");
    // The stored name is a blank-padded field of 100 characters.
    EXPECT_EQ(LanguageFilePath(folder_, "English.lng" + std::string(89, ' ')), folder_ / "English.lng");
    EXPECT_EQ(LanguageFilePath(folder_, "English.lng\0garbage"s), folder_ / "English.lng");

    orvane::testing::writeFile(folder_ / "Deutsch.lng", "[orvMenu]\n1=Datei\n");
    EXPECT_EQ(LoadLanguage(table_, folder_, "Deutsch"), LanguageLoad::fileRead);
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "Datei");
    table_.resetToDefaults();
    EXPECT_EQ(LoadLanguage(table_, folder_, "Deutsch.lng"), LanguageLoad::fileRead);
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "Datei");
}

TEST_F(LoadLanguageTest, NamesThatAreNoPlainFileNameReadNothing) {
    for (const std::string name : {"", "   ", ".", "..", "../English.lng", "sub/English.lng", "..\\x.lng"}) {
        table_.setCurrent(Section::orvMenu, 1, "stale");
        EXPECT_FALSE(LanguageFilePath(folder_, name).has_value()) << name;
        EXPECT_EQ(LoadLanguage(table_, folder_, name), LanguageLoad::invalidName) << name;
        EXPECT_EQ(table_.text(Section::orvMenu, 1), "File") << name;
    }
}

// --- missing and empty files ------------------------------------------------

TEST_F(LoadLanguageTest, MissingFileGivesEveryDefault) {
    table_.setCurrent(Section::orvErrors, 300, "left over from another language");
    EXPECT_EQ(LoadLanguage(table_, folder_, "English.lng"), LanguageLoad::noFile);
    expectDefaultsExcept({});
    EXPECT_EQ(table_.text(Section::orvErrors, 1), "\"periodic comet number\"");
}

TEST_F(LoadLanguageTest, FolderInsteadOfAFileGivesTheDefaults) {
    std::filesystem::create_directories(folder_ / "Odd.lng");
    EXPECT_EQ(LoadLanguage(table_, folder_, "Odd.lng"), LanguageLoad::noFile);
    expectDefaultsExcept({});
}

TEST_F(LoadLanguageTest, EmptyFileGivesEveryDefault) {
    EXPECT_EQ(load(""), LanguageLoad::fileRead);
    expectDefaultsExcept({});
}

// --- the edge cases of the loader -----------------------------------------

TEST_F(LoadLanguageTest, SingleKeyChangesThatTextAlone) {
    EXPECT_EQ(load("[orvToolBar]\n1=Suchen\n"), LanguageLoad::fileRead);
    EXPECT_EQ(table_.text(Section::orvToolBar, 1), "Suchen");
    expectDefaultsExcept({{Section::orvToolBar, 1}});
}

TEST_F(LoadLanguageTest, EmptyValueGivesAnEmptyTextNotTheDefault) {
    load("[orvMenu]\n1=\n2=   \n3=\"\"\n");
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "");
    EXPECT_EQ(table_.text(Section::orvMenu, 2), "");
    EXPECT_EQ(table_.text(Section::orvMenu, 3), "");
    EXPECT_EQ(table_.text(Section::orvMenu, 4), "Tools");
}

TEST_F(LoadLanguageTest, KeyWithoutEqualsSignKeepsItsDefault) {
    load("[orvMenu]\n1\n2=Bearbeiten\n");
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "File");
    EXPECT_EQ(table_.text(Section::orvMenu, 2), "Bearbeiten");
}

TEST_F(LoadLanguageTest, BackslashTInMenuKey6BecomesATabBeforeTheAccelerator) {
    load("[orvMenu]\n6=Save As...\\tCtrl+S\n");
    const std::string menuText = table_.text(Section::orvMenu, 6);
    EXPECT_EQ(menuText, "Save As...\tCtrl+S");
    const auto tab = menuText.find('\t');
    ASSERT_NE(tab, std::string::npos);
    EXPECT_EQ(menuText.substr(0, tab), "Save As...");
    EXPECT_EQ(menuText.substr(tab + 1), "Ctrl+S");
}

TEST_F(LoadLanguageTest, OnlyTheFirstBackslashTPairIsReplaced) {
    load("[orvMenu]\n7=a\\tb\\tc\n");
    EXPECT_EQ(table_.text(Section::orvMenu, 7), "a\tb\\tc");
}

TEST_F(LoadLanguageTest, BackslashTStaysOutsideTheMenus) {
    load("[orvToolBar]\n1=a\\tb\n[orvStatus]\n4=Ready\\t\n");
    EXPECT_EQ(table_.text(Section::orvToolBar, 1), "a\\tb");
    EXPECT_EQ(table_.text(Section::orvStatus, 4), "Ready\\t");
}

TEST_F(LoadLanguageTest, SixtyCharacterMenuValueIsCutAt49) {
    const std::string sixty = "123456789012345678901234567890123456789012345678901234567890";
    ASSERT_EQ(sixty.size(), 60u);
    load("[orvMenu]\n6=" + sixty + "\n");
    EXPECT_EQ(table_.text(Section::orvMenu, 6), sixty.substr(0, 49));
}

TEST_F(LoadLanguageTest, MenuValueIsCutBeforeTheTabIsMade) {
    // 47 characters, then "\t" and "X": the cut at 49 keeps the pair, not the X.
    load("[orvMenu]\n6=" + std::string(47, 'm') + "\\tX\n");
    EXPECT_EQ(table_.text(Section::orvMenu, 6), std::string(47, 'm') + "\t");
}

TEST_F(LoadLanguageTest, OverlongValuesAreCutToEachSectionsWidth) {
    load("[orvErrors]\n300=" + std::string(300, 'e') + "\n[orvTab]\n1=" + std::string(30, 't') +
         "\n[orvListView]\n1=" + std::string(100, 'l') + "\n");
    EXPECT_EQ(table_.text(Section::orvErrors, 300), std::string(199, 'e'));
    EXPECT_EQ(table_.text(Section::orvTab, 1), std::string(19, 't'));
    EXPECT_EQ(table_.text(Section::orvListView, 1), std::string(69, 'l'));
}

// --- the profile rules --------------------------------------------------------

TEST_F(LoadLanguageTest, SectionAndKeyNamesIgnoreCase) {
    load("[ORVMENU]\n1=Datei\n[orvtoolbar]\n1=Suchen\n");
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "Datei");
    EXPECT_EQ(table_.text(Section::orvToolBar, 1), "Suchen");
}

TEST_F(LoadLanguageTest, FirstOccurrenceOfASectionOrKeyWins) {
    load("[orvTab]\n1=First\n1=Second\n[orvPlanets]\n1=Sol\n[orvTab]\n1=Third\n2=Bahnen\n");
    EXPECT_EQ(table_.text(Section::orvTab, 1), "First");
    EXPECT_EQ(table_.text(Section::orvTab, 2), "Orbits");  // only in the repeated section
    EXPECT_EQ(table_.text(Section::orvPlanets, 1), "Sol");
}

TEST_F(LoadLanguageTest, BlanksAroundNamesAndValuesAreDropped) {
    load("  [ orvTab ]  \n\t 1 \t=   Start   \n2\t=\tBahnen\t\n");
    EXPECT_EQ(table_.text(Section::orvTab, 1), "Start");
    EXPECT_EQ(table_.currentEntry(Section::orvTab, 1).substr(0, 6), "Start ");
    EXPECT_EQ(table_.text(Section::orvTab, 2), "Bahnen");
}

TEST_F(LoadLanguageTest, MatchingQuotesAroundAValueAreStripped) {
    load("[orvEdit]\n"
         "1=\"  Edit Record  \"\n"
         "2='of'\n"
         "3=\"mixed'\n"
         "4=\"\n"
         "5=\"\"inner\"\"\n"
         "6=say \"hi\"\n"
         "155=\"/h\n");
    // The quotes keep the blanks inside them in the entry; readers left-adjust.
    EXPECT_EQ(table_.currentEntry(Section::orvEdit, 1).substr(0, 16), "  Edit Record   ");
    EXPECT_EQ(table_.text(Section::orvEdit, 1), "Edit Record");
    EXPECT_EQ(table_.text(Section::orvEdit, 2), "of");
    EXPECT_EQ(table_.text(Section::orvEdit, 3), "\"mixed'");
    EXPECT_EQ(table_.text(Section::orvEdit, 4), "\"");
    EXPECT_EQ(table_.text(Section::orvEdit, 5), "\"inner\"");
    EXPECT_EQ(table_.text(Section::orvEdit, 6), "say \"hi\"");
    EXPECT_EQ(table_.text(Section::orvEdit, 155), "\"/h");
}

TEST_F(LoadLanguageTest, DefaultsKeepTheirQuotesWhenTheFileLacksTheKey) {
    load("[orvErrors]\n2=- Keine Leerzeichen.\n");
    EXPECT_EQ(table_.text(Section::orvErrors, 1), "\"periodic comet number\"");
    EXPECT_EQ(table_.text(Section::orvEdit, 155), "\"/h");
    EXPECT_EQ(table_.text(Section::orvCoSystem, 30), "\"");
    EXPECT_EQ(table_.text(Section::orvErrors, 2), "- Keine Leerzeichen.");
}

TEST_F(LoadLanguageTest, CommentLinesAreSkipped) {
    load("; a translation\n[orvMenu]\n;1=Commented\n   ; 2=Also commented\n3=Ansicht ; not a comment\n");
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "File");
    EXPECT_EQ(table_.text(Section::orvMenu, 2), "Edit");
    EXPECT_EQ(table_.text(Section::orvMenu, 3), "Ansicht ; not a comment");
}

TEST_F(LoadLanguageTest, OnlyDecimalKeysFromOneToTheCountAreRead) {
    load("[orvTab]\n01=zero-led\n+2=signed\n0=zero\n3=beyond\n1x=junk\n99999999999999999999=huge\n");
    expectDefaultsExcept({});
}

TEST_F(LoadLanguageTest, KeysOutsideAKnownSectionGoNowhere) {
    load("1=before any section\n[orvMenu]\n[NotASection]\n1=Datei\n[]\n2=x\n");
    expectDefaultsExcept({});
}

TEST_F(LoadLanguageTest, AnUnclosedHeaderIsNoSectionHeader) {
    // The line stays inside the section before it, where it names no key.
    load("[orvMenu]\n[orvTab\n1=Datei\n");
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "Datei");
    EXPECT_EQ(table_.text(Section::orvTab, 1), "Start Page");
}

TEST_F(LoadLanguageTest, ALaterLoadStartsAgainFromTheDefaults) {
    load("[orvMenu]\n1=Datei\n2=Bearbeiten\n");
    load("[orvMenu]\n2=Edition\n");
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "File");
    EXPECT_EQ(table_.text(Section::orvMenu, 2), "Edition");
}

// --- line ends --------------------------------------------------------------

TEST_F(LoadLanguageTest, AllLineEndsAndAMissingFinalOne) {
    load("[orvTab]\r\n1=Crlf\r\n[orvPlanets]\r1=Cr\r2=Cr2\r[orvMenu]\n1=Lf\n2=NoEnd");
    EXPECT_EQ(table_.text(Section::orvTab, 1), "Crlf");
    EXPECT_EQ(table_.text(Section::orvPlanets, 1), "Cr");
    EXPECT_EQ(table_.text(Section::orvPlanets, 2), "Cr2");
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "Lf");
    EXPECT_EQ(table_.text(Section::orvMenu, 2), "NoEnd");
}

// --- bad input --------------------------------------------------------------

TEST_F(LoadLanguageTest, NulBytesEndTheirLine) {
    load("[orvTab]\n1=Sta\0rt\n2=Bahnen\n[orv\0Menu]\n1=Datei\n\0[orvPlanets]\n1=Sol\n"s);
    EXPECT_EQ(table_.text(Section::orvTab, 1), "Sta");
    EXPECT_EQ(table_.text(Section::orvTab, 2), "Bahnen");
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "File");
    EXPECT_EQ(table_.text(Section::orvPlanets, 1), "Sun");
}

TEST_F(LoadLanguageTest, BinaryJunkLeavesTheDefaults) {
    std::mt19937 random(20260101u);
    std::string junk(1 << 20, '\0');
    for (char& c : junk) c = static_cast<char>(random() & 0xFF);
    // No line of random bytes can be "[orvXxx]" followed by a key of that section
    // with a plausible value; the table must simply stay valid.
    EXPECT_EQ(load(junk), LanguageLoad::fileRead);
    for (const Section section : kAllSections) {
        for (int key = 1; key <= keyCount(section); ++key) {
            const auto entry = table_.currentEntry(section, key);
            EXPECT_EQ(entry.size(), entryBytes(section));
        }
    }
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "File");
}

TEST_F(LoadLanguageTest, JunkAroundAGoodSectionStillReadsIt) {
    std::string bytes = "\x01\xFF\xFE\x80junk\x9A\n\x00\x00\x00\n"s;
    bytes += "[orvTab]\n1=Start\n";
    bytes += "\xC3\x28\xFF\n";
    EXPECT_EQ(load(bytes), LanguageLoad::fileRead);
    EXPECT_EQ(table_.text(Section::orvTab, 1), "Start");
    expectDefaultsExcept({{Section::orvTab, 1}});
}

TEST_F(LoadLanguageTest, TenMegabyteLinesAreCutAndSkipped) {
    std::string bytes = "[orvMenu]\n6=" + std::string(10u << 20, 'v') + "\n";
    bytes += "7=" + std::string(10u << 20, 'w');  // no line end at the end of the file
    bytes = std::string(10u << 20, 'z') + "\n" + bytes;
    EXPECT_EQ(load(bytes), LanguageLoad::fileRead);
    EXPECT_EQ(table_.text(Section::orvMenu, 6), std::string(49, 'v'));
    EXPECT_EQ(table_.text(Section::orvMenu, 7), std::string(49, 'w'));
    expectDefaultsExcept({{Section::orvMenu, 6}, {Section::orvMenu, 7}});
}

TEST_F(LoadLanguageTest, OnlyTheFirst32MebibytesOfAFileAreRead) {
    std::string bytes = "[orvTab]\n1=Early\n;";
    bytes += std::string(kMaxLanguageFileBytes - bytes.size() - 1, 'p');
    bytes += "\n2=Late\n";
    ASSERT_GT(bytes.size(), kMaxLanguageFileBytes);
    EXPECT_EQ(load(bytes), LanguageLoad::fileRead);
    EXPECT_EQ(table_.text(Section::orvTab, 1), "Early");
    EXPECT_EQ(table_.text(Section::orvTab, 2), "Orbits");
}

TEST_F(LoadLanguageTest, ThousandsOfSectionsAndKeys) {
    std::string bytes;
    for (int s = 0; s < 5000; ++s) {
        bytes += "[section" + std::to_string(s) + "]\n";
        for (int k = 1; k <= 5; ++k) bytes += std::to_string(k) + "=value\n";
    }
    bytes += "[orvErrors]\n";
    for (int k = 1; k <= 20000; ++k) bytes += std::to_string(k) + "=error " + std::to_string(k) + "\n";
    EXPECT_EQ(load(bytes), LanguageLoad::fileRead);
    EXPECT_EQ(table_.text(Section::orvErrors, 1), "error 1");
    EXPECT_EQ(table_.text(Section::orvErrors, 355), "error 355");
    EXPECT_EQ(table_.text(Section::orvMenu, 1), "File");
}

// --- encodings ----------------------------------------------------------------

TEST_F(LoadLanguageTest, Windows1251FileIsReadAsCyrillic) {
    // [orvTab] 1 = "Начальная страница", [orvCoSystem] 52 = "МБ", [orvOrbits] 10 = "° / Долг.:"
    load("[orvTab]\r\n1=\xCD\xE0\xF7\xE0\xEB\xFC\xED\xE0\xFF\r\n"
         "[orvCoSystem]\r\n52=\xCC\xC1\r\n"
         "[orvOrbits]\r\n10=\xB0 / \xC4\xEE\xEB\xE3.:\r\n");
    EXPECT_EQ(table_.text(Section::orvTab, 1),
              "\xD0\x9D\xD0\xB0\xD1\x87\xD0\xB0\xD0\xBB\xD1\x8C\xD0\xBD\xD0\xB0\xD1\x8F");
    EXPECT_EQ(table_.text(Section::orvCoSystem, 52), "\xD0\x9C\xD0\x91");
    EXPECT_EQ(table_.text(Section::orvOrbits, 10), "\xC2\xB0 / \xD0\x94\xD0\xBE\xD0\xBB\xD0\xB3.:");
}

TEST_F(LoadLanguageTest, Windows1251ValuesAreCutByCharacters) {
    // 30 letters "Ж" (0xC6) in a section of width 20: 19 letters, 38 bytes of UTF-8.
    load("[orvTab]\n1=" + std::string(30, '\xC6') + "\n");
    std::string expected;
    for (int i = 0; i < 19; ++i) expected += "\xD0\x96";
    EXPECT_EQ(table_.text(Section::orvTab, 1), expected);
}

TEST_F(LoadLanguageTest, Utf8FileWithOrWithoutByteOrderMark) {
    const std::string start = "\xD0\x9D\xD0\xB0\xD1\x87\xD0\xB0\xD0\xBB\xD0\xBE";  // "Начало"
    load("\xEF\xBB\xBF[orvTab]\n1=" + start + "\n");
    EXPECT_EQ(table_.text(Section::orvTab, 1), start);
    load("[orvTab]\n1=" + start + "\n");
    EXPECT_EQ(table_.text(Section::orvTab, 1), start);
}

TEST_F(LoadLanguageTest, Utf8ValuesAreCutByCharactersNeverMidSequence) {
    std::string sixty;
    for (int i = 0; i < 60; ++i) sixty += "\xD0\x96";
    load("[orvMenu]\n6=" + sixty + "\n");
    const std::string menuText = table_.text(Section::orvMenu, 6);
    EXPECT_EQ(menuText, sixty.substr(0, 98));
    EXPECT_EQ(characterCount(menuText), 49u);
}

TEST_F(LoadLanguageTest, Utf16FilesWithByteOrderMark) {
    const auto utf16 = [](const std::string& ascii, bool bigEndian) {
        std::string out = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
        for (const char c : ascii) {
            if (bigEndian) out += '\0';
            out += c;
            if (!bigEndian) out += '\0';
        }
        return out;
    };
    load(utf16("[orvTab]\r\n1=Wide\r\n", false));
    EXPECT_EQ(table_.text(Section::orvTab, 1), "Wide");
    load(utf16("[orvTab]\r\n2=Big\r\n", true));
    EXPECT_EQ(table_.text(Section::orvTab, 2), "Big");
    EXPECT_EQ(table_.text(Section::orvTab, 1), "Start Page");
}

// --- the program-wide table -----------------------------------------------------

TEST_F(LoadLanguageTest, ProgramWideLoad) {
    orvane::testing::writeFile(folder_ / "Deutsch.lng", "[orvMenu]\n1=Datei\n6=Speichern unter...\\tStrg+S\n");
    EXPECT_EQ(LoadLanguage(folder_, "Deutsch.lng"), LanguageLoad::fileRead);
    EXPECT_EQ(text(Section::orvMenu, 1), "Datei");
    EXPECT_EQ(text(Section::orvMenu, 6), "Speichern unter...\tStrg+S");
    EXPECT_EQ(LoadLanguage(folder_, "English.lng"), LanguageLoad::noFile);
    EXPECT_EQ(text(Section::orvMenu, 1), "File");
    ResetLanguage();
}
