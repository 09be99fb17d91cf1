#pragma once
// The window that stands before the main window when no planetary file exists. The
// user picks the files to fetch or leaves; leaving without a file ends the program.
// The transfer itself belongs to the ephemeris installation; until one is attached,
// OK reports that no connection could be made, as a failed transfer does.
#include <QDialog>
#include <functional>

class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace orvane {

struct AppState;

class ECheck : public QDialog {
    Q_OBJECT
public:
    // Starts the transfer of the wanted files; returns false when no connection could
    // be made. Set by the ephemeris installation.
    using Installer = std::function<bool(ECheck&, bool wantDe406, bool wantDe423)>;

    explicit ECheck(AppState& state, Installer installer = {}, QWidget* parent = nullptr);

    bool wantDe406() const { return wantDe406_; }
    bool wantDe423() const { return wantDe423_; }

    // A file arrived in this run: leaving now reaches the main window.
    void markInstalled(int choice);

    // Shows the installation error with the given text (a key of the section of the
    // ephemeris windows) and offers to repeat.
    void showInstallationError(int textKey);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void updateOkEnabled();
    void onOk();
    void onExit();

    AppState& state_;
    Installer installer_;
    bool wantDe406_ = true;
    bool wantDe423_ = true;
    bool installedAny_ = false;
    QCheckBox* de406_ = nullptr;
    QCheckBox* de423_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* exit_ = nullptr;
    QLabel* message_ = nullptr;
    QLabel* caption_ = nullptr;
    QLabel* line1_ = nullptr;
    QLabel* line2_ = nullptr;
    QProgressBar* bar_ = nullptr;
};

// Runs the window when `state.ephemerisMissing` is 1; true when the program may go on
// to the main window.
bool RunEphemerisCheck(AppState& state, ECheck::Installer installer = {});

}  // namespace orvane
