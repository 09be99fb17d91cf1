// The catalogue commands of the main window end to end: an .els file imported on a
// worker, searched, sorted, selected, saved as text, exported and deleted, with the
// questions, the status texts, the statistics and the hand-over to the record window.
#include <QHeaderView>
#include <QProgressBar>

#include <filesystem>

#include "catalogue_test_support.h"
#include "records/record_files.h"

using namespace orvane;
using testing::Desk;

namespace {

long long catalogueRows(const Desk& desk) {
    ColumnTables tables = buildColumnTables();
    return countHits(desk.database(), "", tables);
}

std::vector<std::string> idsInList(const Desk& desk) {
    std::vector<std::string> ids;
    const SearchResult& result = desk.commands->session().result;
    for (std::size_t r = 0; r < result.size(); ++r) ids.emplace_back(result.text(r, Field::id));
    return ids;
}

void selectRows(MyListView* list, std::initializer_list<int> rows, int focused) {
    list->clearSelection();
    for (int row : rows)
        list->selectionModel()->select(list->model()->index(row, 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
    list->selectionModel()->setCurrentIndex(list->model()->index(focused, 1), QItemSelectionModel::NoUpdate);
}

int columnTitled(ResultListModel* model, const QString& title) {
    for (int c = 0; c < model->columnCount(); ++c)
        if (model->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString() == title) return c;
    return -1;
}

// Four comets in an .els file written by the program's own writer.
std::filesystem::path writeElsFile(const Desk& desk) {
    const std::vector<OrbitRecord> records{testing::testComet(1, "Delta"), testing::testComet(2, "Alpha"),
                                           testing::testComet(3, "O'Brien"), testing::testComet(4, "Charlie")};
    const std::filesystem::path file = desk.home.root() / "four.els";
    writeRecordFile(file, records);
    return file;
}

}  // namespace

class CatalogueCommandsTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { ResetLanguage(); }

    void importSearchSortSelectExportAndDelete() {
        Desk desk;
        desk.window->show();
        QVERIFY(QTest::qWaitForWindowExposed(desk.window.get()));
        testing::ScriptedCommands& c = *desk.commands;

        // Import: the file dialog, the question, the batch on its worker.
        c.openFile = QString::fromStdString(writeElsFile(desk).string());
        const int endedBefore = c.operationsEnded();
        QVERIFY(desk.window->execute(cmd::kImport));
        QCOMPARE(c.filters.last(), QStringLiteral("ELS Format (*.els);;MPC comet elements (*.txt);;All Files (*.*)"));
        QVERIFY(desk.waitForWorker());
        QCOMPARE(c.questions.last(), QStringLiteral("Are you sure you want to import 4 Records?"));
        QCOMPARE(c.questionTitles.last(), QStringLiteral("Confirm Records import"));
        QCOMPARE(catalogueRows(desk), 4);
        QVERIFY(c.operationsEnded() > endedBefore);
        QCOMPARE(desk.window->statusText(1), QStringLiteral("Ready"));
        QVERIFY(!desk.window->progressBar()->isVisible());
        QCOMPARE(desk.state.briefInfo.statistics[kRecordCount].substr(0, 1), std::string("4"));
        QVERIFY(desk.window->action(cmd::kImport)->isEnabled());

        // Search.
        desk.formForAll();
        QVERIFY(desk.searchAndWait());
        QCOMPARE(desk.model()->rowCount(), 4);
        QCOMPARE(desk.window->statusText(3), QStringLiteral("Search Results: 4 Matches found"));
        QVERIFY(desk.window->action(cmd::kSearch)->isEnabled());

        // Sort by name: a click on the header runs the search again.
        const int name = columnTitled(desk.model(), QStringLiteral("Name"));
        emit desk.list()->horizontalHeader()->sectionClicked(name);
        QVERIFY(desk.waitForWorker());
        QCOMPARE(idsInList(desk), (std::vector<std::string>{"2", "4", "1", "3"}));

        // Save As: the list as text, the sorted column marked.
        const QString listFile = QString::fromStdString((desk.home.root() / "list.txt").string());
        selectRows(desk.list(), {0}, 0);
        c.saveFile = listFile;
        QVERIFY(desk.window->execute(cmd::kSaveAs));
        QCOMPARE(c.filters.last(), QStringLiteral("Text Files (*.txt);;All Files (*.*)"));
        const std::string text = testing::readFile(listFile.toStdString());
        const std::string header = text.substr(0, text.find("\r\n"));
        QVERIFY2(header.starts_with("#  Number  Name*(asc)  "), header.c_str());
        QVERIFY(text.find("\r\n1  102     Alpha      ") != std::string::npos);
        QVERIFY(text.find("\r\n4  103     O'Brien    ") != std::string::npos);

        // Export the second and fourth rows in list order.
        selectRows(desk.list(), {3, 1}, 3);
        const std::filesystem::path exported = desk.home.root() / "two.els";
        c.saveFile = QString::fromStdString(exported.string());
        QVERIFY(desk.window->execute(cmd::kExport));
        QCOMPARE(c.filters.last(), QStringLiteral("ECS Format (*.els);;All Files (*.*)"));
        QCOMPARE(c.questions.last(), QStringLiteral("Are you sure you want to export 2 Records?"));
        RecordArray back;
        QVERIFY(readRecordFile(exported, back).status == FileReadStatus::Ok);
        QCOMPARE(back.count, std::size_t(2));
        QCOMPARE(std::string(back.records[0].get(Field::name)), std::string("Charlie"));
        QCOMPARE(std::string(back.records[1].get(Field::name)), std::string("O'Brien"));

        // Delete the same two: the question, the batch, the list read again in its order.
        QVERIFY(desk.window->execute(cmd::kDelete));
        QCOMPARE(c.questions.last(), QStringLiteral("Are you sure you want to delete 2 Records?"));
        QCOMPARE(c.questionTitles.last(), QStringLiteral("Confirm Records delete"));
        QVERIFY(desk.waitForWorker());
        QCOMPARE(catalogueRows(desk), 2);
        QCOMPARE(idsInList(desk), (std::vector<std::string>{"2", "1"}));
        QCOMPARE(desk.model()->sort().column, 1);
        QCOMPARE(desk.window->statusText(3), QStringLiteral("Search Results: 2 Matches found"));
        QCOMPARE(desk.window->statusText(2), QStringLiteral("Selected Items: 0"));
        QCOMPARE(desk.state.briefInfo.statistics[kRecordCount].substr(0, 1), std::string("2"));
        QVERIFY(!desk.window->action(cmd::kDelete)->isEnabled());
    }

    void deletingAllHitsLeavesAnEmptyList() {
        Desk desk;
        testing::insertDirect(desk.database(), {testing::testComet(1, "One"), testing::testComet(2, "Two")});
        desk.formForAll();
        QVERIFY(desk.searchAndWait());
        selectRows(desk.list(), {0}, 0);
        QVERIFY(desk.window->execute(cmd::kSelectAll));
        QVERIFY(desk.window->execute(cmd::kDelete));
        QCOMPARE(desk.commands->questions.last(), QStringLiteral("Are you sure you want to delete 2 Records?"));
        QVERIFY(desk.waitForWorker());
        QCOMPARE(catalogueRows(desk), 0);
        QCOMPARE(desk.model()->rowCount(), 0);
        QCOMPARE(desk.window->statusText(3), QStringLiteral("Search Results: No Matches found"));
        QVERIFY(!desk.window->action(cmd::kEdit)->isEnabled());
    }

    void aDeclinedQuestionChangesNothing() {
        Desk desk;
        testing::ScriptedCommands& c = *desk.commands;
        c.answer = false;
        c.openFile = QString::fromStdString(writeElsFile(desk).string());
        QVERIFY(desk.window->execute(cmd::kImport));
        QVERIFY(desk.waitForWorker());
        QCOMPARE(c.questions.size(), 1);
        QCOMPARE(catalogueRows(desk), 0);

        testing::insertDirect(desk.database(), {testing::testComet(1, "Kept")});
        desk.formForAll();
        QVERIFY(desk.searchAndWait());
        selectRows(desk.list(), {0}, 0);
        QVERIFY(desk.window->execute(cmd::kDelete));
        QCOMPARE(c.questions.last(), QStringLiteral("Are you sure you want to delete 1 Record?"));
        QVERIFY(!desk.commands->workerRunning());
        QCOMPARE(catalogueRows(desk), 1);
    }

    void anUnreadableFileGivesTheMessage() {
        Desk desk;
        const std::filesystem::path file = desk.home.root() / "broken.txt";
        testing::writeFile(file, "'1', 'Halley'\n");
        desk.commands->openFile = QString::fromStdString(file.string());
        QVERIFY(desk.window->execute(cmd::kImport));
        QVERIFY(desk.waitForWorker());
        QTRY_COMPARE(desk.commands->messages.size(), 1);
        QVERIFY(desk.commands->messages[0].startsWith(
            QStringLiteral("One or more strings contains an incorrect number of elements.")));
        QCOMPARE(catalogueRows(desk), 0);
        QCOMPARE(desk.window->statusText(1), QStringLiteral("Ready"));
    }

    void recordCommandsHandTheSelectedRecordsOver() {
        Desk desk;
        std::vector<OrbitRecord> records{testing::testComet(1, "First"), testing::testComet(2, "Second"),
                                         testing::testComet(3, "Third")};
        records[1].set(Field::hinfo, "Split in 1995");
        testing::insertDirect(desk.database(), records);
        desk.formForAll();
        QVERIFY(desk.searchAndWait());
        selectRows(desk.list(), {0, 1, 2}, 1);

        QVERIFY(desk.window->execute(cmd::kEdit));
        QCOMPARE(desk.commands->modes.back(), RecordWindowMode::editRecord);
        QCOMPARE(desk.commands->records.count, std::size_t(3));
        QCOMPARE(std::string(desk.commands->records.records[0].get(Field::name)), std::string("Second"));
        QCOMPARE(std::string(desk.commands->records.records[0].get(Field::hinfo)), std::string("Split in 1995"));
        QCOMPARE(std::string(desk.commands->records.records[1].get(Field::name)), std::string("First"));
        QCOMPARE(std::string(desk.commands->records.records[2].get(Field::name)), std::string("Third"));
        QCOMPARE(std::string(desk.commands->records.records[2].get(Field::id)), std::string("3"));

        QVERIFY(desk.window->execute(cmd::kDuplicateButton));
        QCOMPARE(desk.commands->modes.back(), RecordWindowMode::duplicateRecord);
        QVERIFY(desk.window->execute(cmd::kInfoContext));
        QCOMPARE(desk.commands->modes.back(), RecordWindowMode::additionalInfo);
        QVERIFY(desk.window->execute(cmd::kAdd));
        QCOMPARE(desk.commands->modes.back(), RecordWindowMode::newRecord);
        QCOMPARE(desk.commands->records.count, std::size_t(0));

        // A record that went away meanwhile is left out.
        testing::executeSql(desk.database(), "delete from elements where id = 1");
        selectRows(desk.list(), {0, 2}, 2);
        const RecordArray chosen = desk.commands->selectedRecords(true);
        QCOMPARE(chosen.count, std::size_t(1));
        QCOMPARE(std::string(chosen.records[0].get(Field::name)), std::string("Third"));
    }

    void screenshotOfTheOrbitsPageWithAResult() {
        Desk desk;
        std::vector<OrbitRecord> records;
        const char* names[] = {"Halley", "Encke", "Tempel", "Swift-Tuttle", "Tempel-Tuttle", "Wild",
                               "Churyumov-Gerasimenko", "Hartley", "Borrelly", "Giacobini-Zinner",
                               "Schwassmann-Wachmann", "Pons-Winnecke", "Faye", "d'Arrest", "Biela"};
        int k = 0;
        for (const char* n : names) records.push_back(testing::testComet(k++, n));
        testing::insertDirect(desk.database(), records);
        testing::executeSql(desk.database(), "update parameters set value = '10' where id = 4");
        desk.state.updateId = 10;
        desk.formForAll();
        desk.window->show();
        QVERIFY(QTest::qWaitForWindowExposed(desk.window.get()));
        QVERIFY(desk.searchAndWait());
        desk.window->refreshBriefInfo();
        emit desk.list()->horizontalHeader()->sectionClicked(columnTitled(desk.model(), QStringLiteral("Name")));
        QVERIFY(desk.waitForWorker());
        selectRows(desk.list(), {2, 3}, 3);
        QApplication::processEvents();
        const QString folder = QStringLiteral(ORVANE_BINARY_DIR "/screenshots");
        QDir().mkpath(folder);
        QVERIFY(desk.window->grab().save(folder + "/orbits_result.png"));
    }
};

QTEST_MAIN(CatalogueCommandsTest)
#include "catalogue_commands_test.moc"
