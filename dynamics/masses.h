#pragma once
// Masses of the perturbing bodies of the force model, from the constants of
// the planetary ephemeris file.
#include <array>

namespace orvane {

struct EphemerisMasses {
    // GM of bodies 1 to 10 (Mercury .. Pluto, Moon) in AU^3/day^2; index 0 unused.
    std::array<double, 11> bodyMass{};
    double gms = 0.0;  // the file's GM of the Sun; the force model uses k^2 instead
};

// Takes the constants by their place in the file, not by their names:
// positions 9 to 18 are GM1, GM2, GMB, GM4 .. GM9, GMS. The Earth and the Moon
// share GMB in the ratio EMRAT.
EphemerisMasses DeriveMasses(const std::array<double, 400>& constants, double emrat);

}  // namespace orvane
