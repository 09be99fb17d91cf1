#include "tasks/image_size.h"

#include <cmath>
#include <cstdio>

namespace orvane {

double PixelsToUnit(int pixels, ImageUnit unit) {
    switch (unit) {
    case ImageUnit::Cm: return pixels * kCmPerInch / kPixelsPerInch;
    case ImageUnit::Inch: return pixels / kPixelsPerInch;
    case ImageUnit::Pixels: break;
    }
    return pixels;
}

int UnitToPixels(double value, ImageUnit unit) {
    double pixels = value;
    if (unit == ImageUnit::Cm) pixels = value / kCmPerInch * kPixelsPerInch;
    if (unit == ImageUnit::Inch) pixels = value * kPixelsPerInch;
    // The fields hold at most a few thousand pixels; anything else is refused
    // by their guards before it comes here, and is held in range all the same.
    if (!(std::fabs(pixels) < 1e9)) return 0;
    return static_cast<int>(std::lround(pixels));
}

std::string ImageSizeText(int pixels, ImageUnit unit) {
    char text[48];
    if (unit == ImageUnit::Pixels)
        std::snprintf(text, sizeof text, "%d", pixels);
    else
        std::snprintf(text, sizeof text, "%.2f", PixelsToUnit(pixels, unit));
    return text;
}

}  // namespace orvane
