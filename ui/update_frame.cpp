#include "ui/update_frame.h"

#include <QGuiApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QScreen>

namespace orvane {
namespace {

const QColor kFrame(160, 160, 160);
const QColor kPanel(230, 232, 245);
const QColor kLightDots(241, 242, 249);
constexpr int kHeaderBottom = 63;
constexpr int kButtonBand = 49;

QPixmap paintHeader() {
    QPixmap picture(300, 60);
    picture.fill(kPanel);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    // A few faint stars behind the comet.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(150, 156, 190));
    for (const QPointF star : {QPointF(30, 12), QPointF(72, 44), QPointF(118, 9), QPointF(161, 51), QPointF(205, 17),
                               QPointF(288, 47), QPointF(52, 31), QPointF(274, 8)})
        p.drawEllipse(star, 1.1, 1.1);
    // The tail fans out away from the Sun, which stands beyond the right edge.
    QPainterPath tail;
    tail.moveTo(246, 32);
    tail.cubicTo(190, 18, 110, 6, 20, 4);
    tail.lineTo(28, 40);
    tail.cubicTo(120, 40, 195, 38, 246, 36);
    tail.closeSubpath();
    QLinearGradient fade(246, 0, 20, 0);
    fade.setColorAt(0.0, QColor(70, 90, 170, 200));
    fade.setColorAt(1.0, QColor(70, 90, 170, 0));
    p.setBrush(fade);
    p.drawPath(tail);
    QRadialGradient coma(QPointF(248, 34), 14);
    coma.setColorAt(0.0, QColor(255, 255, 255));
    coma.setColorAt(0.35, QColor(170, 190, 255, 230));
    coma.setColorAt(1.0, QColor(170, 190, 255, 0));
    p.setBrush(coma);
    p.drawEllipse(QPointF(248, 34), 14, 14);
    return picture;
}

}  // namespace

const QPixmap& headerPicture() {
    static const QPixmap picture = paintHeader();
    return picture;
}

void placeOver(QWidget* window, const QWidget* over) {
    const QScreen* screen = over ? over->screen() : QGuiApplication::primaryScreen();
    const QRect desk = screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
    const QRect anchor = over && over->isVisible() ? over->frameGeometry() : desk;
    QRect frame(QPoint(0, 0), window->frameGeometry().size().expandedTo(window->size()));
    frame.moveCenter(anchor.center());
    if (frame.right() > desk.right()) frame.moveRight(desk.right());
    if (frame.bottom() > desk.bottom()) frame.moveBottom(desk.bottom());
    if (frame.left() < desk.left()) frame.moveLeft(desk.left());
    if (frame.top() < desk.top()) frame.moveTop(desk.top());
    window->move(frame.topLeft());
}

void shapeModalWindow(QDialog* window, QWidget* mainWindow, QSize size) {
    window->setFixedSize(size);
    // Caption and close box; no minimise, maximise or help entries.
    window->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    window->setWindowModality(Qt::ApplicationModal);
    placeOver(window, mainWindow);
}

UpdateWindowFrame::UpdateWindowFrame(QWidget* mainWindow, QSize size) : QDialog(mainWindow) {
    shapeModalWindow(this, mainWindow, size);
}

void UpdateWindowFrame::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const int w = width();
    const int h = height();
    p.fillRect(QRect(3, 3, w - 6, kHeaderBottom - 3), kPanel);
    p.setPen(kFrame);
    p.drawRect(0, 0, w - 1, h - 1);
    p.drawRect(2, 2, w - 5, h - kButtonBand - 4);
    p.drawRect(2, h - kButtonBand + 2, w - 5, kButtonBand - 5);
    QPen dots(kFrame, 1, Qt::DotLine);
    p.setPen(dots);
    p.drawLine(3, kHeaderBottom, w - 4, kHeaderBottom);
    dots.setColor(kLightDots);
    p.setPen(dots);
    p.drawLine(3, kHeaderBottom + 1, w - 4, kHeaderBottom + 1);
    p.drawPixmap(w - 303, 3, headerPicture());
}

}  // namespace orvane
