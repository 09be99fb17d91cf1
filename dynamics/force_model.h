#pragma once
// The comet's acceleration for the integrator, in Encke's form: what is
// integrated is the deviation from a two-body reference orbit about the Sun,
// and the reference orbit is rebuilt after every step. The same routine sees
// every place the integrator tries and reports the distances to the planets to
// the close-approach book.
//
// A ForceModel is the force part of one calculation run: it holds the
// reference orbit, the start epoch, the comet's non-gravitational values, the
// planets' masses and its own scratch, and is used by one thread at a time.
#include <array>

#include "astro/twobody.h"
#include "astro/universal_quad.h"
#include "dynamics/closest_approach.h"
#include "dynamics/ephemeris.h"
#include "dynamics/nongrav.h"

namespace orvane {

using Vector3 = std::array<double, 3>;

// The two-body orbit the deviation is measured from, in binary128: position,
// velocity and epoch t0 in days since the run's start epoch.
struct ReferenceOrbit {
    std::array<Quad, 3> r{};
    std::array<Quad, 3> v{};
    Quad t0 = 0;
};

// The close-approach book of the calculation run. It is told the distance of
// every place the integrator tries, trial places and substeps included.
class CloseApproachHook {
public:
    // body 1 to 9, delta in AU, t in days since the run's start epoch.
    virtual void WatchDistance(int body, double delta, double t) = 0;

protected:
    ~CloseApproachHook() = default;
};

// The Sun's post-Newtonian term (k^2/c^2 r^3)(4 k^2 r/|r| - v^2 r + 4 (r.v) v).
inline constexpr double kGaussSquaredOverLightSquared = 9.8709893e-09;
inline constexpr double kFourGaussSquared = 0.0011836488331423644;
Vector3 SunRelativityTerm(const Vector3& r, const Vector3& v);

// Body masses GM in AU^3/day^2, index 1 to 10 (Mercury .. Pluto, Moon).
using PlanetMasses = std::array<double, 11>;

class ForceModel {
public:
    // Masses are taken from the file's constants; the file must stay open for
    // the life of the run.
    explicit ForceModel(Ephemeris& ephemeris);
    ForceModel(const ForceModel&) = delete;
    ForceModel& operator=(const ForceModel&) = delete;

    void SetRunEpoch(double jd) { runEpoch_ = jd; }
    double runEpoch() const { return runEpoch_; }

    void SetNonGravity(const NonGravity& ng) { nonGravity_ = ng; }
    const NonGravity& nonGravity() const { return nonGravity_; }

    void SetReferenceOrbit(const ReferenceOrbit& orbit);
    const ReferenceOrbit& referenceOrbit() const { return reference_; }
    // The reference orbit in double, as the force evaluations use it.
    const StateVector& referenceState() const { return referenceDouble_; }
    double referenceEpoch() const { return referenceEpochDouble_; }

    // Size of the last accepted integrator step, signed; 1.0 before the first.
    void SetLastStep(double step) { lastStep_ = step; }
    double lastStep() const { return lastStep_; }

    // Replaces the file's masses for this run only (zero masses leave the
    // Sun alone).
    void SetPlanetMasses(const PlanetMasses& masses) { masses_ = masses; }
    const PlanetMasses& planetMasses() const { return masses_; }

    // The program always has the Sun's relativity term on; checks against pure
    // two-body motion switch it off.
    void SetSunRelativity(bool on) { relativity_ = on; }
    bool sunRelativity() const { return relativity_; }

    void SetCloseApproachHook(CloseApproachHook* hook) { hook_ = hook; }

    // Second derivative of the deviation dr at t days since the start epoch,
    // with dv its rate. Fixed order: planets, reference orbit, central term,
    // the ten perturbers (close-approach book for 1 to 9), the Sun's
    // relativity, the non-gravitational term.
    void EvaluateForce(const Vector3& dr, const Vector3& dv, double t, Vector3& a);

    // Fourth-order Runge-Kutta in 100 steps of h/100 from the place (t, r, v)
    // on the plain N-body equation (no relativity, no non-gravitational push);
    // the smallest distance to `body` (0 the Sun, 1 to 10) and its time.
    ClosestApproach RefineClosestApproach(double t, double h, const Vector3& r, const Vector3& v,
                                          int body);

    // The right-hand side of that equation at t: velocity and acceleration.
    std::array<double, 6> PlainAcceleration(const Vector3& r, const Vector3& v, double t);

    // Counters for tests and measurements.
    long long evaluations() const { return evaluations_; }
    // BodyStates calls that EvaluateForce made (the others were served again
    // from the places it kept).
    long long planetFetches() const { return planetFetches_; }
    long long propagations() const { return propagations_; }
    // Status of the last planet fetch of EvaluateForce; the integration goes on
    // whatever it is, with the earlier planet places standing after a failure.
    EphemerisStatus ephemerisStatus() const { return ephemerisStatus_; }
    const BodyStatesResult& planets() const { return planets_; }

private:
    // The planets at one instant, as BodyStates gave them.
    struct PlanetPlaces {
        double jd = 0.0;
        long long generation = -1;
        EphemerisStatus status = EphemerisStatus::Ok;
        BodyStatesResult states;
    };
    // The force needs the places of the ten perturbers and nothing else, so it
    // asks for positions only: their velocities would be computed for nobody.
    // The iterations of a sequence ask for the planets at the same substep
    // times again; those places are kept and served without a new fetch.
    void FetchPlanets(double jd);

    // N-body acceleration of the plain equation with planets from `bodies`.
    Vector3 PlainForce(const Vector3& r, const BodyStatesResult& bodies) const;

    Ephemeris& ephemeris_;
    PlanetMasses masses_{};
    double runEpoch_ = 0.0;
    NonGravity nonGravity_;
    ReferenceOrbit reference_;
    StateVector referenceDouble_;
    double referenceEpochDouble_ = 0.0;
    double lastStep_ = 1.0;
    bool relativity_ = true;
    CloseApproachHook* hook_ = nullptr;

    BodyStatesResult planets_;      // of EvaluateForce
    BodyStatesResult refinePlanets_;  // of RefineClosestApproach and PlainAcceleration,
                                      // which the book may call from inside EvaluateForce
    EphemerisStatus ephemerisStatus_ = EphemerisStatus::Ok;
    static constexpr std::size_t kKeptPlaces = 8;
    std::array<PlanetPlaces, kKeptPlaces> kept_{};
    std::size_t nextKept_ = 0;
    long long planetFetches_ = 0;
    long long evaluations_ = 0;
    long long propagations_ = 0;
};

}  // namespace orvane
