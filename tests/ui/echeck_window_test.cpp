// The window before the main window when no planetary file exists.
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <filesystem>

#include "app/app_state.h"
#include "app/config_file.h"
#include "app/startup.h"
#include "support/temp_home.h"
#include "support/test_server.h"
#include "ui/echeck_window.h"

using namespace orvane;

namespace {

template <class T> T* control(QWidget& window, int id) {
    for (T* child : window.findChildren<T*>())
        if (child->property("controlId").toInt() == id) return child;
    return nullptr;
}

// Presses a button of the window that is modal at that moment.
void pressWhenShown(int id) {
    QTimer::singleShot(0, [id] {
        auto* window = qobject_cast<ECheck*>(QApplication::activeModalWidget());
        QVERIFY(window != nullptr);
        QPushButton* button = control<QPushButton>(*window, id);
        QVERIFY(button != nullptr);
        button->click();
    });
}

}  // namespace

class ECheckTest : public QObject {
    Q_OBJECT
private slots:
    void deadDownloadOfTheOnlyFileOpensTheWindowAndExitEndsTheProgram() {
        testing::TempHome home;
        {
            AppState first;
            InitialiseProgram(first, home.root().string());  // makes the folders
            testing::writeFile(first.folders.de423Path, "partial");
            AppState marked;
            marked.pendingEphemerisDelete = 2;
            marked.ephemerisChoice = 2;
            QVERIFY(WriteConfigFile(first.folders.userFolder + "config.dat", marked));
        }
        AppState state;
        InitialiseProgram(state, home.root().string());
        QVERIFY(!std::filesystem::exists(state.folders.de423Path));
        QCOMPARE(state.ephemerisMissing, 1);
        QCOMPARE(state.ephemerisChoice, 0);

        pressWhenShown(8230);
        QVERIFY(!RunEphemerisCheck(state));
        QCOMPARE(state.ephemerisMissing, 1);
    }

    void aFileThatArrivedLetsTheProgramGoOn() {
        testing::TempHome home;
        AppState state;
        InitialiseProgram(state, home.root().string());
        QCOMPARE(state.ephemerisMissing, 1);
        QTimer::singleShot(0, [] {
            auto* window = qobject_cast<ECheck*>(QApplication::activeModalWidget());
            QVERIFY(window != nullptr);
            window->markInstalled(2, 2);
            control<QPushButton>(*window, 8230)->click();
        });
        QVERIFY(RunEphemerisCheck(state));
        QCOMPARE(state.ephemerisChoice, 2);
    }

    void bothBoxesClearedDisableOk() {
        testing::TempHome home;
        AppState state;
        ECheck window(state);
        QCOMPARE(window.size(), QSize(572, 229));
        auto* ok = control<QPushButton>(window, 8229);
        QVERIFY(ok->isEnabled());
        control<QCheckBox>(window, 11165)->setChecked(false);
        QVERIFY(ok->isEnabled());
        control<QCheckBox>(window, 11166)->setChecked(false);
        QVERIFY(!ok->isEnabled());
        control<QCheckBox>(window, 11166)->setChecked(true);
        QVERIFY(ok->isEnabled());
        QCOMPARE(control<QCheckBox>(window, 11165)->text(),
                 QString::fromUtf8("JPL DE406 Planetary and Lunar Ephemerides (190 МБ)"));
    }

    void okWithoutAConnectionShowsTheErrorAndOffersRepeat() {
        testing::TempHome home;
        AppState state;
        InitialiseProgram(state, home.root().string());
        ECheck window(state, {"http://127.0.0.1:" + std::to_string(testing::closedPort()), {}});
        control<QCheckBox>(window, 11165)->setChecked(false);
        control<QPushButton>(window, 8229)->click();
        QTRY_COMPARE(control<QPushButton>(window, 8229)->text(), QStringLiteral("Repeat"));
        QCOMPARE(control<QPushButton>(window, 8230)->text(), QStringLiteral("Exit"));
        QCOMPARE(control<QLabel>(window, 8226)->text(), QStringLiteral("Installation Error..."));
        QCOMPARE(control<QLabel>(window, 8227)->text(),
                 QStringLiteral("Installation Status: Unable to establish internet connection..."));
        QCOMPARE(state.pendingEphemerisDelete, 0);
    }
};

QTEST_MAIN(ECheckTest)
#include "echeck_window_test.moc"
