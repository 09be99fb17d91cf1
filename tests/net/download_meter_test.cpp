// The progress of a download: the bar, the counter of whole buffers, the megabytes
// and the time left at most every half second.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "language/language_table.h"
#include "net/download_meter.h"

using namespace orvane;

namespace {

struct Recorder : DownloadMeterView {
    void meterRange(int maximum) override { ranges.push_back(maximum); }
    void meterStep() override { ++steps; }
    void meterText(long long doneMb, long long totalMb, bool first, const std::string& remaining) override {
        texts.push_back(std::to_string(doneMb) + "/" + std::to_string(totalMb) + (first ? " first" : "") +
                        (remaining.empty() ? "" : " " + remaining));
    }
    std::vector<int> ranges;
    int steps = 0;
    std::vector<std::string> texts;
};

}  // namespace

TEST(DownloadMeter, CountsWholeBuffersStepsEveryTenthReadAndShowsTheTimeLeft) {
    ResetLanguage();
    Recorder view;
    double now = 1000.0;
    DownloadMeter meter(view, 1024, [&now] { return now; });
    const long long bytes = 35LL * 1024 * 1024;  // 35 MB, 35840 reads of 1024
    meter.bodyStarts(bytes);
    ASSERT_EQ(view.ranges, std::vector<int>{3584});
    ASSERT_EQ(view.texts, std::vector<std::string>{"0/35 first"});

    // Short reads count as whole buffers.
    for (int i = 0; i < 9; ++i) meter.chunkWritten(100);
    EXPECT_EQ(view.steps, 0);
    meter.chunkWritten(1024);
    EXPECT_EQ(view.steps, 1);
    EXPECT_EQ(meter.counter(), 10 * 1024);
    EXPECT_EQ(view.texts.size(), 1u);  // no half second has passed

    // 0.5 s is not more than 0.5 s; 0.51 is. 35 MB x 0.51 s / 12 KB - 0.51 s = 1522.7 s.
    now = 1000.5;
    meter.chunkWritten(1024);
    EXPECT_EQ(view.texts.size(), 1u);
    now = 1000.51;
    meter.chunkWritten(1024);
    ASSERT_EQ(view.texts.size(), 2u);
    EXPECT_EQ(view.texts[1], "0/35 Remaining time: 0h 25m 22s");
    while (meter.counter() < 5LL * 1024 * 1024) meter.chunkWritten(1024);
    EXPECT_EQ(view.texts.size(), 2u);
    // 5 MB and 1 KB after 1.2 s: 7.198 s left.
    now = 1001.2;
    meter.chunkWritten(1024);
    ASSERT_EQ(view.texts.size(), 3u);
    EXPECT_EQ(view.texts[2], "5/35 Remaining time: 0h 0m 7s");
    EXPECT_EQ(view.steps, 512);
    meter.showFullSize();
    EXPECT_EQ(view.texts.back(), "35/35");
}

TEST(DownloadMeter, AServerWithoutALengthShowsNoTotal) {
    ResetLanguage();
    Recorder view;
    DownloadMeter meter(view, 1024, [] { return 0.0; });
    meter.bodyStarts(-1);
    EXPECT_EQ(view.ranges, std::vector<int>{0});
    EXPECT_EQ(view.texts, std::vector<std::string>{"0/0 first"});
}

TEST(DownloadMeter, TheTimeLeftUsesTheStatusTexts) {
    ResetLanguage();
    EXPECT_EQ(RemainingTimeText(3723.9), "Remaining time: 1h 2m 3s");
    EXPECT_EQ(RemainingTimeText(-5), "Remaining time: 0h 0m 0s");
}
