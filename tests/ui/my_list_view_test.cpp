// The result list: its columns and cells read from the search's arrays, the sort by
// header, the colours of the user's records, the selection and the commands it
// enables, Select All on a large result, and the in-place cell view.
#include <QElapsedTimer>
#include <QHeaderView>
#include <QMenu>
#include <QProgressBar>
#include <QScrollBar>

#include <cstdlib>

#include "catalogue_test_support.h"

using namespace orvane;
using testing::Desk;

namespace {

void clickHeader(MyListView* list, int section) {
    QHeaderView* header = list->horizontalHeader();
    const QPoint at(header->sectionViewportPosition(section) + 4, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
}

std::vector<std::string> namesInList(ResultListModel* model, int nameColumn) {
    std::vector<std::string> names;
    for (int r = 0; r < model->rowCount(); ++r) names.emplace_back(model->cellText(r, nameColumn));
    return names;
}

int columnTitled(ResultListModel* model, const QString& title) {
    for (int c = 0; c < model->columnCount(); ++c)
        if (model->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString() == title) return c;
    return -1;
}

void selectRow(MyListView* list, int row) {
    list->selectionModel()->select(list->model()->index(row, 0),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    list->setCurrentIndex(list->model()->index(row, 1));
}

// Three comets; "Cobb" has a text in hinfo, and "Adams" an epoch in 1700.
void threeComets(Desk& desk) {
    std::vector<OrbitRecord> records{testing::testComet(1, "Cobb"), testing::testComet(2, "Adams"),
                                     testing::testComet(3, "Brown")};
    records[0].set(Field::hinfo, "Seen from the south only");
    records[1].set(Field::E_year, "1700");
    testing::insertDirect(desk.database(), records);
}

}  // namespace

class MyListViewTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { ResetLanguage(); }

    void sortRules() {
        ListSort next;
        QVERIFY(!sortAfterClick({}, kNoSortColumn, next));
        QVERIFY(sortAfterClick({}, 11, next));
        QCOMPARE(next.column, 11);
        QCOMPARE(next.ascending, 1);
        QVERIFY(sortAfterClick(next, 11, next));
        QCOMPARE(next.ascending, 0);
        QVERIFY(sortAfterClick(next, 11, next));
        QCOMPARE(next.ascending, 1);
        QVERIFY(sortAfterClick({11, 0}, 1, next));
        QCOMPARE(next.column, 1);
        QCOMPARE(next.ascending, 1);
    }

    void cellViewTexts() {
        QCOMPARE(cellViewText(Field::hinfo, ""), std::string("No Information Available..."));
        QCOMPARE(cellViewText(Field::hinfo, "   "), std::string("No Information Available..."));
        QCOMPARE(cellViewText(Field::hinfo, "Great comet  "), std::string("Great comet"));
        QCOMPARE(cellViewText(Field::name, ""), std::string());
        QCOMPARE(cellViewText(Field::name, "Halley   "), std::string("Halley"));
    }

    void rowNumbersTitlesAndCells() {
        Desk desk;
        threeComets(desk);
        desk.formForAll();
        QVERIFY(desk.searchAndWait());
        ResultListModel* model = desk.model();
        QCOMPARE(desk.list()->objectName(), QStringLiteral("MyListView"));
        QCOMPARE(desk.list()->property("controlId").toInt(), 502);
        QCOMPARE(model->rowCount(), 3);
        QCOMPARE(model->headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("#"));
        QCOMPARE(model->headerData(0, Qt::Horizontal, Qt::ToolTipRole).toString(),
                 QStringLiteral("Counter of results"));
        QCOMPARE(model->data(model->index(0, 0), Qt::DisplayRole).toInt(), 1);
        QCOMPARE(model->data(model->index(2, 0), Qt::DisplayRole).toInt(), 3);
        const int name = columnTitled(model, QStringLiteral("Name"));
        QCOMPARE(name, 2);  // after "#" and "Number", as the ticks of a first start stand
        QCOMPARE(model->headerData(name, Qt::Horizontal, Qt::ToolTipRole).toString(), QStringLiteral("Name of comet"));
        // The day's error column stands beside its value, with the catalogue's name.
        const int day = columnTitled(model, QStringLiteral("Day per."));
        QVERIFY(day > 0);
        QCOMPARE(model->headerData(day + 1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("hday_err"));
        QCOMPARE(model->data(model->index(0, day), Qt::DisplayRole).toString(), QStringLiteral("10.3628"));
        QCOMPARE(model->sortColumnOf(0), kNoSortColumn);
        QCOMPARE(model->sortColumnOf(day + 1), kNoSortColumn);
        QCOMPARE(model->sortColumnOf(name), 1);
        QCOMPARE(desk.window->statusText(3), QStringLiteral("Search Results: 3 Matches found"));
        QCOMPARE(desk.window->statusText(2), QStringLiteral("Selected Items: 0"));
        QCOMPARE(desk.window->statusText(1), QStringLiteral("Ready"));
    }

    void aClickOnColumnZeroStartsNoSearch() {
        Desk desk;
        threeComets(desk);
        desk.formForAll();
        desk.window->show();
        QVERIFY(QTest::qWaitForWindowExposed(desk.window.get()));
        QVERIFY(desk.searchAndWait());
        const int ended = desk.commands->operationsEnded();
        selectRow(desk.list(), 1);
        clickHeader(desk.list(), 0);
        QVERIFY(!desk.commands->workerRunning());
        QVERIFY(!desk.window->searchRunning());
        QCOMPARE(desk.commands->operationsEnded(), ended);
        QCOMPARE(desk.model()->sort().column, kNoSortColumn);
        QCOMPARE(desk.list()->selectionCounts().selected, std::size_t(1));
    }

    void twoClicksOnOneHeaderGiveDescendingOrder() {
        Desk desk;
        threeComets(desk);
        desk.formForAll();
        desk.window->show();
        QVERIFY(QTest::qWaitForWindowExposed(desk.window.get()));
        QVERIFY(desk.searchAndWait());
        const int name = columnTitled(desk.model(), QStringLiteral("Name"));
        QCOMPARE(namesInList(desk.model(), name), (std::vector<std::string>{"Cobb", "Adams", "Brown"}));

        selectRow(desk.list(), 1);
        clickHeader(desk.list(), name);
        QVERIFY(desk.commands->workerRunning() || desk.window->searchRunning());
        QCOMPARE(desk.list()->selectionCounts().selected, std::size_t(0));  // the selection is dropped
        QVERIFY(desk.waitForWorker());
        QCOMPARE(desk.model()->sort().column, 1);
        QCOMPARE(desk.model()->sort().ascending, 1);
        QCOMPARE(namesInList(desk.model(), name), (std::vector<std::string>{"Adams", "Brown", "Cobb"}));

        clickHeader(desk.list(), name);
        QVERIFY(desk.waitForWorker());
        QCOMPARE(desk.model()->sort().ascending, 0);
        QCOMPARE(namesInList(desk.model(), name), (std::vector<std::string>{"Cobb", "Brown", "Adams"}));
        QCOMPARE(desk.list()->horizontalHeader()->sortIndicatorSection(), name);
        QCOMPARE(desk.list()->horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
        // The sorted column is set off.
        QCOMPARE(desk.model()->data(desk.model()->index(0, name), Qt::BackgroundRole).value<QColor>(),
                 QColor(250, 250, 250));
        QCOMPARE(desk.model()->data(desk.model()->index(0, name + 1), Qt::BackgroundRole).value<QColor>(),
                 QColor(255, 255, 255));
        QVERIFY(!desk.window->searchRunning());
    }

    void userRecordsStandOutFromTheCatalogue() {
        Desk desk;
        threeComets(desk);
        // Ids 1 and 2 came with the catalogue; 3 is the user's.
        testing::executeSql(desk.database(), "update parameters set value = '2' where id = 4");
        desk.state.updateId = 2;
        desk.formForAll();
        QVERIFY(desk.searchAndWait());
        ResultListModel* model = desk.model();
        const int name = columnTitled(model, QStringLiteral("Name"));
        auto colour = [&](int row, int column, int role) { return model->data(model->index(row, column), role).value<QColor>(); };
        QVERIFY(!model->userRecord(0));
        QVERIFY(model->userRecord(2));
        QCOMPARE(colour(0, name, Qt::ForegroundRole), QColor(0, 0, 0));
        QCOMPARE(colour(2, name, Qt::ForegroundRole), QColor(158, 11, 15));
        QCOMPARE(colour(2, 0, Qt::ForegroundRole), QColor(158, 11, 15));
        QCOMPARE(colour(0, name, Qt::BackgroundRole), QColor(255, 255, 255));

        desk.window->show();
        QVERIFY(QTest::qWaitForWindowExposed(desk.window.get()));
        clickHeader(desk.list(), name);
        QVERIFY(desk.waitForWorker());
        // Sorted by name: Adams (2), Brown (3), Cobb (1).
        QCOMPARE(colour(0, name, Qt::ForegroundRole), QColor(0, 52, 113));
        QCOMPARE(colour(1, name, Qt::ForegroundRole), QColor(68, 14, 98));
        QCOMPARE(colour(1, name, Qt::BackgroundRole), QColor(250, 250, 250));
        QCOMPARE(colour(1, 0, Qt::ForegroundRole), QColor(158, 11, 15));
    }

    void theSelectionEnablesItsCommands() {
        Desk desk;
        threeComets(desk);
        desk.formForAll();
        QVERIFY(desk.searchAndWait());
        MainApp& w = *desk.window;
        for (int id : {cmd::kEdit, cmd::kDuplicate, cmd::kDelete, cmd::kExport, cmd::kSelectAll, cmd::kSaveAs,
                       cmd::kInfo, cmd::kTasks})
            QVERIFY2(!w.action(id)->isEnabled(), qPrintable(QString::number(id)));

        selectRow(desk.list(), 1);  // Adams: no hinfo, epoch 1700
        QCOMPARE(w.statusText(2), QStringLiteral("Selected Items: 1"));
        for (int id : {cmd::kEdit, cmd::kDuplicate, cmd::kDelete, cmd::kExport, cmd::kSelectAll, cmd::kSaveAs})
            QVERIFY2(w.action(id)->isEnabled(), qPrintable(QString::number(id)));
        QVERIFY(!w.action(cmd::kInfo)->isEnabled());
        QVERIFY(w.action(cmd::kTasks)->isEnabled());  // ephemeris 1 takes any epoch

        selectRow(desk.list(), 0);  // Cobb has a text
        QVERIFY(w.action(cmd::kInfo)->isEnabled());
        QVERIFY(w.action(cmd::kInfoContext)->isEnabled());

        // With the second planetary file an epoch in 1700 lies outside its span.
        desk.list()->setEphemerisChoice(2);
        selectRow(desk.list(), 1);
        QVERIFY(!w.action(cmd::kTasks)->isEnabled());
        QVERIFY(!w.action(cmd::kEphemerides)->isEnabled());
        selectRow(desk.list(), 2);
        QVERIFY(w.action(cmd::kTasks)->isEnabled());

        desk.list()->clearSelection();
        QCOMPARE(w.statusText(2), QStringLiteral("Selected Items: 0"));
        QVERIFY(!w.action(cmd::kEdit)->isEnabled());
    }

    void computableRowsFollowTheEphemerisInUse() {
        Desk desk;
        std::vector<OrbitRecord> records{testing::testComet(1, "Inside"), testing::testComet(2, "Before"),
                                         testing::testComet(3, "After"), testing::testComet(4, "NoEpoch"),
                                         testing::testComet(5, "FirstDay"), testing::testComet(6, "LastDay")};
        records[1].set(Field::E_year, "1799");
        records[1].set(Field::E_month, "12");
        records[1].set(Field::E_day, "15");
        records[2].set(Field::E_year, "2200");
        records[2].set(Field::E_month, "2");
        records[2].set(Field::E_day, "3");  // one day after JD 2524625.5
        records[3].set(Field::E_year, "");  // the perihelion date, 2004, stands in
        records[4].set(Field::E_year, "1799");
        records[4].set(Field::E_month, "12");
        records[4].set(Field::E_day, "16");  // JD 2378480.5, the first day of the span
        records[5].set(Field::E_year, "2200");
        records[5].set(Field::E_month, "2");
        records[5].set(Field::E_day, "2");  // JD 2524625.5, the last day
        testing::insertDirect(desk.database(), records);
        desk.formForAll();
        QVERIFY(desk.searchAndWait());
        const SearchResult& result = desk.commands->session().result;
        QCOMPARE(result.size(), std::size_t(6));
        QVERIFY(rowComputable(result, 0, 2));
        QVERIFY(!rowComputable(result, 1, 2));
        QVERIFY(rowComputable(result, 1, 1));
        QVERIFY(!rowComputable(result, 2, 2));
        QVERIFY(rowComputable(result, 3, 2));
        QVERIFY(rowComputable(result, 4, 2));
        QVERIFY(rowComputable(result, 5, 2));
    }

    void selectAllOfALargeResultTakesOneCall() {
        // ORVANE_LIST_ROWS=100000 measures the list at the size of a large catalogue.
        const char* rowsSetting = std::getenv("ORVANE_LIST_ROWS");
        const int rows = rowsSetting ? std::atoi(rowsSetting) : 20000;
        Desk desk;
        std::vector<OrbitRecord> records;
        records.reserve(static_cast<std::size_t>(rows));
        for (int k = 0; k < rows; ++k) records.push_back(testing::testComet(k, "Comet " + std::to_string(k)));
        testing::insertDirect(desk.database(), records);
        records.clear();
        desk.formForAll();
        desk.window->show();
        QVERIFY(QTest::qWaitForWindowExposed(desk.window.get()));

        QElapsedTimer clock;
        clock.start();
        QVERIFY(desk.searchAndWait());
        const qint64 searchMs = clock.elapsed();
        QCOMPARE(desk.model()->rowCount(), rows);

        selectRow(desk.list(), 0);
        int changes = 0;
        connect(desk.list()->selectionModel(), &QItemSelectionModel::selectionChanged, this, [&] { ++changes; });
        clock.restart();
        QVERIFY(desk.window->execute(cmd::kSelectAll));
        const qint64 selectMs = clock.elapsed();
        QCOMPARE(changes, 1);
        QCOMPARE(desk.list()->selectionModel()->selection().size(), 1);
        QCOMPARE(desk.list()->selectionCounts().selected, std::size_t(rows));
        QCOMPARE(desk.window->statusText(2), QStringLiteral("Selected Items: %1").arg(rows));

        // From the top to the bottom, a page at a time, each page drawn (when measuring).
        clock.restart();
        QScrollBar* bar = desk.list()->verticalScrollBar();
        int pages = 0;
        while (rowsSetting != nullptr && bar->value() < bar->maximum()) {
            bar->setValue(bar->value() + bar->pageStep());
            desk.list()->viewport()->repaint();
            ++pages;
        }
        const qint64 scrollMs = clock.elapsed();
        clock.restart();
        desk.list()->scrollToTop();
        desk.list()->scrollToBottom();
        desk.list()->viewport()->repaint();
        const qint64 jumpMs = clock.elapsed();
        qInfo("rows %d: search %lld ms, Select All %lld ms, %d pages top to bottom %lld ms, jump to bottom %lld ms",
              rows, static_cast<long long>(searchMs), static_cast<long long>(selectMs), pages,
              static_cast<long long>(scrollMs), static_cast<long long>(jumpMs));
    }

    void theCellViewShowsTheWholeTextAndGoesAwayWithTheFocus() {
        Desk desk;
        std::vector<OrbitRecord> records{testing::testComet(1, "A very long name of a comet that a column cuts")};
        testing::insertDirect(desk.database(), records);
        desk.formForAll();
        desk.window->show();
        QVERIFY(QTest::qWaitForWindowActive(desk.window.get()));
        QVERIFY(desk.searchAndWait());
        MyListView* list = desk.list();
        const int name = columnTitled(desk.model(), QStringLiteral("Name"));
        list->setColumnWidth(name, 40);
        const QModelIndex cell = desk.model()->index(0, name);
        list->setCurrentIndex(cell);
        emit list->doubleClicked(cell);
        CellView* view = list->cellView();
        QVERIFY(view != nullptr);
        QCOMPARE(view->objectName(), QStringLiteral("Edit"));
        QCOMPARE(view->property("controlId").toInt(), 508);
        QVERIFY(view->isReadOnly());
        QCOMPARE(view->toPlainText(), QStringLiteral("A very long name of a comet that a column cuts"));
        QCOMPARE(view->geometry().topLeft(), list->visualRect(cell).topLeft());
        QTRY_VERIFY(view->hasFocus());

        QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(view->textCursor().selectedText(), view->toPlainText());
        // Ctrl+A in the cell view is not the window's Select All.
        QCOMPARE(list->selectionCounts().selected, std::size_t(1));

        desk.window->workPane()->setFocus();
        QTRY_VERIFY(list->cellView() == nullptr);
    }

    void aRightClickOpensTheContextMenu() {
        Desk desk;
        desk.window->show();
        QVERIFY(QTest::qWaitForWindowExposed(desk.window.get()));
        QMenu* menu = desk.window->listContextMenu();
        QVERIFY(!menu->isVisible());
        emit desk.list()->customContextMenuRequested(QPoint(20, 20));
        QTRY_VERIFY(menu->isVisible());
        menu->hide();
    }
};

QTEST_MAIN(MyListViewTest)
#include "my_list_view_test.moc"
