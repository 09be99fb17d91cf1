// The start-up's work on the catalogue: creation, the one-shot orvane.ini, the
// parameters, the migration of the view and the statistics.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <string>

#include "app/config_file.h"
#include "app/startup.h"
#include "support/temp_home.h"

using namespace orvane;
using orvane::testing::TempHome;
using orvane::testing::readFile;
using orvane::testing::writeFile;
namespace fs = std::filesystem;

namespace {

fs::path userFolder(const TempHome& home) { return home.home() / ".local/share/Orvane"; }

std::string queryText(const fs::path& db, const std::string& sql) {
    sqlite3* handle = nullptr;
    std::string result = "<none>";
    if (sqlite3_open(db.c_str(), &handle) == SQLITE_OK) {
        sqlite3_stmt* st = nullptr;
        if (sqlite3_prepare_v2(handle, sql.c_str(), -1, &st, nullptr) == SQLITE_OK && sqlite3_step(st) == SQLITE_ROW) {
            const unsigned char* text = sqlite3_column_text(st, 0);
            result = text ? reinterpret_cast<const char*>(text) : "<null>";
        }
        sqlite3_finalize(st);
    }
    sqlite3_close(handle);
    return result;
}

void run(const fs::path& db, const std::string& sql) {
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(db.c_str(), &handle), SQLITE_OK);
    char* error = nullptr;
    EXPECT_EQ(sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, &error), SQLITE_OK) << (error ? error : "");
    sqlite3_free(error);
    sqlite3_close(handle);
}

struct Started {
    AppState state;
    StartupReport report;
};

Started fullStart(const TempHome& home) {
    Started s;
    s.report = InitialiseProgram(s.state, home.root().string());
    PrepareCatalogue(s.state, s.report);
    return s;
}

}  // namespace

TEST(StartupCatalogue, FirstRunCreatesTheCatalogueWithItsParameters) {
    TempHome home;
    Started s = fullStart(home);
    EXPECT_TRUE(s.report.catalogueCreated);
    const fs::path db = userFolder(home) / "orvane.db";
    EXPECT_EQ(queryText(db, "select count(*) from sqlite_master where name in ('elements','e_elements','parameters')"), "3");
    EXPECT_EQ(s.state.parameterText[0], "2");
    EXPECT_EQ(s.state.parameterText[1], "00000000o.oup");
    EXPECT_EQ(s.state.parameterText[2], "Never updated...");
    EXPECT_EQ(s.state.catalogueVersion, 2);
    EXPECT_EQ(s.state.updateId, 0);
    EXPECT_EQ(s.state.updatePrevId, 0);
    EXPECT_FALSE(s.report.viewMigrated);
    EXPECT_EQ(s.state.briefInfo.statistics[0].substr(0, 1), "0");
    EXPECT_EQ(s.state.columnTables.allColumns.size(), 74u);
}

TEST(StartupCatalogue, MissingCatalogueIsMadeAgainInAnExistingFolder) {
    TempHome home;
    fullStart(home);
    fs::remove(userFolder(home) / "orvane.db");
    Started s = fullStart(home);
    EXPECT_FALSE(s.report.firstRun);
    EXPECT_TRUE(s.report.catalogueCreated);
    EXPECT_EQ(s.state.catalogueVersion, 2);
}

TEST(StartupCatalogue, VersionTwoLeavesTheViewAlone) {
    TempHome home;
    fullStart(home);
    const fs::path db = userFolder(home) / "orvane.db";
    run(db, "DROP VIEW e_elements; CREATE VIEW e_elements AS SELECT id FROM elements;");
    Started s = fullStart(home);
    EXPECT_FALSE(s.report.viewMigrated);
    EXPECT_EQ(queryText(db, "select sql from sqlite_master where name='e_elements'"),
              "CREATE VIEW e_elements AS SELECT id FROM elements");
}

TEST(StartupCatalogue, VersionOneGetsTheViewAnewAndBecomesTwo) {
    TempHome home;
    fullStart(home);
    const fs::path db = userFolder(home) / "orvane.db";
    run(db, "DROP VIEW e_elements; CREATE VIEW e_elements AS SELECT id FROM elements;"
            "UPDATE parameters SET value = '1' WHERE name = 'version';");
    Started s = fullStart(home);
    EXPECT_TRUE(s.report.viewMigrated);
    EXPECT_EQ(queryText(db, "select substr(sql, 1, 36) from sqlite_master where name='e_elements'"),
              "CREATE VIEW e_elements AS SELECT m1.");
    EXPECT_EQ(queryText(db, "select value from parameters where id=1"), "2");
}

TEST(StartupCatalogue, IniNamesTheLanguageOnceAndDisappears) {
    TempHome home;
    fullStart(home);
    const fs::path ini = userFolder(home) / "orvane.ini";
    writeFile(ini, "Russian.lng\r\nignored second line\r\n");
    Started s = fullStart(home);
    EXPECT_TRUE(s.report.languageFromIni);
    EXPECT_FALSE(fs::exists(ini));
    EXPECT_EQ(s.state.languageName, "Russian.lng");
    const std::string bytes = readFile(userFolder(home) / "config.dat");
    EXPECT_EQ(bytes.substr(106 * 800, 100), "Russian.lng" + std::string(89, ' '));

    Started again = fullStart(home);
    EXPECT_FALSE(again.report.languageFromIni);
    EXPECT_EQ(again.state.languageName, "Russian.lng");
}

TEST(StartupCatalogue, IniWithAQuotedNameKeepsItsBlanks) {
    TempHome home;
    fullStart(home);
    writeFile(userFolder(home) / "orvane.ini", "'My Language.lng' rest\n");
    Started s = fullStart(home);
    EXPECT_EQ(s.state.languageName, "My Language.lng");
}

TEST(StartupCatalogue, IniIsNotLookedAtOnTheFirstRun) {
    TempHome home;
    fs::create_directories(userFolder(home).parent_path());
    // The folder does not exist yet, so no ini can be in it: a first run never reads one.
    Started s = fullStart(home);
    EXPECT_TRUE(s.report.firstRun);
    EXPECT_FALSE(s.report.languageFromIni);
}

TEST(StartupCatalogue, EmptyOrGarbageIniChangesNothingAndIsDeleted) {
    TempHome home;
    fullStart(home);
    const fs::path ini = userFolder(home) / "orvane.ini";
    for (const std::string& junk : {std::string(), std::string("\n\n"), std::string("/"),
                                    std::string("\0\0\xff\xfe", 4), std::string(100000, 'x')}) {
        writeFile(ini, junk);
        Started s = fullStart(home);
        EXPECT_FALSE(fs::exists(ini));
        if (junk.size() == 100000) {
            EXPECT_EQ(s.state.languageName, std::string(100, 'x'));
            ASSERT_TRUE(WriteLanguageRecord((userFolder(home) / "config.dat").string(), "English.lng"));
        } else {
            EXPECT_EQ(s.state.languageName, "English.lng") << junk.size();
        }
    }
}

TEST(StartupCatalogue, ACatalogueThatIsNoDatabaseStillStarts) {
    TempHome home;
    fullStart(home);
    const fs::path db = userFolder(home) / "orvane.db";
    writeFile(db, std::string(5000, '\x5a'));
    Started s = fullStart(home);
    EXPECT_FALSE(s.report.catalogueCreated);
    EXPECT_EQ(s.state.catalogueVersion, 0);
    EXPECT_FALSE(s.report.viewMigrated);
    EXPECT_NE(s.state.briefInfo.status, 0);
    // The user's file is never replaced.
    EXPECT_EQ(readFile(db), std::string(5000, '\x5a'));
}
