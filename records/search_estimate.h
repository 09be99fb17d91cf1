#pragma once
// The estimate of the time left that the search and the record batches show, as the
// import shows it: looked at every 0.5 seconds of the approximate clock, written
// only when it is lower than the one shown.
#include <cstddef>

#include "records/batch_view.h"
#include "records/insert_batch.h"
#include "records/record_texts.h"

namespace orvane {

class RemainingTimeEstimate {
public:
    RemainingTimeEstimate(std::size_t total, const BatchClock& clock);

    // After `done` of the total are finished.
    void afterItem(std::size_t done, BatchView& view, const RecordTexts& texts);

private:
    double total_;
    const BatchClock& clock_;
    double start_;
    double last_;
    double shown_;
};

}  // namespace orvane
