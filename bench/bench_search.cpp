// The search on a catalogue of 100,000 records: the empty form with 20 columns
// ticked, a search on q with "Less than", one on class_calc (which reads the whole
// view), and an edit batch of 1,000 catalogue records. Heap allocations are counted
// while the searches run, to show that reading a row allocates nothing.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <string>
#include <unistd.h>

#include "catalogue/schema.h"
#include "catalogue/sql_layer.h"
#include "records/edit_batch.h"
#include "records/search_run.h"

// The counting operator new hands out malloc's memory, so delete must free it; GCC
// sees the inlined pair as mismatched.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

namespace {

std::atomic<long long> gAllocations{0};

}  // namespace

void* operator new(std::size_t size) {
    gAllocations.fetch_add(1, std::memory_order_relaxed);
    if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
    throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

namespace {

using namespace orvane;

constexpr int kRecords = 100000;
constexpr std::size_t kEditBatch = 1000;

struct QuietView : SearchView {
    void setCatalogueCommandsEnabled(bool) override {}
    void setStatus(std::string_view) override {}
    void setRemainingTime(std::string_view) override {}
    void showProgress(long long) override {}
    void stepProgress() override {}
    void hideProgress() override {}
    void showMessage(std::string_view, std::string_view, MessageIcon) override {}
    bool askOkCancel(std::string_view, std::string_view) override { return true; }
    bool searchListFilledByForm() override { return false; }
    void rerunSearch() override {}
    void refreshStatistics() override {}
    void setBusy(bool) override {}
    void showError(std::string_view, std::string_view) override {}
    void showResult(const std::vector<ColumnSlot>&, const SearchResult&) override {}
    void setResultText(std::string_view) override {}
    void clearList() override {}
    void setSelectionCommandsEnabled(bool) override {}
    void focusList() override {}
};

// 100,000 comets with varied elements, all of the catalogue.
const std::string& catalogue() {
    static const std::string path = [] {
        const auto folder =
            std::filesystem::temp_directory_path() / ("orvane-bench-search-" + std::to_string(getpid()));
        std::filesystem::create_directories(folder);
        const std::string file = (folder / "orvane.db").string();
        createCatalogue(file);
        CatalogueDb db;
        sql::open(file, db);
        sql::execute(db,
                     "with recursive n(k) as (select 1 union all select k+1 from n where k<" +
                         std::to_string(kRecords) +
                         ") insert into elements(comet, name, des, htype, E_year, E_month, E_day, hyear, hmonth, "
                         "hday, q, e, w, Om, i, Obs, F_year, F_month, F_day, L_year, L_month, L_day) select "
                         "case when k%3=0 then k/3 else '' end, 'Comet '||k, (1900+k%120)||' A'||k%50, "
                         "case when k%3=0 then 'P' else 'C' end, 2000+k%50, 1+k%12, 1+k%28, 1900+k%150, 1+k%12, "
                         "1+(k%280)/10.0, 0.1+(k%500)/100.0, (k%1000)/1000.0, k%360, (k*7)%360, (k*13)%180, "
                         "10+k%900, 1990, 1, 1, 2020, 12, 31 from n; update parameters set value='" +
                         std::to_string(kRecords) + "' where id=4;");
        sql::close(db);
        return file;
    }();
    return path;
}

SearchForm twentyColumns() {
    SearchForm form;
    form.columnShown.fill(0);
    for (std::size_t c = 0; c < 20; ++c) form.columnShown[c] = 1;
    return form;
}

void runSearch(benchmark::State& state, const SearchForm& form) {
    const std::string& path = catalogue();
    const SearchTexts texts;
    SearchSession session;
    QuietView view;
    long long allocations = 0;
    for (auto _ : state) {
        const long long before = gAllocations.load();
        searchDirect(path, form, session, view, texts);
        allocations = gAllocations.load() - before;
        benchmark::DoNotOptimize(session.result.size());
    }
    state.counters["rows"] = static_cast<double>(session.result.size());
    state.counters["allocations"] = static_cast<double>(allocations);
    state.counters["bufferMB"] = static_cast<double>(session.result.bufferCapacity()) / 1e6;
}

void BM_EmptySearchTwentyColumns(benchmark::State& state) { runSearch(state, twentyColumns()); }

void BM_SearchQLessThan(benchmark::State& state) {
    SearchForm form = twentyColumns();
    form.rows[0] = {1, 12, kLessThan, "1", kConnectorAnd};  // q < '1'
    runSearch(state, form);
}

void BM_SearchClassCalc(benchmark::State& state) {
    SearchForm form = twentyColumns();
    form.rows[0] = {1, 53, kEqualTo, "Jupiter-family", kConnectorAnd};  // class_calc
    runSearch(state, form);
}

// SQLite alone stepping through the same rows of the view, for comparison with the
// search, which also copies every column into the 74-column array.
void BM_ViewStepsOnly(benchmark::State& state) {
    const std::string& path = catalogue();
    ColumnTables tables = buildColumnTables();
    const std::string text = sql::buildSelectText("e_elements", tables.allColumns);
    long long rows = 0;
    for (auto _ : state) {
        sqlite3* db = nullptr;
        sqlite3_open(path.c_str(), &db);
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(db, text.c_str(), -1, &statement, nullptr);
        rows = 0;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int c = 0; c < sqlite3_column_count(statement); ++c) {
                benchmark::DoNotOptimize(sqlite3_column_text(statement, c));
            }
            ++rows;
        }
        sqlite3_finalize(statement);
        sqlite3_close(db);
    }
    state.counters["rows"] = static_cast<double>(rows);
}

void BM_EditBatchOfCatalogueRecords(benchmark::State& state) {
    const std::string& path = catalogue();
    const SearchTexts texts;
    SearchSession session;
    QuietView view;
    searchDirect(path, twentyColumns(), session, view, texts);
    std::size_t next = 0;
    std::vector<OrbitRecord> batch(kEditBatch);
    for (auto _ : state) {
        state.PauseTiming();
        for (std::size_t k = 0; k < kEditBatch; ++k) {
            batch[k] = session.result.record(next++);
            batch[k].set(Field::name, "Edited");
        }
        state.ResumeTiming();
        const EditBatchResult result = editThread(path, batch, SearchForm{}, session, view, texts);
        benchmark::DoNotOptimize(result.replaced);
    }
}

}  // namespace

BENCHMARK(BM_EmptySearchTwentyColumns)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_SearchQLessThan)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_SearchClassCalc)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_ViewStepsOnly)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_EditBatchOfCatalogueRecords)->Unit(benchmark::kMillisecond)->Iterations(20);

BENCHMARK_MAIN();
