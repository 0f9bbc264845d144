// SPDX-License-Identifier: MIT
#pragma once

#include "report/report_options.h"
#include "window/models/track_rows.h"

#include <vector>

// What the models, and the panels around them, show in their tests.

namespace tallyframe::window {

inline std::vector<track_row> three_tracks()
{
    return {{.label = "V1", .name = "Pictures", .item_count = 12},
            {.label = "V2", .name = "", .item_count = 1234, .is_disabled = true},
            {.label = "V3", .name = "Titles", .is_disabled = true, .is_ticked = false}};
}

inline std::vector<column_layout> two_layouts()
{
    return {{"Conform", {{"Track", 1}}}, {"Music", {{"ID3 Metadata", 1}}}};
}

} // namespace tallyframe::window
