#pragma once
// The reference orbit in IEEE binary128, used to rebuild it after each step of the
// integrator, where the deviation is folded in and errors would accumulate.
#include <span>

namespace orvane {

__extension__ typedef __float128 Quad;

struct QuadStateVector {
    Quad x = 0, y = 0, z = 0;
    Quad vx = 0, vy = 0, vz = 0;
};

// The steps of PropagateUniversal, with every quantity and constant in binary128, no
// rounding to single precision, mu = k^2 = 0.0002959122082855911 and a stopping
// limit of 5e-31: a true two-body orbit as far as its series reaches.
//
// Newton's iteration is run in double first and finished in binary128, so the
// result is that of the binary128 iteration from s = 0.01 to a few units in the
// last binary128 place; where the double iteration cannot vouch for that, the
// binary128 iteration runs from the start as written.
QuadStateVector PropagateUniversalQuad(const QuadStateVector& start, Quad t0, Quad t);

// The same for several times from one start, which shares the start's radius, r.v
// and 1/a between them: out[i] is the orbit at times[i]. Only the first
// min(times.size(), out.size()) entries are worked.
void PropagateUniversalQuad(const QuadStateVector& start, Quad t0, std::span<const Quad> times,
                            std::span<QuadStateVector> out);

}  // namespace orvane
