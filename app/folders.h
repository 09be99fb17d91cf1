#pragma once
// Where the program finds and keeps its files. On this platform the per-user data
// folder is $XDG_DATA_HOME/Orvane/ (default ~/.local/share/Orvane/); the per-machine
// folder, which holds the planetary files, is Orvane/ below the first entry of
// $XDG_DATA_DIRS (default /usr/local/share) when that folder is usable, else a
// per-user stand-in; documents come from the XDG user dirs, else $HOME.
#include <string>

namespace orvane {

struct Folders {
    std::string programFolder;    // the directory the process was started in
    std::string languageFolder;   // programFolder + "/Languages/"
    std::string languageMask;     // programFolder + "/Languages/*.lng"
    std::string helpFile;         // programFolder + "/Help/index.html", the user's guide
    std::string userFolder;       // per-user data, with trailing separator
    std::string commonFolder;     // per-machine data, with trailing separator
    std::string de406Path;        // commonFolder + "jplde406.dat"
    std::string de423Path;        // commonFolder + "jplde423.dat"
    std::string documentsFolder;  // default of the task output folder
};

// The folder paths never exceed this length; longer ones are cut, as the settings
// keep them in fixed fields.
inline constexpr std::size_t kPathWidth = 500;

Folders SettleFolders(const std::string& programFolder);

// The per-machine folder alone (the setup tool and the command-line tool use it too).
std::string CommonFolder();

}  // namespace orvane
