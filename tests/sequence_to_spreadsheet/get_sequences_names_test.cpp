// SPDX-License-Identifier: MIT
#include "run/failures.h"
#include "run/gui_mode.h"
#include "sequence_to_spreadsheet/sequence_to_spreadsheet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace tallyframe {

namespace {

/// A host that writes down what it is asked for, in order.
class noting_host final : public alerts, public sequence_menu, public progress {
public:
    std::vector<std::string> calls;
    std::vector<std::string> system_log;
    std::string alert_text;
    bool has_memory = true;

    void show(std::string_view message_text, std::string_view informative_text) override
    {
        alert_text = std::string(message_text) + "|" + std::string(informative_text);
        calls.emplace_back("alert");
    }
    void write_system_log(std::string_view text) override { system_log.emplace_back(text); }

    void set_enabled(bool enabled) override { calls.emplace_back(enabled ? "enable" : "disable"); }
    void analyze_sequence() override { calls.emplace_back("analyze"); }

    void begin(std::int64_t) override { }
    void advance(std::string_view) override { }
    void show_message(std::string_view message) override
    {
        if (!has_memory)
            throw std::bad_alloc();
        calls.emplace_back("message " + std::string(message));
    }
    void spin(std::string_view) override { }
    void end() override { calls.emplace_back("end progress"); }
};

class get_sequences_names_ : public testing::Test {
protected:
    void SetUp() override { gui_mode = true; }
    void TearDown() override { gui_mode.reset(); }

    void open(const std::string& text) { get_sequences_names(session, xml_input(text), services); }

    std::vector<std::string> uuids() const
    {
        std::vector<std::string> texts;
        for (const catalogue_entry& entry : session.menu)
            texts.push_back(entry.uuid);
        return texts;
    }

    std::vector<std::string> titles() const
    {
        std::vector<std::string> texts;
        for (const catalogue_entry& entry : session.menu)
            texts.push_back(entry.title);
        return texts;
    }

    noting_host host;
    no_diagnostics out;
    report_session session;
    session_services services = {out, host, host, host};
};

const std::string loose_clip = "<children><clip id=\"c\"/></children>";

std::string sequence(const std::string& name, const std::string& uuid)
{
    return "<sequence><uuid>" + uuid + "</uuid><name>" + name + "</name></sequence>";
}

std::string xmeml(const std::string& content)
{
    return "<xmeml version=\"5\">" + content + "</xmeml>";
}

} // namespace

TEST_F(get_sequences_names_, lists_bin_clips_a_separator_and_the_sequences)
{
    open(xmeml(loose_clip + sequence("One", "U-1") + sequence("Two", "U-2")));
    EXPECT_THAT(titles(), ElementsAre("Bin Clips", "", "One", "Two"));
    EXPECT_TRUE(session.menu.at(1).is_separator());
    EXPECT_THAT(host.calls, ElementsAre("enable"));
    EXPECT_THAT(uuids(), ElementsAre("", "----------", "U-1", "U-2"));
}

TEST_F(get_sequences_names_, starts_the_analysis_of_a_single_sequence)
{
    open(xmeml(sequence("One", "U-1")));
    EXPECT_THAT(titles(), ElementsAre("One"));
    EXPECT_THAT(host.calls, ElementsAre("enable", "analyze"));
}

TEST_F(get_sequences_names_, starts_the_analysis_of_loose_clips_alone)
{
    open(xmeml(loose_clip));
    EXPECT_EQ(host.calls.back(), "analyze");
    EXPECT_THAT(uuids(), ElementsAre(""));
}

TEST_F(get_sequences_names_, waits_for_a_choice_between_one_sequence_and_loose_clips)
{
    open(xmeml(loose_clip + sequence("One", "U-1")));
    EXPECT_EQ(host.calls.back(), "enable");
}

TEST_F(get_sequences_names_, disables_the_menu_of_a_document_with_neither_and_shows_no_alert)
{
    open(xmeml(""));
    EXPECT_EQ(host.calls.back(), "disable");
    EXPECT_EQ(host.alert_text, "");
}

TEST_F(get_sequences_names_, shows_both_of_two_sequences_with_one_name)
{
    open(xmeml(sequence("Cut", "U-1") + sequence("Cut", "U-2")));
    EXPECT_THAT(uuids(), ElementsAre("U-1", "U-2"));
}

TEST_F(get_sequences_names_, finds_sequences_inside_sequences_but_none_without_a_uuid)
{
    open(xmeml("<sequence><uuid>U-1</uuid><name>Outer</name><media>" + sequence("Inner", "U-2")
               + "<sequence><name>Nameless</name></sequence></media></sequence>"));
    EXPECT_THAT(uuids(), ElementsAre("U-1", "U-2"));
}

TEST_F(get_sequences_names_, alerts_about_a_sequence_without_a_name_and_leaves_the_menu_empty)
{
    open(xmeml("<sequence><uuid>U-1</uuid></sequence>"));
    EXPECT_THAT(host.alert_text,
                HasSubstr("There was a problem converting this XML|Please zip up the XML file"));
    EXPECT_THAT(session.menu, IsEmpty());
    EXPECT_EQ(host.system_log.size(), 1U);
}

TEST_F(get_sequences_names_, alerts_about_a_file_that_is_no_document)
{
    open("");
    EXPECT_EQ(host.alert_text,
              "This is not a Final Cut Pro XML file|Please choose an XML file exported from\n"
              "Premiere Pro CC or Final Cut Pro.");
    EXPECT_THAT(host.system_log, IsEmpty());
    EXPECT_THAT(host.calls, ElementsAre(HasSubstr("message"), "end progress", "alert"));
}

TEST_F(get_sequences_names_, alerts_about_a_broken_document)
{
    open("<xmeml><sequence><name>Cut");
    EXPECT_EQ(host.alert_text, "This XML file is incomplete or broken|Please export the XML file again.");
}

TEST_F(get_sequences_names_, alerts_about_a_document_that_is_refused_with_what_to_do)
{
    std::string deep;
    for (int i = 0; i < 300; ++i)
        deep += "<bin>";
    for (int i = 0; i < 300; ++i)
        deep += "</bin>";
    open(xmeml(deep));
    EXPECT_EQ(
        host.alert_text,
        "This XML file cannot be opened|The document nests elements more than 256 deep. Please export a "
        "simpler sequence.");
    EXPECT_THAT(host.system_log, IsEmpty());
}

TEST_F(get_sequences_names_, shows_the_mending_of_bad_characters)
{
    open(xmeml("<children><clip><name>Caf\xe9!</name></clip></children>"));
    EXPECT_THAT(host.calls, testing::Contains("message Fixing bad characters in the XML file...\n").Times(1));
}

TEST_F(get_sequences_names_, empties_the_menu_of_the_document_before)
{
    open(xmeml(sequence("One", "U-1")));
    session.analyzed_sequence_index = 0;
    open("");
    EXPECT_THAT(session.menu, IsEmpty());
    EXPECT_FALSE(session.document.has_value());
    EXPECT_FALSE(session.analyzed_sequence_index.has_value());
}

TEST_F(get_sequences_names_, passes_failures_on_in_a_command_line_run)
{
    gui_mode = false;
    EXPECT_THROW(open(""), load_error);
    EXPECT_THAT(host.calls, Not(testing::Contains("alert")));
    EXPECT_THAT(host.calls, Not(testing::Contains(HasSubstr("message"))));
}

TEST_F(get_sequences_names_, passes_a_lack_of_memory_on_to_whoever_can_say_what_helps)
{
    host.has_memory = false;
    EXPECT_THROW(open("<xmeml><name>\xe9</name></xmeml>"), std::bad_alloc);
    EXPECT_EQ(host.alert_text, "");
    EXPECT_THAT(session.menu, IsEmpty());
}

TEST_F(get_sequences_names_, alerts_too_while_no_host_has_said_what_it_is)
{
    gui_mode.reset();
    open("");
    EXPECT_THAT(host.calls, testing::Contains("alert"));
}

TEST_F(get_sequences_names_, saves_the_ticks_and_empties_the_track_tables)
{
    session.video_tracks_table_checkboxes.current = {1, 0};
    session.audio_tracks_table_checkboxes.current = {0};
    open(xmeml(""));
    EXPECT_THAT(session.video_tracks_table_checkboxes.clone, ElementsAre(1, 0));
    EXPECT_THAT(session.video_tracks_table_checkboxes.current.value(), IsEmpty());
    EXPECT_THAT(session.audio_tracks_table_checkboxes.clone, ElementsAre(0));
    EXPECT_THAT(session.audio_tracks_table_checkboxes.current.value(), IsEmpty());
}

TEST(get_project_name, always_says_that_there_is_none)
{
    EXPECT_EQ(get_project_name(), "Final Cut Pro is not installed");
}

} // namespace tallyframe
