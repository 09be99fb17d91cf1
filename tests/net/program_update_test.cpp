// The program update: the check when the window opens, and the download of the
// package, which reaches the desktop's opener only when its checksum matches.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <atomic>
#include <filesystem>
#include <mutex>

#include "app/app_state.h"
#include "app/startup.h"
#include "net/desktop_opener.h"
#include "net/program_update.h"
#include "net/update_server.h"
#include "net_test_support.h"

using namespace orvane;
using namespace orvane::testing;
namespace fs = std::filesystem;
using Fault = TestServer::Fault;

namespace {

struct RecordingView : ProgramUpdateView, ScreenRecorder<ProgramUpdateScreen> {
    void showScreen(const ProgramUpdateScreen& screen) override { record(screen); }
    void installerStarted() override { ++installers; }
    std::atomic<int> installers{0};
};

class ProgramUpdateTest : public ::testing::Test {
protected:
    ProgramUpdateTest() {
        record = s.home.root() / "opened.txt";
        opener = s.home.root() / "opener.sh";
        useOpener(0);
    }
    ~ProgramUpdateTest() override { unsetenv(kOpenerEnvironment); }

    // An opener that writes the path it got and ends with `status`.
    void useOpener(int status) {
        writeFile(opener, "#!/bin/sh\nprintf '%s' \"$1\" > '" + record.string() + "'\nexit " +
                              std::to_string(status) + "\n");
        fs::permissions(opener, fs::perms::owner_all);
        setenv(kOpenerEnvironment, opener.c_str(), 1);
    }

    ProgramUpdateSettings settings() {
        ProgramUpdateSettings out;
        out.workFolder = s.workFolder();
        out.serverAddress = s.address();
        return out;
    }

    void checked(ProgramUpdate& update) {
        update.startCheck();
        update.join();
    }

    void updated(ProgramUpdate& update) {
        update.pressUpdate();
        update.join();
    }

    NetFixtureServer s;
    fs::path record;
    fs::path opener;
    RecordingView view;
};

}  // namespace

TEST_F(ProgramUpdateTest, TheCheckOffersANewerVersion) {
    ProgramUpdate update(view, settings());
    EXPECT_EQ(update.screen().status, "Update status: Orvane is checking for updates...");
    checked(update);
    // While it checks, nothing can be pressed and the window cannot be closed.
    const ProgramUpdateScreen first = view.screens.front();
    EXPECT_FALSE(first.updateEnabled);
    EXPECT_FALSE(first.closeEnabled);
    EXPECT_FALSE(first.closeEntryEnabled);
    EXPECT_EQ(first.availableLine, "Available version: ...");
    const ProgramUpdateScreen s1 = view.last();
    EXPECT_EQ(s1.title, "Installed and available versions of Orvane...");
    EXPECT_EQ(s1.currentLine, "Current version: 0.06");
    EXPECT_EQ(s1.availableLine, "Available version: 0.07");
    EXPECT_EQ(s1.status, "Update status: Orvane update is available now...");
    EXPECT_TRUE(s1.updateEnabled);
    EXPECT_TRUE(s1.updateDefault);
    EXPECT_TRUE(s1.closeEnabled);
    EXPECT_EQ(s1.closeCaption, "Close");
    EXPECT_FALSE(fs::exists(s.work / "update.lst"));
}

TEST_F(ProgramUpdateTest, TheSameVersionIsNoUpdate) {
    writeFile(s.published("files/versinfo.lst"), "0.06\n");
    ProgramUpdate update(view, settings());
    checked(update);
    EXPECT_EQ(view.last().status, "Update status: No updates yet...");
    EXPECT_EQ(view.last().availableLine, "Available version: 0.06");
    EXPECT_FALSE(view.last().updateEnabled);
}

TEST_F(ProgramUpdateTest, TheCheckNamesEachFailure) {
    ProgramUpdateSettings down = settings();
    down.serverAddress = "http://127.0.0.1:" + std::to_string(closedPort());
    {
        ProgramUpdate update(view, down);
        checked(update);
        EXPECT_EQ(view.last().status, "Update status: Unable to establish internet connection...");
        EXPECT_TRUE(view.last().closeEnabled);
        EXPECT_FALSE(view.last().updateEnabled);
    }
    s.server->setFault("/orvane/files/versinfo.lst", Fault::notFound);
    ProgramUpdate update(view, settings());
    checked(update);
    EXPECT_EQ(view.last().status, "Update status: Administrative error, try to download later...");
}

TEST_F(ProgramUpdateTest, UpdateDownloadsVerifiesAndHandsThePackageToTheOpener) {
    ProgramUpdate update(view, settings());
    checked(update);
    updated(update);
    // The verified package, byte for byte, went to the opener.
    EXPECT_EQ(readFile(record), update.packagePath());
    EXPECT_EQ(readFile(update.packagePath()), packageBytes());
    EXPECT_EQ(view.installers.load(), 1);
    EXPECT_EQ(s.server->requests("/orvane/files/orvane-setup.deb.sha256"), 1);
    // The screens on the way.
    std::vector<std::string> lines;
    for (const ProgramUpdateScreen& screen : view.screens) lines.push_back(screen.availableLine);
    EXPECT_NE(std::find(lines.begin(), lines.end(), "Update progress: Establishing network connection to server..."),
              lines.end());
    EXPECT_NE(std::find(lines.begin(), lines.end(), "Update progress: Downloading (0 MB / 0 MB)"), lines.end());
    const ProgramUpdateScreen done = view.last();
    EXPECT_EQ(done.title, "Installed and available versions of Orvane...");
    EXPECT_EQ(done.currentLine, "Currently installed version: 0.06");
    EXPECT_EQ(done.status, "Update status: Please wait while the installer will start...");
    EXPECT_EQ(done.availableLine, "Update progress: Downloading (0 MB / 0 MB)");
    EXPECT_FALSE(done.updateEnabled);
    EXPECT_TRUE(done.closeEnabled);
    EXPECT_FALSE(done.waitCursor);
    EXPECT_TRUE(partialFiles(s.work).empty());
}

TEST_F(ProgramUpdateTest, WhileThePackageComesCloseIsAbort) {
    s.server->setFault("/orvane/files/orvane-setup.deb", Fault::slow);
    s.server->setSlowPace(4096, 50);
    ProgramUpdate update(view, settings());
    checked(update);
    const ProgramUpdateScreen rest = view.last();
    update.pressUpdate();
    ASSERT_TRUE(waitFor([&] { return view.last().availableLine.rfind("Update progress: Downloading", 0) == 0; }));
    const ProgramUpdateScreen running = view.last();
    EXPECT_EQ(running.closeCaption, "Abort");
    EXPECT_EQ(running.title, "Please wait...");
    EXPECT_FALSE(running.statusShown);
    EXPECT_FALSE(running.closeEntryEnabled);
    EXPECT_FALSE(update.pressClose());  // Abort: the window stays
    update.join();
    const ProgramUpdateScreen back = view.last();
    EXPECT_EQ(back.title, rest.title);
    EXPECT_EQ(back.currentLine, rest.currentLine);
    EXPECT_EQ(back.availableLine, rest.availableLine);
    EXPECT_EQ(back.status, rest.status);
    EXPECT_EQ(back.closeCaption, "Close");
    EXPECT_TRUE(back.updateEnabled);
    EXPECT_TRUE(back.closeEntryEnabled);
    EXPECT_TRUE(update.pressClose());
    EXPECT_FALSE(fs::exists(record));
    EXPECT_FALSE(fs::exists(update.packagePath()));
    EXPECT_TRUE(partialFiles(s.work).empty());
}

TEST_F(ProgramUpdateTest, AWrongChecksumNeverReachesTheOpener) {
    writeFile(s.published("files/orvane-setup.deb.sha256"), std::string(64, '0') + "  orvane-setup.deb\n");
    ProgramUpdate update(view, settings());
    checked(update);
    updated(update);
    EXPECT_EQ(view.last().status, "Update status: The package does not match its checksum and was deleted...");
    EXPECT_TRUE(view.last().statusShown);
    EXPECT_TRUE(view.last().updateEnabled);
    EXPECT_FALSE(fs::exists(record));
    EXPECT_FALSE(fs::exists(update.packagePath()));
    EXPECT_TRUE(partialFiles(s.work).empty());
    EXPECT_EQ(view.installers.load(), 0);
}

TEST_F(ProgramUpdateTest, AMissingChecksumIsAnAdministrativeError) {
    fs::remove(s.published("files/orvane-setup.deb.sha256"));
    ProgramUpdate update(view, settings());
    checked(update);
    updated(update);
    EXPECT_EQ(view.last().status, "Update status: Administrative error, try to download later...");
    EXPECT_EQ(s.server->requests("/orvane/files/orvane-setup.deb"), 0);
    EXPECT_FALSE(fs::exists(record));
}

TEST_F(ProgramUpdateTest, AnErrorPageInPlaceOfThePackageFailsItsChecksum) {
    s.server->setFault("/orvane/files/orvane-setup.deb", Fault::htmlPage);
    ProgramUpdate update(view, settings());
    checked(update);
    updated(update);
    EXPECT_EQ(view.last().status, "Update status: The package does not match its checksum and was deleted...");
    EXPECT_FALSE(fs::exists(record));
}

TEST_F(ProgramUpdateTest, AnOpenerThatFailsIsSetupCanceledAndThePackageGoes) {
    useOpener(1);
    ProgramUpdate update(view, settings());
    checked(update);
    updated(update);
    EXPECT_EQ(readFile(record), update.packagePath());  // it was offered, and refused
    const ProgramUpdateScreen done = view.last();
    EXPECT_EQ(done.status, "Update status: Setup canceled...");
    EXPECT_EQ(done.currentLine, "Current version: 0.06");
    EXPECT_TRUE(done.updateEnabled);
    EXPECT_TRUE(done.updateDefault);
    EXPECT_TRUE(done.closeEnabled);
    EXPECT_FALSE(fs::exists(update.packagePath()));
    EXPECT_EQ(view.installers.load(), 0);
}

TEST_F(ProgramUpdateTest, AReleaseTakenBackBeforeUpdateDownloadsNothing) {
    ProgramUpdate update(view, settings());
    checked(update);
    writeFile(s.published("files/versinfo.lst"), "0.06\n");
    updated(update);
    EXPECT_EQ(view.last().status, "Update status: No updates yet...");
    EXPECT_EQ(view.last().availableLine, "Available version: 0.06");
    EXPECT_FALSE(view.last().updateEnabled);
    EXPECT_EQ(s.server->requests("/orvane/files/orvane-setup.deb"), 0);
    EXPECT_EQ(s.server->requests("/orvane/files/orvane-setup.deb.sha256"), 0);
}

TEST_F(ProgramUpdateTest, EachFaultOfThePackageGivesItsTextAndLeavesNothing) {
    struct Case {
        Fault fault;
        std::string status;  // "" : back to the lines before the run
    };
    const Case cases[] = {
        {Fault::notFound, "Update status: Administrative error, try to download later..."},
        {Fault::serverError, "Update status: Administrative error, try to download later..."},
        {Fault::htmlPage, "Update status: The package does not match its checksum and was deleted..."},
        {Fault::cutBody, ""},
    };
    for (const Case& c : cases) {
        s.server->setFault("/orvane/files/orvane-setup.deb", c.fault);
        ProgramUpdate update(view, settings());
        checked(update);
        const ProgramUpdateScreen rest = view.last();
        updated(update);
        EXPECT_EQ(view.last().status, c.status.empty() ? rest.status : c.status);
        EXPECT_EQ(view.last().availableLine, rest.availableLine);
        EXPECT_EQ(view.last().title, "Installed and available versions of Orvane...");
        EXPECT_TRUE(view.last().updateEnabled);
        EXPECT_FALSE(fs::exists(record));
        EXPECT_FALSE(fs::exists(update.packagePath()));
        EXPECT_TRUE(partialFiles(s.work).empty());
    }
}

TEST(ProgramUpdateStart, TheNextStartRemovesAStalePackageAndWorkFile) {
    TempHome home;
    AppState first;
    InitialiseProgram(first, home.root().string());
    writeFile(first.folders.userFolder + "orvane-setup.deb", "stale");
    writeFile(first.folders.userFolder + "update.lst", "stale");
    AppState state;
    InitialiseProgram(state, home.root().string());
    EXPECT_FALSE(fs::exists(state.folders.userFolder + "orvane-setup.deb"));
    EXPECT_FALSE(fs::exists(state.folders.userFolder + "update.lst"));
}
