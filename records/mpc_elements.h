#pragma once
// The Minor Planet Center's one-line comet elements (CometEls.txt): one comet a
// line in fixed columns, counted from 1:
//
//   1-4 periodic number, 5 orbit type, 6-12 packed provisional designation (or,
//   for a fragment of a numbered comet, its letters in 11-12), 15-18 / 20-21 /
//   23-29 perihelion year / month / day (TT), 31-39 q, 42-49 e, 52-59 argument of
//   perihelion, 62-69 node, 72-79 inclination (J2000 ecliptic, degrees), 82-89
//   epoch YYYYMMDD (or a packed date in 82-86), 92-95 H, 97-100 slope G,
//   103-158 name, 160 on the reference.
//
// A line becomes a catalogue record with its numbers in the text the line wrote:
//
//   comet   the number without its leading zeros ("0001P" -> "1")
//   htype   the orbit type; the catalogue keeps C, P and D, so asteroidal (A) and
//           interstellar (I) objects are refused
//   des     the provisional designation unpacked ("J95O010" -> "1995 O1", with a
//           fragment "K19Y04b" -> "2019 Y4-B"); for a fragment of a numbered comet
//           its designation "73P-B"; blank for a numbered comet
//   name    the name column behind the designation: "Halley" of "1P/Halley",
//           "NEOWISE" of "C/2020 F3 (NEOWISE)". A fragment of a numbered comet gets
//           its letters behind the name when the column does not already end so
//           ("Schwassmann-Wachmann C"), so that each fragment keeps a label of its own
//   hyear, hmonth, hday, E_year, E_month, E_day   the dates, months and days
//           without leading zeros
//   q, e, w, Om, i   as written
//   M1      H as written
//   K1      2.5 G: the line gives the slope of m = H + 5 log D + 2.5 G log r, the
//           catalogue the factor of log r itself (G = 4.0 is K1 = 10.0)
//   hreference   the reference column as it stands ("MPEC 2024-R10")
//   Producer     "MPC", the computer of the elements
//
// Nothing else is filled; `P` stays blank, as the line has no period.
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "records/import_export.h"
#include "records/orbit_record.h"
#include "records/record_files.h"

namespace orvane {

// The longest line that is read: the reference column may hold 60 characters, the
// width of `hreference`.
inline constexpr std::size_t kMpcLineLimit = 219;
// The last column of the inclination: a line must reach it.
inline constexpr std::size_t kMpcLastElementColumn = 79;

inline constexpr std::string_view kMpcProducer = "MPC";

enum class MpcLineStatus {
    Ok,
    Blank,            // nothing but blanks; no record, no fault
    TooShort,         // ends before column 79, so an element is missing or cut
    TooLong,          // longer than kMpcLineLimit
    BadCharacter,     // a NUL or another control character
    BadDesignation,   // number and designation columns that do not decode
    UnsupportedType,  // an orbit type other than C, P and D
    MissingValue,     // a required element is blank (`field`)
    BadNumber,        // a column that should hold a number does not (`field`)
    Invalid,          // the record fails the record checks (`field`)
};

struct MpcLineOutcome {
    MpcLineStatus status = MpcLineStatus::Ok;
    Field field = Field::listWork1;  // the field at fault, where one is
    std::size_t line = 0;            // 1-based line of a file; 0 for a single line
};

// The designation in the first twelve columns: "1P", "73P-B", "C/1995 O1",
// "C/2019 Y4-B". False when the columns do not decode (the parts are then blank).
struct MpcDesignation {
    std::string comet;  // "1", or blank
    std::string type;   // "P"
    std::string des;    // "1995 O1", "2019 Y4-B", "73P-B", or blank
    std::string fragment;  // "B", "AA", or blank
    std::string label;  // "1P", "73P-B", "C/1995 O1"
};
bool decodeMpcDesignation(std::string_view line, MpcDesignation& designation);

// Makes `out` anew from one line. On any status but Ok the record is left blank.
// A record read with Ok passes the record checks.
MpcLineOutcome readMpcCometLine(std::string_view line, OrbitRecord& out);

// A short English text of an outcome, for tools and logs: "line 7: q is not a number".
std::string describeMpcOutcome(const MpcLineOutcome& outcome);

// At most this many refused lines are listed; all of them are counted.
inline constexpr std::size_t kMpcRejectedListLimit = 1000;

struct MpcFileResult {
    FileReadStatus status = FileReadStatus::Ok;  // Ok, CannotOpen or TooLarge
    std::size_t read = 0;     // records made
    std::size_t skipped = 0;  // lines refused
    std::size_t blank = 0;    // blank lines passed over
    std::vector<MpcLineOutcome> rejected;  // the first refused lines, in file order
};

// Counts the lines that have a record's length, makes the array with that many
// records, fills it with the good lines in file order and keeps only those. On CannotOpen and TooLarge the array is
// left empty.
MpcFileResult readMpcCometFile(const std::filesystem::path& file, RecordArray& records);
MpcFileResult readMpcCometText(std::string_view text, RecordArray& records);

struct MpcImportResult {
    ImportResult import;
    MpcFileResult file;
};

// The Import command on an MPC file: the good lines are taken, the refused ones
// counted in `file`; then the question, the record checks and the insert batch run
// as for an ELS file. A file that cannot be read or has no good line shows the
// message of a file that does not read and inserts nothing.
MpcImportResult importMpcFile(const std::filesystem::path& file, std::string_view databasePath,
                              RecordArray& importArray, BatchView& view, const RecordTexts& texts,
                              const BatchClock& clock = approximateClockNow);

}  // namespace orvane
