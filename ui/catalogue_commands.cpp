#include "ui/catalogue_commands.h"

#include <QApplication>
#include <QFileDialog>
#include <QMetaObject>
#include <QProgressBar>
#include <algorithm>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <span>

#include <sqlite3.h>

#include "app/app_state.h"
#include "catalogue/sql_layer.h"
#include "records/delete_batch.h"
#include "records/edit_batch.h"
#include "records/import_export.h"
#include "records/mpc_elements.h"
#include "ui/elements_page.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"
#include "ui/start_page.h"

namespace orvane {
namespace {

using G = CommandGroup;

// Ids read in one statement when the selected records are taken from the catalogue.
constexpr std::size_t kIdsPerRead = 500;

std::string lookupText(std::string_view section, int key) {
    for (std::size_t k = 0; k < kSectionShapes.size(); ++k)
        if (kSectionShapes[k].name == section) return text(static_cast<Section>(k), key);
    return {};
}

QString q(const std::string& text) { return QString::fromStdString(text); }

long long idOf(std::string_view text) { return std::strtoll(std::string(text).c_str(), nullptr, 10); }

bool writeText(const QString& path, const std::string& text) {
    std::ofstream out(std::filesystem::path(path.toStdString()), std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    return static_cast<bool>(out);
}

// "Are you sure you want to delete 1 Record?", or "... delete" n "Records?".
QString deleteQuestion(std::size_t count) {
    if (count == 1) return qtText(Section::orvWnd, 5);
    return qtText(Section::orvWnd, 6) + ' ' + QString::number(count) + ' ' + qtText(Section::orvWnd, 3);
}

}  // namespace

CatalogueCommands::CatalogueCommands(AppState& state, QObject* parent)
    : QObject(parent), state_(state), view_(this, *this) {
    reloadTexts();
}

CatalogueCommands::~CatalogueCommands() {
    view_.cancelQuestions();
    if (worker_.joinable()) worker_.join();
    if (busyCursor_) QApplication::restoreOverrideCursor();
}

void CatalogueCommands::reloadTexts() { texts_ = loadSearchTexts(lookupText); }

std::string CatalogueCommands::databasePath() const { return state_.folders.userFolder + "orvane.db"; }

void CatalogueCommands::attach(MainApp* window) {
    window_ = window;
    list_ = window->resultList();
    list_->setEphemerisChoice(state_.ephemerisChoice);
    list_->resultModel()->setUserBoundary(state_.updateId);
    list_->showSession(&shown_);
    connect(list_, &MyListView::selectionCountsChanged, this, &CatalogueCommands::applySelection);
    connect(list_, &MyListView::sortRequested, this, [this](ListSort sort) {
        if (workerRunning_ || !filledByForm_ || !window_) return;
        SearchForm form = lastForm_;
        form.sort = {sort.column, sort.ascending};
        window_->setSearchRunning(true);
        window_->setPageStatus(Page::orbits, 12);
        startSearch(form);
    });
    connect(window, &MainApp::pageShown, this, [this](Page page) {
        if (page == Page::orbits) applySelection(list_->selectionCounts());
    });
    // "Selected Items:" in the new language at once, not at the next selection.
    connect(window, &MainApp::retitled, this, [this] {
        reloadTexts();
        if (window_ && window_->currentPage() == Page::orbits) applySelection(list_->selectionCounts());
    });
    window->setPageStatusPart(Page::orbits, 2, qtText(Section::orvStatus, 22));
}

// ---------------------------------------------------------------- commands

bool CatalogueCommands::handles(CommandGroup group) const {
    switch (group) {
        case G::search:
        case G::saveAs:
        case G::importRecords:
        case G::exportRecords:
        case G::remove:
        case G::selectAll:
        case G::add:
        case G::edit:
        case G::duplicate:
        case G::additionalInfo: return true;
        default: return false;
    }
}

void CatalogueCommands::run(CommandGroup group) {
    if (!window_ || !list_) return;
    switch (group) {
        case G::search: {
            SearchForm form = window_->workPane()->searchForm();
            form.sort = {};  // a new search starts unsorted; the headers sort it
            list_->setFocus();
            startSearch(form);
            return;
        }
        case G::saveAs: saveList(); return;
        case G::importRecords: importRecords(); return;
        case G::exportRecords: exportSelected(); return;
        case G::remove: deleteSelected(); return;
        case G::selectAll: list_->selectAll(); return;
        case G::add: openRecords(RecordWindowMode::newRecord); return;
        case G::edit: openRecords(RecordWindowMode::editRecord); return;
        case G::duplicate: openRecords(RecordWindowMode::duplicateRecord); return;
        case G::additionalInfo: openRecords(RecordWindowMode::additionalInfo); return;
        default: return;
    }
}

void CatalogueCommands::openRecords(RecordWindowMode mode) {
    openRecordWindow(mode, mode == RecordWindowMode::newRecord ? RecordArray{} : selectedRecords(true));
}

void CatalogueCommands::startSearch(const SearchForm& form) {
    reloadTexts();
    jobSort_ = {form.sort.column, form.sort.ascending};
    jobForm_ = form;
    const bool started = startWorker(true, [this, form, path = databasePath()] {
        searchThread(path, form, work_, view_, texts_);
    });
    if (!started) window_->setSearchRunning(false);
}

void CatalogueCommands::saveList() {
    const QString filter = qtText(Section::orvEdit, 68) + QStringLiteral(";;") + qtText(Section::orvEdit, 69);
    const QString path = chooseSaveFile(filter);
    if (!path.isEmpty()) {
        // On the start page the command saves what that page shows.
        const std::string text = window_->currentPage() == Page::startPage
                                     ? window_->startPage()->statisticsText().toStdString()
                                     : listText(*list_->resultModel());
        writeText(path, text);
    }
    window_->operationEnded();
}

void CatalogueCommands::importRecords() {
    const QString filter = QStringLiteral("ELS Format (*.els);;") + QString::fromLatin1(kMpcImportFilter) +
                           QStringLiteral(";;") + qtText(Section::orvEdit, 69);
    selectedFilter_.clear();
    // An empty catalogue opens the dialog on the program's Data folder, where the
    // starter file of well-known comets waits; otherwise on the documents.
    {
        ColumnTables tables = buildColumnTables();
        openFolder_ = countHits(databasePath(), "", tables) == 0
                          ? q(state_.folders.programFolder + "/Data")
                          : q(state_.folders.documentsFolder);
    }
    const QString path = chooseOpenFile(filter);
    openFolder_.clear();
    // Only the type picked by name reads the MPC form; any other choice keeps the
    // extension rule of the ELS and list files.
    const bool mpc = selectedFilter_ == QString::fromLatin1(kMpcImportFilter);
    if (path.isEmpty()) {
        window_->operationEnded();
        return;
    }
    reloadTexts();
    prepareWorkSession();
    const SearchForm form = lastForm_;
    view_.setRerun([this, form, path = databasePath()] { searchDirect(path, form, work_, view_, texts_); });
    startWorker(false, [this, mpc, file = std::filesystem::path(path.toStdString()), path = databasePath()] {
        if (mpc) {
            importMpcFile(file, path, importArray_, view_, texts_.records);
        } else {
            importFile(file, path, importArray_, view_, texts_.records);
        }
        importArray_.reset(0);
    });
}

void CatalogueCommands::exportSelected() {
    const std::vector<std::size_t> rows = list_->selectedRows();
    const QString path = rows.empty() ? QString() : chooseSaveFile(QStringLiteral("ECS Format (*.els);;") +
                                                                    qtText(Section::orvEdit, 69));
    if (!path.isEmpty()) {
        std::vector<OrbitRecord> records;
        records.reserve(rows.size());
        for (const std::size_t row : rows) records.push_back(shown_.result.record(row));
        reloadTexts();
        // Export runs on the window thread: the view calls straight through.
        exportRecords(std::filesystem::path(path.toStdString()), records, view_, texts_.records);
    }
    window_->operationEnded();
}

void CatalogueCommands::deleteSelected() {
    const std::vector<std::size_t> rows = list_->selectedRows();
    if (rows.empty()) return;
    const bool ok = confirm(qtText(Section::orvWnd, 7), deleteQuestion(rows.size()));
    window_->operationEnded();
    if (!ok) return;
    reloadTexts();
    prepareWorkSession();
    // The batch needs no more of the rows than their ids: the worker's session holds
    // the ids of the selected rows alone, in list order.
    std::vector<ColumnProperty> cells = work_.tables.allColumns;
    const std::size_t idColumn = elementColumnIndex("id");
    for (ColumnProperty& cell : cells) cell.textValue.assign(cell.textValue.size(), ' ');
    work_.result.reset(rows.size());
    for (const std::size_t row : rows) {
        const std::string id = std::to_string(idOf(shown_.result.text(row, Field::id)));
        cells[idColumn].textValue.replace(0, id.size(), id);
        work_.result.appendRow(cells);
        cells[idColumn].textValue.replace(0, id.size(), std::string(id.size(), ' '));
    }
    std::vector<std::size_t> batchRows(work_.result.size());
    for (std::size_t k = 0; k < batchRows.size(); ++k) batchRows[k] = k;
    SearchForm form = lastForm_;
    form.sort = {list_->resultModel()->sort().column, list_->resultModel()->sort().ascending};
    jobSort_ = list_->resultModel()->sort();
    startWorker(false, [this, form, batchRows = std::move(batchRows), path = databasePath()] {
        deleteThread(path, batchRows, form, work_, view_, texts_);
    });
}

RecordArray CatalogueCommands::selectedRecords(bool focusedFirst) const {
    RecordArray out;
    if (!list_) return out;
    const std::vector<std::size_t> rows = list_->selectedRows(focusedFirst);
    std::vector<long long> ids;
    for (const std::size_t row : rows) ids.push_back(idOf(shown_.result.text(row, Field::id)));

    std::map<long long, OrbitRecord> found;
    ColumnTables tables = buildColumnTables();
    CatalogueDb db;
    if (sql::open(databasePath(), db) == SQLITE_OK) {
        for (std::size_t first = 0; first < ids.size(); first += kIdsPerRead) {
            const std::size_t last = std::min(ids.size(), first + kIdsPerRead);
            std::string clause = "where id in (";
            for (std::size_t k = first; k < last; ++k) clause += (k > first ? "," : "") + std::to_string(ids[k]);
            clause += ")";
            SearchResult chunk;
            if (!chunk.reset(last - first)) break;
            Statement statement;
            if (sql::prepareSelect(db, "e_elements", tables.allColumns, statement, clause) == SQLITE_OK) {
                bool done = false;
                while (chunk.size() < chunk.capacity()) {
                    sql::nextRow(statement, tables.allColumns, done);
                    if (done || !chunk.appendRow(tables.allColumns)) break;
                }
            }
            sql::finalize(statement);
            for (std::size_t r = 0; r < chunk.size(); ++r)
                found.emplace(idOf(chunk.text(r, Field::id)), chunk.record(r));
        }
    }
    sql::close(db);

    std::vector<const OrbitRecord*> ordered;
    for (const long long id : ids) {
        const auto at = found.find(id);
        if (at != found.end()) ordered.push_back(&at->second);
    }
    out.reset(ordered.size());
    for (std::size_t k = 0; k < ordered.size(); ++k) out.records[k] = *ordered[k];
    return out;
}

bool CatalogueCommands::runRecordBatch(RecordWindowAction action, RecordArray batch) {
    if (!window_ || !list_ || workerRunning_ || batch.count == 0) return false;
    reloadTexts();
    prepareWorkSession();
    auto records = std::make_shared<RecordArray>(std::move(batch));
    if (action == RecordWindowAction::add) {
        const SearchForm form = lastForm_;
        view_.setRerun([this, form, path = databasePath()] { searchDirect(path, form, work_, view_, texts_); });
        return startWorker(false, [this, records, path = databasePath()] {
            insertRecords(path, std::span<const OrbitRecord>(records->records.data(), records->count),
                          InsertMode{}, view_, texts_.records);
        });
    }
    SearchForm form = lastForm_;
    form.sort = {list_->resultModel()->sort().column, list_->resultModel()->sort().ascending};
    jobSort_ = list_->resultModel()->sort();
    return startWorker(false, [this, form, records, path = databasePath()] {
        editThread(path, std::span<const OrbitRecord>(records->records.data(), records->count), form, work_, view_,
                   texts_);
    });
}

// ---------------------------------------------------------------- workers

void CatalogueCommands::prepareWorkSession() {
    work_.queryClause = shown_.queryClause;
    work_.count = shown_.count;
    work_.inForce = shown_.inForce;
    work_.columns = shown_.columns;
    work_.result.reset(0);
}

bool CatalogueCommands::startWorker(bool search, std::function<void()> job) {
    if (workerRunning_) return false;
    // A worker that posted its end has returned, or is about to.
    if (worker_.joinable()) worker_.join();
    workerRunning_ = true;
    searchJob_ = search;
    resultReplaced_ = false;
    view_.setSearchListFilledByForm(filledByForm_ && shown_.inForce);
    view_.acceptQuestions();
    window_->setCatalogueBusy(true);
    list_->setSortEnabled(false);
    worker_ = std::thread([this, job = std::move(job)] {
        job();
        QMetaObject::invokeMethod(this, [this] { workerEnded(); }, Qt::QueuedConnection);
    });
    return true;
}

void CatalogueCommands::workerEnded() {
    if (worker_.joinable()) worker_.join();
    workerRunning_ = false;
    view_.setRerun({});
    if (!list_ || !window_) return;
    if (resultReplaced_) {
        std::swap(shown_, work_);
        if (searchJob_) {
            lastForm_ = jobForm_;
            filledByForm_ = true;
        }
        list_->resultModel()->setSort(jobSort_);
        list_->resultModel()->setUserBoundary(state_.updateId);
        list_->showSession(&shown_);
    } else {
        shown_.count = work_.count;
    }
    work_.result.reset(0);
    work_.columns.clear();
    list_->setSortEnabled(true);
    window_->setCatalogueBusy(false);
    if (searchJob_) window_->setSearchRunning(false);
    window_->showPage(window_->currentPage());
    window_->operationEnded();
}

void CatalogueCommands::applySelection(const SelectionCounts& counts) {
    if (!window_) return;
    window_->setPageStatusPart(Page::orbits, 2,
                               counts.selected == 0 ? qtText(Section::orvStatus, 22)
                                                    : qtText(Section::orvStatus, 1) + ' ' +
                                                          QString::number(counts.selected));
    if (window_->currentPage() != Page::orbits || window_->catalogueBusy()) return;
    const bool any = counts.selected > 0;
    for (G group : {G::saveAs, G::edit, G::duplicate, G::remove, G::selectAll, G::exportRecords})
        window_->setCommandEnabled(group, any);
    window_->setCommandEnabled(G::additionalInfo, counts.withInfo > 0);
    const bool tasks = counts.computable > 0;
    for (G group : {G::tasks, G::orbitDiagrams, G::ephemerides, G::closeApproaches})
        window_->setCommandEnabled(group, tasks);
}

// ---------------------------------------------------------------- what the workers show

void CatalogueCommands::setCatalogueCommandsEnabled(bool enabled) {
    // The worker's start and end hold the commands; a batch that gives them back
    // before its refresh is over changes nothing here.
    if (!enabled && window_) window_->setCatalogueBusy(true);
}

void CatalogueCommands::setStatus(const std::string& text) {
    if (!window_) return;
    if (text == texts_.records.ready)
        window_->setPageStatus(Page::orbits, 4);
    else
        window_->setPageStatusText(Page::orbits, q(text));
}

void CatalogueCommands::setRemainingTime(const std::string& text) {
    if (!window_) return;
    // The time left stands where the result text stands; the result text comes back.
    window_->setPageStatusPart(Page::orbits, 3, text.empty() ? resultText_ : q(text));
}

void CatalogueCommands::showProgress(long long maximum) {
    if (!window_) return;
    QProgressBar* bar = window_->progressBar();
    bar->setRange(0, static_cast<int>(std::clamp<long long>(maximum, 0, INT_MAX)));
    bar->setValue(0);
    bar->show();
}

void CatalogueCommands::setProgress(long long value) {
    if (!window_) return;
    QProgressBar* bar = window_->progressBar();
    bar->setValue(static_cast<int>(std::clamp<long long>(value, 0, bar->maximum())));
}

void CatalogueCommands::hideProgress() {
    if (window_) window_->progressBar()->hide();
}

void CatalogueCommands::showMessage(const std::string& title, const std::string& text, MessageIcon icon) {
    const QMessageBox::Icon boxIcon = icon == MessageIcon::Warning    ? QMessageBox::Warning
                                      : icon == MessageIcon::Question ? QMessageBox::Question
                                                                      : QMessageBox::Information;
    inform(q(title), q(text), boxIcon);
    if (window_) window_->operationEnded();
}

bool CatalogueCommands::askOkCancel(const std::string& title, const std::string& text) {
    const bool ok = confirm(q(title), q(text));
    if (window_) window_->operationEnded();
    return ok;
}

void CatalogueCommands::setBusy(bool busy) {
    if (busy == busyCursor_) return;
    busyCursor_ = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::BusyCursor);
    else
        QApplication::restoreOverrideCursor();
}

void CatalogueCommands::showError(const std::string& title, const std::string& text) {
    inform(q(title), q(text), QMessageBox::Critical);
    if (window_) window_->operationEnded();
}

void CatalogueCommands::setResultText(const std::string& text) {
    resultText_ = q(text);
    if (window_) window_->setPageStatusPart(Page::orbits, 3, resultText_);
}

void CatalogueCommands::setSelectionCommandsEnabled(bool enabled) {
    if (!enabled) applySelection({});
}

void CatalogueCommands::focusList() {
    if (list_ && window_ && window_->currentPage() == Page::orbits) list_->setFocus();
}

void CatalogueCommands::refreshStatistics() {
    if (window_) window_->refreshBriefInfo();
}

// ---------------------------------------------------------------- windows

QString CatalogueCommands::chooseOpenFile(const QString& filter) {
    const QString folder = openFolder_.isEmpty() ? q(state_.folders.documentsFolder) : openFolder_;
    return QFileDialog::getOpenFileName(window_, QString(), folder, filter, &selectedFilter_);
}

void CatalogueCommands::openRecordWindow(RecordWindowMode mode, RecordArray records) {
    if (!window_ || recordWindow_) return;
    auto* edit = new ElementsEdit(mode, std::move(records), window_);
    edit->setWindowFlag(Qt::Window);
    edit->setWindowModality(Qt::ApplicationModal);
    edit->setAttribute(Qt::WA_DeleteOnClose);
    edit->setBatchHandler([this](RecordWindowAction action, RecordArray batch) {
        runRecordBatch(action, std::move(batch));
    });
    connect(edit, &ElementsEdit::closed, this, [this] {
        if (window_) window_->operationEnded();
    });
    recordWindow_ = edit;
    edit->show();
}

QString CatalogueCommands::chooseSaveFile(const QString& filter) {
    return QFileDialog::getSaveFileName(window_, QString(), q(state_.folders.documentsFolder), filter);
}

bool CatalogueCommands::confirm(const QString& title, const QString& text) {
    return QMessageBox::question(window_, title, text, QMessageBox::Ok | QMessageBox::Cancel,
                                 QMessageBox::Ok) == QMessageBox::Ok;
}

void CatalogueCommands::inform(const QString& title, const QString& text, QMessageBox::Icon icon) {
    QMessageBox box(icon, title, text, QMessageBox::Ok, window_);
    box.exec();
}

}  // namespace orvane
