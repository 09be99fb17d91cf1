#pragma once
// The text side of a calculation run: the run's ephemeris and close-approach
// hooks write the files and fill the text panels here. The view hooks (labels,
// progress, messages, the diagram) belong to whoever shows the run, which derives
// from this class.
#include <string>
#include <vector>

#include "dynamics/run_hooks.h"
#include "tasks/ephemeris_file.h"
#include "tasks/ephemeris_writer.h"
#include "tasks/text_panel.h"

namespace orvane {

// Two epochs closer than this are the same: a target that close to the present time
// leaves no interval to search.
inline constexpr double kEpochTolerance = 0.00000001;

bool NoIntervalToSearch(const RunObject& object);

class TaskOutput : public RunHooks {
public:
    TaskOutput(const TaskOptions& options, const TaskTexts& texts, std::size_t objectCount);

    bool EmitEphemerisHeader(int objectIndex, const RunObject& object, const EphemerisLine& first) override;
    void EmitEphemerisLine(int objectIndex, const RunObject& object, const EphemerisLine& line) override;
    void EmitEphemerisTrailer(int objectIndex, const RunObject& object) override;
    long long EphemerisFileBytes() override;
    void StopEphemerisFile() override;
    void EmitApproachRows(int objectIndex, const RunObject& object, const std::vector<ApproachRow>& rows) override;
    // Before a run: the objects whose target is their present time get the state
    // "no interval", the others an empty search until their rows come.
    void markIntervals(const std::vector<RunObject>& objects);
    // Closes the single file of the run; a derived view calls it from its EndRun.
    void closeFiles();

    const TextPanel& panel() const { return panel_; }
    TextPanel& panel() { return panel_; }
    const TaskOptions& options() const { return writer_.options(); }
    const TaskTexts& texts() const { return writer_.texts(); }
    // The files written in this run, in the order they were opened.
    const std::vector<std::string>& filesWritten() const { return filesWritten_; }
    // The name of the file being written, with its extension; "" when none is open.
    std::string currentFileName() const;
    // False when a file could not be created: the run should end.
    bool fileOk() const { return fileOk_; }
    // The path of the file that could not be created; "" while none failed.
    const std::string& failedFile() const { return failedFile_; }

protected:
    ~TaskOutput() = default;

private:
    bool writingFiles() const;
    bool openFileFor(const std::string& name);

    EphemerisWriter writer_;
    TextPanel panel_;
    EphemerisFile file_;
    std::vector<std::string> usedNames_;
    std::vector<std::string> filesWritten_;
    std::string header_, line_;
    std::string rule_;
    bool stopped_ = false;
    bool fileOk_ = true;
    std::string failedFile_;
};

// The text side of a run with nobody watching: labels, progress and frames go
// nowhere, a full file is left and the run goes on (the answer Yes), and the end
// of the run closes the files. Tools and tests derive from it for the few messages
// they show.
class SilentTaskOutput : public TaskOutput {
public:
    using TaskOutput::TaskOutput;
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
    void EndRun() override { closeFiles(); }
};

}  // namespace orvane
