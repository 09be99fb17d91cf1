#pragma once
// The arrays of ColumnProperty through which the program reads the catalogue. They
// are built once at start and reused for every row, so reading allocates nothing.
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "catalogue/sql_layer.h"

namespace orvane {

// One column of the view e_elements and the width of the text field it is read into.
struct ElementColumn {
    std::string_view name;
    std::size_t width;
};

inline constexpr std::size_t kElementColumnCount = 74;

// All columns of e_elements in view order: the 68 columns of `elements`, then the
// six calculated ones.
extern const std::array<ElementColumn, kElementColumnCount> kElementColumns;

// Index of a column of e_elements by name, or kElementColumnCount when unknown.
std::size_t elementColumnIndex(std::string_view name);

struct ColumnTables {
    std::vector<ColumnProperty> allColumns;      // the 74 columns, texts of their widths
    std::vector<ColumnProperty> count;           // " count(*)", integer
    std::vector<ColumnProperty> statistics;      // the five numbers of the start page
    std::vector<ColumnProperty> briefColumns;    // comet, name, des, htype
    std::vector<ColumnProperty> parameterValue;  // " value" of table parameters
};

// Width of the statistics texts and of a parameter value.
inline constexpr std::size_t kStatisticWidth = 30;
inline constexpr std::size_t kParameterWidth = 30;

ColumnTables buildColumnTables();

}  // namespace orvane
