// orvane-publish builds the server folder the client reads.
#include <gtest/gtest.h>

#include <filesystem>

#include "net/file_checks.h"
#include "support/temp_home.h"
#include "support/test_server.h"

using namespace orvane;
using namespace orvane::testing;
namespace fs = std::filesystem;

TEST(Publish, BuildsTheLayoutOfTheUpdateServer) {
    TempHome home;
    const fs::path server = home.root() / "server";
    const fs::path package = home.root() / "orvane_0.07_amd64.deb";
    writeFile(package, "!<arch>\ndebian-binary   2.0\n");
    ASSERT_TRUE(publishServer(server, {"--version=0.07", "--package=" + package.string(),
                                       "--de423=" + machinePlanetaryFile().string()}));
    const fs::path root = server / "orvane";
    EXPECT_EQ(readFile(root / "files/versinfo.lst"), "0.07\n");
    EXPECT_EQ(readFile(root / "files/orvane-setup.deb"), readFile(package));
    EXPECT_EQ(readFile(root / "files/orvane-setup.deb.sha256"),
              Sha256OfFile(package.string()) + "  orvane-setup.deb\n");
    EXPECT_EQ(readFile(root / "OrvaneData/Ephemerides/jplde423.dat"), readFile(machinePlanetaryFile()));
    EXPECT_TRUE(fs::is_directory(root / "OrvaneData/Elements"));
    const std::string index = readFile(root / "index.html");
    EXPECT_NE(index.find("OrvaneData/Ephemerides/jplde423.dat"), std::string::npos);
    EXPECT_NE(index.find("0.07"), std::string::npos);
}

TEST(Publish, WithoutAVersionThePublishedOneStaysAndANewFolderGetsTheProgramsOwn) {
    TempHome home;
    const fs::path server = home.root() / "server";
    ASSERT_TRUE(publishServer(server, {}));
    EXPECT_EQ(readFile(server / "orvane/files/versinfo.lst"), "0.06\n");
    ASSERT_TRUE(publishServer(server, {"--version=1.5"}));
    ASSERT_TRUE(publishServer(server, {}));
    EXPECT_EQ(readFile(server / "orvane/files/versinfo.lst"), "1.50\n");
}

TEST(Publish, RefusesWhatTheClientWouldRefuse) {
    TempHome home;
    const fs::path server = home.root() / "server";
    writeFile(home.root() / "page.html", "<html></html>");
    EXPECT_FALSE(publishServer(server, {"--de406=" + (home.root() / "page.html").string()}));
    EXPECT_FALSE(fs::exists(server / "orvane/OrvaneData/Ephemerides/jplde406.dat"));
    EXPECT_FALSE(publishServer(server, {"--version=new"}));
    EXPECT_FALSE(publishServer(server, {"--package=" + (home.root() / "page.html").string()}));
    EXPECT_FALSE(fs::exists(server / "orvane/files/orvane-setup.deb"));
    EXPECT_FALSE(publishServer(server, {"--frobnicate"}));
}
