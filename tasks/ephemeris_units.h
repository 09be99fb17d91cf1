#pragma once
// The units of an ephemeris table and the factors that take the run's numbers (AU,
// AU/day, degrees) into them.
#include <string>

#include "dynamics/task_options.h"
#include "tasks/task_texts.h"

namespace orvane {

inline constexpr double kKilometresPerAu = 149597870.691;

// The five unit labels of a table, each in round brackets: "(AU)" or "(km)",
// "(AU/day)" or "(km/s)", "(deg)" or "(rad)", "(deg/day)" or "(rad/day)", "(yr)".
struct UnitLabels {
    std::string distance, velocity, angle, rate, period;
};

UnitLabels MakeUnitLabels(const TaskOptions& options, const TaskTexts& texts);

// Factors from AU, AU/day and degrees to the units of the options.
struct UnitFactors {
    double distance = 1.0;
    double velocity = 1.0;
    double angle = 1.0;  // also for the mean motion, degrees a day
};

UnitFactors MakeUnitFactors(const TaskOptions& options);

}  // namespace orvane
