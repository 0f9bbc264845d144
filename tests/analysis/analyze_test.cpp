// SPDX-License-Identifier: MIT
#include "analysis/analyze.h"
#include "platform/failures.h"
#include "support/analyzed_document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using namespace testing;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> names_of(const auto& records)
{
    std::vector<std::string> names;
    for (const auto& record : records)
        names.push_back(std::optional<std::string>(record.name).value_or("(none)"));
    return names;
}

xmeml one_clip_each()
{
    return xmeml()
        .sequence("Reel 1")
        .video_track({clip("Picture"), transition(40, 60, "Dissolve", "Cross Dissolve")})
        .audio_track({clip("Sound")});
}

TEST(analyze, reads_the_header_of_a_sequence)
{
    const analysis_result result = analysis_of(xmeml().sequence(
        "Reel 1", {.timebase = 30, .ntsc = "True", .displayformat = "DF", .duration = 5000}));
    EXPECT_TRUE(result.is_sequence);
    EXPECT_EQ(result.sequence_name, "Reel 1");
    EXPECT_EQ(result.sequence_duration, 5000);
    EXPECT_EQ(result.seq_fcp_rate, (frame_rate{29.97, true}));
    EXPECT_EQ(result.seq_displayformat, "DF");
    EXPECT_EQ(result.sequence_width, std::nullopt);
    EXPECT_EQ(result.seq_samplerate, std::nullopt);
}

TEST(analyze, walks_video_then_audio)
{
    const analysis_result result = analysis_of(one_clip_each());
    EXPECT_THAT(names_of(result.video_clip_data_array), ElementsAre("Picture"));
    EXPECT_THAT(names_of(result.audio_clip_data_array), ElementsAre("Sound"));
    EXPECT_THAT(names_of(result.video_transition_array), ElementsAre("Dissolve ▸ Cross Dissolve"));
}

TEST(analyze, leaves_tracks_out_of_scope_without_records)
{
    const analyzed_document video(one_clip_each(), "uuid-1", "video");
    EXPECT_THAT(video.result.audio_clip_data_array, IsEmpty());
    EXPECT_EQ(video.display.length, 2 + 2) << "two files, a clip and a transition";
    const analyzed_document audio(one_clip_each(), "uuid-1", "audio");
    EXPECT_THAT(audio.result.video_clip_data_array, IsEmpty());
    EXPECT_EQ(audio.display.length, 2 + 1);
}

} // namespace

} // namespace tallyframe
