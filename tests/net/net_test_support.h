#pragma once
// What the network tests share beside the test server.
#include <gtest/gtest.h>

#include <chrono>
#include <mutex>
#include <thread>
#include <vector>

#include "language/language_table.h"
#include "support/temp_home.h"
#include "support/test_server.h"

namespace orvane::testing {

// A published server for a test: the English texts, and the folder checked.
struct NetFixtureServer : PublishedServer {
    explicit NetFixtureServer(const std::string& version = "0.07") : PublishedServer(version) {
        ResetLanguage();
        EXPECT_TRUE(ready) << "orvane-publish failed; is " << machinePlanetaryFile() << " there (scripts/setup)?";
    }
};

// The screens a window's view was given, from the worker, in order.
template <class Screen>
struct ScreenRecorder {
    void record(const Screen& screen) {
        std::lock_guard lock(mutex);
        screens.push_back(screen);
    }
    // The last screen; an empty one before the first.
    Screen last() {
        std::lock_guard lock(mutex);
        return screens.empty() ? Screen{} : screens.back();
    }
    std::mutex mutex;
    std::vector<Screen> screens;
};

// Waits up to `seconds` for `done` to hold.
template <class Done>
bool waitFor(Done done, double seconds = 20) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (!done()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

}  // namespace orvane::testing
