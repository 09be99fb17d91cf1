// Add, Edit, Duplicate and Delete from the main window to the catalogue and back to
// the list, through the record window, and the MPC import of the Import dialog.
#include <QLineEdit>
#include <QTest>

#include <fstream>

#include "catalogue_test_support.h"

using namespace orvane;
using orvane::testing::Desk;
using orvane::testing::selectRow;

namespace {

// The list's rows as "id name", in list order.
QStringList rows(Desk& desk) {
    QStringList out;
    const SearchSession& s = desk.commands->session();
    for (std::size_t r = 0; r < s.result.size(); ++r) {
        out << QString::fromStdString(std::to_string(std::atoll(std::string(s.result.text(r, Field::id)).c_str())) +
                                      " " + std::string(s.result.text(r, Field::name)));
    }
    return out;
}

// The real record window, one comet in the catalogue, found and selected.
bool listOneComet(Desk& desk) {
    desk.commands->realRecordWindow = true;
    testing::insertDirect(desk.database(), {testing::testComet(1, "First")});
    desk.formForAll();
    if (!desk.searchAndWait()) return false;
    selectRow(desk.list(), 0);
    return true;
}

// Answers every question of the record window with OK and keeps the texts.
QStringList* answerRecordWindow(ElementsEdit* edit) {
    auto* texts = new QStringList;
    edit->setMessageHook([texts](const RecordMessage& box) {
        *texts << box.text;
        return true;
    });
    QObject::connect(edit, &QObject::destroyed, [texts] { delete texts; });
    return texts;
}

}  // namespace

class RecordCommandsTest : public QObject {
    Q_OBJECT
private slots:
    void editingACatalogueRecordMakesItTheUsersWithANewId() {
        Desk desk;
        desk.commands->realRecordWindow = true;
        testing::insertDirect(desk.database(), {testing::testComet(1, "First"), testing::testComet(2, "Second"),
                                                testing::testComet(3, "Third")});
        // Records 1 and 2 are the catalogue's, 3 the user's.
        testing::executeSql(desk.database(), "update parameters set value = '2' where id = 4");
        desk.state.updateId = 2;
        desk.formForAll();
        QVERIFY(desk.searchAndWait());
        QCOMPARE(rows(desk), (QStringList{"1 First", "2 Second", "3 Third"}));

        selectRow(desk.list(), 0);
        QVERIFY(desk.window->execute(cmd::kEdit));
        ElementsEdit* edit = desk.commands->recordWindow();
        QVERIFY(edit != nullptr);
        QCOMPARE(edit->mode(), RecordMode::editRecord);
        QVERIFY(edit->isModal());
        QStringList* asked = answerRecordWindow(edit);
        edit->page()->lineEdit(Field::name)->setText(QStringLiteral("First edited"));
        QVERIFY(edit->apply());
        QCOMPARE(asked->size(), 1);
        QCOMPARE(asked->front(), QStringLiteral("Are you sure you want to edit 1 Record?"));
        QVERIFY(desk.waitForWorker());
        QTRY_VERIFY(desk.commands->recordWindow() == nullptr);

        // The old id is gone; the record came back as the user's, with the next id.
        QCOMPARE(rows(desk), (QStringList{"2 Second", "3 Third", "4 First edited"}));
        QVERIFY(desk.commands->operationsEnded() > 0);

        // The user's own record keeps its id when edited.
        selectRow(desk.list(), 2);
        QVERIFY(desk.window->execute(cmd::kEdit));
        edit = desk.commands->recordWindow();
        QVERIFY(edit != nullptr);
        answerRecordWindow(edit);
        edit->page()->lineEdit(Field::name)->setText(QStringLiteral("First again"));
        QVERIFY(edit->apply());
        QVERIFY(desk.waitForWorker());
        QCOMPARE(rows(desk), (QStringList{"2 Second", "3 Third", "4 First again"}));
    }

    void duplicateAndAddInsertNewRecords() {
        Desk desk;
        QVERIFY(listOneComet(desk));

        QVERIFY(desk.window->execute(cmd::kDuplicate));
        ElementsEdit* edit = desk.commands->recordWindow();
        QVERIFY(edit != nullptr);
        QStringList* asked = answerRecordWindow(edit);
        QVERIFY(edit->apply());
        QCOMPARE(asked->front(), QStringLiteral("Are you sure you want to add 1 new Record?"));
        QVERIFY(desk.waitForWorker());
        // The search in force is read again: the copy has the next id and the same values.
        QCOMPARE(rows(desk), (QStringList{"1 First", "2 First"}));
        const SearchSession& s = desk.commands->session();
        for (const Field f : {Field::q, Field::e, Field::w, Field::Om, Field::i, Field::hday})
            QCOMPARE(std::string(s.result.text(1, f)), std::string(s.result.text(0, f)));

        QTRY_VERIFY(desk.commands->recordWindow() == nullptr);
        QVERIFY(desk.window->execute(cmd::kAdd));
        edit = desk.commands->recordWindow();
        QVERIFY(edit != nullptr);
        QCOMPARE(edit->mode(), RecordMode::newRecord);
        answerRecordWindow(edit);
        OrbitRecord fresh = testing::testComet(7, "Seventh");
        edit->page()->fill(fresh);
        QVERIFY(edit->apply());
        QVERIFY(desk.waitForWorker());
        QCOMPARE(rows(desk), (QStringList{"1 First", "2 First", "3 Seventh"}));
    }

    void aRecordThatFailsTheChecksWritesNothing() {
        Desk desk;
        QVERIFY(listOneComet(desk));
        QVERIFY(desk.window->execute(cmd::kEdit));
        ElementsEdit* edit = desk.commands->recordWindow();
        QVERIFY(edit != nullptr);
        QStringList* asked = answerRecordWindow(edit);
        edit->page()->lineEdit(Field::e)->setText(QStringLiteral("1,5"));
        QVERIFY(!edit->apply());
        QCOMPARE(asked->size(), 1);
        QVERIFY(asked->front().startsWith(QStringLiteral("Elements format error!")));
        QVERIFY(!desk.commands->workerRunning());
        edit->close();
        QCOMPARE(rows(desk), (QStringList{"1 First"}));
    }

    void theMpcTypeOfTheImportDialogReadsMpcLines() {
        Desk desk;
        const std::filesystem::path file = desk.home.root() / "CometEls.txt";
        {
            // Two lines of the MPC's CometEls.txt.
            std::ifstream in(orvane::testing::sharedPath("reference/CometEls.txt"));
            std::ofstream out(file, std::ios::binary);
            std::string line;
            int kept = 0;
            while (std::getline(in, line) && kept < 2) {
                if (line.rfind("0001P", 0) == 0 || line.rfind("0002P", 0) == 0) {
                    out << line << "\n";
                    ++kept;
                }
            }
            QCOMPARE(kept, 2);
        }
        desk.commands->openFile = QString::fromStdString(file.string());
        desk.commands->pickedFilter = QString::fromLatin1(kMpcImportFilter);
        QVERIFY(desk.window->execute(cmd::kImport));
        QVERIFY(desk.waitForWorker());
        QVERIFY(desk.commands->filters.back().contains(QStringLiteral("MPC comet elements (*.txt)")));
        QCOMPARE(desk.commands->questions.size(), 1);
        QCOMPARE(desk.commands->questions.back(), QStringLiteral("Are you sure you want to import 2 Records?"));
        desk.formForAll();
        QVERIFY(desk.searchAndWait());
        QCOMPARE(desk.commands->session().result.size(), std::size_t(2));

        // The same file without the MPC type picked is read by the extension rule as a
        // list file: its lines are no records of that form, the checks say so, and
        // nothing is added.
        desk.commands->pickedFilter.clear();
        QVERIFY(desk.window->execute(cmd::kImport));
        QVERIFY(desk.waitForWorker());
        QVERIFY(desk.searchAndWait());
        QCOMPARE(desk.commands->session().result.size(), std::size_t(2));
        QCOMPARE(desk.commands->messages,
                 QStringList{QStringLiteral("One or more strings contains are incorrect.\r\nElements format error! "
                                            "\"periodic comet number\" at 1 record.\r\nSuggestions:\r\n"
                                            "- Periodic comet number must be an integer.")});
    }
};

QTEST_MAIN(RecordCommandsTest)
#include "record_commands_test.moc"
