// The check after start, as the user meets it: a newer program opens the update
// window over the main window; the same, an older or an unreadable version, and a
// server that is down, show nothing; behind another window the check waits until
// that window closes.
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QTest>

#include "network_test_support.h"
#include "ui/orvane_update.h"

using namespace orvane;
using namespace orvane::testing;

namespace {

// No window but the main window, and no message box.
bool onlyTheMainWindow(const NetworkDesk& desk) {
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top != desk.window.get() && top->isVisible() && !qobject_cast<QMenu*>(top)) return false;
    return true;
}

void checkEnds(NetworkDesk& desk) {
    QTRY_VERIFY_WITH_TIMEOUT(!desk.network->check().running(), 20000);
    QTest::qWait(200);  // a window that the check asked for would be open by now
}

}  // namespace

class UpdateCheckWindowTest : public QObject {
    Q_OBJECT
private slots:
    void aNewerVersionOpensTheProgramUpdateWindowAfterTheStart() {
        NetworkDesk desk("0.07");
        QVERIFY(desk.showInFront());
        QCOMPARE(desk.state.checkUpdatesAtStart, 1);
        desk.network->startCheckAtStart();
        QTRY_VERIFY_WITH_TIMEOUT(desk.network->programUpdateWindow() != nullptr, 20000);
        OrvaneUpdate* window = desk.network->programUpdateWindow();
        QVERIFY(window->isVisible());
        QTRY_COMPARE(control<QLabel>(*window, 8221)->text(),
                     QStringLiteral("Update status: Orvane update is available now..."));
        QVERIFY(screenshot(*window, QStringLiteral("update_check_opened_the_window")));
    }

    void theSameAnOlderOrAnUnreadableVersionOpensNothing() {
        for (const char* body : {"0.06\n", "0.05\n", "<html><body>Moved</body></html>"}) {
            NetworkDesk desk;
            writeFile(desk.server.published("files/versinfo.lst"), body);
            QVERIFY(desk.showInFront());
            desk.network->startCheckAtStart();
            checkEnds(desk);
            QVERIFY2(onlyTheMainWindow(desk), body);
            QVERIFY2(desk.network->check().outcome() != UpdateCheckOutcome::programOffered, body);
        }
    }

    void aServerThatIsDownAtStartShowsNothing() {
        NetworkDesk desk;
        setenv(kServerEnvironment, ("http://127.0.0.1:" + std::to_string(closedPort())).c_str(), 1);
        NetworkCommands network(desk.state);
        network.attach(desk.window.get());
        QVERIFY(desk.showInFront());
        network.startCheckAtStart();
        QTRY_VERIFY_WITH_TIMEOUT(!network.check().running(), 20000);
        QTest::qWait(200);
        QCOMPARE(network.check().outcome(), UpdateCheckOutcome::failed);
        QVERIFY(onlyTheMainWindow(desk));
    }

    void theOptionOffChecksNothingAtStart() {
        NetworkDesk desk;
        desk.state.checkUpdatesAtStart = 0;
        QVERIFY(desk.showInFront());
        desk.network->startCheckAtStart();
        QTest::qWait(300);
        QCOMPARE(desk.server.server->requests("/orvane/files/versinfo.lst"), 0);
    }

    void behindAnotherWindowTheCheckWaitsForItToClose() {
        NetworkDesk desk;
        QVERIFY(desk.showInFront());
        QVERIFY(desk.window->execute(cmd::kAbout));
        QTRY_VERIFY(!desk.window->freeForUpdates());
        desk.network->startCheckAtStart();
        QTRY_COMPARE_WITH_TIMEOUT(desk.network->marks().checkWaiting.load(), 1, 20000);
        QTest::qWait(200);
        QVERIFY(desk.network->programUpdateWindow() == nullptr);
        desk.network->aboutWindow()->close();
        QTRY_VERIFY_WITH_TIMEOUT(desk.network->programUpdateWindow() != nullptr, 20000);
    }
};

QTEST_MAIN(UpdateCheckWindowTest)
#include "update_check_window_test.moc"
