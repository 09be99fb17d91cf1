#include "records/search_result.h"

#include <algorithm>
#include <new>
#include <stdexcept>

#include "base/fixed_text.h"

namespace orvane {
namespace {

// A first guess of the bytes of a row; the buffer doubles when rows are longer.
constexpr std::size_t kExpectedRowBytes = 320;
constexpr std::size_t kLargestFirstBuffer = std::size_t{1} << 26;

// View column of each record field, or kElementColumnCount for the two work fields.
std::array<std::size_t, kFieldCount> makeViewColumns() {
    std::array<std::size_t, kFieldCount> columns{};
    for (std::size_t f = 0; f < kFieldCount; ++f) {
        const std::string_view name = fieldName(fieldAt(static_cast<int>(f)));
        columns[f] = name.empty() ? kElementColumnCount : elementColumnIndex(name);
    }
    return columns;
}

const std::array<std::size_t, kFieldCount>& viewColumns() {
    static const std::array<std::size_t, kFieldCount> columns = makeViewColumns();
    return columns;
}

}  // namespace

bool SearchResult::reset(std::size_t rows) {
    std::string().swap(text_);
    std::vector<std::uint64_t>().swap(rowStart_);
    std::vector<std::array<std::uint16_t, kElementColumnCount>>().swap(columnEnd_);
    rows_ = 0;
    try {
        rowStart_.resize(rows);
        columnEnd_.resize(rows);
        text_.reserve(std::min(rows, kLargestFirstBuffer / kExpectedRowBytes) * kExpectedRowBytes);
    } catch (const std::bad_alloc&) {
        std::vector<std::uint64_t>().swap(rowStart_);
        std::vector<std::array<std::uint16_t, kElementColumnCount>>().swap(columnEnd_);
        return false;
    } catch (const std::length_error&) {
        std::vector<std::uint64_t>().swap(rowStart_);
        std::vector<std::array<std::uint16_t, kElementColumnCount>>().swap(columnEnd_);
        return false;
    }
    return true;
}

bool SearchResult::appendRow(std::span<const ColumnProperty> columns) {
    if (rows_ >= rowStart_.size() || columns.size() < kElementColumnCount) return false;
    const std::size_t start = text_.size();
    rowStart_[rows_] = start;
    auto& ends = columnEnd_[rows_];
    try {
        for (std::size_t c = 0; c < kElementColumnCount; ++c) {
            // What getText gives, cut at the NUL and the width, without its padding;
            // taken straight from the column's text so that a row costs no allocation.
            const ColumnProperty& column = columns[c];
            const std::string_view used = std::string_view(column.textValue).substr(0, column.textUsed);
            const std::string_view cell = cutAtNul(used).substr(0, kElementColumns[c].width);
            text_ += trimRight(cell);
            // A row holds at most the sum of the column widths, about 6,100 bytes.
            ends[c] = static_cast<std::uint16_t>(text_.size() - start);
        }
    } catch (const std::bad_alloc&) {
        text_.resize(start);
        return false;
    }
    ++rows_;
    return true;
}

std::string_view SearchResult::text(std::size_t row, Field field) const {
    const auto f = static_cast<std::size_t>(fieldIndex(field));
    if (row >= rows_ || f >= kFieldCount) return {};
    const std::size_t c = viewColumns()[f];
    if (c >= kElementColumnCount) return {};
    const auto& ends = columnEnd_[row];
    const std::size_t begin = c == 0 ? 0 : ends[c - 1];
    return std::string_view(text_).substr(rowStart_[row] + begin, ends[c] - begin);
}

OrbitRecord SearchResult::record(std::size_t row) const {
    OrbitRecord out;
    for (std::size_t f = 0; f < kFieldCount; ++f) {
        const Field field = fieldAt(static_cast<int>(f));
        const std::string_view value = text(row, field);
        if (!value.empty()) out.set(field, value);
    }
    return out;
}

}  // namespace orvane
