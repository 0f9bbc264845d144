// SPDX-License-Identifier: MIT
#include "window/models/media_places.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace tallyframe::window {

TEST(media_places, are_mapped_where_they_stand_for_a_folder_of_the_timeline_and_searched_otherwise)
{
    report_options options;
    options.inpoint_thumbnail_jpegs = true;
    const media_choice choice =
        media_choice_of(options, {{"", "/mnt/music"}, {"/Volumes/Rushes", "/mnt/rushes"}});
    EXPECT_TRUE(choice.wants_pictures);
    EXPECT_FALSE(choice.keeps_pictures);
    EXPECT_THAT(choice.search, ElementsAre("/mnt/music"));
    ASSERT_EQ(choice.map.size(), 1U);
    EXPECT_EQ(choice.map[0].from, "/Volumes/Rushes");
    EXPECT_EQ(choice.map[0].to, "/mnt/rushes");
}

TEST(media_places, are_looked_at_for_no_more_than_the_options_ask)
{
    const media_choice none = media_choice_of({}, {});
    EXPECT_FALSE(none.wants_pictures);
    EXPECT_THAT(none.search, IsEmpty());
    EXPECT_THAT(none.map, IsEmpty());
    report_options options;
    options.inpoint_thumbnail_jpegs = true;
    options.keep_thumbnails = true;
    EXPECT_TRUE(media_choice_of(options, {}).keeps_pictures);
}

} // namespace tallyframe::window
