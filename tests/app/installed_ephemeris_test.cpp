// After the setup, the machine holds a real planetary file where the program looks for
// it, so a fresh start goes straight to the main window.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "app/startup.h"
#include "dynamics/ephemeris.h"
#include "support/temp_home.h"

using namespace orvane;

TEST(InstalledEphemeris, FreshUserStartsWithThePlanetaryFileOfTheSetup) {
    const char* machineDirs = std::getenv("XDG_DATA_DIRS");
    const std::string keep = machineDirs ? machineDirs : "";
    orvane::testing::TempHome home;
    // A new user of this machine: a fresh home, the machine's shared folders.
    if (machineDirs)
        setenv("XDG_DATA_DIRS", keep.c_str(), 1);
    else
        unsetenv("XDG_DATA_DIRS");

    AppState state;
    const StartupReport report = InitialiseProgram(state, home.root().string());
    EXPECT_TRUE(report.firstRun);
    ASSERT_EQ(state.ephemerisMissing, 0) << "no planetary file in " << state.folders.commonFolder
                                         << ": run scripts/setup";
    EXPECT_EQ(state.ephemerisChoice, 2);

    Ephemeris ephemeris;
    EXPECT_EQ(ephemeris.OpenEphemerisFile(state.folders.de423Path), EphemerisStatus::Ok);
}
