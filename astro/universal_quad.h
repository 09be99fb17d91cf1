#pragma once
// The reference orbit in IEEE binary128, used to rebuild it after each step of the
// integrator, where the deviation is folded in and errors would accumulate.

namespace orvane {

__extension__ typedef __float128 Quad;

struct QuadStateVector {
    Quad x = 0, y = 0, z = 0;
    Quad vx = 0, vy = 0, vz = 0;
};

// The steps of PropagateUniversal, with every quantity and constant in binary128, no
// rounding to single precision, mu = k^2 = 0.0002959122082855911 and a stopping
// limit of 5e-31: a true two-body orbit as far as its series reaches.
QuadStateVector PropagateUniversalQuad(const QuadStateVector& start, Quad t0, Quad t);

}  // namespace orvane
