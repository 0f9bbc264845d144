// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace tallyframe {

/// The check boxes of one track table by the track's position (1 ticked, 0 not), and the copy of them that
/// lets ticks survive a new analysis.
struct track_checkboxes {
    std::optional<std::vector<int>> current;
    std::vector<int> clone;

    /// Saves the current states and empties them. An empty list saves nothing: an earlier copy survives a
    /// clear with nothing in between.
    void clone_and_clear();

    /// Sets the state at `position` from the saved copy, or to ticked when that has none there.
    void restore(std::size_t position);

    bool is_ticked(std::size_t position) const;
};

} // namespace tallyframe
