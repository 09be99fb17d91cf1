#pragma once
// Drawing straight into a 32-bit picture: the orbits of a diagram are hundreds of
// polylines a frame and its names hundreds of labels. A plain Bresenham walk over
// the pixels, clipped to the picture first, and a blend of text laid out once as
// an 8-bit coverage mask, do that in a fraction of the time a general painter
// needs, allocating nothing.
#include <cstdint>

#include "tasks/diagram_camera.h"

namespace orvane {

// A picture of 32-bit pixels (0xAARRGGBB), rows `stride` pixels apart.
struct PixelCanvas {
    std::uint32_t* bits = nullptr;
    int width = 0;
    int height = 0;
    int stride = 0;
};

enum class LineStyle {
    Solid,
    Dotted,  // one pixel drawn, two left, along the whole polyline
};

// Each segment is drawn from its first point up to, not including, its last, and
// the polyline's last point at the end, so no pixel is drawn twice and a dotted
// line keeps its rhythm through the corners. Points may lie far outside the
// canvas (up to +-1e8): segments are clipped to it before they are walked.
void DrawPolyline(const PixelCanvas& canvas, const ScreenPoint* points, int count, std::uint32_t colour,
                  LineStyle style);

// An 8-bit coverage mask: 0 leaves a pixel, 255 puts the colour, values between
// mix the two.
struct CoverageMask {
    const std::uint8_t* bits = nullptr;
    int width = 0;
    int height = 0;
    int stride = 0;  // bytes between rows
};

// Puts the mask's top left corner at (x, y) in the colour; the parts off the
// canvas are left out.
void BlendMask(const PixelCanvas& canvas, const CoverageMask& mask, int x, int y, std::uint32_t colour);

}  // namespace orvane
