#include "catalogue/schema.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue_test_support.h"

namespace orvane {
namespace {

using testing::CatalogueTest;
using testing::insertElement;

std::size_t occurrences(std::string_view text, std::string_view word) {
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        ++count;
    }
    return count;
}

TEST(SchemaStatements, AreTheFourTextsInOrder) {
    const auto statements = schemaStatements();
    EXPECT_TRUE(statements[0].starts_with("CREATE TABLE elements(id INTEGER NOT NULL PRIMARY KEY autoincrement"));
    EXPECT_TRUE(statements[1].starts_with("CREATE INDEX id_ind ON elements(id);"));
    EXPECT_TRUE(statements[2].starts_with("CREATE VIEW e_elements AS SELECT m1.*, CASE"));
    EXPECT_TRUE(statements[3].starts_with("CREATE TABLE parameters("));
    EXPECT_EQ(statements[2], kViewStatement);
    // The blanks of the texts are kept as they were.
    EXPECT_NE(kIndexesStatement.find("elements(Albedo);   CREATE INDEX M1_ind"), std::string_view::npos);
    EXPECT_NE(kViewStatement.find("CASE WHEN m0.e<1  THEN (180/pi())"), std::string_view::npos);
    EXPECT_EQ(occurrences(kIndexesStatement, "CREATE INDEX "), 48u);
    EXPECT_EQ(kElementsStatement.size(), 2548u);
    EXPECT_EQ(kIndexesStatement.size(), 2224u);
    EXPECT_EQ(kViewStatement.size(), 2219u);
    EXPECT_EQ(kParametersStatement.size(), 491u);
}

TEST_F(CatalogueTest, SqliteMasterHoldsEachCreateStatementAsWritten) {
    std::string all;
    for (std::string_view statement : schemaStatements()) {
        all += statement;
        all += ' ';
    }
    sqlite3_stmt* statement = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db.handle, "select type, name, sql from sqlite_master order by rowid", -1,
                                 &statement, nullptr),
              SQLITE_OK);
    std::vector<std::string> names;
    int tables = 0, indexes = 0, views = 0, triggers = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        const std::string type = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        const std::string name = reinterpret_cast<const char*>(sqlite3_column_text(statement, 1));
        const std::string sql = reinterpret_cast<const char*>(sqlite3_column_text(statement, 2));
        names.push_back(name);
        if (name == "sqlite_sequence") {
            continue;
        }
        tables += type == "table";
        indexes += type == "index";
        views += type == "view";
        triggers += type == "trigger";
        EXPECT_NE(all.find(sql + ";"), std::string::npos) << name;
    }
    sqlite3_finalize(statement);
    EXPECT_EQ(tables, 2);
    EXPECT_EQ(indexes, 48);
    EXPECT_EQ(views, 1);
    EXPECT_EQ(triggers, 1);
    ASSERT_GE(names.size(), 3u);
    EXPECT_EQ(names[0], "elements");
    EXPECT_EQ(value("sql from sqlite_master where name='e_elements'").text + ";", kViewStatement);
    EXPECT_EQ(value("sql from sqlite_master where name='elements'").text + "; " +
                  value("sql from sqlite_master where name='update_elements_timeStamp'").text + ";",
              kElementsStatement);
}

TEST_F(CatalogueTest, TheParametersHaveTheirFiveRows) {
    EXPECT_EQ(value("group_concat(id || '=' || name || '=' || value, '|') from parameters").text,
              "1=version=2|2=elements update name=00000000o.oup|3=elements update time=Never updated...|"
              "4=elements update id=0|5=elements update prev id=0");
}

TEST_F(CatalogueTest, ANewRecordHasTheDefaults) {
    ASSERT_EQ(insertElement(db, {{"name", "Halley"}}), SQLITE_OK);
    EXPECT_EQ(value("hinfo from elements").text, "No Information Available...");
    EXPECT_EQ(value("comet || '|' || q || '|' || typeof(q) from elements").text, "||text");
    EXPECT_EQ(value("length(htimeStamp) from elements").integer, 19);
    EXPECT_EQ(value("htimeStamp = DATETIME(htimeStamp) from elements").integer, 1);
}

TEST_F(CatalogueTest, AnUpdateChangesTheTimeStampEvenWithoutAChange) {
    ASSERT_EQ(insertElement(db, {{"name", "Encke"}, {"htimeStamp", "1999-12-31 23:59:59"}}), SQLITE_OK);
    // An explicit time stamp given on insert is kept.
    EXPECT_EQ(value("htimeStamp from elements").text, "1999-12-31 23:59:59");
    const std::string before = value("DATETIME('now', 'localtime')").text;
    ASSERT_EQ(sql::execute(db, "UPDATE elements SET name = name WHERE id = 1;"), SQLITE_OK);
    const std::string stamp = value("htimeStamp from elements").text;
    const std::string after = value("DATETIME('now', 'localtime')").text;
    EXPECT_NE(stamp, "1999-12-31 23:59:59");
    EXPECT_GE(stamp, before);
    EXPECT_LE(stamp, after);
    EXPECT_EQ(value("name from elements").text, "Encke");
}

TEST_F(CatalogueTest, DeletingTheHighestIdDoesNotReuseIt) {
    for (const char* name : {"a", "b", "c"}) {
        ASSERT_EQ(insertElement(db, {{"name", name}}), SQLITE_OK);
    }
    ASSERT_EQ(sql::execute(db, "DELETE FROM elements WHERE id = 3;"), SQLITE_OK);
    EXPECT_EQ(value("seq from sqlite_sequence where name='elements'").integer, 3);
    ASSERT_EQ(insertElement(db, {{"name", "d"}}), SQLITE_OK);
    EXPECT_EQ(value("max(id) from elements").integer, 4);
    EXPECT_EQ(value("id from elements where name='d'").integer, 4);
}

TEST_F(CatalogueTest, TheViewCanBeMadeAgainFromItsText) {
    ASSERT_EQ(sql::execute(db, "DROP VIEW e_elements;"), SQLITE_OK);
    ASSERT_EQ(sql::execute(db, kViewStatement), SQLITE_OK);
    ASSERT_EQ(sql::execute(db, "UPDATE parameters SET value = '2' WHERE name = 'version';"), SQLITE_OK);
    EXPECT_EQ(value("count(*) from e_elements").integer, 0);
}

TEST_F(CatalogueTest, CreatingTheSchemaTwiceFailsWithoutHarm) {
    ASSERT_EQ(insertElement(db, {{"name", "kept"}}), SQLITE_OK);
    EXPECT_EQ(createCatalogueSchema(db), SQLITE_ERROR);
    EXPECT_EQ(value("name from elements").text, "kept");
    EXPECT_EQ(value("count(*) from parameters").integer, 5);
}

}  // namespace
}  // namespace orvane
