// SPDX-License-Identifier: MIT
#include "run/failures.h"
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"
#include "support/counting_progress.h"
#include "support/names_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

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

std::string named_sequence(const std::string& name, const std::string& uuid)
{
    return "<sequence><uuid>" + uuid + "</uuid><name>" + name
        + "</name><duration>50</duration><timecode><rate><timebase>25</timebase></rate>"
          "<frame>0</frame></timecode></sequence>";
}

std::string two_sequences()
{
    return "<xmeml>" + sequence_at("25", "good") + sequence_at("48", "bad") + "</xmeml>";
}

std::string in_video_track(const std::string& items)
{
    return "<media><video><track>" + items + "</track></video></media>";
}

std::string nest(const std::string& inner)
{
    return "<clipitem><name>Nest</name><duration>50</duration><start>0</start><end>50</end><in>0</in>"
           "<out>50</out>"
        + inner + "</clipitem>";
}

/// A sequence of Premiere Pro; its name is its id and its uuid.
std::string premiere_sequence(const std::string& name, const std::string& items)
{
    return "<sequence id='" + name + "' explodedTracks='true'><uuid>" + name + "</uuid><name>" + name
        + "</name><duration>50</duration><timecode><rate><timebase>25</timebase></rate><frame>0</frame>"
          "</timecode>"
        + in_video_track(items) + "</sequence>";
}

std::string sequence_of_file(const std::string& name)
{
    return premiere_sequence(name,
                             nest("<file id='" + name + "'><duration>50</duration><pathurl>file://localhost/"
                                  + name + ".mov</pathurl></file>"));
}

/// C holds A, which nests F, and B, which nests D; E nests C.
std::string sequences_in_each_other()
{
    return "<xmeml>"
        + premiere_sequence("C",
                            nest(premiere_sequence("A", nest("<sequence id='F'/>")))
                                + nest(premiere_sequence("B", nest("<sequence id='D'/>"))))
        + sequence_of_file("D") + premiere_sequence("E", nest("<sequence id='C'/>")) + sequence_of_file("F")
        + "</xmeml>";
}

TEST_F(get_info_from_sequence_or_bins_, finds_nested_files_in_document_order_whatever_came_first)
{
    for (const auto& order : {std::vector{"A", "B", "E"}, std::vector{"B", "A", "E"}}) {
        open(sequences_in_each_other());
        for (const char* uuid : order)
            analyze(uuid);
        ASSERT_THAT(test::names_of(session.analysis.video_clip_data_array), ElementsAre("Nest"));
        EXPECT_EQ(session.analysis.video_clip_data_array[0].path, "/F.mov") << order.front() << " first";
    }
}

TEST_F(get_info_from_sequence_or_bins_, adds_nothing_to_the_document_that_is_opened_next)
{
    open(sequences_in_each_other());
    analyze("A");
    open(sequences_in_each_other());
    analyze("E");
    EXPECT_TRUE(session.analysis.video_clip_data_array.empty());
}

TEST_F(get_info_from_sequence_or_bins_, analyzes_each_entry_that_is_asked_for_as_if_it_came_first)
{
    open(sequences_in_each_other());
    analyze("A");
    media_catalogues catalogues;
    for (const char* uuid : {"A", "E"}) {
        const auto entry = std::find_if(session.menu.begin(), session.menu.end(),
                                        [uuid](const auto& each) { return each.uuid == uuid; });
        get_info_from_entry(session, static_cast<std::size_t>(entry - session.menu.begin()), catalogues,
                            services);
    }
    EXPECT_EQ(session.analysis.sequence_name, "E");
    EXPECT_TRUE(session.analysis.video_clip_data_array.empty());
    analyze("E");
    EXPECT_EQ(session.analysis.video_clip_data_array.at(0).path, "/F.mov") << "the session goes on as before";
}

/// A clip whose scale is also the speed of its time remap.
std::string clip_with_shared_value()
{
    return "<xmeml>"
        + premiere_sequence(
               "S",
               nest("<file id='f'><duration>100</duration></file><filter><effect><name>Basic Motion</name>"
                    "<effectid>basic</effectid><effectid>timeremap</effectid><effecttype>motion</effecttype>"
                    "<parameter><parameterid>scale</parameterid><parameterid>speed</parameterid>"
                    "<name>Scale</name><value>100</value><keyframe><value>50</value></keyframe>"
                    "<keyframe><value>75</value></keyframe></parameter></effect></filter>"))
        + "</xmeml>";
}

TEST_F(get_info_from_sequence_or_bins_, keeps_joined_scales_for_the_session)
{
    open(clip_with_shared_value());
    analyze("S");
    EXPECT_EQ(session.analysis.video_clip_data_array.at(0).src_length, 50);
    EXPECT_THAT(test::names_of(session.analysis.video_clip_motion_array), ElementsAre("Scale (50%, 75%)"));
    analyze("S");
    EXPECT_EQ(session.analysis.video_clip_data_array.at(0).src_length, 25) << "its speed is \"50%, 75\"";
    EXPECT_THAT(test::names_of(session.analysis.video_clip_motion_array), ElementsAre("Scale (50%, 75%)"));

    media_catalogues catalogues;
    get_info_from_entry(session, 0, catalogues, services);
    EXPECT_EQ(session.analysis.video_clip_data_array.at(0).src_length, 50) << "as if it came first";
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
    session.import_video_audio_preference = report_scope::audio;
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

TEST_F(get_info_from_sequence_or_bins_, finds_the_first_of_two_sequences_with_one_identifier)
{
    open("<xmeml>" + named_sequence("First", "same") + named_sequence("Second", "same") + "</xmeml>");
    analyze("same");
    EXPECT_EQ(session.analysis.sequence_name, "First");
}

TEST_F(get_info_from_sequence_or_bins_, gives_each_entry_its_own_sequence_when_entries_are_asked_for)
{
    open("<xmeml><children><clip><media/></clip></children>" + named_sequence("First", "same")
         + named_sequence("Second", "same") + "</xmeml>");
    media_catalogues catalogues;
    std::vector<std::string> names;
    for (const std::size_t position : {2, 3}) { // behind the bins' entry and the separator
        get_info_from_entry(session, position, catalogues, services);
        names.push_back(session.analysis.sequence_name);
    }
    EXPECT_THAT(names, ElementsAre("First", "Second"));
    get_info_from_entry(session, 0, catalogues, services);
    EXPECT_FALSE(session.analysis.is_sequence);
}

} // namespace

} // namespace tallyframe
