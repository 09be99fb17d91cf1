#pragma once
// The texts of the two messages a run may show.
#include <string>

#include "tasks/task_texts.h"

namespace orvane {

// The question when the ephemeris file outgrows its limit: "Writing the ephemeris
// data to a file <name> is stopped because the file size exceeds <n> MB. Try ...",
// an empty line, and "Continue integration without writing data to a file?".
std::string FileSizeQuestion(const TaskTexts& texts, const std::string& fileName, int limitMegabytes);

// "Comet <name> has left the Solar System!"
std::string LeftSolarSystemMessage(const TaskTexts& texts, const std::string& name);

// An ephemeris file that could not be created: the folder's message and, on a line
// of its own, the path that was tried.
std::string FileOpenFailureMessage(const TaskTexts& texts, const std::string& path);

}  // namespace orvane
