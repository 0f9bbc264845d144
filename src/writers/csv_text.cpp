// SPDX-License-Identifier: MIT
#include "writers/csv_text.h"

#include <fmt/format.h>

#include <cmath>
#include <string_view>
#include <variant>

namespace tallyframe {

namespace {

std::string quoted(std::string_view text)
{
    const bool looks_like_a_formula =
        !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
    std::string field = looks_like_a_formula ? "'" + std::string(text) : std::string(text);
    if (field.find_first_of(",\"\r\n") == std::string::npos)
        return field;
    for (std::size_t at = field.find('"'); at != std::string::npos; at = field.find('"', at + 2))
        field.insert(at, 1, '"');
    return "\"" + field + "\"";
}

std::string field_of(const cell_value& value)
{
    if (const auto text = text_in(value))
        return quoted(*text);
    const double* number = std::get_if<double>(&value);
    if (number == nullptr || !std::isfinite(*number))
        return "";
    return std::abs(*number) < 0x1p53 && *number == std::trunc(*number) ? fmt::format("{:.0f}", *number)
                                                                        : fmt::format("{}", *number);
}

} // namespace

std::string csv_text(const sheet& of)
{
    std::string lines;
    for (std::size_t row = of.header_row; row <= of.header_row + of.record_count; ++row) {
        for (std::size_t column = 0; column < of.column_count; ++column) {
            lines += column == 0 ? "" : ",";
            lines += field_of(of.cell(row, column).value);
        }
        lines += "\r\n";
    }
    return lines;
}

} // namespace tallyframe
