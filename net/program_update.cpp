#include "net/program_update.h"

#include <filesystem>
#include <utility>

#include "language/language_table.h"
#include "net/desktop_opener.h"
#include "net/download_meter.h"
#include "net/file_checks.h"
#include "net/program_version.h"
#include "net/update_server.h"

namespace orvane {
namespace {

std::string u(int key) { return text(Section::orvUpdate, key); }

std::string ownVersionLine(int key) { return u(key) + " " + VersionText(kProgramVersion); }

void removeQuietly(const std::string& path) {
    std::error_code ec;
    std::filesystem::remove(path, ec);
}

// The lines of the window while the package comes in: line 1 the time left, line 2
// the megabytes.
void showPackageProgress(ProgramUpdateScreen& screen, long long doneMb, long long totalMb, bool first,
                         const std::string& remaining) {
    screen.availableLine = first ? u(21) + " " + std::to_string(totalMb) + " " + u(22)
                                 : u(23) + std::to_string(doneMb) + " " + u(24) + " " + std::to_string(totalMb) +
                                       " " + u(25);
    if (!remaining.empty()) screen.currentLine = remaining;
}

}  // namespace

ProgramUpdate::ProgramUpdate(ProgramUpdateView& view, ProgramUpdateSettings settings)
    : view_(view), settings_(std::move(settings)) {
    screen_.title = u(4);
    screen_.currentLine = ownVersionLine(5);
    screen_.availableLine = u(6);
    screen_.status = u(7);
    screen_.closeCaption = u(3);
}

ProgramUpdate::~ProgramUpdate() {
    abort_ = 1;
    join();
}

void ProgramUpdate::join() {
    if (worker_.joinable()) worker_.join();
}

std::string ProgramUpdate::packagePath() const { return settings_.workFolder + kPackageFile; }

void ProgramUpdate::push() { view_.showScreen(screen_); }

void ProgramUpdate::startWorker(void (ProgramUpdate::*job)()) {
    if (working_.load()) return;
    join();
    abort_ = 0;
    working_ = true;
    worker_ = std::thread([this, job] {
        (this->*job)();
        working_ = false;
    });
}

void ProgramUpdate::startCheck() { startWorker(&ProgramUpdate::runCheck); }

void ProgramUpdate::pressUpdate() {
    if (!screen_.updateEnabled) return;
    startWorker(&ProgramUpdate::runUpdate);
}

bool ProgramUpdate::pressClose() {
    if (busy_.load()) {
        abort_ = 1;
        return false;
    }
    return !working_.load();
}

FetchResult ProgramUpdate::fetch(const char* file, std::size_t bufferSize, const std::string& localFile,
                                 FetchObserver* observer, std::function<bool(const std::string&)> check) {
    FetchRequest request;
    request.agent = kAgentOrvane;
    request.baseUrl = ServerUrl(settings_.serverAddress, kFilesPath);
    request.fileName = file;
    request.bufferSize = bufferSize;
    request.localFile = localFile;
    request.check = std::move(check);
    request.observer = observer;
    request.abort = &abort_;
    request.limits = settings_.limits;
    return HttpFetch(request);
}

bool ProgramUpdate::readServerVersion(std::size_t bufferSize, float& version, FetchResult& result) {
    const std::string workFile = settings_.workFolder + kUpdateListFile;
    result = fetch(kVersionFile, bufferSize, workFile, nullptr, {});
    if (result.status != FetchStatus::ok) return false;
    version = 0.0f;
    ReadVersionFile(workFile, version);
    removeQuietly(workFile);
    return true;
}

void ProgramUpdate::showFailure(FetchStatus status, const std::string& detail) {
    screen_.statusShown = true;
    switch (status) {
        case FetchStatus::open: screen_.status = u(8); break;
        case FetchStatus::refused: screen_.status = u(10); break;
        case FetchStatus::rejected: screen_.status = u(29); break;
        case FetchStatus::writeFailed: screen_.status = u(14) + " " + detail; break;
        default: screen_.status = u(9); break;
    }
}

void ProgramUpdate::runCheck() {
    available_ = false;
    screen_.title = u(4);
    screen_.currentLine = ownVersionLine(5);
    screen_.availableLine = u(6);
    screen_.status = u(7);
    screen_.statusShown = true;
    screen_.updateEnabled = screen_.updateDefault = false;
    screen_.closeEnabled = screen_.closeEntryEnabled = false;
    push();

    float version = 0.0f;
    FetchResult result;
    const bool read = readServerVersion(2048, version, result);
    screen_.closeEnabled = screen_.closeEntryEnabled = true;
    if (!read) {
        showFailure(result.status, result.detail);
        push();
        return;
    }
    serverVersion_ = version;
    std::string word = u(12);
    if (NewerThanProgram(version)) {
        word = u(11);
        available_ = true;
        screen_.updateEnabled = screen_.updateDefault = true;
    }
    screen_.availableLine = u(13) + " " + VersionText(version);
    screen_.status = u(14) + " " + word;
    push();
}

void ProgramUpdate::runUpdate() {
    busy_ = true;
    const ProgramUpdateScreen saved = screen_;
    const bool wasAvailable = available_;
    available_ = false;
    // Back to the lines before the run, with the given status (or the one they had).
    auto backToRest = [&](const std::string* status) {
        screen_ = saved;
        if (status) screen_.status = *status;
        screen_.statusShown = true;
        screen_.barValue = 0;
        screen_.updateEnabled = screen_.updateDefault = wasAvailable;
        screen_.closeCaption = u(3);
        screen_.closeEnabled = screen_.closeEntryEnabled = true;
        available_ = wasAvailable;
        busy_ = false;
        push();
    };
    auto fail = [&](FetchStatus status, const std::string& detail) {
        if (status == FetchStatus::aborted || status == FetchStatus::interrupted) {
            backToRest(nullptr);
            return;
        }
        showFailure(status, detail);
        const std::string text = screen_.status;
        backToRest(&text);
    };

    screen_.statusShown = false;
    screen_.barMaximum = screen_.barValue = 0;
    screen_.updateEnabled = screen_.updateDefault = false;
    screen_.closeCaption = u(15);
    screen_.closeEnabled = true;
    screen_.closeEntryEnabled = false;
    screen_.title = u(16);
    screen_.currentLine = u(17);
    screen_.availableLine = u(18);
    push();

    float version = 0.0f;
    FetchResult result;
    if (!readServerVersion(1024, version, result)) return fail(result.status, result.detail);
    serverVersion_ = version;
    screen_.availableLine = u(13) + " " + VersionText(version);
    if (!NewerThanProgram(version)) {
        // The server has taken the release back: nothing is downloaded.
        const std::string status = u(20);
        screen_ = saved;
        screen_.availableLine = u(13) + " " + VersionText(version);
        screen_.status = status;
        screen_.statusShown = true;
        screen_.updateEnabled = screen_.updateDefault = false;
        screen_.closeCaption = u(3);
        screen_.closeEnabled = screen_.closeEntryEnabled = true;
        busy_ = false;
        push();
        return;
    }
    screen_.status = u(19);
    push();

    // The checksum first: a package is only ever kept when it matches.
    const std::string checksumFile = packagePath() + kChecksumSuffix;
    const std::string checksumName = std::string(kPackageFile) + kChecksumSuffix;
    result = fetch(checksumName.c_str(), 1024, checksumFile, nullptr, {});
    if (result.status != FetchStatus::ok) return fail(result.status, result.detail);
    const std::string digest = ReadChecksumFile(checksumFile);
    removeQuietly(checksumFile);
    if (digest.empty()) return fail(FetchStatus::rejected, {});

    ScreenMeterView<ProgramUpdateScreen> meterView(screen_, showPackageProgress, [this] { push(); });
    DownloadMeter meter(meterView, 1024, settings_.clock);
    result = fetch(kPackageFile, 1024, packagePath(), &meter,
                   [&digest](const std::string& path) { return Sha256OfFile(path) == digest; });
    if (result.status != FetchStatus::ok) {
        removeQuietly(packagePath());
        return fail(result.status, result.detail);
    }

    // From here there is no abort.
    meter.showFullSize();
    busy_ = false;
    screen_.currentLine = u(26) + " " + VersionText(kProgramVersion);
    screen_.statusShown = true;
    screen_.status = u(27);
    screen_.waitCursor = true;
    screen_.title = u(4);
    screen_.updateEnabled = screen_.updateDefault = false;
    screen_.closeCaption = u(3);
    screen_.closeEnabled = false;
    push();

    if (!OpenWithDesktop(packagePath())) {
        screen_.currentLine = ownVersionLine(5);
        screen_.status = u(28);
        screen_.closeEntryEnabled = screen_.updateEnabled = screen_.closeEnabled = true;
        screen_.updateDefault = true;
        available_ = true;
        removeQuietly(packagePath());
        screen_.waitCursor = false;
        push();
        return;
    }
    view_.installerStarted();
    screen_.waitCursor = false;
    screen_.closeEnabled = screen_.closeEntryEnabled = true;
    push();
}

}  // namespace orvane
