// The Delete command against a catalogue file, and what the list shows afterwards.
#include <gtest/gtest.h>

#include <algorithm>

#include "records/delete_batch.h"
#include "search_test_support.h"

namespace orvane {
namespace {

using testing::fieldCombo;
using testing::foundIds;
using testing::oneRow;
using testing::queryText;

class DeleteBatch : public ::testing::Test {
protected:
    testing::TempHome home;
    std::string path = testing::smallCatalogue(home);
    SearchTexts texts = testing::englishSearchTexts();
    SearchSession session;
    testing::RecordingSearchView view;
};

TEST_F(DeleteBatch, DeletingAllHitsLeavesAnEmptyList) {
    const SearchForm form = oneRow(fieldCombo("name"), kEqualTo, "Encke");
    searchDirect(path, form, session, view, texts);
    ASSERT_EQ(session.result.size(), 2u);
    const std::size_t rows[] = {0, 1};
    testing::RecordingSearchView batchView;
    const DeleteBatchResult result = deleteThread(path, rows, form, session, batchView, texts);
    EXPECT_EQ(result.status, BatchStatus::Committed);
    EXPECT_EQ(result.deleted, 2u);
    EXPECT_EQ(queryText(path, "select count(*) from elements where name = 'Encke'"), "0");
    EXPECT_EQ(testing::rowCount(path), 7);
    EXPECT_EQ(batchView.clears, 1);
    EXPECT_EQ(batchView.shownRows, 0u);
    EXPECT_EQ(batchView.resultTexts.back(), "Search Results: No Matches found");
    EXPECT_EQ(batchView.selectionCommands, (std::vector<bool>{false}));
    EXPECT_EQ(session.result.size(), 0u);
    EXPECT_EQ(batchView.statistics, 1);
    EXPECT_EQ(batchView.statuses.back(), "Ready");
    EXPECT_NE(std::find(batchView.statuses.begin(), batchView.statuses.end(), "Deleting Records in progress..."),
              batchView.statuses.end());
    EXPECT_EQ(batchView.commandsEnabled, (std::vector<bool>{false, true}));
    EXPECT_EQ(batchView.progressMaximum, 2);
    EXPECT_EQ(batchView.steps, 2);
}

TEST_F(DeleteBatch, CatalogueRecordsCanBeDeletedAndTheRestOfTheListIsReadAgain) {
    searchDirect(path, SearchForm{}, session, view, texts);
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row < session.result.size(); ++row) {
        const std::string_view name = session.result.text(row, Field::name);
        if (name == "Halley" || name == "Bennett") rows.push_back(row);
    }
    rows.push_back(99);  // not a row of the list: ignored
    testing::RecordingSearchView batchView;
    const DeleteBatchResult result = deleteThread(path, rows, SearchForm{}, session, batchView, texts);
    EXPECT_EQ(result.deleted, 3u);
    EXPECT_EQ(testing::rowCount(path), 6);
    EXPECT_EQ(batchView.results, 1);
    std::vector<int> ids = foundIds(session);
    std::sort(ids.begin(), ids.end());
    EXPECT_EQ(ids, (std::vector<int>{3, 5, 6, 7, 8, 9}));
    EXPECT_EQ(batchView.resultTexts.back(), "Search Results: 6 Matches found");
}

TEST_F(DeleteBatch, IdsAreNeverReused) {
    searchDirect(path, oneRow(fieldCombo("des"), kEqualTo, "2020 X1"), session, view, texts);
    const std::size_t rows[] = {0};
    deleteThread(path, rows, SearchForm{}, session, view, texts);
    testing::executeSql(path, "insert into elements(name) values('Next')");
    EXPECT_EQ(queryText(path, "select id from elements where name = 'Next'"), "10");
}

TEST_F(DeleteBatch, NothingSelectedDeletesNothing) {
    searchDirect(path, SearchForm{}, session, view, texts);
    const DeleteBatchResult result = deleteThread(path, {}, SearchForm{}, session, view, texts);
    EXPECT_EQ(result.deleted, 0u);
    EXPECT_EQ(testing::rowCount(path), 9);
}

}  // namespace
}  // namespace orvane
