// SPDX-License-Identifier: MIT
#include "window/models/made_rows.h"
#include "window/models/track_rows.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace tallyframe::window {

TEST(track_rows, tell_of_each_track_what_the_table_shows)
{
    const std::vector<track_description> tracks = {
        {.label = "A1", .name = " Dialogue", .enabled = "TRUE", .item_count = 7},
        {.label = "A2", .name = "", .enabled = "FALSE", .item_count = 0}};
    const track_checkboxes checkboxes{.current = std::vector{0, 1}, .clone = {}};
    EXPECT_THAT(
        track_rows(tracks, checkboxes),
        ElementsAre(track_row{"A1", "Dialogue", 7, false, false}, track_row{"A2", "", 0, true, true}));
}

TEST(track_rows, tick_one_all_none_or_only_one)
{
    std::vector<track_row> rows = three_tracks();
    tick(rows, 2, true);
    EXPECT_THAT(checkbox_states(rows), ElementsAre(1, 1, 1));
    tick_only(rows, 1);
    EXPECT_THAT(checkbox_states(rows), ElementsAre(0, 1, 0));
    tick_all(rows, true);
    EXPECT_THAT(checkbox_states(rows), ElementsAre(1, 1, 1));
    tick_all(rows, false);
    EXPECT_THAT(checkbox_states(rows), ElementsAre(0, 0, 0));
    tick(rows, 99, true);
    EXPECT_THAT(checkbox_states(rows), ElementsAre(0, 0, 0));
}

} // namespace tallyframe::window
