#pragma once
// Observer places: named observatories of Data/Observatories.dat, and the observer that
// the task settings describe.
#include <filesystem>
#include <string>
#include <string_view>

#include "astro/calendar.h"

namespace orvane {

inline constexpr const char* kObservatoryNumberError = "OBSERVATORY NUMBER: READ ERROR!";
inline constexpr const char* kObservatoriesOpenError = "Error Open Observatories.dat";
inline constexpr const char* kObservatoriesReadError = "Error Read Observatories.dat";
inline constexpr const char* kObservatoriesFile = "Data/Observatories.dat";

// Three characters to a record number: "084" is 84, "A12" is 1012, "Z99" is 3599.
// Returns 0, or -1 for a code that is no observatory number (number is then 0).
int ObservatoryNumber(std::string_view code, int& number);

struct Observatory {
    double longitude = 0.0;  // degrees east
    double rhoCos = 0.0;     // Earth radii
    double rhoSin = 0.0;
    std::string name;        // 50 characters, blank padded
};

struct ObservatoryRecord {
    int status = 0;       // 0; -1 the file does not open; -2 the record does not read
    int number = 0;       // the observatory number used: 0 after a failure
    Observatory observatory;
    std::string message;  // the error text, empty on success
};

// Direct access: records of 78 four-byte units, record number = observatory number + 1;
// each holds longitude, rho cos phi', rho sin phi' (little-endian doubles) and the name.
inline constexpr int kObservatoryRecordBytes = 78 * 4;
ObservatoryRecord ReadObservatory(const std::filesystem::path& file, int number);

// Heliocentric place of an observatory from the Earth position as the planetary file gives
// it, turned by the sidereal angle of a UT instant.
void ObservatoryPlace(const double earth[3], const Observatory& observatory, JulianDate jdUT, double place[3]);

// The observer of the settings: latitude and longitude as degrees, minutes, seconds and a
// hemisphere flag (1 south, 1 west), height in metres.
struct ObserverSettings {
    int latitudeDeg = 0;
    int latitudeMin = 0;
    double latitudeSec = 0.0;
    int latitudeSouth = 0;
    int longitudeDeg = 0;
    int longitudeMin = 0;
    double longitudeSec = 0.0;
    int longitudeWest = 0;
    double altitude = 0.0;
};

struct ObserverPlace {
    double latitudeDegrees = 0.0;   // signed, north positive
    double longitudeDegrees = 0.0;  // east, 0 to 360
    double rhoCos = 0.0;            // Earth radii
    double rhoSin = 0.0;
};

ObserverPlace DeriveObserver(const ObserverSettings& settings);

}  // namespace orvane
