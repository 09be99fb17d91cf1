#pragma once
// UpdateCheckThread: once after start, and once after the option is switched on, a
// background check looks for a newer program and then for a newer catalogue, and
// asks the main window to open the window that offers it, without disturbing the
// user: when the main window is not in front or an operation runs, the check waits
// for the next operation to end. All its failures are silent.
//
// The check never waits for the window: it reads the window's state through the
// view, which answers from flags the window keeps, and asks for the window by a
// message that the window handles on its own thread.
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include "net/http_fetch.h"

namespace orvane {

// Program-wide marks, shared between the check and the window thread.
struct UpdateMarks {
    std::atomic<int> updateWindowPending{0};  // 0 idle, 1 program update window, 2 catalogue update window
    std::atomic<int> checkWaiting{0};         // 1 while the check sleeps until an operation ends
    std::atomic<int> programUpdateWindowOpened{0};
    std::atomic<int> catalogueUpdateWindowOpened{0};
};

class UpdateCheckView {
public:
    virtual ~UpdateCheckView() = default;
    // The main window is in front and no calculation, search or record operation runs.
    // Called on the check's thread.
    virtual bool mainWindowFree() = 0;
    // Asks the main window to open the window that updateWindowPending names.
    virtual void openUpdateWindow() = 0;
};

struct UpdateCheckSettings {
    std::string workFolder;          // the per-user folder: update.lst is made and deleted there
    std::string serverAddress;
    std::string elementsUpdateName;  // the newest catalogue release applied (parameter 2)
    FetchLimits limits;
};

// How a check ended, for whoever watches it.
enum class UpdateCheckOutcome {
    running,
    nothingNew,         // the server answered; nothing is newer
    failed,             // a transfer failed: the check ended silently
    programOffered,     // the main window was asked for the program update window
    catalogueOffered,   // ... for the catalogue update window
    alreadyOpened,      // that window had been opened meanwhile: its mark was cleared
    stopped,            // the program ended while the check ran or waited
};

class UpdateCheck {
public:
    UpdateCheck(UpdateCheckView& view, UpdateMarks& marks);
    // Stops a check that runs or waits.
    ~UpdateCheck();
    UpdateCheck(const UpdateCheck&) = delete;
    UpdateCheck& operator=(const UpdateCheck&) = delete;

    // Starts one check; false while an earlier one still runs or waits (it will offer
    // what it found).
    bool start(UpdateCheckSettings settings);

    // An operation ended: a check that waits goes on.
    void operationEnded();

    // Ends a check that runs or waits, and waits for its thread.
    void stop();

    // Waits for the check's thread to end by itself.
    void join();

    bool running() const { return running_.load(); }
    UpdateCheckOutcome outcome() const { return outcome_.load(); }
    // The version that the last check read (0 when it read none).
    float version() const { return version_.load(); }

private:
    void run(const UpdateCheckSettings& settings);
    UpdateCheckOutcome checkCatalogue(const UpdateCheckSettings& settings);
    UpdateCheckOutcome offer(int window, std::atomic<int>& openedMark);
    bool fetch(const UpdateCheckSettings& settings, const char* folder, const char* file);

    UpdateCheckView& view_;
    UpdateMarks& marks_;
    std::thread thread_;
    std::atomic<bool> running_{false};
    std::atomic<int> abort_{0};
    std::atomic<UpdateCheckOutcome> outcome_{UpdateCheckOutcome::nothingNew};
    std::atomic<float> version_{0.0f};
    std::mutex mutex_;
    std::condition_variable wake_;
    bool woken_ = false;
};

}  // namespace orvane
