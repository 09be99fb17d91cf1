// The record window in its record modes: titles, buttons, paging, Reset, the checks
// and the question of Apply and what it hands over, Add more > with its hint at 50
// records, Remove, Duplicate, the additional info with its ordinals and file, a
// change of language, and a picture of the window.
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <filesystem>
#include <string>
#include <vector>

#include "records/els_format.h"
#include "support/temp_home.h"
#include "ui/edit_page.h"
#include "ui/elements_edit.h"
#include "language/language_table.h"
#include "language/load_language.h"

using namespace orvane;

namespace {

// The two comets of the golden file of the task tests: 81P/Wild and Hale-Bopp.
RecordArray goldenRecords() {
    const std::string els = testing::readFile(ORVANE_SOURCE_DIR "/tests/tasks/golden/comets.els");
    RecordArray array;
    array.reset(2);
    std::size_t start = 0;
    for (std::size_t k = 0; k < 2; ++k) {
        const std::size_t end = els.find('\n', start);
        readElsLine(els.substr(start, end - start), array.records[k]);
        start = end + 1;
    }
    array.records[0].set(Field::id, "17");
    array.records[1].set(Field::id, "23");
    return array;
}

RecordArray oneRecord(std::size_t index = 0) {
    RecordArray all = goldenRecords();
    RecordArray one;
    one.reset(1);
    one.records[0] = all.records[index];
    return one;
}

// Answers the window's message boxes and remembers them.
struct Boxes {
    std::vector<RecordMessage> shown;
    bool answer = true;
    void attach(ElementsEdit& window) {
        window.setMessageHook([this](const RecordMessage& box) {
            shown.push_back(box);
            return answer;
        });
    }
};

struct Handed {
    std::vector<RecordWindowAction> actions;
    std::vector<RecordArray> batches;
    void attach(ElementsEdit& window) {
        window.setBatchHandler([this](RecordWindowAction action, RecordArray batch) {
            actions.push_back(action);
            batches.push_back(std::move(batch));
        });
    }
};

QString buttonText(ElementsEdit& window, int position) { return window.button(position)->text(); }

QString field(ElementsEdit& window, Field f) { return window.page()->lineEdit(f)->text(); }

std::string stored(const OrbitRecord& record, Field f) { return std::string(record.get(f)); }

}  // namespace

class ElementsEditTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { ResetLanguage(); }

    void editModeHasItsButtonsAndPagesThroughTheRecords() {
        ElementsEdit window(RecordMode::editRecord, goldenRecords());
        QCOMPARE(window.objectName(), QStringLiteral("ElementsEdit"));
        QCOMPARE(window.page()->objectName(), QStringLiteral("EditPage"));
        const QStringList texts{"< Previous", "Next >", "Reset", "Apply", "Close"};
        for (int k = 0; k < 5; ++k) QCOMPARE(buttonText(window, k), texts[k]);
        QVERIFY(window.button(5) == nullptr);
        QCOMPARE(window.windowTitle(), QStringLiteral("Edit Record 1 of 2 - Wild"));
        QCOMPARE(field(window, Field::q), QStringLiteral("1.597163"));
        QVERIFY(!window.button(0)->isEnabled());
        QVERIFY(window.button(1)->isEnabled());

        window.page()->lineEdit(Field::q)->setText(QStringLiteral("1.6"));
        QTest::mouseClick(window.button(1), Qt::LeftButton);
        QCOMPARE(window.currentIndex(), std::size_t{1});
        QCOMPARE(window.windowTitle(), QStringLiteral("Edit Record 2 of 2 - Hale-Bopp"));
        QCOMPARE(field(window, Field::q), QStringLiteral("0.890538"));
        QVERIFY(window.button(0)->isEnabled());
        QVERIFY(!window.button(1)->isEnabled());
        window.showNext();  // nothing behind the last
        QCOMPARE(window.currentIndex(), std::size_t{1});
        QTest::mouseClick(window.button(0), Qt::LeftButton);
        QCOMPARE(field(window, Field::q), QStringLiteral("1.6"));  // the change was kept
        QCOMPARE(stored(window.batch().records[0], Field::q), std::string("1.6"));
        QCOMPARE(stored(window.batch().records[1], Field::q), std::string("0.890538"));

        // One record: no place in the title, no paging.
        ElementsEdit single(RecordMode::editRecord, oneRecord(1));
        QCOMPARE(single.windowTitle(), QStringLiteral("Edit Record - Hale-Bopp"));
        QVERIFY(!single.button(0)->isEnabled());
        QVERIFY(!single.button(1)->isEnabled());
    }

    void aRecordWithoutANameIsNoName() {
        RecordArray records = oneRecord();
        records.records[0].set(Field::name, "");
        ElementsEdit window(RecordMode::editRecord, records);
        QCOMPARE(window.windowTitle(), QStringLiteral("Edit Record - No name..."));
        window.page()->lineEdit(Field::name)->setText(QStringLiteral("Wild 2"));
        QCOMPARE(window.windowTitle(), QStringLiteral("Edit Record - Wild 2"));
        ElementsEdit fresh(RecordMode::newRecord, RecordArray());
        QCOMPARE(fresh.windowTitle(), QStringLiteral("Add new Record - No name..."));
        QCOMPARE(fresh.recordCount(), std::size_t{1});
    }

    void resetRestoresTheRecordsAsOpened() {
        const RecordArray opened = goldenRecords();
        ElementsEdit window(RecordMode::editRecord, opened);
        window.page()->lineEdit(Field::e)->setText(QStringLiteral("0.5"));
        window.showNext();
        window.page()->lineEdit(Field::name)->clear();
        QTest::mouseClick(window.button(2), Qt::LeftButton);
        QCOMPARE(window.currentIndex(), std::size_t{1});
        QCOMPARE(field(window, Field::name), QStringLiteral("Hale-Bopp"));
        QVERIFY(window.batch().records == opened.records);

        ElementsEdit adding(RecordMode::newRecord, RecordArray());
        adding.addMore();
        adding.addMore();
        adding.page()->lineEdit(Field::comet)->setText(QStringLiteral("5"));
        adding.reset();
        QCOMPARE(adding.recordCount(), std::size_t{1});
        QCOMPARE(field(adding, Field::comet), QString());
    }

    void applyAsksForOneRecordAndHandsTheEditOver() {
        Boxes boxes;
        Handed handed;
        ElementsEdit window(RecordMode::editRecord, oneRecord());
        boxes.attach(window);
        handed.attach(window);
        window.show();
        window.page()->lineEdit(Field::e)->setText(QStringLiteral("0.5374"));
        boxes.answer = false;
        QVERIFY(!window.apply());
        QCOMPARE(boxes.shown.size(), std::size_t{1});
        QCOMPARE(boxes.shown[0].title, QStringLiteral("Confirm Records edit"));
        QCOMPARE(boxes.shown[0].text, QStringLiteral("Are you sure you want to edit 1 Record?"));
        QCOMPARE(boxes.shown[0].icon, QMessageBox::Question);
        QVERIFY(boxes.shown[0].question);
        QVERIFY(handed.batches.empty());
        QVERIFY(window.isVisible());

        boxes.answer = true;
        QTest::mouseClick(window.button(3), Qt::LeftButton);
        QCOMPARE(handed.actions, std::vector<RecordWindowAction>{RecordWindowAction::edit});
        QCOMPARE(handed.batches[0].count, std::size_t{1});
        QCOMPARE(stored(handed.batches[0].records[0], Field::e), std::string("0.5374"));
        QCOMPARE(stored(handed.batches[0].records[0], Field::id), std::string("17"));
        QVERIFY(!window.isVisible());
    }

    void applyAsksForSeveralRecords() {
        Boxes boxes;
        Handed handed;
        ElementsEdit editing(RecordMode::editRecord, goldenRecords());
        boxes.attach(editing);
        handed.attach(editing);
        QVERIFY(editing.apply());
        QCOMPARE(boxes.shown.back().text, QStringLiteral("Are you sure you want to edit 2 Records?"));
        QCOMPARE(handed.batches.back().count, std::size_t{2});

        ElementsEdit adding(RecordMode::newRecord, goldenRecords());
        boxes.attach(adding);
        handed.attach(adding);
        adding.addMore();
        adding.addMore();  // a blank third record
        adding.page()->fill(goldenRecords().records[0]);
        QVERIFY(adding.apply());
        QCOMPARE(boxes.shown.back().title, QStringLiteral("Confirm Records add"));
        QCOMPARE(boxes.shown.back().text, QStringLiteral("Are you sure you want to add 3 new Records?"));
        QCOMPARE(boxes.shown.back().icon, QMessageBox::Question);
        QCOMPARE(handed.actions.back(), RecordWindowAction::add);
        QCOMPARE(handed.batches.back().count, std::size_t{3});

        ElementsEdit one(RecordMode::newRecord, oneRecord());
        boxes.attach(one);
        handed.attach(one);
        QVERIFY(one.apply());
        QCOMPARE(boxes.shown.back().text, QStringLiteral("Are you sure you want to add 1 new Record?"));
    }

    void aFailedCheckShowsItsMessageAndFocusesTheFieldOfItsRecord() {
        Boxes boxes;
        Handed handed;
        ElementsEdit window(RecordMode::editRecord, goldenRecords());
        boxes.attach(window);
        handed.attach(window);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.showNext();
        window.page()->lineEdit(Field::q)->setText(QStringLiteral("0"));
        window.showPrevious();
        QVERIFY(!window.apply());
        QCOMPARE(boxes.shown.size(), std::size_t{1});
        QCOMPARE(boxes.shown[0].title, QStringLiteral("Message"));
        QCOMPARE(boxes.shown[0].text,
                 QStringLiteral("One or more strings contains are incorrect.\r\n"
                                "Elements format error! \"perihelion distance\" at 2 record.\r\n"
                                "Suggestions:\r\n"
                                "- Perihelion distance value should be in the range (0; 100) AU."));
        QVERIFY(!boxes.shown[0].question);
        QCOMPARE(window.currentIndex(), std::size_t{1});
        QVERIFY(window.page()->lineEdit(Field::q)->hasFocus());
        QVERIFY(handed.batches.empty());
        QVERIFY(window.isVisible());
        // The form still shows what the user typed.
        QCOMPARE(field(window, Field::q), QStringLiteral("0"));

        // A required field of a single record.
        ElementsEdit single(RecordMode::newRecord, oneRecord());
        boxes.attach(single);
        single.show();
        QVERIFY(QTest::qWaitForWindowActive(&single));
        single.page()->lineEdit(Field::hday)->clear();
        QVERIFY(!single.apply());
        QCOMPARE(boxes.shown.back().text, QStringLiteral("Required field is empty!\r\nSuggestions:\r\n"
                                                         "Fill the \"day of perihelion passage\" field at 1 record."));
        QVERIFY(single.page()->lineEdit(Field::hday)->hasFocus());
    }

    void theFiftiethRecordBringsTheHintTowardImport() {
        Boxes boxes;
        ElementsEdit window(RecordMode::newRecord, RecordArray());
        boxes.attach(window);
        QCOMPARE(buttonText(window, 0), QStringLiteral("Add more >"));
        QCOMPARE(buttonText(window, 1), QStringLiteral("Remove"));
        QCOMPARE(buttonText(window, 2), QStringLiteral("Reset"));
        QCOMPARE(buttonText(window, 3), QStringLiteral("Apply"));
        QCOMPARE(buttonText(window, 4), QStringLiteral("Close"));
        for (int k = 0; k < 48; ++k) QTest::mouseClick(window.button(0), Qt::LeftButton);
        QCOMPARE(window.recordCount(), std::size_t{49});
        QVERIFY(boxes.shown.empty());
        QTest::mouseClick(window.button(0), Qt::LeftButton);
        QCOMPARE(window.recordCount(), std::size_t{50});
        QCOMPARE(window.currentIndex(), std::size_t{49});
        QCOMPARE(boxes.shown.size(), std::size_t{1});
        QCOMPARE(boxes.shown[0].text, QStringLiteral("Possible it's time to stop? Try to use Import service:)"));
        QCOMPARE(boxes.shown[0].icon, QMessageBox::Information);
        QVERIFY(!boxes.shown[0].question);
        window.addMore();
        QCOMPARE(window.recordCount(), std::size_t{51});
        QCOMPARE(boxes.shown.size(), std::size_t{1});
        QCOMPARE(window.windowTitle(), QStringLiteral("Add new Record 51 of 51 - No name..."));
    }

    void removeTakesTheShownRecordOut() {
        ElementsEdit window(RecordMode::newRecord, RecordArray());
        QVERIFY(!window.button(1)->isEnabled());
        window.page()->lineEdit(Field::comet)->setText(QStringLiteral("1"));
        window.addMore();
        window.page()->lineEdit(Field::comet)->setText(QStringLiteral("2"));
        window.addMore();
        window.page()->lineEdit(Field::comet)->setText(QStringLiteral("3"));
        QVERIFY(window.button(1)->isEnabled());
        QTest::mouseClick(window.button(1), Qt::LeftButton);
        QCOMPARE(window.recordCount(), std::size_t{2});
        QCOMPARE(window.currentIndex(), std::size_t{1});
        QCOMPARE(field(window, Field::comet), QStringLiteral("2"));
        window.removeCurrent();
        QCOMPARE(field(window, Field::comet), QStringLiteral("1"));
        QVERIFY(!window.button(1)->isEnabled());
        window.removeCurrent();
        QCOMPARE(window.recordCount(), std::size_t{1});
    }

    void duplicateAddsCopiesWithoutTheirIds() {
        Boxes boxes;
        Handed handed;
        const RecordArray originals = goldenRecords();
        ElementsEdit window(RecordMode::duplicateRecord, originals);
        boxes.attach(window);
        handed.attach(window);
        QCOMPARE(buttonText(window, 0), QStringLiteral("Add more >"));
        QCOMPARE(window.windowTitle(), QStringLiteral("Add new Record 1 of 2 - Wild"));
        // Add more > walks on through the copies before it adds a blank one.
        window.addMore();
        QCOMPARE(window.recordCount(), std::size_t{2});
        QCOMPARE(field(window, Field::name), QStringLiteral("Hale-Bopp"));
        const RecordArray copies = window.batch();
        for (std::size_t k = 0; k < 2; ++k) {
            QVERIFY(copies.records[k].blank(Field::id));
            OrbitRecord withId = copies.records[k];
            withId.set(Field::id, originals.records[k].get(Field::id));
            QVERIFY(withId == originals.records[k]);
        }
        QVERIFY(window.apply());
        QCOMPARE(boxes.shown.back().title, QStringLiteral("Confirm Records add"));
        QCOMPARE(boxes.shown.back().text, QStringLiteral("Are you sure you want to add 2 new Records?"));
        QCOMPARE(handed.actions.back(), RecordWindowAction::add);
        QVERIFY(handed.batches.back().records[1].blank(Field::id));
        // The records passed the checks and their dates went through the calendar.
        QCOMPARE(stored(handed.batches.back().records[1], Field::hday), std::string("29.6349"));
    }

    void additionalInfoCountsTheApparitions() {
        QCOMPARE(ordinalSuffix(1), QStringLiteral("st"));
        QCOMPARE(ordinalSuffix(2), QStringLiteral("nd"));
        QCOMPARE(ordinalSuffix(3), QStringLiteral("rd"));
        QCOMPARE(ordinalSuffix(4), QStringLiteral("th"));
        QCOMPARE(ordinalSuffix(11), QStringLiteral("th"));
        QCOMPARE(ordinalSuffix(12), QStringLiteral("th"));
        QCOMPARE(ordinalSuffix(13), QStringLiteral("th"));
        QCOMPARE(ordinalSuffix(21), QStringLiteral("st"));
        QCOMPARE(ordinalSuffix(22), QStringLiteral("nd"));
        QCOMPARE(ordinalSuffix(23), QStringLiteral("rd"));
        QCOMPARE(ordinalSuffix(111), QStringLiteral("th"));
        QCOMPARE(ordinalSuffix(101), QStringLiteral("st"));

        RecordArray records;
        records.reset(4);
        for (std::size_t k = 0; k < 4; ++k) {
            records.records[k].set(Field::name, "Halley");
            records.records[k].set(Field::hinfo, "Apparition " + std::to_string(k + 1) + "\r\nseen");
        }
        records.records[3].set(Field::hinfo, "");
        ElementsEdit window(RecordMode::additionalInfo, records);
        QVERIFY(window.page() == nullptr);
        const QStringList texts{"< Previous", "Next >", "Options", "Save As", "Close"};
        for (int k = 0; k < 5; ++k) QCOMPARE(buttonText(window, k), texts[k]);
        QVERIFY(window.infoText()->isReadOnly());
        QCOMPARE(window.windowTitle(), QStringLiteral("Additional Info 1 of 4 - Halley"));
        QCOMPARE(window.infoText()->toPlainText(),
                 QStringLiteral("History of 1st apparision:\n\nApparition 1\nseen"));
        window.showNext();
        QVERIFY(window.infoText()->toPlainText().startsWith(QStringLiteral("History of 2nd apparision:")));
        QTest::mouseClick(window.button(1), Qt::LeftButton);
        QVERIFY(window.infoText()->toPlainText().startsWith(QStringLiteral("History of 3rd apparision:")));
        window.showNext();
        QCOMPARE(window.infoText()->toPlainText(),
                 QStringLiteral("History of 4th apparision:\n\nNo Information Available..."));
        QVERIFY(!window.button(1)->isEnabled());
        QVERIFY(!window.apply());  // nothing to apply here

        int options = 0;
        window.setOptionsHandler([&] { ++options; });
        QTest::mouseClick(window.button(2), Qt::LeftButton);
        QCOMPARE(options, 1);

        testing::TempHome home;
        const std::filesystem::path file = home.root() / "history.txt";
        QString askedTitle, askedFilter;
        window.setSaveFileHook([&](const QString& title, const QString& filter) {
            askedTitle = title;
            askedFilter = filter;
            return QString::fromStdString(file.string());
        });
        QTest::mouseClick(window.button(3), Qt::LeftButton);
        QCOMPARE(askedTitle, QStringLiteral("Additional Info"));
        QCOMPARE(askedFilter, QStringLiteral("Text Files (*.txt);;All Files (*.*)"));
        QCOMPARE(testing::readFile(file), std::string("History of 1st apparision:\r\n\r\nApparition 1\r\nseen\r\n\r\n"
                                                      "History of 2nd apparision:\r\n\r\nApparition 2\r\nseen\r\n\r\n"
                                                      "History of 3rd apparision:\r\n\r\nApparition 3\r\nseen\r\n\r\n"
                                                      "History of 4th apparision:\r\n\r\nNo Information Available..."
                                                      "\r\n\r\n"));
    }

    void aFullLongTextIsShownWhole() {
        RecordArray records;
        records.reset(1);
        records.records[0].set(Field::hinfo, std::string(5010, 'h'));
        ElementsEdit window(RecordMode::additionalInfo, records);
        QCOMPARE(window.infoText()->toPlainText(),
                 QStringLiteral("History of 1st apparision:\n\n") + QString(5010, QLatin1Char('h')));
    }

    void closeClosesTheWindow() {
        ElementsEdit window(RecordMode::editRecord, oneRecord());
        int closed = 0;
        QObject::connect(&window, &ElementsEdit::closed, [&] { ++closed; });
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTest::mouseClick(window.button(4), Qt::LeftButton);
        QVERIFY(!window.isVisible());
        QCOMPARE(closed, 1);
    }

    void aLanguageFileRetitlesTheWindow() {
        testing::TempHome home;
        const std::filesystem::path folder = home.root() / "Languages";
        std::filesystem::create_directories(folder);
        testing::writeFile(folder / "Test.lng",
                           "[orvEdit]\r\n1=Bearbeiten\r\n2=von\r\n6=Anwenden\r\n88=Ohne Namen\r\n"
                           "98=Kometennummer:\r\n138=(AE)\r\n14=Geschichte der\r\n25=.\r\n15=Erscheinung\r\n");
        RecordArray records = goldenRecords();
        records.records[1].set(Field::name, "");
        ElementsEdit window(RecordMode::editRecord, records);
        window.showNext();
        QCOMPARE(window.windowTitle(), QStringLiteral("Edit Record 2 of 2 - No name..."));
        QCOMPARE(LoadLanguage(folder, "Test"), LanguageLoad::fileRead);
        window.retitle();
        QCOMPARE(window.windowTitle(), QStringLiteral("Bearbeiten 2 von 2 - Ohne Namen"));
        QCOMPARE(buttonText(window, 3), QStringLiteral("Anwenden"));
        QCOMPARE(buttonText(window, 2), QStringLiteral("Reset"));
        QStringList labels;
        for (QLabel* label : window.page()->findChildren<QLabel*>()) labels << label->text();
        QVERIFY(labels.contains(QStringLiteral("Kometennummer:")));
        QVERIFY(labels.contains(QStringLiteral("(AE)")));
        QVERIFY(labels.contains(QStringLiteral("Name of comet:")));
        QVERIFY(!labels.contains(QStringLiteral("(AU)")));

        ElementsEdit info(RecordMode::additionalInfo, goldenRecords());
        QVERIFY(info.infoText()->toPlainText().startsWith(QStringLiteral("Geschichte der 1. Erscheinung:")));
    }

    void pictureOfTheWindow() {
        ElementsEdit window(RecordMode::editRecord, goldenRecords());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QString folder = QStringLiteral(ORVANE_BINARY_DIR "/screenshots");
        QDir().mkpath(folder);
        QVERIFY(window.grab().save(folder + QStringLiteral("/record_window.png")));
        window.page()->focusField(Field::hinfo);
        QVERIFY(window.grab().save(folder + QStringLiteral("/record_window_end.png")));

        RecordArray records = goldenRecords();
        records.records[0].set(Field::hinfo, "Discovered on 1978-01-06.\r\nStardust flew by on 2004-01-02.");
        ElementsEdit info(RecordMode::additionalInfo, records);
        info.resize(600, 400);
        info.show();
        QVERIFY(QTest::qWaitForWindowExposed(&info));
        QVERIFY(info.grab().save(folder + QStringLiteral("/record_window_info.png")));
    }
};

QTEST_MAIN(ElementsEditTest)
#include "elements_edit_test.moc"
