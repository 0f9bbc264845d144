// SPDX-License-Identifier: MIT
#include "media_files/helper_tag_reader.h"
#include "media_files/program_folders.h"
#include "support/made_media.h"
#include "support/small_files.h"

#include <gtest/gtest.h>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

class helper_tag_reader_ : public testing::Test {
protected:
    made_media media;
    no_progress display;
    std::filesystem::path song =
        media.make("song.mp3", {"-f", "lavfi", "-i", "sine=duration=0.2", "-metadata", "title=Light"});
};

TEST_F(helper_tag_reader_, gives_the_tags_of_one_file_after_the_other)
{
    helper_questions questions(media_program(), {}, display);
    helper_tag_reader reader(questions);
    EXPECT_EQ(reader.tags_of(song)->song_title, "Light");
    EXPECT_EQ(reader.tags_of(write_file(media.folder() / "text.txt", "not a sound")), std::nullopt);
    EXPECT_EQ(reader.tags_of(media.folder() / "none.mp3"), std::nullopt);
    EXPECT_EQ(reader.tags_of(song)->song_title, "Light");
    EXPECT_TRUE(reader.losses().is_empty());
}

TEST_F(helper_tag_reader_, counts_what_ends_its_helpers)
{
    helper_questions questions("/bin/false", {}, display);
    helper_tag_reader reader(questions);
    EXPECT_EQ(reader.tags_of(song), std::nullopt);
    EXPECT_EQ(
        sentences_of(reader.losses()),
        std::vector<std::string>{"The tags of 1 media file could not be read (" + song.string() + ")."});
}

TEST_F(helper_tag_reader_, counts_what_it_cannot_read_without_a_helper)
{
    helper_questions questions(media.folder() / "none", {}, display);
    helper_tag_reader reader(questions);
    EXPECT_EQ(reader.tags_of(song), std::nullopt);
    EXPECT_EQ(reader.losses().of(loss_kind::unread_tags).count, 1U);
}

} // namespace
