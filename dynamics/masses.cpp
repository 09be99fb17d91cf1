#include "dynamics/masses.h"

namespace orvane {

EphemerisMasses DeriveMasses(const std::array<double, 400>& constants, double emrat) {
    // constants[] is 0-based: position 9 of the file's list is constants[8].
    auto at = [&](int position) { return constants[static_cast<std::size_t>(position - 1)]; };
    EphemerisMasses m;
    const double gmb = at(11);
    m.bodyMass[1] = at(9);
    m.bodyMass[2] = at(10);
    m.bodyMass[3] = gmb / (1.0 + 1.0 / emrat);
    for (int body = 4; body <= 9; ++body) m.bodyMass[static_cast<std::size_t>(body)] = at(body + 8);
    m.bodyMass[10] = gmb / (1.0 + emrat);
    m.gms = at(18);
    return m;
}

}  // namespace orvane
