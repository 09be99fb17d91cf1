#pragma once
// The progress of one download as the update windows show it. The bar runs from 0
// to (bytes/1024)/10 and moves on every tenth read; the counter grows by the buffer
// size for each read, also for a short one; at most every 0.5 seconds the window
// shows the megabytes and the time left, bytes x elapsed / counter - elapsed, by
// the approximate clock of all estimates.
#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "net/http_fetch.h"
#include "records/insert_batch.h"

namespace orvane {

class DownloadMeterView {
public:
    virtual ~DownloadMeterView() = default;
    // The bar from 0 to `maximum`, at 0.
    virtual void meterRange(int maximum) = 0;
    virtual void meterStep() = 0;
    // Megabytes so far and in all (integer division by 1024 twice). `first` for the
    // line that the start shows; `remaining` is empty until an estimate exists.
    virtual void meterText(long long doneMb, long long totalMb, bool first, const std::string& remaining) = 0;
};

class DownloadMeter : public FetchObserver {
public:
    DownloadMeter(DownloadMeterView& view, std::size_t chunkBytes, BatchClock clock = approximateClockNow);

    void bodyStarts(long long contentLength) override;
    void chunkWritten(std::size_t bytes) override;

    // The whole size, shown once more when the body has ended.
    void showFullSize();

    long long counter() const { return counter_; }

private:
    DownloadMeterView& view_;
    std::size_t chunkBytes_;
    BatchClock clock_;
    long long bytes_ = 0;
    long long counter_ = 0;
    long long chunks_ = 0;
    double start_ = 0;
    double lastText_ = 0;
};

// The meter of a window whose screen has a bar (barMaximum, barValue): the bar moves
// in the screen, `showText` writes the lines, and each change is pushed to the window.
template <class Screen>
class ScreenMeterView : public DownloadMeterView {
public:
    using ShowText = std::function<void(Screen&, long long doneMb, long long totalMb, bool first,
                                        const std::string& remaining)>;
    ScreenMeterView(Screen& screen, ShowText showText, std::function<void()> push)
        : screen_(screen), showText_(std::move(showText)), push_(std::move(push)) {}

    void meterRange(int maximum) override {
        screen_.barMaximum = maximum;
        screen_.barValue = 0;
        push_();
    }
    void meterStep() override {
        if (screen_.barValue < screen_.barMaximum) ++screen_.barValue;
        push_();
    }
    void meterText(long long doneMb, long long totalMb, bool first, const std::string& remaining) override {
        showText_(screen_, doneMb, totalMb, first, remaining);
        push_();
    }

private:
    Screen& screen_;
    ShowText showText_;
    std::function<void()> push_;
};

// "Remaining time: 0h 1m 23s" from the texts of the status section.
std::string RemainingTimeText(double seconds);

}  // namespace orvane
