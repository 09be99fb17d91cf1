#pragma once
// config.dat: a direct-access file of 134 records of 800 bytes; one little-endian
// value stands at the start of each record, the rest is padding. A record that the
// file does not hold completely is not read, and its field keeps what it had.
#include <string>

#include "app/app_state.h"

namespace orvane {

// Width of the text record 107, the language file name.
inline constexpr std::size_t kLanguageNameWidth = 100;

// Writes all 134 records; false when the file cannot be written.
bool WriteConfigFile(const std::string& path, const AppState& state);

// A new file with the defaults of a fresh AppState.
bool CreateDefaultConfigFile(const std::string& path);

// Reads every record the file holds into `state`; returns the number of records read
// (0 when the file is missing or unreadable).
int ReadConfigFile(const std::string& path, AppState& state);

// Record 1 alone; false when the file or the record is missing.
bool ReadConfigVersion(const std::string& path, float& version);

// Overwrites the one text record 107 (the language file name) in place.
bool WriteLanguageRecord(const std::string& path, const std::string& languageName);

// Overwrites record 103 (`pendingEphemerisDelete`, the planetary file in transfer)
// in place, at once, as the installation of a planetary file asks.
bool WritePendingEphemerisRecord(const std::string& path, int value);

// Brings list choices and sizes that a damaged file left out of range back to their
// defaults, so that no window indexes a list with them.
void RepairConfigValues(AppState& state);

}  // namespace orvane
