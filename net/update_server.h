#pragma once
// Where the update server is and how its folders are named.
//
// The server's address (scheme and host, or a file:// folder) is a setting of the
// user, kept in the small settings file `settings.txt` of the per-user folder; the
// environment variable ORVANE_UPDATE_SERVER overrides it. Without either, the
// program uses the server folder that the setup publishes in the per-machine folder,
// so a new machine has a working server without the internet.
#include <string>

namespace orvane {

// The folders below the address.
inline constexpr const char* kElementsPath = "/orvane/OrvaneData/Elements/";
inline constexpr const char* kFilesPath = "/orvane/files/";
inline constexpr const char* kEphemeridesPath = "/orvane/OrvaneData/Ephemerides/";
inline constexpr const char* kProductPath = "/orvane/";

// Files the client asks for in those folders, and the names it works under.
inline constexpr const char* kVersionFile = "versinfo.lst";
inline constexpr const char* kUpdateListFile = "update.lst";    // also the work file of the checks
inline constexpr const char* kPackageFile = "orvane-setup.deb";  // the program's Debian package
inline constexpr const char* kChecksumSuffix = ".sha256";

// Server URLs are texts of at most 500 characters; the address leaves room in them
// for the longest folder path and file name.
inline constexpr std::size_t kAddressWidth = 440;

inline constexpr const char* kServerEnvironment = "ORVANE_UPDATE_SERVER";
inline constexpr const char* kSettingsFile = "settings.txt";

// The server folder below the per-machine folder (which ends with a separator).
std::string LocalServerFolder(const std::string& commonFolder);
// "file://" and that folder.
std::string DefaultServerAddress(const std::string& commonFolder);

// The address stored in the user's settings file, or "" when none is stored.
std::string StoredServerAddress(const std::string& userFolder);
// Stores `address` ("" removes it, so the default holds again); false when the file
// could not be written.
bool StoreServerAddress(const std::string& userFolder, const std::string& address);

// The address in force: the environment, else the stored one, else the default.
std::string ServerAddress(const std::string& userFolder, const std::string& commonFolder);

// True for an address this program can use: http://, https:// or file://, then at
// least one character, no blanks or control characters, at most kAddressWidth long.
bool ValidServerAddress(const std::string& address);

// The address and one of the folder paths, without a doubled separator.
std::string ServerUrl(const std::string& address, const char* path);

// The product's home page on the server: its product folder (an index page there on
// a file:// server, which has no directory index).
std::string HomePageUrl(const std::string& address);

}  // namespace orvane
