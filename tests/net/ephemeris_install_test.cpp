// The installation of the planetary files: the file arrives whole and checked, each
// failure shows its text, an abort leaves nothing, and record 103 names the file in
// transfer while it comes.
#include <gtest/gtest.h>

#include <filesystem>
#include <mutex>

#include "net/ephemeris_install.h"
#include "net/update_server.h"
#include "net_test_support.h"

using namespace orvane;
using namespace orvane::testing;
namespace fs = std::filesystem;
using Fault = TestServer::Fault;

namespace {

struct RecordingView : EphemerisInstallView, ScreenRecorder<EphemerisInstallScreen> {
    void showScreen(const EphemerisInstallScreen& screen) override { record(screen); }
    void fileInstalled(int file, int choice) override {
        std::lock_guard lock(mutex);
        installed.emplace_back(file, choice);
    }
    std::vector<std::pair<int, int>> installed;
};

class EphemerisInstallTest : public ::testing::Test {
protected:
    EphemerisInstallSettings settings(bool singleFile = false) {
        EphemerisInstallSettings out;
        out.serverAddress = s.address();
        out.de406Path = (machine / "jplde406.dat").string();
        out.de423Path = (machine / "jplde423.dat").string();
        out.singleFile = singleFile;
        out.markPending = [this](int value) {
            std::lock_guard lock(view.mutex);
            marks.push_back(value);
        };
        return out;
    }

    void installed(EphemerisInstall& install, bool de406, bool de423) {
        install.start(de406, de423);
        install.join();
        EXPECT_FALSE(install.busy());
        EXPECT_TRUE(partialFiles(machine).empty());
    }

    NetFixtureServer s;
    fs::path machine = s.home.root() / "machine";
    RecordingView view;
    std::vector<int> marks;

    void SetUp() override { fs::create_directories(machine); }
};

}  // namespace

TEST_F(EphemerisInstallTest, TheFileArrivesByteForByteAndTheMarkComesAndGoes) {
    EphemerisInstall install(view, settings());
    EXPECT_EQ(install.screen().message, "You need to download at least one of the files...");
    EXPECT_EQ(install.screen().secondCaption, "Exit");
    installed(install, false, true);
    EXPECT_EQ(readFile(machine / "jplde423.dat"), readFile(machinePlanetaryFile()));
    EXPECT_EQ(view.installed, (std::vector<std::pair<int, int>>{{2, 2}}));
    EXPECT_EQ(marks, (std::vector<int>{2, 0}));
    EXPECT_EQ(s.server->lastAgent(), "ECheckHttp");

    const EphemerisInstallScreen& busy = view.screens.front();
    EXPECT_FALSE(busy.choicesShown);
    EXPECT_TRUE(busy.barShown);
    EXPECT_FALSE(busy.okEnabled);
    EXPECT_FALSE(busy.closeEntryEnabled);
    std::vector<std::string> lines;
    for (const auto& screen : view.screens) lines.push_back(screen.line2);
    EXPECT_NE(std::find(lines.begin(), lines.end(), "Update progress: Establishing network connection to server..."),
              lines.end());
    EXPECT_NE(std::find(lines.begin(), lines.end(), "Installation progress: Downloading JPL DE423 (0 MB / 8 MB)"),
              lines.end());
    // The bar: (9324880 / 1024) / 10 steps, one for every tenth read of 1024 bytes.
    const EphemerisInstallScreen done = view.last();
    EXPECT_EQ(done.barMaximum, 910);
    EXPECT_EQ(done.barValue, 910);
    EXPECT_EQ(done.line1, "Installation Status: Ready...");
    EXPECT_EQ(done.line2, "Installation progress: Downloading JPL DE423 (8 MB / 8 MB)");
    EXPECT_EQ(done.secondCaption, "Skip");
    EXPECT_FALSE(done.okEnabled);
    EXPECT_TRUE(done.closeEntryEnabled);
    EXPECT_TRUE(install.pressSecond());
}

TEST_F(EphemerisInstallTest, AFileTheServerDoesNotHaveIsAnAdministrativeError) {
    EphemerisInstall install(view, settings());
    installed(install, true, true);  // the server publishes DE423 only
    const EphemerisInstallScreen done = view.last();
    EXPECT_EQ(done.line1, "Installation Error...");
    EXPECT_EQ(done.line2, "Installation Status: Administrative error, try to download later...");
    EXPECT_EQ(done.okCaption, "Repeat");
    EXPECT_TRUE(done.okEnabled);
    EXPECT_EQ(done.secondCaption, "Exit");
    // The boxes come back, so that the user can choose the file the server has.
    EXPECT_TRUE(done.choicesShown);
    EXPECT_TRUE(done.de406Shown);
    EXPECT_TRUE(done.de423Shown);
    EXPECT_EQ(marks, (std::vector<int>{1, 0}));
    EXPECT_FALSE(fs::exists(machine / "jplde406.dat"));
    EXPECT_FALSE(fs::exists(machine / "jplde423.dat"));
    EXPECT_TRUE(view.installed.empty());
}

TEST_F(EphemerisInstallTest, AFailureOnTheSecondFileAfterTheFirstArrivedOffersSkip) {
    ASSERT_TRUE(publishServer(s.folder, {"--de406=" + machinePlanetaryFile().string()}));
    s.server->setFault("/orvane/OrvaneData/Ephemerides/jplde423.dat", Fault::serverError);
    EphemerisInstall install(view, settings());
    installed(install, true, true);
    EXPECT_EQ(view.installed, (std::vector<std::pair<int, int>>{{1, 1}}));
    const EphemerisInstallScreen done = view.last();
    EXPECT_EQ(done.line2, "Installation Status: Administrative error, try to download later...");
    EXPECT_EQ(done.secondCaption, "Skip");
    EXPECT_FALSE(done.de406Shown);
    EXPECT_TRUE(done.de423Shown);
    EXPECT_EQ(marks, (std::vector<int>{1, 2, 0}));
    EXPECT_TRUE(fs::exists(machine / "jplde406.dat"));
    EXPECT_TRUE(install.installedAny());
}

TEST_F(EphemerisInstallTest, AnAbortedFileDoesNotRemainOnDisk) {
    s.server->setFault("/orvane/OrvaneData/Ephemerides/jplde423.dat", Fault::slow);
    s.server->setSlowPace(16384, 20);
    EphemerisInstall install(view, settings());
    install.start(false, true);
    ASSERT_TRUE(waitFor([&] { return view.last().line2.rfind("Installation progress", 0) == 0; }));
    EXPECT_EQ(view.last().secondCaption, "Abort");
    EXPECT_EQ(view.last().message, "Please wait...");
    EXPECT_FALSE(install.pressSecond());
    install.join();
    const EphemerisInstallScreen back = view.last();
    EXPECT_TRUE(back.choicesShown);
    EXPECT_FALSE(back.barShown);
    EXPECT_EQ(back.message, "You need to download at least one of the files...");
    EXPECT_EQ(back.secondCaption, "Exit");
    EXPECT_EQ(back.okCaption, "OK");
    EXPECT_TRUE(back.okEnabled);
    EXPECT_EQ(marks, (std::vector<int>{2, 0}));
    EXPECT_FALSE(fs::exists(machine / "jplde423.dat"));
    EXPECT_TRUE(partialFiles(machine).empty());
    EXPECT_TRUE(install.pressSecond());
}

TEST_F(EphemerisInstallTest, EachFaultOfTheServerGivesItsTextAndLeavesNothing) {
    const std::string path = "/orvane/OrvaneData/Ephemerides/jplde423.dat";
    struct Case {
        Fault fault;
        std::string line1;
        std::string line2;
    };
    const Case cases[] = {
        {Fault::notFound, "Installation Error...", "Installation Status: Administrative error, try to download later..."},
        {Fault::serverError, "Installation Error...",
         "Installation Status: Administrative error, try to download later..."},
        {Fault::htmlPage, "Installation Error...",
         "Installation Status: The file that arrived is not a planetary file that Orvane can read..."},
        // A body cut short is an interrupted transfer: back to the choice, as after Abort.
        {Fault::cutBody, "", ""},
    };
    for (const Case& c : cases) {
        s.server->setFault(path, c.fault);
        EphemerisInstall install(view, settings());
        installed(install, false, true);
        EXPECT_EQ(view.last().line1, c.line1);
        EXPECT_EQ(view.last().line2, c.line2);
        EXPECT_FALSE(fs::exists(machine / "jplde423.dat"));
        EXPECT_EQ(marks.back(), 0);
    }
}

TEST_F(EphemerisInstallTest, AStalledServerEndsAtTheLowSpeedLimit) {
    s.server->setFault("/orvane/OrvaneData/Ephemerides/jplde423.dat", Fault::stall);
    EphemerisInstallSettings quick = settings();
    quick.limits.stallSeconds = 1;
    EphemerisInstall install(view, quick);
    installed(install, false, true);
    EXPECT_TRUE(view.last().choicesShown);
    EXPECT_FALSE(fs::exists(machine / "jplde423.dat"));
}

TEST_F(EphemerisInstallTest, NoServerIsAFailedConnection) {
    EphemerisInstallSettings down = settings();
    down.serverAddress = "http://127.0.0.1:" + std::to_string(closedPort());
    EphemerisInstall install(view, down);
    installed(install, false, true);
    EXPECT_EQ(view.last().line2, "Installation Status: Unable to establish internet connection...");
}

TEST_F(EphemerisInstallTest, TheDownloadWindowOfTheOptionsOffersCancel) {
    EphemerisInstall install(view, settings(true));
    EXPECT_EQ(install.screen().message, "You need to download the following files...");
    EXPECT_EQ(install.screen().secondCaption, "Cancel");
    installed(install, false, true);
    EXPECT_EQ(view.last().secondCaption, "Close");
}
