// SPDX-License-Identifier: MIT
#include "window/models/time_column_rows.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace tallyframe::window {

namespace {

std::vector<time_format> formats_of(const std::vector<time_column_row>& rows)
{
    std::vector<time_format> formats;
    formats.reserve(rows.size());
    for (const time_column_row& row : rows)
        formats.push_back(row.format);
    return formats;
}

} // namespace

TEST(time_column_rows, list_the_chosen_formats_in_their_order_and_then_the_others)
{
    const auto rows = time_column_rows({time_format::seconds, time_format::clock, time_format::seconds}, {});
    EXPECT_THAT(formats_of(rows),
                ElementsAre(time_format::seconds, time_format::clock, time_format::timecode,
                            time_format::frames, time_format::feet_and_frames));
    EXPECT_THAT(chosen_formats(rows), ElementsAre(time_format::seconds, time_format::clock));
    EXPECT_THAT(chosen_formats(time_column_rows({}, {})), IsEmpty());
}

TEST(time_column_rows, keep_each_adjustment_with_its_format)
{
    const time_adjustments adjustments{
        .hhmmssff_adj = 1, .clock_adj = 2, .frames_adj = 3, .feetframes_adj = -4, .seconds_adj = -5};
    auto rows = time_column_rows({time_format::seconds}, adjustments);
    EXPECT_EQ(rows[0], (time_column_row{time_format::seconds, true, -5}));
    EXPECT_EQ(move_down(rows, 0), 1U);
    const time_adjustments kept = adjustments_of(rows);
    EXPECT_EQ(kept.hhmmssff_adj, 1);
    EXPECT_EQ(kept.clock_adj, 2);
    EXPECT_EQ(kept.frames_adj, 3);
    EXPECT_EQ(kept.feetframes_adj, -4);
    EXPECT_EQ(kept.seconds_adj, -5);
}

TEST(time_column_rows, move_by_one_place_and_not_beyond_the_ends)
{
    auto rows = time_column_rows({}, {});
    EXPECT_EQ(move_up(rows, 0), 0U);
    EXPECT_EQ(move_down(rows, 4), 4U);
    EXPECT_EQ(move_up(rows, 4), 3U);
    EXPECT_THAT(formats_of(rows),
                ElementsAre(time_format::timecode, time_format::clock, time_format::frames,
                            time_format::seconds, time_format::feet_and_frames));
}

} // namespace tallyframe::window
