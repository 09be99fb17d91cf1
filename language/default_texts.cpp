// The English texts that the program compiles in, section by section in table
// order. Key k of a section is element k - 1. Texts are UTF-8; characters outside
// ASCII are written as byte escapes, with the character in the comment beside them.
// Generated once from the English text list and reviewed by hand.
#include "language/default_texts.h"

#include <array>
#include <cstddef>

namespace orvane {
namespace {

constexpr std::array<std::string_view, 45> kOrvMenu{
    "File",  // 1
    "Edit",  // 2
    "View",  // 3
    "Tools",  // 4
    "Help",  // 5
    "Save As...",  // 6
    "Import",  // 7
    "Export",  // 8
    "Exit",  // 9
    "Select All",  // 10
    "Work pane",  // 11
    "Output pane",  // 12
    "Toolbar",  // 13
    "Search...",  // 14
    "Add New Record...",  // 15
    "Edit Record...",  // 16
    "Duplicate Record...",  // 17
    "Delete Record...",  // 18
    "Additional Info...",  // 19
    "Tasks",  // 20
    "Update Database",  // 21
    "Options...",  // 22
    "Orbit Diagrams",  // 23
    "",  // 24
    "Ephemerides",  // 25
    "",  // 26
    "Close Approaches",  // 27
    "Help Topics",  // 28
    "Orvane Home Page",  // 29
    "Check for Updates...",  // 30
    "About Orvane...",  // 31
    "Orbit Diagrams",  // 32
    "",  // 33
    "Ephemerides",  // 34
    "",  // 35
    "Close Approaches",  // 36
    "Save As...",  // 37
    "Export",  // 38
    "Select All",  // 39
    "Add New Record...",  // 40
    "Edit Record...",  // 41
    "Duplicate Record...",  // 42
    "Delete Record...",  // 43
    "Additional Info...",  // 44
    "Tasks",  // 45
};
static_assert(kOrvMenu.size() == static_cast<std::size_t>(keyCount(Section::orvMenu)));

constexpr std::array<std::string_view, 21> kOrvToolBar{
    "Search",  // 1
    "Import",  // 2
    "Export",  // 3
    "Orbit Diagrams",  // 4
    "",  // 5
    "Ephemerides",  // 6
    "",  // 7
    "Close Approaches",  // 8
    "Hide Work pane",  // 9
    "Show Work pane",  // 10
    "Hide Output pane",  // 11
    "Show Output pane",  // 12
    "Save As",  // 13
    "Edit Record",  // 14
    "Add New Record",  // 15
    "Duplicate Record",  // 16
    "Delete Record",  // 17
    "Additional Info",  // 18
    "Select All",  // 19
    "Update Database",  // 20
    "Options",  // 21
};
static_assert(kOrvToolBar.size() == static_cast<std::size_t>(keyCount(Section::orvToolBar)));

constexpr std::array<std::string_view, 2> kOrvTab{
    "Start Page",  // 1
    "Orbits",  // 2
};
static_assert(kOrvTab.size() == static_cast<std::size_t>(keyCount(Section::orvTab)));

constexpr std::array<std::string_view, 24> kOrvStartPage{
    "Brief Info...",  // 1
    "Hide Brief Info",  // 2
    "Show Brief Info",  // 3
    "Quick Search...",  // 4
    "Hide Quick Search",  // 5
    "Show Quick Search",  // 6
    "Advanced Search...",  // 7
    "Hide Advanced Search",  // 8
    "Show Advanced Search",  // 9
    "Filters...",  // 10
    "Hide Filters",  // 11
    "Show Filters",  // 12
    "Output Details...",  // 13
    "Hide Output Details",  // 14
    "Show Output Details",  // 15
    "Sets of Elements...",  // 16
    "Hide Sets of Elements",  // 17
    "Show Sets of Elements",  // 18
    "Elements...",  // 19
    "Hide Elements",  // 20
    "Show Elements",  // 21
    "Calculated Elements...",  // 22
    "Hide Calculated Elements",  // 23
    "Show Calculated Elements",  // 24
};
static_assert(kOrvStartPage.size() == static_cast<std::size_t>(keyCount(Section::orvStartPage)));

constexpr std::array<std::string_view, 7> kOrvBriefInfo{
    "A database of cometary orbits contains",  // 1
    "entries of",  // 2
    "comets, among them:",  // 3
    "Numbered periodic comets:",  // 4
    "Long-period and unnumbered short- and intermediate-period comets:",  // 5
    "Entries added by the user:",  // 6
    "Last added comets:",  // 7
};
static_assert(kOrvBriefInfo.size() == static_cast<std::size_t>(keyCount(Section::orvBriefInfo)));

constexpr std::array<std::string_view, 6> kOrvQuickSearch{
    "Quick Search:",  // 1
    "Periodic comet number",  // 2
    "Name of comet",  // 3
    "Provisional designation",  // 4
    "Old designation",  // 5
    "Orbit type (C, P or D)",  // 6
};
static_assert(kOrvQuickSearch.size() == static_cast<std::size_t>(keyCount(Section::orvQuickSearch)));

constexpr std::array<std::string_view, 67> kOrvAdvSearch{
    "Advanced Search:",  // 1
    "---",  // 2
    "Periodic comet number",  // 3
    "Name of comet",  // 4
    "Provisional designation",  // 5
    "Old designation",  // 6
    "Orbit type (C, P or D)",  // 7
    "Epoch year",  // 8
    "Month of epoch",  // 9
    "Day of epoch",  // 10
    "Year of perihelion passage",  // 11
    "Month of perihelion passage",  // 12
    "Day of perihelion passage",  // 13
    "Perihelion distance",  // 14
    "Orbital eccentricity",  // 15
    "Orbital period",  // 16
    "Argument of perihelion",  // 17
    "Longitude of the ascending node",  // 18
    "Inclination to ecliptic",  // 19
    "Non-grav. radial acceleration parameter",  // 20
    "Non-grav. transverse acceleration parameter",  // 21
    "Non-grav. normal acceleration parameter",  // 22
    "Non-grav. parameters style",  // 23
    "Non-grav. perihelion-maximum offset",  // 24
    "Center-of-light/mass offset",  // 25
    "Number of observations used in solution",  // 26
    "Year of first observation",  // 27
    "Month of first observation",  // 28
    "Day of first observation",  // 29
    "Year of last observation",  // 30
    "Month of last observation",  // 31
    "Day of last observation",  // 32
    "Planetary ephemeris used",  // 33
    "Number of perturbing planets",  // 34
    "Small-body perturber ephemeris used",  // 35
    "Brief descriptor of perturbers used",  // 36
    "Fuller description of perturbers used",  // 37
    "RMS of orbit fit",  // 38
    "Source of data",  // 39
    "Person (or institution) who computed the orbit",  // 40
    "Effective body diameter",  // 41
    "Axial ratio",  // 42
    "Rotation period",  // 43
    "Geometric albedo",  // 44
    "Comet total magnitude",  // 45
    "Comet total magnitude slope",  // 46
    "Comet nuclear magnitude",  // 47
    "Comet nuclear magnitude slope",  // 48
    "Date of record change",  // 49
    "Additional Info",  // 50
    "Mean anomaly",  // 51
    "Average motion",  // 52
    "Semi-major axis",  // 53
    "Aphelion distance",  // 54
    "Orbit classification",  // 55
    "Orbital period*",  // 56
    "---",  // 57
    "Greater than (>)",  // 58
    "Less than (<)",  // 59
    "Equal to (=)",  // 60
    "Not equal to (/=)",  // 61
    "Begins with",  // 62
    "Ends with",  // 63
    "Contains",  // 64
    "Free from",  // 65
    "and",  // 66
    "or",  // 67
};
static_assert(kOrvAdvSearch.size() == static_cast<std::size_t>(keyCount(Section::orvAdvSearch)));

constexpr std::array<std::string_view, 5> kOrvFilters{
    "Filters:",  // 1
    "Search periodic comets only",  // 2
    "Search the last appearance only",  // 3
    "Search in my records only",  // 4
    "Search in the last update only",  // 5
};
static_assert(kOrvFilters.size() == static_cast<std::size_t>(keyCount(Section::orvFilters)));

constexpr std::array<std::string_view, 2> kOrvOutDetails{
    "Output Details:",  // 1
    "Show errors of elements",  // 2
};
static_assert(kOrvOutDetails.size() == static_cast<std::size_t>(keyCount(Section::orvOutDetails)));

constexpr std::array<std::string_view, 6> kOrvSets{
    "Sets of Elements:",  // 1
    "All",  // 2
    "ECS Format Elements",  // 3
    "Orbital Elements",  // 4
    "Epoch",  // 5
    "Calculated Elements",  // 6
};
static_assert(kOrvSets.size() == static_cast<std::size_t>(keyCount(Section::orvSets)));

constexpr std::array<std::string_view, 48> kOrvElements{
    "Elements:",  // 1
    "Periodic comet number",  // 2
    "Name of comet",  // 3
    "Provisional designation",  // 4
    "Old designation",  // 5
    "Orbit type (C, P or D)",  // 6
    "Epoch year",  // 7
    "Month of epoch",  // 8
    "Day of epoch",  // 9
    "Year of perihelion passage",  // 10
    "Month of perihelion passage",  // 11
    "Day of perihelion passage",  // 12
    "Perihelion distance (AU)",  // 13
    "Orbital eccentricity",  // 14
    "Orbital period (years)",  // 15
    "Argument of perihelion (deg)",  // 16
    "Longitude of the ascending node (deg)",  // 17
    "Inclination to ecliptic (deg)",  // 18
    "Non-grav. radial acceleration parameter (10e-8 AU/day^2)",  // 19
    "Non-grav. transverse acceleration parameter (10e-8 AU/day^2)",  // 20
    "Non-grav. normal acceleration parameter (10e-8 AU/day^2)",  // 21
    "Non-grav. parameters style (I or II)",  // 22
    "Non-grav. perihelion-maximum offset (days)",  // 23
    "Center-of-light/mass offset (km)",  // 24
    "Number of observations used in solution",  // 25
    "Year of first observation",  // 26
    "Month of first observation",  // 27
    "Day of first observation",  // 28
    "Year of last observation",  // 29
    "Month of last observation",  // 30
    "Day of last observation",  // 31
    "Planetary ephemeris used",  // 32
    "Number of perturbing planets",  // 33
    "Small-body perturber ephemeris used",  // 34
    "Brief descriptor of perturbers used (blank if unperturbed)",  // 35
    "Fuller description of perturbers used (0000 if unperturbed)",  // 36
    "RMS of orbit fit (arcsec)",  // 37
    "Source of data",  // 38
    "Person (or institution) who computed the orbit",  // 39
    "Effective body diameter (km)",  // 40
    "Axial ratio (a/b)",  // 41
    "Rotation period (h)",  // 42
    "Geometric albedo",  // 43
    "Comet total magnitude (mag)",  // 44
    "Comet total magnitude slope",  // 45
    "Comet nuclear magnitude (mag)",  // 46
    "Comet nuclear magnitude slope",  // 47
    "Date of record change",  // 48
};
static_assert(kOrvElements.size() == static_cast<std::size_t>(keyCount(Section::orvElements)));

constexpr std::array<std::string_view, 7> kOrvCalcElements{
    "Calculated Elements:",  // 1
    "Mean anomaly (deg)",  // 2
    "Average motion (deg/day)",  // 3
    "Semi-major axis (AU)",  // 4
    "Aphelion distance (AU)",  // 5
    "Orbit classification",  // 6
    "Orbital period* (years)",  // 7
};
static_assert(kOrvCalcElements.size() == static_cast<std::size_t>(keyCount(Section::orvCalcElements)));

constexpr std::array<std::string_view, 27> kOrvStatus{
    "Selected Items:",  // 1
    "Reading elements...",  // 2
    "Error: Format error",  // 3
    "Ready",  // 4
    "Export elements...",  // 5
    "Observations",  // 6
    "Start Page",  // 7
    "Move to Orbits...",  // 8
    "Move to Start Page",  // 9
    "Orbits",  // 10
    "File:",  // 11
    "Search in progress...",  // 12
    "Error: Empty request",  // 13
    "Error: Too long query",  // 14
    "Search Results: No Matches found",  // 15
    "Error: No colums selected",  // 16
    "Remaining time: ...",  // 17
    "Remaining time:",  // 18
    "h",  // 19
    "m",  // 20
    "s",  // 21
    "Selected Items: 0",  // 22
    "Search Results:",  // 23
    "Matches found",  // 24
    "Adding new Records in progress...",  // 25
    "Deleting Records in progress...",  // 26
    "Editing Records in progress...",  // 27
};
static_assert(kOrvStatus.size() == static_cast<std::size_t>(keyCount(Section::orvStatus)));

constexpr std::array<std::string_view, 108> kOrvListView{
    "#",  // 1
    "Counter of results",  // 2
    "Number",  // 3
    "Periodic comet number",  // 4
    "Name",  // 5
    "Name of comet",  // 6
    "Prov. des.",  // 7
    "Provisional designation",  // 8
    "Old des.",  // 9
    "Old designation",  // 10
    "Type",  // 11
    "Orbit type (C, P or D)",  // 12
    "Year ep.",  // 13
    "Year of epoch",  // 14
    "Month ep.",  // 15
    "Month of epoch",  // 16
    "Day ep.",  // 17
    "Day of epoch",  // 18
    "Year per.",  // 19
    "Year of perihelion passage",  // 20
    "Month per.",  // 21
    "Month of perihelion passage",  // 22
    "Day per.",  // 23
    "Day of perihelion passage",  // 24
    "q",  // 25
    "Perihelion distance (AU)",  // 26
    "e",  // 27
    "Orbital eccentricity",  // 28
    "P",  // 29
    "Orbital period (years)",  // 30
    "w",  // 31
    "Argument of perihelion (deg)",  // 32
    "node",  // 33
    "Longitude of the ascending node (deg)",  // 34
    "i",  // 35
    "Inclination to ecliptic (deg)",  // 36
    "A1",  // 37
    "Non-grav. radial acceleration parameter (10e-8 AU/day^2)",  // 38
    "A2",  // 39
    "Non-grav. transverse acceleration parameter (10e-8 AU/day^2)",  // 40
    "A3",  // 41
    "Non-grav. normal acceleration parameter (10e-8 AU/day^2)",  // 42
    "Non-grav. st.",  // 43
    "Non-grav. parameters style (I or II)",  // 44
    "Non-grav. off.",  // 45
    "Non-grav. perihelion-maximum offset (days)",  // 46
    "Center off.",  // 47
    "Center-of-light/mass offset (km)",  // 48
    "Obs. num.",  // 49
    "Number of observations used in solution",  // 50
    "Year first",  // 51
    "Year of first observation",  // 52
    "Month first",  // 53
    "Month of first observation",  // 54
    "Day first",  // 55
    "Day of first observation",  // 56
    "Year last",  // 57
    "Year of last observation",  // 58
    "Month last",  // 59
    "Month of last observation",  // 60
    "Day last",  // 61
    "Day of last observation",  // 62
    "Ephem.",  // 63
    "Planetary ephemeris used",  // 64
    "Plan. num.",  // 65
    "Number of perturbing planets",  // 66
    "SB Ephem.",  // 67
    "Small-body perturber ephemeris used",  // 68
    "Brief desc.",  // 69
    "Brief descriptor of perturbers used (blank if unperturbed)",  // 70
    "Fuller desc.",  // 71
    "Fuller description of perturbers used (0000 if unperturbed)",  // 72
    "RMS",  // 73
    "RMS of orbit fit (arcsec)",  // 74
    "Source",  // 75
    "Source of data",  // 76
    "Producer",  // 77
    "Person (or institution) who computed the orbit",  // 78
    "Diameter",  // 79
    "Effective body diameter (km)",  // 80
    "Axial ratio",  // 81
    "Axial ratio (a/b)",  // 82
    "Rot. P",  // 83
    "Rotation period (h)",  // 84
    "Albedo",  // 85
    "Geometric albedo",  // 86
    "M1",  // 87
    "Comet total magnitude (mag)",  // 88
    "K1",  // 89
    "Comet total magnitude slope",  // 90
    "M2",  // 91
    "Comet nuclear magnitude (mag)",  // 92
    "K2",  // 93
    "Comet nuclear magnitude slope",  // 94
    "Rec. date",  // 95
    "Date of record change",  // 96
    "M",  // 97
    "Mean anomaly (deg)",  // 98
    "n",  // 99
    "Average motion (deg/day)",  // 100
    "a",  // 101
    "Semi-major axis (AU)",  // 102
    "Q",  // 103
    "Aphelion distance (AU)",  // 104
    "Orbit class.",  // 105
    "Orbit classification",  // 106
    "P*",  // 107
    "Orbital period* (years)",  // 108
};
static_assert(kOrvListView.size() == static_cast<std::size_t>(keyCount(Section::orvListView)));

constexpr std::array<std::string_view, 11> kOrvAbout{
    "About Orvane",  // 1
    "Orvane - Comet Ephemeris Desk",  // 2
    "Version:",  // 3
    "Written by the Orvane developers",  // 4
    "Thanks to the observers who report comet orbits",  // 5
    "Copyright (c) 2026 the Orvane developers",  // 6
    "OK",  // 7
    "Planetary file:",  // 8
    "from",  // 9
    "to",  // 10
    "Orvane uses these libraries, each under its own licence:",  // 11
};
static_assert(kOrvAbout.size() == static_cast<std::size_t>(keyCount(Section::orvAbout)));

constexpr std::array<std::string_view, 29> kOrvUpdate{
    "Check for Updates",  // 1
    "Update",  // 2
    "Close",  // 3
    "Installed and available versions of Orvane...",  // 4
    "Current version:",  // 5
    "Available version: ...",  // 6
    "Update status: Orvane is checking for updates...",  // 7
    "Update status: Failed to open WinInet...",  // 8
    "Update status: Unable to establish internet connection...",  // 9
    "Update status: Administrative error, try to download later...",  // 10
    "Orvane update is available now...",  // 11
    "No updates yet...",  // 12
    "Available version:",  // 13
    "Update status:",  // 14
    "Abort",  // 15
    "Please wait...",  // 16
    "Remaining time: ...",  // 17
    "Update progress: Establishing network connection to server...",  // 18
    "Update status: Orvane update is available now...",  // 19
    "Update status: No updates yet...",  // 20
    "Update progress: Downloading (0 MB /",  // 21
    "MB)",  // 22
    "Update progress: Downloading (",  // 23
    "MB /",  // 24
    "MB)",  // 25
    "Currently installed version:",  // 26
    "Update status: Please wait while the installer will start...",  // 27
    "Update status: Setup canceled...",  // 28
    "Update status: The package does not match its checksum and was deleted...",  // 29
};
static_assert(kOrvUpdate.size() == static_cast<std::size_t>(keyCount(Section::orvUpdate)));

constexpr std::array<std::string_view, 16> kOrvOrvaneOptions{
    "Options",  // 1
    "Automatically check for updates",  // 2
    "Apply",  // 3
    "Close",  // 4
    "Orvane - Comet Ephemeris Desk",  // 5
    "Update:",  // 6
    "Language:",  // 7
    "Current ephemeris:",  // 8
    "JPL DE406",  // 9
    "JPL DE423",  // 10
    "(from -3000-02-22 to 3000-03-03)",  // 11
    "(from 1799-12-16 to 2200-02-01)",  // 12
    "Update server:",  // 13
    "(from",  // 14
    "to",  // 15
    "The address of the update server begins with http://, https:// or file://",  // 16
};
static_assert(kOrvOrvaneOptions.size() == static_cast<std::size_t>(keyCount(Section::orvOrvaneOptions)));

constexpr std::array<std::string_view, 167> kOrvEdit{
    "Edit Record",  // 1
    "of",  // 2
    "< Previous",  // 3
    "Next >",  // 4
    "Reset",  // 5
    "Apply",  // 6
    "Close",  // 7
    "Add new Record",  // 8
    "Add more >",  // 9
    "Remove",  // 10
    "Options",  // 11
    "Save As",  // 12
    "Additional Info",  // 13
    "History of",  // 14
    "apparision",  // 15
    "History of ... apparision:",  // 16
    "Export",  // 17
    "Orbit Diagrams",  // 18
    "day",  // 19
    "Ephemerides",  // 20
    "",  // 21
    "Close Approaches",  // 22
    "Combined picture...",  // 23
    "Combined calculation...",  // 24
    "st",  // 25
    "nd",  // 26
    "rd",  // 27
    "th",  // 28
    "Sky Map of",  // 29
    "Ephemerides of",  // 30
    "",  // 31
    "Close Approaches of",  // 32
    "km",  // 33
    "AU",  // 34
    "km/s",  // 35
    "AU/day",  // 36
    "rad",  // 37
    "deg",  // 38
    "rad/day",  // 39
    "deg/day",  // 40
    "yr",  // 41
    "JD",  // 42
    "n/a",  // 43
    "Epoch     :",  // 44
    "Mercury   :",  // 45
    "Venus     :",  // 46
    "Earth     :",  // 47
    "Mars      :",  // 48
    "Jupiter   :",  // 49
    "Saturn    :",  // 50
    "Uranus    :",  // 51
    "Neptune   :",  // 52
    "Pluto     :",  // 53
    "Sun       :",  // 54
    "",  // 55
    "No close-approaches were found in selected interval...",  // 56
    "No interval selected...",  // 57
    "",  // 58
    "from",  // 59
    "Are you sure you want to export",  // 60
    "Records?",  // 61
    "Are you sure you want to export 1 Record?",  // 62
    "Confirm Records export",  // 63
    "Message",  // 64
    "Elements format error!",  // 65
    "Suggestions:",  // 66
    "Epoch day must have 'DD' format.",  // 67
    "Text Files (*.txt)",  // 68
    "All Files (*.*)",  // 69
    "Run",  // 70
    "Pause",  // 71
    "Are you sure you want to edit 1 Record?",  // 72
    "Are you sure you want to edit",  // 73
    "Records?",  // 74
    "Confirm Records edit",  // 75
    "Are you sure you want to add 1 new Record?",  // 76
    "Are you sure you want to add",  // 77
    "new Records?",  // 78
    "Confirm Records add",  // 79
    "Required field is empty!",  // 80
    "- Edit",  // 81
    "at",  // 82
    "record.",  // 83
    "Fill the",  // 84
    "field at",  // 85
    "Fill the all",  // 86
    "fields at",  // 87
    "No name...",  // 88
    "Possible it's time to stop? Try to use Import service:)",  // 89
    "Move to Orbit Diagrams",  // 90
    "Epoch",  // 91
    "Move to Ephemerides",  // 92
    "",  // 93
    "Move to Close Approaches",  // 94
    "Standard Screen Mode",  // 95
    "Full Screen Mode",  // 96
    "Select Task",  // 97
    "Periodic comet number:",  // 98
    "Name of comet:",  // 99
    "Provisional designation:",  // 100
    "Old designation:",  // 101
    "Orbit type:",  // 102
    "Year - Month - Day of the epoch:",  // 103
    "Year - Month - Day of perihelion passage:",  // 104
    "Perihelion distance:",  // 105
    "Orbital eccentricity:",  // 106
    "Orbital period:",  // 107
    "Argument of perihelion:",  // 108
    "Longitude of the ascending node:",  // 109
    "Inclination to ecliptic:",  // 110
    "Non-grav. radial acceleration parameter:",  // 111
    "Non-grav. transverse acceleration parameter:",  // 112
    "Non-grav. normal acceleration parameter:",  // 113
    "Non-grav. parameters style:",  // 114
    "Non-grav. perihelion-maximum offset:",  // 115
    "Center-of-light/mass offset:",  // 116
    "Number of observations used in solution:",  // 117
    "Year - Month - Day of first observation:",  // 118
    "Year - Month - Day of last observation:",  // 119
    "Planetary ephemeris used:",  // 120
    "Number of perturbing planets:",  // 121
    "Small-body perturber ephemeris used:",  // 122
    "Brief descriptor of perturbers used:",  // 123
    "Fuller description of perturbers used:",  // 124
    "RMS of orbit fit:",  // 125
    "Source of data:",  // 126
    "Person (or institution) who computed the orbit:",  // 127
    "Effective body diameter:",  // 128
    "Axial ratio:",  // 129
    "Rotation period:",  // 130
    "Geometric albedo:",  // 131
    "Comet total magnitude:",  // 132
    "Comet total magnitude slope:",  // 133
    "Comet nuclear magnitude:",  // 134
    "Comet nuclear magnitude slope:",  // 135
    "Additional Info:",  // 136
    "(C, P or D)",  // 137
    "(AU)",  // 138
    "(years)",  // 139
    "(deg)",  // 140
    "(10e-8 AU/day^2)",  // 141
    "(I or II)",  // 142
    "(days)",  // 143
    "(km)",  // 144
    "(blank if unperturbed)",  // 145
    "(0000 if unperturbed)",  // 146
    "(arcsec)",  // 147
    "(a/b)",  // 148
    "(h)",  // 149
    "(mag)",  // 150
    "Hide Integration status",  // 151
    "Show Integration status",  // 152
    "-",  // 153
    "arcsec/h",  // 154
    "\"/h",  // 155
    "Orbit     :",  // 156
    "Orbit",  // 157
    "Hyperbolic",  // 158
    "Parabolic",  // 159
    "Jupiter-family",  // 160
    "Encke-type",  // 161
    "Chiron-type",  // 162
    "Jupiter-family*",  // 163
    "Halley-type",  // 164
    "No class",  // 165
    "Hill Sph. :",  // 166
    "Hill Sph.",  // 167
};
static_assert(kOrvEdit.size() == static_cast<std::size_t>(keyCount(Section::orvEdit)));

constexpr std::array<std::string_view, 37> kOrvOrbits{
    "Rate: max",  // 1
    "Rate: x320",  // 2
    "Rate: x32",  // 3
    "Rate: x16",  // 4
    "Rate: x8",  // 5
    "Rate: x4",  // 6
    "Rate: x2",  // 7
    "Rate: x1",  // 8
    "Lat:",  // 9
    "\xC2\xB0 / Lon:",  // 10: ° / Lon:
    "\xC2\xB0 / Field:",  // 11: ° / Field:
    "AU",  // 12
    "Name:",  // 13
    "Please wait... Computation is performed at maximum speed...",  // 14
    "Remaining time: Paused...",  // 15
    "Rate: x0",  // 16
    "JD",  // 17
    "Time interval:",  // 18
    "Status: Prepare...",  // 19
    "Remaining time: 0h 0m 0s",  // 20
    "Time interval: ... ->",  // 21
    "Status: Ready...",  // 22
    "Stop",  // 23
    "< Slower",  // 24
    "Faster >",  // 25
    "Orbit Diagrams ... of",  // 26
    "Writing the ephemeris data to a file",  // 27
    "Ephemerides ... of",  // 28
    "",  // 29
    "Close Approaches ... of",  // 30
    "is stopped because the file size exceeds",  // 31
    "Ephemerides of",  // 32
    "MB. Try to change the step-size or the interval of integration.",  // 33
    "Close Approaches of",  // 34
    "Comet",  // 35
    "has left the Solar System!",  // 36
    "Continue integration without writing data to a file?",  // 37
};
static_assert(kOrvOrbits.size() == static_cast<std::size_t>(keyCount(Section::orvOrbits)));

constexpr std::array<std::string_view, 12> kOrvPlanets{
    "Sun",  // 1
    "Mercury",  // 2
    "Venus",  // 3
    "Earth",  // 4
    "Mars",  // 5
    "Jupiter",  // 6
    "Saturn",  // 7
    "Uranus",  // 8
    "Neptune",  // 9
    "Pluto",  // 10
    "Moon",  // 11
    "Earth",  // 12
};
static_assert(kOrvPlanets.size() == static_cast<std::size_t>(keyCount(Section::orvPlanets)));

constexpr std::array<std::string_view, 83> kOrvElementsOptions{
    "Options",  // 1
    "Show horizontal scroll bar",  // 2
    "Apply",  // 3
    "Close",  // 4
    "Additional Info",  // 5
    "Output Details:",  // 6
    "Save As",  // 7
    "cm",  // 8
    "inch",  // 9
    "OK",  // 10
    "Cancel",  // 11
    "Image properties...",  // 12
    "Image size (width x height):",  // 13
    "pixels",  // 14
    "Background color:",  // 15
    "Change Year - Month - Day of the epoch(s):",  // 16
    "Combine all selected orbits (300 max.)",  // 17
    "Show current orbits only",  // 18
    "Show orbits of the planets",  // 19
    "Show object names",  // 20
    "Show axes",  // 21
    "Show dates in Julian Days",  // 22
    "Show h:m:s in date",  // 23
    "Reset to Epoch",  // 24
    "Orbit Diagrams",  // 25
    "Optional settings:",  // 26
    "Time of perihelion passage relative to epoch",  // 27
    "Show distance and velocity in km and km/s",  // 28
    "Show angles and angular velocity in rad and rad/d",  // 29
    "Choose folder to save the ephemeris files:",  // 30
    "Specified folder does not exist, or an invalid path was entered!",  // 31
    "Show velocity in km/s",  // 32
    "Central Body - Center:",  // 33
    "Ephemerides",  // 34
    "",  // 35
    "Show Perihelion Passages",  // 36
    "Minimal distance to Earth at each appearance",  // 37
    "Close Approaches",  // 38
    "Error!",  // 39
    "Save Image Error...",  // 40
    "Message",  // 41
    "Invalid numeric entry. A picture width from 400 to 2000 pixels required!",  // 42
    "Invalid numeric entry. A picture height from 300 to 1500 pixels required!",  // 43
    "Invalid numeric entry. JPL DE406: A year from -3000 to 3000 required!",  // 44
    "Invalid numeric entry. JPL DE406: A date from -3000-02-22 to 3000-03-03 required!",  // 45
    "Invalid numeric entry. A month from 1 to 12 required!",  // 46
    "Invalid numeric entry. A picture width from 14.11 to 70.56 cm required!",  // 47
    "Invalid numeric entry. A picture width from 5.56 to 27.78 inch required!",  // 48
    "Invalid numeric entry. A picture height from 10.58 to 52.92 cm required!",  // 49
    "Invalid numeric entry. A picture height from 4.17 to 20.83 inch required!",  // 50
    "Invalid numeric entry. A day from 1 to 32 required!",  // 51
    "Center    : Sun",  // 52
    "Center    :",  // 53
    "Default value inserted.",  // 54
    "Nearest value inserted.",  // 55
    "Invalid numeric entry. The latitude from 0 to 90 deg required!",  // 56
    "Invalid numeric entry. The longitude from 0 to 360 deg required!",  // 57
    "Invalid numeric entry. The altitude from -500 to 9000 m required!",  // 58
    "Invalid numeric entry. Minutes of arc from 0 to 60 required!",  // 59
    "Invalid numeric entry. Seconds of arc from 0 to 60 required!",  // 60
    "Invalid numeric entry. Step size from 1 to 999 required!",  // 61
    "Type      :",  // 62
    "Invalid numeric entry. JPL DE423: A year from 1799 to 2200 required!",  // 63
    "Invalid numeric entry. JPL DE423: A date from 1799-12-16 to 2200-02-02 required!",  // 64
    "Integrate from the epoch (if closer)",  // 65
    "Current UTC",  // 66
    "Change epoch(s):",  // 67
    "JD",  // 68
    "Y-M-D.0",  // 69
    "Y-M-D h:m:s",  // 70
    "JD.0",  // 71
    "Change Year - Month - Day h:m:s of the epoch(s):",  // 72
    "Display as Y-M-D.0",  // 73
    "Display as Y-M-D h:m:s",  // 74
    "Display as JD.0",  // 75
    "Epoch Format",  // 76
    "Invalid numeric entry. JPL DE406: A Julian Date from 625359.5 to 2816848.5 required!",  // 77
    "Invalid numeric entry. JPL DE423: A Julian Date from 2378480.5 to 2524625.5 required!",  // 78
    "Invalid numeric entry. The hours value from 1 to 23 required!",  // 79
    "Invalid numeric entry. The minutes value from 1 to 59 required!",  // 80
    "Invalid numeric entry. The seconds value from 1 to 59 required!",  // 81
    "Take into account the size of the planet",  // 82
    "Invalid numeric entry. Acceptable File Size range from 1 to 20 MB!",  // 83
};
static_assert(kOrvElementsOptions.size() == static_cast<std::size_t>(keyCount(Section::orvElementsOptions)));

constexpr std::array<std::string_view, 355> kOrvErrors{
    "\"periodic comet number\"",  // 1
    "- Periodic comet number should not contain spaces.",  // 2
    "- Periodic comet number should not exceed 10 significant characters.",  // 3
    "- Periodic comet number should not contain commas.",  // 4
    "- Periodic comet number must be positive.",  // 5
    "- Periodic comet number must be an integer.",  // 6
    "\"name of comet\"",  // 7
    "- The length of this field is limited to 60 characters.",  // 8
    "\"provisional designation\"",  // 9
    "- The length of this field is limited to 30 characters.",  // 10
    "\"old designation\"",  // 11
    "\"orbit type\"",  // 12
    "- Orbit should be C, P or D type.",  // 13
    "\"year of perihelion passage\"",  // 14
    "- Year of perihelion passage value should not contain spaces.",  // 15
    "- Year of perihelion passage value should not exceed 5 significant characters.",  // 16
    "- Year of perihelion passage value should not contain commas.",  // 17
    "- Year of perihelion passage value should be in the range from -3000 to 3000.",  // 18
    "- Year of perihelion passage value must be an integer.",  // 19
    "\"month of perihelion passage\"",  // 20
    "- Month of perihelion passage value should not contain spaces.",  // 21
    "- Month of perihelion passage value should not exceed 2 significant characters.",  // 22
    "- Month of perihelion passage value should not contain commas.",  // 23
    "- Month of perihelion passage value should be in the range from 1 to 12.",  // 24
    "- Month of perihelion passage value must be an integer.",  // 25
    "- In this case, month of perihelion passage value should be less then 4.",  // 26
    "- In this case, month of perihelion passage value should be greater then 1.",  // 27
    "\"day of perihelion passage\"",  // 28
    "- Day of perihelion passage value should not contain spaces.",  // 29
    "- Day of perihelion passage value should not exceed 15 significant characters.",  // 30
    "- Day of perihelion passage value should not contain commas.",  // 31
    "- Day of perihelion passage value should be in the range [1; 32).",  // 32
    "- Day of perihelion passage value should be a real type.",  // 33
    "- In this case, day of perihelion passage value should be less then 3.",  // 34
    "- In this case, day of perihelion passage value should be greater then 21.",  // 35
    "\"year of the epoch\"",  // 36
    "- Year of the epoch value should not contain spaces.",  // 37
    "- Year of the epoch value should not exceed 5 significant characters.",  // 38
    "- Year of the epoch value should not contain commas.",  // 39
    "- Year of the epoch value should be in the range from -3000 to 3000.",  // 40
    "- Year of the epoch value must be an integer.",  // 41
    "\"month of the epoch\"",  // 42
    "- Month of the epoch value should not contain spaces.",  // 43
    "- Month of the epoch value should not exceed 2 significant characters.",  // 44
    "- Month of the epoch value should not contain commas.",  // 45
    "- Month of the epoch value should be in the range from 1 to 12.",  // 46
    "- Month of the epoch value must be an integer.",  // 47
    "- In this case, month of the epoch value should be less then 4.",  // 48
    "- In this case, month of the epoch value should be greater then 1.",  // 49
    "\"day of the epoch\"",  // 50
    "- Day of the epoch value should not contain spaces.",  // 51
    "- Day of the epoch value should not exceed 2 significant characters.",  // 52
    "- Day of the epoch value should not contain commas.",  // 53
    "- Day of the epoch value should be in the range [1; 32).",  // 54
    "- Day of the epoch value must be an integer.",  // 55
    "- In this case, day of the epoch value should be less then 4.",  // 56
    "- In this case, day of the epoch value should be greater then 21.",  // 57
    "\"date of the epoch\"",  // 58
    "\"perihelion distance\"",  // 59
    "- Perihelion distance value should not contain spaces.",  // 60
    "- Perihelion distance value should not exceed 15 significant characters.",  // 61
    "- Perihelion distance value should not contain commas.",  // 62
    "- Perihelion distance value should be in the range (0; 100) AU.",  // 63
    "- Perihelion distance value should be a real type.",  // 64
    "\"orbital eccentricity\"",  // 65
    "- Orbital eccentricity value should not contain spaces.",  // 66
    "- Orbital eccentricity value should not exceed 14 significant characters.",  // 67
    "- Orbital eccentricity value should not contain commas.",  // 68
    "- Orbital eccentricity value should be in the range [0; 10).",  // 69
    "- Orbital eccentricity value should be a real type.",  // 70
    "\"orbital period\"",  // 71
    "- Orbital period value should not contain spaces.",  // 72
    "- Orbital period value should not exceed 6 significant characters.",  // 73
    "- Orbital period value should not contain commas.",  // 74
    "- Orbital period value should be in the range (0; 1000) years.",  // 75
    "- Orbital period value should be a real type.",  // 76
    "\"argument of perihelion\"",  // 77
    "- Argument of perihelion value should not contain spaces.",  // 78
    "- Argument of perihelion value should not exceed 16 significant characters.",  // 79
    "- Argument of perihelion value should not contain commas.",  // 80
    "- Argument of perihelion value should be in the range from 0 to 360 deg.",  // 81
    "- Argument of perihelion value should be a real type.",  // 82
    "\"longitude of the ascending node\"",  // 83
    "- Longitude of the ascending node value should not contain spaces.",  // 84
    "- Longitude of the ascending node value should not exceed 16 significant characters.",  // 85
    "- Longitude of the ascending node value should not contain commas.",  // 86
    "- Longitude of the ascending node value should be in the range from 0 to 360 deg.",  // 87
    "- Longitude of the ascending node value should be a real type.",  // 88
    "\"inclination to ecliptic\"",  // 89
    "- Inclination to ecliptic value should not contain spaces.",  // 90
    "- Inclination to ecliptic value should not exceed 16 significant characters.",  // 91
    "- Inclination to ecliptic value should not contain commas.",  // 92
    "- Inclination to ecliptic value should be in the range from 0 to 180 deg.",  // 93
    "- Inclination to ecliptic value should be a real type.",  // 94
    "\"non-grav. radial acceleration parameter\"",  // 95
    "- Non-grav. parameter value should not contain spaces.",  // 96
    "- Non-grav. parameter value should not exceed 16 significant characters.",  // 97
    "- Non-grav. parameter value should not contain commas.",  // 98
    "- Non-grav. parameter value should be in the range from -99 to 99*10e-8 AU/day^2.",  // 99
    "- Non-grav. parameter value should be a real type.",  // 100
    "\"non-grav. transverse acceleration parameter\"",  // 101
    "\"non-grav. normal acceleration parameter\"",  // 102
    "\"non-grav. parameters style\"",  // 103
    "- Non-grav. parameters style should be I or II type.",  // 104
    "\"non-grav. perihelion-maximum offset\"",  // 105
    "- Non-grav. perihelion-maximum offset value should not contain spaces.",  // 106
    "- Non-grav. perihelion-maximum offset value should not exceed 17 significant characters.",  // 107
    "- Non-grav. perihelion-maximum offset value should not contain commas.",  // 108
    "- Non-grav. perihelion-maximum offset value should be in the range from -999 to 999 days.",  // 109
    "- Non-grav. perihelion-maximum offset value should be a real type.",  // 110
    "\"center-of-light/mass offset\"",  // 111
    "- Center-of-light/mass offset value should not contain spaces.",  // 112
    "- Center-of-light/mass offset value should not exceed 17 significant characters.",  // 113
    "- Center-of-light/mass offset value should not contain commas.",  // 114
    "- Center-of-light/mass offset value should be in the range (-100000; 100000) km.",  // 115
    "- Center-of-light/mass offset value should be a real type.",  // 116
    "\"number of observations used in solution\"",  // 117
    "- Number of observations used in solution should not contain spaces.",  // 118
    "- Number of observations used in solution should not exceed 10 significant characters.",  // 119
    "- Number of observations used in solution should not contain commas.",  // 120
    "- Number of observations used in solution must be positive.",  // 121
    "- Number of observations used in solution must be an integer.",  // 122
    "\"year of first observation\"",  // 123
    "- Year of first observation value should not contain spaces.",  // 124
    "- Year of first observation value should not exceed 5 significant characters.",  // 125
    "- Year of first observation value should not contain commas.",  // 126
    "- Year of first observation value should be in the range from -3000 to 3000.",  // 127
    "- Year of first observation value must be an integer.",  // 128
    "\"month of first observation\"",  // 129
    "- Month of first observation value should not contain spaces.",  // 130
    "- Month of first observation value should not exceed 2 significant characters.",  // 131
    "- Month of first observation value should not contain commas.",  // 132
    "- Month of first observation value should be in the range from 1 to 12.",  // 133
    "- Month of first observation value must be an integer.",  // 134
    "\"day of first observation\"",  // 135
    "- Day of first observation value should not contain spaces.",  // 136
    "- Day of first observation value should not exceed 2 significant characters.",  // 137
    "- Day of first observation value should not contain commas.",  // 138
    "- Day of first observation value should be in the range [1; 31].",  // 139
    "- Day of first observation value must be an integer.",  // 140
    "\"year of last observation\"",  // 141
    "- Year of last observation value should not contain spaces.",  // 142
    "- Year of last observation value should not exceed 5 significant characters.",  // 143
    "- Year of last observation value should not contain commas.",  // 144
    "- Year of last observation value should be in the range from -3000 to 3000.",  // 145
    "- Year of last observation value must be an integer.",  // 146
    "\"month of last observation\"",  // 147
    "- Month of last observation value should not contain spaces.",  // 148
    "- Month of last observation value should not exceed 2 significant characters.",  // 149
    "- Month of last observation value should not contain commas.",  // 150
    "- Month of last observation value should be in the range from 1 to 12.",  // 151
    "- Month of last observation value must be an integer.",  // 152
    "\"day of last observation\"",  // 153
    "- Day of last observation value should not contain spaces.",  // 154
    "- Day of last observation value should not exceed 2 significant characters.",  // 155
    "- Day of last observation value should not contain commas.",  // 156
    "- Day of last observation value should be in the range from [1; 31].",  // 157
    "- Day of last observation value must be an integer.",  // 158
    "\"planetary ephemeris used\"",  // 159
    "\"number of perturbing planets\"",  // 160
    "- Number of perturbing planets should not contain spaces.",  // 161
    "- Number of perturbing planets should not exceed 10 significant characters.",  // 162
    "- Number of perturbing planets should not contain commas.",  // 163
    "- Number of perturbing planets must be positive.",  // 164
    "- Number of perturbing planets value must be an integer.",  // 165
    "\"small-body perturber ephemeris used\"",  // 166
    "\"brief descriptor of perturbers used\"",  // 167
    "- The length of this field is limited to 3 characters.",  // 168
    "\"fuller description of perturbers used\"",  // 169
    "- The length of this field is limited to 4 characters.",  // 170
    "\"RMS of orbit fit\"",  // 171
    "- RMS of orbit fit value should not contain spaces.",  // 172
    "- RMS of orbit fit value should not exceed 8 significant characters.",  // 173
    "- RMS of orbit fit value should not contain commas.",  // 174
    "- RMS of orbit fit value should be in the range [0; 100) arcsec.",  // 175
    "- RMS of orbit fit value should be a real type.",  // 176
    "\"source of data\"",  // 177
    "\"person (or institution) who computed the orbit\"",  // 178
    "\"effective body diameter\"",  // 179
    "- Effective body diameter value should not contain spaces.",  // 180
    "- Effective body diameter value should not exceed 16 significant characters.",  // 181
    "- Effective body diameter value should not contain commas.",  // 182
    "- Effective body diameter value should be in the range (0; 1000) km.",  // 183
    "- Effective body diameter value should be a real type.",  // 184
    "\"axial ratio\"",  // 185
    "- Axial ratio value should not contain spaces.",  // 186
    "- Axial ratio value should not exceed 16 significant characters.",  // 187
    "- Axial ratio value should not contain commas.",  // 188
    "- Axial ratio value should be in the range [0; 1000).",  // 189
    "- Axial ratio value should be a real type.",  // 190
    "\"rotation period\"",  // 191
    "- Rotation period value should not contain spaces.",  // 192
    "- Rotation period value should not exceed 16 significant characters.",  // 193
    "- Rotation period value should not contain commas.",  // 194
    "- Rotation period value should be in the range [0; 1000) hours.",  // 195
    "- Rotation period value should be a real type.",  // 196
    "\"geometric albedo\"",  // 197
    "- Geometric albedo value should not contain spaces.",  // 198
    "- Geometric albedo value should not exceed 14 significant characters.",  // 199
    "- Geometric albedo value should not contain commas.",  // 200
    "- Geometric albedo value should be in the range from 0 to 1.",  // 201
    "- Geometric albedo value should be a real type.",  // 202
    "\"comet total magnitude\"",  // 203
    "- Comet total magnitude value should not contain spaces.",  // 204
    "- Comet total magnitude value should not exceed 16 significant characters.",  // 205
    "- Comet total magnitude value should not contain commas.",  // 206
    "- Comet total magnitude value should be in the range from -50 to 50 mag.",  // 207
    "- Comet total magnitude value should be a real type.",  // 208
    "\"comet total magnitude slope\"",  // 209
    "- Comet total magnitude slope value should not contain spaces.",  // 210
    "- Comet total magnitude slope value should not exceed 16 significant characters.",  // 211
    "- Comet total magnitude slope value should not contain commas.",  // 212
    "- Comet total magnitude slope value should be in the range from -50 to 50.",  // 213
    "- Comet total magnitude slope value should be a real type.",  // 214
    "\"comet nuclear magnitude\"",  // 215
    "- Comet nuclear magnitude value should not contain spaces.",  // 216
    "- Comet nuclear magnitude value should not exceed 16 significant characters.",  // 217
    "- Comet nuclear magnitude value should not contain commas.",  // 218
    "- Comet nuclear magnitude value should be in the range from -50 to 50 mag.",  // 219
    "- Comet nuclear magnitude value should be a real type.",  // 220
    "\"comet nuclear magnitude slope\"",  // 221
    "- Comet nuclear magnitude slope value should not contain spaces.",  // 222
    "- Comet nuclear magnitude slope value should not exceed 16 significant characters.",  // 223
    "- Comet nuclear magnitude slope value should not contain commas.",  // 224
    "- Comet nuclear magnitude slope value should be in the range from -50 to 50.",  // 225
    "- Comet nuclear magnitude slope value should be a real type.",  // 226
    "\"additional info\"",  // 227
    "- The length of this field is limited to 5000 characters.",  // 228
    "\"day of perihelion passage error\"",  // 229
    "- Day of perihelion passage error value should not contain spaces.",  // 230
    "- Day of perihelion passage error value should not exceed 17 significant characters.",  // 231
    "- Day of perihelion passage error value should not contain commas.",  // 232
    "- Day of perihelion passage error must be positive.",  // 233
    "- Day of perihelion passage error value should be a real type.",  // 234
    "\"perihelion distance error\"",  // 235
    "- Perihelion distance error value should not contain spaces.",  // 236
    "- Perihelion distance error value should not exceed 17 significant characters.",  // 237
    "- Perihelion distance error value should not contain commas.",  // 238
    "- Perihelion distance error must be positive.",  // 239
    "- Perihelion distance error value should be a real type.",  // 240
    "\"orbital eccentricity error\"",  // 241
    "- Orbital eccentricity error value should not contain spaces.",  // 242
    "- Orbital eccentricity error value should not exceed 17 significant characters.",  // 243
    "- Orbital eccentricity error value should not contain commas.",  // 244
    "- Orbital eccentricity error must be positive.",  // 245
    "- Orbital eccentricity error value should be a real type.",  // 246
    "\"argument of perihelion error\"",  // 247
    "- Argument of perihelion error value should not contain spaces.",  // 248
    "- Argument of perihelion error value should not exceed 17 significant characters.",  // 249
    "- Argument of perihelion error value should not contain commas.",  // 250
    "- Argument of perihelion error must be positive.",  // 251
    "- Argument of perihelion error value should be a real type.",  // 252
    "\"longitude of the ascending node error\"",  // 253
    "- Longitude of the ascending node error value should not contain spaces.",  // 254
    "- Longitude of the ascending node error value should not exceed 17 significant characters.",  // 255
    "- Longitude of the ascending node error value should not contain commas.",  // 256
    "- Longitude of the ascending node error must be positive.",  // 257
    "- Longitude of the ascending node error value should be a real type.",  // 258
    "\"inclination to ecliptic error\"",  // 259
    "- Inclination to ecliptic error value should not contain spaces.",  // 260
    "- Inclination to ecliptic error value should not exceed 17 significant characters.",  // 261
    "- Inclination to ecliptic error value should not contain commas.",  // 262
    "- Inclination to ecliptic error must be positive.",  // 263
    "- Inclination to ecliptic error value should be a real type.",  // 264
    "- Non-grav. radial acceleration parameter value must be filled in this case.",  // 265
    "\"non-grav. radial acceleration parameter error\"",  // 266
    "- Non-grav. radial acceleration parameter error value should not contain spaces.",  // 267
    "- Non-grav. radial acceleration parameter error value should not exceed 17 significant characters.",  // 268
    "- Non-grav. radial acceleration parameter error value should not contain commas.",  // 269
    "- Non-grav. radial acceleration parameter error must be positive.",  // 270
    "- Non-grav. radial acceleration parameter error value should be a real type.",  // 271
    "- Non-grav. transverse acceleration parameter value must be filled in this case.",  // 272
    "\"non-grav. transverse acceleration parameter error\"",  // 273
    "- Non-grav. transverse acceleration parameter error value should not contain spaces.",  // 274
    "- Non-grav. transverse acceleration parameter error value should not exceed 17 significant characters.",  // 275
    "- Non-grav. transverse acceleration parameter error value should not contain commas.",  // 276
    "- Non-grav. transverse acceleration parameter error must be positive.",  // 277
    "- Non-grav. transverse acceleration parameter error value should be a real type.",  // 278
    "- Non-grav. normal acceleration parameter value must be filled in this case.",  // 279
    "\"non-grav. normal acceleration parameter error\"",  // 280
    "- Non-grav. normal acceleration parameter error value should not contain spaces.",  // 281
    "- Non-grav. normal acceleration parameter error value should not exceed 17 significant characters.",  // 282
    "- Non-grav. normal acceleration parameter error value should not contain commas.",  // 283
    "- Non-grav. normal acceleration parameter error must be positive.",  // 284
    "- Non-grav. normal acceleration parameter error value should be a real type.",  // 285
    "- Non-grav. perihelion-maximum offset value must be filled in this case.",  // 286
    "\"non-grav. perihelion-maximum offset error\"",  // 287
    "- Non-grav. perihelion-maximum offset error value should not contain spaces.",  // 288
    "- Non-grav. perihelion-maximum offset error value should not exceed 17 significant characters.",  // 289
    "- Non-grav. perihelion-maximum offset error value should not contain commas.",  // 290
    "- Non-grav. perihelion-maximum offset error must be positive.",  // 291
    "- Non-grav. perihelion-maximum offset error value should be a real type.",  // 292
    "- Center-of-light/mass offset value must be filled in this case.",  // 293
    "\"center-of-light/mass offset error\"",  // 294
    "- Center-of-light/mass offset error value should not contain spaces.",  // 295
    "- Center-of-light/mass offset error value should not exceed 17 significant characters.",  // 296
    "- Center-of-light/mass offset error value should not contain commas.",  // 297
    "- Center-of-light/mass offset error must be positive.",  // 298
    "- Center-of-light/mass offset error value should be a real type.",  // 299
    "- Effective body diameter value must be filled in this case.",  // 300
    "\"effective body diameter error\"",  // 301
    "- Effective body diameter error value should not contain spaces.",  // 302
    "- Effective body diameter error value should not exceed 17 significant characters.",  // 303
    "- Effective body diameter error value should not contain commas.",  // 304
    "- Effective body diameter error must be positive.",  // 305
    "- Effective body diameter error value should be a real type.",  // 306
    "- Axial ratio value must be filled in this case.",  // 307
    "\"axial ratio error\"",  // 308
    "- Axial ratio error value should not contain spaces.",  // 309
    "- Axial ratio error value should not exceed 17 significant characters.",  // 310
    "- Axial ratio error value should not contain commas.",  // 311
    "- Axial ratio error must be positive.",  // 312
    "- Axial ratio error value should be a real type.",  // 313
    "- Rotation period value must be filled in this case.",  // 314
    "\"rotation period error\"",  // 315
    "- Rotation period error value should not contain spaces.",  // 316
    "- Rotation period error value should not exceed 17 significant characters.",  // 317
    "- Rotation period error value should not contain commas.",  // 318
    "- Rotation period error must be positive.",  // 319
    "- Rotation period error value should be a real type.",  // 320
    "- Geometric albedo value must be filled in this case.",  // 321
    "\"geometric albedo error\"",  // 322
    "- Geometric albedo error value should not contain spaces.",  // 323
    "- Geometric albedo error value should not exceed 17 significant characters.",  // 324
    "- Geometric albedo error value should not contain commas.",  // 325
    "- Geometric albedo error must be positive.",  // 326
    "- Geometric albedo error value should be a real type.",  // 327
    "- Comet total magnitude value must be filled in this case.",  // 328
    "\"comet total magnitude error\"",  // 329
    "- Comet total magnitude error value should not contain spaces.",  // 330
    "- Comet total magnitude error value should not exceed 17 significant characters.",  // 331
    "- Comet total magnitude error value should not contain commas.",  // 332
    "- Comet total magnitude error must be positive.",  // 333
    "- Comet total magnitude error value should be a real type.",  // 334
    "- Comet total magnitude slope value must be filled in this case.",  // 335
    "\"comet total magnitude slope error\"",  // 336
    "- Comet total magnitude slope error value should not contain spaces.",  // 337
    "- Comet total magnitude slope error value should not exceed 17 significant characters.",  // 338
    "- Comet total magnitude slope error value should not contain commas.",  // 339
    "- Comet total magnitude slope error must be positive.",  // 340
    "- Comet total magnitude slope error value should be a real type.",  // 341
    "- Comet nuclear magnitude value must be filled in this case.",  // 342
    "\"comet nuclear magnitude error\"",  // 343
    "- Comet nuclear magnitude error value should not contain spaces.",  // 344
    "- Comet nuclear magnitude error value should not exceed 17 significant characters.",  // 345
    "- Comet nuclear magnitude error value should not contain commas.",  // 346
    "- Comet nuclear magnitude error must be positive.",  // 347
    "- Comet nuclear magnitude error value should be a real type.",  // 348
    "- Comet nuclear magnitude slope value must be filled in this case.",  // 349
    "\"comet nuclear magnitude slope error\"",  // 350
    "- Comet nuclear magnitude slope error value should not contain spaces.",  // 351
    "- Comet nuclear magnitude slope error value should not exceed 17 significant characters.",  // 352
    "- Comet nuclear magnitude slope error value should not contain commas.",  // 353
    "- Comet nuclear magnitude slope error must be positive.",  // 354
    "- Comet nuclear magnitude slope error value should be a real type.",  // 355
};
static_assert(kOrvErrors.size() == static_cast<std::size_t>(keyCount(Section::orvErrors)));

constexpr std::array<std::string_view, 33> kOrvElementsUpdate{
    "Update Database",  // 1
    "Restore",  // 2
    "Update",  // 3
    "Close",  // 4
    "Orbits",  // 5
    "Database status: Please wait until check the status of the database...",  // 6
    "Last successful update:",  // 7
    "Current version: (",  // 8
    "Database status: Failed to open WinInet...",  // 9
    "Database status: Unable to establish internet connection...",  // 10
    "Database status: Administrative error, try to update later...",  // 11
    "out of",  // 12
    "up to",  // 13
    "Database status: Orbits database is",  // 14
    " date...",  // 15
    "Are you sure you want to restore the Orbits database?",  // 16
    "Confirm restore",  // 17
    "Abort",  // 18
    "Remaining time: ...",  // 19
    "Update progress: Establishing network connection to server...",  // 20
    "Update progress: Look for updates...",  // 21
    "Database status: Orbits database is up to date...",  // 22
    "Update progress: Downloading",  // 23
    "(0 kB /",  // 24
    "kB)",  // 25
    "(",  // 26
    "kB /",  // 27
    "Update progress: Save new Records...",  // 28
    "Update progress: Save user Records...",  // 29
    "Update progress: Update database...",  // 30
    "Please wait...",  // 31
    "Update progress: Ready...",  // 32
    "You will lost all of changes, except your own!",  // 33
};
static_assert(kOrvElementsUpdate.size() == static_cast<std::size_t>(keyCount(Section::orvElementsUpdate)));

constexpr std::array<std::string_view, 27> kOrvDEInstall{
    "OK",  // 1
    "Exit",  // 2
    "You need to download at least one of the files...",  // 3
    "JPL DE406 Planetary and Lunar Ephemerides (190 \xD0\x9C\xD0\x91)",  // 4: JPL DE406 Planetary and Lunar Ephemerides (190 МБ)
    "JPL DE423 Planetary and Lunar Ephemerides (35 \xD0\x9C\xD0\x91)",  // 5: JPL DE423 Planetary and Lunar Ephemerides (35 МБ)
    "Installation Status: Check your Internet connection...",  // 6
    "Installation Status: Failed to open WinInet...",  // 7
    "Installation Status: Unable to establish internet connection...",  // 8
    "Installation Status: Administrative error, try to download later...",  // 9
    "File Size: (",  // 10
    "MB)",  // 11
    "Installation Status: Ready to download...",  // 12
    "Installation progress: Downloading JPL DE406 (0 MB /",  // 13
    "Installation progress: Downloading JPL DE406 (",  // 14
    "MB /",  // 15
    "Installation Status: Ready...",  // 16
    "Ephemerides:",  // 17
    "Installation Error...",  // 18
    "Installation progress: Downloading JPL DE423 (0 MB /",  // 19
    "Installation progress: Downloading JPL DE423 (",  // 20
    "Skip",  // 21
    "Files Download",  // 22
    "You need to download the following files...",  // 23
    "Repeat",  // 24
    "Covers from -3000-02-22 to 3000-03-03. JPL Long Ephemeris with reduced accuracy of interpolating polynomials, but covers a larger time interval. (1997)",  // 25
    "Covers from 1799-12-16 to 2200-02-01. Latest JPL ephemeris intended for the MESSENGER mission to Mercury. (2010)",  // 26
    "Installation Status: The file that arrived is not a planetary file that Orvane can read...",  // 27
};
static_assert(kOrvDEInstall.size() == static_cast<std::size_t>(keyCount(Section::orvDEInstall)));

constexpr std::array<std::string_view, 9> kOrvWnd{
    "Are you sure you want to import 1 Record?",  // 1
    "Are you sure you want to import",  // 2
    "Records?",  // 3
    "Confirm Records import",  // 4
    "Are you sure you want to delete 1 Record?",  // 5
    "Are you sure you want to delete",  // 6
    "Confirm Records delete",  // 7
    "Your search did not match any results.",  // 8
    "Never updated...",  // 9
};
static_assert(kOrvWnd.size() == static_cast<std::size_t>(keyCount(Section::orvWnd)));

constexpr std::array<std::string_view, 52> kOrvCoSystem{
    "Ephemeris Type:",  // 1
    "Spherical",  // 2
    "Rectangular",  // 3
    "Position:",  // 4
    "Astrometric",  // 5
    "Geometric",  // 6
    "Apparent",  // 7
    "Main Plane - Reference System:",  // 8
    "Equator",  // 9
    "Ecliptic",  // 10
    "Horizon",  // 11
    "-",  // 12
    "2000.0",  // 13
    "1950.0",  // 14
    "True",  // 15
    "-",  // 16
    "Geocenter",  // 17
    "Topocenter",  // 18
    "Observer Location:",  // 19
    "Move to Optional Settings",  // 20
    "Move to Move to Ephemerides Settings",  // 21
    "Optional Settings",  // 22
    "Ephemerides Settings",  // 23
    "Select Settings",  // 24
    "Latitude:",  // 25
    "Longitude:",  // 26
    "Altitude:",  // 27
    "\xC2\xB0",  // 28: °
    "'",  // 29
    "\"",  // 30
    "(m)",  // 31
    "E",  // 32
    "W",  // 33
    "N",  // 34
    "S",  // 35
    "m",  // 36
    "Output Settings",  // 37
    "Move to Output Settings",  // 38
    "Output Settings:",  // 39
    "Calculate ephemerides",  // 40
    "Write to single File",  // 41
    "Step Size:",  // 42
    "Days",  // 43
    "Hours",  // 44
    "Minutes",  // 45
    "Browse for Folder",  // 46
    "",  // 47
    "Save to Folder:",  // 48
    "...",  // 49
    "Orbital",  // 50
    "Maximum File Size:",  // 51
    "MB",  // 52
};
static_assert(kOrvCoSystem.size() == static_cast<std::size_t>(keyCount(Section::orvCoSystem)));

}  // namespace

std::span<const std::string_view> defaultSectionTexts(Section section) {
    switch (section) {
    case Section::orvMenu: return kOrvMenu;
    case Section::orvToolBar: return kOrvToolBar;
    case Section::orvTab: return kOrvTab;
    case Section::orvStartPage: return kOrvStartPage;
    case Section::orvBriefInfo: return kOrvBriefInfo;
    case Section::orvQuickSearch: return kOrvQuickSearch;
    case Section::orvAdvSearch: return kOrvAdvSearch;
    case Section::orvFilters: return kOrvFilters;
    case Section::orvOutDetails: return kOrvOutDetails;
    case Section::orvSets: return kOrvSets;
    case Section::orvElements: return kOrvElements;
    case Section::orvCalcElements: return kOrvCalcElements;
    case Section::orvStatus: return kOrvStatus;
    case Section::orvListView: return kOrvListView;
    case Section::orvAbout: return kOrvAbout;
    case Section::orvUpdate: return kOrvUpdate;
    case Section::orvOrvaneOptions: return kOrvOrvaneOptions;
    case Section::orvEdit: return kOrvEdit;
    case Section::orvOrbits: return kOrvOrbits;
    case Section::orvPlanets: return kOrvPlanets;
    case Section::orvElementsOptions: return kOrvElementsOptions;
    case Section::orvErrors: return kOrvErrors;
    case Section::orvElementsUpdate: return kOrvElementsUpdate;
    case Section::orvDEInstall: return kOrvDEInstall;
    case Section::orvWnd: return kOrvWnd;
    case Section::orvCoSystem: return kOrvCoSystem;
    }
    return {};
}

std::string_view defaultText(Section section, int key) {
    const auto texts = defaultSectionTexts(section);
    if (key < 1 || static_cast<std::size_t>(key) > texts.size()) return {};
    return texts[static_cast<std::size_t>(key - 1)];
}

}  // namespace orvane
