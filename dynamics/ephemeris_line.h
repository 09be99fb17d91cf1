#pragma once
// The values of one output instant: what the observable pipeline leaves for
// the ephemeris writer, for the Spherical, Rectangular and Orbital tables.
// Texts and units are the writer's; every number here is in the units named.
#include "astro/twobody.h"

namespace orvane {

struct EphemerisLine {
    // The instant and the object's orbit at it, as the run interpolated it:
    // heliocentric elements (ecliptic J2000, with P, M, n, a, Q derived at
    // `jd`) and the heliocentric state on the equator of J2000.
    double jd = 0.0;  // TT
    OrbitElements elements;
    StateVector state;

    // Spherical: the direction. firstAngle is the right ascension, the
    // longitude or the azimuth; secondAngle the declination, the latitude or
    // the altitude; radians, first in [0, 2pi).
    double firstAngle = 0.0, secondAngle = 0.0;
    double firstAngleRate = 0.0, secondAngleRate = 0.0;  // radians a day, of the direction
    // Printed values: first in hours with plane Equator, in degrees otherwise;
    // second in degrees; the rates in arc seconds an hour, the first times
    // cos(second).
    double firstCoordinate = 0.0, secondCoordinate = 0.0;
    double firstRate = 0.0, secondRate = 0.0;
    double distance = 0.0;      // rho, AU
    double distanceRate = 0.0;  // AU/day

    double totalMagnitude = 0.0;    // 0: unknown
    double nuclearMagnitude = 0.0;  // 0: unknown
    double elongation = 0.0;        // degrees, 0 to 180
    int elongationSide = 0;         // 0 trailing, 1 leading
    double phase = 0.0;             // degrees

    // Rectangular and Orbital: the object around the centre body in the frame
    // of the plane and the reference system, AU and AU/day; its distance,
    // speed, and the smallest distance of the two orbits.
    StateVector position;
    double centreDistance = 0.0;
    double speed = 0.0;
    double moid = 0.0;

    // Orbital: osculating elements of `position` in the same frame, and the
    // body whose Hill sphere holds the object (0 the Sun, 1 to 10).
    OrbitElements osculating;
    int hillSphereBody = 0;
};

}  // namespace orvane
