// SPDX-License-Identifier: MIT
#include "cli/command_line_host.h"
#include "cli/command_runs.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace tallyframe::cli {

namespace {

namespace fs = std::filesystem;

using testing_support::content_of;
using testing_support::scratch_folder;
using testing_support::write_file;

} // namespace

TEST(report, shows_what_a_name_would_do_to_the_terminal)
{
    const scratch_folder folder;
    write_file("cut\r\n\u009b.xml", one_sequence);
    EXPECT_EQ(run_with({"report", "cut\r\n\u009b.xml"}).err, "Wrote cut<U+000D><U+000A><U+009B>.xls\n");
    EXPECT_EQ(run_with({"report", "no\u202E.xml"}).err,
              "tallyframe: The document \"no<U+202E>.xml\" cannot be read: No such file or directory.\n");
    EXPECT_EQ(
        run_with({"report", "no.xml", "-o", "no\n/a.xls"}).err,
        "tallyframe: The workbook \"no<U+000A>/a.xls\" was not saved: its folder does not exist. Choose "
        "another folder.\n");
    EXPECT_THAT(run_with({"list", "cut.xml\n", "\u202Ex"}).err, Not(HasSubstr("\u202E")));
    for (const char* flag : {"--sequence", "--tracks", "--scope", "--columns", "--timeline-columns",
                             "--adjust", "--thumbnails", "--media-map", "--media-search", "--video-color"}) {
        const outcome result =
            run_with({"report", "cut\r\n\u009b.xml", std::string(flag) + "=no\u202E such\u009b"});
        EXPECT_EQ(result.code, wrong_usage) << flag;
        EXPECT_THAT(result.err, HasSubstr("no<U+202E> such<U+009B>")) << flag;
    }
    EXPECT_THAT(run_with({"no\u202E such"}).err, HasSubstr("There is no command \"no<U+202E> such\"."));
}

TEST(line_progress, shows_what_a_name_would_do_to_the_terminal)
{
    std::ostringstream err;
    {
        line_progress display(err, true);
        display.show_message("Searching /media/\u202E\u009b31m\rdone\nsecond line");
    }
    EXPECT_EQ(err.str(), "\r      Searching /media/<U+202E><U+009B>31m<U+000D>done\n");
}

TEST(report, writes_the_workbook_of_the_only_entry_into_the_current_folder)
{
    const scratch_folder folder;
    fs::create_directory("in");
    write_file("in/cut.xml", one_sequence);
    const outcome result = run_with({"report", "in/cut.xml"});
    EXPECT_EQ(result.code, done) << result.err;
    EXPECT_TRUE(fs::exists("cut.xls"));
    EXPECT_THAT(result.err, HasSubstr("cut.xls"));
}

TEST(report, writes_one_diagnostic_text_for_each_clip_on_standard_output)
{
    const scratch_folder folder;
    write_file("cut.xml", one_sequence);
    const outcome result = run_with({"report", "cut.xml"});
    EXPECT_THAT(result.out,
                AllOf(StartsWith("libxml2"),
                      HasSubstr("\n-----------------------------------------------\n"
                                " Analyzing Clips in Track V1 - working on item 1 clipitem\n")));
}

TEST(report, is_silent_on_standard_output_with_quiet)
{
    const scratch_folder folder;
    write_file("cut.xml", one_sequence);
    EXPECT_EQ(run_with({"report", "cut.xml", "--quiet"}).out, "");
}

TEST(report, shows_progress_on_standard_error_only_when_asked)
{
    const scratch_folder folder;
    write_file("cut.xml", one_sequence);
    EXPECT_THAT(run_with({"report", "cut.xml", "--progress"}).err, HasSubstr("%"));
    EXPECT_THAT(run_with({"report", "cut.xml"}).err, Not(HasSubstr("%")));
}

TEST(report, refuses_names_that_nobody_knows_and_lists_the_valid_ones)
{
    const scratch_folder folder;
    write_file("cut.xml", one_sequence);
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"--tracks", "V9"}, "V1, A1"},
        {{"--timeline-columns", "Timecode,Hours"}, "Timecode, Clock, Frames, Feet+Frames, Seconds"},
        {{"--source-columns", "timecode"}, "Timecode, Clock, Frames, Feet+Frames, Seconds"},
        {{"--adjust", "Hours=1"}, "Timecode, Clock, Frames, Feet+Frames, Seconds"},
        {{"--adjust", "Timecode=soon"}, "Timecode=+1"},
        {{"--columns", "Track,Colour"}, "Row Numbers, Track, Enabled"},
        {{"--video-color", "mauve"}, "blue"},
        {{"--scope", "both"}, "video+audio, video, audio"},
    };
    for (const auto& [flags, valid] : cases) {
        std::vector<std::string> arguments = {"report", "cut.xml"};
        arguments.insert(arguments.end(), flags.begin(), flags.end());
        const outcome result = run_with(arguments);
        EXPECT_EQ(result.code, wrong_usage) << flags.front();
        EXPECT_THAT(result.err, AllOf(HasSubstr(flags.front()), HasSubstr(valid)));
    }
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut.xml"}));
}

TEST(report, tells_a_broken_document_from_one_of_another_kind)
{
    const scratch_folder folder;
    write_file("empty.xml", "");
    const outcome empty = run_with({"report", "empty.xml"});
    EXPECT_EQ(empty.code, failed);
    EXPECT_EQ(empty.err,
              "tallyframe: not xmeml\nThis is not a Final Cut Pro XML file\n"
              "Please choose an XML file exported from\nPremiere Pro CC or Final Cut Pro.\n");
    write_file("cut.xml", one_sequence.substr(0, 300));
    const outcome broken = run_with({"report", "cut.xml"});
    EXPECT_EQ(broken.code, failed);
    EXPECT_EQ(broken.err,
              "tallyframe: fatal error\nThis XML file is incomplete or broken\n"
              "Please export the XML file again.\n");
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut.xml", "empty.xml"}));
}

TEST(report, says_that_the_document_is_missing)
{
    const scratch_folder folder;
    const outcome result = run_with({"report", "nowhere.xml"});
    EXPECT_EQ(result.code, failed);
    EXPECT_EQ(result.err,
              "tallyframe: The document \"nowhere.xml\" cannot be read: No such file or directory.\n");
    EXPECT_TRUE(folder.files().empty());
}

TEST(report, writes_nothing_for_a_document_that_offers_nothing)
{
    const scratch_folder folder;
    write_file("cut.xml", xmeml(""));
    const outcome result = run_with({"report", "cut.xml"});
    EXPECT_EQ(result.code, failed);
    EXPECT_THAT(result.err, HasSubstr("offers nothing to report"));
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut.xml"}));
}

TEST(report, passes_the_failure_of_a_sequence_without_a_known_rate_on)
{
    const scratch_folder folder;
    std::string document = one_sequence;
    document.replace(document.find("<timebase>25"), 12, "<timebase>48");
    write_file("cut.xml", document);
    const outcome result = run_with({"report", "cut.xml"});
    EXPECT_EQ(result.code, failed);
    EXPECT_EQ(result.err, "tallyframe: This sequence has no timebase\n");
}

TEST(report, gives_the_same_bytes_twice)
{
    const scratch_folder folder;
    write_file("cut.xml", bins_and_two_sequences);
    const auto bytes_of = [](const char* name) {
        run_with({"report", "cut.xml", "--item", "3", "-o", name});
        return content_of(name);
    };
    const std::string first = bytes_of("a.xls");
    EXPECT_FALSE(first.empty());
    EXPECT_EQ(first, bytes_of("b.xls"));
}

} // namespace tallyframe::cli
