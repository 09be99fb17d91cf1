// The where clause of the forms: rows and connectors, the quick form, the filters
// in their order, the last appearance, the limit, and values that try to be SQL.
#include <gtest/gtest.h>

#include "records/query_clause.h"
#include "search_test_support.h"

namespace orvane {
namespace {

using testing::fieldCombo;
using testing::oneRow;

constexpr const char* kLastAppearanceAlone =
    "where ((case when comet='' then des else comet end)||(hyear*10000+hmonth*100+hday)) in (select (case "
    "when comet='' then des else comet end)||max(hyear*10000+hmonth*100+hday) from e_elements group by "
    "(case when comet='' then des else comet end))";

TEST(SearchClause, EmptyFormHasNoClause) {
    EXPECT_EQ(buildQueryClause(SearchForm{}), "");
}

TEST(SearchClause, RowsFollowEachOtherWithTheirConnectors) {
    SearchForm form = oneRow(fieldCombo("name"), kEqualTo, "Encke");
    form.rows[0].connector = kConnectorOr;
    form.rows[1] = {1, fieldCombo("q"), kLessThan, "0.5", kConnectorAnd};
    form.rows[3] = {1, fieldCombo("htype"), kEqualTo, "P", kConnectorOr};
    EXPECT_EQ(buildQueryClause(form), "where ( name='Encke') or ( q<'0.5') and ( htype='P')");
}

TEST(SearchClause, RowsNotInUseOrIncompleteAreLeftOut) {
    SearchForm form = oneRow(fieldCombo("name"), kEqualTo, "Encke");
    form.rows[1] = {0, fieldCombo("q"), kLessThan, "0.5", kConnectorAnd};        // not in use
    form.rows[2] = {1, 0, kLessThan, "0.5", kConnectorAnd};                       // "---" field
    form.rows[3] = {1, fieldCombo("q"), 0, "0.5", kConnectorAnd};                 // "---" operator
    form.rows[4] = {1, fieldCombo("q"), 9, "0.5", kConnectorAnd};                 // outside the table
    EXPECT_EQ(buildQueryClause(form), "where ( name='Encke')");
    form.rows[0].field = 55;
    EXPECT_EQ(buildQueryClause(form), "");
}

TEST(SearchClause, ItemsAreTrimmedAndTheValueEndsAtItsNul) {
    EXPECT_EQ(buildQueryClause(oneRow(fieldCombo("des"), kEqualTo, "  1995 O1 ,  ~ ")),
              "where ( des='1995 O1' or length(trim(des))=0)");
    EXPECT_EQ(buildQueryClause(oneRow(fieldCombo("des"), kEqualTo, std::string("1995 O1\0' or 1=1", 16))),
              "where ( des='1995 O1')");
}

TEST(SearchClause, TildeOnInfoIsTheDefaultText) {
    EXPECT_EQ(buildQueryClause(oneRow(fieldCombo("hinfo"), kEqualTo, "~")),
              "where ( hinfo='No Information Available...')");
    EXPECT_EQ(buildQueryClause(oneRow(fieldCombo("hinfo"), kNotEqualTo, "~, x")),
              "where ( hinfo<>'No Information Available...' and hinfo<>'x')");
}

TEST(SearchClause, QuickFormComparesTheNumberAndSearchesTheTexts) {
    SearchForm form;
    form.advancedSearchActive = 0;
    form.quickSearchActive = 1;
    form.quick = {0, "2, 1"};
    EXPECT_EQ(buildQueryClause(form), "where ( comet='2' or comet='1')");
    form.quick = {1, "O'Neil"};
    EXPECT_EQ(buildQueryClause(form), "where ( name like '%O''Neil%')");
    form.quick = {2, "~"};
    EXPECT_EQ(buildQueryClause(form), "where ( length(trim(des))=0)");
    form.quick = {4, "p"};
    EXPECT_EQ(buildQueryClause(form), "where ( htype like '%p%')");
    form.quick = {5, "p"};
    EXPECT_EQ(buildQueryClause(form), "");
    // The advanced rows are not read while the quick form is in force.
    form.rows[0] = {1, fieldCombo("q"), kLessThan, "1", kConnectorAnd};
    EXPECT_EQ(buildQueryClause(form), "");
}

TEST(SearchClause, FiltersStandInTheirOrder) {
    SearchForm form;
    form.filters.periodicOnly = 1;
    EXPECT_EQ(buildQueryClause(form), "where(comet<>'')");
    form.filters.myRecords = 1;
    form.filters.lastUpdate = 1;
    EXPECT_EQ(buildQueryClause(form),
              "where(comet<>'') and (id>(select value from parameters where id=4)) and (id>(select value from "
              "parameters where id=5) and id<=(select value from parameters where id=4))");
    form = oneRow(fieldCombo("name"), kEqualTo, "Encke");
    form.filters.myRecords = 1;
    EXPECT_EQ(buildQueryClause(form),
              "where ( name='Encke') and (id>(select value from parameters where id=4))");
}

TEST(SearchClause, LastAppearanceAloneIsTheLiteral) {
    SearchForm form;
    form.filters.lastAppearance = 1;
    EXPECT_EQ(buildQueryClause(form), kLastAppearanceAlone);
}

TEST(SearchClause, LastAppearanceRepeatsTheConditions) {
    SearchForm form = oneRow(fieldCombo("e"), kLessThan, "0.8475");
    form.filters.lastAppearance = 1;
    form.filters.periodicOnly = 1;
    EXPECT_EQ(buildQueryClause(form),
              "where ( ( e<'0.8475') and (comet<>'')) and ((case when comet='' then des else comet "
              "end)||(hyear*10000+hmonth*100+hday)) in (select (case when comet='' then des else comet "
              "end)||max(hyear*10000+hmonth*100+hday) from e_elements where( ( e<'0.8475') and (comet<>'')) "
              "group by (case when comet='' then des else comet end))");
}

TEST(SearchClause, OperatorTableKeepsItsOddEmptyTests) {
    EXPECT_EQ(operatorParts(kLessThan)->emptyTest, "))=0");
    EXPECT_EQ(operatorParts(kFreeFrom)->emptyTest, operatorParts(kContains)->emptyTest);
    EXPECT_EQ(operatorParts(kFreeFrom)->label, "Free from");
    EXPECT_EQ(operatorParts(kNotEqualTo)->label, "Not equal to (/=)");
    EXPECT_EQ(operatorParts(0), nullptr);
    EXPECT_EQ(operatorParts(9), nullptr);
}

TEST(SearchClause, CalculatedColumnsLoseTheQuotesOnlyAroundNumbers) {
    EXPECT_EQ(buildQueryClause(oneRow(fieldCombo("M_calc"), kGreaterThan, "-1.5e+2")), "where ( M_calc>-1.5e+2)");
    EXPECT_EQ(buildQueryClause(oneRow(fieldCombo("class_calc"), kEqualTo, "Halley-type")),
              "where ( class_calc='Halley-type')");
    EXPECT_EQ(buildQueryClause(oneRow(fieldCombo("a_calc"), kLessThan, "1 or 1=1")),
              "where ( a_calc<'1 or 1=1')");
    EXPECT_EQ(buildQueryClause(oneRow(fieldCombo("q"), kLessThan, "1")), "where ( q<'1')");
}

// "where ( name='" + value + "')" is 16 characters longer than the value.
TEST(SearchClause, FourThousandCharactersPassAndOneMoreIsRefused) {
    EXPECT_TRUE(queryClauseFits(buildQueryClause(oneRow(fieldCombo("name"), kEqualTo, std::string(3984, 'a')))));
    EXPECT_FALSE(queryClauseFits(buildQueryClause(oneRow(fieldCombo("name"), kEqualTo, std::string(3985, 'a')))));
    EXPECT_EQ(buildQueryClause(oneRow(fieldCombo("name"), kEqualTo, std::string(3984, 'a'))).size(), 4000u);

    testing::TempHome home;
    const std::string path = testing::smallCatalogue(home);
    const SearchTexts texts = testing::englishSearchTexts();
    SearchSession session;
    testing::RecordingSearchView passing;
    EXPECT_EQ(searchDirect(path, oneRow(fieldCombo("name"), kEqualTo, std::string(3984, 'a')), session, passing,
                           texts)
                  .status,
              SearchStatus::Found);
    EXPECT_TRUE(passing.errors.empty());
    EXPECT_EQ(passing.resultTexts.back(), "Search Results: No Matches found");

    testing::RecordingSearchView refused;
    EXPECT_EQ(searchThread(path, oneRow(fieldCombo("name"), kEqualTo, std::string(3985, 'a')), session, refused,
                           texts)
                  .status,
              SearchStatus::TooLong);
    ASSERT_EQ(refused.errors.size(), 1u);
    EXPECT_EQ(refused.errors[0], "Too long query.");
    EXPECT_EQ(refused.errorTitles[0], "Error");
    EXPECT_EQ(refused.statuses.back(), "Error: Too long query");
    EXPECT_EQ(refused.results, 0);
    EXPECT_EQ(refused.commandsEnabled, (std::vector<bool>{false, true}));
}

TEST(SearchClause, NoTypedValueRunsSqlOfItsOwn) {
    testing::TempHome home;
    const std::string path = testing::smallCatalogue(home);
    const SearchTexts texts = testing::englishSearchTexts();
    const std::vector<std::string> values = {
        "'",
        "''",
        "x'; drop table elements; --",
        "') or 1=1 --",
        "1) or (1=1",
        "1; delete from elements",
        ";",
        "-- comment",
        "%",
        "_",
        "%_%'",
        "\"Halley\"",
        "\\'",
        std::string("a\0b", 3),
        "1 union select * from parameters",
        "(select count(*) from elements)",
        std::string(5000, '\''),
        std::string(5000, 'x'),
    };
    SearchSession session;
    for (const std::string_view field : {"name", "q", "comet", "hinfo", "P_calc", "class_calc"}) {
        for (int op = 1; op <= kSearchOperatorCount; ++op) {
            for (const std::string& value : values) {
                SCOPED_TRACE(std::string(field) + " op " + std::to_string(op) + " value " + value.substr(0, 40));
                testing::RecordingSearchView view;
                const SearchOutcome outcome = searchDirect(path, oneRow(fieldCombo(field), op, value), session, view, texts);
                if (value.size() >= 4000) {
                    EXPECT_EQ(outcome.status, SearchStatus::TooLong);
                    continue;
                }
                EXPECT_EQ(outcome.status, SearchStatus::Found);
                EXPECT_EQ(outcome.sqliteCode, 0);  // each value stayed a literal of valid SQL
                EXPECT_EQ(static_cast<long long>(session.result.size()), outcome.count);
            }
        }
    }
    EXPECT_EQ(testing::rowCount(path), 9);
    EXPECT_EQ(testing::queryText(path, "select count(*) from parameters"), "5");
    EXPECT_EQ(testing::queryText(path, "select value from parameters where id=4"), "9");
}

TEST(SearchClause, PercentAndUnderscoreStayPatternsOfTheLikeOperators) {
    testing::TempHome home;
    const std::string path = testing::smallCatalogue(home);
    const SearchTexts texts = testing::englishSearchTexts();
    SearchSession session;
    testing::RecordingSearchView view;
    searchDirect(path, oneRow(fieldCombo("name"), kEqualTo, "%"), session, view, texts);
    EXPECT_EQ(session.result.size(), 0u);
    searchDirect(path, oneRow(fieldCombo("name"), kBeginsWith, "_ncke"), session, view, texts);
    EXPECT_EQ(session.result.size(), 2u);
}

}  // namespace
}  // namespace orvane
