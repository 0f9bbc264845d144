// SPDX-License-Identifier: MIT
#include "media/markers.h"

#include "document/text_values.h"
#include "run/failures.h"
#include "text/leading_numbers.h"
#include "text/visible_text.h"

#include <algorithm>
#include <array>
#include <string>

namespace tallyframe {

namespace {

struct rgb {
    std::int64_t red, green, blue;
    bool operator==(const rgb&) const = default;
};

struct marker_colors_row {
    std::string_view name;
    std::optional<std::int64_t> ppro_color; ///< 0xAABBGGRR as Premiere Pro packs it
    std::optional<rgb> color; ///< as Final Cut Pro writes it
};

// The gaps are meant: Premiere Pro's own green and pink have no row, and its unknown colours are called
// Green.
constexpr std::array<marker_colors_row, 9> marker_colors = {{
    {"Red", 4281740498, rgb{255, 0, 0}},
    {"Orange", 4280578025, rgb{255, 127, 0}},
    {"Yellow", 4281049552, rgb{255, 255, 0}},
    {"Green", {}, rgb{48, 191, 72}},
    {"Turquoise", 4292277273, rgb{48, 191, 191}},
    {"Blue", 4294741314, rgb{0, 128, 255}},
    {"Purple", 4289825711, rgb{127, 0, 255}},
    {"Pink", {}, rgb{255, 0, 127}},
    {"White", 4294967295, {}},
}};

template <class Value>
std::string_view color_name(Value value, std::optional<Value> marker_colors_row::*column,
                            std::string_view otherwise)
{
    const auto* row = std::ranges::find(marker_colors, value, column);
    return row == marker_colors.end() ? otherwise : row->name;
}

/// "The marker \"Take 2\" of the clip item \"Interview\"", for the sentence of a failure.
std::string description_of(xml_node marker)
{
    std::string text = "A marker";
    if (const auto name = marker.text_of("name"))
        text = "The marker " + in_quotes(*name);
    const xml_node owner = marker.parent();
    text += " of the " + std::string(owner.name());
    if (const auto owner_name = owner.text_of("name"))
        text += ' ' + in_quotes(*owner_name);
    return text;
}

std::string required_text(xml_node marker, std::string_view path)
{
    if (auto text = marker.text_of(path))
        return std::move(*text);
    throw analysis_error(description_of(marker) + " has no \"" + std::string(path)
                         + "\" element. Set that marker anew and export the document again.");
}

std::string_view type_of_comment(std::string_view comment)
{
    if (comment.find("<CHAPTER>") != std::string_view::npos)
        return "Chapter";
    if (comment.find("<COMPRESSION>") != std::string_view::npos)
        return "Compression";
    if (comment.find("<SCORING>") != std::string_view::npos)
        return "Scoring";
    return "Note";
}

std::string_view color_of(xml_node marker, bool is_ppro)
{
    std::string_view name = is_ppro ? "Green" : "";
    if (marker.child("color")) {
        const rgb color{leading_integer(required_text(marker, "color/red")),
                        leading_integer(required_text(marker, "color/green")),
                        leading_integer(required_text(marker, "color/blue"))};
        name = color_name(color, &marker_colors_row::color, "Red");
    }
    // Premiere Pro's packed colour wins, known or not.
    if (const auto packed = marker.text_of("pproColor"))
        name = color_name(leading_integer(*packed), &marker_colors_row::ppro_color, "Green");
    return name;
}

} // namespace

marker_record marker_hash(xml_node marker, std::int64_t offset, bool is_ppro, figure_style figures)
{
    marker_record record;
    record.name = shown_name(required_text(marker, "name"), figures);
    record.type = "Note";
    const std::int64_t in = truncated_number(required_text(marker, "in"));
    const std::int64_t out = truncated_number(required_text(marker, "out"));
    record.in_point = in;
    if (out == -1) { // a marker on a single frame
        record.out_point = in;
        record.duration = 0;
    } else {
        record.out_point = out - 1;
        record.duration = out - in;
    }
    if (const auto comment = marker.text_of("comment")) {
        record.comment = shown_name(*comment, figures);
        record.type = type_of_comment(*comment);
    }
    record.color = color_of(marker, is_ppro);
    record.in_frame = record.in_point + offset;
    record.out_frame = record.out_point + offset;
    return record;
}

} // namespace tallyframe
