#include "astro/nutation.h"

#include <cmath>

#include "astro/constants.h"

namespace orvane {

Nutation NutationMatrices(int set, int rates, JulianDate jd) {
    int first = 0;
    int last = kNutationRowCount;
    if (set == 1) last = 30;
    if (set == 2) first = 30;

    const double t = (jd - 2451545.0) / 36525.0;
    // The slow parts of the series run on T rounded to single precision, and so does the
    // fraction of the fast cycles: the table was made for that arithmetic.
    const double ts = static_cast<double>(static_cast<float>(t));

    double dpsi = 0.0;
    double deps = 0.0;
    double dpsiRate = 0.0;
    double depsRate = 0.0;
    double sinNode = 0.0;
    double cosNode = 0.0;
    for (int n = first; n < last; ++n) {
        const NutationRow& row = kNutationRows[n];
        const double cycles = row.frequency * t;
        const double fraction = static_cast<double>(static_cast<float>(cycles - std::trunc(cycles)));
        const double angle = kTwoPi * (row.phase + fraction + row.phaseRate * ts);
        const double s = std::sin(angle);
        const double c = std::cos(angle);
        const double psi = row.psi + row.psiRate * ts;
        const double eps = row.eps + row.epsRate * ts;
        dpsi += psi * s;
        deps += eps * c;
        if (rates != 0) {
            const double speed = kTwoPi * (row.frequency + row.phaseRate);  // radians a century
            dpsiRate += row.psiRate * s + psi * c * speed;
            depsRate += row.epsRate * c - eps * s * speed;
        }
        if (n == 0) {
            sinNode = s;
            cosNode = c;
        }
    }

    // The quadratic term of the Moon's node, which the linear phase of row 1 lacks, is
    // added after the sum as a small rotation of that row's angle.
    if (first == 0) {
        const double c = 3.614286e-05 * t * t;
        const double s = -c * c / 2.0;
        dpsi += kNutationRows[0].psi * (cosNode * c + sinNode * s);
        deps += kNutationRows[0].eps * (cosNode * s - sinNode * c);
    }

    Nutation result;
    result.dpsi = dpsi * 4.848136811e-10;
    result.deps = deps * 4.848136811e-10;
    if (rates != 0) {
        result.dpsiRate = dpsiRate * 4.848136811e-10 / 36525.0;
        result.depsRate = depsRate * 4.848136811e-10 / 36525.0;
    }

    const double meanObliquity = MeanObliquity(jd);
    const double trueObliquity = meanObliquity + result.deps;
    result.N = MultiplyMatrices(RotationX(-trueObliquity),
                                MultiplyMatrices(RotationZ(-result.dpsi), RotationX(meanObliquity)));
    result.E = RotationX(trueObliquity);
    return result;
}

}  // namespace orvane
