#include "net/file_checks.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <vector>

#include "astro/calendar.h"
#include "dynamics/ephemeris.h"

namespace orvane {
namespace {

// The Earth's distance from the Sun never leaves 0.98 to 1.02 AU; a file whose ends
// say otherwise is not a planetary file, whatever its header claims.
constexpr double kNearestEarth = 0.97;
constexpr double kFarthestEarth = 1.03;

bool earthAtUsualDistance(Ephemeris& ephemeris, double jd) {
    State9 state{};
    if (ephemeris.RelativeState(jd, kEarth, kSun, state) != EphemerisStatus::Ok) return false;
    const double r = std::sqrt(state[0] * state[0] + state[1] * state[1] + state[2] * state[2]);
    return r >= kNearestEarth && r <= kFarthestEarth;
}

}  // namespace

std::string ChecksumLibraryVersion() { return OpenSSL_version(OPENSSL_VERSION); }

std::string Sha256OfFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return {};
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
    if (!context || EVP_DigestInit_ex(context.get(), EVP_sha256(), nullptr) != 1) return {};
    std::vector<char> buffer(1 << 16);
    while (in) {
        in.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
        if (in.bad()) return {};
        if (in.gcount() > 0 &&
            EVP_DigestUpdate(context.get(), buffer.data(), static_cast<std::size_t>(in.gcount())) != 1)
            return {};
    }
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    if (EVP_DigestFinal_ex(context.get(), digest, &length) != 1) return {};
    static const char kHex[] = "0123456789abcdef";
    std::string text;
    for (unsigned int i = 0; i < length; ++i) {
        text += kHex[digest[i] >> 4];
        text += kHex[digest[i] & 15];
    }
    return text;
}

std::string ReadChecksumFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::string head(64, '\0');
    in.read(head.data(), 64);
    if (in.gcount() != 64) return {};
    for (char& c : head) {
        if (!std::isxdigit(static_cast<unsigned char>(c))) return {};
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    // The digest ends there: a 65th hexadecimal digit would make it another one.
    const int next = in.get();
    if (next != std::char_traits<char>::eof() && std::isxdigit(next)) return {};
    return head;
}

PlanetarySpan CheckPlanetaryFile(const std::string& path) {
    PlanetarySpan span;
    Ephemeris ephemeris;
    if (ephemeris.OpenEphemerisFile(path) != EphemerisStatus::Ok) return span;
    span.firstJd = ephemeris.header().ss[0];
    span.lastJd = ephemeris.header().ss[1];
    span.readable = earthAtUsualDistance(ephemeris, span.firstJd) && earthAtUsualDistance(ephemeris, span.lastJd);
    return span;
}

std::string SpanDateText(double jd) {
    const CalendarDate date = JulianToCalendar(jd);
    char text[48];
    std::snprintf(text, sizeof text, "%s%04d-%02d-%02d", date.year < 0 ? "-" : "", std::abs(date.year), date.month,
                  static_cast<int>(date.day));
    return text;
}

}  // namespace orvane
