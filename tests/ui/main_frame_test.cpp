// The frame of the main window: menus, toolbar, tabs, status bar, the enable flags of
// the commands by page, the pane toggles, the accelerators, help, the two messages
// that other windows send, and a change of language.
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QStatusBar>
#include <QTest>
#include <QToolTip>
#include <QToolBar>
#include <QToolButton>

#include <filesystem>
#include <vector>

#include "app/app_state.h"
#include "app/startup.h"
#include "support/temp_home.h"
#include "ui/commands.h"
#include "ui/elements_app.h"
#include "ui/elements_page.h"
#include "language/language_table.h"
#include "language/load_language.h"
#include "ui/main_window.h"
#include "ui/my_tab.h"
#include "ui/splitter.h"

using namespace orvane;

namespace {

class RecordingCommands : public MainCommands {
public:
    void run(CommandGroup group) override { ran.push_back(group); }
    void openPendingUpdateWindow() override { ++updateWindows; }
    void operationEnded() override { ++ended; }
    std::vector<CommandGroup> ran;
    int updateWindows = 0;
    int ended = 0;
};

struct Fixture {
    testing::TempHome home;
    AppState state;
    Fixture() { InitialiseProgram(state, home.root().string()); }
};

QStringList itemTexts(QMenu* menu) {
    QStringList texts;
    for (QAction* a : menu->actions()) texts << (a->isSeparator() ? QStringLiteral("-") : a->text());
    return texts;
}

QList<int> itemIds(QMenu* menu) {
    QList<int> ids;
    for (QAction* a : menu->actions()) ids << (a->isSeparator() ? 0 : a->property("controlId").toInt());
    return ids;
}

void saveScreenshot(QWidget& widget, const QString& name) {
    const QString folder = QStringLiteral(ORVANE_BINARY_DIR "/screenshots");
    QDir().mkpath(folder);
    QVERIFY(widget.grab().save(folder + "/" + name));
}

}  // namespace

class MainFrameTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { ResetLanguage(); }

    void menusCarryTheirIdsAndTexts() {
        Fixture f;
        MainApp window(f.state);
        const QList<QAction*> top = window.menuBar()->actions();
        QCOMPARE(top.size(), 5);
        QStringList titles;
        for (QAction* a : top) titles << a->text();
        QCOMPARE(titles, (QStringList{"File", "Edit", "View", "Tools", "Help"}));

        QCOMPARE(itemTexts(top[0]->menu()), (QStringList{"Save As...", "-", "Import", "Export", "-", "Exit"}));
        QCOMPARE(itemIds(top[0]->menu()), (QList<int>{30079, 0, 30242, 30243, 0, 30044}));
        QCOMPARE(itemIds(top[1]->menu()), (QList<int>{30076}));
        QCOMPARE(itemTexts(top[2]->menu()), (QStringList{"Work pane", "Output pane", "-", "Toolbar"}));
        QCOMPARE(itemIds(top[2]->menu()), (QList<int>{30313, 30054, 0, 30055}));
        QCOMPARE(itemTexts(top[3]->menu()),
                 (QStringList{"Search...", "-", "Add New Record...", "Edit Record...", "Duplicate Record...",
                              "Delete Record...", "-", "Additional Info...", "-", "Tasks", "Update Database", "-",
                              "Options..."}));
        QCOMPARE(itemIds(top[3]->menu()),
                 (QList<int>{30096, 0, 30118, 30099, 30251, 30100, 0, 30252, 0, 0, 30261, 0, 30097}));
        QCOMPARE(top[3]->menu()->actions()[9]->menu(), window.taskMenu());
        QCOMPARE(itemTexts(top[4]->menu()), (QStringList{"Help Topics", "-", "Orvane Home Page",
                                                         "Check for Updates...", "-", "About Orvane..."}));
        QCOMPARE(itemIds(top[4]->menu()), (QList<int>{30257, 0, 30259, 30260, 0, 30258}));

        QCOMPARE(itemIds(window.taskMenu()), (QList<int>{30322, 0, 30323, 0, 30324}));
        QCOMPARE(itemTexts(window.taskMenu()),
                 (QStringList{"Orbit Diagrams", "-", "Ephemerides", "-", "Close Approaches"}));
        QCOMPARE(itemIds(window.taskDropMenu()), (QList<int>{30275, 0, 30255, 0, 30285}));
        QCOMPARE(itemIds(window.listContextMenu()),
                 (QList<int>{30262, 30263, 0, 30268, 0, 30265, 30264, 30266, 30267, 0, 30269, 0}));
        QCOMPARE(window.listContextMenu()->actions().last()->text(), QStringLiteral("Tasks"));
        // Menu texts are the table's alone: the accelerators are not written into them.
        QCOMPARE(window.action(30079)->shortcut(), QKeySequence());
    }

    void toolbarTipsAreAtMostTwoHundredPixelsWide() {
        QCOMPARE(toolbarTipText(QStringLiteral("Search")), QStringLiteral("Search"));
        const QString tip = QStringLiteral("Hide the work pane with the search forms & the columns of the list");
        QVERIFY(QFontMetrics(QToolTip::font()).horizontalAdvance(tip) > 200);
        const QString wrapped = toolbarTipText(tip);
        const QStringList lines = wrapped.split(QLatin1Char('\n'));
        QVERIFY(lines.size() >= 2);
        QCOMPARE(lines.join(QLatin1Char(' ')), tip);
        for (const QString& line : lines) QVERIFY(QFontMetrics(QToolTip::font()).horizontalAdvance(line) <= 200);
    }

    void toolbarHasItsButtonsTipsAndTaskDropDown() {
        Fixture f;
        MainApp window(f.state);
        QList<int> ids;
        for (QAction* a : window.toolbar()->actions()) ids << (a->isSeparator() ? 0 : a->property("controlId").toInt());
        QCOMPARE(ids, (QList<int>{30010, 0, 30196, 30194, 30195, 30198, 0, 30289, 0, 30284, 0, 30231, 30232, 0,
                                  30201, 30203, 0, 30230, 30311, 0, 30012, 30011}));
        QCOMPARE(window.action(30010)->text(), QStringLiteral("Search"));
        QCOMPARE(window.action(30196)->toolTip(), QStringLiteral("Add New Record"));
        QCOMPARE(window.action(30284)->toolTip(), QStringLiteral("Save As"));
        QCOMPARE(window.action(30311)->toolTip(), QStringLiteral("Options"));
        QCOMPARE(window.action(30012)->toolTip(), QStringLiteral("Hide Work pane"));
        QCOMPARE(window.action(30011)->toolTip(), QStringLiteral("Hide Output pane"));
        QVERIFY(window.taskButton() != nullptr);
        QCOMPARE(window.taskButton()->popupMode(), QToolButton::MenuButtonPopup);
        QCOMPARE(window.taskButton()->menu(), window.taskDropMenu());
        QCOMPARE(window.action(30203)->text(), QStringLiteral("Orbit Diagrams"));
    }

    void tabsStatusBarAndPages() {
        Fixture f;
        MainApp window(f.state);
        QCOMPARE(window.tabs()->objectName(), QStringLiteral("MyTab"));
        QCOMPARE(window.tabs()->count(), 5);
        QCOMPARE(window.tabs()->tabText(0), QStringLiteral("Start Page"));
        QCOMPARE(window.tabs()->tabText(1), QStringLiteral("Orbits"));
        QCOMPARE(window.tabs()->tabText(2), QStringLiteral("Observations"));
        QCOMPARE(window.tabs()->tabText(3), QStringLiteral("Preliminary Orbit"));
        QCOMPARE(window.tabs()->tabText(4), QStringLiteral("Orbit Improvement"));
        QCOMPARE(window.currentPage(), Page::startPage);
        QCOMPARE(window.statusText(1), QStringLiteral("Ready"));
        QCOMPARE(window.progressBar()->size(), QSize(94, 20));
        QVERIFY(window.findChild<QWidget*>("StartPageApp") != nullptr);
        QVERIFY(window.findChild<QWidget*>("ElementsApp") != nullptr);
        QVERIFY(window.findChild<QWidget*>("ElementsPage") != nullptr);
        QVERIFY(window.findChild<QWidget*>("ElementsOutput") != nullptr);
        QVERIFY(window.findChild<QWidget*>("SplitterApp") != nullptr);

        // Each page keeps its own status; it comes back with the page.
        window.showPage(Page::orbits);
        window.setPageStatus(Page::orbits, 15);
        QCOMPARE(window.statusText(1), QStringLiteral("Search Results: No Matches found"));
        window.tabs()->setCurrentIndex(0);
        QCOMPARE(window.currentPage(), Page::startPage);
        QCOMPARE(window.statusText(1), QStringLiteral("Ready"));
        window.tabs()->setCurrentIndex(1);
        QCOMPARE(window.statusText(1), QStringLiteral("Search Results: No Matches found"));
        window.tabs()->setCurrentIndex(2);
        QCOMPARE(window.currentPage(), Page::observations);
    }

    void hoverOverTheTabsTellsWhereAClickLeads() {
        Fixture f;
        MainApp window(f.state);
        window.resize(1000, 700);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        MyTab* tabs = window.tabs();
        QTest::mouseMove(tabs, tabs->tabRect(1).center());
        QTRY_COMPARE(window.statusText(1), QStringLiteral("Move to Orbits..."));
        QTest::mouseMove(tabs, tabs->tabRect(0).center());
        QTRY_COMPARE(window.statusText(1), QStringLiteral("Start Page"));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(tabs, &leave);
        QCOMPARE(window.statusText(1), QStringLiteral("Ready"));
        QCOMPARE(tabs->hoveredTab(), -1);
    }

    void pageRulesSetTheFlagsOnMenuAndToolbar() {
        Fixture f;
        MainApp window(f.state);
        const EnableFlags& flags = window.flags();
        using G = CommandGroup;
        // Start Page.
        QVERIFY(flags.enabled(G::saveAs));
        for (G g : {G::importRecords, G::exportRecords, G::search, G::add, G::edit, G::duplicate, G::remove,
                    G::additionalInfo, G::tasks, G::orbitDiagrams, G::updateDatabase, G::selectAll})
            QVERIFY(!flags.enabled(g));
        for (G g : {G::options, G::about, G::helpTopics, G::exit, G::toolbar}) QVERIFY(flags.enabled(g));
        QVERIFY(!window.action(30242)->isEnabled());
        QVERIFY(!window.action(30231)->isEnabled());
        QVERIFY(window.action(30079)->isEnabled());
        QVERIFY(window.action(30284)->isEnabled());

        window.showPage(Page::orbits);
        for (G g : {G::importRecords, G::add, G::updateDatabase}) QVERIFY(flags.enabled(g));
        for (G g : {G::exportRecords, G::edit, G::duplicate, G::remove, G::additionalInfo, G::tasks, G::saveAs,
                    G::selectAll, G::search})
            QVERIFY(!flags.enabled(g));
        for (int id : {30118, 30196, 30265, 30231, 30242, 30230, 30261}) QVERIFY(window.action(id)->isEnabled());
        for (int id : {30079, 30284, 30262, 30203, 30322, 30275, 30010, 30096}) QVERIFY(!window.action(id)->isEnabled());

        // The list enables the commands of its selection; Export stays on when the
        // page changes to one whose rule does not name it.
        window.setCommandEnabled(G::exportRecords, true);
        QVERIFY(window.action(30232)->isEnabled());
        QVERIFY(window.action(30263)->isEnabled());
        window.showPage(Page::observations);
        for (G g : {G::search, G::add, G::edit, G::duplicate, G::remove, G::additionalInfo, G::tasks,
                    G::updateDatabase})
            QVERIFY(!flags.enabled(g));
        QVERIFY(flags.enabled(G::exportRecords));
        QVERIFY(flags.enabled(G::importRecords));
    }

    void ctrlF1OnTheStartPageDoesNothing() {
        Fixture f;
        RecordingCommands commands;
        MainApp window(f.state, &commands);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        f.state.lastTask = 1;
        QTest::keyClick(&window, Qt::Key_F1, Qt::ControlModifier);
        QVERIFY(commands.ran.empty());
        QCOMPARE(f.state.lastTask, 1);
        QVERIFY(!window.execute(30322));
        QVERIFY(commands.ran.empty());
    }

    void aTaskChosenIsMarkedInBothMenusAndRuns() {
        Fixture f;
        RecordingCommands commands;
        MainApp window(f.state, &commands);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.showPage(Page::orbits);
        window.setCommandEnabled(CommandGroup::tasks, true);
        window.setCommandEnabled(CommandGroup::orbitDiagrams, true);
        window.setCommandEnabled(CommandGroup::ephemerides, true);
        window.setCommandEnabled(CommandGroup::closeApproaches, true);
        QTest::keyClick(&window, Qt::Key_F2, Qt::ControlModifier);
        QCOMPARE(commands.ran, (std::vector<CommandGroup>{CommandGroup::ephemerides}));
        QCOMPARE(f.state.lastTask, 1);
        QVERIFY(window.action(30323)->isChecked());
        QVERIFY(window.action(30255)->isChecked());
        QVERIFY(!window.action(30322)->isChecked());
        QCOMPARE(window.action(30203)->text(), QStringLiteral("Ephemerides"));
        window.action(30285)->trigger();
        QCOMPARE(f.state.lastTask, 2);
        QCOMPARE(window.action(30203)->text(), QStringLiteral("Close Approaches"));
        QVERIFY(window.action(30324)->isChecked());
        // A click on the button itself runs the task that is marked.
        window.action(30203)->trigger();
        QCOMPARE(commands.ran, (std::vector<CommandGroup>{CommandGroup::ephemerides, CommandGroup::closeApproaches,
                                                          CommandGroup::closeApproaches}));
    }

    void workPaneHiddenDisablesTheOutputPaneToggle() {
        Fixture f;
        MainApp window(f.state);
        window.resize(1000, 700);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.showPage(Page::orbits);
        QVERIFY(window.execute(30313));
        QCOMPARE(f.state.workPaneHidden, 1);
        QVERIFY(!window.action(30313)->isChecked());
        QCOMPARE(window.action(30012)->toolTip(), QStringLiteral("Show Work pane"));
        QVERIFY(!window.action(30054)->isEnabled());
        QVERIFY(!window.action(30011)->isEnabled());
        QVERIFY(!window.execute(30011));
        QCOMPARE(f.state.outputPaneHidden, 0);
        QVERIFY(!window.workPane()->isVisible());
        QVERIFY(window.orbitsPage()->outputPane()->isVisible());
        QCOMPARE(window.orbitsPage()->outputPane()->width(), window.orbitsPage()->width());

        // The work pane returns by its accelerator, and the output toggle with it.
        QTest::keyClick(&window, Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(f.state.workPaneHidden, 0);
        QVERIFY(window.action(30054)->isEnabled());
        QVERIFY(window.execute(30054));
        QCOMPARE(f.state.outputPaneHidden, 1);
        QVERIFY(!window.action(30313)->isEnabled());
        QCOMPARE(window.action(30011)->toolTip(), QStringLiteral("Show Output pane"));
        QCOMPARE(window.workPane()->width(), window.orbitsPage()->width());
    }

    void theSplitterMovesThePanesAndKeepsItsPlace() {
        Fixture f;
        MainApp window(f.state);
        window.resize(1000, 700);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.showPage(Page::orbits);
        SplitterApp* bar = window.orbitsPage()->splitter();
        QCOMPARE(bar->x(), 500);
        QCOMPARE(window.workPane()->width(), 500);
        QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(2, 50));
        QTest::mouseMove(bar, QPoint(-98, 50));
        QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(-98, 50));
        QCOMPARE(f.state.splitterPosition, 400);
        QCOMPARE(window.workPane()->width(), 400);
        QCOMPARE(window.orbitsPage()->outputPane()->x(), 400 + SplitterApp::kWidth);
        // Never beyond the page.
        QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(2, 50));
        QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(5000, 50));
        QCOMPARE(f.state.splitterPosition, window.orbitsPage()->width() - SplitterApp::kWidth);
    }

    void toolbarToggleHidesTheBand() {
        Fixture f;
        MainApp window(f.state);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(window.execute(30055));
        QCOMPARE(f.state.toolbarHidden, 1);
        QVERIFY(!window.toolbar()->isVisible());
        QVERIFY(!window.action(30055)->isChecked());
        QVERIFY(window.execute(30055));
        QVERIFY(window.toolbar()->isVisible());
    }

    void aSecondHelpTopicsWhileTheViewerIsOpenDoesNothing() {
        Fixture f;
        MainApp window(f.state);
        window.helpViewer().setViewer(QStringLiteral("/bin/sleep"), {QStringLiteral("30")});
        // sleep reads its last argument as the time; the help file name would spoil it.
        f.state.folders.helpFile = "20";
        QVERIFY(window.execute(30257));
        QVERIFY(window.helpViewer().running());
        QVERIFY(!window.helpViewer().open(QStringLiteral("20")));
        QVERIFY(window.execute(30257));  // the command runs, the viewer is not started again
        QVERIFY(window.helpViewer().running());
        window.close();  // ends the viewer with the program
        QVERIFY(!window.helpViewer().running());
    }

    void minimumSizeFollowsTheScreen() {
        QCOMPARE(minimumMainSize(720).width, 800);
        QCOMPARE(minimumMainSize(720).height, 500);
        QCOMPARE(minimumMainSize(767).height, 500);
        QCOMPARE(minimumMainSize(768).height, 600);
        QCOMPARE(minimumMainSize(1080).height, 600);
        Fixture f;
        MainApp window(f.state);
        const MinimumSize expected = minimumMainSize(window.screen()->geometry().height());
        QCOMPARE(window.minimumSize(), QSize(expected.width, expected.height));
    }

    void theTwoMessagesReachTheHooksOnTheWindowThread() {
        Fixture f;
        RecordingCommands commands;
        MainApp window(f.state, &commands);
        QVERIFY(QMetaObject::invokeMethod(&window, "operationEnded", Qt::QueuedConnection));
        QVERIFY(QMetaObject::invokeMethod(&window, "openPendingUpdateWindow", Qt::QueuedConnection));
        QCOMPARE(commands.ended, 0);
        QTRY_COMPARE(commands.ended, 1);
        QTRY_COMPARE(commands.updateWindows, 1);
    }

    void commandsWithoutAnEngineReachTheInterface() {
        Fixture f;
        RecordingCommands commands;
        MainApp window(f.state, &commands);
        window.showPage(Page::orbits);
        QVERIFY(window.execute(30231));
        QVERIFY(window.execute(30118));
        QVERIFY(window.execute(30230));
        QVERIFY(window.execute(30311));
        QVERIFY(!window.execute(30099));  // nothing selected
        QVERIFY(!window.execute(12345));
        QCOMPARE(commands.ran, (std::vector<CommandGroup>{CommandGroup::importRecords, CommandGroup::add,
                                                          CommandGroup::updateDatabase, CommandGroup::options}));
    }

    void aLanguageChangeRetitlesTheFrame() {
        Fixture f;
        MainApp window(f.state);
        window.showPage(Page::orbits);
        const std::filesystem::path folder = f.home.root() / "Languages";
        std::filesystem::create_directories(folder);
        testing::writeFile(folder / "Test.lng",
                           "[orvMenu]\n1=Datei\n6=Speichern unter...\\tStrg+S\n"
                           "9=" + std::string(60, 'x') + "\n"
                           "[orvToolBar]\n1=Suchen\n9=Arbeitsbereich ausblenden\n"
                           "[orvTab]\n2=Bahnen\n[orvStatus]\n4=Bereit\n");
        QCOMPARE(LoadLanguage(folder, "Test.lng"), LanguageLoad::fileRead);
        window.retitle();
        QCOMPARE(window.menuBar()->actions()[0]->text(), QStringLiteral("Datei"));
        QCOMPARE(window.menuBar()->actions()[1]->text(), QStringLiteral("Edit"));
        QCOMPARE(window.action(30079)->text(), QStringLiteral("Speichern unter...\tStrg+S"));
        QCOMPARE(window.action(30044)->text(), QString(49, 'x'));
        QCOMPARE(window.action(30010)->text(), QStringLiteral("Suchen"));
        QCOMPARE(window.action(30010)->toolTip(), QStringLiteral("Suchen"));
        QCOMPARE(window.action(30012)->toolTip(), QStringLiteral("Arbeitsbereich ausblenden"));
        QCOMPARE(window.action(30012)->text(), QString());
        QCOMPARE(window.tabs()->tabText(1), QStringLiteral("Bahnen"));
        QCOMPARE(window.tabs()->tabText(0), QStringLiteral("Start Page"));
        QCOMPARE(window.statusText(1), QStringLiteral("Bereit"));

        // The text after the TAB stands right-aligned as the accelerator's.
        QMenu* file = window.menuBar()->actions()[0]->menu();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        file->popup(window.mapToGlobal(QPoint(0, 30)));
        QVERIFY(QTest::qWaitForWindowExposed(file));
        const QRect item = file->actionGeometry(window.action(30079));
        QVERIFY(item.width() > QFontMetrics(file->font()).horizontalAdvance(QStringLiteral("Speichern unter...Strg+S")));
        saveScreenshot(*file, QStringLiteral("file_menu_retitled.png"));
        file->hide();
    }

    void screenshotOfTheMainWindow() {
        Fixture f;
        MainApp window(f.state);
        window.resize(1200, 820);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        saveScreenshot(window, QStringLiteral("main_window_start_page.png"));
        window.showPage(Page::orbits);
        QApplication::processEvents();
        saveScreenshot(window, QStringLiteral("main_window_orbits.png"));
        window.showPage(Page::observations);
        QApplication::processEvents();
        saveScreenshot(window, QStringLiteral("main_window_observations.png"));
    }
};

QTEST_MAIN(MainFrameTest)
#include "main_frame_test.moc"
