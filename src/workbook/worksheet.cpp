// SPDX-License-Identifier: MIT
#include "workbook/worksheet.h"

#include "workbook/records/workbook_content.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace xls {

namespace {

/// Excel shows a width in digits of the default font (Arial 10: 7 pixels wide) less a padding of 5 pixels,
/// and stores it in 1/256 of a digit with the padding. Below one digit the padding shrinks with the width.
std::uint16_t stored_width(double characters)
{
    constexpr double digit = 7;
    constexpr double padding = 5;
    constexpr double most = 255;
    const auto shown = std::fmax(0, std::fmin(characters, most));
    const auto pixels = shown < 1 ? shown * (digit + padding) : shown * digit + padding;
    return static_cast<std::uint16_t>(std::fmin(pixels / digit, most) * 256);
}

std::string cell_name(std::size_t row, std::size_t column)
{
    constexpr std::size_t letters = 26;
    std::string name(1, static_cast<char>('A' + column % letters));
    if (column >= letters)
        name.insert(name.begin(), static_cast<char>('A' + column / letters - 1));
    return name + std::to_string(row + 1);
}

/// A picture's size in pixels when it is shown at most `highest` points high.
shown_size size_within(const picture_header& picture, double highest)
{
    constexpr double points_per_pixel = 0.75;
    const double pixels = std::fmax(1, std::floor(highest / points_per_pixel));
    if (picture.height <= pixels)
        return {picture.width, picture.height};
    const double width = std::fmax(1, std::round(picture.width * pixels / picture.height));
    return {static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(pixels)};
}

/// Notes that the sheet reaches to this cell. Answers whether there is room for it.
bool takes(sheet_content& sheet, std::size_t row, std::size_t column)
{
    sheet.rows_wanted = std::max(sheet.rows_wanted, row + 1);
    sheet.columns_wanted = std::max(sheet.columns_wanted, column + 1);
    return row < row_limit && column < column_limit;
}

} // namespace

worksheet::worksheet(workbook_content& book, sheet_content& sheet) : book_(book), sheet_(sheet) { }

void worksheet::write_string(std::size_t row, std::size_t column, std::string_view text, format_id format)
{
    const auto xf = book_.formats.xf_of(format);
    if (!takes(sheet_, row, column))
        return;
    const records::cell_place place{static_cast<std::uint16_t>(row), static_cast<std::uint16_t>(column), xf};
    if (text.empty())
        return sheet_.cells.put_blank(place);
    const auto [index, newly_cut] = book_.strings.add(text);
    sheet_.cells.put(place, records::label_sst(place, index));
    if (!newly_cut)
        return;
    book_.cut_texts.push_back({sheet_.name, row, column});
    if (book_.log)
        book_.log("The text in cell " + cell_name(row, column) + " of sheet \"" + sheet_.name
                  + "\" was cut: a cell holds 32,767 characters.");
}

void worksheet::write_number(std::size_t row, std::size_t column, double value, format_id format)
{
    const auto xf = book_.formats.xf_of(format);
    if (!takes(sheet_, row, column))
        return;
    const records::cell_place place{static_cast<std::uint16_t>(row), static_cast<std::uint16_t>(column), xf};
    auto& cells = sheet_.cells;
    if (!std::isfinite(value))
        cells.put(place, records::error(place, records::error_code::number));
    else if (const auto compressed = records::compressed_number(value))
        cells.put(place, records::rk(place, *compressed));
    else
        cells.put(place, records::number(place, value));
}

void worksheet::write_blank(std::size_t row, std::size_t column, format_id format)
{
    write_string(row, column, {}, format);
}

void worksheet::set_column(std::size_t first, std::size_t last, double width, format_id format)
{
    const records::column_description column{.width = stored_width(width), .xf = book_.formats.xf_of(format)};
    for (auto i = first; i <= last && i < column_limit; ++i)
        sheet_.columns[i] = column;
}

void worksheet::set_row(std::size_t row, double height)
{
    constexpr double twips_in_point = 20;
    if (row >= row_limit)
        return;
    auto& heights = sheet_.row_heights;
    if (row >= heights.size())
        heights.resize(row + 1);
    heights[row] = static_cast<std::uint16_t>(
        std::lround(std::fmax(0, std::fmin(height, highest_row)) * twips_in_point));
}

void worksheet::freeze_panes(std::size_t row, std::size_t column)
{
    sheet_.frozen = {.rows = static_cast<std::uint16_t>(std::min(row, row_limit - 1)),
                     .columns = static_cast<std::uint16_t>(std::min(column, column_limit - 1))};
}

void worksheet::insert_image(std::size_t row, std::size_t column, const std::filesystem::path& picture,
                             double highest)
{
    constexpr std::size_t picture_limit = 0xFFFF;
    auto file = read_picture_file(picture);
    if (!takes(sheet_, row, column))
        return;
    if (sheet_.pictures.size() == picture_limit)
        throw workbook_error("The sheet \"" + sheet_.name + "\" holds 65,535 pictures, and no more.");
    const shown_size size = size_within(file.header, highest);
    sheet_.pictures.push_back({static_cast<std::uint16_t>(row), static_cast<std::uint16_t>(column),
                               book_.pictures.add(std::move(file)), size});
}

} // namespace xls
