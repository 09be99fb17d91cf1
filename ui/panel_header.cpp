#include "ui/panel_header.h"

#include <QPainter>
#include <QPainterPath>

#include "ui/ui_text.h"

namespace orvane {
namespace {

// Colour steps of the band, top to bottom, at rest and under the mouse.
const QColor kRestTop(226, 231, 245);
const QColor kRestBottom(196, 206, 232);
const QColor kHoverTop(240, 243, 252);
const QColor kHoverBottom(214, 222, 242);
const QColor kLine(150, 163, 196);
const QColor kTitle(32, 46, 92);
constexpr int kSteps = 6;

QColor blend(const QColor& a, const QColor& b, double t) {
    return QColor::fromRgbF(static_cast<float>(a.redF() + (b.redF() - a.redF()) * t),
                            static_cast<float>(a.greenF() + (b.greenF() - a.greenF()) * t),
                            static_cast<float>(a.blueF() + (b.blueF() - a.blueF()) * t));
}

}  // namespace

PanelHeader::PanelHeader(int controlId, int titleKey, QWidget* parent) : QPushButton(parent), titleKey_(titleKey) {
    setObjectName("PanelHeader");
    setControlId(this, controlId);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover, true);
    QFont font(QStringLiteral("Tahoma"));
    font.setPointSizeF(9);
    font.setBold(true);
    setFont(font);
    bindText(this, Section::orvStartPage, titleKey_);
    setOpen(true);
}

QSize PanelHeader::sizeHint() const { return {200, kHeight}; }

void PanelHeader::setOpen(bool open) {
    open_ = open;
    bindTip(this, Section::orvStartPage, titleKey_ + (open ? 1 : 2));
    update();
}

void PanelHeader::enterEvent(QEnterEvent* event) {
    QPushButton::enterEvent(event);
    hovered_ = true;
    update();
}

void PanelHeader::leaveEvent(QEvent* event) {
    QPushButton::leaveEvent(event);
    hovered_ = false;
    update();
}

void PanelHeader::paintEvent(QPaintEvent*) {
    QPixmap canvas(size() * devicePixelRatioF());
    canvas.setDevicePixelRatio(devicePixelRatioF());
    QPainter p(&canvas);
    const QColor top = hovered_ ? kHoverTop : kRestTop;
    const QColor bottom = hovered_ ? kHoverBottom : kRestBottom;
    const int h = height();
    for (int i = 0; i < kSteps; ++i) {
        const int y0 = h * i / kSteps;
        const int y1 = h * (i + 1) / kSteps;
        p.fillRect(0, y0, width(), y1 - y0, blend(top, bottom, static_cast<double>(i) / (kSteps - 1)));
    }
    p.setPen(Qt::white);
    p.drawLine(0, 0, width(), 0);
    p.setPen(kLine);
    p.drawLine(0, h - 1, width(), h - 1);

    // A small triangle says whether the panel is open.
    p.setRenderHint(QPainter::Antialiasing, true);
    QPainterPath mark;
    const double cx = 12;
    const double cy = h / 2.0;
    if (open_) {
        mark.moveTo(cx - 4, cy - 2);
        mark.lineTo(cx + 4, cy - 2);
        mark.lineTo(cx, cy + 3);
    } else {
        mark.moveTo(cx - 2, cy - 4);
        mark.lineTo(cx + 3, cy);
        mark.lineTo(cx - 2, cy + 4);
    }
    mark.closeSubpath();
    p.fillPath(mark, kTitle);
    p.setFont(font());
    p.setPen(kTitle);
    p.drawText(QRect(24, 0, width() - 28, h), Qt::AlignVCenter | Qt::AlignLeft, text());
    p.end();
    QPainter(this).drawPixmap(0, 0, canvas);
}

}  // namespace orvane
