#pragma once
// The engines behind the catalogue commands of the main window: Search, the sort of
// the result list, Save As, Import, Export, Delete and Select All, and the hand-over
// of the selected records to the record window.
//
// Search, Import and Delete run on a worker of their own, one at a time. The list
// shows one session of the search; a worker works on a second one, which the list
// takes over when the worker has ended, so the window thread never reads rows that a
// worker is changing and never waits for a worker.
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <string>
#include <thread>

#include "records/orbit_record.h"
#include "records/search_run.h"
#include "ui/commands.h"
#include "ui/elements_edit.h"
#include "ui/my_list_view.h"
#include "ui/qt_search_view.h"

namespace orvane {

struct AppState;
class MainApp;

using RecordWindowMode = RecordMode;

// The second file type of the Import dialog: the MPC's one-line comet elements,
// read only when the user picks this type.
inline constexpr const char* kMpcImportFilter = "MPC comet elements (*.txt)";

class CatalogueCommands : public QObject, public MainCommands, private SearchViewSink {
    Q_OBJECT
public:
    explicit CatalogueCommands(AppState& state, QObject* parent = nullptr);
    // A question that waits is answered with Cancel; then the worker is waited for.
    ~CatalogueCommands() override;

    // The window whose list and status bar the commands use. Call once, after the
    // window was made with this object as its commands.
    void attach(MainApp* window);

    bool handles(CommandGroup group) const override;
    void run(CommandGroup group) override;
    void operationEnded() override { ++operationsEnded_; }

    // The selected records read from the catalogue by their ids, in list order; the
    // focused row first when `focusedFirst`. Rows whose record is gone are left out.
    RecordArray selectedRecords(bool focusedFirst) const;

    // The search whose rows the list shows.
    const SearchSession& session() const { return shown_; }
    bool workerRunning() const { return workerRunning_; }
    int operationsEnded() const { return operationsEnded_; }
    std::string databasePath() const;

    // The batch that the record window's Apply hands over, on a worker: new and
    // duplicated records through the insert batch, edited ones through the edit batch.
    // False when another worker still runs.
    bool runRecordBatch(RecordWindowAction action, RecordArray batch);

    // The record window that is open, or null.
    ElementsEdit* recordWindow() const { return recordWindow_; }

protected:
    // Add, Edit, Duplicate and Additional Info open the record window here, modal
    // over the main window.
    virtual void openRecordWindow(RecordWindowMode mode, RecordArray records);

    // The windows the commands open; tests answer them.
    // The file to open; the type the user picked in the dialog goes to selectedFilter_.
    virtual QString chooseOpenFile(const QString& filter);
    virtual QString chooseSaveFile(const QString& filter);
    virtual bool confirm(const QString& title, const QString& text);
    virtual void inform(const QString& title, const QString& text, QMessageBox::Icon icon);

    QString selectedFilter_;
    // The folder the Import dialog starts in.
    QString openFolder_;

private:
    void startSearch(const SearchForm& form);
    void saveList();
    void importRecords();
    void exportSelected();
    void deleteSelected();
    void openRecords(RecordWindowMode mode);

    // The worker's session starts from the list's search, without its rows.
    void prepareWorkSession();
    bool startWorker(bool search, std::function<void()> job);
    void workerEnded();
    void applySelection(const SelectionCounts& counts);
    void reloadTexts();

    // SearchViewSink, on the window thread.
    void setCatalogueCommandsEnabled(bool enabled) override;
    void setStatus(const std::string& text) override;
    void setRemainingTime(const std::string& text) override;
    void showProgress(long long maximum) override;
    void setProgress(long long value) override;
    void hideProgress() override;
    void showMessage(const std::string& title, const std::string& text, MessageIcon icon) override;
    bool askOkCancel(const std::string& title, const std::string& text) override;
    void setBusy(bool busy) override;
    void showError(const std::string& title, const std::string& text) override;
    void resultReplaced() override { resultReplaced_ = true; }
    void setResultText(const std::string& text) override;
    void setSelectionCommandsEnabled(bool enabled) override;
    void focusList() override;
    void refreshStatistics() override;

    AppState& state_;
    QPointer<MainApp> window_;
    QPointer<MyListView> list_;
    SearchTexts texts_;
    SearchSession shown_;
    SearchSession work_;
    SearchForm lastForm_;       // the form of the search that filled the list
    bool filledByForm_ = false;
    SearchForm jobForm_;        // the form of the search that runs
    ListSort jobSort_;
    RecordArray importArray_;
    QtSearchView view_;
    std::thread worker_;
    bool workerRunning_ = false;
    bool searchJob_ = false;
    bool resultReplaced_ = false;
    bool busyCursor_ = false;
    QString resultText_;
    int operationsEnded_ = 0;
    QPointer<ElementsEdit> recordWindow_;
};

}  // namespace orvane
