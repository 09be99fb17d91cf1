#include "catalogue/sql_text.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;
using orvane::sql::fromSqlText;
using orvane::sql::padText;
using orvane::sql::toSqlText;
using orvane::sql::trimRightText;
using orvane::sql::trimText;

TEST(SqlText, OutgoingTextLosesTrailingBlanksOnly) {
    EXPECT_EQ(toSqlText("  Halley   "), "  Halley");
    EXPECT_EQ(toSqlText("      "), "");
    EXPECT_EQ(toSqlText(""), "");
}

TEST(SqlText, OutgoingTextEndsAtAnEarlierNul) {
    EXPECT_EQ(toSqlText("abc\0def   "s), "abc");
    // The NUL stands behind the last non-blank byte; blanks before an earlier NUL stay.
    EXPECT_EQ(toSqlText("abc  \0def"s), "abc  ");
}

TEST(SqlText, IncomingTextIsCutAtNulAndBlankPadded) {
    EXPECT_EQ(fromSqlText("n/a", 6), "n/a   ");
    EXPECT_EQ(fromSqlText("abcdefgh", 4), "abcd");
    EXPECT_EQ(fromSqlText(nullptr, 3), "   ");
    const char embedded[] = {'a', 'b', '\0', 'c', 'd', '\0'};
    EXPECT_EQ(fromSqlText(embedded, 5), "ab   ");
}

TEST(SqlText, PadAndTrim) {
    EXPECT_EQ(padText("ab", 4), "ab  ");
    EXPECT_EQ(padText("abcdef", 4), "abcd");
    EXPECT_EQ(padText("a\0bc"s, 3), "a  ");
    EXPECT_EQ(trimRightText("  ab  \0xyz"s), "  ab");
    EXPECT_EQ(trimText("  ab  \0xyz"s), "ab");
    EXPECT_EQ(trimText("     "), "");
}
