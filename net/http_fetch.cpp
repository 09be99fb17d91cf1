#include "net/http_fetch.h"

#include <curl/curl.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <string_view>

#include "net/local_file.h"

namespace orvane {
namespace fs = std::filesystem;

namespace {

// How often a transfer that waits for the network looks at the abort flag.
constexpr long kAbortPollMs = 50;

void initialiseCurl() {
    static std::once_flag once;
    std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

std::string_view trimmed(std::string_view s) {
    const auto first = s.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    const auto last = s.find_last_not_of(" \t\r\n");
    return s.substr(first, last - first + 1);
}

bool isFileUrl(std::string_view url) {
    return url.size() >= 5 && std::equal(url.begin(), url.begin() + 5, "file:", [](char a, char b) {
               return std::tolower(static_cast<unsigned char>(a)) == b;
           });
}

// The temporary file of one download: made beside the target, removed unless it
// became the target.
class PartialFile {
public:
    explicit PartialFile(std::string target) : target_(std::move(target)) {}
    ~PartialFile() {
        if (fd_ >= 0) ::close(fd_);
        if (!path_.empty()) ::unlink(path_.c_str());
    }
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;

    bool create(std::string& detail) {
        fd_ = CreateTemporaryBeside(target_, path_, detail);
        return fd_ >= 0;
    }
    bool write(const char* data, std::size_t size, std::string& detail) {
        return WriteAllTo(fd_, data, size, path_, detail);
    }
    // Synced and closed, so that a check reads what the disk holds.
    bool finish(std::string& detail) {
        const int fd = fd_;
        fd_ = -1;
        return SyncAndClose(fd, path_, detail);
    }
    bool install(std::string& detail) {
        if (!RenameInto(path_, target_, detail)) return false;
        path_.clear();
        return true;
    }
    const std::string& path() const { return path_; }

private:
    std::string target_;
    std::string path_;
    int fd_ = -1;
};

struct Transfer {
    const FetchRequest& request;
    CURL* curl;
    PartialFile& file;
    FetchResult& result;
    bool fileUrl = false;
    bool bodyStarted = false;
    bool refused = false;
    bool writeFailed = false;
    bool aborted = false;
};

bool abortRequested(const FetchRequest& request) { return request.abort && request.abort->load() != 0; }

bool statusAccepted(long code, bool fileUrl) { return fileUrl ? code == 0 : code >= 200 && code <= 299; }

// The first bytes of the body bring the status: anything but 2xx is refused before
// a byte of an error page reaches the file.
std::size_t onBody(char* data, std::size_t size, std::size_t count, void* user) {
    auto& t = *static_cast<Transfer*>(user);
    const std::size_t total = size * count;
    if (!t.bodyStarted) {
        t.bodyStarted = true;
        curl_easy_getinfo(t.curl, CURLINFO_RESPONSE_CODE, &t.result.responseCode);
        if (!statusAccepted(t.result.responseCode, t.fileUrl)) {
            t.refused = true;
            return 0;
        }
        curl_off_t length = -1;
        curl_easy_getinfo(t.curl, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
        t.result.contentLength = length;
        if (t.request.observer) t.request.observer->bodyStarts(length);
    }
    // The body is handed on in reads of at most the buffer size, as the progress
    // counts them.
    const std::size_t buffer = std::max<std::size_t>(1, t.request.bufferSize);
    for (std::size_t done = 0; done < total;) {
        if (abortRequested(t.request)) {
            t.aborted = true;
            return 0;
        }
        const std::size_t piece = std::min(buffer, total - done);
        if (!t.file.write(data + done, piece, t.result.detail)) {
            t.writeFailed = true;
            return 0;
        }
        done += piece;
        t.result.bytes += static_cast<long long>(piece);
        if (t.request.observer) t.request.observer->chunkWritten(piece);
    }
    return total;
}

int onProgress(void* user, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    auto& t = *static_cast<Transfer*>(user);
    if (!abortRequested(t.request)) return 0;
    t.aborted = true;
    return 1;
}

// A failure before the server said anything is a failed connection; after it, an
// interrupted transfer.
FetchStatus statusOfFailure(CURLcode code, const Transfer& t) {
    switch (code) {
        case CURLE_FILE_COULDNT_READ_FILE:
        case CURLE_REMOTE_FILE_NOT_FOUND:
        case CURLE_TOO_MANY_REDIRECTS:
            return FetchStatus::refused;
        case CURLE_PARTIAL_FILE:
            return FetchStatus::interrupted;
        default:
            break;
    }
    long code2 = 0;
    curl_easy_getinfo(t.curl, CURLINFO_RESPONSE_CODE, &code2);
    return code2 == 0 && !t.bodyStarted ? FetchStatus::connect : FetchStatus::interrupted;
}

class CurlHandles {
public:
    CurlHandles() : easy(curl_easy_init()), multi(curl_multi_init()) {}
    ~CurlHandles() {
        if (multi && easy && added) curl_multi_remove_handle(multi, easy);
        if (headers) curl_slist_free_all(headers);
        if (easy) curl_easy_cleanup(easy);
        if (multi) curl_multi_cleanup(multi);
    }
    CurlHandles(const CurlHandles&) = delete;
    CurlHandles& operator=(const CurlHandles&) = delete;

    CURL* easy;
    CURLM* multi;
    curl_slist* headers = nullptr;
    bool added = false;
};

void configure(CurlHandles& h, const std::string& url, Transfer& t) {
    const FetchRequest& r = t.request;
    CURL* c = h.easy;
    curl_easy_setopt(c, CURLOPT_URL, url.c_str());
    curl_easy_setopt(c, CURLOPT_USERAGENT, r.agent.c_str());
    curl_easy_setopt(c, CURLOPT_PROTOCOLS_STR, "http,https,file");
    curl_easy_setopt(c, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(c, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(c, CURLOPT_MAXREDIRS, 5L);
    curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT, r.limits.connectSeconds);
    curl_easy_setopt(c, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(c, CURLOPT_LOW_SPEED_TIME, r.limits.stallSeconds);
    curl_easy_setopt(c, CURLOPT_BUFFERSIZE, static_cast<long>(std::clamp<std::size_t>(r.bufferSize, 1024, 65536)));
    // Always the server's copy, never a cache's.
    h.headers = curl_slist_append(h.headers, "Cache-Control: no-cache");
    h.headers = curl_slist_append(h.headers, "Pragma: no-cache");
    curl_easy_setopt(c, CURLOPT_HTTPHEADER, h.headers);
    curl_easy_setopt(c, CURLOPT_WRITEFUNCTION, onBody);
    curl_easy_setopt(c, CURLOPT_WRITEDATA, &t);
    curl_easy_setopt(c, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(c, CURLOPT_XFERINFOFUNCTION, onProgress);
    curl_easy_setopt(c, CURLOPT_XFERINFODATA, &t);
}

// Runs the transfer, looking at the abort flag at least every kAbortPollMs.
CURLcode perform(CurlHandles& h, Transfer& t) {
    if (curl_multi_add_handle(h.multi, h.easy) != CURLM_OK) return CURLE_FAILED_INIT;
    h.added = true;
    int running = 1;
    while (running) {
        if (curl_multi_perform(h.multi, &running) != CURLM_OK) return CURLE_FAILED_INIT;
        if (abortRequested(t.request)) {
            t.aborted = true;
            return CURLE_ABORTED_BY_CALLBACK;
        }
        if (running) curl_multi_poll(h.multi, nullptr, 0, kAbortPollMs, nullptr);
    }
    CURLcode code = CURLE_FAILED_INIT;
    int left = 0;
    while (CURLMsg* message = curl_multi_info_read(h.multi, &left))
        if (message->msg == CURLMSG_DONE && message->easy_handle == h.easy) code = message->data.result;
    return code;
}

}  // namespace

std::string TransferLibraryVersion() {
    return std::string("libcurl ") + curl_version_info(CURLVERSION_NOW)->version;
}

std::string FetchUrl(const std::string& baseUrl, const std::string& fileName) {
    return std::string(trimmed(baseUrl)) + fileName;
}

std::string PartialPrefix(const std::string& target) { return target + ".part-"; }

void RemovePartialDownloads(const std::string& target) {
    const fs::path path(target);
    const std::string prefix = path.filename().string() + ".part-";
    std::error_code ec;
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name.size() > prefix.size() && name.compare(0, prefix.size(), prefix) == 0) {
            std::error_code ignored;
            fs::remove(it->path(), ignored);
        }
    }
}

FetchResult HttpFetch(const FetchRequest& request) {
    initialiseCurl();
    FetchResult result;
    CurlHandles handles;
    if (!handles.easy || !handles.multi) {
        result.status = FetchStatus::open;
        result.detail = "the transfer library could not be started";
        return result;
    }
    PartialFile file(request.localFile);
    if (!file.create(result.detail)) {
        result.status = FetchStatus::writeFailed;
        return result;
    }
    const std::string url = FetchUrl(request.baseUrl, request.fileName);
    Transfer t{request, handles.easy, file, result};
    t.fileUrl = isFileUrl(trimmed(request.baseUrl));
    configure(handles, url, t);

    const CURLcode code = perform(handles, t);
    if (t.aborted || abortRequested(request)) {
        result.status = FetchStatus::aborted;
        return result;
    }
    if (t.refused) {
        result.status = FetchStatus::refused;
        return result;
    }
    if (t.writeFailed) {
        result.status = FetchStatus::writeFailed;
        return result;
    }
    if (code != CURLE_OK) {
        result.status = statusOfFailure(code, t);
        result.detail = curl_easy_strerror(code);
        return result;
    }
    // An empty body never passed the status test above.
    if (!t.bodyStarted) {
        curl_easy_getinfo(handles.easy, CURLINFO_RESPONSE_CODE, &result.responseCode);
        if (!statusAccepted(result.responseCode, t.fileUrl)) {
            result.status = FetchStatus::refused;
            return result;
        }
        result.contentLength = 0;
        if (request.observer) request.observer->bodyStarts(0);
    }
    if (!file.finish(result.detail)) {
        result.status = FetchStatus::writeFailed;
        return result;
    }
    if (request.check && !request.check(file.path())) {
        result.status = FetchStatus::rejected;
        return result;
    }
    result.status = file.install(result.detail) ? FetchStatus::ok : FetchStatus::writeFailed;
    return result;
}

}  // namespace orvane
