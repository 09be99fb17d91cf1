// The fine pass over one step that turns the book's coarse minimum into the
// distance and time of closest approach, on the plain N-body equation.
#include <cmath>
#include <limits>

#include "astro/constants.h"
#include "dynamics/force_model.h"

namespace orvane {

namespace {

constexpr int kRefineSteps = 100;

double DistanceTo(const Vector3& r, int body, const BodyStatesResult& bodies) {
    if (body == 0) return std::sqrt(r[0] * r[0] + r[1] * r[1] + r[2] * r[2]);
    const Vector3& R = bodies.position[static_cast<std::size_t>(body - 1)];
    const double dx = r[0] - R[0], dy = r[1] - R[1], dz = r[2] - R[2];
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

struct Phase {
    Vector3 r;
    Vector3 v;
};

}  // namespace

Vector3 ForceModel::PlainForce(const Vector3& r, const BodyStatesResult& bodies) const {
    const double rLength = std::sqrt(r[0] * r[0] + r[1] * r[1] + r[2] * r[2]);
    const double r3 = rLength * rLength * rLength;
    Vector3 a{};
    for (std::size_t k = 0; k < 3; ++k) a[k] = -kGaussSquared * r[k] / r3;
    for (int body = 1; body <= 10; ++body) {
        const Vector3& R = bodies.position[static_cast<std::size_t>(body - 1)];
        const double dx = r[0] - R[0], dy = r[1] - R[1], dz = r[2] - R[2];
        const double delta = std::sqrt(dx * dx + dy * dy + dz * dz);
        const double bodyDistance = std::sqrt(R[0] * R[0] + R[1] * R[1] + R[2] * R[2]);
        const double delta3 = delta * delta * delta;
        const double body3 = bodyDistance * bodyDistance * bodyDistance;
        const double gm = masses_[static_cast<std::size_t>(body)];
        for (std::size_t k = 0; k < 3; ++k) a[k] += gm * ((R[k] - r[k]) / delta3 - R[k] / body3);
    }
    return a;
}

std::array<double, 6> ForceModel::PlainAcceleration(const Vector3& r, const Vector3& v, double t) {
    ephemeris_.BodyStates(t + runEpoch_, refinePlanets_);
    const Vector3 a = PlainForce(r, refinePlanets_);
    return {v[0], v[1], v[2], a[0], a[1], a[2]};
}

ClosestApproach ForceModel::RefineClosestApproach(double t, double h, const Vector3& r,
                                                  const Vector3& v, int body) {
    // Only the Sun (0) and bodies 1 to 10 have a place here.
    if (body < 0 || body > 10) return {t, std::numeric_limits<double>::quiet_NaN()};
    const double step = h / kRefineSteps;
    Phase y{r, v};
    ephemeris_.BodyStates(t + runEpoch_, refinePlanets_);
    ClosestApproach best{t, DistanceTo(r, body, refinePlanets_)};

    // Slope of the phase (r, v) at time tau; the planets of the last call stay
    // in refinePlanets_ for the distance at the end of the step.
    auto slope = [&](double tau, const Phase& p) {
        ephemeris_.BodyStates(tau + runEpoch_, refinePlanets_);
        return Phase{p.v, PlainForce(p.r, refinePlanets_)};
    };
    auto advance = [](const Phase& p, const Phase& d, double by) {
        Phase out;
        for (std::size_t k = 0; k < 3; ++k) {
            out.r[k] = p.r[k] + by * d.r[k];
            out.v[k] = p.v[k] + by * d.v[k];
        }
        return out;
    };

    for (int n = 0; n < kRefineSteps; ++n) {
        const double tn = t + n * step;
        const Phase k1 = slope(tn, y);
        const Phase k2 = slope(tn + step / 2.0, advance(y, k1, step / 2.0));
        const Phase k3 = slope(tn + step / 2.0, advance(y, k2, step / 2.0));
        const Phase k4 = slope(tn + step, advance(y, k3, step));
        for (std::size_t k = 0; k < 3; ++k) {
            y.r[k] += step / 6.0 * (k1.r[k] + 2.0 * k2.r[k] + 2.0 * k3.r[k] + k4.r[k]);
            y.v[k] += step / 6.0 * (k1.v[k] + 2.0 * k2.v[k] + 2.0 * k3.v[k] + k4.v[k]);
        }
        const double d = DistanceTo(y.r, body, refinePlanets_);
        if (d < best.dMin) {
            best.dMin = d;
            best.tMin = tn + step;
        }
    }
    return best;
}

}  // namespace orvane
