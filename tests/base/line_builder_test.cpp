#include "base/line_builder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace orvane;

TEST(LineBuilder, LeadingBlankBecomesZero) {
    std::string line;
    LineBuilder(line).fieldIZero(5, 2).text(":").fieldIZero(0, 2).text(":").fieldIZero(59, 2);
    EXPECT_EQ(line, "05:00:59");
    line.clear();
    // Only the first place: a negative value or a wider field keeps the rest.
    LineBuilder(line).fieldIZero(-5, 2).text("|").fieldIZero(7, 3);
    EXPECT_EQ(line, "-5|0 7");
}

TEST(LineBuilder, CalendarDateWithDayInFixedForm) {
    std::string line;
    LineBuilder(line).fieldI(2024, 5).text("-").fieldIZero(5, 2).text("-").fieldFZero(7.5, 11, 8);
    EXPECT_EQ(line, " 2024-05-07.50000000");
    line.clear();
    LineBuilder(line).fieldITrimmed(2024, 5).text("-").fieldIZero(12, 2).text("-").fieldFZero(
        31.25, 11, 8);
    EXPECT_EQ(line, "2024-12-31.25000000");
    line.clear();
    LineBuilder(line).fieldITrimmed(-43, 5).text("-").fieldIZero(3, 2);
    EXPECT_EQ(line, "-43-03");
}

TEST(LineBuilder, CalendarDateWithHoursMinutesSeconds) {
    std::string line;
    LineBuilder(line)
        .fieldI(1997, 5).text("-").fieldIZero(4, 2).text("-").fieldIZero(1, 2)
        .text(" ").fieldIZero(3, 2).text(":").fieldIZero(4, 2).text(":").fieldIZero(5, 2);
    EXPECT_EQ(line, " 1997-04-01 03:04:05");
}

TEST(LineBuilder, RightAscensionAndDeclinationFields) {
    std::string line;
    LineBuilder(line).fieldI(12, 3).text(" ").fieldIZero(34, 2).text(" ").fieldFZero(5.5, 5, 2);
    EXPECT_EQ(line, " 12 34 05.50");
    line.clear();
    LineBuilder(line).fieldI(-12, 3).text(" ").fieldIZero(3, 2).text(" ").fieldFZero(5.66, 4, 1);
    EXPECT_EQ(line, "-12 03 05.7");
}

TEST(LineBuilder, ObserverPlaceFields) {
    std::string line;
    LineBuilder(line).fieldI(59, 2).text("d").fieldI(46, 2).text("m").fieldF(19.62, 5, 2).text(
        "s N, ").fieldF(85.4, 6, 1);
    EXPECT_EQ(line, "59d46m19.62s N,   85.4");
}

TEST(LineBuilder, ANumberNarrowerThanItsColumnIsFilledAtTheRight) {
    std::string line;
    LineBuilder builder(line);
    const auto start = builder.size();
    builder.fieldE(12.5, 21, 15).padFrom(start, 23).text("|");
    EXPECT_EQ(line, "0.125000000000000E+02  |");
    line.clear();
    const auto next = builder.size();
    builder.fieldE(-12.5, 22, 15).padFrom(next, 24).fieldES(1.5, 9, 2);
    EXPECT_EQ(line, "-0.125000000000000E+02   1.50E+00");
}

TEST(LineBuilder, AlignedTexts) {
    std::string line;
    LineBuilder(line).right("T mag", 7).text("|").left("n.a.", 6).text("|").right("Epoch (TT) ", 8);
    EXPECT_EQ(line, "  T mag|n.a.  |Epoch (T");
    line.clear();
    LineBuilder(line).left("abcdef", 3).blanks(2).right("", 2);
    EXPECT_EQ(line, "abc    ");
}

TEST(LineBuilder, TrimmedIntegerKeepsStarsWhenTooWide) {
    std::string line;
    LineBuilder(line).fieldITrimmed(2460000, 8).text(" ").fieldITrimmed(123456, 5);
    EXPECT_EQ(line, "2460000 *****");
}

TEST(LineBuilder, ReusingTheStringKeepsItsStorage) {
    std::string line;
    line.reserve(200);
    const auto* storage = line.data();
    for (int i = 0; i < 1000; ++i) {
        line.clear();
        LineBuilder(line).fieldF(i * 0.5, 16, 8).fieldE(i * 1.5, 22, 15).fieldI(i, 7);
    }
    EXPECT_EQ(line.data(), storage);
    EXPECT_EQ(line, "    499.50000000 0.149850000000000E+04    999");
}

TEST(LineBuilder, APartBuiltInPlaceIsRightAlignedWithoutItsLeadingBlanks) {
    std::string line = "ab";
    LineBuilder builder(line);
    builder.fieldI(2020, 5).text("-05").rightAlignFrom(2, 10).text("|");
    EXPECT_EQ(line, "ab   2020-05|");
    line = "ab";
    builder.text("  123456").rightAlignFrom(2, 4).text("|");
    EXPECT_EQ(line, "ab1234|");
    line = "ab";
    builder.blanks(3).rightAlignFrom(2, 2);
    EXPECT_EQ(line, "ab  ");
}

}  // namespace
