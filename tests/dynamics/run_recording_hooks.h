#pragma once
// A RunHooks that records every call of a calculation run, for the tests.
#include <string>
#include <vector>

#include "dynamics/run_hooks.h"

namespace orvane::testing {

struct RecordingHooks : RunHooks {
    std::vector<std::string> calls;  // names in order, the ephemeris lines left out
    std::vector<EphemerisLine> headers;
    std::vector<EphemerisLine> lines;
    std::vector<std::vector<ApproachRow>> rowSets;
    std::vector<std::string> leftNames;
    std::vector<int> remaining;  // seconds of each estimate
    std::vector<std::string> remainingAfter;  // the call before each estimate
    int frames = 0;
    int progressRange = -1;
    int progressSteps = 0;
    long long fileBytes = 0;
    long long bytesPerLine = 0;
    bool answerYes = true;
    bool headerOpens = true;
    int questions = 0;
    int noApproaches = 0;

    bool EmitEphemerisHeader(int, const RunObject&, const EphemerisLine& first) override {
        calls.push_back("header");
        headers.push_back(first);
        return headerOpens;
    }
    void EmitEphemerisLine(int, const RunObject&, const EphemerisLine& line) override {
        lines.push_back(line);
        fileBytes += bytesPerLine;
    }
    void EmitEphemerisTrailer(int, const RunObject&) override { calls.push_back("trailer"); }
    long long EphemerisFileBytes() override { return fileBytes; }
    void StopEphemerisFile() override {
        calls.push_back("stopFile");
        bytesPerLine = 0;
    }
    void EmitApproachRows(int, const RunObject&, const std::vector<ApproachRow>& rows) override {
        calls.push_back("rows");
        rowSets.push_back(rows);
    }
    void DrawOrbitFrame(int, const RunObject&, const BodyStatesResult&) override { ++frames; }
    void ShowObjectLabel(TaskKind, int ordinal, int total) override {
        calls.push_back("label " + std::to_string(ordinal) + "/" + std::to_string(total));
    }
    void ShowStatus(RunStatus status) override {
        calls.push_back(status == RunStatus::Prepare ? "status prepare" : "status ready");
    }
    void ShowFileOpenFailure() override { calls.push_back("fileFailed"); }
    void SetProgressRange(int units) override { progressRange = units; }
    void StepProgress() override { ++progressSteps; }
    void ShowRemainingTime(int h, int m, int s) override {
        remaining.push_back(h * 3600 + m * 60 + s);
        remainingAfter.push_back(calls.empty() ? std::string() : calls.back());
    }
    void ShowLeftSolarSystem(const std::string& name) override {
        calls.push_back("left");
        leftNames.push_back(name);
    }
    bool AskContinueWithoutFile(int) override {
        ++questions;
        return answerYes;
    }
    void ReportNoCloseApproaches() override { ++noApproaches; }
    void RunStarted() override { calls.push_back("start"); }
    void EndRun() override { calls.push_back("end"); }
};

}  // namespace orvane::testing
