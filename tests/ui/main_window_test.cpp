// The program starts, shows its main window at the stored placement and saves its
// settings when the window is closed.
#include <QApplication>
#include <QTest>
#include <QTimer>

#include <cstdint>
#include <cstring>
#include <filesystem>

#include "app/app_state.h"
#include "app/config_file.h"
#include "app/startup.h"
#include "support/temp_home.h"
#include "ui/main_window.h"

using namespace orvane;

class MainWindowTest : public QObject {
    Q_OBJECT
private slots:
    void startsMaximisedAndSavesOnClose() {
        testing::TempHome home;
        AppState state;
        InitialiseProgram(state, home.root().string());
        const std::string config = state.folders.userFolder + "config.dat";
        std::filesystem::remove(config);

        MainApp window(state);
        window.showAtStoredPlacement();
        QCOMPARE(window.windowTitle(), QStringLiteral("Orvane - Comet Ephemeris Desk"));
        QCOMPARE(window.objectName(), QStringLiteral("MainApp"));
        QVERIFY(window.isMaximized());
        QTimer::singleShot(0, &window, &QWidget::close);
        QTRY_VERIFY(!window.isVisible());

        const std::string bytes = testing::readFile(config);
        QCOMPARE(bytes.size(), std::size_t(107200));
        std::int32_t left = -1;
        std::memcpy(&left, bytes.data() + 5 * 800, 4);
        QCOMPARE(left, 0);
    }

    void storedPlacementIsUsedAndFollowsTheWindow() {
        testing::TempHome home;
        AppState state;
        InitialiseProgram(state, home.root().string());
        state.windowLeft = 40;
        state.windowTop = 30;
        state.windowWidth = 700;
        state.windowHeight = 500;
        MainApp window(state);
        window.showAtStoredPlacement();
        QVERIFY(!window.isMaximized());
        window.close();

        AppState read;
        QCOMPARE(ReadConfigFile(state.folders.userFolder + "config.dat", read), 134);
        QVERIFY(read.windowWidth > 0);
        QVERIFY(read.windowHeight > 0);
    }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
