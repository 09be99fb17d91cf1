#include "tasks/ephemeris_writer.h"

#include <cstddef>

#include "astro/orbit_class.h"
#include "base/line_builder.h"
#include "tasks/coordinate_text.h"
#include "tasks/date_text.h"

namespace orvane {

namespace {

constexpr std::string_view kJoin = "  ";

std::size_t trimmedLength(const std::string& text) {
    const auto last = text.find_last_not_of(' ');
    return last == std::string::npos ? 0 : last + 1;
}

// Ew.d in a field of `field` columns, blank filled at the right.
void scientific(LineBuilder& b, double value, int w, int field) {
    const std::size_t start = b.size();
    b.fieldES(value, w, 15).padFrom(start, static_cast<std::size_t>(field));
}

void blankField(LineBuilder& b, int field) { b.blanks(static_cast<std::size_t>(field)); }

void magnitude(LineBuilder& b, double value) {
    if (value == 0.0) {
        b.text(" n.a.");
    } else {
        b.fieldF(value, 5, 2);
    }
}

std::string withUnit(const std::string& label, const std::string& unit) { return label + " " + unit; }

}  // namespace

const char* AnomalyLetter(double e) {
    if (e < 1.0) return "M";
    if (e == 1.0) return "B";
    return "H";
}

void AppendPerihelionColumn(LineBuilder& b, const EphemerisLine& line, const TaskOptions& options) {
    const double Tp = line.osculating.Tp;
    if (!options.perihelionRelativeToEpoch) {
        AppendDateColumn(b, Tp, options.datesInJulianDays, options.showHms);
        return;
    }
    // Both relative forms are 16 wide, narrower than either column.
    const std::size_t start = b.size();
    AppendRelativeDays(b, Tp - line.jd, options.showHms);
    b.rightAlignFrom(start, static_cast<std::size_t>(DateColumnWidth(options.datesInJulianDays)));
}

std::string PerihelionColumn(const EphemerisLine& line, const TaskOptions& options) {
    std::string column;
    LineBuilder b(column);
    AppendPerihelionColumn(b, line, options);
    return column;
}

std::string OrbitClassText(const OrbitElements& o, const TaskTexts& texts) {
    const OrbitClass orbitClass = ClassifyOrbit(o.q, o.e, o.P, o.i, o.a);
    if (orbitClass.number < 0 || static_cast<std::size_t>(orbitClass.number) >= texts.classNames.size()) {
        return orbitClass.name;
    }
    return texts.classNames[static_cast<std::size_t>(orbitClass.number)];
}

EphemerisWriter::EphemerisWriter(const TaskOptions& options, const TaskTexts& texts)
    : options_(options), texts_(texts), units_(MakeUnitLabels(options, texts)), factors_(MakeUnitFactors(options)) {}

void EphemerisWriter::makeLine(const EphemerisLine& line, bool firstLine, std::string& headerOut,
                               std::string& lineOut, std::size_t& lineLengthOut) const {
    headerOut.clear();
    lineOut.clear();
    headerOut.reserve(kLineBufferSize);
    lineOut.reserve(kLineBufferSize);
    switch (options_.ephemerisType) {
    case 1:
        if (firstLine) rectangularHeader(headerOut);
        rectangularLine(line, lineOut);
        break;
    case 2:
        if (firstLine) orbitalHeader(line, headerOut);
        orbitalLine(line, lineOut);
        break;
    default:
        if (firstLine) sphericalHeader(headerOut);
        sphericalLine(line, lineOut);
        break;
    }
    if (headerOut.size() > kLineBufferSize) headerOut.resize(kLineBufferSize);
    if (lineOut.size() > kLineBufferSize) lineOut.resize(kLineBufferSize);
    lineLengthOut = trimmedLength(lineOut);
}

void EphemerisWriter::sphericalHeader(std::string& out) const {
    const bool horizon = options_.mainPlane == 2;
    const bool equator = options_.mainPlane == 0;
    const std::string rate = " (" + texts_.arcsecPerHourShort + ")";
    LineBuilder b(out);
    b.text(DateColumnHeader(texts_, options_.datesInJulianDays)).text(kJoin);
    if (equator) {
        b.right("RA (HMS)", 12).text(kJoin).right("DEC (DMS)", 11);
    } else if (horizon) {
        b.right("A (DMS)", 11).text(kJoin).right("h (DMS)", 11);
    } else {
        b.right("Long (DMS)", 11).text(kJoin).right("Lat (DMS)", 11);
    }
    if (!horizon) {
        b.text(kJoin).right((equator ? "dRA" : "dLong") + rate, 10);
        b.text(kJoin).right((equator ? "dDEC" : "dLat") + rate, 10);
    }
    b.text(kJoin).right("T mag", 5).text(kJoin).right("N mag", 5);
    b.text(kJoin).right("E (" + texts_.deg + ")", 10).text(kJoin).right("P (" + texts_.deg + ")", 8);
    b.text(kJoin).right(withUnit("Dist", units_.distance), 21);
    if (!horizon) b.right(withUnit("dDist", units_.velocity), 24);
}

void EphemerisWriter::sphericalLine(const EphemerisLine& line, std::string& out) const {
    const bool horizon = options_.mainPlane == 2;
    LineBuilder b(out);
    AppendDateColumn(b, line.jd, options_.datesInJulianDays, options_.showHms);
    b.text(kJoin);
    if (options_.mainPlane == 0) {
        AppendHours(b, line.firstCoordinate);
    } else {
        AppendDegrees(b, line.firstCoordinate);
    }
    b.text(kJoin);
    AppendDegrees(b, line.secondCoordinate);
    if (!horizon) {
        b.text(kJoin).fieldF(line.firstRate, 10, 4);
        b.text(kJoin).fieldF(line.secondRate, 10, 4);
    }
    b.text(kJoin);
    magnitude(b, line.totalMagnitude);
    b.text(kJoin);
    magnitude(b, line.nuclearMagnitude);
    b.text(kJoin).fieldF(line.elongation, 8, 4).text(line.elongationSide == 0 ? " T" : " L");
    b.text(kJoin).fieldF(line.phase, 8, 4);
    b.text(kJoin);
    scientific(b, line.distance * factors_.distance, 21, 23);
    if (!horizon) scientific(b, line.distanceRate * factors_.velocity, 22, 24);
}

void EphemerisWriter::rectangularHeader(std::string& out) const {
    LineBuilder b(out);
    b.text(DateColumnHeader(texts_, options_.datesInJulianDays));
    for (const char* axis : {"pos(x) ", "pos(y) ", "pos(z) "}) b.text(kJoin).right(axis + units_.distance, 22);
    for (const char* axis : {"vel(x) ", "vel(y) ", "vel(z) "}) b.text(kJoin).right(axis + units_.velocity, 22);
    b.text(kJoin).right(withUnit("Dist", units_.distance), 21);
    b.text(kJoin).right(withUnit("Vel", units_.velocity), 21);
    b.text(kJoin).right(withUnit("MOID", units_.distance), 21);
}

void EphemerisWriter::rectangularLine(const EphemerisLine& line, std::string& out) const {
    const StateVector& p = line.position;
    LineBuilder b(out);
    AppendDateColumn(b, line.jd, options_.datesInJulianDays, options_.showHms);
    for (double v : {p.x, p.y, p.z}) scientific(b, v * factors_.distance, 22, 24);
    for (double v : {p.vx, p.vy, p.vz}) scientific(b, v * factors_.velocity, 22, 24);
    scientific(b, line.centreDistance * factors_.distance, 21, 23);
    scientific(b, line.speed * factors_.velocity, 21, 23);
    scientific(b, line.moid * factors_.distance, 21, 23);
}

void EphemerisWriter::orbitalHeader(const EphemerisLine& line, std::string& out) const {
    const auto width = static_cast<std::size_t>(DateColumnWidth(options_.datesInJulianDays));
    std::string perihelion = "T";
    if (options_.perihelionRelativeToEpoch) {
        perihelion = "T-E (" + texts_.day + ")";
    } else if (options_.datesInJulianDays) {
        perihelion = "T (" + texts_.jd + ")";
    }
    LineBuilder b(out);
    b.text(DateColumnHeader(texts_, options_.datesInJulianDays));
    b.text(kJoin).right(perihelion, width);
    b.text(kJoin).right(withUnit("q", units_.distance), 21);
    b.text(kJoin).right("e", 21);
    b.text(kJoin).right(withUnit("P", units_.period), 21);
    b.text(kJoin).right(withUnit("w", units_.angle), 21);
    b.text(kJoin).right(withUnit("node", units_.angle), 21);
    b.text(kJoin).right(withUnit("i", units_.angle), 21);
    b.text(kJoin).right(withUnit(AnomalyLetter(line.osculating.e), units_.angle), 22);
    b.text(kJoin).right(withUnit("n", units_.rate), 21);
    b.text(kJoin).right(withUnit("a", units_.distance), 22);
    b.text(kJoin).right(withUnit("Q", units_.distance), 21);
    b.text(kJoin).right(texts_.orbitHeader, 25);
    b.text(kJoin).right(texts_.hillHeader, 10);
}

void EphemerisWriter::orbitalLine(const EphemerisLine& line, std::string& out) const {
    const OrbitElements& o = line.osculating;
    LineBuilder b(out);
    AppendDateColumn(b, line.jd, options_.datesInJulianDays, options_.showHms);
    AppendPerihelionColumn(b, line, options_);
    scientific(b, o.q * factors_.distance, 21, 23);
    scientific(b, o.e, 21, 23);
    if (o.P == 0.0) {
        blankField(b, 23);
    } else {
        scientific(b, o.P, 21, 23);
    }
    scientific(b, o.omega * factors_.angle, 21, 23);
    scientific(b, o.node * factors_.angle, 21, 23);
    scientific(b, o.i * factors_.angle, 21, 23);
    scientific(b, o.M * factors_.angle, 22, 24);
    if (o.n < 0.0) {
        blankField(b, 23);
    } else {
        scientific(b, o.n * factors_.angle, 21, 23);
    }
    if (o.a == 0.0) {
        blankField(b, 24);
    } else {
        scientific(b, o.a * factors_.distance, 22, 24);
    }
    if (o.Q == 0.0) {
        blankField(b, 23);
    } else {
        scientific(b, o.Q * factors_.distance, 21, 23);
    }
    b.right(OrbitClassText(o, texts_), 25);
    const auto body = static_cast<std::size_t>(line.hillSphereBody);
    b.right(body < texts_.bodyNames.size() ? texts_.bodyNames[body] : std::string{}, 10);
}

}  // namespace orvane
