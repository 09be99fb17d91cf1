#pragma once
// Pieces shared by the search, edit and delete tests: the English texts, a view
// that records what the search shows, and a small catalogue of known comets.
#include <sqlite3.h>

#include <string>
#include <string_view>
#include <vector>

#include "records/search_run.h"
#include "records/search_texts.h"
#include "records_test_support.h"

namespace orvane::testing {

inline SearchTexts englishSearchTexts() {
    static const LanguageTable table;
    return loadSearchTexts([](std::string_view section, int key) -> std::string {
        for (std::size_t k = 0; k < kSectionShapes.size(); ++k) {
            if (kSectionShapes[k].name == section) return table.text(static_cast<Section>(k), key);
        }
        return {};
    });
}

struct RecordingSearchView : SearchView {
    std::vector<std::string> statuses;
    std::vector<std::string> remaining;
    std::vector<std::string> messages;
    std::vector<bool> commandsEnabled;
    long long progressMaximum = -1;
    long long steps = 0;
    int hides = 0;
    bool filledByForm = true;
    int statistics = 0;
    std::vector<bool> busy;
    std::vector<std::string> errors;
    std::vector<std::string> errorTitles;
    std::vector<std::string> resultTexts;
    std::vector<std::string> columnLabels;
    std::size_t shownRows = 0;
    int results = 0;
    int clears = 0;
    int focuses = 0;
    std::vector<bool> selectionCommands;

    void setCatalogueCommandsEnabled(bool enabled) override { commandsEnabled.push_back(enabled); }
    void setStatus(std::string_view text) override { statuses.emplace_back(text); }
    void setRemainingTime(std::string_view text) override { remaining.emplace_back(text); }
    void showProgress(long long maximum) override {
        progressMaximum = maximum;
        steps = 0;
    }
    void stepProgress() override { ++steps; }
    void hideProgress() override { ++hides; }
    void showMessage(std::string_view, std::string_view text, MessageIcon) override { messages.emplace_back(text); }
    bool askOkCancel(std::string_view, std::string_view) override { return true; }
    bool searchListFilledByForm() override { return filledByForm; }
    void rerunSearch() override {}
    void refreshStatistics() override { ++statistics; }

    void setBusy(bool on) override { busy.push_back(on); }
    void showError(std::string_view title, std::string_view text) override {
        errorTitles.emplace_back(title);
        errors.emplace_back(text);
    }
    void showResult(const std::vector<ColumnSlot>& columns, const SearchResult& result) override {
        ++results;
        columnLabels.clear();
        for (const ColumnSlot& slot : columns) columnLabels.push_back(slot.label);
        shownRows = result.size();
    }
    void setResultText(std::string_view text) override { resultTexts.emplace_back(text); }
    void clearList() override {
        ++clears;
        shownRows = 0;
    }
    void setSelectionCommandsEnabled(bool enabled) override { selectionCommands.push_back(enabled); }
    void focusList() override { ++focuses; }
};

inline void executeSql(const std::string& databasePath, const std::string& sql) {
    sqlite3* db = nullptr;
    if (sqlite3_open(databasePath.c_str(), &db) == SQLITE_OK) {
        sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
    }
    sqlite3_close(db);
}

// Nine comets with ids 1 to 9, all of the catalogue (parameter 4 is 9); the last
// update brought ids 7 to 9 (parameter 5 is 6). P_calc: Halley about 75 years,
// Encke 3.3, 2020 X1 8, Hale-Bopp and Bennett over 1000; the others are not
// ellipses and give 'n/a'.
inline std::string smallCatalogue(const TempHome& home) {
    const std::string path = freshCatalogue(home);
    executeSql(path,
               "insert into elements(id, comet, name, des, htype, hyear, hmonth, hday, q, e, w, Om, i, hinfo) values"
               "(1, 1, 'Halley', '1982 U1', 'P', 1986, 2, 9.45, 0.587, 0.967, 111.8, 58.1, 162.2, "
               "'No Information Available...'),"
               "(2, 1, 'Halley', '', 'P', 2061, 7, 28.3, 0.59, 0.9671, 112.0, 59.0, 162.0, "
               "'No Information Available...'),"
               "(3, '', 'Hale-Bopp', '1995 O1', 'C', 1997, 4, 1.1, 0.914, 0.995, 130.6, 282.5, 89.4, 'Great comet'),"
               "(4, '', 'Bennett', '1969 Y1', 'C', 1970, 3, 20.1, 0.538, 0.996, 354.1, 90.1, 90.0, "
               "'No Information Available...'),"
               "(5, 2, 'Encke', '', 'P', 2023, 10, 22.5, 0.339, 0.847, 186.5, 334.2, 11.3, "
               "'No Information Available...'),"
               "(6, 2, 'Encke', '', 'P', 2027, 2, 10.0, 0.336, 0.848, 186.6, 334.1, 11.3, "
               "'No Information Available...'),"
               "(7, '', 'O''Neil', '2001 A1', 'C', 2001, 1, 5.0, 1.2, 1.0001, 10.0, 20.0, 30.0, "
               "'No Information Available...'),"
               "(8, '', 'McNaught', '2006 P1', 'C', 2007, 1, 12.8, 0.17, 1.00002, 155.9, 267.4, 77.8, "
               "'Brightest in decades'),"
               "(9, '', '', '2020 X1', 'C', 2020, 5, 1.0, 2.0, 0.5, 1.0, 2.0, 3.0, "
               "'No Information Available...');"
               "update parameters set value = '9' where id = 4;"
               "update parameters set value = '6' where id = 5;");
    return path;
}

// The ids of the rows of the last search, in the order read.
inline std::vector<int> foundIds(const SearchSession& session) {
    std::vector<int> ids;
    for (std::size_t row = 0; row < session.result.size(); ++row) {
        ids.push_back(std::stoi(std::string(session.result.text(row, Field::id))));
    }
    return ids;
}

// A form of one advanced row with no filter.
inline SearchForm oneRow(int field, int op, std::string value) {
    SearchForm form;
    form.rows[0].inUse = 1;
    form.rows[0].field = field;
    form.rows[0].op = op;
    form.rows[0].value = std::move(value);
    return form;
}

// Combo index of a field name.
inline int fieldCombo(std::string_view name) {
    for (std::size_t k = 0; k < kSearchFields.size(); ++k) {
        if (kSearchFields[k] == name) return static_cast<int>(k) + 1;
    }
    return 0;
}

}  // namespace orvane::testing
