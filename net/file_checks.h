#pragma once
// Checks of downloaded files before they are used: the checksum of a package, and a
// planetary file that the reader can open and read from its first to its last record.
#include <string>

namespace orvane {

// "OpenSSL 3.0.x ...": the library behind the checksums, for the About window.
std::string ChecksumLibraryVersion();

// SHA-256 of a file, 64 lower-case hexadecimal digits; "" when it cannot be read.
std::string Sha256OfFile(const std::string& path);

// The digest in a checksum file in the form sha256sum writes ("digest  name"), in
// lower case; "" when the file does not begin with 64 hexadecimal digits.
std::string ReadChecksumFile(const std::string& path);

struct PlanetarySpan {
    bool readable = false;
    double firstJd = 0;  // the span of the file's header
    double lastJd = 0;
};

// Opens the file with the planetary-file reader and reads the Earth and the Sun from
// its first and its last record; readable only when both are there and the Earth
// stands about 1 AU from the Sun at both ends.
PlanetarySpan CheckPlanetaryFile(const std::string& path);

// A day of a span as the windows show it: "1959-12-10", "-3000-02-22".
std::string SpanDateText(double jd);

}  // namespace orvane
