// SPDX-License-Identifier: MIT
#include "media_files/child_process.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

std::filesystem::path script(const std::filesystem::path& file, const std::string& commands)
{
    write_file(file, "#!/bin/sh\n" + commands);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return file;
}

/// Puts another PATH in place while it lives.
class path_of_test {
public:
    explicit path_of_test(const std::string& path) : old_(std::getenv("PATH"))
    {
        setenv("PATH", path.c_str(), 1);
    }
    path_of_test(const path_of_test&) = delete;
    path_of_test& operator=(const path_of_test&) = delete;
    ~path_of_test() { setenv("PATH", old_.c_str(), 1); }

private:
    std::string old_;
};

TEST(output_of, is_what_the_program_prints)
{
    EXPECT_EQ(output_of("/bin/echo", {"one", "two"}), "one two\n");
}

TEST(output_of, hands_arguments_over_without_a_shell)
{
    const std::string hostile = "a\"; $(touch /tmp/x) `id` 'b' \\ *";
    EXPECT_EQ(output_of("/bin/echo", {"-n", hostile}), hostile);
}

TEST(output_of, is_nothing_when_the_program_fails_or_is_not_there)
{
    EXPECT_EQ(output_of("/bin/false", {}), std::nullopt);
    EXPECT_EQ(output_of("/nowhere/program", {}), std::nullopt);
}

TEST(output_of, keeps_nul_characters)
{
    const std::optional<std::string> output = output_of("/usr/bin/printf", {"a\\000b\\000"});
    EXPECT_EQ(output, std::string("a\0b\0", 4));
}

TEST(output_of, ends_a_program_and_its_children_after_the_time_limit)
{
    const temporary_folder folder;
    const auto slow = script(folder.path() / "slow", "sleep 30 &\nsleep 30\n");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(output_of(slow, {}, {.time = std::chrono::milliseconds(100), .bytes = 100}), std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(output_of, ends_a_program_when_whoever_waits_for_it_leaves)
{
    const temporary_folder folder;
    const auto slow = script(folder.path() / "slow", "sleep 30 &\nsleep 30\n");
    output_limits limits = {.time = std::chrono::seconds(30), .bytes = 100};
    limits.look = [] { throw std::runtime_error("stop"); };
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THROW(output_of(slow, {}, limits), std::runtime_error);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

TEST(output_of, ends_a_program_that_prints_too_much)
{
    EXPECT_EQ(output_of("/usr/bin/yes", {}, {.time = std::chrono::seconds(20), .bytes = 10000}),
              std::nullopt);
}

TEST(program_on_path, is_the_first_executable_of_that_name)
{
    const temporary_folder folder;
    write_file(folder.path() / "first" / "tool");
    const auto tool = script(folder.path() / "second" / "tool", "");
    const path_of_test path((folder.path() / "first").string() + ":" + tool.parent_path().string());
    EXPECT_EQ(program_on_path("tool"), tool);
    EXPECT_EQ(program_on_path("other"), std::nullopt);
}

TEST(program_on_path, is_not_looked_for_in_the_current_folder)
{
    const temporary_folder folder;
    script(folder.path() / "tool", "");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    const path_of_test path(".::bin");
    EXPECT_EQ(program_on_path("tool"), std::nullopt);
    std::filesystem::current_path(before);
}

} // namespace
