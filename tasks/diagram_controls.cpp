#include "tasks/diagram_controls.h"

#include <algorithm>

namespace orvane {
namespace {

constexpr double kMinLat = 0.0;
constexpr double kMaxLat = 180.0;
// Right turns lon down to -269; one more step shows the same view as 90.
constexpr double kLonWrapBelow = -270.0;

}  // namespace

void HomeCamera(DiagramCamera& camera, const DiagramViewArea& area) {
    if (area.fullScreen) {
        camera.centerX = area.desktopWidth / 2;
        camera.centerY = (area.desktopHeight - kFullScreenHomeLess) / 2;
    } else {
        camera.centerX = area.clientWidth / 2;
        camera.centerY = area.clientHeight / 2;
    }
}

DiagramAction DiagramControls::StepZoom(int steps) {
    const int zoom = camera_.zoom + steps;
    if (steps == 0 || zoom < kMinZoom || zoom > kMaxZoom) return DiagramAction::None;
    camera_.zoom = zoom;
    return DiagramAction::Repaint;
}

DiagramAction DiagramControls::Key(DiagramKey key, bool shift, const DiagramViewArea& area) {
    if (key == DiagramKey::Escape) return DiagramAction::ToggleFullScreen;
    if (key == DiagramKey::Enter) return area.fullScreen ? DiagramAction::LeaveFullScreen : DiagramAction::None;
    if (area.frozen) return DiagramAction::None;
    const DiagramCamera before = camera_;
    switch (key) {
    case DiagramKey::Down:
        if (shift)
            ++camera_.centerY;
        else
            camera_.lat = std::max(kMinLat, camera_.lat - 1.0);
        break;
    case DiagramKey::Up:
        if (shift)
            --camera_.centerY;
        else
            camera_.lat = std::min(kMaxLat, camera_.lat + 1.0);
        break;
    case DiagramKey::Right:
        if (shift) {
            ++camera_.centerX;
        } else {
            camera_.lon -= 1.0;
            if (camera_.lon <= kLonWrapBelow) camera_.lon += 360.0;
        }
        break;
    case DiagramKey::Left:
        if (shift)
            --camera_.centerX;
        else
            camera_.lon += 1.0;
        break;
    case DiagramKey::Plus: return StepZoom(1);
    case DiagramKey::Minus: return StepZoom(-1);
    case DiagramKey::Home: HomeCamera(camera_, area); break;
    case DiagramKey::Escape:
    case DiagramKey::Enter: break;
    }
    const bool changed = before.lat != camera_.lat || before.lon != camera_.lon ||
                         before.centerX != camera_.centerX || before.centerY != camera_.centerY;
    return changed ? DiagramAction::Repaint : DiagramAction::None;
}

DiagramAction DiagramControls::Wheel(int delta, const DiagramViewArea& area) {
    if (area.frozen) return DiagramAction::None;
    wheelRest_ += delta;
    const int steps = wheelRest_ / kWheelNotch;
    wheelRest_ -= steps * kWheelNotch;
    return StepZoom(steps);
}

DiagramAction DiagramControls::Press(DiagramButton button, int x, int y, const DiagramViewArea& area) {
    drag_ = Drag::None;
    const bool inScene = x >= 0 && x < area.clientWidth && y >= 0 && y < area.sceneHeight();
    if (!inScene) return DiagramAction::None;
    drag_ = button == DiagramButton::Right ? Drag::Turn : Drag::Move;
    lastX_ = x;
    lastY_ = y;
    return DiagramAction::None;
}

DiagramAction DiagramControls::Move(int x, int y, const DiagramViewArea& area) {
    if (drag_ == Drag::None) return DiagramAction::None;
    const bool inScene = x >= 0 && x < area.clientWidth && y >= 0 && y < area.sceneHeight();
    if (!inScene) {
        drag_ = Drag::None;
        return DiagramAction::None;
    }
    const int dx = x - lastX_;
    const int dy = y - lastY_;
    lastX_ = x;
    lastY_ = y;
    if (area.frozen || (dx == 0 && dy == 0)) return DiagramAction::None;
    if (drag_ == Drag::Turn) {
        const double lat = std::clamp(camera_.lat - dy, kMinLat, kMaxLat);
        if (dx == 0 && lat == camera_.lat) return DiagramAction::None;
        camera_.lon -= dx;
        camera_.lat = lat;
    } else {
        camera_.centerX += dx;
        camera_.centerY += dy;
    }
    return DiagramAction::Repaint;
}

DiagramAction DiagramControls::Release(DiagramButton button) {
    const bool ends = (button == DiagramButton::Right && drag_ == Drag::Turn) ||
                      (button == DiagramButton::Left && drag_ == Drag::Move);
    if (ends) drag_ = Drag::None;
    return DiagramAction::None;
}

DiagramAction DiagramControls::DoubleClick(DiagramButton button) {
    return button == DiagramButton::Left ? DiagramAction::ToggleFullScreen : DiagramAction::None;
}

}  // namespace orvane
