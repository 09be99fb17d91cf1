#pragma once
// The windows that install the planetary files. ECheck stands before the main window
// when no planetary file exists: the user picks the files to fetch, or leaves, and
// leaving without a file ends the program. DEDownload fetches the one file that the
// options ask for when it is missing. Both download on a worker with progress, the
// time left and Abort.
#include <QDialog>
#include <memory>

#include "net/ephemeris_install.h"

class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace orvane {

struct AppState;

// Where the windows fetch from, and how long they wait for a server.
struct EphemerisSource {
    std::string serverAddress;  // empty: the address in force for this user
    FetchLimits limits;
};

class EphemerisWindow : public QDialog, private EphemerisInstallView {
    Q_OBJECT
public:
    ~EphemerisWindow() override;

    bool wantDe406() const { return wantDe406_; }
    bool wantDe423() const { return wantDe423_; }
    bool installedAny() const { return installedAny_; }
    EphemerisInstall& install() { return *install_; }
    // The screen the controls show now.
    const EphemerisInstallScreen& shown() const { return shown_; }

    // A file arrived in this run (1 DE406, 2 DE423): its box goes, and `choice` is the
    // planetary file in use now.
    void markInstalled(int file, int choice);

    // Escape and the close box: as the second button at rest, nothing during a transfer.
    void reject() override;

protected:
    // `file` 0 for ECheck (both files), 1 or 2 for DEDownload.
    EphemerisWindow(AppState& state, int file, EphemerisSource source, QWidget* parent);

    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showScreen(const EphemerisInstallScreen& screen) override;
    void fileInstalled(int file, int choice) override;
    void apply(const EphemerisInstallScreen& screen);
    void updateOkEnabled();
    void onOk();
    void onSecond();
    void layoutButtons();

    AppState& state_;
    int file_;
    std::unique_ptr<EphemerisInstall> install_;
    EphemerisInstallScreen shown_;
    bool wantDe406_ = true;
    bool wantDe423_ = true;
    bool installedAny_ = false;
    QCheckBox* de406_ = nullptr;
    QCheckBox* de423_ = nullptr;
    QLabel* interval_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* second_ = nullptr;
    QLabel* message_ = nullptr;
    QLabel* caption_ = nullptr;
    QLabel* line1_ = nullptr;
    QLabel* line2_ = nullptr;
    QProgressBar* bar_ = nullptr;
};

class ECheck : public EphemerisWindow {
    Q_OBJECT
public:
    explicit ECheck(AppState& state, EphemerisSource source = {}, QWidget* parent = nullptr);
};

class DEDownload : public EphemerisWindow {
    Q_OBJECT
public:
    DEDownload(AppState& state, int file, EphemerisSource source = {}, QWidget* parent = nullptr);
};

// Runs ECheck when `state.ephemerisMissing` is 1; true when the program may go on to
// the main window.
bool RunEphemerisCheck(AppState& state, EphemerisSource source = {});

}  // namespace orvane
