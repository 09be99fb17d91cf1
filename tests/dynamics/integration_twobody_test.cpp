// The integrator against motion known without it. With the planets' masses set
// to zero in the run object:
// - and the Sun's relativity on, as the program always has it, the comet must
//   follow an independent long-double Bulirsch-Stoer solution of the same
//   equation (Sun plus relativity) to 1e-10 AU: twenty revolutions of an
//   ellipse, ten years of a near-parabola and of a hyperbola, forward and
//   backward;
// - and relativity off as well, nothing drives the deviation, so each
//   sequence is 1.5 times the one before and the comet rides on the binary128
//   rebuild alone: it must stay on the Kepler orbit for ten years of a
//   parabola, a near-parabola and a hyperbola.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "astro/constants.h"
#include "astro/twobody.h"
#include "dynamics/ephemeris.h"
#include "dynamics/force_model.h"
#include "dynamics/radau.h"
#include "support/temp_home.h"

namespace orvane {
namespace {

constexpr double kStartJd = 2440000.5;

struct Orbit {
    double Tp, q, e, omega, node, i;
};

StateVector StateAt(const Orbit& o, double jd) {
    const DerivedOrbit d = DerivedElements(jd, o.Tp, o.q, o.e);
    GaussianGravity gravity;
    return StateFromElements(o.q, o.e, o.omega, o.node, o.i, d.M, d.a, 0.0, kObliquityJ2000, gravity);
}

double Distance(const StateVector& a, const StateVector& b) {
    return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y) + (a.z - b.z) * (a.z - b.z));
}

// Sun and its relativity term in long double, integrated by Gragg's midpoint
// rule with polynomial extrapolation: nothing here is shared with the
// program's integrator or force model.
class BulirschStoer {
public:
    using Real = long double;
    struct Phase {
        Real y[6];
    };

    explicit BulirschStoer(const StateVector& s) : now_{{s.x, s.y, s.z, s.vx, s.vy, s.vz}} {}

    void AdvanceTo(double span) {
        while (time_ != span) {
            const Real r = std::sqrt(now_.y[0] * now_.y[0] + now_.y[1] * now_.y[1] + now_.y[2] * now_.y[2]);
            Real h = 0.02L * r * std::sqrt(r) / 0.01720209895L;
            const Real left = Real(span) - time_;
            if (std::fabs(left) <= h) h = std::fabs(left);
            const Real step = left < 0 ? -h : h;
            now_ = Extrapolated(now_, step);
            time_ = std::fabs(left) <= h ? Real(span) : time_ + step;
        }
    }

    StateVector state() const {
        return {double(now_.y[0]), double(now_.y[1]), double(now_.y[2]),
                double(now_.y[3]), double(now_.y[4]), double(now_.y[5])};
    }

private:
    static Phase Slope(const Phase& p) {
        const Real k2 = 0.0002959122082855911L;
        const Real* r = p.y;
        const Real* v = p.y + 3;
        const Real rr = std::sqrt(r[0] * r[0] + r[1] * r[1] + r[2] * r[2]);
        const Real v2 = v[0] * v[0] + v[1] * v[1] + v[2] * v[2];
        const Real rv = r[0] * v[0] + r[1] * v[1] + r[2] * v[2];
        Phase d;
        for (int k = 0; k < 3; ++k) {
            d.y[k] = v[k];
            d.y[3 + k] = -k2 * r[k] / (rr * rr * rr) +
                         9.8709893e-09L * (0.0011836488331423644L * r[k] / rr - v2 * r[k] + 4 * rv * v[k]) /
                             (rr * rr * rr);
        }
        return d;
    }

    static Phase Midpoint(const Phase& start, Real big, int n) {
        const Real h = big / n;
        Phase z0 = start, z1 = start, d = Slope(start);
        for (int k = 0; k < 6; ++k) z1.y[k] = z0.y[k] + h * d.y[k];
        for (int m = 1; m < n; ++m) {
            d = Slope(z1);
            Phase z2;
            for (int k = 0; k < 6; ++k) z2.y[k] = z0.y[k] + 2 * h * d.y[k];
            z0 = z1;
            z1 = z2;
        }
        d = Slope(z1);
        Phase out;
        for (int k = 0; k < 6; ++k) out.y[k] = (z1.y[k] + z0.y[k] + h * d.y[k]) / 2;
        return out;
    }

    static Phase Extrapolated(const Phase& start, Real big) {
        constexpr int kLevels = 8;
        Phase table[kLevels];
        const int n[kLevels] = {2, 4, 6, 8, 10, 12, 14, 16};
        for (int i = 0; i < kLevels; ++i) {
            table[i] = Midpoint(start, big, n[i]);
            for (int j = i - 1; j >= 0; --j) {
                const Real ratio = Real(n[i]) / n[j];
                for (int k = 0; k < 6; ++k) {
                    table[j].y[k] = table[j + 1].y[k] + (table[j + 1].y[k] - table[j].y[k]) / (ratio * ratio - 1);
                }
            }
        }
        return table[0];
    }

    Phase now_;
    Real time_ = 0;
};

class TwoBodyIntegration : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(ephemeris_.OpenEphemerisFile(testing::sharedPath("ephemerides/de405-1960-2060.dat")),
                  EphemerisStatus::Ok);
    }

    // Largest distance, over all steps, from the Bulirsch-Stoer solution of the
    // Sun with relativity.
    double AgainstRelativisticSun(const Orbit& o, double span, long long& steps) {
        ForceModel force(ephemeris_);
        force.SetPlanetMasses(PlanetMasses{});
        force.SetRunEpoch(kStartJd);
        Integrator integrator(force);
        const StateVector start = StateAt(o, kStartJd);
        BulirschStoer reference(start);
        double worst = 0.0;
        const auto status = integrator.Run(start, span, [&](const StepReport& r) {
            reference.AdvanceTo(r.tm);
            worst = std::max(worst, Distance(r.state, reference.state()));
            return true;
        });
        EXPECT_EQ(status, IntegrationStatus::Completed);
        EXPECT_EQ(integrator.tm(), span);
        steps = integrator.sequences();
        return worst;
    }

    // Largest distance from the Kepler orbit, relativity off; every sequence
    // must be 1.5 times the one before.
    double AgainstKepler(const Orbit& o, double span) {
        ForceModel force(ephemeris_);
        force.SetPlanetMasses(PlanetMasses{});
        force.SetSunRelativity(false);
        force.SetRunEpoch(kStartJd);
        Integrator integrator(force);
        double worst = 0.0;
        double previous = 0.0;
        const auto status = integrator.Run(StateAt(o, kStartJd), span, [&](const StepReport& r) {
            worst = std::max(worst, Distance(r.state, StateAt(o, kStartJd + r.tm)));
            if (previous != 0.0 && !r.last) {
                EXPECT_EQ(r.step, 1.5 * previous);
            }
            previous = r.step;
            return true;
        });
        EXPECT_EQ(status, IntegrationStatus::Completed);
        return worst;
    }

    Ephemeris ephemeris_;
};

const Orbit kEllipse{kStartJd + 40.0, 0.5, 0.75, 150.0, 80.0, 12.0};        // a = 2 AU, P = 2.83 years
const Orbit kNearParabola{kStartJd + 730.0, 0.3, 0.9995, 30.0, 200.0, 130.0};
const Orbit kParabola{kStartJd + 1500.0, 1.2, 1.0, 300.0, 45.0, 70.0};
const Orbit kHyperbola{kStartJd + 1000.0, 0.8, 1.2, 100.0, 10.0, 40.0};
constexpr double kTenYears = 3652.5;

TEST_F(TwoBodyIntegration, EllipseOverTwentyRevolutionsForwardAndBackward) {
    const double period = kTwoPi * std::sqrt(8.0) / kGauss;
    long long steps = 0;
    const double forward = AgainstRelativisticSun(kEllipse, 20.0 * period, steps);
    std::printf("ellipse, 20 revolutions forward: %lld steps, largest difference %.3e AU\n", steps, forward);
    EXPECT_LT(forward, 1e-10);
    const double backward = AgainstRelativisticSun(kEllipse, -20.0 * period, steps);
    std::printf("ellipse, 20 revolutions backward: %lld steps, largest difference %.3e AU\n", steps, backward);
    EXPECT_LT(backward, 1e-10);
}

TEST_F(TwoBodyIntegration, NearParabolaAndHyperbolaOverTenYears) {
    for (const Orbit& o : {kNearParabola, kHyperbola}) {
        for (const double span : {kTenYears, -kTenYears}) {
            long long steps = 0;
            const double worst = AgainstRelativisticSun(o, span, steps);
            std::printf("e = %g over %g days: %lld steps, largest difference %.3e AU\n", o.e, span, steps, worst);
            EXPECT_LT(worst, 1e-10);
        }
    }
}

TEST_F(TwoBodyIntegration, WithoutAnyForceTheRebuildAloneKeepsTheKeplerOrbit) {
    for (const Orbit& o : {kNearParabola, kParabola, kHyperbola}) {
        for (const double span : {kTenYears, -kTenYears}) {
            const double worst = AgainstKepler(o, span);
            std::printf("e = %g over %g days, no force: largest difference %.3e AU\n", o.e, span, worst);
            EXPECT_LT(worst, 1e-10);
        }
    }
}

}  // namespace
}  // namespace orvane
