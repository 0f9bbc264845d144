// SPDX-License-Identifier: MIT
//
// How many cells a second go from write_string and write_number into a closed file, and how much memory that
// takes beside the file's size: 1.5 million cells in one format, two thirds of them texts from a pool of
// 60 000, as timelines repeat their names.
#include "workbook/workbook.h"

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

constexpr std::size_t rows = 50000;
constexpr std::size_t columns = 30;
constexpr std::size_t pool_size = 60000;

std::vector<std::string> text_pool()
{
    std::vector<std::string> pool;
    for (std::size_t i = 0; i < pool_size; ++i)
        pool.push_back("Scene " + std::to_string(i % 977) + " Take " + std::to_string(i) + ".mov");
    return pool;
}

void write_cells(xls::worksheet& sheet, xls::format_id format, const std::vector<std::string>& pool)
{
    std::size_t number = 0;
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < columns; ++column, ++number) {
            if (column % 3 == 2)
                sheet.write_number(row, column, static_cast<double>(number) * 0.37, format);
            else
                sheet.write_string(row, column, pool[number * 7919 % pool.size()], format);
        }
    }
}

double peak_memory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

void write_cells_and_close(benchmark::State& state)
{
    const auto pool = text_pool();
    const auto path = std::filesystem::temp_directory_path() / "write_cells_bench.xls";
    const auto before = peak_memory();
    for (auto _ : state) {
        xls::workbook book(path);
        const auto format = book.add_format({.font = "Helvetica", .size = 11, .color = "blue"});
        write_cells(book.add_worksheet("All Reels"), format, pool);
        book.close();
    }
    state.counters["cells_per_second"] = benchmark::Counter(static_cast<double>(rows * columns),
                                                            benchmark::Counter::kIsIterationInvariantRate);
    const auto size = static_cast<double>(std::filesystem::file_size(path));
    state.counters["file_MB"] = size / 1e6;
    state.counters["memory_by_file"] = (peak_memory() - before) / size;
    std::filesystem::remove(path);
}
BENCHMARK(write_cells_and_close)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

} // namespace
