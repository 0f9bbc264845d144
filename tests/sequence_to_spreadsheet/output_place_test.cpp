// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/output_place.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace tallyframe {
namespace {

namespace fs = std::filesystem;
namespace test = testing_support;

struct desk_with_document {
    test::temporary_folder folder;
    fs::path document = test::write_file(folder.path() / "cut.xml");
    fs::path named(const char* name) const { return folder.path() / name; }
};

TEST(replaces_document, knows_the_document_under_every_name)
{
    const desk_with_document desk;
    fs::create_symlink("cut.xml", desk.named("link.xls"));
    fs::create_symlink("link.xls", desk.named("far link.xls"));
    fs::create_hard_link(desk.document, desk.named("hard link.xls"));
    fs::create_directory_symlink(".", desk.named("folder"));
    for (const char* name :
         {"cut.xml", "./cut.xml", "link.xls", "far link.xls", "hard link.xls", "folder/cut.xml"}) {
        EXPECT_TRUE(replaces_document(desk.named(name), desk.document)) << name;
        EXPECT_TRUE(replaces_document(desk.document, desk.named(name))) << name;
    }
}

TEST(replaces_document, leaves_other_files_alone)
{
    const desk_with_document desk;
    test::write_file(desk.named("other.xls"));
    fs::create_symlink("nowhere.xls", desk.named("dangling.xls"));
    for (const char* name : {"other.xls", "new.xls", "dangling.xls", "none/new.xls", "cut.xml/new.xls"})
        EXPECT_FALSE(replaces_document(desk.named(name), desk.document)) << name;
    EXPECT_FALSE(replaces_document(desk.named("new.xls"), desk.named("none.xml")));
}

TEST(keeps_thumbnails_around_document, knows_where_the_document_and_its_links_lie)
{
    const desk_with_document desk;
    const fs::path inside = test::write_file(desk.named("Reel 1 thumbnails/0002 Clip.jpg"));
    fs::create_symlink(desk.document, desk.named("Reel 1 thumbnails/0003 Clip.jpg"));
    fs::create_symlink(inside, desk.named("link.xml"));
    const fs::path workbook = desk.named("Reel 1.xls");
    EXPECT_TRUE(keeps_thumbnails_around_document(workbook, inside));
    EXPECT_TRUE(keeps_thumbnails_around_document(workbook, desk.named("link.xml")));
    EXPECT_TRUE(keeps_thumbnails_around_document(workbook, desk.named("Reel 1 thumbnails/0003 Clip.jpg")));
    EXPECT_FALSE(keeps_thumbnails_around_document(workbook, desk.document));
    EXPECT_FALSE(keeps_thumbnails_around_document(desk.named("Reel 2.xls"), inside));
}

} // namespace
} // namespace tallyframe
