#include "dynamics/chebyshev.h"

#include <algorithm>
#include <cmath>

namespace orvane {

void ChebyshevSeries::Reserve(int maxCoefficients) {
    const std::size_t n = static_cast<std::size_t>(std::max(maxCoefficients, 4));
    t_.assign(n, 0.0);
    u_.assign(n, 0.0);
    v_.assign(n, 0.0);
    // The fixed first terms of the three recursions.
    t_[0] = 1.0;
    u_[0] = 0.0;
    u_[1] = 1.0;
    v_[0] = 0.0;
    v_[1] = 0.0;
    v_[2] = 4.0;
    haveTc_ = false;
    nt_ = nu_ = nv_ = 0;
}

void ChebyshevSeries::Extend(double tc, int coefficients, int order) {
    if (!haveTc_ || tc != tc_) {
        tc_ = tc;
        haveTc_ = true;
        t_[1] = tc;
        u_[2] = 4.0 * tc;
        v_[3] = 24.0 * tc;
        nt_ = 2;
        nu_ = 3;
        nv_ = 4;
    }
    const double twoTc = tc + tc;
    for (int n = nt_; n < coefficients; ++n) {
        t_[n] = twoTc * t_[n - 1] - t_[n - 2];
    }
    nt_ = std::max(nt_, coefficients);
    if (order >= 2) {
        for (int n = nu_; n < coefficients; ++n) {
            u_[n] = twoTc * u_[n - 1] + t_[n - 1] + t_[n - 1] - u_[n - 2];
        }
        nu_ = std::max(nu_, coefficients);
    }
    if (order >= 3) {
        for (int n = nv_; n < coefficients; ++n) {
            v_[n] = twoTc * v_[n - 1] + 4.0 * u_[n - 1] - v_[n - 2];
        }
        nv_ = std::max(nv_, coefficients);
    }
}

void ChebyshevSeries::Evaluate(const double* record, const SeriesLayout& layout,
                               int components, double tau, double span, int order,
                               double* out) {
    const int ncf = layout.coefficients;
    const int na = layout.granules;
    const double x = na * tau;
    // Granule of the instant; the record's last instant belongs to the last
    // granule. Times outside the record (after a failed read) extrapolate from
    // the nearest granule instead of reading outside the record.
    double whole = std::trunc(x);
    whole = std::clamp(whole, 0.0, static_cast<double>(na - 1));
    const int l = static_cast<int>(whole);
    const double tc = 2.0 * (x - whole) - 1.0;

    Extend(tc, ncf, order);

    const double* granule = record + (layout.offset - 1) +
                            static_cast<long>(l) * components * ncf;
    const double velocityScale = (na + na) / span;
    if (order == 1 && components == 3) {
        // Positions alone, as the force asks for them ten times a substep: the three
        // sums in one pass, each still from the highest term down.
        const double* ax = granule;
        const double* ay = granule + ncf;
        const double* az = granule + 2 * static_cast<long>(ncf);
        double px = 0.0, py = 0.0, pz = 0.0;
        for (int k = ncf - 1; k >= 0; --k) {
            const double t = t_[k];
            px += t * ax[k];
            py += t * ay[k];
            pz += t * az[k];
        }
        out[0] = px;
        out[1] = py;
        out[2] = pz;
        for (int k = 3; k < 9; ++k) out[k] = 0.0;
        return;
    }
    for (int j = 0; j < components; ++j) {
        const double* a = granule + static_cast<long>(j) * ncf;
        // Summed from the highest term down, smallest terms first.
        double p = 0.0;
        for (int k = ncf - 1; k >= 0; --k) p += t_[k] * a[k];
        out[j] = p;
        double v = 0.0;
        if (order >= 2) {
            for (int k = ncf - 1; k >= 1; --k) v += u_[k] * a[k];
            v *= velocityScale;
        }
        out[components + j] = v;
        double acc = 0.0;
        if (order >= 3) {
            for (int k = ncf - 1; k >= 2; --k) acc += v_[k] * a[k];
            acc *= velocityScale * velocityScale;
        }
        out[2 * components + j] = acc;
    }
}

}  // namespace orvane
