// SPDX-License-Identifier: MIT
#include "media_files/program_folders.h"

#include <gtest/gtest.h>
#include <unistd.h>

using namespace tallyframe;

namespace {

TEST(resource_folder, holds_the_placeholders_in_the_build_tree)
{
    EXPECT_TRUE(std::filesystem::is_regular_file(resource_folder() / "Missing.png"));
    EXPECT_TRUE(std::filesystem::is_regular_file(resource_folder() / "Problem.png"));
}

TEST(media_program, can_be_started_in_the_build_tree)
{
    EXPECT_EQ(access(media_program().c_str(), X_OK), 0) << media_program();
}

} // namespace
