#include "ui/network_commands.h"

#include <QMetaObject>

#include "app/app_state.h"
#include "app/startup.h"
#include "net/update_server.h"
#include "ui/about_window.h"
#include "ui/main_window.h"
#include "ui/my_list_view.h"
#include "ui/orvane_options.h"
#include "ui/orvane_update.h"

namespace orvane {

using G = CommandGroup;

NetworkCommands::NetworkCommands(AppState& state, QObject* parent)
    : QObject(parent), state_(state),
      address_(ServerAddress(state.folders.userFolder, state.folders.commonFolder)) {}

NetworkCommands::~NetworkCommands() { check_.stop(); }

void NetworkCommands::attach(MainApp* window) {
    window_ = window;
    windowFree_ = window->freeForUpdates();
    connect(window, &MainApp::freeForUpdatesChanged, this, [this](bool free) { windowFree_ = free; });
}

bool NetworkCommands::handles(CommandGroup group) const {
    return group == G::options || group == G::checkForUpdates || group == G::about;
}

void NetworkCommands::run(CommandGroup group) {
    if (!window_) return;
    switch (group) {
        case G::options: openOptions(); return;
        case G::checkForUpdates: openProgramUpdate(); return;
        case G::about: openAbout(); return;
        default: return;
    }
}

void NetworkCommands::operationEnded() { check_.operationEnded(); }

void NetworkCommands::startCheckAtStart() {
    if (state_.checkUpdatesAtStart == 1) startCheck();
}

void NetworkCommands::startCheck() {
    UpdateCheckSettings settings;
    settings.workFolder = state_.folders.userFolder;
    settings.serverAddress = address_;
    settings.elementsUpdateName = state_.parameterText[1];
    settings.limits = limits;
    check_.start(std::move(settings));
}

// On the check's thread: the main window handles it on its own, as a message.
void NetworkCommands::openUpdateWindow() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (window_) window_->openPendingUpdateWindow();
        },
        Qt::QueuedConnection);
}

void NetworkCommands::openPendingUpdateWindow() {
    const int pending = marks_.updateWindowPending.exchange(0);
    if (pending == 1) openProgramUpdate();
    if (pending == 2) emit catalogueUpdateWanted();
}

void NetworkCommands::windowClosed() {
    if (window_) window_->operationEnded();
}

void NetworkCommands::openProgramUpdate() {
    if (!window_ || programUpdate_) return;
    marks_.programUpdateWindowOpened = 1;
    ProgramUpdateSettings settings;
    settings.workFolder = state_.folders.userFolder;
    settings.serverAddress = address_;
    settings.limits = limits;
    auto* update = new OrvaneUpdate(std::move(settings), window_);
    update->setAttribute(Qt::WA_DeleteOnClose);
    connect(update, &OrvaneUpdate::installerStarted, this, [this] {
        // As when the program ends: the help viewer goes and the settings are written.
        if (!window_) return;
        window_->helpViewer().end();
        SaveSettings(state_);
    });
    connect(update, &OrvaneUpdate::closed, this, &NetworkCommands::windowClosed);
    programUpdate_ = update;
    update->show();
}

void NetworkCommands::openOptions() {
    if (!window_ || options_) return;
    auto* options = new OrvaneOptions(state_, window_);
    options->setAttribute(Qt::WA_DeleteOnClose);
    connect(options, &OrvaneOptions::languageApplied, this, [this] {
        if (window_) window_->retitle();
    });
    connect(options, &OrvaneOptions::ephemerisApplied, this, [this](int choice) {
        if (window_) window_->resultList()->setEphemerisChoice(choice);
    });
    connect(options, &OrvaneOptions::serverApplied, this, [this] {
        address_ = ServerAddress(state_.folders.userFolder, state_.folders.commonFolder);
        if (window_) window_->showPage(window_->currentPage());
    });
    connect(options, &OrvaneOptions::checkSwitchedOn, this, [this] {
        marks_.programUpdateWindowOpened = 0;
        marks_.catalogueUpdateWindowOpened = 0;
        ReadCatalogueParameters(state_);
        startCheck();
    });
    connect(options, &QDialog::finished, this, &NetworkCommands::windowClosed);
    options_ = options;
    options->show();
}

void NetworkCommands::openAbout() {
    if (!window_ || about_) return;
    auto* about = new About(state_, window_);
    about->setAttribute(Qt::WA_DeleteOnClose);
    connect(about, &QDialog::finished, this, &NetworkCommands::windowClosed);
    about_ = about;
    about->show();
}

}  // namespace orvane
