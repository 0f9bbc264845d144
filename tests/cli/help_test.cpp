// SPDX-License-Identifier: MIT
#include "cli/command_runs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace tallyframe::cli {

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
