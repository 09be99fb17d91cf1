#pragma once
// The command line of orvane-cli: the task, the records, the planetary file, the
// target epoch and every task option, each with the default of a new config.dat.
#include <string>
#include <vector>

#include "dynamics/task_options.h"

namespace orvane::cli {

struct CliArgs {
    TaskKind task = TaskKind::None;
    TaskOptions options;
    // Records: from the catalogue by id or by a search value, or from an .els file.
    std::string databasePath;  // default: orvane.db of the per-user folder
    std::vector<long long> ids;
    std::string searchField;  // "des", "name" or "comet"
    std::string searchValue;
    std::string elsPath;
    std::string ephemerisPath;  // default: jplde423.dat of the per-machine folder
    bool targetGiven = false;
    double targetJd = 0.0;  // TT
    bool help = false;
};

// Parses argv; false with a message for the user when an argument is wrong.
bool ParseArgs(int argc, char** argv, CliArgs& args, std::string& error);

// A target epoch: a Julian date ("2460000.5"), a calendar date with the day's
// fraction ("2024-09-07.5") or with h:m:s ("2024-09-07 12:30:00", "2024-09-07T12:30:00").
bool ParseEpoch(const std::string& text, double& jd);

std::string HelpText();

}  // namespace orvane::cli
