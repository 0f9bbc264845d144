// SPDX-License-Identifier: MIT
#include "cli/menu_listing.h"

#include "text/utf8.h"
#include "text/visible_text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace tallyframe::cli {

namespace {

constexpr std::size_t widest_title = 60; // longer titles push their own identifier aside, not all others

constexpr const char* no_identifier = "(no identifier)";

} // namespace

std::string menu_as_table(const std::vector<catalogue_entry>& menu)
{
    std::vector<std::string> titles;
    std::size_t title_width = 0;
    for (const catalogue_entry& entry : menu) {
        titles.push_back(visible_text(entry.title));
        title_width = std::max(title_width, std::min(text_length(titles.back()), widest_title));
    }

    std::string table;
    for (std::size_t i = 0; i < menu.size(); ++i) {
        if (menu[i].is_separator()) {
            table += std::string(title_width + 6, '-') + "\n";
            continue;
        }
        const std::size_t length = text_length(titles[i]);
        const std::string padding(length < title_width ? title_width - length : 0, ' ');
        const std::string identifier = menu[i].unidentified ? no_identifier : visible_text(menu[i].uuid);
        const std::string line = fmt::format("{:>4}  {}{}  {}", i + 1, titles[i], padding, identifier);
        table += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return table;
}

std::string menu_as_json(const std::vector<catalogue_entry>& menu)
{
    nlohmann::ordered_json entries = nlohmann::ordered_json::array();
    for (std::size_t i = 0; i < menu.size(); ++i) {
        nlohmann::ordered_json entry = {
            {"position", i + 1}, {"title", menu[i].title}, {"uuid", menu[i].uuid}};
        if (menu[i].unidentified)
            entry["unidentified"] = true;
        entries.push_back(std::move(entry));
    }
    return entries.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

std::string empty_menu_sentence(std::string_view document, std::size_t left_out)
{
    if (left_out != 0)
        return fmt::format("{} offers nothing to report that has an identifier.\n{}", visible_name(document),
                           left_out_sentence(left_out));
    return fmt::format(
        "{} offers nothing to report: no clips in bins, and no sequence.\nExport the sequence again as XML "
        "from Premiere Pro, or from Final Cut Pro 7 as \"Apple XML Interchange Format, version 5\".\n",
        visible_name(document));
}

std::string left_out_sentence(std::size_t left_out)
{
    if (left_out == 0)
        return {};
    return fmt::format("{} without an identifier (uuid) {} left out. To have {} too, add --unidentified.\n",
                       left_out == 1 ? "1 sequence" : fmt::format("{} sequences", left_out),
                       left_out == 1 ? "was" : "were", left_out == 1 ? "it" : "them");
}

} // namespace tallyframe::cli
