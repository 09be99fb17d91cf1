#include "language/text_encoding.h"

#include <gtest/gtest.h>

#include <string>

using namespace orvane;
using namespace std::string_literals;

TEST(TextEncoding, RecognisesStrictUtf8) {
    EXPECT_TRUE(isValidUtf8(""));
    EXPECT_TRUE(isValidUtf8("plain ASCII\t\r\n"));
    EXPECT_TRUE(isValidUtf8("\xD0\x9C\xD0\x91"));          // EM BE
    EXPECT_TRUE(isValidUtf8("\xE2\x82\xAC"));              // euro sign
    EXPECT_TRUE(isValidUtf8("\xF0\x9F\x98\x80"));          // U+1F600
    EXPECT_TRUE(isValidUtf8("a\0b"s));                     // NUL is a character
    EXPECT_FALSE(isValidUtf8("\xCC\xC1"));                 // EM BE in Windows-1251
    EXPECT_FALSE(isValidUtf8("\xC0\xAF"));                 // overlong '/'
    EXPECT_FALSE(isValidUtf8("\xE0\x80\xAF"));             // overlong
    EXPECT_FALSE(isValidUtf8("\xED\xA0\x80"));             // surrogate
    EXPECT_FALSE(isValidUtf8("\xF4\x90\x80\x80"));         // above U+10FFFF
    EXPECT_FALSE(isValidUtf8("\xD0"));                     // cut sequence
    EXPECT_FALSE(isValidUtf8("\x80"));                     // lone continuation
    EXPECT_FALSE(isValidUtf8("\xFF\xFE"));
}

TEST(TextEncoding, DecodesWindows1251) {
    EXPECT_EQ(windows1251ToUtf8("\xCC\xC1"), "\xD0\x9C\xD0\x91");
    // "Начальная" (start)
    EXPECT_EQ(windows1251ToUtf8("\xCD\xE0\xF7\xE0\xEB\xFC\xED\xE0\xFF"),
              "\xD0\x9D\xD0\xB0\xD1\x87\xD0\xB0\xD0\xBB\xD1\x8C\xD0\xBD\xD0\xB0\xD1\x8F");
    EXPECT_EQ(windows1251ToUtf8("\xB0"), "\xC2\xB0");        // degree sign
    EXPECT_EQ(windows1251ToUtf8("\xA8\xB8"), "\xD0\x81\xD1\x91");  // YO, yo
    EXPECT_EQ(windows1251ToUtf8("\x88"), "\xE2\x82\xAC");    // euro sign
    EXPECT_EQ(windows1251ToUtf8("\xB9"), "\xE2\x84\x96");    // numero sign
    EXPECT_EQ(windows1251ToUtf8("\x98"), "\xEF\xBF\xBD");    // unassigned
    EXPECT_EQ(windows1251ToUtf8("\xC0\xFF"), "\xD0\x90\xD1\x8F");  // A, ya
    EXPECT_EQ(windows1251ToUtf8("abc"), "abc");
}

TEST(TextEncoding, DecodesUtf16BothWays) {
    EXPECT_EQ(utf16ToUtf8("A\0\x1C\x04"s, false), "A\xD0\x9C");
    EXPECT_EQ(utf16ToUtf8("\0A\x04\x1C"s, true), "A\xD0\x9C");
    EXPECT_EQ(utf16ToUtf8("\x3D\xD8\x00\xDE"s, false), "\xF0\x9F\x98\x80");
    EXPECT_EQ(utf16ToUtf8("\x3D\xD8"s, false), "\xEF\xBF\xBD");     // lone high surrogate
    EXPECT_EQ(utf16ToUtf8("\x00\xDE" "A\0"s, false), "\xEF\xBF\xBD" "A");
    EXPECT_EQ(utf16ToUtf8("A\0B"s, false), "A\xEF\xBF\xBD");        // odd final byte
}

TEST(TextEncoding, CutsByCharactersNeverInsideASequence) {
    EXPECT_EQ(firstCharacters("abcdef", 3), "abc");
    EXPECT_EQ(firstCharacters("ab", 5), "ab");
    EXPECT_EQ(firstCharacters("\xD0\x9C\xD0\x91x", 1), "\xD0\x9C");
    EXPECT_EQ(firstCharacters("\xD0\x9C\xD0\x91x", 2), "\xD0\x9C\xD0\x91");
    EXPECT_EQ(firstCharacters("\xF0\x9F\x98\x80z", 1), "\xF0\x9F\x98\x80");
    EXPECT_EQ(firstCharacters("abc", 0), "");
    EXPECT_EQ(characterCount("\xD0\x9C\xD0\x91x"), 3u);
    EXPECT_EQ(characterCount("\xC2\xB0 / Lon:"), 8u);
}
