// Each operator on a text column (name) and on a calculated column (P_calc), with a
// plain value, with "~", with two items and with an apostrophe: the exact clause
// and the rows it finds in a small catalogue.
#include <gtest/gtest.h>

#include <algorithm>

#include "records/query_clause.h"
#include "search_test_support.h"

namespace orvane {
namespace {

using testing::fieldCombo;
using testing::foundIds;
using testing::oneRow;

struct OperatorCase {
    const char* field;
    int op;
    const char* value;
    const char* clause;
    std::vector<int> ids;
};

const std::vector<int> kAll = {1, 2, 3, 4, 5, 6, 7, 8, 9};

const std::vector<OperatorCase> kCases = {
    // name, a plain value
    {"name", kGreaterThan, "Encke", "where ( name>'Encke')", {1, 2, 3, 7, 8}},
    {"name", kLessThan, "Encke", "where ( name<'Encke')", {4, 9}},
    {"name", kEqualTo, "Encke", "where ( name='Encke')", {5, 6}},
    {"name", kNotEqualTo, "Encke", "where ( name<>'Encke')", {1, 2, 3, 4, 7, 8, 9}},
    {"name", kBeginsWith, "Encke", "where ( name like 'Encke%')", {5, 6}},
    {"name", kEndsWith, "Encke", "where ( name like '%Encke')", {5, 6}},
    {"name", kContains, "Encke", "where ( name like '%Encke%')", {5, 6}},
    {"name", kFreeFrom, "Encke", "where ( name not like '%Encke%')", {1, 2, 3, 4, 7, 8, 9}},
    // name, "~": "Less than" and "Free from" ask for a blank field
    {"name", kGreaterThan, "~", "where ( length(trim(name))<>0)", {1, 2, 3, 4, 5, 6, 7, 8}},
    {"name", kLessThan, "~", "where ( length(trim(name))=0)", {9}},
    {"name", kEqualTo, "~", "where ( length(trim(name))=0)", {9}},
    {"name", kNotEqualTo, "~", "where ( length(trim(name))<>0)", {1, 2, 3, 4, 5, 6, 7, 8}},
    {"name", kBeginsWith, "~", "where ( length(trim(name))=0)", {9}},
    {"name", kEndsWith, "~", "where ( length(trim(name))=0)", {9}},
    {"name", kContains, "~", "where ( length(trim(name))=0)", {9}},
    {"name", kFreeFrom, "~", "where ( length(trim(name))=0)", {9}},
    // name, two items
    {"name", kGreaterThan, "Encke, Halley", "where ( name>'Encke' and name>'Halley')", {7, 8}},
    {"name", kLessThan, "Encke, Halley", "where ( name<'Encke' and name<'Halley')", {4, 9}},
    {"name", kEqualTo, "Encke, Halley", "where ( name='Encke' or name='Halley')", {1, 2, 5, 6}},
    {"name", kNotEqualTo, "Encke, Halley", "where ( name<>'Encke' and name<>'Halley')", {3, 4, 7, 8, 9}},
    {"name", kBeginsWith, "Encke, Halley", "where ( name like 'Encke%' or name like 'Halley%')", {1, 2, 5, 6}},
    {"name", kEndsWith, "Encke, Halley", "where ( name like '%Encke' or name like '%Halley')", {1, 2, 5, 6}},
    {"name", kContains, "Encke, Halley", "where ( name like '%Encke%' or name like '%Halley%')", {1, 2, 5, 6}},
    {"name", kFreeFrom, "Encke, Halley", "where ( name not like '%Encke%' or name not like '%Halley%')", kAll},
    // name, an apostrophe
    {"name", kGreaterThan, "O'Neil", "where ( name>'O''Neil')", {}},
    {"name", kLessThan, "O'Neil", "where ( name<'O''Neil')", {1, 2, 3, 4, 5, 6, 8, 9}},
    {"name", kEqualTo, "O'Neil", "where ( name='O''Neil')", {7}},
    {"name", kNotEqualTo, "O'Neil", "where ( name<>'O''Neil')", {1, 2, 3, 4, 5, 6, 8, 9}},
    {"name", kBeginsWith, "O'Neil", "where ( name like 'O''Neil%')", {7}},
    {"name", kEndsWith, "O'Neil", "where ( name like '%O''Neil')", {7}},
    {"name", kContains, "O'Neil", "where ( name like '%O''Neil%')", {7}},
    {"name", kFreeFrom, "O'Neil", "where ( name not like '%O''Neil%')", {1, 2, 3, 4, 5, 6, 8, 9}},
    // P_calc, a plain value: numbers go without quotes; 'n/a' (ids 7, 8) is a text
    // and stands above every number
    {"P_calc", kGreaterThan, "10", "where ( P_calc>10)", {1, 2, 3, 4, 7, 8}},
    {"P_calc", kLessThan, "10", "where ( P_calc<10)", {5, 6, 9}},
    {"P_calc", kEqualTo, "8", "where ( P_calc=8)", {9}},
    {"P_calc", kNotEqualTo, "8", "where ( P_calc<>8)", {1, 2, 3, 4, 5, 6, 7, 8}},
    {"P_calc", kBeginsWith, "8", "where ( P_calc like '8%')", {9}},
    {"P_calc", kEndsWith, "8", "where ( P_calc like '%8')", {1}},  // 75.0215861562768
    {"P_calc", kContains, "n/", "where ( P_calc like '%n/%')", {7, 8}},
    {"P_calc", kFreeFrom, "n/", "where ( P_calc not like '%n/%')", {1, 2, 3, 4, 5, 6, 9}},
    // P_calc, "~"
    {"P_calc", kGreaterThan, "~", "where ( length(trim(P_calc))<>0)", kAll},
    {"P_calc", kLessThan, "~", "where ( length(trim(P_calc))=0)", {}},
    {"P_calc", kEqualTo, "~", "where ( length(trim(P_calc))=0)", {}},
    {"P_calc", kNotEqualTo, "~", "where ( length(trim(P_calc))<>0)", kAll},
    {"P_calc", kBeginsWith, "~", "where ( length(trim(P_calc))=0)", {}},
    {"P_calc", kEndsWith, "~", "where ( length(trim(P_calc))=0)", {}},
    {"P_calc", kContains, "~", "where ( length(trim(P_calc))=0)", {}},
    {"P_calc", kFreeFrom, "~", "where ( length(trim(P_calc))=0)", {}},
    // P_calc, two items
    {"P_calc", kGreaterThan, "3, 80", "where ( P_calc>3 and P_calc>80)", {3, 4, 7, 8}},
    {"P_calc", kLessThan, "3.295, 80", "where ( P_calc<3.295 and P_calc<80)", {6}},
    {"P_calc", kEqualTo, "8, 80", "where ( P_calc=8 or P_calc=80)", {9}},
    {"P_calc", kNotEqualTo, "8, 80", "where ( P_calc<>8 and P_calc<>80)", {1, 2, 3, 4, 5, 6, 7, 8}},
    {"P_calc", kBeginsWith, "3, 8", "where ( P_calc like '3%' or P_calc like '8%')", {5, 6, 9}},
    {"P_calc", kEndsWith, "n/a, 8", "where ( P_calc like '%n/a' or P_calc like '%8')", {1, 7, 8}},
    {"P_calc", kContains, "n/, 8.0", "where ( P_calc like '%n/%' or P_calc like '%8.0%')", {7, 8, 9}},
    {"P_calc", kFreeFrom, "n/, 8.0", "where ( P_calc not like '%n/%' or P_calc not like '%8.0%')", kAll},
    // P_calc, an apostrophe: not a number, so it keeps its quotes
    {"P_calc", kGreaterThan, "1'0", "where ( P_calc>'1''0')", {7, 8}},
    {"P_calc", kLessThan, "1'0", "where ( P_calc<'1''0')", {1, 2, 3, 4, 5, 6, 9}},
    {"P_calc", kEqualTo, "1'0", "where ( P_calc='1''0')", {}},
    {"P_calc", kNotEqualTo, "1'0", "where ( P_calc<>'1''0')", kAll},
    {"P_calc", kBeginsWith, "1'0", "where ( P_calc like '1''0%')", {}},
    {"P_calc", kEndsWith, "1'0", "where ( P_calc like '%1''0')", {}},
    {"P_calc", kContains, "1'0", "where ( P_calc like '%1''0%')", {}},
    {"P_calc", kFreeFrom, "1'0", "where ( P_calc not like '%1''0%')", kAll},
};

TEST(SearchOperators, EachOperatorGivesItsClauseAndFindsItsRows) {
    testing::TempHome home;
    const std::string path = testing::smallCatalogue(home);
    const SearchTexts texts = testing::englishSearchTexts();
    SearchSession session;
    for (const OperatorCase& c : kCases) {
        SCOPED_TRACE(std::string(c.field) + " op " + std::to_string(c.op) + " value " + c.value);
        const SearchForm form = oneRow(fieldCombo(c.field), c.op, c.value);
        EXPECT_EQ(buildQueryClause(form), c.clause);
        testing::RecordingSearchView view;
        const SearchOutcome outcome = searchDirect(path, form, session, view, texts);
        EXPECT_EQ(outcome.status, SearchStatus::Found);
        EXPECT_EQ(outcome.sqliteCode, 0);
        std::vector<int> ids = foundIds(session);
        std::sort(ids.begin(), ids.end());  // without a sort choice the order is SQLite's
        EXPECT_EQ(ids, c.ids);
    }
}

}  // namespace
}  // namespace orvane
