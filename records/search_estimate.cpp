#include "records/search_estimate.h"

namespace orvane {
namespace {

constexpr double kDisplayInterval = 0.5;
constexpr double kNoEstimateYet = 1e15;

}  // namespace

RemainingTimeEstimate::RemainingTimeEstimate(std::size_t total, const BatchClock& clock)
    : total_(static_cast<double>(total)), clock_(clock), start_(clock()), last_(start_), shown_(kNoEstimateYet) {}

void RemainingTimeEstimate::afterItem(std::size_t done, BatchView& view, const RecordTexts& texts) {
    const double now = clock_();
    if (now - last_ <= kDisplayInterval || done == 0) return;
    last_ = now;
    const double elapsed = now - start_;
    const double remaining = total_ * elapsed / static_cast<double>(done) - elapsed;
    if (remaining < shown_) {
        shown_ = remaining;
        view.setRemainingTime(remainingTimeText(remaining, texts));
    }
}

}  // namespace orvane
