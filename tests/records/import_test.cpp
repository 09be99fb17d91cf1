#include "records/import_export.h"

#include <gtest/gtest.h>

#include <random>

#include "records/catalogue_rows.h"
#include "records/els_format.h"
#include "records/list_format.h"
#include "records_test_support.h"

namespace {

using namespace orvane;
using orvane::testing::RecordingView;
using orvane::testing::TempHome;

const RecordTexts& texts() {
    static const RecordTexts t = orvane::testing::englishTexts();
    return t;
}

// A clock that gives the listed times, then keeps the last one.
BatchClock clockOf(std::vector<double> times) {
    auto at = std::make_shared<std::size_t>(0);
    return [times = std::move(times), at]() {
        const double t = times[std::min(*at, times.size() - 1)];
        ++*at;
        return t;
    };
}

std::filesystem::path writeText(const TempHome& home, const std::string& name, const std::string& text) {
    const auto path = home.root() / name;
    orvane::testing::writeFile(path, text);
    return path;
}

ImportResult importText(const TempHome& home, const std::string& db, const std::string& name,
                        const std::string& text, RecordingView& view) {
    RecordArray array;
    return importFile(writeText(home, name, text), db, array, view, texts());
}

TEST(Import, AsksAndInsertsInOneBatch) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    const std::string line = writeElsLine(orvane::testing::halley());
    RecordingView view;
    view.filledByForm = true;
    const ImportResult result = importText(home, db, "two.els", line + "\n" + line + "\n", view);
    EXPECT_EQ(result.status, ImportStatus::Inserted);
    EXPECT_EQ(result.batch.inserted, 2u);
    ASSERT_EQ(view.questions.size(), 1u);
    EXPECT_EQ(view.questions[0], "Are you sure you want to import 2 Records?");
    EXPECT_EQ(view.questionTitles[0], "Confirm Records import");
    EXPECT_EQ(view.statuses.front(), "Reading elements...");
    EXPECT_EQ(view.statuses.back(), "Ready");
    EXPECT_EQ(view.progressMaximum, 2);
    EXPECT_EQ(view.steps, 2);
    EXPECT_EQ(view.commandsEnabled, (std::vector<bool>{false, true}));
    EXPECT_EQ(view.searches, 1);
    EXPECT_EQ(view.statistics, 1);
    // insert or replace with no id always adds: the same comet twice is two rows.
    EXPECT_EQ(orvane::testing::rowCount(db), 2);
    EXPECT_EQ(orvane::testing::queryText(db, "select count(distinct id) from elements where comet=1"), "2");
}

TEST(Import, ImportDoesNotMergeWithExistingRecords) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    RecordingView view;
    const std::string line = writeElsLine(orvane::testing::halley()) + "\n";
    importText(home, db, "a.els", line, view);
    importText(home, db, "b.els", line, view);
    EXPECT_EQ(view.questions[0], "Are you sure you want to import 1 Record?");
    EXPECT_EQ(orvane::testing::rowCount(db), 2);
}

TEST(Import, DeclinedLeavesTheCatalogueAlone) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    RecordingView view;
    view.answer = false;
    const ImportResult result = importText(home, db, "one.els", writeElsLine(orvane::testing::halley()), view);
    EXPECT_EQ(result.status, ImportStatus::Declined);
    EXPECT_EQ(view.statuses.back(), "Ready");
    EXPECT_EQ(orvane::testing::rowCount(db), 0);
}

TEST(Import, FaultyRecordShowsTheCheckAndInsertsNothing) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    OrbitRecord bad = orvane::testing::halley();
    bad.set(Field::q, "0");
    const std::string text = writeElsLine(orvane::testing::halley()) + "\n" + writeElsLine(bad) + "\n";
    RecordingView view;
    const ImportResult result = importText(home, db, "bad.els", text, view);
    EXPECT_EQ(result.status, ImportStatus::Invalid);
    ASSERT_EQ(view.messages.size(), 1u);
    EXPECT_EQ(view.messages[0],
              "One or more strings contains are incorrect.\r\nElements format error! \"perihelion distance\" at 2 "
              "record.\r\nSuggestions:\r\n- Perihelion distance value should be in the range (0; 100) AU.");
    EXPECT_EQ(view.messageTitles[0], "Message");
    EXPECT_EQ(orvane::testing::rowCount(db), 0);
}

TEST(Import, ListFileWithMissingItemsShowsTheMessage) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    RecordingView view;
    const ImportResult result = importText(home, db, "short.txt", "'1', 'Halley'\n", view);
    EXPECT_EQ(result.status, ImportStatus::ReadFailed);
    ASSERT_EQ(view.messages.size(), 1u);
    EXPECT_EQ(view.messages[0], "One or more strings contains an incorrect number of elements.\r\nSuggestions:");
    EXPECT_TRUE(view.questions.empty());
    EXPECT_EQ(view.statuses.back(), "Ready");
    EXPECT_EQ(orvane::testing::rowCount(db), 0);
}

TEST(Import, MissingFileShowsTheMessage) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    RecordingView view;
    RecordArray array;
    const ImportResult result = importFile(home.root() / "none.els", db, array, view, texts());
    EXPECT_EQ(result.status, ImportStatus::ReadFailed);
    EXPECT_EQ(result.read.status, FileReadStatus::CannotOpen);
    EXPECT_EQ(view.messages.size(), 1u);
}

TEST(InsertBatch, RemainingTimeIsShownAndOnlyFalls) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    const std::vector<OrbitRecord> records(10, orvane::testing::halley());
    RecordingView view;
    // Start, then one time after each record: a fast start, a long stall, a steady end.
    const BatchClock clock = clockOf({0.0, 0.6, 10.0, 10.6, 11.2, 11.8, 12.4, 13.0, 13.6, 14.2, 20.0});
    const InsertBatchResult result = insertRecords(db, records, InsertMode{}, view, texts(), clock);
    EXPECT_EQ(result.status, BatchStatus::Committed);
    EXPECT_EQ(result.inserted, 10u);
    // After 1: 10*0.6/1-0.6 = 5.4. After 2: 40 is larger and not shown. After 3: 24.7,
    // after 4: 17.0, after 5: 11.8 (> 5.4, not shown); after 6..9 the estimates fall below
    // 5.4 from record 8 on: 13.6*10/8-13.6 = 3.4, 14.2*10/9-14.2 = 1.58; after 10: 0.
    EXPECT_EQ(view.remaining, (std::vector<std::string>{"Remaining time: ...", "Remaining time: 0h 0m 5s",
                                                        "Remaining time: 0h 0m 3s", "Remaining time: 0h 0m 1s",
                                                        "Remaining time: 0h 0m 0s", ""}));
    EXPECT_EQ(view.statuses, (std::vector<std::string>{"Adding new Records in progress...", "", "Ready"}));
    EXPECT_EQ(view.hides, 1);
}

TEST(InsertBatch, RemainingTimeText) {
    EXPECT_EQ(remainingTimeText(3723.9, texts()), "Remaining time: 1h 2m 3s");
    EXPECT_EQ(remainingTimeText(-5.0, texts()), "Remaining time: 0h 0m 0s");
    EXPECT_EQ(remainingTimeText(59.99, texts()), "Remaining time: 0h 0m 59s");
}

TEST(InsertBatch, ApproximateClockCountsMonthsOf30Days) {
    const double now = approximateClockNow();
    EXPECT_GT(now, 2024.0 * 31536000.0);
    EXPECT_LT(now, 2200.0 * 31536000.0);
}

TEST(InsertBatch, BlankRecordGivesAnErrorThatNothingReports) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    RecordArray array;
    ASSERT_EQ(readRecordText(writeElsLine(orvane::testing::halley()) + "\n" + std::string(181, ' ') + "\n" +
                                 writeElsLine(orvane::testing::halley()) + "\n",
                             true, array)
                  .status,
              FileReadStatus::Ok);
    ASSERT_EQ(array.count, 3u);
    EXPECT_EQ(array.records[1], OrbitRecord());
    RecordingView view;
    const InsertBatchResult result = insertRecords(db, array.records, InsertMode{}, view, texts());
    EXPECT_EQ(result.status, BatchStatus::Committed);
    EXPECT_EQ(result.inserted, 2u);
    EXPECT_EQ(result.skipped, 1u);
    EXPECT_TRUE(view.messages.empty());
    EXPECT_EQ(orvane::testing::rowCount(db), 2);
}

TEST(InsertBatch, TransactionLostInsideTheBatchRollsBackEverything) {
    TempHome home;
    const std::string db = orvane::testing::freshCatalogue(home);
    CatalogueDb connection;
    sql::open(db, connection);
    sql::execute(connection, "create trigger poison before insert on elements when new.name = 'poison' "
                             "begin select raise(rollback, 'stopped'); end");
    sql::close(connection);
    std::vector<OrbitRecord> records(6, orvane::testing::halley());
    records[3].set(Field::name, "poison");
    RecordingView view;
    const InsertBatchResult result = insertRecords(db, records, InsertMode{}, view, texts());
    EXPECT_EQ(result.status, BatchStatus::RolledBack);
    EXPECT_EQ(result.inserted, 0u);
    EXPECT_EQ(orvane::testing::rowCount(db), 0);
    EXPECT_EQ(view.commandsEnabled.back(), true);
    EXPECT_EQ(view.statuses.back(), "Ready");
}

TEST(InsertBatch, CatalogueThatCannotBeOpened) {
    TempHome home;
    RecordingView view;
    const std::vector<OrbitRecord> records(1, orvane::testing::halley());
    const InsertBatchResult result =
        insertRecords((home.root() / "no" / "such" / "orvane.db").string(), records, InsertMode{}, view, texts());
    EXPECT_EQ(result.status, BatchStatus::OpenFailed);
    EXPECT_EQ(view.commandsEnabled, (std::vector<bool>{false, true}));
    EXPECT_EQ(view.statuses.back(), "Ready");
}

TEST(Export, AsksAndWritesTheFormatOfTheName) {
    TempHome home;
    const std::vector<OrbitRecord> records(2, orvane::testing::halley());
    RecordingView view;
    EXPECT_EQ(exportRecords(home.root() / "out.els", records, view, texts()), ExportStatus::Written);
    EXPECT_EQ(view.questions[0], "Are you sure you want to export 2 Records?");
    EXPECT_EQ(view.questionTitles[0], "Confirm Records export");
    EXPECT_EQ(view.statuses, (std::vector<std::string>{"Export elements...", "Ready"}));
    const std::string line = writeElsLine(records[0]) + "\n";
    EXPECT_EQ(orvane::testing::readFile(home.root() / "out.els"), line + line);
    EXPECT_EQ(exportRecords(home.root() / "out.txt", std::span(records).first(1), view, texts()),
              ExportStatus::Written);
    EXPECT_EQ(view.questions[1], "Are you sure you want to export 1 Record?");
    EXPECT_EQ(orvane::testing::readFile(home.root() / "out.txt"), writeListLine(records[0]) + "\n");
    view.answer = false;
    EXPECT_EQ(exportRecords(home.root() / "declined.els", records, view, texts()), ExportStatus::Declined);
    EXPECT_FALSE(std::filesystem::exists(home.root() / "declined.els"));
    view.answer = true;
    EXPECT_EQ(exportRecords(home.root() / "no" / "dir.els", records, view, texts()), ExportStatus::WriteFailed);
}

}  // namespace
