// SPDX-License-Identifier: MIT
#include "media_files/pictures/still_picture.h"
#include "support/made_media.h"
#include "support/small_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tallyframe;
using namespace tallyframe::testing_support;
using testing::Ge;
using testing::Le;

namespace {

/// Red on the left, blue on the right.
std::filesystem::path still(const made_media& media, const std::string& name, const std::string& format,
                            const std::vector<std::string>& encoding = {})
{
    std::vector<std::string> arguments = {
        "-f",        "lavfi", "-i",      "color=blue:s=120x80,drawbox=0:0:60:80:red:fill,format=" + format,
        "-frames:v", "1",     "-update", "1"};
    arguments.insert(arguments.end(), encoding.begin(), encoding.end());
    return media.make(name, arguments);
}

struct still_kind {
    const char* name;
    const char* format;
};

class still_picture_of_kind : public testing::TestWithParam<still_kind> { };

TEST_P(still_picture_of_kind, is_read_in_its_own_size_and_colors)
{
    const made_media media;
    const auto file = still(media, GetParam().name, GetParam().format);
    EXPECT_TRUE(is_still_picture(file));
    const image_data picture = read_still_picture(file);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->width, 120);
    EXPECT_EQ(picture->height, 80);
    EXPECT_THAT(color_at(*picture, 25, 50), testing::ElementsAre(Ge(230), Le(25), Le(25)));
    EXPECT_THAT(color_at(*picture, 75, 50), testing::ElementsAre(Le(25), Le(25), Ge(230)));
}

INSTANTIATE_TEST_SUITE_P(kinds, still_picture_of_kind,
                         testing::Values(still_kind{"still.jpg", "yuvj444p"},
                                         still_kind{"still.png", "rgb24"}, still_kind{"still.tif", "rgb24"},
                                         still_kind{"still.tga", "bgr24"}, still_kind{"still.dpx", "rgb48be"},
                                         still_kind{"still.bmp", "bgr24"}, still_kind{"still.sgi", "rgb24"},
                                         still_kind{"still.ppm", "rgb24"}),
                         [](const testing::TestParamInfo<still_kind>& tested) {
                             return std::string(tested.param.name).substr(6);
                         });

/// A Photoshop file of one plain layer: header, three empty sections, then the planes as they are.
std::string photoshop_file(int width, int height)
{
    using namespace std::string_literals;
    const auto two_bytes = [](int number) { return std::string{char(number >> 8), char(number)}; };
    std::string file = "8BPS\0\1\0\0\0\0\0\0\0\3"s;
    file += "\0\0"s + two_bytes(height) + "\0\0"s + two_bytes(width) + "\0\x08\0\3"s;
    file += std::string(12, '\0') + "\0\0"s;
    const auto plane = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return file + std::string(plane, '\xFF') + std::string(plane, '\x80') + std::string(plane, '\0');
}

TEST(still_picture, is_read_from_photoshop)
{
    const temporary_folder folder;
    const image_data picture =
        read_still_picture(write_file(folder.path() / "layers.psd", photoshop_file(40, 30)));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->height, 30);
    EXPECT_EQ(color_at(*picture, 50, 50), (std::vector<int>{255, 128, 0}));
}

TEST(still_picture, is_known_by_its_bytes_whatever_its_name)
{
    const made_media media;
    const auto png = still(media, "still.png", "rgb24");
    const auto renamed = media.folder() / "still.mov";
    std::filesystem::rename(png, renamed);
    EXPECT_TRUE(is_still_picture(renamed));
    EXPECT_NE(read_still_picture(renamed), nullptr);
}

TEST(still_picture, is_reduced_to_the_largest_thumbnail)
{
    const made_media media;
    const auto file = still(media, "large.png", "rgb24", {"-vf", "scale=2400:3200,setsar=1"});
    const image_data picture = read_still_picture(file);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->width, 1440);
    EXPECT_EQ(picture->height, 1920);
}

TEST(still_picture, is_nothing_when_it_is_broken_or_something_else)
{
    const made_media media;
    const auto broken = write_file(media.folder() / "broken.jpg", "\xFF\xD8\xFF\xE0 and no more");
    EXPECT_TRUE(is_still_picture(broken));
    EXPECT_EQ(read_still_picture(broken), nullptr);
    EXPECT_EQ(read_still_picture(write_file(media.folder() / "empty.png", "")), nullptr);
    EXPECT_EQ(read_still_picture(media.folder() / "none.png"), nullptr);
    EXPECT_FALSE(is_still_picture(write_file(media.folder() / "text.mov", "text")));
    EXPECT_FALSE(is_still_picture(media.film("film.mov", "25", 1, {"-c:v", "mpeg4"})));
}

TEST(still_picture, of_more_than_a_hundred_megapixels_is_refused)
{
    const temporary_folder folder;
    const std::string huge = photoshop_file(20000, 1).replace(14, 4, std::string("\0\0\x27\x10", 4));
    EXPECT_EQ(read_still_picture(write_file(folder.path() / "huge.psd", huge)), nullptr);
}

TEST(still_picture, does_not_take_patterns_in_a_name_for_a_series)
{
    const made_media media;
    const auto file = still(media, "still.tga", "bgr24");
    const auto pattern = media.folder() / "still_%03d*.tga";
    std::filesystem::rename(file, pattern);
    EXPECT_NE(read_still_picture(pattern), nullptr);
}

} // namespace
