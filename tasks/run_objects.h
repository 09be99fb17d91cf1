#pragma once
// Orbit records as the objects of a calculation run: the numbers a run needs,
// read once from the record's texts.
#include <string>

#include "dynamics/run_types.h"
#include "records/orbit_record.h"

namespace orvane {

// The object's name as lists and tasks show it: "1P/Halley", "C/1995 O1 (Hale-Bopp)".
std::string RunObjectName(const OrbitRecord& record);

// The block of the record's catalogue epoch: elements, derived elements, the
// heliocentric state on the equator of J2000, and the non-gravitational values.
// A record without an epoch takes the time of perihelion as its epoch.
// False, with the name of the first unusable field, when a number is missing or
// is no number.
bool EpochBlock(const OrbitRecord& record, IntegrationBlock& block, std::string& badField);

// The record as a run object that starts at its epoch and goes to `targetTime`.
bool MakeRunObject(const OrbitRecord& record, double targetTime, RunObject& object, std::string& badField);

}  // namespace orvane
