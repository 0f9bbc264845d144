// SPDX-License-Identifier: MIT
#include "media_files/mapped_media.h"
#include "support/counting_progress.h"
#include "support/kept_diagnostics.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <sstream>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

class mapped_media_ : public testing::Test {
protected:
    std::filesystem::path file(const std::string& path) const { return write_file(folder_.path() / path); }
    std::string place(const std::string& path) const { return (folder_.path() / path).string(); }

    kept_diagnostics out_;
    counting_progress display_;

private:
    temporary_folder folder_;
};

TEST_F(mapped_media_, finds_a_file_where_the_document_says)
{
    mapped_media media({}, {}, out_, display_);
    const auto clip = file("clip.mov");
    EXPECT_EQ(media.locate(clip.string()), clip);
    EXPECT_EQ(media.locate(place("other.mov")), std::nullopt);
    EXPECT_EQ(out_.text, "");
}

TEST_F(mapped_media_, counts_only_regular_files)
{
    mapped_media media({}, {}, out_, display_);
    std::filesystem::create_directories(place("folder.mov"));
    EXPECT_EQ(media.locate(place("folder.mov")), std::nullopt);
    ASSERT_EQ(mkfifo(place("pipe.mov").c_str(), 0600), 0);
    EXPECT_EQ(media.locate(place("pipe.mov")), std::nullopt);
    EXPECT_EQ(media.locate(""), std::nullopt);
}

TEST_F(mapped_media_, looks_under_the_mapping_with_the_longest_prefix_first)
{
    const auto general = file("disk/Day 1/clip.mov");
    const auto special = file("other/clip.mov");
    mapped_media media({{"/Volumes/Media", place("disk")}, {"/Volumes/Media/Day 1/", place("other/")}}, {},
                       out_, display_);
    EXPECT_EQ(media.locate("/Volumes/Media/Day 1/clip.mov"), special);
    std::filesystem::remove(special);
    mapped_media again({{"/Volumes/Media", place("disk")}, {"/Volumes/Media/Day 1", place("other")}}, {},
                       out_, display_);
    EXPECT_EQ(again.locate("/Volumes/Media/Day 1/clip.mov"), general) << "and then under the shorter ones";
}

TEST_F(mapped_media_, maps_whole_folder_names_only)
{
    file("disk/B/clip.mov");
    mapped_media media({{"/Volumes/Media", place("disk")}}, {}, out_, display_);
    EXPECT_EQ(media.locate("/Volumes/MediaB/clip.mov"), std::nullopt);
    EXPECT_EQ(media.locate("/Volumes/Media"), std::nullopt);
    EXPECT_NE(media.locate("/Volumes/Media/B/clip.mov"), std::nullopt);
}

TEST_F(mapped_media_, maps_the_root_and_the_letters_of_drives)
{
    const auto clip = file("disk/Media/clip.mov");
    mapped_media media({{"/", place("disk")}, {"/C:", place("disk")}}, {}, out_, display_);
    EXPECT_EQ(media.locate("/Media/clip.mov"), clip);
    EXPECT_EQ(media.locate("/C:/Media/clip.mov"), clip);
    mapped_media relative({{"Rushes", place("disk")}}, {}, out_, display_);
    EXPECT_EQ(relative.locate("Rushes/Media/clip.mov"), clip);
}

TEST_F(mapped_media_, searches_folders_by_name_and_by_the_parents_that_agree)
{
    const auto day1 = file("search/Day 1/A/clip.mov");
    const auto day2 = file("search/Day 2/A/clip.mov");
    const auto only = file("search/deep/er/only.mov");
    mapped_media media({}, {place("search")}, out_, display_);
    EXPECT_EQ(media.locate("/Volumes/X/Day 2/A/clip.mov"), day2);
    EXPECT_EQ(media.locate("/Volumes/X/Day 1/A/clip.mov"), day1);
    EXPECT_EQ(media.locate("/Volumes/X/only.mov"), only);
    EXPECT_EQ(media.locate("/Volumes/X/none.mov"), std::nullopt);
}

TEST_F(mapped_media_, takes_the_first_folder_and_path_when_nothing_else_decides)
{
    const auto in_second = file("second/clip.mov");
    const auto later = file("first/b/clip.mov");
    const auto sooner = file("first/a/clip.mov");
    mapped_media media({}, {place("first"), place("second")}, out_, display_);
    EXPECT_EQ(media.locate("/Volumes/X/clip.mov"), sooner);
    mapped_media turned({}, {place("second"), place("first")}, out_, display_);
    EXPECT_EQ(turned.locate("/Volumes/X/clip.mov"), in_second);
}

TEST_F(mapped_media_, knows_accented_names_in_both_spellings)
{
    const auto decomposed = file("search/Zoe\xCC\x88.wav");
    mapped_media media({}, {place("search")}, out_, display_);
    EXPECT_EQ(media.locate("/Music/Zo\xC3\xAB.wav"), decomposed);
}

TEST_F(mapped_media_, logs_once_what_it_finds_elsewhere)
{
    const auto clip = file("search/clip.mov");
    mapped_media media({}, {place("search")}, out_, display_);
    media.locate("/Volumes/X/clip.mov");
    media.locate("/Volumes/X/clip.mov");
    EXPECT_EQ(out_.text, "\"media: /Volumes/X/clip.mov is " + clip.string() + "\"\n");
}

TEST_F(mapped_media_, says_which_folder_it_cannot_search)
{
    mapped_media media({}, {place("nowhere")}, out_, display_);
    EXPECT_TRUE(media.losses().is_empty());
    EXPECT_EQ(media.locate("/Volumes/X/clip.mov"), std::nullopt);
    EXPECT_EQ(out_.text, "\"media: cannot search " + place("nowhere") + ": No such file or directory\"\n");
    EXPECT_THAT(sentences_of(media.losses()),
                testing::ElementsAre("1 folder could not be searched for media (" + place("nowhere") + ")."));
}

/// The superuser reads every folder. While this lives, it is nobody.
class nobody_for_a_while {
public:
    nobody_for_a_while() { EXPECT_EQ(is_root_ ? seteuid(65534) : 0, 0); }
    ~nobody_for_a_while() { EXPECT_EQ(is_root_ ? seteuid(0) : 0, 0); }
    nobody_for_a_while(const nobody_for_a_while&) = delete;
    nobody_for_a_while& operator=(const nobody_for_a_while&) = delete;

private:
    bool is_root_ = geteuid() == 0;
};

TEST_F(mapped_media_, counts_a_file_that_may_not_be_read_as_there)
{
    const auto secret = file("secret.mov");
    const auto copy = file("search/copy.mov");
    std::filesystem::permissions(place("."), std::filesystem::perms(0755));
    std::filesystem::permissions(secret, std::filesystem::perms::none);
    std::filesystem::create_directories(place("old"));
    std::filesystem::rename(secret, place("old/copy.mov"));
    mapped_media media({}, {}, out_, display_);
    mapped_media searching({}, {place("search")}, out_, display_);
    const nobody_for_a_while nobody;
    EXPECT_EQ(media.locate(place("old/copy.mov")), place("old/copy.mov"));
    EXPECT_EQ(searching.locate(place("old/copy.mov")), copy) << "one that may be read is better";
}

TEST_F(mapped_media_, goes_on_behind_a_folder_that_does_not_let_it_in)
{
    const auto before = file("search/a/clip.mov");
    file("search/b/secret.mov");
    const auto behind = file("search/c/other.mov");
    std::filesystem::permissions(place("."), std::filesystem::perms(0755));
    std::filesystem::permissions(place("search/b"), std::filesystem::perms::none);
    mapped_media media({}, {place("search")}, out_, display_);
    {
        const nobody_for_a_while nobody;
        EXPECT_EQ(media.locate("/Volumes/X/clip.mov"), before);
        EXPECT_EQ(media.locate("/Volumes/X/other.mov"), behind);
        EXPECT_EQ(media.locate("/Volumes/X/secret.mov"), std::nullopt);
    }
    std::filesystem::permissions(place("search/b"), std::filesystem::perms::owner_all);
    EXPECT_THAT(out_.text,
                testing::HasSubstr("media: cannot search " + place("search/b") + ": Permission denied"));
    EXPECT_THAT(
        sentences_of(media.losses()),
        testing::ElementsAre("1 folder could not be searched for media (" + place("search/b") + ")."));
}

TEST_F(mapped_media_, tells_of_an_unread_folder_once_when_searches_overlap)
{
    mapped_media media({}, {place("nowhere"), place("nowhere")}, out_, display_);
    media.locate("/Volumes/X/clip.mov");
    media.locate("/Volumes/X/other.mov");
    EXPECT_EQ(media.losses().of(loss_kind::unread_folders).count, 1U);
}

TEST_F(mapped_media_, follows_links_to_folders_and_ends_in_circles)
{
    const auto clip = file("search/a/clip.mov");
    file("elsewhere/far.mov");
    std::filesystem::create_directory_symlink(place("search"), place("search/a/circle"));
    std::filesystem::create_directory_symlink(place("elsewhere"), place("search/b"));
    std::filesystem::create_symlink(place("search/nowhere"), place("search/dangling.mov"));
    mapped_media media({}, {place("search")}, out_, display_);
    EXPECT_EQ(media.locate("/Volumes/X/circle/clip.mov"), clip);
    EXPECT_EQ(media.locate("/Volumes/X/far.mov"), place("search/b/far.mov"));
    EXPECT_EQ(media.locate("/Volumes/X/dangling.mov"), std::nullopt);
    EXPECT_TRUE(media.losses().is_empty());
}

TEST_F(mapped_media_, gives_a_file_that_may_not_be_read_where_no_other_is_there)
{
    const auto secret = file("there/clip.mov");
    const auto copy = file("copy/clip.mov");
    std::filesystem::permissions(place("."), std::filesystem::perms(0755));
    std::filesystem::permissions(secret, std::filesystem::perms::none);
    mapped_media alone({}, {}, out_, display_);
    mapped_media searching({}, {place("copy")}, out_, display_);
    const nobody_for_a_while nobody;
    EXPECT_EQ(alone.locate(secret.string()), secret);
    EXPECT_EQ(searching.locate(secret.string()), copy);
}

TEST_F(mapped_media_, knows_names_in_other_accents_and_letter_case_where_the_document_says)
{
    const auto decomposed = file("Tag 1/Zoe\xCC\x88.wav");
    const auto shout = file("DAY 2/CLIP.MOV");
    mapped_media media({}, {}, out_, display_);
    EXPECT_EQ(media.locate(place("Tag 1/Zo\xC3\xAB.wav")), decomposed);
    EXPECT_EQ(media.locate(place("Day 2/Clip.mov")), shout);
    EXPECT_EQ(media.locate(place("Day 3/Clip.mov")), std::nullopt);
}

TEST_F(mapped_media_, takes_the_exact_name_before_other_accents_and_those_before_other_case)
{
    const auto upper = file("a/ZO\xC3\x8B.wav");
    mapped_media media({}, {}, out_, display_);
    EXPECT_EQ(media.locate(place("a/Zo\xC3\xAB.wav")), upper);
    const auto decomposed = file("a/Zoe\xCC\x88.wav");
    mapped_media again({}, {}, out_, display_);
    EXPECT_EQ(again.locate(place("a/Zo\xC3\xAB.wav")), decomposed);
    const auto exact = file("a/Zo\xC3\xAB.wav");
    mapped_media at_last({}, {}, out_, display_);
    EXPECT_EQ(at_last.locate(place("a/Zo\xC3\xAB.wav")), exact);
}

TEST_F(mapped_media_, looks_into_all_folders_whose_names_differ_in_case)
{
    file("Media/other.mov");
    const auto clip = file("MEDIA/clip.mov");
    mapped_media media({}, {}, out_, display_);
    EXPECT_EQ(media.locate(place("Media/clip.mov")), clip);
}

TEST_F(mapped_media_, knows_mapped_names_in_other_accents_and_letter_case)
{
    const auto clip = file("disk/DAY 1/clip.mov");
    mapped_media media({{"/volumes/re\xCC\x81gie", place("disk")}}, {}, out_, display_);
    EXPECT_EQ(media.locate("/Volumes/R\xC3\xA9gie/Day 1/Clip.mov"), clip);
}

TEST_F(mapped_media_, knows_searched_names_in_other_letter_case_where_none_is_exact)
{
    const auto shout = file("search/CLIP.MOV");
    mapped_media media({}, {place("search")}, out_, display_);
    EXPECT_EQ(media.locate("/Volumes/X/clip.mov"), shout);
    const auto exact = file("search/far/away/clip.mov");
    mapped_media again({}, {place("search")}, out_, display_);
    EXPECT_EQ(again.locate("/Volumes/X/clip.mov"), exact);
    EXPECT_TRUE(again.losses().is_empty());
}

TEST_F(mapped_media_, maps_paths_as_other_systems_write_them)
{
    const auto clip = file("disk/Ann/clip.mov");
    for (const char* from : {"C:/Users", "C:\\Users", "c:\\users\\", "/C:/Users"}) {
        mapped_media media({{from, place("disk")}}, {}, out_, display_);
        EXPECT_EQ(media.locate("/C:/Users/Ann/clip.mov"), clip) << from;
        EXPECT_EQ(media.locate("C:\\Users\\Ann\\clip.mov"), clip) << from;
    }
    mapped_media media({{"\\\\server\\share", place("disk")}}, {}, out_, display_);
    EXPECT_EQ(media.locate("//server/share/Ann/clip.mov"), clip);
}

TEST_F(mapped_media_, mentions_mappings_that_fit_nothing_or_lead_nowhere)
{
    file("disk/clip.mov");
    mapped_media media(
        {{"/Volumes/A", place("disk")}, {"/Volumes/B", place("disk")}, {"C:\\Media", place("no")}}, {}, out_,
        display_);
    const std::vector<documented_media> files = {{"/volumes/a/clip.mov", {}}, {"/C:/Media/b.mov", {}}};
    media.expect(files);
    EXPECT_THAT(
        sentences_of(media.losses()),
        testing::ElementsAre(
            "1 mapping of media folders fits no file of the document (/Volumes/B=" + place("disk") + ").",
            "1 mapping of media folders leads to a folder that is not there (C:\\Media=" + place("no")
                + ")."));
}

/// Knows files by what is in them: "10 25 1920x1080" for seconds, rate and size.
class probe_of_texts final : public media_probe {
public:
    std::optional<media_facts> facts_of(const std::filesystem::path& file) override
    {
        ++calls;
        std::istringstream text(content_of(file));
        media_facts facts;
        pixel_size size;
        double duration = 0;
        double rate = 0;
        char by = 0;
        if (!(text >> duration >> rate >> size.width >> by >> size.height))
            return std::nullopt;
        facts.duration = duration;
        facts.frames_per_second = rate;
        facts.frame_size = size;
        return facts;
    }

    int calls = 0;
};

class files_of_one_name : public mapped_media_ {
protected:
    std::string film(const std::string& path, const std::string& facts) const
    {
        return write_file(place(path), facts).string();
    }

    /// The document's "clip.mov" lasts ten seconds, at 25 frames a second and 1920 × 1080.
    std::optional<std::filesystem::path> found(const std::string& path = "/Volumes/X/A/clip.mov")
    {
        media_facts said;
        said.duration = 10;
        said.frames_per_second = 25;
        said.frame_size = pixel_size{1920, 1080};
        const std::vector<documented_media> files = {{path, said}};
        mapped_media media({}, {place("search")}, out_, display_, &probe_);
        media.expect(files);
        const auto file = media.locate(path);
        told_ = sentences_of(media.losses());
        return file;
    }

    probe_of_texts probe_;
    std::vector<std::string> told_;
};

TEST_F(files_of_one_name, are_told_apart_by_duration_rate_and_frame_size)
{
    film("search/A/clip.mov", "10 25 960x540");
    film("search/B/clip.mov", "11 25 1920x1080");
    film("search/C/clip.mov", "10 24 1920x1080");
    const auto right = film("search/D/clip.mov", "10.04 25 1920x1080");
    EXPECT_EQ(found(), right) << "though another one lies in the right folder";
    EXPECT_THAT(told_, testing::IsEmpty());
}

TEST_F(files_of_one_name, are_told_apart_by_their_folders_where_they_are_alike)
{
    film("search/0/clip.mov", "10 25 1920x1080");
    const auto right = film("search/A/clip.mov", "10 25 1920x1080");
    EXPECT_EQ(found(), right);
    EXPECT_THAT(told_, testing::IsEmpty());
    EXPECT_EQ(probe_.calls, 1) << "the next folder cannot be better";
}

TEST_F(files_of_one_name, are_not_taken_in_silence_where_nothing_decides)
{
    const auto first = film("search/B/clip.mov", "10 25 1920x1080");
    const auto second = film("search/C/clip.mov", "10 25 1920x1080");
    EXPECT_EQ(found(), first);
    EXPECT_THAT(told_,
                testing::ElementsAre("1 media file was found more than once, nothing told which is meant, "
                                     "and the first was taken ("
                                     + first + " or " + second + ")."));
}

TEST_F(files_of_one_name, are_not_taken_in_silence_where_all_differ_from_the_document)
{
    const auto near = film("search/A/clip.mov", "10 25 960x540");
    const auto far = film("search/B/clip.mov", "12 25 1920x1080");
    EXPECT_EQ(found(), near);
    EXPECT_THAT(told_, testing::ElementsAre(testing::HasSubstr(near + " or " + far)));
}

TEST_F(files_of_one_name, are_preferred_when_they_can_be_read)
{
    film("search/A/clip.mov", "broken");
    const auto right = film("search/B/clip.mov", "10 25 1920x1080");
    EXPECT_EQ(found(), right);
    EXPECT_THAT(told_, testing::IsEmpty());
}

TEST_F(files_of_one_name, are_one_file_behind_a_link)
{
    const auto first = film("search/B/clip.mov", "10 25 1920x1080");
    std::filesystem::create_directories(place("search/C"));
    std::filesystem::create_symlink(first, place("search/C/clip.mov"));
    EXPECT_EQ(found(), first);
    EXPECT_THAT(told_, testing::IsEmpty());
}

TEST_F(files_of_one_name, are_not_opened_when_they_are_too_many)
{
    for (int i = 100; i < 200; ++i)
        film("search/" + std::to_string(i) + "/clip.mov", "10 25 1920x1080");
    EXPECT_EQ(found(), place("search/100/clip.mov"));
    EXPECT_EQ(probe_.calls, 0);
    EXPECT_THAT(told_, testing::ElementsAre(testing::HasSubstr(place("search/101/clip.mov") + " or …")));
}

TEST_F(files_of_one_name, are_not_opened_when_there_is_only_one)
{
    const auto only = film("search/B/clip.mov", "12 24 960x540");
    EXPECT_EQ(found(), only);
    EXPECT_EQ(probe_.calls, 0);
}

TEST_F(mapped_media_, tells_the_folder_that_it_searches)
{
    file("search/day 1/other.mov");
    mapped_media media({}, {place("search")}, out_, display_);
    EXPECT_TRUE(display_.messages.empty());
    media.locate("/Volumes/X/clip.mov");
    const std::string message = "Searching " + place("search");
    EXPECT_EQ(display_.messages, (std::vector<std::string>{message, message, ""}));
}

TEST_F(mapped_media_, can_be_stopped_while_it_searches)
{
    class stopping_progress final : public progress {
        void begin(std::int64_t) override { }
        void advance(std::string_view) override { }
        void show_message(std::string_view) override { throw run_cancelled(); }
        void spin(std::string_view) override { }
        void end() override { }
    } stopped;
    file("search/other.mov");
    mapped_media media({}, {place("search")}, out_, stopped);
    EXPECT_THROW(media.locate("/Volumes/X/clip.mov"), run_cancelled);
}

} // namespace
