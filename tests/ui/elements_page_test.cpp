// The work pane: its panels and controls, the search states and the Search command,
// Enter, the sets of elements, the ticks and open states kept in the settings,
// scrolling, and a change of language.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include <filesystem>
#include <vector>

#include "app/app_state.h"
#include "app/startup.h"
#include "support/temp_home.h"
#include "ui/elements_app.h"
#include "ui/elements_page.h"
#include "language/language_table.h"
#include "language/load_language.h"
#include "ui/main_window.h"
#include "ui/panel_header.h"

using namespace orvane;

namespace {

class RecordingCommands : public MainCommands {
public:
    void run(CommandGroup group) override { ran.push_back(group); }
    std::vector<CommandGroup> ran;
};

template <class T> T* control(QWidget& window, int id) {
    for (T* child : window.findChildren<T*>())
        if (child->property("controlId").toInt() == id) return child;
    return nullptr;
}

struct Fixture {
    testing::TempHome home;
    AppState state;
    Fixture() { InitialiseProgram(state, home.root().string()); }
};

void fillRow(ElementsPage& page, int fieldId, int field, int conditionId, int condition, int editId,
             const QString& value) {
    control<QComboBox>(page, fieldId)->setCurrentIndex(field);
    control<QComboBox>(page, conditionId)->setCurrentIndex(condition);
    control<QLineEdit>(page, editId)->setText(value);
}

}  // namespace

class ElementsPageTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { ResetLanguage(); }

    void panelsControlsAndIdsAreThere() {
        Fixture f;
        ElementsPage page(f.state, nullptr);
        QCOMPARE(page.objectName(), QStringLiteral("ElementsPage"));
        const QList<int> headerIds{874, 879, 873, 875, 880, 876, 877, 878};
        const QStringList titles{"Brief Info...",   "Quick Search...",     "Advanced Search...",
                                 "Filters...",      "Output Details...",   "Sets of Elements...",
                                 "Elements...",     "Calculated Elements..."};
        QList<PanelHeader*> headers = page.findChildren<PanelHeader*>();
        QCOMPARE(headers.size(), 8);
        for (int i = 0; i < 8; ++i) {
            QCOMPARE(headers[i]->property("controlId").toInt(), headerIds[i]);
            QCOMPARE(headers[i]->text(), titles[i]);
        }
        for (int id = 883; id <= 890; ++id) QVERIFY(control<QLabel>(page, id) != nullptr);
        QVERIFY(control<QLineEdit>(page, 701) != nullptr);
        QComboBox* quick = control<QComboBox>(page, 706);
        QCOMPARE(quick->count(), 5);
        QCOMPARE(quick->itemText(0), QStringLiteral("Periodic comet number"));
        QCOMPARE(quick->itemText(4), QStringLiteral("Orbit type (C, P or D)"));

        for (int id : {810, 812, 814, 816, 818}) {
            QComboBox* field = control<QComboBox>(page, id);
            QCOMPARE(field->count(), 55);
            QCOMPARE(field->itemText(0), QStringLiteral("---"));
            QCOMPARE(field->itemText(1), QStringLiteral("Periodic comet number"));
            QCOMPARE(field->itemText(54), QStringLiteral("Orbital period*"));
        }
        for (int id : {811, 813, 815, 817, 819}) {
            QComboBox* condition = control<QComboBox>(page, id);
            QCOMPARE(condition->count(), 9);
            QCOMPARE(condition->itemText(0), QStringLiteral("---"));
            QCOMPARE(condition->itemText(1), QStringLiteral("Greater than (>)"));
            QCOMPARE(condition->itemText(8), QStringLiteral("Free from"));
        }
        for (int id : {831, 832, 833, 834, 835}) QVERIFY(control<QLineEdit>(page, id) != nullptr);
        int connectors = 0;
        for (QComboBox* box : page.findChildren<QComboBox*>())
            if (box->property("controlId").toInt() == 820) {
                ++connectors;
                QCOMPARE(box->count(), 2);
                QCOMPARE(box->itemText(0), QStringLiteral("and"));
                QCOMPARE(box->itemText(1), QStringLiteral("or"));
            }
        QCOMPARE(connectors, 4);  // row 5 has none

        QCOMPARE(control<QCheckBox>(page, 762)->text(), QStringLiteral("Search periodic comets only"));
        QCOMPARE(control<QCheckBox>(page, 703)->text(), QStringLiteral("Search the last appearance only"));
        QCOMPARE(control<QCheckBox>(page, 763)->text(), QStringLiteral("Search in my records only"));
        QCOMPARE(control<QCheckBox>(page, 764)->text(), QStringLiteral("Search in the last update only"));
        QCOMPARE(control<QCheckBox>(page, 765)->text(), QStringLiteral("Show errors of elements"));
        QVERIFY(control<QCheckBox>(page, 765)->isChecked());
        QCOMPARE(control<QCheckBox>(page, 713)->text(), QStringLiteral("All"));
        QCOMPARE(control<QCheckBox>(page, 760)->text(), QStringLiteral("Calculated Elements"));
        QVERIFY(control<QCheckBox>(page, 714)->isChecked());  // record 23 defaults to 1

        QCOMPARE(control<QCheckBox>(page, 7001)->text(), QStringLiteral("Periodic comet number"));
        QCOMPARE(control<QCheckBox>(page, 7030)->text(), QStringLiteral("Day of last observation"));
        QCOMPARE(control<QCheckBox>(page, 7047)->text(), QStringLiteral("Date of record change"));
        QCOMPARE(control<QCheckBox>(page, 7048)->text(), QStringLiteral("Orbit classification"));
        QCOMPARE(control<QCheckBox>(page, 7049)->text(), QStringLiteral("Mean anomaly (deg)"));
        QCOMPARE(control<QCheckBox>(page, 7050)->text(), QStringLiteral("Average motion (deg/day)"));
        QCOMPARE(control<QCheckBox>(page, 7051)->text(), QStringLiteral("Orbital period* (years)"));
        QCOMPARE(control<QCheckBox>(page, 7052)->text(), QStringLiteral("Aphelion distance (AU)"));
        QCOMPARE(control<QCheckBox>(page, 7053)->text(), QStringLiteral("Semi-major axis (AU)"));
        QVERIFY(!control<QCheckBox>(page, 7004)->isChecked());  // olddes, record 30
        QVERIFY(control<QCheckBox>(page, 7024)->isChecked());   // Obs, record 50
    }

    void columnBoxesAreMadeInTheirOrderAndPlacedInTheColumnsOrder() {
        Fixture f;
        ElementsPage page(f.state, nullptr);
        QList<int> created;
        for (QCheckBox* box : page.panelBody(PanelKind::elements)->findChildren<QCheckBox*>(
                 QString(), Qt::FindDirectChildrenOnly))
            created << box->property("controlId").toInt();
        QList<int> expected;
        for (int id = 7001; id <= 7023; ++id) expected << id;
        expected << 7030;
        for (int id = 7024; id <= 7029; ++id) expected << id;
        for (int id = 7031; id <= 7047; ++id) expected << id;
        QCOMPARE(created, expected);
        page.resize(500, 800);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        for (int id = 7001; id < 7047; ++id)
            QVERIFY(control<QCheckBox>(page, id)->y() < control<QCheckBox>(page, id + 1)->y());
    }

    void anEmptyFormGivesADisabledSearchButton() {
        Fixture f;
        MainApp window(f.state);
        window.showPage(Page::orbits);
        ElementsPage& page = *window.workPane();
        QVERIFY(!page.searchRequest());
        QVERIFY(!window.action(30010)->isEnabled());
        QVERIFY(!window.action(30096)->isEnabled());

        // A row without a value is not complete.
        control<QComboBox>(page, 810)->setCurrentIndex(3);
        control<QComboBox>(page, 811)->setCurrentIndex(7);
        QVERIFY(!page.rowComplete(0));
        QVERIFY(!window.action(30010)->isEnabled());
        control<QLineEdit>(page, 831)->setText(QStringLiteral("1995"));
        QVERIFY(page.rowComplete(0));
        QVERIFY(window.action(30010)->isEnabled());
        QVERIFY(window.action(30096)->isEnabled());
        QCOMPARE(f.state.advancedSearchActive, 1);
        QCOMPARE(f.state.quickSearchActive, 0);
        control<QLineEdit>(page, 831)->clear();
        QVERIFY(!window.action(30010)->isEnabled());

        // The quick form sets its own mode and clears the other.
        control<QLineEdit>(page, 701)->setText(QStringLiteral("Halley"));
        QVERIFY(page.quickState());
        QCOMPARE(f.state.quickSearchActive, 1);
        QCOMPARE(f.state.advancedSearchActive, 0);
        QVERIFY(window.action(30010)->isEnabled());
    }

    void searchRunsThroughTheCommandsAndStaysDisabledWhileItRuns() {
        Fixture f;
        RecordingCommands commands;
        MainApp window(f.state, &commands);
        window.showPage(Page::orbits);
        ElementsPage& page = *window.workPane();
        fillRow(page, 812, 3, 813, 5, 832, QStringLiteral("C/1995"));
        QVERIFY(window.execute(30010));
        QCOMPARE(commands.ran, (std::vector<CommandGroup>{CommandGroup::search}));
        QCOMPARE(window.statusText(1), QStringLiteral("Search in progress..."));
        QVERIFY(window.searchRunning());
        QVERIFY(!window.action(30010)->isEnabled());
        // The form stays usable, but Search stays off.
        control<QLineEdit>(page, 832)->setText(QStringLiteral("C/1996"));
        QVERIFY(!window.action(30010)->isEnabled());
        QVERIFY(!window.execute(30096));
        window.setSearchRunning(false);
        QVERIFY(window.action(30010)->isEnabled());

        const SearchForm form = page.searchForm();
        QCOMPARE(form.advancedSearchActive, 1);
        QCOMPARE(form.rows[0].inUse, 0);
        QCOMPARE(form.rows[1].inUse, 1);
        QCOMPARE(form.rows[1].field, 3);
        QCOMPARE(form.rows[1].op, 5);
        QCOMPARE(form.rows[1].value, std::string("C/1996"));
        QCOMPARE(form.showErrors, 1);
        QCOMPARE(form.columnShown[3], 0);
        QCOMPARE(form.columnShown[0], 1);
    }

    void enterInAnEditStartsTheSearch() {
        Fixture f;
        RecordingCommands commands;
        MainApp window(f.state, &commands);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.showPage(Page::orbits);
        ElementsPage& page = *window.workPane();
        QLineEdit* quick = control<QLineEdit>(page, 701);
        QTest::keyClick(quick, Qt::Key_Return);
        QVERIFY(commands.ran.empty());  // nothing to search for
        QTest::keyClicks(quick, QStringLiteral("Wild"));
        QTest::keyClick(quick, Qt::Key_Return);
        QCOMPARE(commands.ran, (std::vector<CommandGroup>{CommandGroup::search}));
        QTest::keyClick(control<QComboBox>(page, 706), Qt::Key_Enter);
        QCOMPARE(commands.ran.size(), std::size_t(1));  // a search runs
        window.setSearchRunning(false);
        QTest::keyClick(control<QComboBox>(page, 706), Qt::Key_Enter);
        QCOMPARE(commands.ran.size(), std::size_t(2));
        const SearchForm form = page.searchForm();
        QCOMPARE(form.quickSearchActive, 1);
        QCOMPARE(form.quick.value, std::string("Wild"));
        QCOMPARE(form.quick.field, 0);
    }

    void allPanelsClosedLeaveTheEightHeadersAlone() {
        Fixture f;
        ElementsPage page(f.state, nullptr);
        page.resize(500, 700);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        for (PanelHeader* header : page.findChildren<PanelHeader*>())
            if (header->isOpen()) QTest::mouseClick(header, Qt::LeftButton);
        QApplication::processEvents();
        QList<PanelHeader*> headers = page.findChildren<PanelHeader*>();
        for (int i = 0; i < 8; ++i) {
            QVERIFY(!headers[i]->isOpen());
            QCOMPARE(headers[i]->y(), i * headers[0]->height());
        }
        for (QWidget* body : page.findChildren<QWidget*>("PanelBody")) QVERIFY(!body->isVisible());
        QCOMPARE(headers[2]->toolTip(), QStringLiteral("Show Advanced Search"));
        QTRY_VERIFY(!page.verticalScrollBar()->isVisible());
        for (int AppState::*open : {&AppState::briefInfoOpen, &AppState::quickSearchOpen, &AppState::advancedSearchOpen,
                                    &AppState::filtersOpen, &AppState::outputDetailsOpen, &AppState::setsOpen,
                                    &AppState::elementsOpen, &AppState::calcElementsOpen})
            QCOMPARE(f.state.*open, 0);
        saveScreenshot(page, QStringLiteral("work_pane_all_closed.png"));

        // A click opens a panel again and moves the panels below it down.
        QTest::mouseClick(headers[3], Qt::LeftButton);
        QApplication::processEvents();
        QVERIFY(headers[3]->isOpen());
        QCOMPARE(headers[3]->toolTip(), QStringLiteral("Hide Filters"));
        QCOMPARE(f.state.filtersOpen, 1);
        QVERIFY(headers[4]->y() > 4 * headers[0]->height());
    }

    void openStatesComeFromTheSettings() {
        Fixture f;
        f.state.quickSearchOpen = 1;
        f.state.elementsOpen = 0;
        ElementsPage page(f.state, nullptr);
        QVERIFY(page.panelOpen(PanelKind::quickSearch));
        QVERIFY(!page.panelOpen(PanelKind::elements));
        QVERIFY(page.panelOpen(PanelKind::briefInfo));
        QVERIFY(!page.panelOpen(PanelKind::filters));
        QCOMPARE(page.header(PanelKind::quickSearch)->toolTip(), QStringLiteral("Hide Quick Search"));
        QCOMPARE(page.header(PanelKind::elements)->toolTip(), QStringLiteral("Show Elements"));
    }

    void aPaneNarrowerThan850PixelsScrollsSideways() {
        Fixture f;
        ElementsPage page(f.state, nullptr);
        page.resize(849, 600);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        QTRY_VERIFY(page.horizontalScrollBar()->isVisible());
        QCOMPARE(page.horizontalScrollBar()->maximum(), 850 - page.viewport()->width());
        QVERIFY(page.verticalScrollBar()->isVisible());
        page.resize(900, 600);
        QTRY_VERIFY(!page.horizontalScrollBar()->isVisible());
    }

    void setsTickTheirColumnsAndColumnsLeaveTheSetsAlone() {
        Fixture f;
        ElementsPage page(f.state, nullptr);
        page.resize(500, 600);
        page.show();
        page.setPanelOpen(PanelKind::setsOfElements, true);
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        QCheckBox* epoch = control<QCheckBox>(page, 717);
        QCheckBox* calculated = control<QCheckBox>(page, 760);
        calculated->click();
        QCOMPARE(f.state.setCalculated, 1);
        for (int id = 7048; id <= 7053; ++id) QVERIFY(control<QCheckBox>(page, id)->isChecked());
        for (std::size_t c = 47; c < 53; ++c) QCOMPARE(f.state.columnShown[c], 1);

        epoch->click();  // ticks the three epoch columns, already ticked
        QCOMPARE(f.state.setEpoch, 1);
        epoch->click();  // and clears them
        QCOMPARE(f.state.setEpoch, 0);
        for (int id : {7006, 7007, 7008}) QVERIFY(!control<QCheckBox>(page, id)->isChecked());
        for (std::size_t c : {5, 6, 7}) QCOMPARE(f.state.columnShown[c], 0);
        QVERIFY(control<QCheckBox>(page, 7009)->isChecked());

        // One column box changes its column alone.
        control<QCheckBox>(page, 7049)->click();
        QCOMPARE(f.state.columnShown[47], 0);
        QVERIFY(calculated->isChecked());
        QCOMPARE(f.state.setCalculated, 1);

        control<QCheckBox>(page, 713)->click();  // All
        for (int v : f.state.columnShown) QCOMPARE(v, 1);
        control<QCheckBox>(page, 713)->click();
        for (int v : f.state.columnShown) QCOMPARE(v, 0);

        control<QCheckBox>(page, 715)->click();  // Orbital Elements: records 35-39, 41-43
        std::array<int, 53> expected{};
        for (std::size_t c : {8, 9, 10, 11, 12, 14, 15, 16}) expected[c] = 1;
        QCOMPARE(f.state.columnShown, expected);
        control<QCheckBox>(page, 714)->click();  // ECS was ticked: this clears its columns
        control<QCheckBox>(page, 714)->click();
        std::array<int, 53> ecs{};
        for (std::size_t c : {0, 1, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 23, 24, 25, 26, 27, 28, 29, 30,
                              31, 33, 34, 36})
            ecs[c] = 1;
        QCOMPARE(f.state.columnShown, ecs);
    }

    void filtersAndErrorsAreKeptInTheSettings() {
        Fixture f;
        ElementsPage page(f.state, nullptr);
        control<QCheckBox>(page, 762)->setChecked(true);
        control<QCheckBox>(page, 703)->setChecked(true);
        control<QCheckBox>(page, 763)->setChecked(true);
        control<QCheckBox>(page, 764)->setChecked(true);
        control<QCheckBox>(page, 765)->setChecked(false);
        QCOMPARE(f.state.filterPeriodicOnly, 1);
        QCOMPARE(f.state.filterLastAppearance, 1);
        QCOMPARE(f.state.filterMyRecords, 1);
        QCOMPARE(f.state.filterLastUpdate, 1);
        QCOMPARE(f.state.showErrors, 0);
        const SearchForm form = page.searchForm();
        QCOMPARE(form.filters.periodicOnly, 1);
        QCOMPARE(form.filters.lastUpdate, 1);
        QCOMPARE(form.showErrors, 0);
    }

    void briefInfoLinesShowTheStatistics() {
        Fixture f;
        f.state.briefInfo.statistics = {"12" + std::string(28, ' '), "10", "4", "6", "2"};
        f.state.briefInfo.userLabels = {"C/2023 A3 (Tsuchinshan-ATLAS)"};
        f.state.briefInfo.catalogueLabels = {"1P/Halley", "2P/Encke"};
        ElementsPage page(f.state, nullptr);
        QCOMPARE(control<QLabel>(page, 883)->text(), QStringLiteral("A database of cometary orbits contains"));
        QCOMPARE(control<QLabel>(page, 884)->text(), QStringLiteral("12 entries of 10 comets, among them:"));
        QCOMPARE(control<QLabel>(page, 885)->text(), QStringLiteral("Numbered periodic comets: 4"));
        QCOMPARE(control<QLabel>(page, 886)->text(),
                 QStringLiteral("Long-period and unnumbered short- and intermediate-period comets: 6"));
        QCOMPARE(control<QLabel>(page, 887)->text(), QStringLiteral("Entries added by the user: 2"));
        QCOMPARE(control<QLabel>(page, 888)->text(), QStringLiteral("Last added comets:"));
        QCOMPARE(control<QLabel>(page, 889)->text(), QStringLiteral("C/2023 A3 (Tsuchinshan-ATLAS), 1P/Halley, 2P/Encke"));
        QCOMPARE(control<QLabel>(page, 890)->text(), QString());

        // A longer list goes on in the second line.
        f.state.briefInfo.catalogueLabels = {"1P/Halley", "2P/Encke", "C/1995 O1 (Hale-Bopp)"};
        page.refreshBriefInfo();
        QCOMPARE(control<QLabel>(page, 889)->text(), QStringLiteral("C/2023 A3 (Tsuchinshan-ATLAS), 1P/Halley, 2P/Encke,"));
        QCOMPARE(control<QLabel>(page, 890)->text(), QStringLiteral("C/1995 O1 (Hale-Bopp)"));
    }

    void aLanguageChangeRebuildsTheListsWithTheirChoiceKept() {
        Fixture f;
        ElementsPage page(f.state, nullptr);
        control<QComboBox>(page, 814)->setCurrentIndex(12);
        control<QComboBox>(page, 815)->setCurrentIndex(3);
        control<QComboBox>(page, 706)->setCurrentIndex(2);
        f.state.advancedSearchActive = 1;
        f.state.quickSearchActive = 0;
        const std::filesystem::path folder = f.home.root() / "Languages";
        std::filesystem::create_directories(folder);
        testing::writeFile(folder / "Test.lng",
                           "[orvStartPage]\n7=Erweiterte Suche...\n9=\n"
                           "[orvAdvSearch]\n14=Periheldistanz\n60=Gleich (=)\n66=und\n"
                           "[orvQuickSearch]\n4=Vorläufige Bezeichnung\n"
                           "[orvFilters]\n2=Nur periodische Kometen\n[orvElements]\n2=Nummer\n"
                           "[orvBriefInfo]\n7=Zuletzt hinzugefügt:\n");
        QCOMPARE(LoadLanguage(folder, "Test.lng"), LanguageLoad::fileRead);
        page.retitle();
        QCOMPARE(page.header(PanelKind::advancedSearch)->text(), QStringLiteral("Erweiterte Suche..."));
        QComboBox* field = control<QComboBox>(page, 814);
        QCOMPARE(field->currentIndex(), 12);
        QCOMPARE(field->currentText(), QStringLiteral("Periheldistanz"));
        QCOMPARE(control<QComboBox>(page, 815)->currentText(), QStringLiteral("Gleich (=)"));
        QCOMPARE(control<QComboBox>(page, 706)->currentIndex(), 2);
        QCOMPARE(control<QComboBox>(page, 706)->currentText(), QString::fromUtf8("Vorläufige Bezeichnung"));
        QCOMPARE(control<QComboBox>(page, 810)->itemText(12), QStringLiteral("Periheldistanz"));
        for (QComboBox* box : page.findChildren<QComboBox*>())
            if (box->property("controlId").toInt() == 820) QCOMPARE(box->itemText(0), QStringLiteral("und"));
        QCOMPARE(control<QCheckBox>(page, 762)->text(), QStringLiteral("Nur periodische Kometen"));
        QCOMPARE(control<QCheckBox>(page, 7001)->text(), QStringLiteral("Nummer"));
        QCOMPARE(control<QCheckBox>(page, 7002)->text(), QStringLiteral("Name of comet"));
        QCOMPARE(control<QLabel>(page, 888)->text(), QString::fromUtf8("Zuletzt hinzugefügt:"));
        // The empty value is an empty tip, not the default; the rebuild changed no mode.
        page.setPanelOpen(PanelKind::advancedSearch, false);
        QCOMPARE(page.header(PanelKind::advancedSearch)->toolTip(), QString());
        QCOMPARE(f.state.advancedSearchActive, 1);
        QCOMPARE(f.state.quickSearchActive, 0);
    }

    void screenshotOfTheWorkPane() {
        Fixture f;
        f.state.quickSearchOpen = 1;
        f.state.filtersOpen = 1;
        f.state.setsOpen = 1;
        ElementsPage page(f.state, nullptr);
        page.resize(500, 1100);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        saveScreenshot(page, QStringLiteral("work_pane.png"));
    }

private:
    static void saveScreenshot(QWidget& widget, const QString& name) {
        const QString folder = QStringLiteral(ORVANE_BINARY_DIR "/screenshots");
        QDir().mkpath(folder);
        QVERIFY(widget.grab().save(folder + "/" + name));
    }
};

QTEST_MAIN(ElementsPageTest)
#include "elements_page_test.moc"
