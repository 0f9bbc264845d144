// SPDX-License-Identifier: MIT
#include "sheets/documented_facts.h"
#include "sheets/media_check.h"
#include "sheets/media_sheet.h"
#include "support/counting_progress.h"
#include "support/shown_sheet.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace tallyframe {

namespace {

using namespace testing_support;
using testing::ElementsAre;
using testing::IsEmpty;

/// Ten seconds of 1920 × 1080 at 25 frames a second, from 01:00:00:00 on, with two channels of sound.
file_record film_in_document()
{
    file_record file;
    file.path = "/Volumes/Rushes/film.mov";
    file.src_duration = 250;
    file.fcp_rate = frame_rate{25, false};
    file.frame_size = "1920 × 1080";
    file.timecode_frame = 90000;
    file.audio_channels = 2;
    file.video_format = "";
    return file;
}

media_facts film_on_disk()
{
    media_facts facts;
    facts.duration = 10;
    facts.frames_per_second = 25;
    facts.frame_size = pixel_size{1920, 1080};
    facts.start_timecode = "01:00:00:00";
    facts.audio_channels = 2;
    return facts;
}

class media_check_ : public testing::Test, media_locator, media_probe {
protected:
    checked_media checked(std::vector<used_frames> ranges = {{0, 249}}, std::int64_t handles = 0)
    {
        const media_inspection inspection{*this, *this, display_};
        return check_media({{document_, 1, std::move(ranges)}}, handles, &inspection).at(0);
    }

    file_record document_ = film_in_document();
    std::optional<media_facts> facts_ = film_on_disk(); ///< none: no media
    bool is_there_ = true;
    counting_progress display_;
    std::vector<documented_media> expected_;

private:
    void expect(std::span<const documented_media> media) override
    {
        expected_.assign(media.begin(), media.end());
    }
    std::optional<std::filesystem::path> locate(const std::string&) override
    {
        return is_there_ ? std::optional(file_) : std::nullopt;
    }
    std::optional<media_facts> facts_of(const std::filesystem::path&) override { return facts_; }

    temporary_folder folder_;
    std::filesystem::path file_ = write_file(folder_.path() / "film.mov", "12345");
};

TEST_F(media_check_, finds_nothing_wrong_with_a_file_that_is_as_the_document_says)
{
    const checked_media film = checked();
    EXPECT_EQ(film.state, media_state::fine);
    EXPECT_EQ(film.bytes, 5U);
    EXPECT_THAT(film.differences, IsEmpty());
    EXPECT_EQ(lack_text(film), "");
    EXPECT_TRUE(totals_of(std::vector{film}).is_complete());
}

TEST_F(media_check_, tells_the_locator_what_the_document_says)
{
    checked();
    ASSERT_EQ(expected_.size(), 1U);
    EXPECT_EQ(expected_[0].path, "/Volumes/Rushes/film.mov");
    EXPECT_EQ(expected_[0].facts.duration, 10);
    EXPECT_EQ(expected_[0].facts.frames_per_second, 25);
    EXPECT_EQ(expected_[0].facts.frame_size, (pixel_size{1920, 1080}));
}

TEST_F(media_check_, shows_the_file_at_work)
{
    checked();
    EXPECT_EQ(display_.messages, (std::vector<std::string>{"Checking /Volumes/Rushes/film.mov", ""}));
}

TEST_F(media_check_, tells_a_missing_file_from_one_that_cannot_be_read)
{
    facts_.reset();
    EXPECT_EQ(checked().state, media_state::unreadable);
    is_there_ = false;
    EXPECT_EQ(checked().state, media_state::missing);
    EXPECT_EQ(checked().bytes, std::nullopt);
}

TEST_F(media_check_, names_every_fact_that_differs)
{
    facts_->duration = 12;
    facts_->frames_per_second = 24;
    facts_->frame_size = pixel_size{960, 540};
    facts_->start_timecode = "02:00:00:00";
    facts_->audio_channels = 1;
    const checked_media film = checked();
    EXPECT_EQ(film.state, media_state::differs);
    EXPECT_THAT(film.differences,
                ElementsAre(media_difference{"duration", "00:00:12:00", "00:00:10:00"},
                            media_difference{"rate", "24", "25"},
                            media_difference{"frame size", "960 × 540", "1920 × 1080"},
                            media_difference{"start", "02:00:00:00", "01:00:00:00"},
                            media_difference{"audio channels", "1", "2"}));
    EXPECT_TRUE(totals_of(std::vector{film}).is_complete()) << "all frames are there";
}

TEST_F(media_check_, takes_what_the_file_does_not_say_for_no_difference)
{
    facts_ = media_facts();
    EXPECT_EQ(checked().state, media_state::fine);
}

TEST_F(media_check_, reads_the_start_that_a_recorder_notes)
{
    document_.frame_size.reset();
    facts_ = media_facts();
    facts_->start_seconds = 3600;
    EXPECT_THAT(checked().differences, IsEmpty());
    EXPECT_EQ(texts_of_file(checked()).start, "01:00:00:00");
    facts_->start_seconds = 3601;
    EXPECT_THAT(checked().differences, ElementsAre(media_difference{"start", "01:00:01:00", "01:00:00:00"}));
}

TEST_F(media_check_, counts_the_frames_that_clips_show_and_the_file_lacks)
{
    facts_->duration = 9.6;
    EXPECT_EQ(checked({{0, 239}}).state, media_state::differs);
    const checked_media film = checked({{0, 9}, {200, 240}});
    EXPECT_EQ(film.state, media_state::too_short);
    EXPECT_EQ(lack_text(film), "1 frame is missing at its end");
    EXPECT_FALSE(totals_of(std::vector{film}).is_complete());
}

TEST_F(media_check_, counts_frames_of_ntsc_rates_by_what_they_are_rounded_from)
{
    document_.fcp_rate = frame_rate{29.97, true};
    document_.src_duration = 107892; // an hour
    facts_->frames_per_second = 30000 / 1001.0;
    facts_->duration = 107892 * 1001 / 30000.0;
    EXPECT_EQ(lack_text(checked({{0, 107891}})), "");
    EXPECT_EQ(lack_text(checked({{0, 107892}})), "1 frame is missing at its end");
}

TEST_F(media_check_, wants_handles_at_both_ends)
{
    EXPECT_EQ(lack_text(checked({{12, 237}}, 12)), "");
    EXPECT_EQ(lack_text(checked({{10, 238}}, 12)),
              "2 frames are missing at its start, 1 frame is missing at its end");
}

TEST_F(media_check_, asks_no_frames_of_a_still_picture)
{
    document_.src_duration.reset();
    facts_ = media_facts();
    facts_->frame_size = pixel_size{1920, 1080};
    const checked_media still = checked({}, 12);
    EXPECT_EQ(still.state, media_state::fine);
    EXPECT_EQ(texts_of_document(still).duration, "");
}

TEST_F(media_check_, counts_a_file_to_copy_once)
{
    const std::vector<checked_media> twice = {checked(), checked()};
    EXPECT_EQ(totals_of(twice).bytes, 5U);
}

TEST_F(media_check_, shows_ranges_as_timecodes_of_the_file)
{
    EXPECT_THAT(range_texts(checked({{10, 59}, {100, 100}}).use),
                ElementsAre("01:00:00:10-01:00:02:09", "01:00:04:00-01:00:04:00"));
}

TEST_F(media_check_, stands_on_a_sheet_with_what_lacks_something_in_red)
{
    facts_->duration = 8;
    const checked_media film = checked({{10, 249}});
    is_there_ = false;
    const shown_sheet shown(sheet_of_checked_media({film, checked()}, {}));
    EXPECT_EQ(shown.name, "Media Check");
    EXPECT_THAT(shown.row(0),
                ElementsAre("Status", "File Name", "Clips", "Used Ranges", "Missing Frames", "Duration",
                            "Duration in Document", "Rate", "Rate in Document", "Frame Size",
                            "Frame Size in Document", "Start", "Start in Document", "Audio Channels",
                            "Audio Channels in Document", "Bytes", "Found at", "File Path"));
    EXPECT_THAT(shown.row(1),
                ElementsAre("too short", "film.mov", "1", "01:00:00:10-01:00:09:24",
                            "50 frames are missing at its end", "00:00:08:00", "00:00:10:00", "25", "25",
                            "1920 × 1080", "1920 × 1080", "01:00:00:00", "01:00:00:00", "2", "2", "5",
                            film.found->string(), "/Volumes/Rushes/film.mov"));
    EXPECT_THAT(shown.row(2),
                ElementsAre("missing", "film.mov", "1", "01:00:00:00-01:00:09:24", "", "", "00:00:10:00", "",
                            "25", "", "1920 × 1080", "", "01:00:00:00", "", "2", "-", "",
                            "/Volumes/Rushes/film.mov"));
    EXPECT_EQ(shown.cell(1, 0).look, red_text);
    EXPECT_EQ(shown.cell(4, 15).text, "5") << "the total";
}

TEST(unchecked_media, shows_what_the_document_says_alone)
{
    const auto media = check_media({{film_in_document(), 1, {{0, 9}}}}, 0, nullptr);
    const shown_sheet shown(sheet_of_checked_media(media, {}));
    EXPECT_EQ(shown.cell(1, 0).text, "");
    EXPECT_EQ(shown.cell(1, 6).text, "00:00:10:00");
    EXPECT_EQ(shown.cell(1, 1).look, black_text);
    EXPECT_EQ(shown.row_count(), 2U) << "nothing is known of a total";
}

TEST(facts_in_document, are_those_that_the_document_knows)
{
    file_record sound;
    sound.path = "/sound.wav";
    sound.src_duration = 2400;
    sound.fcp_rate = frame_rate{23.976, true};
    const media_facts facts = facts_in_document(sound);
    EXPECT_DOUBLE_EQ(facts.duration.value(), 100.1);
    EXPECT_EQ(facts.frames_per_second, std::nullopt) << "that of the sequence, not of the sound";
    EXPECT_EQ(facts.frame_size, std::nullopt);
    for (const char* size : {"0 × 1080", "wide × high", "1920", "99999999999 × 1"}) {
        sound.frame_size = size;
        EXPECT_EQ(facts_in_document(sound).frame_size, std::nullopt) << size;
    }
}

} // namespace

} // namespace tallyframe
