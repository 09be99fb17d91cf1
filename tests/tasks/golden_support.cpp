#include "golden_support.h"

#include "records/els_format.h"
#include "support/temp_home.h"
#include "tasks/option_rules.h"
#include "tasks/run_objects.h"

namespace orvane::golden {

namespace {

class SilentOutput final : public SilentTaskOutput {
public:
    using SilentTaskOutput::SilentTaskOutput;
    bool EmitEphemerisHeader(int index, const RunObject& object, const EphemerisLine& first) override {
        lines.push_back({index, first});
        return SilentTaskOutput::EmitEphemerisHeader(index, object, first);
    }
    void EmitEphemerisLine(int index, const RunObject& object, const EphemerisLine& line) override {
        SilentTaskOutput::EmitEphemerisLine(index, object, line);
        lines.push_back({index, line});
    }
    std::vector<EmittedLine> lines;
};

}  // namespace

std::filesystem::path goldenPath(const std::string& name) {
    return std::filesystem::path(ORVANE_SOURCE_DIR) / "tests" / "tasks" / "golden" / name;
}

std::filesystem::path planetaryFile() { return orvane::testing::sharedPath("ephemerides/de405-1960-2060.dat"); }

bool planetaryFileAvailable() { return std::filesystem::exists(planetaryFile()); }

std::vector<RunObject> goldenComets(double target) {
    const std::string text = orvane::testing::readFile(goldenPath("comets.els"));
    std::vector<RunObject> objects;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        start = end + 1;
        if (line.empty()) continue;
        OrbitRecord record;
        readElsLine(line, record);
        if (objects.empty()) {
            record.set(Field::A1, "0.5");
            record.set(Field::A2, "0.05");
        } else {
            // The line's epoch takes its century from the perihelion year (1922);
            // the solution's epoch is 2022.
            record.set(Field::E_year, "2022");
        }
        RunObject object;
        std::string bad;
        if (MakeRunObject(record, target, object, bad)) objects.push_back(object);
    }
    return objects;
}

TaskOptions ephemerisOptions(const std::filesystem::path& folder) {
    TaskOptions o;
    o.calculateEphemerides = true;
    o.singleFile = true;
    o.stepSize = 30;
    o.saveFolder = folder.string();
    return o;
}

RunResult runGoldenComets(const TaskOptions& given, TaskKind task, double target) {
    RunResult result;
    TaskOptions options = given;
    ApplyOptionRules(options);
    DeriveObserverOf(options);
    Ephemeris ephemeris;
    if (ephemeris.OpenEphemerisFile(planetaryFile()) != EphemerisStatus::Ok) return result;
    TaskRun run;
    run.task = task;
    run.options = options;
    run.objects = goldenComets(target);
    if (run.objects.size() != 2) return result;
    run.first = 0;
    run.last = 1;
    run.selectionCount = 2;
    run.rate = 1;
    const TaskTexts texts;
    SilentOutput output(options, texts, run.objects.size());
    output.markIntervals(run.objects);
    run.running = 1;
    CalculationRun(run, ephemeris, output).Execute();
    for (std::size_t i = 0; i < run.intervalState.size(); ++i) {
        ObjectResults r = output.panel().approachResults(i);
        r.intervalState = run.intervalState[i];
        output.panel().setApproachResults(i, r);
    }
    result.ok = output.fileOk();
    result.files = output.filesWritten();
    result.approachText = output.panel().closeApproachText(options, texts);
    result.panel = output.panel();
    result.objects = run.objects;
    result.lines = output.lines;
    return result;
}

}  // namespace orvane::golden
