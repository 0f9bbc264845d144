// SPDX-License-Identifier: MIT
#include "media_files/pictures/still_picture.h"
#include "support/made_media.h"
#include "support/small_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

/// Grey in all its shades, black on the left.
class gray_still : public testing::TestWithParam<still_kind> { };

TEST_P(gray_still, has_black_at_nothing_and_white_at_the_most)
{
    const made_media media;
    const std::string ramp = std::string("color=black:s=100x80,format=") + GetParam().format
        + ",geq=lum='X/100*" + (std::string_view(GetParam().format) == "grayf32le" ? "1" : "65535") + "'";
    const auto file =
        media.make(GetParam().name, {"-f", "lavfi", "-i", ramp, "-frames:v", "1", "-update", "1"});
    const image_data picture = read_still_picture(file);
    ASSERT_NE(picture, nullptr);
    const bool is_light = file.extension() == ".exr"; // half the light is three quarters of the brightness
    EXPECT_NEAR(color_at(*picture, 10, 50)[0], is_light ? 89 : 26, 2);
    EXPECT_NEAR(color_at(*picture, 50, 50)[0], is_light ? 188 : 128, 2);
    EXPECT_NEAR(color_at(*picture, 90, 50)[0], is_light ? 244 : 230, 2);
}

INSTANTIATE_TEST_SUITE_P(
    kinds, gray_still,
    testing::Values(still_kind{"gray.png", "gray16le"}, still_kind{"gray.tif", "gray16le"},
                    still_kind{"gray.pgm", "gray16le"}, still_kind{"gray.sgi", "gray16le"},
                    still_kind{"gray.dpx", "gray16le"}, still_kind{"gray.jp2", "gray16le"},
                    still_kind{"gray.jxl", "gray16le"}, still_kind{"gray.exr", "grayf32le"}),
    [](const testing::TestParamInfo<still_kind>& tested) {
        return std::string(tested.param.name).substr(5);
    });

INSTANTIATE_TEST_SUITE_P(kinds, still_picture_of_kind,
                         testing::Values(still_kind{"still.jpg", "yuvj444p"},
                                         still_kind{"still.png", "rgb24"}, still_kind{"still.tif", "rgb24"},
                                         still_kind{"still.tga", "bgr24"}, still_kind{"still.dpx", "rgb48be"},
                                         still_kind{"still.bmp", "bgr24"}, still_kind{"still.sgi", "rgb24"},
                                         still_kind{"still.ppm", "rgb24"}, still_kind{"still.jp2", "rgb24"},
                                         still_kind{"still.j2k", "rgb24"}, still_kind{"still.jxl", "rgb24"},
                                         still_kind{"still.exr", "gbrpf32le"}),
                         [](const testing::TestParamInfo<still_kind>& tested) {
                             return std::string(tested.param.name).substr(6);
                         });

std::string two_bytes(int number)
{
    return {char(number >> 8), char(number)};
}

/// A Photoshop file of one plain layer without its planes: header and three empty sections.
std::string photoshop_head(int width, int height, int planes, int bits, int mode)
{
    using namespace std::string_literals;
    std::string file = "8BPS\0\1\0\0\0\0\0\0"s + two_bytes(planes);
    file += "\0\0"s + two_bytes(height) + "\0\0"s + two_bytes(width) + two_bytes(bits) + two_bytes(mode);
    return file + std::string(12, '\0');
}

/// The planes as they are: red, half green, no blue.
std::string photoshop_file(int width, int height)
{
    const std::string file = photoshop_head(width, height, 3, 8, 3) + two_bytes(0);
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

TEST(still_picture, is_read_from_photoshop_with_runs_for_equal_pixels)
{
    const temporary_folder folder;
    constexpr int width = 40;
    constexpr int height = 30;
    std::string file = photoshop_head(width, height, 3, 8, 3) + two_bytes(1);
    for (int line = 0; line < 3 * height; ++line)
        file += two_bytes(2); // bytes in each
    for (const char value : {'\xFF', '\x80', '\0'}) {
        for (int line = 0; line < height; ++line)
            file += {char(1 - width), value};
    }
    const image_data picture = read_still_picture(write_file(folder.path() / "runs.psd", file));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(color_at(*picture, 50, 50), (std::vector<int>{255, 128, 0}));
}

TEST(still_picture, is_read_from_gray_photoshop_files_of_sixteen_bits)
{
    const temporary_folder folder;
    std::string file = photoshop_head(40, 30, 1, 16, 1) + two_bytes(0);
    for (int pixel = 0; pixel < 40 * 30; ++pixel)
        file += two_bytes(pixel % 40 < 20 ? 0x1000 : 0xF000);
    const image_data picture = read_still_picture(write_file(folder.path() / "gray.psd", file));
    ASSERT_NE(picture, nullptr);
    EXPECT_NEAR(color_at(*picture, 25, 50)[0], 0x10, 1);
    EXPECT_NEAR(color_at(*picture, 75, 50)[0], 0xF0, 1);
}

std::string little_endian(unsigned number, unsigned size)
{
    std::string bytes;
    for (unsigned i = 0; i < size; ++i)
        bytes += static_cast<char>(number >> (8 * i));
    return bytes;
}

/// A TIFF file of 40 by 20 pixels, red above left, green above right, blue below. `tags`: what it says
/// besides.
std::string tiff_file(std::map<unsigned, unsigned> tags)
{
    constexpr unsigned width = 40;
    constexpr unsigned height = 20;
    std::string pixels;
    for (unsigned i = 0; i < width * height; ++i) {
        const bool is_above = i / width < height / 2;
        const bool is_left = i % width < width / 2;
        pixels += !is_above ? std::string("\0\0\xFF", 3)
            : is_left       ? std::string("\xFF\0\0", 3)
                            : std::string("\0\xFF\0", 3);
    }
    tags.insert({{256, width}, {257, height}, {258, 8}, {259, 1}, {262, 2}, {277, 3}});
    if (!tags.contains(324)) // no tiles
        tags.insert({{273, 8}, {278, height}, {279, static_cast<unsigned>(pixels.size())}});
    std::string directory = little_endian(static_cast<unsigned>(tags.size()), 2);
    for (const auto& [tag, value] : tags)
        directory +=
            little_endian(tag, 2) + little_endian(4, 2) + little_endian(1, 4) + little_endian(value, 4);
    return "II*" + std::string(1, '\0') + little_endian(static_cast<unsigned>(8 + pixels.size()), 4) + pixels
        + directory + little_endian(0, 4);
}

TEST(still_picture, is_turned_as_a_tiff_file_says)
{
    const temporary_folder folder;
    const auto corner = [](const bitmap& picture, int x, int y) {
        const std::vector<int> color = color_at(picture, x, y);
        return "RGB"[std::max_element(color.begin(), color.end()) - color.begin()];
    };
    // Above left, above right, below left, below right.
    const std::pair<unsigned, const char*> turns[] = {{1, "RGBB"}, {2, "GRBB"}, {3, "BBGR"}, {4, "BBRG"},
                                                      {5, "RBGB"}, {6, "BRBG"}, {7, "BGBR"}, {8, "GBRB"},
                                                      {0, "RGBB"}, {9, "RGBB"}};
    for (const auto& [orientation, expected] : turns) {
        const auto file = write_file(folder.path() / "turned.tif", tiff_file({{274, orientation}}));
        const image_data picture = read_still_picture(file);
        ASSERT_NE(picture, nullptr);
        EXPECT_EQ(picture->width, orientation >= 5 && orientation <= 8 ? 20 : 40);
        const std::string corners = {corner(*picture, 25, 25), corner(*picture, 75, 25),
                                     corner(*picture, 25, 75), corner(*picture, 75, 75)};
        EXPECT_EQ(corners, expected) << orientation;
    }
}

TEST(still_picture, is_nothing_rather_than_black)
{
    const temporary_folder folder;
    const std::pair<const char*, std::string> files[] = {
        {"tiled.tif", tiff_file({{322, 48}, {323, 32}, {324, 8}, {325, 48 * 32 * 3}})},
        {"jpeg.tif", tiff_file({{259, 7}})},
        {"old jpeg.tif", tiff_file({{259, 6}})},
        {"big.tif", std::string("II+\0\x08\0\0\0\x10\0\0\0\0\0\0\0", 16) + std::string(500, '\0')}};
    for (const auto& [name, bytes] : files) {
        const auto file = write_file(folder.path() / name, bytes);
        EXPECT_TRUE(is_still_picture(file)) << name;
        EXPECT_EQ(read_still_picture(file), nullptr) << name;
    }
}

TEST(still_picture, bears_tiff_files_that_are_cut_short)
{
    const temporary_folder folder;
    const std::string whole = tiff_file({{274, 6}});
    for (std::size_t left = 1; left < 160; ++left)
        read_still_picture(write_file(folder.path() / "short.tif", whole.substr(0, whole.size() - left)));
    for (std::size_t size = 0; size < 20; ++size)
        read_still_picture(write_file(folder.path() / "short.tif", whole.substr(0, size)));
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
