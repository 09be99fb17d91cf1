// The result array: rows cut to their column widths without padding, a full array
// refusing more rows, and a count that no memory can hold.
#include <gtest/gtest.h>

#include <limits>

#include "catalogue/column_tables.h"
#include "records/search_result.h"

namespace orvane {
namespace {

TEST(SearchResult, RowsAreCutToTheirColumnsAndTheArrayDoesNotGrow) {
    ColumnTables tables = buildColumnTables();
    SearchResult result;
    ASSERT_TRUE(result.reset(2));
    EXPECT_EQ(result.capacity(), 2u);
    sql::setText(tables.allColumns[0], "17");
    sql::setText(tables.allColumns[5], "Longer than the htype column");  // htype is 1 wide
    sql::setText(tables.allColumns[2], std::string("Ha\0lley", 7));
    EXPECT_TRUE(result.appendRow(tables.allColumns));
    EXPECT_EQ(result.text(0, Field::id), "17");
    EXPECT_EQ(result.text(0, Field::htype), "L");
    EXPECT_EQ(result.text(0, Field::name), "Ha");
    EXPECT_EQ(result.text(0, Field::q), "");
    EXPECT_TRUE(result.appendRow(tables.allColumns));
    EXPECT_FALSE(result.appendRow(tables.allColumns));
    EXPECT_EQ(result.size(), 2u);
    EXPECT_FALSE(result.appendRow(std::span<const ColumnProperty>(tables.allColumns).first(10)));
}

TEST(SearchResult, CountBeyondAnyMemoryLeavesAnEmptyArray) {
    SearchResult result;
    EXPECT_FALSE(result.reset(std::numeric_limits<std::size_t>::max()));
    EXPECT_EQ(result.capacity(), 0u);
    EXPECT_EQ(result.size(), 0u);
    EXPECT_TRUE(result.reset(0));
}

}  // namespace
}  // namespace orvane
