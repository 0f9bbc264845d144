// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace xls {

enum class alignment { general, left, center, right };

/// How a cell looks. Two equal formats of one workbook share one XF record.
struct format {
    std::string font = "Arial";
    double size = 10; ///< points
    bool bold = false;
    bool wrap = false;
    alignment align = alignment::general;
    std::string color =
        {}; ///< font colour: a name of color_names(), "#RRGGBB", or empty for the automatic colour
    std::string number_format = "General"; ///< as Excel writes it, such as "#,##0.00"

    bool operator==(const format&) const = default;
};

/// A format that a workbook has taken in. The default value stands for "no format" (the workbook's plain
/// cell).
struct format_id {
    std::uint16_t index = 0;
    bool operator==(const format_id&) const = default;
};

/// The colour names that a format accepts, in alphabetical order.
const std::vector<std::string_view>& color_names();

/// Whether a format accepts this text as its colour: a name of color_names() or "#RRGGBB".
bool is_color(std::string_view text);

/// The colour that such a text stands for, as 0xRRGGBB; nothing for any other text.
std::optional<std::uint32_t> color_value(std::string_view text);

} // namespace xls
