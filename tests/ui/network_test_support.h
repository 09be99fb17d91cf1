#pragma once
// The program's main window with its catalogue and network commands on a temporary
// home, its update server a published folder served inside the test program.
#include <QApplication>
#include <QDir>
#include <QTest>
#include <QWidget>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "app/app_state.h"
#include "app/folders.h"
#include "app/startup.h"
#include "language/language_table.h"
#include "net/desktop_opener.h"
#include "net/update_server.h"
#include "support/temp_home.h"
#include "support/test_server.h"
#include "ui/catalogue_commands.h"
#include "ui/main_window.h"
#include "ui/network_commands.h"

namespace orvane::testing {

template <class T>
T* control(QWidget& window, int id) {
    for (T* child : window.findChildren<T*>())
        if (child->property("controlId").toInt() == id) return child;
    return nullptr;
}

// Saves the window under build/screenshots for a reviewer to look at.
inline bool screenshot(QWidget& window, const QString& name) {
    const QString folder = QStringLiteral(ORVANE_BINARY_DIR "/screenshots");
    QDir().mkpath(folder);
    return window.grab().save(folder + '/' + name + QStringLiteral(".png"));
}

// An opener in place of the desktop's: it writes what it was given to a file and
// ends with `status`.
struct RecordingOpener {
    RecordingOpener(const std::filesystem::path& folder, int status = 0)
        : script(folder / "opener.sh"), record(folder / "opened.txt") {
        writeFile(script, "#!/bin/sh\nprintf '%s' \"$1\" > '" + record.string() + "'\nexit " +
                              std::to_string(status) + "\n");
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        setenv(kOpenerEnvironment, script.c_str(), 1);
    }
    ~RecordingOpener() { unsetenv(kOpenerEnvironment); }
    bool opened() const { return std::filesystem::exists(record); }
    std::string what() const { return readFile(record); }

    std::filesystem::path script;
    std::filesystem::path record;
};

// The program as main.cpp puts it together, after a start on the temporary home.
struct NetworkDesk {
    explicit NetworkDesk(const std::string& version = "0.07", bool withPlanetaryFile = true) : server(version) {
        ResetLanguage();
        setenv(kServerEnvironment, server.address().c_str(), 1);
        // The setup's planetary file in this home's per-machine folder.
        if (withPlanetaryFile) {
            std::filesystem::create_directories(CommonFolder());
            std::filesystem::copy_file(machinePlanetaryFile(), CommonFolder() + "jplde423.dat");
        }
        InitialiseProgram(state, server.home.root().string());
        StartupReport report;
        PrepareCatalogue(state, report);
        catalogue = std::make_unique<CatalogueCommands>(state);
        network = std::make_unique<NetworkCommands>(state);
        router.add(catalogue.get());
        router.add(network.get());
        window = std::make_unique<MainApp>(state, &router);
        catalogue->attach(window.get());
        network->attach(window.get());
    }
    ~NetworkDesk() {
        unsetenv(kServerEnvironment);
        // Windows that a test left open go before the commands that own their work.
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top != window.get() && top->isVisible()) top->close();
        network->check().stop();
        window.reset();
    }

    // Shown and in front, as after the start.
    bool showInFront() {
        window->showAtStoredPlacement();
        window->activateWindow();
        return QTest::qWaitForWindowActive(window.get());
    }

    PublishedServer server;
    AppState state;
    std::unique_ptr<CatalogueCommands> catalogue;
    std::unique_ptr<NetworkCommands> network;
    CommandRouter router;
    std::unique_ptr<MainApp> window;
};

}  // namespace orvane::testing
