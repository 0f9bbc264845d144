// SPDX-License-Identifier: MIT
#include "media_files/pictures/displayed_picture.h"
#include "media_files/pictures/video_file.h"
#include "support/made_media.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace tallyframe;
using namespace tallyframe::testing_support;
using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::Le;

namespace {

/// The first frame of a file as a viewer shows it.
bitmap first_frame(const std::filesystem::path& path, int width)
{
    time_limit limit(std::chrono::minutes(1));
    limit.start();
    const std::unique_ptr<video_file> file = video_file::open(path, {}, limit);
    const auto nobody = [](auto...) { return false; };
    return file->frame_at({0, 1}, width, {nobody, nobody}).value();
}

using encoding = std::vector<std::string>;

/// Red above left, green above right, blue below left, white below right.
const std::string quarters =
    "color=white:s=160x96:r=25,drawbox=0:0:80:48:red:fill,drawbox=80:0:80:48:lime:fill,"
    "drawbox=0:48:80:48:blue:fill";

std::string color_name(const bitmap& picture, int x_percent, int y_percent)
{
    const std::vector<int> color = color_at(picture, x_percent, y_percent);
    std::string name;
    for (std::size_t i = 0; i < color.size(); ++i)
        name += color[i] > 128 ? "RGB"[i] : '-';
    return name;
}

std::vector<std::string> corners(const bitmap& picture)
{
    return {color_name(picture, 25, 25), color_name(picture, 75, 25), color_name(picture, 25, 75),
            color_name(picture, 75, 75)};
}

TEST(displayed_picture, has_the_wanted_width_and_the_proportions_of_the_frame)
{
    const made_media media;
    const bitmap picture = first_frame(
        media.film("film.mp4", "25", 1, {"-vf", "scale=1280:720,setsar=1", "-c:v", "mpeg4"}), 640);
    EXPECT_EQ(picture.width, 640);
    EXPECT_EQ(picture.height, 360);
    EXPECT_EQ(picture.rgb.size(), 640U * 360U * 3U);
}

TEST(displayed_picture, is_widened_by_the_pixels_aspect)
{
    const made_media media;
    const bitmap picture = first_frame(
        media.film("wide.mov", "25", 1, {"-vf", "scale=720:576,setsar=64/45", "-c:v", "mpeg4"}), 320);
    EXPECT_EQ(picture.height, 180);
}

TEST(displayed_picture, is_turned_as_the_file_says)
{
    const made_media media;
    const auto upright = media.make(
        "upright.mp4", {"-f", "lavfi", "-i", quarters, "-frames:v", "1", "-c:v", "libx264", "-qp", "5"});
    EXPECT_THAT(corners(first_frame(upright, 160)), ElementsAre("R--", "-G-", "--B", "RGB"));

    // "rotate" counts counter-clockwise.
    const auto turned =
        media.make("turned.mp4", {"-i", upright.string(), "-c", "copy", "-metadata:s:v", "rotate=90"});
    const bitmap picture = first_frame(turned, 96);
    EXPECT_EQ(picture.height, 160);
    EXPECT_THAT(corners(picture), ElementsAre("-G-", "RGB", "R--", "--B"));

    const auto upside_down =
        media.make("upside_down.mp4", {"-i", upright.string(), "-c", "copy", "-metadata:s:v", "rotate=180"});
    EXPECT_THAT(corners(first_frame(upside_down, 160)), ElementsAre("RGB", "--B", "-G-", "R--"));
}

TEST(displayed_picture, knows_quarter_turns_and_mirrors_of_a_display_matrix)
{
    constexpr std::int32_t one = 1 << 16;
    constexpr std::int32_t upright[9] = {one, 0, 0, 0, one, 0, 0, 0, 1 << 30};
    constexpr std::int32_t mirrored[9] = {-one, 0, 0, 0, one, 0, 0, 0, 1 << 30};
    constexpr std::int32_t clockwise[9] = {0, one, 0, -one, 0, 0, 0, 0, 1 << 30};
    EXPECT_EQ(orientation_of(upright), (orientation{false, false, false}));
    EXPECT_EQ(orientation_of(mirrored), (orientation{false, true, false}));
    EXPECT_EQ(orientation_of(clockwise), (orientation{true, true, false}));
}

TEST(displayed_picture, shows_one_field_of_an_interlaced_frame)
{
    const made_media media;
    // Two pictures woven into one frame: white lines first, black lines half a frame later.
    const std::string woven = "color=white:s=160x96:r=50,geq=lum='if(mod(N,2),16,235)':cb=128:cr=128,"
                              "tinterlace=interleave_top,fieldorder=tff";
    const auto file = media.make(
        "interlaced.mov",
        {"-f", "lavfi", "-i", woven, "-frames:v", "1", "-c:v", "prores_ks", "-flags", "+ildct", "-top", "1"});
    const bitmap picture = first_frame(file, 160);
    EXPECT_EQ(picture.height, 96);
    EXPECT_THAT(picture.rgb, Each(Ge(240)));
}

TEST(displayed_picture, shows_one_field_where_only_the_container_knows_of_two)
{
    const made_media media;
    struct woven {
        const char* order;
        const char* lines; ///< which the first picture, white, is woven into
    };
    for (const auto& [order, lines] : {woven{"tt", "interleave_top"}, woven{"bb", "interleave_bottom"}}) {
        for (const encoding& codec :
             {encoding{"mjpeg", "-q:v", "2", "-pix_fmt", "yuvj422p"}, encoding{"prores_ks"}}) {
            encoding arguments = {
                "-f",
                "lavfi",
                "-i",
                "color=white:s=160x96:r=50,geq=lum='if(mod(N,2),16,235)':cb=128:cr=128,tinterlace="
                    + std::string(lines) + ",setfield=prog",
                "-frames:v",
                "1",
                "-field_order",
                order,
                "-c:v"};
            arguments.insert(arguments.end(), codec.begin(), codec.end());
            const bitmap picture = first_frame(media.make("woven.mov", arguments), 160);
            EXPECT_EQ(picture.height, 96);
            EXPECT_THAT(picture.rgb, Each(Ge(240))) << order << ' ' << codec.front();
        }
    }
}

TEST(displayed_picture, keeps_the_colors_of_formats_of_ten_bits)
{
    const made_media media;
    for (const std::string format : {"yuv420p10le", "yuv422p10le", "yuv444p12le", "gbrp10le"}) {
        const auto file = media.make("deep.mov",
                                     {"-f", "lavfi", "-i", quarters, "-frames:v", "1", "-c:v", "ffv1", "-f",
                                      "matroska", "-pix_fmt", format});
        EXPECT_THAT(corners(first_frame(file, 160)), ElementsAre("R--", "-G-", "--B", "RGB")) << format;
    }
}

TEST(displayed_picture, uses_the_colour_coefficients_of_high_definition_for_large_frames)
{
    const made_media media;
    // Pure green as high definition encodes it. Taken for standard definition it would come out brighter in
    // blue.
    const auto file =
        media.make("large.mkv",
                   {"-f", "lavfi", "-i", "color=black:s=1280x720:r=25,format=yuv444p,geq=lum=173:cb=42:cr=26",
                    "-frames:v", "1", "-c:v", "ffv1"});
    const std::vector<int> green = color_at(first_frame(file, 160), 50, 50);
    EXPECT_THAT(green, ElementsAre(Le(4), Ge(250), Le(4)));
}

TEST(displayed_picture, stretches_the_narrow_range_of_film_to_the_full_range)
{
    const made_media media;
    const auto file =
        media.make("range.mkv",
                   {"-f", "lavfi", "-i",
                    "color=black:s=160x96:r=25,format=yuv420p,geq=lum='if(lt(X,80),16,235)':cb=128:cr=128",
                    "-frames:v", "1", "-c:v", "ffv1"});
    const bitmap picture = first_frame(file, 160);
    EXPECT_THAT(color_at(picture, 10, 50), Each(Le(1)));
    EXPECT_THAT(color_at(picture, 90, 50), Each(Ge(254)));
}

TEST(displayed_picture, takes_gray_of_scanned_films_for_the_full_range)
{
    const made_media media;
    for (const std::string format : {"gray", "gray10le", "gray16le"}) {
        const auto file =
            media.make("scan.mov",
                       {"-f", "lavfi", "-i",
                        "color=black:s=160x96:r=25,format=gray16le,geq=lum='if(lt(X,80),8224,57568)'",
                        "-frames:v", "1", "-pix_fmt", format, "-c:v", "jpeg2000"});
        const bitmap picture = first_frame(file, 80);
        EXPECT_NEAR(color_at(picture, 20, 50)[0], 32, 8) << format << ", not 19";
        EXPECT_NEAR(color_at(picture, 80, 50)[0], 224, 8) << format << ", not 242";
    }
}

TEST(displayed_picture, puts_black_behind_what_is_transparent)
{
    const made_media media;
    const auto file =
        media.make("title.mov",
                   {"-f", "lavfi", "-i",
                    "color=white:s=160x96:r=25,format=rgba,geq=r=255:g=255:b=255:a='if(lt(X,80),255,0)'",
                    "-frames:v", "1", "-c:v", "qtrle"});
    for (const int width : {160, 80}) {
        const bitmap picture = first_frame(file, width);
        EXPECT_THAT(color_at(picture, 25, 50), Each(Ge(250))) << width;
        EXPECT_THAT(color_at(picture, 75, 50), Each(Le(5))) << width;
    }
}

TEST(displayed_picture, fits_sizes_without_enlarging_them)
{
    EXPECT_EQ(size_within({3000, 4000}, 320).width, 240);
    EXPECT_EQ(size_within({3000, 4000}, 320).height, 320);
    EXPECT_EQ(size_within({100, 50}, 320).width, 100);
    EXPECT_EQ(size_of_width({1998, 1080}, 320).height, 173);
    EXPECT_EQ(size_of_width({10000, 1}, 16).height, 1) << "never less than a line";
}

} // namespace
