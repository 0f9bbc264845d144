// SPDX-License-Identifier: MIT
#include "platform/thumbnail_folder.h"
#include "support/kept_text.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <iterator>
#include <optional>
#include <utility>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace fs = std::filesystem;

namespace {

std::ptrdiff_t entries_of(const fs::path& folder)
{
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

TEST(thumbnail_folder, goes_with_all_that_is_in_it)
{
    std::optional<thumbnail_folder> folder(thumbnail_folder::temporary());
    const fs::path path = folder->path();
    write_file(path / "0002 Clip.jpg");
    folder.reset();
    EXPECT_FALSE(fs::exists(path));
}

TEST(thumbnail_folder, is_private)
{
    const thumbnail_folder folder = thumbnail_folder::temporary();
    EXPECT_EQ(fs::status(folder.path()).permissions(), fs::perms::owner_all);
}

TEST(thumbnail_folder, moves_to_a_new_owner)
{
    std::optional<thumbnail_folder> first(thumbnail_folder::temporary());
    const fs::path path = first->path();
    {
        const thumbnail_folder second = std::move(*first);
        first.reset();
        EXPECT_TRUE(fs::exists(path));
    }
    EXPECT_FALSE(fs::exists(path));
}

TEST(thumbnail_folder, leaves_nothing_beside_the_workbook_of_a_failed_run)
{
    const temporary_folder desk;
    {
        const thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
        write_file(folder.path() / "0002 Clip.jpg");
        EXPECT_FALSE(fs::exists(desk.path() / "Reel 1 thumbnails"));
    }
    EXPECT_EQ(entries_of(desk.path()), 0);
}

TEST(thumbnail_folder, is_kept_beside_the_workbook)
{
    const temporary_folder desk;
    {
        thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
        write_file(folder.path() / "0002 Clip.jpg");
        EXPECT_EQ(folder.keep(), desk.path() / "Reel 1 thumbnails");
        EXPECT_EQ(folder.path(), desk.path() / "Reel 1 thumbnails");
    }
    EXPECT_TRUE(fs::exists(desk.path() / "Reel 1 thumbnails" / "0002 Clip.jpg"));
    EXPECT_EQ(entries_of(desk.path()), 1);
}

TEST(thumbnail_folder, replaces_pictures_of_the_same_names_and_leaves_other_files)
{
    const temporary_folder desk;
    const fs::path place = desk.path() / "Reel 1 thumbnails";
    write_file(place / "0002 Clip.jpg", "older picture");
    write_file(place / "notes.txt", "mine");
    {
        const thumbnail_folder failed = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
        write_file(failed.path() / "0002 Clip.jpg", "");
    }
    EXPECT_EQ(fs::file_size(place / "0002 Clip.jpg"), 13U) << "a failed run harms no older picture";

    thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
    write_file(folder.path() / "0002 Clip.jpg", "new");
    EXPECT_EQ(folder.keep(), place);
    EXPECT_EQ(fs::file_size(place / "0002 Clip.jpg"), 3U);
    EXPECT_EQ(fs::file_size(place / "notes.txt"), 4U);
    EXPECT_EQ(entries_of(desk.path()), 1);
}

TEST(thumbnail_folder, does_not_start_where_a_file_is_in_its_place)
{
    const temporary_folder desk;
    write_file(desk.path() / "Reel 1 thumbnails");
    EXPECT_THROW(thumbnail_folder::beside(desk.path() / "Reel 1.xls"), fs::filesystem_error);
    EXPECT_THROW(thumbnail_folder::beside("/nowhere/at all/Reel 1.xls"), fs::filesystem_error);
}

} // namespace
