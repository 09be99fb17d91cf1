// The checks of downloaded files: the checksum of a package and a readable planetary file.
#include <gtest/gtest.h>

#include <filesystem>

#include "astro/calendar.h"
#include "net/file_checks.h"
#include "support/temp_home.h"
#include "support/test_server.h"

using namespace orvane;
using namespace orvane::testing;

TEST(FileChecks, Sha256OfKnownTexts) {
    TempHome home;
    const auto path = home.root() / "abc";
    writeFile(path, "abc");
    // FIPS 180-2, appendix B.1.
    EXPECT_EQ(Sha256OfFile(path.string()), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    writeFile(path, "");
    EXPECT_EQ(Sha256OfFile(path.string()), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(Sha256OfFile((home.root() / "missing").string()), "");
}

TEST(FileChecks, TheChecksumFileIsReadAsSha256sumWritesIt) {
    TempHome home;
    const auto path = home.root() / "x.sha256";
    const std::string digest = "BA7816BF8F01CFEA414140DE5DAE2223B00361A396177A9CB410FF61F20015AD";
    writeFile(path, digest + "  orvane-setup.deb\n");
    EXPECT_EQ(ReadChecksumFile(path.string()), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    writeFile(path, digest);
    EXPECT_EQ(ReadChecksumFile(path.string()), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    writeFile(path, digest + "0  orvane-setup.deb\n");
    EXPECT_EQ(ReadChecksumFile(path.string()), "");
    writeFile(path, "<html>" + digest);
    EXPECT_EQ(ReadChecksumFile(path.string()), "");
    writeFile(path, digest.substr(0, 63));
    EXPECT_EQ(ReadChecksumFile(path.string()), "");
}

TEST(FileChecks, TheSetupsPlanetaryFileIsReadableWithItsSpan) {
    const PlanetarySpan span = CheckPlanetaryFile(machinePlanetaryFile().string());
    ASSERT_TRUE(span.readable) << machinePlanetaryFile() << ": run scripts/setup";
    // The DE405 file of the setup: JD 2436912.5 (1959-12-10) to 2473488.5 (2060-01-30).
    EXPECT_EQ(span.firstJd, 2436912.5);
    EXPECT_EQ(span.lastJd, 2473488.5);
}

TEST(FileChecks, ACutOrForeignFileIsNotAPlanetaryFile) {
    TempHome home;
    const auto path = home.root() / "jplde423.dat";
    const std::string whole = readFile(machinePlanetaryFile());
    ASSERT_FALSE(whole.empty());
    writeFile(path, whole.substr(0, whole.size() / 2));
    EXPECT_FALSE(CheckPlanetaryFile(path.string()).readable);
    writeFile(path, "<html><body>Not found</body></html>");
    EXPECT_FALSE(CheckPlanetaryFile(path.string()).readable);
    // A last record of zeros: the header and the first record are fine.
    std::string zeroed = whole;
    const std::size_t record = 2 * 1018 * 4;
    std::fill(zeroed.end() - static_cast<long>(record), zeroed.end(), '\0');
    writeFile(path, zeroed);
    EXPECT_FALSE(CheckPlanetaryFile(path.string()).readable);
}

TEST(FileChecks, SpanDatesAreYearMonthDay) {
    EXPECT_EQ(SpanDateText(2436912.5), "1959-12-10");
    EXPECT_EQ(SpanDateText(2473488.5), "2060-01-30");
    EXPECT_EQ(SpanDateText(CalendarToJulian(-3000, 2, 22)), "-3000-02-22");
    EXPECT_EQ(SpanDateText(CalendarToJulian(3000, 3, 3)), "3000-03-03");
    EXPECT_EQ(SpanDateText(CalendarToJulian(5, 1, 2.75)), "0005-01-02");
}
