// SPDX-License-Identifier: MIT
#include "cli/command_runs.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

using testing::HasSubstr;

namespace tallyframe::cli {

namespace {

using testing_support::scratch_folder;
using testing_support::write_file;

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

} // namespace tallyframe::cli
