#pragma once
// The calculation thread of a task: takes the objects of a TaskRun in turn,
// integrates each over its span and, after each accepted step, looks for
// perihelion passages and the stop conditions, samples the ephemeris at equal
// steps, draws diagram frames, and keeps the close-approach book, progress
// and the remaining time. Text, files and windows are reached through
// RunHooks.
#include <functional>
#include <thread>

#include "astro/twobody.h"
#include "dynamics/ephemeris.h"
#include "dynamics/run_hooks.h"
#include "dynamics/task_run.h"

namespace orvane {

// year * 10000 + month * 100 + day with its fraction: the calendar date as
// the block holds it.
double CalendarNumber(double jd);

// The block of an instant from the state there (elements follow from it).
IntegrationBlock MakeIntegrationBlock(double jd, const StateVector& state, const NonGravity& ng);

// The block of a catalogue epoch from the record's perihelion time, q, e and
// angles (degrees, ecliptic J2000) and its non-gravitational values.
IntegrationBlock BlockFromElements(double epoch, double Tp, double q, double e, double omega,
                                   double node, double i, const NonGravity& ng);

// How the run of one object ended.
enum class ObjectEnd {
    Done,            // the span is covered (or empty)
    LeftSolarSystem, // the stop message was shown; the run goes on with the next object
    Stopped,         // the user's Stop, or No to the file question: the run ends
    Refused,         // the integrator refused the first step: the run ends
    FileFailed,      // the ephemeris file could not be created: the run ends
};

class CalculationRun {
public:
    CalculationRun(TaskRun& run, Ephemeris& ephemeris, RunHooks& hooks);

    // Seconds of the day of the clock the remaining time is estimated from;
    // the system's UTC clock unless a test sets another.
    void SetClock(std::function<double()> secondsOfDay) { clock_ = std::move(secondsOfDay); }

    // The thread body: every object of the range, then the end work, which is
    // done in every case. Clears running and the stop flags as its last act.
    void Execute();

    // One object (index into run.objects; ordinal from 1 of total).
    ObjectEnd RunObjectSpan(int index, int ordinal, int total);

private:
    TaskRun& run_;
    Ephemeris& ephemeris_;
    RunHooks& hooks_;
    std::function<double()> clock_;
};

// Sets running and starts the thread; the caller joins it.
std::thread StartCalculation(TaskRun& run, Ephemeris& ephemeris, RunHooks& hooks);

}  // namespace orvane
