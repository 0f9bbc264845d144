// SPDX-License-Identifier: MIT
#include "media_files/program_folders.h"
#include "media_files/thumbnailer_module.h"

#include <gtest/gtest.h>

using namespace tallyframe;

namespace {

TEST(resource_folder, holds_the_placeholders_in_the_build_tree)
{
    EXPECT_TRUE(std::filesystem::is_regular_file(resource_folder() / "Missing.png"));
    EXPECT_TRUE(std::filesystem::is_regular_file(resource_folder() / "Problem.png"));
}

TEST(load_thumbnailer, gives_a_thumbnailer_that_reads_the_placeholders)
{
    no_diagnostics out;
    const std::unique_ptr<thumbnailer> pictures = load_thumbnailer(out);
    EXPECT_EQ(pictures->resource_directory(), resource_folder());
    for (const char* name : {"Missing.png", "Problem.png"}) {
        const image_data picture =
            pictures->image_by_reference(resource_folder() / name)->tiff_representation();
        ASSERT_NE(picture, nullptr) << name;
        EXPECT_EQ(picture->width * 9, picture->height * 16) << name;
    }
}

} // namespace
