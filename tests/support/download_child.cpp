// The start-up and the download of the planetary file of DE423, without a window, as
// the ECheck window runs it: the network tests kill this program during the download.
// It reads HOME, the XDG folders and ORVANE_UPDATE_SERVER from its environment, and
// prints "marked" when record 103 names the file in transfer.
#include <cstdio>
#include <filesystem>

#include "app/app_state.h"
#include "app/config_file.h"
#include "app/startup.h"
#include "net/ephemeris_install.h"
#include "net/update_server.h"

namespace {

class Silent : public orvane::EphemerisInstallView {
public:
    void showScreen(const orvane::EphemerisInstallScreen&) override {}
    void fileInstalled(int, int) override {}
};

}  // namespace

int main() {
    orvane::AppState state;
    orvane::InitialiseProgram(state, std::filesystem::current_path().string());
    Silent view;
    orvane::EphemerisInstallSettings settings;
    settings.serverAddress = orvane::ServerAddress(state.folders.userFolder, state.folders.commonFolder);
    settings.de406Path = state.folders.de406Path;
    settings.de423Path = state.folders.de423Path;
    settings.ephemerisChoice = state.ephemerisChoice;
    const std::string config = state.folders.userFolder + "config.dat";
    settings.markPending = [config](int value) {
        orvane::WritePendingEphemerisRecord(config, value);
        std::printf("marked %d\n", value);
        std::fflush(stdout);
    };
    orvane::EphemerisInstall install(view, settings);
    install.start(false, true);
    install.join();
    return install.installedAny() ? 0 : 1;
}
