// On a machine prepared by the setup, a new user's first start goes straight to the
// main window: no window asks for a planetary file.
#include <QApplication>
#include <QTest>
#include <QTimer>

#include <cstdlib>
#include <string>

#include "app/app_state.h"
#include "app/startup.h"
#include "support/temp_home.h"
#include "ui/echeck_window.h"
#include "ui/main_window.h"

using namespace orvane;

class StartupWindowTest : public QObject {
    Q_OBJECT
private slots:
    void firstStartReachesTheMainWindowWithoutAskingForAFile() {
        const char* machineDirs = std::getenv("XDG_DATA_DIRS");
        const std::string keep = machineDirs ? machineDirs : "";
        testing::TempHome home;
        if (machineDirs)
            setenv("XDG_DATA_DIRS", keep.c_str(), 1);
        else
            unsetenv("XDG_DATA_DIRS");

        static AppState state;
        StartupReport report = InitialiseProgram(state, home.root().string());
        QVERIFY(report.firstRun);
        QCOMPARE(state.ephemerisMissing, 0);

        bool askedForAFile = false;
        QTimer::singleShot(0, [&askedForAFile] {
            if (auto* window = qobject_cast<ECheck*>(QApplication::activeModalWidget())) {
                askedForAFile = true;
                window->reject();
            }
        });
        QVERIFY(RunEphemerisCheck(state));
        QCoreApplication::processEvents();
        QVERIFY(!askedForAFile);

        PrepareCatalogue(state, report);
        MainApp window(state);
        window.showAtStoredPlacement();
        QVERIFY(window.isVisible());
        window.close();
    }
};

QTEST_MAIN(StartupWindowTest)
#include "startup_window_test.moc"
