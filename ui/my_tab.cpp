#include "ui/my_tab.h"

#include <QMouseEvent>
#include <algorithm>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace orvane {
namespace {

const QColor kFrame(150, 153, 160);
const QColor kHoverOutline(190, 205, 230);
const QColor kFace(236, 236, 236);
const QColor kCurrentFill(255, 255, 255);
const QColor kOtherTop(246, 246, 246);
const QColor kOtherBottom(222, 224, 228);

QPainterPath tabOutline(const QRectF& r) {
    constexpr qreal radius = 4;
    QPainterPath path;
    path.moveTo(r.left(), r.bottom());
    path.lineTo(r.left(), r.top() + radius);
    path.quadTo(r.left(), r.top(), r.left() + radius, r.top());
    path.lineTo(r.right() - radius, r.top());
    path.quadTo(r.right(), r.top(), r.right(), r.top() + radius);
    path.lineTo(r.right(), r.bottom());
    return path;
}

}  // namespace

MyTab::MyTab(QWidget* parent) : QTabBar(parent) {
    setObjectName("MyTab");
    setMouseTracking(true);
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(false);
    setFocusPolicy(Qt::NoFocus);
    QFont small(QStringLiteral("Tahoma"));
    small.setPointSizeF(8.5);
    setFont(small);
}

void MyTab::setPaneLayout(int workPaneRight, bool workPaneHidden, bool outputPaneHidden) {
    workPaneRight_ = workPaneRight;
    workPaneHidden_ = workPaneHidden;
    outputPaneHidden_ = outputPaneHidden;
    update();
}

QSize MyTab::tabSizeHint(int index) const {
    const QSize text = fontMetrics().size(Qt::TextSingleLine, tabText(index));
    return {text.width() + 28, text.height() + 12};
}

void MyTab::paintEvent(QPaintEvent*) {
    // Drawn whole into a bitmap first, so that the strip never flickers.
    QPixmap canvas(size() * devicePixelRatioF());
    canvas.setDevicePixelRatio(devicePixelRatioF());
    canvas.fill(kFace);
    QPainter p(&canvas);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setFont(font());
    const int bottom = height() - 1;

    for (int i = 0; i < count(); ++i) {
        if (i == currentIndex()) continue;
        const QRectF r = QRectF(tabRect(i)).adjusted(1.5, 3.5, -1.5, 0);
        QLinearGradient fill(r.topLeft(), r.bottomLeft());
        fill.setColorAt(0, kOtherTop);
        fill.setColorAt(1, kOtherBottom);
        const QPainterPath outline = tabOutline(r);
        p.fillPath(outline, fill);
        p.setPen(QPen(i == hovered_ ? kHoverOutline : kFrame, 1));
        p.drawPath(outline);
        if (i == hovered_) {
            p.setPen(QPen(kFrame, 1));
            p.drawPath(tabOutline(r.adjusted(-1, -1, 1, 0)));
        }
        p.setPen(QColor(60, 60, 60));
        p.drawText(r, Qt::AlignCenter, tabText(i));
    }

    // The line under the strip stays open where the current tab meets its page.
    int gapLeft = 0;
    int gapRight = 0;
    if (currentIndex() >= 0) {
        const QRect current = tabRect(currentIndex());
        gapLeft = current.left() + 2;
        gapRight = current.right() - 1;
        const bool split = !workPaneHidden_ && !outputPaneHidden_ && currentIndex() == 1;
        if (split && workPaneRight_ > gapLeft) gapRight = std::min(gapRight, workPaneRight_);
    }
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setPen(QPen(kFrame, 1));
    if (gapLeft > 0) p.drawLine(0, bottom, gapLeft, bottom);
    p.drawLine(gapRight, bottom, width(), bottom);

    if (currentIndex() >= 0) {
        p.setRenderHint(QPainter::Antialiasing, true);
        const QRectF r = QRectF(tabRect(currentIndex())).adjusted(1.5, 0.5, -1.5, 1);
        const QPainterPath outline = tabOutline(r);
        p.fillPath(outline, kCurrentFill);
        p.setPen(QPen(currentIndex() == hovered_ ? kHoverOutline.darker(130) : kFrame, 1));
        p.drawPath(outline);
        QFont bold = font();
        bold.setBold(true);
        p.setFont(bold);
        p.setPen(QColor(20, 20, 20));
        p.drawText(r, Qt::AlignCenter, tabText(currentIndex()));
    }
    p.end();
    QPainter(this).drawPixmap(0, 0, canvas);
}

void MyTab::mouseMoveEvent(QMouseEvent* event) {
    QTabBar::mouseMoveEvent(event);
    const int index = tabAt(event->position().toPoint());
    if (index == hovered_) return;
    hovered_ = index;
    update();
    if (index >= 0)
        emit hoverChanged(index);
    else
        emit hoverLeft();
}

void MyTab::leaveEvent(QEvent* event) {
    QTabBar::leaveEvent(event);
    hovered_ = -1;
    update();
    emit hoverLeft();
}

}  // namespace orvane
