// The keyboard and mouse tables of the diagram scene, entry by entry, and the
// frozen view of a run at "Rate: max".
#include <gtest/gtest.h>

#include "tasks/diagram_controls.h"

using namespace orvane;

namespace {

DiagramViewArea Area() {
    DiagramViewArea a;
    a.clientWidth = 800;
    a.clientHeight = 600;
    a.stripHeight = kStripHeightShown;
    a.desktopWidth = 1920;
    a.desktopHeight = 1080;
    return a;
}

struct Scene {
    DiagramCamera camera;
    DiagramControls controls{camera};
    DiagramViewArea area = Area();
    Scene() {
        camera.centerX = 400;
        camera.centerY = 300;
    }
    DiagramAction key(DiagramKey k, bool shift = false) { return controls.Key(k, shift, area); }
};

}  // namespace

TEST(DiagramKeys, DownLowersLatNotBelow0) {
    Scene s;
    EXPECT_EQ(s.key(DiagramKey::Down), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.lat, 44.0);
    s.camera.lat = 0.0;
    EXPECT_EQ(s.key(DiagramKey::Down), DiagramAction::None);
    EXPECT_EQ(s.camera.lat, 0.0);
    s.camera.lat = 0.5;
    s.key(DiagramKey::Down);
    EXPECT_EQ(s.camera.lat, 0.0);
}

TEST(DiagramKeys, ShiftDownMovesTheSunDown) {
    Scene s;
    EXPECT_EQ(s.key(DiagramKey::Down, true), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.centerY, 301);
    EXPECT_EQ(s.camera.lat, 45.0);
}

TEST(DiagramKeys, UpRaisesLatNotAbove180) {
    Scene s;
    EXPECT_EQ(s.key(DiagramKey::Up), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.lat, 46.0);
}

TEST(DiagramKeys, UpAt180ChangesNothing) {
    Scene s;
    s.camera.lat = 180.0;
    const DiagramCamera before = s.camera;
    EXPECT_EQ(s.key(DiagramKey::Up), DiagramAction::None);
    EXPECT_EQ(s.camera.lat, 180.0);
    EXPECT_EQ(s.camera.lon, before.lon);
    EXPECT_EQ(s.camera.centerY, before.centerY);
}

TEST(DiagramKeys, ShiftUpMovesTheSunUp) {
    Scene s;
    s.key(DiagramKey::Up, true);
    EXPECT_EQ(s.camera.centerY, 299);
    EXPECT_EQ(s.camera.lat, 45.0);
}

TEST(DiagramKeys, RightFrom135PassesThrough0AndMinus269AndComesBackAt90) {
    Scene s;
    bool saw0 = false, saw269 = false;
    double previous = s.camera.lon;
    for (int press = 0; press < 404; ++press) {
        EXPECT_EQ(s.key(DiagramKey::Right), DiagramAction::Repaint);
        if (s.camera.lon == 0.0) saw0 = true;
        if (s.camera.lon == -269.0) saw269 = true;
        EXPECT_NE(s.camera.lon, -270.0);
        if (previous == -269.0) {
            EXPECT_EQ(s.camera.lon, 90.0) << "after -269";
        } else {
            EXPECT_EQ(s.camera.lon, previous - 1.0);
        }
        previous = s.camera.lon;
    }
    EXPECT_TRUE(saw0);
    EXPECT_TRUE(saw269);
    // 135 - 404 = -269, then 90, and on: 405 presses from 135 show 90.
    s.camera.lon = 135.0;
    for (int press = 0; press < 405; ++press) s.key(DiagramKey::Right);
    EXPECT_EQ(s.camera.lon, 90.0);
}

TEST(DiagramKeys, ShiftRightMovesTheSunRight) {
    Scene s;
    s.key(DiagramKey::Right, true);
    EXPECT_EQ(s.camera.centerX, 401);
    EXPECT_EQ(s.camera.lon, 135.0);
}

TEST(DiagramKeys, LeftRaisesLonWithoutWrapping) {
    Scene s;
    s.camera.lon = 359.0;
    EXPECT_EQ(s.key(DiagramKey::Left), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.lon, 360.0);
    s.key(DiagramKey::Left);
    EXPECT_EQ(s.camera.lon, 361.0);
}

TEST(DiagramKeys, ShiftLeftMovesTheSunLeft) {
    Scene s;
    s.key(DiagramKey::Left, true);
    EXPECT_EQ(s.camera.centerX, 399);
    EXPECT_EQ(s.camera.lon, 135.0);
}

TEST(DiagramKeys, PlusAndMinusStepTheZoomWithinMinus5And25) {
    Scene s;
    s.camera.zoom = 24;
    EXPECT_EQ(s.key(DiagramKey::Plus), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.zoom, 25);
    EXPECT_EQ(s.key(DiagramKey::Plus), DiagramAction::None);
    EXPECT_EQ(s.camera.zoom, 25);
    s.camera.zoom = -4;
    EXPECT_EQ(s.key(DiagramKey::Minus), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.zoom, -5);
    EXPECT_EQ(s.key(DiagramKey::Minus), DiagramAction::None);
    EXPECT_EQ(s.camera.zoom, -5);
    EXPECT_EQ(PixelsPerAu(s.camera.zoom), 5);
}

TEST(DiagramKeys, HomePutsTheSunAtTheMiddleOfTheClientArea) {
    Scene s;
    s.camera.centerX = 17;
    s.camera.centerY = -40;
    s.area.clientWidth = 801;
    s.area.clientHeight = 563;
    EXPECT_EQ(s.key(DiagramKey::Home), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.centerX, 400);
    EXPECT_EQ(s.camera.centerY, 281);
}

TEST(DiagramKeys, HomeInFullScreenUsesTheDesktopLess58) {
    Scene s;
    s.area.fullScreen = true;
    s.key(DiagramKey::Home);
    EXPECT_EQ(s.camera.centerX, 960);
    EXPECT_EQ(s.camera.centerY, (1080 - 58) / 2);
}

TEST(DiagramKeys, HomeAtHomeChangesNothing) {
    Scene s;
    EXPECT_EQ(s.key(DiagramKey::Home), DiagramAction::None);
}

TEST(DiagramKeys, EscTogglesFullScreenAndEnterLeavesIt) {
    Scene s;
    EXPECT_EQ(s.key(DiagramKey::Escape), DiagramAction::ToggleFullScreen);
    s.area.fullScreen = true;
    EXPECT_EQ(s.key(DiagramKey::Escape), DiagramAction::ToggleFullScreen);
    EXPECT_EQ(s.key(DiagramKey::Enter), DiagramAction::LeaveFullScreen);
    s.area.fullScreen = false;
    EXPECT_EQ(s.key(DiagramKey::Enter), DiagramAction::None);
}

TEST(DiagramKeys, AtRateMaxTheKeysDoNotMoveTheView) {
    Scene s;
    s.area.frozen = true;
    const DiagramCamera before = s.camera;
    for (DiagramKey k : {DiagramKey::Down, DiagramKey::Up, DiagramKey::Right, DiagramKey::Left, DiagramKey::Plus,
                         DiagramKey::Minus, DiagramKey::Home}) {
        for (bool shift : {false, true}) {
            s.camera.centerX = 5;  // away from home, so Home would move it
            EXPECT_EQ(s.key(k, shift), DiagramAction::None);
            EXPECT_EQ(s.camera.lat, before.lat);
            EXPECT_EQ(s.camera.lon, before.lon);
            EXPECT_EQ(s.camera.zoom, before.zoom);
            EXPECT_EQ(s.camera.centerX, 5);
            EXPECT_EQ(s.camera.centerY, before.centerY);
        }
    }
    // Full-screen mode can still be left.
    s.area.fullScreen = true;
    EXPECT_EQ(s.key(DiagramKey::Enter), DiagramAction::LeaveFullScreen);
}

TEST(DiagramMouse, WheelChangesTheZoomByTheDeltaOver120WhileInRange) {
    Scene s;
    s.camera.zoom = 10;
    EXPECT_EQ(s.controls.Wheel(120, s.area), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.zoom, 11);
    EXPECT_EQ(s.controls.Wheel(-360, s.area), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.zoom, 8);
    s.camera.zoom = 24;
    EXPECT_EQ(s.controls.Wheel(240, s.area), DiagramAction::None);
    EXPECT_EQ(s.camera.zoom, 24);
    EXPECT_EQ(s.controls.Wheel(120, s.area), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.zoom, 25);
}

TEST(DiagramMouse, PartsOfANotchAddUp) {
    Scene s;
    s.camera.zoom = 0;
    EXPECT_EQ(s.controls.Wheel(60, s.area), DiagramAction::None);
    EXPECT_EQ(s.camera.zoom, 0);
    EXPECT_EQ(s.controls.Wheel(60, s.area), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.zoom, 1);
}

TEST(DiagramMouse, RightDragTurnsTheViewADegreeAPixel) {
    Scene s;
    s.controls.Press(DiagramButton::Right, 100, 100, s.area);
    EXPECT_TRUE(s.controls.dragging());
    EXPECT_EQ(s.controls.Move(110, 95, s.area), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.lon, 125.0);
    EXPECT_EQ(s.camera.lat, 50.0);
    // Offsets count from the last position.
    s.controls.Move(108, 95, s.area);
    EXPECT_EQ(s.camera.lon, 127.0);
    EXPECT_EQ(s.camera.centerX, 400);
    s.controls.Release(DiagramButton::Right);
    EXPECT_FALSE(s.controls.dragging());
    EXPECT_EQ(s.controls.Move(0, 0, s.area), DiagramAction::None);
}

TEST(DiagramMouse, RightDragKeepsLatIn0To180) {
    Scene s;
    s.controls.Press(DiagramButton::Right, 100, 400, s.area);
    s.controls.Move(100, 200, s.area);  // up 200 pixels: lat 45 + 200
    EXPECT_EQ(s.camera.lat, 180.0);
    s.controls.Release(DiagramButton::Right);
    s.controls.Press(DiagramButton::Right, 100, 10, s.area);
    s.controls.Move(100, 470, s.area);
    EXPECT_EQ(s.camera.lat, 0.0);
}

TEST(DiagramMouse, LeftDragMovesTheSunByTheOffsets) {
    Scene s;
    s.controls.Press(DiagramButton::Left, 200, 200, s.area);
    EXPECT_EQ(s.controls.Move(230, 190, s.area), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.centerX, 430);
    EXPECT_EQ(s.camera.centerY, 290);
    EXPECT_EQ(s.camera.lat, 45.0);
    EXPECT_EQ(s.camera.lon, 135.0);
}

TEST(DiagramMouse, DragsBeginOnlyAboveTheTextStrip) {
    Scene s;
    const int stripTop = 600 - kStripHeightShown;
    s.controls.Press(DiagramButton::Right, 100, stripTop, s.area);
    EXPECT_FALSE(s.controls.dragging());
    EXPECT_EQ(s.controls.Move(150, stripTop - 50, s.area), DiagramAction::None);
    EXPECT_EQ(s.camera.lon, 135.0);
    s.controls.Press(DiagramButton::Left, 100, stripTop - 1, s.area);
    EXPECT_TRUE(s.controls.dragging());
    // With the status hidden the strip is 25 pixels high.
    s.area.stripHeight = kStripHeightHidden;
    s.controls.Press(DiagramButton::Left, 100, stripTop + 10, s.area);
    EXPECT_TRUE(s.controls.dragging());
}

TEST(DiagramMouse, LeavingTheSceneEndsTheDrag) {
    Scene s;
    const int stripTop = 600 - kStripHeightShown;
    s.controls.Press(DiagramButton::Right, 100, stripTop - 10, s.area);
    EXPECT_EQ(s.controls.Move(100, stripTop + 5, s.area), DiagramAction::None);
    EXPECT_FALSE(s.controls.dragging());
    EXPECT_EQ(s.camera.lat, 45.0);
    // Coming back does not resume it.
    EXPECT_EQ(s.controls.Move(100, stripTop - 30, s.area), DiagramAction::None);
    EXPECT_EQ(s.camera.lat, 45.0);
    s.controls.Press(DiagramButton::Left, 10, 10, s.area);
    EXPECT_EQ(s.controls.Move(-1, 10, s.area), DiagramAction::None);
    EXPECT_FALSE(s.controls.dragging());
}

TEST(DiagramMouse, DoubleClickWithTheLeftButtonTogglesFullScreen) {
    Scene s;
    EXPECT_EQ(s.controls.DoubleClick(DiagramButton::Left), DiagramAction::ToggleFullScreen);
    EXPECT_EQ(s.controls.DoubleClick(DiagramButton::Right), DiagramAction::None);
}

TEST(DiagramMouse, AtRateMaxTheMouseDoesNotMoveTheView) {
    Scene s;
    s.area.frozen = true;
    EXPECT_EQ(s.controls.Wheel(120, s.area), DiagramAction::None);
    s.controls.Press(DiagramButton::Right, 100, 100, s.area);
    EXPECT_EQ(s.controls.Move(150, 150, s.area), DiagramAction::None);
    s.controls.Release(DiagramButton::Right);
    s.controls.Press(DiagramButton::Left, 100, 100, s.area);
    EXPECT_EQ(s.controls.Move(150, 150, s.area), DiagramAction::None);
    EXPECT_EQ(s.camera.lat, 45.0);
    EXPECT_EQ(s.camera.lon, 135.0);
    EXPECT_EQ(s.camera.zoom, kDefaultZoom);
    EXPECT_EQ(s.camera.centerX, 400);
    EXPECT_EQ(s.camera.centerY, 300);
    // The run slows down while the button is held: the drag goes on from here.
    s.area.frozen = false;
    EXPECT_EQ(s.controls.Move(160, 150, s.area), DiagramAction::Repaint);
    EXPECT_EQ(s.camera.centerX, 410);
    EXPECT_EQ(s.controls.DoubleClick(DiagramButton::Left), DiagramAction::ToggleFullScreen);
}
