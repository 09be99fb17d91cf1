#pragma once
// The program update window, OrvaneUpdate: the installed and the available version,
// and Update, which downloads the program's package, verifies its checksum and hands
// it to the desktop's package installer. The check runs as the window opens.
#include <QPointer>
#include <memory>

#include "net/program_update.h"
#include "ui/update_frame.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace orvane {

class OrvaneUpdate : public UpdateWindowFrame, private ProgramUpdateView {
    Q_OBJECT
public:
    OrvaneUpdate(ProgramUpdateSettings settings, QWidget* mainWindow);
    ~OrvaneUpdate() override;

    ProgramUpdate& update() { return *update_; }
    // The screen the controls show now.
    const ProgramUpdateScreen& shown() const { return shown_; }

signals:
    // The installer took the package: end the help viewer, write the settings.
    void installerStarted();
    // The window went away; the main window is told that an operation ended.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    void showScreen(const ProgramUpdateScreen& screen) override;
    void apply(const ProgramUpdateScreen& screen);
    void onClose();
    bool atRest() const;

    std::unique_ptr<ProgramUpdate> update_;
    ProgramUpdateScreen shown_;
    QLabel* title_ = nullptr;
    QLabel* current_ = nullptr;
    QLabel* available_ = nullptr;
    QLabel* status_ = nullptr;
    QProgressBar* bar_ = nullptr;
    QPushButton* updateButton_ = nullptr;
    QPushButton* close_ = nullptr;
    bool waitCursor_ = false;
};

}  // namespace orvane
