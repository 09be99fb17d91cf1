// HttpFetch against a real HTTP server in the test program, with the faults a server
// shows: each gives its outcome, leaves no partial file and keeps the old file.
#include <gtest/gtest.h>

#include <sys/socket.h>
#include <netinet/in.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>

#include "net/file_checks.h"
#include "net/http_fetch.h"
#include "net/update_server.h"
#include "net_test_support.h"

using namespace orvane;
using namespace orvane::testing;
namespace fs = std::filesystem;
using Fault = TestServer::Fault;

namespace {

class CountingObserver : public FetchObserver {
public:
    void bodyStarts(long long contentLength) override { length = contentLength; ++starts; }
    void chunkWritten(std::size_t bytes) override {
        ++chunks;
        total += bytes;
        if (bytes > largest) largest = bytes;
        if (abortAfter > 0 && total >= abortAfter && abort->exchange(1) == 0)
            abortedAt = std::chrono::steady_clock::now();
    }
    long long length = -2;
    int starts = 0;
    long long chunks = 0;
    std::size_t total = 0;
    std::size_t largest = 0;
    std::size_t abortAfter = 0;
    std::atomic<int>* abort = nullptr;
    std::chrono::steady_clock::time_point abortedAt;
};

class HttpFetchTest : public ::testing::Test {
protected:
    NetFixtureServer s;
    fs::path target = s.work / "jplde423.dat";

    FetchRequest planetaryFile() {
        FetchRequest r;
        r.agent = kAgentECheck;
        r.baseUrl = ServerUrl(s.address(), kEphemeridesPath);
        r.fileName = "jplde423.dat";
        r.bufferSize = 1024;
        r.localFile = target.string();
        r.check = [](const std::string& path) { return CheckPlanetaryFile(path).readable; };
        return r;
    }

    void keepsTheOldFile() {
        EXPECT_EQ(readFile(target), "the old file");
        EXPECT_TRUE(partialFiles(s.work).empty());
    }
};

}  // namespace

TEST_F(HttpFetchTest, TheWholeFileArrivesUnderItsNameByteForByte) {
    CountingObserver observer;
    FetchRequest r = planetaryFile();
    r.observer = &observer;
    const FetchResult result = HttpFetch(r);
    ASSERT_EQ(result.status, FetchStatus::ok) << result.detail;
    EXPECT_EQ(result.responseCode, 200);
    EXPECT_EQ(readFile(target), readFile(machinePlanetaryFile()));
    EXPECT_EQ(observer.starts, 1);
    EXPECT_EQ(observer.length, 9324880);
    EXPECT_EQ(observer.total, 9324880u);
    // Reads of at most the buffer size: 9106 whole ones and the rest.
    EXPECT_LE(observer.largest, 1024u);
    EXPECT_GE(observer.chunks, 9107);
    EXPECT_EQ(s.server->lastAgent(), "ECheckHttp");
    EXPECT_TRUE(partialFiles(s.work).empty());
}

TEST_F(HttpFetchTest, NotFoundIsRefusedAndKeepsTheOldFile) {
    writeFile(target, "the old file");
    s.server->setFault("/orvane/OrvaneData/Ephemerides/jplde423.dat", Fault::notFound);
    const FetchResult result = HttpFetch(planetaryFile());
    EXPECT_EQ(result.status, FetchStatus::refused);
    EXPECT_EQ(result.responseCode, 404);
    keepsTheOldFile();
}

TEST_F(HttpFetchTest, AServerErrorIsRefusedLikeNotFound) {
    writeFile(target, "the old file");
    s.server->setFault("/orvane/OrvaneData/Ephemerides/jplde423.dat", Fault::serverError);
    const FetchResult result = HttpFetch(planetaryFile());
    EXPECT_EQ(result.status, FetchStatus::refused);
    EXPECT_EQ(result.responseCode, 500);
    keepsTheOldFile();
}

TEST_F(HttpFetchTest, AnErrorPageWithStatus200IsRejectedByTheCheckOfThePlanetaryFile) {
    writeFile(target, "the old file");
    s.server->setFault("/orvane/OrvaneData/Ephemerides/jplde423.dat", Fault::htmlPage);
    const FetchResult result = HttpFetch(planetaryFile());
    EXPECT_EQ(result.status, FetchStatus::rejected);
    EXPECT_EQ(result.responseCode, 200);
    keepsTheOldFile();
}

TEST_F(HttpFetchTest, ABodyCutInTheMiddleIsAnInterruptedTransfer) {
    writeFile(target, "the old file");
    s.server->setFault("/orvane/OrvaneData/Ephemerides/jplde423.dat", Fault::cutBody);
    const FetchResult result = HttpFetch(planetaryFile());
    EXPECT_EQ(result.status, FetchStatus::interrupted);
    EXPECT_EQ(result.contentLength, 9324880);
    EXPECT_LT(result.bytes, 9324880);
    keepsTheOldFile();
}

TEST_F(HttpFetchTest, AStalledTransferEndsAtTheLowSpeedLimit) {
    writeFile(target, "the old file");
    s.server->setFault("/orvane/OrvaneData/Ephemerides/jplde423.dat", Fault::stall);
    FetchRequest r = planetaryFile();
    r.limits.stallSeconds = 2;
    const auto start = std::chrono::steady_clock::now();
    const FetchResult result = HttpFetch(r);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_EQ(result.status, FetchStatus::interrupted);
    EXPECT_EQ(result.bytes, 1024);
    EXPECT_GE(seconds, 1.5);
    EXPECT_LT(seconds, 15.0);
    keepsTheOldFile();
}

TEST_F(HttpFetchTest, TheProgramWaits15SecondsForAConnectionAnd60ForAByte) {
    const FetchLimits limits;
    EXPECT_EQ(limits.connectSeconds, 15);
    EXPECT_EQ(limits.stallSeconds, 60);
}

TEST_F(HttpFetchTest, AbortDuringASlowTransferEndsItAtOnce) {
    writeFile(target, "the old file");
    s.server->setFault("/orvane/OrvaneData/Ephemerides/jplde423.dat", Fault::slow);
    s.server->setSlowPace(8192, 50);
    std::atomic<int> abort{0};
    CountingObserver observer;
    observer.abort = &abort;
    observer.abortAfter = 64 * 1024;
    FetchRequest r = planetaryFile();
    r.observer = &observer;
    r.abort = &abort;
    const FetchResult result = HttpFetch(r);
    const double afterAbort =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - observer.abortedAt).count();
    EXPECT_EQ(result.status, FetchStatus::aborted);
    EXPECT_LT(afterAbort, 0.5);
    EXPECT_LT(observer.total, 128u * 1024u);
    keepsTheOldFile();
}

TEST_F(HttpFetchTest, AnAbortWhileWaitingForTheServerEndsItAtOnce) {
    s.server->setFault("/orvane/OrvaneData/Ephemerides/jplde423.dat", Fault::stall);
    std::atomic<int> abort{0};
    FetchRequest r = planetaryFile();
    r.abort = &abort;
    std::thread stopper([&abort] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        abort = 1;
    });
    const auto start = std::chrono::steady_clock::now();
    const FetchResult result = HttpFetch(r);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    stopper.join();
    EXPECT_EQ(result.status, FetchStatus::aborted);
    EXPECT_LT(seconds, 1.0);
    EXPECT_FALSE(fs::exists(target));
    EXPECT_TRUE(partialFiles(s.work).empty());
}

TEST_F(HttpFetchTest, NoServerIsAFailedConnection) {
    FetchRequest r = planetaryFile();
    r.baseUrl = "http://127.0.0.1:" + std::to_string(closedPort()) + kEphemeridesPath;
    const FetchResult result = HttpFetch(r);
    EXPECT_EQ(result.status, FetchStatus::connect);
    EXPECT_FALSE(fs::exists(target));
    EXPECT_TRUE(partialFiles(s.work).empty());
}

TEST_F(HttpFetchTest, AServerThatNeverAnswersIsAFailedConnection) {
    // A socket that listens and never accepts: the connection is made, no answer comes.
    const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ASSERT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(listener, 4), 0);
    socklen_t length = sizeof address;
    ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
    FetchRequest r = planetaryFile();
    r.baseUrl = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + kEphemeridesPath;
    r.limits.stallSeconds = 1;
    const FetchResult result = HttpFetch(r);
    ::close(listener);
    EXPECT_EQ(result.status, FetchStatus::connect);
    EXPECT_TRUE(partialFiles(s.work).empty());
}

TEST_F(HttpFetchTest, AFileAddressServesThePublishedFolder) {
    FetchRequest r = planetaryFile();
    r.baseUrl = ServerUrl("file://" + s.folder.string(), kEphemeridesPath);
    FetchResult result = HttpFetch(r);
    ASSERT_EQ(result.status, FetchStatus::ok) << result.detail;
    EXPECT_EQ(result.responseCode, 0);
    EXPECT_EQ(readFile(target), readFile(machinePlanetaryFile()));
    r.fileName = "jplde406.dat";
    r.localFile = (s.work / "jplde406.dat").string();
    result = HttpFetch(r);
    EXPECT_EQ(result.status, FetchStatus::refused);
    EXPECT_TRUE(partialFiles(s.work).empty());
}

TEST_F(HttpFetchTest, AFolderThatCannotBeWrittenFailsWithItsReason) {
    FetchRequest r = planetaryFile();
    r.localFile = (s.work / "no such folder" / "jplde423.dat").string();
    const FetchResult result = HttpFetch(r);
    EXPECT_EQ(result.status, FetchStatus::writeFailed);
    EXPECT_NE(result.detail.find("no such folder"), std::string::npos) << result.detail;
    EXPECT_NE(result.detail.find("No such file or directory"), std::string::npos) << result.detail;
    EXPECT_EQ(s.server->requests("/orvane/OrvaneData/Ephemerides/jplde423.dat"), 0);
}

TEST_F(HttpFetchTest, AnEmptyFileArrivesEmpty) {
    writeFile(s.published("files/empty.lst"), "");
    FetchRequest r;
    r.baseUrl = ServerUrl(s.address(), kFilesPath);
    r.fileName = "empty.lst";
    r.localFile = (s.work / "empty.lst").string();
    CountingObserver observer;
    r.observer = &observer;
    const FetchResult result = HttpFetch(r);
    EXPECT_EQ(result.status, FetchStatus::ok);
    EXPECT_EQ(observer.length, 0);
    EXPECT_TRUE(fs::exists(s.work / "empty.lst"));
    EXPECT_EQ(fs::file_size(s.work / "empty.lst"), 0u);
}

TEST_F(HttpFetchTest, TheUrlIsTheTrimmedBaseAndTheName) {
    EXPECT_EQ(FetchUrl("  http://host/orvane/files/  ", "versinfo.lst"), "http://host/orvane/files/versinfo.lst");
}

TEST(PartialDownloads, RemovingThemLeavesEveryOtherFile) {
    TempHome home;
    const fs::path target = home.root() / "jplde423.dat";
    writeFile(home.root() / "jplde423.dat.part-AbC123", "partial");
    writeFile(home.root() / "jplde423.dat.part-xyz999", "partial");
    writeFile(home.root() / "jplde406.dat.part-AbC123", "another file's");
    writeFile(target, "whole");
    RemovePartialDownloads(target.string());
    EXPECT_FALSE(fs::exists(home.root() / "jplde423.dat.part-AbC123"));
    EXPECT_FALSE(fs::exists(home.root() / "jplde423.dat.part-xyz999"));
    EXPECT_TRUE(fs::exists(home.root() / "jplde406.dat.part-AbC123"));
    EXPECT_EQ(readFile(target), "whole");
}
