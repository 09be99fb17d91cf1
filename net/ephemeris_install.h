#pragma once
// The installation of the planetary files: DeCheckThread for the window that stands
// before the main window when no file exists (ECheck), DeDownloadThread for the one
// file that the options ask for (DEDownload). Each file is downloaded with progress,
// time left and Abort, and accepted only when the planetary-file reader opens it and
// reads its first and last records. While a file is in transfer, record 103 of
// config.dat names it, so that the next start removes what a run that died left.
//
// The worker shows every change as a whole screen of the window's controls, which
// the view shows on the window thread without the worker waiting.
#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "net/http_fetch.h"
#include "records/insert_batch.h"

namespace orvane {

struct EphemerisInstallScreen {
    // Message label, list caption and the boxes of the files not installed in this run.
    bool choicesShown = true;
    bool de406Shown = true;
    bool de423Shown = true;
    std::string message;  // 8225
    std::string line1;    // 8226
    std::string line2;    // 8227
    bool barShown = false;
    int barMaximum = 0;
    int barValue = 0;
    std::string okCaption;
    bool okEnabled = true;
    std::string secondCaption;  // Exit, Skip, Cancel or Abort
    bool closeEntryEnabled = true;
};

class EphemerisInstallView {
public:
    virtual ~EphemerisInstallView() = default;
    // Called from the worker; shows the screen on the window thread without waiting.
    virtual void showScreen(const EphemerisInstallScreen& screen) = 0;
    // A file arrived (1 DE406, 2 DE423); `choice` is the planetary file in use now.
    // Called from the worker.
    virtual void fileInstalled(int file, int choice) = 0;
};

struct EphemerisInstallSettings {
    std::string serverAddress;
    std::string de406Path;
    std::string de423Path;
    int ephemerisChoice = 0;  // the file in use when the installation starts
    // Writes record 103 (`pendingEphemerisDelete`) of config.dat at once.
    std::function<void(int)> markPending;
    // The DEDownload window: its second button is Cancel, not Exit.
    bool singleFile = false;
    FetchLimits limits;
    BatchClock clock = approximateClockNow;
};

class EphemerisInstall {
public:
    EphemerisInstall(EphemerisInstallView& view, EphemerisInstallSettings settings);
    // Aborts a transfer that runs and waits for the worker.
    ~EphemerisInstall();
    EphemerisInstall(const EphemerisInstall&) = delete;
    EphemerisInstall& operator=(const EphemerisInstall&) = delete;

    // The screen at rest, before OK.
    const EphemerisInstallScreen& screen() const { return screen_; }

    // OK: fetches the wanted files, DE406 first. Ignored while one runs.
    void start(bool wantDe406, bool wantDe423);
    // Exit, Skip or Cancel: Abort while a transfer runs (false); true when the window
    // may close.
    bool pressSecond();

    bool busy() const { return busy_.load(); }
    bool installedAny() const { return installed406_ || installed423_; }
    void join();

private:
    void run(bool wantDe406, bool wantDe423);
    FetchResult fetchFile(int file);
    void toRest(bool showBoxes);
    std::string secondAtRest() const;
    void mark(int value);
    void push();

    EphemerisInstallView& view_;
    EphemerisInstallSettings settings_;
    EphemerisInstallScreen screen_;
    std::thread worker_;
    std::atomic<bool> busy_{false};  // ephemerisBusy
    std::atomic<int> abort_{0};      // ephemerisAbortRequested
    bool want406_ = false;
    bool want423_ = false;
    bool installed406_ = false;
    bool installed423_ = false;
    int choice_ = 0;
};

}  // namespace orvane
