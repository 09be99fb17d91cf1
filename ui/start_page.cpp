#include "ui/start_page.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>
#include <array>

#include "app/app_state.h"
#include "ui/qt_text.h"

namespace orvane {
namespace {

const QColor kBand(230, 232, 245);
const QColor kHeadingShadow(121, 139, 163);
constexpr int kBandTop = 100;
constexpr int kMargin = 20;
const QString kHeading = QStringLiteral("Comet Orbit Catalogue 2010 ");

QFont headingFont() {
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(24);
    font.setBold(true);
    return font;
}

// A night sky that brightens towards the horizon, fixed stars and a comet whose tail
// points away from the Sun beyond the left edge.
void paintBannerSky(QPainter& p, int width, int height) {
    QLinearGradient sky(0, 0, 0, height);
    sky.setColorAt(0, QColor(16, 26, 58));
    sky.setColorAt(1, QColor(58, 82, 130));
    p.fillRect(0, 0, width, height, sky);
    QRandomGenerator stars(103);  // the same sky on every start
    for (int i = 0; i < 140; ++i) {
        const int x = stars.bounded(width);
        const int y = stars.bounded(height);
        const int level = 120 + stars.bounded(135);
        p.setPen(QColor(level, level, std::min(255, level + 20)));
        p.drawPoint(x, y);
    }
    p.setRenderHint(QPainter::Antialiasing, true);
    const QPointF head(880, 30);
    QPainterPath tail;
    tail.moveTo(head + QPointF(-2, -3));
    tail.cubicTo(head + QPointF(-30, 10), head + QPointF(-110, 40), head + QPointF(-200, 72));
    tail.lineTo(head + QPointF(-170, 88));
    tail.cubicTo(head + QPointF(-90, 50), head + QPointF(-25, 18), head + QPointF(3, 3));
    tail.closeSubpath();
    QLinearGradient glow(head, head + QPointF(-190, 80));
    glow.setColorAt(0, QColor(230, 240, 255, 220));
    glow.setColorAt(1, QColor(230, 240, 255, 0));
    p.fillPath(tail, glow);
    QRadialGradient coma(head, 9);
    coma.setColorAt(0, QColor(255, 255, 255));
    coma.setColorAt(1, QColor(200, 220, 255, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(coma);
    p.drawEllipse(head, 9, 9);
}

QString escapedLine(const std::string& line) { return QString::fromStdString(line).toHtmlEscaped(); }

}  // namespace

StartPageOutput::StartPageOutput(QWidget* parent) : QTextBrowser(parent) {
    setObjectName("StartPageOutput");
    setReadOnly(true);
    setOpenLinks(false);
    setFrameShape(QFrame::NoFrame);
    QFont font(QStringLiteral("Tahoma"));
    font.setPointSize(10);
    setFont(font);
}

QImage StartPagePage::bannerImage() {
    QImage image(kBannerWidth, kBannerHeight, QImage::Format_RGB32);
    QPainter p(&image);
    paintBannerSky(p, kBannerWidth, kBannerHeight);
    return image;
}

StartPagePage::StartPagePage(QWidget* parent) : QWidget(parent), banner_(bannerImage()) {
    setObjectName("StartPagePage");
    output_ = new StartPageOutput(this);
}

QFont StartPagePage::helloFont() const {
    QFont font(QStringLiteral("Tahoma"));
    font.setPixelSize(22);
    font.setBold(true);
    return font;
}

int StartPagePage::outputTop() const { return QFontMetrics(helloFont()).height() + 124; }

void StartPagePage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int top = outputTop();
    output_->setGeometry(kMargin, top, std::max(0, width() - 2 * kMargin), std::max(0, height() - top - kMargin));
}

void StartPagePage::paintEvent(QPaintEvent*) {
    // One picture for the whole page, then one blit.
    QPixmap canvas(size() * devicePixelRatioF());
    canvas.setDevicePixelRatio(devicePixelRatioF());
    canvas.fill(Qt::white);
    QPainter p(&canvas);
    p.fillRect(0, 0, width(), kBandTop, kBand);
    p.drawImage(0, 0, banner_);
    p.setFont(headingFont());
    const int ascent = QFontMetrics(headingFont()).ascent();
    p.setPen(kHeadingShadow);
    p.drawText(220, 60 + ascent, kHeading);
    p.setPen(Qt::white);
    p.drawText(219, 59 + ascent, kHeading);

    p.fillRect(0, kBandTop, width(), height() - kBandTop, kBand);
    p.setPen(QPen(palette().color(QPalette::Shadow).lighter(150), 1, Qt::DotLine));
    p.drawLine(0, kBandTop, width(), kBandTop);
    p.setPen(QPen(Qt::white, 1));
    p.drawLine(0, kBandTop + 1, width(), kBandTop + 1);

    p.setFont(helloFont());
    p.setPen(QColor(40, 52, 84));
    p.drawText(kMargin, kBandTop + 19 + QFontMetrics(helloFont()).ascent(), QStringLiteral("Hello"));
    p.end();
    QPainter(this).drawPixmap(0, 0, canvas);
}

void StartPagePage::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) output_->setFocus();
    QWidget::mousePressEvent(event);
}

StartPageApp::StartPageApp(AppState& state, QWidget* parent) : QWidget(parent), state_(state) {
    setObjectName("StartPageApp");
    page_ = new StartPagePage(this);
    refresh();
}

void StartPageApp::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    page_->setGeometry(rect());
}

void StartPageApp::refresh() {
    std::array<std::string, 7> strings;
    for (int key = 1; key <= 7; ++key) strings[static_cast<std::size_t>(key - 1)] = text(Section::orvBriefInfo, key);
    const std::string plain = startPageText(strings, state_.briefInfo);
    QString html;
    std::size_t start = 0;
    while (start <= plain.size()) {
        const std::size_t end = std::min(plain.find('\n', start), plain.size());
        html += QStringLiteral("<p style=\"margin-top:0; margin-bottom:8px\">") + escapedLine(plain.substr(start, end - start)) +
                QStringLiteral("</p>");
        start = end + 1;
    }
    output()->setHtml(html);
}

void StartPageApp::retitle() {
    refresh();
    page_->update();
}

QString StartPageApp::statisticsText() const { return output()->toPlainText(); }

}  // namespace orvane
