#include "catalogue/brief_info.h"

#include <sqlite3.h>

#include <gtest/gtest.h>

#include <string>

#include "catalogue/column_tables.h"
#include "catalogue/sql_text.h"
#include "catalogue_test_support.h"

namespace orvane {
namespace {

using namespace std::string_literals;
using testing::CatalogueTest;
using testing::insertElement;

const std::array<std::string, 7> kBriefStrings = {
    sql::padText("A database of cometary orbits contains", 90),
    sql::padText("entries of", 90),
    sql::padText("comets, among them:", 90),
    sql::padText("Numbered periodic comets:", 90),
    sql::padText("Long-period and unnumbered short- and intermediate-period comets:", 90),
    sql::padText("Entries added by the user:", 90),
    sql::padText("Last added comets:", 90)};

TEST(ColumnTablesTest, TheArraysAndTheirWidths) {
    const ColumnTables tables = buildColumnTables();
    ASSERT_EQ(tables.allColumns.size(), 74u);
    EXPECT_EQ(tables.allColumns[0].name, sql::padText(" id", kColumnNameWidth));
    EXPECT_EQ(tables.allColumns[0].sqlType, sql::padText("CHAR(10)", kSqlTypeWidth));
    const std::size_t k1err = elementColumnIndex("K1_err");
    EXPECT_EQ(k1err, 61u);
    EXPECT_EQ(kElementColumns[k1err].width, 16u);
    EXPECT_EQ(tables.allColumns[k1err].sqlType, sql::padText("CHAR(16)", kSqlTypeWidth));
    EXPECT_EQ(kElementColumns[elementColumnIndex("hinfo")].width, 5000u);
    EXPECT_EQ(kElementColumns[73].name, "P_calc");
    EXPECT_EQ(elementColumnIndex("nosuch"), kElementColumnCount);
    std::size_t widths = 0;
    for (const ColumnProperty& column : tables.allColumns) {
        EXPECT_EQ(column.valueKind, kKindText);
        EXPECT_EQ(column.name[0], ' ');
    }
    for (const ElementColumn& column : kElementColumns) {
        widths += column.width;
    }
    EXPECT_EQ(widths, 6217u);  // the sum of the 74 widths as listed

    ASSERT_EQ(tables.count.size(), 1u);
    EXPECT_EQ(tables.count[0].name, sql::padText(" count(*)", kColumnNameWidth));
    EXPECT_EQ(tables.count[0].valueKind, kKindInteger);
    ASSERT_EQ(tables.statistics.size(), 5u);
    EXPECT_EQ(tables.statistics[4].name,
              sql::padText(" count(case when id>(select value from parameters where id=4) then id end)",
                           kColumnNameWidth));
    EXPECT_EQ(tables.statistics[1].sqlType, sql::padText("CHAR(30)", kSqlTypeWidth));
    ASSERT_EQ(tables.briefColumns.size(), 4u);
    EXPECT_EQ(tables.briefColumns[3].name, sql::padText(" htype", kColumnNameWidth));
    EXPECT_EQ(tables.briefColumns[3].sqlType, sql::padText("CHAR(1)", kSqlTypeWidth));
    ASSERT_EQ(tables.parameterValue.size(), 1u);
    EXPECT_EQ(tables.parameterValue[0].name, sql::padText(" value", kColumnNameWidth));
}

TEST(CometLabelTest, NumberedAndUnnumberedComets) {
    EXPECT_EQ(cometLabel("1", "Halley", "", "P"), "1P/Halley");
    EXPECT_EQ(cometLabel("   ", "Hale-Bopp", "1995 O1", "C"), "C/1995 O1 (Hale-Bopp)");
    EXPECT_EQ(cometLabel("", "", "2020 X1", " "), "?/2020 X1");
    EXPECT_EQ(cometLabel("362", "", "2008 GO98", "P"), "362P/2008 GO98");
    EXPECT_EQ(cometLabel("  12  ", "Pons-Brooks\0junk"s, "", "P"), "12P/Pons-Brooks");
    // A label ending in "/" loses it.
    EXPECT_EQ(cometLabel("12", "", "", "P"), "12P");
    EXPECT_EQ(cometLabel("", "", "", "C"), "C");
    EXPECT_EQ(cometLabel("", "", "", ""), "?");
}

class BriefInfoTest : public CatalogueTest {
protected:
    void fill() {
        // Records 1 to 3 are the distributed catalogue, 4 and 5 the user's.
        ASSERT_EQ(insertElement(db, {{"comet", "1"}, {"htype", "P"}, {"name", "Halley"}}), SQLITE_OK);
        ASSERT_EQ(insertElement(db, {{"htype", "C"}, {"des", "1995 O1"}, {"name", "Hale-Bopp"}}), SQLITE_OK);
        ASSERT_EQ(insertElement(db, {{"comet", "2"}, {"htype", "P"}, {"name", "Encke"}}), SQLITE_OK);
        ASSERT_EQ(insertElement(db, {{"des", "2020 X1"}}), SQLITE_OK);
        ASSERT_EQ(insertElement(db, {{"comet", "1"}, {"htype", "P"}, {"name", "Halley"}}), SQLITE_OK);
        ASSERT_EQ(sql::execute(db, "update parameters set value = '3' where id = '4'; "
                                   "update parameters set value = '1' where id = '5';"),
                  SQLITE_OK);
    }
};

TEST_F(BriefInfoTest, ParametersOfANewCatalogue) {
    ColumnTables tables = buildColumnTables();
    const CatalogueParameters parameters = readParameters(path, tables);
    EXPECT_EQ(parameters.status, SQLITE_OK);
    EXPECT_EQ(parameters.values[0], sql::padText("2", 30));
    EXPECT_EQ(parameters.values[1], sql::padText("00000000o.oup", 30));
    EXPECT_EQ(parameters.values[2], sql::padText("Never updated...", 30));
    EXPECT_EQ(parameters.values[3], sql::padText("0", 30));
    EXPECT_EQ(parameters.values[4], sql::padText("0", 30));
}

TEST_F(BriefInfoTest, MissingParameterRowsStayBlank) {
    ASSERT_EQ(sql::execute(db, "delete from parameters where id > 3"), SQLITE_OK);
    ColumnTables tables = buildColumnTables();
    const CatalogueParameters parameters = readParameters(path, tables);
    EXPECT_EQ(parameters.status, SQLITE_OK);
    EXPECT_EQ(parameters.values[2], sql::padText("Never updated...", 30));
    EXPECT_EQ(parameters.values[3], std::string(30, ' '));
    EXPECT_EQ(parameters.values[4], std::string(30, ' '));
}

TEST_F(BriefInfoTest, AnEmptyCatalogue) {
    ColumnTables tables = buildColumnTables();
    const BriefInfo info = refreshBriefInfo(path, tables);
    EXPECT_EQ(info.status, SQLITE_OK);
    for (const std::string& statistic : info.statistics) {
        EXPECT_EQ(statistic, sql::padText("0", 30));
    }
    EXPECT_TRUE(info.userLabels.empty());
    EXPECT_TRUE(info.catalogueLabels.empty());
}

TEST_F(BriefInfoTest, StatisticsAndLabelsOfASmallCatalogue) {
    fill();
    ColumnTables tables = buildColumnTables();
    const BriefInfo info = refreshBriefInfo(path, tables);
    EXPECT_EQ(info.status, SQLITE_OK);
    EXPECT_EQ(info.statistics[kRecordCount], sql::padText("5", 30));
    EXPECT_EQ(info.statistics[kCometCount], sql::padText("4", 30));
    EXPECT_EQ(info.statistics[kNumberedCount], sql::padText("2", 30));
    EXPECT_EQ(info.statistics[kUnnumberedCount], sql::padText("2", 30));
    EXPECT_EQ(info.statistics[kUserRecordCount], sql::padText("2", 30));
    EXPECT_EQ(info.userLabels, (std::vector<std::string>{"1P/Halley", "?/2020 X1"}));
    EXPECT_EQ(info.catalogueLabels, (std::vector<std::string>{"2P/Encke", "C/1995 O1 (Hale-Bopp)", "1P/Halley"}));
}

TEST_F(BriefInfoTest, TheListsAreLimitedToThreeAndSevenNewestFirst) {
    for (int k = 1; k <= 12; ++k) {
        ASSERT_EQ(insertElement(db, {{"comet", std::to_string(k)}, {"htype", "P"}}), SQLITE_OK);
    }
    ASSERT_EQ(sql::execute(db, "update parameters set value = '8' where id = 4"), SQLITE_OK);
    ColumnTables tables = buildColumnTables();
    const BriefInfo info = refreshBriefInfo(path, tables);
    EXPECT_EQ(info.userLabels, (std::vector<std::string>{"12P", "11P", "10P"}));
    EXPECT_EQ(info.catalogueLabels, (std::vector<std::string>{"8P", "7P", "6P", "5P", "4P", "3P", "2P"}));
    EXPECT_EQ(info.statistics[kUserRecordCount], sql::padText("4", 30));
}

TEST_F(BriefInfoTest, StartPageText) {
    fill();
    ColumnTables tables = buildColumnTables();
    const BriefInfo info = refreshBriefInfo(path, tables);
    EXPECT_EQ(startPageText(kBriefStrings, info),
              "A database of cometary orbits contains 5 entries of 4 comets, among them:\n"
              "Numbered periodic comets: 2\n"
              "Long-period and unnumbered short- and intermediate-period comets: 2\n"
              "Entries added by the user: 2\n"
              "Last added comets: 1P/Halley, ?/2020 X1, 2P/Encke, C/1995 O1 (Hale-Bopp), 1P/Halley");
}

TEST(LastAddedLabelsTest, ALongListEndsWithDots) {
    BriefInfo info;
    info.userLabels = {"1P/Halley", "?/2020 X1"};
    info.catalogueLabels = {"2P/Encke", "C/1995 O1 (Hale-Bopp)"};
    EXPECT_EQ(lastAddedLabels(info), "1P/Halley, ?/2020 X1, 2P/Encke, C/1995 O1 (Hale-Bopp)");
    EXPECT_EQ(lastAddedLabels(info, 53), "1P/Halley, ?/2020 X1, 2P/Encke, C/1995 O1 (Hale-Bopp)");
    EXPECT_EQ(lastAddedLabels(info, 52), "1P/Halley, ?/2020 X1, 2P/Encke,... ");
    EXPECT_EQ(lastAddedLabels(info, 30), "1P/Halley, ?/2020 X1,... ");
    EXPECT_EQ(lastAddedLabels(info, 5), ",... ");
    EXPECT_EQ(lastAddedLabels(BriefInfo{}), "");
}

TEST(StartPageTextTest, NumbersAreAdjustedLeftAndTrimmed) {
    BriefInfo info;
    info.statistics = {sql::padText("   12", 30), sql::padText("7", 30), sql::padText(" 3", 30),
                       sql::padText("4", 30), sql::padText("0", 30)};
    EXPECT_EQ(startPageText(kBriefStrings, info),
              "A database of cometary orbits contains 12 entries of 7 comets, among them:\n"
              "Numbered periodic comets: 3\n"
              "Long-period and unnumbered short- and intermediate-period comets: 4\n"
              "Entries added by the user: 0\n"
              "Last added comets: ");
}

}  // namespace
}  // namespace orvane
