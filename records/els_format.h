#pragma once
// The ECS text of orbit records (*.els): one record per line of 181 fixed columns.
// The line carries only part of a record, by design: no errors, no `hinfo`.
#include <cstddef>
#include <string>
#include <string_view>

#include "records/orbit_record.h"

namespace orvane {

inline constexpr std::size_t kElsLineWidth = 181;

// True when the file name ends in ".els" or ".ELS": both the reader and the writer
// choose the ECS text by it, any other name means the list text.
bool isElsPath(std::string_view path);

// Fills a blank record from one line (only its first 181 columns count; a shorter
// line reads as if padded with blanks).
void readElsLine(std::string_view line, OrbitRecord& record);

// The 181 columns of the record, without a line end. Numbers are parsed and
// written again so that their points align; a number that does not parse, like a
// field with no value, gives blank columns.
std::string writeElsLine(const OrbitRecord& record);

// One number of the line as the writer lays it out: the columns from `first` to
// `last` (as in the table of the line) for the field `hday`, `q`, `e`, `P`, `w`,
// `Om` or `i`; all blanks when the text is no number.
std::string layoutElsNumber(Field field, std::string_view text);

}  // namespace orvane
