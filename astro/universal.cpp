#include "astro/universal.h"

#include <cmath>

namespace orvane {

namespace {

constexpr int kMaxRounds = 250;

double Single(double value) { return static_cast<double>(static_cast<float>(value)); }

}  // namespace

StateVector PropagateUniversal(const StateVector& start, double t0, double t) {
    const double k = kGauss;
    const double r0 = std::sqrt(start.x * start.x + start.y * start.y + start.z * start.z);
    const double v0Squared = start.vx * start.vx + start.vy * start.vy + start.vz * start.vz;
    const double alpha = Single(2.0 / r0 - v0Squared / kReferenceOrbitMu);
    const double sigma0 = (start.x * start.vx + start.y * start.vy + start.z * start.vz) / k;
    const double delta = k * (t - t0);

    // Newton on the universal Kepler equation; the series are written out because
    // this loop runs inside every force evaluation.
    double s = Single(0.01);
    double C2 = 0.5, C3 = 1.0 / 6.0;
    for (int round = 0; round < kMaxRounds; ++round) {
        const double x = Single(alpha * (s * s));
        const double x2 = Single(x * x);
        const double x4 = Single(x2 * x2);
        const double x6 = Single(x4 * x2);
        const double x8 = Single(x4 * x4);
        const double x3 = x2 * x, x5 = x4 * x, x7 = x6 * x, x9 = x8 * x, x10 = x4 * x6;
        C2 = 0.5 - x / 24.0 + x2 / 720.0 - x3 / 40320.0 + x4 / 3628800.0 - x5 / 479001600.0 +
             x6 / 87178291200.0 - x7 / 20922789888000.0 + x8 / 6.402373705728e+15 - x9 / 2.43290200817664e+18 +
             x10 / 1.1240007277776077e+21;
        C3 = 1.0 / 6.0 - x / 120.0 + x2 / 5040.0 - x3 / 362880.0 + x4 / 39916800.0 - x5 / 6227020800.0 +
             x6 / 1307674368000.0 - x7 / 355687428096000.0 + x8 / 1.21645100408832e+17 -
             x9 / 5.109094217170944e+19 + x10 / 2.585201673888498e+22;
        const double c = s * (1.0 - r0 * alpha);
        const double F = ((sigma0 * C2 + C3 * c) * s + r0) * s - delta;
        const double dF = (s - x * s * C3) * sigma0 + r0 + c * s * C2;
        const double next = s - F / dF;
        // On convergence s keeps the value that C2 and C3 were computed for.
        if (std::fabs(s - next) <= 5e-16) break;
        s = next;
    }

    const double s2 = s * s;
    const double f = 1.0 - (s2 / r0) * C2;
    const double g = (t - t0) - (s2 / k) * C3 * s;
    StateVector out;
    out.x = f * start.x + g * start.vx;
    out.y = f * start.y + g * start.vy;
    out.z = f * start.z + g * start.vz;
    const double r = std::sqrt(out.x * out.x + out.y * out.y + out.z * out.z);
    const double fDot = (alpha * C3 * (s2 * s) - s) * ((k / r) / r0);
    const double gDot = 1.0 - C2 * (s2 / r);
    out.vx = fDot * start.x + gDot * start.vx;
    out.vy = fDot * start.y + gDot * start.vy;
    out.vz = fDot * start.z + gDot * start.vz;
    return out;
}

}  // namespace orvane
