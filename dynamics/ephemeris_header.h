#pragma once
// The first two records of a JPL binary ephemeris file: header and constants,
// read little-endian, checked so that no later read can leave the record.
#include <array>
#include <cstdint>
#include <string>

#include "dynamics/chebyshev.h"

namespace orvane {

enum class EphemerisStatus {
    Ok = 0,
    OpenFailed,    // the file is missing or cannot be opened
    TooShort,      // not even a header record and a constants record
    BadHeader,     // layout, dates or constants that no ephemeris file has
    Truncated,     // fewer records than the header's span needs
    NotOpen,       // no file has been opened
    InvalidBody,   // a body number outside 1 to 13
    ReadFailed,    // the record for the instant could not be read; the
                   // earlier results stand
    StaleRecord,   // a record whose read had failed: the buffer of an earlier
                   // record was evaluated
    NotInFile,     // the file has no nutation or libration series
};

inline constexpr int kHeaderBytes = 2856;       // up to and including LPT
inline constexpr int kConstantCount = 400;      // constants read from record 2
inline constexpr int kHeaderSeriesCount = 12;   // triples of IPT

struct EphemerisHeader {
    std::array<std::string, 3> titles;                      // 84 characters each
    std::array<std::string, kConstantCount> constantNames;  // 6 characters each
    std::array<double, 3> ss{};  // start, end, span of a record (days)
    std::int32_t ncon = 0;
    double au = 0.0;      // km
    double emrat = 0.0;   // Earth/Moon mass ratio
    std::array<SeriesLayout, kHeaderSeriesCount> ipt{};  // Mercury .. Sun, nutations
    std::int32_t numde = 0;
    SeriesLayout lpt{};   // librations
};

// Decodes and checks the header record. `bytes` holds at least kHeaderBytes.
// On success `recordDoubles` is the record length in doubles, as large as the
// furthest series reaches. Body series 1 to 11 must be present; nutations and
// librations may be absent (zero coefficients or granules).
EphemerisStatus DecodeEphemerisHeader(const unsigned char* bytes, EphemerisHeader& header,
                                      int& recordDoubles);

// Number of records between SS[1] and SS[2], or -1 when the span is no whole
// number of records or absurd.
long long EphemerisRecordCount(const EphemerisHeader& header);

// Whether a series of the layout table is present in the file.
bool SeriesPresent(const SeriesLayout& layout);

// Little-endian double and integer at `p`, whatever the machine's order.
double LittleEndianDouble(const unsigned char* p);
std::int32_t LittleEndianInt32(const unsigned char* p);

}  // namespace orvane
