// SPDX-License-Identifier: MIT
#include "media_files/thumbnail_folder.h"
#include "run/failures.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
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

bool nothing_is_precious(const fs::path&)
{
    return false;
}

/// What an action fails with, or nothing.
template <class Action>
std::string failure_of(Action action)
{
    try {
        action();
    } catch (const failure& error) {
        return error.what();
    }
    return {};
}

std::string refusal_of(const fs::path& place, const std::string& reason)
{
    return "The report was not saved. Its thumbnails cannot be kept in \"" + place.string() + "\": " + reason;
}

/// Sets the folder for temporary files while it lives.
class temporary_files_in {
public:
    explicit temporary_files_in(const fs::path& folder)
    {
        if (const char* set = std::getenv("TMPDIR"))
            before_ = set;
        setenv("TMPDIR", folder.c_str(), 1);
    }
    ~temporary_files_in()
    {
        if (before_)
            setenv("TMPDIR", before_->c_str(), 1);
        else
            unsetenv("TMPDIR");
    }
    temporary_files_in(const temporary_files_in&) = delete;
    temporary_files_in& operator=(const temporary_files_in&) = delete;

private:
    std::optional<std::string> before_;
};

TEST(thumbnail_folder, goes_with_all_that_is_in_it)
{
    std::optional<thumbnail_folder> folder = thumbnail_folder::temporary();
    const fs::path path = folder->path();
    write_file(path / "0002 Clip.jpg");
    folder.reset();
    EXPECT_FALSE(fs::exists(path));
}

TEST(thumbnail_folder, is_private)
{
    const auto folder = thumbnail_folder::temporary();
    EXPECT_EQ(fs::status(folder->path()).permissions(), fs::perms::owner_all);
}

TEST(thumbnail_folder, moves_to_a_new_owner)
{
    std::optional<thumbnail_folder> first = thumbnail_folder::temporary();
    const fs::path path = first->path();
    {
        const thumbnail_folder second = std::move(*first);
        first.reset();
        EXPECT_TRUE(fs::exists(path));
    }
    EXPECT_FALSE(fs::exists(path));
}

TEST(thumbnail_folder, is_not_there_where_temporary_files_have_no_place)
{
    const temporary_files_in nowhere("/nowhere");
    EXPECT_FALSE(thumbnail_folder::temporary());
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

TEST(thumbnail_folder, puts_the_pictures_beside_the_workbook)
{
    const temporary_folder desk;
    const fs::path place = desk.path() / "Reel 1 thumbnails";
    {
        thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
        write_file(folder.path() / "0002 Clip.jpg");
        EXPECT_EQ(folder.publish(nothing_is_precious), place);
    }
    EXPECT_TRUE(fs::exists(place / "0002 Clip.jpg"));
    EXPECT_EQ(entries_of(place), 1);
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
    EXPECT_EQ(content_of(place / "0002 Clip.jpg"), "older picture") << "a failed run harms no older picture";

    {
        thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
        write_file(folder.path() / "0002 Clip.jpg", "new");
        EXPECT_EQ(folder.publish(nothing_is_precious), place);
    }
    EXPECT_EQ(content_of(place / "0002 Clip.jpg"), "new");
    EXPECT_EQ(content_of(place / "notes.txt"), "mine");
    EXPECT_EQ(entries_of(place), 2);
    EXPECT_EQ(entries_of(desk.path()), 1);
}

TEST(thumbnail_folder, leaves_no_picture_of_an_earlier_report_among_the_new)
{
    const temporary_folder desk;
    const fs::path place = desk.path() / "Reel 1 thumbnails";
    const std::vector<std::string> others = {"0004 Still.jpg", "12 Clip.jpg", "0002Clip.jpg", "0002 Clip.png",
                                             "Clip.jpg"};
    for (const char* picture : {"0002 Old.jpg", "0003 Clip.jpg", "12345 Old.jpg"})
        write_file(place / picture, "older picture");
    for (const std::string& other : others)
        write_file(place / other, "mine");
    fs::create_directory(place / "0005 Folder.jpg");
    const auto is_still = [&](const fs::path& file) { return file == place / others.front(); };
    for (const bool stays : {false, true}) {
        {
            thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
            write_file(folder.path() / "0002 New.jpg", "new");
            write_file(folder.path() / "0003 Clip.jpg", "new");
            folder.publish(is_still);
            EXPECT_FALSE(fs::exists(place / "0002 Old.jpg"));
            EXPECT_FALSE(fs::exists(place / "12345 Old.jpg"));
            const std::string remains = stays ? "" : folder.take_back();
            EXPECT_EQ(remains, "");
        }
        EXPECT_EQ(fs::exists(place / "0002 Old.jpg"), !stays);
        EXPECT_EQ(content_of(place / "0003 Clip.jpg"), stays ? "new" : "older picture");
        EXPECT_EQ(entries_of(place), (stays ? 2 : 3) + 6);
    }
    EXPECT_EQ(entries_of(desk.path()), 1);
}

TEST(thumbnail_folder, takes_back_what_it_has_put_in_place)
{
    const temporary_folder desk;
    const fs::path place = desk.path() / "Reel 1 thumbnails";
    {
        thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
        write_file(folder.path() / "0002 Clip.jpg", "new");
        folder.publish(nothing_is_precious);
        EXPECT_EQ(folder.take_back(), "");
        EXPECT_FALSE(fs::exists(place)) << "it was not there before";
    }
    write_file(place / "0002 Clip.jpg", "older picture");
    {
        thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
        write_file(folder.path() / "0002 Clip.jpg", "new");
        write_file(folder.path() / "0003 Clip.jpg", "new");
        folder.publish(nothing_is_precious);
        EXPECT_EQ(folder.take_back(), "");
        EXPECT_EQ(folder.take_back(), "") << "there is nothing more to take back";
    }
    EXPECT_EQ(content_of(place / "0002 Clip.jpg"), "older picture");
    EXPECT_EQ(entries_of(place), 1);
    EXPECT_EQ(entries_of(desk.path()), 1);
}

TEST(thumbnail_folder, tells_where_the_pictures_are_that_it_cannot_take_back)
{
    const temporary_folder desk;
    const fs::path place = desk.path() / "Reel 1 thumbnails";
    write_file(place / "0002 Clip.jpg", "older picture");
    fs::path hidden;
    {
        thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
        write_file(folder.path() / "0002 Clip.jpg", "new");
        folder.publish(nothing_is_precious);
        hidden = folder.path() / "replaced";
        fs::remove(place / "0002 Clip.jpg");
        EXPECT_EQ(folder.take_back(),
                  " The folder \"" + place.string()
                      + "\" holds some of its pictures all the same, and older ones are in \""
                      + hidden.string() + "\".");
    }
    EXPECT_EQ(content_of(hidden / "0002 Clip.jpg"), "older picture") << "nothing is lost";
}

TEST(thumbnail_folder, changes_nothing_where_a_folder_has_a_pictures_name)
{
    const temporary_folder desk;
    const fs::path place = desk.path() / "Reel 1 thumbnails";
    write_file(place / "0002 Clip.jpg", "older picture");
    fs::create_directories(place / "0003 Clip.jpg");
    {
        thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
        write_file(folder.path() / "0002 Clip.jpg", "new");
        write_file(folder.path() / "0003 Clip.jpg", "new");
        EXPECT_EQ(failure_of([&] { folder.publish(nothing_is_precious); }),
                  refusal_of(place,
                             "there is a folder \"0003 Clip.jpg\" in it. Move that, or choose another "
                             "name for the workbook."));
    }
    EXPECT_EQ(content_of(place / "0002 Clip.jpg"), "older picture");
    EXPECT_EQ(entries_of(place), 2);
}

TEST(thumbnail_folder, replaces_nothing_that_is_precious)
{
    const temporary_folder desk;
    const fs::path place = desk.path() / "Reel 1 thumbnails";
    write_file(place / "0002 Clip.jpg", "a still of the timeline");
    {
        thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
        write_file(folder.path() / "0002 Clip.jpg", "new");
        EXPECT_EQ(failure_of([&] {
                      folder.publish([&](const fs::path& file) { return file == place / "0002 Clip.jpg"; });
                  }),
                  refusal_of(place,
                             "the file \"0002 Clip.jpg\" in it belongs to the timeline. Choose another "
                             "name for the workbook."));
    }
    EXPECT_EQ(content_of(place / "0002 Clip.jpg"), "a still of the timeline");
}

TEST(thumbnail_folder, does_not_start_where_its_place_takes_no_pictures)
{
    const temporary_folder desk;
    write_file(desk.path() / "Reel 1 thumbnails");
    EXPECT_EQ(failure_of([&] { thumbnail_folder::beside(desk.path() / "Reel 1.xls"); }),
              refusal_of(desk.path() / "Reel 1 thumbnails",
                         "there is a file of this name. Move it, or choose another name for the workbook."));
    EXPECT_EQ(failure_of([] { thumbnail_folder::beside("/nowhere/at all/Reel 1.xls"); }),
              refusal_of("/nowhere/at all/Reel 1 thumbnails",
                         "No such file or directory. Choose another name or folder for the workbook."));
    const std::string long_name(250, 'x');
    EXPECT_EQ(failure_of([&] { thumbnail_folder::beside(desk.path() / (long_name + ".xls")); }),
              refusal_of(desk.path() / (long_name + " thumbnails"),
                         "File name too long. Choose another name or folder for the workbook."));
    EXPECT_EQ(entries_of(desk.path()), 1);
}

TEST(thumbnail_folder, is_kept_behind_a_link)
{
    const temporary_folder desk;
    fs::create_directory(desk.path() / "elsewhere");
    fs::create_directory_symlink("elsewhere", desk.path() / "Reel 1 thumbnails");
    {
        thumbnail_folder folder = thumbnail_folder::beside(desk.path() / "Reel 1.xls");
        write_file(folder.path() / "0002 Clip.jpg", "new");
        EXPECT_EQ(entries_of(desk.path() / "elsewhere"), 1) << "a link may lead to another disk";
        folder.publish(nothing_is_precious);
    }
    EXPECT_EQ(content_of(desk.path() / "elsewhere" / "0002 Clip.jpg"), "new");
    EXPECT_EQ(entries_of(desk.path() / "elsewhere"), 1);
}

} // namespace
