#include "astro/universal_quad.h"

#include <quadmath.h>

namespace orvane {

namespace {

constexpr int kMaxRounds = 250;

// Constants are built from exact integers, so each is the correctly rounded binary128
// value of its decimal: k, k^2 and the factorials of the series (exact up to 23!).
const Quad kK = Quad(1720209895) / Quad(1e11);
const Quad kMu = Quad(2959122082855911LL) / Quad(1e19);
const Quad kLimit = Quad(5) / (Quad(1e15) * Quad(1e16));

Quad Factorial(int n) {
    Quad product = 1;
    for (int factor = 2; factor <= n; ++factor) product *= factor;
    return product;
}

// The series' coefficients 1/(2j+2)! and 1/(2j+3)!, j = 0 to 10. Multiplying by the
// rounded reciprocal instead of dividing by the exact factorial moves a term by at most
// one unit in its last binary128 place and halves the cost of the loop.
struct SeriesCoefficients {
    Quad c2[11];
    Quad c3[11];
};

SeriesCoefficients MakeCoefficients() {
    SeriesCoefficients c;
    for (int j = 0; j <= 10; ++j) {
        c.c2[j] = Quad(1) / Factorial(2 * j + 2);
        c.c3[j] = Quad(1) / Factorial(2 * j + 3);
    }
    return c;
}

const SeriesCoefficients kSeries = MakeCoefficients();

}  // namespace

QuadStateVector PropagateUniversalQuad(const QuadStateVector& start, Quad t0, Quad t) {
    const Quad r0 = sqrtq(start.x * start.x + start.y * start.y + start.z * start.z);
    const Quad v0Squared = start.vx * start.vx + start.vy * start.vy + start.vz * start.vz;
    const Quad alpha = Quad(2) / r0 - v0Squared / kMu;
    const Quad sigma0 = (start.x * start.vx + start.y * start.vy + start.z * start.vz) / kK;
    const Quad delta = kK * (t - t0);
    const Quad* const a = kSeries.c2;
    const Quad* const b = kSeries.c3;

    Quad s = Quad(1) / Quad(100);
    Quad C2 = Quad(1) / Quad(2), C3 = Quad(1) / Quad(6);
    for (int round = 0; round < kMaxRounds; ++round) {
        const Quad x = alpha * (s * s);
        const Quad x2 = x * x;
        const Quad x4 = x2 * x2;
        const Quad x6 = x4 * x2;
        const Quad x8 = x4 * x4;
        const Quad x3 = x2 * x, x5 = x4 * x, x7 = x6 * x, x9 = x8 * x, x10 = x4 * x6;
        C2 = a[0] - x * a[1] + x2 * a[2] - x3 * a[3] + x4 * a[4] - x5 * a[5] + x6 * a[6] - x7 * a[7] +
             x8 * a[8] - x9 * a[9] + x10 * a[10];
        C3 = b[0] - x * b[1] + x2 * b[2] - x3 * b[3] + x4 * b[4] - x5 * b[5] + x6 * b[6] - x7 * b[7] +
             x8 * b[8] - x9 * b[9] + x10 * b[10];
        const Quad c = s * (Quad(1) - r0 * alpha);
        const Quad F = ((sigma0 * C2 + C3 * c) * s + r0) * s - delta;
        const Quad dF = (s - x * s * C3) * sigma0 + r0 + c * s * C2;
        const Quad next = s - F / dF;
        const Quad change = s - next;
        if ((change < 0 ? -change : change) <= kLimit) break;
        s = next;
    }

    const Quad s2 = s * s;
    const Quad f = Quad(1) - (s2 / r0) * C2;
    const Quad g = (t - t0) - (s2 / kK) * C3 * s;
    QuadStateVector out;
    out.x = f * start.x + g * start.vx;
    out.y = f * start.y + g * start.vy;
    out.z = f * start.z + g * start.vz;
    const Quad r = sqrtq(out.x * out.x + out.y * out.y + out.z * out.z);
    const Quad fDot = (alpha * C3 * (s2 * s) - s) * ((kK / r) / r0);
    const Quad gDot = Quad(1) - C2 * (s2 / r);
    out.vx = fDot * start.x + gDot * start.vx;
    out.vy = fDot * start.y + gDot * start.vy;
    out.vz = fDot * start.z + gDot * start.vz;
    return out;
}

}  // namespace orvane
