// One BodyStates call (all planets, the Moon and the Earth-Moon barycentre, as
// the force model asks for them), inside one record and with a record change.
#include <benchmark/benchmark.h>

#include <string>

#include "dynamics/ephemeris.h"

namespace {

const std::string kFile = std::string(ORVANE_SHARED_DIR) + "/ephemerides/de405-1960-2060.dat";

void BodyStatesSameRecord(benchmark::State& state) {
    orvane::Ephemeris eph;
    if (eph.OpenEphemerisFile(kFile) != orvane::EphemerisStatus::Ok) {
        state.SkipWithError("cannot open the DE405 file");
        return;
    }
    orvane::BodyStatesResult out;
    double jd = 2451545.0;
    for (auto _ : state) {
        // Two instants of one record, so the polynomials are rebuilt each call.
        jd = jd == 2451545.0 ? 2451545.3 : 2451545.0;
        benchmark::DoNotOptimize(eph.BodyStates(jd, out));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BodyStatesSameRecord);

void BodyStatesRecordChange(benchmark::State& state) {
    orvane::Ephemeris eph;
    if (eph.OpenEphemerisFile(kFile) != orvane::EphemerisStatus::Ok) {
        state.SkipWithError("cannot open the DE405 file");
        return;
    }
    orvane::BodyStatesResult out;
    double jd = 2451545.0;
    for (auto _ : state) {
        // Neighbouring records in turn: every call reads one record.
        jd = jd == 2451545.0 ? 2451577.0 : 2451545.0;
        benchmark::DoNotOptimize(eph.BodyStates(jd, out));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BodyStatesRecordChange);

}  // namespace

BENCHMARK_MAIN();
