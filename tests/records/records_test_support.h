#pragma once
// Shared pieces of the record tests: the English texts of the language table, a
// view that records what a batch shows, a fresh catalogue, and records built from
// the Minor Planet Center's one-line elements.
#include <sqlite3.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/schema.h"
#include "records/batch_view.h"
#include "records/orbit_record.h"
#include "records/record_texts.h"
#include "support/temp_home.h"
#include "language/language_table.h"
#include "language/sections.h"

namespace orvane::testing {

inline RecordTexts englishTexts() {
    static const LanguageTable table;
    return loadRecordTexts([](std::string_view section, int key) -> std::string {
        for (std::size_t k = 0; k < kSectionShapes.size(); ++k) {
            if (kSectionShapes[k].name == section) return table.text(static_cast<Section>(k), key);
        }
        return {};
    });
}

struct RecordingView : BatchView {
    std::vector<std::string> statuses;
    std::vector<std::string> remaining;
    std::vector<std::string> messages;
    std::vector<std::string> messageTitles;
    std::vector<std::string> questions;
    std::vector<std::string> questionTitles;
    std::vector<bool> commandsEnabled;
    long long progressMaximum = -1;
    long long steps = 0;
    int hides = 0;
    bool answer = true;
    bool filledByForm = false;
    int searches = 0;
    int statistics = 0;

    void setCatalogueCommandsEnabled(bool enabled) override { commandsEnabled.push_back(enabled); }
    void setStatus(std::string_view text) override { statuses.emplace_back(text); }
    void setRemainingTime(std::string_view text) override { remaining.emplace_back(text); }
    void showProgress(long long maximum) override { progressMaximum = maximum; steps = 0; }
    void stepProgress() override { ++steps; }
    void hideProgress() override { ++hides; }
    void showMessage(std::string_view title, std::string_view text, MessageIcon) override {
        messageTitles.emplace_back(title);
        messages.emplace_back(text);
    }
    bool askOkCancel(std::string_view title, std::string_view text) override {
        questionTitles.emplace_back(title);
        questions.emplace_back(text);
        return answer;
    }
    bool searchListFilledByForm() override { return filledByForm; }
    void rerunSearch() override { ++searches; }
    void refreshStatistics() override { ++statistics; }
};

// A new catalogue file in the temporary home.
inline std::string freshCatalogue(const TempHome& home, const std::string& name = "orvane.db") {
    const std::filesystem::path path = home.root() / name;
    createCatalogue(path.string());
    return path.string();
}

// One value of "select <expression>" as text ("" for NULL or an error).
inline std::string queryText(const std::string& databasePath, const std::string& sql) {
    sqlite3* db = nullptr;
    std::string out;
    if (sqlite3_open(databasePath.c_str(), &db) == SQLITE_OK) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr) == SQLITE_OK &&
            sqlite3_step(statement) == SQLITE_ROW) {
            const unsigned char* text = sqlite3_column_text(statement, 0);
            if (text != nullptr) out = reinterpret_cast<const char*>(text);
        }
        sqlite3_finalize(statement);
    }
    sqlite3_close(db);
    return out;
}

inline long long rowCount(const std::string& databasePath) {
    return std::stoll("0" + queryText(databasePath, "select count(*) from elements"));
}

// A record that passes every check: Halley's elements from the MPC list.
inline OrbitRecord halley() {
    OrbitRecord r;
    r.set(Field::comet, "1");
    r.set(Field::htype, "P");
    r.set(Field::name, "Halley");
    r.set(Field::hyear, "2061");
    r.set(Field::hmonth, "9");
    r.set(Field::hday, "10.3628");
    r.set(Field::q, "0.588733");
    r.set(Field::e, "0.967048");
    r.set(Field::w, "112.6084");
    r.set(Field::Om, "59.6962");
    r.set(Field::i, "162.207");
    r.set(Field::E_year, "2024");
    r.set(Field::E_month, "9");
    r.set(Field::E_day, "7");
    return r;
}

// Records from the MPC one-line elements in ../shared/reference/CometEls.txt
// (columns in the README there): every `stride`-th comet of orbit type C, P or D,
// up to `count` records. The fields that the MPC line does not have are filled with
// invented but valid values, varied by record, so that every column of the ECS line
// is exercised.
std::vector<OrbitRecord> recordsFromCometEls(std::size_t count, std::size_t stride);

}  // namespace orvane::testing
