#pragma once
// A throw-away home for one test: HOME and the XDG folders point into a fresh
// temporary folder, so no test ever reads or writes the real user's files.
#include <filesystem>
#include <string>

namespace orvane::testing {

class TempHome {
public:
    TempHome();
    ~TempHome();
    TempHome(const TempHome&) = delete;
    TempHome& operator=(const TempHome&) = delete;

    const std::filesystem::path& root() const { return root_; }
    std::filesystem::path home() const { return root_ / "home"; }

private:
    std::filesystem::path root_;
    std::filesystem::path oldCwd_;
    struct Saved { std::string name; std::string value; bool had; };
    Saved saved_[6];
};

// Path below ../shared beside the checkout (reference data, the real DE405 file).
std::filesystem::path sharedPath(const std::string& relative);

// Whole file as bytes.
std::string readFile(const std::filesystem::path& path);
void writeFile(const std::filesystem::path& path, const std::string& bytes);

}  // namespace orvane::testing
