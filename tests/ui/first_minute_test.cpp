// The first minute of a new user: the program starts on an empty catalogue, the
// Import dialog opens where the starter file of well-known comets lies, the file goes
// in, the quick and the advanced forms find comets, a header sorts them, a catalogue
// record edited becomes the user's (in the user's colour), a copy is added, records
// are exported and deleted, and a language file changes the menus.
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>

#include <filesystem>

#include "catalogue_test_support.h"
#include "records/els_format.h"
#include "records/record_files.h"
#include "ui/start_page.h"

using namespace orvane;
using orvane::testing::Desk;
using orvane::testing::selectRow;
using orvane::testing::control;

namespace {

int rowOfName(Desk& desk, const std::string& name) {
    const SearchSession& s = desk.commands->session();
    for (std::size_t r = 0; r < s.result.size(); ++r)
        if (std::string(s.result.text(r, Field::name)) == name) return static_cast<int>(r);
    return -1;
}

long long idAt(Desk& desk, int row) {
    return std::atoll(std::string(desk.commands->session().result.text(static_cast<std::size_t>(row), Field::id)).c_str());
}

// The column of the list that shows `field`.
int columnOf(Desk& desk, const char* title) {
    for (int c = 0; c < desk.model()->columnCount(); ++c)
        if (desk.model()->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString() == QLatin1String(title)) return c;
    return -1;
}

}  // namespace

class FirstMinuteTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { ResetLanguage(); }

    void fromTheStarterFileToTheUsersOwnRecords() {
        Desk desk;
        // The program folder holds Data/ as the build puts it beside the program.
        const std::filesystem::path data = std::filesystem::path(desk.state.folders.programFolder) / "Data";
        std::filesystem::create_directories(data);
        std::filesystem::copy_file(std::filesystem::path(ORVANE_SOURCE_DIR) / "Data" / "Starter.els",
                                   data / "Starter.els");
        ColumnTables tables = buildColumnTables();
        QCOMPARE(countHits(desk.database(), "", tables), 0LL);

        // Import: the dialog starts in Data/ while the catalogue is empty.
        desk.commands->openFile = QString::fromStdString((data / "Starter.els").string());
        QVERIFY(desk.window->execute(cmd::kImport));
        QVERIFY(desk.waitForWorker());
        QCOMPARE(desk.commands->openFolders.back(), QString::fromStdString(data.string()));
        QCOMPARE(desk.commands->questions.back(), QStringLiteral("Are you sure you want to import 47 Records?"));
        // The start page counts them.
        // 73P and its fragment B share one comet number: 47 entries of 46 comets.
        QVERIFY(desk.window->startPage()->statisticsText().startsWith(
            QStringLiteral("A database of cometary orbits contains 47 entries of 46 comets, among them:\n"
                           "Numbered periodic comets: 33\n"
                           "Long-period and unnumbered short- and intermediate-period comets: 13\n"
                           "Entries added by the user: 47\n")));

        // Quick form: periodic comet number 1 is Halley.
        ElementsPage& page = *desk.window->workPane();
        control<QComboBox>(page, 706)->setCurrentIndex(0);
        control<QLineEdit>(page, 701)->setText(QStringLiteral("1"));
        QVERIFY(desk.searchAndWait());
        QCOMPARE(desk.commands->session().result.size(), std::size_t(1));
        QCOMPARE(std::string(desk.commands->session().result.text(0, Field::name)), std::string("Halley"));

        // Advanced form: every comet with e > 0, all 47.
        control<QLineEdit>(page, 701)->clear();
        desk.formForAll();
        QVERIFY(desk.searchAndWait());
        QCOMPARE(desk.commands->session().result.size(), std::size_t(47));

        // A click on the Name header sorts by name, a second one turns the order.
        const int nameColumn = columnOf(desk, "Name");
        QVERIFY(nameColumn > 0);
        emit desk.list()->horizontalHeader()->sectionClicked(nameColumn);
        QVERIFY(desk.waitForWorker());
        QVERIFY(rowOfName(desk, "Encke") < rowOfName(desk, "Halley"));
        QVERIFY(listText(*desk.model()).find("Name*(asc)") != std::string::npos);
        emit desk.list()->horizontalHeader()->sectionClicked(nameColumn);
        QVERIFY(desk.waitForWorker());
        QVERIFY(rowOfName(desk, "Halley") < rowOfName(desk, "Encke"));
        QVERIFY(listText(*desk.model()).find("Name*(desc)") != std::string::npos);

        // The imported records are the user's (the catalogue boundary is 0); make the
        // first 40 the catalogue's, as an update would, and edit Halley.
        testing::executeSql(desk.database(), "update parameters set value = '40' where id = 4");
        desk.state.updateId = 40;
        desk.list()->resultModel()->setUserBoundary(40);
        const int halley = rowOfName(desk, "Halley");
        QVERIFY(halley >= 0);
        const long long oldId = idAt(desk, halley);
        QVERIFY(oldId <= 40);
        const QColor catalogueText = desk.model()->data(desk.model()->index(halley, 1), Qt::ForegroundRole).value<QColor>();
        QCOMPARE(catalogueText, QColor(0, 0, 0));

        desk.commands->realRecordWindow = true;
        selectRow(desk.list(), halley);
        QVERIFY(desk.window->execute(cmd::kEdit));
        ElementsEdit* edit = desk.commands->recordWindow();
        QVERIFY(edit != nullptr);
        edit->setMessageHook([](const RecordMessage&) { return true; });
        edit->page()->lineEdit(Field::hreference)->setText(QStringLiteral("MyObs"));
        QVERIFY(edit->apply());
        QVERIFY(desk.waitForWorker());
        const int edited = rowOfName(desk, "Halley");
        QVERIFY(edited >= 0);
        QCOMPARE(idAt(desk, edited), 48LL);
        QCOMPARE(desk.model()->data(desk.model()->index(edited, 1), Qt::ForegroundRole).value<QColor>(),
                 QColor(158, 11, 15));

        // Duplicate it: a new record with the next id.
        QTRY_VERIFY(desk.commands->recordWindow() == nullptr);
        selectRow(desk.list(), edited);
        QVERIFY(desk.window->execute(cmd::kDuplicate));
        edit = desk.commands->recordWindow();
        QVERIFY(edit != nullptr);
        edit->setMessageHook([](const RecordMessage&) { return true; });
        QVERIFY(edit->apply());
        QVERIFY(desk.waitForWorker());
        QCOMPARE(desk.commands->session().result.size(), std::size_t(48));

        // Export the two Halleys and delete them.
        QTRY_VERIFY(desk.commands->recordWindow() == nullptr);
        desk.list()->clearSelection();
        for (std::size_t r = 0; r < desk.commands->session().result.size(); ++r) {
            if (std::string(desk.commands->session().result.text(r, Field::name)) != "Halley") continue;
            const QModelIndex index = desk.model()->index(static_cast<int>(r), 1);
            desk.list()->selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
        QCOMPARE(desk.list()->selectedRows().size(), std::size_t(2));
        const std::filesystem::path exported = desk.home.root() / "halley.els";
        desk.commands->saveFile = QString::fromStdString(exported.string());
        QVERIFY(desk.window->execute(cmd::kExport));
        const std::string text = testing::readFile(exported);
        QCOMPARE(std::count(text.begin(), text.end(), '\n'), 2L);
        QVERIFY(text.find("Halley") != std::string::npos);
        QVERIFY(desk.window->execute(cmd::kDelete));
        QVERIFY(desk.waitForWorker());
        QCOMPARE(desk.commands->session().result.size(), std::size_t(46));
        QCOMPARE(rowOfName(desk, "Halley"), -1);

        // A language file changes the menus.
        const std::filesystem::path languages = desk.home.root() / "Languages";
        std::filesystem::create_directories(languages);
        selectRow(desk.list(), 0);
        QCOMPARE(desk.window->statusText(2), QStringLiteral("Selected Items: 1"));
        testing::writeFile(languages / "Test.lng", "[orvMenu]\n1=Datei\n[orvStatus]\n1=Markiert:\n");
        QCOMPARE(LoadLanguage(languages, "Test.lng"), LanguageLoad::fileRead);
        desk.window->retitle();
        QCOMPARE(desk.window->menuBar()->actions()[0]->text(), QStringLiteral("Datei"));
        QCOMPARE(desk.window->statusText(2), QStringLiteral("Markiert: 1"));
    }
};

QTEST_MAIN(FirstMinuteTest)
#include "first_minute_test.moc"
