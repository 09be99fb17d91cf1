// Options: every control acts as it should and what it sets holds across a restart.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <filesystem>

#include "app/config_file.h"
#include "language/load_language.h"
#include "network_test_support.h"
#include "ui/echeck_window.h"
#include "ui/orvane_options.h"
#include "ui/orvane_update.h"

using namespace orvane;
using namespace orvane::testing;
namespace fs = std::filesystem;

namespace {

// The options window whose messages the test reads.
class ScriptedOptions : public OrvaneOptions {
public:
    using OrvaneOptions::OrvaneOptions;
    QStringList refused;

protected:
    void refuseAddress(const QString& text) override { refused << text; }
};

OrvaneOptions* openOptions(NetworkDesk& desk) {
    desk.window->execute(cmd::kOptions);
    return desk.network->optionsWindow();
}

void writeLanguage(const fs::path& programFolder, const std::string& name, const std::string& body) {
    fs::create_directories(programFolder / "Languages");
    writeFile(programFolder / "Languages" / (name + ".lng"), body);
}

// The next start on the same home: settings as the last run left them.
AppState restart(NetworkDesk& desk) {
    desk.window->close();  // the one save
    AppState next;
    InitialiseProgram(next, desk.server.home.root().string());
    return next;
}

}  // namespace

class OptionsWindowTest : public QObject {
    Q_OBJECT
private slots:
    void theWindowListsTheLanguagesAndSelectsWhatIsInUse() {
        NetworkDesk desk;
        writeLanguage(desk.server.home.root(), "Deutsch", "[orvMenu]\n1=Datei\n");
        writeLanguage(desk.server.home.root(), "Espanol", "[orvMenu]\n1=Archivo\n");
        OrvaneOptions* options = openOptions(desk);
        QCOMPARE(options->size(), QSize(572, 260));
        QCOMPARE(options->windowTitle(), QStringLiteral("Options"));
        auto* languages = control<QComboBox>(*options, 720);
        QStringList names;
        for (int i = 0; i < languages->count(); ++i) names << languages->itemText(i);
        QCOMPARE(names, (QStringList{"Deutsch", "English", "Espanol"}));
        QCOMPARE(languages->currentText(), QStringLiteral("English"));
        QCOMPARE(control<QComboBox>(*options, 726)->currentIndex(), 1);
        QCOMPARE(control<QCheckBox>(*options, 11157)->isChecked(), true);
        QVERIFY(!options->applyButton()->isEnabled());
        QVERIFY(screenshot(*options, QStringLiteral("options")));
        QCOMPARE(languageNames(QStringLiteral("/nonexistent")), QStringList{"English"});
    }

    void everyChangeEnablesApply() {
        NetworkDesk desk;
        writeLanguage(desk.server.home.root(), "Deutsch", "[orvMenu]\n1=Datei\n");
        OrvaneOptions* options = openOptions(desk);
        auto reset = [&] {
            options->applyButton()->setEnabled(false);
        };
        control<QCheckBox>(*options, 11157)->click();
        QVERIFY(options->applyButton()->isEnabled());
        reset();
        control<QComboBox>(*options, 720)->setCurrentIndex(0);
        QVERIFY(options->applyButton()->isEnabled());
        reset();
        QTest::keyClicks(control<QLineEdit>(*options, 11169), "http://x");
        QVERIFY(options->applyButton()->isEnabled());
    }

    void aLanguageRetitlesEveryWindowAtOnceAndHoldsAfterARestart() {
        NetworkDesk desk;
        writeLanguage(desk.server.home.root(), "Deutsch",
                      "[orvMenu]\n1=Datei\n[orvOrvaneOptions]\n1=Einstellungen\n3=Anwenden\n7=Sprache:\n");
        OrvaneOptions* options = openOptions(desk);
        control<QComboBox>(*options, 720)->setCurrentText(QStringLiteral("Deutsch"));
        options->applyButton()->click();
        QCOMPARE(desk.window->menuBar()->actions()[0]->text(), QStringLiteral("Datei"));
        QCOMPARE(options->windowTitle(), QStringLiteral("Einstellungen"));
        QCOMPARE(options->applyButton()->text(), QStringLiteral("Anwenden"));
        QCOMPARE(control<QLabel>(*options, 11163)->text(), QStringLiteral("Sprache:"));
        QVERIFY(!options->applyButton()->isEnabled());
        QVERIFY(screenshot(*options, QStringLiteral("options_after_language")));
        // The language file is written to config.dat at once.
        AppState stored;
        ReadConfigFile(desk.state.folders.userFolder + "config.dat", stored);
        QCOMPARE(QString::fromStdString(stored.languageName), QStringLiteral("Deutsch.lng"));
        options->close();
        const AppState next = restart(desk);
        QCOMPARE(QString::fromStdString(next.languageName), QStringLiteral("Deutsch.lng"));
        QCOMPARE(QString::fromStdString(text(Section::orvMenu, 1)), QStringLiteral("Datei"));
        ResetLanguage();
    }

    void theEphemerisChoiceChangesTheFileTheNextRunUses() {
        NetworkDesk desk;
        fs::copy_file(machinePlanetaryFile(), desk.state.folders.de406Path);
        OrvaneOptions* options = openOptions(desk);
        auto* box = control<QComboBox>(*options, 726);
        QLabel* interval = nullptr;
        for (QLabel* label : options->findChildren<QLabel*>())
            if (label->text().startsWith(QStringLiteral("(from"))) interval = label;
        QVERIFY(interval != nullptr);
        // The span of the file in use, read from its header.
        QCOMPARE(interval->text(), QStringLiteral("(from 1959-12-10 to 2060-01-30)"));
        box->setCurrentIndex(0);
        QVERIFY(options->applyButton()->isEnabled());
        options->applyButton()->click();
        QCOMPARE(desk.state.ephemerisChoice, 1);
        options->close();
        const AppState next = restart(desk);
        QCOMPARE(next.ephemerisChoice, 1);
        QCOMPARE(next.ephemerisMissing, 0);
    }

    void aMissingFileIsDownloadedWhenChosenAndACancelKeepsTheFileInUse() {
        NetworkDesk desk;
        QVERIFY(publishServer(desk.server.folder, {"--de406=" + machinePlanetaryFile().string()}));
        OrvaneOptions* options = openOptions(desk);
        auto* box = control<QComboBox>(*options, 726);
        // Cancel: the box returns to the file in use.
        QTimer::singleShot(0, [] {
            auto* download = qobject_cast<DEDownload*>(QApplication::activeModalWidget());
            QVERIFY(download != nullptr);
            QCOMPARE(download->windowTitle(), QStringLiteral("Files Download"));
            QCOMPARE(control<QPushButton>(*download, 8230)->text(), QStringLiteral("Cancel"));
            QVERIFY(screenshot(*download, QStringLiteral("dedownload")));
            control<QPushButton>(*download, 8230)->click();
        });
        box->setCurrentIndex(0);
        QCOMPARE(box->currentIndex(), 1);
        QVERIFY(!fs::exists(desk.state.folders.de406Path));
        // OK: the file arrives and the choice stays on it.
        QTimer::singleShot(0, [] {
            auto* download = qobject_cast<DEDownload*>(QApplication::activeModalWidget());
            QVERIFY(download != nullptr);
            control<QPushButton>(*download, 8229)->click();
            QTRY_COMPARE_WITH_TIMEOUT(control<QPushButton>(*download, 8230)->text(), QStringLiteral("Close"), 30000);
            control<QPushButton>(*download, 8230)->click();
        });
        box->setCurrentIndex(0);
        QCOMPARE(box->currentIndex(), 0);
        QVERIFY(readFile(desk.state.folders.de406Path) == readFile(machinePlanetaryFile()));
        options->applyButton()->click();
        QCOMPARE(desk.state.ephemerisChoice, 1);
    }

    void switchingTheCheckOnStartsOneCheckWhoseWindowWaitsForTheOptionsToClose() {
        NetworkDesk desk;
        desk.state.checkUpdatesAtStart = 0;
        QVERIFY(desk.showInFront());
        OrvaneOptions* options = openOptions(desk);
        QTRY_VERIFY(!desk.window->freeForUpdates());
        control<QCheckBox>(*options, 11157)->click();
        options->applyButton()->click();
        QCOMPARE(desk.state.checkUpdatesAtStart, 1);
        QTRY_COMPARE_WITH_TIMEOUT(desk.network->marks().checkWaiting.load(), 1, 20000);
        QCOMPARE(desk.server.server->requests("/orvane/files/versinfo.lst"), 1);
        QVERIFY(desk.network->programUpdateWindow() == nullptr);
        options->close();
        QTRY_VERIFY_WITH_TIMEOUT(desk.network->programUpdateWindow() != nullptr, 20000);
        QCOMPARE(desk.server.server->requests("/orvane/files/versinfo.lst"), 2);  // the window's own check
    }

    void switchingTheCheckOffHoldsAfterARestart() {
        NetworkDesk desk;
        OrvaneOptions* options = openOptions(desk);
        control<QCheckBox>(*options, 11157)->click();
        options->applyButton()->click();
        QCOMPARE(desk.state.checkUpdatesAtStart, 0);
        QTest::qWait(200);
        QCOMPARE(desk.server.server->requests("/orvane/files/versinfo.lst"), 0);
        options->close();
        QCOMPARE(restart(desk).checkUpdatesAtStart, 0);
    }

    void theUpdateServerIsStoredAndAnUnusableAddressIsRefused() {
        NetworkDesk desk;
        unsetenv(kServerEnvironment);
        ScriptedOptions options(desk.state, desk.window.get());
        auto* field = control<QLineEdit>(options, 11169);
        QCOMPARE(field->text(), QString());
        QCOMPARE(field->placeholderText(),
                 QString::fromStdString("file://" + desk.state.folders.commonFolder + "Server"));
        QTest::keyClicks(field, "ftp://comets.example.org");
        options.applyButton()->click();
        QCOMPARE(options.refused,
                 QStringList{"The address of the update server begins with http://, https:// or file://"});
        QVERIFY(options.applyButton()->isEnabled());
        QCOMPARE(StoredServerAddress(desk.state.folders.userFolder), std::string());
        field->clear();
        QTest::keyClicks(field, "https://comets.example.org");
        options.applyButton()->click();
        QCOMPARE(options.refused.size(), 1);
        QCOMPARE(StoredServerAddress(desk.state.folders.userFolder), std::string("https://comets.example.org"));
        QCOMPARE(ServerAddress(desk.state.folders.userFolder, desk.state.folders.commonFolder),
                 std::string("https://comets.example.org"));
    }

    void theNetworkCommandsTakeTheNewAddressAtOnce() {
        NetworkDesk desk;
        unsetenv(kServerEnvironment);
        OrvaneOptions* options = openOptions(desk);
        QTest::keyClicks(control<QLineEdit>(*options, 11169), QString::fromStdString(desk.server.address()));
        options->applyButton()->click();
        QCOMPARE(QString::fromUtf8(desk.network->updateBaseAddress()), QString::fromStdString(desk.server.address()));
    }
};

QTEST_MAIN(OptionsWindowTest)
#include "options_window_test.moc"
