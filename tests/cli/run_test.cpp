// SPDX-License-Identifier: MIT
#include "cli/run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace tallyframe::cli {

namespace {

namespace fs = std::filesystem;

/// A folder of its own that is the current one while it lives.
class scratch_folder {
public:
    scratch_folder()
    {
        std::string name = (fs::temp_directory_path() / "tallyframe-cli-XXXXXX").string();
        path_ = mkdtemp(name.data());
        before_ = fs::current_path();
        fs::current_path(path_);
    }
    ~scratch_folder()
    {
        fs::current_path(before_);
        fs::remove_all(path_);
    }
    scratch_folder(const scratch_folder&) = delete;
    scratch_folder& operator=(const scratch_folder&) = delete;

    std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(path_))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    fs::path path_;
    fs::path before_;
};

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

void write_file(const std::string& name, const std::string& text)
{
    std::ofstream(name, std::ios::binary) << text;
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

TEST(list, says_why_a_document_offers_nothing)
{
    const scratch_folder folder;
    write_file("cut.xml", xmeml("<sequence><name>No identifier</name></sequence>"));
    const outcome result = run_with({"list", "cut.xml"});
    EXPECT_EQ(result.code, done);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, HasSubstr("offers nothing to report"));
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

TEST(report, fails_with_a_sentence_for_a_missing_file_and_an_unwritable_place)
{
    const scratch_folder folder;
    EXPECT_EQ(run_with({"report", "nowhere.xml"}).code, failed);
    write_file("cut.xml", one_sequence);
    const outcome result = run_with({"report", "cut.xml", "-o", "no/such/folder/cut.xls"});
    EXPECT_EQ(result.code, failed);
    EXPECT_THAT(result.err, HasSubstr("no/such/folder"));
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
        std::ifstream file(name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
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
