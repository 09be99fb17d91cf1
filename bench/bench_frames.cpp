// Cost of the Earth-orientation routines of the output stage: nutation runs once per
// output line in the true frames, precession and Delta T beside it.
#include <benchmark/benchmark.h>

#include "astro/frames.h"
#include "astro/nutation.h"
#include "astro/timescales.h"

namespace {

void BM_NutationMatrices(benchmark::State& state) {
    double jd = 2451545.0;
    for (auto _ : state) {
        orvane::Nutation n = orvane::NutationMatrices(0, 0, jd);
        benchmark::DoNotOptimize(n);
        jd += 0.37;
    }
}
BENCHMARK(BM_NutationMatrices);

void BM_NutationMatricesWithRates(benchmark::State& state) {
    double jd = 2451545.0;
    for (auto _ : state) {
        orvane::Nutation n = orvane::NutationMatrices(0, 1, jd);
        benchmark::DoNotOptimize(n);
        jd += 0.37;
    }
}
BENCHMARK(BM_NutationMatricesWithRates);

void BM_PrecessionMatrix(benchmark::State& state) {
    double jd = 2451545.0;
    for (auto _ : state) {
        orvane::Precession p = orvane::PrecessionMatrix(0, jd);
        benchmark::DoNotOptimize(p);
        jd += 0.37;
    }
}
BENCHMARK(BM_PrecessionMatrix);

void BM_DeltaT(benchmark::State& state) {
    double year = 1821.0;
    for (auto _ : state) {
        double seconds = orvane::DeltaT(year);
        benchmark::DoNotOptimize(seconds);
        year += 0.013;
        if (year > 2013.0) year = 1821.0;
    }
}
BENCHMARK(BM_DeltaT);

void BM_TerrestrialToUniversal(benchmark::State& state) {
    double jd = 2440000.5;
    for (auto _ : state) {
        double ut = orvane::TerrestrialToUniversal(jd);
        benchmark::DoNotOptimize(ut);
        jd += 0.37;
    }
}
BENCHMARK(BM_TerrestrialToUniversal);

}  // namespace

BENCHMARK_MAIN();
