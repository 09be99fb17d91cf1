// A calculation thread reads planets while another thread opens its own
// reader: objects share nothing, so both see exactly the single-thread values.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "dynamics/ephemeris.h"
#include "support/temp_home.h"

namespace {

using orvane::BodyStatesResult;
using orvane::Ephemeris;
using orvane::EphemerisStatus;

std::vector<BodyStatesResult> Sweep(const std::string& path, double first, double step, int count,
                                    int& failures) {
    Ephemeris eph;
    std::vector<BodyStatesResult> out(static_cast<std::size_t>(count));
    if (eph.OpenEphemerisFile(path) != EphemerisStatus::Ok) ++failures;
    for (int i = 0; i < count; ++i) {
        if (eph.BodyStates(first + step * i, out[static_cast<std::size_t>(i)]) != EphemerisStatus::Ok) {
            ++failures;
        }
    }
    return out;
}

TEST(EphemerisThreads, TwoReadersOnTwoThreadsGiveTheSingleThreadValues) {
    const std::string path = orvane::testing::sharedPath("ephemerides/de405-1960-2060.dat").string();
    int failures = 0;
    const auto reference = Sweep(path, 2437000.25, 71.3, 400, failures);
    ASSERT_EQ(failures, 0);

    int calculationFailures = 0;
    int windowFailures = 0;
    std::vector<BodyStatesResult> calculation;
    std::thread worker([&] { calculation = Sweep(path, 2437000.25, 71.3, 400, calculationFailures); });
    // Meanwhile the window thread opens and closes readers of its own.
    for (int i = 0; i < 50; ++i) {
        Ephemeris other;
        if (other.OpenEphemerisFile(path) != EphemerisStatus::Ok) ++windowFailures;
        orvane::State9 s{};
        if (other.RelativeState(2451545.0 + i, 5, 11, s) != EphemerisStatus::Ok) ++windowFailures;
    }
    worker.join();
    EXPECT_EQ(calculationFailures, 0);
    EXPECT_EQ(windowFailures, 0);
    ASSERT_EQ(calculation.size(), reference.size());
    for (std::size_t i = 0; i < reference.size(); ++i) {
        EXPECT_EQ(calculation[i].position, reference[i].position) << i;
        EXPECT_EQ(calculation[i].velocity, reference[i].velocity) << i;
    }
}

// The mass table of the force model from the real DE405 constants.
TEST(EphemerisMassTable, De405ConstantsByPosition) {
    Ephemeris eph;
    ASSERT_EQ(eph.OpenEphemerisFile(orvane::testing::sharedPath("ephemerides/de405-1960-2060.dat")),
              EphemerisStatus::Ok);
    const auto& h = eph.header();
    EXPECT_EQ(h.ss, (std::array<double, 3>{2436912.5, 2473488.5, 32.0}));
    EXPECT_EQ(h.ncon, 156);
    EXPECT_EQ(h.au, 149597870.691);
    EXPECT_EQ(h.emrat, 81.30056);
    EXPECT_EQ(h.numde, 405);
    EXPECT_EQ(h.lpt.offset, 899);
    EXPECT_EQ(h.lpt.coefficients, 10);
    EXPECT_EQ(h.lpt.granules, 4);
    EXPECT_EQ(eph.recordDoubles(), 1018);
    EXPECT_EQ(eph.recordCount(), 1143);
    EXPECT_EQ(h.constantNames[8], "GM1   ");
    EXPECT_EQ(h.constantNames[17], "GMS   ");
    const auto& m = eph.masses();
    EXPECT_EQ(m.bodyMass[1], 4.912547451450812e-11);
    EXPECT_EQ(m.bodyMass[2], 7.243452486162703e-10);
    EXPECT_EQ(m.bodyMass[3], 8.997011346712499e-10 / (1.0 + 1.0 / 81.30056));
    EXPECT_EQ(m.bodyMass[4], 9.549535105779258e-11);
    EXPECT_EQ(m.bodyMass[5], 2.8253459095242264e-07);
    EXPECT_EQ(m.bodyMass[6], 8.459715185680659e-08);
    EXPECT_EQ(m.bodyMass[7], 1.2920249167819694e-08);
    EXPECT_EQ(m.bodyMass[8], 1.5243589007842763e-08);
    EXPECT_EQ(m.bodyMass[9], 2.1886997654259697e-12);
    EXPECT_EQ(m.bodyMass[10], 8.997011346712499e-10 / (1.0 + 81.30056));
    // The file's GMS is the k^2 of the force model.
    EXPECT_EQ(m.gms, 0.0002959122082855911);
}

}  // namespace
