// SPDX-License-Identifier: MIT
#include "workbook/records/cell_records.h"
#include "workbook/records/format_table.h"
#include "workbook/records/globals_records.h"
#include "workbook/records/palette.h"
#include "workbook/records/sheet_records.h"
#include "workbook/workbook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace records = xls::records;

namespace {

/// The bytes that a function appends.
template <class Function, class... Argument>
std::vector<int> bytes_of(Function function, const Argument&... arguments)
{
    xls::byte_writer out;
    function(out, arguments...);
    return {out.view().begin(), out.view().end()};
}

double from_rk(std::uint32_t rk)
{
    const double value = (rk & 2) != 0 ? static_cast<double>(static_cast<std::int32_t>(rk) >> 2)
                                       : std::bit_cast<double>(static_cast<std::uint64_t>(rk & ~3U) << 32);
    return (rk & 1) != 0 ? value / 100 : value;
}

} // namespace

TEST(globals_records, say_which_format_this_is)
{
    EXPECT_THAT(bytes_of(records::bof, records::substream::globals),
                ElementsAre(0x09, 0x08, 16, 0, 0x00, 0x06, 0x05, 0x00, 0xBB, 0x0D, 0xCC, 0x07, 0x41, 0, 0, 0,
                            6, 0, 0, 0));
    EXPECT_THAT(bytes_of(records::eof), ElementsAre(0x0A, 0, 0, 0));
}

TEST(globals_records, describe_fonts)
{
    const records::font_description font{.name = u"Ab", .height = 220, .bold = true, .color = 12};
    EXPECT_THAT(
        bytes_of(records::font, font),
        ElementsAre(0x31, 0, 18, 0, 220, 0, 0, 0, 12, 0, 0xBC, 0x02, 0, 0, 0, 0, 0, 0, 2, 0, 'A', 'b'));
    EXPECT_THAT(bytes_of(records::font, records::font_description{.name = u"\u65e5"}),
                ElementsAre(0x31, 0, 18, 0, 200, 0, 0, 0, 0xFF, 0x7F, 0x90, 0x01, 0, 0, 0, 0, 0, 0, 1, 1,
                            0xE5, 0x65));
}

TEST(globals_records, describe_number_formats)
{
    EXPECT_THAT(bytes_of(records::number_format, std::uint16_t{164}, std::u16string_view(u"0.0%")),
                ElementsAre(0x1E, 0x04, 9, 0, 164, 0, 4, 0, 0, '0', '.', '0', '%'));
}

TEST(globals_records, describe_cell_formats)
{
    EXPECT_THAT(
        bytes_of(records::cell_xf, records::xf_description{}),
        ElementsAre(0xE0, 0, 20, 0, 0, 0, 0, 0, 1, 0, 0x20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xC0, 0x20));
    const records::xf_description xf{
        .font = 5, .number_format = 4, .align = xls::alignment::center, .wrap = true};
    EXPECT_THAT(
        bytes_of(records::cell_xf, xf),
        ElementsAre(0xE0, 0, 20, 0, 5, 0, 4, 0, 1, 0, 0x2A, 0, 0, 0x1C, 0, 0, 0, 0, 0, 0, 0, 0, 0xC0, 0x20));
}

TEST(globals_records, name_sheets)
{
    EXPECT_THAT(bytes_of([](xls::byte_writer& out) { EXPECT_EQ(records::bound_sheet(out, u"\u00eb"), 4U); }),
                ElementsAre(0x85, 0, 9, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0xEB));
}

TEST(cell_records, hold_one_cell)
{
    const records::cell_place place{.row = 0x0102, .column = 3, .xf = 16};
    EXPECT_THAT(records::label_sst(place, 0x0A0B0C0D),
                ElementsAre(0xFD, 0, 10, 0, 2, 1, 3, 0, 16, 0, 0x0D, 0x0C, 0x0B, 0x0A));
    EXPECT_THAT(records::number(place, 1.5),
                ElementsAre(0x03, 2, 14, 0, 2, 1, 3, 0, 16, 0, 0, 0, 0, 0, 0, 0, 0xF8, 0x3F));
    EXPECT_THAT(records::rk(place, 0x01020304), ElementsAre(0x7E, 2, 10, 0, 2, 1, 3, 0, 16, 0, 4, 3, 2, 1));
    EXPECT_THAT(records::error(place, records::error_code::number),
                ElementsAre(0x05, 2, 8, 0, 2, 1, 3, 0, 16, 0, 0x24, 1));
    EXPECT_THAT(records::blank(place), ElementsAre(0x01, 2, 6, 0, 2, 1, 3, 0, 16, 0));
}

TEST(compressed_number, loses_nothing)
{
    for (const double value :
         {0.0, 1.0, -1.0, 0.01, -0.07, 12.34, 99999.99, 536870911.0, -536870912.0, 0.5, 1e300, 0x1p-1000}) {
        const auto rk = records::compressed_number(value);
        EXPECT_EQ(rk ? from_rk(*rk) : value, value);
    }
    for (const double value : {0.0, 1.0, -1.0, 0.01, -0.07, 12.34, 536870911.0, -536870912.0, 0.5, 0x1p-1000})
        EXPECT_TRUE(records::compressed_number(value)) << value;
    for (const double value : {0.1 + 0.2, 1.0 / 3, 12.345, 536870912.5, 1e300})
        EXPECT_FALSE(records::compressed_number(value)) << value;
}

TEST(compressed_number, keeps_the_sign_of_zero)
{
    const auto rk = records::compressed_number(-0.0);
    EXPECT_TRUE(!rk || std::signbit(from_rk(*rk)));
}

TEST(sheet_records, describe_rows_and_columns)
{
    EXPECT_THAT(bytes_of(records::column_info, std::uint16_t{1}, std::uint16_t{3},
                         records::column_description{1718, 16}),
                ElementsAre(0x7D, 0, 12, 0, 1, 0, 3, 0, 0xB6, 6, 16, 0, 2, 0, 0, 0));
    EXPECT_THAT(bytes_of(records::column_info, std::uint16_t{0}, std::uint16_t{0},
                         records::column_description{0, 15}),
                ElementsAre(0x7D, 0, 12, 0, 0, 0, 0, 0, 0, 0, 15, 0, 3, 0, 0, 0));
    EXPECT_THAT(
        bytes_of(records::row,
                 records::row_description{.row = 7, .first_column = 1, .end_column = 4, .height = 255}),
        ElementsAre(0x08, 2, 16, 0, 7, 0, 1, 0, 4, 0, 255, 0, 0, 0, 0, 0, 0, 1, 15, 0));
    EXPECT_THAT(
        bytes_of(records::row, records::row_description{.row = 7, .height = 2700, .height_is_set = true}),
        ElementsAre(0x08, 2, 16, 0, 7, 0, 0, 0, 0, 0, 0x8C, 0x0A, 0, 0, 0, 0, 0x40, 1, 15, 0));
}

TEST(sheet_records, know_their_sizes)
{
    xls::byte_writer out;
    records::index(
        out, {.first_row = 0, .end_row = 64, .column_width_position = 9, .db_cell_positions = {100, 200}});
    EXPECT_EQ(out.size(), records::index_size(2));
    xls::byte_writer cells;
    records::db_cell(cells, 500, {20, 30, 40});
    EXPECT_EQ(cells.size(), records::db_cell_size(3));
    xls::byte_writer row;
    records::row(row, {});
    EXPECT_EQ(row.size(), records::row_size);
}

TEST(sheet_records, freeze_panes)
{
    EXPECT_THAT(bytes_of(records::panes, records::frozen_panes{.rows = 1, .columns = 0}),
                ElementsAreArray({0x41, 0, 10, 0, 0, 0, 1, 0, 1, 0, 0, 0, 2, 0, 0x1D, 0,    15, 0,
                                  3,    0, 0,  0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0,    0x1D, 0,  15,
                                  0,    2, 0,  0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0,    0}));
}

TEST(format_table, uses_built_in_number_formats)
{
    const auto number_format_of = [](const std::string& code) {
        xls::format_table formats;
        formats.add({.bold = true, .number_format = code});
        xls::byte_writer out;
        formats.write(out);
        // The last XF stands before STYLE (8 bytes) and PALETTE (230 bytes).
        const auto last_xf = out.size() - 230 - 8 - 24;
        return out.view()[last_xf + 6] + 256 * out.view()[last_xf + 7];
    };
    EXPECT_EQ(number_format_of("General"), 0);
    EXPECT_EQ(number_format_of("0"), 1);
    EXPECT_EQ(number_format_of("#,##0.00"), 4);
    EXPECT_EQ(number_format_of("0%"), 9);
    EXPECT_EQ(number_format_of("0.00%"), 10);
    EXPECT_EQ(number_format_of("@"), 49);
    EXPECT_EQ(number_format_of("0.0%"), 164);
    EXPECT_EQ(number_format_of("###,###,##0"), 164);
}

TEST(format_table, knows_how_high_its_texts_are)
{
    xls::format_table formats;
    formats.add({.font = "Helvetica", .size = 11});
    const auto heights = formats.row_heights();
    ASSERT_EQ(heights.size(), 17U);
    EXPECT_EQ(heights[15], 255); // 12.75 points
    EXPECT_EQ(heights[16], 285);
}

TEST(format_table, refuses_what_a_font_record_does_not_hold)
{
    xls::format_table formats;
    EXPECT_THROW(formats.add({.font = ""}), xls::workbook_error);
    EXPECT_THROW(formats.add({.font = std::string(32, 'x')}), xls::workbook_error);
    EXPECT_THROW(formats.add({.number_format = std::string(256, '0')}), xls::workbook_error);
}

TEST(format_table, says_when_it_is_full)
{
    xls::format_table formats;
    for (int i = 0; i < 200; ++i)
        formats.add({.number_format = "0\"" + std::to_string(i) + "\""});
    EXPECT_THROW(formats.add({.number_format = "0\"more\""}), xls::workbook_error);

    xls::format_table fonts;
    for (int i = 0; i < 508; ++i)
        fonts.add({.font = "Font " + std::to_string(i)});
    EXPECT_THROW(fonts.add({.font = "more"}), xls::workbook_error);
}

TEST(format_table, refuses_the_format_of_another_workbook)
{
    const xls::format_table formats;
    EXPECT_EQ(formats.xf_of({}), 15);
    EXPECT_THROW(formats.xf_of({1}), std::out_of_range);
}

TEST(palette, knows_the_names)
{
    xls::palette palette;
    const std::vector<std::pair<const char*, int>> names{
        {"black", 8},    {"white", 9}, {"red", 10},   {"lime", 11},  {"blue", 12}, {"yellow", 13},
        {"magenta", 14}, {"cyan", 15}, {"brown", 16}, {"green", 17}, {"navy", 18}, {"purple", 20},
        {"silver", 22},  {"gray", 23}, {"pink", 33},  {"orange", 53}};
    EXPECT_EQ(xls::color_names().size(), names.size());
    for (const auto& [name, index] : names) {
        EXPECT_TRUE(xls::is_color(name));
        EXPECT_EQ(palette.index_of(name), index) << name;
    }
    EXPECT_EQ(palette.index_of(""), xls::automatic_color);
    EXPECT_TRUE(std::ranges::is_sorted(xls::color_names()));
}

TEST(palette, takes_any_color_by_its_parts)
{
    xls::palette palette;
    EXPECT_EQ(palette.index_of("#0000ff"), 12);
    EXPECT_EQ(palette.index_of("#FF9900"), 52);
    const auto own = palette.index_of("#12ABef");
    EXPECT_EQ(palette.index_of("#12abEF"), own);
    xls::byte_writer out;
    palette.write(out);
    const auto at = 6 + 4U * (own - 8U);
    EXPECT_EQ(out.view()[at], 0x12);
    EXPECT_EQ(out.view()[at + 1], 0xAB);
    EXPECT_EQ(out.view()[at + 2], 0xEF);
}

TEST(is_color, refuses_what_is_none)
{
    for (const auto* text :
         {"", "mauve", "Red", "#12345", "#1234567", "#12345G", "#-12345", "#+12345", "123456", "# 12345"})
        EXPECT_FALSE(xls::is_color(text)) << text;
    EXPECT_TRUE(xls::is_color("#00aaFF"));
}
