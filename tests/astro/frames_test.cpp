#include "astro/frames.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

#include "astro/nutation.h"
#include "astro/observatories.h"
#include "astro/timescales.h"
#include "support/temp_home.h"

namespace orvane {
namespace {

constexpr double kArcsec = 4.84813681109536e-06;  // radians
constexpr double kDeg = 0.017453292519943295;

void ExpectMatrixNear(const Matrix3& a, const Matrix3& b, double tolerance) {
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            EXPECT_NEAR(a.at(row, column), b.at(row, column), tolerance) << row << "," << column;
        }
    }
}

// ---- Matrices ------------------------------------------------------------------------

TEST(Matrices, StoredByColumns) {
    const Matrix3 m = MatrixFromRows(1, 2, 3, 4, 5, 6, 7, 8, 9);
    EXPECT_EQ(m.m[1], 4.0);
    EXPECT_EQ(m.m[3], 2.0);
    EXPECT_EQ(m.at(2, 0), 7.0);
    const double in[3] = {1.0, 0.0, 0.0};
    double out[3];
    RotateVector(m, in, out);
    EXPECT_EQ(out[0], 1.0);
    EXPECT_EQ(out[1], 4.0);
    EXPECT_EQ(out[2], 7.0);
    const Matrix3 p = MultiplyMatrices(m, MatrixFromRows(0, 1, 0, 1, 0, 0, 0, 0, 1));
    EXPECT_EQ(p.at(0, 0), 2.0);
    EXPECT_EQ(p.at(0, 1), 1.0);
}

TEST(Matrices, FixedMatricesAsStoredWithTheMismatch) {
    EXPECT_EQ(kEquator1950ToEcliptic1950.at(1, 2), 0.3978811864);
    EXPECT_EQ(kEquator1950ToEcliptic1950.at(2, 1), -0.397881186);
    EXPECT_EQ(kEquator1950ToEcliptic1950.at(1, 1), 0.9174369523);
    EXPECT_EQ(kEquator2000ToEcliptic2000.at(1, 2), 0.3977771559);
    EXPECT_EQ(kEquator2000ToEcliptic2000.at(2, 1), -0.3977771559);
    EXPECT_EQ(kEquator2000To1950.at(0, 1), 0.0111814832391717);
    EXPECT_EQ(kEquator2000To1950.at(1, 0), -0.0111814832204662);
    EXPECT_EQ(kEquator2000To1950.at(1, 2), -2.7170293744e-05);
    EXPECT_EQ(kEquator2000To1950.at(2, 1), -2.71625947142e-05);
    EXPECT_EQ(kEquator2000To1950.at(2, 2), 0.9999881946023742);
    // The 2000 ecliptic matrix is the rotation by the obliquity of J2000.
    ExpectMatrixNear(kEquator2000ToEcliptic2000, RotationX(kObliquityJ2000), 1e-9);
}

// ---- AngleAndRadius ------------------------------------------------------------------

TEST(AngleAndRadius, OriginLeavesTheAngle) {
    double angle = 1.25;
    double radius = 7.0;
    AngleAndRadius(0.0, 0.0, angle, radius);
    EXPECT_EQ(angle, 1.25);
    EXPECT_EQ(radius, 0.0);
    AngleAndRadius(1e-16, -1e-16, angle, radius);
    EXPECT_EQ(angle, 1.25);
}

TEST(AngleAndRadius, FullCircle) {
    double angle = 0.0;
    double radius = 0.0;
    AngleAndRadius(3.0, 4.0, angle, radius);
    EXPECT_DOUBLE_EQ(radius, 5.0);
    EXPECT_DOUBLE_EQ(angle, std::atan2(4.0, 3.0));
    const double cases[][3] = {{1, 0, 0.0}, {0, 1, kHalfPi}, {-1, 0, kPi}, {0, -1, 3 * kHalfPi},
                               {1, -1, 1.75 * kPi}, {-1, -2, kPi + std::atan(2.0)}, {-2, 1, kPi - std::atan(0.5)}};
    for (const auto& c : cases) {
        AngleAndRadius(c[0], c[1], angle, radius);
        EXPECT_NEAR(angle, c[2], 1e-15) << c[0] << "," << c[1];
        EXPECT_GE(angle, 0.0);
        EXPECT_LT(angle, kTwoPi);
    }
}

// ---- Sidereal angle and observer -----------------------------------------------------

TEST(SiderealAngle, MeeusExamples) {
    // 1987 April 10, 0h UT: 13h10m46.3668s.
    EXPECT_NEAR(SiderealAngle(2446895.5) / kDeg, 197.693195, 1e-6);
    // 1987 April 10, 19h21m00s UT: 128.7378734 degrees.
    EXPECT_NEAR(SiderealAngle(2446896.30625) / kDeg, 128.7378734, 1e-6);
    // J2000.0: 280.46061837 degrees.
    EXPECT_NEAR(SiderealAngle(2451545.0) / kDeg, 280.46061837, 1e-7);
    for (double jd : {625359.5, 2299160.3, 2816848.5, 2451544.99999}) {
        EXPECT_GE(SiderealAngle(jd), 0.0);
        EXPECT_LT(SiderealAngle(jd), kTwoPi);
    }
}

TEST(ObserverState, PlaceAndVelocityOnTheEquatorOfDate) {
    const double jd = 2446895.5;
    const StateVector s = ObserverState(jd, 30.0, 0.5, 0.86);
    const double phi = 30.0 / 57.2957795130823 + SiderealAngle(jd);
    const double rho = 0.5 * 6378137.0 / 149597870691.0;
    EXPECT_NEAR(s.x, rho * std::cos(phi), 1e-20);
    EXPECT_NEAR(s.y, rho * std::sin(phi), 1e-20);
    EXPECT_DOUBLE_EQ(s.z, 0.86 * 6378137.0 / 149597870691.0);
    EXPECT_DOUBLE_EQ(s.vx, -s.y * 1.0027379 * 6.283185307179586);
    EXPECT_DOUBLE_EQ(s.vy, s.x * 1.0027379 * 6.283185307179586);
    EXPECT_EQ(s.vz, 0.0);
    // 0.5 Earth radii turning once a sidereal day: about 0.232 km/s.
    EXPECT_NEAR(std::hypot(s.vx, s.vy) * 149597870.691 / 86400.0, 0.2327, 1e-3);
}

// A geocentric observer has rho cos phi' = rho sin phi' = 0: its place is the origin at
// any UT, so the Delta T that turned TT into UT cannot change a geocentric result.
TEST(ObserverState, GeocentreIgnoresDeltaT) {
    for (double jd : {2378480.5, 2446895.5, 2456000.5}) {
        const double ut = TerrestrialToUniversal(jd);
        for (double shift : {0.0, 66.7 / 86400.0, -120.0 / 86400.0}) {
            const StateVector s = ObserverState(ut + shift, 30.3274, 0.0, 0.0);
            EXPECT_EQ(s.x, 0.0);
            EXPECT_EQ(s.y, 0.0);
            EXPECT_EQ(s.z, 0.0);
            EXPECT_EQ(s.vx, 0.0);
            EXPECT_EQ(s.vy, 0.0);
        }
    }
    // A surface observer does move with it: 66.7 s of rotation at 0.5 Earth radii.
    const StateVector a = ObserverState(2456000.5, 0.0, 0.5, 0.8);
    const StateVector b = ObserverState(2456000.5 + 66.7 / 86400.0, 0.0, 0.5, 0.8);
    EXPECT_GT(std::hypot(a.x - b.x, a.y - b.y) * 149597870691.0, 15000.0);
}

// ---- Station coordinates -------------------------------------------------------------

TEST(ConvertStation, CodesOutsideTheSixCopy) {
    for (int code : {44, 11, 22, 33, 0, 10, 14, 40, 99, -12, 123}) {
        const StationCoordinates out = ConvertStation(1.5, -2.5, 3.5, code);
        EXPECT_EQ(out.a, 1.5) << code;
        EXPECT_EQ(out.b, -2.5) << code;
        EXPECT_EQ(out.c, 3.5) << code;
    }
}

TEST(ConvertStation, SphericalAndRectangular) {
    // 45 degrees north, 6h east.
    const StationCoordinates xyz = ConvertStation(1000.0, 162000.0, 21600.0, 12);
    EXPECT_NEAR(xyz.a, 0.0, 1e-10);
    EXPECT_NEAR(xyz.b, 1000.0 * std::sqrt(0.5), 1e-10);
    EXPECT_NEAR(xyz.c, 1000.0 * std::sqrt(0.5), 1e-10);
    const StationCoordinates back = ConvertStation(xyz.a, xyz.b, xyz.c, 21);
    EXPECT_NEAR(back.a, 1000.0, 1e-10);
    EXPECT_NEAR(back.b, 162000.0, 1e-8);
    EXPECT_NEAR(back.c, 21600.0, 1e-8);
    // A southern latitude written above 324000" comes back in 0 to 360 degrees.
    const StationCoordinates south = ConvertStation(1.0, 1296000.0 - 3600.0, 0.0, 12);
    EXPECT_NEAR(south.c, -std::sin(kDeg), 1e-15);
    const StationCoordinates southBack = ConvertStation(south.a, south.b, south.c, 21);
    EXPECT_NEAR(southBack.b, 1296000.0 - 3600.0, 1e-6);
}

TEST(ConvertStation, GeodeticToRectangularAndBack) {
    for (double latitude : {0.0, 10.0, 45.5, 59.77, 89.0, -33.3, -89.9}) {
        for (double height : {0.0, 85.4, 4205.0, -50.0}) {
            const double arcsec = latitude * 3600.0;
            const StationCoordinates xyz = ConvertStation(height, arcsec, 5000.0, 32);
            const StationCoordinates geo = ConvertStation(xyz.a, xyz.b, xyz.c, 23);
            const double expectLatitude = arcsec < 0.0 ? arcsec + 1296000.0 : arcsec;
            EXPECT_NEAR(geo.a, height, 1e-6) << latitude << " " << height;
            EXPECT_NEAR(geo.b, expectLatitude, 1e-6) << latitude << " " << height;
            EXPECT_NEAR(geo.c, 5000.0, 1e-7);
        }
    }
}

TEST(ConvertStation, GeodeticToGeocentricAndBack) {
    for (double latitude : {10.0, 45.5, 59.77, -33.3}) {
        const double arcsec = latitude * 3600.0;
        const StationCoordinates geocentric = ConvertStation(85.4, arcsec, 1234.5, 31);
        EXPECT_EQ(geocentric.c, 1234.5);
        // The geocentric latitude is nearer the equator by up to 11.5'.
        const double psi = geocentric.b > 648000.0 ? geocentric.b - 1296000.0 : geocentric.b;
        EXPECT_LT(std::fabs(psi), std::fabs(arcsec));
        EXPECT_GT(std::fabs(psi), std::fabs(arcsec) - 700.0);
        const StationCoordinates geodetic = ConvertStation(geocentric.a, geocentric.b, geocentric.c, 13);
        EXPECT_NEAR(geodetic.a, 85.4, 1e-6);
        EXPECT_NEAR(geodetic.b, arcsec < 0 ? arcsec + 1296000.0 : arcsec, 1e-6);
        EXPECT_EQ(geodetic.c, 1234.5);
    }
    // On the equator and at the north pole the latitude passes unchanged.
    const StationCoordinates equator = ConvertStation(0.0, 0.0, 0.0, 31);
    EXPECT_EQ(equator.b, 0.0);
    EXPECT_DOUBLE_EQ(equator.a, 6378137.0);
    const StationCoordinates pole = ConvertStation(0.0, 324000.0, 0.0, 31);
    EXPECT_EQ(pole.b, 324000.0);
    EXPECT_NEAR(pole.a, 6378137.0 * std::sqrt(0.9933056199770992), 1e-6);
}

TEST(ConvertStation, CentreAndPoleDoNotHang) {
    const StationCoordinates centre = ConvertStation(0.0, 0.0, 0.0, 23);
    EXPECT_DOUBLE_EQ(centre.a, -6378137.0);
    const StationCoordinates pole = ConvertStation(0.0, 0.0, 6356752.314245, 23);
    EXPECT_NEAR(pole.a, 0.0, 1e-3);
    EXPECT_NEAR(pole.b, 324000.0, 1e-6);
    const StationCoordinates bad = ConvertStation(std::nan(""), 1.0, 1.0, 23);
    EXPECT_TRUE(std::isnan(bad.a));
}

// Geodetic places of real stations against the minor-planet list of observatory codes.
TEST(ObserverDerivation, MatchesPublishedStationCoordinates) {
    // The default observer of the settings is Pulkovo, code 084: 30.3274 0.50471 +0.86041.
    ObserverSettings pulkovo;
    pulkovo.latitudeDeg = 59;
    pulkovo.latitudeMin = 46;
    pulkovo.latitudeSec = 19.62;
    pulkovo.longitudeDeg = 30;
    pulkovo.longitudeMin = 19;
    pulkovo.longitudeSec = 38.64;
    pulkovo.altitude = 85.4;
    const ObserverPlace p = DeriveObserver(pulkovo);
    EXPECT_NEAR(p.latitudeDegrees, 59.77211666666667, 1e-12);
    EXPECT_NEAR(p.longitudeDegrees, 30.3274, 5e-5);
    EXPECT_NEAR(p.rhoCos, 0.50471, 5e-6);
    EXPECT_NEAR(p.rhoSin, 0.86041, 5e-6);

    // Greenwich, code 000 (0.62411 +0.77873): Airy transit circle, 51 28 38 N, 46 m.
    ObserverSettings greenwich;
    greenwich.latitudeDeg = 51;
    greenwich.latitudeMin = 28;
    greenwich.latitudeSec = 38.0;
    greenwich.altitude = 46.0;
    const ObserverPlace g = DeriveObserver(greenwich);
    EXPECT_NEAR(g.rhoCos, 0.62411, 1e-5);
    EXPECT_NEAR(g.rhoSin, 0.77873, 1e-5);

    // Cerro Tololo, Blanco telescope, code W84 (289.19358 0.865572 -0.499793):
    // 30 10 10.78 S, 70 48 23.49 W, 2207 m.
    ObserverSettings tololo;
    tololo.latitudeDeg = 30;
    tololo.latitudeMin = 10;
    tololo.latitudeSec = 10.78;
    tololo.latitudeSouth = 1;
    tololo.longitudeDeg = 70;
    tololo.longitudeMin = 48;
    tololo.longitudeSec = 23.49;
    tololo.longitudeWest = 1;
    tololo.altitude = 2207.0;
    const ObserverPlace t = DeriveObserver(tololo);
    EXPECT_LT(t.latitudeDegrees, 0.0);
    EXPECT_NEAR(t.longitudeDegrees, 289.19358, 2e-4);
    EXPECT_NEAR(t.rhoCos, 0.865572, 3e-6);
    EXPECT_NEAR(t.rhoSin, -0.499793, 3e-6);
}

// ---- Obliquity and precession --------------------------------------------------------

TEST(MeanObliquity, J2000AndMeeus) {
    EXPECT_EQ(MeanObliquity(2451545.0), 0.4090928042223);
    // 1987 April 10, 0h TD: 23 26' 27.407".
    EXPECT_NEAR(MeanObliquity(2446895.5) / kArcsec, (23.0 * 3600.0 + 26.0 * 60.0 + 27.407), 0.001);
}

TEST(PrecessionMatrix, IdentityAtJ2000) {
    for (int mode : {0, 1}) {
        const Precession p = PrecessionMatrix(mode, 2451545.0);
        EXPECT_EQ(p.z, 0.0);
        EXPECT_EQ(p.zeta, 0.0);
        EXPECT_EQ(p.theta, 0.0);
        for (int i = 0; i < 9; ++i) EXPECT_EQ(p.matrix.m[i], IdentityMatrix().m[i]) << i;
    }
}

// Precession from the IAU 1976 angles (Lieske et al. 1977) built from three elementary
// rotations: R3(-z) R2(theta) R3(-zeta).
Matrix3 ReferencePrecession(double jd) {
    const double t = (jd - 2451545.0) / 36525.0;
    const double zeta = (2306.2181 * t + 0.30188 * t * t + 0.017998 * t * t * t) * kArcsec;
    const double z = (2306.2181 * t + 1.09468 * t * t + 0.018203 * t * t * t) * kArcsec;
    const double theta = (2004.3109 * t - 0.42665 * t * t - 0.041833 * t * t * t) * kArcsec;
    const Matrix3 r2 = MatrixFromRows(std::cos(theta), 0, -std::sin(theta), 0, 1, 0, std::sin(theta), 0, std::cos(theta));
    return MultiplyMatrices(RotationZ(-z), MultiplyMatrices(r2, RotationZ(-zeta)));
}

TEST(PrecessionMatrix, AgreesWithIau1976) {
    for (double jd : {2446895.5, 2433282.42345905, 2469807.5, 2378480.5, 2524625.5}) {
        ExpectMatrixNear(PrecessionMatrix(0, jd).matrix, ReferencePrecession(jd), 2e-12);
    }
    // SOFA's test value of the IAU 1976 precession matrix at MJD 50123.9999 (iauPmat76).
    const Matrix3 sofa = MatrixFromRows(0.9999995504328350733, 0.8696632209480960785e-3, 0.3779153474959888345e-3,
                                        -0.8696632209485112192e-3, 0.9999996218428560614, -0.1643284776111886407e-6,
                                        -0.3779153474950335077e-3, -0.1643306746147366896e-6, 0.9999999285899790119);
    ExpectMatrixNear(PrecessionMatrix(0, 2450124.4999).matrix, sofa, 1e-12);
}

TEST(PrecessionMatrix, BackToB1950NearTheStoredMatrix) {
    // The stored J2000 to B1950 matrix includes the FK4 equinox correction (about 0.5"),
    // so the two agree to a few 1e-6 only.
    ExpectMatrixNear(PrecessionMatrix(0, 2433282.42345905).matrix, kEquator2000To1950, 5e-6);
}

TEST(PrecessionMatrix, AnglesOfBothModesAfterOneCentury) {
    const Precession julian = PrecessionMatrix(0, 2451545.0 + 36525.0);
    EXPECT_NEAR(julian.z, (0.018203 + 1.09468 + 2306.2181) * 4.8481368111e-06, 1e-17);
    EXPECT_NEAR(julian.zeta, (0.017998 + 0.30188 + 2306.2181) * 4.8481368111e-06, 1e-17);
    EXPECT_NEAR(julian.theta, (-0.42665 - 0.041833 + 2004.3109) * 4.8481368111e-06, 1e-17);
    const Precession tropical = PrecessionMatrix(1, 2451545.0 + 36524.219879);
    EXPECT_NEAR(tropical.z, (0.01832 + 1.0953900049825072 + 2305.6503778529627) * 4.8481368111e-06, 1e-17);
    EXPECT_NEAR(tropical.zeta, (0.018 + 0.30202999655057194 + 2305.6503778529627) * 4.8481368111e-06, 1e-17);
    EXPECT_NEAR(tropical.theta, (-0.4270700047269941 - 0.0418 + 2003.8313190890756) * 4.8481368111e-06, 1e-17);
    // Any other mode is the one in use.
    EXPECT_EQ(PrecessionMatrix(5, 2469807.5).z, PrecessionMatrix(0, 2469807.5).z);
    // The matrix of a mode is built from its own angles.
    const Precession p = PrecessionMatrix(1, 2469807.5);
    EXPECT_NEAR(p.matrix.at(0, 2), -std::cos(p.z) * std::sin(p.theta), 1e-18);
    EXPECT_NEAR(p.matrix.at(2, 0), std::sin(p.theta) * std::cos(p.zeta), 1e-18);
    EXPECT_EQ(p.matrix.at(2, 2), std::cos(p.theta));
}

// ---- Nutation ------------------------------------------------------------------------

TEST(Nutation, MeeusExample1987April10) {
    const Nutation n = NutationMatrices(0, 0, 2446895.5);
    EXPECT_NEAR(n.dpsi / kArcsec, -3.788, 0.0006);
    EXPECT_NEAR(n.deps / kArcsec, 9.443, 0.0006);
    // True obliquity 23 26' 36.850".
    EXPECT_NEAR((MeanObliquity(2446895.5) + n.deps) / kArcsec, 23.0 * 3600.0 + 26.0 * 60.0 + 36.850, 0.0015);
    EXPECT_EQ(n.dpsiRate, 0.0);
    EXPECT_EQ(n.depsRate, 0.0);
}

TEST(Nutation, SofaTestValue2006) {
    // SOFA's test of the IAU 1980 nutation (iauNut80) at MJD 53736.0.
    const Nutation n = NutationMatrices(0, 0, 2453736.5);
    EXPECT_NEAR(n.dpsi, -0.9643658353226563966e-5, 1e-4 * kArcsec);
    EXPECT_NEAR(n.deps, 0.4060051006879713322e-4, 1e-4 * kArcsec);
}

// The nutation matrix written out element by element (Explanatory Supplement 3.222-3).
Matrix3 ReferenceNutationMatrix(double eps, double dpsi, double deps) {
    const double et = eps + deps;
    const double cp = std::cos(dpsi), sp = std::sin(dpsi);
    const double ce = std::cos(eps), se = std::sin(eps);
    const double ct = std::cos(et), st = std::sin(et);
    return MatrixFromRows(cp, -sp * ce, -sp * se,
                          sp * ct, cp * ce * ct + se * st, cp * se * ct - ce * st,
                          sp * st, cp * ce * st - se * ct, cp * se * st + ce * ct);
}

TEST(Nutation, MatricesFromTheAngles) {
    for (double jd : {2446895.5, 2451545.0, 2378480.5, 2524625.5}) {
        const Nutation n = NutationMatrices(0, 0, jd);
        const double eps = MeanObliquity(jd);
        ExpectMatrixNear(n.N, ReferenceNutationMatrix(eps, n.dpsi, n.deps), 1e-15);
        ExpectMatrixNear(n.E, RotationX(eps + n.deps), 0.0);
    }
}

TEST(Nutation, SetsSplitTheSeries) {
    for (double jd : {2446895.5, 2455000.5}) {
        const Nutation all = NutationMatrices(0, 0, jd);
        const Nutation low = NutationMatrices(1, 0, jd);
        const Nutation high = NutationMatrices(2, 0, jd);
        EXPECT_NEAR(low.dpsi + high.dpsi, all.dpsi, 1e-17);
        EXPECT_NEAR(low.deps + high.deps, all.deps, 1e-17);
        // Rows 31 on are the short periods: at most about 0.5" together.
        EXPECT_LT(std::fabs(high.dpsi), 0.6 * kArcsec);
        EXPECT_GT(std::fabs(high.dpsi), 1e-4 * kArcsec);
        const Nutation other = NutationMatrices(7, 0, jd);
        EXPECT_EQ(other.dpsi, all.dpsi);
    }
}

TEST(Nutation, NodeRowAmplitudeAtJ2000) {
    // At J2000 the phase correction vanishes and the row 1 term is -17.1996" sin(Omega).
    const Nutation low = NutationMatrices(1, 0, 2451545.0);
    const Nutation high = NutationMatrices(2, 0, 2451545.0);
    EXPECT_NE(low.dpsi, 0.0);
    EXPECT_NE(high.dpsi, 0.0);
    double rest = 0.0;
    for (int n = 1; n < 30; ++n) {
        const NutationRow& r = kNutationRows[n];
        rest += r.psi * std::sin(kTwoPi * r.phase);
    }
    const double node = -171996.0 * std::sin(kTwoPi * 0.3473459);
    EXPECT_NEAR(low.dpsi, (node + rest) * 4.848136811e-10, 1e-16);
}

TEST(Nutation, RatesMatchTheChangeOfTheAngles) {
    for (double jd : {2446895.5, 2455000.5}) {
        const Nutation n = NutationMatrices(0, 1, jd);
        const double h = 0.05;
        const Nutation before = NutationMatrices(0, 0, jd - h);
        const Nutation after = NutationMatrices(0, 0, jd + h);
        const double dpsi = (after.dpsi - before.dpsi) / (2 * h);
        const double deps = (after.deps - before.deps) / (2 * h);
        // The fractions of the cycles are single precision: the angles move in steps of
        // up to 6e-8 cycles, which leaves about 6e-6" of noise in a difference over 0.1 day.
        EXPECT_NEAR(n.dpsiRate, dpsi, 8e-5 * kArcsec) << jd;
        EXPECT_NEAR(n.depsRate, deps, 8e-5 * kArcsec) << jd;
        EXPECT_GT(std::fabs(n.dpsiRate), 1e-4 * kArcsec);
        EXPECT_EQ(n.dpsi, NutationMatrices(0, 0, jd).dpsi);
    }
}

TEST(Nutation, TableRows) {
    EXPECT_EQ(kNutationRowCount, 106);
    EXPECT_EQ(kNutationRows[0].psi, -171996.0);
    EXPECT_EQ(kNutationRows[0].phaseRate, -0.3726007);
    EXPECT_EQ(kNutationRows[105].frequency, 1336);
    EXPECT_EQ(kNutationRows[30].frequency, 2673);
}

// ---- Observatories -------------------------------------------------------------------

TEST(ObservatoryNumber, CodesToRecordNumbers) {
    int number = -1;
    EXPECT_EQ(ObservatoryNumber("084", number), 0);
    EXPECT_EQ(number, 84);
    EXPECT_EQ(ObservatoryNumber("000", number), 0);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(ObservatoryNumber("A12", number), 0);
    EXPECT_EQ(number, 1012);
    EXPECT_EQ(ObservatoryNumber("Z99", number), 0);
    EXPECT_EQ(number, 3599);
    EXPECT_EQ(ObservatoryNumber("W84", number), 0);
    EXPECT_EQ(number, 3284);
    for (const char* bad : {"a12", "0X1", "", "12", " 12", "-12", "A1 "}) {
        EXPECT_EQ(ObservatoryNumber(bad, number), -1) << bad;
        EXPECT_EQ(number, 0);
    }
    EXPECT_STREQ(kObservatoryNumberError, "OBSERVATORY NUMBER: READ ERROR!");
}

std::string Record(double longitude, double rhoCos, double rhoSin, const std::string& name) {
    std::string bytes(kObservatoryRecordBytes, '\0');
    std::memcpy(&bytes[0], &longitude, 8);
    std::memcpy(&bytes[8], &rhoCos, 8);
    std::memcpy(&bytes[16], &rhoSin, 8);
    std::string padded = name;
    padded.resize(50, ' ');
    bytes.replace(24, 50, padded);
    return bytes;
}

TEST(Observatories, ReadsTheRecordOfTheNumber) {
    testing::TempHome home;
    const auto file = home.root() / "Observatories.dat";
    std::string bytes;
    for (int i = 0; i < 85; ++i) bytes += Record(i, 0.1, 0.2, "Station " + std::to_string(i));
    bytes += Record(30.3274, 0.50471, 0.86041, "Pulkovo");
    testing::writeFile(file, bytes);

    const ObservatoryRecord r = ReadObservatory(file, 85);
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.number, 85);
    EXPECT_EQ(r.observatory.longitude, 30.3274);
    EXPECT_EQ(r.observatory.rhoCos, 0.50471);
    EXPECT_EQ(r.observatory.rhoSin, 0.86041);
    EXPECT_EQ(r.observatory.name.size(), 50u);
    EXPECT_EQ(r.observatory.name.substr(0, 8), "Pulkovo ");
    EXPECT_TRUE(r.message.empty());
    EXPECT_EQ(ReadObservatory(file, 7).observatory.longitude, 7.0);
}

TEST(Observatories, FailuresGiveTheirTextsAndNumberZero) {
    testing::TempHome home;
    const auto missing = ReadObservatory(home.root() / "none.dat", 84);
    EXPECT_EQ(missing.status, -1);
    EXPECT_EQ(missing.message, "Error Open Observatories.dat");
    EXPECT_EQ(missing.number, 0);

    const auto file = home.root() / "Observatories.dat";
    // Two records and a third cut in the middle of its numbers.
    testing::writeFile(file, Record(1, 2, 3, "A") + Record(4, 5, 6, "B") + Record(7, 8, 9, "C").substr(0, 20));
    for (int number : {2, 3, 84, -1, 4000, 2147483647}) {
        const auto r = ReadObservatory(file, number);
        EXPECT_EQ(r.status, -2) << number;
        EXPECT_EQ(r.message, "Error Read Observatories.dat");
        EXPECT_EQ(r.number, 0);
        EXPECT_EQ(r.observatory.longitude, 0.0);
    }
    EXPECT_EQ(ReadObservatory(file, 1).observatory.rhoSin, 6.0);

    // A directory in place of the file, and an empty file.
    EXPECT_NE(ReadObservatory(home.root(), 0).status, 0);
    testing::writeFile(file, "");
    EXPECT_EQ(ReadObservatory(file, 0).status, -2);
}

TEST(Observatories, HostileBytesStayNumbers) {
    testing::TempHome home;
    const auto file = home.root() / "Observatories.dat";
    std::string junk(kObservatoryRecordBytes * 2, '\xff');
    junk[30] = '\0';
    testing::writeFile(file, junk);
    const auto r = ReadObservatory(file, 1);
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(std::isnan(r.observatory.longitude));
    EXPECT_EQ(r.observatory.name.size(), 50u);
    EXPECT_EQ(r.observatory.name.find('\0'), std::string::npos);
}

TEST(Observatories, PlaceFromEarthAndSiderealAngle) {
    Observatory greenwich;
    greenwich.longitude = 0.0;
    greenwich.rhoCos = 0.62411;
    greenwich.rhoSin = 0.77873;
    const double earth[3] = {0.5, -0.8, -0.3};
    double place[3];
    const double jd = 2446895.5;
    ObservatoryPlace(earth, greenwich, jd, place);
    const double angle = SiderealAngle(jd);
    EXPECT_DOUBLE_EQ(place[0], -0.5 + 0.62411 * std::cos(angle) * -4.263475935828877e-05);
    EXPECT_DOUBLE_EQ(place[1], 0.8 + 0.62411 * std::sin(angle) * -4.263475935828877e-05);
    EXPECT_DOUBLE_EQ(place[2], 0.3 + 0.77873 * -4.263475935828877e-05);
}

}  // namespace
}  // namespace orvane
