#include "net/desktop_opener.h"

#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <cstdlib>

extern char** environ;

namespace orvane {

std::string DesktopOpener() {
    const char* opener = std::getenv(kOpenerEnvironment);
    return opener && *opener ? std::string(opener) : std::string("xdg-open");
}

bool OpenWithDesktop(const std::string& target) {
    std::string program = DesktopOpener();
    std::string argument = target;
    char* argv[] = {program.data(), argument.data(), nullptr};
    pid_t child = 0;
    if (posix_spawnp(&child, program.c_str(), nullptr, nullptr, argv, environ) != 0) return false;
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR) return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace orvane
