#pragma once
// Chebyshev series of a JPL ephemeris record: value, first and second
// derivative of one series at a normalised time of its record.
#include <vector>

namespace orvane {

// One triple of the header's layout table: where a series starts in the record
// (1-based, counted in doubles, the two dates being words 1 and 2), how many
// coefficients each component has, and how many granules split the record.
struct SeriesLayout {
    int offset = 0;
    int coefficients = 0;
    int granules = 0;
};

// Keeps the polynomial values between calls: the bodies of one record share
// the same granule time most of the time, so the recursions are extended only
// while the local time stays the same.
class ChebyshevSeries {
public:
    // Sizes the polynomial tables for the longest series of a file.
    void Reserve(int maxCoefficients);

    // Evaluates `components` components of the series `layout` in `record` at
    // the normalised time tau (0 start, 1 end of the record). `order` 1 gives
    // positions, 2 adds the first derivative, 3 the second; `span` is the
    // record length in days, so derivatives come out per day. `out` receives
    // 3 x components values (values, first, second derivatives); orders not
    // asked for are written as zeros. The layout must have been checked against
    // the record length and Reserve() must cover its coefficients.
    void Evaluate(const double* record, const SeriesLayout& layout, int components,
                  double tau, double span, int order, double* out);

private:
    void Extend(double tc, int coefficients, int order);

    std::vector<double> t_;  // T_n(tc)
    std::vector<double> u_;  // T_n'(tc)
    std::vector<double> v_;  // T_n''(tc)
    double tc_ = 0.0;
    bool haveTc_ = false;
    int nt_ = 0;
    int nu_ = 0;
    int nv_ = 0;
};

}  // namespace orvane
