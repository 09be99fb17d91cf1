#pragma once
// Hands a file or an address to the desktop: the program named by the environment
// variable ORVANE_OPENER when it is set (tests record what they are given), else the
// desktop's own opener, xdg-open, which passes a package to the package installer.
#include <string>

namespace orvane {

inline constexpr const char* kOpenerEnvironment = "ORVANE_OPENER";

// The opener's program: ORVANE_OPENER, else "xdg-open".
std::string DesktopOpener();

// Runs the opener with `target` as its one argument and waits for it; true when it
// ran and ended with status 0 (a refusal by the user ends it with another).
bool OpenWithDesktop(const std::string& target);

}  // namespace orvane
