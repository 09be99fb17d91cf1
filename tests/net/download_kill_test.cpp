// A program killed in the middle of the download of a planetary file leaves the mark
// of record 103 and a partial file under a temporary name, never a partial file under
// the file's own name; the next start removes the partial file.
#include <gtest/gtest.h>

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <filesystem>

#include "app/app_state.h"
#include "app/config_file.h"
#include "app/startup.h"
#include "net/update_server.h"
#include "net_test_support.h"

extern char** environ;

using namespace orvane;
using namespace orvane::testing;
namespace fs = std::filesystem;

namespace {

std::uintmax_t partialBytes(const fs::path& folder) {
    std::uintmax_t bytes = 0;
    for (const fs::path& p : partialFiles(folder)) {
        std::error_code ec;
        bytes += fs::file_size(p, ec);
    }
    return bytes;
}

}  // namespace

TEST(DownloadKill, TheNextStartRemovesThePartialFileOfARunKilledDuringTheDownload) {
    NetFixtureServer s;
    s.server->setFault("/orvane/OrvaneData/Ephemerides/jplde423.dat", TestServer::Fault::slow);
    s.server->setSlowPace(16384, 20);
    setenv(kServerEnvironment, s.address().c_str(), 1);

    AppState first;
    InitialiseProgram(first, s.home.root().string());
    ASSERT_EQ(first.ephemerisMissing, 1);
    const fs::path machine = first.folders.commonFolder;
    const std::string config = first.folders.userFolder + "config.dat";

    const std::string program = std::string(ORVANE_BINARY_DIR) + "/tests/download_child";
    char* argv[] = {const_cast<char*>(program.c_str()), nullptr};
    pid_t child = 0;
    ASSERT_EQ(posix_spawn(&child, program.c_str(), nullptr, nullptr, argv, environ), 0);
    const bool downloading = waitFor([&] { return partialBytes(machine) > 256 * 1024; });
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    unsetenv(kServerEnvironment);
    ASSERT_TRUE(downloading) << "the child never began the download";
    ASSERT_TRUE(WIFSIGNALED(status));

    // What the killed run left: the mark, and the partial file under its temporary name.
    AppState marked;
    ReadConfigFile(config, marked);
    EXPECT_EQ(marked.pendingEphemerisDelete, 2);
    EXPECT_FALSE(partialFiles(machine).empty());
    EXPECT_FALSE(fs::exists(machine / "jplde423.dat"));

    AppState next;
    InitialiseProgram(next, s.home.root().string());
    EXPECT_TRUE(partialFiles(machine).empty());
    EXPECT_EQ(next.ephemerisMissing, 1);
}

TEST(DownloadKill, TheChildInstallsTheFileWhenNobodyKillsIt) {
    NetFixtureServer s;
    setenv(kServerEnvironment, s.address().c_str(), 1);
    AppState first;
    InitialiseProgram(first, s.home.root().string());
    const std::string program = std::string(ORVANE_BINARY_DIR) + "/tests/download_child";
    char* argv[] = {const_cast<char*>(program.c_str()), nullptr};
    pid_t child = 0;
    ASSERT_EQ(posix_spawn(&child, program.c_str(), nullptr, nullptr, argv, environ), 0);
    int status = 0;
    ::waitpid(child, &status, 0);
    unsetenv(kServerEnvironment);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(readFile(first.folders.de423Path), readFile(machinePlanetaryFile()));
    AppState after;
    ReadConfigFile(first.folders.userFolder + "config.dat", after);
    EXPECT_EQ(after.pendingEphemerisDelete, 0);
}
