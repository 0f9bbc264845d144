// SPDX-License-Identifier: MIT
#include "media/media_files.h"
#include "run/failures.h"
#include "support/counting_progress.h"
#include "support/parsed_text.h"
#include "support/xmeml_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using namespace testing_support;
using testing::ElementsAre;

constexpr frame_rate rate_25{25, false};
constexpr frame_rate rate_2997{29.97, true};

files_info info_of(const std::string& file_markup, std::optional<frame_rate> seq_fcp_rate = rate_25)
{
    const parsed_xml parsed = parsed_text("<xmeml>" + file_markup + "</xmeml>");
    no_progress display;
    return get_files_info(parsed.index.files, seq_fcp_rate, display);
}

file_record file_record_of(const std::string& file_markup, std::optional<frame_rate> seq_fcp_rate = rate_25)
{
    const files_info info = info_of(file_markup, seq_fcp_rate);
    EXPECT_EQ(info.files.records().size(), 1U);
    return info.files.records().at(0);
}

std::string file(std::string_view markup)
{
    return R"(<file id="f">)" + std::string(markup) + "</file>";
}

std::string rate(std::string_view timebase, std::string_view ntsc)
{
    return around("rate", element("timebase", timebase) + element("ntsc", ntsc));
}

std::string timecode(std::string_view source, std::string_view reel, std::string_view more = {})
{
    return around("timecode",
                  (source.empty() ? "" : element("source", source))
                      + (reel.empty() ? "" : around("reel", element("name", reel))) + std::string(more));
}

TEST(media_files, skips_a_file_that_only_repeats_an_id)
{
    const files_info info = info_of(R"(<file id="clip1"/>)");
    EXPECT_TRUE(info.files.records().empty());
    EXPECT_TRUE(info.reel_names.empty());
}

TEST(media_files, counts_every_file_element_as_a_step)
{
    const parsed_xml parsed = parsed_text(R"(<xmeml><file id="a"/><file id="b"><name/></file></xmeml>)");
    counting_progress display;
    get_files_info(parsed.index.files, rate_25, display);
    EXPECT_THAT(display.step_messages, ElementsAre("Analyzing Media Files\n", "Analyzing Media Files\n"));
}

TEST(media_files, finds_the_first_of_two_files_with_one_id)
{
    const files_info info = info_of(file(element("duration", 10)) + file(element("duration", 20)));
    EXPECT_EQ(info.files.records().size(), 1U);
    EXPECT_EQ(info.files.find("f")->src_duration, 10);
    EXPECT_EQ(info.files.find("g"), nullptr);
}

// Six megabytes that took a gigabyte: the text of an element is that of all elements inside.
TEST(media_files, refuses_texts_that_count_to_many_files_in_each_other)
{
    std::string text(6'000'000, 'x');
    for (int i = 0; i < 60; ++i)
        text = around("file", around("timecode", around("reel", around("name", text))));
    EXPECT_THAT([&] { info_of(text); },
                testing::ThrowsMessage<analysis_error>(testing::HasSubstr("more than 500 MB")));
}

TEST(media_files, gives_a_file_without_an_id_the_empty_one)
{
    EXPECT_NE(info_of("<file><name>x</name></file>").files.find(""), nullptr);
}

TEST(media_files, marks_a_still_image_by_no_duration)
{
    EXPECT_EQ(file_record_of(file("<name/>")).src_duration, std::nullopt);
    EXPECT_EQ(file_record_of(file("<duration>111.0</duration>")).src_duration, 111);
}

TEST(media_files, takes_a_known_rate_from_the_table)
{
    const file_record record = file_record_of(file(rate("30", "True")));
    EXPECT_EQ(record.fcp_rate, rate_2997);
    EXPECT_EQ(record.type, "NTSC/HD (29.97 fps)");
    EXPECT_EQ(file_record_of(file("<rate><timebase>30</timebase></rate>")).type, "Video/HD (30 fps)");
}

TEST(media_files, computes_an_unknown_rate)
{
    const file_record ntsc = file_record_of(file(rate("48", "TRUE")));
    EXPECT_EQ(ntsc.fcp_rate, (frame_rate{47.952, true}));
    EXPECT_EQ(ntsc.type, "Non-Standard (47.952 fps)");
    const file_record whole = file_record_of(file(rate("48", "FALSE")));
    EXPECT_EQ(whole.fcp_rate, (frame_rate{48, false}));
    EXPECT_EQ(whole.type, "Non-Standard (48 fps)");
}

TEST(media_files, takes_the_rate_of_the_sequence_without_one_of_its_own)
{
    const file_record record = file_record_of(file("<rate><ntsc>FALSE</ntsc></rate>"), rate_2997);
    EXPECT_EQ(record.fcp_rate, rate_2997);
    EXPECT_EQ(record.type, "NTSC/HD (29.97 fps)");
}

TEST(media_files, takes_a_timebase_that_is_no_rate_as_it_is)
{
    for (const auto seq_fcp_rate : {std::optional(rate_25), std::optional<frame_rate>()}) {
        const file_record none = file_record_of(file(rate("0", "FALSE")), seq_fcp_rate);
        EXPECT_EQ(none.fcp_rate, (frame_rate{0, false}));
        EXPECT_EQ(none.type, "Non-Standard (0 fps)");
        EXPECT_EQ(file_record_of(file(rate("x", "TRUE")), seq_fcp_rate).type, "Non-Standard (0 fps)");
        EXPECT_EQ(file_record_of(file(rate("-25", "FALSE")), seq_fcp_rate).type, "Non-Standard (-25 fps)");
    }
}

TEST(media_files, has_no_rate_in_bins_without_a_timebase)
{
    const file_record record = file_record_of(file("<rate><ntsc>TRUE</ntsc></rate>"), std::nullopt);
    EXPECT_EQ(record.fcp_rate, std::nullopt);
    EXPECT_EQ(record.type, std::nullopt);
    EXPECT_EQ(file_record_of(file(rate("25", "FALSE")), std::nullopt).fcp_rate, rate_25);
}

TEST(media_files, writes_the_frame_size_with_a_multiplication_sign)
{
    const auto size = [](const std::string& inner) {
        return file_record_of(file(around("media", around("video", around("samplecharacteristics", inner)))))
            .frame_size;
    };
    EXPECT_EQ(size("<width>1920</width><height>1080</height>"), "1920 × 1080");
    EXPECT_EQ(size("<width>1920</width>"), std::nullopt);
    EXPECT_EQ(size("<height>1080</height>"), std::nullopt);
    EXPECT_EQ(size("<width/><height>1080</height>"), std::nullopt);
    EXPECT_EQ(size("<width>1920</width><height>\n </height>"), std::nullopt);
    EXPECT_EQ(size("<width></width><height></height>"), std::nullopt);
    EXPECT_EQ(file_record_of(file("<name/>")).frame_size, std::nullopt);
}

TEST(media_files, keeps_the_sample_rate_as_written)
{
    const file_record record = file_record_of(file("<media><audio><samplecharacteristics><samplerate>48000</"
                                                   "samplerate></samplecharacteristics></audio></media>"));
    EXPECT_EQ(record.samplerate, "48000");
    EXPECT_EQ(file_record_of(file("<name/>")).samplerate, std::nullopt);
}

TEST(file_record, adds_up_the_channels_of_its_sound)
{
    EXPECT_EQ(file_record_of(file("<name/>")).audio_channels, std::nullopt);
    EXPECT_EQ(
        file_record_of(file("<media><audio><channelcount>2</channelcount></audio></media>")).audio_channels,
        2);
    EXPECT_EQ(file_record_of(file("<media><audio><channelcount>1</channelcount></audio><audio><channelcount>"
                                  "-5</channelcount></audio><audio><channelcount>2</channelcount></audio>"
                                  "</media>"))
                  .audio_channels,
              3);
}

TEST(media_files, reads_the_first_timecode_as_frames)
{
    EXPECT_EQ(file_record_of(
                  file(rate("25", "FALSE") + timecode("", "", rate("25", "FALSE") + "<frame>90000</frame>")))
                  .timecode_frame,
              90'000);
    EXPECT_EQ(file_record_of(file(rate("25", "FALSE")
                                  + timecode("", "", rate("25", "FALSE") + "<string>01:00:00:00</string>")))
                  .timecode_frame,
              90'000);
    EXPECT_EQ(file_record_of(file("<name/>")).timecode_frame, 0);
}

TEST(media_files, counts_the_text_of_a_timecode_by_timebase_and_display_format)
{
    const auto first_frame = [](std::string_view timebase, std::string_view displayformat) {
        return file_record_of(file(rate(timebase, "TRUE")
                                   + timecode("", "",
                                              rate(timebase, "TRUE") + "<string>01:00:00;00</string>"
                                                  + element("displayformat", displayformat))))
            .timecode_frame;
    };
    EXPECT_EQ(first_frame("30", "DF"), 107'892);
    EXPECT_EQ(first_frame("30", "NDF"), 108'000);
    EXPECT_EQ(first_frame("24", "DF"), 86'400) << "which has no drop-frame count";
}

TEST(media_files, takes_format_and_frame_from_anywhere_below)
{
    const file_record record =
        file_record_of(file("<media><x><frame>12</frame><displayformat>DF</displayformat></x></media>"));
    EXPECT_EQ(record.timecode_frame, 12);
    EXPECT_EQ(record.displayformat, display_format::drop_frame);
}

TEST(media_files, rescales_a_timecode_to_the_rate_of_the_file)
{
    const file_record record = file_record_of(
        file(rate("25", "FALSE") + timecode("", "", rate("30", "FALSE") + "<frame>31</frame>")));
    EXPECT_EQ(record.timecode_frame, 31 * 25 / 30.0) << "a fraction stays one";
}

TEST(media_files, leaves_a_timecode_without_a_usable_timebase_as_it_is)
{
    const std::string start = "<string>00:00:02:00</string>";
    EXPECT_EQ(file_record_of(file(rate("25", "FALSE") + timecode("", "", start))).timecode_frame, 50);
    EXPECT_EQ(file_record_of(file(rate("25", "FALSE") + timecode("", "", rate("0", "FALSE") + start)))
                  .timecode_frame,
              50);
    EXPECT_EQ(
        file_record_of(file(rate("25", "FALSE") + timecode("", "", rate("0", "FALSE") + "<frame>7</frame>")))
            .timecode_frame,
        7);
    EXPECT_EQ(file_record_of(file(timecode("", "", start)), std::nullopt).timecode_frame, 0)
        << "no rate at all";
}

TEST(media_files, takes_reel_and_roll_from_their_timecodes)
{
    const files_info info = info_of(file(timecode("source", "A001") + timecode("sound", "SR12")));
    EXPECT_EQ(info.files.records()[0].reel_name, "A001");
    EXPECT_EQ(info.files.records()[0].roll_name, "SR12");
    EXPECT_THAT(info.reel_names, ElementsAre("A001"));
}

TEST(media_files, takes_the_reel_of_a_timecode_without_a_source)
{
    EXPECT_EQ(file_record_of(file(timecode("aux1", "X1") + timecode("", "A001"))).reel_name, "A001");
    EXPECT_EQ(file_record_of(file(timecode("", "A001") + timecode("", "A002"))).reel_name, "A002");
}

TEST(media_files, takes_only_a_roll_from_a_sound_timecode_beside_another)
{
    const file_record record = file_record_of(file(timecode("sound", "SR12") + timecode("sound", "SR13")));
    EXPECT_EQ(record.reel_name, std::nullopt);
    EXPECT_EQ(record.roll_name, "SR13");
}

TEST(media_files, takes_the_reel_of_the_only_timecode_whatever_its_source)
{
    const file_record record = file_record_of(file(timecode("sound", "SR12")));
    EXPECT_EQ(record.reel_name, "SR12");
    EXPECT_EQ(record.roll_name, std::nullopt);
}

TEST(media_files, takes_the_reel_of_another_source_only_when_none_came_before)
{
    const files_info aux_first = info_of(file(timecode("aux1", "X1") + timecode("aux2", "X2")));
    EXPECT_EQ(aux_first.files.records()[0].reel_name, "X1");
    EXPECT_THAT(aux_first.reel_names, ElementsAre("X1"));
    EXPECT_EQ(file_record_of(file(timecode("source", "A1") + timecode("aux1", "X1"))).reel_name, "A1");
    const files_info source_last = info_of(file(timecode("aux1", "X1") + timecode("source", "A1")));
    EXPECT_EQ(source_last.files.records()[0].reel_name, "A1");
    EXPECT_THAT(source_last.reel_names, ElementsAre("X1", "A1"));
}

TEST(media_files, writes_reels_in_plain_ascii)
{
    EXPECT_EQ(file_record_of(file(timecode("", "Zoë 1"))).reel_name, "Zoe 1");
}

TEST(media_files, keeps_repeats_of_a_reel)
{
    EXPECT_THAT(info_of(file(timecode("", "A")) + file(timecode("", "A"))).reel_names, ElementsAre("A", "A"));
}

TEST(media_files, takes_an_empty_name_for_a_reel)
{
    EXPECT_THAT(info_of(file("<timecode><reel><name/></reel></timecode>")).reel_names, ElementsAre(""));
    EXPECT_TRUE(info_of(file("<timecode><reel/></timecode>")).reel_names.empty());
}

TEST(media_files, shows_an_audio_file_that_starts_at_zero_as_non_drop)
{
    const std::string start = "<frame>0</frame><displayformat>DF</displayformat>";
    EXPECT_EQ(file_record_of(file(timecode("", "", start))).displayformat, display_format::non_drop_frame);
    EXPECT_EQ(file_record_of(file(timecode("", "", start) + "<media><audio/></media>")).displayformat,
              display_format::non_drop_frame);
    EXPECT_EQ(file_record_of(file(timecode("", "", start) + "<media><video/></media>")).displayformat,
              display_format::drop_frame);
    EXPECT_EQ(file_record_of(file(timecode("", "", "<frame>5</frame><displayformat>DF</displayformat>")))
                  .displayformat,
              display_format::drop_frame);
}

TEST(media_files, takes_the_path_from_the_url)
{
    const file_record record =
        file_record_of(file("<pathurl>file://localhost/Volumes/Media/My%20Clip?.mov</pathurl>"));
    EXPECT_EQ(record.path, "/Volumes/Media/My Clip?.mov");
    EXPECT_EQ(record.video_format, "");
    EXPECT_EQ(record.audio_format, "");
    EXPECT_EQ(file_record_of(file("<pathurl>file://localhost/%FF</pathurl>")).path, std::nullopt);
    EXPECT_EQ(file_record_of(file("<name/>")).path, "");
}

TEST(media_files, names_what_generates_the_media)
{
    const file_record record = file_record_of(file("<mediaSource>Slug</mediaSource><pathurl>x</pathurl>"));
    EXPECT_EQ(record.path, "Slug");
    EXPECT_EQ(record.video_format, std::nullopt);
    EXPECT_EQ(record.audio_format, std::nullopt);
}

} // namespace

} // namespace tallyframe
