#include "ui/diagram_painter.h"

#include <QPainter>
#include <QPen>

#include <cmath>

#include "astro/constants.h"
#include "tasks/diagram_controls.h"
#include "tasks/pixel_canvas.h"
#include "tasks/orbit_path.h"

namespace orvane {
namespace {

// The window's grey behind the strip; the Sun's yellow and orange; the grey of the
// planets' arcs above and below the ecliptic; the red of the x axis.
const QColor kWindowGrey(230, 232, 245);
const QColor kSunFill(255, 242, 0);
const QColor kSunOutline(242, 101, 34);
const QColor kPlanetAbove(129, 129, 129);
const QColor kPlanetBelow(154, 154, 154);
const QColor kAxisX(237, 28, 36);
// Ours: the y and z axes, the comets' orbits (the present one, and the one of the
// record's epoch paler), the outlines of the bodies, the names and the strip.
const QColor kAxisY(34, 177, 76);
const QColor kAxisZ(63, 72, 204);
const QColor kComet(0, 94, 184);
const QColor kCometEpoch(150, 172, 218);
const QColor kPlanetMark(70, 70, 70);
const QColor kCometMark(0, 60, 140);
// Texts on the scene: dark on a light background, light on a dark one.
const QColor kPlanetName(70, 70, 70);
const QColor kCometName(0, 60, 140);
const QColor kText(0, 0, 0);
const QColor kPlanetNameOnDark(200, 200, 200);
const QColor kCometNameOnDark(120, 180, 255);
const QColor kTextOnDark(255, 255, 255);

constexpr double kSunRadius = 0.08;  // AU
// The axes, in pixels: length, the arrow tip's back and side, the ticks' half
// length and how far out they go.
constexpr double kAxisLength = 180.0;
constexpr double kArrowBack = 174.0;
constexpr double kArrowSide = 5.0;
constexpr double kTickHalf = 4.0;
constexpr double kTickReach = 170.0;
constexpr int kBodyRadius = 3;
constexpr int kNameGap = 3;
constexpr int kStripLineHeight = 16;
constexpr int kStripMargin = 8;

// Pens and brushes hold shared data: made once, every paint only refers to them.
struct Tools {
    static QPen Pen(const QColor& color) {
        QPen pen(color, 0, Qt::SolidLine);
        pen.setCosmetic(true);
        return pen;
    }
    QPen sun = Pen(kSunOutline);
    QPen axes[3] = {Pen(kAxisX), Pen(kAxisY), Pen(kAxisZ)};
    QPen planetMark = Pen(kPlanetMark);
    QPen cometMark = Pen(kCometMark);
    struct Ink {
        QPen text;
        QRgb planetName, cometName;
    };
    Ink onLight{Pen(kText), kPlanetName.rgb(), kCometName.rgb()};
    Ink onDark{Pen(kTextOnDark), kPlanetNameOnDark.rgb(), kCometNameOnDark.rgb()};
    QPen text = Pen(kText);  // the strip
    QBrush sunFill{kSunFill};
    QBrush bodyFill{Qt::white};
};

const Tools& tools() {
    static const Tools t;
    return t;
}

// The texts' pens for the scene's background.
const Tools::Ink& InkOn(std::uint32_t background) {
    const std::uint32_t r = (background >> 16) & 0xFF, g = (background >> 8) & 0xFF, b = background & 0xFF;
    const std::uint32_t luma = (299 * r + 587 * g + 114 * b) / 1000;
    return luma >= 128 ? tools().onLight : tools().onDark;
}

QPoint ToQPoint(const ScreenPoint& p) { return {p.x, p.y}; }

QString Utf8(const std::string& text) { return QString::fromStdString(text); }

// A point given in pixels from the Sun along the ecliptic axes.
QPoint AxisPoint(const DiagramProjection& view, double x, double y, double z) {
    double dx = 0.0, dy = 0.0;
    view.PixelOffset(x, y, z, dx, dy);
    return {TruncateToPixel(view.centerX() + dx), TruncateToPixel(view.centerY() + dy)};
}

// One axis: unit vector `along`, the arrow and the ticks across it along `across`.
void DrawAxis(QPainter& p, const DiagramProjection& view, const double (&along)[3], const double (&across)[3]) {
    const auto at = [&](double a, double c) {
        return AxisPoint(view, a * along[0] + c * across[0], a * along[1] + c * across[1],
                         a * along[2] + c * across[2]);
    };
    const QPoint tip = at(kAxisLength, 0.0);
    p.drawLine(at(0.0, 0.0), tip);
    p.drawLine(tip, at(kArrowBack, kArrowSide));
    p.drawLine(tip, at(kArrowBack, -kArrowSide));
    const double step = view.scale();
    for (double d = step; d <= kTickReach; d += step) p.drawLine(at(d, kTickHalf), at(d, -kTickHalf));
}

void DrawAxes(QPainter& p, const DiagramScene& scene, const DiagramProjection& view) {
    // The z axis takes its arrow and ticks across the screen: (cos L, sin L, 0)
    // projects to the screen's horizontal.
    const double cosL = std::cos(scene.camera.lon / kDegreesPerRadian);
    const double sinL = std::sin(scene.camera.lon / kDegreesPerRadian);
    const double x[3] = {1, 0, 0}, y[3] = {0, 1, 0}, z[3] = {0, 0, 1};
    const double acrossZ[3] = {cosL, sinL, 0};
    const Tools& t = tools();
    // Seen from the north side the z axis comes toward the viewer and is drawn
    // last; seen from the south it lies behind the ecliptic and is drawn first.
    const bool fromNorth = scene.camera.lat <= 90.0;
    if (!fromNorth) {
        p.setPen(t.axes[2]);
        DrawAxis(p, view, z, acrossZ);
    }
    p.setPen(t.axes[0]);
    DrawAxis(p, view, x, y);
    p.setPen(t.axes[1]);
    DrawAxis(p, view, y, x);
    if (fromNorth) {
        p.setPen(t.axes[2]);
        DrawAxis(p, view, z, acrossZ);
    }
}

void DrawSun(QPainter& p, const DiagramProjection& view) {
    const Tools& t = tools();
    p.setPen(t.sun);
    p.setBrush(t.sunFill);
    const double r = kSunRadius * view.scale();
    p.drawEllipse(QPointF(view.centerX(), view.centerY()), r, r);
}

void DrawArcs(const PixelCanvas& canvas, const std::array<ArcPolyline, 2>& arcs, int count, QRgb colour,
              LineStyle style) {
    for (int k = 0; k < count; ++k) {
        const ArcPolyline& arc = arcs[static_cast<std::size_t>(k)];
        DrawPolyline(canvas, arc.points.data(), arc.count, colour, style);
    }
}

// The arc above the ecliptic solid, the one below dotted.
void DrawOrbit(const PixelCanvas& canvas, const IntegrationBlock& b, double step, const DiagramProjection& view,
               OrbitPath& path, QRgb above, QRgb below) {
    SampleOrbit({b.q, b.e, b.omega, b.node, b.i}, step, view, path);
    DrawArcs(canvas, path.upper, path.upperCount, above, LineStyle::Solid);
    DrawArcs(canvas, path.lower, path.lowerCount, below, LineStyle::Dotted);
}

bool HasBlocks(const DiagramScene& scene) { return scene.frame && scene.frame->stepped; }

// A body: a small white disc at its position, its name at the right, the middle
// of the name's rectangle level with the mark.
void DrawBody(QPainter& p, const PixelCanvas& canvas, const DiagramProjection& view, const IntegrationBlock& block,
              const QPen& mark, const QImage* name, QRgb ink) {
    double x = 0.0, y = 0.0, z = 0.0;
    EclipticPosition(block, x, y, z);
    const QPoint at = ToQPoint(view.Project(x, y, z));
    p.setPen(mark);
    p.drawEllipse(at, kBodyRadius, kBodyRadius);
    if (!name || name->isNull()) return;
    const CoverageMask mask{name->constBits(), name->width(), name->height(),
                            static_cast<int>(name->bytesPerLine())};
    BlendMask(canvas, mask, at.x() + kBodyRadius + kNameGap, at.y() - name->height() / 2, ink);
}

void DrawStripLine(QPainter& p, int x, int top, const std::string& text) {
    const int baseline = top + (kStripLineHeight + p.fontMetrics().ascent() - p.fontMetrics().descent()) / 2;
    p.drawText(QPoint(x, baseline), Utf8(text));
}

void DrawStrip(QPainter& p, const DiagramScene& scene, const DiagramLabels& labels, const QRect& strip) {
    p.setClipping(false);
    p.fillRect(strip, kWindowGrey);
    p.setPen(tools().text);
    const std::string view = DiagramViewLine(labels.texts, scene.camera, strip.width());
    const DiagramStrip& s = scene.strip;
    if (!s.integrationStatus) {
        DrawStripLine(p, kStripMargin, strip.top() + (strip.height() - kStripLineHeight) / 2, view);
        return;
    }
    int top = strip.top() + 2;
    for (const std::string* line : {&s.name, &s.epoch, &s.interval, &s.status, &s.remaining, &s.rate, &view}) {
        DrawStripLine(p, kStripMargin, top, *line);
        top += kStripLineHeight;
    }
}

// The text's coverage in its own rectangle: the advance (or the ink, where a
// glyph reaches further) by the font's height, the baseline at its ascent.
QImage NameMask(const std::string& text, const QFont& font) {
    const QString name = Utf8(text);
    const QFontMetrics metrics(font);
    const QRect ink = metrics.boundingRect(name);
    const int left = std::min(0, ink.left());
    const int width = std::max(metrics.horizontalAdvance(name), ink.right() + 1) - left;
    QImage mask(std::max(width, 1), metrics.height(), QImage::Format_Alpha8);
    mask.fill(0);
    QPainter p(&mask);
    p.setFont(font);
    p.setPen(Qt::white);
    p.drawText(QPoint(-left, metrics.ascent()), name);
    return mask;
}

}  // namespace

DiagramLabels MakeDiagramLabels(const std::vector<std::string>& objectNames, const DiagramTexts& texts,
                                const QFont& font) {
    DiagramLabels labels;
    labels.font = font;
    labels.texts = texts;
    labels.objectNames.reserve(objectNames.size());
    for (const std::string& name : objectNames) {
        labels.objectNames.push_back(NameMask(DiagramBodyName(texts, name), font));
    }
    for (std::size_t k = 0; k < labels.planetNames.size(); ++k) {
        labels.planetNames[k] = NameMask(texts.planetNames[k], font);
    }
    labels.pleaseWait = Utf8(texts.pleaseWait);
    return labels;
}

PixelCanvas SceneCanvas(QImage& image, int sceneHeight) {
    if (image.format() != QImage::Format_RGB32) image = image.convertToFormat(QImage::Format_RGB32);
    return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), std::min(sceneHeight, image.height()),
            static_cast<int>(image.bytesPerLine() / 4)};
}

void paintOrbits(const PixelCanvas& canvas, const DiagramScene& scene) {
    if (!HasBlocks(scene)) return;
    const DiagramProjection view(scene.camera);
    const int s = PixelsPerAu(scene.camera.zoom);
    OrbitPath path;
    if (scene.display.planetOrbits) {
        for (const IntegrationBlock& planet : scene.frame->planets) {
            DrawOrbit(canvas, planet, PlanetAngularStep(s), view, path, kPlanetAbove.rgb(), kPlanetBelow.rgb());
        }
    }
    const auto& objects = scene.frame->objects;
    for (int k = scene.firstObject(); k <= scene.lastObject(); ++k) {
        const auto index = static_cast<std::size_t>(k);
        if (!scene.display.showCurrentOnly && index < scene.epochBlocks.size()) {
            const IntegrationBlock& epoch = scene.epochBlocks[index];
            DrawOrbit(canvas, epoch, CometAngularStep(s, epoch.q), view, path, kCometEpoch.rgb(), kCometEpoch.rgb());
        }
        const IntegrationBlock& now = objects[index];
        DrawOrbit(canvas, now, CometAngularStep(s, now.q), view, path, kComet.rgb(), kComet.rgb());
    }
}

void paintBodies(QPainter& p, const PixelCanvas& canvas, const DiagramScene& scene, const DiagramLabels& labels) {
    if (!HasBlocks(scene)) return;
    const DiagramProjection view(scene.camera);
    const Tools& t = tools();
    const Tools::Ink& ink = InkOn(scene.background);
    const bool names = scene.display.objectNames;
    p.setBrush(t.bodyFill);
    for (std::size_t k = 0; k < scene.frame->planets.size(); ++k) {
        DrawBody(p, canvas, view, scene.frame->planets[k], t.planetMark, names ? &labels.planetNames[k] : nullptr,
                 ink.planetName);
    }
    for (int k = scene.firstObject(); k <= scene.lastObject(); ++k) {
        const auto index = static_cast<std::size_t>(k);
        const QImage* name = names && index < labels.objectNames.size() ? &labels.objectNames[index] : nullptr;
        DrawBody(p, canvas, view, scene.frame->objects[index], t.cometMark, name, ink.cometName);
    }
}

void paintScene(QImage& image, const DiagramScene& scene, const DiagramLabels& labels, DiagramSurface surface) {
    if (image.isNull()) return;
    const int stripHeight = surface == DiagramSurface::Picture ? 0
                            : scene.strip.integrationStatus  ? kStripHeightShown
                                                             : kStripHeightHidden;
    const QRect sceneRect(0, 0, image.width(), std::max(0, image.height() - stripHeight));
    // The orbits go straight into the pixels (see pixel_canvas.h), between the
    // painter's axes and bodies; the painter writes to the same memory in order.
    const PixelCanvas canvas = SceneCanvas(image, sceneRect.height());
    QPainter p(&image);
    p.setFont(labels.font);
    p.fillRect(sceneRect, QColor::fromRgb(static_cast<QRgb>(scene.background)));
    p.setClipRect(sceneRect);

    if (scene.rateMax && surface == DiagramSurface::Window) {
        p.setPen(InkOn(scene.background).text);
        p.drawText(sceneRect, Qt::AlignCenter, labels.pleaseWait);
    } else {
        const DiagramProjection view(scene.camera);
        DrawSun(p, view);
        if (scene.display.axes) DrawAxes(p, scene, view);
        paintOrbits(canvas, scene);
        paintBodies(p, canvas, scene, labels);
    }

    if (surface == DiagramSurface::Picture) {
        p.setPen(InkOn(scene.background).text);
        const int line = p.fontMetrics().height();
        p.drawText(QPoint(kStripMargin, kStripMargin + p.fontMetrics().ascent()), Utf8(scene.strip.name));
        p.drawText(QPoint(kStripMargin, kStripMargin + line + p.fontMetrics().ascent()), Utf8(scene.strip.epoch));
        return;
    }
    DrawStrip(p, scene, labels, QRect(0, sceneRect.height(), image.width(), stripHeight));
}

}  // namespace orvane
