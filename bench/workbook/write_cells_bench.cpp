// SPDX-License-Identifier: MIT
//
// How many cells a second go from write_string and write_number into a closed file, and how much memory that
// takes beside the file's size.
#include "bench_cells.h"
#include "workbook/workbook.h"

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <filesystem>

namespace {

double peak_memory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

void write_cells_and_close(benchmark::State& state)
{
    const auto pool = bench_cells::text_pool();
    const auto path = std::filesystem::temp_directory_path() / "write_cells_bench.xls";
    const auto before = peak_memory();
    for (auto _ : state) {
        xls::workbook book(path);
        const auto format = book.add_format({.font = "Helvetica", .size = 11, .color = "blue"});
        auto& sheet = book.add_worksheet("All Reels");
        bench_cells::for_each(
            pool,
            [&](auto row, auto column, const auto& text) { sheet.write_string(row, column, text, format); },
            [&](auto row, auto column, double number) { sheet.write_number(row, column, number, format); });
        book.close();
    }
    state.counters["cells_per_second"] =
        benchmark::Counter(static_cast<double>(bench_cells::rows * bench_cells::columns),
                           benchmark::Counter::kIsIterationInvariantRate);
    const auto size = static_cast<double>(std::filesystem::file_size(path));
    state.counters["file_MB"] = size / 1e6;
    state.counters["memory_by_file"] = (peak_memory() - before) / size;
    std::filesystem::remove(path);
}
BENCHMARK(write_cells_and_close)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

} // namespace
