// The calculation run: spans, sampling, perihelion passages, the
// close-approach book, the stop tests, the file limit, progress, pause and
// stop, with a recording fake in place of the windows and the writer.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>

#include "astro/constants.h"
#include "dynamics/approach_book.h"
#include "dynamics/calculation_run.h"
#include "dynamics/radau.h"
#include "run_recording_hooks.h"
#include "support/temp_home.h"

namespace orvane {
namespace {

constexpr double kStart = 2451545.0;

class RunTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(eph.OpenEphemerisFile(testing::sharedPath("ephemerides/de405-1960-2060.dat")),
                  EphemerisStatus::Ok);
    }

    static RunObject Comet(const std::string& name, double e, double q, double tp, double span) {
        RunObject o;
        o.name = name;
        o.block = BlockFromElements(kStart, tp, q, e, 10.0, 20.0, 5.0, NonGravity{});
        o.epochBlock = o.block;
        o.targetTime = kStart + span;
        return o;
    }

    void Run(TaskKind task) {
        run.task = task;
        run.first = 0;
        run.last = static_cast<int>(run.objects.size()) - 1;
        CalculationRun calculation(run, eph, hooks);
        if (clock) calculation.SetClock(clock);
        calculation.Execute();
    }

    StateVector Direct(const RunObject& o, double days) {
        ForceModel force(eph);
        force.SetRunEpoch(o.block.time);
        Integrator integrator(force);
        StateVector end;
        integrator.Run({o.block.x, o.block.y, o.block.z, o.block.vx, o.block.vy, o.block.vz}, days,
                       [&](const StepReport& r) {
                           end = r.state;
                           return true;
                       });
        return end;
    }

    Ephemeris eph;
    TaskRun run;
    testing::RecordingHooks hooks;
    std::function<double()> clock;
};

TEST_F(RunTest, SpanWithoutSamplePointGivesHeaderAndTrailerOnly) {
    run.options.calculateEphemerides = true;
    run.objects.push_back(Comet("C/2000 A1 (Short)", 0.6, 1.0, kStart + 30.0, 0.5));
    Run(TaskKind::Ephemerides);
    EXPECT_TRUE(hooks.lines.empty());
    ASSERT_EQ(hooks.headers.size(), 1u);
    EXPECT_EQ(hooks.headers[0].jd, kStart);
    const std::vector<std::string> expected = {"start",   "status prepare", "label 1/1", "header",
                                               "rows",    "trailer",        "status ready", "end"};
    EXPECT_EQ(hooks.calls, expected);
    EXPECT_EQ(run.running, 0);
    EXPECT_EQ(run.stoppable, 0);
    // The block now holds the end of the span.
    EXPECT_EQ(run.objects[0].block.time, kStart + 0.5);
}

TEST_F(RunTest, StepLargerThanTheIntegratorsStepsInterpolatesAcrossOneStep) {
    run.options.calculateEphemerides = true;
    run.options.stepSize = 10;
    run.options.ephemerisType = 1;
    run.options.coordinateKind = 1;
    run.options.centralBody = 3;
    run.options.observerPlace = 0;
    run.objects.push_back(Comet("C/2000 A2 (Step)", 0.6, 1.0, kStart + 30.0, 100.0));
    const RunObject start = run.objects[0];
    Run(TaskKind::Ephemerides);
    ASSERT_EQ(hooks.lines.size(), 10u);
    double worst = 0.0;
    for (std::size_t k = 0; k < 10; ++k) {
        const EphemerisLine& line = hooks.lines[k];
        const double days = 10.0 * static_cast<double>(k + 1);
        EXPECT_EQ(line.jd, kStart + days);
        const StateVector direct = Direct(start, days);
        worst = std::max(worst, std::hypot(line.state.x - direct.x, line.state.y - direct.y,
                                           line.state.z - direct.z));
        // Geometric, around the Earth: the comet less the Earth of the file.
        State9 earth{};
        ASSERT_EQ(eph.RelativeState(line.jd, 3, 11, earth), EphemerisStatus::Ok);
        EXPECT_NEAR(line.position.x, line.state.x - earth[0], 1e-14);
        EXPECT_NEAR(line.position.y, line.state.y - earth[1], 1e-14);
        EXPECT_NEAR(line.position.z, line.state.z - earth[2], 1e-14);
    }
    std::printf("sampled lines against direct integration: worst %.3e AU\n", worst);
    // Linear interpolation of elements across one step of a few days.
    EXPECT_LT(worst, 1e-7);
}

TEST_F(RunTest, LinesFallOnEqualStepsAndMatchTheIntegratorAtStepEnds) {
    run.options.calculateEphemerides = true;
    run.options.stepSize = 6;
    run.options.stepUnit = 1;  // hours
    run.objects.push_back(Comet("C/2000 A3 (Hours)", 0.6, 1.0, kStart + 30.0, 3.0));
    Run(TaskKind::Ephemerides);
    ASSERT_EQ(hooks.lines.size(), 12u);
    for (std::size_t k = 0; k < 12; ++k)
        EXPECT_DOUBLE_EQ(hooks.lines[k].jd, kStart + 0.25 * static_cast<double>(k + 1));
}

TEST_F(RunTest, HyperbolicOrbitHasItsBorderAtPerihelionAndOneAppearance) {
    RunObject o = Comet("C/2000 H1 (Hyperbolic)", 1.05, 0.9, kStart + 40.0, 120.0);
    EXPECT_EQ(o.block.P, 0.0);
    run.objects.push_back(o);
    Run(TaskKind::CloseApproaches);
    ASSERT_EQ(hooks.rowSets.size(), 1u);
    int perihelia = 0, appearances = 0;
    for (const ApproachRow& row : hooks.rowSets[0]) {
        if (row.kind == kApproachPerihelion) {
            ++perihelia;
            EXPECT_NEAR(row.time, kStart + 40.0, 0.01);
            EXPECT_NEAR(row.distance, 0.9, 2e-4);
        }
        if (row.kind == kApproachEarthAppearance) {
            ++appearances;
            std::printf("appearance row %.6f AU at start + %.4f days\n", row.distance, row.time - kStart);
            // Refined from the last closest place before the border, over one step.
            EXPECT_LE(row.time, kStart + 40.0 + 10.0);
        }
    }
    EXPECT_EQ(perihelia, 1);
    EXPECT_EQ(appearances, 1);
    EXPECT_EQ(hooks.noApproaches, 0);
}

TEST_F(RunTest, BookBorderOfAHyperbolaIsItsPerihelion) {
    ForceModel force(eph);
    std::vector<ApproachRow> rows;
    ApproachBook book(force, rows);
    const RunObject o = Comet("C/2000 H2", 1.05, 0.9, kStart + 40.0, 120.0);
    book.Start(1, o.block.Tp + 1 * o.block.P * kHalfTropicalYear);
    EXPECT_EQ(book.border(), kStart + 40.0);
    EXPECT_TRUE(book.appearanceOpen());
    // After the passage the border is behind: the book stays closed.
    book.SetAppearanceBorder(kStart + 40.0, kStart + 45.0);
    EXPECT_FALSE(book.appearanceOpen());
    book.SetAppearanceBorder(kStart + 2000.0, kStart + 45.0);
    EXPECT_TRUE(book.appearanceOpen());
}

TEST_F(RunTest, CometInsideAnEarthZoneAtStartOpensARowAtTheFirstEvaluation) {
    ForceModel force(eph);
    force.SetRunEpoch(kStart);
    State9 earth{};
    ASSERT_EQ(eph.RelativeState(kStart, 3, 11, earth), EphemerisStatus::Ok);
    ReferenceOrbit ref;
    for (std::size_t k = 0; k < 3; ++k) {
        ref.r[k] = earth[k] + (k == 0 ? 0.2 : 0.0);
        ref.v[k] = earth[k + 3];
    }
    force.SetReferenceOrbit(ref);
    std::vector<ApproachRow> rows;
    ApproachBook book(force, rows);
    book.Start(1, kStart + 1000.0);
    force.SetCloseApproachHook(&book);
    Vector3 a{};
    force.EvaluateForce({0, 0, 0}, {0, 0, 0}, 0.0, a);
    const ApproachZone& zone = book.zone(3);
    EXPECT_TRUE(zone.inside);
    EXPECT_EQ(zone.entries, 1);
    ASSERT_EQ(zone.passages.size(), 1u);
    EXPECT_EQ(zone.passages[0].time, 0.0);
    EXPECT_NEAR(zone.passages[0].distance, 0.2, 1e-12);
    EXPECT_TRUE(book.appearanceRowOpen());
    EXPECT_FALSE(book.zone(5).inside);
    EXPECT_TRUE(rows.empty());
}

TEST_F(RunTest, ZoneLimits) {
    EXPECT_EQ(ZoneEnter(1), 0.1);
    EXPECT_EQ(ZoneLeave(2), 0.5);
    EXPECT_EQ(ZoneEnter(3), 0.5);
    EXPECT_EQ(ZoneLeave(3), 1.0);
    EXPECT_EQ(ZoneEnter(4), 0.1);
    EXPECT_EQ(ZoneEnter(5), 2.0);
    EXPECT_EQ(ZoneLeave(9), 2.5);
}

TEST_F(RunTest, CometBeyond150AuThatRecedesHasLeftTheSolarSystemForEachObject) {
    for (const char* name : {"C/2000 X1 (Far)", "C/2000 X2 (Far)"}) {
        RunObject o = Comet(name, 1.2, 1.0, kStart - 20000.0, 3000.0);
        run.objects.push_back(o);
    }
    ASSERT_GT(std::hypot(run.objects[0].block.x, run.objects[0].block.y, run.objects[0].block.z), 150.0);
    Run(TaskKind::CloseApproaches);
    ASSERT_EQ(hooks.leftNames.size(), 2u);
    EXPECT_EQ(hooks.leftNames[0], "C/2000 X1 (Far)");
    EXPECT_EQ(hooks.leftNames[1], "C/2000 X2 (Far)");
    // The span ended at the first step.
    EXPECT_LT(run.objects[0].block.time, kStart + 3000.0);
    // The border of a hyperbola long past perihelion is behind at the start:
    // the appearance closes at once, with the only row.
    for (const auto& rows : hooks.rowSets) {
        ASSERT_EQ(rows.size(), 1u);
        EXPECT_EQ(rows[0].kind, kApproachEarthAppearance);
    }
    EXPECT_EQ(hooks.calls.back(), "end");
}

TEST_F(RunTest, FileLimitYesGoesOnWithoutTheFile) {
    run.options.calculateEphemerides = true;
    run.options.maxFileSize = 1;
    hooks.bytesPerLine = 700000;
    run.objects.push_back(Comet("C/2000 F1", 0.6, 1.0, kStart + 30.0, 20.0));
    hooks.answerYes = true;
    Run(TaskKind::Ephemerides);
    EXPECT_EQ(hooks.questions, 1);
    EXPECT_EQ(hooks.lines.size(), 20u);
    EXPECT_EQ(std::count(hooks.calls.begin(), hooks.calls.end(), "stopFile"), 1);
    EXPECT_EQ(run.objects[0].block.time, kStart + 20.0);
}

TEST_F(RunTest, FileLimitNoStopsTheRun) {
    run.options.calculateEphemerides = true;
    run.options.maxFileSize = 1;
    hooks.bytesPerLine = 700000;
    run.objects.push_back(Comet("C/2000 F2", 0.6, 1.0, kStart + 30.0, 20.0));
    run.objects.push_back(Comet("C/2000 F3", 0.6, 1.0, kStart + 30.0, 20.0));
    hooks.answerYes = false;
    Run(TaskKind::Ephemerides);
    EXPECT_EQ(hooks.questions, 1);
    EXPECT_LT(hooks.lines.size(), 5u);
    EXPECT_EQ(std::count(hooks.calls.begin(), hooks.calls.end(), "header"), 1);
    EXPECT_EQ(hooks.calls.back(), "end");
    EXPECT_EQ(run.running, 0);
}

TEST_F(RunTest, ProgressCountsWholeDaysAndTheEstimateEndsAtZero) {
    double now = 1000.0;
    clock = [&now] { return now += 2.0; };
    run.objects.push_back(Comet("C/2000 P1", 0.6, 1.0, kStart + 30.0, 100.5));
    Run(TaskKind::CloseApproaches);
    EXPECT_EQ(hooks.progressRange, 100);
    EXPECT_EQ(hooks.progressSteps, 100);
    ASSERT_FALSE(hooks.remaining.empty());
    EXPECT_EQ(hooks.remaining.back(), 0);
}

TEST_F(RunTest, ClockGoingBackAtMidnightGivesNoEstimate) {
    double now = 86399.0;
    clock = [&now] { return now -= 2.0; };
    run.objects.push_back(Comet("C/2000 P2", 0.6, 1.0, kStart + 30.0, 10.0));
    Run(TaskKind::CloseApproaches);
    // Only the "0h 0m 0s" of the start.
    EXPECT_EQ(hooks.remaining, std::vector<int>{0});
}

TEST_F(RunTest, TheRunStartsWithPrepareAndAZeroEstimate) {
    run.objects.push_back(Comet("C/2000 P3", 0.6, 1.0, kStart + 30.0, 3.0));
    Run(TaskKind::CloseApproaches);
    ASSERT_GE(hooks.calls.size(), 3u);
    EXPECT_EQ(hooks.calls[1], "status prepare");
    ASSERT_FALSE(hooks.remaining.empty());
    EXPECT_EQ(hooks.remaining.front(), 0);
    EXPECT_EQ(hooks.calls[hooks.calls.size() - 2], "status ready");
}

TEST_F(RunTest, EachFinishedObjectEstimatesTheOthersByItsOwnClockTime) {
    // Each reading of the clock moves it on by 10 s; three objects of a day,
    // which the integrator covers in a few steps.
    double now = 1000.0;
    clock = [&now] { return now += 10.0; };
    for (const char* name : {"C/2000 Q1", "C/2000 Q2", "C/2000 Q3"}) {
        run.objects.push_back(Comet(name, 0.6, 1.0, kStart + 30.0, 1.0));
    }
    Run(TaskKind::CloseApproaches);
    // The estimates given when an object's rows are out: the objects are alike
    // and read the clock equally often, so the first leaves twice the time of
    // the second, and the last leaves none.
    std::vector<int> closing;
    for (std::size_t i = 0; i < hooks.remaining.size(); ++i) {
        if (hooks.remainingAfter[i] == "rows") closing.push_back(hooks.remaining[i]);
    }
    ASSERT_EQ(closing.size(), 3u);
    EXPECT_GT(closing[1], 0);
    EXPECT_EQ(closing[1] % 10, 0);
    EXPECT_EQ(closing[0], 2 * closing[1]);
    EXPECT_EQ(closing[2], 0);
}

TEST_F(RunTest, AnEphemerisFileThatCannotBeMadeEndsTheRun) {
    run.options.calculateEphemerides = true;
    hooks.headerOpens = false;
    run.objects.push_back(Comet("C/2000 R1", 0.6, 1.0, kStart + 30.0, 20.0));
    run.objects.push_back(Comet("C/2000 R2", 0.6, 1.0, kStart + 30.0, 20.0));
    Run(TaskKind::Ephemerides);
    const std::vector<std::string> expected = {"start", "status prepare", "label 1/2", "header",
                                               "fileFailed", "status ready", "end"};
    EXPECT_EQ(hooks.calls, expected);
    EXPECT_TRUE(hooks.lines.empty());
    EXPECT_EQ(run.running, 0);
}

TEST_F(RunTest, IntegrateFromTheEpochWhenItIsCloser) {
    run.options.integrateFromEpoch = true;
    RunObject o = Comet("C/2000 E1", 0.6, 1.0, kStart + 30.0, 10.0);
    o.block = BlockFromElements(kStart - 400.0, kStart + 30.0, 1.0, 0.6, 10.0, 20.0, 5.0, NonGravity{});
    run.objects.push_back(o);
    run.options.calculateEphemerides = true;
    Run(TaskKind::Ephemerides);
    EXPECT_TRUE(run.objects[0].startedFromOtherBlock);
    ASSERT_EQ(hooks.headers.size(), 1u);
    EXPECT_EQ(hooks.headers[0].jd, kStart);
    EXPECT_EQ(hooks.lines.size(), 10u);
}

TEST_F(RunTest, DiagramFramesFollowTheRateStride) {
    run.rate = 1;  // a frame every 365 days, no wait
    run.objects.push_back(Comet("C/2000 D1", 0.6, 1.0, kStart + 30.0, 800.0));
    Run(TaskKind::OrbitDiagrams);
    EXPECT_EQ(hooks.frames, 2);
    // A run at "Rate: max" leaves the next one at "Rate: x320".
    EXPECT_EQ(run.rate, 2);
}

TEST_F(RunTest, RateTables) {
    EXPECT_EQ(FrameInterval(1, true), 365.0);
    EXPECT_EQ(FrameInterval(2, false), 0.14);
    EXPECT_EQ(FrameInterval(8, true), 2.0);
    EXPECT_EQ(FrameWaitMilliseconds(3, true), 10);
    EXPECT_EQ(FrameWaitMilliseconds(3, false), 8);
    EXPECT_EQ(FrameWaitMilliseconds(8, true), 320);
    EXPECT_EQ(FrameWaitMilliseconds(8, false), 256);
    EXPECT_EQ(FrameWaitMilliseconds(2, true), 0);
}

TEST_F(RunTest, PauseHoldsTheThreadAndStopEndsIt) {
    run.options.calculateEphemerides = true;
    run.options.stepUnit = 2;  // one line a minute
    run.objects.push_back(Comet("C/2000 S1", 0.6, 1.0, kStart + 30.0, 3000.0));
    run.objects.push_back(Comet("C/2000 S2", 0.6, 1.0, kStart + 30.0, 3000.0));
    run.task = TaskKind::Ephemerides;
    run.first = 0;
    run.last = 1;
    std::thread worker = StartCalculation(run, eph, hooks);
    while (run.stoppable == 0) std::this_thread::yield();
    run.Pause();
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_EQ(run.running, 1);
    run.RequestStop();
    worker.join();
    EXPECT_EQ(run.running, 0);
    EXPECT_EQ(run.paused, 0);
    EXPECT_EQ(run.stopRequested, 0);
    EXPECT_EQ(std::count(hooks.calls.begin(), hooks.calls.end(), "header"), 1);
    EXPECT_LT(run.objects[0].block.time, kStart + 3000.0);
}

TEST(RunBlocks, CalendarNumberAndBlockFromElements) {
    EXPECT_DOUBLE_EQ(CalendarNumber(2451545.0), 20000101.5);
    const IntegrationBlock b = BlockFromElements(kStart, kStart + 30.0, 1.0, 0.6, 10.0, 20.0, 5.0,
                                                 NonGravity{1.5, -0.2, 0.01, 3.0});
    EXPECT_DOUBLE_EQ(b.a, 2.5);
    EXPECT_NEAR(b.P, std::pow(2.5, 1.5) * 365.25 / 365.25, 0.01);
    EXPECT_EQ(b.A1, 1.5);
    EXPECT_EQ(b.NGE_DT, 3.0);
    const IntegrationBlock back = MakeIntegrationBlock(kStart, {b.x, b.y, b.z, b.vx, b.vy, b.vz}, NonGravity{});
    EXPECT_NEAR(back.q, 1.0, 1e-12);
    EXPECT_NEAR(back.e, 0.6, 1e-12);
    EXPECT_NEAR(back.Tp, kStart + 30.0, 1e-8);
}

}  // namespace
}  // namespace orvane
