#pragma once
// The frame that the update windows share: a grey frame with a header band in the
// panel colour, a dotted line under it, the header picture at its right end, and a
// band for the buttons at the bottom. The windows are modal to the main window and
// stand centred over it, pushed back inside the desktop where they would leave it.
#include <QDialog>

namespace orvane {

class UpdateWindowFrame : public QDialog {
    Q_OBJECT
public:
    UpdateWindowFrame(QWidget* mainWindow, QSize size);

protected:
    void paintEvent(QPaintEvent* event) override;
};

// Centres `window` over `over` (or the screen) and keeps it inside the desktop.
void placeOver(QWidget* window, const QWidget* over);

// The shape of the modal windows of the main window: a fixed size, a caption with a
// close box and nothing else, modal, placed over the main window.
void shapeModalWindow(QDialog* window, QWidget* mainWindow, QSize size);

// The header picture: a comet on the panel colour, 300 x 60.
const QPixmap& headerPicture();

}  // namespace orvane
