// orvane-cli: the Ephemerides and Close Approaches tasks without windows. The
// records come from the catalogue or an .els file, the options from the command
// line; the run is the program's own, and so are the texts and files it leaves.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "app/folders.h"
#include "dynamics/calculation_run.h"
#include "records/catalogue_rows.h"
#include "records/els_format.h"
#include "tasks/option_rules.h"
#include "tasks/run_messages.h"
#include "tasks/run_objects.h"
#include "tasks/task_output.h"
#include "tools/cli_options.h"

namespace orvane::cli {

namespace {

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

void complain(const std::string& message) { std::cerr << "orvane-cli: " << message << "\n"; }

// The view of a run on a terminal: messages go to standard error, the run goes on
// without the file when it outgrows its limit, as the answer Yes does.
class CliOutput final : public SilentTaskOutput {
public:
    using SilentTaskOutput::SilentTaskOutput;
    void ShowLeftSolarSystem(const std::string& name) override {
        complain(LeftSolarSystemMessage(texts(), name));
    }
    bool AskContinueWithoutFile(int limitMegabytes) override {
        complain(FileSizeQuestion(texts(), currentFileName(), limitMegabytes) + " Yes");
        return true;
    }
    void ShowFileOpenFailure() override { complain(FileOpenFailureMessage(texts(), failedFile())); }
};

// A name from a file may hold any bytes; the terminal gets printable ones.
std::string printable(std::string text) {
    for (char& c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) c = '?';
    }
    return text;
}

bool contains(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

bool readElsRecords(const std::string& path, std::vector<OrbitRecord>& records) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.find_first_not_of(' ') == std::string::npos) continue;
        OrbitRecord record;
        readElsLine(line, record);
        records.push_back(std::move(record));
    }
    return true;
}

bool readCatalogueRecords(const CliArgs& args, std::vector<OrbitRecord>& chosen, std::string& error) {
    // The catalogue is only read: a missing file is reported, never created.
    std::error_code ec;
    if (!std::filesystem::is_regular_file(args.databasePath, ec)) {
        error = "no catalogue at " + args.databasePath;
        return false;
    }
    RecordArray all;
    if (loadCatalogueRecords(args.databasePath, "order by id", all) != 0) {
        error = "cannot read the catalogue " + args.databasePath;
        return false;
    }
    if (!args.ids.empty()) {
        for (long long id : args.ids) {
            bool found = false;
            for (std::size_t i = 0; i < all.count && !found; ++i) {
                if (all.records[i].get(Field::id) == std::to_string(id)) {
                    chosen.push_back(all.records[i]);
                    found = true;
                }
            }
            if (!found) {
                error = "no record with id " + std::to_string(id);
                return false;
            }
        }
        return true;
    }
    Field field = Field::des;
    fieldByName(args.searchField, field);
    for (std::size_t i = 0; i < all.count; ++i) {
        if (contains(all.records[i].get(field), args.searchValue)) chosen.push_back(all.records[i]);
    }
    return true;
}

int run(int argc, char** argv) {
    CliArgs args;
    std::string error;
    if (!ParseArgs(argc, argv, args, error)) {
        complain(error);
        return kExitUsage;
    }
    if (args.help) {
        std::cout << HelpText();
        return 0;
    }
    const Folders folders = SettleFolders(std::filesystem::current_path().string());
    if (args.databasePath.empty()) args.databasePath = folders.userFolder + "orvane.db";
    if (args.ephemerisPath.empty()) args.ephemerisPath = CommonFolder() + "jplde423.dat";
    if (args.options.saveFolder.empty()) args.options.saveFolder = folders.documentsFolder;
    ApplyOptionRules(args.options);
    DeriveObserverOf(args.options);

    std::vector<OrbitRecord> records;
    if (!args.elsPath.empty()) {
        if (!readElsRecords(args.elsPath, records)) {
            complain("cannot read " + args.elsPath);
            return kExitFailure;
        }
    } else if (!readCatalogueRecords(args, records, error)) {
        complain(error);
        return kExitFailure;
    }
    if (records.empty()) {
        complain("no records chosen");
        return kExitFailure;
    }
    if (records.size() > static_cast<std::size_t>(kMaxCombinedObjects)) {
        complain("more than " + std::to_string(kMaxCombinedObjects) + " records chosen");
        return kExitFailure;
    }
    if (args.task == TaskKind::Ephemerides && args.options.calculateEphemerides) {
        std::error_code ec;
        if (!std::filesystem::is_directory(args.options.saveFolder, ec)) {
            complain("Specified folder does not exist, or an invalid path was entered! (" + args.options.saveFolder + ")");
            return kExitFailure;
        }
    }

    Ephemeris ephemeris;
    if (ephemeris.OpenEphemerisFile(args.ephemerisPath) != EphemerisStatus::Ok) {
        complain("cannot use the planetary file " + args.ephemerisPath);
        return kExitFailure;
    }

    TaskRun taskRun;
    taskRun.task = args.task;
    taskRun.options = args.options;
    for (const OrbitRecord& record : records) {
        RunObject object;
        std::string badField;
        if (!MakeRunObject(record, args.targetJd, object, badField)) {
            complain("record " + printable(RunObjectName(record)) + ": field " + badField + " is missing or no number");
            return kExitFailure;
        }
        taskRun.objects.push_back(object);
    }
    taskRun.first = 0;
    taskRun.last = static_cast<int>(taskRun.objects.size()) - 1;
    taskRun.selectionCount = static_cast<int>(taskRun.objects.size());
    taskRun.rate = 1;

    const TaskTexts texts;
    CliOutput output(args.options, texts, taskRun.objects.size());
    output.markIntervals(taskRun.objects);
    taskRun.running = 1;
    CalculationRun(taskRun, ephemeris, output).Execute();

    if (args.task == TaskKind::CloseApproaches) {
        for (std::size_t i = 0; i < taskRun.intervalState.size() && i < taskRun.objects.size(); ++i) {
            ObjectResults results = output.panel().approachResults(i);
            results.intervalState = taskRun.intervalState[i];
            output.panel().setApproachResults(i, results);
        }
        std::cout << output.panel().closeApproachText(args.options, texts);
    } else {
        std::cout << output.panel().ephemerisText(args.options, texts);
    }
    if (!output.fileOk()) {
        complain("cannot create an ephemeris file in " + args.options.saveFolder);
        return kExitFailure;
    }
    for (const std::string& path : output.filesWritten()) std::cerr << "orvane-cli: wrote " << path << "\n";
    return 0;
}

}  // namespace

}  // namespace orvane::cli

int main(int argc, char** argv) { return orvane::cli::run(argc, argv); }
