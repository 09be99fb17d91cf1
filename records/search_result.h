#pragma once
// The result array of the last search: the 74 columns of each row that the search
// read from the view, kept back to back in one buffer. The row count is known before
// the first row is read, so the row table is allocated once; the text buffer grows
// by doubling, never per row. The list reads cells from it, and the commands that
// work on a row take it out whole as an OrbitRecord.
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/column_tables.h"
#include "catalogue/sql_layer.h"
#include "records/orbit_record.h"

namespace orvane {

class SearchResult {
public:
    // Frees the previous rows and prepares room for `rows` rows. False, with room
    // for none, when the memory for them cannot be had.
    bool reset(std::size_t rows);

    // Rows read so far.
    std::size_t size() const { return rows_; }
    // Rows the array was made for.
    std::size_t capacity() const { return rowStart_.size(); }

    // Appends one row delivered by nextRow into the 74 columns of e_elements, each
    // text cut to its column's width and stripped of trailing blanks. False (and
    // nothing stored) when the array is full or the memory runs out.
    bool appendRow(std::span<const ColumnProperty> columns);

    // The text of a field of a row, "" for a field that the view does not have.
    std::string_view text(std::size_t row, Field field) const;

    // The whole row as a record.
    OrbitRecord record(std::size_t row) const;

    // Bytes held by the text buffer (for measurements).
    std::size_t bufferCapacity() const { return text_.capacity(); }

private:
    std::string text_;
    std::vector<std::uint64_t> rowStart_;
    // End of each column of a row, counted from the row's start.
    std::vector<std::array<std::uint16_t, kElementColumnCount>> columnEnd_;
    std::size_t rows_ = 0;
};

}  // namespace orvane
