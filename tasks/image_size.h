#pragma once
// The size of an exported diagram in the units of the "Image properties..." page:
// pixels, or cm and inch at 72 pixels an inch, shown with two decimals.
#include <string>

namespace orvane {

enum class ImageUnit { Pixels = 0, Cm = 1, Inch = 2 };

inline constexpr double kPixelsPerInch = 72.0;
inline constexpr double kCmPerInch = 2.54;

// The size of `pixels` in the unit.
double PixelsToUnit(int pixels, ImageUnit unit);
// The pixels of a size in the unit: value / 2.54 * 72 for cm, value * 72 for inch,
// to the nearest pixel (14.11 cm is 400 pixels, not 399).
int UnitToPixels(double value, ImageUnit unit);
// The field's text: whole pixels, or cm and inch with two decimals ("14.11").
std::string ImageSizeText(int pixels, ImageUnit unit);

}  // namespace orvane
