// SPDX-License-Identifier: MIT
#include "workbook/records/cell_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <random>

using testing::ElementsAre;

namespace records = xls::records;

namespace {

records::cell_place at(int row, int column, int xf = 15)
{
    return {static_cast<std::uint16_t>(row), static_cast<std::uint16_t>(column),
            static_cast<std::uint16_t>(xf)};
}

void put_text(xls::cell_table& cells, records::cell_place place, std::uint32_t text)
{
    cells.put(place, records::label_sst(place, text));
}

/// Each record as "row: first-last".
std::vector<std::string> layout(const xls::cell_table& cells)
{
    std::vector<std::string> found;
    for (const auto& block : cells.blocks()) {
        for (std::size_t offset = 0; offset < block.cells().size();) {
            const auto cell = records::cell_at(block.cells(), offset);
            found.push_back(std::to_string(cell.row()) + ": " + std::to_string(cell.first_column()) + "-"
                            + std::to_string(cell.last_column()));
            offset += cell.bytes.size();
        }
    }
    return found;
}

/// Row, column to XF of every cell; a blank's is negative.
std::map<std::pair<int, int>, int> content(const xls::cell_table& cells)
{
    std::map<std::pair<int, int>, int> found;
    for (std::size_t i = 0; i < cells.blocks().size(); ++i) {
        const auto& block = cells.blocks()[i];
        for (std::size_t row = 0; row < xls::rows_per_block; ++row) {
            const auto bytes = block.cells_of(row);
            int last = -1;
            for (std::size_t offset = 0; offset < bytes.size();) {
                const auto cell = records::cell_at(bytes, offset);
                EXPECT_EQ(cell.row(), i * xls::rows_per_block + row);
                EXPECT_GT(cell.first_column(), last);
                if (last == -1) {
                    EXPECT_EQ(block.first_column(row), cell.first_column());
                }
                last = cell.last_column();
                for (int column = cell.first_column(); column <= last; ++column) {
                    const auto nth = static_cast<std::size_t>(column - cell.first_column());
                    found[{cell.row(), column}] =
                        cell.id() == xls::record_id::label_sst ? cell.xf() : -static_cast<int>(cell.xf(nth));
                }
                offset += cell.bytes.size();
            }
            EXPECT_EQ(block.end_column(row), last + 1);
        }
    }
    return found;
}

} // namespace

TEST(cell_table, joins_blanks_that_stand_side_by_side)
{
    xls::cell_table cells;
    for (const int column : {0, 1, 2, 4, 5})
        cells.put_blank(at(0, column));
    put_text(cells, at(0, 6), 0);
    cells.put_blank(at(0, 7));
    cells.put_blank(at(1, 8));
    cells.put_blank(at(1, 9));
    EXPECT_THAT(layout(cells), ElementsAre("0: 0-2", "0: 4-5", "0: 6-6", "0: 7-7", "1: 8-9"));
    EXPECT_THAT(cells.blocks()[0].cells_of(1), ElementsAre(0xBE, 0, 10, 0, 1, 0, 8, 0, 15, 0, 15, 0, 9, 0));
}

TEST(cell_table, takes_a_run_of_blanks_apart)
{
    xls::cell_table cells;
    for (int column = 0; column < 6; ++column)
        cells.put_blank(at(0, column, 20 + column));
    put_text(cells, at(0, 2), 0);
    EXPECT_TRUE(cells.has_replaced_cells());
    EXPECT_THAT(layout(cells), ElementsAre("0: 0-0", "0: 1-1", "0: 2-2", "0: 3-3", "0: 4-4", "0: 5-5"));
    EXPECT_EQ(content(cells).at({0, 5}), -25);
}

TEST(cell_table, holds_what_was_written_last_whatever_the_order)
{
    std::mt19937 random(7);
    const auto below = [&](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
    for (int run = 0; run < 30; ++run) {
        xls::cell_table cells;
        std::map<std::pair<int, int>, int> expected;
        const int columns = 1 + below(40);
        const int rows = 1 + below(100);
        for (int i = 0; i < 3000; ++i) {
            const auto place = at(below(rows), below(columns), 15 + below(500));
            const std::pair<int, int> key(place.row, place.column);
            if (below(2) == 0) {
                cells.put_blank(place);
                expected[key] = -place.xf;
            } else {
                put_text(cells, place, 0);
                expected[key] = place.xf;
            }
        }
        ASSERT_EQ(content(cells), expected) << run;
    }
}

TEST(cell_table, is_quick_column_by_column)
{
    xls::cell_table cells;
    for (int column = 0; column < 20; ++column)
        for (int row = 0; row < 5000; ++row)
            put_text(cells, at(row, column), 0);
    EXPECT_EQ(content(cells).size(), 100000U);
    EXPECT_FALSE(cells.has_replaced_cells());
}

TEST(cell_table, renumbers_texts)
{
    xls::cell_table cells;
    put_text(cells, at(0, 0), 5);
    cells.put_blank(at(0, 1));
    put_text(cells, at(99, 3), 6);
    std::vector<std::uint32_t> seen;
    cells.renumber_texts([&](std::uint32_t text) {
        seen.push_back(text);
        return text + 100000;
    });
    cells.renumber_texts([&](std::uint32_t text) {
        seen.push_back(text);
        return text;
    });
    EXPECT_THAT(seen, ElementsAre(5, 6, 100005, 100006));
}
