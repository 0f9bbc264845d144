// SPDX-License-Identifier: MIT
#pragma once

#include "sheets/sheet.h"

#include <cstddef>
#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace tallyframe {

/// How a failed test writes a look: "video centered".
void PrintTo(const cell_look& look, std::ostream* out);

} // namespace tallyframe

namespace tallyframe::testing_support {

/// A cell of a sheet, for comparison.
struct shown_cell {
    std::string kind; ///< "text", "number", "blank" (the empty text), "error" (what is no number); empty
                      ///< where there is no cell
    std::string text; ///< a text as it is, a number as "1.5", an error as "#NUM!"
    cell_look look;
};

/// What a sheet shows. All of it is copied: the sheet may go.
struct shown_sheet {
    std::string name;
    std::size_t frozen_rows = 0;
    std::vector<double> widths; ///< finished, in characters; 0 for a column that keeps its own
    std::vector<cell_look> empty_looks; ///< of the cells that hold nothing, by column
    std::vector<std::vector<shown_cell>> cells; ///< all rows, each up to its last cell

    explicit shown_sheet(const sheet& of);

    shown_cell cell(std::size_t row, std::size_t column) const;
    std::size_t row_count() const { return cells.size(); }

    /// The texts of a row up to its last cell; "-" where there is no cell, "" for a blank one.
    std::vector<std::string> row(std::size_t row) const;
    std::vector<std::string> column(std::size_t column) const;

    /// The distinct looks of a row's cells, from left to right.
    std::vector<cell_look> looks(std::size_t row) const;
};

/// What the sheets of a report show.
struct shown_report {
    std::vector<shown_sheet> sheets;

    explicit shown_report(std::span<const tallyframe::sheet> of) : sheets(of.begin(), of.end()) { }

    std::vector<std::string> names() const;
    const shown_sheet& sheet(const std::string& name) const; ///< throws when there is none
};

inline constexpr cell_look header_look = {text_color::header};
inline constexpr cell_look black_text = {text_color::black};
inline constexpr cell_look black_share = {text_color::black, cell_form::percent};
inline constexpr cell_look red_text = {text_color::red};
inline constexpr cell_look video_text = {text_color::video};
inline constexpr cell_look video_center = {text_color::video, cell_form::centered};
inline constexpr cell_look video_integer = {text_color::video, cell_form::whole_number};
inline constexpr cell_look video_decimal = {text_color::video, cell_form::decimal};
inline constexpr cell_look audio_text = {text_color::audio};
inline constexpr cell_look audio_center = {text_color::audio, cell_form::centered};
inline constexpr cell_look marker_text = {text_color::marker};
inline constexpr cell_look no_look = {};

} // namespace tallyframe::testing_support
