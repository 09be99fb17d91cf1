#pragma once
// The painter of the orbit diagram: one plain function that draws a DiagramScene
// into a QImage, in this order: the background, the Sun, the axes, the planets'
// orbits, the comets' orbits, the bodies with their names, and the text strip
// under the scene (or, in an exported picture, the name and epoch lines). At
// "Rate: max" the scene gives way to the text of waiting.
//
// Orbits are walked pixel by pixel straight into the image from fixed arrays of
// points; the bodies are drawn with pens and brushes made once for the program and
// names laid out once for a run (DiagramLabels). So the loops over orbits and
// bodies allocate nothing.
#include <QFont>
#include <QImage>

#include <array>
#include <string>
#include <vector>

#include "tasks/diagram_scene.h"
#include "tasks/pixel_canvas.h"

class QPainter;

namespace orvane {

// The texts a paint draws over and over, laid out once in the scene's font: the
// bodies' names as coverage masks (8-bit images of the text's own rectangle,
// measured when they are made), and the texts of the scene.
struct DiagramLabels {
    QFont font;
    DiagramTexts texts;
    std::vector<QImage> objectNames;  // by object index; "No name..." for an empty name
    std::array<QImage, kDiagramPlanets> planetNames;
    QString pleaseWait;
};

DiagramLabels MakeDiagramLabels(const std::vector<std::string>& objectNames, const DiagramTexts& texts,
                                const QFont& font);

enum class DiagramSurface {
    Window,   // the scene above its text strip
    Picture,  // an exported picture: the scene on the whole image, the name and epoch lines on it
};

// Paints the whole image (made 32-bit RGB first if it is not). The strip (Window)
// is 117 pixels high with the integration status shown and 25 without; the scene
// takes the rest.
void paintScene(QImage& image, const DiagramScene& scene, const DiagramLabels& labels,
                DiagramSurface surface = DiagramSurface::Window);

// The stages of a paint, for a benchmark that measures them apart: the orbits
// straight into the pixels of the scene's rows, the bodies with a painter set up
// by paintScene and their names into the pixels again.
PixelCanvas SceneCanvas(QImage& image, int sceneHeight);
void paintOrbits(const PixelCanvas& canvas, const DiagramScene& scene);
void paintBodies(QPainter& painter, const PixelCanvas& canvas, const DiagramScene& scene, const DiagramLabels& labels);

}  // namespace orvane
