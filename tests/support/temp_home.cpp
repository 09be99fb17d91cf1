#include "temp_home.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

namespace orvane::testing {
namespace {
const char* const kVariables[6] = {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME",
                                   "XDG_CACHE_HOME", "XDG_DATA_DIRS", "XDG_DOCUMENTS_DIR"};
}

TempHome::TempHome() {
    std::random_device rd;
    std::ostringstream name;
    name << "orvane-test-" << std::hex << rd() << rd();
    root_ = std::filesystem::temp_directory_path() / name.str();
    std::filesystem::create_directories(root_ / "home");
    oldCwd_ = std::filesystem::current_path();
    for (int i = 0; i < 6; ++i) {
        const char* v = std::getenv(kVariables[i]);
        saved_[i] = {kVariables[i], v ? v : "", v != nullptr};
    }
    const std::string home = (root_ / "home").string();
    setenv("HOME", home.c_str(), 1);
    setenv("XDG_DATA_HOME", (home + "/.local/share").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (home + "/.config").c_str(), 1);
    setenv("XDG_CACHE_HOME", (home + "/.cache").c_str(), 1);
    setenv("XDG_DATA_DIRS", (root_ / "system-share").string().c_str(), 1);
    setenv("XDG_DOCUMENTS_DIR", (home + "/Documents").c_str(), 1);
}

TempHome::~TempHome() {
    std::error_code ec;
    std::filesystem::current_path(oldCwd_, ec);
    for (const Saved& s : saved_) {
        if (s.had)
            setenv(s.name.c_str(), s.value.c_str(), 1);
        else
            unsetenv(s.name.c_str());
    }
    std::filesystem::remove_all(root_, ec);
}

std::filesystem::path sharedPath(const std::string& relative) {
    return std::filesystem::path(ORVANE_SHARED_DIR) / relative;
}

std::string readFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace orvane::testing
