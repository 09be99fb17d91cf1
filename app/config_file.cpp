#include "app/config_file.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <vector>

#include "base/fixed_text.h"

namespace orvane {
namespace {

static_assert(std::endian::native == std::endian::little,
              "config.dat is little-endian; add byte swapping for this machine");

constexpr std::size_t kSaveFolderWidth = 500;

// Visits every record in order with its number and its field. The record table lives
// here alone: reading and writing both walk it.
template <class State, class Visitor>
void VisitRecords(State& s, Visitor&& v) {
    v.r4(1, s.configVersion);
    v.i4(2, s.workPaneHidden);
    v.i4(3, s.outputPaneHidden);
    v.i4(4, s.toolbarHidden);
    v.i4(5, s.splitterPosition);
    v.i4(6, s.windowLeft);
    v.i4(7, s.windowTop);
    v.i4(8, s.windowWidth);
    v.i4(9, s.windowHeight);
    v.i4(10, s.advancedSearchOpen);
    v.i4(11, s.briefInfoOpen);
    v.i4(12, s.filtersOpen);
    v.i4(13, s.setsOpen);
    v.i4(14, s.elementsOpen);
    v.i4(15, s.calcElementsOpen);
    v.i4(16, s.quickSearchOpen);
    v.i4(17, s.advancedSearchActive);
    v.i4(18, s.quickSearchActive);
    v.i4(19, s.filterPeriodicOnly);
    v.i4(20, s.filterLastAppearance);
    v.i4(21, s.filterMyRecords);
    v.i4(22, s.setAll);
    v.i4(23, s.setEcs);
    v.i4(24, s.setOrbital);
    v.i4(25, s.setEpoch);
    v.i4(26, s.setCalculated);
    for (int k = 0; k < kColumnRecords; ++k) v.i4(27 + k, s.columnShown[static_cast<std::size_t>(k)]);
    v.i4(80, s.optionsScratch);
    v.i4(81, s.lastTask);
    v.i4(82, s.panelHorizontalScroll);
    v.i4(83, s.integrationStatusOpen);
    v.i4(84, s.oneObjectAtATime);
    v.i4(85, s.diagramPlanetOrbits);
    v.i4(86, s.diagramAxes);
    v.i4(87, s.diagramObjectNames);
    v.i4(88, s.showCurrentOnly);
    v.i4(89, s.datesInJulianDays);
    v.i4(90, s.distanceUnitsKm);
    v.i4(91, s.showPerihelionPassages);
    v.i4(92, s.minDistanceEachAppearance);
    v.i4(93, s.showHms);
    v.i4(94, s.perihelionRelativeToEpoch);
    v.i4(95, s.angleUnitsRadians);
    v.i4(96, s.combineBoxCopy);
    v.i4(97, s.centralBody);
    v.i4(98, s.pictureWidth);
    v.i4(99, s.pictureHeight);
    v.i4(100, s.imageUnit);
    v.i4(101, s.diagramBackground);
    v.i4(102, s.checkUpdatesAtStart);
    v.i4(103, s.pendingEphemerisDelete);
    v.i4(104, s.filterLastUpdate);
    v.i4(105, s.showErrors);
    v.i4(106, s.outputDetailsOpen);
    v.text(107, s.languageName, kLanguageNameWidth);
    v.i4(108, s.longitudeDeg);
    v.i4(109, s.longitudeMin);
    v.r8(110, s.longitudeSec);
    v.i4(111, s.longitudeWest);
    v.i4(112, s.latitudeDeg);
    v.i4(113, s.latitudeMin);
    v.r8(114, s.latitudeSec);
    v.i4(115, s.latitudeSouth);
    v.r8(116, s.altitude);
    v.i4(117, s.ephemerisType);
    v.i4(118, s.coordinateKind);
    v.i4(119, s.mainPlane);
    v.i4(120, s.referenceSystem);
    v.i4(121, s.observerPlace);
    v.i4(122, s.optionsPage);
    v.i4(123, s.latitudeHemisphere);
    v.i4(124, s.longitudeHemisphere);
    v.i4(125, s.stepUnit);
    v.i4(126, s.ephemerisChoice);
    v.i4(127, s.integrateFromEpoch);
    v.i4(128, s.epochFormat);
    v.i4(129, s.planetSizeCounted);
    v.i4(130, s.calculateEphemerides);
    v.i4(131, s.singleFile);
    v.i4(132, s.stepSize);
    v.text(133, s.saveFolder, kSaveFolderWidth);
    v.i4(134, s.maxFileSize);
}

std::size_t offsetOf(int record) { return static_cast<std::size_t>(record - 1) * kConfigRecordBytes; }

struct Writer {
    std::vector<char> bytes = std::vector<char>(offsetOf(kConfigRecords + 1), '\0');
    template <class T> void put(int record, const T& value) {
        std::memcpy(bytes.data() + offsetOf(record), &value, sizeof value);
    }
    void i4(int r, const int& v) { put(r, static_cast<std::int32_t>(v)); }
    void r4(int r, const float& v) { put(r, v); }
    void r8(int r, const double& v) { put(r, v); }
    void text(int r, const std::string& v, std::size_t width) {
        const std::string field = padTo(v, width);
        std::memcpy(bytes.data() + offsetOf(r), field.data(), width);
    }
};

struct Reader {
    const std::vector<char>& bytes;
    int count = 0;
    bool holds(int record) const { return bytes.size() >= offsetOf(record + 1); }
    template <class T> void get(int record, T& value) {
        if (!holds(record)) return;
        std::memcpy(&value, bytes.data() + offsetOf(record), sizeof value);
        ++count;
    }
    void i4(int r, int& v) {
        std::int32_t x = v;
        get(r, x);
        v = x;
    }
    void r4(int r, float& v) { get(r, v); }
    void r8(int r, double& v) { get(r, v); }
    void text(int r, std::string& v, std::size_t width) {
        if (!holds(r)) return;
        v = std::string(trimRight(cutAtNul(std::string_view(bytes.data() + offsetOf(r), width))));
        ++count;
    }
};

bool readAll(const std::string& path, std::vector<char>& bytes) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    in.seekg(0, std::ios::end);
    const std::streamoff size = in.tellg();
    if (size < 0) return false;
    // Nothing beyond the last record matters; a huge file is not read whole.
    const std::streamoff wanted = std::min<std::streamoff>(size, static_cast<std::streamoff>(offsetOf(kConfigRecords + 1)));
    bytes.resize(static_cast<std::size_t>(wanted));
    in.seekg(0);
    in.read(bytes.data(), wanted);
    return static_cast<bool>(in);
}

bool writeAll(const std::string& path, const std::vector<char>& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(out);
}

void keepWithin(int& value, int low, int high, int fallback) {
    if (value < low || value > high) value = fallback;
}

void keepFinite(double& value, double low, double high, double fallback) {
    if (!std::isfinite(value) || value < low || value > high) value = fallback;
}

}  // namespace

bool WriteConfigFile(const std::string& path, const AppState& state) {
    Writer w;
    VisitRecords(state, w);
    return writeAll(path, w.bytes);
}

bool CreateDefaultConfigFile(const std::string& path) {
    AppState defaults;
    return WriteConfigFile(path, defaults);
}

int ReadConfigFile(const std::string& path, AppState& state) {
    std::vector<char> bytes;
    if (!readAll(path, bytes)) return 0;
    Reader r{bytes};
    VisitRecords(state, r);
    return r.count;
}

bool ReadConfigVersion(const std::string& path, float& version) {
    std::vector<char> bytes;
    if (!readAll(path, bytes) || bytes.size() < offsetOf(2)) return false;
    std::memcpy(&version, bytes.data(), sizeof version);
    return true;
}

bool WriteLanguageRecord(const std::string& path, const std::string& languageName) {
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    if (!file) return false;
    const std::string field = padTo(languageName, kLanguageNameWidth);
    file.seekp(static_cast<std::streamoff>(offsetOf(107)));
    file.write(field.data(), static_cast<std::streamsize>(field.size()));
    return static_cast<bool>(file);
}

bool WritePendingEphemerisRecord(const std::string& path, int value) {
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    if (!file) return false;
    const std::int32_t field = value;
    file.seekp(static_cast<std::streamoff>(offsetOf(103)));
    file.write(reinterpret_cast<const char*>(&field), sizeof field);
    file.flush();
    return static_cast<bool>(file);
}

void RepairConfigValues(AppState& s) {
    const AppState d;
    if (!std::isfinite(s.configVersion)) s.configVersion = d.configVersion;
    keepWithin(s.splitterPosition, 0, 100000, d.splitterPosition);
    keepWithin(s.windowWidth, 0, 100000, 0);
    keepWithin(s.windowHeight, 0, 100000, 0);
    keepWithin(s.windowLeft, -100000, 100000, 0);
    keepWithin(s.windowTop, -100000, 100000, 0);
    keepWithin(s.lastTask, 0, 2, d.lastTask);
    keepWithin(s.centralBody, 0, 13, d.centralBody);
    keepWithin(s.pictureWidth, 1, 20000, d.pictureWidth);
    keepWithin(s.pictureHeight, 1, 20000, d.pictureHeight);
    keepWithin(s.imageUnit, 0, 2, d.imageUnit);
    keepWithin(s.diagramBackground, 0, 0xFFFFFF, d.diagramBackground);
    keepWithin(s.pendingEphemerisDelete, 0, 2, d.pendingEphemerisDelete);
    keepWithin(s.ephemerisType, 0, 2, d.ephemerisType);
    keepWithin(s.coordinateKind, 0, 2, d.coordinateKind);
    keepWithin(s.mainPlane, 0, 2, d.mainPlane);
    keepWithin(s.referenceSystem, 0, 2, d.referenceSystem);
    keepWithin(s.observerPlace, 0, 1, d.observerPlace);
    keepWithin(s.optionsPage, 0, 2, d.optionsPage);
    keepWithin(s.latitudeHemisphere, 0, 1, d.latitudeHemisphere);
    keepWithin(s.longitudeHemisphere, 0, 1, d.longitudeHemisphere);
    keepWithin(s.stepUnit, 0, 2, d.stepUnit);
    keepWithin(s.ephemerisChoice, 0, 2, d.ephemerisChoice);
    keepWithin(s.epochFormat, 0, 2, d.epochFormat);
    keepWithin(s.longitudeDeg, -360, 360, d.longitudeDeg);
    keepWithin(s.longitudeMin, -60, 60, d.longitudeMin);
    keepWithin(s.latitudeDeg, -90, 90, d.latitudeDeg);
    keepWithin(s.latitudeMin, -60, 60, d.latitudeMin);
    keepFinite(s.longitudeSec, -60.0, 60.0, d.longitudeSec);
    keepFinite(s.latitudeSec, -60.0, 60.0, d.latitudeSec);
    keepFinite(s.altitude, -12000.0, 1.0e7, d.altitude);
}

}  // namespace orvane
