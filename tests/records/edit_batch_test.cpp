// The update statement and the Edit and Duplicate commands against a catalogue file.
#include <gtest/gtest.h>

#include <algorithm>

#include "records/edit_batch.h"
#include "records/insert_batch.h"
#include "records/update_statement.h"
#include "search_test_support.h"

namespace orvane {
namespace {

using testing::fieldCombo;
using testing::foundIds;
using testing::oneRow;
using testing::queryText;

constexpr const char* kBodyColumns[] = {
    "comet", "name", "des", "olddes", "htype", "E_year", "E_month", "E_day", "hyear", "hmonth", "hday",
    "hday_err", "q", "q_err", "e", "e_err", "P", "w", "w_err", "Om", "Om_err", "i", "i_err", "A1", "A1_err",
    "A2", "A2_err", "A3", "A3_err", "Astyle", "NGE_DT", "NGE_DT_err", "DFoto", "DFoto_err", "Obs", "F_year",
    "F_month", "F_day", "L_year", "L_month", "L_day", "hsystem", "hPlan", "SBP", "b_perturber", "f_perturber",
    "RMS", "hreference", "Producer", "Diameter", "Diameter_err", "ARatio", "ARatio_err", "RotP", "RotP_err",
    "Albedo", "Albedo_err", "M1", "M1_err", "K1", "K1_err", "M2", "M2_err", "K2", "K2_err"};

TEST(UpdateStatement, EveryColumnInTableOrderAndInfoLast) {
    OrbitRecord record;
    record.set(Field::comet, "2");
    record.set(Field::name, "O'Neil");
    record.set(Field::q, "0.339");
    record.set(Field::htimeStamp, "2001-01-01 00:00:00");
    std::string expected = "update elements set";
    for (const char* column : kBodyColumns) {
        const std::string name = column;
        const std::string value = name == "comet" ? "2" : name == "name" ? "O''Neil" : name == "q" ? "0.339" : "";
        expected += " " + name + " = '" + value + "',";
    }
    expected += " hinfo = 'No Information Available...' where id = '12'";
    std::string statement;
    buildUpdateStatement(record, 12, statement);
    EXPECT_EQ(statement, expected);
}

TEST(UpdateStatement, FilledInfoIsTrimmedOfLineEndsAndNumbersAreEscapedToo) {
    OrbitRecord record;
    record.set(Field::hinfo, "First line\\nIt's second");
    record.set(Field::e, "0.5' or '1");
    record.set(Field::des, std::string("1995 O1\0junk", 12));
    std::string statement;
    buildUpdateStatement(record, 7, statement);
    EXPECT_NE(statement.find(" e = '0.5'' or ''1',"), std::string::npos);
    EXPECT_NE(statement.find(" des = '1995 O1',"), std::string::npos);
    EXPECT_TRUE(statement.ends_with(" hinfo = trim('First line\r\nIt''s second', '\r\n ') where id = '7'"));
}

TEST(UpdateStatement, IdIsTheWholeNumberOfTheField) {
    OrbitRecord record;
    record.set(Field::id, "  42");
    EXPECT_EQ(recordId(record), 42);
    record.set(Field::id, "42' or '1'='1");
    EXPECT_EQ(recordId(record), 42);
    record.set(Field::id, "x");
    EXPECT_EQ(recordId(record), 0);
    record.set(Field::id, "");
    EXPECT_EQ(recordId(record), 0);
}

class EditBatch : public ::testing::Test {
protected:
    testing::TempHome home;
    std::string path = testing::smallCatalogue(home);
    SearchTexts texts = testing::englishSearchTexts();
    SearchSession session;
    testing::RecordingSearchView view;

    // The record of `id` as the result list holds it.
    OrbitRecord found(int id) {
        searchDirect(path, oneRow(fieldCombo("comet"), kEqualTo, "~, 1, 2"), session, view, texts);
        for (std::size_t row = 0; row < session.result.size(); ++row) {
            if (session.result.text(row, Field::id) == std::to_string(id)) return session.result.record(row);
        }
        ADD_FAILURE() << "no row " << id;
        return {};
    }
};

TEST_F(EditBatch, CatalogueRecordBecomesANewRecordOfTheUser) {
    OrbitRecord record = found(3);
    record.set(Field::q, "0.9141");
    const SearchForm form;  // the list shows the whole catalogue
    searchDirect(path, form, session, view, texts);
    const EditBatchResult result = editThread(path, std::span(&record, 1), form, session, view, texts);
    EXPECT_EQ(result.status, BatchStatus::Committed);
    EXPECT_EQ(result.replaced, 1u);
    EXPECT_EQ(result.updated, 0u);
    EXPECT_EQ(queryText(path, "select count(*) from elements where id = 3"), "0");
    EXPECT_EQ(queryText(path, "select id from elements where name = 'Hale-Bopp'"), "10");
    EXPECT_EQ(queryText(path, "select q from elements where id = 10"), "0.9141");
    EXPECT_EQ(queryText(path, "select hinfo from elements where id = 10"), "Great comet");
    EXPECT_EQ(testing::rowCount(path), 9);

    SearchForm mine;
    mine.filters.myRecords = 1;
    searchDirect(path, mine, session, view, texts);
    EXPECT_EQ(foundIds(session), (std::vector<int>{10}));
}

TEST_F(EditBatch, UserRecordKeepsItsIdAndItsTimeStampMovesForward) {
    testing::executeSql(path,
                        "insert into elements(id, name, des, htype, hyear, hmonth, hday, q, e, htimeStamp, hinfo) "
                        "values(10, 'Mine', '2030 A1', 'C', 2030, 1, 1.5, 1.0, 0.9, '2000-01-01 00:00:00', 'Notes')");
    OrbitRecord record = found(10);
    record.set(Field::name, "Mine, renamed");
    record.set(Field::hinfo, "");  // cleared
    const EditBatchResult result = editThread(path, std::span(&record, 1), SearchForm{}, session, view, texts);
    EXPECT_EQ(result.updated, 1u);
    EXPECT_EQ(result.replaced, 0u);
    EXPECT_EQ(queryText(path, "select name from elements where id = 10"), "Mine, renamed");
    EXPECT_GT(queryText(path, "select htimeStamp from elements where id = 10"), "2000-01-01 00:00:00");
    EXPECT_EQ(queryText(path, "select hinfo from elements where id = 10"), "No Information Available...");
    EXPECT_EQ(testing::rowCount(path), 10);
}

TEST_F(EditBatch, ShowsItsWorkAndRefreshesTheListWhenTheCountStays) {
    const SearchForm form = oneRow(fieldCombo("comet"), kEqualTo, "2");
    searchDirect(path, form, session, view, texts);
    OrbitRecord records[2] = {session.result.record(0), session.result.record(1)};
    records[0].set(Field::name, "Encke edited");
    records[1].set(Field::name, "Encke edited");
    testing::RecordingSearchView batchView;
    const BatchClock clock = [t = 0.0]() mutable { return t += 1.0; };
    const EditBatchResult result = editThread(path, records, form, session, batchView, texts, clock);
    EXPECT_EQ(result.replaced, 2u);
    EXPECT_EQ(batchView.commandsEnabled, (std::vector<bool>{false, true}));
    EXPECT_EQ(batchView.progressMaximum, 2);
    EXPECT_EQ(batchView.steps, 2);
    EXPECT_NE(std::find(batchView.statuses.begin(), batchView.statuses.end(), "Editing Records in progress..."),
              batchView.statuses.end());
    EXPECT_EQ(batchView.remaining[1], "Remaining time: 0h 0m 1s");
    EXPECT_EQ(batchView.statistics, 1);
    EXPECT_EQ(batchView.results, 1);  // two hits before, two after: read again
    EXPECT_EQ(batchView.statuses.back(), "Ready");
    std::vector<int> ids = foundIds(session);
    std::sort(ids.begin(), ids.end());
    EXPECT_EQ(ids, (std::vector<int>{10, 11}));
    EXPECT_EQ(session.result.text(0, Field::name), "Encke edited");
}

TEST_F(EditBatch, ListIsLeftAloneWhenNotFilledByAForm) {
    searchDirect(path, SearchForm{}, session, view, texts);
    OrbitRecord record = session.result.record(0);
    testing::RecordingSearchView batchView;
    batchView.filledByForm = false;
    editThread(path, std::span(&record, 1), SearchForm{}, session, batchView, texts);
    EXPECT_EQ(batchView.results, 0);
    EXPECT_EQ(batchView.statistics, 1);
}

TEST_F(EditBatch, RejectedRecordIsSkippedAndTheCatalogueRowStays) {
    // A record with no value at all gives an insert that SQLite rejects; its old
    // row must not be deleted.
    OrbitRecord empty;
    empty.set(Field::id, "4");
    OrbitRecord records[2] = {empty, found(5)};
    records[1].set(Field::name, "Encke 2023");
    const EditBatchResult result = editThread(path, records, SearchForm{}, session, view, texts);
    EXPECT_EQ(result.status, BatchStatus::Committed);
    EXPECT_EQ(result.skipped, 1u);
    EXPECT_EQ(result.replaced, 1u);
    EXPECT_EQ(queryText(path, "select name from elements where id = 4"), "Bennett");
    EXPECT_EQ(queryText(path, "select count(*) from elements where name = 'Encke 2023'"), "1");
}

TEST_F(EditBatch, MissingCatalogueChangesNothing) {
    OrbitRecord record = found(1);
    const std::string missing = (home.root() / "no" / "such.db").string();
    const EditBatchResult result = editThread(missing, std::span(&record, 1), SearchForm{}, session, view, texts);
    EXPECT_EQ(result.status, BatchStatus::OpenFailed);
    EXPECT_EQ(view.commandsEnabled.back(), true);
}

TEST_F(EditBatch, DuplicateCreatesARowWithANewIdAndTheSameValues) {
    const OrbitRecord record = found(8);
    testing::RecordingView batchView;
    const InsertBatchResult result =
        insertRecords(path, std::span(&record, 1), InsertMode{}, batchView, texts.records);
    EXPECT_EQ(result.inserted, 1u);
    EXPECT_EQ(queryText(path, "select max(id) from elements"), "10");
    std::string columns;
    for (const char* column : kBodyColumns) columns += std::string(columns.empty() ? "" : "||'|'||") + column;
    columns += "||'|'||hinfo";
    EXPECT_EQ(queryText(path, "select " + columns + " from elements where id = 10"),
              queryText(path, "select " + columns + " from elements where id = 8"));
}

}  // namespace
}  // namespace orvane
