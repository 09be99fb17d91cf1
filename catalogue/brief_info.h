#pragma once
// The numbers and the newest records that the start page shows, the parameters
// that tie the records to the updates, and the start page's text.
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/column_tables.h"

namespace orvane {

// The `value` texts of table parameters in table order, each 30 wide and blank
// padded: version, elements update name, time, id and prev id. Rows missing from
// the table stay blank.
struct CatalogueParameters {
    std::array<std::string, 5> values;
    int status = 0;  // SQLite code of the first failure, SQLITE_OK when all went well

    CatalogueParameters();
};

CatalogueParameters readParameters(std::string_view databasePath, ColumnTables& tables);

// Order of the statistics.
inline constexpr std::size_t kRecordCount = 0;
inline constexpr std::size_t kCometCount = 1;
inline constexpr std::size_t kNumberedCount = 2;
inline constexpr std::size_t kUnnumberedCount = 3;
inline constexpr std::size_t kUserRecordCount = 4;

struct BriefInfo {
    std::array<std::string, 5> statistics;     // 30 wide each, blank when unreadable
    std::vector<std::string> userLabels;       // the user's newest three, newest first
    std::vector<std::string> catalogueLabels;  // the catalogue's newest seven, newest first
    int status = 0;                            // SQLite code of the first failure

    BriefInfo();
};

// Runs the statistics and the two lists on a connection of its own.
BriefInfo refreshBriefInfo(std::string_view databasePath, ColumnTables& tables);

// The label of a listed comet: "1P/Halley", "C/1995 O1 (Hale-Bopp)", "?/2020 X1".
std::string cometLabel(std::string_view comet, std::string_view name, std::string_view des,
                       std::string_view htype);

// The user's labels, then the catalogue's, joined by ", ". When the text would be
// longer than maxLength, it keeps the labels that fit and ends with ",... ".
std::string lastAddedLabels(const BriefInfo& info, std::size_t maxLength = std::string::npos);

// The statistics text of the start page from the seven strings of section
// orvBriefInfo, one line for the totals and one for each further number:
//   "<1> <records> <2> <comets> <3>\n<4> <numbered>\n<5> <unnumbered>\n<6> <user>\n<7> <labels>"
std::string startPageText(const std::array<std::string, 7>& briefInfoStrings, const BriefInfo& info,
                          std::size_t maxLabelsLength = std::string::npos);

}  // namespace orvane
