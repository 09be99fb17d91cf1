#pragma once
// The Sun's attraction on the deviation from the reference orbit, in Encke's
// form: the difference k^2 (rho/|rho|^3 - r/|r|^3) of two nearly equal
// terms, written so that nothing cancels when the deviation is small.
#include <array>

namespace orvane {

// Encke's factor f(q) = 1 - (1 + q)^(-3/2), as q (q^2 + 3 q + 3) over
// sqrt(1 + q)^3 + (1 + q)^3, so that a small q loses no digits.
double EnckeFactor(double q);

// Central term of the deviation's acceleration: with r = rho + dr,
// q = 2 ((rho + dr/2) . dr) / rho^2 and f = EnckeFactor(q),
// k^2 (f r - dr) / rho^3. It is zero when dr is zero.
std::array<double, 3> EnckeCentralTerm(const std::array<double, 3>& rho,
                                       const std::array<double, 3>& dr);

}  // namespace orvane
