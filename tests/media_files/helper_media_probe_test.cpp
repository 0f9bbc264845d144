// SPDX-License-Identifier: MIT
#include "media_files/helper_media_probe.h"
#include "media_files/program_folders.h"
#include "support/made_media.h"

#include <gtest/gtest.h>

namespace tallyframe {
namespace {

class helper_media_probe_ : public testing::Test {
protected:
    testing_support::made_media media;
    no_progress display;
    std::filesystem::path film =
        media.make("film.mov", {"-f", "lavfi", "-i", "color=s=160x96", "-frames:v", "5", "-c:v", "mpeg4"});
};

TEST_F(helper_media_probe_, asks_a_helper)
{
    helper_questions questions(media_program(), {}, display);
    helper_media_probe probe(questions);
    EXPECT_EQ(probe.facts_of(film).value().frame_size, (pixel_size{160, 96}));
    EXPECT_EQ(probe.facts_of(film.parent_path() / "absent.mov"), std::nullopt);
    EXPECT_EQ(probe.facts_of(film).value().frames_per_second, 25);
}

TEST_F(helper_media_probe_, knows_nothing_of_what_ends_its_helpers)
{
    helper_questions questions("/bin/false", {}, display);
    EXPECT_EQ(helper_media_probe(questions).facts_of(film), std::nullopt);
}

} // namespace
} // namespace tallyframe
