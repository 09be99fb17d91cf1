#include "tasks/ephemeris_panel.h"

#include <cmath>
#include <cstddef>

#include "base/fortran_format.h"
#include "tasks/coordinate_text.h"
#include "tasks/date_text.h"
#include "tasks/description_text.h"
#include "tasks/ephemeris_units.h"
#include "tasks/ephemeris_writer.h"

namespace orvane {

namespace {

constexpr std::string_view kCrLf = "\r\n";

class Block {
public:
    explicit Block(std::string& text) : text_(text) {}
    void line(std::string_view label, std::string_view value) {
        text_.append(label).append(value).append(kCrLf);
    }
    void line(std::string_view label, std::string_view value, const std::string& unit) {
        text_.append(label).append(value).append(" ").append(unit).append(kCrLf);
    }
    void empty() { text_.append(kCrLf); }

private:
    std::string& text_;
};

std::string magnitudeText(double value) { return value == 0.0 ? std::string("   n/a") : formatF(value, 6, 2); }

// AU and degrees take the first form, km and radians the second.
std::string distanceText(double au, const TaskOptions& o) {
    return o.distanceUnitsKm ? formatF(au * kKilometresPerAu, 15, 3) : formatF(au, 16, 12);
}

void sphericalValues(Block& block, const EphemerisLine& line, const TaskOptions& o, const TaskTexts& t,
                     const UnitLabels& units) {
    const std::string rateUnit = "(" + t.arcsecPerHour + ")";
    if (o.mainPlane == 2) {
        block.line("A         :", DegreesText(line.firstCoordinate, t).symbols);
        block.line("h         :", DegreesText(line.secondCoordinate, t).symbols);
    } else if (o.mainPlane == 0) {
        block.line("R.A.      :", HoursText(line.firstCoordinate).symbols);
        block.line("DEC       :", DegreesText(line.secondCoordinate, t).symbols);
        block.line("dR.A.     :", formatF(line.firstRate, 10, 4), rateUnit);
        block.line("dDEC      :", formatF(line.secondRate, 10, 4), rateUnit);
    } else {
        block.line("Long      :", DegreesText(line.firstCoordinate, t).symbols);
        block.line("Lat       :", DegreesText(line.secondCoordinate, t).symbols);
        block.line("dLong     :", formatF(line.firstRate, 10, 4), rateUnit);
        block.line("dLat      :", formatF(line.secondRate, 10, 4), rateUnit);
    }
    block.line("T mag     :", magnitudeText(line.totalMagnitude));
    block.line("N mag     :", magnitudeText(line.nuclearMagnitude));
    block.line("Elong     : ", formatF(line.elongation, 8, 4) + " (" + t.deg + ") " + (line.elongationSide == 0 ? "T" : "L"));
    block.line("Phase     : ", formatF(line.phase, 8, 4) + " (" + t.deg + ")");
    block.empty();
    block.line("Dist      : ", distanceText(line.distance, o), units.distance);
    if (o.mainPlane != 2) {
        const std::string rate = o.distanceUnitsKm ? formatF(line.distanceRate * kKilometresPerAu / 86400.0, 8, 3)
                                                   : formatES(line.distanceRate, 22, 15);
        block.line("dDist     :", rate, units.velocity);
    }
}

void rectangularValues(Block& block, const EphemerisLine& line, const TaskOptions& o, const UnitLabels& units) {
    const UnitFactors f = MakeUnitFactors(o);
    const StateVector& p = line.position;
    block.line("pos(x)    :", formatES(p.x * f.distance, 22, 15), units.distance);
    block.line("pos(y)    :", formatES(p.y * f.distance, 22, 15), units.distance);
    block.line("pos(z)    :", formatES(p.z * f.distance, 22, 15), units.distance);
    block.line("vel(x)    :", formatES(p.vx * f.velocity, 22, 15), units.velocity);
    block.line("vel(y)    :", formatES(p.vy * f.velocity, 22, 15), units.velocity);
    block.line("vel(z)    :", formatES(p.vz * f.velocity, 22, 15), units.velocity);
    block.empty();
    block.line("MOID      : ", distanceText(line.moid, o), units.distance);
    block.line("Dist      : ", distanceText(line.centreDistance, o), units.distance);
    const std::string speed =
        o.distanceUnitsKm ? formatF(line.speed * f.velocity, 7, 3) : formatES(line.speed, 21, 15);
    block.line("Vel       : ", speed, units.velocity);
}

std::string angleText(double degrees, const TaskOptions& o) {
    return o.angleUnitsRadians ? formatES(degrees * MakeUnitFactors(o).angle, 21, 15) : formatF(degrees, 16, 12);
}

void orbitalValues(Block& block, const EphemerisLine& line, const TaskOptions& o, const TaskTexts& t,
                   const UnitLabels& units) {
    const OrbitElements& e = line.osculating;
    const UnitFactors f = MakeUnitFactors(o);
    if (o.perihelionRelativeToEpoch) {
        block.line("T-E       :", RelativeDaysText(e.Tp - line.jd, o.showHms), "(" + t.day + ")");
    } else if (o.datesInJulianDays) {
        block.line("T         :", DateText(e.Tp, true, o.showHms), t.jd);
    } else {
        block.line("T         :", DateText(e.Tp, false, o.showHms));
    }
    block.line("q         : ", distanceText(e.q, o), units.distance);
    block.line("e         : ", o.centralBody == 0 ? formatF(e.e, 14, 12) : formatES(e.e, 21, 15));
    if (e.P == 0.0) {
        block.line("P         : ", t.notAvailable);
    } else {
        block.line("P         : ", std::fabs(1.0 - e.e) > 0.0001 ? formatF(e.P, 16, 8) : formatES(e.P, 21, 15),
                   units.period);
    }
    block.line("w         : ", angleText(e.omega, o), units.angle);
    block.line("node      : ", angleText(e.node, o), units.angle);
    block.line("i         : ", angleText(e.i, o), units.angle);
    block.line(std::string(AnomalyLetter(e.e)) + "         :", formatES(e.M * f.angle, 22, 15), units.angle);
    if (e.n < 0.0) {
        block.line("n         : ", t.notAvailable);
    } else {
        block.line("n         : ", formatES(e.n * f.angle, 21, 15), units.rate);
    }
    if (e.a == 0.0) {
        block.line("a         :", " " + t.notAvailable);
    } else {
        block.line("a         :", formatES(e.a * f.distance, 22, 15), units.distance);
    }
    if (e.Q == 0.0) {
        block.line("Q         : ", t.notAvailable);
    } else {
        block.line("Q         : ", formatES(e.Q * f.distance, 21, 15), units.distance);
    }
    block.empty();
    block.line(t.orbitLabel + " ", OrbitClassText(e, t));
    const auto body = static_cast<std::size_t>(line.hillSphereBody);
    block.line(t.hillLabel + " ", body < t.bodyNames.size() ? t.bodyNames[body] : std::string{});
}

}  // namespace

std::string EphemerisPanelBlock(const std::string& name, const EphemerisLine& line, const TaskOptions& options,
                                const TaskTexts& texts) {
    const UnitLabels units = MakeUnitLabels(options, texts);
    std::string text = texts.ephemeridesOf + " " + name + ":";
    text.append(kCrLf).append(kCrLf);
    text += DescriptionText(options, texts);
    text += texts.epochLabel + DateText(line.jd, options.datesInJulianDays, options.showHms);
    if (options.datesInJulianDays) text += " " + texts.jd;
    text.append(kCrLf).append(kCrLf);
    Block block(text);
    switch (options.ephemerisType) {
    case 1: rectangularValues(block, line, options, units); break;
    case 2: orbitalValues(block, line, options, texts, units); break;
    default: sphericalValues(block, line, options, texts, units); break;
    }
    return text;
}

}  // namespace orvane
