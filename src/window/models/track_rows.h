// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "document/track_checkboxes.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tallyframe::window {

/// A row of videoTracksTableView or audioTracksTableView.
struct track_row {
    std::string label; ///< "V1"
    std::string name; ///< without the blank that joins it to the label
    std::int64_t item_count = 0;
    bool is_disabled = false; ///< switched off in the timeline
    bool is_ticked = true;

    bool operator==(const track_row&) const = default;
};

std::vector<track_row> track_rows(const std::vector<track_description>& tracks,
                                  const track_checkboxes& checkboxes);

void tick(std::vector<track_row>& rows, std::size_t position, bool is_ticked);
void tick_all(std::vector<track_row>& rows, bool is_ticked);
void tick_only(std::vector<track_row>& rows, std::size_t position);

/// The states that track_checkboxes keeps, 1 for ticked.
std::vector<int> checkbox_states(const std::vector<track_row>& rows);

} // namespace tallyframe::window
