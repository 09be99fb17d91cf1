#pragma once
// The description that stands before each ephemeris table, in the file and in the
// panel: the type line and the centre line, each ended by CR LF, and one more CR LF.
//   Type      : Spherical -> Astrometric -> Equator -> 2000.0
//   Center    : Earth -> 59°46'19.62" N,  30°19'38.64" E,   85.4 (m)
#include <string>

#include "dynamics/task_options.h"
#include "tasks/task_texts.h"

namespace orvane {

std::string DescriptionText(const TaskOptions& options, const TaskTexts& texts);

// The observer's place as the centre line writes it: latitude with degrees I2,
// longitude with degrees I3, minutes I2 and seconds F5.2 (a leading blank of minutes
// and seconds made "0"), each with its sign and hemisphere letter, then the altitude
// F6.1 and the metres in brackets.
std::string ObserverPlaceText(const TaskOptions& options, const TaskTexts& texts);

}  // namespace orvane
