// Cost of the two-body routines that the integrator calls: PropagateUniversal on
// every force evaluation, PropagateUniversalQuad three times a step, StateFromElements
// for every ephemeris line.
#include <benchmark/benchmark.h>

#include "astro/twobody.h"
#include "astro/universal.h"
#include "astro/universal_quad.h"

namespace {

using namespace orvane;

StateVector CometState() {
    // q = 1 AU, e = 0.7, 40 days before perihelion.
    const DerivedOrbit d = DerivedElements(2460000.0, 2460040.0, 1.0, 0.7);
    GaussianGravity gravity;
    return StateFromElements(1.0, 0.7, 40.0, 120.0, 30.0, d.M, d.a, 0.0, kObliquityJ2000, gravity);
}

// Spans of the integrator (a fraction of a day) and of the rebuild (six days) and a year.
void BM_PropagateUniversal(benchmark::State& state) {
    const StateVector start = CometState();
    const double span = static_cast<double>(state.range(0)) / 100.0;
    for (auto _ : state) {
        StateVector out = PropagateUniversal(start, 0.0, span);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(BM_PropagateUniversal)->Arg(50)->Arg(600)->Arg(36500);

void BM_PropagateUniversalQuad(benchmark::State& state) {
    const StateVector s = CometState();
    const QuadStateVector start{s.x, s.y, s.z, s.vx, s.vy, s.vz};
    const Quad span = Quad(state.range(0)) / 100;
    for (auto _ : state) {
        QuadStateVector out = PropagateUniversalQuad(start, 0, span);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(BM_PropagateUniversalQuad)->Arg(50)->Arg(600)->Arg(36500);

// The rebuild after a step of the integrator: a step's end and six days either side,
// from one start.
void BM_RebuildAfterAStep(benchmark::State& state) {
    const StateVector s = CometState();
    const QuadStateVector start{s.x, s.y, s.z, s.vx, s.vy, s.vz};
    const Quad step = Quad(state.range(0)) / 100;
    const Quad times[3] = {step, step - 6, step + 6};
    QuadStateVector out[3];
    for (auto _ : state) {
        PropagateUniversalQuad(start, 0, times, out);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(BM_RebuildAfterAStep)->Arg(50)->Arg(300);

void BM_StateFromElements(benchmark::State& state) {
    const double e = static_cast<double>(state.range(0)) / 100.0;
    const double q = 1.0;
    const double a = e == 1.0 ? 0.0 : q / (1.0 - e);
    const double M = DerivedElements(2460000.0, 2459950.0, q, e).M;
    GaussianGravity gravity;
    for (auto _ : state) {
        StateVector out = StateFromElements(q, e, 40.0, 120.0, 30.0, M, a, 0.0, kObliquityJ2000, gravity);
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(BM_StateFromElements)->Arg(50)->Arg(99)->Arg(100)->Arg(150);

void BM_ElementsFromState(benchmark::State& state) {
    const StateVector s = CometState();
    for (auto _ : state) {
        OrbitElements el = ElementsFromState(2460000.0, s, kGaussSquared, kObliquityJ2000);
        benchmark::DoNotOptimize(el);
    }
}
BENCHMARK(BM_ElementsFromState);

}  // namespace

BENCHMARK_MAIN();
