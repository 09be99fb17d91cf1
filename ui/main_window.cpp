#include "ui/main_window.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QProxyStyle>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QToolTip>
#include <QUrl>
#include <QVBoxLayout>

#include "app/app_state.h"
#include "app/startup.h"
#include "net/update_server.h"
#include "ui/desktop_open.h"
#include "ui/elements_app.h"
#include "ui/elements_output.h"
#include "ui/elements_page.h"
#include "ui/my_list_view.h"
#include "ui/my_tab.h"
#include "ui/qt_text.h"
#include "ui/start_page.h"
#include "ui/ui_text.h"

namespace orvane {
namespace {

using G = CommandGroup;

MainCommands& noCommands() {
    static MainCommands none;
    return none;
}

// Tool tips of the toolbar come almost at once, stay three seconds and are at most
// 200 pixels wide.
constexpr int kTipWakeUpMs = 5;
constexpr int kTipShowMs = 3000;
constexpr int kTipWidth = 200;

class ToolbarStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override {
        if (hint == QStyle::SH_ToolTip_WakeUpDelay) return kTipWakeUpMs;
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

struct Accelerator {
    QKeyCombination keys;
    int id;
};

// Accelerator table 221.
const Accelerator kAccelerators[] = {
    {Qt::CTRL | Qt::Key_S, cmd::kSaveAs},
    {Qt::CTRL | Qt::Key_I, cmd::kImport},
    {Qt::CTRL | Qt::Key_E, cmd::kExport},
    {Qt::CTRL | Qt::Key_A, cmd::kSelectAll},
    {Qt::ALT | Qt::Key_Up, cmd::kWorkPane},
    {Qt::ALT | Qt::Key_Down, cmd::kOutputPane},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_N, cmd::kAdd},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_E, cmd::kEdit},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_D, cmd::kDuplicate},
    {QKeyCombination(Qt::Key_Delete), cmd::kDelete},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_I, cmd::kInfo},
    {Qt::CTRL | Qt::Key_U, cmd::kUpdateDatabase},
    {QKeyCombination(Qt::Key_F1), cmd::kHelpTopics},
    {Qt::CTRL | Qt::Key_F1, cmd::kOrbitDiagrams},
    {Qt::CTRL | Qt::Key_F2, cmd::kEphemerides},
    {Qt::CTRL | Qt::Key_F3, cmd::kCloseApproaches},
};

// The key of the task drop-down's text for each task: 4, 6 or 8 of the toolbar section.
int taskButtonKey(TaskChoice task) { return 4 + 2 * static_cast<int>(task); }

TaskChoice taskFromRecord(int lastTask) {
    if (lastTask == 1) return TaskChoice::ephemerides;
    if (lastTask == 2) return TaskChoice::closeApproaches;
    return TaskChoice::orbitDiagrams;
}

QIcon taskIcon(const QStyle* style, TaskChoice task) {
    switch (task) {
        case TaskChoice::orbitDiagrams: return style->standardIcon(QStyle::SP_DesktopIcon);
        case TaskChoice::ephemerides: return style->standardIcon(QStyle::SP_FileDialogDetailedView);
        case TaskChoice::closeApproaches: return style->standardIcon(QStyle::SP_MediaSeekForward);
    }
    return {};
}

}  // namespace

MainApp::MainApp(AppState& state, MainCommands* commands, QWidget* parent)
    : QMainWindow(parent), state_(state), commands_(commands ? commands : &noCommands()) {
    setObjectName("MainApp");
    setWindowTitle(QStringLiteral("Orvane - Comet Ephemeris Desk"));
    const int screenHeight = screen() ? screen()->geometry().height() : 768;
    const MinimumSize minimum = minimumMainSize(screenHeight);
    setMinimumSize(minimum.width, minimum.height);

    buildMenus();
    buildToolbar();
    buildAccelerators();
    buildStatusBar();
    buildPages();
    selectTask(taskFromRecord(state_.lastTask));
    applyPaneState();
    toolbar_->setVisible(state_.toolbarHidden == 0);
    action(cmd::kToolbar)->setChecked(state_.toolbarHidden == 0);
    showPage(Page::startPage);
}

MainApp::~MainApp() = default;

// ---------------------------------------------------------------- construction

QAction* MainApp::makeAction(int id, Section section, int key, QObject* parent) {
    auto* action = new QAction(parent);
    setControlId(action, id);
    bindText(action, section, key);
    connect(action, &QAction::triggered, this, [this, id] { execute(id); });
    actions_.emplace(id, action);
    return action;
}

void MainApp::buildMenus() {
    QMenuBar* bar = menuBar();
    auto topLevel = [&](int key) {
        QMenu* menu = bar->addMenu(QString());
        bindText(menu, Section::orvMenu, key);
        return menu;
    };
    const Section m = Section::orvMenu;

    QMenu* file = topLevel(1);
    file->addAction(makeAction(cmd::kSaveAs, m, 6, file));
    file->addSeparator();
    file->addAction(makeAction(cmd::kImport, m, 7, file));
    file->addAction(makeAction(cmd::kExport, m, 8, file));
    file->addSeparator();
    file->addAction(makeAction(cmd::kExit, m, 9, file));

    QMenu* edit = topLevel(2);
    edit->addAction(makeAction(cmd::kSelectAll, m, 10, edit));

    QMenu* view = topLevel(3);
    for (auto [id, key] : {std::pair{cmd::kWorkPane, 11}, std::pair{cmd::kOutputPane, 12}}) {
        QAction* toggle = makeAction(id, m, key, view);
        toggle->setCheckable(true);
        view->addAction(toggle);
    }
    view->addSeparator();
    QAction* toolbarItem = makeAction(cmd::kToolbar, m, 13, view);
    toolbarItem->setCheckable(true);
    view->addAction(toolbarItem);
    // A checkable item flips its mark by itself on a click; the mark follows the state
    // that the command sets instead, also when the command was dropped.
    for (QAction* toggle : view->actions())
        connect(toggle, &QAction::triggered, this, [this] { applyPaneState(); });

    QMenu* tools = topLevel(4);
    tools->addAction(makeAction(cmd::kSearchMenu, m, 14, tools));
    tools->addSeparator();
    tools->addAction(makeAction(cmd::kAdd, m, 15, tools));
    tools->addAction(makeAction(cmd::kEdit, m, 16, tools));
    tools->addAction(makeAction(cmd::kDuplicate, m, 17, tools));
    tools->addAction(makeAction(cmd::kDelete, m, 18, tools));
    tools->addSeparator();
    tools->addAction(makeAction(cmd::kInfo, m, 19, tools));
    tools->addSeparator();
    buildTaskMenus();
    tools->addMenu(taskMenu164_);
    tools->addAction(makeAction(cmd::kUpdateDatabase, m, 21, tools));
    tools->addSeparator();
    tools->addAction(makeAction(cmd::kOptions, m, 22, tools));

    QMenu* help = topLevel(5);
    help->addAction(makeAction(cmd::kHelpTopics, m, 28, help));
    help->addSeparator();
    help->addAction(makeAction(cmd::kHomePage, m, 29, help));
    help->addAction(makeAction(cmd::kCheckForUpdates, m, 30, help));
    help->addSeparator();
    help->addAction(makeAction(cmd::kAbout, m, 31, help));

    buildContextMenu();
}

void MainApp::buildTaskMenus() {
    struct TaskItem {
        int id;
        int key;
    };
    auto build = [&](QMenu* menu, std::array<TaskItem, 3> items) {
        auto* group = new QActionGroup(menu);
        group->setExclusive(true);
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (i > 0) menu->addSeparator();
            QAction* item = makeAction(items[i].id, Section::orvMenu, items[i].key, menu);
            item->setCheckable(true);
            group->addAction(item);
            menu->addAction(item);
        }
    };
    // Menu 164 goes into Tools; 165 drops down from the toolbar and the list.
    taskMenu164_ = new QMenu(this);
    taskMenu164_->setObjectName("TaskMenu164");
    bindText(taskMenu164_, Section::orvMenu, 20);
    build(taskMenu164_, {{{cmd::kOrbitDiagrams, 23}, {cmd::kEphemerides, 25}, {cmd::kCloseApproaches, 27}}});
    taskMenu165_ = new QMenu(this);
    taskMenu165_->setObjectName("TaskMenu165");
    build(taskMenu165_,
          {{{cmd::kOrbitDiagramsDrop, 32}, {cmd::kEphemeridesDrop, 34}, {cmd::kCloseApproachesDrop, 36}}});
}

void MainApp::buildContextMenu() {
    contextMenu162_ = new QMenu(this);
    contextMenu162_->setObjectName("ContextMenu162");
    QMenu* c = contextMenu162_;
    const Section m = Section::orvMenu;
    c->addAction(makeAction(cmd::kSaveAsContext, m, 37, c));
    c->addAction(makeAction(cmd::kExportContext, m, 38, c));
    c->addSeparator();
    c->addAction(makeAction(cmd::kSelectAllContext, m, 39, c));
    c->addSeparator();
    c->addAction(makeAction(cmd::kAddContext, m, 40, c));
    c->addAction(makeAction(cmd::kEditContext, m, 41, c));
    c->addAction(makeAction(cmd::kDuplicateContext, m, 42, c));
    c->addAction(makeAction(cmd::kDeleteContext, m, 43, c));
    c->addSeparator();
    c->addAction(makeAction(cmd::kInfoContext, m, 44, c));
    QAction* tasks = c->addMenu(taskMenu165_);
    bindText(tasks, m, 45);
}

void MainApp::buildToolbar() {
    toolbar_ = addToolBar(QString());
    toolbar_->setObjectName("ToolbarWindow32");
    toolbar_->setMovable(false);
    toolbar_->setFloatable(false);
    toolbar_->setIconSize(QSize(20, 20));
    toolbar_->setContextMenuPolicy(Qt::PreventContextMenu);
    auto* tipStyle = new ToolbarStyle;
    tipStyle->setParent(toolbar_);
    const QStyle* s = style();
    const Section t = Section::orvToolBar;

    auto button = [&](int id, int key, QStyle::StandardPixmap icon, bool withText) {
        QAction* a = makeAction(id, t, key, toolbar_);
        bindTip(a, t, key);
        a->setIcon(s->standardIcon(icon));
        toolbar_->addAction(a);
        auto* widget = qobject_cast<QToolButton*>(toolbar_->widgetForAction(a));
        if (widget) {
            widget->setStyle(tipStyle);
            widget->installEventFilter(this);
            widget->setToolButtonStyle(withText ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
        }
        return a;
    };
    button(cmd::kSearch, 1, QStyle::SP_FileDialogContentsView, true);
    toolbar_->addSeparator();
    button(cmd::kAddButton, 15, QStyle::SP_FileIcon, false);
    button(cmd::kEditButton, 14, QStyle::SP_FileDialogDetailedView, false);
    button(cmd::kDuplicateButton, 16, QStyle::SP_FileLinkIcon, false);
    button(cmd::kDeleteButton, 17, QStyle::SP_TrashIcon, false);
    toolbar_->addSeparator();
    button(cmd::kSelectAllButton, 19, QStyle::SP_DialogApplyButton, false);
    toolbar_->addSeparator();
    button(cmd::kSaveAsButton, 13, QStyle::SP_DialogSaveButton, false);
    toolbar_->addSeparator();
    button(cmd::kImportButton, 2, QStyle::SP_ArrowDown, true);
    button(cmd::kExportButton, 3, QStyle::SP_ArrowUp, true);
    toolbar_->addSeparator();
    button(cmd::kInfoButton, 18, QStyle::SP_FileDialogInfoView, false);
    QAction* tasks = button(cmd::kTasks, 4, QStyle::SP_DesktopIcon, true);
    taskButton_ = qobject_cast<QToolButton*>(toolbar_->widgetForAction(tasks));
    if (taskButton_) {
        taskButton_->setPopupMode(QToolButton::MenuButtonPopup);
        taskButton_->setMenu(taskMenu165_);
    }
    toolbar_->addSeparator();
    button(cmd::kUpdateDatabaseButton, 20, QStyle::SP_BrowserReload, false);
    button(cmd::kOptionsButton, 21, QStyle::SP_ComputerIcon, false);
    toolbar_->addSeparator();
    // The pane toggles carry no text of their own, only their Hide or Show tip.
    for (int id : {cmd::kWorkPaneButton, cmd::kOutputPaneButton}) {
        QAction* a = button(id, id == cmd::kWorkPaneButton ? 9 : 11,
                            id == cmd::kWorkPaneButton ? QStyle::SP_ArrowLeft : QStyle::SP_ArrowRight, false);
        a->setProperty("textSection", QVariant());
        a->setText(QString());
    }
}

void MainApp::buildAccelerators() {
    for (const Accelerator& accelerator : kAccelerators) {
        auto* shortcut = new QShortcut(QKeySequence(accelerator.keys), this);
        shortcut->setContext(Qt::WindowShortcut);
        shortcut->setProperty("controlId", accelerator.id);
        connect(shortcut, &QShortcut::activated, this, [this, id = accelerator.id] { execute(id); });
    }
}

void MainApp::buildStatusBar() {
    QStatusBar* bar = statusBar();
    bar->setObjectName("msctls_statusbar32");
    bar->setSizeGripEnabled(true);
    for (QLabel*& part : statusParts_) {
        part = new QLabel(bar);
        part->setObjectName("StatusPart");
        part->setContentsMargins(4, 0, 4, 0);
    }
    // Right edges at W-400, W-300 and the window's edge.
    // Part 2 grows past its 100 pixels when "Selected Items:" and a large count need it.
    statusParts_[1]->setMinimumWidth(100);
    statusParts_[2]->setFixedWidth(300);
    bar->addWidget(statusParts_[0], 1);
    bar->addPermanentWidget(statusParts_[1]);
    bar->addPermanentWidget(statusParts_[2]);
    progress_ = new QProgressBar(statusParts_[1]);
    progress_->setObjectName("msctls_progress32");
    progress_->setGeometry(3, 0, 94, 20);
    progress_->setTextVisible(false);
    progress_->hide();
}

void MainApp::buildPages() {
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 2, 0, 0);
    layout->setSpacing(0);
    tabs_ = new MyTab(central);
    tabs_->addTab(qtText(Section::orvTab, 1));
    tabs_->addTab(qtText(Section::orvTab, 2));
    tabs_->addTab(QStringLiteral("Observations"));
    tabs_->addTab(QStringLiteral("Preliminary Orbit"));
    tabs_->addTab(QStringLiteral("Orbit Improvement"));
    pages_ = new QStackedWidget(central);
    startPage_ = new StartPageApp(state_, pages_);
    orbitsPage_ = new ElementsApp(state_, pages_);
    observations_ = new ObservationsApp(pages_);
    pages_->addWidget(startPage_);
    pages_->addWidget(orbitsPage_);
    pages_->addWidget(observations_);
    layout->addWidget(tabs_);
    layout->addWidget(pages_, 1);
    setCentralWidget(central);

    connect(tabs_, &QTabBar::currentChanged, this, [this](int index) {
        if (index >= 0 && index < kPageCount) showPage(static_cast<Page>(index));
    });
    connect(tabs_, &MyTab::hoverChanged, this, &MainApp::onTabHover);
    connect(tabs_, &MyTab::hoverLeft, this, [this] { showStatus(pageStatus_[static_cast<std::size_t>(page_)]); });
    connect(orbitsPage_, &ElementsApp::layoutChanged, this, [this] {
        tabs_->setPaneLayout(orbitsPage_->workPaneRight(), state_.workPaneHidden != 0, state_.outputPaneHidden != 0);
    });
    connect(workPane(), &ElementsPage::searchStateChanged, this, &MainApp::onSearchStateChanged);
    connect(workPane(), &ElementsPage::searchRequested, this, [this] { runGroup(G::search); });
    resultList()->setContextMenu(contextMenu162_);
}

ElementsPage* MainApp::workPane() const { return orbitsPage_->workPane(); }

MyListView* MainApp::resultList() const { return orbitsPage_->outputPane()->list(); }

QAction* MainApp::action(int id) const {
    const auto found = actions_.find(id);
    return found == actions_.end() ? nullptr : found->second;
}

// ---------------------------------------------------------------- commands

bool MainApp::execute(int id) {
    const std::optional<CommandGroup> group = commandGroupOf(id);
    if (!group || !flags_.enabled(*group)) return false;
    runGroup(*group);
    return true;
}

void MainApp::runGroup(CommandGroup group) {
    if (!flags_.enabled(group)) return;
    switch (group) {
        case G::search:
            setSearchRunning(true);
            setPageStatus(Page::orbits, 12);
            commands_->run(G::search);
            return;
        case G::tasks:
            commands_->run(taskGroupOf(taskFromRecord(state_.lastTask)));
            return;
        case G::orbitDiagrams:
        case G::ephemerides:
        case G::closeApproaches:
            selectTask(*taskOfGroup(group));
            commands_->run(group);
            return;
        case G::workPane: toggleWorkPane(); return;
        case G::outputPane: toggleOutputPane(); return;
        case G::toolbar: toggleToolbar(); return;
        case G::helpTopics: help_.open(QString::fromStdString(state_.folders.helpFile)); return;
        case G::homePage:
            openOnDesktop(QUrl(QString::fromStdString(HomePageUrl(commands_->updateBaseAddress()))));
            return;
        case G::exit: close(); return;
        default: commands_->run(group); return;
    }
}

void MainApp::selectTask(TaskChoice task) {
    state_.lastTask = static_cast<int>(task);
    const int index = static_cast<int>(task);
    const std::array<int, 3> tools{cmd::kOrbitDiagrams, cmd::kEphemerides, cmd::kCloseApproaches};
    const std::array<int, 3> drop{cmd::kOrbitDiagramsDrop, cmd::kEphemeridesDrop, cmd::kCloseApproachesDrop};
    action(tools[static_cast<std::size_t>(index)])->setChecked(true);
    action(drop[static_cast<std::size_t>(index)])->setChecked(true);
    QAction* button = action(cmd::kTasks);
    bindText(button, Section::orvToolBar, taskButtonKey(task));
    bindTip(button, Section::orvToolBar, taskButtonKey(task));
    button->setIcon(taskIcon(style(), task));
}

void MainApp::setCommandEnabled(CommandGroup group, bool enabled) {
    flags_.set(group, enabled ? 1 : 0);
    syncCommandStates();
}

bool MainApp::engineBehind(CommandGroup group) const {
    switch (group) {
        case G::workPane:
        case G::outputPane:
        case G::toolbar:
        case G::helpTopics:
        case G::exit: return true;
        case G::homePage: return *commands_->updateBaseAddress() != '\0';
        default: return commands_->handles(group);
    }
}

void MainApp::syncCommandStates() {
    for (std::size_t k = 0; k < kCommandGroupCount; ++k)
        if (!engineBehind(static_cast<CommandGroup>(k))) flags_.set(static_cast<CommandGroup>(k), 0);
    for (const auto& [id, item] : actions_) {
        const std::optional<CommandGroup> group = commandGroupOf(id);
        if (group) item->setEnabled(flags_.enabled(*group));
    }
}

// ---------------------------------------------------------------- pages and panes

void MainApp::showPage(Page page) {
    page_ = page;
    const int index = static_cast<int>(page);
    if (tabs_->currentIndex() != index) {
        const QSignalBlocker quiet(tabs_);
        tabs_->setCurrentIndex(index);
    }
    if (page == Page::startPage)
        pages_->setCurrentWidget(startPage_);
    else if (page == Page::orbits)
        pages_->setCurrentWidget(orbitsPage_);
    else
        pages_->setCurrentWidget(observations_);
    showStatus(pageStatus_[static_cast<std::size_t>(page)]);
    for (int part = 2; part <= 3; ++part) {
        const QString& text = pageParts_[static_cast<std::size_t>(page)][static_cast<std::size_t>(part - 2)];
        statusParts_[part - 1]->setText(text);
        statusParts_[part - 1]->setToolTip(text);
    }
    flags_.applyPageRules(page, workPane()->searchRequest() && !searchRunning_, state_.workPaneHidden != 0,
                          state_.outputPaneHidden != 0);
    holdCatalogueCommands();
    syncCommandStates();
    tabs_->update();
    emit pageShown(page);
}

void MainApp::onSearchStateChanged() {
    flags_.set(G::search,
               page_ == Page::orbits && workPane()->searchRequest() && !searchRunning_ && !catalogueBusy_);
    syncCommandStates();
}

void MainApp::setCatalogueBusy(bool busy) {
    catalogueBusy_ = busy;
    holdCatalogueCommands();
    syncCommandStates();
    emit freeForUpdatesChanged(freeForUpdates());
}

bool MainApp::freeForUpdates() const {
    return isActiveWindow() && !QApplication::activeModalWidget() && !searchRunning_ && !catalogueBusy_;
}

void MainApp::holdCatalogueCommands() {
    if (!catalogueBusy_) return;
    for (G group : {G::search, G::add, G::edit, G::duplicate, G::remove, G::additionalInfo, G::importRecords,
                    G::exportRecords, G::updateDatabase, G::saveAs, G::selectAll})
        flags_.set(group, 0);
    flags_.setTasks(0);
}

void MainApp::setSearchRunning(bool running) {
    searchRunning_ = running;
    workPane()->setSearchRunning(running);
    onSearchStateChanged();
    emit freeForUpdatesChanged(freeForUpdates());
}

void MainApp::toggleWorkPane() {
    state_.workPaneHidden = state_.workPaneHidden ? 0 : 1;
    applyPaneState();
}

void MainApp::toggleOutputPane() {
    state_.outputPaneHidden = state_.outputPaneHidden ? 0 : 1;
    applyPaneState();
}

void MainApp::toggleToolbar() {
    state_.toolbarHidden = state_.toolbarHidden ? 0 : 1;
    toolbar_->setVisible(state_.toolbarHidden == 0);
    applyPaneState();
}

void MainApp::applyPaneState() {
    // Settings from an older run may hide both; the output pane then comes back.
    if (state_.workPaneHidden && state_.outputPaneHidden) state_.outputPaneHidden = 0;
    const bool work = state_.workPaneHidden == 0;
    const bool output = state_.outputPaneHidden == 0;
    action(cmd::kWorkPane)->setChecked(work);
    action(cmd::kOutputPane)->setChecked(output);
    action(cmd::kToolbar)->setChecked(state_.toolbarHidden == 0);
    bindTip(action(cmd::kWorkPaneButton), Section::orvToolBar, work ? 9 : 10);
    bindTip(action(cmd::kOutputPaneButton), Section::orvToolBar, output ? 11 : 12);
    flags_.applyPaneRule(!work, !output);
    syncCommandStates();
    orbitsPage_->relayout();
}

// ---------------------------------------------------------------- status bar

void MainApp::setPageStatus(Page page, int statusKey) {
    pageStatus_[static_cast<std::size_t>(page)] = {statusKey, QString()};
    if (page == page_) showStatus(pageStatus_[static_cast<std::size_t>(page)]);
}

void MainApp::setPageStatusText(Page page, const QString& text) {
    pageStatus_[static_cast<std::size_t>(page)] = {0, text};
    if (page == page_) showStatus(pageStatus_[static_cast<std::size_t>(page)]);
}

void MainApp::setPageStatusPart(Page page, int part, const QString& text) {
    if (part < 2 || part > 3) return;
    const auto p = static_cast<std::size_t>(page);
    pageParts_[p][static_cast<std::size_t>(part - 2)] = text;
    if (page == page_) {
        statusParts_[part - 1]->setText(text);
        statusParts_[part - 1]->setToolTip(text);
    }
}

void MainApp::showStatus(const StatusText& status) {
    statusParts_[0]->setText(status.key > 0 ? qtText(Section::orvStatus, status.key) : status.text);
}

QString MainApp::statusText(int part) const {
    if (part < 1 || part > 3) return {};
    return statusParts_[part - 1]->text();
}

void MainApp::onTabHover(int index) {
    const bool current = index == static_cast<int>(page_);
    switch (index) {
        case 0: showStatus({current ? 7 : 9, QString()}); break;
        case 1: showStatus({current ? 10 : 8, QString()}); break;
        default: showStatus({0, tabs_->tabText(index)}); break;
    }
}

void MainApp::refreshBriefInfo() {
    state_.briefInfo = orvane::refreshBriefInfo(state_.folders.userFolder + "orvane.db", state_.columnTables);
    startPage_->refresh();
    workPane()->refreshBriefInfo();
}

void MainApp::retitle() {
    retitleTexts(this);
    tabs_->setTabText(0, qtText(Section::orvTab, 1));
    tabs_->setTabText(1, qtText(Section::orvTab, 2));
    showStatus(pageStatus_[static_cast<std::size_t>(page_)]);
    startPage_->retitle();
    workPane()->retitle();
    resultList()->resultModel()->retitle();
    update();
    emit retitled();
}

// ---------------------------------------------------------------- messages

QString toolbarTipText(const QString& tip) {
    // Broken between words into lines of the tip's width; a single word wider than
    // that keeps a line of its own.
    const QFontMetrics metrics(QToolTip::font());
    if (metrics.horizontalAdvance(tip) <= kTipWidth) return tip;
    QString out, line;
    for (const QString& word : tip.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QString longer = line.isEmpty() ? word : line + QLatin1Char(' ') + word;
        if (!line.isEmpty() && metrics.horizontalAdvance(longer) > kTipWidth) {
            out += line + QLatin1Char('\n');
            line = word;
        } else {
            line = longer;
        }
    }
    return out + line;
}

void MainApp::openPendingUpdateWindow() { commands_->openPendingUpdateWindow(); }

void MainApp::operationEnded() { commands_->operationEnded(); }

bool MainApp::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        auto* button = qobject_cast<QToolButton*>(watched);
        if (button && button->defaultAction()) {
            const auto* help = static_cast<QHelpEvent*>(event);
            QToolTip::showText(help->globalPos(), toolbarTipText(button->defaultAction()->toolTip()), button, QRect(),
                               kTipShowMs);
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainApp::showAtStoredPlacement() {
    ignorePlacement_ = true;
    const bool maximised = state_.windowLeft == 0 && state_.windowTop == 0 && state_.windowWidth == 0 &&
                           state_.windowHeight == 0;
    if (maximised) {
        showMaximized();
    } else {
        setGeometry(state_.windowLeft, state_.windowTop, state_.windowWidth, state_.windowHeight);
        showNormal();
    }
    ignorePlacement_ = false;
}

void MainApp::rememberPlacement() {
    if (ignorePlacement_ || !isVisible()) return;
    if (isMinimized() || isMaximized()) {
        state_.windowLeft = state_.windowTop = state_.windowWidth = state_.windowHeight = 0;
        return;
    }
    const QRect frame = frameGeometry();
    state_.windowLeft = frame.left();
    state_.windowTop = frame.top();
    state_.windowWidth = frame.width();
    state_.windowHeight = frame.height();
}

void MainApp::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    rememberPlacement();
}

void MainApp::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    rememberPlacement();
}

void MainApp::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) rememberPlacement();
    if (event->type() == QEvent::ActivationChange) emit freeForUpdatesChanged(freeForUpdates());
}

void MainApp::closeEvent(QCloseEvent* event) {
    // The close box is off while a catalogue worker runs.
    if (catalogueBusy_) {
        event->ignore();
        return;
    }
    help_.end();
    SaveSettings(state_);
    QMainWindow::closeEvent(event);
    emit closedAndSaved();
}

}  // namespace orvane
