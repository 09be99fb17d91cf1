// The commands of the Help and Tools menus that reach the network and the desktop,
// and the rule that no command of the main window is enabled and silent.
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>

#include "network_test_support.h"
#include "ui/about_window.h"
#include "ui/orvane_options.h"

using namespace orvane;
using namespace orvane::testing;
using G = CommandGroup;

class NetworkCommandsTest : public QObject {
    Q_OBJECT
private slots:
    void noEnabledCommandIsSilent() {
        NetworkDesk desk;
        // The engines of the program as it stands: no task window, no catalogue update.
        for (const Page page : {Page::startPage, Page::orbits, Page::observations}) {
            desk.window->showPage(page);
            for (std::size_t k = 0; k < kCommandGroupCount; ++k) {
                const auto group = static_cast<CommandGroup>(k);
                if (!desk.window->flags().enabled(group)) continue;
                const bool frame = group == G::workPane || group == G::outputPane || group == G::toolbar ||
                                   group == G::helpTopics || group == G::homePage || group == G::exit;
                QVERIFY2(frame || desk.router.handles(group), qPrintable(QString::number(k)));
            }
        }
        desk.window->showPage(Page::orbits);
        QVERIFY(!desk.window->flags().enabled(G::updateDatabase));
        QVERIFY(!desk.window->action(cmd::kUpdateDatabase)->isEnabled());
        QVERIFY(!desk.window->action(cmd::kUpdateDatabaseButton)->isEnabled());
        for (G g : {G::importRecords, G::add, G::options, G::about, G::checkForUpdates, G::homePage, G::helpTopics})
            QVERIFY(desk.window->flags().enabled(g));
    }

    void homePageOpensTheServersProductFolder() {
        NetworkDesk desk;
        RecordingOpener opener(desk.server.home.root());
        QVERIFY(desk.window->execute(cmd::kHomePage));
        QTRY_VERIFY(opener.opened());
        QCOMPARE(QString::fromStdString(opener.what()), QString::fromStdString(desk.server.address() + "/orvane/"));
    }

    void helpTopicsAndF1OpenTheUsersGuide() {
        NetworkDesk desk;
        RecordingOpener opener(desk.server.home.root());
        // The viewer of ORVANE_OPENER is taken when the window is made.
        MainApp window(desk.state, &desk.router);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTest::keyClick(&window, Qt::Key_F1);
        QTRY_VERIFY(opener.opened());
        QCOMPARE(QString::fromStdString(opener.what()),
                 QString::fromStdString(desk.server.home.root().string() + "/Help/index.html"));
    }

    void theGuideShipsBesideTheProgramAndCoversEachSubject() {
        QFile guide(QStringLiteral(ORVANE_BINARY_DIR "/app/Help/index.html"));
        QVERIFY(guide.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(guide.readAll());
        for (const char* heading : {"First start", "Bringing comets into the catalogue", "Searching the catalogue",
                                    "Ephemerides", "Close approaches", "Orbit diagrams",
                                    "Updates and the update server", "Settings", "The command-line tool"})
            QVERIFY2(text.contains(QString::fromLatin1(heading)), heading);
    }

    void optionsAboutAndCheckForUpdatesOpenTheirWindows() {
        NetworkDesk desk;
        QVERIFY(desk.window->execute(cmd::kOptions));
        QVERIFY(desk.network->optionsWindow() != nullptr);
        QCOMPARE(desk.network->optionsWindow()->objectName(), QStringLiteral("OrvaneOptions"));
        desk.network->optionsWindow()->close();
        QTRY_VERIFY(desk.network->optionsWindow() == nullptr);
        QVERIFY(desk.window->execute(cmd::kAbout));
        QVERIFY(desk.network->aboutWindow() != nullptr);
        QCOMPARE(desk.network->aboutWindow()->objectName(), QStringLiteral("About"));
        desk.network->aboutWindow()->close();
        QTRY_VERIFY(desk.network->aboutWindow() == nullptr);
        QVERIFY(desk.window->execute(cmd::kCheckForUpdates));
        QVERIFY(desk.network->programUpdateWindow() != nullptr);
    }

    void aboutShowsTheVersionAndTheRealSpanOfThePlanetaryFile() {
        NetworkDesk desk;
        QVERIFY(desk.window->execute(cmd::kAbout));
        QDialog* about = desk.network->aboutWindow();
        QCOMPARE(about->windowTitle(), QStringLiteral("About Orvane"));
        QCOMPARE(about->size(), QSize(572, 290));
        QStringList lines;
        for (QLabel* label : about->findChildren<QLabel*>()) lines << label->text();
        QVERIFY(lines.contains(QStringLiteral("Orvane - Comet Ephemeris Desk")));
        QVERIFY(lines.contains(QStringLiteral("Version: 0.06")));
        QVERIFY2(lines.contains(QStringLiteral("Planetary file: jplde423.dat (from 1959-12-10 to 2060-01-30)")),
                 qPrintable(lines.join('|')));
        const QString libraries = about->findChild<QPlainTextEdit*>(QStringLiteral("Libraries"))->toPlainText();
        for (const char* name : {"Qt ", "SQLite ", "libcurl ", "OpenSSL "})
            QVERIFY2(libraries.contains(QString::fromLatin1(name)), name);
        QVERIFY(screenshot(*about, QStringLiteral("about")));
    }
};

QTEST_MAIN(NetworkCommandsTest)
#include "network_commands_test.moc"
