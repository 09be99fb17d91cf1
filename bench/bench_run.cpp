// Cost of a calculation run with the text left out (a null hook): daily
// ephemerides for ten years of 300 comets in one combined run, and one comet
// at a one-minute step for a month. Reports lines per second and the time
// per comet-year.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "astro/calendar.h"
#include "dynamics/calculation_run.h"

namespace {

using namespace orvane;

const std::string kShared = ORVANE_SHARED_DIR;
constexpr double kEpoch = 2460560.5;  // 2024-09-07, the MPC epoch of the list

double Field(const std::string& line, std::size_t from, std::size_t to) {
    if (line.size() < to) return 0.0;
    return std::strtod(line.substr(from - 1, to - from + 1).c_str(), nullptr);
}

struct NullHooks : RunHooks {
    long long lines = 0;
    bool EmitEphemerisHeader(int, const RunObject&, const EphemerisLine&) override { return true; }
    void EmitEphemerisLine(int, const RunObject&, const EphemerisLine&) override { ++lines; }
    void EmitEphemerisTrailer(int, const RunObject&) override {}
    long long EphemerisFileBytes() override { return 0; }
    void StopEphemerisFile() override {}
    void EmitApproachRows(int, const RunObject&, const std::vector<ApproachRow>&) override {}
    void DrawOrbitFrame(int, const RunObject&, const BodyStatesResult&) override {}
    void ShowObjectLabel(TaskKind, int, int) override {}
    void ShowStatus(RunStatus) override {}
    void SetProgressRange(int) override {}
    void StepProgress() override {}
    void ShowRemainingTime(int, int, int) override {}
    void ShowLeftSolarSystem(const std::string&) override {}
    bool AskContinueWithoutFile(int) override { return true; }
    void ShowFileOpenFailure() override {}
    void ReportNoCloseApproaches() override {}
    void RunStarted() override {}
    void EndRun() override {}
};

// The first `count` comets of the MPC list with an epoch of 2024-09-07.
std::vector<RunObject> Comets(std::size_t count, double days) {
    std::vector<RunObject> objects;
    std::ifstream in(kShared + "/reference/CometEls.txt");
    std::string line;
    while (objects.size() < count && std::getline(in, line)) {
        if (line.size() < 103 || line.compare(81, 8, "20240907") != 0) continue;
        const double tp = CalendarToJulian(static_cast<int>(Field(line, 15, 18)),
                                           static_cast<int>(Field(line, 20, 21)), Field(line, 23, 29));
        const double q = Field(line, 31, 39), e = Field(line, 42, 49);
        if (q <= 0.0) continue;
        RunObject o;
        o.name = line.substr(102, 56);
        o.block = BlockFromElements(kEpoch, tp, q, e, Field(line, 52, 59), Field(line, 62, 69),
                                    Field(line, 72, 79), NonGravity{});
        o.epochBlock = o.block;
        o.targetTime = kEpoch + days;
        o.H = Field(line, 92, 95);
        o.G = Field(line, 97, 100);
        objects.push_back(o);
    }
    return objects;
}

void RunTask(benchmark::State& state, std::size_t comets, double days, int stepSize, int stepUnit) {
    Ephemeris eph;
    if (eph.OpenEphemerisFile(kShared + "/ephemerides/de405-1960-2060.dat") != EphemerisStatus::Ok) {
        state.SkipWithError("no planetary file");
        return;
    }
    const std::vector<RunObject> objects = Comets(comets, days);
    long long lines = 0;
    for (auto _ : state) {
        TaskRun run;
        run.task = TaskKind::Ephemerides;
        run.options.calculateEphemerides = true;
        run.options.stepSize = stepSize;
        run.options.stepUnit = stepUnit;
        run.objects = objects;
        run.first = 0;
        run.last = static_cast<int>(objects.size()) - 1;
        NullHooks hooks;
        CalculationRun(run, eph, hooks).Execute();
        lines += hooks.lines;
    }
    const double cometYears = static_cast<double>(objects.size()) * days / 365.25;
    state.counters["comets"] = static_cast<double>(objects.size());
    state.counters["lines_per_s"] = benchmark::Counter(static_cast<double>(lines), benchmark::Counter::kIsRate);
    state.counters["s_per_comet_year"] = benchmark::Counter(
        cometYears * static_cast<double>(state.iterations()),
        benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void BM_DailyTenYears300Comets(benchmark::State& state) { RunTask(state, 300, 3652.5, 1, 0); }
BENCHMARK(BM_DailyTenYears300Comets)->Unit(benchmark::kSecond)->Iterations(1);

void BM_OneCometMinutesForAMonth(benchmark::State& state) { RunTask(state, 1, 30.0, 1, 2); }
BENCHMARK(BM_OneCometMinutesForAMonth)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
