#pragma once
// update.lst, the server's list of catalogue releases: one update file name per
// line, oldest first, each line read as a value list into a field of 30 characters.
// The start-up check and the catalogue update read it.
#include <string>

namespace orvane {

inline constexpr std::size_t kUpdateNameWidth = 30;

// The last line read, blank padded to 30 characters; all blanks for an empty list.
std::string ReadLastListLine(const std::string& path);

// The release date of an update file name: its first eight characters (YYYYMMDD)
// read as an integer; 0 when they are not one.
long ReleaseDate(const std::string& updateName);

}  // namespace orvane
