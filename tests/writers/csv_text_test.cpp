// SPDX-License-Identifier: MIT
#include "writers/csv_text.h"

#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using namespace std::string_view_literals;
using row = std::vector<cell_value>;

sheet sheet_of_cells(std::vector<row> cells)
{
    sheet made;
    made.record_count = cells.size() - 1;
    made.row_count = cells.size();
    made.column_count = cells.front().size();
    made.cell = [cells = std::move(cells)](std::size_t at, std::size_t column) -> sheet_cell {
        return {cells.at(at).at(column), {}};
    };
    return made;
}

TEST(csv_text, quotes_what_would_end_a_field)
{
    EXPECT_EQ(csv_text(sheet_of_cells(
                  {row{"Name"sv, "Note"sv}, row{"a, b"sv, "say \"hi\""sv}, row{"two\nlines"sv, "plain"sv}})),
              "Name,Note\r\n\"a, b\",\"say \"\"hi\"\"\"\r\n\"two\nlines\",plain\r\n");
}

TEST(csv_text, writes_numbers_as_they_are_and_nothing_for_no_cell)
{
    EXPECT_EQ(csv_text(sheet_of_cells({row{"A"sv, "B"sv, "C"sv}, row{12345678901.0, 0.5, cell_value()}})),
              "A,B,C\r\n12345678901,0.5,\r\n");
}

TEST(csv_text, lets_no_text_become_a_formula)
{
    EXPECT_EQ(csv_text(sheet_of_cells({row{"A"sv, "B"sv}, row{"=cmd()"sv, "-1"sv}, row{"+x"sv, "@y"sv}})),
              "A,B\r\n'=cmd(),'-1\r\n'+x,'@y\r\n");
}

TEST(csv_text, leaves_out_what_stands_around_the_table)
{
    sheet made = sheet_of_cells({row{"above"sv}, row{"Title"sv}, row{"record"sv}, row{"total"sv}});
    made.header_row = 1;
    made.record_count = 1;
    EXPECT_EQ(csv_text(made), "Title\r\nrecord\r\n");
}

} // namespace

} // namespace tallyframe
