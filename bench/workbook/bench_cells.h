// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The cells that the benchmarks of this folder write: 1.5 million in one format, two thirds of them texts
/// from a pool of 60 000, as timelines repeat their names. write_cells_xlwt.py writes the same.
namespace bench_cells {

inline constexpr std::size_t rows = 50000;
inline constexpr std::size_t columns = 30;
inline constexpr std::size_t pool_size = 60000;

inline std::vector<std::string> text_pool()
{
    std::vector<std::string> pool;
    for (std::size_t i = 0; i < pool_size; ++i)
        pool.push_back("Scene " + std::to_string(i % 977) + " Take " + std::to_string(i) + ".mov");
    return pool;
}

/// Calls write_string(row, column, text) or write_number(row, column, number) for each cell, row by row.
template <class WriteString, class WriteNumber>
void for_each(const std::vector<std::string>& pool, WriteString write_string, WriteNumber write_number)
{
    std::size_t number = 0;
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < columns; ++column, ++number) {
            if (column % 3 == 2)
                write_number(row, column, static_cast<double>(number) * 0.37);
            else
                write_string(row, column, pool[number * 7919 % pool.size()]);
        }
    }
}

} // namespace bench_cells
