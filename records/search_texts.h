#pragma once
// The texts that the search and the edit and delete batches show: status texts of
// section orvStatus and the column titles and tips of orvListView. They come from
// the language table through a lookup, as the record texts do.
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "records/record_texts.h"

namespace orvane {

// Two messages of the search that stand in no section of the language table.
inline constexpr std::string_view kErrorTitle = "Error";
inline constexpr std::string_view kTooLongQuery = "Too long query.";
inline constexpr std::string_view kNoColumnsSelected = "No colums selected.";

inline constexpr std::size_t kListViewTextCount = 108;

struct SearchTexts {
    RecordTexts records;  // "Reading elements...", "Ready", the time left

    // orvStatus
    std::string searchInProgress;  // 12 "Search in progress..."
    std::string tooLongQuery;      // 14 "Error: Too long query"
    std::string noMatches;         // 15 "Search Results: No Matches found"
    std::string noColumns;         // 16 "Error: No colums selected"
    std::string searchResults;     // 23 "Search Results:"
    std::string matchesFound;      // 24 "Matches found"
    std::string deletingRecords;   // 26 "Deleting Records in progress..."
    std::string editingRecords;    // 27 "Editing Records in progress..."

    // orvListView: key k at index k, index 0 unused. Key 3 + 2c is the title of
    // output column c, key 4 + 2c its tip.
    std::array<std::string, kListViewTextCount + 1> listView;

    // "Search Results: 12 Matches found", or the no-match text for 0.
    std::string resultText(long long count) const;
};

SearchTexts loadSearchTexts(const TextLookup& lookup);

}  // namespace orvane
