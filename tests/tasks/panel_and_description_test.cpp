#include <gtest/gtest.h>

#include "task_test_support.h"
#include "tasks/description_text.h"
#include "tasks/ephemeris_panel.h"
#include "tasks/text_panel.h"

namespace {

using namespace orvane;

constexpr double kJ2000 = 2451545.0;

TEST(Description, DefaultsAreTopocentricOnEarth) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    EXPECT_EQ(DescriptionText(TaskOptions{}, t),
              "Type      : Spherical -> Astrometric -> Equator -> 2000.0\r\n"
              "Center    : Earth -> 59\xC2\xB0" "46'19.62\" N,  30\xC2\xB0" "19'38.64\" E,   85.4 (m)\r\n\r\n");
}

TEST(Description, SunCentreAndForcedGeometricPosition) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    o.ephemerisType = 1;
    o.coordinateKind = 2;
    o.mainPlane = 1;
    o.referenceSystem = 1;
    o.centralBody = 0;
    EXPECT_EQ(DescriptionText(o, t),
              "Type      : Rectangular -> Geometric -> Ecliptic -> 1950.0\r\nCenter    : Sun\r\n\r\n");
    o.ephemerisType = 2;
    o.centralBody = 5;
    o.observerPlace = 0;
    EXPECT_EQ(DescriptionText(o, t),
              "Type      : Orbital -> Geometric -> Ecliptic -> 1950.0\r\nCenter    : Jupiter\r\n\r\n");
}

TEST(Description, SouthernWesternObserverWithZeroFilledMinutesAndSeconds) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    o.latitudeDeg = 5;
    o.latitudeMin = 3;
    o.latitudeSec = 4.5;
    o.latitudeHemisphere = 1;
    o.longitudeDeg = 123;
    o.longitudeMin = 0;
    o.longitudeSec = 0.0;
    o.longitudeHemisphere = 1;
    o.altitude = -12.25;
    EXPECT_EQ(ObserverPlaceText(o, t), " 5\xC2\xB0" "03'04.50\" S, 123\xC2\xB0" "00'00.00\" W,  -12.2 (m)");
}

EphemerisLine panelLine() {
    EphemerisLine l;
    l.jd = kJ2000;
    l.firstCoordinate = 12.0 + 34.0 / 60.0 + 56.78 / 3600.0;
    l.secondCoordinate = 12.0 + 34.0 / 60.0 + 56.7 / 3600.0;
    l.firstRate = 1.5;
    l.secondRate = -2.25;
    l.nuclearMagnitude = 14.5;
    l.elongation = 45.0;
    l.phase = 20.5;
    l.distance = 1.25;
    l.distanceRate = 0.01;
    return l;
}

TEST(EphemerisPanel, SphericalBlockWithUnknownMagnitude) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    EXPECT_EQ(EphemerisPanelBlock("C/2020 F3 (NEOWISE)", panelLine(), TaskOptions{}, t),
              "Ephemerides of C/2020 F3 (NEOWISE):\r\n\r\n"
              "Type      : Spherical -> Astrometric -> Equator -> 2000.0\r\n"
              "Center    : Earth -> 59\xC2\xB0" "46'19.62\" N,  30\xC2\xB0" "19'38.64\" E,   85.4 (m)\r\n\r\n"
              "Epoch     : 2000-01-01 12:00:00\r\n\r\n"
              "R.A.      : 12h 34m 56.78s\r\n"
              "DEC       : 12\xC2\xB0 34' 56.7\"\r\n"
              "dR.A.     :    1.5000 (arcsec/h)\r\n"
              "dDEC      :   -2.2500 (arcsec/h)\r\n"
              "T mag     :   n/a\r\n"
              "N mag     : 14.50\r\n"
              "Elong     :  45.0000 (deg) T\r\n"
              "Phase     :  20.5000 (deg)\r\n"
              "\r\n"
              "Dist      :   1.250000000000 (AU)\r\n"
              "dDist     : 1.000000000000000E-02 (AU/day)\r\n");
}

TEST(EphemerisPanel, KilometresShortenDistanceAndRate) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    o.distanceUnitsKm = true;
    o.datesInJulianDays = true;
    o.showHms = false;
    const std::string block = EphemerisPanelBlock("X", panelLine(), o, t);
    EXPECT_NE(block.find("Epoch     :2451545.00000000 JD\r\n"), std::string::npos) << block;
    EXPECT_NE(block.find("Dist      :   186997338.364 (km)\r\n"), std::string::npos) << block;
    EXPECT_NE(block.find("dDist     :  17.315 (km/s)\r\n"), std::string::npos) << block;
}

TEST(EphemerisPanel, HorizonBlock) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    o.mainPlane = 2;
    EphemerisLine l = panelLine();
    l.firstCoordinate = 270.5;
    l.secondCoordinate = -3.25;
    const std::string block = EphemerisPanelBlock("X", l, o, t);
    EXPECT_NE(block.find("A         :270\xC2\xB0 30' 00.0\"\r\nh         : -3\xC2\xB0 15' 00.0\"\r\nT mag"),
              std::string::npos)
        << block;
    EXPECT_EQ(block.find("dDist"), std::string::npos);
    EXPECT_EQ(block.substr(block.size() - 35), "Dist      :   1.250000000000 (AU)\r\n");
}

TEST(EphemerisPanel, RectangularBlock) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    o.ephemerisType = 1;
    EphemerisLine l;
    l.jd = kJ2000;
    l.position = {1.0, -2.0, 0.5, 0.01, -0.02, 0.0};
    l.moid = 0.125;
    l.centreDistance = 2.5;
    l.speed = 0.02;
    const std::string block = EphemerisPanelBlock("X", l, o, t);
    const std::string values = "pos(x)    : 1.000000000000000E+00 (AU)\r\n"
                               "pos(y)    :-2.000000000000000E+00 (AU)\r\n"
                               "pos(z)    : 5.000000000000000E-01 (AU)\r\n"
                               "vel(x)    : 1.000000000000000E-02 (AU/day)\r\n"
                               "vel(y)    :-2.000000000000000E-02 (AU/day)\r\n"
                               "vel(z)    : 0.000000000000000E+00 (AU/day)\r\n"
                               "\r\n"
                               "MOID      :   0.125000000000 (AU)\r\n"
                               "Dist      :   2.500000000000 (AU)\r\n"
                               "Vel       : 2.000000000000000E-02 (AU/day)\r\n";
    EXPECT_EQ(block.substr(block.size() - values.size()), values);
    o.distanceUnitsKm = true;
    EXPECT_NE(EphemerisPanelBlock("X", l, o, t).find("Vel       :  34.629 (km/s)\r\n"), std::string::npos);
}

EphemerisLine orbitalPanelLine(double e) {
    EphemerisLine l;
    l.jd = kJ2000;
    l.osculating.Tp = kJ2000 + 10.25;
    l.osculating.q = 1.25;
    l.osculating.e = e;
    l.osculating.omega = 100.5;
    l.osculating.node = 200.25;
    l.osculating.i = 10.0;
    l.osculating.M = e < 1.0 ? 350.0 : -2.5;
    l.osculating.P = e < 1.0 ? 5.5 : 0.0;
    l.osculating.n = e < 1.0 ? 0.5 : -57.2957795130823;
    l.osculating.a = e < 1.0 ? 2.5 : 0.0;
    l.osculating.Q = e < 1.0 ? 3.75 : 0.0;
    l.hillSphereBody = 5;
    return l;
}

TEST(EphemerisPanel, OrbitalBlockAroundTheSun) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    o.ephemerisType = 2;
    o.centralBody = 0;
    o.observerPlace = 0;
    const std::string block = EphemerisPanelBlock("X", orbitalPanelLine(0.5), o, t);
    const std::string values = "T         : 2000-01-11 18:00:00\r\n"
                               "q         :   1.250000000000 (AU)\r\n"
                               "e         : 0.500000000000\r\n"
                               "P         :       5.50000000 (yr)\r\n"
                               "w         : 100.500000000000 (deg)\r\n"
                               "node      : 200.250000000000 (deg)\r\n"
                               "i         :  10.000000000000 (deg)\r\n"
                               "M         : 3.500000000000000E+02 (deg)\r\n"
                               "n         : 5.000000000000000E-01 (deg/day)\r\n"
                               "a         : 2.500000000000000E+00 (AU)\r\n"
                               "Q         : 3.750000000000000E+00 (AU)\r\n"
                               "\r\n"
                               "Orbit     : Encke-type\r\n"
                               "Hill Sph. : Jupiter\r\n";
    EXPECT_EQ(block.substr(block.size() - values.size()), values) << block;
}

TEST(EphemerisPanel, ParabolaAroundAPlanetShowsNotAvailable) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    o.ephemerisType = 2;
    o.perihelionRelativeToEpoch = true;
    const std::string block = EphemerisPanelBlock("X", orbitalPanelLine(1.0), o, t);
    EXPECT_NE(block.find("T-E       :     10 06:00:00 (day)\r\n"), std::string::npos) << block;
    EXPECT_NE(block.find("e         : 1.000000000000000E+00\r\n"), std::string::npos);
    EXPECT_NE(block.find("P         : n/a\r\n"), std::string::npos);
    EXPECT_NE(block.find("B         :-2.500000000000000E+00 (deg)\r\n"), std::string::npos);
    EXPECT_NE(block.find("n         : n/a\r\n"), std::string::npos);
    EXPECT_NE(block.find("a         : n/a\r\n"), std::string::npos);
    EXPECT_NE(block.find("Q         : n/a\r\n"), std::string::npos);
    EXPECT_NE(block.find("Orbit     : Parabolic\r\n"), std::string::npos);
}

TEST(EphemerisPanel, NearParabolicPeriodInScientificForm) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TaskOptions o;
    o.ephemerisType = 2;
    EphemerisLine l = orbitalPanelLine(0.5);
    l.osculating.e = 0.99995;
    l.osculating.P = 12345.678;
    EXPECT_NE(EphemerisPanelBlock("X", l, o, t).find("P         : 1.234567800000000E+04 (yr)\r\n"),
              std::string::npos);
    l.osculating.e = 0.9998;
    EXPECT_NE(EphemerisPanelBlock("X", l, o, t).find("P         :   12345.67800000 (yr)\r\n"), std::string::npos);
}

TEST(TextPanel, BlocksAreSeparatedByTheDashedLine) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TextPanel panel(3);
    panel.setName(0, "A");
    panel.setName(1, "B");
    panel.setName(2, "C");
    panel.setEphemerisLine(0, panelLine());
    panel.setEphemerisLine(2, panelLine());
    const TaskOptions o;
    const std::string text = panel.ephemerisText(o, t);
    EXPECT_EQ(text, panel.addEphemerisBlock(0, o, t) +
                        "\r\n---------------------------------------------------------------------<\r\n\r\n" +
                        panel.addEphemerisBlock(2, o, t));
}

TEST(TextPanel, EphemerisTextIsCutAtTheLimit) {
    const TaskTexts t = orvane::testing::englishTaskTexts();
    TextPanel panel(30);
    for (std::size_t i = 0; i < 30; ++i) {
        panel.setName(i, "Object");
        panel.setEphemerisLine(i, panelLine());
    }
    EXPECT_EQ(panel.ephemerisText(TaskOptions{}, t).size(), 6000u);
}

}  // namespace
