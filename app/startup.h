#pragma once
// The program's initialisation without windows: folders, config.dat, orvane.db,
// the one-shot orvane.ini, left-overs of an update, the observer, the planetary file,
// the language table, then the catalogue parameters and statistics.
#include <string>

#include "app/app_state.h"

namespace orvane {

struct StartupReport {
    bool firstRun = false;          // the user folder was created by this start
    bool configRecreated = false;   // a missing or older config.dat was written anew
    bool catalogueCreated = false;  // orvane.db was created with the schema
    bool languageFromIni = false;   // orvane.ini named the language file
    bool viewMigrated = false;      // the catalogue view was rebuilt (version 1 to 2)
};

// Steps 1 to 6 of the initialisation, then the language table: everything up to the
// point where a window could open. `programFolder` is the directory the process was
// started in.
StartupReport InitialiseProgram(AppState& state, const std::string& programFolder);

// After the planetary file is settled: the column tables, the parameters, the one
// migration of the view, the statistics of the start page.
void PrepareCatalogue(AppState& state, StartupReport& report);

// The five rows of the table parameters into AppState, texts and numbers.
void ReadCatalogueParameters(AppState& state);

// Latitude, longitude and altitude of the settings to the derived observer fields.
void DeriveObserver(AppState& state);

// Step 6: which planetary file is in use, and the clean-up of a download that died.
void SettleEphemeris(AppState& state);

// The one save, when the main window goes away.
bool SaveSettings(const AppState& state);

}  // namespace orvane
