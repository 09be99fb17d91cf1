#pragma once
// The engines behind Options, Check for Updates and About, and the update check
// after start: it holds the update server's address and the marks of the update
// windows, opens the windows over the main window, and starts the check when the
// start-up or the options ask for it.
#include <QDialog>
#include <QObject>
#include <QPointer>
#include <atomic>
#include <string>

#include "net/update_check.h"
#include "ui/commands.h"
#include "ui/orvane_options.h"
#include "ui/orvane_update.h"

namespace orvane {

struct AppState;
class MainApp;

class NetworkCommands : public QObject, public MainCommands, private UpdateCheckView {
    Q_OBJECT
public:
    explicit NetworkCommands(AppState& state, QObject* parent = nullptr);
    // Stops a check that runs or waits.
    ~NetworkCommands() override;

    // The window the commands open their windows over. Call once.
    void attach(MainApp* window);

    bool handles(CommandGroup group) const override;
    void run(CommandGroup group) override;
    void openPendingUpdateWindow() override;
    void operationEnded() override;
    const char* updateBaseAddress() const override { return address_.c_str(); }

    // Step 14 of the start: the check when the option is on.
    void startCheckAtStart();
    // One check, now.
    void startCheck();

    UpdateMarks& marks() { return marks_; }
    UpdateCheck& check() { return check_; }
    // The windows that are open, or null.
    OrvaneUpdate* programUpdateWindow() const { return programUpdate_; }
    OrvaneOptions* optionsWindow() const { return options_; }
    QDialog* aboutWindow() const { return about_; }
    // How long the windows wait for a server (tests shorten it).
    FetchLimits limits;

signals:
    // The check chose the catalogue update window, which the catalogue update opens.
    void catalogueUpdateWanted();

private:
    bool mainWindowFree() override { return windowFree_.load(); }
    void openUpdateWindow() override;

    void openProgramUpdate();
    void openOptions();
    void openAbout();
    void windowClosed();

    AppState& state_;
    std::string address_;
    QPointer<MainApp> window_;
    QPointer<OrvaneUpdate> programUpdate_;
    QPointer<OrvaneOptions> options_;
    QPointer<QDialog> about_;
    std::atomic<bool> windowFree_{false};
    UpdateMarks marks_;
    UpdateCheck check_{*this, marks_};
};

}  // namespace orvane
