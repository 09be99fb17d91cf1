#pragma once
// The painter of the orbit diagram: one plain function that draws a DiagramScene
// into a QImage, in this order: the background, the Sun, the axes, the planets'
// orbits, the comets' orbits, the bodies with their names, and the text strip
// under the scene (or, in an exported picture, the name and epoch lines). At
// "Rate: max" the scene gives way to the text of waiting.
//
// Orbits are drawn without smoothing, with pens and brushes made once for the
// program and polylines from fixed arrays, so the loops over orbits and bodies
// allocate nothing; the names are laid out once for a run (DiagramLabels).
#include <QFont>
#include <QImage>
#include <QStaticText>

#include <array>
#include <string>
#include <vector>

#include "tasks/diagram_scene.h"

class QPainter;

namespace orvane {

// The texts a paint draws over and over, laid out once: the bodies' names and the
// text of waiting, in the scene's font.
struct DiagramLabels {
    QFont font;
    DiagramTexts texts;
    std::vector<QStaticText> objectNames;  // by object index; "No name..." for an empty name
    std::array<QStaticText, kDiagramPlanets> planetNames;
    QString pleaseWait;
};

DiagramLabels MakeDiagramLabels(const std::vector<std::string>& objectNames, const DiagramTexts& texts,
                                const QFont& font);

enum class DiagramSurface {
    Window,   // the scene above its text strip
    Picture,  // an exported picture: the scene on the whole image, the name and epoch lines on it
};

// Paints the whole image. The strip (Window) is 117 pixels high with the
// integration status shown and 25 without; the scene takes the rest.
void paintScene(QImage& image, const DiagramScene& scene, const DiagramLabels& labels,
                DiagramSurface surface = DiagramSurface::Window);

// The stages of a paint, for a benchmark that measures them apart. Each draws
// into a painter set up by paintScene (no smoothing, clipped to the scene).
void paintOrbits(QPainter& painter, const DiagramScene& scene);
void paintBodies(QPainter& painter, const DiagramScene& scene, const DiagramLabels& labels);

}  // namespace orvane
