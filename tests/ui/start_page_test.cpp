// The Start Page: banner, greeting, the statistics of the catalogue, their refresh
// after a change of the table, and a change of language.
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QTest>

#include <sqlite3.h>

#include <filesystem>
#include <string>

#include "app/app_state.h"
#include "app/startup.h"
#include "support/temp_home.h"
#include "ui/elements_page.h"
#include "language/language_table.h"
#include "language/load_language.h"
#include "ui/main_window.h"
#include "ui/start_page.h"

using namespace orvane;

namespace {

void execute(const std::string& database, const std::string& sql) {
    sqlite3* handle = nullptr;
    QCOMPARE(sqlite3_open(database.c_str(), &handle), SQLITE_OK);
    QCOMPARE(sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(handle);
}

struct Fixture {
    testing::TempHome home;
    AppState state;
    std::string database;
    Fixture() {
        StartupReport report = InitialiseProgram(state, home.root().string());
        database = state.folders.userFolder + "orvane.db";
        // Three catalogue records, then the update marker, then one of the user's.
        execute(database,
                "insert into elements(comet,name,des,htype) values(1,'Halley','','P');"
                "insert into elements(comet,name,des,htype) values(2,'Encke','','P');"
                "insert into elements(comet,name,des,htype) values('','Hale-Bopp','1995 O1','C');"
                "update parameters set value='3' where id=4;"
                "insert into elements(comet,name,des,htype) values('','','2024 Z9','C');");
        PrepareCatalogue(state, report);
    }
};

void saveScreenshot(QWidget& widget, const QString& name) {
    const QString folder = QStringLiteral(ORVANE_BINARY_DIR "/screenshots");
    QDir().mkpath(folder);
    QVERIFY(widget.grab().save(folder + "/" + name));
}

const QString kStatistics = QStringLiteral(
    "A database of cometary orbits contains 4 entries of 4 comets, among them:\n"
    "Numbered periodic comets: 2\n"
    "Long-period and unnumbered short- and intermediate-period comets: 2\n"
    "Entries added by the user: 1\n"
    "Last added comets: C/2024 Z9, C/1995 O1 (Hale-Bopp), 2P/Encke, 1P/Halley");

}  // namespace

class StartPageTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { ResetLanguage(); }

    void showsTheStatisticsOfTheCatalogue() {
        Fixture f;
        StartPageApp page(f.state, nullptr);
        QCOMPARE(page.objectName(), QStringLiteral("StartPageApp"));
        QCOMPARE(page.page()->objectName(), QStringLiteral("StartPagePage"));
        QCOMPARE(page.output()->objectName(), QStringLiteral("StartPageOutput"));
        QVERIFY(page.output()->isReadOnly());
        QCOMPARE(page.statisticsText(), kStatistics);
    }

    void theTextStandsBelowTheGreeting() {
        Fixture f;
        StartPageApp page(f.state, nullptr);
        page.resize(1100, 600);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        QCOMPARE(page.output()->y(), page.page()->outputTop());
        QVERIFY(page.page()->outputTop() > 124);
        QCOMPARE(page.output()->x(), 20);
        QCOMPARE(StartPagePage::bannerImage().size(), QSize(996, 99));
        const QImage shot = page.grab().toImage();
        // The band below the banner, its white line, and the banner's right.
        QCOMPARE(shot.pixelColor(1050, 50), QColor(230, 232, 245));
        QCOMPARE(shot.pixelColor(500, 101), QColor(Qt::white));
        QCOMPARE(shot.pixelColor(1050, 110), QColor(230, 232, 245));
        // A click on the page gives the focus to the text.
        QTest::mouseClick(page.page(), Qt::LeftButton, {}, QPoint(600, 110));
        QTRY_VERIFY(page.output()->hasFocus());
        saveScreenshot(page, QStringLiteral("start_page.png"));
    }

    void aChangeOfTheTableRefreshesBothPages() {
        Fixture f;
        MainApp window(f.state);
        execute(f.database, "insert into elements(comet,name,des,htype) values(81,'Wild','','P');");
        QCOMPARE(window.startPage()->statisticsText(), kStatistics);
        window.refreshBriefInfo();
        QVERIFY(window.startPage()->statisticsText().startsWith(
            QStringLiteral("A database of cometary orbits contains 5 entries of 5 comets, among them:\n"
                           "Numbered periodic comets: 3\n")));
        QVERIFY(window.startPage()->statisticsText().contains(
            QStringLiteral("Entries added by the user: 2\nLast added comets: 81P/Wild, C/2024 Z9,")));
        QLabel* users = nullptr;
        for (QLabel* label : window.workPane()->findChildren<QLabel*>())
            if (label->property("controlId").toInt() == 887) users = label;
        QVERIFY(users != nullptr);
        QCOMPARE(users->text(), QStringLiteral("Entries added by the user: 2"));
    }

    void aLanguageChangeRetitlesTheText() {
        Fixture f;
        StartPageApp page(f.state, nullptr);
        const std::filesystem::path folder = f.home.root() / "Languages";
        std::filesystem::create_directories(folder);
        testing::writeFile(folder / "Test.lng", "[orvBriefInfo]\n4=Nummerierte periodische Kometen:\n");
        QCOMPARE(LoadLanguage(folder, "Test.lng"), LanguageLoad::fileRead);
        page.retitle();
        QVERIFY(page.statisticsText().contains(QStringLiteral("\nNummerierte periodische Kometen: 2\n")));
    }

    void screenshotOfTheMainWindowWithACatalogue() {
        Fixture f;
        MainApp window(f.state);
        window.resize(1200, 820);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        saveScreenshot(window, QStringLiteral("main_window_with_catalogue.png"));
        window.showPage(Page::orbits);
        QApplication::processEvents();
        saveScreenshot(window, QStringLiteral("main_window_orbits_with_catalogue.png"));
    }
};

QTEST_MAIN(StartPageTest)
#include "start_page_test.moc"
