#pragma once
// The two comets of the golden runs and a run of them through the program's
// calculation run, with the task texts writing files and panels.
#include <filesystem>
#include <string>
#include <vector>

#include "dynamics/calculation_run.h"
#include "tasks/task_output.h"

namespace orvane::golden {

// Targets: a few months after each epoch for the tables; 1970-01-01 for the close
// approaches, across 81P's Jupiter passage of 1974 and Hale-Bopp's perihelion of 1997.
inline constexpr double kEphemerisTarget = 2460745.5;  // 2025-03-16
inline constexpr double kApproachTarget = 2440587.5;   // 1970-01-01

std::filesystem::path goldenPath(const std::string& name);
std::filesystem::path planetaryFile();
bool planetaryFileAvailable();

// The records of comets.els as run objects; 81P gets A1 = 0.5 and A2 = 0.05, and
// Hale-Bopp its epoch of 2022.
std::vector<RunObject> goldenComets(double target);

// Options of the golden tables: Spherical, step 30 days, single file in `folder`.
TaskOptions ephemerisOptions(const std::filesystem::path& folder);

struct EmittedLine {
    int objectIndex = 0;
    EphemerisLine line;
};

struct RunResult {
    bool ok = false;
    std::vector<std::string> files;
    std::string approachText;
    TextPanel panel;
    std::vector<RunObject> objects;  // with their end blocks
    std::vector<EmittedLine> lines;  // every line the run handed over, the first of each table too
};

RunResult runGoldenComets(const TaskOptions& options, TaskKind task, double target = kEphemerisTarget);

}  // namespace orvane::golden
