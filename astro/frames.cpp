#include "astro/frames.h"

#include <cmath>

#include "astro/constants.h"

namespace orvane {

// ---- Matrices ------------------------------------------------------------------------

Matrix3 IdentityMatrix() { return MatrixFromRows(1, 0, 0, 0, 1, 0, 0, 0, 1); }

Matrix3 TransposeMatrix(const Matrix3& a) {
    Matrix3 r;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) r.at(row, column) = a.at(column, row);
    }
    return r;
}

Matrix3 MultiplyMatrices(const Matrix3& a, const Matrix3& b) {
    Matrix3 r;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            r.at(row, column) = a.at(row, 0) * b.at(0, column) + a.at(row, 1) * b.at(1, column) +
                                a.at(row, 2) * b.at(2, column);
        }
    }
    return r;
}

void RotateVector(const Matrix3& a, const double in[3], double out[3]) {
    const double x = in[0];
    const double y = in[1];
    const double z = in[2];
    for (int row = 0; row < 3; ++row) out[row] = a.at(row, 0) * x + a.at(row, 1) * y + a.at(row, 2) * z;
}

StateVector RotateState(const Matrix3& a, const StateVector& state) {
    const double position[3] = {state.x, state.y, state.z};
    const double velocity[3] = {state.vx, state.vy, state.vz};
    double p[3];
    double v[3];
    RotateVector(a, position, p);
    RotateVector(a, velocity, v);
    return StateVector{p[0], p[1], p[2], v[0], v[1], v[2]};
}

Matrix3 RotationX(double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return MatrixFromRows(1, 0, 0, 0, c, s, 0, -s, c);
}

Matrix3 RotationZ(double angle) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return MatrixFromRows(c, s, 0, -s, c, 0, 0, 0, 1);
}

// ---- Angles --------------------------------------------------------------------------

void AngleAndRadius(double x, double y, double& angle, double& radius) {
    radius = std::sqrt(x * x + y * y);
    if (radius < 1e-15) return;
    // The arc tangent of the smaller quotient keeps full precision near the axes.
    double a;
    if (std::fabs(y) <= std::fabs(x)) {
        a = std::atan(y / x);
        if (x < 0.0) a += kPi;
    } else {
        a = kHalfPi - std::atan(x / y);
        if (y < 0.0) a += kPi;
    }
    if (a < 0.0) a += kTwoPi;
    angle = a;
}

double SiderealAngle(JulianDate jdUT) {
    // Whole days and the fraction are kept apart so that the fraction keeps its digits.
    double d = std::trunc(jdUT) - 2451545.0;
    double f = jdUT - std::trunc(jdUT);
    if (f >= 0.5) {
        f = f - 0.5;
        d = d + 0.5 + f;
    } else {
        f = f + 0.5;
        d = (d - 0.5) + f;
    }
    const double t = d / 36525.0;
    const double revolutions = (1.07759e-06 - 7.18e-11 * t) * t * t + f + 0.2790572732 + 0.00273790935079 * d;
    return WrapTwoPi(revolutions * 6.283185307179586);
}

StateVector ObserverState(JulianDate jdUT, double longitude, double rhoCos, double rhoSin) {
    const double phi = longitude / 57.2957795130823 + SiderealAngle(jdUT);
    const double rho = rhoCos * kEarthRadiusMetres / kAuMetres;
    StateVector s;
    s.x = rho * std::cos(phi);
    s.y = rho * std::sin(phi);
    s.z = rhoSin * kEarthRadiusMetres / kAuMetres;
    s.vx = -s.y * 1.0027379 * 6.283185307179586;
    s.vy = s.x * 1.0027379 * 6.283185307179586;
    s.vz = 0.0;
    return s;
}

// ---- Station coordinates -------------------------------------------------------------

namespace {

constexpr double kArcsecondsPerRadian = 206264.80624709636;
constexpr double kTimeSecondsPerRadian = 13750.987083139758;
constexpr double kSemiMajorAxis = 6378137.0;
constexpr double kE2 = 0.006694380022900787;
constexpr double kOneMinusE2 = 0.9933056199770992;

// A latitude above 90 degrees is a southern one written as 360 degrees minus it.
double LatitudeRadians(double arcseconds) {
    if (arcseconds > 324000.0) arcseconds -= 1296000.0;
    return arcseconds / kArcsecondsPerRadian;
}

double CurvatureRadius(double sinLatitude) { return kSemiMajorAxis / std::sqrt(1.0 - kE2 * sinLatitude * sinLatitude); }

// Height and geodetic latitude (radians, -pi/2 to pi/2) of a point at distance p from the
// axis and z from the equator plane. The iteration starts from the geocentric latitude and
// runs until a round changes the latitude by at most 1e-10"; it converges by a factor of
// about e^2 a round, the bound on the rounds only guards against a cycle in the last bit.
void GeodeticFromMeridian(double p, double z, double& height, double& latitude) {
    double phi = 0.0;
    double r = 0.0;
    AngleAndRadius(p, z, phi, r);
    if (phi > kPi) phi -= kTwoPi;
    for (int round = 0; round < 1000; ++round) {
        const double s = std::sin(phi);
        double next = phi;
        AngleAndRadius(p, z + kE2 * CurvatureRadius(s) * s, next, r);
        if (next > kPi) next -= kTwoPi;
        const double change = std::fabs(next - phi) * kArcsecondsPerRadian;
        phi = next;
        if (!(change > 1e-10)) break;
    }
    const double s = std::sin(phi);
    const double c = std::cos(phi);
    const double n = CurvatureRadius(s);
    height = std::fabs(c) > 0.5 ? p / c - n : z / s - n * kOneMinusE2;
    latitude = phi;
}

// Latitude out in arc seconds, 0 to 360 degrees like every angle that comes out.
double LatitudeOut(double radians) { return (radians < 0.0 ? radians + kTwoPi : radians) * kArcsecondsPerRadian; }

}  // namespace

StationCoordinates ConvertStation(double a, double b, double c, int code) {
    StationCoordinates out{a, b, c};
    switch (code) {
        case 12: {
            const double phi = LatitudeRadians(b);
            const double lambda = c / kTimeSecondsPerRadian;
            out.a = a * std::cos(phi) * std::cos(lambda);
            out.b = a * std::cos(phi) * std::sin(lambda);
            out.c = a * std::sin(phi);
            return out;
        }
        case 21: {
            double lambda = 0.0;
            double axis = 0.0;
            double phi = 0.0;
            double radius = 0.0;
            AngleAndRadius(a, b, lambda, axis);
            AngleAndRadius(axis, c, phi, radius);
            out.a = radius;
            out.b = phi * kArcsecondsPerRadian;
            out.c = lambda * kTimeSecondsPerRadian;
            return out;
        }
        case 32:
        case 31: {
            const double phi = LatitudeRadians(b);
            const double n = CurvatureRadius(std::sin(phi));
            const double meridian = (n + a) * std::cos(phi);
            const double z = (n * kOneMinusE2 + a) * std::sin(phi);
            if (code == 32) {
                const double lambda = c / kTimeSecondsPerRadian;
                out.a = meridian * std::cos(lambda);
                out.b = meridian * std::sin(lambda);
                out.c = z;
                return out;
            }
            out.a = std::sqrt(z * z + meridian * meridian);
            // On the equator and at the north pole the latitude passes through untouched.
            if (b != 0.0 && b != 324000.0) {
                double psi = 0.0;
                double r = 0.0;
                AngleAndRadius(meridian, z, psi, r);
                out.b = psi * kArcsecondsPerRadian;
            }
            return out;
        }
        case 13:
        case 23: {
            double p = 0.0;
            double z = 0.0;
            if (code == 13) {
                const double psi = LatitudeRadians(b);
                p = a * std::cos(psi);
                z = a * std::sin(psi);
            } else {
                double lambda = 0.0;
                AngleAndRadius(a, b, lambda, p);
                z = c;
                out.c = lambda * kTimeSecondsPerRadian;
            }
            double height = 0.0;
            double phi = 0.0;
            GeodeticFromMeridian(p, z, height, phi);
            out.a = height;
            out.b = LatitudeOut(phi);
            return out;
        }
        default:
            return out;  // 11, 22, 33 and any digit outside 1 to 3 copy the input
    }
}

// ---- Obliquity and precession --------------------------------------------------------

double MeanObliquity(JulianDate jd) {
    const double whole = std::trunc(jd);
    const double t = ((whole - 2451545.0) + (jd - whole)) / 36525.0;
    return ((8.78967e-09 * t - 2.8604e-09) * t - 0.00022696551815) * t + kObliquityJ2000;
}

Precession PrecessionMatrix(int mode, JulianDate jd) {
    double z;
    double zeta;
    double theta;
    if (mode == 1) {
        const double t = (jd - 2451545.0) / 36524.219879;
        z = (0.01832 * t + 1.0953900049825072) * t * t + 2305.6503778529627 * t;
        zeta = (0.018 * t + 0.30202999655057194) * t * t + 2305.6503778529627 * t;
        theta = ((-0.4270700047269941 - 0.0418 * t) * t + 2003.8313190890756) * t;
    } else {
        const double t = (jd - 2451545.0) / 36525.0;
        z = (0.018203 * t + 1.09468) * t * t + 2306.2181 * t;
        zeta = (0.017998 * t + 0.30188) * t * t + 2306.2181 * t;
        theta = ((-0.42665 - 0.041833 * t) * t + 2004.3109) * t;
    }
    Precession p;
    p.z = z * 4.8481368111e-06;
    p.zeta = zeta * 4.8481368111e-06;
    p.theta = theta * 4.8481368111e-06;

    const double cz = std::cos(p.z);
    const double sz = std::sin(p.z);
    const double ct = std::cos(p.theta);
    const double st = std::sin(p.theta);
    const double cx = std::cos(p.zeta);
    const double sx = std::sin(p.zeta);
    p.matrix = MatrixFromRows(cz * ct * cx - sz * sx, -cz * ct * sx - sz * cx, -cz * st,
                              sz * ct * cx + cz * sx, -sz * ct * sx + cz * cx, -sz * st,
                              st * cx, -st * sx, ct);
    return p;
}

}  // namespace orvane
