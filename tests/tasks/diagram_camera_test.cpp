// The diagram's view: the scale of the zoom levels and the orthographic projection
// with angles in degrees and values truncated to integers.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tasks/diagram_camera.h"

using namespace orvane;

namespace {

DiagramCamera Camera(double lat, double lon, int zoom, int cx, int cy) {
    DiagramCamera c;
    c.lat = lat;
    c.lon = lon;
    c.zoom = zoom;
    c.centerX = cx;
    c.centerY = cy;
    return c;
}

// The formula as it stands, written out once more for the comparison, with the
// program's degrees a radian (points that fall on a whole pixel in exact arithmetic
// fall to one side or the other by the last bit of the conversion).
ScreenPoint ByFormula(const DiagramCamera& c, double x, double y, double z) {
    const double degreesPerRadian = 57.2957795130823;
    const double L = c.lon / degreesPerRadian, B = c.lat / degreesPerRadian, s = 5.0 * c.zoom + 30.0;
    const double sx = c.centerX + s * (x * std::cos(L) + y * std::sin(L));
    const double sy = c.centerY + s * ((x * std::sin(L) - y * std::cos(L)) * std::cos(B) - z * std::sin(B));
    return {static_cast<int>(std::trunc(sx)), static_cast<int>(std::trunc(sy))};
}

}  // namespace

TEST(DiagramCamera, DefaultsAreLat45Lon135) {
    const DiagramCamera c;
    EXPECT_EQ(c.lat, 45.0);
    EXPECT_EQ(c.lon, 135.0);
    EXPECT_GE(c.zoom, kMinZoom);
    EXPECT_LE(c.zoom, kMaxZoom);
}

TEST(DiagramCamera, ZoomMinus5Gives5PixelsPerAuAnd25Gives155) {
    EXPECT_EQ(PixelsPerAu(-5), 5);
    EXPECT_EQ(PixelsPerAu(25), 155);
    EXPECT_EQ(PixelsPerAu(0), 30);
    EXPECT_EQ(PixelsPerAu(10), 80);
}

TEST(DiagramCamera, FieldIsTheClientWidthOverTheScale) {
    EXPECT_DOUBLE_EQ(DiagramField(800, 10), 10.0);
    EXPECT_DOUBLE_EQ(DiagramField(800, -5), 160.0);
    EXPECT_DOUBLE_EQ(DiagramField(1550, 25), 10.0);
}

TEST(DiagramCamera, FaceOnAtLat0TheXAxisGoesRightAndTheYAxisUp) {
    const DiagramProjection view(Camera(0, 0, 10, 400, 300));
    EXPECT_EQ(view.Project(0, 0, 0), (ScreenPoint{400, 300}));
    EXPECT_EQ(view.Project(1, 0, 0), (ScreenPoint{480, 300}));
    EXPECT_EQ(view.Project(0, 1, 0), (ScreenPoint{400, 220}));
    // z points at the viewer and does not move the point.
    EXPECT_EQ(view.Project(0, 0, 1), (ScreenPoint{400, 300}));
}

TEST(DiagramCamera, EdgeOnAtLat90PositiveZGoesUp) {
    const DiagramProjection view(Camera(90, 0, 10, 400, 300));
    EXPECT_EQ(view.Project(0, 0, 1), (ScreenPoint{400, 220}));
    EXPECT_EQ(view.Project(0, 0, -1), (ScreenPoint{400, 380}));
    EXPECT_EQ(view.Project(1, 0, 0), (ScreenPoint{480, 300}));
    // The ecliptic is a line: y moves nothing up or down.
    EXPECT_EQ(view.Project(0, 1, 0).y, 300);
}

TEST(DiagramCamera, ZGoesUpForEveryLatBetween0And90) {
    for (int lat = 1; lat <= 90; ++lat) {
        const DiagramProjection view(Camera(lat, 135, 10, 400, 300));
        EXPECT_LT(view.Project(0, 0, 2).y, 300) << lat;
    }
    // Beyond 90 the view looks from below and z goes up still, the ecliptic turned over.
    const DiagramProjection below(Camera(135, 135, 10, 400, 300));
    EXPECT_LT(below.Project(0, 0, 2).y, 300);
}

TEST(DiagramCamera, ProjectionIsTheFormulaInDegreesTruncated) {
    const double points[][3] = {{1, 0, 0}, {0.3, -2.7, 0.4}, {-5.2, 1.1, -0.3}, {30.1, -9.6, 2.2}, {-0.01, 0.002, 0}};
    const DiagramCamera cameras[] = {Camera(45, 135, 10, 400, 241), Camera(17, -269, -5, 960, 482),
                                     Camera(180, 90, 25, 13, 7), Camera(91, 361, 3, 0, 0)};
    for (const auto& c : cameras) {
        const DiagramProjection view(c);
        for (const auto& p : points) {
            EXPECT_EQ(view.Project(p[0], p[1], p[2]), ByFormula(c, p[0], p[1], p[2]))
                << c.lat << " " << c.lon << " " << p[0] << " " << p[1] << " " << p[2];
        }
    }
}

TEST(DiagramCamera, ValuesAreTruncatedTowardZeroNotRounded) {
    EXPECT_EQ(TruncateToPixel(2.9), 2);
    EXPECT_EQ(TruncateToPixel(-0.5), 0);
    EXPECT_EQ(TruncateToPixel(-1.5), -1);
    // 0.0099 AU at 80 pixels an AU is 0.79 pixels: the point stays on the centre.
    const DiagramProjection view(Camera(0, 0, 10, 0, 0));
    EXPECT_EQ(view.Project(0.0099, 0, 0), (ScreenPoint{0, 0}));
    EXPECT_EQ(view.Project(-0.0099, 0, 0), (ScreenPoint{0, 0}));
    EXPECT_EQ(view.Project(0.0126, 0, 0), (ScreenPoint{1, 0}));
}

TEST(DiagramCamera, FarAndBrokenValuesStayDefined) {
    EXPECT_EQ(TruncateToPixel(1e300), 100000000);
    EXPECT_EQ(TruncateToPixel(-1e300), -100000000);
    EXPECT_EQ(TruncateToPixel(std::numeric_limits<double>::quiet_NaN()), -100000000);
    EXPECT_EQ(TruncateToPixel(std::numeric_limits<double>::infinity()), 100000000);
}

TEST(DiagramCamera, PixelOffsetsOfTheAxesIgnoreTheScale) {
    const DiagramProjection view(Camera(0, 0, 25, 400, 300));
    double dx = 0, dy = 0;
    view.PixelOffset(180, 0, 0, dx, dy);
    EXPECT_DOUBLE_EQ(dx, 180.0);
    EXPECT_DOUBLE_EQ(dy, 0.0);
    view.Offset(1, 0, 0, dx, dy);
    EXPECT_DOUBLE_EQ(dx, 155.0);
}

TEST(DiagramCamera, PictureOfAnotherSizeKeepsTheSunsOffsetFromTheMiddle) {
    const DiagramCamera window = Camera(45, 135, 10, 410, 280);
    const DiagramCamera picture = CameraForPicture(window, 800, 600, 1000, 500);
    EXPECT_EQ(picture.centerX, 510);
    EXPECT_EQ(picture.centerY, 230);
    EXPECT_EQ(picture.lat, 45.0);
    EXPECT_EQ(picture.zoom, 10);
}
