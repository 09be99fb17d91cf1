#pragma once
// The program update: the window compares the running version with the newest on
// the update server and, when the user wishes, downloads the program's Debian package
// with its SHA-256 beside it, verifies it, and only then hands it to the desktop's
// package installer. A package that fails its checksum is deleted and never opened.
//
// The check on opening and ProgramUpdateThread both run on a worker of this object;
// the window sees every change as a whole screen of its controls, which its view
// shows on the window thread without the worker waiting.
#include <atomic>
#include <string>
#include <thread>

#include "net/http_fetch.h"
#include "records/insert_batch.h"

namespace orvane {

// What the controls of the program update window show.
struct ProgramUpdateScreen {
    std::string title;          // 8218
    std::string currentLine;    // 8219
    std::string availableLine;  // 8220
    std::string status;         // 8221
    bool statusShown = true;    // false: the progress bar stands in its place
    int barMaximum = 0;
    int barValue = 0;
    bool updateEnabled = false;
    bool updateDefault = false;  // Update is the default button and has the focus, else Close
    std::string closeCaption;
    bool closeEnabled = false;
    bool closeEntryEnabled = false;  // the close box of the window
    bool waitCursor = false;         // the installer is starting
};

class ProgramUpdateView {
public:
    virtual ~ProgramUpdateView() = default;
    // Called from the worker; shows the screen on the window thread without waiting.
    virtual void showScreen(const ProgramUpdateScreen& screen) = 0;
    // The installer took the package: the help viewer ends and all settings are
    // written, as when the program ends. Called from the worker.
    virtual void installerStarted() = 0;
};

struct ProgramUpdateSettings {
    std::string workFolder;  // the per-user folder: update.lst and the package go there
    std::string serverAddress;
    FetchLimits limits;
    BatchClock clock = approximateClockNow;
};

class ProgramUpdate {
public:
    ProgramUpdate(ProgramUpdateView& view, ProgramUpdateSettings settings);
    // Aborts a transfer that runs and waits for the worker.
    ~ProgramUpdate();
    ProgramUpdate(const ProgramUpdate&) = delete;
    ProgramUpdate& operator=(const ProgramUpdate&) = delete;

    // The check when the window opens.
    void startCheck();
    // Button Update: ProgramUpdateThread. Ignored while a worker runs.
    void pressUpdate();
    // Button Close: Abort while the download runs (false, the window stays); true
    // when the window may close.
    bool pressClose();
    // The close box: the window may close only at rest.
    bool mayClose() const { return !working_.load(); }

    bool busy() const { return busy_.load(); }
    bool working() const { return working_.load(); }
    // Waits for the worker (tests).
    void join();

    const ProgramUpdateScreen& screen() const { return screen_; }
    std::string packagePath() const;

private:
    void runCheck();
    void runUpdate();
    void startWorker(void (ProgramUpdate::*job)());
    FetchResult fetch(const char* file, std::size_t bufferSize, const std::string& localFile,
                      FetchObserver* observer, std::function<bool(const std::string&)> check);
    bool readServerVersion(std::size_t bufferSize, float& version, FetchResult& result);
    void showFailure(FetchStatus status, const std::string& detail);
    void push();

    ProgramUpdateView& view_;
    ProgramUpdateSettings settings_;
    ProgramUpdateScreen screen_;  // the worker's while it runs
    std::thread worker_;
    std::atomic<bool> working_{false};
    std::atomic<bool> busy_{false};  // programUpdateBusy: a download runs and Close means Abort
    std::atomic<int> abort_{0};      // programAbortRequested
    bool available_ = false;         // programUpdateAvailable
    float serverVersion_ = 0.0f;
};

}  // namespace orvane
