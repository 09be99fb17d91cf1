#include "net/download_meter.h"

#include <utility>

#include "language/language_table.h"
#include "records/record_texts.h"

namespace orvane {
namespace {

constexpr double kTextInterval = 0.5;
constexpr int kReadsPerStep = 10;

long long megabytes(long long bytes) { return bytes / 1024 / 1024; }

}  // namespace

std::string RemainingTimeText(double seconds) {
    RecordTexts texts;
    texts.remainingTime = text(Section::orvStatus, 18);
    texts.hoursSuffix = text(Section::orvStatus, 19);
    texts.minutesSuffix = text(Section::orvStatus, 20);
    texts.secondsSuffix = text(Section::orvStatus, 21);
    return remainingTimeText(seconds, texts);
}

DownloadMeter::DownloadMeter(DownloadMeterView& view, std::size_t chunkBytes, BatchClock clock)
    : view_(view), chunkBytes_(chunkBytes), clock_(std::move(clock)) {}

void DownloadMeter::bodyStarts(long long contentLength) {
    // A server that gives no length shows 0 MB in all and a bar that does not move.
    bytes_ = contentLength > 0 ? contentLength : 0;
    counter_ = 0;
    chunks_ = 0;
    start_ = lastText_ = clock_();
    view_.meterRange(static_cast<int>(bytes_ / 1024 / kReadsPerStep));
    view_.meterText(0, megabytes(bytes_), true, {});
}

void DownloadMeter::chunkWritten(std::size_t) {
    ++chunks_;
    counter_ += static_cast<long long>(chunkBytes_);
    if (chunks_ % kReadsPerStep == 0) view_.meterStep();
    const double now = clock_();
    if (now - lastText_ <= kTextInterval) return;
    lastText_ = now;
    const double elapsed = now - start_;
    const double remaining = static_cast<double>(bytes_) * elapsed / static_cast<double>(counter_) - elapsed;
    view_.meterText(megabytes(counter_), megabytes(bytes_), false, RemainingTimeText(remaining));
}

void DownloadMeter::showFullSize() { view_.meterText(megabytes(bytes_), megabytes(bytes_), false, {}); }

}  // namespace orvane
