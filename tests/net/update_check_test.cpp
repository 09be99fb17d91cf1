// The check after start: a newer program opens its window, nothing else does; the
// check waits while the main window is busy or behind another, and all its failures
// are silent.
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>

#include "net/update_check.h"
#include "net/update_server.h"
#include "net_test_support.h"

using namespace orvane;
using namespace orvane::testing;
namespace fs = std::filesystem;
using Fault = TestServer::Fault;

namespace {

struct RecordingView : UpdateCheckView {
    bool mainWindowFree() override {
        ++asked;
        return free.load();
    }
    void openUpdateWindow() override { windows.push_back(marks->updateWindowPending.exchange(0)); }
    std::atomic<bool> free{true};
    std::atomic<int> asked{0};
    UpdateMarks* marks = nullptr;
    std::vector<int> windows;
};

class UpdateCheckTest : public ::testing::Test {
protected:
    explicit UpdateCheckTest(const std::string& version = "0.07") : s(version) { view.marks = &marks; }

    UpdateCheckSettings settings(const std::string& updateName = "00000000o.oup") {
        UpdateCheckSettings out;
        out.workFolder = s.workFolder();
        out.serverAddress = s.address();
        out.elementsUpdateName = updateName;
        return out;
    }

    UpdateCheckOutcome runToEnd(UpdateCheckSettings settings) {
        EXPECT_TRUE(check.start(std::move(settings)));
        check.join();
        EXPECT_FALSE(fs::exists(s.work / "update.lst"));
        EXPECT_TRUE(partialFiles(s.work).empty());
        return check.outcome();
    }

    void publishVersion(const std::string& body) { writeFile(s.published("files/versinfo.lst"), body); }

    NetFixtureServer s;
    UpdateMarks marks;
    RecordingView view;
    UpdateCheck check{view, marks};
};

}  // namespace

TEST_F(UpdateCheckTest, ANewerVersionAsksTheMainWindowForTheProgramUpdateWindow) {
    EXPECT_EQ(runToEnd(settings()), UpdateCheckOutcome::programOffered);
    EXPECT_EQ(view.windows, std::vector<int>{1});
    EXPECT_EQ(check.version(), 0.07f);
    EXPECT_EQ(s.server->lastAgent(), "OrvaneHttp");
    // A new program hides a new catalogue in this run.
    EXPECT_EQ(s.server->requests("/orvane/OrvaneData/Elements/update.lst"), 0);
}

TEST_F(UpdateCheckTest, TheSameOlderOrNoVersionOpensNothing) {
    for (const char* body : {"0.06", "0.05", "<html><body>Moved</body></html>", ""}) {
        publishVersion(body);
        EXPECT_EQ(runToEnd(settings()), UpdateCheckOutcome::failed) << body;  // no catalogue list here
        EXPECT_TRUE(view.windows.empty()) << body;
    }
}

TEST_F(UpdateCheckTest, AServerThatIsDownShowsNothing) {
    UpdateCheckSettings down = settings();
    down.serverAddress = "http://127.0.0.1:" + std::to_string(closedPort());
    EXPECT_EQ(runToEnd(down), UpdateCheckOutcome::failed);
    EXPECT_TRUE(view.windows.empty());
    EXPECT_EQ(view.asked, 0);
}

TEST_F(UpdateCheckTest, ARefusedVersionFileShowsNothing) {
    s.server->setFault("/orvane/files/versinfo.lst", Fault::notFound);
    EXPECT_EQ(runToEnd(settings()), UpdateCheckOutcome::failed);
    EXPECT_TRUE(view.windows.empty());
}

TEST_F(UpdateCheckTest, BehindAnotherWindowTheCheckWaitsForTheNextOperationToEnd) {
    view.free = false;
    ASSERT_TRUE(check.start(settings()));
    ASSERT_TRUE(waitFor([&] { return marks.checkWaiting.load() == 1; }));
    EXPECT_TRUE(view.windows.empty());
    EXPECT_TRUE(check.running());
    // A second start while it waits starts nothing.
    EXPECT_FALSE(check.start(settings()));
    // The operation ends; the window is still behind, and the check goes on all the same.
    check.operationEnded();
    check.join();
    EXPECT_EQ(check.outcome(), UpdateCheckOutcome::programOffered);
    EXPECT_EQ(view.windows, std::vector<int>{1});
    EXPECT_EQ(view.asked, 1);
    EXPECT_EQ(marks.checkWaiting.load(), 0);
}

TEST_F(UpdateCheckTest, AnOperationEndingBeforeTheCheckWaitsWakesNothing) {
    check.operationEnded();
    EXPECT_EQ(runToEnd(settings()), UpdateCheckOutcome::programOffered);
}

TEST_F(UpdateCheckTest, AWindowThatTheUserOpenedMeanwhileIsNotOpenedASecondTime) {
    marks.programUpdateWindowOpened = 1;
    EXPECT_EQ(runToEnd(settings()), UpdateCheckOutcome::alreadyOpened);
    EXPECT_TRUE(view.windows.empty());
    EXPECT_EQ(marks.programUpdateWindowOpened.load(), 0);
}

TEST_F(UpdateCheckTest, StoppingAWaitingCheckEndsIt) {
    view.free = false;
    ASSERT_TRUE(check.start(settings()));
    ASSERT_TRUE(waitFor([&] { return marks.checkWaiting.load() == 1; }));
    check.stop();
    EXPECT_EQ(check.outcome(), UpdateCheckOutcome::stopped);
    EXPECT_TRUE(view.windows.empty());
}

TEST_F(UpdateCheckTest, StoppingACheckThatWaitsForTheServerEndsItAtOnce) {
    s.server->setFault("/orvane/files/versinfo.lst", Fault::stall);
    ASSERT_TRUE(check.start(settings()));
    ASSERT_TRUE(waitFor([&] { return s.server->requests("/orvane/files/versinfo.lst") == 1; }));
    const auto start = std::chrono::steady_clock::now();
    check.stop();
    EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), 1.0);
    EXPECT_EQ(check.outcome(), UpdateCheckOutcome::stopped);
    EXPECT_TRUE(partialFiles(s.work).empty());
}

namespace {

class CatalogueCheckTest : public UpdateCheckTest {
protected:
    CatalogueCheckTest() : UpdateCheckTest("0.06") {
        writeFile(s.published("OrvaneData/Elements/update.lst"),
                  "00000000o.oup\r\n20240301o.oup\r\n20250115o.oup\r\n\r\n");
    }
};

}  // namespace

TEST_F(CatalogueCheckTest, ANewerReleaseAsksForTheCatalogueUpdateWindow) {
    EXPECT_EQ(runToEnd(settings("20240301o.oup")), UpdateCheckOutcome::catalogueOffered);
    EXPECT_EQ(view.windows, std::vector<int>{2});
}

TEST_F(CatalogueCheckTest, TheNewestReleaseAppliedOpensNothing) {
    EXPECT_EQ(runToEnd(settings("20250115o.oup")), UpdateCheckOutcome::nothingNew);
    EXPECT_TRUE(view.windows.empty());
}

TEST_F(CatalogueCheckTest, ACatalogueWindowOpenedMeanwhileClearsItsMark) {
    marks.catalogueUpdateWindowOpened = 1;
    EXPECT_EQ(runToEnd(settings()), UpdateCheckOutcome::alreadyOpened);
    EXPECT_EQ(marks.catalogueUpdateWindowOpened.load(), 0);
}
