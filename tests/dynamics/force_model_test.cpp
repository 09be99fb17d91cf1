// The force model: Encke's central term, the perturbers and their book, the
// Sun's relativity, the outgassing law and its time offset, the fine pass of
// closest approach.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "astro/constants.h"
#include "astro/twobody.h"
#include "astro/universal.h"
#include "dynamics/encke.h"
#include "dynamics/ephemeris.h"
#include "dynamics/force_model.h"
#include "dynamics/nongrav.h"
#include "support/temp_home.h"

namespace orvane {
namespace {

__extension__ typedef __float128 Wide;

constexpr double kEpoch = 2451545.0;

ReferenceOrbit Reference(const StateVector& s, double t0) {
    ReferenceOrbit o;
    o.r = {Wide(s.x), Wide(s.y), Wide(s.z)};
    o.v = {Wide(s.vx), Wide(s.vy), Wide(s.vz)};
    o.t0 = t0;
    return o;
}

// q = 1.1 AU, e = 0.6, some 30 days before perihelion at kEpoch.
StateVector Comet() {
    const DerivedOrbit d = DerivedElements(kEpoch, kEpoch + 30.0, 1.1, 0.6);
    GaussianGravity gravity;
    return StateFromElements(1.1, 0.6, 70.0, 200.0, 15.0, d.M, d.a, 0.0, kObliquityJ2000, gravity);
}

class ForceModelTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(eph_.OpenEphemerisFile(testing::sharedPath("ephemerides/de405-1960-2060.dat")),
                  EphemerisStatus::Ok);
    }
    Ephemeris eph_;
};

struct Recorder : CloseApproachHook {
    void WatchDistance(int body, double delta, double t) override {
        bodies.push_back(body);
        deltas.push_back(delta);
        times.push_back(t);
    }
    std::vector<int> bodies;
    std::vector<double> deltas;
    std::vector<double> times;
};

TEST(EnckeTerm, VanishesWithoutDeviation) {
    EXPECT_EQ(EnckeFactor(0.0), 0.0);
    const Vector3 a = EnckeCentralTerm({0.3, -1.2, 0.4}, {0.0, 0.0, 0.0});
    EXPECT_EQ(a[0], 0.0);
    EXPECT_EQ(a[1], 0.0);
    EXPECT_EQ(a[2], 0.0);
}

TEST(EnckeTerm, EqualsTheDifferenceOfTheTwoAttractionsWithoutCancellation) {
    const Vector3 rho = {0.3, -1.2, 0.4};
    for (const double size : {1e-3, 1e-7, 1e-11}) {
        const Vector3 dr = {size, -2.0 * size, 0.5 * size};
        const Vector3 a = EnckeCentralTerm(rho, dr);
        // k^2 (rho/rho^3 - r/r^3) in binary128.
        const Wide k2 = Wide(2959122082855911LL) / Wide(1e19);
        Wide rho2 = 0, r2 = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            rho2 += Wide(rho[k]) * Wide(rho[k]);
            r2 += (Wide(rho[k]) + Wide(dr[k])) * (Wide(rho[k]) + Wide(dr[k]));
        }
        // Newton on the square root keeps all 113 bits without libquadmath.
        auto root = [](Wide x) {
            Wide y = std::sqrt(static_cast<double>(x));
            for (int i = 0; i < 4; ++i) y = (y + x / y) / 2;
            return y;
        };
        const Wide rho3 = rho2 * root(rho2), r3 = r2 * root(r2);
        for (std::size_t k = 0; k < 3; ++k) {
            const Wide exact = k2 * (Wide(rho[k]) / rho3 - (Wide(rho[k]) + Wide(dr[k])) / r3);
            EXPECT_NEAR(a[k], static_cast<double>(exact), 1e-14 * std::fabs(static_cast<double>(exact)))
                << "size " << size << " component " << k;
        }
    }
}

TEST(NonGravityLawTest, IsOneAtOneAu) {
    EXPECT_NEAR(NonGravityLaw(1.0), 0.99999962, 5e-9);
    EXPECT_DOUBLE_EQ(NonGravityLaw(1.0), 0.9999996194735064);
    // Steep beyond the ice line at 2.808 AU.
    EXPECT_LT(NonGravityLaw(5.0), 0.01);
}

TEST_F(ForceModelTest, FirstEvaluationOfAStepHoldsOnlyPerturbations) {
    ForceModel force(eph_);
    force.SetRunEpoch(kEpoch);
    const StateVector s = Comet();
    force.SetReferenceOrbit(Reference(s, 0.0));
    Vector3 a{};
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 0.0, a);

    // The same sum, written out here: planets with their indirect terms and
    // the Sun's relativity; the Sun's own pull is not in it.
    BodyStatesResult bodies;
    ASSERT_EQ(eph_.BodyStates(kEpoch, bodies), EphemerisStatus::Ok);
    const Vector3 r = {s.x, s.y, s.z}, v = {s.vx, s.vy, s.vz};
    Vector3 expected = SunRelativityTerm(r, v);
    for (int body = 1; body <= 10; ++body) {
        const auto& R = bodies.position[static_cast<std::size_t>(body - 1)];
        const double d = std::hypot(r[0] - R[0], r[1] - R[1], r[2] - R[2]);
        const double rr = std::hypot(R[0], R[1], R[2]);
        const double gm = eph_.masses().bodyMass[static_cast<std::size_t>(body)];
        for (std::size_t k = 0; k < 3; ++k) {
            expected[k] += gm * ((R[k] - r[k]) / (d * d * d) - R[k] / (rr * rr * rr));
        }
    }
    for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(a[k], expected[k], 1e-14 * std::fabs(expected[k]));
    // Perturbations only: some 1e-8 of the Sun's pull here.
    const double sun = kGaussSquared / (1.2 * 1.2);
    EXPECT_LT(std::hypot(a[0], a[1], a[2]), 1e-4 * sun);

    // With the planets weightless and relativity off nothing is left.
    force.SetPlanetMasses(PlanetMasses{});
    force.SetSunRelativity(false);
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 0.0, a);
    EXPECT_EQ(a[0], 0.0);
    EXPECT_EQ(a[1], 0.0);
    EXPECT_EQ(a[2], 0.0);
}

TEST_F(ForceModelTest, WithoutTimeOffsetNoSecondPropagation) {
    ForceModel force(eph_);
    force.SetRunEpoch(kEpoch);
    force.SetReferenceOrbit(Reference(Comet(), 0.0));
    NonGravity ng;
    ng.A1 = 1.5;
    ng.A2 = -0.2;
    force.SetNonGravity(ng);
    Vector3 a{};
    force.EvaluateForce({1e-6, 0, 0}, {0, 1e-8, 0}, 3.0, a);
    force.EvaluateForce({1e-6, 0, 0}, {0, 1e-8, 0}, 4.0, a);
    EXPECT_EQ(force.evaluations(), 2);
    EXPECT_EQ(force.propagations(), 2);
}

TEST_F(ForceModelTest, ZeroParametersWithTimeOffsetCostAPropagationAndChangeNothing) {
    ForceModel plain(eph_), offset(eph_);
    for (ForceModel* f : {&plain, &offset}) {
        f->SetRunEpoch(kEpoch);
        f->SetReferenceOrbit(Reference(Comet(), 0.0));
    }
    NonGravity ng;
    ng.dt = 25.0;
    offset.SetNonGravity(ng);
    Vector3 a{}, b{};
    plain.EvaluateForce({2e-7, -1e-7, 3e-7}, {1e-9, 0, 0}, 2.5, a);
    offset.EvaluateForce({2e-7, -1e-7, 3e-7}, {1e-9, 0, 0}, 2.5, b);
    EXPECT_EQ(plain.propagations(), 1);
    EXPECT_EQ(offset.propagations(), 2);
    EXPECT_EQ(a, b);
}

TEST_F(ForceModelTest, OutgassingUsesTheTrueDirectionsAndTheShiftedReferenceDistance) {
    const StateVector s = Comet();
    const Vector3 dr = {1e-4, 2e-4, -1e-4}, dv = {1e-6, 0, 2e-6};
    const double t = 6.0;
    for (const double dt : {0.0, -40.0}) {
        ForceModel bare(eph_), pushed(eph_);
        NonGravity ng;
        ng.A1 = 2.0;
        ng.A2 = 0.5;
        ng.A3 = -1.0;
        ng.dt = dt;
        NonGravity none;
        none.dt = dt;
        bare.SetNonGravity(none);
        pushed.SetNonGravity(ng);
        Vector3 a{}, b{};
        for (auto [f, out] : {std::pair{&bare, &a}, std::pair{&pushed, &b}}) {
            f->SetRunEpoch(kEpoch);
            f->SetReferenceOrbit(Reference(s, 0.0));
            f->EvaluateForce(dr, dv, t, *out);
        }
        const StateVector ref = PropagateUniversal(s, 0.0, t);
        const Vector3 r = {ref.x + dr[0], ref.y + dr[1], ref.z + dr[2]};
        const Vector3 v = {ref.vx + dv[0], ref.vy + dv[1], ref.vz + dv[2]};
        const StateVector shifted = PropagateUniversal(s, 0.0, t + dt);
        const double distance = dt == 0.0 ? std::hypot(r[0], r[1], r[2])
                                          : std::hypot(shifted.x, shifted.y, shifted.z);
        const Vector3 expected = NonGravityAcceleration(r, v, NonGravityLaw(distance), ng);
        for (std::size_t k = 0; k < 3; ++k) {
            EXPECT_NEAR(b[k] - a[k], expected[k], 1e-20) << "dt " << dt << " component " << k;
        }
    }
    // The directions: A1 alone pushes straight out from the Sun.
    const Vector3 r = {1.0, 2.0, 2.0}, v = {0.0, 0.01, 0.0};
    NonGravity radial;
    radial.A1 = 1.0;
    const Vector3 a = NonGravityAcceleration(r, v, 0.5, radial);
    EXPECT_DOUBLE_EQ(a[0], 0.5e-8 / 3.0);
    EXPECT_DOUBLE_EQ(a[1], 1e-8 / 3.0);
    EXPECT_DOUBLE_EQ(a[2], 1e-8 / 3.0);
    NonGravity normal;
    normal.A3 = 1.0;
    const Vector3 n = NonGravityAcceleration(r, v, 1.0, normal);
    // h = r x v = (-0.02, 0, 0.01).
    EXPECT_NEAR(n[0], -1e-8 * 2.0 / std::sqrt(5.0), 1e-22);
    EXPECT_EQ(n[1], 0.0);
    EXPECT_NEAR(n[2], 1e-8 / std::sqrt(5.0), 1e-22);
}

TEST_F(ForceModelTest, TheBookHearsPlanetsOneToNineButNotTheMoon) {
    ForceModel force(eph_);
    Recorder book;
    force.SetCloseApproachHook(&book);
    force.SetRunEpoch(kEpoch);
    const StateVector s = Comet();
    force.SetReferenceOrbit(Reference(s, 0.0));
    Vector3 a{};
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 0.0, a);
    ASSERT_EQ(book.bodies, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    BodyStatesResult bodies;
    eph_.BodyStates(kEpoch, bodies);
    for (std::size_t i = 0; i < 9; ++i) {
        const auto& R = bodies.position[i];
        EXPECT_DOUBLE_EQ(book.deltas[i], std::hypot(s.x - R[0], s.y - R[1], s.z - R[2]));
        EXPECT_EQ(book.times[i], 0.0);
    }
}

TEST_F(ForceModelTest, CometExactlyAtAPlanetOverflowsUnguarded) {
    ForceModel force(eph_);
    Recorder book;
    force.SetCloseApproachHook(&book);
    force.SetRunEpoch(kEpoch);
    BodyStatesResult bodies;
    eph_.BodyStates(kEpoch, bodies);
    const auto& jupiter = bodies.position[kJupiter - 1];
    // At rest in Jupiter's place, the reference orbit gives the place itself.
    force.SetReferenceOrbit(Reference(StateVector{jupiter[0], jupiter[1], jupiter[2], 0, 0, 0}, 0.0));
    Vector3 a{};
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 0.0, a);
    ASSERT_EQ(book.deltas.size(), 9u);
    EXPECT_EQ(book.deltas[kJupiter - 1], 0.0);
    EXPECT_FALSE(std::isfinite(a[0]) && std::isfinite(a[1]) && std::isfinite(a[2]));
}

TEST_F(ForceModelTest, PlainAccelerationIsTheSunPlusThePerturbers) {
    ForceModel force(eph_);
    force.SetRunEpoch(kEpoch);
    force.SetSunRelativity(false);
    const StateVector s = Comet();
    force.SetReferenceOrbit(Reference(s, 0.0));
    Vector3 perturbers{};
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 0.0, perturbers);
    const auto d = force.PlainAcceleration({s.x, s.y, s.z}, {s.vx, s.vy, s.vz}, 0.0);
    EXPECT_EQ(d[0], s.vx);
    EXPECT_EQ(d[1], s.vy);
    EXPECT_EQ(d[2], s.vz);
    const double r = std::hypot(s.x, s.y, s.z);
    const double sun[3] = {-kGaussSquared * s.x / (r * r * r), -kGaussSquared * s.y / (r * r * r),
                           -kGaussSquared * s.z / (r * r * r)};
    for (std::size_t k = 0; k < 3; ++k) {
        EXPECT_NEAR(d[3 + k] - sun[k], perturbers[k], 1e-19);
    }
}

TEST_F(ForceModelTest, RefinedPerihelionOfAWeightlessSystem) {
    ForceModel force(eph_);
    force.SetRunEpoch(kEpoch);
    force.SetPlanetMasses(PlanetMasses{});
    // Perihelion 4.3 days after the saved place; the pass covers 10 days.
    const double q = 0.9, e = 0.7;
    const DerivedOrbit d = DerivedElements(kEpoch, kEpoch + 4.3, q, e);
    GaussianGravity gravity;
    const StateVector s = StateFromElements(q, e, 10.0, 20.0, 30.0, d.M, d.a, 0.0, kObliquityJ2000, gravity);
    const ClosestApproach sun = force.RefineClosestApproach(0.0, 10.0, {s.x, s.y, s.z}, {s.vx, s.vy, s.vz}, 0);
    // The grid is 0.1 day; the Kepler orbit is 4.3 days on.
    EXPECT_NEAR(sun.tMin, 4.3, 1e-9);
    EXPECT_GE(sun.dMin, q - 1e-9);
    EXPECT_LT(sun.dMin, q + 1e-9);
    // Backward from after perihelion, on a negative step.
    const ClosestApproach back = force.RefineClosestApproach(0.0, -10.0, {s.x, s.y, s.z}, {s.vx, s.vy, s.vz}, 0);
    EXPECT_EQ(back.tMin, 0.0);
    EXPECT_DOUBLE_EQ(back.dMin, std::hypot(s.x, s.y, s.z));
    // No body 11 to approach.
    EXPECT_TRUE(std::isnan(force.RefineClosestApproach(0.0, 10.0, {s.x, s.y, s.z}, {0, 0, 0}, 11).dMin));
}

// The book may refine a passage from inside a force evaluation; that must not
// disturb the evaluation it is called from.
struct RefiningBook : CloseApproachHook {
    explicit RefiningBook(ForceModel& f) : force(f) {}
    void WatchDistance(int body, double, double t) override {
        const StateVector& s = force.referenceState();
        force.RefineClosestApproach(t - 30.0, 20.0, {s.x, s.y, s.z}, {s.vx, s.vy, s.vz}, body);
    }
    ForceModel& force;
};

TEST_F(ForceModelTest, RefiningFromInsideTheEvaluationLeavesItAlone) {
    ForceModel quiet(eph_), busy(eph_);
    RefiningBook book(busy);
    busy.SetCloseApproachHook(&book);
    Vector3 a{}, b{};
    for (auto [f, out] : {std::pair{&quiet, &a}, std::pair{&busy, &b}}) {
        f->SetRunEpoch(kEpoch);
        f->SetReferenceOrbit(Reference(Comet(), 0.0));
        f->EvaluateForce({1e-5, 0, 0}, {0, 0, 1e-7}, 1.0, *out);
    }
    EXPECT_EQ(a, b);
}


TEST_F(ForceModelTest, PlanetsAtAnInstantAskedAgainAreServedWithoutAFetch) {
    ForceModel force(eph_);
    force.SetRunEpoch(kEpoch);
    force.SetReferenceOrbit(Reference(Comet(), 0.0));
    Vector3 first{}, again{};
    force.EvaluateForce({1e-6, 0, 0}, {0, 0, 0}, 0.25, first);
    EXPECT_EQ(force.planetFetches(), 1);
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 0.5, again);
    EXPECT_EQ(force.planetFetches(), 2);
    force.EvaluateForce({1e-6, 0, 0}, {0, 0, 0}, 0.25, again);
    EXPECT_EQ(force.planetFetches(), 2);
    EXPECT_EQ(force.evaluations(), 3);
    // Bit for bit what the fetch gave.
    EXPECT_EQ(again, first);
    BodyStatesResult direct;
    ASSERT_EQ(eph_.BodyStates(kEpoch + 0.25, direct), EphemerisStatus::Ok);
    for (std::size_t i = 0; i < 10; ++i) EXPECT_EQ(force.planets().position[i], direct.position[i]);
}

TEST_F(ForceModelTest, TheForceAsksForThePerturbersPlacesOnly) {
    ForceModel force(eph_);
    force.SetRunEpoch(kEpoch);
    force.SetReferenceOrbit(Reference(Comet(), 0.0));
    Vector3 a{};
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 1.0, a);
    BodyStatesResult direct;
    ASSERT_EQ(eph_.BodyStates(kEpoch + 1.0, direct), EphemerisStatus::Ok);
    for (std::size_t i = 0; i < 10; ++i) {
        EXPECT_EQ(force.planets().position[i], direct.position[i]) << "body " << i + 1;
        EXPECT_EQ(force.planets().velocity[i], (std::array<double, 3>{0.0, 0.0, 0.0}));
    }
    // The reader's own request flags are the other callers'; they leave the force alone.
    eph_.requestFlags().fill(0);
    Vector3 again{};
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 2.0, again);
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 1.0, again);
    EXPECT_EQ(again, a);
}

TEST_F(ForceModelTest, KeptPlanetsFollowTheFile) {
    ForceModel force(eph_);
    force.SetRunEpoch(kEpoch);
    force.SetReferenceOrbit(Reference(Comet(), 0.0));
    Vector3 a{};
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 1.0, a);
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 1.0, a);
    EXPECT_EQ(force.planetFetches(), 1);
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 1.5, a);
    EXPECT_EQ(force.planetFetches(), 2);
    ASSERT_EQ(eph_.OpenEphemerisFile(testing::sharedPath("ephemerides/de405-1960-2060.dat")),
              EphemerisStatus::Ok);
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 1.0, a);
    EXPECT_EQ(force.planetFetches(), 3);
}

TEST_F(ForceModelTest, AFailedFetchIsAskedAgain) {
    ForceModel force(eph_);
    force.SetRunEpoch(2400000.5);  // before the file
    force.SetReferenceOrbit(Reference(Comet(), 0.0));
    Vector3 a{};
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 0.0, a);
    EXPECT_NE(force.ephemerisStatus(), EphemerisStatus::Ok);
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 0.0, a);
    EXPECT_EQ(force.planetFetches(), 2);
}

}  // namespace
}  // namespace orvane
