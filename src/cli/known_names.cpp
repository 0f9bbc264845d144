// SPDX-License-Identifier: MIT
#include "cli/known_names.h"

#include "cli/arguments.h"
#include "report/column_switches.h"
#include "text/visible_text.h"
#include "writers/text_colors.h"

#include <fmt/format.h>

#include <array>
#include <utility>
#include <vector>

namespace tallyframe::cli {

namespace {

constexpr std::array<std::pair<std::string_view, report_scope>, 3> scopes = {{
    {"video+audio", report_scope::video_audio},
    {"video", report_scope::video},
    {"audio", report_scope::audio},
}};

constexpr std::array<std::pair<std::string_view, figure_style>, 2> figure_styles = {{
    {"comparable", figure_style::comparable},
    {"exact", figure_style::exact},
}};

/// The names of a table's entries, as a list in a sentence.
template <class Names, class NameOf>
std::string listed(const Names& names, NameOf name_of)
{
    std::vector<std::string_view> texts;
    texts.reserve(std::size(names));
    for (const auto& entry : names)
        texts.push_back(name_of(entry));
    return fmt::format("{}", fmt::join(texts, ", "));
}

} // namespace

time_format time_format_named(std::string_view name, std::string_view flag)
{
    for (const time_format_name& known : time_formats) {
        if (known.name == name)
            return known.format;
    }
    throw usage_error(
        fmt::format("{}: there is no time format {}. The formats are {}.", flag, visible_name(name),
                    listed(time_formats, [](const time_format_name& known) { return known.name; })));
}

report_scope scope_named(std::string_view name)
{
    for (const auto& [known, scope] : scopes) {
        if (known == name)
            return scope;
    }
    throw usage_error(fmt::format("--scope: there is no scope {}. The scopes are {}.", visible_name(name),
                                  listed(scopes, [](const auto& known) { return known.first; })));
}

figure_style figure_style_named(std::string_view name)
{
    for (const auto& [known, figures] : figure_styles) {
        if (known == name)
            return figures;
    }
    throw usage_error(
        fmt::format("--figures: there are no figures {}. Write comparable or exact.", visible_name(name)));
}

std::string checkbox_titled(std::string_view title)
{
    for (const column_switch_entry& known : all_column_switches) {
        if (known.title == title)
            return std::string(title);
    }
    throw usage_error(fmt::format(
        "--columns: there is no column {}. The columns are {}.", visible_name(title),
        listed(all_column_switches, [](const column_switch_entry& known) { return known.title; })));
}

void check_color(std::string_view name, std::string_view flag)
{
    if (!color_value(name)) {
        throw usage_error(fmt::format("{}: there is no color {}. The colors are {}, or #RRGGBB such as "
                                      "#FF8800.",
                                      flag, visible_name(name),
                                      listed(color_names(), [](std::string_view known) { return known; })));
    }
}

} // namespace tallyframe::cli
