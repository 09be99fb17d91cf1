#pragma once
// The close-approach text of one object: one line per listed event, from the last
// event of the run to the first, or the text that says why there is none.
#include <string>
#include <vector>

#include "dynamics/run_types.h"
#include "dynamics/task_options.h"
#include "tasks/task_texts.h"

namespace orvane {

// The text panels hold this many characters.
inline constexpr std::size_t kPanelTextLimit = 6000;

// Radii of the bodies in km by event kind: 0 the Sun (counted as a point), 1 Mercury
// .. 9 Pluto, 10 the Earth of the appearance minimum.
inline constexpr double kApproachRadiusKm[11] = {0.0,     2439.7,  6051.8,  6371.0,  3389.5, 69911.0,
                                                 58232.0, 25362.0, 24622.0, 1151.0,  6371.0};

// What a run left for one object: its rows in order of completion and whether it
// had an interval to search at all.
struct ObjectResults {
    std::vector<ApproachRow> rows;
    int intervalState = 0;  // 0 the interval was searched, 1 no interval to search
};

// The distance of an event as printed: F15.12 in AU, or F15.3 in km; with the
// planet's size counted, the radius of the body comes off first (also the Sun's 0).
std::string ApproachDistanceText(const ApproachRow& row, const TaskOptions& options);

// "Close Approaches of <name>:", the event lines or the empty-result text, cut to
// the panel's length.
std::string CloseApproachBlock(const std::string& name, const ObjectResults& results, const TaskOptions& options,
                               const TaskTexts& texts);

// A block of the panel's length or more is cut so that its last line goes as a
// whole: at ten characters before the last " : ", and "..." is added.
std::string CutToPanel(std::string block);

}  // namespace orvane
