// The reader on a small file of the DE406 layout whose series are cubics
// known by hand: record and granule selection, derivatives, the Earth and Moon
// rules, the request flags, the record cache and its failed reads.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>

#include "dynamics/ephemeris.h"
#include "support/temp_home.h"
#include "synthetic_ephemeris.h"

namespace {

using orvane::Ephemeris;
using orvane::EphemerisStatus;
using orvane::kKilometreToAu;
using orvane::State9;
using orvane::testing::De406Layout;
using orvane::testing::SyntheticCubic;
using orvane::testing::SyntheticEphemeris;

// State of series `series` from the coefficients of data record `record` at
// normalised time tau, scaled as the reader scales it.
State9 ExpectedAt(const SyntheticEphemeris& e, int series, int record, double tau,
                  bool kilometres = true) {
    const auto& l = e.ipt[static_cast<std::size_t>(series)];
    const double x = l.granules * tau;
    const int g = std::clamp(static_cast<int>(std::floor(x)), 0, l.granules - 1);
    const double tc = 2.0 * (x - g) - 1.0;
    const double scale = (l.granules + l.granules) / e.span;
    const double unit = kilometres ? kKilometreToAu : 1.0;
    const int components = series < 11 ? 3 : 2;
    State9 s{};
    for (int c = 0; c < components; ++c) {
        const auto v = SyntheticCubic(series, c, g, record, tc);
        s[static_cast<std::size_t>(c)] = v.value * unit;
        s[static_cast<std::size_t>(components + c)] = v.first * scale * unit;
        s[static_cast<std::size_t>(2 * components + c)] = v.second * scale * scale * unit;
    }
    return s;
}

State9 Expected(const SyntheticEphemeris& e, int series, double jd) {
    const double d = jd - e.start;
    int record = static_cast<int>(std::floor(d / e.span));
    if (record == e.records) record = e.records - 1;  // the file's last instant
    return ExpectedAt(e, series, record, (d - record * e.span) / e.span);
}

State9 Minus(const State9& a, const State9& b) {
    State9 r{};
    for (std::size_t k = 0; k < 9; ++k) r[k] = a[k] - b[k];
    return r;
}

void ExpectState(const State9& got, const State9& want, const char* what) {
    for (std::size_t k = 0; k < 9; ++k) {
        EXPECT_DOUBLE_EQ(got[k], want[k]) << what << " value " << k;
    }
}

class SyntheticFile : public ::testing::Test {
protected:
    void SetUp() override {
        layout = De406Layout(4);
        path = home.root() / "jplde406.dat";
        orvane::testing::writeFile(path, orvane::testing::BuildEphemerisFile(layout));
        ASSERT_EQ(eph.OpenEphemerisFile(path), EphemerisStatus::Ok);
    }

    State9 Relative(double jd, int target, int centre,
                    EphemerisStatus want = EphemerisStatus::Ok) {
        State9 s{};
        EXPECT_EQ(eph.RelativeState(jd, target, centre, s), want);
        return s;
    }

    orvane::testing::TempHome home;
    SyntheticEphemeris layout;
    std::filesystem::path path;
    Ephemeris eph;
};

TEST_F(SyntheticFile, TakesLayoutSpanAndConstantsFromTheHeader) {
    EXPECT_EQ(eph.recordDoubles(), 728);
    EXPECT_EQ(eph.recordCount(), 4);
    EXPECT_EQ(eph.header().ss[0], 2451536.5);
    EXPECT_EQ(eph.header().ss[1], 2451792.5);
    EXPECT_EQ(eph.header().ss[2], 64.0);
    EXPECT_EQ(eph.header().numde, 406);
    EXPECT_EQ(eph.header().ncon, 20);
    EXPECT_EQ(eph.header().emrat, 81.30056);
    EXPECT_EQ(eph.header().ipt[9].offset, 381);
    EXPECT_EQ(eph.header().ipt[9].coefficients, 12);
    EXPECT_EQ(eph.header().ipt[9].granules, 8);
    EXPECT_EQ(eph.header().lpt.coefficients, 0);
    EXPECT_EQ(eph.header().titles[1], std::string("Start Epoch: JED= 2451536.5").append(57, ' '));
    EXPECT_EQ(eph.header().constantNames[8], "C9    ");
    EXPECT_EQ(eph.constants()[0], 1000.0);
    EXPECT_EQ(eph.constants()[19], 1019.0);
}

TEST_F(SyntheticFile, MassesComeFromConstantsNineToEighteenByPosition) {
    const auto& m = eph.masses();
    EXPECT_EQ(m.bodyMass[1], 1e-11);
    EXPECT_EQ(m.bodyMass[2], 2e-10);
    EXPECT_EQ(m.bodyMass[3], 9e-10 / (1.0 + 1.0 / 81.30056));
    EXPECT_EQ(m.bodyMass[4], 4e-11);
    EXPECT_EQ(m.bodyMass[5], 5e-7);
    EXPECT_EQ(m.bodyMass[6], 6e-8);
    EXPECT_EQ(m.bodyMass[7], 7e-9);
    EXPECT_EQ(m.bodyMass[8], 8e-9);
    EXPECT_EQ(m.bodyMass[9], 9e-12);
    EXPECT_EQ(m.bodyMass[10], 9e-10 / (1.0 + 81.30056));
    EXPECT_EQ(m.gms, 3e-4);
}

TEST_F(SyntheticFile, BarycentricStatesFollowTheCubicsWithTheirDerivatives) {
    for (const double offset : {0.5, 17.25, 97.0, 150.75, 255.5}) {
        const double jd = layout.start + offset;
        for (const int body : {1, 2, 4, 5, 6, 7, 8, 9}) {
            ExpectState(Relative(jd, body, 12), Expected(layout, body - 1, jd), "planet");
        }
        ExpectState(Relative(jd, 11, 12), Expected(layout, 10, jd), "Sun");
        ExpectState(Relative(jd, 13, 12), Expected(layout, 2, jd), "Earth-Moon barycentre");
        ExpectState(Relative(jd, 12, 5), Minus(State9{}, Expected(layout, 4, jd)), "reversed");
    }
}

TEST_F(SyntheticFile, EarthAndMoonComeFromTheBarycentreAndTheGeocentricMoon) {
    const double jd = layout.start + 70.25;
    const State9 emb = Expected(layout, 2, jd);
    const State9 geo = Expected(layout, 9, jd);
    const State9 sun = Expected(layout, 10, jd);
    State9 earth{};
    State9 moon{};
    for (std::size_t k = 0; k < 9; ++k) {
        earth[k] = emb[k] - geo[k] / (1.0 + 81.30056);
        moon[k] = geo[k] + earth[k];
    }
    ExpectState(Relative(jd, 3, 12), earth, "Earth");
    ExpectState(Relative(jd, 10, 12), moon, "Moon");
    ExpectState(Relative(jd, 10, 3), geo, "geocentric Moon");
    ExpectState(Relative(jd, 3, 10), Minus(State9{}, geo), "selenocentric Earth");
    ExpectState(Relative(jd, 3, 13), Minus(earth, emb), "Earth from the barycentre");
    // The Sun-relative Moon goes through the Earth and the barycentre, it is
    // not the geocentric series with the Sun taken off.
    const State9 moonFromSun = Relative(jd, 10, 11);
    ExpectState(moonFromSun, Minus(moon, sun), "heliocentric Moon");
    EXPECT_NE(moonFromSun[0], geo[0] - sun[0]);
}

TEST_F(SyntheticFile, NutationsAreEvaluatedWithoutTheKilometreFactorAndLibrationsAreAbsent) {
    const double jd = layout.start + 200.5;
    std::array<double, 4> nut{};
    ASSERT_EQ(eph.Nutations(jd, nut), EphemerisStatus::Ok);
    const double d = jd - layout.start;
    const State9 want = ExpectedAt(layout, 11, 3, (d - 192.0) / 64.0, false);
    EXPECT_DOUBLE_EQ(nut[0], want[0]);
    EXPECT_DOUBLE_EQ(nut[1], want[1]);
    EXPECT_DOUBLE_EQ(nut[2], want[2]);
    EXPECT_DOUBLE_EQ(nut[3], want[3]);
    std::array<double, 6> lib{};
    lib.fill(5.0);
    EXPECT_EQ(eph.Librations(jd, lib), EphemerisStatus::NotInFile);
    EXPECT_EQ(lib, (std::array<double, 6>{}));
}

TEST_F(SyntheticFile, TheLastInstantUsesTheLastGranuleOfTheLastRecordAtItsEnd) {
    const double end = layout.start + 256.0;
    const State9 mercury = Relative(end, 1, 12);
    EXPECT_EQ(eph.cachedRecord(), 6);  // nr with + 2: header, constants, 4 records
    // tau = 1 in the last of four granules: tc = 1, every T_n(1) = 1.
    for (int c = 0; c < 3; ++c) {
        double sum = 0.0;
        for (int k = 0; k < 4; ++k) sum += orvane::testing::SyntheticCoefficient(0, c, 3, 3, k);
        EXPECT_DOUBLE_EQ(mercury[static_cast<std::size_t>(c)], sum * kKilometreToAu);
    }
    ExpectState(mercury, ExpectedAt(layout, 0, 3, 1.0), "Mercury at the end");
}

TEST_F(SyntheticFile, AnInstantOnARecordBoundaryFallsInTheLaterRecord) {
    const double boundary = layout.start + 64.0;
    const State9 mercury = Relative(boundary, 1, 12);
    EXPECT_EQ(eph.cachedRecord(), 4);
    // Start of record 2, first granule: tc = -1, T_n(-1) = (-1)^n.
    for (int c = 0; c < 3; ++c) {
        double sum = 0.0;
        for (int k = 0; k < 4; ++k) {
            sum += (k % 2 == 0 ? 1.0 : -1.0) *
                   orvane::testing::SyntheticCoefficient(0, c, 0, 1, k);
        }
        EXPECT_DOUBLE_EQ(mercury[static_cast<std::size_t>(c)], sum * kKilometreToAu);
    }
    ExpectState(mercury, ExpectedAt(layout, 0, 1, 0.0), "Mercury at the boundary");
}

TEST_F(SyntheticFile, TargetEqualToCentreGivesZerosAndReadsNothing) {
    State9 s;
    s.fill(7.0);
    EXPECT_EQ(eph.RelativeState(layout.start + 3.0, 5, 5, s), EphemerisStatus::Ok);
    EXPECT_EQ(s, State9{});
    EXPECT_EQ(eph.recordReads(), 0);
    EXPECT_EQ(eph.cachedRecord(), 0);
}

TEST_F(SyntheticFile, OneReadPerRecordWhateverTheNumberOfCalls) {
    Relative(layout.start + 1.0, 4, 11);
    Relative(layout.start + 2.0, 3, 11);
    Relative(layout.start + 63.5, 10, 11);
    EXPECT_EQ(eph.recordReads(), 1);
    Relative(layout.start + 64.5, 4, 11);
    EXPECT_EQ(eph.recordReads(), 2);
    Relative(layout.start + 1.0, 4, 11);
    EXPECT_EQ(eph.recordReads(), 3);
}

TEST_F(SyntheticFile, BodyStatesFillsTheFlaggedBodiesRelativeToTheSun) {
    const double jd = layout.start + 99.5;
    orvane::BodyStatesResult out;
    for (auto* table : {&out.position, &out.velocity, &out.acceleration}) {
        for (auto& v : *table) v.fill(99.0);
    }
    ASSERT_EQ(eph.BodyStates(jd, out), EphemerisStatus::Ok);
    for (int body = 1; body <= 13; ++body) {
        const auto i = static_cast<std::size_t>(body - 1);
        if (body == 11 || body == 12) {
            EXPECT_EQ(out.position[i], (std::array<double, 3>{99.0, 99.0, 99.0}));
            EXPECT_EQ(out.velocity[i], (std::array<double, 3>{99.0, 99.0, 99.0}));
            continue;
        }
        const State9 want = Relative(jd, body, 11);
        for (std::size_t k = 0; k < 3; ++k) {
            EXPECT_EQ(out.position[i][k], want[k]) << body;
            EXPECT_EQ(out.velocity[i][k], want[3 + k]) << body;
            EXPECT_EQ(out.acceleration[i][k], 99.0) << body;
        }
    }

    // Position only for Jupiter, everything for Saturn.
    eph.requestFlags()[4] = 1;
    eph.requestFlags()[5] = 3;
    for (auto* table : {&out.position, &out.velocity, &out.acceleration}) {
        for (auto& v : *table) v.fill(99.0);
    }
    ASSERT_EQ(eph.BodyStates(jd, out), EphemerisStatus::Ok);
    const State9 jupiter = Relative(jd, 5, 11);
    const State9 saturn = Relative(jd, 6, 11);
    for (std::size_t k = 0; k < 3; ++k) {
        EXPECT_EQ(out.position[4][k], jupiter[k]);
        EXPECT_EQ(out.velocity[4][k], 99.0);
        EXPECT_EQ(out.velocity[5][k], saturn[3 + k]);
        EXPECT_EQ(out.acceleration[5][k], saturn[6 + k]);
    }
}

TEST_F(SyntheticFile, BodyStatesOfEveryFlagEqualsRelativeStateValueForValue) {
    // The Sun and the barycentre too when asked for, and the Earth and the
    // Moon each without the other.
    for (int only = 0; only <= 13; ++only) {
        for (int flag = 1; flag <= 3; ++flag) {
            eph.requestFlags().fill(0);
            if (only == 0) {
                eph.requestFlags().fill(flag);
            } else {
                eph.requestFlags()[static_cast<std::size_t>(only - 1)] = flag;
            }
            const double jd = layout.start + 3.25 + 17.5 * only + flag;
            orvane::BodyStatesResult out;
            ASSERT_EQ(eph.BodyStates(jd, out), EphemerisStatus::Ok);
            for (int body = 1; body <= 13; ++body) {
                if (only != 0 && body != only) continue;
                const auto i = static_cast<std::size_t>(body - 1);
                const State9 want = Relative(jd, body, 11);
                for (std::size_t k = 0; k < 3; ++k) {
                    EXPECT_EQ(out.position[i][k], want[k]) << body << " flag " << flag;
                    if (flag >= 2) {
                        EXPECT_EQ(out.velocity[i][k], want[3 + k]) << body;
                    }
                    if (flag >= 3) {
                        EXPECT_EQ(out.acceleration[i][k], want[6 + k]) << body;
                    }
                }
            }
        }
    }
}

TEST(EphemerisFlags, DefaultRequestFlagsAskForAllButTheSunAndTheBarycentre) {
    Ephemeris eph;
    EXPECT_EQ(eph.requestFlags(), (std::array<int, 13>{2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 0, 0, 2}));
}

TEST_F(SyntheticFile, AFailedReadKeepsTheOldBufferForTheRestOfThatRecord) {
    const double inFirst = layout.start + 10.0;
    const State9 before = Relative(inFirst, 4, 12);
    // The file loses its later records while it is open.
    std::filesystem::resize_file(path, 3u * 728u * 8u);

    const State9 failed = Relative(layout.start + 64.0 + 10.0, 4, 12, EphemerisStatus::ReadFailed);
    EXPECT_EQ(failed, before);  // the earlier results stand
    EXPECT_EQ(eph.cachedRecord(), 4);

    // Same record again: no new read; the first record's coefficients are
    // evaluated at the new record's time.
    const long long reads = eph.recordReads();
    const State9 stale = Relative(layout.start + 64.0 + 20.0, 4, 12, EphemerisStatus::StaleRecord);
    EXPECT_EQ(eph.recordReads(), reads);
    ExpectState(stale, ExpectedAt(layout, 3, 0, 20.0 / 64.0), "old buffer");

    // Back in a record that still exists: read again, fresh values.
    ExpectState(Relative(inFirst, 4, 12), before, "first record again");
}

TEST_F(SyntheticFile, InstantsOutsideTheFileFailWithoutReadingOutsideIt) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (const double jd : {layout.start - 100.0, layout.start - 64.5, nan, inf, -inf, 1e300,
                            -1e300, layout.start + 64.0 * 50}) {
        State9 s;
        s.fill(3.0);
        EXPECT_EQ(eph.RelativeState(jd, 4, 11, s), EphemerisStatus::ReadFailed) << jd;
        EXPECT_EQ(s, State9{}) << jd;  // nothing was ever read
    }
}

// The record number is truncated toward zero, so an instant less than one
// record before the start reads the first record and extrapolates its first
// granule; nothing checks the range.
TEST_F(SyntheticFile, AnInstantJustBeforeTheStartExtrapolatesTheFirstRecord) {
    const State9 mars = Relative(layout.start - 0.5, 4, 12);
    EXPECT_EQ(eph.cachedRecord(), 3);
    ExpectState(mars, ExpectedAt(layout, 3, 0, -0.5 / 64.0), "Mars before the start");
}

TEST_F(SyntheticFile, HeliocentricSeriesHaveTheSunTakenOffPlanetsButNotTheMoon) {
    const double jd = layout.start + 40.5;
    orvane::SeriesFlags flags{};
    flags[3] = 3;
    flags[9] = 3;
    ASSERT_EQ(eph.SeriesStates(jd, 0.0, flags, orvane::SeriesFrame::Heliocentric),
              EphemerisStatus::Ok);
    ExpectState(eph.seriesResult().body[3],
                Minus(Expected(layout, 3, jd), Expected(layout, 10, jd)), "heliocentric Mars");
    ExpectState(eph.seriesResult().body[9], Expected(layout, 9, jd), "geocentric Moon");
    ExpectState(eph.seriesResult().sun, Expected(layout, 10, jd), "Sun");
}

TEST_F(SyntheticFile, ATimeInTwoPartsGivesTheSameStatesAsTheWholeTime) {
    orvane::SeriesFlags flags{};
    flags[0] = 3;
    const double jd = layout.start + 10.25;
    ASSERT_EQ(eph.SeriesStates(jd, 0.0, flags), EphemerisStatus::Ok);
    const State9 whole = eph.seriesResult().body[0];
    ExpectState(whole, Expected(layout, 0, jd), "whole");
    ASSERT_EQ(eph.SeriesStates(layout.start, 10.25, flags), EphemerisStatus::Ok);
    ExpectState(eph.seriesResult().body[0], whole, "start + days");
    ASSERT_EQ(eph.SeriesStates(layout.start + 20.0, -9.75, flags), EphemerisStatus::Ok);
    ExpectState(eph.seriesResult().body[0], whole, "negative second part");
    ASSERT_EQ(eph.SeriesStates(10.25, layout.start, flags), EphemerisStatus::Ok);
    ExpectState(eph.seriesResult().body[0], whole, "parts swapped");
}

TEST_F(SyntheticFile, BodyNumbersOutsideOneToThirteenAreRefused) {
    for (const auto& [t, c] : {std::pair{0, 3}, {14, 3}, {3, 14}, {-1, 11}, {15, 0}}) {
        State9 s;
        s.fill(1.0);
        EXPECT_EQ(eph.RelativeState(layout.start + 1.0, t, c, s), EphemerisStatus::InvalidBody);
        EXPECT_EQ(s, State9{});
    }
}

TEST_F(SyntheticFile, TheChoiceNamesTheFileInTheMachineFolder) {
    Ephemeris byChoice;
    EXPECT_EQ(byChoice.OpenEphemeris(1, home.root()), EphemerisStatus::Ok);
    EXPECT_EQ(byChoice.recordDoubles(), 728);
    EXPECT_EQ(byChoice.OpenEphemeris(2, home.root()), EphemerisStatus::OpenFailed);
    EXPECT_FALSE(byChoice.isOpen());
    EXPECT_EQ(byChoice.OpenEphemeris(0, home.root()), EphemerisStatus::OpenFailed);
    EXPECT_EQ(byChoice.OpenEphemeris(3, home.root()), EphemerisStatus::OpenFailed);
    std::filesystem::copy_file(path, home.root() / "jplde423.dat");
    EXPECT_EQ(byChoice.OpenEphemeris(2, home.root()), EphemerisStatus::Ok);
}

TEST(EphemerisChoice, TheTwoFilesOfTheOptions) {
    const auto* de406 = orvane::FindEphemerisChoice(1);
    ASSERT_NE(de406, nullptr);
    EXPECT_STREQ(de406->label, "JPL DE406");
    EXPECT_STREQ(de406->fileName, "jplde406.dat");
    EXPECT_EQ(de406->recordUnits, 1456);
    EXPECT_EQ(de406->coefficients, 728);
    EXPECT_EQ(de406->firstJd, 625359.5);
    EXPECT_EQ(de406->lastJd, 2816848.5);
    const auto* de423 = orvane::FindEphemerisChoice(2);
    ASSERT_NE(de423, nullptr);
    EXPECT_STREQ(de423->label, "JPL DE423");
    EXPECT_STREQ(de423->fileName, "jplde423.dat");
    EXPECT_EQ(de423->recordUnits, 2036);
    EXPECT_EQ(de423->coefficients, 1018);
    EXPECT_EQ(de423->firstJd, 2378480.5);
    EXPECT_EQ(de423->lastJd, 2524625.5);
    EXPECT_EQ(orvane::FindEphemerisChoice(0), nullptr);
    EXPECT_EQ(orvane::FindEphemerisChoice(3), nullptr);
}

}  // namespace
