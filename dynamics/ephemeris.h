#pragma once
// The planetary ephemeris reader: one JPL binary ephemeris file, its header,
// constants and masses, the record of the last instant asked for, and the
// states of the Sun's companions.
//
// All state lives in an Ephemeris object; an object is used by one thread at a
// time (the calculation thread during a run), and another thread may open its
// own object at the same time.
#include <array>
#include <filesystem>
#include <fstream>
#include <vector>

#include "dynamics/chebyshev.h"
#include "dynamics/ephemeris_header.h"
#include "dynamics/masses.h"

namespace orvane {

// Body numbers of JPL's PLEPH.
enum EphemerisBody : int {
    kMercury = 1,
    kVenus = 2,
    kEarth = 3,
    kMars = 4,
    kJupiter = 5,
    kSaturn = 6,
    kUranus = 7,
    kNeptune = 8,
    kPluto = 9,
    kMoon = 10,
    kSun = 11,
    kSolarSystemBarycentre = 12,
    kEarthMoonBarycentre = 13,
};

// The two files of the options; the record length and layout of the file
// itself are taken from its header, the rest is what the program shows.
struct EphemerisChoice {
    int choice;
    const char* label;
    const char* fileName;
    int recordUnits;   // four-byte units a record
    int coefficients;  // doubles a record
    double firstJd;
    double lastJd;
};

// Choice 1 "JPL DE406" jplde406.dat, choice 2 "JPL DE423" jplde423.dat;
// nullptr for any other number.
const EphemerisChoice* FindEphemerisChoice(int choice);

// km to AU. The reader always uses this factor, not the header's AU.
inline constexpr double kKilometreToAu = 6.6845871226705985e-09;

// Flags of the series a SeriesStates call evaluates, as JPL's list: entries
// 0 to 9 bodies 1 to 10 (entry 2 being the Earth-Moon barycentre's series),
// 10 nutations, 11 librations; 0 none, 1 position, 2 with velocity, 3 with
// acceleration. The Sun is always evaluated.
using SeriesFlags = std::array<int, 12>;

enum class SeriesFrame {
    Barycentric,   // as the file holds them
    Heliocentric,  // series 1 to 9 with the Sun subtracted
};

// States of the series as the last SeriesStates calls left them (a failed
// read leaves them standing): position, velocity, acceleration (AU, AU/day,
// AU/day^2); series not flagged keep their earlier values. body[i] is the
// series of body i + 1, so body[2] is the Earth-Moon barycentre and body[9]
// the geocentric Moon.
struct SeriesResult {
    std::array<std::array<double, 9>, 10> body{};
    std::array<double, 9> sun{};
    std::array<double, 6> nutation{};   // Δψ, Δε, their rates and second rates (rad, /day)
    std::array<double, 9> libration{};  // three angles, rates and second rates
};

using State9 = std::array<double, 9>;

// Result of BodyStates: bodies 1 to 13 at index body - 1, relative to the Sun.
struct BodyStatesResult {
    std::array<std::array<double, 3>, 13> position{};
    std::array<std::array<double, 3>, 13> velocity{};
    std::array<std::array<double, 3>, 13> acceleration{};  // only for flag 3
};

class Ephemeris {
public:
    Ephemeris();
    Ephemeris(const Ephemeris&) = delete;
    Ephemeris& operator=(const Ephemeris&) = delete;

    // Opens the file of `choice` (1 or 2) in the per-machine folder.
    EphemerisStatus OpenEphemeris(int choice, const std::filesystem::path& machineFolder);
    // Opens any JPL binary ephemeris file: reads records 1 and 2, fills the
    // header, the constants and the masses, and sets the record length. A
    // failed open leaves the object closed.
    EphemerisStatus OpenEphemerisFile(const std::filesystem::path& path);
    void Close();
    bool isOpen() const { return open_; }

    const EphemerisHeader& header() const { return header_; }
    const std::array<double, kConstantCount>& constants() const { return constants_; }
    const EphemerisMasses& masses() const { return masses_; }
    int recordDoubles() const { return recordDoubles_; }
    long long recordCount() const { return recordCount_; }

    // Barycentric (or heliocentric) states of the flagged series at the
    // instant t1 + t2, the sum split so that the fraction of the day keeps
    // its digits. Reads the record only when it differs from the last one.
    EphemerisStatus SeriesStates(double t1, double t2, const SeriesFlags& flags,
                                 SeriesFrame frame = SeriesFrame::Barycentric);
    // The same with the Sun to `sunOrder` only (1 to 3): its further derivatives
    // keep their earlier values.
    EphemerisStatus SeriesStates(double t1, double t2, const SeriesFlags& flags, SeriesFrame frame,
                                 int sunOrder);
    const SeriesResult& seriesResult() const { return series_; }

    // Position, velocity and acceleration of `target` relative to `centre`
    // (PLEPH body numbers 1 to 13), AU and days.
    EphemerisStatus RelativeState(double jd, int target, int centre, State9& out);

    // States of the flagged bodies relative to the Sun, each equal to
    // RelativeState(jd, body, 11); the entries of unflagged bodies and of
    // bodies 11 and 12 stay as they were. Flags: 0 none, 1 position,
    // 2 with velocity, 3 with acceleration.
    EphemerisStatus BodyStates(double jd, BodyStatesResult& out);
    // The same with flags of the caller's own instead of the request flags.
    EphemerisStatus BodyStates(double jd, BodyStatesResult& out, const std::array<int, 13>& flags);
    std::array<int, 13>& requestFlags() { return requestFlags_; }
    const std::array<int, 13>& requestFlags() const { return requestFlags_; }

    // Nutation angles Δψ, Δε and their rates (radians, per day).
    EphemerisStatus Nutations(double jd, std::array<double, 4>& out);
    // Lunar libration angles and their rates (radians, per day).
    EphemerisStatus Librations(double jd, std::array<double, 6>& out);

    // The record number asked for last and the number of record reads tried,
    // for callers that watch the cache.
    long long cachedRecord() const { return cachedRecord_; }
    long long recordReads() const { return recordReads_; }
    // Changes with every open and close, so that callers who keep states of
    // their own know when the file behind them changed.
    long long generation() const { return generation_; }

private:
    static constexpr std::size_t kEmbSeries = kEarth - 1;
    static constexpr std::size_t kMoonSeries = kMoon - 1;

    bool ReadRecord(long long nr);
    // Flags the series that body `body` is made from with derivative order `order`.
    static void MarkBody(int body, int order, SeriesFlags& flags);
    // States of bodies 1 to 13 (index = body number) from the series: the
    // Earth from the barycentre and the Moon, the Moon from the Earth.
    void ResolveBodies(const SeriesFlags& flags, bool earthAndMoon,
                       std::array<State9, 14>& pv) const;

    bool open_ = false;
    std::ifstream file_;
    EphemerisHeader header_;
    std::array<double, kConstantCount> constants_{};
    EphemerisMasses masses_;
    int recordDoubles_ = 0;
    long long recordCount_ = 0;
    long long fileRecords_ = 0;  // whole records the file holds, header included

    std::vector<double> record_;      // coefficients of the record in the buffer
    std::vector<unsigned char> raw_;  // the bytes of one record
    long long cachedRecord_ = 0;      // record number remembered by SeriesStates
    long long bufferRecord_ = 0;      // record whose coefficients are in record_
    long long recordReads_ = 0;
    long long generation_ = 0;
    ChebyshevSeries chebyshev_;
    SeriesResult series_;
    std::array<int, 13> requestFlags_;
};

}  // namespace orvane
