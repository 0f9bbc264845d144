// SPDX-License-Identifier: MIT
#include "media_files/media_file.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

TEST(media_file, reads_from_any_place)
{
    const temporary_folder folder;
    const media_file file(write_file(folder.path() / "a.mov", "0123456789"));
    std::array<std::uint8_t, 4> bytes = {};
    EXPECT_EQ(file.size(), 10U);
    EXPECT_EQ(file.read(3, bytes), 4U);
    EXPECT_EQ(bytes, (std::array<std::uint8_t, 4>{'3', '4', '5', '6'}));
    EXPECT_EQ(file.read(8, bytes), 2U);
    EXPECT_EQ(file.read(10, bytes), 0U);
    EXPECT_EQ(file.read(UINT64_MAX, bytes), 0U);
}

TEST(media_file, is_open_for_reading_alone_and_closed_in_other_programs)
{
    const temporary_folder folder;
    const media_file file(write_file(folder.path() / "a.mov", "0123456789"));
    EXPECT_EQ(fcntl(file.descriptor(), F_GETFL) & O_ACCMODE, O_RDONLY);
    EXPECT_EQ(fcntl(file.descriptor(), F_GETFD), FD_CLOEXEC);
}

TEST(media_file, is_none_where_there_is_no_regular_file)
{
    const temporary_folder folder;
    const auto pipe = folder.path() / "pipe.mov";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::filesystem::path& path :
         {folder.path() / "none.mov", folder.path(), pipe, std::filesystem::path("/dev/zero")})
        EXPECT_FALSE(media_file(path).is_open()) << path;
}

TEST(media_file, reads_nothing_that_the_system_makes_while_it_is_read)
{
    std::array<std::uint8_t, 4> bytes = {};
    EXPECT_EQ(media_file(std::filesystem::path("/proc/self/maps")).read(0, bytes), 0U);
    EXPECT_EQ(media_file(std::filesystem::path("/proc/kmsg")).read(0, bytes), 0U);
}

} // namespace
