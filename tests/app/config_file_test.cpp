#include "app/config_file.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "support/temp_home.h"

using namespace orvane;
using orvane::testing::TempHome;
using orvane::testing::readFile;
using orvane::testing::writeFile;

namespace {

template <class T> T valueAt(const std::string& bytes, std::size_t offset) {
    T value{};
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

std::int32_t record(const std::string& bytes, int r) { return valueAt<std::int32_t>(bytes, (r - 1) * 800u); }

}  // namespace

TEST(ConfigFile, NewFileIsExactly134RecordsOf800Bytes) {
    TempHome home;
    const auto path = (home.root() / "config.dat").string();
    ASSERT_TRUE(CreateDefaultConfigFile(path));
    const std::string bytes = readFile(path);
    ASSERT_EQ(bytes.size(), 107200u);

    EXPECT_EQ(valueAt<float>(bytes, 0), 0.06f);
    EXPECT_EQ(record(bytes, 5), 500);
    EXPECT_EQ(record(bytes, 10), 1);
    EXPECT_EQ(record(bytes, 23), 1);
    EXPECT_EQ(record(bytes, 97), 3);
    EXPECT_EQ(record(bytes, 98), 800);
    EXPECT_EQ(record(bytes, 99), 600);
    EXPECT_EQ(record(bytes, 101), 16777215);
    EXPECT_EQ(record(bytes, 102), 1);
    EXPECT_EQ(record(bytes, 108), 30);
    EXPECT_EQ(record(bytes, 109), 19);
    EXPECT_EQ(valueAt<double>(bytes, 109 * 800), 38.64);
    EXPECT_EQ(valueAt<double>(bytes, 113 * 800), 19.62);
    EXPECT_EQ(valueAt<double>(bytes, 115 * 800), 85.4);
    EXPECT_EQ(record(bytes, 112), 59);
    EXPECT_EQ(record(bytes, 113), 46);
    EXPECT_EQ(record(bytes, 126), 1);
    EXPECT_EQ(record(bytes, 132), 1);
    EXPECT_EQ(record(bytes, 134), 1);

    // Record 107 is the language name, blank padded to 100.
    EXPECT_EQ(bytes.substr(106 * 800, 100), "English.lng" + std::string(89, ' '));
    // The rest of each record is padding.
    EXPECT_EQ(bytes.substr(106 * 800 + 100, 700), std::string(700, '\0'));
    EXPECT_EQ(bytes.substr(4, 796), std::string(796, '\0'));
}

TEST(ConfigFile, ColumnTicksStandInRecords27To79) {
    TempHome home;
    const auto path = (home.root() / "config.dat").string();
    ASSERT_TRUE(CreateDefaultConfigFile(path));
    const std::string bytes = readFile(path);
    // comet name des olddes htype ... P_calc, as a new file has them.
    const int expected[53] = {1, 1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1,
                              1, 1, 1, 1, 1, 0, 1, 1, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    for (int k = 0; k < 53; ++k) EXPECT_EQ(record(bytes, 27 + k), expected[k]) << "record " << 27 + k;
    EXPECT_EQ(record(bytes, 50), 1);  // Obs
    EXPECT_EQ(record(bytes, 59), 0);  // SBP
    EXPECT_EQ(record(bytes, 63), 1);  // hreference
    EXPECT_EQ(record(bytes, 64), 0);  // Producer
}

TEST(ConfigFile, SaveFolderIsRecord133BlankPaddedTo500) {
    TempHome home;
    const auto path = (home.root() / "config.dat").string();
    AppState state;
    state.saveFolder = "/home/observer/Documents";
    state.longitudeSec = 12.25;
    ASSERT_TRUE(WriteConfigFile(path, state));
    const std::string bytes = readFile(path);
    ASSERT_EQ(bytes.size(), 107200u);
    EXPECT_EQ(bytes.substr(132 * 800, 500), state.saveFolder + std::string(500 - state.saveFolder.size(), ' '));
    EXPECT_EQ(valueAt<double>(bytes, 109 * 800), 12.25);
}

TEST(ConfigFile, WrittenValuesReadBack) {
    TempHome home;
    const auto path = (home.root() / "config.dat").string();
    AppState state;
    state.splitterPosition = 321;
    state.windowLeft = 10;
    state.windowWidth = 1024;
    state.columnShown[52] = 1;
    state.languageName = "Russian.lng";
    state.altitude = -3.5;
    state.maxFileSize = 7;
    ASSERT_TRUE(WriteConfigFile(path, state));

    AppState read;
    EXPECT_EQ(ReadConfigFile(path, read), 134);
    EXPECT_EQ(read.splitterPosition, 321);
    EXPECT_EQ(read.windowLeft, 10);
    EXPECT_EQ(read.windowWidth, 1024);
    EXPECT_EQ(read.columnShown[52], 1);
    EXPECT_EQ(read.languageName, "Russian.lng");
    EXPECT_EQ(read.altitude, -3.5);
    EXPECT_EQ(read.maxFileSize, 7);
}

TEST(ConfigFile, ShortFileKeepsDefaultsOfMissingRecords) {
    TempHome home;
    const auto path = (home.root() / "config.dat").string();
    AppState state;
    state.splitterPosition = 42;
    state.maxFileSize = 9;
    ASSERT_TRUE(WriteConfigFile(path, state));
    // Cut the file inside record 100: records 1..99 stand, 100 on are missing.
    writeFile(path, readFile(path).substr(0, 99 * 800 + 17));

    AppState read;
    EXPECT_EQ(ReadConfigFile(path, read), 99);
    EXPECT_EQ(read.splitterPosition, 42);
    EXPECT_EQ(read.maxFileSize, 1);
    EXPECT_EQ(read.languageName, "English.lng");
}

TEST(ConfigFile, EmptyAndMissingFilesReadNothing) {
    TempHome home;
    const auto path = (home.root() / "config.dat").string();
    AppState read;
    EXPECT_EQ(ReadConfigFile(path, read), 0);
    writeFile(path, "");
    EXPECT_EQ(ReadConfigFile(path, read), 0);
    float version = 1.0f;
    EXPECT_FALSE(ReadConfigVersion(path, version));
    EXPECT_EQ(version, 1.0f);
}

TEST(ConfigFile, LanguageRecordIsOverwrittenInPlace) {
    TempHome home;
    const auto path = (home.root() / "config.dat").string();
    ASSERT_TRUE(CreateDefaultConfigFile(path));
    const std::string before = readFile(path);
    ASSERT_TRUE(WriteLanguageRecord(path, "German.lng"));
    const std::string after = readFile(path);
    ASSERT_EQ(after.size(), 107200u);
    EXPECT_EQ(after.substr(106 * 800, 100), "German.lng" + std::string(90, ' '));
    EXPECT_EQ(after.substr(0, 106 * 800), before.substr(0, 106 * 800));
    EXPECT_EQ(after.substr(107 * 800), before.substr(107 * 800));
}

TEST(ConfigFile, GarbageValuesAreRepairedToDefaults) {
    TempHome home;
    const auto path = (home.root() / "config.dat").string();
    std::string junk(107200, '\xff');
    writeFile(path, junk);
    AppState read;
    EXPECT_EQ(ReadConfigFile(path, read), 134);
    RepairConfigValues(read);
    EXPECT_EQ(read.ephemerisType, 0);
    EXPECT_EQ(read.centralBody, 3);
    EXPECT_EQ(read.pictureWidth, 800);
    EXPECT_EQ(read.longitudeSec, 38.64);  // the bytes 0xff.. are a NaN
    EXPECT_EQ(read.splitterPosition, 500);
    // A text record of 0xff bytes reads as such; it is only a file name that will not exist.
    EXPECT_EQ(read.languageName.size(), 100u);
}
