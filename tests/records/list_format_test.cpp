#include "records/list_format.h"

#include <gtest/gtest.h>

#include "records/record_files.h"
#include "records_test_support.h"

namespace {

using namespace orvane;

// 66 quoted items: `first` for comet, blanks elsewhere, `info` last.
std::string listLine(std::string_view first, std::string_view info = "") {
    std::string line = "'" + std::string(first) + "'";
    for (int k = 1; k < 65; ++k) line += ", ''";
    line += ", '" + std::string(info) + "'";
    return line;
}

TEST(ListFormat, WriterQuotesEveryField) {
    OrbitRecord r;
    r.set(Field::comet, "1");
    r.set(Field::name, "d'Arrest");
    r.set(Field::K2_err, "0.5");
    r.set(Field::htimeStamp, "2011-05-01 10:00:00");  // not carried
    r.set(Field::hinfo, "Line one\r\nLine 'two'\r\n");
    std::string expected = "'1', 'd''Arrest'";
    for (int k = 2; k < 64; ++k) expected += ", ''";
    expected += ", '0.5', 'Line one\\nLine ''two''\\n'";
    EXPECT_EQ(writeListLine(r), expected);
}

TEST(ListFormat, BareLineFeedBecomesTheLetterN) {
    OrbitRecord r;
    r.set(Field::hinfo, "a\nb");
    const std::string line = writeListLine(r);
    EXPECT_TRUE(line.ends_with("'anb'"));
}

TEST(ListFormat, ReaderTakes66ItemsPerRecord) {
    const std::string text = listLine("1", "info\\n2") + "\n" + listLine("2") + "\n";
    EXPECT_EQ(countListRecords(text).records, 2u);
    RecordArray records;
    ASSERT_EQ(readRecordText(text, false, records).status, FileReadStatus::Ok);
    ASSERT_EQ(records.count, 2u);
    EXPECT_EQ(records.records[0].get(Field::comet), "1");
    EXPECT_EQ(records.records[0].get(Field::hinfo), "info\\n2");
    EXPECT_EQ(records.records[1].get(Field::comet), "2");
}

TEST(ListFormat, ItemsMaySpanLinesAndBeSeparatedByBlanks) {
    // The first comma separates "Halley" from what follows; the 63 after it are
    // null items, so 'x' is the 66th item.
    const std::string text = "1 Halley" + std::string(30, ',') + "\n" + std::string(34, ',') + " 'x'\n";
    RecordArray records;
    ASSERT_EQ(readRecordText(text, false, records).status, FileReadStatus::Ok);
    ASSERT_EQ(records.count, 1u);
    EXPECT_EQ(records.records[0].get(Field::comet), "1");
    EXPECT_EQ(records.records[0].get(Field::name), "Halley");
    EXPECT_EQ(records.records[0].get(Field::hinfo), "x");
}

TEST(ListFormat, FewerThan66ItemsIsAFault) {
    std::string shortLine = "'1'";
    for (int k = 1; k < 60; ++k) shortLine += ", ''";
    RecordArray records;
    const FileReadResult result = readRecordText(listLine("1") + "\n" + shortLine + "\n", false, records);
    EXPECT_EQ(result.status, FileReadStatus::MissingItems);
    EXPECT_EQ(result.line, 2);
    EXPECT_EQ(records.count, 0u);
}

TEST(ListFormat, MalformedQuoteIsAFault) {
    RecordArray records;
    EXPECT_EQ(readRecordText("'1'x, ''\n", false, records).status, FileReadStatus::MissingItems);
    EXPECT_EQ(readRecordText("'unterminated\n", false, records).status, FileReadStatus::MissingItems);
}

TEST(ListFormat, TextsAreCutAtTheirWidths) {
    const std::string longName(100, 'n');
    const std::string longInfo(6000, 'i');
    std::string text = "'1', '" + longName + "'";
    for (int k = 2; k < 65; ++k) text += ", ''";
    text += ", '" + longInfo + "'\n";
    RecordArray records;
    ASSERT_EQ(readRecordText(text, false, records).status, FileReadStatus::Ok);
    EXPECT_EQ(records.records[0].get(Field::name), std::string(70, 'n'));
    EXPECT_EQ(records.records[0].get(Field::hinfo), std::string(5010, 'i'));
}

TEST(ListFormat, EmptyTextHasNoRecords) {
    RecordArray records;
    EXPECT_EQ(readRecordText("", false, records).status, FileReadStatus::Ok);
    EXPECT_EQ(records.count, 0u);
    EXPECT_EQ(readRecordText("\n  \r\n\n", false, records).status, FileReadStatus::Ok);
    EXPECT_EQ(records.count, 0u);
}

TEST(ListFormat, OverlongLineIsRefused) {
    RecordArray records;
    const FileReadResult result = readRecordText(listLine("1") + "\n" + std::string(30000, 'x') + "\n", false, records);
    EXPECT_EQ(result.status, FileReadStatus::LineTooLong);
    EXPECT_EQ(result.line, 2);
}

TEST(ListFormat, WrittenRecordReadsBackTheSame) {
    OrbitRecord r = orvane::testing::halley();
    r.set(Field::Producer, "It's \"quoted\", with, commas / and slashes");
    r.set(Field::hinfo, "Line one\r\nLine two");
    RecordArray records;
    ASSERT_EQ(readRecordText(writeListLine(r) + "\r\n", false, records).status, FileReadStatus::Ok);
    ASSERT_EQ(records.count, 1u);
    OrbitRecord expected = r;
    expected.set(Field::hinfo, "Line one\\nLine two");
    EXPECT_EQ(records.records[0], expected);
}

}  // namespace
