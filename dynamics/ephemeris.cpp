#include "dynamics/ephemeris.h"

#include <algorithm>
#include <cmath>
#include <system_error>

namespace orvane {

namespace {

constexpr EphemerisChoice kChoices[] = {
    {1, "JPL DE406", "jplde406.dat", 1456, 728, 625359.5, 2816848.5},
    {2, "JPL DE423", "jplde423.dat", 2036, 1018, 2378480.5, 2524625.5},
};

constexpr std::array<int, 13> kDefaultRequestFlags = {2, 2, 2, 2, 2, 2, 2, 2, 2, 2, 0, 0, 2};

// Whole and fraction of a day count; the fraction is made non-negative.
void SplitDay(double tt, double& whole, double& fraction) {
    whole = std::trunc(tt);
    fraction = tt - whole;
    if (tt >= 0.0 || fraction == 0.0) return;
    whole -= 1.0;
    fraction += 1.0;
}

bool ValidBody(int body) { return body >= 1 && body <= 13; }

}  // namespace

const EphemerisChoice* FindEphemerisChoice(int choice) {
    for (const auto& c : kChoices) {
        if (c.choice == choice) return &c;
    }
    return nullptr;
}

Ephemeris::Ephemeris() : requestFlags_(kDefaultRequestFlags) {}

EphemerisStatus Ephemeris::OpenEphemeris(int choice, const std::filesystem::path& machineFolder) {
    const EphemerisChoice* c = FindEphemerisChoice(choice);
    if (c == nullptr) {
        Close();
        return EphemerisStatus::OpenFailed;
    }
    return OpenEphemerisFile(machineFolder / c->fileName);
}

void Ephemeris::Close() {
    ++generation_;
    if (file_.is_open()) file_.close();
    file_.clear();
    open_ = false;
    header_ = EphemerisHeader{};
    constants_.fill(0.0);
    masses_ = EphemerisMasses{};
    recordDoubles_ = 0;
    recordCount_ = 0;
    fileRecords_ = 0;
    record_.clear();
    raw_.clear();
    cachedRecord_ = 0;
    bufferRecord_ = 0;
    series_ = SeriesResult{};
}

EphemerisStatus Ephemeris::OpenEphemerisFile(const std::filesystem::path& path) {
    Close();
    std::error_code ec;
    const auto size = std::filesystem::file_size(path, ec);
    if (ec) return EphemerisStatus::OpenFailed;
    file_.open(path, std::ios::binary);
    if (!file_.is_open()) return EphemerisStatus::OpenFailed;
    auto fail = [this](EphemerisStatus s) {
        Close();
        return s;
    };
    if (size < static_cast<std::uintmax_t>(kHeaderBytes)) return fail(EphemerisStatus::TooShort);

    std::vector<unsigned char> head(kHeaderBytes);
    if (!file_.read(reinterpret_cast<char*>(head.data()), kHeaderBytes)) {
        return fail(EphemerisStatus::TooShort);
    }
    EphemerisHeader header;
    int recordDoubles = 0;
    const EphemerisStatus decoded = DecodeEphemerisHeader(head.data(), header, recordDoubles);
    if (decoded != EphemerisStatus::Ok) return fail(decoded);

    const auto recordBytes = static_cast<std::uintmax_t>(recordDoubles) * 8u;
    const long long records = EphemerisRecordCount(header);
    if (size < 2 * recordBytes) return fail(EphemerisStatus::TooShort);
    if (size / recordBytes < static_cast<std::uintmax_t>(records) + 2) {
        return fail(EphemerisStatus::Truncated);
    }

    std::vector<unsigned char> constants(kConstantCount * 8);
    file_.seekg(static_cast<std::streamoff>(recordBytes));
    if (!file_.read(reinterpret_cast<char*>(constants.data()),
                    static_cast<std::streamsize>(constants.size()))) {
        return fail(EphemerisStatus::TooShort);
    }
    for (int i = 0; i < kConstantCount; ++i) {
        constants_[static_cast<std::size_t>(i)] = LittleEndianDouble(constants.data() + 8 * i);
    }

    // The first data record must begin with the header's start and span: a
    // record length read wrongly from the layout shows here, not as planets
    // in the wrong place.
    unsigned char dates[16];
    file_.seekg(static_cast<std::streamoff>(2 * recordBytes));
    if (!file_.read(reinterpret_cast<char*>(dates), sizeof dates)) {
        return fail(EphemerisStatus::Truncated);
    }
    if (LittleEndianDouble(dates) != header.ss[0] ||
        LittleEndianDouble(dates + 8) != header.ss[0] + header.ss[2]) {
        return fail(EphemerisStatus::BadHeader);
    }

    header_ = header;
    recordDoubles_ = recordDoubles;
    recordCount_ = records;
    fileRecords_ = static_cast<long long>(size / recordBytes);
    masses_ = DeriveMasses(constants_, header_.emrat);

    int longest = 0;
    for (const auto& s : header_.ipt) longest = std::max(longest, s.coefficients);
    longest = std::max(longest, header_.lpt.coefficients);
    chebyshev_.Reserve(longest);
    record_.assign(static_cast<std::size_t>(recordDoubles_), 0.0);
    raw_.assign(static_cast<std::size_t>(recordBytes), 0);
    cachedRecord_ = 0;
    bufferRecord_ = 0;
    ++generation_;
    open_ = true;
    return EphemerisStatus::Ok;
}

bool Ephemeris::ReadRecord(long long nr) {
    ++recordReads_;
    if (nr < 3 || nr > fileRecords_) return false;
    file_.clear();
    const auto offset = static_cast<std::streamoff>(nr - 1) *
                        static_cast<std::streamoff>(raw_.size());
    file_.seekg(offset);
    if (!file_.read(reinterpret_cast<char*>(raw_.data()),
                    static_cast<std::streamsize>(raw_.size()))) {
        file_.clear();
        return false;
    }
    for (std::size_t i = 0; i < record_.size(); ++i) {
        record_[i] = LittleEndianDouble(raw_.data() + 8 * i);
    }
    bufferRecord_ = nr;
    return true;
}

EphemerisStatus Ephemeris::SeriesStates(double t1, double t2, const SeriesFlags& flags,
                                        SeriesFrame frame) {
    return SeriesStates(t1, t2, flags, frame, 3);
}

EphemerisStatus Ephemeris::SeriesStates(double t1, double t2, const SeriesFlags& flags, SeriesFrame frame,
                                        int sunOrder) {
    if (!open_) return EphemerisStatus::NotOpen;
    const auto& ss = header_.ss;

    double whole = 0.0, fraction = 0.0, whole2 = 0.0, fraction2 = 0.0;
    SplitDay(t1 - 0.5, whole, fraction);
    SplitDay(t2, whole2, fraction2);
    whole += whole2 + 0.5;
    fraction += fraction2;
    SplitDay(fraction, whole2, fraction);
    whole += whole2;
    if (!std::isfinite(whole) || !std::isfinite(fraction)) return EphemerisStatus::ReadFailed;

    // Record number, counting the header and the constants as records 1 and 2;
    // the file's last instant belongs to the last record.
    const double recordsIn = std::trunc((whole - ss[0]) / ss[2]);
    if (!(recordsIn > -1e15 && recordsIn < 1e15)) return EphemerisStatus::ReadFailed;
    long long nr = static_cast<long long>(recordsIn) + 3;
    if (whole == ss[1]) nr -= 1;
    // Before the first record there are only the header and the constants.
    if (nr < 3) return EphemerisStatus::ReadFailed;
    const double recordStart = static_cast<double>(nr - 3) * ss[2] + ss[0];
    const double tau = ((whole - recordStart) + fraction) / ss[2];

    EphemerisStatus status = EphemerisStatus::Ok;
    if (nr != cachedRecord_) {
        cachedRecord_ = nr;
        // A failed read leaves the earlier results; the number stays
        // remembered, so later calls in this record evaluate the old buffer.
        if (!ReadRecord(nr)) return EphemerisStatus::ReadFailed;
    }
    if (bufferRecord_ != nr) status = EphemerisStatus::StaleRecord;

    const double span = ss[2];
    // The heliocentric frame subtracts the whole Sun from every series.
    if (frame == SeriesFrame::Heliocentric) sunOrder = 3;
    sunOrder = std::clamp(sunOrder, 1, 3);
    std::array<double, 9> sun{};
    chebyshev_.Evaluate(record_.data(), header_.ipt[10], 3, tau, span, sunOrder, sun.data());
    for (std::size_t k = 0; k < 3 * static_cast<std::size_t>(sunOrder); ++k) series_.sun[k] = sun[k] * kKilometreToAu;

    for (int i = 0; i < 10; ++i) {
        const int order = flags[static_cast<std::size_t>(i)];
        if (order == 0) continue;
        auto& s = series_.body[static_cast<std::size_t>(i)];
        chebyshev_.Evaluate(record_.data(), header_.ipt[static_cast<std::size_t>(i)], 3, tau, span,
                            order, s.data());
        for (double& v : s) v *= kKilometreToAu;
        if (frame == SeriesFrame::Heliocentric && i < 9) {
            for (std::size_t k = 0; k < 9; ++k) s[k] -= series_.sun[k];
        }
    }
    if (flags[10] != 0 && SeriesPresent(header_.ipt[11])) {
        chebyshev_.Evaluate(record_.data(), header_.ipt[11], 2, tau, span, flags[10],
                            series_.nutation.data());
    }
    if (flags[11] != 0 && SeriesPresent(header_.lpt)) {
        chebyshev_.Evaluate(record_.data(), header_.lpt, 3, tau, span, flags[11],
                            series_.libration.data());
    }
    return status;
}

void Ephemeris::MarkBody(int body, int order, SeriesFlags& flags) {
    auto mark = [&](std::size_t series) { flags[series] = std::max(flags[series], order); };
    // The Earth and the Moon are made from the barycentre's series and the
    // geocentric Moon, so either needs both.
    if (body <= 10) mark(static_cast<std::size_t>(body - 1));
    if (body == kMoon) mark(kEmbSeries);
    if (body == kEarth) mark(kMoonSeries);
    if (body == kEarthMoonBarycentre) mark(kEmbSeries);
}

void Ephemeris::ResolveBodies(const SeriesFlags& flags, bool earthAndMoon,
                              std::array<State9, 14>& pv) const {
    // Slot 3 starts as the Earth-Moon barycentre's series and slot 10 as the
    // geocentric Moon.
    for (std::size_t i = 0; i < 10; ++i) pv[i + 1] = series_.body[i];
    pv[kSun] = series_.sun;
    pv[kSolarSystemBarycentre].fill(0.0);
    pv[kEarthMoonBarycentre] = pv[kEarth];
    if (earthAndMoon) {
        // The geocentric Moon directly: the Earth is the origin.
        pv[kEarth].fill(0.0);
        return;
    }
    if (flags[kEmbSeries] != 0) {
        for (std::size_t k = 0; k < 9; ++k) pv[kEarth][k] -= pv[kMoon][k] / (1.0 + header_.emrat);
    }
    if (flags[kMoonSeries] != 0) {
        for (std::size_t k = 0; k < 9; ++k) pv[kMoon][k] += pv[kEarth][k];
    }
}

EphemerisStatus Ephemeris::RelativeState(double jd, int target, int centre, State9& out) {
    out.fill(0.0);
    if (!ValidBody(target) || !ValidBody(centre)) return EphemerisStatus::InvalidBody;
    if (target == centre) return EphemerisStatus::Ok;
    if (!open_) return EphemerisStatus::NotOpen;

    SeriesFlags flags{};
    MarkBody(target, 3, flags);
    MarkBody(centre, 3, flags);
    const EphemerisStatus status = SeriesStates(jd, 0.0, flags, SeriesFrame::Barycentric);

    std::array<State9, 14> pv{};
    ResolveBodies(flags, target + centre == 13 && target * centre == 30, pv);
    for (std::size_t k = 0; k < 9; ++k) {
        out[k] = pv[static_cast<std::size_t>(target)][k] - pv[static_cast<std::size_t>(centre)][k];
    }
    return status;
}

// One evaluation of every flagged series serves all bodies: each state is
// the one RelativeState(jd, body, 11) gives, value for value, since the
// series and the Earth and Moon rules are the same.
EphemerisStatus Ephemeris::BodyStates(double jd, BodyStatesResult& out) {
    return BodyStates(jd, out, requestFlags_);
}

EphemerisStatus Ephemeris::BodyStates(double jd, BodyStatesResult& out, const std::array<int, 13>& request) {
    if (!open_) return EphemerisStatus::NotOpen;
    SeriesFlags flags{};
    int highest = 0;
    for (int body = 1; body <= 13; ++body) {
        const int flag = std::clamp(request[static_cast<std::size_t>(body - 1)], 0, 3);
        if (flag == 0) continue;
        MarkBody(body, flag, flags);
        highest = std::max(highest, flag);
    }
    if (highest == 0) return EphemerisStatus::Ok;
    // Every state is taken relative to the Sun to the order its flag asks for, so
    // the Sun is needed to the highest of them and no further.
    const EphemerisStatus status = SeriesStates(jd, 0.0, flags, SeriesFrame::Barycentric, highest);

    std::array<State9, 14> pv{};
    ResolveBodies(flags, false, pv);
    const State9& sun = pv[kSun];
    for (int body = 1; body <= 13; ++body) {
        const auto i = static_cast<std::size_t>(body - 1);
        const int flag = std::clamp(request[i], 0, 3);
        if (flag == 0) continue;
        const State9& s = pv[static_cast<std::size_t>(body)];
        for (std::size_t k = 0; k < 3; ++k) {
            out.position[i][k] = s[k] - sun[k];
            if (flag >= 2) out.velocity[i][k] = s[3 + k] - sun[3 + k];
            if (flag >= 3) out.acceleration[i][k] = s[6 + k] - sun[6 + k];
        }
    }
    return status;
}

EphemerisStatus Ephemeris::Nutations(double jd, std::array<double, 4>& out) {
    out.fill(0.0);
    if (!open_) return EphemerisStatus::NotOpen;
    if (!SeriesPresent(header_.ipt[11])) return EphemerisStatus::NotInFile;
    SeriesFlags flags{};
    flags[10] = 2;
    const EphemerisStatus status = SeriesStates(jd, 0.0, flags);
    for (std::size_t k = 0; k < 4; ++k) out[k] = series_.nutation[k];
    return status;
}

EphemerisStatus Ephemeris::Librations(double jd, std::array<double, 6>& out) {
    out.fill(0.0);
    if (!open_) return EphemerisStatus::NotOpen;
    if (!SeriesPresent(header_.lpt)) return EphemerisStatus::NotInFile;
    SeriesFlags flags{};
    flags[11] = 2;
    const EphemerisStatus status = SeriesStates(jd, 0.0, flags);
    for (std::size_t k = 0; k < 6; ++k) out[k] = series_.libration[k];
    return status;
}

}  // namespace orvane
