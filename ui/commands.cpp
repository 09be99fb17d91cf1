#include "ui/commands.h"

#include <initializer_list>
#include <utility>

namespace orvane {
namespace {

using G = CommandGroup;

constexpr std::pair<int, CommandGroup> kCommandIds[] = {
    {cmd::kSearch, G::search},
    {cmd::kSearchMenu, G::search},
    {cmd::kAdd, G::add},
    {cmd::kAddButton, G::add},
    {cmd::kAddContext, G::add},
    {cmd::kEdit, G::edit},
    {cmd::kEditButton, G::edit},
    {cmd::kEditContext, G::edit},
    {cmd::kDuplicateButton, G::duplicate},
    {cmd::kDuplicate, G::duplicate},
    {cmd::kDuplicateContext, G::duplicate},
    {cmd::kDelete, G::remove},
    {cmd::kDeleteButton, G::remove},
    {cmd::kDeleteContext, G::remove},
    {cmd::kInfoButton, G::additionalInfo},
    {cmd::kInfo, G::additionalInfo},
    {cmd::kInfoContext, G::additionalInfo},
    {cmd::kTasks, G::tasks},
    {cmd::kOrbitDiagramsDrop, G::orbitDiagrams},
    {cmd::kOrbitDiagrams, G::orbitDiagrams},
    {cmd::kEphemeridesDrop, G::ephemerides},
    {cmd::kEphemerides, G::ephemerides},
    {cmd::kCloseApproachesDrop, G::closeApproaches},
    {cmd::kCloseApproaches, G::closeApproaches},
    {cmd::kSaveAs, G::saveAs},
    {cmd::kSaveAsContext, G::saveAs},
    {cmd::kSaveAsButton, G::saveAs},
    {cmd::kImportButton, G::importRecords},
    {cmd::kImport, G::importRecords},
    {cmd::kExportButton, G::exportRecords},
    {cmd::kExport, G::exportRecords},
    {cmd::kExportContext, G::exportRecords},
    {cmd::kSelectAll, G::selectAll},
    {cmd::kSelectAllContext, G::selectAll},
    {cmd::kSelectAllButton, G::selectAll},
    {cmd::kUpdateDatabaseButton, G::updateDatabase},
    {cmd::kUpdateDatabase, G::updateDatabase},
    {cmd::kOptions, G::options},
    {cmd::kOptionsButton, G::options},
    {cmd::kCheckForUpdates, G::checkForUpdates},
    {cmd::kHomePage, G::homePage},
    {cmd::kHelpTopics, G::helpTopics},
    {cmd::kAbout, G::about},
    {cmd::kWorkPaneButton, G::workPane},
    {cmd::kWorkPane, G::workPane},
    {cmd::kOutputPaneButton, G::outputPane},
    {cmd::kOutputPane, G::outputPane},
    {cmd::kToolbar, G::toolbar},
    {cmd::kExit, G::exit},
};

// Commands that belong to no page: they stay enabled on every one.
constexpr CommandGroup kFrameCommands[] = {G::options, G::checkForUpdates, G::homePage,
                                           G::helpTopics, G::about,   G::toolbar, G::exit};

}  // namespace

std::optional<CommandGroup> commandGroupOf(int id) {
    for (const auto& [commandId, group] : kCommandIds)
        if (commandId == id) return group;
    return std::nullopt;
}

CommandGroup taskGroupOf(TaskChoice task) {
    switch (task) {
        case TaskChoice::orbitDiagrams: return G::orbitDiagrams;
        case TaskChoice::ephemerides: return G::ephemerides;
        case TaskChoice::closeApproaches: return G::closeApproaches;
    }
    return G::orbitDiagrams;
}

std::optional<TaskChoice> taskOfGroup(CommandGroup group) {
    switch (group) {
        case G::orbitDiagrams: return TaskChoice::orbitDiagrams;
        case G::ephemerides: return TaskChoice::ephemerides;
        case G::closeApproaches: return TaskChoice::closeApproaches;
        default: return std::nullopt;
    }
}

EnableFlags::EnableFlags() { flags_.fill(0); }

void EnableFlags::setTasks(int value) {
    for (G group : {G::tasks, G::orbitDiagrams, G::ephemerides, G::closeApproaches}) set(group, value);
}

void EnableFlags::applyPaneRule(bool workPaneHidden, bool outputPaneHidden) {
    set(G::workPane, outputPaneHidden ? 0 : 1);
    set(G::outputPane, workPaneHidden ? 0 : 1);
}

void EnableFlags::applyPageRules(Page page, bool searchRequest, bool workPaneHidden, bool outputPaneHidden) {
    for (G group : kFrameCommands) set(group, 1);
    applyPaneRule(workPaneHidden, outputPaneHidden);
    switch (page) {
        case Page::startPage:
            set(G::saveAs, 1);
            for (G group : {G::importRecords, G::exportRecords, G::search, G::add, G::edit, G::duplicate,
                            G::remove, G::additionalInfo, G::updateDatabase, G::selectAll})
                set(group, 0);
            setTasks(0);
            break;
        case Page::orbits:
            for (G group : {G::importRecords, G::add, G::updateDatabase}) set(group, 1);
            set(G::search, searchRequest ? 1 : 0);
            // The list enables these by its selection.
            for (G group : {G::exportRecords, G::edit, G::duplicate, G::remove, G::additionalInfo, G::saveAs,
                            G::selectAll})
                set(group, 0);
            setTasks(0);
            break;
        case Page::observations:
        case Page::preliminaryOrbit:
        case Page::orbitImprovement:
            // Import, Export, Save As and Select All are not named by this rule and
            // keep the state of the page that was left.
            for (G group : {G::search, G::add, G::edit, G::duplicate, G::remove, G::additionalInfo,
                            G::updateDatabase})
                set(group, 0);
            setTasks(0);
            break;
    }
}

bool CommandRouter::handles(CommandGroup group) const {
    for (const MainCommands* engine : engines_)
        if (engine->handles(group)) return true;
    return false;
}

void CommandRouter::run(CommandGroup group) {
    for (MainCommands* engine : engines_) {
        if (engine->handles(group)) {
            engine->run(group);
            return;
        }
    }
}

void CommandRouter::openPendingUpdateWindow() {
    for (MainCommands* engine : engines_) engine->openPendingUpdateWindow();
}

void CommandRouter::operationEnded() {
    for (MainCommands* engine : engines_) engine->operationEnded();
}

const char* CommandRouter::updateBaseAddress() const {
    for (const MainCommands* engine : engines_)
        if (*engine->updateBaseAddress() != '\0') return engine->updateBaseAddress();
    return "";
}

MinimumSize minimumMainSize(int screenHeight) {
    if (screenHeight < 768) return {800, 500};
    return {800, 600};
}

}  // namespace orvane
