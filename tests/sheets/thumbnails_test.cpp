// SPDX-License-Identifier: MIT
#include "sheets/report.h"
#include "sheets/thumbnails.h"
#include "support/kept_diagnostics.h"
#include "support/records.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <fstream>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

using namespace tallyframe;
using namespace tallyframe::testing_support;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

/// A thumbnailer without media. Each step can be told to fail; what was asked is written down.
///
/// A JPEG that it makes is the text of where its pixels came from.
struct fake_media {
    bool is_yosemite_or_later = true;
    bool is_mojave_or_later = true;

    bool image_is_valid = true;
    bool image_has_representations = true;
    bool image_has_data = true;
    bool data_makes_a_source = true;
    bool source_makes_a_bitmap = true;
    bool asset_opens = true;
    std::size_t asset_tracks = 1;
    bool asset_frame_at_time = true;
    bool asset_frame_at_start = true;
    bool asset_throws = false;
    bool movie_opens = true;
    bool movie_comes_with_an_error = false;
    bool movie_frame_at_time = true;
    bool movie_frame_at_start = true;
    bool movie_frame_comes_with_an_error = false;
    bool encoder_throws = false;
    bool disk_is_full = false;
    int frame_height = 180;

    std::vector<std::string> asked;
    std::vector<expected_frame> expected;
    std::string pixels_from;
    std::string jpeg; ///< instead of the text, where it is not empty

    jpeg_picture picture(int width) const
    {
        const std::string& bytes = jpeg.empty() ? pixels_from : jpeg;
        return {width, frame_height, {bytes.begin(), bytes.end()}};
    }
};

bool is_start(media_time time)
{
    return time.value == 0;
}

std::string text_of(media_time time)
{
    return std::to_string(time.value) + "/" + std::to_string(time.timescale);
}

class fake_image final : public media_image {
public:
    fake_image(fake_media& media, std::string name) : media_(media), name_(std::move(name)) { }
    bool is_valid() override { return media_.image_is_valid; }
    bool has_representations() override { return media_.image_has_representations; }
    std::shared_ptr<const image_content> tiff_representation() override
    {
        media_.pixels_from = name_;
        return media_.image_has_data ? std::make_shared<const image_content>() : nullptr;
    }

private:
    fake_media& media_;
    std::string name_;
};

class fake_source final : public image_source {
public:
    explicit fake_source(fake_media& media) : media_(media) { }
    std::optional<jpeg_picture> scaled_bitmap(int max_pixel_size) override
    {
        media_.asked.push_back("scaled to " + std::to_string(max_pixel_size));
        if (media_.encoder_throws)
            throw std::runtime_error("no JPEG today");
        return media_.source_makes_a_bitmap ? std::optional(media_.picture(max_pixel_size)) : std::nullopt;
    }

private:
    fake_media& media_;
};

class fake_asset final : public media_asset {
public:
    explicit fake_asset(fake_media& media) : media_(media) { }
    std::size_t track_count() override { return media_.asset_tracks; }
    std::optional<jpeg_picture> frame_at(media_time time, int width) override
    {
        media_.asked.push_back("asset frame " + text_of(time));
        if (media_.asset_throws)
            throw std::runtime_error("no frame today");
        if (!(is_start(time) ? media_.asset_frame_at_start : media_.asset_frame_at_time))
            return std::nullopt;
        media_.pixels_from = "asset";
        return media_.picture(width);
    }

private:
    fake_media& media_;
};

class fake_movie final : public media_movie {
public:
    explicit fake_movie(fake_media& media) : media_(media) { }
    movie_frame frame_at(media_time time) override
    {
        media_.asked.push_back("movie frame " + text_of(time));
        const bool comes = is_start(time) ? media_.movie_frame_at_start : media_.movie_frame_at_time;
        movie_frame frame;
        if (comes)
            frame.image = std::make_shared<fake_image>(media_, "movie");
        if (!comes || media_.movie_frame_comes_with_an_error)
            frame.error = "an error";
        return frame;
    }

private:
    fake_media& media_;
};

class fake_thumbnailer final : public thumbnailer {
public:
    explicit fake_thumbnailer(fake_media& media) : media_(media) { }

    void prepare(std::span<const expected_frame> frames) override
    {
        media_.expected.assign(frames.begin(), frames.end());
    }
    bool is_yosemite_or_later() const override { return media_.is_yosemite_or_later; }
    bool is_mojave_or_later() const override { return media_.is_mojave_or_later; }
    std::filesystem::path resource_directory() const override { return "/resources"; }
    std::shared_ptr<media_image> image_by_reference(const std::filesystem::path& file) override
    {
        return std::make_shared<fake_image>(media_, file.filename().string());
    }
    std::shared_ptr<media_asset> asset_with_url(const std::filesystem::path& file) override
    {
        media_.asked.push_back("asset " + file.string());
        return media_.asset_opens ? std::make_shared<fake_asset>(media_) : nullptr;
    }
    opened_movie movie_with_url(const std::filesystem::path& file) override
    {
        media_.asked.push_back("movie " + file.string());
        opened_movie opened;
        if (media_.movie_opens)
            opened.movie = std::make_unique<fake_movie>(media_);
        if (media_.movie_comes_with_an_error)
            opened.error = "an error";
        return opened;
    }
    std::unique_ptr<image_source> image_source_with_data(const std::shared_ptr<const image_content>&) override
    {
        return media_.data_makes_a_source ? std::make_unique<fake_source>(media_) : nullptr;
    }
    void write_to_file(std::span<const std::uint8_t> data, const std::filesystem::path& file) override
    {
        if (media_.disk_is_full)
            throw std::runtime_error("the disk is full");
        std::ofstream out(file, std::ios::binary);
        out << std::string(data.begin(), data.end());
        if (!out)
            throw std::runtime_error("cannot write");
    }

private:
    fake_media& media_;
};

/// Finds all files where the document says, but those called "offline".
class fake_locator final : public media_locator {
public:
    std::optional<std::filesystem::path> locate(const std::string& path) override
    {
        if (throws)
            throw std::runtime_error("the disk is gone");
        return path.find("offline") == std::string::npos
            ? std::optional<std::filesystem::path>("/found" + path)
            : std::nullopt;
    }
    bool throws = false;
};

const std::string jpeg_of_120_by_90 = {'\xFF', '\xD8', '\xFF', '\xC2', 0, 17, 8, 0, 90, 0, 120, 3};

class thumbnails : public testing::Test {
protected:
    static clip_record clip(const std::string& name = "Clip", const std::string& path = "/clip.mov")
    {
        clip_record record;
        record.name = name;
        record.path = path;
        record.image_time = rational{1001, 30000};
        return record;
    }

    std::optional<row_picture> make(const clip_record& record, std::size_t row = 1)
    {
        return make_thumbnail(record, row, run);
    }

    /// What the clip's picture was made from; "none" without one.
    std::string pixels_of(const clip_record& record)
    {
        const std::optional<row_picture> made = make(record);
        if (!made)
            return "none";
        return content_of(made->jpeg);
    }

    fake_media media;
    fake_locator locator;
    kept_diagnostics out;
    temporary_folder folder;
    fake_thumbnailer pictures{media};
    thumbnail_run run{pictures, locator, out, folder.path(), 320, {}, {}, {}, {}, {}};
};

TEST_F(thumbnails, come_from_the_asset_at_the_in_point)
{
    EXPECT_EQ(pixels_of(clip()), "asset");
    EXPECT_THAT(media.asked, ElementsAre("asset /found/clip.mov", "asset frame 1001/30000"));
}

TEST_F(thumbnails, are_named_by_the_row_as_a_user_counts_it)
{
    EXPECT_EQ(make(clip("Sunset"))->jpeg, folder.path() / "0002 Sunset.jpg");
    EXPECT_EQ(make(clip("Sunset"), 2)->jpeg, folder.path() / "0003 Sunset.jpg");
    EXPECT_EQ(make(clip("Sunset"), 12344)->jpeg, folder.path() / "12345 Sunset.jpg");
    clip_record nameless = clip();
    nameless.name.reset();
    EXPECT_EQ(make(nameless, 3)->jpeg, folder.path() / "0004 .jpg");
}

TEST_F(thumbnails, make_the_row_as_tall_as_the_picture_in_points)
{
    run.thumbnail_width = 640;
    media.frame_height = 360;
    EXPECT_EQ(make(clip())->row_height, 270);
    EXPECT_EQ(run.thumbnail_height, 360);
}

TEST_F(thumbnails, keep_the_height_of_the_row_before_when_one_fails)
{
    media.is_mojave_or_later = false;
    make(clip());
    media.asset_opens = false;
    media.movie_opens = false;
    media.image_has_data = false;
    EXPECT_EQ(make(clip(), 2), std::nullopt);
    EXPECT_EQ(run.thumbnail_height, 180);
}

TEST_F(thumbnails, start_with_a_height_equal_to_the_width)
{
    media.asset_frame_at_time = media.asset_frame_at_start = media.image_has_data = false;
    EXPECT_EQ(make(clip()), std::nullopt);
    EXPECT_EQ(run.thumbnail_height, 320);
}

TEST_F(thumbnails, are_not_made_without_an_in_point)
{
    clip_record record = clip();
    record.image_time.reset();
    EXPECT_EQ(make(record), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    EXPECT_TRUE(media.asked.empty());
    EXPECT_EQ(out.text, "\"----------\"\n\"/clip.mov\"\n");
}

TEST_F(thumbnails, log_what_they_are_made_of)
{
    make(clip());
    EXPECT_EQ(out.text, "\"----------\"\n\"/clip.mov\"\n\"thumbnail: /clip.mov @ 1001/30000\"\n");
}

TEST_F(thumbnails, show_the_missing_placeholder_for_a_file_that_is_not_there)
{
    EXPECT_EQ(pixels_of(clip("Clip", "/offline.mov")), "Missing.png");
    EXPECT_THAT(out.text, HasSubstr("\"OFFLINE media\""));
    EXPECT_THAT(media.asked, ElementsAre("scaled to 320"));
    clip_record pathless = clip();
    pathless.path.reset();
    pathless.image_time = rational{0, 1};
    EXPECT_NE(make(pathless), std::nullopt);
}

TEST_F(thumbnails, ask_the_asset_once_more_at_the_start)
{
    media.asset_frame_at_time = false;
    EXPECT_EQ(pixels_of(clip()), "asset");
    EXPECT_THAT(media.asked,
                ElementsAre("asset /found/clip.mov", "asset frame 1001/30000", "asset frame 0/1"));
}

TEST_F(thumbnails, show_the_file_itself_when_a_modern_system_has_no_frame)
{
    media.asset_frame_at_time = media.asset_frame_at_start = false;
    EXPECT_EQ(pixels_of(clip()), "clip.mov");
    EXPECT_THAT(media.asked, Not(testing::Contains(HasSubstr("movie"))));
}

TEST_F(thumbnails, show_a_still_picture_itself_on_a_modern_system)
{
    media.asset_tracks = 0;
    EXPECT_EQ(pixels_of(clip("Chart", "/chart.tif")), "chart.tif");
    EXPECT_THAT(out.text, HasSubstr("\nThis NSImage has a representation\n"));
    EXPECT_THAT(media.asked, ElementsAre("asset /found/chart.tif", "scaled to 320"));
}

TEST_F(thumbnails, tell_of_stills_that_are_none)
{
    media.asset_tracks = 0;
    media.image_is_valid = false;
    make(clip());
    EXPECT_THAT(out.text, HasSubstr("\nThis NSImage is not valid!!!\n"));
    media.image_is_valid = true;
    media.image_has_representations = false;
    make(clip());
    EXPECT_THAT(out.text, HasSubstr("\nThis NSImage has no representations!!!\n"));
}

TEST_F(thumbnails, take_a_file_that_opens_no_asset_for_a_still_on_a_modern_system)
{
    media.asset_opens = false;
    EXPECT_EQ(pixels_of(clip()), "clip.mov");
}

TEST_F(thumbnails, ask_an_asset_without_tracks_for_a_frame_before_10_14)
{
    media.is_mojave_or_later = false;
    media.asset_tracks = 0;
    EXPECT_EQ(pixels_of(clip()), "asset");
}

TEST_F(thumbnails, go_on_with_the_movie_between_10_10_and_10_14)
{
    media.is_mojave_or_later = false;
    media.asset_frame_at_time = media.asset_frame_at_start = false;
    EXPECT_EQ(pixels_of(clip()), "movie");
    EXPECT_THAT(media.asked,
                ElementsAre("asset /found/clip.mov", "asset frame 1001/30000", "asset frame 0/1",
                            "movie /found/clip.mov", "movie frame 1001/30000", "scaled to 320"));
    media.asset_opens = false;
    EXPECT_EQ(pixels_of(clip()), "movie");
}

TEST_F(thumbnails, know_only_the_movie_before_10_10)
{
    media.is_yosemite_or_later = media.is_mojave_or_later = false;
    EXPECT_EQ(pixels_of(clip()), "movie");
    EXPECT_THAT(media.asked, ElementsAre("movie /found/clip.mov", "movie frame 1001/30000", "scaled to 320"));
}

TEST_F(thumbnails, show_the_file_itself_when_the_movie_does_not_open_cleanly)
{
    media.is_yosemite_or_later = media.is_mojave_or_later = false;
    media.movie_comes_with_an_error = true;
    EXPECT_EQ(pixels_of(clip()), "clip.mov");
    media.movie_comes_with_an_error = false;
    media.movie_opens = false;
    EXPECT_EQ(pixels_of(clip()), "clip.mov");
}

TEST_F(thumbnails, ask_the_movie_once_more_at_the_start)
{
    media.is_yosemite_or_later = media.is_mojave_or_later = false;
    media.movie_frame_at_time = false;
    EXPECT_EQ(pixels_of(clip()), "movie");
    EXPECT_THAT(media.asked, testing::Contains("movie frame 0/1000"));
}

TEST_F(thumbnails, show_the_problem_placeholder_when_the_movie_has_no_frame)
{
    media.is_yosemite_or_later = media.is_mojave_or_later = false;
    media.movie_frame_at_time = media.movie_frame_at_start = false;
    EXPECT_EQ(pixels_of(clip()), "Problem.png");
    media.movie_frame_at_time = media.movie_frame_at_start = true;
    media.movie_frame_comes_with_an_error = true;
    media.asked.clear();
    EXPECT_EQ(pixels_of(clip()), "Problem.png") << "a frame with an error is none";
    EXPECT_THAT(media.asked, testing::Contains("movie frame 0/1000"));
}

TEST_F(thumbnails, go_on_with_what_there_is_after_a_failure)
{
    media.asset_throws = true;
    EXPECT_EQ(pixels_of(clip()), "clip.mov");
    EXPECT_THAT(out.text, HasSubstr("\"RESCUE from thumbnailing\""));
    locator.throws = true;
    EXPECT_EQ(pixels_of(clip("Other")), "none");
    EXPECT_THAT(out.text, HasSubstr("TIFFRepresentation is nil!!!"));
}

TEST_F(thumbnails, say_which_step_of_the_encoding_failed)
{
    const clip_record offline = clip("Clip", "/offline.mov");
    media.source_makes_a_bitmap = false;
    EXPECT_EQ(make(offline), std::nullopt);
    EXPECT_THAT(out.text, HasSubstr("\nCGImageSourceCreateThumbnailAtIndex is nil!!!\n"));
    media.data_makes_a_source = false;
    EXPECT_EQ(make(offline), std::nullopt);
    EXPECT_THAT(out.text, HasSubstr("\nCGImageSourceCreateWithData is nil!!!\n"));
    media.image_has_data = false;
    EXPECT_EQ(make(offline), std::nullopt);
    EXPECT_THAT(out.text, HasSubstr("\nTIFFRepresentation is nil!!!\n"));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST_F(thumbnails, survive_an_encoder_and_a_disk_that_fail)
{
    media.encoder_throws = true;
    EXPECT_EQ(make(clip("Clip", "/offline.mov")), std::nullopt);
    EXPECT_THAT(out.text, HasSubstr("no thumbnail: no JPEG today"));
    media.encoder_throws = false;
    media.disk_is_full = true;
    EXPECT_EQ(make(clip()), std::nullopt);
    EXPECT_THAT(out.text, HasSubstr("no thumbnail: the disk is full"));
}

TEST_F(thumbnails, never_leave_their_folder)
{
    EXPECT_EQ(make(clip("../../../tmp/Clip"))->jpeg, folder.path() / "0002 .._.._.._tmp_Clip.jpg");
    EXPECT_EQ(make(clip("A/B"))->jpeg, folder.path() / "0002 A_B.jpg");
    EXPECT_EQ(make(clip(".."))->jpeg, folder.path() / "0002 ...jpg");
}

TEST_F(thumbnails, have_names_as_long_as_files_may_have)
{
    const std::size_t room = NAME_MAX - std::string("0002 .jpg").size();
    EXPECT_EQ(make(clip(std::string(room, 'x')))->jpeg.filename(), "0002 " + std::string(room, 'x') + ".jpg");
    EXPECT_EQ(make(clip(std::string(room + 1, 'x')))->jpeg.filename(),
              "0002 " + std::string(room - 3, 'x') + "….jpg");
    std::string accents;
    for (int i = 0; i < 200; ++i)
        accents += "é";
    EXPECT_EQ(make(clip(accents))->jpeg.filename(), "0002 " + accents.substr(0, (room - 3) / 2 * 2) + "….jpg")
        << "whole characters";
    EXPECT_EQ(make(clip(accents), 1234567)->jpeg.filename().string().size(), std::size_t{NAME_MAX});
}

TEST_F(thumbnails, are_the_pictures_of_the_clips_sheet_alone)
{
    analysis_result analysis = sequence_at_25();
    for (const std::string name : {"First", "offline"}) {
        clip_record shot = testing_support::clip_of_file("/" + name + ".mov", "V1", 0, 9);
        shot.name = name;
        shot.image_time = rational{1001, 30000};
        shot.reel_name = "A001";
        analysis.video_clip_data_array.push_back(shot);
    }
    analysis.reels_array = {"A001"};
    report_options options;
    options.inpoint_thumbnail_jpegs = true;
    const report made = make_report(analysis, {{1}, {1}}, options, nullptr, &run);
    const sheet& clips = made.sheets.front();
    ASSERT_TRUE(clips.picture);
    EXPECT_EQ(clips.picture(1), (row_picture{folder / "0002 First.jpg", 135, false}));
    EXPECT_EQ(clips.picture(2)->jpeg, folder / "0003 offline.jpg");
    EXPECT_TRUE(clips.picture(2)->is_placeholder);
    EXPECT_EQ(clips.cell(1, clips.picture_column.value()).value, cell_value()) << "no cell below a picture";
    EXPECT_THAT(std::span(made.sheets).subspan(1),
                testing::Each(testing::Field(&sheet::picture_column, std::nullopt)));
}

TEST_F(thumbnails, have_their_place_on_the_clips_sheet_though_none_are_made)
{
    report_options options;
    options.inpoint_thumbnail_jpegs = true;
    const analysis_result analysis = sequence_at_25();
    const report made = make_report(analysis, {}, options);
    EXPECT_TRUE(made.sheets.front().picture_column);
    EXPECT_FALSE(made.sheets.front().picture);
}

TEST_F(thumbnails, forget_the_clip_at_work)
{
    make(clip());
    EXPECT_EQ(run.current_thumbnail_clip, std::nullopt);
    media.asset_throws = true;
    make(clip());
    EXPECT_EQ(run.current_thumbnail_clip, std::nullopt);
}

TEST_F(thumbnails, are_announced_with_the_files_where_they_are)
{
    const clip_record first = clip();
    const clip_record offline = clip("Clip", "/offline.mov");
    clip_record timeless = clip();
    timeless.image_time.reset();
    const std::vector<const clip_record*> clips = {&first, &offline, &timeless};
    prepare_thumbnails(clips, run);
    ASSERT_EQ(media.expected.size(), 1U);
    EXPECT_EQ(media.expected[0].file, "/found/clip.mov");
    EXPECT_EQ(media.expected[0].time, (media_time{1001, 30000}));
    EXPECT_EQ(media.expected[0].width, 320);
}

TEST_F(thumbnails, are_noted_for_the_clean_up_when_they_are_made)
{
    make(clip("First"), 1);
    media.disk_is_full = true;
    make(clip("Second"), 2);
    EXPECT_THAT(run.cleanup_jpegs, ElementsAre(folder.path() / "0002 First.jpg"));
}

class losses_of_thumbnails : public thumbnails {
protected:
    void add(const clip_record& clip) { make(clip, ++row); }

    std::size_t row = 0;
};

TEST_F(losses_of_thumbnails, are_none_when_every_row_has_its_picture)
{
    add(clip());
    clip_record timeless = clip();
    timeless.image_time.reset();
    add(timeless);
    EXPECT_TRUE(run.lost.is_empty());
}

TEST_F(losses_of_thumbnails, are_the_rows_with_a_placeholder_and_the_files_that_cannot_be_read)
{
    add(clip("Clip", "/offline.mov"));
    media.is_yosemite_or_later = media.is_mojave_or_later = false;
    media.movie_frame_at_time = media.movie_frame_at_start = false;
    add(clip("Clip", "/broken.mov"));
    add(clip("Clip", "/broken.mov"));
    EXPECT_THAT(sentences_of(run.lost),
                ElementsAre("1 media file could not be read (/broken.mov).",
                            "1 row shows a placeholder, because its media was not found (Clip, row 2).",
                            "2 rows show a placeholder, because their media could not be read (Clip, row 3, "
                            "Clip, row 4)."));
}

TEST_F(losses_of_thumbnails, are_the_rows_that_show_nothing)
{
    media.image_has_data = media.asset_frame_at_time = media.asset_frame_at_start = false;
    add(clip("Clip", "/broken.mov"));
    media.asset_frame_at_time = true;
    media.disk_is_full = true;
    add(clip());
    EXPECT_THAT(sentences_of(run.lost),
                ElementsAre("1 media file could not be read (/broken.mov).",
                            "2 rows are without their pictures, which could not be made (Clip, row 2, Clip, "
                            "row 3)."));
}

TEST_F(thumbnails, are_deleted_when_they_were_inserted)
{
    const auto mine = write_file(folder.path() / "0002 Clip.jpg");
    const auto other = write_file(folder.path() / "other.jpg");
    run.cleanup_jpegs = {mine, folder.path() / "gone.jpg"};
    delete_thumbnails(run);
    EXPECT_FALSE(std::filesystem::exists(mine));
    EXPECT_TRUE(std::filesystem::exists(other));
}

} // namespace
