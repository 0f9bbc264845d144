// SPDX-License-Identifier: MIT
#include "media_files/helper_thumbnailer.h"
#include "media_files/mapped_media.h"
#include "media_files/pictures/still_picture.h"
#include "media_files/program_folders.h"
#include "sheets/thumbnails.h"
#include "support/kept_diagnostics.h"
#include "support/made_media.h"
#include "support/small_files.h"

#include <gtest/gtest.h>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

/// The steps of a row on the real thing.
class helper_thumbnailer_ : public testing::Test {
protected:
    /// The row's picture, read back.
    image_data row_picture(const std::filesystem::path& file, rational image_time)
    {
        clip_record clip;
        clip.name = "Clip";
        clip.path = file.string();
        clip.image_time = image_time;
        const auto made = make_thumbnail(clip, ++row_, run_);
        return made ? read_still_picture(made->jpeg) : nullptr;
    }

    int number_shown(const std::filesystem::path& file, rational image_time)
    {
        const image_data picture = row_picture(file, image_time);
        return picture ? number_of(*picture) : -1;
    }

    static bool is_placeholder(const image_data& picture, const char* name)
    {
        const image_data placeholder = read_still_picture(resource_folder() / name);
        const std::vector<int> corner = color_at(*picture, 2, 2);
        const std::vector<int> expected = color_at(*placeholder, 2, 2);
        for (std::size_t i = 0; i < 3; ++i) {
            if (std::abs(corner[i] - expected[i]) > 4)
                return false;
        }
        return true;
    }

    made_media media_;
    kept_diagnostics out_;
    no_progress display_;
    helper_thumbnailer pictures_{
        resource_folder(),
        std::make_unique<picture_makers>(makers_settings{media_program(), 1, {}}, out_, display_)};

private:
    mapped_media locator_{{}, {}, out_, display_};
    temporary_folder folder_;
    thumbnail_run run_{pictures_, locator_, out_, folder_.path(), 320, {}, {}, {}};
    std::size_t row_ = 0;
};

TEST_F(helper_thumbnailer_, shows_the_frame_at_the_in_point)
{
    const auto film = media_.film("film.mov", "30000/1001", 60, long_gop);
    constexpr std::int64_t frame = 1001; // of a second's 30000
    EXPECT_EQ(number_shown(film, {17 * frame, 30000}), 17);
    EXPECT_EQ(number_shown(film, {45 * frame, 30000}), 45);
    EXPECT_EQ(row_picture(film, {0, 1})->width, 320);
}

TEST_F(helper_thumbnailer_, shows_the_first_frame_when_the_film_is_too_short)
{
    const auto film = media_.film("film.mov", "25", 10, long_gop);
    EXPECT_EQ(number_shown(film, {100, 1}), 0);
}

TEST_F(helper_thumbnailer_, shows_a_still_at_any_time_within_the_width)
{
    const auto still =
        media_.make("portrait.jpg", {"-f", "lavfi", "-i", "color=red:s=600x800", "-frames:v", "1"});
    const image_data picture = row_picture(still, {3600, 1});
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->width, 240);
    EXPECT_EQ(picture->height, 320);
    EXPECT_GT(color_at(*picture, 50, 50)[0], 240);
}

TEST_F(helper_thumbnailer_, shows_placeholders_for_what_is_missing_or_cannot_be_read)
{
    EXPECT_TRUE(is_placeholder(row_picture(media_.folder() / "none.mov", {0, 1}), "Missing.png"));
    const auto text = write_file(media_.folder() / "text.mov", "I am no film.");
    EXPECT_TRUE(is_placeholder(row_picture(text, {0, 1}), "Problem.png"));
    const auto broken = write_file(media_.folder() / "broken.jpg", "\xFF\xD8\xFF\xE0 and no more");
    EXPECT_TRUE(is_placeholder(row_picture(broken, {0, 1}), "Problem.png"));
    const auto sound = media_.make("sound.wav", {"-f", "lavfi", "-i", "sine=duration=0.1"});
    EXPECT_TRUE(is_placeholder(row_picture(sound, {0, 1}), "Problem.png"));
    EXPECT_EQ(row_picture(text, {0, 1})->height, 180);
}

TEST_F(helper_thumbnailer_, reduces_each_placeholder_to_each_size)
{
    const auto reduced = [&](const char* name, int size) {
        const auto image = pictures_.image_by_reference(resource_folder() / name)->tiff_representation();
        return pictures_.image_source_with_data(image)->scaled_bitmap(size).value();
    };
    const jpeg_picture missing = reduced("Missing.png", 160);
    EXPECT_EQ(missing.width, 160);
    EXPECT_EQ(missing.height, 90);
    EXPECT_EQ(reduced("Missing.png", 160), missing);
    EXPECT_NE(reduced("Problem.png", 160), missing);
    EXPECT_EQ(reduced("Problem.png", 320).width, 320);
    EXPECT_EQ(reduced("Missing.png", 160), missing);
}

TEST_F(helper_thumbnailer_, says_that_a_file_cannot_be_written)
{
    const std::vector<std::uint8_t> bytes = {1, 2, 3};
    EXPECT_THROW(pictures_.write_to_file(bytes, media_.folder() / "nowhere" / "a.jpg"), std::runtime_error);
}

} // namespace
