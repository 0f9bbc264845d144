// SPDX-License-Identifier: MIT
#include "sheets/sheet.h"
#include "sheets/table_sheet.h"
#include "support/records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using testing::DoubleEq;
using testing::ElementsAre;

struct named {
    std::string name;
    double number = 0;
};

constexpr fixed_column<named> columns[] = {
    {"Name", 4, true, field_text<&named::name>},
    {"Number", 6, false, [](const named& record, const row_context&) -> cell_value { return record.number; },
     cell_kind::whole_number},
};

const named short_one = {"A", 1};
const named long_one = {"A long name", 2};

table_sheet<named> table_of_both()
{
    return {.name = "Names",
            .columns = columns_of(columns),
            .records = {&short_one, &long_one},
            .looks = {{text_color::red, text_color::video}, {}}};
}

sheet made(table_sheet<named> table = table_of_both())
{
    return sheet_of(std::move(table), {});
}

std::string text_at(const sheet& of, std::size_t row, std::size_t column)
{
    return std::string(text_in(of.cell(row, column).value).value_or("(no text)"));
}

TEST(sheet, has_its_titles_above_a_row_for_each_record)
{
    const sheet names = made();
    EXPECT_EQ(names.name, "Names");
    EXPECT_EQ(names.header_row, 0U);
    EXPECT_EQ(names.record_count, 2U);
    EXPECT_EQ(names.row_count, 3U);
    EXPECT_EQ(names.column_count, 2U);
    EXPECT_EQ(names.frozen_rows, 1U);
    EXPECT_EQ(names.progress_steps, 2U);
    EXPECT_EQ(text_at(names, 0, 1), "Number");
    EXPECT_EQ(names.cell(0, 1).look, (cell_look{text_color::header}));
    EXPECT_EQ(text_at(names, 2, 0), "A long name");
    EXPECT_EQ(std::get<double>(names.cell(2, 1).value), 2);
}

TEST(sheet, tells_the_look_of_texts_apart_from_that_of_numbers)
{
    const sheet names = made();
    EXPECT_EQ(names.cell(1, 0).look, (cell_look{text_color::red, cell_form::text}));
    EXPECT_EQ(names.cell(1, 1).look, (cell_look{text_color::video, cell_form::whole_number}));
    EXPECT_EQ(names.cell(2, 0).look, cell_look{});
}

TEST(sheet, has_no_cells_outside)
{
    const sheet names = made();
    EXPECT_EQ(names.cell(0, 2).value, cell_value());
    EXPECT_EQ(names.cell(1, 2).value, cell_value());
    EXPECT_EQ(names.cell(3, 0).value, cell_value());
}

TEST(sheet, has_lists_of_names_above_the_titles)
{
    table_sheet<named> table = table_of_both();
    table.catalogues = {{"Empty", {}},
                        {"Built-in", {{"Blur", text_color::video}, {"Crop", text_color::audio}}}};
    const sheet names = made(std::move(table));
    EXPECT_EQ(names.header_row, 4U);
    EXPECT_EQ(names.row_count, 7U);
    EXPECT_EQ(text_at(names, 0, 0), "Built-in");
    EXPECT_EQ(text_at(names, 2, 1), "Crop");
    EXPECT_EQ(names.cell(2, 1).look, (cell_look{text_color::audio}));
    EXPECT_EQ(names.cell(3, 0).value, cell_value());
    EXPECT_EQ(text_at(names, 4, 0), "Name");
    EXPECT_EQ(text_at(names, 5, 0), "A");
}

TEST(sheet, has_its_total_two_rows_below_the_last_record)
{
    table_sheet<named> table = table_of_both();
    table.total = total_line{.column = 3, .sum = "00:00:01:00"};
    const sheet names = made(std::move(table));
    EXPECT_EQ(names.row_count, 5U);
    EXPECT_EQ(names.column_count, 4U);
    EXPECT_EQ(names.cell(3, 2).value, cell_value());
    EXPECT_EQ(text_at(names, 4, 2), "Total:");
    EXPECT_EQ(text_at(names, 4, 3), "00:00:01:00");
    EXPECT_EQ(names.cell(4, 3).look, (cell_look{text_color::black}));
}

TEST(widths_of_a_sheet, grow_with_the_texts_of_its_records_by_one_before_or_after)
{
    table_sheet<named> table = table_of_both();
    EXPECT_THAT(widths_after(made(table), 0), ElementsAre(5, 7));
    EXPECT_THAT(widths_after(made(table), 2), ElementsAre(11, 7));
    table.margin = width_margin::after_rows;
    EXPECT_THAT(widths_after(made(table), 2), ElementsAre(12, 7));
}

TEST(widths_of_a_sheet, are_those_after_the_first_records_alone)
{
    EXPECT_THAT(widths_after(made(), 1), ElementsAre(5, 7));
}

} // namespace

} // namespace tallyframe
