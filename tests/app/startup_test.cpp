#include "app/startup.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>

#include "app/config_file.h"
#include "language/language_table.h"
#include "support/temp_home.h"

using namespace orvane;
using orvane::testing::TempHome;
using orvane::testing::readFile;
using orvane::testing::writeFile;
namespace fs = std::filesystem;

namespace {

// A start in a fresh home: the user folder does not exist yet.
struct Started {
    AppState state;
    StartupReport report;
};

Started start(const TempHome& home) {
    Started s;
    s.report = InitialiseProgram(s.state, home.root().string());
    return s;
}

void touch(const std::string& path) {
    fs::create_directories(fs::path(path).parent_path());
    writeFile(path, "x");
}

}  // namespace

TEST(Startup, FoldersFollowTheXdgPlaces) {
    TempHome home;
    Started s = start(home);
    EXPECT_EQ(s.state.folders.programFolder, home.root().string());
    EXPECT_EQ(s.state.folders.userFolder, home.home().string() + "/.local/share/Orvane/");
    EXPECT_EQ(s.state.folders.commonFolder, (home.root() / "system-share").string() + "/Orvane/");
    EXPECT_EQ(s.state.folders.de406Path, s.state.folders.commonFolder + "jplde406.dat");
    EXPECT_EQ(s.state.folders.de423Path, s.state.folders.commonFolder + "jplde423.dat");
    EXPECT_EQ(s.state.folders.languageFolder, home.root().string() + "/Languages/");
    EXPECT_EQ(fs::current_path().string() + "/", s.state.folders.userFolder);
}

TEST(Startup, FirstRunCreatesFolderSettingsAndCommonFolder) {
    TempHome home;
    Started s = start(home);
    EXPECT_TRUE(s.report.firstRun);
    EXPECT_TRUE(s.report.configRecreated);
    EXPECT_EQ(fs::file_size(s.state.folders.userFolder + "config.dat"), 107200u);
    EXPECT_TRUE(fs::is_directory(s.state.folders.commonFolder));

    Started again = start(home);
    EXPECT_FALSE(again.report.firstRun);
    EXPECT_FALSE(again.report.configRecreated);
}

TEST(Startup, EmptyExistingUserFolderGetsItsFiles) {
    TempHome home;
    fs::create_directories(home.home() / ".local/share/Orvane");
    Started s = start(home);
    EXPECT_FALSE(s.report.firstRun);
    EXPECT_TRUE(s.report.configRecreated);
    EXPECT_EQ(fs::file_size(s.state.folders.userFolder + "config.dat"), 107200u);
}

TEST(Startup, OlderSettingsFileIsReplacedAndNewerKept) {
    TempHome home;
    const fs::path user = home.home() / ".local/share/Orvane";
    fs::create_directories(user);
    AppState old;
    old.configVersion = 0.05f;
    old.splitterPosition = 77;
    ASSERT_TRUE(WriteConfigFile((user / "config.dat").string(), old));
    Started s = start(home);
    EXPECT_TRUE(s.report.configRecreated);
    EXPECT_EQ(s.state.splitterPosition, 500);

    AppState newer;
    newer.configVersion = 0.07f;
    newer.splitterPosition = 88;
    ASSERT_TRUE(WriteConfigFile((user / "config.dat").string(), newer));
    Started t = start(home);
    EXPECT_FALSE(t.report.configRecreated);
    EXPECT_EQ(t.state.splitterPosition, 88);
    EXPECT_EQ(t.state.configVersion, 0.07f);
}

TEST(Startup, SettingsFileOfAnyLengthOrContentStarts) {
    TempHome home;
    const fs::path user = home.home() / ".local/share/Orvane";
    fs::create_directories(user);
    for (const std::string& junk : {std::string(), std::string(3, 'a'), std::string(801, '\x7f'),
                                    std::string(200000, '\xff'), std::string(107200, '\0')}) {
        writeFile(user / "config.dat", junk);
        Started s = start(home);
        EXPECT_GE(s.state.centralBody, 0);
        EXPECT_LE(s.state.ephemerisType, 2);
        EXPECT_TRUE(std::isfinite(s.state.latitudeDegrees));
    }
}

TEST(Startup, LeftOversOfAnUpdateAreDeleted) {
    TempHome home;
    const fs::path user = home.home() / ".local/share/Orvane";
    // The program's package of an update, and the work files of the checks.
    for (const char* name : {"orvane-setup.deb", "update.lst", "update.csv"}) touch((user / name).string());
    start(home);
    for (const char* name : {"orvane-setup.deb", "update.lst", "update.csv"})
        EXPECT_FALSE(fs::exists(user / name)) << name;
}

TEST(Startup, ObserverDegreesFromTheSettings) {
    AppState s;
    DeriveObserver(s);
    EXPECT_NEAR(s.latitudeDegrees, 59 + 46 / 60.0 + 19.62 / 3600.0, 1e-15);
    EXPECT_NEAR(s.longitudeDegrees, 30 + 19 / 60.0 + 38.64 / 3600.0, 1e-15);
    s.latitudeSouth = 1;
    s.longitudeWest = 1;
    DeriveObserver(s);
    EXPECT_NEAR(s.latitudeDegrees, -(59 + 46 / 60.0 + 19.62 / 3600.0), 1e-15);
    EXPECT_NEAR(s.longitudeDegrees, 360.0 - (30 + 19 / 60.0 + 38.64 / 3600.0), 1e-13);
}

// The default observer is the Pulkovo observatory; its geocentric place in the MPC list
// of observatory codes (code 084) is rho cos phi' = 0.50471, rho sin phi' = +0.86041.
TEST(Startup, DefaultObserverIsPulkovoInEarthRadii) {
    AppState s;
    DeriveObserver(s);
    EXPECT_NEAR(s.observerRhoCos, 0.50471, 5e-6);
    EXPECT_NEAR(s.observerRhoSin, 0.86041, 5e-6);
}

class EphemerisSettle : public ::testing::Test {
protected:
    TempHome home;
    AppState s;
    void SetUp() override {
        s.folders.de406Path = (home.root() / "jplde406.dat").string();
        s.folders.de423Path = (home.root() / "jplde423.dat").string();
    }
};

TEST_F(EphemerisSettle, NeitherFileMeansMissing) {
    SettleEphemeris(s);
    EXPECT_EQ(s.ephemerisMissing, 1);
    EXPECT_EQ(s.ephemerisChoice, 0);
}

TEST_F(EphemerisSettle, ChoiceMovesToTheFileThatExists) {
    touch(s.folders.de423Path);
    s.ephemerisChoice = 1;
    SettleEphemeris(s);
    EXPECT_EQ(s.ephemerisMissing, 0);
    EXPECT_EQ(s.ephemerisChoice, 2);

    fs::remove(s.folders.de423Path);
    touch(s.folders.de406Path);
    s.ephemerisChoice = 2;
    SettleEphemeris(s);
    EXPECT_EQ(s.ephemerisChoice, 1);
}

TEST_F(EphemerisSettle, DeadDownloadOfTheOnlyFileLeavesNone) {
    touch(s.folders.de423Path);
    s.ephemerisChoice = 2;
    s.pendingEphemerisDelete = 2;
    SettleEphemeris(s);
    EXPECT_FALSE(fs::exists(s.folders.de423Path));
    EXPECT_EQ(s.pendingEphemerisDelete, 0);
    EXPECT_EQ(s.ephemerisMissing, 1);
    EXPECT_EQ(s.ephemerisChoice, 0);
}

TEST_F(EphemerisSettle, DeadDownloadWithTheOtherFilePresentSwitchesToIt) {
    touch(s.folders.de406Path);
    touch(s.folders.de423Path);
    s.pendingEphemerisDelete = 1;
    SettleEphemeris(s);
    EXPECT_FALSE(fs::exists(s.folders.de406Path));
    EXPECT_TRUE(fs::exists(s.folders.de423Path));
    EXPECT_EQ(s.ephemerisMissing, 0);
    EXPECT_EQ(s.ephemerisChoice, 2);
}

TEST(Startup, ChosenLanguageFileOverlaysTheDefaults) {
    TempHome home;
    fs::create_directories(home.root() / "Languages");
    writeFile(home.root() / "Languages" / "Test.lng", "[orvTab]\r\n1=Anfangsseite\r\n");
    Started first = start(home);
    EXPECT_EQ(text(Section::orvTab, 1), "Start Page");
    first.state.languageName = "Test.lng";
    ASSERT_TRUE(SaveSettings(first.state));

    Started second = start(home);
    EXPECT_EQ(second.state.languageName, "Test.lng");
    EXPECT_EQ(text(Section::orvTab, 1), "Anfangsseite");
    EXPECT_EQ(text(Section::orvTab, 2), "Orbits");
    ResetLanguage();
}
