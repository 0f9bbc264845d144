// SPDX-License-Identifier: MIT
#include "analysis/sequence_header.h"
#include "run/account.h"
#include "run/failures.h"
#include "support/analyzed_document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using namespace testing_support;

analysis_result header_of(const sequence_options& options)
{
    return analysis_of(xmeml().sequence("Reel 1", options));
}

std::string sequence_with(std::string_view markup)
{
    return "<xmeml><sequence><uuid>uuid-1</uuid>" + std::string(markup) + "</sequence></xmeml>";
}

std::string timecode(std::string_view markup)
{
    return "<timecode><rate><timebase>25</timebase></rate><frame>0</frame>" + std::string(markup)
        + "</timecode>";
}

std::string message_of(std::string_view document_text)
{
    try {
        const analyzed_document document(document_text);
    } catch (const analysis_error& error) {
        return error.what();
    }
    return {};
}

TEST(sequence_header, holds_what_the_document_says)
{
    const analysis_result result =
        header_of({.timebase = 30, .ntsc = "True", .displayformat = "DF", .duration = 5000});
    EXPECT_TRUE(result.is_sequence);
    EXPECT_EQ(result.sequence_name, "Reel 1");
    EXPECT_EQ(result.sequence_duration, 5000);
    EXPECT_EQ(result.seq_fcp_rate, (frame_rate{29.97, true}));
    EXPECT_EQ(result.seq_displayformat, display_format::drop_frame);
}

TEST(sequence_header, keeps_sizes_and_sample_rate_as_written)
{
    const analyzed_document document(sequence_with(
        "<name>x</name><duration>1</duration>" + timecode("")
        + "<media><video><format><samplecharacteristics><width>1920 </width><height>1080</height>"
          "</samplecharacteristics></format></video><audio><format><samplecharacteristics>"
          "<samplerate>48000</samplerate></samplecharacteristics></format></audio></media>"));
    EXPECT_EQ(document.result.sequence_width, "1920 ");
    EXPECT_EQ(document.result.sequence_height, "1080");
    EXPECT_EQ(document.result.seq_samplerate, "48000");
    const analysis_result without = header_of({});
    EXPECT_EQ(without.sequence_width, std::nullopt);
    EXPECT_EQ(without.sequence_height, std::nullopt);
    EXPECT_EQ(without.seq_samplerate, std::nullopt);
}

TEST(sequence_header, adjusts_odd_timebases)
{
    struct rate_case {
        std::int64_t timebase;
        std::string ntsc;
        double rate;
    };
    for (const rate_case& each : {rate_case{23, "FALSE", 23.976},
                                  {24, "TRUE", 23.976},
                                  {24, "FALSE", 24},
                                  {25, "TRUE", 25},
                                  {30, "TRUE", 29.97},
                                  {30, "FALSE", 30},
                                  {50, "FALSE", 50},
                                  {59, "FALSE", 59.94},
                                  {60, "true", 59.94},
                                  {60, "FALSE", 60}})
        EXPECT_EQ(header_of({.timebase = each.timebase, .ntsc = each.ntsc}).seq_fcp_rate->frames_per_second,
                  each.rate)
            << each.timebase << each.ntsc;
}

TEST(sequence_header, takes_timebase_29_for_30_whatever_ntsc_says_on_purpose)
{
    EXPECT_EQ(header_of({.timebase = 29, .ntsc = "TRUE"}).seq_fcp_rate, (frame_rate{30, false}));
}

TEST(sequence_header, takes_no_ntsc_for_false)
{
    const analyzed_document document(
        sequence_with("<name>x</name><duration>1</duration><timecode><rate>"
                      "<timebase>24.0</timebase></rate><frame>0</frame></timecode>"));
    EXPECT_EQ(document.result.seq_fcp_rate, (frame_rate{24, false}));
}

TEST(sequence_header, takes_the_rate_of_the_timecode)
{
    const analyzed_document document(
        sequence_with("<name>x</name><duration>1</duration>"
                      "<rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate><timecode><rate>"
                      "<timebase> 3e1 </timebase><ntsc>TRUE</ntsc></rate><frame>0</frame></timecode>"));
    EXPECT_EQ(document.result.seq_fcp_rate, (frame_rate{29.97, true}));
}

TEST(sequence_header, refuses_a_rate_that_it_does_not_know)
{
    constexpr const char* message = "This sequence has no timebase";
    for (const std::int64_t timebase : {48, 0, -25, 120})
        EXPECT_EQ(message_of(xmeml().sequence("x", {.timebase = timebase}).text()), message);
    EXPECT_EQ(message_of(sequence_with("<name>x</name><duration>1</duration>")), message);
}

TEST(sequence_header, tells_drop_frame_by_the_timecode_without_a_display_format)
{
    const auto displayformat = [](std::string_view markup) {
        return analyzed_document(sequence_with("<name>x</name><duration>1</duration>" + timecode(markup)))
            .result.seq_displayformat;
    };
    EXPECT_EQ(displayformat("<string>01:00:00;00</string>"), display_format::drop_frame);
    EXPECT_EQ(displayformat("<string>01:00:00:00</string>"), display_format::non_drop_frame);
    EXPECT_EQ(displayformat(""), display_format::non_drop_frame);
    EXPECT_EQ(displayformat("<string>01:00:00;00</string><displayformat>NDF</displayformat>"),
              display_format::non_drop_frame);
    EXPECT_EQ(displayformat("<displayformat>odd</displayformat>"), display_format::unknown);
    EXPECT_EQ(displayformat("<displayformat/>"), display_format::unknown);
}

/// The header of a sequence without an identifier, with stand-ins for what it lacks.
struct supplied_header {
    analysis_result result;
    std::int64_t first_frame;

    explicit supplied_header(const std::string& inside)
    {
        const parsed_xml parsed = parsed_text("<xmeml><sequence>" + inside + "</sequence></xmeml>");
        first_frame =
            read_sequence_header(parsed.index.unidentified_sequences.at(0), stand_ins{"Sequence 1"}, result);
    }
};

TEST(sequence_header, gets_its_rate_and_first_frame_where_there_is_no_timecode)
{
    const supplied_header header("<name>Cut</name><duration>50</duration>"
                                 "<rate><timebase>30</timebase><ntsc>TRUE</ntsc></rate>");
    EXPECT_EQ(header.result.seq_fcp_rate, (frame_rate{29.97, true}));
    EXPECT_EQ(header.first_frame, 0);
    EXPECT_THAT(
        sentences_of(header.result.losses),
        testing::ElementsAre("2 facts that the sequence lacks were supplied (its rate: 29.97, its first "
                             "frame: 0)."));
}

TEST(sequence_header, takes_the_first_frame_from_a_timecode_without_a_frame)
{
    const supplied_header header("<name>Cut</name><duration>50</duration><rate><timebase>25</timebase></rate>"
                                 "<timecode><string>01:00:00:00</string></timecode>");
    EXPECT_EQ(header.first_frame, 90000);
}

TEST(sequence_header, gets_a_name_and_the_end_of_its_last_item_as_duration)
{
    const supplied_header header("<rate><timebase>25</timebase></rate>" + timecode("")
                                 + "<media><video><track><clipitem><end>70</end></clipitem><generatoritem>"
                                   "<end>90</end></generatoritem></track></video><audio><track><clipitem>"
                                   "<end>80</end></clipitem></track></audio></media>");
    EXPECT_EQ(header.result.sequence_name, "Sequence 1");
    EXPECT_EQ(header.result.sequence_duration, 90);
    EXPECT_EQ(header.result.seq_fcp_rate, (frame_rate{25, false})) << "that of the timecode";
    EXPECT_EQ(sentences_of(header.result.losses).at(0),
              "2 facts that the sequence lacks were supplied (its name: Sequence 1, its duration: 90).");
}

TEST(sequence_header, says_that_no_rate_can_be_supplied)
{
    EXPECT_THAT([] { (void)supplied_header("<marker/>"); },
                testing::ThrowsMessage<analysis_error>(
                    "The sequence \"Sequence 1\" has neither a timecode with a rate nor a rate of its own. "
                    "Export it again from the program that it was cut in."));
}

TEST(sequence_header, supplies_nothing_to_a_sequence_that_has_all)
{
    const supplied_header header("<name>Cut</name><duration>50</duration>" + timecode(""));
    EXPECT_TRUE(header.result.losses.is_empty());
}

TEST(sequence_header, says_what_is_missing)
{
    EXPECT_THAT(message_of(sequence_with("<duration>1</duration>" + timecode(""))),
                testing::StartsWith(R"(The sequence has no "name" element.)"));
    EXPECT_THAT(message_of(sequence_with("<name>Reel 1</name>" + timecode(""))),
                testing::StartsWith(R"(The sequence "Reel 1" has no "duration" element.)"));
    EXPECT_THAT(message_of(sequence_with("<name>Reel 1</name><duration>1</duration><timecode><rate>"
                                         "<timebase>25</timebase></rate></timecode>")),
                testing::StartsWith(R"(The sequence "Reel 1" has no "timecode/frame" element.)"));
}

} // namespace

} // namespace tallyframe
