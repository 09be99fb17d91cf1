#pragma once
// HttpFetch: the one way the program fetches a file from the update server, over
// http, https or from a file:// address. Every catalogue list, version file,
// package and planetary file comes through here.
//
// The body goes to a temporary name beside the target and becomes the target only
// when it arrived whole and the caller's check accepted it: a failure or an abort
// leaves nothing partial and the old file as it was. A status other than 2xx is
// refused like a missing file; a body shorter than its Content-Length is an
// interrupted transfer; no connection within 15 seconds, or no byte for 60 seconds,
// ends the transfer, so a hanging server never holds the program.
#include <atomic>
#include <cstddef>
#include <functional>
#include <string>

namespace orvane {

// The agents the server sees: the catalogue and the program, and the planetary files.
inline constexpr const char* kAgentOrvane = "OrvaneHttp";
inline constexpr const char* kAgentECheck = "ECheckHttp";

enum class FetchStatus {
    ok,
    open,         // the transfer could not be set up at all
    connect,      // no connection, or no answer, from the server
    refused,      // a status other than 2xx, or no such file on a file:// server
    interrupted,  // the body ended early or stalled
    rejected,     // the body arrived whole, but the check refused it
    aborted,      // the caller asked to stop
    writeFailed,  // the local file could not be written (the detail says why)
};

// Seconds; the defaults hold for the program, tests shorten them.
struct FetchLimits {
    long connectSeconds = 15;
    long stallSeconds = 60;
};

// What a caller watches of a transfer, called on the fetching thread.
class FetchObserver {
public:
    virtual ~FetchObserver() = default;
    // The body begins; -1 when the server gave no Content-Length.
    virtual void bodyStarts(long long contentLength) = 0;
    // One read of at most the buffer size is written.
    virtual void chunkWritten(std::size_t bytes) = 0;
};

struct FetchRequest {
    std::string agent = kAgentOrvane;
    std::string baseUrl;    // the server's address and a path; trimmed here
    std::string fileName;   // appended to the base
    std::size_t bufferSize = 2048;
    std::string localFile;  // the target; written only when complete and checked
    // Checks the complete body under its temporary name; false refuses it.
    std::function<bool(const std::string& path)> check;
    FetchObserver* observer = nullptr;
    // Nonzero ends the transfer at once; checked between reads and while waiting.
    const std::atomic<int>* abort = nullptr;
    FetchLimits limits;
};

struct FetchResult {
    FetchStatus status = FetchStatus::open;
    long responseCode = 0;        // the HTTP status; 0 for file://
    long long bytes = 0;          // bytes of the body written
    long long contentLength = -1;
    std::string detail;           // what went wrong, in the words of the system
};

FetchResult HttpFetch(const FetchRequest& request);

// "libcurl 7.88.1": the library behind every transfer, for the About window.
std::string TransferLibraryVersion();

// The URL of a file: the trimmed base and the name.
std::string FetchUrl(const std::string& baseUrl, const std::string& fileName);

// The temporary names of downloads of `target` share this prefix. A run that died
// during a download leaves one; RemovePartialDownloads deletes them.
std::string PartialPrefix(const std::string& target);
void RemovePartialDownloads(const std::string& target);

}  // namespace orvane
