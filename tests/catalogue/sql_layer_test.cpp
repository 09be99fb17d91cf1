#include "catalogue/sql_layer.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue/sql_text.h"
#include "catalogue_test_support.h"

namespace orvane {
namespace {

using testing::evaluate;
using testing::TempHome;

class SqlLayerTest : public ::testing::Test {
protected:
    void SetUp() override {
        path = (home.root() / "layer.db").string();
        ASSERT_EQ(sql::open(path, db), SQLITE_OK);
        ASSERT_EQ(sql::execute(db, "create table t(id INTEGER PRIMARY KEY, txt TEXT, num REAL)"), SQLITE_OK);
    }
    void TearDown() override { sql::close(db); }

    std::vector<ColumnProperty> columns(std::initializer_list<std::pair<const char*, int>> shape) {
        std::vector<ColumnProperty> result(shape.size());
        std::size_t k = 0;
        for (const auto& [name, kind] : shape) {
            sql::setColumnType(result[k++], std::string(" ") + name, kind, 30);
        }
        return result;
    }

    TempHome home;
    std::string path;
    CatalogueDb db;
};

TEST_F(SqlLayerTest, OpenAndCloseKeepTheirFields) {
    CatalogueDb other;
    other.errorText = sql::padText("old", kErrorTextWidth);
    other.reserved = 7;
    EXPECT_EQ(sql::open(path + "   ", other), SQLITE_OK);  // trailing blanks of the name are dropped
    EXPECT_NE(other.handle, nullptr);
    EXPECT_EQ(other.reserved, 0);
    EXPECT_EQ(other.errorText, std::string(kErrorTextWidth, ' '));
    EXPECT_EQ(evaluate(other.handle, "count(*) from t").integer, 0);
    EXPECT_EQ(sql::close(other), SQLITE_OK);
    EXPECT_EQ(other.handle, nullptr);
    EXPECT_EQ(other.reserved, 0);
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_FALSE(std::filesystem::exists(path + "   "));
}

TEST_F(SqlLayerTest, ExecuteStoresCodeAndTextAndBlanksTheTextFirst) {
    EXPECT_EQ(sql::execute(db, "select * from nosuch"), SQLITE_ERROR);
    EXPECT_EQ(db.lastError, SQLITE_ERROR);
    EXPECT_EQ(db.errorText, sql::padText("no such table: nosuch", kErrorTextWidth));
    EXPECT_EQ(sql::execute(db, "insert into t(txt) values('x');   "), SQLITE_OK);
    EXPECT_EQ(db.lastError, SQLITE_OK);
    EXPECT_EQ(db.errorText, std::string(kErrorTextWidth, ' '));
}

TEST_F(SqlLayerTest, TransactionsBeginCommitAndRollback) {
    EXPECT_EQ(sql::begin(db), SQLITE_OK);
    sql::execute(db, "insert into t(txt) values('gone')");
    EXPECT_EQ(sql::rollback(db), SQLITE_OK);
    EXPECT_EQ(evaluate(db.handle, "count(*) from t").integer, 0);
    EXPECT_EQ(sql::begin(db), SQLITE_OK);
    sql::execute(db, "insert into t(txt) values('kept')");
    EXPECT_EQ(sql::commit(db), SQLITE_OK);
    EXPECT_EQ(evaluate(db.handle, "count(*) from t").integer, 1);
}

TEST_F(SqlLayerTest, SelectTextIsBuiltFromTheColumns) {
    std::vector<ColumnProperty> cols = columns({{"txt", kKindText}, {"num", kKindDouble}});
    EXPECT_EQ(sql::buildSelectText("t", cols, " where id=1  "), "select  txt, num from t  where id=1");
    EXPECT_EQ(sql::buildSelectText("t", cols), "select  txt, num from t");
    sql::setColumnType(cols[1], " num", kKindDouble, 0, "round");
    EXPECT_EQ(sql::buildSelectText("t", cols), "select  txt,round( num) from t");
}

TEST_F(SqlLayerTest, ARowReadIntoAColumnLeavesNothingOfTheTextBefore) {
    sql::execute(db, "insert into t(txt, num) values('first', 1.5);");
    std::vector<ColumnProperty> cols = columns({{"txt", kKindText}});
    sql::setText(cols[0], std::string(4000, 'x'));
    Statement statement;
    ASSERT_EQ(sql::prepareSelect(db, "t", cols, statement), SQLITE_OK);
    bool done = true;
    EXPECT_EQ(sql::nextRow(statement, cols, done), SQLITE_ROW);
    EXPECT_EQ(cols[0].textValue, sql::padText("first", kTextValueWidth));
    EXPECT_EQ(cols[0].textUsed, 5u);
    EXPECT_EQ(sql::finalize(statement), SQLITE_OK);
}

TEST_F(SqlLayerTest, RowsAreDeliveredByKindAndTheLoopStaysAtItsEnd) {
    sql::execute(db, "insert into t(txt, num) values('first', 1.5); insert into t(txt, num) values('n/a', 2.5);");
    std::vector<ColumnProperty> cols = columns({{"id", kKindInteger}, {"txt", kKindText}, {"num", kKindDouble}});
    Statement statement;
    ASSERT_EQ(sql::prepareSelect(db, "t", cols, statement, " order by id"), SQLITE_OK);
    bool done = true;
    EXPECT_EQ(sql::nextRow(statement, cols, done), SQLITE_ROW);
    EXPECT_FALSE(done);
    EXPECT_EQ(sql::getInt(cols[0]), 1);
    EXPECT_EQ(cols[1].textValue, sql::padText("first", kTextValueWidth));
    EXPECT_EQ(sql::getFloat(cols[2]), 1.5);
    EXPECT_EQ(sql::nextRow(statement, cols, done), SQLITE_ROW);
    // A text column holding 'n/a' arrives as the three letters, blank padded.
    EXPECT_EQ(cols[1].textValue, "n/a" + std::string(kTextValueWidth - 3, ' '));
    EXPECT_EQ(sql::nextRow(statement, cols, done), SQLITE_DONE);
    EXPECT_TRUE(done);
    // After the last row: still done, and the last row's values are left in place.
    for (int again = 0; again < 2; ++again) {
        done = false;
        sql::nextRow(statement, cols, done);
        EXPECT_TRUE(done);
        EXPECT_EQ(sql::getInt(cols[0]), 2);
        EXPECT_EQ(sql::getText(cols[1], 5), "n/a  ");
        EXPECT_EQ(cols[2].doubleValue, 2.5);
    }
    EXPECT_EQ(sql::finalize(statement), SQLITE_OK);
    EXPECT_EQ(statement.handle, nullptr);
}

TEST_F(SqlLayerTest, NumbersAreReadFromTextsByTheirKind) {
    sql::execute(db, "insert into t(txt) values('42'); insert into t(txt) values('n/a');");
    std::vector<ColumnProperty> cols = columns({{"txt", kKindInteger}});
    Statement statement;
    sql::prepareSelect(db, "t", cols, statement, " order by id");
    bool done = false;
    sql::nextRow(statement, cols, done);
    EXPECT_EQ(cols[0].intValue, 42);
    sql::nextRow(statement, cols, done);
    EXPECT_EQ(cols[0].intValue, 0);
}

TEST_F(SqlLayerTest, AnEmbeddedNulCutsTheValue) {
    sqlite3_stmt* insert = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db.handle, "insert into t(txt) values(?)", -1, &insert, nullptr), SQLITE_OK);
    const char bytes[] = {'a', 'b', '\0', 'c', 'd'};
    sqlite3_bind_text(insert, 1, bytes, 5, SQLITE_STATIC);
    ASSERT_EQ(sqlite3_step(insert), SQLITE_DONE);
    sqlite3_finalize(insert);
    EXPECT_EQ(evaluate(db.handle, "length(cast(txt as blob)) from t").integer, 5);

    std::vector<ColumnProperty> cols = columns({{"txt", kKindText}});
    cols[0].textValue = std::string(kTextValueWidth, 'x');
    Statement statement;
    sql::prepareSelect(db, "t", cols, statement);
    bool done = true;
    sql::nextRow(statement, cols, done);
    ASSERT_FALSE(done);
    EXPECT_EQ(cols[0].textValue, "ab" + std::string(kTextValueWidth - 2, ' '));
}

TEST_F(SqlLayerTest, ATextIsCopiedUpTo5000Bytes) {
    std::string longText;
    for (int k = 0; k < 6000; ++k) {
        longText += static_cast<char>('a' + k % 26);
    }
    sql::execute(db, "insert into t(txt) values('" + longText + "')");
    std::vector<ColumnProperty> cols = columns({{"txt", kKindText}});
    Statement statement;
    sql::prepareSelect(db, "t", cols, statement);
    bool done = true;
    sql::nextRow(statement, cols, done);
    ASSERT_FALSE(done);
    EXPECT_EQ(cols[0].textValue.size(), 5000u);
    EXPECT_EQ(cols[0].textValue, longText.substr(0, 5000));
}

TEST_F(SqlLayerTest, AnEmptyTableNameGivesAPrepareErrorAndNoRows) {
    std::vector<ColumnProperty> cols = columns({{"txt", kKindText}});
    Statement statement;
    EXPECT_EQ(sql::prepareSelect(db, "", cols, statement), SQLITE_ERROR);
    EXPECT_EQ(db.lastError, SQLITE_ERROR);
    EXPECT_EQ(db.errorText, sql::padText("incomplete input", kErrorTextWidth));
    EXPECT_EQ(statement.handle, nullptr);
    bool done = false;
    sql::nextRow(statement, cols, done);
    EXPECT_TRUE(done);
    EXPECT_EQ(cols[0].textValue, std::string(kTextValueWidth, ' '));
    EXPECT_EQ(sql::finalize(statement), SQLITE_OK);
}

TEST_F(SqlLayerTest, ThePrepareErrorTextIsCutAt80Characters) {
    const std::string table(200, 'q');
    std::vector<ColumnProperty> cols = columns({{"txt", kKindText}});
    Statement statement;
    EXPECT_EQ(sql::prepareSelect(db, table, cols, statement), SQLITE_ERROR);
    const std::string message = "no such table: " + table;
    EXPECT_EQ(db.errorText.size(), kErrorTextWidth);
    EXPECT_EQ(db.errorText, message.substr(0, 80));
}

TEST_F(SqlLayerTest, TheStatementBufferCutsALongClause) {
    sql::execute(db, "insert into t(txt) values('one')");
    std::vector<ColumnProperty> cols = columns({{"txt", kKindText}});
    const std::size_t buffer = 120 * cols.size() + 6000;
    const std::string head = "select  txt from t ";
    // " where id = 000...0001" filling the buffer exactly: the row is found.
    std::string clause = " where id = ";
    clause += std::string(buffer - head.size() - clause.size() - 1, '0') + "1";
    ASSERT_EQ(head.size() + clause.size(), buffer);
    Statement statement;
    EXPECT_EQ(sql::prepareSelect(db, "t", cols, statement, clause), SQLITE_OK);
    bool done = true;
    sql::nextRow(statement, cols, done);
    EXPECT_FALSE(done);
    // One more leading zero pushes the final 1 out of the buffer: "id = 000...0".
    clause.insert(12, "0");
    EXPECT_EQ(sql::buildSelectText("t", cols, clause).size(), buffer);
    EXPECT_EQ(sql::buildSelectText("t", cols, clause).back(), '0');
    EXPECT_EQ(sql::prepareSelect(db, "t", cols, statement, clause), SQLITE_OK);
    sql::nextRow(statement, cols, done);
    EXPECT_TRUE(done);
}

TEST(SqlLayerColumns, SetColumnTypeFillsTheTypeText) {
    const std::pair<int, const char*> expected[] = {
        {1, "INT"}, {2, "FLOAT"}, {3, "DOUBLE"}, {4, "CHAR(60)"}, {5, "UNKNOWN!"}, {0, "UNKNOWN!"}};
    for (const auto& [code, type] : expected) {
        ColumnProperty column;
        sql::setColumnType(column, " name", code, 60);
        EXPECT_EQ(column.name, sql::padText(" name", kColumnNameWidth));
        EXPECT_EQ(column.valueKind, code);
        EXPECT_EQ(column.sqlType, sql::padText(type, kSqlTypeWidth));
        EXPECT_EQ(column.function, std::string(kFunctionWidth, ' '));
    }
    ColumnProperty column;
    sql::setColumnType(column, " hday", kKindText, 15, "floor");
    EXPECT_EQ(column.function, sql::padText("floor", kFunctionWidth));
    sql::setColumnType(column, " hday", kKindText, 15);
    EXPECT_EQ(column.function, std::string(kFunctionWidth, ' '));
}

TEST(SqlLayerColumns, SettersAndGetters) {
    ColumnProperty column;
    sql::setInt(column, -17);
    EXPECT_EQ(sql::getInt(column), -17);
    sql::setFloat(column, 0.25);
    EXPECT_EQ(sql::getFloat(column), 0.25);
    sql::setDouble(column, 1e300);
    EXPECT_EQ(column.doubleValue, 1e300);
    sql::setText(column, "Halley");
    EXPECT_EQ(column.textValue, sql::padText("Halley", kTextValueWidth));
    EXPECT_EQ(sql::getText(column, 3), "Hal");
    std::string destination;
    sql::getText(column, destination, 8);
    EXPECT_EQ(destination, "Halley  ");
    EXPECT_EQ(sql::getText(column, 6000).size(), 6000u);
}

TEST_F(SqlLayerTest, CreateTableInsertRowAndColumnProperties) {
    std::vector<ColumnProperty> cols(3);
    sql::setColumnType(cols[0], " code", kKindInteger, 0);
    sql::setColumnType(cols[1], " label", kKindText, 20);
    sql::setColumnType(cols[2], " size", kKindDouble, 0);
    EXPECT_EQ(sql::createTable(db, "made", cols, "code"), SQLITE_OK);
    EXPECT_EQ(evaluate(db.handle, "sql from sqlite_master where name='made'").text,
              "CREATE TABLE made ( code INT primary key,  label CHAR(20),  size DOUBLE)");

    sql::setInt(cols[0], 7);
    sql::setText(cols[1], "  Encke  ");
    sql::setDouble(cols[2], 3.25);
    EXPECT_EQ(sql::insertRow(db, "made", cols), SQLITE_OK);
    EXPECT_EQ(evaluate(db.handle, "code || '|' || label || '|' || size from made").text, "7|  Encke|3.25");
    EXPECT_NE(sql::insertRow(db, "made", cols), SQLITE_OK);  // the primary key is taken
    EXPECT_EQ(evaluate(db.handle, "count(*) from made").integer, 1);

    sql::execute(db, "create table kinds(a INT, b INTEGER, c FLOAT, d DOUBLE, e CHAR(5), f VARCHAR(9), g TEXT, "
                     "h REAL, i varchar(3))");
    std::vector<ColumnProperty> props;
    // The first four letters decide, upper case only: "varchar(3)" gets no kind.
    EXPECT_EQ(sql::getColumnProps(db, "kinds", props), SQLITE_OK);
    ASSERT_EQ(props.size(), 9u);
    const int kinds[] = {1, 1, 3, 3, 4, 4, 0, 0, 0};
    const char* types[] = {"INT", "INTEGER", "FLOAT", "DOUBLE", "CHAR(5)", "VARCHAR(9)", "TEXT", "REAL", "varchar(3)"};
    for (std::size_t k = 0; k < props.size(); ++k) {
        EXPECT_EQ(props[k].valueKind, kinds[k]) << types[k];
        EXPECT_EQ(props[k].sqlType, sql::padText(types[k], kSqlTypeWidth));
    }
    EXPECT_EQ(props[0].name, sql::padText("a", kColumnNameWidth));
    EXPECT_EQ(sql::getColumnProps(db, "nosuch", props), SQLITE_ERROR);
    EXPECT_TRUE(props.empty());
}

TEST_F(SqlLayerTest, DeleteTableWritesTextThatSqliteRejects) {
    sql::execute(db, "insert into t(txt) values('stays')");
    EXPECT_EQ(sql::deleteTable(db, "t"), SQLITE_ERROR);
    EXPECT_EQ(db.errorText, sql::padText("near \"TABLE\": syntax error", kErrorTextWidth));
    EXPECT_EQ(evaluate(db.handle, "count(*) from t").integer, 1);
}

TEST_F(SqlLayerTest, ResetAndStep) {
    sql::execute(db, "insert into t(txt) values('a')");
    std::vector<ColumnProperty> cols = columns({{"txt", kKindText}});
    Statement statement;
    sql::prepareSelect(db, "t", cols, statement);
    EXPECT_EQ(sql::step(statement), SQLITE_ROW);
    EXPECT_EQ(sql::step(statement), SQLITE_DONE);
    bool done = false;
    sql::nextRow(statement, cols, done);
    EXPECT_TRUE(done);
    EXPECT_EQ(sql::reset(statement), SQLITE_OK);
    sql::nextRow(statement, cols, done);
    EXPECT_FALSE(done);
    EXPECT_EQ(sql::getText(cols[0], 1), "a");
}

TEST(SqlLayerClosed, OperationsOnAClosedConnectionGiveStatuses) {
    CatalogueDb db;
    EXPECT_EQ(sql::execute(db, "select 1"), SQLITE_MISUSE);
    std::vector<ColumnProperty> cols(1);
    Statement statement;
    EXPECT_EQ(sql::prepareSelect(db, "t", cols, statement), SQLITE_MISUSE);
    bool done = false;
    sql::nextRow(statement, cols, done);
    EXPECT_TRUE(done);
    EXPECT_EQ(sql::insertRow(db, "t", cols), SQLITE_MISUSE);
    std::vector<ColumnProperty> props;
    EXPECT_EQ(sql::getColumnProps(db, "t", props), SQLITE_MISUSE);
    EXPECT_EQ(sql::step(statement), SQLITE_MISUSE);
    EXPECT_EQ(sql::close(db), SQLITE_OK);
}

TEST(SqlLayerClosed, AFolderThatDoesNotExistCannotBeOpened) {
    TempHome home;
    CatalogueDb db;
    EXPECT_EQ(sql::open((home.root() / "missing" / "x.db").string(), db), SQLITE_CANTOPEN);
    EXPECT_EQ(db.lastError, SQLITE_CANTOPEN);
    EXPECT_NE(sql::execute(db, "select 1"), SQLITE_OK);
    sql::close(db);
    EXPECT_EQ(db.handle, nullptr);
}

}  // namespace
}  // namespace orvane
