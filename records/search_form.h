#pragma once
// What the Work pane's forms hold when a search starts: the five rows of the
// advanced form, the quick form, the filters, the ticked output columns, whether
// errors are shown, and the sort choice of the result list. The window fills it;
// the search only reads it. Flags are ints holding 0 or 1, as they are saved.
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace orvane {

// The fields of the advanced form's field combo, in combo order from index 1; index 0
// of the combo is the empty entry "---" and leaves the row out. The last six are the
// calculated columns of the view.
inline constexpr std::size_t kSearchFieldCount = 54;
extern const std::array<std::string_view, kSearchFieldCount> kSearchFields;
inline constexpr std::size_t kFirstCalculatedSearchField = 49;  // combo index of M_calc

// The operators of the operator combo, index 1 to 8; 0 is "---".
enum SearchOperator : int {
    kNoOperator = 0,
    kGreaterThan = 1,
    kLessThan = 2,
    kEqualTo = 3,
    kNotEqualTo = 4,
    kBeginsWith = 5,
    kEndsWith = 6,
    kContains = 7,
    kFreeFrom = 8,
};
inline constexpr int kSearchOperatorCount = 8;

// The connector combo between a row and the next one.
inline constexpr int kConnectorAnd = 0;
inline constexpr int kConnectorOr = 1;

inline constexpr std::size_t kAdvancedRowCount = 5;

struct AdvancedSearchRow {
    int inUse = 0;        // 1 when the row is complete and takes part
    int field = 0;        // index of the field combo: 0 "---", 1..54 kSearchFields
    int op = 0;           // index of the operator combo: 0 "---", 1..8 SearchOperator
    std::string value;    // text of the row's edit, as typed
    int connector = 0;    // to the next row: kConnectorAnd or kConnectorOr (row 5 has none)
};

// The quick form's field combo: 0 comet (compared with "Equal to"), 1 name, 2 des,
// 3 olddes, 4 htype (all four with "Contains").
inline constexpr std::size_t kQuickFieldCount = 5;
struct QuickSearchForm {
    int field = 0;
    std::string value;
};

// Records 19, 20, 21 and 104 of the settings.
struct SearchFilters {
    int periodicOnly = 0;    // "Search periodic comets only"
    int lastAppearance = 0;  // "Search the last appearance only"
    int myRecords = 0;       // "Search in my records only"
    int lastUpdate = 0;      // "Search in the last update only"
};

// The output columns that can be ticked (records 27 to 79 of the settings), in the
// order of the column check boxes and of the list.
inline constexpr std::size_t kOutputColumnCount = 53;
extern const std::array<std::string_view, kOutputColumnCount> kOutputColumns;
// The ticks of a first start.
inline constexpr std::array<int, kOutputColumnCount> kDefaultColumnShown = {
    1, 1, 1, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1,
    1, 1, 1, 1, 1, 0, 1, 1, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};

// The column the list is sorted by: an index of kOutputColumns, or kNoSortColumn.
// Clicking a header sets it; the next search appends its order clause.
inline constexpr int kNoSortColumn = -1;
struct SortChoice {
    int column = kNoSortColumn;
    int ascending = 1;  // 1 ascending, 0 descending
};

struct SearchForm {
    int advancedSearchActive = 1;  // record 17: the advanced form is in force
    int quickSearchActive = 0;     // record 18: the quick form is in force
    std::array<AdvancedSearchRow, kAdvancedRowCount> rows{};
    QuickSearchForm quick;
    SearchFilters filters;
    std::array<int, kOutputColumnCount> columnShown = kDefaultColumnShown;  // 1 ticked
    int showErrors = 1;  // record 105
    SortChoice sort;
};

}  // namespace orvane
