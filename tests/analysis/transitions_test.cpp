// SPDX-License-Identifier: MIT
#include "analysis/transitions.h"
#include "run/failures.h"
#include "support/analyzed_document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using namespace testing_support;
using testing::HasSubstr;

transition_record record_of(const std::string& markup)
{
    return analysis_of(xmeml().sequence("Reel 1").video_track({markup})).video_transition_array.at(0);
}

TEST(transitions, join_category_and_name)
{
    const transition_record record = record_of(transition(40, 60, "Dissolve", "Cross Dissolve"));
    EXPECT_EQ(record.name, "Dissolve ▸ Cross Dissolve");
    EXPECT_TRUE(record.apple);
    EXPECT_EQ(record_of(transition(40, 60, "", "Cross Dissolve")).name, "Cross Dissolve");
    EXPECT_FALSE(record_of(transition(40, 60, "", "Cross Dissolve")).apple);
    EXPECT_EQ(record_of(transition(40, 60, "Dissolve", "")).name, "Dissolve ▸ ");
    EXPECT_EQ(record_of(transition(40, 60, "", "")).name, "");
}

TEST(transitions, stand_on_the_clock_of_the_sequence)
{
    const analysis_result result =
        analysis_of(xmeml()
                        .sequence("Reel 1", {.start_frame = 1000})
                        .audio_track({transition(40, 60, "", "Cross Fade ( 0dB)")},
                                     {.attributes = R"(MZ.TrackName="FX")", .enabled = "False"}));
    ASSERT_EQ(result.audio_transition_array.size(), 1U);
    const transition_record& record = result.audio_transition_array[0];
    EXPECT_EQ(record.place.track, "A1");
    EXPECT_EQ(record.place.track_name, " FX");
    EXPECT_EQ(record.place.seq_start_frame, 1040);
    EXPECT_EQ(record.place.seq_end_frame, 1059);
    EXPECT_EQ(record.place.seq_length, 20);
    EXPECT_EQ(record.enabled, "FALSE");
    EXPECT_TRUE(record.apple);
}

TEST(transitions, need_both_ends)
{
    try {
        record_of("<transitionitem><start>5</start></transitionitem>");
        FAIL();
    } catch (const analysis_error& error) {
        EXPECT_THAT(error.what(),
                    HasSubstr(R"(A transition without a name on track V1 has no "end" element.)"));
    }
}

} // namespace

} // namespace tallyframe
