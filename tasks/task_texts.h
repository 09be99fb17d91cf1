#pragma once
// The language texts that the ephemeris and close-approach texts are built from.
// They live in the program's language table, which this library does not reach:
// the caller reads them through a lookup. A default-made TaskTexts holds the
// English texts of the table, so a caller without a table still writes English.
#include <array>
#include <string>

#include "records/record_texts.h"

namespace orvane {

struct TaskTexts {
    // orvCoSystem: the list entries of the options page.
    std::array<std::string, 3> typeNames{"Spherical", "Rectangular", "Orbital"};
    std::array<std::string, 3> positionNames{"Astrometric", "Geometric", "Apparent"};
    std::array<std::string, 3> planeNames{"Equator", "Ecliptic", "Horizon"};
    std::array<std::string, 3> systemNames{"2000.0", "1950.0", "True"};
    std::array<std::string, 2> placeNames{"Geocenter", "Topocenter"};
    std::string degreeSign = "\xC2\xB0";
    std::string minuteSign = "'";
    std::string secondSign = "\"";
    std::string metresInBrackets = "(m)";
    std::string east = "E", west = "W", north = "N", south = "S";

    // orvPlanets 1 to 11: the Sun, Mercury .. Pluto, the Moon.
    std::array<std::string, 11> bodyNames{"Sun",    "Mercury", "Venus",   "Earth",  "Mars", "Jupiter",
                                          "Saturn", "Uranus",  "Neptune", "Pluto",  "Moon"};

    // orvElementsOptions
    std::string typeLabel = "Type      :";
    std::string centreSunLine = "Center    : Sun";
    std::string centreLabel = "Center    :";

    // orvEdit
    std::string ephemeridesOf = "Ephemerides of";
    std::string closeApproachesOf = "Close Approaches of";
    std::string km = "km", au = "AU", kmPerSecond = "km/s", auPerDay = "AU/day";
    std::string rad = "rad", deg = "deg", radPerDay = "rad/day", degPerDay = "deg/day";
    std::string year = "yr", jd = "JD", day = "day", notAvailable = "n/a";
    std::string arcsecPerHour = "arcsec/h";
    std::string arcsecPerHourShort = "\"/h";
    std::string epochLabel = "Epoch     :";
    std::string epochWord = "Epoch";
    // Labels of the close-approach lines by body index: 1 Mercury .. 9 Pluto; 0
    // (perihelion passages) has the Sun's; 3 and 10 both the Earth's.
    std::array<std::string, 10> approachLabels{"Sun       :", "Mercury   :", "Venus     :", "Earth     :",
                                               "Mars      :", "Jupiter   :", "Saturn    :", "Uranus    :",
                                               "Neptune   :", "Pluto     :"};
    std::string noCloseApproaches = "No close-approaches were found in selected interval...";
    std::string noInterval = "No interval selected...";
    std::string orbitLabel = "Orbit     :";
    std::string orbitHeader = "Orbit";
    std::string hillLabel = "Hill Sph. :";
    std::string hillHeader = "Hill Sph.";
    // Orbit classes by class number: 0 "No class", 1 "Hyperbolic" .. 7 "Halley-type".
    std::array<std::string, 8> classNames{"No class",       "Hyperbolic",  "Parabolic",
                                          "Jupiter-family", "Encke-type",  "Chiron-type",
                                          "Jupiter-family*", "Halley-type"};
    std::string messageTitle = "Message";

    // orvElementsOptions: the title and text of an ephemeris file that cannot be made.
    std::string errorTitle = "Error!";
    std::string folderMissing = "Specified folder does not exist, or an invalid path was entered!";

    // orvOrbits: the question of the full ephemeris file and the left comet.
    std::string writingStopped = "Writing the ephemeris data to a file";
    std::string stoppedBecause = "is stopped because the file size exceeds";
    std::string tryOtherStep = "MB. Try to change the step-size or the interval of integration.";
    std::string continueWithoutFile = "Continue integration without writing data to a file?";
    std::string cometWord = "Comet";
    std::string leftSolarSystem = "has left the Solar System!";
};

// Reads every text above through the lookup (section names as in a language file).
TaskTexts loadTaskTexts(const TextLookup& lookup);

}  // namespace orvane
