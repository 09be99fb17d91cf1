#pragma once
// The class of an orbit by its Tisserand value with respect to Jupiter, and the
// sphere of influence that holds a point.
#include <array>
#include <string>
#include <string_view>

namespace orvane {

// Names of the classes indexed by class number, as the language table gives them
// (section orvEdit: key 165, then keys 158 to 164). The defaults are the English texts.
struct OrbitClassNames {
    std::array<std::string_view, 8> text{"No class",       "Hyperbolic",  "Parabolic",
                                         "Jupiter-family", "Encke-type",  "Chiron-type",
                                         "Jupiter-family*", "Halley-type"};
};

struct OrbitClass {
    int number = 0;
    std::string name;  // at most 40 characters, trailing blanks removed
};

// T = 5.204/a' + 2 cos i sqrt((a'/5.204)(1 - e^2)), a' = q/(1 - e); i in degrees.
double TisserandValue(double q, double e, double i);

// Classes 1 to 7 and 0 by the rules in their order. The a and P that the rules on the
// semi-major axis and the period test are the arguments, not values derived from q and e.
OrbitClass ClassifyOrbit(double q, double e, double P, double i, double a,
                         const OrbitClassNames& names = OrbitClassNames{});

// Body names as the language section orvPlanets lists them (keys 1 to 11): entry 0 is
// the Sun, 1 to 9 the planets, 10 the Moon.
struct BodyNames {
    std::array<std::string_view, 11> text{"Sun",    "Mercury", "Venus",   "Earth",  "Mars", "Jupiter",
                                          "Saturn", "Uranus",  "Neptune", "Pluto",  "Moon"};
};

// Hill-sphere radii in AU of bodies 1 (Mercury) to 10 (the Moon), as printed under "Hill Sph.".
inline constexpr std::array<double, 10> kHillSphereRadius{0.00148, 0.00647, 0.01001, 0.00724, 0.34697,
                                                          0.42881, 0.46494, 0.77035, 0.38392, 0.00039};

struct SphereOfInfluenceResult {
    int body = 0;  // 1 to 10, or 0 for the Sun
    std::string name;
};

using Position = std::array<double, 3>;

// The first of bodies 1 to 10 (positions in `bodies`, Mercury first) whose Hill sphere
// holds `position`; the Sun when none does. Earth is tested before the Moon.
SphereOfInfluenceResult SphereOfInfluence(const Position& position, const std::array<Position, 10>& bodies,
                                          const BodyNames& names = BodyNames{});

}  // namespace orvane
