#pragma once
// Numbers shared by the orbit mathematics, written as the program stores them.
// Several are rounded differently from what a fresh computation would give; they
// are kept digit for digit because the results depend on them.

namespace orvane {

// The Gaussian gravitational constant, AU^(3/2)/day: the Sun's attraction throughout.
inline constexpr double kGauss = 0.01720209895;

// k squared, the Sun's GM in AU^3/day^2, as the force-free formulas and the force model use it.
inline constexpr double kGaussSquared = 0.0002959122082855911;

// The reference-orbit propagator alone divides v^2 by this differently rounded value of k^2.
// Its curve is what the integrated deviation is measured from, so it must not be "corrected".
inline constexpr double kReferenceOrbitMu = 0.0002959122066386044;

// k / sqrt(2), the scale of the parabolic mean anomaly.
inline constexpr double kGaussOverSqrt2 = 0.01216372081818699;

inline constexpr double kDegreesPerRadian = 57.2957795130823;
inline constexpr double kTwoPi = 6.283185307179586;
inline constexpr double kPi = 3.141592653589793;
inline constexpr double kHalfPi = 1.5707963267948966;
inline constexpr double kThreeHalvesPi = 4.71238898038469;
inline constexpr double kSqrt2 = 1.4142135623730951;

// Obliquity of the ecliptic of J2000 in radians, passed by every caller that turns a
// state between the equator and the ecliptic.
inline constexpr double kObliquityJ2000 = 0.4090928042223;

}  // namespace orvane
