#pragma once
// What a calculation run tells the outside: the ephemeris text and file, the
// close-approach rows, the diagram, and the view (labels, progress, remaining
// time, messages and questions). The run calls these on its own thread; the
// program's implementation passes them to the windows, tests record them.
#include <string>
#include <vector>

#include "dynamics/ephemeris_line.h"
#include "dynamics/ephemeris.h"
#include "dynamics/run_types.h"
#include "dynamics/task_options.h"

namespace orvane {

enum class RunStatus { Prepare, Ready };

class RunHooks {
public:
    // Ephemeris text and file. The header opens the object's table (and its
    // file when the file is its own) with `first`, the line of the run's start
    // instant, as its first data line; each later line is one output instant; the
    // trailer writes the closing rule and closes the object's file, unless
    // all objects share one file, which EndRun closes. The header answers false
    // when the file could not be created: the run then reports it and ends.
    virtual bool EmitEphemerisHeader(int objectIndex, const RunObject& object,
                                     const EphemerisLine& first) = 0;
    virtual void EmitEphemerisLine(int objectIndex, const RunObject& object,
                                   const EphemerisLine& line) = 0;
    virtual void EmitEphemerisTrailer(int objectIndex, const RunObject& object) = 0;
    // Size in bytes of the ephemeris file being written; 0 when none is open.
    virtual long long EphemerisFileBytes() = 0;
    // After the user chose to go on without the file: closing rule, close,
    // and no more writing in this run.
    virtual void StopEphemerisFile() = 0;

    // The rows of one object when its span is done, in order of completion.
    virtual void EmitApproachRows(int objectIndex, const RunObject& object,
                                  const std::vector<ApproachRow>& rows) = 0;

    // One frame of the diagram: the object's block holds the present elements
    // and state, `planets` the bodies at the same instant.
    virtual void DrawOrbitFrame(int objectIndex, const RunObject& object,
                                const BodyStatesResult& planets) = 0;

    // The view. Ordinal counts from 1 ("1st ... of 3").
    virtual void ShowObjectLabel(TaskKind task, int ordinal, int total) = 0;
    // "Status: Prepare..." at the start of a run, "Status: Ready..." at its end.
    virtual void ShowStatus(RunStatus status) = 0;
    // Range in units of the bar: whole days of the span, or units of 40 days
    // when that is above 65535.
    virtual void SetProgressRange(int units) = 0;
    virtual void StepProgress() = 0;
    virtual void ShowRemainingTime(int hours, int minutes, int seconds) = 0;
    // The modal "Comet <name> has left the Solar System!" message; returns on OK.
    virtual void ShowLeftSolarSystem(const std::string& name) = 0;
    // The Yes/No question of the full ephemeris file; true for Yes (go on
    // without writing), false for No (stop the run).
    virtual bool AskContinueWithoutFile(int limitMegabytes) = 0;
    // The header could not create its file (the hooks know which); the run
    // ends after this.
    virtual void ShowFileOpenFailure() = 0;
    // "No close-approaches were found in selected interval..." at the end of a
    // Close Approaches run with an empty book.
    virtual void ReportNoCloseApproaches() = 0;
    // The run's start (buttons, close box) and its end work, in every case.
    virtual void RunStarted() = 0;
    virtual void EndRun() = 0;

protected:
    ~RunHooks() = default;
};

}  // namespace orvane
