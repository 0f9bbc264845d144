// SPDX-License-Identifier: MIT
#include "sheets/counted_media.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {
namespace {

class locator_of_one_file final : public media_locator {
public:
    std::optional<std::filesystem::path> locate(const std::string& path) override
    {
        return path == "/there.mov" ? std::optional<std::filesystem::path>("/found.mov") : std::nullopt;
    }
};

TEST(counted_media, counts_each_missing_file_once)
{
    locator_of_one_file disk;
    counted_media media(disk);
    EXPECT_EQ(media.locate("/there.mov"), "/found.mov");
    EXPECT_TRUE(media.losses().is_empty());
    for (const char* path : {"/b.mov", "/a.mov", "/b.mov", ""})
        EXPECT_EQ(media.locate(path), std::nullopt);
    EXPECT_THAT(sentences_of(media.losses()),
                testing::ElementsAre("2 media files were not found (/b.mov, /a.mov)."));
}

} // namespace
} // namespace tallyframe
