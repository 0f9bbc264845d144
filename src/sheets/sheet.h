// SPDX-License-Identifier: MIT
#pragma once

#include "report/table_columns.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tallyframe {

/// What a cell's text is written in. Video, audio and marker are the colours that the user chose; a header is
/// bold; none is a cell without any format.
enum class text_color : std::uint8_t { none, header, black, red, video, audio, marker };
inline constexpr std::size_t text_color_count = 7;

/// How a cell shows what it holds.
enum class cell_form : std::uint8_t {
    text,
    centered,
    whole_number, ///< "###,###,##0"
    decimal, ///< "#,##0.00"
    percent, ///< "0.0%", centred
};
inline constexpr std::size_t cell_form_count = 5;

struct cell_look {
    text_color color = text_color::none;
    cell_form form = cell_form::text;

    bool operator==(const cell_look&) const = default;
};

struct sheet_cell {
    cell_value value; ///< none: there is no cell
    cell_look look;
};

struct sheet_column {
    std::size_t width = 0; ///< characters, before the texts below are looked at; 0 leaves it to the program
    bool widens = false; ///< the longest text of a record sets the width
    std::size_t margin = 0; ///< characters added at the end
    cell_look empty_look = {}; ///< of the cells that hold nothing
};

/// A picture as it goes into its row.
struct row_picture {
    std::filesystem::path jpeg;
    double row_height = 0; ///< points: the row is as tall as the picture
    bool is_placeholder = false; ///< it stands in for media that is missing or cannot be read

    bool operator==(const row_picture&) const = default;
};

/// A sheet of the report, whatever it is written to or shown in. Cells are computed when they are asked for,
/// so that a sheet of any length takes little memory; asking again gives the same. Rows and columns count
/// from 0.
///
/// From top to bottom: lists of names where the sheet has them, the titles of the columns, a row for each
/// record, and on sheets of reels a line with the total.
struct sheet {
    std::string name;
    std::size_t header_row = 0; ///< where the titles of the columns stand
    std::size_t record_count = 0; ///< rows directly below it
    std::size_t row_count = 1; ///< all rows
    std::size_t column_count = 0; ///< no cell stands in a later column
    std::size_t frozen_rows = 1; ///< stay in view while scrolling

    std::vector<sheet_column> columns; ///< may be fewer than column_count: the rest keeps its own width

    /// Texts live as long as the sheet and what it was made from.
    std::function<sheet_cell(std::size_t row, std::size_t column)> cell;

    /// Where a record's picture goes; nothing when the sheet has no pictures.
    std::optional<std::size_t> picture_column;

    /// Makes the picture of a row, as a new file. Nothing when there is none. Not set where no pictures are
    /// made.
    std::function<std::optional<row_picture>(std::size_t row)> picture;

    std::size_t progress_steps = 0; ///< of the report's progress, spread over its rows
    bool follows_others = false; ///< its records sum up those of later sheets, and are written after them
};

/// The widths of a sheet's columns while its records are walked.
class growing_widths {
public:
    explicit growing_widths(const sheet& of);

    /// Takes the text of a record's cell into account.
    void see(std::size_t column, std::string_view text);

    /// In characters, finished; 0 for a column that keeps its own width.
    std::vector<double> finished() const;

private:
    const std::vector<sheet_column>& columns_;
    std::vector<std::size_t> widths_;
};

/// The finished widths after the first `records` records.
std::vector<double> widths_after(const sheet& of, std::size_t records);

/// The text of a cell that holds one; nothing for a number and for no cell.
inline std::optional<std::string_view> text_in(const cell_value& value)
{
    if (const auto* text = std::get_if<std::string_view>(&value))
        return *text;
    if (const auto* made_text = std::get_if<std::string>(&value))
        return *made_text;
    return std::nullopt;
}

} // namespace tallyframe
