#pragma once
// The program's own version and the version file of the update server.
#include <string>
#include <string_view>

namespace orvane {

// The running program's version: a single-precision number, shown as "0.06".
inline constexpr float kProgramVersion = 0.06f;

// A version as the windows show it: two decimals ("0.06", "1.10").
std::string VersionText(float version);

// The number at the start of `text`, in the value-list syntax; false when there is
// none (`version` is then unchanged).
bool ParseVersion(std::string_view text, float& version);

// The number of a version file (versinfo.lst): one real in the value-list syntax.
// A body that holds no number leaves `version` as it was.
void ReadVersionFile(const std::string& path, float& version);

// Newer than this program: strictly above its version, compared in single precision.
bool NewerThanProgram(float version);

}  // namespace orvane
