// SPDX-License-Identifier: MIT
#include "cli/command_line_host.h"
#include "cli/run.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace tallyframe::cli {

namespace {

namespace fs = std::filesystem;

using testing_support::content_of;
using testing_support::scratch_folder;
using testing_support::write_file;

struct outcome {
    int code;
    std::string out;
    std::string err;
};

outcome run_with(const std::vector<std::string>& arguments)
{
    std::ostringstream out;
    std::ostringstream err;
    const int code = run(arguments, out, err);
    return {code, out.str(), err.str()};
}

const std::string clip_item = "<clipitem><name>Shot</name><duration>100</duration><in>0</in><out>50</out>"
                              "<start>0</start><end>50</end><file id=\"f\"><duration>100</duration>"
                              "<rate><timebase>25</timebase></rate>"
                              "<pathurl>file://localhost/Media/Shot.mov</pathurl></file></clipitem>";

std::string sequence(const std::string& name, const std::string& uuid)
{
    return "<sequence><uuid>" + uuid + "</uuid><name>" + name
        + "</name><duration>50</duration><timecode><rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate>"
          "<frame>0</frame></timecode><media><video><track>"
        + clip_item + "</track></video><audio><track/></audio></media></sequence>";
}

const std::string bin_clip =
    "<project><children><clip id=\"c\"><name>Loose</name><duration>100</duration><media>"
    "<video><track>"
    + clip_item + "</track></video></media></clip></children></project>";

std::string xmeml(const std::string& content)
{
    return R"(<?xml version="1.0"?><xmeml version="5">)" + content + "</xmeml>";
}

const std::string one_sequence = xmeml(sequence("Reel 1", "U-1"));
const std::string bins_and_two_sequences =
    xmeml(bin_clip + sequence("Reel 1", "U-1") + sequence("Reel 2", "U-2"));

} // namespace

TEST(list, shows_position_title_and_identifier_of_each_entry)
{
    const scratch_folder folder;
    write_file("cut.xml", bins_and_two_sequences);
    const outcome result = run_with({"list", "cut.xml"});
    EXPECT_EQ(result.code, done);
    EXPECT_EQ(result.out,
              "   1  Bin Clips\n"
              "---------------\n"
              "   3  Reel 1     U-1\n"
              "   4  Reel 2     U-2\n");
    EXPECT_EQ(result.err, "");
}

TEST(list, fails_when_it_cannot_be_written)
{
    const scratch_folder folder;
    write_file("cut.xml", one_sequence);
    std::ofstream full_disk("/dev/full");
    std::ostringstream err;
    EXPECT_EQ(run({"list", "cut.xml"}, full_disk, err), failed);
    EXPECT_EQ(err.str(), "tallyframe: The output could not be written: No space left on device\n");
}

TEST(list, writes_json_with_the_separator_in_its_place)
{
    const scratch_folder folder;
    write_file("cut.xml", xmeml(bin_clip + sequence("Reel \"1\"", "U-1")));
    const outcome result = run_with({"list", "--json", "cut.xml"});
    EXPECT_EQ(result.code, done);
    EXPECT_EQ(result.out, R"([
  {
    "position": 1,
    "title": "Bin Clips",
    "uuid": ""
  },
  {
    "position": 2,
    "title": "",
    "uuid": "----------"
  },
  {
    "position": 3,
    "title": "Reel \"1\"",
    "uuid": "U-1"
  }
]
)");
}

TEST(list, shows_what_a_title_would_do_to_the_terminal)
{
    const scratch_folder folder;
    write_file("cut.xml",
               xmeml(bin_clip + sequence("Reel\u202E1\u009b31m&#13;&#10;   9  Forged", "U-\u200F1")));
    EXPECT_EQ(run_with({"list", "cut.xml"}).out,
              "   1  Bin Clips\n"
              "----------------------------------------------------------\n"
              "   3  Reel<U+202E>1<U+009B>31m<U+000D><U+000A>   9  Forged  U-<U+200F>1\n");
    EXPECT_THAT(run_with({"list", "cut.xml", "--json"}).out, HasSubstr("Reel\u202E1\u009b31m\\r\\n   9"));
}

TEST(list, says_why_a_document_offers_nothing)
{
    const scratch_folder folder;
    write_file("cut.xml", xmeml("<sequence id=\"elsewhere\"/>"));
    const outcome result = run_with({"list", "cut.xml"});
    EXPECT_EQ(result.code, done);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "\"cut.xml\" offers nothing to report: no clips in bins, and no sequence.\n"
              "Export the sequence again as XML from Premiere Pro, or from Final Cut Pro 7 as \"Apple XML "
              "Interchange Format, version 5\".\n");
}

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

TEST(report, asks_for_a_choice_when_there_is_more_than_one_entry)
{
    const scratch_folder folder;
    write_file("cut.xml", bins_and_two_sequences);
    const outcome result = run_with({"report", "cut.xml"});
    EXPECT_EQ(result.code, wrong_usage);
    EXPECT_THAT(result.err, AllOf(HasSubstr("--item"), HasSubstr("Reel 2     U-2")));
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut.xml"}));
}

TEST(report, takes_an_entry_by_position_identifier_or_as_the_bins)
{
    const scratch_folder folder;
    write_file("cut.xml", bins_and_two_sequences);
    EXPECT_EQ(run_with({"report", "cut.xml", "--item", "4", "-o", "a.xls"}).code, done);
    EXPECT_EQ(run_with({"report", "cut.xml", "--sequence", "U-1", "-o", "b.xls"}).code, done);
    EXPECT_EQ(run_with({"report", "cut.xml", "--bins", "-o", "c.xls"}).code, done);
    EXPECT_EQ(folder.files(), std::vector<std::string>({"a.xls", "b.xls", "c.xls", "cut.xml"}));
}

TEST(report, refuses_an_entry_that_is_not_there)
{
    const scratch_folder folder;
    write_file("cut.xml", bins_and_two_sequences);
    for (const char* position : {"0", "2", "5", "99999999999999999999"})
        EXPECT_EQ(run_with({"report", "cut.xml", "--item", position}).code, wrong_usage) << position;
    EXPECT_EQ(run_with({"report", "cut.xml", "--sequence", "U-9"}).code, wrong_usage);
    EXPECT_EQ(run_with({"report", "cut.xml", "--sequence", "----------"}).code, wrong_usage);
    write_file("cut.xml", one_sequence);
    EXPECT_EQ(run_with({"report", "cut.xml", "--bins"}).code, wrong_usage);
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut.xml"}));
}

TEST(report, gives_every_entry_its_own_workbook_with_all)
{
    const scratch_folder folder;
    write_file("cut.xml", xmeml(bin_clip + sequence("A/B: cut?", "U-1") + sequence("a/b: CUT?", "U-2")));
    const outcome result = run_with({"report", "cut.xml", "--all"});
    EXPECT_EQ(result.code, done) << result.err;
    EXPECT_EQ(folder.files(),
              std::vector<std::string>(
                  {"cut - A-B- cut-.xls", "cut - Bin Clips.xls", "cut - a-b- CUT- 2.xls", "cut.xml"}));
}

TEST(report, gives_two_sequences_of_one_identifier_their_own_content_with_all)
{
    const scratch_folder folder;
    std::string second = sequence("Reel 2", "same");
    second.insert(second.find(clip_item), clip_item);
    write_file("cut.xml", xmeml(sequence("Reel 1", "same") + second));
    const outcome result = run_with({"report", "cut.xml", "--all"});
    EXPECT_EQ(result.code, done) << result.err;
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut - Reel 1.xls", "cut - Reel 2.xls", "cut.xml"}));
    EXPECT_THAT(result.out, HasSubstr("working on item 2 clipitem")); // only the second has two
    EXPECT_NE(content_of("cut - Reel 1.xls"), content_of("cut - Reel 2.xls"));
}

/// A sequence of Premiere Pro with one clip, which nests the sequence with that id.
std::string nesting_sequence(const std::string& id, const std::string& nested_id)
{
    std::string text = sequence(id, id);
    text.insert(text.find('>'), " id=\"" + id + "\" explodedTracks=\"true\"");
    const std::size_t file = text.find("<file");
    return text.replace(file, text.find("</clipitem>") - file, "<sequence id=\"" + nested_id + "\"/>");
}

TEST(report, analyzes_each_entry_as_if_it_came_first_with_all)
{
    const scratch_folder folder;
    std::string shot = sequence("F", "F");
    shot.insert(shot.find('>'), " id=\"F\"");
    write_file("cut.xml", xmeml(shot + nesting_sequence("A", "F") + nesting_sequence("E", "A")));
    const outcome all = run_with({"report", "cut.xml", "--all"});
    EXPECT_EQ(all.code, done) << all.err;
    const outcome alone = run_with({"report", "cut.xml", "--sequence", "E", "-o", "alone.xls"});
    EXPECT_EQ(alone.code, done) << alone.err;
    EXPECT_EQ(content_of("cut - E.xls"), content_of("alone.xls"));
    EXPECT_NE(content_of("cut - A.xls").size(), content_of("cut - E.xls").size()) << "A has a clip, E none";
}

TEST(report, goes_on_with_the_other_entries_when_one_fails)
{
    const scratch_folder folder;
    std::string broken = sequence("Reel 2", "U-2");
    broken.replace(broken.find("<timebase>25"), 12, "<timebase>48");
    write_file("cut.xml", xmeml(sequence("Reel 1", "U-1") + broken + sequence("Reel 3", "U-3")));
    const outcome result = run_with({"report", "cut.xml", "--all", "--quiet"});
    EXPECT_EQ(result.code, failed);
    EXPECT_EQ(result.err,
              "Wrote cut - Reel 1.xls\n"
              "tallyframe: \"Reel 2\": This sequence has no timebase\n"
              "Wrote cut - Reel 3.xls\n"
              "tallyframe: 1 of 3 workbooks was not written.\n");
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut - Reel 1.xls", "cut - Reel 3.xls", "cut.xml"}));
}

TEST(report, counts_the_entries_that_fail)
{
    const scratch_folder folder;
    write_file("cut.xml", bins_and_two_sequences);
    const outcome result = run_with({"report", "cut.xml", "--all", "--tracks", "V9"});
    EXPECT_EQ(result.code, failed);
    EXPECT_THAT(result.err, EndsWith("tallyframe: 3 of 3 workbooks were not written.\n"));
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

TEST(report, never_replaces_the_document)
{
    const scratch_folder folder;
    write_file("cut.xml", one_sequence);
    fs::create_symlink("cut.xml", "link.xls");
    fs::create_hard_link("cut.xml", "twin.xls");
    for (const char* name : {"cut.xml", "link.xls", "twin.xls"}) {
        const outcome result = run_with({"report", "cut.xml", "-o", name});
        EXPECT_EQ(result.code, wrong_usage);
        EXPECT_EQ(result.err,
                  "tallyframe: The workbook \"" + std::string(name)
                      + "\" would replace the document itself. Choose another name with -o.\n");
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(content_of("cut.xml"), one_sequence);
    }
}

TEST(report, never_replaces_a_document_that_has_a_workbooks_name)
{
    const scratch_folder folder;
    write_file("cut.xls", one_sequence);
    fs::create_directory("out");
    write_file("out/list.xls", one_sequence);
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"report", "cut.xls"}, "cut.xls"},
        {{"report", "./cut.xls", "-o", "."}, "./cut.xls"},
        {{"report", "out/list.xls", "-o", "out"}, "out/list.xls"},
    };
    for (const auto& [arguments, name] : cases) {
        const outcome result = run_with(arguments);
        EXPECT_EQ(result.code, wrong_usage);
        EXPECT_EQ(result.err,
                  "tallyframe: The workbook \"" + name
                      + "\" would replace the document itself. Choose another name with -o.\n");
    }
    EXPECT_EQ(content_of("cut.xls"), one_sequence);
    EXPECT_EQ(content_of("out/list.xls"), one_sequence);
}

TEST(report, never_replaces_the_document_with_the_workbook_of_one_of_its_entries)
{
    const scratch_folder folder;
    write_file("cut.xml", bins_and_two_sequences);
    fs::create_symlink("cut.xml", "cut - Reel 2.xls");
    const outcome result = run_with({"report", "cut.xml", "--all"});
    EXPECT_EQ(result.code, wrong_usage);
    EXPECT_EQ(
        result.err,
        "tallyframe: The workbook \"cut - Reel 2.xls\" would replace the document itself. Choose another "
        "name with -o.\n");
    EXPECT_EQ(content_of("cut.xml"), bins_and_two_sequences);
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut - Reel 2.xls", "cut.xml"}));
}

TEST(report, keeps_no_thumbnails_around_the_document)
{
    const scratch_folder folder;
    fs::create_directory("cut thumbnails");
    write_file("cut thumbnails/0002 Shot.jpg", one_sequence);
    const outcome result = run_with(
        {"report", "cut thumbnails/0002 Shot.jpg", "-o", "cut.xls", "--thumbnails", "--keep-thumbnails"});
    EXPECT_EQ(result.code, wrong_usage);
    EXPECT_EQ(
        result.err,
        "tallyframe: The document lies in \"cut thumbnails\", where the thumbnails of this report are kept. "
        "Choose another name for the workbook with -o.\n");
    EXPECT_EQ(content_of("cut thumbnails/0002 Shot.jpg"), one_sequence);
}

TEST(report, is_refused_a_place_that_takes_no_workbook_before_the_document_is_read)
{
    const scratch_folder folder;
    fs::create_directory("folder.xls");
    write_file("locked.xls", "old");
    fs::permissions("locked.xls", fs::perms{0444});
    write_file("locked thumbnails", "");
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"-o", "no/such/cut.xls"},
         "The workbook \"no/such/cut.xls\" was not saved: its folder does not exist. Choose another folder."},
        {{"-o", "no/such/cut.xls", "--all"},
         "The workbook \"no/such/cut - ….xls\" was not saved: its folder does not exist. Choose another "
         "folder."},
        {{"-o", "locked.xls"},
         "The workbook \"locked.xls\" was not saved: there is a file of this name that is read-only. Choose "
         "another name or unlock the file."},
        {{"-o", "/dev/null"},
         "The workbook \"/dev/null\" was not saved: there is something of this name that is not a file. "
         "Choose "
         "another name."},
        {{"-o", std::string(300, 'x')},
         "The workbook \"" + std::string(300, 'x')
             + "\" was not saved: its name is too long. Choose a shorter name."},
        {{"-o", "locked", "--thumbnails", "--keep-thumbnails"},
         "The report was not saved. Its thumbnails cannot be kept in \""
             + (fs::current_path() / "locked thumbnails").string()
             + "\": there is a file of this name. Move it, or choose another name for the workbook."},
    };
    for (const auto& [flags, sentence] : cases) {
        std::vector<std::string> arguments = {"report", "nowhere.xml"};
        arguments.insert(arguments.end(), flags.begin(), flags.end());
        const outcome result = run_with(arguments);
        EXPECT_EQ(result.code, failed);
        EXPECT_EQ(result.err, "tallyframe: " + sentence + "\n");
    }
    EXPECT_EQ(folder.files(), std::vector<std::string>({"folder.xls", "locked thumbnails", "locked.xls"}));
}

TEST(report, leaves_nothing_behind_when_the_document_fails)
{
    const scratch_folder folder;
    write_file("cut.xml", one_sequence.substr(0, 300));
    EXPECT_EQ(run_with({"report", "cut.xml", "--thumbnails", "--keep-thumbnails"}).code, failed);
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut.xml"}));
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

TEST(command_line, keeps_its_help_within_80_characters)
{
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"help"}, {"help", "list"}, {"help", "report"}}) {
        std::istringstream help(run_with(arguments).out);
        for (std::string line; std::getline(help, line);)
            EXPECT_LE(line.size(), 80U) << line;
    }
}

TEST(command_line, answers_help_and_version)
{
    EXPECT_THAT(run_with({"--help"}).out, AllOf(HasSubstr("list"), HasSubstr("report")));
    EXPECT_THAT(run_with({}).out, HasSubstr("tallyframe report"));
    EXPECT_THAT(run_with({"help", "report"}).out, HasSubstr("--timeline-columns"));
    EXPECT_EQ(run_with({"report", "--help"}).out, run_with({"help", "report"}).out);
    EXPECT_THAT(run_with({"list", "--help"}).out, HasSubstr("--json"));
    EXPECT_THAT(run_with({"--version"}).out, StartsWith("tallyframe 1."));
}

TEST(command_line, refuses_what_it_does_not_know)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"repot", "a.xml"},
                                                      {"report"},
                                                      {"list"},
                                                      {"report", "a.xml", "--no-such-flag"},
                                                      {"report", "a.xml", "b.xml"},
                                                      {"report", "a.xml", "--item", "1", "--bins"},
                                                      {"help", "nothing"}})
        EXPECT_EQ(run_with(arguments).code, wrong_usage) << arguments.front();
}

} // namespace tallyframe::cli
