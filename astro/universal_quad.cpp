#include "astro/universal_quad.h"

#include <quadmath.h>

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

constexpr int kMaxRounds = 250;
constexpr int kTerms = 11;  // C2 and C3 are written out to x^10

// Constants are built from exact integers, so each is the correctly rounded binary128
// value of its decimal: k, k^2 and the factorials of the series (exact up to 23!).
const Quad kK = Quad(1720209895) / Quad(1e11);
const Quad kMu = Quad(2959122082855911LL) / Quad(1e19);
const Quad kLimit = Quad(5) / (Quad(1e15) * Quad(1e16));
constexpr double kLimitDouble = 5e-31;

// A binary128 sum of a few terms is good to about this fraction of its largest term.
constexpr double kQuadRounding = 1e-33;

// Terms of the series smaller than this (against C2 near 1/2) may be summed in double:
// their rounding then stays below 1e-36.
constexpr double kDoubleTermSize = 1e-20;

Quad Factorial(int n) {
    Quad product = 1;
    for (int factor = 2; factor <= n; ++factor) product *= factor;
    return product;
}

// The series' coefficients 1/(2j+2)! and 1/(2j+3)!, j = 0 to 10, in binary128 and in
// double, the double coefficients j/(2j+2)! and j/(2j+3)! of their slopes, and for
// each m the largest |x| at which the terms from x^m on are small enough for double.
// Multiplying by the rounded reciprocal instead of dividing by the exact factorial
// moves a term by at most one unit in its last binary128 place.
struct SeriesCoefficients {
    Quad c2[kTerms];
    Quad c3[kTerms];
    double c2d[kTerms];
    double c3d[kTerms];
    double slope2[kTerms];
    double slope3[kTerms];
    double reach[kTerms];
};

SeriesCoefficients MakeCoefficients() {
    SeriesCoefficients c;
    for (int j = 0; j < kTerms; ++j) {
        c.c2[j] = Quad(1) / Factorial(2 * j + 2);
        c.c3[j] = Quad(1) / Factorial(2 * j + 3);
        c.c2d[j] = static_cast<double>(c.c2[j]);
        c.c3d[j] = static_cast<double>(c.c3[j]);
        c.slope2[j] = j * c.c2d[j];
        c.slope3[j] = j * c.c3d[j];
        c.reach[j] = j == 0 ? 0.0 : std::pow(kDoubleTermSize / c.c2d[j], 1.0 / j);
    }
    return c;
}

const SeriesCoefficients kSeries = MakeCoefficients();

// 23!, which divides the first term the written-out series leave off.
const double kTwentyThreeFactorial = static_cast<double>(Factorial(23));

struct Stumpff {
    Quad c2;
    Quad c3;
};

// The number of leading terms that need binary128 at this x; the rest go in double.
int QuadTerms(double x) {
    const double size = std::fabs(x);
    for (int m = 1; m < kTerms; ++m) {
        if (size <= kSeries.reach[m]) return m;
    }
    return kTerms;
}

// C2 and C3 by Horner's rule; the small tail of high powers, where it is small, in
// double. x and xd are the same value.
Stumpff StumpffQuad(Quad x, double xd) {
    const int head = QuadTerms(xd);
    Quad p2, p3;
    int j = head;
    if (head < kTerms) {
        double tail2 = 0.0, tail3 = 0.0;
        for (int k = kTerms - 1; k >= head; --k) {
            tail2 = kSeries.c2d[k] - xd * tail2;
            tail3 = kSeries.c3d[k] - xd * tail3;
        }
        p2 = tail2;
        p3 = tail3;
    } else {
        j = kTerms - 1;
        p2 = kSeries.c2[j];
        p3 = kSeries.c3[j];
    }
    while (j-- > 0) {
        p2 = kSeries.c2[j] - x * p2;
        p3 = kSeries.c3[j] - x * p3;
    }
    return {p2, p3};
}

struct StumpffDouble {
    double c2;
    double c3;
};

StumpffDouble StumpffInDouble(double x) {
    double p2 = 0.0, p3 = 0.0;
    for (int j = kTerms - 1; j >= 0; --j) {
        p2 = kSeries.c2d[j] - x * p2;
        p3 = kSeries.c3d[j] - x * p3;
    }
    return {p2, p3};
}

// dC2/dx and dC3/dx of the written-out series.
StumpffDouble StumpffSlopes(double x) {
    double q2 = 0.0, q3 = 0.0;
    for (int j = kTerms - 1; j >= 1; --j) {
        q2 = kSeries.slope2[j] - x * q2;
        q3 = kSeries.slope3[j] - x * q3;
    }
    return {-q2, -q3};
}

// What every time shares: the start's radius, r.v / k, 1/a and 1 - r0/a, and k/r0.
struct ConicStart {
    Quad r0, alpha, sigma0, c1, kOverR0;
    double r0d, alphad, sigma0d, c1d;
};

ConicStart StartOf(const QuadStateVector& start) {
    ConicStart c;
    c.r0 = sqrtq(start.x * start.x + start.y * start.y + start.z * start.z);
    const Quad v0Squared = start.vx * start.vx + start.vy * start.vy + start.vz * start.vz;
    c.alpha = Quad(2) / c.r0 - v0Squared / kMu;
    c.sigma0 = (start.x * start.vx + start.y * start.vy + start.z * start.vz) / kK;
    c.c1 = Quad(1) - c.r0 * c.alpha;
    c.kOverR0 = kK / c.r0;
    c.r0d = static_cast<double>(c.r0);
    c.alphad = static_cast<double>(c.alpha);
    c.sigma0d = static_cast<double>(c.sigma0);
    c.c1d = static_cast<double>(c.c1);
    return c;
}

// The universal anomaly s with the C2 and C3 that belong to it.
struct Anomaly {
    Quad s;
    Quad c2;
    Quad c3;
};

// The iteration as written, all in binary128 from s = 0.01: where the fast route
// cannot vouch for its result. On convergence s keeps the value that C2 and C3 were
// computed for.
Anomaly StraightAnomaly(const ConicStart& c, Quad delta) {
    Quad s = Quad(1) / Quad(100);
    Stumpff series{Quad(1) / Quad(2), Quad(1) / Quad(6)};
    for (int round = 0; round < kMaxRounds; ++round) {
        const Quad x = c.alpha * (s * s);
        series = StumpffQuad(x, static_cast<double>(x));
        const Quad cs = s * c.c1;
        const Quad F = ((c.sigma0 * series.c2 + series.c3 * cs) * s + c.r0) * s - delta;
        const Quad dF = (s - x * s * series.c3) * c.sigma0 + c.r0 + cs * s * series.c2;
        const Quad next = s - F / dF;
        const Quad change = s - next;
        if ((change < 0 ? -change : change) <= kLimit) break;
        s = next;
    }
    return {s, series.c2, series.c3};
}

// The same iteration in double, from the same start, to double precision. False when
// it does not settle within the rounds the binary128 iteration is allowed.
bool DoubleAnomaly(const ConicStart& c, double delta, double& s) {
    s = static_cast<double>(Quad(1) / Quad(100));
    for (int round = 0; round < kMaxRounds; ++round) {
        const double x = c.alphad * (s * s);
        const StumpffDouble series = StumpffInDouble(x);
        const double cs = s * c.c1d;
        const double F = ((c.sigma0d * series.c2 + series.c3 * cs) * s + c.r0d) * s - delta;
        const double dF = (s - x * s * series.c3) * c.sigma0d + c.r0d + cs * s * series.c2;
        const double step = F / dF;
        if (!std::isfinite(step)) return false;
        s -= step;
        if (std::fabs(step) <= 1e-14 * std::fabs(s) || std::fabs(step) <= 1e-40) return true;
    }
    return false;
}

// Newton's iteration in binary128 from the double solution: one round, sometimes two.
// The changes are small, so they and the derivative are taken in double. When the
// round that would confirm convergence cannot move s by more than a five-hundredth of
// the limit, it is not made: s takes the last change and C2 and C3 follow their slopes.
// False when binary128 rounding could itself exceed the limit, or when the rounds do
// not settle; the straight iteration then decides.
bool QuadAnomaly(const ConicStart& c, Quad delta, double deltad, double start, Anomaly& out) {
    Quad s = start;
    for (int round = 0; round < 8; ++round) {
        const double sd = static_cast<double>(s);
        const Quad x = c.alpha * (s * s);
        const double xd = static_cast<double>(x);
        const Stumpff series = StumpffQuad(x, xd);
        const Quad F = ((c.sigma0 * series.c2 + series.c3 * (s * c.c1)) * s + c.r0) * s - delta;
        const double c2 = static_cast<double>(series.c2), c3 = static_cast<double>(series.c3);
        const double dF = (sd - xd * sd * c3) * c.sigma0d + c.r0d + c.c1d * sd * sd * c2;
        const double step = static_cast<double>(F) / dF;
        if (!std::isfinite(step)) return false;

        const double termSize = std::fabs(deltad) + std::fabs(c.r0d * sd) + std::fabs(c.sigma0d * sd * sd * c2) +
                                std::fabs(c.c1d * sd * sd * sd * c3);
        if (kQuadRounding * termSize / std::fabs(dF) > kLimitDouble / 10) return false;
        if (std::fabs(step) <= kLimitDouble) {
            out = {s, series.c2, series.c3};
            return true;
        }

        // Next change: from the curvature, and from the x^11 term by which the
        // written-out derivative differs from that of the written-out series.
        const double curvature = c.sigma0d * (1.0 - xd * c2) + c.c1d * sd * (1.0 - xd * c3);
        const double x2 = xd * xd, x4 = x2 * x2, x8 = x4 * x4;
        const double missing = std::fabs(c.sigma0d * sd * x8 * x2 * xd) / kTwentyThreeFactorial;
        const double nextChange = (step * step * std::fabs(curvature) / 2 + std::fabs(step) * missing) / std::fabs(dF);
        const Quad next = s - Quad(step);
        if (nextChange <= kLimitDouble / 500) {
            const double dx = c.alphad * (-step) * (2.0 * sd - step);
            const StumpffDouble slopes = StumpffSlopes(xd);
            out = {next, series.c2 + Quad(slopes.c2 * dx), series.c3 + Quad(slopes.c3 * dx)};
            return true;
        }
        s = next;
    }
    return false;
}

// 1/|r| to binary128 precision from the double estimate, by one third-order correction:
// y (1 + e/2 + 3e^2/8) with e = 1 - r^2 y^2, where y^2 is exact in binary128.
Quad InverseLength(Quad x, Quad y, Quad z) {
    const Quad r2 = x * x + y * y + z * z;
    const Quad guess = 1.0 / std::sqrt(static_cast<double>(r2));
    const Quad e = Quad(1) - r2 * (guess * guess);
    const double ed = static_cast<double>(e);
    return guess + guess * (e * Quad(0.5 + 0.375 * ed));
}

QuadStateVector LagrangeState(const QuadStateVector& start, const ConicStart& c, const Anomaly& a, Quad dt) {
    const Quad s2 = a.s * a.s;
    const Quad c3s3 = a.c3 * (s2 * a.s);  // shared by g and fDot
    const Quad f = Quad(1) - (s2 / c.r0) * a.c2;
    const Quad g = dt - c3s3 / kK;
    QuadStateVector out;
    out.x = f * start.x + g * start.vx;
    out.y = f * start.y + g * start.vy;
    out.z = f * start.z + g * start.vz;
    const Quad inverseR = InverseLength(out.x, out.y, out.z);
    const Quad fDot = (c.alpha * c3s3 - a.s) * (c.kOverR0 * inverseR);
    const Quad gDot = Quad(1) - a.c2 * (s2 * inverseR);
    out.vx = fDot * start.x + gDot * start.vx;
    out.vy = fDot * start.y + gDot * start.vy;
    out.vz = fDot * start.z + gDot * start.vz;
    return out;
}

QuadStateVector PropagateFrom(const QuadStateVector& start, const ConicStart& c, Quad t0, Quad t) {
    const Quad dt = t - t0;
    const Quad delta = kK * dt;
    const double deltad = static_cast<double>(delta);
    double guess = 0.0;
    Anomaly a;
    if (!DoubleAnomaly(c, deltad, guess) || !QuadAnomaly(c, delta, deltad, guess, a)) {
        a = StraightAnomaly(c, delta);
    }
    return LagrangeState(start, c, a, dt);
}

}  // namespace

QuadStateVector PropagateUniversalQuad(const QuadStateVector& start, Quad t0, Quad t) {
    return PropagateFrom(start, StartOf(start), t0, t);
}

void PropagateUniversalQuad(const QuadStateVector& start, Quad t0, std::span<const Quad> times,
                            std::span<QuadStateVector> out) {
    const ConicStart c = StartOf(start);
    const std::size_t count = std::min(times.size(), out.size());
    for (std::size_t i = 0; i < count; ++i) out[i] = PropagateFrom(start, c, t0, times[i]);
}

}  // namespace orvane
