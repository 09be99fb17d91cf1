#include "catalogue/legacy_round.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace orvane::sql {
namespace {

TEST(LegacyRound, FixedTextOfTheOldPrintf) {
    EXPECT_EQ(legacyFixedText(2.5, 0), "3");
    EXPECT_EQ(legacyFixedText(-2.5, 0), "-3");
    EXPECT_EQ(legacyFixedText(-0.4, 0), "-0");
    EXPECT_EQ(legacyFixedText(9.5, 0), "10");
    EXPECT_EQ(legacyFixedText(1234.5678, 2), "1234.57");
    EXPECT_EQ(legacyFixedText(2.675, 2), "2.67");
    EXPECT_EQ(legacyFixedText(0.05, 3), "0.050");
    EXPECT_EQ(legacyFixedText(0.00001, 2), "0.00");
    EXPECT_EQ(legacyFixedText(123456789012345678.0, 0), "123456789012345600");
    EXPECT_EQ(legacyFixedText(std::numeric_limits<double>::infinity(), 0), "Inf");
    EXPECT_EQ(legacyFixedText(-std::numeric_limits<double>::infinity(), 2), "-Inf");
}

TEST(LegacyRound, TextToReal) {
    EXPECT_EQ(legacyTextToReal("  12.50"), 12.5);
    EXPECT_EQ(legacyTextToReal("+7"), 7.0);
    EXPECT_EQ(legacyTextToReal("0.000125"), 0.000125);
    EXPECT_TRUE(std::signbit(legacyTextToReal("-0")));
    EXPECT_EQ(legacyTextToReal("Inf"), 0.0);
    EXPECT_EQ(legacyTextToReal(""), 0.0);
}

TEST(LegacyRound, RoundGoesThroughTheText) {
    EXPECT_EQ(legacyRound(2.5, 0), 3.0);
    EXPECT_EQ(legacyRound(-2.5, 0), -3.0);
    EXPECT_EQ(legacyRound(0.49999999999999994, 0), 0.0);
    EXPECT_EQ(legacyRound(1234.5678, 2), 1234.57);
    EXPECT_EQ(legacyRound(1234.5678, -5), 1235.0);
    EXPECT_EQ(legacyRound(1.0 / 3.0, 99), legacyRound(1.0 / 3.0, 30));
    // An infinity is written "Inf", which reads back as no digits at all.
    EXPECT_EQ(legacyRound(std::numeric_limits<double>::infinity(), 0), 0.0);
}

}  // namespace
}  // namespace orvane::sql
