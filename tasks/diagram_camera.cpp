#include "tasks/diagram_camera.h"

#include <cmath>

#include "astro/constants.h"

namespace orvane {
namespace {

constexpr double kPixelLimit = 1e8;

}  // namespace

double DiagramField(int clientWidth, int zoom) {
    return static_cast<double>(clientWidth) / static_cast<double>(PixelsPerAu(zoom));
}

int TruncateToPixel(double value) {
    if (!(value > -kPixelLimit)) return static_cast<int>(-kPixelLimit);  // also a NaN
    if (value > kPixelLimit) return static_cast<int>(kPixelLimit);
    return static_cast<int>(value);
}

DiagramProjection::DiagramProjection(const DiagramCamera& camera)
    : scale_(PixelsPerAu(camera.zoom)),
      centerX_(camera.centerX),
      centerY_(camera.centerY),
      cosL_(std::cos(camera.lon / kDegreesPerRadian)),
      sinL_(std::sin(camera.lon / kDegreesPerRadian)),
      cosB_(std::cos(camera.lat / kDegreesPerRadian)),
      sinB_(std::sin(camera.lat / kDegreesPerRadian)) {}

void DiagramProjection::PixelOffset(double x, double y, double z, double& dx, double& dy) const {
    dx = x * cosL_ + y * sinL_;
    dy = (x * sinL_ - y * cosL_) * cosB_ - z * sinB_;
}

void DiagramProjection::Offset(double x, double y, double z, double& dx, double& dy) const {
    PixelOffset(x, y, z, dx, dy);
    dx *= scale_;
    dy *= scale_;
}

ScreenPoint DiagramProjection::Project(double x, double y, double z) const {
    double dx = 0.0, dy = 0.0;
    Offset(x, y, z, dx, dy);
    return {TruncateToPixel(centerX_ + dx), TruncateToPixel(centerY_ + dy)};
}

DiagramCamera CameraForPicture(const DiagramCamera& camera, int clientWidth, int clientHeight, int pictureWidth,
                               int pictureHeight) {
    DiagramCamera picture = camera;
    picture.centerX = camera.centerX - clientWidth / 2 + pictureWidth / 2;
    picture.centerY = camera.centerY - clientHeight / 2 + pictureHeight / 2;
    return picture;
}

}  // namespace orvane
