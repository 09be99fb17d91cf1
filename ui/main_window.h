#pragma once
// The main window: menus, accelerators, the toolbar with the task drop-down, the five
// tabs and their pages, the status bar with its progress bar. It owns the command
// table: every command arrives here by its id and runs only while the flag of its
// group is 1; menu items and toolbar buttons follow the flags. The placement follows
// the window into AppState, and closing the window saves the settings.
#include <QMainWindow>
#include <array>
#include <map>

#include "ui/commands.h"
#include "ui/help_viewer.h"
#include "language/sections.h"

class QLabel;
class QMenu;
class QProgressBar;
class QStackedWidget;
class QToolBar;
class QToolButton;

namespace orvane {

struct AppState;
class ElementsApp;
class ElementsPage;
class MyListView;
class MyTab;
class ObservationsApp;
class StartPageApp;

// The text a toolbar tip shows: as it stands when it fits in 200 pixels, else wrapped
// to that width.
QString toolbarTipText(const QString& tip);

class MainApp : public QMainWindow {
    Q_OBJECT
public:
    // `commands` receives what the engines do; without one those commands do nothing.
    explicit MainApp(AppState& state, MainCommands* commands = nullptr, QWidget* parent = nullptr);
    ~MainApp() override;

    // Shows the window at the stored placement, maximised when records 6 to 9 are zero.
    void showAtStoredPlacement();

    // Asks the window to open the update window that the update check chose.
    Q_INVOKABLE void openPendingUpdateWindow();
    // Sent by every modal window and worker when it ends.
    Q_INVOKABLE void operationEnded();

    // Runs command `id` when its group is enabled; false when it was dropped.
    bool execute(int id);

    const EnableFlags& flags() const { return flags_; }
    // The list of the output pane enables the commands of its selection here.
    void setCommandEnabled(CommandGroup group, bool enabled);

    Page currentPage() const { return page_; }
    void showPage(Page page);

    // A search started or ended: while it runs the Search command stays disabled.
    void setSearchRunning(bool running);
    bool searchRunning() const { return searchRunning_; }

    // Status part 1 of a page: a key of the status section, or a text of its own.
    void setPageStatus(Page page, int statusKey);
    void setPageStatusText(Page page, const QString& text);
    QString statusText(int part) const;
    // Parts 2 and 3 of a page: the selection and the result of the list, or the time
    // left of a batch. They come back with the page.
    void setPageStatusPart(Page page, int part, const QString& text);

    // The window is in front and no search or catalogue worker runs: the update check
    // may open its window now.
    bool freeForUpdates() const;

    // A catalogue worker runs: the commands that could start another one stay off
    // whatever the page or the list would allow, and the window does not close.
    void setCatalogueBusy(bool busy);
    bool catalogueBusy() const { return catalogueBusy_; }
    QProgressBar* progressBar() const { return progress_; }

    // After each change of the catalogue: the statistics again, on both pages.
    void refreshBriefInfo();

    // All texts again from the language table.
    void retitle();

    // The menu item, toolbar action or context item of a command id.
    QAction* action(int id) const;
    QToolButton* taskButton() const { return taskButton_; }
    QMenu* taskMenu() const { return taskMenu164_; }
    QMenu* taskDropMenu() const { return taskMenu165_; }
    QMenu* listContextMenu() const { return contextMenu162_; }
    QToolBar* toolbar() const { return toolbar_; }
    MyTab* tabs() const { return tabs_; }
    StartPageApp* startPage() const { return startPage_; }
    ElementsApp* orbitsPage() const { return orbitsPage_; }
    ElementsPage* workPane() const;
    MyListView* resultList() const;
    HelpViewer& helpViewer() { return help_; }

signals:
    void closedAndSaved();
    // A page was shown and its enable rules applied.
    void pageShown(Page page);
    // Every text was set again from the language table.
    void retitled();
    // The answer of freeForUpdates() may have changed.
    void freeForUpdatesChanged(bool free);

protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct StatusText {
        int key = 4;  // "Ready"
        QString text;
    };

    QAction* makeAction(int id, Section section, int key, QObject* parent);
    void buildMenus();
    void buildTaskMenus();
    void buildContextMenu();
    void buildToolbar();
    void buildAccelerators();
    void buildStatusBar();
    void buildPages();

    void runGroup(CommandGroup group);
    void selectTask(TaskChoice task);
    void toggleWorkPane();
    void toggleOutputPane();
    void toggleToolbar();
    void applyPaneState();
    // Commands whose group has no engine behind it stay disabled.
    bool engineBehind(CommandGroup group) const;
    void syncCommandStates();
    void holdCatalogueCommands();
    void showStatus(const StatusText& status);
    void onTabHover(int index);
    void onSearchStateChanged();
    void rememberPlacement();

    AppState& state_;
    MainCommands* commands_;
    EnableFlags flags_;
    Page page_ = Page::startPage;
    bool searchRunning_ = false;
    bool catalogueBusy_ = false;
    HelpViewer help_;

    std::multimap<int, QAction*> actions_;
    QMenu* taskMenu164_ = nullptr;
    QMenu* taskMenu165_ = nullptr;
    QMenu* contextMenu162_ = nullptr;
    QToolBar* toolbar_ = nullptr;
    QToolButton* taskButton_ = nullptr;
    MyTab* tabs_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    StartPageApp* startPage_ = nullptr;
    ElementsApp* orbitsPage_ = nullptr;
    ObservationsApp* observations_ = nullptr;
    QLabel* statusParts_[3] = {nullptr, nullptr, nullptr};
    QProgressBar* progress_ = nullptr;
    std::array<StatusText, kPageCount> pageStatus_{};
    std::array<std::array<QString, 2>, kPageCount> pageParts_{};
    bool ignorePlacement_ = true;  // raised while the window lays itself out
};

}  // namespace orvane
