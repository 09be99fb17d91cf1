// The reader against JPL's own test points for DE405 (testpo.405): every point
// inside the file, positions and velocities of bodies 1 to 13, nutations and
// librations, within 1e-13.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "dynamics/ephemeris.h"
#include "support/temp_home.h"

namespace {

using orvane::Ephemeris;
using orvane::EphemerisStatus;

struct TestPoint {
    double jd;
    int target;
    int centre;
    int coordinate;
    double value;
};

std::vector<TestPoint> ReadTestPoints() {
    std::ifstream in(orvane::testing::sharedPath("ephemerides/testpo.405"));
    std::vector<TestPoint> points;
    std::string line;
    bool data = false;
    while (std::getline(in, line)) {
        if (!data) {
            data = line.rfind("EOT", 0) == 0;
            continue;
        }
        std::istringstream fields(line);
        std::string de, date;
        TestPoint p{};
        if (fields >> de >> date >> p.jd >> p.target >> p.centre >> p.coordinate >> p.value) {
            points.push_back(p);
        }
    }
    return points;
}

struct Tally {
    int bodies = 0;
    int nutations = 0;
    int librations = 0;
    int outside = 0;
    double largestDeviation = 0.0;
};

// Checks every test point that lies inside the file; returns what was checked.
Tally CheckTestPoints(const std::string& path) {
    Ephemeris eph;
    Tally tally;
    EXPECT_EQ(eph.OpenEphemerisFile(path), EphemerisStatus::Ok) << path;
    if (!eph.isOpen()) return tally;
    const auto points = ReadTestPoints();
    EXPECT_EQ(points.size(), 1200u);
    const auto& ss = eph.header().ss;
    for (const TestPoint& p : points) {
        if (p.jd < ss[0] || p.jd > ss[1]) {
            ++tally.outside;
            continue;
        }
        double got = 0.0;
        if (p.target == 14) {
            std::array<double, 4> nut{};
            EXPECT_EQ(eph.Nutations(p.jd, nut), EphemerisStatus::Ok);
            got = nut[static_cast<std::size_t>(p.coordinate - 1)];
            ++tally.nutations;
        } else if (p.target == 15) {
            std::array<double, 6> lib{};
            EXPECT_EQ(eph.Librations(p.jd, lib), EphemerisStatus::Ok);
            got = lib[static_cast<std::size_t>(p.coordinate - 1)];
            ++tally.librations;
        } else {
            orvane::State9 s{};
            EXPECT_EQ(eph.RelativeState(p.jd, p.target, p.centre, s), EphemerisStatus::Ok);
            got = s[static_cast<std::size_t>(p.coordinate - 1)];
            ++tally.bodies;
        }
        tally.largestDeviation = std::max(tally.largestDeviation, std::fabs(got - p.value));
        EXPECT_NEAR(got, p.value, 1e-13) << "jd " << p.jd << " target " << p.target << " centre "
                                         << p.centre << " coordinate " << p.coordinate;
    }
    std::printf("largest deviation from testpo.405: %.3e\n", tally.largestDeviation);
    return tally;
}

TEST(EphemerisTestpo, ReproducesEveryTestPointOfTheDe405File) {
    const Tally t = CheckTestPoints(
        orvane::testing::sharedPath("ephemerides/de405-1960-2060.dat").string());
    // testpo.405 has 1200 points, all between 1960 and 2060.
    EXPECT_EQ(t.outside, 0);
    EXPECT_EQ(t.bodies, 1042);
    EXPECT_EQ(t.nutations, 66);
    EXPECT_EQ(t.librations, 92);
}

// The file that tools/make_jpl_ephemeris.py builds from Debian's DE405 table;
// CTest passes its path (see tools/CMakeLists.txt).
TEST(EphemerisTestpo, ReproducesEveryTestPointOfTheConvertedFile) {
    const char* path = std::getenv("ORVANE_CONVERTED_EPHEMERIS");
    if (path == nullptr || *path == '\0') {
        GTEST_SKIP() << "ORVANE_CONVERTED_EPHEMERIS is not set: run through the CTest test "
                        "jpl_ephemeris_testpo";
    }
    if (!std::filesystem::exists(path)) {
        GTEST_SKIP() << path << " does not exist: tools/make_jpl_ephemeris.py was skipped "
                                "(python3-casacore or casacore-data-jpl-de405 missing)";
    }
    const Tally t = CheckTestPoints(path);
    EXPECT_EQ(t.outside, 0);
    EXPECT_EQ(t.bodies + t.nutations + t.librations, 1200);
}

}  // namespace
