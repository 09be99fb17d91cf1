#include "dynamics/calculation_run.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>

#include "astro/calendar.h"
#include "astro/constants.h"
#include "dynamics/approach_book.h"
#include "dynamics/observables.h"
#include "dynamics/radau.h"

namespace orvane {
namespace {

// Seconds split with trunc into hours, minutes and seconds for the view.
void ShowRemainingSeconds(RunHooks& hooks, double seconds) {
    const double hours = std::trunc(seconds / 3600.0);
    const double minutes = std::trunc((seconds - hours * 3600.0) / 60.0);
    const double rest = std::trunc(seconds - hours * 3600.0 - minutes * 60.0);
    hooks.ShowRemainingTime(static_cast<int>(hours), static_cast<int>(minutes), static_cast<int>(rest));
}

constexpr double kLeaveDistance = 150.0;     // AU
constexpr double kLeaveMeanAnomaly = 35000.0;  // degrees
constexpr int kProgressLimit = 65535;
constexpr double kLongSpanUnit = 40.0;  // days a bar unit beyond 65535 days
constexpr double kMegabyte = 1048576.0;

double SystemSecondsOfDay() {
    const auto now = std::chrono::system_clock::now();
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count();
    return static_cast<double>(ms % 86400000) / 1000.0;
}

double Radius(const StateVector& s) { return std::sqrt(s.x * s.x + s.y * s.y + s.z * s.z); }

OrbitElements ElementsOf(const IntegrationBlock& b) {
    return {b.Tp, b.q, b.e, b.P, b.omega, b.node, b.i, b.M, b.n, b.a, b.Q};
}

StateVector StateOf(const IntegrationBlock& b) { return {b.x, b.y, b.z, b.vx, b.vy, b.vz}; }

double Interpolate(double prev, double now, double lastStep, double tau) {
    // The divisor is signed and tau is not: a backward run leans away from
    // the present value, as the program always did.
    return prev + ((now - prev) / lastStep) * tau;
}

// Everything one object's span keeps between steps.
class ObjectSpan {
public:
    ObjectSpan(TaskRun& run, Ephemeris& ephemeris, RunHooks& hooks, const std::function<double()>& clock,
               int index)
        : run_(run), ephemeris_(ephemeris), hooks_(hooks), clock_(clock), index_(index),
          object_(run.objects[static_cast<std::size_t>(index)]),
          rows_(run.rows[static_cast<std::size_t>(index)]), force_(ephemeris), book_(force_, rows_) {}

    ObjectEnd Run(int ordinal, int total);

private:
    void ChooseStart();
    void SetUp();
    void ShowProgressStart(int ordinal, int total);
    CometAtInstant Comet(const OrbitElements& elements, const StateVector& state) const;
    bool AfterStep(const StepReport& report);
    void PerihelionTest(const StepReport& report);
    bool StopTests(double r, double meanAnomaly);
    void SampleEphemeris(const OrbitElements& now, double t, double lastStep);
    bool FileLimit();
    void DiagramFrame(const StepReport& report, double t);
    void Progress(double t);
    bool EndOfStep();
    void EndWork();

    TaskRun& run_;
    Ephemeris& ephemeris_;
    RunHooks& hooks_;
    const std::function<double()>& clock_;
    int index_;
    RunObject& object_;
    std::vector<ApproachRow>& rows_;
    ForceModel force_;
    ApproachBook book_;

    double runEpoch_ = 0.0;
    double tf_ = 0.0;
    int dir_ = 0;
    double h_ = 1.0;
    bool ephemerides_ = false;
    bool fileStopped_ = false;

    // Perihelion passage in progress.
    bool passageOpen_ = false;
    double rMin_ = 0.0;
    double passageTp_ = 0.0;
    double passageBorder_ = 0.0;

    double rPrevious_ = 0.0;
    double mPrevious_ = 0.0;

    // Sampling.
    OrbitElements prev_;
    double tPrev_ = 0.0;
    long long outputs_ = 0;  // lines since the start; NextOut = outputs_ h

    // Diagram.
    double frameCounter_ = 0.0;

    // Progress and the remaining time.
    double unitDays_ = 1.0;
    long long unitsShown_ = 0;
    double markSeconds_ = 0.0;
    double markT_ = 0.0;

    StepReport last_;
    bool haveStep_ = false;
    ObjectEnd end_ = ObjectEnd::Done;
};

void ObjectSpan::ChooseStart() {
    object_.startedFromOtherBlock = false;
    if (!run_.options.integrateFromEpoch) return;
    const double target = object_.targetTime;
    if (std::fabs(target - object_.epochBlock.time) < std::fabs(target - object_.block.time)) {
        object_.block = object_.epochBlock;
        object_.startedFromOtherBlock = true;
    }
}

void ObjectSpan::SetUp() {
    const IntegrationBlock& b = object_.block;
    runEpoch_ = b.time;
    tf_ = object_.targetTime - b.time;
    dir_ = tf_ > 0.0 ? 1 : (tf_ < 0.0 ? -1 : 0);
    force_.SetRunEpoch(runEpoch_);
    force_.SetNonGravity({b.A1, b.A2, b.A3, b.NGE_DT});
    force_.SetLastStep(1.0);
    force_.SetCloseApproachHook(&book_);
    // The first instant near aphelion after the record's perihelion; a
    // hyperbola (P = 0) has its border at the perihelion itself.
    book_.Start(dir_, b.Tp + dir_ * b.P * kHalfTropicalYear);
    h_ = StepInDays(run_.options, run_.task);
    ephemerides_ = run_.task == TaskKind::Ephemerides;
    prev_ = ElementsOf(b);
    rPrevious_ = Radius(StateOf(b));
    mPrevious_ = std::fabs(b.M);
}

void ObjectSpan::ShowProgressStart(int ordinal, int total) {
    hooks_.ShowObjectLabel(run_.task, ordinal, total);
    const double days = std::floor(std::fabs(tf_));
    unitDays_ = days > kProgressLimit ? kLongSpanUnit : 1.0;
    hooks_.SetProgressRange(static_cast<int>(std::floor(std::fabs(tf_) / unitDays_)));
    markSeconds_ = clock_();
    markT_ = 0.0;
}

CometAtInstant ObjectSpan::Comet(const OrbitElements& elements, const StateVector& state) const {
    return {elements, state, object_.H, object_.G, object_.H2, object_.G2};
}

void ObjectSpan::PerihelionTest(const StepReport& report) {
    const double r = Radius(report.state);
    const double jd = runEpoch_ + report.tm;
    if (r < Radius(report.before) && r < Radius(report.after)) {
        if (!passageOpen_ || r < rMin_) {
            const OrbitElements el = ElementsFromState(jd, report.state, kGaussSquared, kObliquityJ2000);
            rMin_ = r;
            passageTp_ = el.Tp;
            if (dir_ != 0) passageBorder_ = el.Tp + dir_ * el.P * kHalfTropicalYear;
        }
        passageOpen_ = true;
    } else if (passageOpen_) {
        passageOpen_ = false;
        rows_.push_back({rMin_, passageTp_, kApproachPerihelion});
        book_.SetAppearanceBorder(passageBorder_, jd);
    }
}

bool ObjectSpan::StopTests(double r, double meanAnomaly) {
    const bool leaving = r > kLeaveDistance && r > rPrevious_;
    const bool wound = std::fabs(meanAnomaly) > kLeaveMeanAnomaly && std::fabs(meanAnomaly) > mPrevious_;
    if (leaving || wound) {
        hooks_.ShowLeftSolarSystem(object_.name);
        end_ = ObjectEnd::LeftSolarSystem;
        return true;
    }
    rPrevious_ = r;
    mPrevious_ = std::fabs(meanAnomaly);
    return false;
}

void ObjectSpan::SampleEphemeris(const OrbitElements& now, double t, double lastStep) {
    const double at = std::fabs(t);
    for (;;) {
        // NextOut counts whole steps from the start so that a long table of
        // small steps does not drift by adding h over and over.
        const double nextOut = static_cast<double>(outputs_ + 1) * h_;
        if (at < nextOut) break;
        ++outputs_;
        const double tau = nextOut - tPrev_;
        OrbitElements el;
        el.Tp = Interpolate(prev_.Tp, now.Tp, lastStep, tau);
        el.q = Interpolate(prev_.q, now.q, lastStep, tau);
        el.e = Interpolate(prev_.e, now.e, lastStep, tau);
        el.omega = Interpolate(prev_.omega, now.omega, lastStep, tau);
        el.node = Interpolate(prev_.node, now.node, lastStep, tau);
        el.i = Interpolate(prev_.i, now.i, lastStep, tau);
        const double tOut = runEpoch_ + dir_ * nextOut;
        const DerivedOrbit d = DerivedElements(tOut, el.Tp, el.q, el.e);
        el.P = d.P;
        el.M = d.M;
        el.n = d.n;
        el.a = d.a;
        el.Q = d.Q;
        GaussianGravity gravity;
        const StateVector state =
            StateFromElements(el.q, el.e, el.omega, el.node, el.i, el.M, el.a, 0.0, kObliquityJ2000, gravity);
        EphemerisLine line;
        PositionPipeline(Comet(el, state), run_.options, ephemeris_, tOut, line);
        hooks_.EmitEphemerisLine(index_, object_, line);
    }
    prev_ = now;
    tPrev_ = at;
}

bool ObjectSpan::FileLimit() {
    if (fileStopped_) return true;
    const double limit = run_.options.maxFileSize * kMegabyte;
    if (static_cast<double>(hooks_.EphemerisFileBytes()) <= limit) return true;
    if (hooks_.AskContinueWithoutFile(run_.options.maxFileSize)) {
        hooks_.StopEphemerisFile();
        fileStopped_ = true;
        return true;
    }
    end_ = ObjectEnd::Stopped;
    return false;
}

void ObjectSpan::DiagramFrame(const StepReport& report, double t) {
    frameCounter_ += std::fabs(report.step);
    const int rate = run_.rate;
    const bool longStep = h_ > 0.5;
    if (frameCounter_ <= FrameInterval(rate, longStep)) return;
    frameCounter_ = 0.0;
    const double jd = runEpoch_ + t;
    object_.block = MakeIntegrationBlock(jd, report.state, force_.nonGravity());
    BodyStatesResult planets;
    ephemeris_.BodyStates(jd, planets);
    hooks_.DrawOrbitFrame(index_, object_, planets);
    const int wait = FrameWaitMilliseconds(rate, longStep);
    if (wait > 0) std::this_thread::sleep_for(std::chrono::milliseconds(wait));
    run_.WaitWhilePaused();
}

void ObjectSpan::Progress(double t) {
    const double at = std::fabs(t);
    while (static_cast<double>(unitsShown_ + 1) * unitDays_ <= at) {
        ++unitsShown_;
        hooks_.StepProgress();
    }
    const double now = clock_();
    const double elapsed = now - markSeconds_;
    // A run that crosses midnight sees a negative time and gives no update.
    if (elapsed > 1.0 && at > markT_) {
        const double seconds = (std::fabs(tf_) - at) * elapsed / (at - markT_);
        ShowRemainingSeconds(hooks_, seconds);
        markSeconds_ = now;
        markT_ = at;
    }
}

bool ObjectSpan::EndOfStep() {
    run_.WaitWhilePaused();
    if (run_.stopRequested == 1) {
        end_ = ObjectEnd::Stopped;
        return false;
    }
    return true;
}

bool ObjectSpan::AfterStep(const StepReport& report) {
    last_ = report;
    haveStep_ = true;
    const double t = report.tm;
    PerihelionTest(report);
    const OrbitElements now = ElementsFromState(runEpoch_ + t, report.state, kGaussSquared, kObliquityJ2000);
    if (StopTests(Radius(report.state), now.M)) return false;
    if (ephemerides_ && run_.options.calculateEphemerides) {
        SampleEphemeris(now, t, report.step);
        if (!FileLimit()) return false;
    }
    if (run_.task == TaskKind::OrbitDiagrams) DiagramFrame(report, t);
    Progress(t);
    return EndOfStep();
}

void ObjectSpan::EndWork() {
    if (haveStep_) {
        object_.block = MakeIntegrationBlock(runEpoch_ + last_.tm, last_.state, force_.nonGravity());
    }
    hooks_.EmitApproachRows(index_, object_, rows_);
    if (ephemerides_) hooks_.EmitEphemerisTrailer(index_, object_);
}

ObjectEnd ObjectSpan::Run(int ordinal, int total) {
    ChooseStart();
    SetUp();
    run_.intervalState[static_cast<std::size_t>(index_)] = dir_ == 0 ? 1 : 0;
    ShowProgressStart(ordinal, total);
    if (ephemerides_) {
        EphemerisLine first;
        const IntegrationBlock& b = object_.block;
        PositionPipeline(Comet(ElementsOf(b), StateOf(b)), run_.options, ephemeris_, runEpoch_, first);
        if (!hooks_.EmitEphemerisHeader(index_, object_, first)) {
            hooks_.ShowFileOpenFailure();
            return ObjectEnd::FileFailed;
        }
    }
    if (dir_ != 0) {
        Integrator integrator(force_);
        const IntegrationStatus status =
            integrator.Run(StateOf(object_.block), tf_, [this](const StepReport& r) { return AfterStep(r); });
        if (status == IntegrationStatus::Refused) end_ = ObjectEnd::Refused;
    }
    EndWork();
    return end_;
}

}  // namespace

double CalendarNumber(double jd) {
    const CalendarDate d = JulianToCalendar(jd);
    const double sign = d.year < 0 ? -1.0 : 1.0;
    return sign * (std::fabs(static_cast<double>(d.year)) * 10000.0 + d.month * 100.0 + d.day);
}

namespace {

// The block of an instant from its elements and state.
IntegrationBlock BlockOf(double jd, const OrbitElements& el, const StateVector& state, const NonGravity& ng) {
    IntegrationBlock b;
    b.time = jd;
    b.timeCalendar = CalendarNumber(jd);
    b.Tp = el.Tp;
    b.TpCalendar = CalendarNumber(el.Tp);
    b.q = el.q;
    b.e = el.e;
    b.P = el.P;
    b.omega = el.omega;
    b.node = el.node;
    b.i = el.i;
    b.M = el.M;
    b.n = el.n;
    b.a = el.a;
    b.Q = el.Q;
    b.x = state.x;
    b.y = state.y;
    b.z = state.z;
    b.vx = state.vx;
    b.vy = state.vy;
    b.vz = state.vz;
    b.A1 = ng.A1;
    b.A2 = ng.A2;
    b.A3 = ng.A3;
    b.NGE_DT = ng.dt;
    return b;
}

}  // namespace

IntegrationBlock MakeIntegrationBlock(double jd, const StateVector& state, const NonGravity& ng) {
    return BlockOf(jd, ElementsFromState(jd, state, kGaussSquared, kObliquityJ2000), state, ng);
}

IntegrationBlock BlockFromElements(double epoch, double Tp, double q, double e, double omega, double node,
                                   double i, const NonGravity& ng) {
    const DerivedOrbit d = DerivedElements(epoch, Tp, q, e);
    GaussianGravity gravity;
    const StateVector s = StateFromElements(q, e, omega, node, i, d.M, d.a, 0.0, kObliquityJ2000, gravity);
    return BlockOf(epoch, {Tp, q, e, d.P, omega, node, i, d.M, d.n, d.a, d.Q}, s, ng);
}

CalculationRun::CalculationRun(TaskRun& run, Ephemeris& ephemeris, RunHooks& hooks)
    : run_(run), ephemeris_(ephemeris), hooks_(hooks), clock_(SystemSecondsOfDay) {}

ObjectEnd CalculationRun::RunObjectSpan(int index, int ordinal, int total) {
    if (index < 0 || index >= static_cast<int>(run_.objects.size())) return ObjectEnd::Done;
    if (run_.rows.size() < run_.objects.size()) run_.rows.resize(run_.objects.size());
    if (run_.intervalState.size() < run_.objects.size()) run_.intervalState.resize(run_.objects.size(), 1);
    ObjectSpan span(run_, ephemeris_, hooks_, clock_, index);
    return span.Run(ordinal, total);
}

void CalculationRun::Execute() {
    run_.running = 1;
    run_.stoppable = 1;
    hooks_.RunStarted();
    hooks_.ShowStatus(RunStatus::Prepare);
    hooks_.ShowRemainingTime(0, 0, 0);
    const int count = static_cast<int>(run_.objects.size());
    run_.rows.assign(run_.objects.size(), {});
    run_.intervalState.assign(run_.objects.size(), 1);
    const int first = std::max(0, run_.first);
    const int last = std::min(count - 1, run_.last);
    const int total = last - first + 1;
    bool anyRow = false;
    for (int index = first; index <= last; ++index) {
        const double started = clock_();
        const ObjectEnd end = RunObjectSpan(index, index - first + 1, total);
        if (!run_.rows[static_cast<std::size_t>(index)].empty()) anyRow = true;
        // The clock time of this object, for each object still to come; a run
        // that crossed midnight sees a negative time and gives no estimate.
        const double spent = clock_() - started;
        if (spent >= 0.0) ShowRemainingSeconds(hooks_, spent * static_cast<double>(last - index));
        if (end == ObjectEnd::Stopped || end == ObjectEnd::Refused || end == ObjectEnd::FileFailed) break;
    }
    if (run_.task == TaskKind::CloseApproaches && !anyRow) hooks_.ReportNoCloseApproaches();
    hooks_.ShowStatus(RunStatus::Ready);
    hooks_.EndRun();
    if (run_.rate == 1) run_.rate = 2;
    run_.paused = 0;
    run_.stopRequested = 0;
    run_.stoppable = 0;
    run_.running = 0;
}

std::thread StartCalculation(TaskRun& run, Ephemeris& ephemeris, RunHooks& hooks) {
    run.running = 1;
    return std::thread([&run, &ephemeris, &hooks] {
        CalculationRun calculation(run, ephemeris, hooks);
        calculation.Execute();
    });
}

}  // namespace orvane
