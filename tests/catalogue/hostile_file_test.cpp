// A catalogue file that is not a database, or a broken one, gives statuses and
// empty results, never a crash.
#include <sqlite3.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "catalogue/brief_info.h"
#include "catalogue/schema.h"
#include "catalogue/sql_text.h"
#include "catalogue_test_support.h"

namespace orvane {
namespace {

using testing::TempHome;

std::string randomBytes(std::size_t count, unsigned seed) {
    std::mt19937 generator(seed);
    std::string bytes(count, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(generator() & 0xFF);
    }
    return bytes;
}

void expectEmptyResults(const std::string& path, int expectedStatus) {
    ColumnTables tables = buildColumnTables();
    const CatalogueParameters parameters = readParameters(path, tables);
    EXPECT_EQ(parameters.status, expectedStatus);
    for (const std::string& value : parameters.values) {
        EXPECT_EQ(value, std::string(30, ' '));
    }
    const BriefInfo info = refreshBriefInfo(path, tables);
    EXPECT_EQ(info.status, expectedStatus);
    for (const std::string& statistic : info.statistics) {
        EXPECT_EQ(statistic, std::string(30, ' '));
    }
    EXPECT_TRUE(info.userLabels.empty());
    EXPECT_TRUE(info.catalogueLabels.empty());

    CatalogueDb db;
    EXPECT_EQ(sql::open(path, db), SQLITE_OK);
    Statement statement;
    EXPECT_EQ(sql::prepareSelect(db, "e_elements", tables.allColumns, statement), expectedStatus);
    EXPECT_NE(db.errorText, std::string(kErrorTextWidth, ' '));
    bool done = false;
    sql::nextRow(statement, tables.allColumns, done);
    EXPECT_TRUE(done);
    EXPECT_EQ(sql::execute(db, "select 1 from elements"), expectedStatus);
    sql::close(db);
}

TEST(HostileFile, RandomBytesAreNotADatabase) {
    TempHome home;
    const auto path = home.root() / "orvane.db";
    const std::string bytes = randomBytes(8192, 7);
    testing::writeFile(path, bytes);
    expectEmptyResults(path.string(), SQLITE_NOTADB);
    EXPECT_EQ(createCatalogue(path.string()), SQLITE_NOTADB);
    // The file is left as it was.
    EXPECT_EQ(testing::readFile(path), bytes);
}

TEST(HostileFile, ACatalogueWithItsPagesOverwritten) {
    TempHome home;
    const auto path = home.root() / "orvane.db";
    ASSERT_EQ(createCatalogue(path.string()), SQLITE_OK);
    std::string bytes = testing::readFile(path);
    ASSERT_GT(bytes.size(), 4096u);
    // Keep the header page, scramble every page after it.
    const std::string noise = randomBytes(bytes.size() - 4096, 11);
    bytes.replace(4096, noise.size(), noise);
    testing::writeFile(path, bytes);
    ColumnTables tables = buildColumnTables();
    const BriefInfo info = refreshBriefInfo(path.string(), tables);
    EXPECT_NE(info.status, SQLITE_OK);
    const CatalogueParameters parameters = readParameters(path.string(), tables);
    EXPECT_NE(parameters.status, SQLITE_OK);
}

TEST(HostileFile, AFolderThatIsNoFile) {
    TempHome home;
    const auto path = home.root() / "folder.db";
    std::filesystem::create_directories(path);
    ColumnTables tables = buildColumnTables();
    EXPECT_EQ(readParameters(path.string(), tables).status, SQLITE_CANTOPEN);
    EXPECT_EQ(refreshBriefInfo(path.string(), tables).status, SQLITE_CANTOPEN);
    EXPECT_EQ(createCatalogue(path.string()), SQLITE_CANTOPEN);
}

TEST(HostileFile, AnEmptyFileBecomesADatabaseWithoutTables) {
    TempHome home;
    const auto path = home.root() / "empty.db";
    testing::writeFile(path, "");
    expectEmptyResults(path.string(), SQLITE_ERROR);
    EXPECT_EQ(createCatalogue(path.string()), SQLITE_OK);
    ColumnTables tables = buildColumnTables();
    EXPECT_EQ(readParameters(path.string(), tables).values[0], sql::padText("2", 30));
}

}  // namespace
}  // namespace orvane
