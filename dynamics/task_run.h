#pragma once
// The state a task window and its calculation thread share: the run's inputs,
// the flags the window sets and the thread reads at frame and step boundaries,
// the event a paused run waits on, and the rows the run leaves.
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <vector>

#include "dynamics/run_types.h"
#include "dynamics/task_options.h"

namespace orvane {

// Frame stride (days of model time between two frames) and wait after a
// frame (milliseconds) by the rate 1 ("Rate: max") to 8 ("Rate: x1"); the
// column depends on whether the step is above half a day.
double FrameInterval(int rate, bool stepAboveHalfDay);
int FrameWaitMilliseconds(int rate, bool stepAboveHalfDay);

inline constexpr int kMaxCombinedObjects = 300;

struct TaskRun {
    // Inputs, fixed while the run lasts.
    TaskKind task = TaskKind::None;
    TaskOptions options;
    std::vector<RunObject> objects;
    int first = 0;  // index range of the run, both ends included
    int last = -1;

    // Flags shared with the window.
    std::atomic<int> running{0};
    std::atomic<int> paused{0};
    std::atomic<int> stoppable{0};
    std::atomic<int> stopRequested{0};
    std::atomic<int> rate{2};
    std::atomic<int> restartNeeded{0};
    std::atomic<int> redisplayNeeded{0};
    int selectionCount = 0;
    int currentObject = 1;

    // Results: the rows of each object in order of completion, and whether
    // its interval was searched (0) or there was none (1).
    std::vector<std::vector<ApproachRow>> rows;
    std::vector<int> intervalState;

    // The window's side of pause, resume and stop.
    void Pause();
    void Resume();
    void RequestStop();
    // The thread's side: returns at once unless paused, else when resumed.
    void WaitWhilePaused();

private:
    std::mutex resumeMutex_;
    std::condition_variable resumeEvent_;
};

}  // namespace orvane
