#pragma once
// Program-wide settings: the 134 records of config.dat, the folders, the catalogue
// parameters and the observer quantities derived from the settings. One instance,
// owned by the window thread; workers only read it.
#include <array>
#include <string>

#include "app/folders.h"
#include "catalogue/brief_info.h"
#include "catalogue/column_tables.h"

namespace orvane {

inline constexpr float kConfigVersion = 0.06f;
inline constexpr int kConfigRecords = 134;
inline constexpr int kConfigRecordBytes = 800;
inline constexpr int kColumnRecords = 53;

struct AppState {
    // config.dat, in record order; the initialisers are the defaults of a new file.
    float configVersion = kConfigVersion;          // 1
    int workPaneHidden = 0;                        // 2
    int outputPaneHidden = 0;                      // 3
    int toolbarHidden = 0;                         // 4
    int splitterPosition = 500;                    // 5
    int windowLeft = 0;                            // 6  (6..9 all zero: maximised)
    int windowTop = 0;                             // 7
    int windowWidth = 0;                           // 8
    int windowHeight = 0;                          // 9
    int advancedSearchOpen = 1;                    // 10
    int briefInfoOpen = 1;                         // 11
    int filtersOpen = 0;                           // 12
    int setsOpen = 0;                              // 13
    int elementsOpen = 1;                          // 14
    int calcElementsOpen = 1;                      // 15
    int quickSearchOpen = 0;                       // 16
    int advancedSearchActive = 1;                  // 17
    int quickSearchActive = 0;                     // 18
    int filterPeriodicOnly = 0;                    // 19
    int filterLastAppearance = 0;                  // 20
    int filterMyRecords = 0;                       // 21
    int setAll = 0;                                // 22
    int setEcs = 1;                                // 23
    int setOrbital = 0;                            // 24
    int setEpoch = 0;                              // 25
    int setCalculated = 0;                         // 26
    // 27..79: output columns comet .. P_calc.
    std::array<int, kColumnRecords> columnShown = {
        1, 1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1,
        1, 1, 1, 1, 1, 0, 1, 1, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    int optionsScratch = 0;                        // 80
    int lastTask = 0;                              // 81
    int panelHorizontalScroll = 0;                 // 82
    int integrationStatusOpen = 1;                 // 83
    int oneObjectAtATime = 1;                      // 84
    int diagramPlanetOrbits = 0;                   // 85 (stored inverted)
    int diagramAxes = 0;                           // 86 (stored inverted)
    int diagramObjectNames = 0;                    // 87 (stored inverted)
    int showCurrentOnly = 1;                       // 88
    int datesInJulianDays = 0;                     // 89
    int distanceUnitsKm = 0;                       // 90
    int showPerihelionPassages = 0;                // 91
    int minDistanceEachAppearance = 0;             // 92
    int showHms = 1;                               // 93
    int perihelionRelativeToEpoch = 0;             // 94
    int angleUnitsRadians = 0;                     // 95
    int combineBoxCopy = 1;                        // 96
    int centralBody = 3;                           // 97
    int pictureWidth = 800;                        // 98
    int pictureHeight = 600;                       // 99
    int imageUnit = 0;                             // 100
    int diagramBackground = 16777215;              // 101
    int checkUpdatesAtStart = 1;                   // 102
    int pendingEphemerisDelete = 0;                // 103
    int filterLastUpdate = 0;                      // 104
    int showErrors = 1;                            // 105
    int outputDetailsOpen = 0;                     // 106
    std::string languageName = "English.lng";      // 107, text 100
    int longitudeDeg = 30;                         // 108
    int longitudeMin = 19;                         // 109
    double longitudeSec = 38.64;                   // 110
    int longitudeWest = 0;                         // 111
    int latitudeDeg = 59;                          // 112
    int latitudeMin = 46;                          // 113
    double latitudeSec = 19.62;                    // 114
    int latitudeSouth = 0;                         // 115
    double altitude = 85.4;                        // 116
    int ephemerisType = 0;                         // 117
    int coordinateKind = 0;                        // 118
    int mainPlane = 0;                             // 119
    int referenceSystem = 0;                       // 120
    int observerPlace = 1;                         // 121
    int optionsPage = 0;                           // 122
    int latitudeHemisphere = 0;                    // 123
    int longitudeHemisphere = 0;                   // 124
    int stepUnit = 0;                              // 125
    int ephemerisChoice = 1;                       // 126
    int integrateFromEpoch = 0;                    // 127
    int epochFormat = 0;                           // 128
    int planetSizeCounted = 1;                     // 129
    int calculateEphemerides = 0;                  // 130
    int singleFile = 0;                            // 131
    int stepSize = 1;                              // 132
    std::string saveFolder;                        // 133, text 500; the documents folder
    int maxFileSize = 1;                           // 134

    // Not persisted.
    Folders folders;
    std::array<std::string, 5> parameterText;      // trimmed `value` of parameters 1..5
    int catalogueVersion = 0;                      // parameter 1
    int updateId = 0;                              // parameter 4
    int updatePrevId = 0;                          // parameter 5
    ColumnTables columnTables;                     // built once, before the first query
    BriefInfo briefInfo;                           // the start page's numbers and newest records
    int ephemerisMissing = 0;
    double longitudeDegrees = 0;                   // signed decimal degrees, east positive, 0..360
    double latitudeDegrees = 0;                    // north positive
    double observerRhoCos = 0;                     // geocentric, Earth radii
    double observerRhoSin = 0;
};

}  // namespace orvane
