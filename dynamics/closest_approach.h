#pragma once
// Result of ForceModel::RefineClosestApproach: the smallest distance of the
// comet to one body found by a fine Runge-Kutta pass over one integrator step.

namespace orvane {

struct ClosestApproach {
    double tMin = 0.0;  // days since the run's start epoch
    double dMin = 0.0;  // AU
};

}  // namespace orvane
