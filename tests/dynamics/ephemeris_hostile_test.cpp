// Files that are not what they claim: missing, empty, short, foreign, with
// header values no ephemeris has. Each gives a status and leaves the reader
// closed; none may crash or read outside the file.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <random>
#include <string>

#include "dynamics/ephemeris.h"
#include "support/temp_home.h"
#include "synthetic_ephemeris.h"

namespace {

using orvane::Ephemeris;
using orvane::EphemerisStatus;
using orvane::testing::BuildEphemerisFile;
using orvane::testing::De406Layout;
using orvane::testing::PutDouble;
using orvane::testing::PutInt32;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

class HostileFile : public ::testing::Test {
protected:
    // Writes `bytes`, opens them and checks that a closed reader answers
    // politely afterwards.
    EphemerisStatus Open(const std::string& bytes) {
        const auto path = home.root() / "ephemeris.dat";
        orvane::testing::writeFile(path, bytes);
        Ephemeris eph;
        const EphemerisStatus status = eph.OpenEphemerisFile(path);
        if (status != EphemerisStatus::Ok) {
            EXPECT_FALSE(eph.isOpen());
            orvane::State9 s{};
            EXPECT_EQ(eph.RelativeState(2451545.0, 3, 11, s), EphemerisStatus::NotOpen);
            orvane::BodyStatesResult b;
            EXPECT_EQ(eph.BodyStates(2451545.0, b), EphemerisStatus::NotOpen);
        }
        return status;
    }

    std::string Good() const { return BuildEphemerisFile(De406Layout(4)); }

    orvane::testing::TempHome home;
};

TEST_F(HostileFile, AMissingFileCannotBeOpened) {
    Ephemeris eph;
    EXPECT_EQ(eph.OpenEphemerisFile(home.root() / "nothing.dat"), EphemerisStatus::OpenFailed);
    EXPECT_EQ(eph.OpenEphemerisFile(home.root()), EphemerisStatus::OpenFailed);  // a folder
}

TEST_F(HostileFile, EmptyAndShortFilesAreTooShort) {
    EXPECT_EQ(Open(""), EphemerisStatus::TooShort);
    EXPECT_EQ(Open("JPL"), EphemerisStatus::TooShort);
    EXPECT_EQ(Open(Good().substr(0, 2855)), EphemerisStatus::TooShort);
    // The header alone, without the constants record.
    EXPECT_EQ(Open(Good().substr(0, 728 * 8)), EphemerisStatus::TooShort);
    EXPECT_EQ(Open(Good().substr(0, 728 * 8 + 100)), EphemerisStatus::TooShort);
}

TEST_F(HostileFile, AFileWithoutAllItsRecordsIsTruncated) {
    const std::string good = Good();
    EXPECT_EQ(Open(good), EphemerisStatus::Ok);
    EXPECT_EQ(Open(good.substr(0, good.size() - 1)), EphemerisStatus::Truncated);
    EXPECT_EQ(Open(good.substr(0, 3 * 728 * 8)), EphemerisStatus::Truncated);
    EXPECT_EQ(Open(good.substr(0, 2 * 728 * 8)), EphemerisStatus::Truncated);
}

TEST_F(HostileFile, ForeignFilesAreRefused) {
    EXPECT_EQ(Open(std::string(20000, 'A')), EphemerisStatus::BadHeader);
    EXPECT_EQ(Open(std::string(20000, '\0')), EphemerisStatus::BadHeader);
    EXPECT_EQ(Open(std::string(20000, '\xff')), EphemerisStatus::BadHeader);
    std::string text;
    while (text.size() < 30000) text += "C/1995 O1 (Hale-Bopp) 1997 03 31.9 0.9141 0.9951\n";
    EXPECT_EQ(Open(text), EphemerisStatus::BadHeader);
}

TEST_F(HostileFile, RandomBytesNeverOpenAndNeverCrash) {
    std::mt19937 random(1234);
    for (int round = 0; round < 200; ++round) {
        std::string bytes(static_cast<std::size_t>(2856 + random() % 20000), '\0');
        for (char& c : bytes) c = static_cast<char>(random() & 0xff);
        EXPECT_NE(Open(bytes), EphemerisStatus::Ok) << round;
    }
}

TEST_F(HostileFile, BadDatesInTheHeaderAreRefused) {
    const struct {
        double start, end, span;
    } cases[] = {
        {kNan, 2451792.5, 64.0},       {2451536.5, kNan, 64.0},
        {2451536.5, 2451792.5, kNan},  {2451536.5, 2451792.5, 0.0},
        {2451536.5, 2451792.5, -64.0}, {2451792.5, 2451536.5, 64.0},
        {2451536.5, 2451536.5, 64.0},  {-kInf, 2451792.5, 64.0},
        {2451536.5, kInf, 64.0},       {2451536.5, 2451792.5, 1e-300},  // record count overflow
        {-1e308, 1e308, 64.0},         {2451536.5, 2451792.5, 60.0},   // no whole number of records
        {0.0, 1e12, 1.0},              // a hundred million records and more
    };
    for (const auto& c : cases) {
        std::string bytes = Good();
        PutDouble(bytes, 2652, c.start);
        PutDouble(bytes, 2660, c.end);
        PutDouble(bytes, 2668, c.span);
        EXPECT_EQ(Open(bytes), EphemerisStatus::BadHeader) << c.start << " " << c.end << " " << c.span;
    }
}

TEST_F(HostileFile, BadConstantsOfTheHeaderAreRefused) {
    for (const double emrat : {0.0, -81.3, kNan, kInf}) {
        std::string bytes = Good();
        PutDouble(bytes, 2688, emrat);
        EXPECT_EQ(Open(bytes), EphemerisStatus::BadHeader) << emrat;
    }
    for (const double au : {0.0, kNan}) {
        std::string bytes = Good();
        PutDouble(bytes, 2680, au);
        EXPECT_EQ(Open(bytes), EphemerisStatus::BadHeader) << au;
    }
    std::string bytes = Good();
    PutInt32(bytes, 2676, -5);
    EXPECT_EQ(Open(bytes), EphemerisStatus::BadHeader);
}

TEST_F(HostileFile, AbsurdLayoutsAreRefused) {
    const struct {
        int series;  // 0 to 11 IPT, 12 LPT
        std::int32_t offset, coefficients, granules;
    } cases[] = {
        {0, 0, 14, 4},                // would overlap the dates
        {0, -1000000, 14, 4},         {0, 3, -14, 4},
        {0, 3, 14, -4},               {4, 0, 0, 0},  // Jupiter missing
        {10, 669, 0, 1},              // Sun without coefficients
        {0, 3, 2147483647, 4},        {0, 3, 14, 2147483647},
        {0, 2147483647, 14, 4},       {1, 171, 1000, 1000},  // a record of 3 million doubles
        {11, 705, 12, -1},            {12, 3, -5, 2},
        {12, 2147483000, 10, 4},
    };
    for (const auto& c : cases) {
        std::string bytes = Good();
        const std::size_t at = c.series < 12 ? 2696 + 12 * static_cast<std::size_t>(c.series) : 2844;
        PutInt32(bytes, at, c.offset);
        PutInt32(bytes, at + 4, c.coefficients);
        PutInt32(bytes, at + 8, c.granules);
        EXPECT_EQ(Open(bytes), EphemerisStatus::BadHeader)
            << c.series << ": " << c.offset << " " << c.coefficients << " " << c.granules;
    }
}

TEST_F(HostileFile, ARecordShorterThanTheConstantsIsNotThisFormat) {
    // Every series squeezed into the first 300 doubles.
    std::string bytes = Good();
    for (std::size_t i = 0; i < 12; ++i) {
        PutInt32(bytes, 2696 + 12 * i, 3 + static_cast<std::int32_t>(i));
        PutInt32(bytes, 2700 + 12 * i, 1);
        PutInt32(bytes, 2704 + 12 * i, 1);
    }
    EXPECT_EQ(Open(bytes), EphemerisStatus::BadHeader);
}

TEST_F(HostileFile, ARecordLongerThanTheFileClaimsIsTruncated) {
    // Librations declared beyond the 728 doubles: the records grow to 1000
    // doubles and the file holds fewer than the span needs.
    std::string bytes = Good();
    PutInt32(bytes, 2844, 729);
    PutInt32(bytes, 2848, 12);
    PutInt32(bytes, 2852, 7);
    EXPECT_EQ(Open(bytes), EphemerisStatus::Truncated);
}

TEST_F(HostileFile, AFirstRecordThatDoesNotStartAtTheHeadersStartIsRefused) {
    // Records of 736 doubles under a header whose layout makes 728: the first
    // record's dates are not where the layout puts them.
    orvane::testing::SyntheticEphemeris longer = De406Layout(4);
    longer.recordDoubles = 736;
    EXPECT_EQ(Open(BuildEphemerisFile(longer)), EphemerisStatus::BadHeader);

    std::string bytes = Good();
    PutDouble(bytes, 2 * 728 * 8, 2451537.5);  // first record starts a day late
    EXPECT_EQ(Open(bytes), EphemerisStatus::BadHeader);
    bytes = Good();
    PutDouble(bytes, 2 * 728 * 8 + 8, 2451536.5 + 32.0);  // and ends after 32 days
    EXPECT_EQ(Open(bytes), EphemerisStatus::BadHeader);
}

TEST_F(HostileFile, AFailedOpenClosesTheFileOpenedBefore) {
    const auto good = home.root() / "good.dat";
    const auto bad = home.root() / "bad.dat";
    orvane::testing::writeFile(good, Good());
    orvane::testing::writeFile(bad, std::string(100, 'x'));
    Ephemeris eph;
    ASSERT_EQ(eph.OpenEphemerisFile(good), EphemerisStatus::Ok);
    EXPECT_EQ(eph.OpenEphemerisFile(bad), EphemerisStatus::TooShort);
    EXPECT_FALSE(eph.isOpen());
    orvane::State9 s{};
    EXPECT_EQ(eph.RelativeState(2451545.0, 3, 11, s), EphemerisStatus::NotOpen);
    ASSERT_EQ(eph.OpenEphemerisFile(good), EphemerisStatus::Ok);
    EXPECT_EQ(eph.RelativeState(2451545.0, 3, 11, s), EphemerisStatus::Ok);
}

TEST_F(HostileFile, DataRecordsFullOfNanGiveNanStatesNotACrash) {
    std::string bytes = Good();
    // Every coefficient NaN; the dates of the records stay.
    for (std::size_t record = 2; record < 6; ++record) {
        for (std::size_t i = 2; i < 728; ++i) PutDouble(bytes, (record * 728 + i) * 8, kNan);
    }
    const auto path = home.root() / "nan.dat";
    orvane::testing::writeFile(path, bytes);
    Ephemeris eph;
    ASSERT_EQ(eph.OpenEphemerisFile(path), EphemerisStatus::Ok);
    orvane::BodyStatesResult b;
    EXPECT_EQ(eph.BodyStates(2451545.0, b), EphemerisStatus::Ok);
    EXPECT_TRUE(std::isnan(b.position[4][0]));
}

}  // namespace
