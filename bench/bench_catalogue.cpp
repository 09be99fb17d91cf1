// Reading the whole catalogue through the column table of e_elements: 100,000
// records, all 74 columns, each row delivered into the fixed-width fields.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <filesystem>
#include <random>
#include <string>

#include "catalogue/column_tables.h"
#include "catalogue/schema.h"
#include "catalogue/sql_layer.h"

namespace {

constexpr int kRecords = 100000;

class BenchCatalogue {
public:
    BenchCatalogue() {
        std::random_device device;
        folder_ = std::filesystem::temp_directory_path() / ("orvane-bench-" + std::to_string(device()));
        std::filesystem::create_directories(folder_);
        path_ = (folder_ / "orvane.db").string();
        orvane::createCatalogue(path_);
        orvane::CatalogueDb db;
        orvane::sql::open(path_, db);
        orvane::sql::begin(db);
        sqlite3_stmt* insert = nullptr;
        sqlite3_prepare_v2(db.handle,
                           "INSERT INTO elements(comet, name, des, htype, hyear, hmonth, hday, q, e, w, Om, i, "
                           "E_year, E_month, E_day) VALUES(?, ?, ?, 'C', ?, ?, ?, ?, ?, '12.5', '140.25', ?, "
                           "'2024', '9', '7')",
                           -1, &insert, nullptr);
        std::mt19937 generator(42);
        std::uniform_real_distribution<double> unit(0.0, 1.0);
        for (int k = 0; k < kRecords; ++k) {
            const std::string number = k % 4 == 0 ? std::to_string(k / 4 + 1) : "";
            const std::string name = "Comet " + std::to_string(k);
            const std::string des = std::to_string(1900 + k % 125) + " A" + std::to_string(k % 97);
            sqlite3_bind_text(insert, 1, number.c_str(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_text(insert, 2, name.c_str(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_text(insert, 3, des.c_str(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_int(insert, 4, 1900 + k % 125);
            sqlite3_bind_int(insert, 5, 1 + k % 12);
            sqlite3_bind_double(insert, 6, 1.0 + 27.0 * unit(generator));
            sqlite3_bind_double(insert, 7, 0.1 + 5.0 * unit(generator));
            sqlite3_bind_double(insert, 8, 1.05 * unit(generator));
            sqlite3_bind_double(insert, 9, 180.0 * unit(generator));
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
        orvane::sql::commit(db);
        orvane::sql::close(db);
    }
    ~BenchCatalogue() {
        std::error_code error;
        std::filesystem::remove_all(folder_, error);
    }
    const std::string& path() const { return path_; }

private:
    std::filesystem::path folder_;
    std::string path_;
};

void BM_SelectAllColumns(benchmark::State& state) {
    static BenchCatalogue catalogue;
    orvane::ColumnTables tables = orvane::buildColumnTables();
    std::int64_t rows = 0;
    for (auto _ : state) {
        orvane::CatalogueDb db;
        orvane::sql::open(catalogue.path(), db);
        orvane::Statement statement;
        orvane::sql::prepareSelect(db, "e_elements", tables.allColumns, statement);
        bool done = false;
        rows = 0;
        while (true) {
            orvane::sql::nextRow(statement, tables.allColumns, done);
            if (done) {
                break;
            }
            ++rows;
        }
        orvane::sql::finalize(statement);
        orvane::sql::close(db);
        benchmark::DoNotOptimize(tables.allColumns[72].textValue.data());
    }
    state.counters["rows"] = static_cast<double>(rows);
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_SelectAllColumns)->Unit(benchmark::kMillisecond)->Iterations(3);

// The same statement stepped without delivering the rows: what SQLite itself costs.
void BM_StepOnly(benchmark::State& state) {
    static BenchCatalogue catalogue;
    orvane::ColumnTables tables = orvane::buildColumnTables();
    std::int64_t rows = 0;
    for (auto _ : state) {
        orvane::CatalogueDb db;
        orvane::sql::open(catalogue.path(), db);
        orvane::Statement statement;
        orvane::sql::prepareSelect(db, "e_elements", tables.allColumns, statement);
        rows = 0;
        while (orvane::sql::step(statement) == SQLITE_ROW) {
            ++rows;
        }
        orvane::sql::finalize(statement);
        orvane::sql::close(db);
    }
    state.counters["rows"] = static_cast<double>(rows);
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_StepOnly)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
