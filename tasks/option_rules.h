#pragma once
// What the options page enforces on the values of the task options, for callers
// without the page (the command-line tool), and the observer that follows from the
// place fields.
#include "dynamics/task_options.h"

namespace orvane {

// The values the page's list rules leave in force:
//   Rectangular and Orbital are Geometric, on Equator or Ecliptic, 2000.0 or 1950.0;
//   Orbital is seen from the centre (Geocenter); Spherical is seen from the Earth;
//   Astrometric and Geometric know no "True" system and Geometric no Horizon;
//   Horizon needs a Topocenter; a centre other than the Earth is a Geocenter.
void ApplyOptionRules(TaskOptions& options);

// Signed decimal degrees of the place and the geocentric observer in Earth radii.
void DeriveObserverOf(TaskOptions& options);

}  // namespace orvane
