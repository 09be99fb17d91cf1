#pragma once
// The options of the task windows that drive a calculation run and the text it
// writes. The defaults are those of a fresh config.dat; integer choices are the
// index of the entry in their list, counted from 0.
#include <string>

namespace orvane {

// The task the window runs; exactly one, or none outside a task.
enum class TaskKind { None, OrbitDiagrams, Ephemerides, CloseApproaches };

struct TaskOptions {
    // Ephemeris page.
    int ephemerisType = 0;    // 0 "Spherical", 1 "Rectangular", 2 "Orbital"
    int coordinateKind = 0;   // 0 "Astrometric", 1 "Geometric", 2 "Apparent"
    int mainPlane = 0;        // 0 "Equator", 1 "Ecliptic", 2 "Horizon"
    int referenceSystem = 0;  // 0 "2000.0", 1 "1950.0", 2 "True"
    int centralBody = 3;      // 0 the Sun, 1 Mercury .. 9 Pluto, 10 the Moon
    int observerPlace = 1;    // 0 "Geocenter", 1 "Topocenter"

    // The observer as the fields show it.
    int latitudeDeg = 59;
    int latitudeMin = 46;
    double latitudeSec = 19.62;
    int latitudeHemisphere = 0;  // 0 "N", 1 "S"
    int longitudeDeg = 30;
    int longitudeMin = 19;
    double longitudeSec = 38.64;
    int longitudeHemisphere = 0;  // 0 "E", 1 "W"
    double altitude = 85.4;       // metres

    // The observer as the pipeline uses it: signed decimal degrees (east and
    // north positive) and the geocentric place in Earth radii, derived from
    // the fields above when the settings are read or applied.
    double longitudeDegrees = 0.0;
    double latitudeDegrees = 0.0;
    double observerRhoCos = 0.0;
    double observerRhoSin = 0.0;

    bool calculateEphemerides = false;  // "Calculate ephemerides"
    bool singleFile = false;            // "Write to single File"
    int stepSize = 1;                   // 1 to 999
    int stepUnit = 0;                   // 0 "Days", 1 "Hours", 2 "Minutes"
    std::string saveFolder;             // "Save to Folder:"; the documents folder at first
    int maxFileSize = 1;                // "Maximum File Size:" in MB, 1 to 20

    // Close Approaches page.
    bool integrateFromEpoch = false;         // "Integrate from the epoch (if closer)"
    bool showPerihelionPassages = false;     // "Show Perihelion Passages"
    bool minDistanceEachAppearance = false;  // "Minimal distance to Earth at each appearance"
    bool planetSizeCounted = true;           // "Take into account the size of the planet"

    // Shared display options.
    bool combineOrbits = false;  // "Combine all selected orbits (300 max.)"; config.dat keeps
                                 // the inverse, oneObjectAtATime
    bool datesInJulianDays = false;          // "Show dates in Julian Days"
    bool showHms = true;                     // "Show h:m:s in date"
    bool perihelionRelativeToEpoch = false;  // "Time of perihelion passage relative to epoch"
    bool distanceUnitsKm = false;            // "Show distance and velocity in km and km/s"
    bool angleUnitsRadians = false;          // "Show angles and angular velocity in rad and rad/d"
};

// The output step in days: the size as given, over 24 for hours and over
// 60 and 24 for minutes. Tasks other than Ephemerides run with one day.
inline double StepInDays(const TaskOptions& options, TaskKind task) {
    if (task != TaskKind::Ephemerides) return 1.0;
    const double size = options.stepSize;
    if (options.stepUnit == 1) return size / 24.0;
    if (options.stepUnit == 2) return size / 60.0 / 24.0;
    return size;
}

}  // namespace orvane
