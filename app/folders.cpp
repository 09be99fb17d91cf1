#include "app/folders.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <unistd.h>

namespace orvane {
namespace fs = std::filesystem;

namespace {

std::string env(const char* name) {
    const char* v = std::getenv(name);
    return v ? std::string(v) : std::string();
}

std::string homeFolder() {
    std::string home = env("HOME");
    return home.empty() ? std::string("/tmp") : home;
}

std::string withSeparator(std::string path) {
    if (path.empty() || path.back() != '/') path += '/';
    return path;
}

std::string cut(std::string path) {
    if (path.size() > kPathWidth) path.resize(kPathWidth);
    return path;
}

std::string dataHome() {
    std::string dir = env("XDG_DATA_HOME");
    return dir.empty() ? homeFolder() + "/.local/share" : dir;
}

std::string firstDataDir() {
    std::string dirs = env("XDG_DATA_DIRS");
    if (dirs.empty()) dirs = "/usr/local/share";
    const auto colon = dirs.find(':');
    return colon == std::string::npos ? dirs : dirs.substr(0, colon);
}

bool writableOrCreatable(const fs::path& dir) {
    std::error_code ec;
    fs::path probe = dir;
    while (!probe.empty() && !fs::exists(probe, ec)) {
        if (probe == probe.parent_path()) break;
        probe = probe.parent_path();
    }
    return !probe.empty() && access(probe.c_str(), W_OK | X_OK) == 0;
}

bool holdsPlanetaryFile(const fs::path& dir) {
    std::error_code ec;
    return fs::exists(dir / "jplde406.dat", ec) || fs::exists(dir / "jplde423.dat", ec);
}

// XDG_DOCUMENTS_DIR from the environment or from user-dirs.dirs, "$HOME" expanded.
std::string documentsFolder() {
    std::string dir = env("XDG_DOCUMENTS_DIR");
    if (dir.empty()) {
        std::string config = env("XDG_CONFIG_HOME");
        if (config.empty()) config = homeFolder() + "/.config";
        std::ifstream in(config + "/user-dirs.dirs");
        std::string line;
        while (std::getline(in, line)) {
            constexpr std::string_view key = "XDG_DOCUMENTS_DIR=";
            if (line.compare(0, key.size(), key) != 0) continue;
            std::string value = line.substr(key.size());
            if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
                value = value.substr(1, value.size() - 2);
            if (value.compare(0, 5, "$HOME") == 0) value = homeFolder() + value.substr(5);
            dir = value;
        }
    }
    std::error_code ec;
    if (dir.empty() || !fs::is_directory(dir, ec)) dir = homeFolder();
    return dir;
}

}  // namespace

std::string CommonFolder() {
    const fs::path shared = fs::path(firstDataDir()) / "Orvane";
    if (writableOrCreatable(shared) || holdsPlanetaryFile(shared))
        return cut(withSeparator(shared.string()));
    return cut(withSeparator((fs::path(dataHome()) / "Orvane" / "Common").string()));
}

Folders SettleFolders(const std::string& programFolder) {
    Folders f;
    f.programFolder = cut(programFolder);
    f.languageFolder = cut(withSeparator(f.programFolder) + "Languages/");
    f.languageMask = cut(withSeparator(f.programFolder) + "Languages/*.lng");
    f.helpFile = cut(withSeparator(f.programFolder) + "Help/index.html");
    f.userFolder = cut(withSeparator(dataHome()) + "Orvane/");
    f.commonFolder = CommonFolder();
    f.de406Path = cut(f.commonFolder + "jplde406.dat");
    f.de423Path = cut(f.commonFolder + "jplde423.dat");
    f.documentsFolder = cut(documentsFolder());
    return f;
}

}  // namespace orvane
