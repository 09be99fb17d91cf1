#include "dynamics/force_model.h"

#include <cmath>

#include "astro/universal.h"
#include "dynamics/encke.h"

namespace orvane {

namespace {

double Length(const Vector3& a) { return std::sqrt(a[0] * a[0] + a[1] * a[1] + a[2] * a[2]); }

double Dot(const Vector3& a, const Vector3& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

}  // namespace

Vector3 SunRelativityTerm(const Vector3& r, const Vector3& v) {
    const double rLength = Length(r);
    const double v2 = Dot(v, v);
    const double rv = Dot(r, v);
    const double r3 = rLength * rLength * rLength;
    Vector3 a{};
    for (std::size_t k = 0; k < 3; ++k) {
        a[k] = kGaussSquaredOverLightSquared *
               (kFourGaussSquared * r[k] / rLength - v2 * r[k] + 4.0 * rv * v[k]) / r3;
    }
    return a;
}

ForceModel::ForceModel(Ephemeris& ephemeris) : ephemeris_(ephemeris) {
    masses_ = ephemeris.masses().bodyMass;
}

void ForceModel::SetReferenceOrbit(const ReferenceOrbit& orbit) {
    reference_ = orbit;
    referenceDouble_ = StateVector{static_cast<double>(orbit.r[0]), static_cast<double>(orbit.r[1]),
                                   static_cast<double>(orbit.r[2]), static_cast<double>(orbit.v[0]),
                                   static_cast<double>(orbit.v[1]), static_cast<double>(orbit.v[2])};
    referenceEpochDouble_ = static_cast<double>(orbit.t0);
}

namespace {
constexpr std::array<int, 13> kPerturberPositions = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 0, 0};
}  // namespace

void ForceModel::FetchPlanets(double jd) {
    const long long generation = ephemeris_.generation();
    for (const PlanetPlaces& p : kept_) {
        if (p.jd == jd && p.generation == generation) {
            planets_ = p.states;
            ephemerisStatus_ = p.status;
            return;
        }
    }
    ++planetFetches_;
    ephemerisStatus_ = ephemeris_.BodyStates(jd, planets_, kPerturberPositions);
    // A failed read is not kept: asked again, the reader answers from the
    // buffer it kept, and so must the force.
    if (ephemerisStatus_ != EphemerisStatus::Ok) return;
    PlanetPlaces& slot = kept_[nextKept_];
    nextKept_ = (nextKept_ + 1) % kKeptPlaces;
    slot.jd = jd;
    slot.generation = generation;
    slot.status = ephemerisStatus_;
    slot.states = planets_;
}

void ForceModel::EvaluateForce(const Vector3& dr, const Vector3& dv, double t, Vector3& a) {
    ++evaluations_;

    // 1. Planets relative to the Sun.
    FetchPlanets(t + runEpoch_);

    // 2. Reference orbit at t, and the true place.
    const StateVector ref = PropagateUniversal(referenceDouble_, referenceEpochDouble_, t);
    ++propagations_;
    const Vector3 rho = {ref.x, ref.y, ref.z};
    const Vector3 r = {ref.x + dr[0], ref.y + dr[1], ref.z + dr[2]};
    const Vector3 v = {ref.vx + dv[0], ref.vy + dv[1], ref.vz + dv[2]};

    // 3. The Sun on the deviation.
    a = EnckeCentralTerm(rho, dr);

    // 4. Perturbers, each with its indirect term, the Moon included.
    for (int body = 1; body <= 10; ++body) {
        const auto i = static_cast<std::size_t>(body - 1);
        const Vector3& R = planets_.position[i];
        const Vector3 d = {r[0] - R[0], r[1] - R[1], r[2] - R[2]};
        const double delta = Length(d);
        if (body <= 9 && hook_ != nullptr) hook_->WatchDistance(body, delta, t);
        const double rLength = Length(R);
        const double delta3 = delta * delta * delta;
        const double r3 = rLength * rLength * rLength;
        const double gm = masses_[static_cast<std::size_t>(body)];
        for (std::size_t k = 0; k < 3; ++k) a[k] += gm * ((R[k] - r[k]) / delta3 - R[k] / r3);
    }

    // 5. The Sun's relativity.
    if (relativity_) {
        const Vector3 rel = SunRelativityTerm(r, v);
        for (std::size_t k = 0; k < 3; ++k) a[k] += rel[k];
    }

    // 6. Distance for the outgassing law: the true one, or that of the bare
    //    reference orbit NGE_DT days later.
    double lawDistance = Length(r);
    if (nonGravity_.dt != 0.0) {
        const StateVector shifted =
            PropagateUniversal(referenceDouble_, referenceEpochDouble_, t + nonGravity_.dt);
        ++propagations_;
        lawDistance = Length(Vector3{shifted.x, shifted.y, shifted.z});
    }

    // 7 to 9. The push itself. Zero parameters add zero, so the law and its
    // three powers are left out for them.
    if (nonGravity_.A1 != 0.0 || nonGravity_.A2 != 0.0 || nonGravity_.A3 != 0.0) {
        const Vector3 push = NonGravityAcceleration(r, v, NonGravityLaw(lawDistance), nonGravity_);
        for (std::size_t k = 0; k < 3; ++k) a[k] += push[k];
    }
}

}  // namespace orvane
