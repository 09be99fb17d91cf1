#pragma once
// Reference frames and Earth orientation: rotation matrices, sidereal angle, the
// observer on the Earth and its station coordinates, mean obliquity and precession.
// The integrator works only in the equator and equinox of J2000; the rest is for output.
#include "astro/calendar.h"
#include "astro/twobody.h"

namespace orvane {

// The Earth's equatorial radius in metres, the unit of rho cos phi' and rho sin phi'.
inline constexpr double kEarthRadiusMetres = 6378137.0;
// The astronomical unit in metres, as the observer's place uses it.
inline constexpr double kAuMetres = 149597870691.0;

// Nine doubles stored by columns: element (row, column) is m[3 * column + row].
// All products are matrix times column vector.
struct Matrix3 {
    double m[9] = {0, 0, 0, 0, 0, 0, 0, 0, 0};
    double at(int row, int column) const { return m[3 * column + row]; }
    double& at(int row, int column) { return m[3 * column + row]; }
};

constexpr Matrix3 MatrixFromRows(double a11, double a12, double a13, double a21, double a22, double a23,
                                 double a31, double a32, double a33) {
    Matrix3 r;
    r.m[0] = a11; r.m[1] = a21; r.m[2] = a31;
    r.m[3] = a12; r.m[4] = a22; r.m[5] = a32;
    r.m[6] = a13; r.m[7] = a23; r.m[8] = a33;
    return r;
}

Matrix3 IdentityMatrix();
Matrix3 TransposeMatrix(const Matrix3& a);
// a times b: the rotation b first, then a.
Matrix3 MultiplyMatrices(const Matrix3& a, const Matrix3& b);
void RotateVector(const Matrix3& a, const double in[3], double out[3]);
// Position and velocity turned by the same matrix.
StateVector RotateState(const Matrix3& a, const StateVector& state);
// Frame rotations by an angle in radians about the x and the z axis.
Matrix3 RotationX(double angle);
Matrix3 RotationZ(double angle);

// The fixed matrices, as stored. The element -0.397881186 of the 1950 ecliptic matrix does
// not match its partner 0.3978811864 to the last digit; that is how it has always been.
inline constexpr Matrix3 kEquator2000To1950 = MatrixFromRows(
    0.9999256794956877, 0.0111814832391717, 0.0048590037723143,
    -0.0111814832204662, 0.9999374848933135, -2.7170293744e-05,
    -0.0048590038153592, -2.71625947142e-05, 0.9999881946023742);
inline constexpr Matrix3 kEquator1950ToEcliptic1950 = MatrixFromRows(
    1.0, 0.0, 0.0,
    0.0, 0.9174369523, 0.3978811864,
    0.0, -0.397881186, 0.9174369523);
inline constexpr Matrix3 kEquator2000ToEcliptic2000 = MatrixFromRows(
    1.0, 0.0, 0.0,
    0.0, 0.917482062, 0.3977771559,
    0.0, -0.3977771559, 0.917482062);

// Radius sqrt(x^2 + y^2) and the angle of (x, y) in [0, 2pi). Below a radius of 1e-15
// only the radius is set: the angle keeps what it held.
void AngleAndRadius(double x, double y, double& angle, double& radius);

// Greenwich mean sidereal angle of a UT instant, radians in [0, 2pi).
double SiderealAngle(JulianDate jdUT);

// Geocentric place and velocity of an observer (longitude in degrees east, rho cos phi'
// and rho sin phi' in Earth radii), AU and AU a day, on the true equator of date as far as
// the sidereal angle tells.
StateVector ObserverState(JulianDate jdUT, double longitude, double rhoCos, double rhoSin);

// Station coordinates. Types: 1 geocentric (radius m, latitude arc seconds, longitude
// seconds of time), 2 rectangular (x, y, z in m), 3 geodetic (height m, latitude arc
// seconds, longitude seconds of time). The code is from-type * 10 + to-type; codes other
// than 12, 21, 32, 31, 13, 23 copy the input. Latitudes above 324000" stand for
// value - 1296000"; angles that come out are in [0, 2pi) in their units.
struct StationCoordinates {
    double a = 0.0;
    double b = 0.0;
    double c = 0.0;
};
StationCoordinates ConvertStation(double a, double b, double c, int code);

// Mean obliquity of the ecliptic of date (IAU 1976), radians.
double MeanObliquity(JulianDate jd);

// Precession from the equator of J2000 to the equator of date. Mode 1 uses the
// tropical-century constants; every other mode the Julian-century ones (mode 0, in use).
struct Precession {
    Matrix3 matrix;
    double z = 0.0;
    double zeta = 0.0;
    double theta = 0.0;  // radians
};
Precession PrecessionMatrix(int mode, JulianDate jd);

}  // namespace orvane
