#include "net/ephemeris_install.h"

#include <utility>

#include "language/language_table.h"
#include "net/download_meter.h"
#include "net/file_checks.h"
#include "net/update_server.h"

namespace orvane {
namespace {

std::string de(int key) { return text(Section::orvDEInstall, key); }
std::string eu(int key) { return text(Section::orvElementsUpdate, key); }

// The lines while a file comes in: line 1 the time left, line 2 the megabytes.
void showFileProgress(int file, EphemerisInstallScreen& screen, long long doneMb, long long totalMb, bool first,
                      const std::string& remaining) {
    const int firstKey = file == 1 ? 13 : 19;
    screen.line2 = first ? de(firstKey) + " " + std::to_string(totalMb) + " " + de(11)
                         : de(firstKey + 1) + std::to_string(doneMb) + " " + de(15) + " " + std::to_string(totalMb) +
                               " " + de(11);
    if (!remaining.empty()) screen.line1 = remaining;
}

std::string failureText(const FetchResult& result) {
    switch (result.status) {
        case FetchStatus::open: return de(7);
        case FetchStatus::refused: return de(9);
        case FetchStatus::rejected: return de(27);
        case FetchStatus::writeFailed: return result.detail;
        default: return de(8);
    }
}

}  // namespace

EphemerisInstall::EphemerisInstall(EphemerisInstallView& view, EphemerisInstallSettings settings)
    : view_(view), settings_(std::move(settings)), choice_(settings_.ephemerisChoice) {
    screen_.message = settings_.singleFile ? de(23) : de(3);
    screen_.okCaption = de(1);
    screen_.secondCaption = secondAtRest();
}

EphemerisInstall::~EphemerisInstall() {
    abort_ = 1;
    join();
}

void EphemerisInstall::join() {
    if (worker_.joinable()) worker_.join();
}

void EphemerisInstall::push() { view_.showScreen(screen_); }

void EphemerisInstall::mark(int value) {
    if (settings_.markPending) settings_.markPending(value);
}

std::string EphemerisInstall::secondAtRest() const {
    if (settings_.singleFile)
        return installedAny() ? text(Section::orvOrvaneOptions, 4) : text(Section::orvElementsOptions, 11);
    return installedAny() ? de(21) : de(2);
}

void EphemerisInstall::start(bool wantDe406, bool wantDe423) {
    if (busy_.load() || (!wantDe406 && !wantDe423)) return;
    join();
    abort_ = 0;
    busy_ = true;
    worker_ = std::thread([this, wantDe406, wantDe423] { run(wantDe406, wantDe423); });
}

bool EphemerisInstall::pressSecond() {
    if (busy_.load()) {
        abort_ = 1;
        return false;
    }
    return true;
}

FetchResult EphemerisInstall::fetchFile(int file) {
    ScreenMeterView<EphemerisInstallScreen> meterView(
        screen_,
        [file](EphemerisInstallScreen& screen, long long done, long long total, bool first, const std::string& left) {
            showFileProgress(file, screen, done, total, first, left);
        },
        [this] { push(); });
    DownloadMeter meter(meterView, 1024, settings_.clock);
    FetchRequest request;
    request.agent = kAgentECheck;
    request.baseUrl = ServerUrl(settings_.serverAddress, kEphemeridesPath);
    request.fileName = file == 1 ? "jplde406.dat" : "jplde423.dat";
    request.bufferSize = 1024;
    request.localFile = file == 1 ? settings_.de406Path : settings_.de423Path;
    request.check = [](const std::string& path) { return CheckPlanetaryFile(path).readable; };
    request.observer = &meter;
    request.abort = &abort_;
    request.limits = settings_.limits;
    const FetchResult result = HttpFetch(request);
    if (result.status == FetchStatus::ok) meter.showFullSize();
    return result;
}

// The boxes of the files still missing come back, so that the user can choose again.
void EphemerisInstall::toRest(bool showBoxes) {
    screen_.choicesShown = showBoxes;
    screen_.de406Shown = !installed406_;
    screen_.de423Shown = !installed423_;
    screen_.message = settings_.singleFile ? de(23) : de(3);
    screen_.barShown = false;
    screen_.barValue = 0;
    screen_.secondCaption = secondAtRest();
    screen_.closeEntryEnabled = true;
    mark(0);
    abort_ = 0;
    busy_ = false;
    push();
}

void EphemerisInstall::run(bool wantDe406, bool wantDe423) {
    want406_ = wantDe406;
    want423_ = wantDe423;
    screen_.choicesShown = false;
    screen_.barShown = true;
    screen_.okEnabled = false;
    screen_.closeEntryEnabled = false;
    push();
    mark(want406_ ? 1 : 2);

    for (const int file : {1, 2}) {
        if ((file == 1 && !want406_) || (file == 2 && !want423_)) continue;
        screen_.barValue = screen_.barMaximum = 0;
        screen_.secondCaption = eu(18);
        screen_.message = eu(31);
        screen_.line1 = eu(19);
        screen_.line2 = eu(20);
        push();
        const FetchResult result = fetchFile(file);
        if (result.status == FetchStatus::aborted || result.status == FetchStatus::interrupted) {
            screen_.line1.clear();
            screen_.line2.clear();
            screen_.okCaption = de(1);
            screen_.okEnabled = want406_ || want423_;
            toRest(true);
            return;
        }
        if (result.status != FetchStatus::ok) {
            screen_.line1 = de(18);
            screen_.line2 = failureText(result);
            screen_.okCaption = de(24);
            screen_.okEnabled = true;
            toRest(true);
            return;
        }
        if (file == 1) {
            want406_ = false;
            installed406_ = true;
            choice_ = 1;
            if (want423_) mark(2);
        } else {
            want423_ = false;
            installed423_ = true;
            if (choice_ == 0) choice_ = 2;
        }
        view_.fileInstalled(file, choice_);
    }
    mark(0);
    screen_.okEnabled = false;
    screen_.secondCaption = secondAtRest();
    screen_.line1 = de(16);
    screen_.closeEntryEnabled = true;
    busy_ = false;
    push();
}

}  // namespace orvane
