#include "app/startup.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "app/config_file.h"
#include "astro/observatories.h"
#include "base/fixed_text.h"
#include "base/list_directed.h"
#include "catalogue/schema.h"
#include "catalogue/sql_layer.h"
#include "language/load_language.h"
#include "net/http_fetch.h"
#include "net/update_server.h"

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

void makeCatalogue(StartupReport& report) {
    report.catalogueCreated = orvane::createCatalogue(kCatalogueFile) == 0;
}

// orvane.ini names the language file for the next starts: one list-directed item
// of its first line (the first token, or a quoted text) into a field of 100. It is
// read once and deleted.
void takeLanguageFromIni(StartupReport& report) {
    if (!exists(kIniFile)) return;
    std::string firstLine;
    {
        std::ifstream in(kIniFile, std::ios::binary);
        std::getline(in, firstLine);
        // A hostile file may hold no line end at all; the name is never that long.
        if (firstLine.size() > 4096) firstLine.resize(4096);
    }
    removeQuietly(kIniFile);
    std::string name;
    ListReader reader(firstLine);
    const ListStatus status = reader.read(ListTarget::text(name, kLanguageNameWidth));
    if (listFailed(status) || status == ListStatus::EndOfList || isBlank(name)) return;
    report.languageFromIni = WriteLanguageRecord(kConfigFile, std::string(trimRight(name)));
}

// Rows 1, 4 and 5 of the parameters are numbers, read from their texts.
int parameterNumber(const std::string& text) {
    std::int32_t value = 0;
    ListReader reader(text);
    return listFailed(reader.read(ListTarget::integer(value))) ? 0 : value;
}

void migrateView(const std::string& path) {
    CatalogueDb db;
    sql::open(path, db);
    sql::execute(db, "DROP VIEW e_elements;");
    sql::execute(db, kViewStatement);
    sql::execute(db, "UPDATE parameters SET value = '2' WHERE name = 'version';");
    sql::close(db);
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
        makeCatalogue(report);
        fs::create_directories(state.folders.commonFolder, ec);
    } else {
        settleConfigFile(report);
        if (!exists(kCatalogueFile)) makeCatalogue(report);
        takeLanguageFromIni(report);
        // Left-overs of an update of an earlier run: the package and the work files.
        removeQuietly(kPackageFile);
        removeQuietly(kUpdateListFile);
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

void ReadCatalogueParameters(AppState& state) {
    const CatalogueParameters parameters =
        readParameters(state.folders.userFolder + kCatalogueFile, state.columnTables);
    for (std::size_t k = 0; k < 5; ++k) state.parameterText[k] = std::string(trimBoth(parameters.values[k]));
    state.catalogueVersion = parameterNumber(parameters.values[0]);
    state.updateId = parameterNumber(parameters.values[3]);
    state.updatePrevId = parameterNumber(parameters.values[4]);
}

void PrepareCatalogue(AppState& state, StartupReport& report) {
    const std::string path = state.folders.userFolder + kCatalogueFile;
    state.columnTables = buildColumnTables();
    ReadCatalogueParameters(state);
    // The one migration there ever was: version 1 had another view. It runs before
    // anything reads the view.
    if (state.catalogueVersion == 1) {
        migrateView(path);
        report.viewMigrated = true;
    }
    state.briefInfo = refreshBriefInfo(path, state.columnTables);
}

void DeriveObserver(AppState& s) {
    ObserverSettings settings;
    settings.latitudeDeg = s.latitudeDeg;
    settings.latitudeMin = s.latitudeMin;
    settings.latitudeSec = s.latitudeSec;
    settings.latitudeSouth = s.latitudeSouth;
    settings.longitudeDeg = s.longitudeDeg;
    settings.longitudeMin = s.longitudeMin;
    settings.longitudeSec = s.longitudeSec;
    settings.longitudeWest = s.longitudeWest;
    settings.altitude = s.altitude;
    const ObserverPlace place = orvane::DeriveObserver(settings);
    s.latitudeDegrees = place.latitudeDegrees;
    s.longitudeDegrees = place.longitudeDegrees;
    s.observerRhoCos = place.rhoCos;
    s.observerRhoSin = place.rhoSin;
}

void SettleEphemeris(AppState& s) {
    // A run that died during a download left the mark and a partial file under a
    // temporary name; the file itself only ever appears whole.
    if (s.pendingEphemerisDelete == 1) RemovePartialDownloads(s.folders.de406Path);
    if (s.pendingEphemerisDelete == 2) RemovePartialDownloads(s.folders.de423Path);
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
