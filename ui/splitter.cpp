#include "ui/splitter.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace orvane {

SplitterApp::SplitterApp(QWidget* parent) : QWidget(parent) {
    setObjectName("SplitterApp");
    setCursor(Qt::SplitHCursor);
    setFixedWidth(kWidth);
    ghost_ = new QWidget(parent);
    ghost_->setObjectName("SplitterGhost");
    ghost_->setAttribute(Qt::WA_TransparentForMouseEvents);
    ghost_->setAutoFillBackground(true);
    QPalette dark = ghost_->palette();
    dark.setColor(QPalette::Window, QColor(70, 70, 70));
    ghost_->setPalette(dark);
    ghost_->hide();
}

void SplitterApp::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().color(QPalette::Button));
    p.setPen(palette().color(QPalette::Light));
    p.drawLine(0, 0, 0, height());
    p.setPen(palette().color(QPalette::Mid));
    p.drawLine(width() - 1, 0, width() - 1, height());
}

int SplitterApp::clampedLeft(int parentX) const {
    const int limit = parentWidget() ? parentWidget()->width() - kWidth : 0;
    return std::clamp(parentX - grabOffset_, 0, std::max(0, limit));
}

void SplitterApp::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    dragging_ = true;
    grabOffset_ = event->position().toPoint().x();
    ghost_->setGeometry(x(), y(), kWidth, height());
    ghost_->raise();
    ghost_->show();
}

void SplitterApp::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_) return;
    const QPoint inParent = mapToParent(event->position().toPoint());
    ghost_->move(clampedLeft(inParent.x()), y());
}

void SplitterApp::mouseReleaseEvent(QMouseEvent* event) {
    if (!dragging_ || event->button() != Qt::LeftButton) return;
    dragging_ = false;
    ghost_->hide();
    const QPoint inParent = mapToParent(event->position().toPoint());
    emit moved(clampedLeft(inParent.x()));
}

}  // namespace orvane
