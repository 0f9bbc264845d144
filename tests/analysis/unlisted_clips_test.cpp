// SPDX-License-Identifier: MIT
// Clip items that get no row are counted, each by its reason.
#include "run/account.h"
#include "support/analyzed_document.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace tallyframe {

namespace {

using namespace testing_support;

std::vector<std::string> losses_of(const xmeml& document)
{
    return sentences_of(analysis_of(document).losses);
}

} // namespace

TEST(unlisted_clips, are_none_where_all_have_rows)
{
    EXPECT_THAT(losses_of(xmeml()
                              .sequence("Cut")
                              .video_track({clip("A").at(0, 50), clip("B").at(50, 90)})
                              .audio_track({clip("S").at(0, 50)})),
                IsEmpty());
}

TEST(unlisted_clips, are_nested_sequences_without_a_media_file)
{
    EXPECT_THAT(
        losses_of(xmeml().sequence("Cut").video_track(
            {clip("Scene 3").without_file().with("<sequence id=\"s3\"/>"),
             clip("Scene 4").at(50, 90).without_file().with("<sequence id=\"s4\"/>")})),
        ElementsAre(
            "2 nested sequences without a media file are not listed (Scene 3 on V1, Scene 4 on V1)."));
}

TEST(unlisted_clips, are_those_without_a_media_file_or_of_one_that_the_document_does_not_tell)
{
    EXPECT_THAT(losses_of(xmeml()
                              .sequence("Cut")
                              .video_track({clip("A").without_file()})
                              .audio_track({clip("S").same_file("nowhere")})),
                ElementsAre("2 clips without a media file are not listed (A on V1, S on A1)."));
}

TEST(unlisted_clips, are_those_that_last_no_frame)
{
    EXPECT_THAT(losses_of(xmeml().sequence("Cut").video_track({clip("A").duration(0)})),
                ElementsAre("1 clip of no length is not listed (A on V1)."));
}

TEST(unlisted_clips, are_those_that_a_later_one_covers)
{
    EXPECT_THAT(losses_of(xmeml().sequence("Cut").video_track({clip("A").at(0, 50), clip("B").at(20, 90)})),
                ElementsAre("1 clip is not listed, because a later one of its track covers it (A on V1)."));
}

TEST(unlisted_clips, are_further_channels_of_others)
{
    EXPECT_THAT(losses_of(xmeml()
                              .sequence("Cut")
                              .audio_track({clip("S")}, {.attributes = R"(currentExplodedTrackIndex="0")"})
                              .audio_track({clip("S"), clip("T").at(50, 90)},
                                           {.attributes = R"(currentExplodedTrackIndex="1")"})),
                ElementsAre("2 audio clips are further channels of others, and not listed."));
}

} // namespace tallyframe
