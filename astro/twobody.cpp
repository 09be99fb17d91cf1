#include "astro/twobody.h"

#include <cmath>

#include "astro/kepler.h"

namespace orvane {

namespace {

bool OutOfRange(double angle) { return angle > kTwoPi || angle < 0.0; }

// atan(num/den) placed in [0, 2pi) by the signs of its parts, the program's one
// quadrant rule: a negative numerator over a non-negative denominator adds 2pi,
// both non-negative add nothing, everything else adds pi.
double AtanByQuadrant(double num, double den) {
    const double angle = std::atan(num / den);
    if (num < 0.0 && den >= 0.0) return angle + kTwoPi;
    if (num >= 0.0 && den >= 0.0) return angle;
    return angle + kPi;
}

double NodeFromMomentum(double hx, double w) {
    if (w == 0.0) {
        if (hx == 0.0) return 0.0;
        return hx > 0.0 ? kHalfPi : kThreeHalvesPi;
    }
    return AtanByQuadrant(hx, w);
}

}  // namespace

double WrapTwoPi(double x) {
    double wrapped = x - std::trunc(x / kTwoPi) * kTwoPi;
    if (x < 0.0) wrapped += kTwoPi;
    return wrapped;
}

DerivedOrbit DerivedElements(double t, double Tp, double q, double e) {
    DerivedOrbit out;
    if (e == 1.0) {
        out.a = 0.0;
        out.n = -1.0;
        out.P = 0.0;
        out.Q = 0.0;
        out.M = (t - Tp) * kGaussOverSqrt2 / std::sqrt(q * q * q) * kDegreesPerRadian;
        return out;
    }
    const double a0 = q / std::fabs(1.0 - e);
    const double n0 = kGauss / std::sqrt(a0 * a0 * a0);
    double M0 = (t - Tp) * n0;
    if (e < 1.0) {
        if (OutOfRange(M0)) M0 = WrapTwoPi(M0);
        out.a = a0;
        out.P = std::sqrt(a0) * a0;
        out.Q = q * (1.0 + e) / (1.0 - e);
        out.n = n0 * kDegreesPerRadian;
        out.M = M0 * kDegreesPerRadian;
        return out;
    }
    out.a = -a0;
    out.P = 0.0;
    out.Q = 0.0;
    out.n = -1.0;
    out.M = M0 * kDegreesPerRadian;
    return out;
}

OrbitElements ElementsFromState(double t, const StateVector& state, double mu, double eps) {
    OrbitElements el;
    const double x = state.x, vx = state.vx;
    const double r = std::sqrt(state.x * state.x + state.y * state.y + state.z * state.z);
    const double v = std::sqrt(state.vx * state.vx + state.vy * state.vy + state.vz * state.vz);
    const double sigma = state.x * state.vx + state.y * state.vy + state.z * state.vz;

    const double ce = std::cos(eps), se = std::sin(eps);
    const double y = state.y * ce + state.z * se;
    const double z = state.z * ce - state.y * se;
    const double vy = state.vy * ce + state.vz * se;
    const double vz = state.vz * ce - state.vy * se;

    const double hx = y * vz - z * vy;
    const double w = x * vz - vx * z;  // -hy
    const double hz = x * vy - vx * y;
    const double h = std::sqrt(hx * hx + w * w + hz * hz);
    const double rootMu = std::sqrt(mu);
    const double p = (h / rootMu) * (h / rootMu);

    const double D = 2.0 * mu - v * v * r;
    const bool parabola = std::fabs(D) <= 1e-14;
    const double a = parabola ? 0.0 : mu * r / D;

    double incl = std::acos(hz / h);
    if (OutOfRange(incl)) incl = WrapTwoPi(incl);
    const double node = NodeFromMomentum(hx, w);
    // An orbit in the ecliptic has sin i = 0 here; the quotient is left to the arithmetic.
    const double u = AtanByQuadrant(z / std::sin(incl), x * std::cos(node) + y * std::sin(node));

    double omega = 0.0;
    double M = 0.0;
    if (parabola) {
        const double tau = sigma / (std::sqrt(p) * rootMu);
        const double nu = 2.0 * std::atan(tau);
        el.a = 0.0;
        el.n = -1.0;
        el.P = 0.0;
        el.Q = 0.0;
        el.e = 1.0;
        el.q = p / 2.0;
        omega = WrapTwoPi(u - nu);
        const double B = (kSqrt2 / rootMu) * (tau + tau * tau * tau / 3.0);
        // The program divides the scaled time by sqrt(q^3) here, where the time since
        // perihelion would need a product; only q = 1 gives the true perihelion time.
        el.Tp = t - B / std::sqrt(el.q * el.q * el.q);
        M = B;
    } else {
        const double nu = AtanByQuadrant((h / mu) * sigma, p - r);
        const double e = (p - r) / (r * std::cos(nu));
        el.a = a;
        el.e = e;
        el.q = a * (1.0 - e);
        omega = u - nu;
        if (OutOfRange(omega)) omega = WrapTwoPi(omega);
        const double n0 = rootMu / std::sqrt(std::fabs(a * a * a));
        if (e >= 1.0) {
            const double H = 2.0 * std::atanh(std::sqrt((e - 1.0) / (e + 1.0)) * std::tan(nu / 2.0));
            M = e * std::sinh(H) - H;
            el.P = 0.0;
            el.Q = 0.0;
            el.Tp = t - M / n0;
            el.n = -1.0;
        } else {
            const double E = 2.0 * std::atan(std::sqrt((1.0 - e) / (1.0 + e)) * std::tan(nu / 2.0));
            M = E - e * std::sin(E);
            if (OutOfRange(M)) M = WrapTwoPi(M);
            el.P = std::sqrt(el.q / (1.0 - e)) * el.q / (1.0 - e);
            el.Q = el.q * (1.0 + e) / (1.0 - e);
            // Always the nearest perihelion: past it in the first half of the orbit, ahead of it in the second.
            el.Tp = M <= kPi ? t - M / n0 : t - (M - kTwoPi) / n0;
            el.n = n0;
        }
    }
    el.omega = omega * kDegreesPerRadian;
    el.node = node * kDegreesPerRadian;
    el.i = incl * kDegreesPerRadian;
    el.M = M * kDegreesPerRadian;
    el.n = el.n * kDegreesPerRadian;
    return el;
}

StateVector StateFromElements(double q, double e, double omega, double node, double i, double M,
                              double a, double massFactor, double eps, GaussianGravity& gravity) {
    if (massFactor > 0.0) gravity.k = gravity.k * std::sqrt(1.0 / massFactor);

    const double s = SolveKepler(M / kDegreesPerRadian, e, 1e-15);
    const KeplerBranch branch = SelectKeplerBranch(e);
    double half = 0.0;
    if (branch == KeplerBranch::Parabola || branch == KeplerBranch::NearParabola) {
        half = std::atan(s);
    } else if (e > 1.0) {
        half = std::atan(std::sqrt((e + 1.0) / (e - 1.0)) * std::tanh(s / 2.0));
    } else {
        half = std::atan(std::sqrt((1.0 + e) / (1.0 - e)) * std::tan(s / 2.0));
    }
    const double nu = 2.0 * half;

    const double p = e == 1.0 ? 2.0 * q : (1.0 - e * e) * a;
    const double cosNu = std::cos(nu);
    const double r = p / (1.0 + e * cosNu);
    const double f = gravity.k / std::sqrt(p);
    const double radialSpeed = f * e * std::sin(nu);
    const double transverseSpeed = f * (1.0 + e * cosNu);

    const double u = omega / kDegreesPerRadian + nu;
    const double cu = std::cos(u), su = std::sin(u);
    const double cn = std::cos(node / kDegreesPerRadian), sn = std::sin(node / kDegreesPerRadian);
    const double ci = std::cos(i / kDegreesPerRadian), si = std::sin(i / kDegreesPerRadian);

    // Unit vectors towards the body and along its motion, in the ecliptic frame.
    const double rx = cu * cn - su * sn * ci, ry = cu * sn + su * cn * ci, rz = su * si;
    const double tx = -su * cn - cu * sn * ci, ty = -su * sn + cu * cn * ci, tz = cu * si;

    const double x = r * rx, y = r * ry, z = r * rz;
    const double vx = radialSpeed * rx + transverseSpeed * tx;
    const double vy = radialSpeed * ry + transverseSpeed * ty;
    const double vz = radialSpeed * rz + transverseSpeed * tz;

    const double ce = std::cos(eps), se = std::sin(eps);
    StateVector state;
    state.x = x;
    state.y = y * ce - z * se;
    state.z = y * se + z * ce;
    state.vx = vx;
    state.vy = vy * ce - vz * se;
    state.vz = vy * se + vz * ce;
    return state;
}

}  // namespace orvane
