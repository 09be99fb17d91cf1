#pragma once
// The command table of the main window: every command id of the menus, the
// accelerators, the toolbar and the context menus, the group it belongs to, and one
// enable flag per group. All ids of a group do the same thing, and a command whose
// flag is 0 is dropped without a word.
//
// The frame runs the commands that only touch the frame (panes, toolbar, help, exit,
// the choice of task). The others reach the engines through `MainCommands`, which the
// program fills as the engines arrive.
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace orvane {

enum class CommandGroup : int {
    search,
    add,
    edit,
    duplicate,
    remove,
    additionalInfo,
    tasks,
    orbitDiagrams,
    ephemerides,
    closeApproaches,
    saveAs,
    importRecords,
    exportRecords,
    selectAll,
    updateDatabase,
    options,
    checkForUpdates,
    homePage,
    helpTopics,
    about,
    workPane,
    outputPane,
    toolbar,
    exit,
};
inline constexpr std::size_t kCommandGroupCount = 24;

// Command ids.
namespace cmd {
inline constexpr int kSearch = 30010, kSearchMenu = 30096;
inline constexpr int kAdd = 30118, kAddButton = 30196, kAddContext = 30265;
inline constexpr int kEdit = 30099, kEditButton = 30194, kEditContext = 30264;
inline constexpr int kDuplicateButton = 30195, kDuplicate = 30251, kDuplicateContext = 30266;
inline constexpr int kDelete = 30100, kDeleteButton = 30198, kDeleteContext = 30267;
inline constexpr int kInfoButton = 30201, kInfo = 30252, kInfoContext = 30269;
inline constexpr int kTasks = 30203;
inline constexpr int kOrbitDiagramsDrop = 30275, kOrbitDiagrams = 30322;
inline constexpr int kEphemeridesDrop = 30255, kEphemerides = 30323;
inline constexpr int kCloseApproachesDrop = 30285, kCloseApproaches = 30324;
inline constexpr int kSaveAs = 30079, kSaveAsContext = 30262, kSaveAsButton = 30284;
inline constexpr int kImportButton = 30231, kImport = 30242;
inline constexpr int kExportButton = 30232, kExport = 30243, kExportContext = 30263;
inline constexpr int kSelectAll = 30076, kSelectAllContext = 30268, kSelectAllButton = 30289;
inline constexpr int kUpdateDatabaseButton = 30230, kUpdateDatabase = 30261;
inline constexpr int kOptions = 30097, kOptionsButton = 30311;
inline constexpr int kCheckForUpdates = 30260;
inline constexpr int kHomePage = 30259;
inline constexpr int kHelpTopics = 30257;
inline constexpr int kAbout = 30258;
inline constexpr int kWorkPaneButton = 30012, kWorkPane = 30313;
inline constexpr int kOutputPaneButton = 30011, kOutputPane = 30054;
inline constexpr int kToolbar = 30055;
inline constexpr int kExit = 30044;
}  // namespace cmd

// The group of a command id, or nothing for an id that is no command.
std::optional<CommandGroup> commandGroupOf(int id);

// The tasks, in the order of record 81 (`lastTask`).
enum class TaskChoice : int { orbitDiagrams = 0, ephemerides = 1, closeApproaches = 2 };

// The task group of a task, and the task of a task group.
CommandGroup taskGroupOf(TaskChoice task);
std::optional<TaskChoice> taskOfGroup(CommandGroup group);

// The pages under the tabs, in tab order.
enum class Page : int { startPage, orbits, observations, preliminaryOrbit, orbitImprovement };
inline constexpr int kPageCount = 5;

// One flag per group, 1 enabled and 0 disabled.
class EnableFlags {
public:
    EnableFlags();

    int flag(CommandGroup group) const { return flags_[static_cast<std::size_t>(group)]; }
    void set(CommandGroup group, int value) { flags_[static_cast<std::size_t>(group)] = value ? 1 : 0; }
    bool enabled(CommandGroup group) const { return flag(group) == 1; }

    // The four task groups at once.
    void setTasks(int value);

    // The flags that a change to `page` sets. `searchRequest` tells whether the search
    // form holds a request and no search runs; the pane toggles follow the pane state
    // (hiding one pane disables the toggle of the other, so one pane always stays).
    // Groups that a page's rule does not name keep the state they had.
    void applyPageRules(Page page, bool searchRequest, bool workPaneHidden, bool outputPaneHidden);

    // The pane toggles alone, after one of them changed.
    void applyPaneRule(bool workPaneHidden, bool outputPaneHidden);

private:
    std::array<int, kCommandGroupCount> flags_{};
};

// What the frame hands on to the engines. The default of each does nothing, so a
// command whose engine is not attached yet is still a command with its id, its text
// and its enable rule.
class MainCommands {
public:
    virtual ~MainCommands() = default;

    // Whether an engine stands behind the group. The frame keeps the commands of a
    // group without one disabled: a command that cannot work yet is never enabled
    // and silent.
    virtual bool handles(CommandGroup group) const { (void)group; return true; }

    // One of search, add, edit, duplicate, remove, additionalInfo, the four task
    // groups (the task already marked), saveAs, importRecords, exportRecords,
    // selectAll, updateDatabase, options, checkForUpdates, about.
    virtual void run(CommandGroup group) { (void)group; }

    // The update check chose a window to open.
    virtual void openPendingUpdateWindow() {}

    // A modal window or a worker ended: wakes the update check if it waits.
    virtual void operationEnded() {}

    // The update server's address, "http://host" without a trailing slash; the home
    // page is its product folder. Empty while no server is configured.
    virtual const char* updateBaseAddress() const { return ""; }
};

// The engines of the program, each answering for its own groups: a command goes to
// the first that handles it; the two messages and the address go to all, and the
// first address that is not empty counts.
class CommandRouter : public MainCommands {
public:
    void add(MainCommands* commands) { engines_.push_back(commands); }

    bool handles(CommandGroup group) const override;
    void run(CommandGroup group) override;
    void openPendingUpdateWindow() override;
    void operationEnded() override;
    const char* updateBaseAddress() const override;

private:
    std::vector<MainCommands*> engines_;
};

// The smallest size of the main window for a screen of the given height.
struct MinimumSize {
    int width;
    int height;
};
MinimumSize minimumMainSize(int screenHeight);

}  // namespace orvane
