#include "dynamics/observables.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "astro/constants.h"
#include "astro/nutation.h"
#include "astro/orbit_class.h"
#include "astro/timescales.h"

namespace orvane {
namespace {

constexpr double kDegree = kPi / 180.0;

StateVector Sum(const StateVector& a, const StateVector& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z, a.vx + b.vx, a.vy + b.vy, a.vz + b.vz};
}

double Length(double x, double y, double z) { return std::sqrt(x * x + y * y + z * z); }
double PositionLength(const StateVector& s) { return Length(s.x, s.y, s.z); }
double VelocityLength(const StateVector& s) { return Length(s.vx, s.vy, s.vz); }

StateVector BodyState(const BodyStatesResult& bodies, int body) {
    const auto i = static_cast<std::size_t>(body - 1);
    return {bodies.position[i][0], bodies.position[i][1], bodies.position[i][2],
            bodies.velocity[i][0], bodies.velocity[i][1], bodies.velocity[i][2]};
}

// A point of an orbit walk: its true anomaly (degrees) and place.
struct WalkPoint {
    double v = 0.0;
    double x = 0.0, y = 0.0, z = 0.0;
};

double WalkRadius(const WalkOrbit& o, double vDegrees) {
    const double c = std::cos(vDegrees * kDegree);
    if (o.e == 1.0) return 2.0 * o.q / (1.0 + c);
    return (1.0 - o.e * o.e) * o.a / (1.0 + o.e * c);
}

// Points from `from` to `to` degrees of true anomaly. The step is
// max(0.1, asin(sinStep q / r)) degrees, r the radius at the last point, so
// that the walk is dense far from the Sun. Points beyond 100 AU, and the far
// branch of a hyperbola, are not placed.
void WalkOrbitPoints(const WalkOrbit& o, double from, double to, double sinStep,
                     std::vector<WalkPoint>& out) {
    out.clear();
    const double so = std::sin(o.omega * kDegree), co = std::cos(o.omega * kDegree);
    const double sn = std::sin(o.node * kDegree), cn = std::cos(o.node * kDegree);
    const double si = std::sin(o.i * kDegree), ci = std::cos(o.i * kDegree);
    for (double v = from; v <= to;) {
        const double r = WalkRadius(o, v);
        double dv = 0.1;
        if (r > 0.0 && std::isfinite(r)) {
            const double ratio = std::min(1.0, sinStep * o.q / r);
            dv = std::max(0.1, std::asin(ratio) / kDegree);
        }
        if (r > 0.0 && r <= 100.0) {
            const double sv = std::sin(v * kDegree), cv = std::cos(v * kDegree);
            const double su = so * cv + co * sv, cu = co * cv - so * sv;
            out.push_back({v, r * (cn * cu - sn * su * ci), r * (sn * cu + cn * su * ci), r * su * si});
        }
        v += dv;
    }
}

// The closest pair of the two walks; the anomalies of the pair go to vA, vB.
double ClosestPair(const std::vector<WalkPoint>& a, const std::vector<WalkPoint>& b, double best,
                   double& vA, double& vB) {
    double best2 = best * best;
    for (const WalkPoint& p : a) {
        for (const WalkPoint& s : b) {
            const double dx = p.x - s.x, dy = p.y - s.y, dz = p.z - s.z;
            const double d2 = dx * dx + dy * dy + dz * dz;
            if (d2 < best2) {
                best2 = d2;
                vA = p.v;
                vB = s.v;
            }
        }
    }
    return std::sqrt(best2);
}

}  // namespace

PipelineVectors MakePipelineVectors(const StateVector& comet, const TaskOptions& options,
                                    const BodyStatesResult& bodies, double jd) {
    PipelineVectors v;
    v.S = comet;
    if (options.centralBody >= 1 && options.centralBody <= 10) {
        const StateVector body = BodyState(bodies, options.centralBody);
        v.C = {-body.x, -body.y, -body.z, -body.vx, -body.vy, -body.vz};
    }
    // A topocentre stands only on the Earth; the form puts every other centre,
    // and the orbital table, at the middle of the body.
    if (options.observerPlace == 1 && options.centralBody == 3 && options.ephemerisType != 2) {
        const JulianDate jdUT = TerrestrialToUniversal(jd);
        v.O = ObserverState(jdUT, options.longitudeDegrees, options.observerRhoCos, options.observerRhoSin);
    }
    return v;
}

FrameMatrices FrameRotation(int mainPlane, int referenceSystem, double jd) {
    FrameMatrices f{IdentityMatrix(), IdentityMatrix()};
    if (mainPlane == 2) return f;
    Matrix3 toEquator = IdentityMatrix();
    Matrix3 toEcliptic = kEquator2000ToEcliptic2000;
    if (referenceSystem == 1) {
        toEquator = kEquator2000To1950;
        toEcliptic = kEquator1950ToEcliptic1950;
    } else if (referenceSystem == 2) {
        const Nutation nutation = NutationMatrices(0, 0, jd);
        toEquator = MultiplyMatrices(nutation.N, PrecessionMatrix(0, jd).matrix);
        toEcliptic = nutation.E;
    }
    if (mainPlane == 0) {
        // The observer comes on the true equator and is left as it is here.
        f.comet = referenceSystem == 0 ? IdentityMatrix() : toEquator;
        return f;
    }
    if (referenceSystem == 0) {
        f.comet = kEquator2000ToEcliptic2000;
        f.observer = kEquator2000ToEcliptic2000;
    } else {
        f.comet = MultiplyMatrices(toEcliptic, toEquator);
        f.observer = toEcliptic;
    }
    return f;
}

Direction DirectionOf(const StateVector& x) {
    Direction d;
    double rhoXy = 0.0;
    AngleAndRadius(x.x, x.y, d.first, rhoXy);
    double polar = 0.0;
    AngleAndRadius(rhoXy, x.z, polar, d.rho);
    d.second = polar > kPi ? polar - kTwoPi : polar;
    const double rhoXy2 = x.x * x.x + x.y * x.y;
    if (rhoXy2 > 0.0) {
        d.firstRate = (x.x * x.vy - x.y * x.vx) / rhoXy2;
        d.secondRate = (rhoXy2 * x.vz - x.z * (x.x * x.vx + x.y * x.vy)) / (d.rho * d.rho * rhoXy);
    }
    if (d.rho > 0.0) d.rhoRate = (x.x * x.vx + x.y * x.vy + x.z * x.vz) / d.rho;
    return d;
}

StateVector AstrometricVector(const PipelineVectors& v, int& passes) {
    const StateVector sum = Sum(Sum(v.S, v.C), v.O);
    StateVector x = sum;
    double tau = 0.0;
    double rhoPrevious = 0.0;
    passes = 0;
    for (;;) {
        ++passes;
        x.x = sum.x - tau * v.S.vx;
        x.y = sum.y - tau * v.S.vy;
        x.z = sum.z - tau * v.S.vz;
        const double rho = PositionLength(x);
        tau = rho * kLightTimePerAu;
        if (std::fabs(rho - rhoPrevious) <= kLightTimeTolerance || passes >= 100) break;
        rhoPrevious = rho;
    }
    return x;
}

ElongationPhase ElongationAndPhase(const StateVector& S, const StateVector& C) {
    ElongationPhase r;
    const double sx = S.x + C.x, sy = S.y + C.y;
    r.side = C.y * (-sx) - C.x * (-sy) >= 0.0 ? 0 : 1;
    const double a = PositionLength(S);
    const double b = PositionLength(C);
    const double c = Length(S.x + C.x, S.y + C.y, S.z + C.z);
    const double p = (a + b + c) / 2.0;
    if (b < 1e-11 || c < 1e-11 || p < 1e-11) return r;
    const double u = p - a, w = p - b;
    const double g = std::sqrt(std::max(0.0, u * w * (p - c) / p));
    if (w <= 1e-11) {
        r.elongation = 0.0;
        r.phase = kPi;
    } else if (u <= 1e-11) {
        r.elongation = kPi;
        r.phase = 0.0;
    } else {
        r.phase = 2.0 * std::atan(g / w);
        r.elongation = 2.0 * std::atan(g / u);
    }
    return r;
}

double TotalMagnitude(double H, double G, double delta, double r) {
    if (H == 0.0) return 0.0;
    return H + 5.0 * std::log10(delta) + (G == 0.0 ? 10.0 : G) * std::log10(r);
}

double NuclearMagnitude(double H2, double G2, double delta, double r, double phaseDegrees) {
    if (H2 == 0.0) return 0.0;
    return H2 + 5.0 * std::log10(delta) + (G2 == 0.0 ? 5.0 : G2) * std::log10(r) + 0.03 * phaseDegrees;
}

Horizon HorizonCoordinates(double hourAngle, double declination, double latitude) {
    // Direction cosines on the meridian (x to the south point of the equator,
    // y to the east), turned about y by the colatitude.
    const double cd = std::cos(declination);
    const double x = cd * std::cos(hourAngle);
    const double y = -cd * std::sin(hourAngle);
    const double z = std::sin(declination);
    const double sl = std::sin(latitude), cl = std::cos(latitude);
    const double xh = x * sl - z * cl;
    const double zh = x * cl + z * sl;
    Horizon h;
    double angle = 0.0, radius = 0.0;
    AngleAndRadius(xh, y, angle, radius);
    h.azimuth = WrapTwoPi(kPi - angle);
    double colatitude = 0.0, unit = 0.0;
    AngleAndRadius(zh, radius, colatitude, unit);
    h.altitude = kHalfPi - colatitude;
    return h;
}

WalkOrbit WalkOrbitOf(const OrbitElements& e) {
    WalkOrbit o{e.q, e.e, e.a, e.omega, e.node, e.i};
    if (e.e != 1.0 && o.a == 0.0) o.a = e.q / (1.0 - e.e);
    return o;
}

double MinimumOrbitDistance(const WalkOrbit& comet, const WalkOrbit& planet) {
    const double sin10 = std::sin(10.0 * kDegree), sin1 = std::sin(kDegree);
    std::vector<WalkPoint> a, b;
    WalkOrbitPoints(comet, 0.0, 360.0, sin10, a);
    WalkOrbitPoints(planet, 0.0, 360.0, sin10, b);
    double vComet = 0.0, vPlanet = 0.0;
    const double coarse = ClosestPair(a, b, 500.0, vComet, vPlanet);
    WalkOrbitPoints(comet, vComet - 10.0, vComet + 10.0, sin1, a);
    WalkOrbitPoints(planet, vPlanet - 10.0, vPlanet + 10.0, sin1, b);
    double unusedA = 0.0, unusedB = 0.0;
    return ClosestPair(a, b, coarse, unusedA, unusedB);
}

EphemerisLine PositionPipeline(const CometAtInstant& comet, const TaskOptions& options,
                               const BodyStatesResult& bodies, double jd) {
    EphemerisLine line;
    line.jd = jd;
    line.elements = comet.elements;
    line.state = comet.state;

    PipelineVectors v = MakePipelineVectors(comet.state, options, bodies, jd);
    const FrameMatrices frame = FrameRotation(options.mainPlane, options.referenceSystem, jd);
    v.S = RotateState(frame.comet, v.S);
    v.C = RotateState(frame.comet, v.C);
    v.O = RotateState(frame.observer, v.O);
    const StateVector sum = Sum(Sum(v.S, v.C), v.O);

    if (options.ephemerisType == 0) {
        StateVector x = sum;
        if (options.coordinateKind == 0) {
            int passes = 0;
            x = AstrometricVector(v, passes);
        }
        const Direction d = DirectionOf(x);
        line.firstAngle = d.first;
        line.secondAngle = d.second;
        line.firstAngleRate = d.firstRate;
        line.secondAngleRate = d.secondRate;
        line.distance = d.rho;
        line.distanceRate = d.rhoRate;
        if (options.coordinateKind == 2) {
            // The whole of the apparent place: the direction moved back by the
            // light time along its own rate.
            line.firstAngle = WrapTwoPi(d.first - d.firstRate * kLightTimePerAu * d.rho);
            line.secondAngle = d.second - d.secondRate * kLightTimePerAu * d.rho;
        }
        double first = line.firstAngle, second = line.secondAngle;
        if (options.mainPlane == 2) {
            const double jdUT = TerrestrialToUniversal(jd);
            const double local = SiderealAngle(jdUT) + options.longitudeDegrees * kDegree;
            const Horizon h = HorizonCoordinates(local - first, second, options.latitudeDegrees * kDegree);
            first = h.azimuth;
            second = h.altitude;
            line.firstAngle = first;
            line.secondAngle = second;
        }
        line.firstCoordinate = first / kDegree / (options.mainPlane == 0 ? 15.0 : 1.0);
        line.secondCoordinate = second / kDegree;
        line.firstRate = d.firstRate * kArcsecondsPerRadian / 24.0 * std::cos(second);
        line.secondRate = d.secondRate * kArcsecondsPerRadian / 24.0;

        const ElongationPhase ep = ElongationAndPhase(v.S, v.C);
        line.elongation = ep.elongation / kDegree;
        line.elongationSide = ep.side;
        line.phase = ep.phase / kDegree;
        const double r = PositionLength(v.S);
        const double delta = Length(v.S.x + v.C.x, v.S.y + v.C.y, v.S.z + v.C.z);
        line.totalMagnitude = TotalMagnitude(comet.H, comet.G, delta, r);
        line.nuclearMagnitude = NuclearMagnitude(comet.H2, comet.G2, delta, r, line.phase);
    } else {
        if (options.centralBody == 0) {
            line.moid = comet.elements.q;
        } else {
            const StateVector body = BodyState(bodies, std::clamp(options.centralBody, 1, 10));
            const OrbitElements planet = ElementsFromState(jd, body, kGaussSquared, kObliquityJ2000);
            line.moid = MinimumOrbitDistance(WalkOrbitOf(comet.elements), WalkOrbitOf(planet));
        }
        if (options.ephemerisType == 2) {
            line.osculating = ElementsFromState(jd, sum, kGaussSquared, 0.0);
            std::array<Position, 10> places{};
            for (std::size_t k = 0; k < 10; ++k) places[k] = bodies.position[k];
            line.hillSphereBody =
                SphereOfInfluence({comet.state.x, comet.state.y, comet.state.z}, places).body;
        }
    }

    line.position = sum;
    line.centreDistance = PositionLength(sum);
    line.speed = VelocityLength(sum);
    return line;
}

EphemerisStatus PositionPipeline(const CometAtInstant& comet, const TaskOptions& options,
                                 Ephemeris& ephemeris, double jd, EphemerisLine& line) {
    BodyStatesResult bodies;
    const EphemerisStatus status = ephemeris.BodyStates(jd, bodies);
    line = PositionPipeline(comet, options, bodies, jd);
    return status;
}

}  // namespace orvane
