#pragma once
// The keyboard and the mouse of the diagram scene: what each key, the wheel, a
// drag and a double click do to the camera, and whether the scene must be
// repainted or full-screen mode changes. The window passes its events in and acts
// on the answer.
//
//   Key     plain                                   with Shift
//   Down    lat - 1, not below 0                    centerY + 1
//   Up      lat + 1, not above 180                  centerY - 1
//   Right   lon - 1; after -270 it comes to 90      centerX + 1
//   Left    lon + 1                                 centerX - 1
//   +, -    zoom +- 1 when the result is within -5 and 25
//   Home    the Sun to the middle of the client area (full screen: of the desktop,
//           its height taken less 58)
//   Esc     full-screen mode on or off
//   Enter   leaves full-screen mode
//
// The wheel changes the zoom by its delta over 120 while in range. A drag with the
// right button turns the view (lon minus the x offset, lat minus the y offset, a
// degree a pixel, lat kept in 0 to 180), with the left button it moves the Sun.
// Drags begin only above the text strip and end when the pointer leaves the
// scene. A double click with the left button toggles full-screen mode.
//
// While a run computes at "Rate: max" the scene is not drawn, so nothing moves the
// view; full-screen mode can still be left and entered.
#include "tasks/diagram_camera.h"

namespace orvane {

// Height of the text strip under the scene with the integration status shown,
// and with it hidden.
inline constexpr int kStripHeightShown = 117;
inline constexpr int kStripHeightHidden = 25;
// Full screen: the Sun's home is the middle of the desktop less this much height.
inline constexpr int kFullScreenHomeLess = 58;
// One notch of a mouse wheel.
inline constexpr int kWheelNotch = 120;

enum class DiagramKey { Down, Up, Right, Left, Plus, Minus, Home, Escape, Enter };
enum class DiagramButton { Left, Right };

enum class DiagramAction {
    None,              // nothing changed
    Repaint,           // the camera changed
    ToggleFullScreen,  // into full-screen mode, or out of it
    LeaveFullScreen,   // out of full-screen mode
};

// What the controls need to know of the window at the moment of an event.
struct DiagramViewArea {
    int clientWidth = 0;  // the scene window, text strip included
    int clientHeight = 0;
    int stripHeight = kStripHeightShown;
    bool fullScreen = false;
    int desktopWidth = 0;
    int desktopHeight = 0;
    bool frozen = false;  // a run at "Rate: max"

    int sceneHeight() const { return clientHeight - stripHeight; }
};

// The Sun at the middle of the client area, or in full-screen mode of the desktop
// rectangle with its height taken less 58.
void HomeCamera(DiagramCamera& camera, const DiagramViewArea& area);

class DiagramControls {
public:
    explicit DiagramControls(DiagramCamera& camera) : camera_(camera) {}

    DiagramAction Key(DiagramKey key, bool shift, const DiagramViewArea& area);
    // delta in eighths of a degree as the wheel reports it, 120 a notch; parts of
    // a notch add up until they make one.
    DiagramAction Wheel(int delta, const DiagramViewArea& area);
    DiagramAction Press(DiagramButton button, int x, int y, const DiagramViewArea& area);
    DiagramAction Move(int x, int y, const DiagramViewArea& area);
    DiagramAction Release(DiagramButton button);
    DiagramAction DoubleClick(DiagramButton button);

    bool dragging() const { return drag_ != Drag::None; }
    const DiagramCamera& camera() const { return camera_; }

private:
    enum class Drag { None, Turn, Move };

    DiagramAction StepZoom(int steps);

    DiagramCamera& camera_;
    Drag drag_ = Drag::None;
    int lastX_ = 0;
    int lastY_ = 0;
    int wheelRest_ = 0;
};

}  // namespace orvane
