// The program's entry: flush-to-zero, the initialisation, the main window, the loop.
#include <QApplication>
#include <QDir>
#include <xmmintrin.h>

#include "app/app_state.h"
#include "app/startup.h"
#include "ui/catalogue_commands.h"
#include "ui/echeck_window.h"
#include "ui/main_window.h"
#include "ui/network_commands.h"

int main(int argc, char** argv) {
    // Denormals in the integrator would only cost time; the program runs with them flushed.
    _mm_setcsr(_mm_getcsr() | 0x8000);

    // The program folder is the directory the process was started in.
    const std::string programFolder = QDir::currentPath().toStdString();
    QApplication app(argc, argv);

    static orvane::AppState state;
    orvane::StartupReport report = orvane::InitialiseProgram(state, programFolder);
    // Without a planetary file the program cannot compute; it asks for one first and
    // ends when the user leaves without it.
    if (!orvane::RunEphemerisCheck(state)) return 0;
    orvane::PrepareCatalogue(state, report);

    // The commands outlive the window: at the end they wait for a worker that may
    // still be finishing, and stop an update check that still runs.
    orvane::CatalogueCommands catalogue(state);
    orvane::NetworkCommands network(state);
    orvane::CommandRouter commands;
    commands.add(&catalogue);
    commands.add(&network);
    orvane::MainApp window(state, &commands);
    catalogue.attach(&window);
    network.attach(&window);
    QObject::connect(&network, &orvane::NetworkCommands::catalogueUpdateWanted, &window,
                     [&window] { window.execute(orvane::cmd::kUpdateDatabase); });
    window.showAtStoredPlacement();
    network.startCheckAtStart();
    app.exec();
    return 0;
}
