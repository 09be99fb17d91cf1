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

TEST(FixedText, ColumnsCountFromOne) {
    const std::string line = "0001P  2024 A1  2024 Jan";
    EXPECT_EQ(columnText(line, 1, 4), "0001");
    EXPECT_EQ(columnText(line, 5, 5), "P");
    EXPECT_EQ(columnField(line, 6, 14), "2024 A1");
    EXPECT_EQ(columnText(line, 22, 30), "Jan");     // the line is shorter
    EXPECT_EQ(columnText(line, 40, 45), "");
    EXPECT_EQ(columnField("      ", 1, 6), "");
    EXPECT_EQ(columnText(line, 0, 3), "");
    EXPECT_EQ(columnText(line, 5, 4), "");
}

TEST(FixedText, PutColumnsGrowsTheLineWithBlanks) {
    std::string line;
    putColumns(line, 5, "P");
    putColumns(line, 1, "0001");
    putColumns(line, 10, "x");
    EXPECT_EQ(line, "0001P    x");
    putColumns(line, 2, "ab");
    EXPECT_EQ(line, "0ab1P    x");
}

TEST(FixedText, TrailingZerosOfDecimalsGoUpToThree) {
    std::string e = "0.500000";
    blankTrailingZeros(e, 3);
    EXPECT_EQ(e, "0.500   ");
    std::string q = "1.000000";
    blankTrailingZeros(q, 3);
    EXPECT_EQ(q, "1.000   ");
    std::string p = "5.00";
    blankTrailingZeros(p, 3);
    EXPECT_EQ(p, "5.0 ");  // the only decimal left stays
    std::string w = "12.3450 ";
    blankTrailingZeros(w, 3);
    EXPECT_EQ(w, "12.345  ");
    std::string kept = "0.123456";
    blankTrailingZeros(kept, 3);
    EXPECT_EQ(kept, "0.123456");
    std::string whole = "100";
    blankTrailingZeros(whole, 3);
    EXPECT_EQ(whole, "100");
}
