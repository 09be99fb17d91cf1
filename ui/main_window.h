#pragma once
// The main window of the program. Its frame (menus, toolbar, panes) grows here; the
// placement follows the window into AppState and is saved when the window closes.
#include <QMainWindow>

namespace orvane {

struct AppState;

class MainApp : public QMainWindow {
    Q_OBJECT
public:
    explicit MainApp(AppState& state, QWidget* parent = nullptr);

    // Shows the window at the stored placement, maximised when records 6 to 9 are zero.
    void showAtStoredPlacement();

    // Asks the window to open the update window that the update check chose.
    Q_INVOKABLE void openPendingUpdateWindow();
    // Sent by every modal window and worker when it ends.
    Q_INVOKABLE void operationEnded();

signals:
    void closedAndSaved();

protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void rememberPlacement();

    AppState& state_;
    bool ignorePlacement_ = true;  // raised while the window lays itself out
};

}  // namespace orvane
