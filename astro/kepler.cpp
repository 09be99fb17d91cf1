#include "astro/kepler.h"

#include <cmath>

#include "astro/constants.h"

namespace orvane {

namespace {

constexpr int kMaxRounds = 10001;

// The series for the near-parabolic orbit in w = lambda' s^2, written out as the
// program evaluates it: 1/3 + w/10 + 3w^2/56 + 5w^3/144 + 35w^4/1408 + 63w^5/3328 + 231w^6/15360.
double NearParabolicSeries(double w) {
    const double w2 = w * w;
    const double w4 = w2 * w2;
    return (w2 * 0.0150390625 + 0.024857954545454544) * w4 +
           ((w * 0.034722222222222224 + 0.05357142857142857) * w + w4 * 0.01893028846153846 + 0.1) * w +
           0.3333333333333333;
}

}  // namespace

KeplerBranch SelectKeplerBranch(double e) {
    const double lambda = std::fabs(1.0 - e);
    if (lambda > 1e-14 && lambda < 1e-10) return KeplerBranch::NearParabola;
    if (e == 1.0) return KeplerBranch::Parabola;
    if (e > 1.0) return KeplerBranch::Hyperbola;
    return KeplerBranch::Ellipse;
}

double SolveParabolic(double M, double tolerance) {
    double s = M;
    for (int round = 0; round < kMaxRounds; ++round) {
        const double next = s + ((M - s) - s * s * s / 3.0) / (s * s + 1.0);
        const bool done = std::fabs(next - s) < tolerance;
        s = next;
        if (done) break;
    }
    return s;
}

double SolveNearParabolic(double M, double e, double tolerance) {
    double s = SolveParabolic(M, tolerance);
    const double lambda = (1.0 - e) / 2.0;
    double w = lambda * s * s;
    for (int round = 0; round < kMaxRounds; ++round) {
        const double A = NearParabolicSeries(w);
        const double root = std::sqrt(1.0 - w);
        // The factor k/sqrt(2) belongs to a time-scaled M; the caller's M is not scaled,
        // yet the program has always damped the step with it, and the results follow it.
        const double next =
            s + (M - s * (s * s * A + root)) * (root * 0.01720209895 / ((e * s * s + 1.0) * kSqrt2));
        const bool done = std::fabs(next - s) < tolerance;
        s = next;
        w = lambda * s * s;
        if (done) break;
    }
    return std::sqrt(1.0 - lambda) / std::sqrt(1.0 - w) * s;
}

double SolveHyperbolic(double M, double e, double tolerance) {
    double H = M;
    for (int round = 0; round < kMaxRounds; ++round) {
        const double next = H - ((M - e * std::sinh(H)) + H) / (1.0 - e * std::cosh(H));
        const bool done = std::fabs(next - H) < tolerance;
        H = next;
        if (done) break;
    }
    return H;
}

double SolveElliptic(double M, double e, double tolerance) {
    double E = M;
    for (int round = 0; round < kMaxRounds; ++round) {
        const double next = E - ((e * std::sin(E) + M) - E) / (e * std::cos(E) - 1.0);
        const bool done = std::fabs(next - E) < tolerance;
        E = next;
        if (done) break;
    }
    return E;
}

double SolveKepler(double M, double e, double tolerance) {
    switch (SelectKeplerBranch(e)) {
        case KeplerBranch::NearParabola: return SolveNearParabolic(M, e, tolerance);
        case KeplerBranch::Parabola: return SolveParabolic(M, tolerance);
        case KeplerBranch::Hyperbola: return SolveHyperbolic(M, e, tolerance);
        case KeplerBranch::Ellipse: break;
    }
    return SolveElliptic(M, e, tolerance);
}

}  // namespace orvane
