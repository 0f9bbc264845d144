// SPDX-License-Identifier: MIT
#include "platform/media_facts.h"

#include <gtest/gtest.h>

namespace tallyframe {
namespace {

media_facts film(double duration, double rate, pixel_size size)
{
    media_facts facts;
    facts.duration = duration;
    facts.frames_per_second = rate;
    facts.frame_size = size;
    return facts;
}

TEST(differences_of, take_an_ntsc_rate_for_what_it_is_rounded_from)
{
    const media_facts said = film(100, 23.976, {1920, 1080});
    EXPECT_FALSE(differences_of(film(100, 24000 / 1001.0, {1920, 1080}), said).any());
    EXPECT_TRUE(differences_of(film(100, 24, {1920, 1080}), said).rate);
}

TEST(differences_of, allow_two_frames_of_duration)
{
    const media_facts said = film(100, 25, {1920, 1080});
    EXPECT_FALSE(differences_of(film(100.08, 25, {1920, 1080}), said).any());
    EXPECT_TRUE(differences_of(film(100.12, 25, {1920, 1080}), said).duration);
    EXPECT_TRUE(differences_of(film(99.88, 25, {1920, 1080}), said).duration);
}

TEST(differences_of, tell_of_another_frame_size)
{
    EXPECT_TRUE(differences_of(film(100, 25, {960, 540}), film(100, 25, {1920, 1080})).frame_size);
}

TEST(differences_of, leave_out_what_only_one_knows)
{
    const fact_differences none = differences_of({}, film(100, 25, {1920, 1080}));
    EXPECT_FALSE(none.any());
    EXPECT_EQ(none.compared, 0);
    media_facts sound;
    sound.duration = 100;
    EXPECT_EQ(differences_of(sound, film(100, 25, {1920, 1080})).compared, 1);
}

} // namespace
} // namespace tallyframe
