// A new user without a planetary file: ECheck downloads it from the update server
// and the program goes on into the main window with it.
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <filesystem>

#include "app/config_file.h"
#include "network_test_support.h"
#include "ui/echeck_window.h"

using namespace orvane;
using namespace orvane::testing;
namespace fs = std::filesystem;

namespace {

constexpr const char* kDe423 = "/orvane/OrvaneData/Ephemerides/jplde423.dat";

// Runs `script` on the ECheck window once it is the modal window.
template <class Script>
void whenECheckShows(Script script) {
    QTimer::singleShot(0, [script] {
        auto* window = qobject_cast<ECheck*>(QApplication::activeModalWidget());
        QVERIFY(window != nullptr);
        script(*window);
    });
}

struct NewUser {
    NewUser() {
        ResetLanguage();
        setenv(kServerEnvironment, server.address().c_str(), 1);
        report = InitialiseProgram(state, server.home.root().string());
    }
    ~NewUser() { unsetenv(kServerEnvironment); }
    PublishedServer server;
    AppState state;
    StartupReport report;
};

}  // namespace

class ECheckDownloadTest : public QObject {
    Q_OBJECT
private slots:
    void aNewUserDownloadsTheFileAndReachesTheMainWindow() {
        NewUser user;
        QVERIFY(user.server.ready);
        QCOMPARE(user.state.ephemerisMissing, 1);
        // Slow enough to see the progress, quick enough for a test.
        user.server.server->setFault(kDe423, TestServer::Fault::slow);
        user.server.server->setSlowPace(128 * 1024, 20);
        bool sawProgress = false;
        whenECheckShows([&](ECheck& window) {
            QCOMPARE(window.size(), QSize(572, 229));
            QVERIFY(screenshot(window, QStringLiteral("echeck_first_start")));
            control<QCheckBox>(window, 11165)->setChecked(false);  // DE406: not on this server
            control<QPushButton>(window, 8229)->click();
            QCOMPARE(window.size(), QSize(572, 260));
            QTRY_VERIFY_WITH_TIMEOUT(control<QLabel>(window, 8227)->text().startsWith(
                                         QStringLiteral("Installation progress: Downloading JPL DE423 (")),
                                     20000);
            QCOMPARE(control<QPushButton>(window, 8230)->text(), QStringLiteral("Abort"));
            QVERIFY(!control<QPushButton>(window, 8229)->isEnabled());
            QVERIFY(screenshot(window, QStringLiteral("echeck_downloading")));
            sawProgress = true;
            QTRY_COMPARE_WITH_TIMEOUT(control<QPushButton>(window, 8230)->text(), QStringLiteral("Skip"), 30000);
            QCOMPARE(control<QLabel>(window, 8226)->text(), QStringLiteral("Installation Status: Ready..."));
            QCOMPARE(control<QLabel>(window, 8227)->text(),
                     QStringLiteral("Installation progress: Downloading JPL DE423 (8 MB / 8 MB)"));
            QVERIFY(screenshot(window, QStringLiteral("echeck_ready")));
            control<QPushButton>(window, 8230)->click();
        });
        QVERIFY(RunEphemerisCheck(user.state));
        QVERIFY(sawProgress);
        QCOMPARE(user.state.ephemerisMissing, 0);
        QCOMPARE(user.state.ephemerisChoice, 2);
        QVERIFY(readFile(user.state.folders.de423Path) == readFile(machinePlanetaryFile()));
        QVERIFY(partialFiles(user.state.folders.commonFolder).empty());
        AppState stored;
        ReadConfigFile(user.state.folders.userFolder + "config.dat", stored);
        QCOMPARE(stored.pendingEphemerisDelete, 0);

        PrepareCatalogue(user.state, user.report);
        MainApp window(user.state);
        window.showAtStoredPlacement();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.close();
        // The next start finds the file and asks for nothing.
        AppState next;
        InitialiseProgram(next, user.server.home.root().string());
        QCOMPARE(next.ephemerisMissing, 0);
        QCOMPARE(next.ephemerisChoice, 2);
    }

    void abortLeavesNothingAndOffersTheChoiceAgain() {
        NewUser user;
        user.server.server->setFault(kDe423, TestServer::Fault::slow);
        user.server.server->setSlowPace(8192, 20);
        whenECheckShows([&](ECheck& window) {
            control<QCheckBox>(window, 11165)->setChecked(false);
            control<QPushButton>(window, 8229)->click();
            QTRY_COMPARE_WITH_TIMEOUT(control<QPushButton>(window, 8230)->text(), QStringLiteral("Abort"), 20000);
            // The close box does nothing while the file comes.
            QVERIFY(!window.close());
            control<QPushButton>(window, 8230)->click();
            QTRY_COMPARE_WITH_TIMEOUT(control<QPushButton>(window, 8230)->text(), QStringLiteral("Exit"), 20000);
            QVERIFY(control<QCheckBox>(window, 11166)->isVisible());
            QCOMPARE(control<QLabel>(window, 8225)->text(),
                     QStringLiteral("You need to download at least one of the files..."));
            QVERIFY(!fs::exists(user.state.folders.de423Path));
            QVERIFY(partialFiles(user.state.folders.commonFolder).empty());
            control<QPushButton>(window, 8230)->click();
        });
        QVERIFY(!RunEphemerisCheck(user.state));
        QCOMPARE(user.state.ephemerisMissing, 1);
    }

    void aFailureOnTheSecondFileOffersSkipToTheMainWindowWithTheFirst() {
        NewUser user;
        QVERIFY(publishServer(user.server.folder, {"--de406=" + machinePlanetaryFile().string()}));
        user.server.server->setFault(kDe423, TestServer::Fault::notFound);
        whenECheckShows([&](ECheck& window) {
            control<QPushButton>(window, 8229)->click();
            QTRY_COMPARE_WITH_TIMEOUT(control<QPushButton>(window, 8229)->text(), QStringLiteral("Repeat"), 30000);
            QCOMPARE(control<QPushButton>(window, 8230)->text(), QStringLiteral("Skip"));
            QCOMPARE(control<QLabel>(window, 8226)->text(), QStringLiteral("Installation Error..."));
            QCOMPARE(control<QLabel>(window, 8227)->text(),
                     QStringLiteral("Installation Status: Administrative error, try to download later..."));
            QVERIFY(!control<QCheckBox>(window, 11165)->isVisible());
            QVERIFY(control<QCheckBox>(window, 11166)->isVisible());
            QVERIFY(screenshot(window, QStringLiteral("echeck_second_file_failed")));
            control<QPushButton>(window, 8230)->click();
        });
        QVERIFY(RunEphemerisCheck(user.state));
        QCOMPARE(user.state.ephemerisChoice, 1);
        QVERIFY(fs::exists(user.state.folders.de406Path));
    }
};

QTEST_MAIN(ECheckDownloadTest)
#include "echeck_download_test.moc"
