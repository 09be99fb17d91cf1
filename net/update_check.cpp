#include "net/update_check.h"

#include <filesystem>

#include "net/program_version.h"
#include "net/update_list.h"
#include "net/update_server.h"

namespace orvane {

UpdateCheck::UpdateCheck(UpdateCheckView& view, UpdateMarks& marks) : view_(view), marks_(marks) {}

UpdateCheck::~UpdateCheck() { stop(); }

bool UpdateCheck::start(UpdateCheckSettings settings) {
    if (running_.load()) return false;
    if (thread_.joinable()) thread_.join();
    abort_ = 0;
    {
        std::lock_guard lock(mutex_);
        woken_ = false;
    }
    running_ = true;
    outcome_ = UpdateCheckOutcome::running;
    thread_ = std::thread([this, settings = std::move(settings)] {
        run(settings);
        running_ = false;
    });
    return true;
}

void UpdateCheck::operationEnded() {
    if (marks_.checkWaiting.exchange(0) != 1) return;
    std::lock_guard lock(mutex_);
    woken_ = true;
    wake_.notify_all();
}

void UpdateCheck::stop() {
    abort_ = 1;
    {
        std::lock_guard lock(mutex_);
        woken_ = true;
        wake_.notify_all();
    }
    if (thread_.joinable()) thread_.join();
}

void UpdateCheck::join() {
    if (thread_.joinable()) thread_.join();
}

bool UpdateCheck::fetch(const UpdateCheckSettings& settings, const char* folder, const char* file) {
    FetchRequest request;
    request.agent = kAgentOrvane;
    request.baseUrl = ServerUrl(settings.serverAddress, folder);
    request.fileName = file;
    request.bufferSize = 2048;
    request.localFile = settings.workFolder + kUpdateListFile;
    request.abort = &abort_;
    request.limits = settings.limits;
    return HttpFetch(request).status == FetchStatus::ok;
}

void UpdateCheck::run(const UpdateCheckSettings& settings) {
    const std::string workFile = settings.workFolder + kUpdateListFile;
    if (!fetch(settings, kFilesPath, kVersionFile)) {
        outcome_ = abort_ ? UpdateCheckOutcome::stopped : UpdateCheckOutcome::failed;
        return;
    }
    float version = 0.0f;
    ReadVersionFile(workFile, version);
    std::error_code ec;
    std::filesystem::remove(workFile, ec);
    version_ = version;
    // A new program hides a new catalogue in this run.
    outcome_ = NewerThanProgram(version) ? offer(1, marks_.programUpdateWindowOpened) : checkCatalogue(settings);
}

UpdateCheckOutcome UpdateCheck::checkCatalogue(const UpdateCheckSettings& settings) {
    const std::string workFile = settings.workFolder + kUpdateListFile;
    if (!fetch(settings, kElementsPath, kUpdateListFile))
        return abort_ ? UpdateCheckOutcome::stopped : UpdateCheckOutcome::failed;
    const std::string newest = ReadLastListLine(workFile);
    std::error_code ec;
    std::filesystem::remove(workFile, ec);
    if (ReleaseDate(settings.elementsUpdateName) >= ReleaseDate(newest)) return UpdateCheckOutcome::nothingNew;
    return offer(2, marks_.catalogueUpdateWindowOpened);
}

UpdateCheckOutcome UpdateCheck::offer(int window, std::atomic<int>& openedMark) {
    if (!view_.mainWindowFree()) {
        // The check waits once: when an operation ends it goes on without looking at
        // the main window again.
        marks_.checkWaiting = 1;
        std::unique_lock lock(mutex_);
        wake_.wait(lock, [this] { return woken_; });
        if (abort_) {
            marks_.checkWaiting = 0;
            return UpdateCheckOutcome::stopped;
        }
    }
    // A window that the user opened meanwhile is not opened a second time.
    if (openedMark.exchange(0) != 0) return UpdateCheckOutcome::alreadyOpened;
    marks_.updateWindowPending = window;
    view_.openUpdateWindow();
    return window == 1 ? UpdateCheckOutcome::programOffered : UpdateCheckOutcome::catalogueOffered;
}

}  // namespace orvane
