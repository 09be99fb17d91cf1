#include "records/insert_statement.h"

#include <gtest/gtest.h>

#include "records_test_support.h"

namespace {

using namespace orvane;

std::string statementOf(const OrbitRecord& record, std::size_t index = 0, InsertMode mode = {}) {
    std::string statement;
    buildInsertStatement(record, index, mode, statement);
    return statement;
}

TEST(InsertStatement, BlankFieldsAreLeftOut) {
    OrbitRecord r;
    r.set(Field::comet, "1");
    r.set(Field::name, "Halley");
    r.set(Field::q, "0.586");
    EXPECT_EQ(statementOf(r), "insert or replace into elements( comet, name, q) values( '1', 'Halley', '0.586')");
}

TEST(InsertStatement, ColumnsInTableOrder) {
    OrbitRecord r = orvane::testing::halley();
    EXPECT_EQ(statementOf(r),
              "insert or replace into elements( comet, name, htype, E_year, E_month, E_day, hyear, hmonth, hday, q, e, "
              "w, Om, i) values( '1', 'Halley', 'P', '2024', '9', '7', '2061', '9', '10.3628', '0.588733', "
              "'0.967048', '112.6084', '59.6962', '162.207')");
}

TEST(InsertStatement, ApostrophesAreDoubled) {
    OrbitRecord r;
    r.set(Field::name, "d'Arrest");
    r.set(Field::Producer, "O'Brien");
    EXPECT_EQ(statementOf(r), "insert or replace into elements( name, Producer) values( 'd''Arrest', 'O''Brien')");
}

TEST(InsertStatement, ApostropheInANumericColumnStaysInsideItsQuotes) {
    OrbitRecord r;
    r.set(Field::comet, "1'); drop table elements; --");
    r.set(Field::q, "0'");
    EXPECT_EQ(statementOf(r),
              "insert or replace into elements( comet, q) values( '1''); drop table elements; --', '0''')");
}

TEST(InsertStatement, FieldsEndAtANul) {
    OrbitRecord r;
    r.set(Field::name, std::string("Encke\0'); drop table elements; --", 34));
    r.set(Field::des, std::string("\0hidden", 7));
    EXPECT_EQ(statementOf(r), "insert or replace into elements( name) values( 'Encke')");
}

TEST(InsertStatement, TimeStampOnlyForTheUsersRecordsOfAnUpdate) {
    OrbitRecord r;
    r.set(Field::comet, "2");
    r.set(Field::htimeStamp, "2011-05-01 10:00:00");
    EXPECT_EQ(statementOf(r, 7), "insert or replace into elements( comet) values( '2')");
    const InsertMode update{true, 5};
    EXPECT_EQ(statementOf(r, 4, update), "insert or replace into elements( comet) values( '2')");
    EXPECT_EQ(statementOf(r, 5, update),
              "insert or replace into elements( comet, htimeStamp) values( '2', '2011-05-01 10:00:00')");
}

TEST(InsertStatement, InfoIsTrimmedAndItsLineEndsRestored) {
    OrbitRecord r;
    r.set(Field::comet, "2");
    r.set(Field::hinfo, "First line\\nIt's the second");
    EXPECT_EQ(statementOf(r), "insert or replace into elements( comet, hinfo) values( '2', trim('First line\r\nIt''s "
                              "the second', '\r\n '))");
}

TEST(InsertStatement, RecordWithNoValueGivesAStatementSqliteRejects) {
    EXPECT_EQ(statementOf(OrbitRecord()), "insert or replace into elements() values()");
}

}  // namespace
