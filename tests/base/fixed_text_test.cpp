#include "base/fixed_text.h"

#include <gtest/gtest.h>

using namespace orvane;
using namespace std::string_literals;

TEST(FixedText, PadsAndCutsToWidth) {
    EXPECT_EQ(padTo("abc", 5), "abc  ");
    EXPECT_EQ(padTo("abcdef", 4), "abcd");
    EXPECT_EQ(padTo("ab\0cd"s, 5), "ab   ");
}

TEST(FixedText, OutgoingKeepsLeadingBlanksAndDropsTrailingOnes) {
    EXPECT_EQ(outgoing("  x y   "), "  x y");
    EXPECT_EQ(outgoing("     "), "");
    EXPECT_EQ(outgoing("n/a\0zzz"s), "n/a");
}

TEST(FixedText, BlankAndTrim) {
    EXPECT_TRUE(isBlank("    "));
    EXPECT_TRUE(isBlank("\0abc"s));
    EXPECT_FALSE(isBlank("  a "));
    EXPECT_EQ(trimBoth("  a b  "), "a b");
    EXPECT_EQ(trimBoth("   "), "");
}
