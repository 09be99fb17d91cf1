#pragma once
// The block of one object in the ephemeris text panel: the values of the last
// output instant with labels, in number forms shorter than the file's.
#include <string>

#include "dynamics/ephemeris_line.h"
#include "dynamics/task_options.h"
#include "tasks/task_texts.h"

namespace orvane {

// "Ephemerides of <name>:", the description, the epoch and the values by type.
std::string EphemerisPanelBlock(const std::string& name, const EphemerisLine& line, const TaskOptions& options,
                                const TaskTexts& texts);

}  // namespace orvane
