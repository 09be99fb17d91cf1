// Whole runs of two comets through the program's calculation run, written by the
// task texts and compared byte for byte with files checked by hand once: 81P/Wild
// (Jupiter family, MPC elements of 2024-09-07, with non-gravitational test values
// A1 = 0.5, A2 = 0.05 in 1e-8 AU/day^2, not a published solution) and C/1995 O1
// (Hale-Bopp, JPL#226 elements of 2022-09-15). The numbers in the files are
// checked independently in independent_values_test.cpp.
//
// ORVANE_UPDATE_GOLDEN=1 writes the files instead of comparing them.
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "golden_support.h"
#include "support/temp_home.h"

namespace {

using namespace orvane;
using namespace orvane::golden;

void compareWithGolden(const std::string& produced, const std::string& name) {
    const std::filesystem::path path = goldenPath(name);
    if (std::getenv("ORVANE_UPDATE_GOLDEN") != nullptr) {
        orvane::testing::writeFile(path, produced);
        GTEST_SKIP() << "wrote " << path;
    }
    ASSERT_TRUE(std::filesystem::exists(path)) << path;
    EXPECT_EQ(produced, orvane::testing::readFile(path)) << name;
}

struct SphericalCase {
    const char* name;
    int position, plane, system;
};

class GoldenSpherical : public ::testing::TestWithParam<SphericalCase> {};

TEST_P(GoldenSpherical, FileOfBothComets) {
    if (!planetaryFileAvailable()) GTEST_SKIP() << "no planetary file";
    orvane::testing::TempHome home;
    TaskOptions o = ephemerisOptions(home.root());
    o.coordinateKind = GetParam().position;
    o.mainPlane = GetParam().plane;
    o.referenceSystem = GetParam().system;
    const RunResult result = runGoldenComets(o, TaskKind::Ephemerides);
    ASSERT_TRUE(result.ok);
    compareWithGolden(orvane::testing::readFile(home.root() / "Ephemerdes.txt"), GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(
    AllPlanesAndSystems, GoldenSpherical,
    ::testing::Values(SphericalCase{"spherical_astrometric_equator_2000.txt", 0, 0, 0},
                      SphericalCase{"spherical_astrometric_equator_1950.txt", 0, 0, 1},
                      SphericalCase{"spherical_astrometric_ecliptic_2000.txt", 0, 1, 0},
                      SphericalCase{"spherical_astrometric_ecliptic_1950.txt", 0, 1, 1},
                      SphericalCase{"spherical_astrometric_horizon.txt", 0, 2, 0},
                      SphericalCase{"spherical_geometric_equator_true.txt", 1, 0, 2},
                      SphericalCase{"spherical_geometric_ecliptic_true.txt", 1, 1, 2},
                      SphericalCase{"spherical_apparent_equator_true.txt", 2, 0, 2},
                      SphericalCase{"spherical_apparent_horizon_true.txt", 2, 2, 2}),
    [](const ::testing::TestParamInfo<SphericalCase>& info) {
        std::string name = info.param.name;
        name = name.substr(0, name.size() - 4);
        return name;
    });

TEST(GoldenRun, RectangularAroundTheEarthInKilometres) {
    if (!planetaryFileAvailable()) GTEST_SKIP() << "no planetary file";
    orvane::testing::TempHome home;
    TaskOptions o = ephemerisOptions(home.root());
    o.ephemerisType = 1;
    o.coordinateKind = 1;
    o.observerPlace = 0;
    o.distanceUnitsKm = true;
    ASSERT_TRUE(runGoldenComets(o, TaskKind::Ephemerides).ok);
    compareWithGolden(orvane::testing::readFile(home.root() / "Ephemerdes.txt"), "rectangular_earth_km.txt");
}

TEST(GoldenRun, OrbitalAroundTheSunInJulianDates) {
    if (!planetaryFileAvailable()) GTEST_SKIP() << "no planetary file";
    orvane::testing::TempHome home;
    TaskOptions o = ephemerisOptions(home.root());
    o.ephemerisType = 2;
    o.coordinateKind = 1;
    o.mainPlane = 1;
    o.centralBody = 0;
    o.observerPlace = 0;
    o.datesInJulianDays = true;
    o.showHms = false;
    ASSERT_TRUE(runGoldenComets(o, TaskKind::Ephemerides).ok);
    compareWithGolden(orvane::testing::readFile(home.root() / "Ephemerdes.txt"), "orbital_sun_jd.txt");
}

TEST(GoldenRun, OwnFilesCarryTheNamesOfTheComets) {
    if (!planetaryFileAvailable()) GTEST_SKIP() << "no planetary file";
    orvane::testing::TempHome home;
    TaskOptions o = ephemerisOptions(home.root());
    o.singleFile = false;
    const RunResult result = runGoldenComets(o, TaskKind::Ephemerides);
    ASSERT_TRUE(result.ok);
    ASSERT_EQ(result.files.size(), 2u);
    EXPECT_EQ(result.files[0], (home.root() / "0081P_Wild.txt").string());
    EXPECT_EQ(result.files[1], (home.root() / "C_1995_O1_(Hale-Bopp).txt").string());
    // The single file is the two own files one after the other.
    TaskOptions single = ephemerisOptions(home.root() / "single");
    std::filesystem::create_directories(home.root() / "single");
    ASSERT_TRUE(runGoldenComets(single, TaskKind::Ephemerides).ok);
    EXPECT_EQ(orvane::testing::readFile(home.root() / "single" / "Ephemerdes.txt"),
              orvane::testing::readFile(result.files[0]) + orvane::testing::readFile(result.files[1]));
}

TEST(GoldenRun, CloseApproachesBackToNineteenSeventy) {
    if (!planetaryFileAvailable()) GTEST_SKIP() << "no planetary file";
    orvane::testing::TempHome home;
    TaskOptions o;
    o.showPerihelionPassages = true;
    const RunResult result = runGoldenComets(o, TaskKind::CloseApproaches, kApproachTarget);
    ASSERT_TRUE(result.ok);
    compareWithGolden(result.approachText, "close_approaches.txt");
    TaskOptions appearance = o;
    appearance.minDistanceEachAppearance = true;
    appearance.planetSizeCounted = false;
    appearance.datesInJulianDays = true;
    compareWithGolden(result.panel.closeApproachText(appearance, TaskTexts{}), "close_approaches_appearances.txt");
}

}  // namespace
