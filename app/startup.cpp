#include "app/startup.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "app/config_file.h"
#include "ui/language/load_language.h"

namespace orvane {
namespace fs = std::filesystem;

namespace {

constexpr const char* kConfigFile = "config.dat";
constexpr const char* kCatalogueFile = "orvane.db";
constexpr const char* kIniFile = "orvane.ini";

bool exists(const std::string& path) {
    std::error_code ec;
    return fs::exists(path, ec);
}

void removeQuietly(const std::string& path) {
    std::error_code ec;
    fs::remove(path, ec);
}

// A first run is recognised only by this call creating the user folder. Its parents
// (~/.local/share) may be missing on a new account; they are made first.
bool createUserFolder(const std::string& userFolder) {
    std::error_code ec;
    const fs::path folder = fs::path(userFolder).parent_path();
    fs::create_directories(folder.parent_path(), ec);
    return fs::create_directory(folder, ec);
}

void createCatalogue(StartupReport& report);

void settleConfigFile(StartupReport& report) {
    if (!exists(kConfigFile)) {
        CreateDefaultConfigFile(kConfigFile);
        report.configRecreated = true;
        return;
    }
    float version = kConfigVersion;
    ReadConfigVersion(kConfigFile, version);
    // An older layout is replaced without a question; its settings are lost.
    if (version < kConfigVersion) {
        removeQuietly(kConfigFile);
        CreateDefaultConfigFile(kConfigFile);
        report.configRecreated = true;
    }
}

void createCatalogue(StartupReport& report) {
    report.catalogueCreated = true;
}

}  // namespace

StartupReport InitialiseProgram(AppState& state, const std::string& programFolder) {
    StartupReport report;
    state.folders = SettleFolders(programFolder);
    state.saveFolder = state.folders.documentsFolder;

    std::error_code ec;
    report.firstRun = createUserFolder(state.folders.userFolder);
    fs::current_path(state.folders.userFolder, ec);
    if (report.firstRun) {
        CreateDefaultConfigFile(kConfigFile);
        report.configRecreated = true;
        createCatalogue(report);
        fs::create_directories(state.folders.commonFolder, ec);
    } else {
        settleConfigFile(report);
        if (!exists(kCatalogueFile)) createCatalogue(report);
        removeQuietly("setup.exe");
        removeQuietly("update.lst");
        removeQuietly("update.csv");
        fs::create_directories(state.folders.commonFolder, ec);
    }

    ReadConfigFile(kConfigFile, state);
    RepairConfigValues(state);
    DeriveObserver(state);
    SettleEphemeris(state);

    // The English defaults first, then the chosen language file over them.
    ResetLanguage();
    LoadLanguage(state.folders.languageFolder, state.languageName);
    return report;
}

void PrepareCatalogue(AppState&, StartupReport&) {}

void DeriveObserver(AppState& s) {
    s.latitudeDegrees = s.latitudeDeg + s.latitudeMin / 60.0 + s.latitudeSec / 3600.0;
    if (s.latitudeSouth == 1) s.latitudeDegrees = -s.latitudeDegrees;
    s.longitudeDegrees = s.longitudeDeg + s.longitudeMin / 60.0 + s.longitudeSec / 3600.0;
    if (s.longitudeWest == 1) s.longitudeDegrees = 360.0 - s.longitudeDegrees;
}

void SettleEphemeris(AppState& s) {
    const bool a = exists(s.folders.de406Path);
    const bool b = exists(s.folders.de423Path);
    if (!a && s.ephemerisChoice == 1) s.ephemerisChoice = 2;
    if (!b && s.ephemerisChoice == 2) s.ephemerisChoice = 1;
    if (!a && !b) {
        s.ephemerisMissing = 1;
        s.ephemerisChoice = 0;
        return;
    }
    s.ephemerisMissing = 0;
    if (s.pendingEphemerisDelete == 1) {
        removeQuietly(s.folders.de406Path);
        s.pendingEphemerisDelete = 0;
        if (a && !b) {
            s.ephemerisMissing = 1;
            s.ephemerisChoice = 0;
        } else {
            s.ephemerisChoice = 2;
        }
    } else if (s.pendingEphemerisDelete == 2) {
        removeQuietly(s.folders.de423Path);
        s.pendingEphemerisDelete = 0;
        if (b && !a) {
            s.ephemerisMissing = 1;
            s.ephemerisChoice = 0;
        } else {
            s.ephemerisChoice = 1;
        }
    }
}

bool SaveSettings(const AppState& state) {
    return WriteConfigFile(state.folders.userFolder + kConfigFile, state);
}

}  // namespace orvane
