// The search against a real catalogue file: count, columns, reading, sort, status
// texts, and the cases the forms make easy to get wrong.
#include <gtest/gtest.h>

#include <algorithm>

#include "records/query_clause.h"
#include "search_test_support.h"

namespace orvane {
namespace {

using testing::fieldCombo;
using testing::foundIds;
using testing::oneRow;

std::vector<int> sortedIds(const SearchSession& session) {
    std::vector<int> ids = foundIds(session);
    std::sort(ids.begin(), ids.end());
    return ids;
}

class SearchRun : public ::testing::Test {
protected:
    testing::TempHome home;
    std::string path = testing::smallCatalogue(home);
    SearchTexts texts = testing::englishSearchTexts();
    SearchSession session;
    testing::RecordingSearchView view;

    SearchOutcome search(const SearchForm& form) { return searchDirect(path, form, session, view, texts); }
};

TEST_F(SearchRun, EmptyFormFindsTheWholeCatalogue) {
    const SearchOutcome outcome = search(SearchForm{});
    EXPECT_EQ(outcome.count, 9);
    EXPECT_EQ(sortedIds(session), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(view.resultTexts.back(), "Search Results: 9 Matches found");
    EXPECT_EQ(view.shownRows, 9u);
    EXPECT_EQ(view.statuses.back(), "Ready");
    EXPECT_EQ(view.focuses, 1);
}

TEST_F(SearchRun, TildeWithEqualOnDesFindsEmptyDesignations) {
    search(oneRow(fieldCombo("des"), kEqualTo, "~"));
    EXPECT_EQ(sortedIds(session), (std::vector<int>{2, 5, 6}));
}

TEST_F(SearchRun, TildeOnInfoFindsTheDefaultText) {
    search(oneRow(fieldCombo("hinfo"), kEqualTo, "~"));
    EXPECT_EQ(sortedIds(session), (std::vector<int>{1, 2, 4, 5, 6, 7, 9}));
}

TEST_F(SearchRun, TwoDesignationsWithContainsAreJoinedByOr) {
    const SearchForm form = oneRow(fieldCombo("des"), kContains, "1995 O1,1969 Y1");
    EXPECT_EQ(buildQueryClause(form), "where ( des like '%1995 O1%' or des like '%1969 Y1%')");
    search(form);
    EXPECT_EQ(sortedIds(session), (std::vector<int>{3, 4}));
}

TEST_F(SearchRun, NameWithApostropheBeginsWith) {
    const SearchForm form = oneRow(fieldCombo("name"), kBeginsWith, "O'N");
    EXPECT_EQ(buildQueryClause(form), "where ( name like 'O''N%')");
    search(form);
    EXPECT_EQ(foundIds(session), (std::vector<int>{7}));
    EXPECT_EQ(session.result.text(0, Field::name), "O'Neil");
}

TEST_F(SearchRun, LastAppearanceIsSoughtAmongTheRecordsThatPassTheFilter) {
    SearchForm all;
    all.filters.lastAppearance = 1;
    search(all);
    EXPECT_EQ(sortedIds(session), (std::vector<int>{2, 3, 4, 6, 7, 8, 9}));  // Encke's last is 2027

    SearchForm filtered = oneRow(fieldCombo("e"), kLessThan, "0.8475");
    filtered.filters.lastAppearance = 1;
    search(filtered);
    // Encke 2023, its last appearance with e < 0.8475, and 2020 X1 (e 0.5).
    EXPECT_EQ(sortedIds(session), (std::vector<int>{5, 9}));
}

TEST_F(SearchRun, FiltersFindPeriodicMineAndLastUpdate) {
    SearchForm form;
    form.filters.periodicOnly = 1;
    search(form);
    EXPECT_EQ(sortedIds(session), (std::vector<int>{1, 2, 5, 6}));
    form = SearchForm{};
    form.filters.lastUpdate = 1;
    search(form);
    EXPECT_EQ(sortedIds(session), (std::vector<int>{7, 8, 9}));
    form = SearchForm{};
    form.filters.myRecords = 1;
    search(form);
    EXPECT_EQ(session.result.size(), 0u);
    EXPECT_EQ(view.resultTexts.back(), "Search Results: No Matches found");
}

TEST_F(SearchRun, NoTickedColumnEndsTheSearchWithItsMessage) {
    search(SearchForm{});
    SearchForm form;
    form.columnShown.fill(0);
    const int resultsBefore = view.results;
    const SearchOutcome outcome = search(form);
    EXPECT_EQ(outcome.status, SearchStatus::NoColumns);
    ASSERT_EQ(view.errors.size(), 1u);
    EXPECT_EQ(view.errors[0], "No colums selected.");
    EXPECT_EQ(view.statuses.back(), "Error: No colums selected");
    EXPECT_EQ(view.results, resultsBefore);
    EXPECT_EQ(session.result.size(), 9u);  // the previous result stays
}

TEST_F(SearchRun, SqlErrorFindsNothingWithoutAMessage) {
    const std::string broken = (home.root() / "broken.db").string();
    testing::executeSql(broken, "create table elements(id integer)");
    const SearchOutcome outcome = searchDirect(broken, SearchForm{}, session, view, texts);
    EXPECT_EQ(outcome.status, SearchStatus::Found);
    EXPECT_EQ(outcome.count, 0);
    EXPECT_NE(outcome.sqliteCode, 0);
    EXPECT_TRUE(view.errors.empty());
    EXPECT_TRUE(view.messages.empty());
    EXPECT_EQ(view.resultTexts.back(), "Search Results: No Matches found");

    const std::string notADatabase = (home.root() / "text.db").string();
    testing::writeFile(notADatabase, std::string(4096, 'x'));
    EXPECT_EQ(searchDirect(notADatabase, SearchForm{}, session, view, texts).count, 0);
    EXPECT_EQ(view.resultTexts.back(), "Search Results: No Matches found");
}

TEST_F(SearchRun, ColumnsFollowTheTicksWithLabelsErrorsAndSortTexts) {
    SearchForm form;
    form.columnShown.fill(0);
    form.columnShown[10] = 1;  // hday
    form.columnShown[11] = 1;  // q
    form.columnShown[1] = 1;   // name
    form.columnShown[51] = 1;  // class_calc
    search(form);
    ASSERT_EQ(session.columns.size(), 4u);
    EXPECT_EQ(view.columnLabels, (std::vector<std::string>{"Name", "Day per.", "q", "Orbit class."}));
    const ColumnSlot& hday = session.columns[1];
    EXPECT_EQ(hday.tip, "Day of perihelion passage");
    EXPECT_EQ(hday.field, Field::hday);
    EXPECT_TRUE(hday.hasError);
    EXPECT_EQ(hday.errorField, Field::hday_err);
    EXPECT_EQ(hday.sortAscending, " order by hyear, hmonth, hday");
    EXPECT_EQ(hday.sortDescending, " order by hyear desc, hmonth desc, hday desc");
    EXPECT_EQ(session.columns[2].sortAscending, " order by q");
    EXPECT_EQ(session.columns[2].sortDescending, " order by q desc");
    EXPECT_FALSE(session.columns[0].hasError);
    EXPECT_EQ(session.columns[3].field, Field::class_calc);
    EXPECT_EQ(sortText("E_day", false), " order by E_year, E_month, E_day");
    EXPECT_EQ(sortText("F_month", true), " order by F_year desc, F_month desc, F_day desc");
    EXPECT_EQ(sortText("L_year", false), " order by L_year, L_month, L_day");

    form.showErrors = 0;
    search(form);
    EXPECT_FALSE(session.columns[1].hasError);
    EXPECT_FALSE(session.columns[2].hasError);
}

TEST_F(SearchRun, SortChoiceOrdersTheRows) {
    SearchForm form;
    form.sort = {9, 1};  // hmonth: the whole perihelion date
    search(form);
    EXPECT_EQ(foundIds(session), (std::vector<int>{4, 1, 3, 7, 8, 9, 5, 6, 2}));
    form.sort = {9, 0};
    search(form);
    EXPECT_EQ(foundIds(session), (std::vector<int>{2, 6, 5, 9, 8, 7, 3, 1, 4}));
    form.sort = {11, 1};  // q
    search(form);
    EXPECT_EQ(foundIds(session), (std::vector<int>{8, 6, 5, 4, 1, 2, 3, 7, 9}));
    form.columnShown[11] = 0;  // a column not in the list does not sort
    EXPECT_EQ(sortClause(form), "");
}

TEST_F(SearchRun, RowsCarryEveryColumnOfTheView) {
    search(oneRow(fieldCombo("des"), kEqualTo, "1995 O1"));
    ASSERT_EQ(session.result.size(), 1u);
    EXPECT_EQ(session.result.capacity(), 1u);
    EXPECT_EQ(session.result.text(0, Field::id), "3");
    EXPECT_EQ(session.result.text(0, Field::name), "Hale-Bopp");
    EXPECT_EQ(session.result.text(0, Field::htype), "C");
    EXPECT_EQ(session.result.text(0, Field::hday), "1.1");
    EXPECT_EQ(session.result.text(0, Field::comet), "");
    EXPECT_EQ(session.result.text(0, Field::hinfo), "Great comet");
    EXPECT_EQ(session.result.text(0, Field::P_calc), "2471.52089855619");
    EXPECT_EQ(session.result.text(0, Field::class_calc), "No class");  // period over 200 years
    EXPECT_EQ(session.result.text(0, Field::listWork1), "");
    EXPECT_EQ(session.result.text(5, Field::name), "");
    const OrbitRecord record = session.result.record(0);
    EXPECT_EQ(record.get(Field::des), "1995 O1");
    EXPECT_EQ(record.get(Field::q), "0.914");
    EXPECT_EQ(record.get(Field::i), "89.4");
}

TEST_F(SearchRun, ProgressAndStatusFollowTheReading) {
    const BatchClock clock = [t = 0.0]() mutable { return t += 1.0; };
    const SearchOutcome outcome = searchThread(path, SearchForm{}, session, view, texts, clock);
    EXPECT_EQ(outcome.count, 9);
    EXPECT_EQ(view.progressMaximum, 9);
    EXPECT_EQ(view.steps, 9);
    EXPECT_EQ(view.hides, 1);
    EXPECT_NE(std::find(view.statuses.begin(), view.statuses.end(), "Reading elements..."), view.statuses.end());
    EXPECT_EQ(view.remaining.front(), "Remaining time: ...");
    // One second a row: after the first of nine rows eight seconds are left.
    ASSERT_GE(view.remaining.size(), 2u);
    EXPECT_EQ(view.remaining[1], "Remaining time: 0h 0m 8s");
    EXPECT_EQ(view.commandsEnabled, (std::vector<bool>{false, true}));
    EXPECT_EQ(view.busy, (std::vector<bool>{true, false}));
    EXPECT_EQ(view.focuses, 0);
    EXPECT_EQ(view.statuses.back(), "Ready");
}

TEST_F(SearchRun, RepeatedSearchReplacesTheArray) {
    search(SearchForm{});
    EXPECT_EQ(session.result.size(), 9u);
    search(oneRow(fieldCombo("comet"), kEqualTo, "2"));
    EXPECT_EQ(session.result.size(), 2u);
    EXPECT_EQ(session.result.capacity(), 2u);
    EXPECT_EQ(session.queryClause, "where ( comet='2')");
    EXPECT_EQ(view.resultTexts.back(), "Search Results: 2 Matches found");
}

// The list may draw while the next search reads: the previous rows stay in place
// until the new ones are complete.
TEST_F(SearchRun, PreviousResultStaysReadableWhileTheNextOneIsRead) {
    search(SearchForm{});
    struct WatchingView : testing::RecordingSearchView {
        const SearchSession* session = nullptr;
        std::vector<std::size_t> sizesWhileReading;
        void stepProgress() override { sizesWhileReading.push_back(session->result.size()); }
    } watching;
    watching.session = &session;
    searchDirect(path, oneRow(fieldCombo("comet"), kEqualTo, "1"), session, watching, texts);
    EXPECT_EQ(watching.sizesWhileReading, (std::vector<std::size_t>{9, 9}));
    EXPECT_EQ(session.result.size(), 2u);
}

}  // namespace
}  // namespace orvane
