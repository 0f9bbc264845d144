// SPDX-License-Identifier: MIT
#include "cli/chosen_entries.h"

#include "cli/menu_listing.h"
#include "text/visible_text.h"

#include <fmt/format.h>

#include <string>

namespace tallyframe::cli {

namespace {

using positions = std::vector<std::size_t>;

[[noreturn]] void refuse(const std::string& why, const std::vector<catalogue_entry>& menu)
{
    throw usage_error(
        fmt::format("{}\n{}Choose one with --item N, --sequence UUID or --bins, or write them all "
                    "with --all.",
                    why, menu_as_table(menu)));
}

positions entries_where(const std::vector<catalogue_entry>& menu, auto&& is_wanted)
{
    positions found;
    for (std::size_t i = 0; i < menu.size(); ++i) {
        if (!menu[i].is_separator() && is_wanted(menu[i]))
            found.push_back(i);
    }
    return found;
}

positions every_entry(const std::vector<catalogue_entry>& menu)
{
    return entries_where(menu, [](const catalogue_entry&) { return true; });
}

positions only_entry(const std::vector<catalogue_entry>& menu)
{
    positions found = every_entry(menu);
    if (found.size() != 1)
        refuse("The document offers more than one thing to report:", menu);
    return found;
}

positions entry_at(std::size_t position, const std::vector<catalogue_entry>& menu)
{
    if (position == 0 || position > menu.size() || menu[position - 1].is_separator())
        refuse(fmt::format("There is no entry at position {}. The document offers:", position), menu);
    return {position - 1};
}

/// Of several sequences with one identifier the first: they cannot be told apart.
positions entry_with(const std::string& uuid, const std::vector<catalogue_entry>& menu)
{
    positions found = entries_where(
        menu, [&](const catalogue_entry& entry) { return !entry.uuid.empty() && entry.uuid == uuid; });
    if (found.empty())
        refuse(fmt::format("No sequence has the identifier {}. The document offers:", visible_name(uuid)),
               menu);
    found.resize(1);
    return found;
}

positions bins_entry(const std::vector<catalogue_entry>& menu)
{
    positions found = entries_where(menu, [](const catalogue_entry& entry) { return entry.is_bins(); });
    if (found.empty())
        refuse("The document has no clips in bins. It offers:", menu);
    return found;
}

} // namespace

std::vector<std::size_t> chosen_entries(const item_choice& item, const std::vector<catalogue_entry>& menu)
{
    switch (item.by) {
    case item_choice::kind::all:
        return every_entry(menu);
    case item_choice::kind::only_one:
        return only_entry(menu);
    case item_choice::kind::position:
        return entry_at(item.position, menu);
    case item_choice::kind::uuid:
        return entry_with(item.uuid, menu);
    case item_choice::kind::bins:
        return bins_entry(menu);
    }
    return {};
}

} // namespace tallyframe::cli
