#include "base/list_directed.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace orvane;
using namespace std::string_literals;

// One statement of six items, an integer, a real and a six-character text twice, as
// in the comparison with gfortran; the results below are what gfortran 12.2 gives.
struct Six {
    std::int32_t i1 = -1;
    double x1 = -1;
    std::string c1 = "AAAAAA";
    std::int32_t i2 = -1;
    double x2 = -1;
    std::string c2 = "BBBBBB";
    ListResult result;
};

Six readSix(std::string_view text, ListOptions options = {}) {
    Six s;
    const ListTarget targets[] = {ListTarget::integer(s.i1), ListTarget::real(s.x1),
                                  ListTarget::text(s.c1, 6),  ListTarget::integer(s.i2),
                                  ListTarget::real(s.x2),     ListTarget::text(s.c2, 6)};
    ListReader reader(text, options);
    s.result = readList(reader, targets);
    return s;
}

TEST(ListDirected, BlanksAndCommasSeparate) {
    for (const char* text : {"1 2.5 abc 3 4.5 def", "1,2.5,abc,3,4.5,def", "1 ,2.5 , abc,3\t4.5\tdef",
                             "  1   2.5 abc 3 4.5 def  , ignored"}) {
        const auto s = readSix(text);
        EXPECT_EQ(s.result.status, ListStatus::Ok) << text;
        EXPECT_EQ(s.result.itemsRead, 6);
        EXPECT_EQ(s.i1, 1);
        EXPECT_EQ(s.x1, 2.5);
        EXPECT_EQ(s.c1, "abc   ");
        EXPECT_EQ(s.i2, 3);
        EXPECT_EQ(s.x2, 4.5);
        EXPECT_EQ(s.c2, "def   ");
    }
}

TEST(ListDirected, TwoCommasLeaveTheFieldAsItWas) {
    const auto s = readSix("1,,'x''y',,,\"q\"\"r\"");
    EXPECT_EQ(s.result.status, ListStatus::Ok);
    EXPECT_EQ(s.i1, 1);
    EXPECT_EQ(s.x1, -1);
    EXPECT_EQ(s.c1, "x'y   ");
    EXPECT_EQ(s.i2, -1);
    EXPECT_EQ(s.x2, -1);
    EXPECT_EQ(s.c2, "q\"r   ");

    const auto t = readSix("1 2 a,, , 5 b");
    EXPECT_EQ(t.result.status, ListStatus::Ok);
    EXPECT_EQ(t.c1, "a     ");
    EXPECT_EQ(t.i2, -1);
    EXPECT_EQ(t.x2, -1);
    EXPECT_EQ(t.c2, "5     ");
}

TEST(ListDirected, ACommaFirstInTheListIsANullValue) {
    const auto s = readSix("  , 2 a 1 1 b");
    EXPECT_EQ(s.result.status, ListStatus::Ok);
    EXPECT_EQ(s.i1, -1);
    EXPECT_EQ(s.x1, 2);
    EXPECT_EQ(s.c2, "b     ");
}

TEST(ListDirected, BlanksAroundOneCommaAreOneSeparator) {
    // The comma after "1 " separates; so "x" is the real and is bad.
    const auto s = readSix("1 , x 1 1 y");
    EXPECT_EQ(s.result.status, ListStatus::BadReal);
    EXPECT_EQ(s.result.itemsRead, 1);
    EXPECT_EQ(s.i1, 1);
    EXPECT_EQ(s.x1, -1);
}

TEST(ListDirected, ASlashEndsTheListAndTheRestKeepTheirContent) {
    const auto s = readSix("1 2.5 abc / 9");
    EXPECT_EQ(s.result.status, ListStatus::EndOfList);
    EXPECT_FALSE(listFailed(s.result.status));
    EXPECT_EQ(s.result.itemsRead, 3);
    EXPECT_EQ(s.c1, "abc   ");
    EXPECT_EQ(s.i2, -1);
    EXPECT_EQ(s.c2, "BBBBBB");

    // An undelimited text ends at the slash, which then ends the list.
    const auto t = readSix("1 2 abc/def 1 1 b");
    EXPECT_EQ(t.result.status, ListStatus::EndOfList);
    EXPECT_EQ(t.c1, "abc   ");
    EXPECT_EQ(t.i2, -1);

    // A slash after the last item changes nothing.
    EXPECT_EQ(readSix("1 2 x 1 1 'y'/").result.status, ListStatus::Ok);
}

TEST(ListDirected, TextIsCutToItsFieldOrPadded) {
    EXPECT_EQ(readSix("1 2 abcdefghij 1 1 b").c1, "abcdef");
    EXPECT_EQ(readSix("1 2 'abcdefghij' 1 1 b").c1, "abcdef");
    EXPECT_EQ(readSix("1 2 '' 1 1 \"\"").c1, "      ");
    EXPECT_EQ(readSix("1 2 ab'c 1 1 b").c1, "ab'c  ");
    EXPECT_EQ(readSix("1 2 a*b 1 1 y").c1, "a*b   ");
    EXPECT_EQ(readSix("1 2 12 1 1 b").c1, "12    ");
    EXPECT_EQ(readSix("1 2 \"a,b c\" 1 1 x").c1, "a,b c ");
}

TEST(ListDirected, AQuotedTextMustBeFollowedByASeparator) {
    const auto s = readSix("1 2 'ab'cd 1 1 b");
    EXPECT_EQ(s.result.status, ListStatus::BadText);
    EXPECT_EQ(s.c1, "AAAAAA");
    const auto t = readSix("1 2 'ab' cd 1 1 b");
    EXPECT_EQ(t.result.status, ListStatus::BadInteger);
    EXPECT_EQ(t.c1, "ab    ");
}

TEST(ListDirected, RepeatCounts) {
    const auto s = readSix("2*, 1 , 2 3");
    EXPECT_EQ(s.result.status, ListStatus::EndOfText);
    EXPECT_EQ(s.result.itemsRead, 5);
    EXPECT_EQ(s.i1, -1);
    EXPECT_EQ(s.x1, -1);
    EXPECT_EQ(s.c1, "1     ");
    EXPECT_EQ(s.i2, 2);
    EXPECT_EQ(s.x2, 3);

    const auto t = readSix("1 2 2* 1 1 y");
    EXPECT_EQ(t.result.status, ListStatus::Ok);
    EXPECT_EQ(t.c1, "AAAAAA");
    EXPECT_EQ(t.i2, -1);
    EXPECT_EQ(t.x2, 1);
    EXPECT_EQ(t.c2, "1     ");

    // r*c is r appearances of c: the value is read again for each target.
    const auto u = readSix("1 2 3*x 1 1 b");
    EXPECT_EQ(u.result.status, ListStatus::BadInteger);
    EXPECT_EQ(u.c1, "x     ");
    const auto v = readSix("3*7 'a' 2*4 'b'");
    EXPECT_EQ(v.i1, 7);
    EXPECT_EQ(v.x1, 7);
    EXPECT_EQ(v.c1, "7     ");
    EXPECT_EQ(v.i2, -1);  // 'a' is not an integer ...
    EXPECT_EQ(readSix("1 2 x 1 1 2*y").c2, "y     ");

    EXPECT_EQ(readSix("0*5 1 a 1 1 b").result.status, ListStatus::BadRepeat);
    EXPECT_EQ(readSix("99999999999*5 1 a 1 1 b").result.status, ListStatus::BadRepeat);
}

TEST(ListDirected, RepeatedValueOfTheWrongKindIsAnError) {
    const auto s = readSix("3*7 'a' 2*4 'b'");
    EXPECT_EQ(s.result.status, ListStatus::BadInteger);  // ... so the statement stops there
    EXPECT_EQ(s.result.itemsRead, 3);
}

TEST(ListDirected, RepeatCountsCanBeSwitchedOff) {
    ListOptions plain;
    plain.repeatCounts = false;
    const auto s = readSix("1 2 2*x 1 1 y", plain);
    EXPECT_EQ(s.result.status, ListStatus::Ok);
    EXPECT_EQ(s.c1, "2*x   ");
    EXPECT_EQ(readSix("2*7 2 x 1 1 y", plain).result.status, ListStatus::BadInteger);
}

TEST(ListDirected, IntegerForms) {
    EXPECT_EQ(readSix("+5 -.5 a -7 5. b").i1, 5);
    EXPECT_EQ(readSix("+5 -.5 a -7 5. b").i2, -7);
    EXPECT_EQ(readSix("-0 -0.0 x 1 1 y").i1, 0);
    const auto limits = readSix("2147483647 1 x -2147483648 1 y");
    EXPECT_EQ(limits.result.status, ListStatus::Ok);
    EXPECT_EQ(limits.i1, 2147483647);
    EXPECT_EQ(limits.i2, -2147483647 - 1);
    for (const char* bad : {"1.5 2 a 1 2 b", "5. 2 x 1 1 y", "1a 2 x 1 1 y", "3000000000 1 a 1 1 b",
                            "2147483648 1 x 1 1 y", "+ 1 x 1 1 y", "0x10 1 x 1 1 y"}) {
        const auto s = readSix(bad);
        EXPECT_EQ(s.result.status, ListStatus::BadInteger) << bad;
        EXPECT_EQ(s.result.itemsRead, 0) << bad;
        EXPECT_EQ(s.i1, -1) << bad;
    }
    EXPECT_EQ(readSix("1 1 x -2147483649 1 y").result.status, ListStatus::BadInteger);

    std::int64_t wide = 0;
    ListReader reader("-9223372036854775808 9223372036854775808");
    EXPECT_EQ(reader.read(ListTarget::integer(wide)), ListStatus::Ok);
    EXPECT_EQ(wide, INT64_MIN);
    EXPECT_EQ(reader.read(ListTarget::integer(wide)), ListStatus::BadInteger);
    EXPECT_EQ(wide, INT64_MIN);
}

TEST(ListDirected, RealForms) {
    struct Case {
        const char* text;
        double value;
    };
    const Case cases[] = {
        {"1.5+3", 1500},       {"1.5d3", 1500},   {"1.5-3", 0.0015},  {"1.5q3", 1500},
        {"-.5", -0.5},         {"5.", 5},         {"1.5e+3", 1500},   {"1.5E-03", 0.0015},
        {".5e3", 500},         {"5.e3", 5000},    {"1.5D+3", 1500},   {"7", 7},
        {"-1.5-300", -1.5e-300}, {"1.5+300", 1.5e300}, {"0.1", 0.1},  {"-1e-5", -1e-5},
        {"1.7976931348623157e308", 1.7976931348623157e308},
        {"4.9e-324", 4.9e-324},
        {"123456789012345678901234567890", 1.2345678901234568e29},
        {"0.000000000000000000000000000001", 1e-30},
        {"1.0000000000000002", 1.0000000000000002},
        {"2.2250738585072014e-308", 2.2250738585072014e-308},
        {"1e400", HUGE_VAL},   {"1e+400", HUGE_VAL}, {"-1e400", -HUGE_VAL}, {"1e-400", 0.0},
        {"inf", HUGE_VAL},     {"+inf", HUGE_VAL},  {"-Infinity", -HUGE_VAL},
        {"1e99999999999999999999", HUGE_VAL},
        {"0.0e99999999999999999999", 0.0},
    };
    for (const auto& c : cases) {
        double value = -1;
        ListReader reader(c.text);
        EXPECT_EQ(reader.read(ListTarget::real(value)), ListStatus::Ok) << c.text;
        EXPECT_EQ(value, c.value) << c.text;
    }
    for (const char* nan : {"nan", "NaN(abc)", "nan()"}) {
        double value = -1;
        ListReader reader(nan);
        EXPECT_EQ(reader.read(ListTarget::real(value)), ListStatus::Ok) << nan;
        EXPECT_TRUE(std::isnan(value)) << nan;
    }
    double negativeZero = 1;
    ListReader zero("-0.0");
    EXPECT_EQ(zero.read(ListTarget::real(negativeZero)), ListStatus::Ok);
    EXPECT_TRUE(std::signbit(negativeZero));

    for (const char* bad : {".", "-", "e5", "1e", "2x", "0x10", "1.5E+", "1.0e0.5", "1+", "infinit",
                            "nan(a b)", "1..5", "1.5e3e3", "'1.5'", "1,5e3x"}) {
        double value = -1;
        ListReader reader(bad);
        const auto status = reader.read(ListTarget::real(value));
        if (std::string(bad) == "1,5e3x") {
            EXPECT_EQ(status, ListStatus::Ok);
            EXPECT_EQ(value, 1);
            EXPECT_EQ(reader.read(ListTarget::real(value)), ListStatus::BadReal);
        } else {
            EXPECT_EQ(status, ListStatus::BadReal) << bad;
        }
        EXPECT_EQ(value, bad == std::string("1,5e3x") ? 1 : -1) << bad;
    }
}

TEST(ListDirected, TheListGoesOnInTheNextLine) {
    const std::string text = "1 'ab\ncd' 2 x rest ignored\n\n  \n3\n\n 'q' 4\n\n 'z'\n";
    ListReader reader(text);
    std::int32_t a = -1, b = -1;
    std::string c, d;
    const ListTarget targets[] = {ListTarget::integer(a), ListTarget::text(c, 20),
                                  ListTarget::integer(b), ListTarget::text(d, 20)};
    auto result = readList(reader, targets);
    EXPECT_EQ(result.status, ListStatus::Ok);
    EXPECT_EQ(c, "abcd" + std::string(16, ' '));  // the line end adds no character
    EXPECT_EQ(b, 2);
    EXPECT_EQ(d.substr(0, 2), "x ");
    EXPECT_EQ(reader.lineNumber(), 2);

    reader.nextRecord();
    EXPECT_EQ(reader.lineNumber(), 3);
    result = readList(reader, targets);
    EXPECT_EQ(result.status, ListStatus::Ok);
    EXPECT_EQ(result.itemsRead, 4);
    EXPECT_EQ(a, 3);
    EXPECT_EQ(c.substr(0, 2), "q ");
    EXPECT_EQ(b, 4);
    EXPECT_EQ(d.substr(0, 2), "z ");
    EXPECT_EQ(reader.lineNumber(), 9);

    reader.nextRecord();
    EXPECT_TRUE(reader.atEnd());
    result = readList(reader, targets);
    EXPECT_EQ(result.status, ListStatus::EndOfText);
    EXPECT_EQ(result.itemsRead, 0);
    EXPECT_EQ(a, 3);
}

TEST(ListDirected, CommasAcrossLineEnds) {
    // "7 ," then a comma first in the next line: a null value.
    // "7" then a comma first in the next line: that comma is the separator.
    const std::string text = "7 ,\n, 8 'x'\n7\n, 8 'x'\n";
    ListReader reader(text);
    std::int32_t a = -1, b = -1;
    std::string c = "CCCC", d = "DDDD";
    const ListTarget targets[] = {ListTarget::integer(a), ListTarget::text(c, 4),
                                  ListTarget::integer(b), ListTarget::text(d, 4)};
    EXPECT_EQ(readList(reader, targets).status, ListStatus::Ok);
    EXPECT_EQ(c, "CCCC");
    EXPECT_EQ(b, 8);
    EXPECT_EQ(d, "x   ");
    reader.nextRecord();
    EXPECT_EQ(readList(reader, targets).status, ListStatus::BadInteger);
    EXPECT_EQ(c, "8   ");
}

TEST(ListDirected, CarriageReturnLineEnds) {
    const std::string text = "14\r\n, 'E' 15\r\n'F'\r\n16 'G'";
    ListReader reader(text);
    std::int32_t a = -1, b = -1;
    std::string c, d;
    const ListTarget targets[] = {ListTarget::integer(a), ListTarget::text(c, 3),
                                  ListTarget::integer(b), ListTarget::text(d, 3)};
    EXPECT_EQ(readList(reader, targets).status, ListStatus::Ok);
    EXPECT_EQ(a, 14);
    EXPECT_EQ(c, "E  ");
    EXPECT_EQ(b, 15);
    EXPECT_EQ(d, "F  ");
    reader.nextRecord();
    EXPECT_EQ(readList(reader, std::span(targets, 2)).status, ListStatus::Ok);
    EXPECT_EQ(a, 16);
    EXPECT_EQ(c, "G  ");
    EXPECT_EQ(reader.lineNumber(), 4);
}

TEST(ListDirected, EndOfTextBeforeTheLastItem) {
    const auto s = readSix("1 2.5 abc");
    EXPECT_EQ(s.result.status, ListStatus::EndOfText);
    EXPECT_TRUE(listFailed(s.result.status));
    EXPECT_EQ(s.result.itemsRead, 3);
    EXPECT_EQ(s.i2, -1);
    // ",,,,," holds five null values, the sixth item finds the end.
    const auto t = readSix(",,,,,");
    EXPECT_EQ(t.result.status, ListStatus::EndOfText);
    EXPECT_EQ(t.result.itemsRead, 5);
    // A quote that is never closed leaves its field as it was.
    const auto u = readSix("1 2 'unclosed 1 1 b");
    EXPECT_EQ(u.result.status, ListStatus::EndOfText);
    EXPECT_EQ(u.c1, "AAAAAA");
    EXPECT_EQ(readSix("").result.status, ListStatus::EndOfText);
}

TEST(ListDirected, AfterAFailureTheStatementStaysFailedUntilTheNextRecord) {
    ListReader reader("x 5\n6");
    std::int32_t v = -1;
    EXPECT_EQ(reader.read(ListTarget::integer(v)), ListStatus::BadInteger);
    EXPECT_EQ(reader.read(ListTarget::integer(v)), ListStatus::BadInteger);
    EXPECT_EQ(v, -1);
    reader.nextRecord();
    EXPECT_EQ(reader.read(ListTarget::integer(v)), ListStatus::Ok);
    EXPECT_EQ(v, 6);
}

TEST(ListDirected, FixedWidthCharFields) {
    std::array<char, 8> field;
    field.fill('#');
    ListReader reader("'it''s long text'  short");
    EXPECT_EQ(reader.read(ListTarget::text(field)), ListStatus::Ok);
    EXPECT_EQ(std::string(field.data(), 8), "it's lon");
    EXPECT_EQ(reader.read(ListTarget::text(field)), ListStatus::Ok);
    EXPECT_EQ(std::string(field.data(), 8), "short   ");
}

// update.lst: one value per line, read into a 30-character field.
TEST(ListDirected, UpdateListLines) {
    const std::string list = "00000000o.oup\n20120115o.oup\nReload\n'20130101o.oup'\n";
    ListReader reader(list);
    std::vector<std::string> names;
    std::string name(30, ' ');
    while (!reader.atEnd()) {
        if (listFailed(reader.read(ListTarget::text(name, 30)))) break;
        names.push_back(name);
        reader.nextRecord();
    }
    ASSERT_EQ(names.size(), 4u);
    EXPECT_EQ(names[0], "00000000o.oup" + std::string(17, ' '));
    EXPECT_EQ(names[1].substr(0, 14), "20120115o.oup ");
    EXPECT_EQ(names[2].substr(0, 7), "Reload ");
    EXPECT_EQ(names[3].substr(0, 14), "20130101o.oup ");
}

// A record of an update file: 65 values of 70 characters and hinfo of 5010.
TEST(ListDirected, UpdateRecordOfSixtySixValues) {
    std::string line;
    for (int i = 1; i <= 65; ++i) {
        appendQuotedItem(line, i == 2 ? "Comet d'Arrest" : std::to_string(i));
        line += ", ";
    }
    appendQuotedItem(line, std::string(6000, 'h'));
    line += "\n";
    line += line;  // a second record

    ListReader reader(line);
    std::vector<std::string> fields(66);
    std::vector<ListTarget> targets;
    for (int i = 0; i < 66; ++i) targets.push_back(ListTarget::text(fields[i], i < 65 ? 70 : 5010));
    for (int record = 0; record < 2; ++record) {
        const auto result = readList(reader, targets);
        EXPECT_EQ(result.status, ListStatus::Ok);
        EXPECT_EQ(result.itemsRead, 66);
        EXPECT_EQ(fields[0], "1" + std::string(69, ' '));
        EXPECT_EQ(fields[1].substr(0, 15), "Comet d'Arrest ");
        EXPECT_EQ(fields[64].substr(0, 3), "65 ");
        EXPECT_EQ(fields[65], std::string(5010, 'h'));
        EXPECT_EQ(reader.lineNumber(), record + 1);
        reader.nextRecord();
    }
    EXPECT_TRUE(reader.atEnd());
}

// A record with one value too few takes the first value of the next line, and the
// last record then runs out: the count tells the caller what happened.
TEST(ListDirected, RecordWithFewerValuesRunsOnIntoTheNextLine) {
    std::string text;
    for (int i = 0; i < 65; ++i) text += "'v' ";
    text += "\n";
    for (int i = 0; i < 66; ++i) text += "'w' ";
    text += "\n";
    ListReader reader(text);
    std::vector<std::string> fields(66);
    std::vector<ListTarget> targets;
    for (auto& field : fields) targets.push_back(ListTarget::text(field, 70));
    auto result = readList(reader, targets);
    EXPECT_EQ(result.status, ListStatus::Ok);
    EXPECT_EQ(reader.lineNumber(), 2);
    EXPECT_EQ(fields[65].substr(0, 2), "w ");
    reader.nextRecord();
    result = readList(reader, targets);
    EXPECT_EQ(result.status, ListStatus::EndOfText);
    EXPECT_EQ(result.itemsRead, 0);
}

// orvane.ini: one item from the first line into a 100-character field.
TEST(ListDirected, OneItemOfTheIniFile) {
    auto first = [](std::string_view text) {
        std::string field(100, '#');
        ListReader reader(text);
        reader.read(ListTarget::text(field, 100));
        return field;
    };
    EXPECT_EQ(first("German.lng other words\nsecond line"), "German.lng" + std::string(90, ' '));
    EXPECT_EQ(first("'My Language.lng'"), "My Language.lng" + std::string(85, ' '));
    // An undelimited path starting with a slash is an empty list: the field stays.
    EXPECT_EQ(first("/home/user/x.lng"), std::string(100, '#'));
    EXPECT_EQ(first("'/home/user/x.lng'"), "/home/user/x.lng" + std::string(84, ' '));
    EXPECT_EQ(first(std::string(300, 'a')), std::string(100, 'a'));
}

// The values of the parameters table: 30-character blank padded texts.
TEST(ListDirected, IntegersOfTheParametersTexts) {
    auto integer = [](std::string_view text, std::int32_t& value) {
        ListReader reader(text);
        return reader.read(ListTarget::integer(value));
    };
    std::int32_t value = -1;
    EXPECT_EQ(integer("2                             ", value), ListStatus::Ok);
    EXPECT_EQ(value, 2);
    EXPECT_EQ(integer("   1234                       ", value), ListStatus::Ok);
    EXPECT_EQ(value, 1234);
    EXPECT_EQ(integer("                              ", value), ListStatus::EndOfText);
    EXPECT_EQ(value, 1234);
    EXPECT_EQ(integer("Never updated...              ", value), ListStatus::BadInteger);
    EXPECT_EQ(integer("00000000o.oup", value), ListStatus::BadInteger);
    EXPECT_EQ(value, 1234);
}

TEST(ListDirected, WriterDoublesApostrophes) {
    std::string out;
    appendQuotedItem(out, "d'Arrest");
    out += ", ";
    appendQuotedItem(out, "");
    out += ", ";
    appendQuotedItem(out, "''");
    EXPECT_EQ(out, "'d''Arrest', '', ''''''");
    std::string back, empty = "x", quotes;
    ListReader reader(out);
    const ListTarget targets[] = {ListTarget::text(back, 8), ListTarget::text(empty, 1),
                                  ListTarget::text(quotes, 2)};
    EXPECT_EQ(readList(reader, targets).status, ListStatus::Ok);
    EXPECT_EQ(back, "d'Arrest");
    EXPECT_EQ(empty, " ");
    EXPECT_EQ(quotes, "''");
}

TEST(ListDirected, HostileTenMegabyteLines) {
    const std::string digits(10'000'000, '7');
    std::int32_t i = -1;
    std::int64_t l = -1;
    double x = -1;
    std::string text = "keep";
    EXPECT_EQ(ListReader(digits).read(ListTarget::integer(i)), ListStatus::BadInteger);
    EXPECT_EQ(ListReader(digits).read(ListTarget::integer(l)), ListStatus::BadInteger);
    EXPECT_EQ(i, -1);
    EXPECT_EQ(ListReader(digits).read(ListTarget::real(x)), ListStatus::Ok);
    EXPECT_EQ(x, HUGE_VAL);
    EXPECT_EQ(ListReader("0." + digits.substr(0, 100'000)).read(ListTarget::real(x)), ListStatus::Ok);
    EXPECT_NEAR(x, 7.0 / 9.0, 1e-15);
    EXPECT_EQ(ListReader(digits).read(ListTarget::text(text, 70)), ListStatus::Ok);
    EXPECT_EQ(text, std::string(70, '7'));
    text = "keep";
    EXPECT_EQ(ListReader("'" + digits).read(ListTarget::text(text, 70)), ListStatus::EndOfText);
    EXPECT_EQ(text, "keep");
    const std::string blanks(10'000'000, ' ');
    EXPECT_EQ(ListReader(blanks).read(ListTarget::integer(i)), ListStatus::EndOfText);
    const std::string lines(1'000'000, '\n');
    ListReader many(lines);
    EXPECT_EQ(many.read(ListTarget::integer(i)), ListStatus::EndOfText);
    EXPECT_EQ(many.lineNumber(), 1'000'001);
}

TEST(ListDirected, NulAndBinaryBytes) {
    std::int32_t i = -1;
    double x = -1;
    std::string text;
    EXPECT_EQ(ListReader("1\0 2"s).read(ListTarget::integer(i)), ListStatus::BadInteger);
    EXPECT_EQ(ListReader("\0"s).read(ListTarget::real(x)), ListStatus::BadReal);
    EXPECT_EQ(ListReader("a\0b c"s).read(ListTarget::text(text, 4)), ListStatus::Ok);
    EXPECT_EQ(text, "a\0b "s);

    // Random bytes: every read ends with a status, whatever the bytes.
    std::mt19937 random(20240907);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> length(0, 300);
    for (int round = 0; round < 3000; ++round) {
        std::string junk(static_cast<std::size_t>(length(random)), ' ');
        for (auto& c : junk) c = static_cast<char>(byte(random));
        if (round % 3 == 0) {
            // Mostly the characters that matter to the syntax.
            const char syntax[] = "0123456789+-.,/*'\" \t\r\neEdD";
            for (auto& c : junk) c = syntax[static_cast<unsigned char>(c) % (sizeof syntax - 1)];
        }
        ListReader reader(junk);
        std::string field;
        std::int64_t wide = 0;
        const ListTarget targets[] = {ListTarget::integer(i), ListTarget::real(x),
                                      ListTarget::text(field, 5), ListTarget::integer(wide)};
        for (int statement = 0; statement < 4 && !reader.atEnd(); ++statement) {
            const auto result = readList(reader, targets);
            EXPECT_GE(result.itemsRead, 0);
            EXPECT_LE(result.itemsRead, 4);
            reader.nextRecord();
        }
    }
}

}  // namespace
