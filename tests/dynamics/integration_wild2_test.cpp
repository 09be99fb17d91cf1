// 81P/Wild (MPC elements of epoch 2024-09-07) passed Jupiter at about 0.006 AU
// on 1974-09-10, which turned it into the comet that it is now. With the
// planets of the DE405 file on, an integration of fifty years across that
// passage, forward and then backward, must come home within 1e-8 AU.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "astro/calendar.h"
#include "astro/constants.h"
#include "astro/twobody.h"
#include "dynamics/ephemeris.h"
#include "dynamics/force_model.h"
#include "dynamics/radau.h"
#include "support/temp_home.h"

namespace orvane {
namespace {

double Field(const std::string& line, std::size_t from, std::size_t to) {
    return std::strtod(line.substr(from - 1, to - from + 1).c_str(), nullptr);
}

// State of the comet at its MPC epoch, from its line in CometEls.txt.
bool MpcState(const std::string& designation, double& epoch, StateVector& state) {
    const std::string text = testing::readFile(testing::sharedPath("reference/CometEls.txt"));
    const std::size_t at = text.find("\n" + designation);
    if (at == std::string::npos) return false;
    const std::string line = text.substr(at + 1, text.find('\n', at + 1) - at - 1);
    const double tp = CalendarToJulian(static_cast<int>(Field(line, 15, 18)),
                                       static_cast<int>(Field(line, 20, 21)), Field(line, 23, 29));
    const double q = Field(line, 31, 39), e = Field(line, 42, 49);
    const std::string ymd = line.substr(81, 8);
    epoch = CalendarToJulian(std::stoi(ymd.substr(0, 4)), std::stoi(ymd.substr(4, 2)),
                             std::stod(ymd.substr(6, 2)));
    const DerivedOrbit d = DerivedElements(epoch, tp, q, e);
    GaussianGravity gravity;
    state = StateFromElements(q, e, Field(line, 52, 59), Field(line, 62, 69), Field(line, 72, 79),
                              d.M, d.a, 0.0, kObliquityJ2000, gravity);
    return true;
}

double Distance(const StateVector& a, const StateVector& b) {
    return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y) + (a.z - b.z) * (a.z - b.z));
}

// The smallest distance to Jupiter the force model reports, and when.
class JupiterWatch : public CloseApproachHook {
public:
    void WatchDistance(int body, double delta, double t) override {
        if (body == kJupiter && delta < smallest) {
            smallest = delta;
            when = t;
        }
    }
    double smallest = 1e300;
    double when = 0.0;
};

struct Leg {
    IntegrationStatus status;
    StateVector end;
    long long steps;
    long long evaluations;
    double seconds;
};

Leg Integrate(Ephemeris& eph, double epoch, const StateVector& start, double span,
              CloseApproachHook* hook) {
    ForceModel force(eph);
    force.SetRunEpoch(epoch);
    force.SetCloseApproachHook(hook);
    Integrator integrator(force);
    Leg leg{};
    const auto begin = std::chrono::steady_clock::now();
    leg.status = integrator.Run(start, span, [&](const StepReport& r) {
        leg.end = r.state;
        return true;
    });
    leg.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    leg.steps = integrator.sequences();
    leg.evaluations = force.evaluations();
    return leg;
}

TEST(Wild2Integration, FiftyYearsAcrossTheJupiterPassageForwardAndBack) {
    Ephemeris eph;
    ASSERT_EQ(eph.OpenEphemerisFile(testing::sharedPath("ephemerides/de405-1960-2060.dat")),
              EphemerisStatus::Ok);
    double epoch = 0.0;
    StateVector now;
    ASSERT_TRUE(MpcState("0081P", epoch, now));
    ASSERT_EQ(epoch, 2460560.5);

    // Back from the MPC epoch to 1970-01-01 gives the comet before the passage.
    const double start = 2440587.5;
    JupiterWatch watch;
    const Leg back = Integrate(eph, epoch, now, start - epoch, &watch);
    ASSERT_EQ(back.status, IntegrationStatus::Completed);
    std::printf("81P back to 1970: %lld steps, %lld forces, %.3f s; Jupiter %.5f AU at JD %.2f\n",
                back.steps, back.evaluations, back.seconds, watch.smallest, epoch + watch.when);
    // The 1974 passage: well inside 0.01 AU, in September 1974.
    EXPECT_LT(watch.smallest, 0.01);
    EXPECT_NEAR(epoch + watch.when, CalendarToJulian(1974, 9, 10.0), 3.0);

    const double span = 50.0 * 365.25;
    const Leg forward = Integrate(eph, start, back.end, span, nullptr);
    ASSERT_EQ(forward.status, IntegrationStatus::Completed);
    const Leg home = Integrate(eph, start + span, forward.end, -span, nullptr);
    ASSERT_EQ(home.status, IntegrationStatus::Completed);
    const double miss = Distance(home.end, back.end);
    std::printf("81P 1970-2020 and back: %lld + %lld steps, %lld + %lld forces, %.3f + %.3f s, "
                "home within %.3e AU\n",
                forward.steps, home.steps, forward.evaluations, home.evaluations, forward.seconds,
                home.seconds, miss);
    EXPECT_LT(miss, 1e-8);
}

}  // namespace
}  // namespace orvane
