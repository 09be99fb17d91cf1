#include "ui/main_window.h"

#include <QCloseEvent>
#include <QEvent>

#include "app/app_state.h"
#include "app/startup.h"

namespace orvane {

MainApp::MainApp(AppState& state, QWidget* parent) : QMainWindow(parent), state_(state) {
    setObjectName("MainApp");
    setWindowTitle(QStringLiteral("Orvane - Comet Ephemeris Desk"));
    setMinimumSize(400, 300);
}

void MainApp::showAtStoredPlacement() {
    ignorePlacement_ = true;
    const bool maximised = state_.windowLeft == 0 && state_.windowTop == 0 &&
                           state_.windowWidth == 0 && state_.windowHeight == 0;
    if (maximised) {
        showMaximized();
    } else {
        setGeometry(state_.windowLeft, state_.windowTop, state_.windowWidth, state_.windowHeight);
        showNormal();
    }
    ignorePlacement_ = false;
}

void MainApp::openPendingUpdateWindow() {}

void MainApp::operationEnded() {}

void MainApp::rememberPlacement() {
    if (ignorePlacement_ || !isVisible()) return;
    if (isMinimized() || isMaximized()) {
        state_.windowLeft = state_.windowTop = state_.windowWidth = state_.windowHeight = 0;
        return;
    }
    const QRect frame = frameGeometry();
    state_.windowLeft = frame.left();
    state_.windowTop = frame.top();
    state_.windowWidth = frame.width();
    state_.windowHeight = frame.height();
}

void MainApp::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    rememberPlacement();
}

void MainApp::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    rememberPlacement();
}

void MainApp::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) rememberPlacement();
}

void MainApp::closeEvent(QCloseEvent* event) {
    SaveSettings(state_);
    QMainWindow::closeEvent(event);
    emit closedAndSaved();
}

}  // namespace orvane
