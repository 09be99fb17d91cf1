#pragma once
// A published update server folder in a temporary home, served by the test server.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "language/language_table.h"
#include "support/temp_home.h"
#include "support/test_server.h"

namespace orvane::testing {

// The bytes of the package the server offers: a Debian archive's magic and some bytes.
inline std::string packageBytes() {
    std::string bytes = "!<arch>\ndebian-binary   ";
    for (int i = 0; bytes.size() < 300000; ++i) bytes += static_cast<char>('a' + i % 26);
    return bytes;
}

struct PublishedServer {
    TempHome home;
    std::filesystem::path folder = home.root() / "server";
    std::filesystem::path work = home.root() / "work";
    std::unique_ptr<TestServer> server;

    // A server with version `version`, the package and the planetary file as DE423.
    explicit PublishedServer(const std::string& version = "0.07") {
        ResetLanguage();
        std::filesystem::create_directories(work);
        const std::filesystem::path package = home.root() / "orvane_0.07_amd64.deb";
        writeFile(package, packageBytes());
        EXPECT_TRUE(publishServer(folder, {"--version=" + version, "--package=" + package.string(),
                                           "--de423=" + machinePlanetaryFile().string()}))
            << "orvane-publish failed; is " << machinePlanetaryFile() << " there (scripts/setup)?";
        server = std::make_unique<TestServer>(folder);
    }

    std::string address() const { return server->address(); }
    std::string workFolder() const { return work.string() + "/"; }
    std::filesystem::path published(const std::string& relative) const { return folder / "orvane" / relative; }
};

// Files whose name holds ".part-": what a download leaves when it dies.
inline std::vector<std::filesystem::path> partialFiles(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> found;
    std::error_code ec;
    for (std::filesystem::recursive_directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec))
        if (it->path().filename().string().find(".part-") != std::string::npos) found.push_back(it->path());
    return found;
}

// Waits up to `seconds` for `done` to hold.
template <class Done>
bool waitFor(Done done, double seconds = 20) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (!done()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

// A port where nobody listens: the port a server had before it stopped.
inline int closedPort() {
    const std::filesystem::path empty = std::filesystem::temp_directory_path();
    TestServer probe(empty);
    return probe.port();
}

}  // namespace orvane::testing
