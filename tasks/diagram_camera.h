#pragma once
// The camera of the orbit diagram and its orthographic view of the ecliptic frame
// of 2000.0. With L = lon, B = lat and s = pixels per AU, a point x, y, z (AU) is
//   screen x = centerX + s (x cos L + y sin L)
//   screen y = centerY + s ((x sin L - y cos L) cos B - z sin B)
// with the angles in degrees and both values truncated to integers. lat 0 looks
// down on the ecliptic from its north pole, lat 90 sees it edge on, and a positive
// z goes up the screen for lat between 0 and 90.
namespace orvane {

inline constexpr int kMinZoom = -5;
inline constexpr int kMaxZoom = 25;
// The level of a first start, until the settings hold one: 80 pixels per AU, the
// inner planets and Jupiter in a window of 800 pixels.
inline constexpr int kDefaultZoom = 10;

struct DiagramCamera {
    double lat = 45.0;   // degrees, kept in 0 to 180
    double lon = 135.0;  // degrees
    int zoom = kDefaultZoom;
    int centerX = 0;  // pixels: where the Sun is drawn
    int centerY = 0;
};

// 5 pixels per AU at zoom -5 to 155 at zoom 25.
constexpr int PixelsPerAu(int zoom) { return 5 * zoom + 30; }

// The field that the status line shows: the client width in AU.
double DiagramField(int clientWidth, int zoom);

struct ScreenPoint {
    int x = 0;
    int y = 0;
    friend bool operator==(const ScreenPoint&, const ScreenPoint&) = default;
};

// A pixel coordinate from a real one, truncated toward zero. Values far outside any
// picture (and a NaN from a damaged block) are held at +-1e8 first, so the
// conversion is always defined and a line toward them still leaves the picture.
int TruncateToPixel(double value);

// The view of one paint: the sines and cosines are taken once.
class DiagramProjection {
public:
    explicit DiagramProjection(const DiagramCamera& camera);

    // A point in AU on the screen.
    ScreenPoint Project(double x, double y, double z) const;
    // A vector in AU as screen offsets, not truncated and without the centre.
    void Offset(double x, double y, double z, double& dx, double& dy) const;
    // The same for a vector in pixels (the axes are drawn in pixels, not AU).
    void PixelOffset(double x, double y, double z, double& dx, double& dy) const;

    double scale() const { return scale_; }
    double centerX() const { return centerX_; }
    double centerY() const { return centerY_; }

private:
    double scale_;
    double centerX_, centerY_;
    double cosL_, sinL_, cosB_, sinB_;
};

// The camera of a picture of another size: the Sun keeps its offset from the middle.
DiagramCamera CameraForPicture(const DiagramCamera& camera, int clientWidth, int clientHeight, int pictureWidth,
                               int pictureHeight);

}  // namespace orvane
