// SPDX-License-Identifier: MIT
#include "sheets/sheet_names.h"
#include "text/utf8.h"
#include "workbook/workbook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace tallyframe {
namespace {

sheet_names with(const std::vector<std::string>& names)
{
    sheet_names used;
    for (const std::string& name : names)
        used.add(name);
    return used;
}

/// The names of the sheets of all these reels, in a workbook that refuses what Excel would.
std::vector<std::string> names_of_sheets(const std::vector<std::string>& reels)
{
    sheet_names used = with({"All Reels"});
    xls::workbook book("");
    std::vector<std::string> names;
    for (std::size_t i = 0; i < reels.size(); ++i) {
        names.push_back(reel_sheet_name(i + 1, reels[i], used));
        used.add(names.back());
        book.add_worksheet(names.back());
    }
    return names;
}

TEST(successor, advances_the_rightmost_letter_or_digit)
{
    EXPECT_EQ(successor("#2 A001"), "#2 A002");
    EXPECT_EQ(successor("a"), "b");
    EXPECT_EQ(successor("#1 (x)!"), "#1 (y)!");
}

TEST(successor, carries_to_the_left)
{
    EXPECT_EQ(successor("#2 AZ"), "#2 BA");
    EXPECT_EQ(successor("#2 a9"), "#2 b0");
    EXPECT_EQ(successor("#2 zz"), "#3 aa");
    EXPECT_EQ(successor("#1 A-Z"), "#1 B-A");
}

TEST(successor, grows_at_the_leftmost_letter_or_digit)
{
    EXPECT_EQ(successor("#9 Z"), "#10 A");
    EXPECT_EQ(successor("Zz"), "AAa");
    EXPECT_EQ(successor("zz"), "aaa");
    EXPECT_EQ(successor("#99"), "#100");
}

TEST(reel_sheet_name, has_the_number_and_the_reel)
{
    EXPECT_EQ(reel_sheet_name(1, "A001", {}), "#1 A001");
    EXPECT_EQ(reel_sheet_name(12, "", {}), "#12 ");
}

TEST(reel_sheet_name, replaces_or_drops_what_excel_forbids)
{
    EXPECT_EQ(reel_sheet_name(1, "A/B:C", {}), "#1 A|BC");
    EXPECT_EQ(reel_sheet_name(7, "[Day 1]*", {}), "#7 (Day 1)");
    EXPECT_EQ(reel_sheet_name(1, "C:\\media?", {}), "#1 C|media");
    EXPECT_EQ(reel_sheet_name(3, "*?:", {}), "#3 ");
}

TEST(reel_sheet_name, drops_control_characters_and_an_apostrophe_at_its_end)
{
    EXPECT_EQ(reel_sheet_name(1, "Day\n1\x7f", {}), "#1 Day1");
    EXPECT_EQ(reel_sheet_name(1, "'Rock 'n' Roll''", {}), "#1 'Rock 'n' Roll");
}

TEST(reel_sheet_name, has_31_characters_of_a_long_reel)
{
    EXPECT_EQ(reel_sheet_name(1, std::string(40, 'x'), {}), "#1 " + std::string(28, 'x'));
    EXPECT_EQ(reel_sheet_name(123, std::string(40, 'x'), {}), "#123 " + std::string(26, 'x'));
}

TEST(reel_sheet_name, drops_the_apostrophe_that_a_cut_lays_bare)
{
    EXPECT_EQ(reel_sheet_name(1, std::string(27, 'x') + "'s take", {}), "#1 " + std::string(27, 'x'));
}

TEST(reel_sheet_name, counts_as_excel_does_and_keeps_pairs_whole)
{
    std::string clapper_boards;
    for (int i = 0; i < 20; ++i)
        clapper_boards += "\U0001F3AC";
    const std::string name = reel_sheet_name(1, clapper_boards, {});
    EXPECT_EQ(text_length(name), 3U + 14U); // each takes two units
    EXPECT_EQ(reel_sheet_name(1, "x" + clapper_boards, {}), "#1 x" + name.substr(3, std::size_t{13} * 4));
}

TEST(reel_sheet_name, avoids_a_name_that_is_taken_in_any_letter_case)
{
    EXPECT_EQ(reel_sheet_name(1, "A", with({"#1 a"})), "#1 B");
    EXPECT_EQ(reel_sheet_name(2, "A001", with({"#2 A001"})), "#2 A002");
    EXPECT_EQ(reel_sheet_name(2, "A001", with({"#2 A001", "#2 a002"})), "#2 A003");
    EXPECT_EQ(reel_sheet_name(1, "\u00c9", with({"#1 \u00e9"})), "#2 \u00c9");
}

TEST(reel_sheet_name, stays_legal_when_its_successor_grows)
{
    const std::string longest = "#9 " + std::string(28, 'Z');
    EXPECT_EQ(reel_sheet_name(9, std::string(28, 'Z'), with({longest})), "#10 " + std::string(27, 'A'));
    EXPECT_EQ(reel_sheet_name(9, std::string(28, 'Z'), with({longest, "#10 " + std::string(27, 'A')})),
              "#10 " + std::string(26, 'A') + "B");
}

TEST(reel_sheet_name, is_its_own_for_each_of_250_reels)
{
    std::vector<std::string> reels;
    reels.reserve(250);
    for (int i = 0; i < 250; ++i)
        reels.push_back("Reel with a name that goes on and on " + std::to_string(i));
    const auto names = names_of_sheets(reels);
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), 250U);
}

TEST(reel_sheet_name, is_its_own_for_reels_that_differ_in_letter_case_or_forbidden_characters)
{
    const auto names = names_of_sheets({"A001", "a001", "A/001", "A\\001", "???", "***", "'", "''"});
    EXPECT_THAT(
        names,
        testing::ElementsAre("#1 A001", "#2 a001", "#3 A|001", "#4 A|001", "#5 ", "#6 ", "#7 ", "#8 "));
}

} // namespace
} // namespace tallyframe
