#include "dynamics/task_run.h"

#include <algorithm>
#include <array>

namespace orvane {
namespace {

struct RateRow {
    double intervalLong, intervalShort;
    int waitLong, waitShort;
};

// "Rate: max", "Rate: x320", "Rate: x32" ... "Rate: x1".
constexpr std::array<RateRow, 8> kRates{{
    {365, 365, 0, 0},
    {14, 0.14, 0, 0},
    {12, 0.12, 10, 8},
    {10, 0.1, 20, 16},
    {8, 0.08, 40, 32},
    {6, 0.06, 80, 64},
    {4, 0.04, 160, 128},
    {2, 0.02, 320, 256},
}};

const RateRow& RateOf(int rate) { return kRates[static_cast<std::size_t>(std::clamp(rate, 1, 8) - 1)]; }

}  // namespace

double FrameInterval(int rate, bool stepAboveHalfDay) {
    const RateRow& r = RateOf(rate);
    return stepAboveHalfDay ? r.intervalLong : r.intervalShort;
}

int FrameWaitMilliseconds(int rate, bool stepAboveHalfDay) {
    const RateRow& r = RateOf(rate);
    return stepAboveHalfDay ? r.waitLong : r.waitShort;
}

void TaskRun::Pause() { paused = 1; }

void TaskRun::Resume() {
    {
        std::lock_guard<std::mutex> lock(resumeMutex_);
        paused = 0;
    }
    resumeEvent_.notify_all();
}

void TaskRun::RequestStop() {
    if (stoppable == 1) stopRequested = 1;
    // A paused run must come out of its wait to see the request.
    Resume();
}

void TaskRun::WaitWhilePaused() {
    std::unique_lock<std::mutex> lock(resumeMutex_);
    resumeEvent_.wait(lock, [this] { return paused == 0; });
}

}  // namespace orvane
