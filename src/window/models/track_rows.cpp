// SPDX-License-Identifier: MIT
#include "window/models/track_rows.h"

#include <algorithm>

namespace tallyframe::window {

std::vector<track_row> track_rows(const std::vector<track_description>& tracks,
                                  const track_checkboxes& checkboxes)
{
    std::vector<track_row> rows;
    rows.reserve(tracks.size());
    for (const track_description& track : tracks) {
        const std::size_t name_start = std::min(track.name.find_first_not_of(' '), track.name.size());
        rows.push_back({.label = track.label,
                        .name = track.name.substr(name_start),
                        .item_count = track.item_count,
                        .is_disabled = track.enabled == "FALSE",
                        .is_ticked = checkboxes.is_ticked(rows.size())});
    }
    return rows;
}

void tick(std::vector<track_row>& rows, std::size_t position, bool is_ticked)
{
    if (position < rows.size())
        rows[position].is_ticked = is_ticked;
}

void tick_all(std::vector<track_row>& rows, bool is_ticked)
{
    for (track_row& row : rows)
        row.is_ticked = is_ticked;
}

void tick_only(std::vector<track_row>& rows, std::size_t position)
{
    tick_all(rows, false);
    tick(rows, position, true);
}

std::vector<int> checkbox_states(const std::vector<track_row>& rows)
{
    std::vector<int> states;
    states.reserve(rows.size());
    for (const track_row& row : rows)
        states.push_back(row.is_ticked ? 1 : 0);
    return states;
}

} // namespace tallyframe::window
