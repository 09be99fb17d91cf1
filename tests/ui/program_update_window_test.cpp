// Check for Updates: the window, the download of the package, the checksum, and the
// hand-over to the opener.
#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <filesystem>

#include "app/config_file.h"
#include "network_test_support.h"
#include "ui/orvane_update.h"

using namespace orvane;
using namespace orvane::testing;
namespace fs = std::filesystem;

namespace {

QString textOf(QWidget& window, int id) { return control<QLabel>(window, id)->text(); }

}  // namespace

class ProgramUpdateWindowTest : public QObject {
    Q_OBJECT
private slots:
    void checkForUpdatesOffersTheNewVersionAndUpdateHandsTheVerifiedPackageOver() {
        NetworkDesk desk;
        QVERIFY(desk.server.ready);
        RecordingOpener opener(desk.server.home.root());
        QVERIFY(desk.showInFront());
        desk.state.toolbarHidden = 1;  // a setting of this run, written when the installer takes over
        QVERIFY(desk.window->execute(cmd::kCheckForUpdates));
        OrvaneUpdate* window = desk.network->programUpdateWindow();
        QVERIFY(window != nullptr);
        QCOMPARE(window->objectName(), QStringLiteral("OrvaneUpdate"));
        QCOMPARE(window->windowTitle(), QStringLiteral("Check for Updates"));
        QCOMPARE(window->size(), QSize(572, 260));
        QCOMPARE(desk.network->marks().programUpdateWindowOpened.load(), 1);
        QTRY_COMPARE(textOf(*window, 8221), QStringLiteral("Update status: Orvane update is available now..."));
        QCOMPARE(textOf(*window, 8218), QStringLiteral("Installed and available versions of Orvane..."));
        QCOMPARE(textOf(*window, 8219), QStringLiteral("Current version: 0.06"));
        QCOMPARE(textOf(*window, 8220), QStringLiteral("Available version: 0.07"));
        QPushButton* update = control<QPushButton>(*window, 8222);
        QVERIFY(update->isEnabled());
        QVERIFY(update->isDefault());
        QVERIFY(screenshot(*window, QStringLiteral("program_update_available")));

        update->click();
        QTRY_VERIFY_WITH_TIMEOUT(opener.opened(), 20000);
        QCOMPARE(QString::fromStdString(opener.what()),
                 QString::fromStdString(desk.state.folders.userFolder + "orvane-setup.deb"));
        QVERIFY(readFile(desk.state.folders.userFolder + "orvane-setup.deb") == packageBytes());
        QTRY_COMPARE(textOf(*window, 8221), QStringLiteral("Update status: Please wait while the installer will start..."));
        QTRY_VERIFY(control<QPushButton>(*window, 8223)->isEnabled());
        QCOMPARE(textOf(*window, 8219), QStringLiteral("Currently installed version: 0.06"));
        QVERIFY(screenshot(*window, QStringLiteral("program_update_handed_over")));
        // All settings were written, as when the program ends.
        AppState stored;
        ReadConfigFile(desk.state.folders.userFolder + "config.dat", stored);
        QCOMPARE(stored.toolbarHidden, 1);

        const int ended = desk.catalogue->operationsEnded();
        control<QPushButton>(*window, 8223)->click();
        QTRY_VERIFY(desk.network->programUpdateWindow() == nullptr);
        QCOMPARE(desk.catalogue->operationsEnded(), ended + 1);
    }

    void aWrongChecksumNeverReachesTheOpener() {
        NetworkDesk desk;
        RecordingOpener opener(desk.server.home.root());
        writeFile(desk.server.published("files/orvane-setup.deb.sha256"), std::string(64, 'a') + "  orvane-setup.deb\n");
        QVERIFY(desk.window->execute(cmd::kCheckForUpdates));
        OrvaneUpdate* window = desk.network->programUpdateWindow();
        QTRY_VERIFY(control<QPushButton>(*window, 8222)->isEnabled());
        control<QPushButton>(*window, 8222)->click();
        QTRY_COMPARE_WITH_TIMEOUT(textOf(*window, 8221),
                                  QStringLiteral("Update status: The package does not match its checksum and was deleted..."),
                                  20000);
        QVERIFY(screenshot(*window, QStringLiteral("program_update_wrong_checksum")));
        QVERIFY(!opener.opened());
        QVERIFY(!fs::exists(desk.state.folders.userFolder + "orvane-setup.deb"));
        QVERIFY(partialFiles(desk.state.folders.userFolder).empty());
    }

    void whileThePackageComesCloseIsAbortAndTheCloseBoxWaits() {
        NetworkDesk desk;
        RecordingOpener opener(desk.server.home.root());
        desk.server.server->setFault("/orvane/files/orvane-setup.deb", TestServer::Fault::slow);
        desk.server.server->setSlowPace(2048, 50);
        QVERIFY(desk.window->execute(cmd::kCheckForUpdates));
        OrvaneUpdate* window = desk.network->programUpdateWindow();
        QTRY_VERIFY(control<QPushButton>(*window, 8222)->isEnabled());
        control<QPushButton>(*window, 8222)->click();
        QTRY_VERIFY_WITH_TIMEOUT(textOf(*window, 8220).startsWith(QStringLiteral("Update progress: Downloading (")),
                                 20000);
        QPushButton* close = control<QPushButton>(*window, 8223);
        QCOMPARE(close->text(), QStringLiteral("Abort"));
        QCOMPARE(textOf(*window, 8218), QStringLiteral("Please wait..."));
        QVERIFY(window->findChild<QProgressBar*>()->isVisible());
        QVERIFY(screenshot(*window, QStringLiteral("program_update_downloading")));
        QVERIFY(!window->close());
        close->click();
        QTRY_COMPARE_WITH_TIMEOUT(close->text(), QStringLiteral("Close"), 20000);
        QCOMPARE(textOf(*window, 8220), QStringLiteral("Available version: 0.07"));
        QVERIFY(control<QPushButton>(*window, 8222)->isEnabled());
        QVERIFY(!opener.opened());
        QVERIFY(!fs::exists(desk.state.folders.userFolder + "orvane-setup.deb"));
        QVERIFY(partialFiles(desk.state.folders.userFolder).empty());
        QVERIFY(window->close());
    }

    void refusingTheInstallerIsSetupCanceled() {
        NetworkDesk desk;
        RecordingOpener opener(desk.server.home.root(), 1);
        QVERIFY(desk.window->execute(cmd::kCheckForUpdates));
        OrvaneUpdate* window = desk.network->programUpdateWindow();
        QTRY_VERIFY(control<QPushButton>(*window, 8222)->isEnabled());
        control<QPushButton>(*window, 8222)->click();
        QTRY_COMPARE_WITH_TIMEOUT(textOf(*window, 8221), QStringLiteral("Update status: Setup canceled..."), 20000);
        QVERIFY(opener.opened());
        QVERIFY(!fs::exists(desk.state.folders.userFolder + "orvane-setup.deb"));
        QVERIFY(control<QPushButton>(*window, 8222)->isEnabled());
    }
};

QTEST_MAIN(ProgramUpdateWindowTest)
#include "program_update_window_test.moc"
