#include "test_server.h"

#include <httplib.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "app/folders.h"

namespace orvane::testing {
namespace {

// Taken when the test program starts, before a TempHome moves XDG_DATA_DIRS.
const std::filesystem::path kMachinePlanetaryFile = std::filesystem::path(CommonFolder()) / "jplde423.dat";

std::string quoted(const std::string& text) { return "'" + text + "'"; }

const char* kErrorPage = "<html><head><title>Error</title></head><body><h1>Service unavailable</h1></body></html>";

}  // namespace

std::filesystem::path machinePlanetaryFile() { return kMachinePlanetaryFile; }

bool publishServer(const std::filesystem::path& folder, const std::vector<std::string>& arguments) {
    std::string command = quoted(std::string(ORVANE_BINARY_DIR) + "/tools/orvane-publish") +
                          " --server=" + quoted(folder.string());
    for (const std::string& argument : arguments) command += " " + quoted(argument);
    return std::system((command + " > /dev/null").c_str()) == 0;
}

TestServer::TestServer(std::filesystem::path folder)
    : folder_(std::move(folder)), server_(std::make_unique<httplib::Server>()) {
    // One request a connection, and short waits, so that the server stops at once.
    server_->set_keep_alive_max_count(1);
    server_->set_read_timeout(1, 0);
    server_->set_write_timeout(1, 0);
    server_->Get(".*", [this](const httplib::Request& request, httplib::Response& response) {
        serve(request.path, request.get_header_value("User-Agent"), &response);
    });
    port_ = server_->bind_to_any_port("127.0.0.1");
    thread_ = std::thread([this] { server_->listen_after_bind(); });
    // A stop before the accept loop runs would be lost, and the loop would never end.
    while (!server_->is_running()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

TestServer::~TestServer() {
    {
        std::lock_guard lock(mutex_);
        stop_ = true;
    }
    stopping_.notify_all();
    server_->stop();
    if (thread_.joinable()) thread_.join();
}

std::string TestServer::address() const { return "http://127.0.0.1:" + std::to_string(port_); }

void TestServer::setFault(const std::string& path, Fault fault) {
    std::lock_guard lock(mutex_);
    faults_[path] = fault;
}

void TestServer::setSlowPace(std::size_t bytes, int milliseconds) {
    std::lock_guard lock(mutex_);
    slowBytes_ = bytes;
    slowMilliseconds_ = milliseconds;
}

int TestServer::requests(const std::string& path) const {
    std::lock_guard lock(mutex_);
    const auto found = requests_.find(path);
    return found == requests_.end() ? 0 : found->second;
}

std::string TestServer::lastAgent() const {
    std::lock_guard lock(mutex_);
    return lastAgent_;
}

void TestServer::serve(const std::string& path, const std::string& agent, void* out) {
    auto& response = *static_cast<httplib::Response*>(out);
    Fault fault = Fault::none;
    std::size_t paceBytes = 0;
    int paceMs = 0;
    {
        std::lock_guard lock(mutex_);
        ++requests_[path];
        lastAgent_ = agent;
        const auto found = faults_.find(path);
        if (found != faults_.end()) fault = found->second;
        paceBytes = slowBytes_;
        paceMs = slowMilliseconds_;
    }
    if (fault == Fault::notFound || fault == Fault::serverError) {
        response.status = fault == Fault::notFound ? 404 : 500;
        response.set_content(kErrorPage, "text/html");
        return;
    }
    if (fault == Fault::htmlPage) {
        response.status = 200;
        response.set_content(kErrorPage, "text/html");
        return;
    }
    const std::filesystem::path file = folder_ / std::filesystem::path(path).relative_path();
    if (path.find("..") != std::string::npos || !std::filesystem::is_regular_file(file)) {
        response.status = 404;
        response.set_content(kErrorPage, "text/html");
        return;
    }
    std::ifstream in(file, std::ios::binary);
    auto body = std::make_shared<std::string>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    if (fault == Fault::none) {
        response.set_content(*body, "application/octet-stream");
        return;
    }
    // The faults of the body: the Content-Length promises all of it.
    response.set_content_provider(
        body->size(), "application/octet-stream",
        [this, body, fault, paceBytes, paceMs](std::size_t offset, std::size_t, httplib::DataSink& sink) {
            if (fault == Fault::cutBody) {
                if (offset >= body->size() / 2) return false;
                sink.write(body->data() + offset, body->size() / 2 - offset);
                return true;
            }
            if (fault == Fault::stall) {
                // Never the last byte, so that even a short body stalls.
                if (offset == 0 && body->size() > 1)
                    return sink.write(body->data(), std::min<std::size_t>(1024, body->size() - 1));
                std::unique_lock lock(mutex_);
                stopping_.wait_for(lock, std::chrono::seconds(120), [this] { return stop_; });
                return false;
            }
            const std::size_t piece = std::min(paceBytes, body->size() - offset);
            if (!sink.write(body->data() + offset, piece)) return false;
            std::unique_lock lock(mutex_);
            return !stopping_.wait_for(lock, std::chrono::milliseconds(paceMs), [this] { return stop_; });
        });
}

std::string packageBytes() {
    std::string bytes = "!<arch>\ndebian-binary   ";
    for (int i = 0; bytes.size() < 300000; ++i) bytes += static_cast<char>('a' + i % 26);
    return bytes;
}

std::vector<std::filesystem::path> partialFiles(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> found;
    std::error_code ec;
    for (std::filesystem::recursive_directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec))
        if (it->path().filename().string().find(".part-") != std::string::npos) found.push_back(it->path());
    return found;
}

int closedPort() {
    TestServer probe(std::filesystem::temp_directory_path());
    return probe.port();
}

PublishedServer::PublishedServer(const std::string& version)
    : folder(home.root() / "server"), work(home.root() / "work") {
    std::filesystem::create_directories(work);
    const std::filesystem::path package = home.root() / "orvane_0.07_amd64.deb";
    writeFile(package, packageBytes());
    ready = publishServer(folder, {"--version=" + version, "--package=" + package.string(),
                                   "--de423=" + machinePlanetaryFile().string()});
    server = std::make_unique<TestServer>(folder);
}

}  // namespace orvane::testing
