// SPDX-License-Identifier: MIT
#include "media_files/media_probe_module.h"
#include "support/made_media.h"

#include <gtest/gtest.h>

namespace tallyframe {
namespace {

TEST(module_media_probe, asks_the_module)
{
    const testing_support::made_media media;
    const auto film =
        media.make("film.mov", {"-f", "lavfi", "-i", "color=s=160x96", "-frames:v", "5", "-c:v", "mpeg4"});
    module_media_probe probe;
    EXPECT_EQ(probe.facts_of(film).value().frame_size, (pixel_size{160, 96}));
    EXPECT_EQ(probe.facts_of(film.parent_path() / "absent.mov"), std::nullopt);
}

} // namespace
} // namespace tallyframe
