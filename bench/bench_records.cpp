// Import of 100,000 ECS records into a fresh catalogue (one transaction), and the
// export of all of them again.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "catalogue/schema.h"
#include "records/catalogue_rows.h"
#include "records/els_format.h"
#include "records/import_export.h"

namespace {

using namespace orvane;

constexpr int kRecords = 100000;

using QuietView = SilentBatchView;

std::filesystem::path workFolder() {
    const auto folder = std::filesystem::temp_directory_path() / ("orvane-bench-records-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    return folder;
}

std::filesystem::path writeElsFile(const std::filesystem::path& folder) {
    OrbitRecord r;
    r.set(Field::comet, "1");
    r.set(Field::htype, "P");
    r.set(Field::name, "Halley");
    r.set(Field::hyear, "2061");
    r.set(Field::hmonth, "7");
    r.set(Field::hday, "28.8");
    r.set(Field::q, "0.587");
    r.set(Field::e, "0.967");
    r.set(Field::w, "111.8");
    r.set(Field::Om, "58.9");
    r.set(Field::i, "162.2");
    std::string text;
    for (int k = 0; k < kRecords; ++k) {
        r.set(Field::hday, std::to_string(1 + k % 28) + ".5");
        r.set(Field::Obs, std::to_string(k + 1));
        text += writeElsLine(r);
        text += '\n';
    }
    const auto path = folder / "many.els";
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

void ImportAndExport100k(benchmark::State& state) {
    const auto folder = workFolder();
    const auto file = writeElsFile(folder);
    const RecordTexts texts;
    QuietView view;
    for (auto _ : state) {
        state.PauseTiming();
        const auto db = folder / "orvane.db";
        std::filesystem::remove(db);
        createCatalogue(db.string());
        state.ResumeTiming();

        auto start = std::chrono::steady_clock::now();
        RecordArray array;
        const ImportResult result = importFile(file, db.string(), array, view, texts);
        const double importSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        if (result.status != ImportStatus::Inserted || result.batch.inserted != kRecords) {
            state.SkipWithError("import failed");
            break;
        }

        start = std::chrono::steady_clock::now();
        RecordArray rows;
        loadCatalogueRecords(db.string(), "order by id", rows);
        exportRecords(folder / "out.els", std::span<const OrbitRecord>(rows.records.data(), rows.count), view, texts);
        const double exportSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        state.counters["import_s"] = importSeconds;
        state.counters["read_and_export_s"] = exportSeconds;
    }
    std::filesystem::remove_all(folder);
}

BENCHMARK(ImportAndExport100k)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
