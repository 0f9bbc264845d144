// SPDX-License-Identifier: MIT
#include "media_files/picture_store.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

jpeg_picture picture_of_bytes(std::size_t count)
{
    jpeg_picture picture = {320, 180, std::vector<std::uint8_t>(count, 7)};
    picture.bytes[0] = picture.bytes[2] = picture.bytes[count - 2] = 0xFF;
    picture.bytes[1] = 0xD8;
    picture.bytes[count - 1] = 0xD9;
    return picture;
}

class picture_store_ : public testing::Test {
protected:
    std::vector<std::filesystem::path> kept_files() const
    {
        std::vector<std::filesystem::path> files;
        if (!std::filesystem::exists(place))
            return files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
            if (entry.is_regular_file())
                files.push_back(entry.path());
        }
        return files;
    }

    temporary_folder folder;
    std::filesystem::path place = folder.path() / "cache" / "pictures";
    std::filesystem::path maker = write_file(folder.path() / "maker", "program");
    std::filesystem::path film = write_file(folder.path() / "film.mov", "frames");
    picture_key key = {film.string(), {1001, 30000}, 320};
    jpeg_picture picture = picture_of_bytes(100);
};

TEST_F(picture_store_, gives_in_a_later_run_what_was_kept)
{
    picture_store(place, maker).keep(key, picture);
    picture_store later(place, maker);
    EXPECT_TRUE(later.contains(key));
    EXPECT_EQ(later.find(key), picture);
}

TEST_F(picture_store_, tells_moments_widths_and_files_apart)
{
    picture_store store(place, maker);
    store.keep(key, picture);
    const auto other = write_file(folder.path() / "other.mov", "frames");
    for (const picture_key& wanted :
         {picture_key{key.file, {1002, 30000}, 320}, picture_key{key.file, {1001, 30001}, 320},
          picture_key{key.file, key.time, 321}, picture_key{other.string(), key.time, 320},
          picture_key{"/none.mov", key.time, 320}}) {
        EXPECT_FALSE(store.contains(wanted));
        EXPECT_EQ(store.find(wanted), std::nullopt);
    }
}

TEST_F(picture_store_, gives_nothing_of_a_file_or_by_a_maker_that_has_changed)
{
    picture_store(place, maker).keep(key, picture);
    write_file(folder.path() / "film.mov", "other frames");
    EXPECT_EQ(picture_store(place, maker).find(key), std::nullopt);
    picture_store(place, maker).keep(key, picture);
    EXPECT_EQ(picture_store(place, maker).find(key), picture);
    write_file(folder.path() / "maker", "a newer program");
    EXPECT_EQ(picture_store(place, maker).find(key), std::nullopt);
}

TEST_F(picture_store_, gives_nothing_of_what_is_damaged)
{
    picture_store(place, maker).keep(key, picture);
    const std::filesystem::path file = kept_files().at(0);
    const std::string whole = content_of(file);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        write_file(file, whole.substr(0, length));
        EXPECT_EQ(picture_store(place, maker).find(key), std::nullopt) << length;
    }
    write_file(file, "X" + whole);
    EXPECT_EQ(picture_store(place, maker).find(key), std::nullopt);
}

TEST_F(picture_store_, belongs_to_its_user_alone)
{
    picture_store(place, maker).keep(key, picture);
    struct stat found = {};
    ASSERT_EQ(stat(kept_files().at(0).c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0600U);
    ASSERT_EQ(stat(kept_files().at(0).parent_path().c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0700U);
}

TEST_F(picture_store_, does_without_a_place)
{
    picture_store store("/proc/none", maker);
    store.keep(key, picture);
    EXPECT_EQ(store.find(key), std::nullopt);
}

TEST_F(picture_store_, lets_go_what_was_not_used_for_longest)
{
    constexpr int count = 2000;
    constexpr std::size_t most = 1U << 20U;
    for (int i = 0; i < count; ++i) {
        picture_store store(place, maker, most);
        store.keep({film.string(), {i, 25}, 320}, picture_of_bytes(2000));
        EXPECT_TRUE(store.find({film.string(), {0, 25}, 320}));
        const auto long_ago = std::filesystem::file_time_type::clock::now() - std::chrono::hours(count - i);
        for (const auto& file : i == 0 ? kept_files() : std::vector<std::filesystem::path>())
            std::filesystem::last_write_time(file, long_ago);
    }
    std::uintmax_t bytes = 0;
    for (const auto& file : kept_files())
        bytes += std::filesystem::file_size(file);
    EXPECT_LE(bytes, most);
    EXPECT_GT(bytes, most / 2);
}

TEST(user_cache_folder, is_where_the_user_has_it)
{
    setenv("XDG_CACHE_HOME", "/somewhere", 1);
    EXPECT_EQ(user_cache_folder(), "/somewhere");
    setenv("XDG_CACHE_HOME", "relative", 1);
    setenv("HOME", "/home/ann", 1);
    EXPECT_EQ(user_cache_folder(), "/home/ann/.cache");
    unsetenv("XDG_CACHE_HOME");
    EXPECT_EQ(user_cache_folder(), "/home/ann/.cache");
    unsetenv("HOME");
    EXPECT_EQ(user_cache_folder(), std::nullopt);
}

} // namespace
