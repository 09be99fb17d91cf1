// Cost of the comet integration: one EvaluateForce, one sequence of the Radau
// integrator, and a whole century of 81P/Wild inside the 1960-2060 DE405 file
// (steps, force evaluations, share and cost of the binary128 rebuild, time per year).
#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "astro/calendar.h"
#include "astro/constants.h"
#include "astro/twobody.h"
#include "dynamics/ephemeris.h"
#include "dynamics/force_model.h"
#include "dynamics/radau.h"

namespace {

using namespace orvane;

const std::string kShared = ORVANE_SHARED_DIR;
constexpr double kFirstJd = 2436913.5;  // one day into the file
constexpr double kCentury = 36525.0;

double Field(const std::string& line, std::size_t from, std::size_t to) {
    return std::strtod(line.substr(from - 1, to - from + 1).c_str(), nullptr);
}

// 81P/Wild at its MPC epoch 2024-09-07 (JD 2460560.5).
bool Wild2(StateVector& state) {
    std::ifstream in(kShared + "/reference/CometEls.txt");
    std::string line;
    while (std::getline(in, line)) {
        if (line.rfind("0081P", 0) != 0) continue;
        const double tp = CalendarToJulian(static_cast<int>(Field(line, 15, 18)),
                                           static_cast<int>(Field(line, 20, 21)), Field(line, 23, 29));
        const double q = Field(line, 31, 39), e = Field(line, 42, 49);
        const DerivedOrbit d = DerivedElements(2460560.5, tp, q, e);
        GaussianGravity gravity;
        state = StateFromElements(q, e, Field(line, 52, 59), Field(line, 62, 69), Field(line, 72, 79), d.M,
                                  d.a, 0.0, kObliquityJ2000, gravity);
        return true;
    }
    return false;
}

struct Fixture {
    Ephemeris eph;
    StateVector start;  // 81P at kFirstJd
    bool ok = false;

    Fixture() {
        StateVector now;
        if (eph.OpenEphemerisFile(kShared + "/ephemerides/de405-1960-2060.dat") != EphemerisStatus::Ok) return;
        if (!Wild2(now)) return;
        ForceModel force(eph);
        force.SetRunEpoch(2460560.5);
        Integrator integrator(force);
        ok = integrator.Run(now, kFirstJd - 2460560.5, [&](const StepReport& r) {
            start = r.state;
            return true;
        }) == IntegrationStatus::Completed;
    }
};

Fixture& Shared() {
    static Fixture fixture;
    return fixture;
}

void BM_EvaluateForce(benchmark::State& state) {
    Fixture& f = Shared();
    if (!f.ok) {
        state.SkipWithError("no DE405 file or comet");
        return;
    }
    ForceModel force(f.eph);
    force.SetRunEpoch(kFirstJd);
    ReferenceOrbit ref;
    ref.r = {f.start.x, f.start.y, f.start.z};
    ref.v = {f.start.vx, f.start.vy, f.start.vz};
    force.SetReferenceOrbit(ref);
    const Vector3 dr = {1e-9, -2e-9, 5e-10}, dv = {1e-11, 0.0, 0.0};
    Vector3 a{};
    double t = 0.0;
    for (auto _ : state) {
        // A substep of a sequence: a new instant in the same record.
        t = t == 0.0 ? 3.7 : 0.0;
        force.EvaluateForce(dr, dv, t, a);
        benchmark::DoNotOptimize(a);
    }
}
BENCHMARK(BM_EvaluateForce);

// A year of 81P from 1960, reported per accepted sequence.
void BM_Sequence(benchmark::State& state) {
    Fixture& f = Shared();
    if (!f.ok) {
        state.SkipWithError("no DE405 file or comet");
        return;
    }
    long long sequences = 0;
    for (auto _ : state) {
        ForceModel force(f.eph);
        force.SetRunEpoch(kFirstJd);
        Integrator integrator(force);
        integrator.Run(f.start, 365.25, nullptr);
        sequences += integrator.sequences();
    }
    // Seconds per accepted sequence.
    state.counters["per_sequence"] = benchmark::Counter(
        static_cast<double>(sequences), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.SetItemsProcessed(sequences);
}
BENCHMARK(BM_Sequence)->Unit(benchmark::kMillisecond);

// 1960-2060: 100 years of a Jupiter-family comet with its 1974 Jupiter passage.
void BM_Century(benchmark::State& state) {
    Fixture& f = Shared();
    if (!f.ok) {
        state.SkipWithError("no DE405 file or comet");
        return;
    }
    double steps = 0, evaluations = 0, fetches = 0, rectification = 0, wall = 0, cpu = 0;
    for (auto _ : state) {
        ForceModel force(f.eph);
        force.SetRunEpoch(kFirstJd);
        Integrator integrator(force);
        integrator.SetMeasureRectification(true);
        const auto begin = std::chrono::steady_clock::now();
        const std::clock_t cpuBegin = std::clock();
        integrator.Run(f.start, kCentury, nullptr);
        cpu += static_cast<double>(std::clock() - cpuBegin) / CLOCKS_PER_SEC;
        wall += std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
        steps += static_cast<double>(integrator.sequences());
        evaluations += static_cast<double>(force.evaluations());
        fetches += static_cast<double>(force.planetFetches());
        rectification += integrator.rectificationSeconds();
    }
    const double runs = static_cast<double>(state.iterations());
    state.counters["steps"] = steps / runs;
    state.counters["force_evaluations"] = evaluations / runs;
    state.counters["planet_fetches"] = fetches / runs;
    state.counters["ms_per_year"] = 1000.0 * wall / runs / 100.0;
    // The machine may be shared: processor time is the steadier figure.
    state.counters["cpu_ms_per_year"] = 1000.0 * cpu / runs / 100.0;
    state.counters["rectification_share"] = rectification / wall;
    state.counters["rectification_us_per_step"] = 1e6 * rectification / steps;
}
BENCHMARK(BM_Century)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
