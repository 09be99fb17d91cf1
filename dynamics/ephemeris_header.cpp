#include "dynamics/ephemeris_header.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

namespace orvane {

namespace {

constexpr int kTitleBytes = 84;
constexpr int kNameBytes = 6;
constexpr int kSsOffset = 3 * kTitleBytes + kConstantCount * kNameBytes;  // 2652
constexpr int kNconOffset = kSsOffset + 24;
constexpr int kAuOffset = kNconOffset + 4;
constexpr int kEmratOffset = kAuOffset + 8;
constexpr int kIptOffset = kEmratOffset + 8;
constexpr int kNumdeOffset = kIptOffset + kHeaderSeriesCount * 12;
constexpr int kLptOffset = kNumdeOffset + 4;

// Limits far beyond any JPL file, so that sizes computed from them stay small
// numbers and a hostile header cannot make the reader allocate or seek wildly.
constexpr int kMaxCoefficients = 1000;
constexpr int kMaxGranules = 1000;
constexpr long long kMaxRecordDoubles = 1 << 20;
constexpr long long kMaxRecords = 100000000;
// The header and the 400 constants must fit in one record each.
constexpr long long kMinRecordDoubles = kConstantCount;

SeriesLayout ReadTriple(const unsigned char* p) {
    SeriesLayout s;
    s.offset = LittleEndianInt32(p);
    s.coefficients = LittleEndianInt32(p + 4);
    s.granules = LittleEndianInt32(p + 8);
    return s;
}

// End of the series in the record (doubles), or -1 when the triple is not usable.
long long SeriesEnd(const SeriesLayout& s, int components) {
    if (s.offset < 3 || s.offset > kMaxRecordDoubles) return -1;
    if (s.coefficients < 1 || s.coefficients > kMaxCoefficients) return -1;
    if (s.granules < 1 || s.granules > kMaxGranules) return -1;
    return static_cast<long long>(s.offset) - 1 +
           static_cast<long long>(components) * s.coefficients * s.granules;
}

}  // namespace

double LittleEndianDouble(const unsigned char* p) {
    std::uint64_t bits = 0;
    if constexpr (std::endian::native == std::endian::little) {
        // A record is 1018 of these: on this byte order they are plain copies.
        std::memcpy(&bits, p, sizeof bits);
    } else {
        for (int i = 7; i >= 0; --i) bits = (bits << 8) | p[i];
    }
    return std::bit_cast<double>(bits);
}

std::int32_t LittleEndianInt32(const unsigned char* p) {
    const std::uint32_t bits = static_cast<std::uint32_t>(p[0]) |
                               (static_cast<std::uint32_t>(p[1]) << 8) |
                               (static_cast<std::uint32_t>(p[2]) << 16) |
                               (static_cast<std::uint32_t>(p[3]) << 24);
    return static_cast<std::int32_t>(bits);
}

bool SeriesPresent(const SeriesLayout& layout) {
    return layout.coefficients != 0 && layout.granules != 0;
}

long long EphemerisRecordCount(const EphemerisHeader& header) {
    const double span = header.ss[2];
    const double count = (header.ss[1] - header.ss[0]) / span;
    if (!std::isfinite(count) || count < 1.0 || count > static_cast<double>(kMaxRecords)) {
        return -1;
    }
    const double whole = std::round(count);
    if (std::fabs(count - whole) > 1e-9 * whole) return -1;
    return static_cast<long long>(whole);
}

EphemerisStatus DecodeEphemerisHeader(const unsigned char* bytes, EphemerisHeader& header,
                                      int& recordDoubles) {
    for (int i = 0; i < 3; ++i) {
        header.titles[i].assign(reinterpret_cast<const char*>(bytes + i * kTitleBytes),
                                kTitleBytes);
    }
    for (int i = 0; i < kConstantCount; ++i) {
        header.constantNames[i].assign(
            reinterpret_cast<const char*>(bytes + 3 * kTitleBytes + i * kNameBytes), kNameBytes);
    }
    for (int i = 0; i < 3; ++i) header.ss[i] = LittleEndianDouble(bytes + kSsOffset + 8 * i);
    header.ncon = LittleEndianInt32(bytes + kNconOffset);
    header.au = LittleEndianDouble(bytes + kAuOffset);
    header.emrat = LittleEndianDouble(bytes + kEmratOffset);
    for (int i = 0; i < kHeaderSeriesCount; ++i) header.ipt[i] = ReadTriple(bytes + kIptOffset + 12 * i);
    header.numde = LittleEndianInt32(bytes + kNumdeOffset);
    header.lpt = ReadTriple(bytes + kLptOffset);

    const auto& ss = header.ss;
    if (!std::isfinite(ss[0]) || !std::isfinite(ss[1]) || !std::isfinite(ss[2]) ||
        !(ss[2] > 0.0) || !(ss[1] > ss[0])) {
        return EphemerisStatus::BadHeader;
    }
    if (EphemerisRecordCount(header) < 0) return EphemerisStatus::BadHeader;
    if (!std::isfinite(header.au) || !(header.au > 0.0)) return EphemerisStatus::BadHeader;
    if (!std::isfinite(header.emrat) || !(header.emrat > 0.0)) return EphemerisStatus::BadHeader;
    if (header.ncon < 0) return EphemerisStatus::BadHeader;

    long long furthest = 2;  // the two dates
    for (int i = 0; i < kHeaderSeriesCount; ++i) {
        const bool body = i < 11;
        if (!body && !SeriesPresent(header.ipt[i])) continue;
        const long long end = SeriesEnd(header.ipt[i], body ? 3 : 2);
        if (end < 0) return EphemerisStatus::BadHeader;
        furthest = std::max(furthest, end);
    }
    if (SeriesPresent(header.lpt)) {
        const long long end = SeriesEnd(header.lpt, 3);
        if (end < 0) return EphemerisStatus::BadHeader;
        furthest = std::max(furthest, end);
    }
    if (furthest > kMaxRecordDoubles) return EphemerisStatus::BadHeader;
    // A record shorter than the header or the constants is not this format.
    if (furthest < kMinRecordDoubles || furthest * 8 < kHeaderBytes) {
        return EphemerisStatus::BadHeader;
    }
    recordDoubles = static_cast<int>(furthest);
    return EphemerisStatus::Ok;
}

}  // namespace orvane
