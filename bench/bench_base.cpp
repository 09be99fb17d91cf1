// The number forms of the ephemeris files, which write millions of fields, and the
// list-directed read of one record of an update file.
#include "base/fortran_format.h"
#include "base/line_builder.h"
#include "base/list_directed.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace {

std::vector<double> sampleValues() {
    std::mt19937_64 random(42);
    std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
    std::uniform_int_distribution<int> exponent(-8, 8);
    std::vector<double> values(4096);
    for (auto& v : values) v = mantissa(random) * std::pow(10.0, exponent(random));
    return values;
}

void BM_FormatF_16_8(benchmark::State& state) {
    const auto values = sampleValues();
    std::array<char, 16> field;
    std::size_t i = 0;
    for (auto _ : state) {
        orvane::putF(field, values[i++ & 4095], 8);
        benchmark::DoNotOptimize(field.data());
    }
}
BENCHMARK(BM_FormatF_16_8);

void BM_FormatE_22_15(benchmark::State& state) {
    const auto values = sampleValues();
    std::array<char, 22> field;
    std::size_t i = 0;
    for (auto _ : state) {
        orvane::putE(field, values[i++ & 4095], 15);
        benchmark::DoNotOptimize(field.data());
    }
}
BENCHMARK(BM_FormatE_22_15);

void BM_FormatI_7(benchmark::State& state) {
    std::array<char, 7> field;
    long long i = 0;
    for (auto _ : state) {
        orvane::putI(field, 2460000 + (i++ & 1023));
        benchmark::DoNotOptimize(field.data());
    }
}
BENCHMARK(BM_FormatI_7);

// A line of the rectangular table: a date and nine numbers.
void BM_RectangularLine(benchmark::State& state) {
    const auto values = sampleValues();
    std::string line;
    std::size_t i = 0;
    for (auto _ : state) {
        line.clear();
        orvane::LineBuilder b(line);
        b.fieldI(2024, 5).text("-").fieldIZero(5, 2).text("-").fieldFZero(7.5, 11, 8).blanks(2);
        for (int k = 0; k < 6; ++k) {
            const auto start = b.size();
            b.fieldE(values[i++ & 4095], 22, 15).padFrom(start, 24);
        }
        for (int k = 0; k < 3; ++k) {
            const auto start = b.size();
            b.fieldE(std::abs(values[i++ & 4095]), 21, 15).padFrom(start, 23);
        }
        benchmark::DoNotOptimize(line.data());
    }
}
BENCHMARK(BM_RectangularLine);

std::string updateRecord() {
    std::string line;
    const char* samples[] = {"1", "C/1995 O1", "Hale-Bopp", "0.914", "0.995", "130.59",
                             "282.47", "89.43", "1997", "4", "1.1"};
    for (int i = 0; i < 65; ++i) {
        orvane::appendQuotedItem(line, samples[i % 11]);
        line += ", ";
    }
    orvane::appendQuotedItem(line, std::string(400, 'i'));
    return line;
}

void BM_ReadRecordOf66Items(benchmark::State& state) {
    const std::string line = updateRecord();
    std::vector<std::array<char, 70>> fields(65);
    std::array<char, 5010> info;
    std::vector<orvane::ListTarget> targets;
    for (auto& f : fields) targets.push_back(orvane::ListTarget::text(f));
    targets.push_back(orvane::ListTarget::text(info));
    for (auto _ : state) {
        orvane::ListReader reader(line);
        const auto result = orvane::readList(reader, targets);
        benchmark::DoNotOptimize(result.itemsRead);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(line.size()));
}
BENCHMARK(BM_ReadRecordOf66Items);

void BM_ReadReal(benchmark::State& state) {
    const std::string text = "0.123456789012345E+02";
    double value = 0;
    for (auto _ : state) {
        orvane::ListReader reader(text);
        reader.read(orvane::ListTarget::real(value));
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(BM_ReadReal);

}  // namespace

BENCHMARK_MAIN();
