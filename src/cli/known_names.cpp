// SPDX-License-Identifier: MIT
#include "cli/known_names.h"

#include "cli/arguments.h"
#include "report/column_switches.h"
#include "workbook/format.h"

#include <fmt/format.h>

#include <array>
#include <utility>
#include <vector>

namespace tallyframe::cli {

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 3> scopes = {{
    {"video+audio", "video + audio"},
    {"video", "video"},
    {"audio", "audio"},
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
        fmt::format("{}: there is no time format \"{}\". The formats are {}.", flag, name,
                    listed(time_formats, [](const time_format_name& known) { return known.name; })));
}

std::string scope_named(std::string_view name)
{
    for (const auto& [known, preference] : scopes) {
        if (known == name)
            return std::string(preference);
    }
    throw usage_error(fmt::format("--scope: there is no scope \"{}\". The scopes are {}.", name,
                                  listed(scopes, [](const auto& known) { return known.first; })));
}

std::string checkbox_titled(std::string_view title)
{
    for (const column_switch_entry& known : all_column_switches) {
        if (known.title == title)
            return std::string(title);
    }
    throw usage_error(fmt::format(
        "--columns: there is no column \"{}\". The columns are {}.", title,
        listed(all_column_switches, [](const column_switch_entry& known) { return known.title; })));
}

void check_color(std::string_view name, std::string_view flag)
{
    if (!xls::is_color(name)) {
        throw usage_error(fmt::format(
            "{}: there is no color \"{}\". The colors are {}, or #RRGGBB such as "
            "#FF8800.",
            flag, name, listed(xls::color_names(), [](std::string_view known) { return known; })));
    }
}

} // namespace tallyframe::cli
