// SPDX-License-Identifier: MIT
// Sequences without an identifier, which are left out unless they are asked for, and files of other kinds.
#include "cli/command_runs.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"
#include "support/xmeml_builder.h"

#include <gtest/gtest.h>

namespace tallyframe::cli {

namespace {

using testing_support::clip;
using testing_support::scratch_folder;
using testing_support::write_file;

/// Without an identifier, a timecode or, for an empty text, a name.
std::string unidentified(const std::string& name)
{
    return "<sequence>" + (name.empty() ? "" : testing_support::element("name", name))
        + "<duration>50</duration><rate><timebase>25</timebase></rate><media><video><track>"
        + clip("A").text() + "</track></video></media></sequence>";
}

std::string only_unidentified()
{
    return testing_support::xmeml().with(unidentified("Scene 1") + unidentified("")).text();
}

std::string mixed()
{
    return testing_support::xmeml()
        .sequence("Cut", {.uuid = "U-1"})
        .video_track({clip("A")})
        .with(unidentified("Scene 1"))
        .text();
}

} // namespace

TEST(list, says_how_many_sequences_have_no_identifier_and_how_to_have_them)
{
    const scratch_folder folder;
    write_file("cut.xml", mixed());
    const outcome result = run_with({"list", "cut.xml"});
    EXPECT_EQ(result.code, done);
    EXPECT_EQ(result.out, "   1  Cut  U-1\n");
    EXPECT_EQ(result.err,
              "1 sequence without an identifier (uuid) was left out. To have it too, add --unidentified.\n");
    write_file("scenes.xml", only_unidentified());
    EXPECT_EQ(
        run_with({"list", "scenes.xml"}).err,
        "\"scenes.xml\" offers nothing to report that has an identifier.\n2 sequences without an identifier "
        "(uuid) were left out. To have them too, add --unidentified.\n");
}

TEST(list, marks_sequences_without_an_identifier)
{
    const scratch_folder folder;
    write_file("cut.xml", mixed());
    const outcome table = run_with({"list", "cut.xml", "--unidentified"});
    EXPECT_EQ(table.out,
              "   1  Cut      U-1\n"
              "-------------\n"
              "   3  Scene 1  (no identifier)\n");
    EXPECT_EQ(table.err, "");
    EXPECT_EQ(run_with({"list", "cut.xml", "--unidentified", "--json"}).out, R"([
  {
    "position": 1,
    "title": "Cut",
    "uuid": "U-1"
  },
  {
    "position": 2,
    "title": "",
    "uuid": "----------"
  },
  {
    "position": 3,
    "title": "Scene 1",
    "uuid": "",
    "unidentified": true
  }
]
)");
}

TEST(report, takes_a_sequence_without_an_identifier_by_its_position)
{
    const scratch_folder folder;
    write_file("scenes.xml", only_unidentified());
    const outcome result = run_with({"report", "scenes.xml", "--unidentified", "--item", "2", "--quiet"});
    EXPECT_EQ(result.code, done);
    EXPECT_EQ(
        result.err,
        "Wrote scenes.xls\ntallyframe: 3 facts that the sequence lacks were supplied (its name: Sequence 2, "
        "its rate: 25, its first frame: 0).\n");
    EXPECT_EQ(run_with({"report", "scenes.xml", "--quiet"}).code, failed) << "nobody has asked for them";
}

TEST(report, writes_sequences_without_an_identifier_with_all_others)
{
    const scratch_folder folder;
    write_file("cut.xml", mixed());
    EXPECT_EQ(run_with({"report", "cut.xml", "--unidentified", "--all", "--quiet"}).code, done);
    EXPECT_EQ(folder.files(), std::vector<std::string>({"cut - Cut.xls", "cut - Scene 1.xls", "cut.xml"}));
}

TEST(report, takes_no_sequence_without_an_identifier_for_the_bins)
{
    const scratch_folder folder;
    write_file("scenes.xml", only_unidentified());
    const outcome result = run_with({"report", "scenes.xml", "--unidentified", "--bins"});
    EXPECT_EQ(result.code, wrong_usage);
    EXPECT_EQ(result.err,
              "tallyframe: The document has no clips in bins. It offers:\n"
              "   1  Scene 1     (no identifier)\n"
              "   2  Sequence 2  (no identifier)\n"
              "Choose one with --item N, --sequence UUID or --bins, or write them all with --all.\n");
}

TEST(report, calls_files_of_other_kinds_by_name)
{
    constexpr const char* advice =
        " Tallyframe reads the XML that Premiere Pro writes with File > Export > Final Cut "
        "Pro XML, and Final Cut Pro 7 with File > Export > XML.\n";
    const scratch_folder folder;
    write_file("cut.fcpxml",
               R"(<?xml version="1.0"?><!DOCTYPE fcpxml><fcpxml version="1.9"><resources/></fcpxml>)");
    const outcome document = run_with({"report", "cut.fcpxml"});
    EXPECT_EQ(document.code, failed);
    EXPECT_EQ(document.err, std::string("This is an FCPXML document (Final Cut Pro X).") + advice);
    write_file("reel.edl", "TITLE: REEL 1\n001  AX V C 00:00:00:00\n");
    EXPECT_EQ(run_with({"report", "reel.edl"}).err.substr(0, 160),
              (std::string("This is an edit decision list (EDL).") + advice).substr(0, 160));
}

} // namespace tallyframe::cli
