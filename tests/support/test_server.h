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

}  // namespace orvane::testing
