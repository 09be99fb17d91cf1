#include "tasks/orbit_path.h"

#include <algorithm>
#include <cmath>

#include "astro/constants.h"

namespace orvane {
namespace {

// The finest step that still fits half a turn, both ends and one spare point.
constexpr double kFinestStep = 180.0 / (kMaxArcPoints - 3);
// Pieces shorter than this (degrees) are left out; interior points closer than
// this to the end of their piece are left to the end point.
constexpr double kAnomalyEpsilon = 1e-9;

struct Piece {
    double v0 = 0.0, v1 = 0.0;  // degrees of true anomaly, v0 < v1
    bool startCut = false;      // the end lies on the cut at (100 + q) AU
    bool endCut = false;
};

// The orbit's plane on the screen: a point at true anomaly v and distance r is
// centre + r (cos v * P + sin v * Q), P toward the perihelion.
class PlaneOnScreen {
public:
    PlaneOnScreen(const ConicOrbit& orbit, const DiagramProjection& view) : cx_(view.centerX()), cy_(view.centerY()) {
        const double cw = std::cos(orbit.omega / kDegreesPerRadian), sw = std::sin(orbit.omega / kDegreesPerRadian);
        const double cn = std::cos(orbit.node / kDegreesPerRadian), sn = std::sin(orbit.node / kDegreesPerRadian);
        const double ci = std::cos(orbit.i / kDegreesPerRadian), si = std::sin(orbit.i / kDegreesPerRadian);
        view.Offset(cn * cw - sn * sw * ci, sn * cw + cn * sw * ci, sw * si, px_, py_);
        view.Offset(-cn * sw - sn * cw * ci, -sn * sw + cn * cw * ci, cw * si, qx_, qy_);
    }
    ScreenPoint At(double r, double cosV, double sinV) const {
        return {TruncateToPixel(cx_ + r * (cosV * px_ + sinV * qx_)),
                TruncateToPixel(cy_ + r * (cosV * py_ + sinV * qy_))};
    }

private:
    double cx_, cy_;
    double px_ = 0.0, py_ = 0.0, qx_ = 0.0, qy_ = 0.0;
};

class PieceSampler {
public:
    PieceSampler(const ConicOrbit& orbit, double step, const PlaneOnScreen& plane)
        : p_(orbit.q * (1.0 + orbit.e)), e_(orbit.e), step_(step), plane_(plane),
          cosStep_(std::cos(step / kDegreesPerRadian)), sinStep_(std::sin(step / kDegreesPerRadian)) {}

    void Sample(const Piece& piece, ArcPolyline& arc) const {
        arc.count = 0;
        double c = std::cos(piece.v0 / kDegreesPerRadian);
        double s = std::sin(piece.v0 / kDegreesPerRadian);
        Add(arc, c, s, piece.startCut);
        for (double v = piece.v0 + step_; v < piece.v1 - kAnomalyEpsilon; v += step_) {
            const double next = c * cosStep_ - s * sinStep_;
            s = s * cosStep_ + c * sinStep_;
            c = next;
            Add(arc, c, s, false);
        }
        Add(arc, std::cos(piece.v1 / kDegreesPerRadian), std::sin(piece.v1 / kDegreesPerRadian), piece.endCut);
    }

private:
    // Only called where 1 + e cos v is positive: inside the cut, or anywhere on an
    // ellipse that the cut does not reach.
    void Add(ArcPolyline& arc, double c, double s, bool onCut) const {
        if (arc.count >= kMaxArcPoints) return;
        const double r = onCut ? kPathLimitAu : p_ / (1.0 + e_ * c);
        arc.points[static_cast<std::size_t>(arc.count++)] = plane_.At(r, c, s);
    }

    double p_, e_, step_;
    const PlaneOnScreen& plane_;
    double cosStep_, sinStep_;
};

// x reduced into [from, from + 360).
double IntoTurn(double x, double from) {
    double d = std::fmod(x - from, 360.0);
    if (d < 0.0) d += 360.0;
    return from + d;
}

// The parts of the half turn [a, a + 180] that lie within [-vCut, vCut]: at most two.
int CutPieces(double a, double vCut, Piece (&pieces)[2]) {
    int n = 0;
    const double lowest = -vCut;
    a = IntoTurn(a, lowest);
    const double end = a + 180.0;
    if (a < vCut) pieces[n++] = {a, std::min(end, vCut), false, end > vCut};
    // The part of the half turn that wraps past lowest + 360 comes back at lowest.
    const double wrapped = end - 360.0;
    if (wrapped > lowest) pieces[n++] = {lowest, std::min(wrapped, vCut), true, wrapped > vCut};
    int kept = 0;
    for (int k = 0; k < n; ++k) {
        if (pieces[k].v1 - pieces[k].v0 > kAnomalyEpsilon) pieces[kept++] = pieces[k];
    }
    return kept;
}

bool Usable(const ConicOrbit& o) {
    return o.q > 0.0 && std::isfinite(o.q) && o.e >= 0.0 && std::isfinite(o.e) && std::isfinite(o.omega) &&
           std::isfinite(o.node) && std::isfinite(o.i);
}

}  // namespace

double PlanetAngularStep(int pixelsPerAu) {
    if (pixelsPerAu < 30) return 10.0;
    if (pixelsPerAu < 60) return 8.0;
    if (pixelsPerAu < 90) return 6.0;
    if (pixelsPerAu < 120) return 4.0;
    return 2.0;
}

double CometAngularStep(int pixelsPerAu, double q) {
    const double step = PlanetAngularStep(pixelsPerAu);
    return q > kSmallPerihelion ? step : 2.0 * step;
}

void SampleOrbit(const ConicOrbit& orbit, double stepDegrees, const DiagramProjection& view, OrbitPath& path) {
    path.upperCount = 0;
    path.lowerCount = 0;
    if (!Usable(orbit) || !(stepDegrees > 0.0)) return;
    const double step = std::max(stepDegrees, kFinestStep);
    const PlaneOnScreen plane(orbit, view);
    const PieceSampler sampler(orbit, step, plane);

    // The ascending node lies where the argument of latitude omega + v is 0.
    const double ascending = IntoTurn(-orbit.omega, -180.0);
    // The anomaly where r reaches (100 + q) AU: cos v = (p / (100 + q) - 1) / e.
    // Below -1 the whole ellipse lies inside the cut.
    const double p = orbit.q * (1.0 + orbit.e);
    const double cosCut = orbit.e > 0.0 ? (p / (kPathLimitAu + orbit.q) - 1.0) / orbit.e : -2.0;
    Piece upper[2], lower[2];
    if (cosCut <= -1.0) {
        upper[0] = {ascending, ascending + 180.0, false, false};
        lower[0] = {ascending + 180.0, ascending + 360.0, false, false};
        path.upperCount = 1;
        path.lowerCount = 1;
    } else {
        const double vCut = std::acos(cosCut) * kDegreesPerRadian;
        path.upperCount = CutPieces(ascending, vCut, upper);
        path.lowerCount = CutPieces(ascending + 180.0, vCut, lower);
    }
    for (int k = 0; k < path.upperCount; ++k) sampler.Sample(upper[k], path.upper[static_cast<std::size_t>(k)]);
    for (int k = 0; k < path.lowerCount; ++k) sampler.Sample(lower[k], path.lower[static_cast<std::size_t>(k)]);
    // A whole ellipse closes on the very pixel it started from.
    if (cosCut <= -1.0) {
        ArcPolyline& last = path.lower[0];
        last.points[static_cast<std::size_t>(last.count - 1)] = path.upper[0].points[0];
    }
}

}  // namespace orvane
