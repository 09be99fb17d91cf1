#include "ui/my_list_view.h"

#include <QColor>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>

#include "astro/calendar.h"
#include "ui/qt_text.h"
#include "ui/ui_text.h"

namespace orvane {
namespace {

constexpr int kListControlId = 502;
constexpr int kCellViewControlId = 508;
constexpr std::string_view kNoInformation = "No Information Available...";

// The limit at which the calculation gives a comet up.
constexpr double kMeanAnomalyLimit = 35000.0;
// The span of the planetary file of choice 2, in Julian days.
constexpr double kFirstComputableJd = 2378480.5;
constexpr double kLastComputableJd = 2524625.5;

const QColor kSortedBackground(250, 250, 250);
const QColor kPlainBackground(255, 255, 255);
const QColor kSortedCatalogueText(0, 52, 113);
const QColor kSortedUserText(68, 14, 98);
const QColor kPlainCatalogueText(0, 0, 0);
const QColor kPlainUserText(158, 11, 15);

std::string_view trimRight(std::string_view text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\0')) text.remove_suffix(1);
    return text;
}

// A number as the program's C heritage reads it: the leading number of the text, 0
// when there is none.
double leadingNumber(std::string_view text) {
    const std::string copy(text);
    return std::strtod(copy.c_str(), nullptr);
}

// The id of a row, read on every draw of a cell: digits only, no allocation.
long long leadingInteger(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    const bool negative = !text.empty() && text.front() == '-';
    if (negative) text.remove_prefix(1);
    long long value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9' || value > (LLONG_MAX - 9) / 10) break;
        value = value * 10 + (c - '0');
    }
    return negative ? -value : value;
}

int clampedInt(std::string_view text) {
    const double value = leadingNumber(text);
    if (!(std::fabs(value) < 1e9)) return 0;
    return static_cast<int>(value);
}

QString qText(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

}  // namespace

// ---------------------------------------------------------------- rules

bool sortAfterClick(const ListSort& current, int clicked, ListSort& next) {
    if (clicked == kNoSortColumn) return false;
    next = current;
    if (current.column == clicked) {
        next.ascending = current.ascending == 1 ? 0 : 1;
    } else {
        next.column = clicked;
        next.ascending = 1;
    }
    return true;
}

bool rowHasInfo(const SearchResult& result, std::size_t row) {
    return trimRight(result.text(row, Field::hinfo)) != kNoInformation;
}

bool rowComputable(const SearchResult& result, std::size_t row, int ephemerisChoice) {
    if (std::fabs(leadingNumber(result.text(row, Field::M_calc))) > kMeanAnomalyLimit) return false;
    if (ephemerisChoice != 2) return true;
    const bool epochGiven = !trimRight(result.text(row, Field::E_year)).empty();
    const Field year = epochGiven ? Field::E_year : Field::hyear;
    const Field month = epochGiven ? Field::E_month : Field::hmonth;
    const Field day = epochGiven ? Field::E_day : Field::hday;
    const double dayValue = leadingNumber(result.text(row, day));
    if (!std::isfinite(dayValue)) return false;
    const double jd = CalendarToJulian(clampedInt(result.text(row, year)), clampedInt(result.text(row, month)),
                                       std::clamp(dayValue, -1e6, 1e6));
    return jd >= kFirstComputableJd && jd <= kLastComputableJd;
}

std::string cellViewText(Field field, std::string_view text) {
    const std::string_view trimmed = trimRight(text);
    if (field == Field::hinfo && trimmed.empty()) return std::string(kNoInformation);
    return std::string(trimmed);
}

std::string listText(const ResultListModel& model) {
    const auto& columns = model.columns();
    const int rows = model.rowCount();
    std::vector<std::string> titles;
    std::vector<std::size_t> widths;
    for (std::size_t c = 0; c < columns.size(); ++c) {
        std::string title = columns[c].title.toStdString();
        const int output = model.sortColumnOf(static_cast<int>(c));
        if (output != kNoSortColumn && output == model.sort().column)
            title += model.sort().ascending == 1 ? "*(asc)" : "*(desc)";
        widths.push_back(title.size());
        titles.push_back(std::move(title));
    }
    for (int r = 0; r < rows; ++r)
        for (std::size_t c = 0; c < columns.size(); ++c)
            widths[c] = std::max(widths[c], model.cellText(r, static_cast<int>(c)).size());

    std::string out;
    auto line = [&](auto cell) {
        std::string text;
        for (std::size_t c = 0; c < columns.size(); ++c) {
            const std::string_view value = cell(c);
            text += value;
            if (c + 1 < columns.size()) text.append(widths[c] - value.size() + 2, ' ');
        }
        out += trimRight(text);
        out += "\r\n";
    };
    line([&](std::size_t c) { return std::string_view(titles[c]); });
    std::string number;
    for (int r = 0; r < rows; ++r) {
        number = std::to_string(r + 1);
        line([&](std::size_t c) {
            return c == 0 ? std::string_view(number) : model.cellText(r, static_cast<int>(c));
        });
    }
    return out;
}

// ---------------------------------------------------------------- model

ResultListModel::ResultListModel(QObject* parent) : QAbstractTableModel(parent) { buildColumns(); }

void ResultListModel::showSession(const SearchSession* session) {
    beginResetModel();
    session_ = session;
    buildColumns();
    endResetModel();
}

void ResultListModel::setSort(const ListSort& sort) {
    sort_ = sort;
    if (!columns_.empty()) emit dataChanged(index(0, 0), index(std::max(0, rowCount() - 1), columnCount() - 1));
}

void ResultListModel::buildColumns() {
    columns_.clear();
    columns_.push_back({-1, false, Field::id, qtText(Section::orvListView, 1), qtText(Section::orvListView, 2)});
    if (session_ == nullptr) return;
    const auto& columnSlots = session_->columns;
    for (std::size_t s = 0; s < columnSlots.size(); ++s) {
        const ColumnSlot& slot = columnSlots[s];
        const int key = 3 + 2 * slot.outputColumn;
        columns_.push_back({static_cast<int>(s), false, slot.field, qtText(Section::orvListView, key),
                            qtText(Section::orvListView, key + 1)});
        // The list has no titles of its own for the errors: an error column shows the
        // catalogue's column name and the tip of its value.
        if (slot.hasError)
            columns_.push_back({static_cast<int>(s), true, slot.errorField, qText(fieldName(slot.errorField)),
                                qtText(Section::orvListView, key + 1)});
    }
}

void ResultListModel::retitle() {
    buildColumns();
    emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

int ResultListModel::sortColumnOf(int listColumn) const {
    if (listColumn < 0 || listColumn >= static_cast<int>(columns_.size()) || session_ == nullptr) return kNoSortColumn;
    const Column& column = columns_[static_cast<std::size_t>(listColumn)];
    if (column.slot < 0 || column.error) return kNoSortColumn;
    return session_->columns[static_cast<std::size_t>(column.slot)].outputColumn;
}

std::string_view ResultListModel::cellText(int row, int listColumn) const {
    if (session_ == nullptr || row < 0 || listColumn <= 0 || listColumn >= static_cast<int>(columns_.size()))
        return {};
    return trimRight(session_->result.text(static_cast<std::size_t>(row),
                                           columns_[static_cast<std::size_t>(listColumn)].field));
}

bool ResultListModel::userRecord(int row) const {
    if (session_ == nullptr || row < 0) return false;
    return leadingInteger(session_->result.text(static_cast<std::size_t>(row), Field::id)) > userBoundary_;
}

int ResultListModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || session_ == nullptr) return 0;
    return static_cast<int>(std::min<std::size_t>(session_->result.size(), INT32_MAX));
}

int ResultListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ResultListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const int column = index.column();
    auto sorted = [&] { return sort_.column != kNoSortColumn && sortColumnOf(column) == sort_.column; };
    switch (role) {
        case Qt::DisplayRole:
            if (column == 0) return index.row() + 1;
            return qText(cellText(index.row(), column));
        case Qt::BackgroundRole: return sorted() ? kSortedBackground : kPlainBackground;
        case Qt::ForegroundRole: {
            const bool user = userRecord(index.row());
            if (sorted()) return user ? kSortedUserText : kSortedCatalogueText;
            return user ? kPlainUserText : kPlainCatalogueText;
        }
        default: return {};
    }
}

QVariant ResultListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= static_cast<int>(columns_.size())) return {};
    const Column& column = columns_[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return column.title;
    if (role == Qt::ToolTipRole) return column.tip;
    return {};
}

// ---------------------------------------------------------------- cell view

CellView::CellView(const QString& text, QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName("Edit");
    setControlId(this, kCellViewControlId);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFrameShape(QFrame::Box);
    setPlainText(text);
    setAttribute(Qt::WA_DeleteOnClose);
}

bool CellView::event(QEvent* event) {
    // Ctrl+A belongs to the cell view while it has the focus, not to the window's
    // Select All.
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::SelectAll)) {
            event->accept();
            return true;
        }
    }
    return QPlainTextEdit::event(event);
}

void CellView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void CellView::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    hide();
    deleteLater();
}

// ---------------------------------------------------------------- view

MyListView::MyListView(QWidget* parent) : QTableView(parent) {
    setObjectName("MyListView");
    setControlId(this, kListControlId);
    model_ = new ResultListModel(this);
    setModel(model_);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    setShowGrid(false);
    setAlternatingRowColors(false);
    setSortingEnabled(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setFont(QFont(QStringLiteral("Tahoma"), 9));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setSortIndicatorShown(false);
    horizontalHeader()->setStretchLastSection(false);
    horizontalHeader()->setDefaultSectionSize(80);
    setContextMenuPolicy(Qt::CustomContextMenu);

    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &MyListView::onHeaderClicked);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &MyListView::onSelectionChanged);
    connect(this, &QAbstractItemView::doubleClicked, this, &MyListView::openCellView);
    connect(this, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        if (contextMenu_) contextMenu_->popup(viewport()->mapToGlobal(at));
    });
}

void MyListView::showSession(const SearchSession* session) {
    if (cellView_) cellView_->deleteLater();
    model_->showSession(session);
    clearSelection();
    const ListSort& sort = model_->sort();
    QHeaderView* header = horizontalHeader();
    header->setSortIndicatorShown(false);
    for (int c = 0; c < model_->columnCount(); ++c) {
        if (sort.column != kNoSortColumn && model_->sortColumnOf(c) == sort.column) {
            header->setSortIndicator(c, sort.ascending == 1 ? Qt::AscendingOrder : Qt::DescendingOrder);
            header->setSortIndicatorShown(true);
        }
    }
    // Column 0 holds the row numbers; the others take the width of their title or of
    // the first rows, whichever is wider, within bounds, so a long name is not cut and
    // a long text does not take the whole pane.
    const QFontMetrics metrics(font());
    const QFontMetrics headerMetrics(header->font());
    const int sample = std::min(model_->rowCount(), 200);
    for (int c = 0; c < model_->columnCount(); ++c) {
        int width = headerMetrics.horizontalAdvance(model_->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString());
        if (c == 0) {
            width = std::max(width, metrics.horizontalAdvance(QString::number(model_->rowCount())));
        } else {
            for (int r = 0; r < sample; ++r)
                width = std::max(width, metrics.horizontalAdvance(qText(model_->cellText(r, c))));
        }
        setColumnWidth(c, std::clamp(width + 18, 32, 320));
    }
    onSelectionChanged();
}

void MyListView::onHeaderClicked(int section) {
    if (!sortEnabled_) return;
    ListSort next;
    if (!sortAfterClick(model_->sort(), model_->sortColumnOf(section), next)) return;
    model_->setSort(next);
    clearSelection();
    emit sortRequested(next);
}

std::vector<std::size_t> MyListView::selectedRows(bool focusedFirst) const {
    std::vector<std::size_t> rows;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection)
        for (int r = range.top(); r <= range.bottom(); ++r) rows.push_back(static_cast<std::size_t>(r));
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    const QModelIndex focused = currentIndex();
    if (focusedFirst && focused.isValid()) {
        const auto at = std::find(rows.begin(), rows.end(), static_cast<std::size_t>(focused.row()));
        if (at != rows.end()) std::rotate(rows.begin(), at, at + 1);
    }
    return rows;
}

SelectionCounts MyListView::selectionCounts() const {
    SelectionCounts counts;
    const SearchSession* session = model_->session();
    if (session == nullptr) return counts;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection) {
        counts.selected += static_cast<std::size_t>(range.height());
        // The two counts only decide whether a command is on: once both are above 0 the
        // rest of a large selection changes nothing.
        for (int r = range.top(); r <= range.bottom() && (counts.withInfo == 0 || counts.computable == 0); ++r) {
            const auto row = static_cast<std::size_t>(r);
            if (rowHasInfo(session->result, row)) ++counts.withInfo;
            if (rowComputable(session->result, row, ephemerisChoice_)) ++counts.computable;
        }
    }
    return counts;
}

void MyListView::onSelectionChanged() { emit selectionCountsChanged(selectionCounts()); }

void MyListView::openCellView(const QModelIndex& index) {
    if (!index.isValid() || index.column() == 0) return;
    if (cellView_) cellView_->deleteLater();
    const auto& column = model_->columns()[static_cast<std::size_t>(index.column())];
    const std::string text = cellViewText(column.field, model_->cellText(index.row(), index.column()));
    auto* view = new CellView(QString::fromStdString(text), viewport());
    const QRect cell = visualRect(index);
    const int width = std::max(cell.width(), 220);
    const int height = std::max(cell.height() * 4, 64);
    view->setGeometry(cell.left(), cell.top(), width, height);
    view->show();
    view->setFocus(Qt::MouseFocusReason);
    cellView_ = view;
}

}  // namespace orvane
