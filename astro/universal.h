#pragma once
// The two-body reference orbit of the Encke scheme, carried by universal variables
// in double precision. The force model calls it on every evaluation.
#include "astro/twobody.h"

namespace orvane {

// Position and velocity at t of the two-body orbit through `start` at t0 (days,
// heliocentric, any fixed frame). Deliberately not a pure Kepler orbit: 1/a and the
// series argument are rounded to single precision, and v^2 is divided by
// kReferenceOrbitMu. The integrated deviation is measured from exactly this curve, so
// what matters is that it is smooth and the same at every call, not that it is exact.
StateVector PropagateUniversal(const StateVector& start, double t0, double t);

}  // namespace orvane
