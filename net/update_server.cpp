#include "net/update_server.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <vector>

#include "net/local_file.h"

namespace orvane {
namespace {

constexpr const char* kServerKey = "update-server=";
// A settings file is a few lines; a larger one is not ours and is not read whole.
constexpr std::size_t kSettingsLimit = 64 * 1024;

std::string trimmed(const std::string& s) {
    const auto first = s.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return {};
    return s.substr(first, s.find_last_not_of(" \t\r\n") - first + 1);
}

bool startsWith(const std::string& s, const char* prefix) { return s.rfind(prefix, 0) == 0; }

std::vector<std::string> readSettingsLines(const std::string& path) {
    std::vector<std::string> lines;
    std::ifstream in(path, std::ios::binary);
    std::string line;
    std::size_t read = 0;
    while (read < kSettingsLimit && std::getline(in, line)) {
        read += line.size() + 1;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

}  // namespace

std::string LocalServerFolder(const std::string& commonFolder) { return commonFolder + "Server"; }

std::string DefaultServerAddress(const std::string& commonFolder) {
    // A folder name may hold blanks or letters beyond ASCII; the URL carries them encoded.
    std::string address = "file://";
    for (const char c : LocalServerFolder(commonFolder)) {
        const auto u = static_cast<unsigned char>(c);
        if (std::isalnum(u) || std::strchr("/-._~", c)) {
            address += c;
        } else {
            static const char kHex[] = "0123456789ABCDEF";
            address += '%';
            address += kHex[u >> 4];
            address += kHex[u & 15];
        }
    }
    return address;
}

std::string StoredServerAddress(const std::string& userFolder) {
    std::string address;
    for (const std::string& line : readSettingsLines(userFolder + kSettingsFile))
        if (startsWith(line, kServerKey)) address = trimmed(line.substr(std::strlen(kServerKey)));
    return ValidServerAddress(address) ? address : std::string();
}

bool StoreServerAddress(const std::string& userFolder, const std::string& address) {
    const std::string path = userFolder + kSettingsFile;
    std::ostringstream out;
    // Lines of other settings stay as they were.
    for (const std::string& line : readSettingsLines(path))
        if (!startsWith(line, kServerKey) && !line.empty()) out << line << '\n';
    const std::string value = trimmed(address);
    if (!value.empty()) out << kServerKey << value << '\n';
    std::string detail;
    return WriteFileReplacing(path, out.str(), detail);
}

std::string ServerAddress(const std::string& userFolder, const std::string& commonFolder) {
    const char* fromEnvironment = std::getenv(kServerEnvironment);
    if (fromEnvironment && ValidServerAddress(trimmed(fromEnvironment))) return trimmed(fromEnvironment);
    const std::string stored = StoredServerAddress(userFolder);
    if (!stored.empty()) return stored;
    return DefaultServerAddress(commonFolder);
}

bool ValidServerAddress(const std::string& address) {
    if (address.size() > kAddressWidth) return false;
    std::size_t schemeEnd = 0;
    for (const char* scheme : {"http://", "https://", "file://"})
        if (startsWith(address, scheme)) schemeEnd = std::strlen(scheme);
    if (schemeEnd == 0 || address.size() == schemeEnd) return false;
    for (const char c : address)
        if (static_cast<unsigned char>(c) <= ' ' || c == 0x7f) return false;
    return true;
}

std::string ServerUrl(const std::string& address, const char* path) {
    std::string base = trimmed(address);
    while (!base.empty() && base.back() == '/') base.pop_back();
    return base + path;
}

std::string HomePageUrl(const std::string& address) {
    const std::string folder = ServerUrl(address, kProductPath);
    return startsWith(folder, "file://") ? folder + "index.html" : folder;
}

}  // namespace orvane
