// The program's version, and the version file of the server.
#include <gtest/gtest.h>

#include "net/program_version.h"
#include "support/temp_home.h"

using namespace orvane;
using namespace orvane::testing;

namespace {

float versionIn(const std::string& body, float before = 0.0f) {
    TempHome home;
    const auto path = home.root() / "versinfo.lst";
    writeFile(path, body);
    ReadVersionFile(path.string(), before);
    return before;
}

}  // namespace

TEST(ProgramVersion, IsShownWithTwoDecimals) {
    EXPECT_EQ(VersionText(kProgramVersion), "0.06");
    EXPECT_EQ(VersionText(0.07f), "0.07");
    EXPECT_EQ(VersionText(1.1f), "1.10");
}

TEST(ProgramVersion, TheVersionFileHoldsOneNumberInTheValueListSyntax) {
    EXPECT_EQ(versionIn("0.07\n"), 0.07f);
    EXPECT_EQ(versionIn("  0.07 , 9 /"), 0.07f);
    EXPECT_EQ(versionIn("\n\n1.5e0\r\n"), 1.5f);
}

TEST(ProgramVersion, ABodyThatIsNotANumberLeavesTheVersionAsItWas) {
    EXPECT_EQ(versionIn("<html><body>Error</body></html>"), 0.0f);
    EXPECT_EQ(versionIn(""), 0.0f);
    EXPECT_EQ(versionIn("garbage", 0.5f), 0.5f);
    EXPECT_EQ(versionIn("1e300"), 0.0f);
    EXPECT_EQ(versionIn(std::string(100000, 'x')), 0.0f);
}

TEST(ProgramVersion, OnlyAStrictlyHigherVersionIsNew) {
    EXPECT_FALSE(NewerThanProgram(versionIn("0.06")));
    EXPECT_FALSE(NewerThanProgram(versionIn("0.05")));
    EXPECT_FALSE(NewerThanProgram(versionIn("garbage")));
    EXPECT_TRUE(NewerThanProgram(versionIn("0.07")));
    // 0.0600001 is the same single-precision number as 0.06.
    EXPECT_FALSE(NewerThanProgram(versionIn("0.0600000001")));
}
