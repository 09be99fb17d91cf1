// The update server's address: the environment, the user's settings file, the folder
// that the setup published; and the URLs built from it.
#include <gtest/gtest.h>

#include <cstdlib>

#include "net/update_server.h"
#include "support/temp_home.h"

using namespace orvane;
using namespace orvane::testing;

namespace {

class ServerAddressTest : public ::testing::Test {
protected:
    void SetUp() override { unsetenv(kServerEnvironment); }
    void TearDown() override { unsetenv(kServerEnvironment); }
    TempHome home;
    std::string user = (home.root() / "user").string() + "/";
    std::string common = "/usr/local/share/Orvane/";
};

}  // namespace

TEST_F(ServerAddressTest, WithoutASettingTheLocalServerFolderOfTheSetupHolds) {
    EXPECT_EQ(ServerAddress(user, common), "file:///usr/local/share/Orvane/Server");
    EXPECT_EQ(LocalServerFolder(common), "/usr/local/share/Orvane/Server");
}

TEST_F(ServerAddressTest, TheStoredAddressHoldsAcrossARestart) {
    std::filesystem::create_directories(user);
    ASSERT_TRUE(StoreServerAddress(user, "  http://comets.example.org:8080  "));
    EXPECT_EQ(StoredServerAddress(user), "http://comets.example.org:8080");
    EXPECT_EQ(ServerAddress(user, common), "http://comets.example.org:8080");
    EXPECT_EQ(readFile(user + "settings.txt"), "update-server=http://comets.example.org:8080\n");
    // An empty address brings the default back.
    ASSERT_TRUE(StoreServerAddress(user, ""));
    EXPECT_EQ(StoredServerAddress(user), "");
    EXPECT_EQ(ServerAddress(user, common), "file:///usr/local/share/Orvane/Server");
}

TEST_F(ServerAddressTest, OtherLinesOfTheSettingsFileStay) {
    std::filesystem::create_directories(user);
    writeFile(user + "settings.txt", "something-else=1\nupdate-server=http://a\n");
    ASSERT_TRUE(StoreServerAddress(user, "https://b"));
    EXPECT_EQ(readFile(user + "settings.txt"), "something-else=1\nupdate-server=https://b\n");
}

TEST_F(ServerAddressTest, TheEnvironmentOverridesTheSetting) {
    std::filesystem::create_directories(user);
    ASSERT_TRUE(StoreServerAddress(user, "http://stored"));
    setenv(kServerEnvironment, "http://127.0.0.1:5555", 1);
    EXPECT_EQ(ServerAddress(user, common), "http://127.0.0.1:5555");
}

TEST_F(ServerAddressTest, AHostileSettingsFileIsIgnored) {
    std::filesystem::create_directories(user);
    writeFile(user + "settings.txt", "update-server=ftp://x\n");
    EXPECT_EQ(ServerAddress(user, common), "file:///usr/local/share/Orvane/Server");
    writeFile(user + "settings.txt", "update-server=http://" + std::string(5000, 'a') + "\n");
    EXPECT_EQ(StoredServerAddress(user), "");
    writeFile(user + "settings.txt", std::string(100000, '\0'));
    EXPECT_EQ(StoredServerAddress(user), "");
}

TEST(ServerAddress, OnlyHttpHttpsAndFileAddressesAreValid) {
    EXPECT_TRUE(ValidServerAddress("http://host"));
    EXPECT_TRUE(ValidServerAddress("https://host:8443"));
    EXPECT_TRUE(ValidServerAddress("file:///srv/orvane"));
    EXPECT_FALSE(ValidServerAddress("http://"));
    EXPECT_FALSE(ValidServerAddress("ftp://host"));
    EXPECT_FALSE(ValidServerAddress("host"));
    EXPECT_FALSE(ValidServerAddress("http://a b"));
    EXPECT_FALSE(ValidServerAddress("http://a\tb"));
    EXPECT_FALSE(ValidServerAddress("http://" + std::string(440, 'a')));
}

TEST(ServerAddress, AFolderNameWithBlanksIsEncodedInTheDefault) {
    EXPECT_EQ(DefaultServerAddress("/home/Ann Lee/.local/share/Orvane/Common/"),
              "file:///home/Ann%20Lee/.local/share/Orvane/Common/Server");
    EXPECT_TRUE(ValidServerAddress(DefaultServerAddress("/home/Ann Lee/x/")));
}

TEST(ServerAddress, FolderUrlsAndTheHomePage) {
    EXPECT_EQ(ServerUrl("http://host/", kFilesPath), "http://host/orvane/files/");
    EXPECT_EQ(ServerUrl("http://host", kEphemeridesPath), "http://host/orvane/OrvaneData/Ephemerides/");
    EXPECT_EQ(ServerUrl("http://host", kElementsPath), "http://host/orvane/OrvaneData/Elements/");
    EXPECT_EQ(HomePageUrl("http://host:8080"), "http://host:8080/orvane/");
    EXPECT_EQ(HomePageUrl("file:///srv/x"), "file:///srv/x/orvane/index.html");
}
