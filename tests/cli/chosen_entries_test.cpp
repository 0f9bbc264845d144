// SPDX-License-Identifier: MIT
// Which entries of a document a report is made of, and what becomes of the others when one fails.
#include "cli/command_runs.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;

namespace tallyframe::cli {

namespace {

using testing_support::content_of;
using testing_support::scratch_folder;
using testing_support::write_file;

} // namespace

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
    text.insert(text.find('>'), " id=\"" + id + R"(" explodedTracks="true")");
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

} // namespace tallyframe::cli
