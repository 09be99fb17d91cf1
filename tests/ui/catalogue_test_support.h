#pragma once
// Pieces shared by the tests of the result list and the catalogue commands: a main
// window on a temporary home with commands whose windows the test answers, records
// that pass the checks, and a catalogue filled through the insert batch.
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QTest>

#include <memory>
#include <string>
#include <vector>

#include "app/app_state.h"
#include "app/startup.h"
#include "catalogue/sql_layer.h"
#include "records/insert_batch.h"
#include "records/search_texts.h"
#include "support/temp_home.h"
#include "ui/catalogue_commands.h"
#include "ui/edit_page.h"
#include "ui/elements_edit.h"
#include "ui/commands.h"
#include "ui/elements_page.h"
#include "language/language_table.h"
#include "language/load_language.h"
#include "ui/main_window.h"
#include "ui/my_list_view.h"

namespace orvane::testing {

class ScriptedCommands : public CatalogueCommands {
public:
    using CatalogueCommands::CatalogueCommands;

    // The tests stand in for the task engine, so that the list's rules for the task
    // commands show on the menu.
    bool handles(CommandGroup group) const override {
        return CatalogueCommands::handles(group) || group == CommandGroup::tasks || taskOfGroup(group).has_value();
    }

    QString openFile;
    QString saveFile;
    bool answer = true;
    QStringList filters;
    QStringList questions;
    QStringList questionTitles;
    QStringList messages;
    std::vector<RecordWindowMode> modes;
    RecordArray records;
    // The real record window instead of the note of what would open.
    bool realRecordWindow = false;
    // The type the dialog reports as picked.
    QString pickedFilter;
    QStringList openFolders;

protected:
    QString chooseOpenFile(const QString& filter) override {
        filters << filter;
        openFolders << openFolder_;
        selectedFilter_ = pickedFilter;
        return openFile;
    }
    QString chooseSaveFile(const QString& filter) override {
        filters << filter;
        return saveFile;
    }
    bool confirm(const QString& title, const QString& text) override {
        questionTitles << title;
        questions << text;
        return answer;
    }
    void inform(const QString&, const QString& text, QMessageBox::Icon) override { messages << text; }
    void openRecordWindow(RecordWindowMode mode, RecordArray chosen) override {
        modes.push_back(mode);
        if (realRecordWindow) {
            CatalogueCommands::openRecordWindow(mode, std::move(chosen));
            return;
        }
        records = std::move(chosen);
    }
};

// A record that passes every check, named and placed by `k`.
inline OrbitRecord testComet(int k, const std::string& name) {
    OrbitRecord r;
    r.set(Field::comet, std::to_string(100 + k));
    r.set(Field::htype, "P");
    r.set(Field::name, name);
    r.set(Field::hyear, std::to_string(2000 + k % 50));
    r.set(Field::hmonth, std::to_string(1 + k % 12));
    r.set(Field::hday, "10.3628");
    r.set(Field::q, std::to_string(0.5 + 0.001 * (k % 1000)).substr(0, 8));
    r.set(Field::e, "0.667048");
    r.set(Field::w, "112.6084");
    r.set(Field::Om, "59.6962");
    r.set(Field::i, "12.207");
    r.set(Field::E_year, std::to_string(2000 + k % 50));
    r.set(Field::E_month, "9");
    r.set(Field::E_day, "7");
    return r;
}

// A view for batches that the test runs itself, without a window.
using QuietView = SilentBatchView;

inline void insertDirect(const std::string& databasePath, const std::vector<OrbitRecord>& records) {
    QuietView view;
    insertRecords(databasePath, records, InsertMode{}, view, RecordTexts{});
}

inline void executeSql(const std::string& databasePath, const std::string& statement) {
    CatalogueDb db;
    if (sql::open(databasePath, db) == 0) sql::execute(db, statement);
    sql::close(db);
}

// Makes `row` the one selected and focused row of the list.
inline void selectRow(MyListView* list, int row) {
    list->clearSelection();
    const QModelIndex index = list->model()->index(row, 1);
    list->selectionModel()->setCurrentIndex(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

template <class T> T* control(QWidget& window, int id) {
    for (T* child : window.findChildren<T*>())
        if (child->property("controlId").toInt() == id) return child;
    return nullptr;
}

// A main window with scripted commands on a fresh home, on the page Orbits.
struct Desk {
    TempHome home;
    AppState state;
    std::unique_ptr<ScriptedCommands> commands;
    std::unique_ptr<MainApp> window;

    Desk() {
        StartupReport report = InitialiseProgram(state, home.root().string());
        PrepareCatalogue(state, report);
        commands = std::make_unique<ScriptedCommands>(state);
        window = std::make_unique<MainApp>(state, commands.get());
        commands->attach(window.get());
        window->resize(1200, 800);
        window->showPage(Page::orbits);
    }
    ~Desk() {
        window.reset();
        commands.reset();
    }

    std::string database() const { return commands->databasePath(); }
    MyListView* list() const { return window->resultList(); }
    ResultListModel* model() const { return list()->resultModel(); }

    // Advanced row 1: e greater than 0, which every record passes.
    void formForAll() {
        ElementsPage& page = *window->workPane();
        control<QComboBox>(page, 810)->setCurrentIndex(13);  // e
        control<QComboBox>(page, 811)->setCurrentIndex(1);   // Greater than (>)
        control<QLineEdit>(page, 831)->setText(QStringLiteral("0"));
    }

    // Search with the form as it stands and wait for the list.
    bool searchAndWait() {
        if (!window->execute(cmd::kSearch)) return false;
        return QTest::qWaitFor([&] { return !commands->workerRunning(); }, 60000);
    }

    bool waitForWorker() {
        return QTest::qWaitFor([&] { return !commands->workerRunning(); }, 60000);
    }
};

}  // namespace orvane::testing
