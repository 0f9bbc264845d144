// SPDX-License-Identifier: MIT
//
// The same cells through libxlsxwriter, into an .xlsx file: the yardstick of a well-kept library in C.
#include "bench_cells.h"

#include <benchmark/benchmark.h>
#include <xlsxwriter.h>

#include <filesystem>

namespace {

void write_cells_with_libxlsxwriter(benchmark::State& state)
{
    const auto pool = bench_cells::text_pool();
    const auto path = std::filesystem::temp_directory_path() / "write_cells_bench.xlsx";
    for (auto _ : state) {
        lxw_workbook* const book = workbook_new(path.c_str());
        lxw_format* const format = workbook_add_format(book);
        format_set_font_name(format, "Helvetica");
        format_set_font_size(format, 11);
        format_set_font_color(format, LXW_COLOR_BLUE);
        lxw_worksheet* const sheet = workbook_add_worksheet(book, "All Reels");
        bench_cells::for_each(
            pool,
            [&](auto row, auto column, const auto& text) {
                worksheet_write_string(sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                                       text.c_str(), format);
            },
            [&](auto row, auto column, double number) {
                worksheet_write_number(sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                                       number, format);
            });
        if (const lxw_error error = workbook_close(book); error != LXW_NO_ERROR)
            state.SkipWithError(lxw_strerror(error));
    }
    std::filesystem::remove(path);
}
BENCHMARK(write_cells_with_libxlsxwriter)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

} // namespace
