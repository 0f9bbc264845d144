// SPDX-License-Identifier: MIT
#include "platform/failures.h"
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"
#include "support/counting_progress.h"
#include "support/names_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

namespace test = testing_support;

using testing::ElementsAre;
using testing::ThrowsMessage;

class get_info_from_sequence_or_bins_ : public testing::Test {
protected:
    void open(const std::string& document) { get_sequences_names(session, document, services); }
    void analyze(std::string_view uuid) { get_info_from_sequence_or_bins(session, uuid, services); }

    no_diagnostics out;
    test::counting_progress display;
    no_alerts alert;
    no_sequence_menu menu;
    session_services services = {out, display, alert, menu};
    report_session session;
};

std::string track_of_one_clip(const std::string& kind, const std::string& name)
{
    return "<" + kind + "><track><clipitem><name>" + name
        + "</name><duration>50</duration><start>0</start><end>50</end><in>0</in><out>50</out>"
          "<file id=\"f\"><duration>50</duration></file></clipitem></track></"
        + kind + ">";
}

std::string sequence_at(const std::string& timebase, const std::string& uuid)
{
    return "<sequence><uuid>" + uuid + "</uuid><name>The " + uuid
        + " one</name><duration>50</duration><timecode><rate><timebase>" + timebase
        + "</timebase></rate><frame>0</frame></timecode><media>" + track_of_one_clip("video", "A")
        + track_of_one_clip("audio", "B") + "</media></sequence>";
}

std::string two_sequences()
{
    return "<xmeml>" + sequence_at("25", "good") + sequence_at("48", "bad") + "</xmeml>";
}

TEST_F(get_info_from_sequence_or_bins_, leaves_the_analysis_and_closes_the_progress_display)
{
    open(two_sequences());
    analyze("good");
    EXPECT_EQ(session.analysis.sequence_name, "The good one");
    EXPECT_THAT(test::names_of(session.analysis.video_clip_data_array), ElementsAre("A"));
    EXPECT_THAT(session.video_tracks_table_checkboxes.current.value(), ElementsAre(1));
    EXPECT_THAT(session.audio_tracks_table_checkboxes.current.value(), ElementsAre(1));
    EXPECT_TRUE(display.ended);
}

TEST_F(get_info_from_sequence_or_bins_, keeps_the_earlier_analysis_when_it_fails)
{
    open(two_sequences());
    analyze("good");
    EXPECT_THAT([&] { analyze("bad"); }, ThrowsMessage<analysis_error>("This sequence has no timebase"));
    EXPECT_EQ(session.analysis.sequence_name, "The good one");
}

TEST_F(get_info_from_sequence_or_bins_, goes_by_the_scope_of_the_session)
{
    open(two_sequences());
    session.import_video_audio_preference = "audio";
    analyze("good");
    EXPECT_TRUE(session.analysis.video_clip_data_array.empty());
    EXPECT_THAT(test::names_of(session.analysis.audio_clip_data_array), ElementsAre("B"));
}

TEST_F(get_info_from_sequence_or_bins_, finds_the_ticks_of_the_document_before)
{
    open(two_sequences());
    analyze("good");
    session.video_tracks_table_checkboxes.current = {0};
    session.audio_tracks_table_checkboxes.current = {0};
    open(two_sequences());
    analyze("good");
    EXPECT_THAT(session.video_tracks_table_checkboxes.current.value(), ElementsAre(0));
    EXPECT_THAT(session.audio_tracks_table_checkboxes.current.value(), ElementsAre(0));
}

} // namespace

} // namespace tallyframe
