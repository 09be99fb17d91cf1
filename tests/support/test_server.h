#pragma once
// An update server inside the test program: cpp-httplib on 127.0.0.1 and a free port,
// serving a folder that the project's orvane-publish made, with the faults that a
// real server shows now and then.
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "support/temp_home.h"

namespace httplib {
class Server;
}

namespace orvane::testing {

// The planetary file that the setup installed for this machine, found before any
// TempHome moves the XDG folders.
std::filesystem::path machinePlanetaryFile();

// Runs the built orvane-publish with --server=FOLDER and the arguments; true when it
// ended with status 0.
bool publishServer(const std::filesystem::path& folder, const std::vector<std::string>& arguments);

class TestServer {
public:
    enum class Fault {
        none,
        notFound,     // 404 with an HTML body
        serverError,  // 500
        htmlPage,     // 200 with an HTML error page in place of the file
        cutBody,      // the first half of the body, then the connection closes
        stall,        // the first kilobyte (short of the last byte), then nothing
        slow,         // the whole body, a little at a time
    };

    explicit TestServer(std::filesystem::path folder);
    // Stops the server; a stalled or slow answer ends at once.
    ~TestServer();
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;

    // "http://127.0.0.1:PORT"
    std::string address() const;
    int port() const { return port_; }

    // The fault of one path ("/orvane/files/versinfo.lst"); other paths are served as they are.
    void setFault(const std::string& path, Fault fault);
    // The pace of a slow answer: `bytes` every `milliseconds`.
    void setSlowPace(std::size_t bytes, int milliseconds);

    int requests(const std::string& path) const;
    std::string lastAgent() const;

private:
    void serve(const std::string& path, const std::string& agent, void* response);

    std::filesystem::path folder_;
    std::unique_ptr<httplib::Server> server_;
    std::thread thread_;
    int port_ = 0;
    mutable std::mutex mutex_;
    std::condition_variable stopping_;
    bool stop_ = false;
    std::map<std::string, Fault> faults_;
    std::map<std::string, int> requests_;
    std::string lastAgent_;
    std::size_t slowBytes_ = 16 * 1024;
    int slowMilliseconds_ = 20;
};

// The bytes of the package the server offers: a Debian archive's magic and some bytes.
std::string packageBytes();

// Files whose name holds ".part-", below `folder`: what a download leaves when it dies.
std::vector<std::filesystem::path> partialFiles(const std::filesystem::path& folder);

// A port where nobody listens: the port of a server that has stopped.
int closedPort();

// A temporary home with a published update server folder, served by a TestServer:
// the program version `version`, the package and the setup's planetary file as DE423.
struct PublishedServer {
    explicit PublishedServer(const std::string& version = "0.07");

    std::string address() const { return server->address(); }
    std::string workFolder() const { return work.string() + "/"; }
    std::filesystem::path published(const std::string& relative) const { return folder / "orvane" / relative; }

    TempHome home;
    std::filesystem::path folder;
    std::filesystem::path work;
    bool ready = false;  // orvane-publish made the folder
    std::unique_ptr<TestServer> server;
};

}  // namespace orvane::testing
