#include "net/program_version.h"

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>

#include "base/list_directed.h"

namespace orvane {
namespace {

// A version file holds one number; a larger body is not one and is not read whole.
constexpr std::streamsize kVersionFileLimit = 4096;

}  // namespace

std::string VersionText(float version) {
    char text[64];
    std::snprintf(text, sizeof text, "%4.2f", static_cast<double>(version));
    return text;
}

bool ParseVersion(std::string_view text, float& version) {
    double value = 0;
    ListReader reader(text, ListOptions{.repeatCounts = false});
    // A number beyond single precision is as unreadable as text.
    if (listFailed(reader.read(ListTarget::real(value))) || !(std::fabs(value) <= FLT_MAX)) return false;
    version = static_cast<float>(value);
    return true;
}

void ReadVersionFile(const std::string& path, float& version) {
    std::ifstream in(path, std::ios::binary);
    std::string body(static_cast<std::size_t>(kVersionFileLimit), '\0');
    in.read(body.data(), kVersionFileLimit);
    body.resize(static_cast<std::size_t>(in.gcount()));
    ParseVersion(body, version);
}

bool NewerThanProgram(float version) { return version > kProgramVersion; }

}  // namespace orvane
