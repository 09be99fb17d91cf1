// Speed of the ephemeris text: one data line of each table type, as the run asks
// for it once an output instant (lines per second in the "items" column), and a
// block of the close-approach list.
#include <benchmark/benchmark.h>

#include "tasks/approach_text.h"
#include "tasks/ephemeris_writer.h"

namespace {

using namespace orvane;

EphemerisLine sampleLine() {
    EphemerisLine l;
    l.jd = 2460560.5;
    l.firstCoordinate = 21.425197;
    l.secondCoordinate = -15.764056;
    l.firstRate = -20.3002;
    l.secondRate = -7.4335;
    l.totalMagnitude = 14.25;
    l.elongation = 154.222;
    l.phase = 5.6403;
    l.distance = 3.530132311325421;
    l.distanceRate = 0.01017347396296142;
    l.position = {1.25, -3.1, 0.4, 0.004, -0.011, 0.0007};
    l.centreDistance = 3.37;
    l.speed = 0.0118;
    l.moid = 0.62;
    l.osculating = {2459929.1, 1.597163, 0.537361, 6.414, 41.5722, 136.0939, 3.2373, 97.0171, 0.15365, 3.4523, 5.3074};
    l.hillSphereBody = 0;
    return l;
}

void lines(benchmark::State& state, int type, bool firstLine) {
    TaskOptions options;
    options.ephemerisType = type;
    const EphemerisWriter writer(options, TaskTexts{});
    const EphemerisLine line = sampleLine();
    std::string header, text;
    std::size_t length = 0;
    for (auto _ : state) {
        writer.makeLine(line, firstLine, header, text, length);
        benchmark::DoNotOptimize(text.data());
        benchmark::DoNotOptimize(length);
    }
    state.SetItemsProcessed(state.iterations());
}

void BM_SphericalLine(benchmark::State& state) { lines(state, 0, false); }
void BM_RectangularLine(benchmark::State& state) { lines(state, 1, false); }
void BM_OrbitalLine(benchmark::State& state) { lines(state, 2, false); }
void BM_SphericalHeaderAndLine(benchmark::State& state) { lines(state, 0, true); }

void BM_CloseApproachBlock(benchmark::State& state) {
    ObjectResults results;
    for (int i = 0; i < 100; ++i) results.rows.push_back({0.5 + i * 0.001, 2440587.5 + i * 30.0, 1 + i % 9});
    const TaskOptions options;
    const TaskTexts texts;
    for (auto _ : state) {
        std::string block = CloseApproachBlock("81P/Wild", results, options, texts);
        benchmark::DoNotOptimize(block.data());
    }
    state.SetItemsProcessed(state.iterations() * 100);
}

BENCHMARK(BM_SphericalLine);
BENCHMARK(BM_RectangularLine);
BENCHMARK(BM_OrbitalLine);
BENCHMARK(BM_SphericalHeaderAndLine);
BENCHMARK(BM_CloseApproachBlock);

}  // namespace

BENCHMARK_MAIN();
