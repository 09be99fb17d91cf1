#include "tasks/pixel_canvas.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>

namespace orvane {
namespace {

constexpr long long kDotPeriod = 3;

// The part t0..t1 (of 0..1) of the segment from (x0, y0) by (dx, dy) that lies in
// [0, xMax] x [0, yMax] (Liang and Barsky); false when none does.
bool ClipToCanvas(double x0, double y0, double dx, double dy, double xMax, double yMax, double& t0, double& t1) {
    t0 = 0.0;
    t1 = 1.0;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {x0, xMax - x0, y0, yMax - y0};
    for (int k = 0; k < 4; ++k) {
        if (p[k] == 0.0) {
            if (q[k] < 0.0) return false;
            continue;
        }
        const double r = q[k] / p[k];
        if (p[k] < 0.0) {
            if (r > t1) return false;
            t0 = std::max(t0, r);
        } else {
            if (r < t0) return false;
            t1 = std::min(t1, r);
        }
    }
    return true;
}

class PolylineWalk {
public:
    PolylineWalk(const PixelCanvas& canvas, std::uint32_t colour, LineStyle style)
        : canvas_(canvas), colour_(colour), dotted_(style == LineStyle::Dotted) {}

    // The pixels from a up to, not including, b: along the major axis step by step,
    // the minor coordinate rounded half up, as Bresenham's walk gives it.
    void Segment(const ScreenPoint& a, const ScreenPoint& b) {
        const long long dx = static_cast<long long>(b.x) - a.x;
        const long long dy = static_cast<long long>(b.y) - a.y;
        const long long n = std::max(std::llabs(dx), std::llabs(dy));
        if (n == 0) return;
        // A pixel stands for the half pixel around it: the line is clipped to the
        // canvas widened by that much.
        double t0 = 0.0, t1 = 0.0;
        if (ClipToCanvas(a.x + 0.5, a.y + 0.5, static_cast<double>(dx), static_cast<double>(dy), canvas_.width,
                         canvas_.height, t0, t1)) {
            // One step of margin each side: the bounds test below has the last word.
            const long long first = std::max(0LL, static_cast<long long>(std::floor(t0 * n)) - 1);
            const long long last = std::min(n - 1, static_cast<long long>(std::ceil(t1 * n)) + 1);
            if (first <= last) Walk(a, dx, dy, n, first, last);
        }
        phase_ += n;
    }

    void Point(const ScreenPoint& p) {
        if (Drawn(phase_)) Put(p.x, p.y);
    }

private:
    void Walk(const ScreenPoint& a, long long dx, long long dy, long long n, long long first, long long last) {
        const bool xMajor = std::llabs(dx) >= std::llabs(dy);
        const long long major = xMajor ? (dx > 0 ? 1 : -1) : (dy > 0 ? 1 : -1);
        const long long minorSpan = xMajor ? dy : dx;
        const long long minor = minorSpan > 0 ? 1 : -1;
        const long long rise = 2 * std::llabs(minorSpan);
        const long long run = 2 * n;
        // Offset of the minor coordinate at step i: floor((i rise + n) / run).
        const long long start = first * rise + n;
        long long offset = start / run;
        long long rest = start % run;
        long long along = (xMajor ? a.x : a.y) + first * major;
        long long across = (xMajor ? a.y : a.x) + offset * minor;
        // The place in the dotted rhythm, counted without a division a pixel.
        long long dot = dotted_ ? (phase_ + first) % kDotPeriod : 0;
        for (long long i = first; i <= last; ++i) {
            if (dot == 0) {
                if (xMajor)
                    Put(along, across);
                else
                    Put(across, along);
            }
            if (dotted_ && ++dot == kDotPeriod) dot = 0;
            along += major;
            rest += rise;
            if (rest >= run) {
                rest -= run;
                across += minor;
            }
        }
    }

    bool Drawn(long long step) const { return !dotted_ || step % kDotPeriod == 0; }

    void Put(long long x, long long y) {
        if (x < 0 || y < 0 || x >= canvas_.width || y >= canvas_.height) return;
        canvas_.bits[y * canvas_.stride + x] = colour_;
    }

    const PixelCanvas& canvas_;
    std::uint32_t colour_;
    bool dotted_;
    long long phase_ = 0;
};

}  // namespace

void DrawPolyline(const PixelCanvas& canvas, const ScreenPoint* points, int count, std::uint32_t colour,
                  LineStyle style) {
    if (!canvas.bits || canvas.width <= 0 || canvas.height <= 0 || count <= 0) return;
    PolylineWalk walk(canvas, colour, style);
    for (int k = 1; k < count; ++k) walk.Segment(points[k - 1], points[k]);
    walk.Point(points[count - 1]);
}

namespace {

// c1 over c0 by a / 255, rounded, for one 8-bit channel.
std::uint32_t Mix(std::uint32_t c0, std::uint32_t c1, std::uint32_t a) {
    const std::uint32_t v = c1 * a + c0 * (255 - a) + 128;
    return (v + (v >> 8)) >> 8;
}

}  // namespace

void BlendMask(const PixelCanvas& canvas, const CoverageMask& mask, int x, int y, std::uint32_t colour) {
    if (!canvas.bits || !mask.bits) return;
    const int left = std::max(0, -x), top = std::max(0, -y);
    const int right = std::min(mask.width, canvas.width - x), bottom = std::min(mask.height, canvas.height - y);
    const std::uint32_t r = (colour >> 16) & 0xFF, g = (colour >> 8) & 0xFF, b = colour & 0xFF;
    for (int row = top; row < bottom; ++row) {
        const std::uint8_t* coverage = mask.bits + static_cast<std::ptrdiff_t>(row) * mask.stride;
        std::uint32_t* out = canvas.bits + static_cast<std::ptrdiff_t>(y + row) * canvas.stride + x;
        for (int col = left; col < right; ++col) {
            const std::uint32_t a = coverage[col];
            if (a == 0) continue;
            if (a == 255) {
                out[col] = colour;
                continue;
            }
            const std::uint32_t d = out[col];
            out[col] = (d & 0xFF000000u) | Mix((d >> 16) & 0xFF, r, a) << 16 | Mix((d >> 8) & 0xFF, g, a) << 8 |
                       Mix(d & 0xFF, b, a);
        }
    }
}

}  // namespace orvane
