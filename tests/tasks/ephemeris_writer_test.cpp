#include "tasks/ephemeris_writer.h"

#include <gtest/gtest.h>

#include "task_test_support.h"
#include "tasks/coordinate_text.h"

namespace {

using namespace orvane;

constexpr double kJ2000 = 2451545.0;

EphemerisLine sphericalLine() {
    EphemerisLine l;
    l.jd = kJ2000;
    l.firstCoordinate = 12.0 + 34.0 / 60.0 + 56.64 / 3600.0;
    l.secondCoordinate = -5.5;
    l.firstRate = 1.23456;
    l.secondRate = -0.5;
    l.totalMagnitude = 0.0;
    l.nuclearMagnitude = 12.3456;
    l.elongation = 95.5;
    l.elongationSide = 1;
    l.phase = 30.25;
    l.distance = 1.5;
    l.distanceRate = -0.0125;
    return l;
}

struct Made {
    std::string header, line;
    std::size_t length = 0;
};

Made make(const TaskOptions& o, const EphemerisLine& l, bool first = true) {
    Made m;
    EphemerisWriter(o, orvane::testing::englishTaskTexts()).makeLine(l, first, m.header, m.line, m.length);
    return m;
}

TEST(Coordinates, HoursAndDegreesInBothForms) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    EXPECT_EQ(HoursText(12.0 + 34.0 / 60.0 + 56.78 / 3600.0).plain, " 12 34 56.78");
    EXPECT_EQ(HoursText(12.0 + 34.0 / 60.0 + 56.78 / 3600.0).symbols, " 12h 34m 56.78s");
    EXPECT_EQ(HoursText(1.0 + 2.0 / 60.0 + 3.5 / 3600.0).plain, "  1 02 03.50");
    EXPECT_EQ(DegreesText(123.0 + 45.0 / 60.0 + 6.7 / 3600.0, t).plain, "123 45 06.7");
    EXPECT_EQ(DegreesText(12.0 + 34.0 / 60.0 + 56.7 / 3600.0, t).symbols, " 12\xC2\xB0 34' 56.7\"");
    EXPECT_EQ(DegreesText(-12.5, t).plain, "-12 30 00.0");
    // A declination just south of the equator keeps its sign.
    EXPECT_EQ(DegreesText(-0.5, t).plain, " -0 30 00.0");
    EXPECT_EQ(DegreesText(0.5, t).plain, "  0 30 00.0");
}

TEST(SphericalTable, EquatorLineAndHeader) {
    TaskOptions o;
    const Made m = make(o, sphericalLine());
    const std::string line = std::string("   2000-01-01 12:00:00") + "  " + " 12 34 56.64" + "  " + " -5 30 00.0" +
                             "  " + "    1.2346" + "  " + "   -0.5000" + "  " + " n.a." + "  " + "12.35" + "  " +
                             " 95.5000 L" + "  " + " 30.2500" + "  " + "1.500000000000000E+00" + "  " +
                             "-1.250000000000000E-02" + "  ";
    EXPECT_EQ(m.line, line);
    EXPECT_EQ(m.length, line.size() - 2);
    const std::string header = std::string("           Epoch (TT) ") + "  " + "    RA (HMS)" + "  " + "  DEC (DMS)" +
                               "  " + " dRA (\"/h)" + "  " + "dDEC (\"/h)" + "  " + "T mag" + "  " + "N mag" +
                               "  " + "   E (deg)" + "  " + " P (deg)" + "  " + "            Dist (AU)" +
                               "          dDist (AU/day)";
    EXPECT_EQ(m.header, header);
    // The last two headers end where their numbers end.
    EXPECT_EQ(m.header.size(), m.length);
}

TEST(SphericalTable, EclipticInKilometres) {
    TaskOptions o;
    o.mainPlane = 1;
    o.distanceUnitsKm = true;
    EphemerisLine l = sphericalLine();
    l.firstCoordinate = 200.25;
    l.secondCoordinate = 10.0;
    l.totalMagnitude = 8.5;
    l.elongationSide = 0;
    const Made m = make(o, l);
    EXPECT_EQ(m.line.substr(22, 28), "  200 15 00.0   10 00 00.0  ");
    EXPECT_NE(m.line.find(" 8.50  12.35   95.5000 T"), std::string::npos);
    EXPECT_NE(m.line.find("2.243968060365000E+08  -2.164321045876736E+01"), std::string::npos) << m.line;
    // An A field keeps the first characters of a longer text: the eleven of the
    // longitude rate's label lose their bracket in the ten columns.
    EXPECT_NE(m.header.find("  Long (DMS)    Lat (DMS)  dLong (\"/h  dLat (\"/h)"), std::string::npos) << m.header;
    EXPECT_NE(m.header.find("dLat (\"/h)"), std::string::npos);
    EXPECT_NE(m.header.find("Dist (km)"), std::string::npos);
    EXPECT_NE(m.header.find("dDist (km/s)"), std::string::npos);
}

TEST(SphericalTable, HorizonLeavesOutTheRates) {
    TaskOptions o;
    o.mainPlane = 2;
    EphemerisLine l = sphericalLine();
    l.firstCoordinate = 200.25;
    l.secondCoordinate = -10.0;
    const Made m = make(o, l);
    const std::string line = std::string("   2000-01-01 12:00:00") + "  " + "200 15 00.0" + "  " + "-10 00 00.0" +
                             "  " + " n.a." + "  " + "12.35" + "  " + " 95.5000 L" + "  " + " 30.2500" + "  " +
                             "1.500000000000000E+00" + "  ";
    EXPECT_EQ(m.line, line);
    const std::string header = std::string("           Epoch (TT) ") + "  " + "    A (DMS)" + "  " + "    h (DMS)" +
                               "  " + "T mag" + "  " + "N mag" + "  " + "   E (deg)" + "  " + " P (deg)" + "  " +
                               "            Dist (AU)";
    EXPECT_EQ(m.header, header);
}

TEST(SphericalTable, LaterLinesLeaveTheHeaderEmpty) {
    const Made m = make(TaskOptions{}, sphericalLine(), false);
    EXPECT_TRUE(m.header.empty());
    EXPECT_FALSE(m.line.empty());
}

TEST(SphericalTable, JulianDatesNarrowTheDateColumn) {
    TaskOptions o;
    o.datesInJulianDays = true;
    o.showHms = false;
    const Made m = make(o, sphericalLine());
    EXPECT_EQ(m.line.substr(0, 20), "  2451545.00000000  ");
    EXPECT_EQ(m.header.substr(0, 20), "   Epoch (TT) (JD)  ");
}

EphemerisLine rectangularLine() {
    EphemerisLine l;
    l.jd = kJ2000;
    l.position = {1.0, -2.0, 0.5, 0.01, -0.02, 0.0};
    l.centreDistance = 2.5;
    l.speed = 0.0223606797749979;
    l.moid = 0.125;
    return l;
}

TEST(RectangularTable, LineAndHeader) {
    TaskOptions o;
    o.ephemerisType = 1;
    const Made m = make(o, rectangularLine());
    const std::string line = std::string("   2000-01-01 12:00:00") + " 1.000000000000000E+00  " +
                             "-2.000000000000000E+00  " + " 5.000000000000000E-01  " +
                             " 1.000000000000000E-02  " + "-2.000000000000000E-02  " +
                             " 0.000000000000000E+00  " + "2.500000000000000E+00  " + "2.236067977499790E-02  " +
                             "1.250000000000000E-01  ";
    EXPECT_EQ(m.line, line);
    EXPECT_EQ(m.length, line.size() - 2);
    const std::string header = std::string("           Epoch (TT) ") + "  " + "           pos(x) (AU)" + "  " +
                               "           pos(y) (AU)" + "  " + "           pos(z) (AU)" + "  " +
                               "       vel(x) (AU/day)" + "  " + "       vel(y) (AU/day)" + "  " +
                               "       vel(z) (AU/day)" + "  " + "            Dist (AU)" + "  " +
                               "         Vel (AU/day)" + "  " + "            MOID (AU)";
    EXPECT_EQ(m.header, header);
}

TEST(RectangularTable, KilometresAndKilometresPerSecond) {
    TaskOptions o;
    o.ephemerisType = 1;
    o.distanceUnitsKm = true;
    const Made m = make(o, rectangularLine());
    EXPECT_EQ(m.line.substr(22, 24), " 1.495978706910000E+08  ");
    EXPECT_EQ(m.line.substr(22 + 3 * 24, 24), " 1.731456836701389E+01  ");
    EXPECT_NE(m.header.find("pos(x) (km)"), std::string::npos);
    EXPECT_NE(m.header.find("vel(z) (km/s)"), std::string::npos);
}

EphemerisLine orbitalLine(double e) {
    EphemerisLine l;
    l.jd = kJ2000;
    OrbitElements& o = l.osculating;
    o.Tp = kJ2000 + 10.25;
    o.q = 1.25;
    o.e = e;
    o.omega = 100.5;
    o.node = 200.25;
    o.i = 10.0;
    if (e < 1.0) {
        o.P = 5.5;
        o.M = 350.0;
        o.n = 0.5;
        o.a = 2.5;
        o.Q = 3.75;
    } else {
        o.P = 0.0;
        o.M = -2.5;
        o.n = -57.2957795130823;
        o.a = e == 1.0 ? 0.0 : -10.0;
        o.Q = 0.0;
    }
    l.hillSphereBody = 0;
    return l;
}

TEST(OrbitalTable, EllipseLineAndHeader) {
    TaskOptions o;
    o.ephemerisType = 2;
    const Made m = make(o, orbitalLine(0.5));
    const std::string line = std::string("   2000-01-11 18:00:00") + "   2000-01-11 18:00:00" +
                             "1.250000000000000E+00  " + "5.000000000000000E-01  " + "5.500000000000000E+00  " +
                             "1.005000000000000E+02  " + "2.002500000000000E+02  " + "1.000000000000000E+01  " +
                             " 3.500000000000000E+02  " + "5.000000000000000E-01  " + " 2.500000000000000E+00  " +
                             "3.750000000000000E+00  " + "               Encke-type" + "       Sun";
    EXPECT_EQ(m.line.substr(0, 22), "   2000-01-01 12:00:00");
    EXPECT_EQ(m.line.substr(22), line.substr(22));
    const std::string header = std::string("           Epoch (TT) ") + "  " + "                     T" + "  " +
                               "               q (AU)" + "  " + "                    e" + "  " +
                               "               P (yr)" + "  " + "              w (deg)" + "  " +
                               "           node (deg)" + "  " + "              i (deg)" + "  " +
                               "               M (deg)" + "  " + "          n (deg/day)" + "  " +
                               "                a (AU)" + "  " + "               Q (AU)" + "  " +
                               "                    Orbit" + "  " + " Hill Sph.";
    EXPECT_EQ(m.header, header);
}

TEST(OrbitalTable, ParabolaHasLetterBAndBlankPeriodMotionAxisAndAphelion) {
    TaskOptions o;
    o.ephemerisType = 2;
    const Made m = make(o, orbitalLine(1.0));
    const std::size_t p = 44 + 23 * 2;  // after date, T, q, e
    EXPECT_EQ(m.line.substr(p, 23), std::string(23, ' '));                      // P
    EXPECT_EQ(m.line.substr(p + 23 * 4, 24), "-2.500000000000000E+00  ");         // B
    EXPECT_EQ(m.line.substr(p + 23 * 4 + 24, 23 + 24 + 23), std::string(70, ' '));  // n, a, Q
    EXPECT_EQ(m.line.substr(p + 23 * 4 + 24 + 70), "                Parabolic       Sun");
    EXPECT_NE(m.header.find("  B (deg)"), std::string::npos);
}

TEST(OrbitalTable, HyperbolaKeepsItsMotionBlankNotZero) {
    TaskOptions o;
    o.ephemerisType = 2;
    o.angleUnitsRadians = true;
    const Made m = make(o, orbitalLine(1.5));
    const std::size_t n = 44 + 23 * 2 + 23 * 4 + 24;
    EXPECT_EQ(m.line.substr(n, 23), std::string(23, ' '));
    EXPECT_EQ(m.line.substr(n + 23, 24), "-1.000000000000000E+01  ");
    EXPECT_EQ(m.line.substr(n + 47, 23), std::string(23, ' '));
    EXPECT_NE(m.header.find("  H (rad)"), std::string::npos);
    EXPECT_NE(m.header.find("n (rad/day)"), std::string::npos);
    EXPECT_NE(m.line.find("Hyperbolic"), std::string::npos);
    // w = 100.5 degrees in radians.
    EXPECT_EQ(m.line.substr(44 + 23 * 3, 23), "1.754055898254301E+00  ");
    EXPECT_STREQ(AnomalyLetter(0.999), "M");
    EXPECT_STREQ(AnomalyLetter(1.0), "B");
    EXPECT_STREQ(AnomalyLetter(1.0000001), "H");
}

TEST(OrbitalTable, RelativePerihelionWinsOverJulianDates) {
    TaskOptions o;
    o.ephemerisType = 2;
    o.perihelionRelativeToEpoch = true;
    o.datesInJulianDays = true;
    o.showHms = false;
    const Made m = make(o, orbitalLine(0.5));
    EXPECT_EQ(m.line.substr(0, 36), "  2451545.00000000       10.25000000");
    EXPECT_EQ(m.header.substr(0, 38), "   Epoch (TT) (JD)           T-E (day)");
    o.perihelionRelativeToEpoch = false;
    const Made jd = make(o, orbitalLine(0.5));
    EXPECT_EQ(jd.line.substr(18, 18), "  2451555.25000000");
    EXPECT_EQ(jd.header.substr(18, 20), "              T (JD)");
}

}  // namespace
