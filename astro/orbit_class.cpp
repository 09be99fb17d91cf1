#include "astro/orbit_class.h"

#include <cmath>

#include "astro/constants.h"
#include "base/fixed_text.h"

namespace orvane {

namespace {

// The language entry is 90 wide; the caller's field takes 40 of it.
std::string HandBack(std::string_view text) {
    std::string_view cut = cutAtNul(text);
    if (cut.size() > 40) cut = cut.substr(0, 40);
    return std::string(trimRight(cut));
}

}  // namespace

double TisserandValue(double q, double e, double i) {
    const double aJ = 5.204;
    const double a = q / (1.0 - e);
    return aJ / a + 2.0 * std::cos(i / kDegreesPerRadian) * std::sqrt((a / aJ) * (1.0 - e * e));
}

OrbitClass ClassifyOrbit(double q, double e, double P, double i, double a, const OrbitClassNames& names) {
    int number = 0;
    const double T = TisserandValue(q, e, i);
    if (e > 1.0) {
        number = 1;
    } else if (e == 1.0) {
        number = 2;
    } else if (e < 1.0 && 2.0 < T && T < 3.0) {
        number = 3;
    } else if (e < 1.0 && T > 3.0 && a < 5.204) {
        number = 4;
    } else if (e < 1.0 && T > 3.0 && a > 5.204) {
        number = 5;
    } else if (P < 20.0) {
        number = 6;
    } else if (P < 200.0) {
        number = 7;
    }
    return OrbitClass{number, HandBack(names.text[static_cast<std::size_t>(number)])};
}

SphereOfInfluenceResult SphereOfInfluence(const Position& position, const std::array<Position, 10>& bodies,
                                          const BodyNames& names) {
    for (std::size_t index = 0; index < bodies.size(); ++index) {
        const double dx = position[0] - bodies[index][0];
        const double dy = position[1] - bodies[index][1];
        const double dz = position[2] - bodies[index][2];
        if (std::sqrt(dx * dx + dy * dy + dz * dz) < kHillSphereRadius[index]) {
            return {static_cast<int>(index) + 1, std::string(names.text[index + 1])};
        }
    }
    return {0, std::string(names.text[0])};
}

}  // namespace orvane
