// SPDX-License-Identifier: MIT
#include "support/shown_sheet.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace tallyframe {

void PrintTo(const cell_look& look, std::ostream* out)
{
    constexpr std::array colors = {"none", "header", "black", "red", "video", "audio", "marker"};
    constexpr std::array forms = {"text", "centered", "whole_number", "decimal", "percent"};
    *out << colors.at(static_cast<std::size_t>(look.color)) << ' '
         << forms.at(static_cast<std::size_t>(look.form));
}

} // namespace tallyframe

namespace tallyframe::testing_support {

namespace {

std::string text_of(double number)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.15g", number);
    return text.data();
}

shown_cell shown(const sheet_cell& cell)
{
    const cell_look look = cell.look.color == text_color::none ? no_look : cell.look; // whatever its form
    if (const double* number = std::get_if<double>(&cell.value)) {
        if (!std::isfinite(*number))
            return {"error", "#NUM!", look};
        return {"number", text_of(*number), look};
    }
    if (const auto text = text_in(cell.value))
        return {text->empty() ? "blank" : "text", std::string(*text), look};
    return {};
}

std::vector<shown_cell> shown_row(const sheet& of, std::size_t row)
{
    std::vector<shown_cell> cells;
    for (std::size_t column = 0; column < of.column_count; ++column) {
        shown_cell cell = shown(of.cell(row, column));
        if (cell.kind.empty())
            continue;
        cells.resize(column);
        cells.push_back(std::move(cell));
    }
    return cells;
}

} // namespace

shown_sheet::shown_sheet(const sheet& of)
    : name(of.name), frozen_rows(of.frozen_rows), widths(widths_after(of, of.record_count))
{
    for (const sheet_column& column : of.columns)
        empty_looks.push_back(column.empty_look);
    for (std::size_t row = 0; row < of.row_count; ++row)
        cells.push_back(shown_row(of, row));
}

shown_cell shown_sheet::cell(std::size_t row, std::size_t column) const
{
    return row < cells.size() && column < cells[row].size() ? cells[row][column] : shown_cell();
}

std::vector<std::string> shown_sheet::row(std::size_t row) const
{
    std::vector<std::string> texts;
    for (const shown_cell& cell : cells.at(row))
        texts.push_back(cell.kind.empty() ? "-" : cell.text);
    return texts;
}

std::vector<std::string> shown_sheet::column(std::size_t column) const
{
    std::vector<std::string> texts;
    for (std::size_t row = 0; row < cells.size(); ++row) {
        const shown_cell shown = cell(row, column);
        texts.push_back(shown.kind.empty() ? "-" : shown.text);
    }
    return texts;
}

std::vector<cell_look> shown_sheet::looks(std::size_t row) const
{
    std::vector<cell_look> looks;
    for (const shown_cell& cell : cells.at(row)) {
        if (!cell.kind.empty() && std::ranges::find(looks, cell.look) == looks.end())
            looks.push_back(cell.look);
    }
    return looks;
}

std::vector<std::string> shown_report::names() const
{
    std::vector<std::string> names;
    for (const shown_sheet& shown : sheets)
        names.push_back(shown.name);
    return names;
}

const shown_sheet& shown_report::sheet(const std::string& name) const
{
    const auto found = std::ranges::find(sheets, name, &shown_sheet::name);
    if (found == sheets.end())
        throw std::out_of_range("the report has no sheet \"" + name + "\"");
    return *found;
}

} // namespace tallyframe::testing_support
