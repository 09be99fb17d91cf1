#pragma once
// The result list of the output pane. It never holds rows of its own: the model reads
// the cells straight from the result array of the last search. Column 0 counts the
// rows; the others follow the ticked output columns, each error column beside its
// value when errors are shown. A click on a header sorts the list by that column
// (a second click turns the order round) by running the search again; the user's
// own records stand out from the catalogue's by their colour.
#include <QAbstractTableModel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTableView>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "records/search_run.h"

class QMenu;

namespace orvane {

// The sort of the list: an output column and its direction, as the search takes it.
struct ListSort {
    int column = kNoSortColumn;  // index of kOutputColumns
    int ascending = 1;           // 1 ascending, 0 descending
};

// The next sort after a click on the header of output column `clicked` (or
// kNoSortColumn for a column that does not sort): the same column flips its
// direction, another one becomes the sorted column in ascending order. False when
// the click is ignored.
bool sortAfterClick(const ListSort& current, int clicked, ListSort& next);

// What the rows of a selection allow.
struct SelectionCounts {
    std::size_t selected = 0;
    std::size_t withInfo = 0;    // hinfo other than "No Information Available..."
    std::size_t computable = 0;  // a task can take them with the ephemeris in use
};

// Whether a task can take the record of `row`: with ephemeris choice 1, |M_calc| at
// most 35000; with choice 2 also the epoch (or, without an epoch year, the
// perihelion date) from JD 2378480.5 to 2524625.5.
bool rowComputable(const SearchResult& result, std::size_t row, int ephemerisChoice);

// Whether `hinfo` of the row has something to show.
bool rowHasInfo(const SearchResult& result, std::size_t row);

// The text of the in-place cell view: the cell's text, or for an empty `hinfo` the
// default text.
std::string cellViewText(Field field, std::string_view text);

// The text that Save As writes: a header line of the column titles, the sorted one
// marked "*(asc)" or "*(desc)", then one line per row; columns are padded to a common
// width and separated by two blanks, lines end with CR LF.
class ResultListModel;
std::string listText(const ResultListModel& model);

class ResultListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    struct Column {
        int slot = -1;      // index of the session's column slots; -1 for the row number
        bool error = false; // the slot's error field
        Field field = Field::id;
        QString title;
        QString tip;
    };

    explicit ResultListModel(QObject* parent = nullptr);

    // The session whose result the list shows; its columns are taken again.
    void showSession(const SearchSession* session);
    const SearchSession* session() const { return session_; }

    // `id` above this value marks a record of the user (parameter 4 of the catalogue).
    void setUserBoundary(long long boundary) { userBoundary_ = boundary; }
    void setSort(const ListSort& sort);
    const ListSort& sort() const { return sort_; }

    // The output column of a list column, or kNoSortColumn for one that does not sort.
    int sortColumnOf(int listColumn) const;
    const std::vector<Column>& columns() const { return columns_; }
    // The cell's text without trailing blanks.
    std::string_view cellText(int row, int listColumn) const;
    bool userRecord(int row) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Column titles and tips again from the language table.
    void retitle();

private:
    void buildColumns();

    const SearchSession* session_ = nullptr;
    std::vector<Column> columns_;
    long long userBoundary_ = 0;
    ListSort sort_;
};

// The read-only cell view: a double click opens it over the cell, Ctrl+A selects its
// text, and it goes away when it loses the focus.
class CellView : public QPlainTextEdit {
    Q_OBJECT
public:
    CellView(const QString& text, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

class MyListView : public QTableView {
    Q_OBJECT
public:
    explicit MyListView(QWidget* parent);

    ResultListModel* resultModel() const { return model_; }

    // The menu that a right click opens.
    void setContextMenu(QMenu* menu) { contextMenu_ = menu; }
    // The ephemeris in use (record 126), for the count of computable rows.
    void setEphemerisChoice(int choice) { ephemerisChoice_ = choice; }

    // Shows the session and drops the selection.
    void showSession(const SearchSession* session);

    // Selected rows in list order; the focused row first when `focusedFirst`.
    std::vector<std::size_t> selectedRows(bool focusedFirst = false) const;
    SelectionCounts selectionCounts() const;

    // The cell view while it is open.
    CellView* cellView() const { return cellView_; }
    void openCellView(const QModelIndex& index);

    // While a worker runs the headers do not sort.
    void setSortEnabled(bool enabled) { sortEnabled_ = enabled; }

signals:
    // The sort changed by a header click; the search must run again.
    void sortRequested(ListSort sort);
    // The selection changed.
    void selectionCountsChanged(SelectionCounts counts);

private:
    void onHeaderClicked(int section);
    void onSelectionChanged();

    ResultListModel* model_ = nullptr;
    QMenu* contextMenu_ = nullptr;
    QPointer<CellView> cellView_;
    int ephemerisChoice_ = 1;
    bool sortEnabled_ = true;
};

}  // namespace orvane
