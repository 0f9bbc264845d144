// SPDX-License-Identifier: MIT
#include "support/small_files.h"
#include "support/temporary_folder.h"
#include "workbook/file/saved_file.h"
#include "workbook/read_back.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace fs = std::filesystem;

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using namespace tallyframe::testing_support;

namespace {

int permissions_of(const fs::path& path)
{
    return static_cast<int>(fs::status(path).permissions());
}

/// Closes a workbook of one cell at the path. Answers what it was refused with, or nothing.
std::string save_at(const fs::path& path, std::size_t rows = 1)
{
    xls::workbook book(path);
    auto& sheet = book.add_worksheet("All Reels");
    for (std::size_t row = 0; row < rows; ++row)
        sheet.write_number(row, 0, 0.1);
    try {
        book.close();
    } catch (const xls::workbook_error& error) {
        return error.what();
    }
    return {};
}

std::string refusal_of(const fs::path& path, const std::string& reason)
{
    return "The workbook \"" + path.string() + "\" was not saved: " + reason;
}

const std::string compound_file_start = "\xD0\xCF\x11\xE0";

/// Runs an action in a process of its own and answers the text it gives.
template <class Action>
std::string in_a_process(Action action)
{
    int ends[2]{};
    if (pipe(ends) != 0)
        return "no pipe";
    const auto child = fork();
    if (child == 0) {
        const std::string answer = action();
        const auto written = write(ends[1], answer.data(), answer.size());
        _exit(written < 0 ? 1 : 0);
    }
    close(ends[1]);
    std::string answer;
    char byte = 0;
    while (read(ends[0], &byte, 1) == 1)
        answer += byte;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return answer;
}

/// The same as a user without rights.
template <class Action>
std::string as_nobody(Action action)
{
    return in_a_process([&]() -> std::string {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0 && setuid(nobody) != 0)
            return "cannot become nobody";
        return action();
    });
}

} // namespace

TEST(close, writes_a_new_file_by_the_umask)
{
    const temporary_folder folder;
    const auto before = umask(027);
    EXPECT_EQ(save_at(folder / "a.xls"), "");
    umask(before);
    EXPECT_THAT(content_of(folder / "a.xls"), StartsWith(compound_file_start));
    EXPECT_EQ(permissions_of(folder / "a.xls"), 0640);
    EXPECT_THAT(folder.names(), ElementsAre("a.xls"));
}

TEST(close, replaces_an_older_file_and_keeps_its_permissions)
{
    const temporary_folder folder;
    write_file(folder / "a.xls", "old");
    fs::permissions(folder / "a.xls", fs::perms{0604});
    EXPECT_EQ(save_at(folder / "a.xls"), "");
    EXPECT_THAT(content_of(folder / "a.xls"), StartsWith(compound_file_start));
    EXPECT_EQ(permissions_of(folder / "a.xls"), 0604);
    EXPECT_THAT(folder.names(), ElementsAre("a.xls"));
}

TEST(close, writes_into_the_current_folder)
{
    const scratch_folder folder;
    EXPECT_EQ(save_at("a.xls"), "");
    EXPECT_THAT(folder.files(), ElementsAre("a.xls"));
}

TEST(close, follows_symbolic_links)
{
    const temporary_folder folder;
    fs::create_directory(folder / "reports");
    write_file(folder / "reports" / "real.xls", "old");
    fs::create_symlink("reports/real.xls", folder / "near.xls");
    fs::create_symlink(folder / "near.xls", folder / "far.xls");
    EXPECT_EQ(save_at(folder / "far.xls"), "");
    EXPECT_TRUE(fs::is_symlink(folder / "far.xls"));
    EXPECT_TRUE(fs::is_symlink(folder / "near.xls"));
    EXPECT_THAT(content_of(folder / "reports" / "real.xls"), StartsWith(compound_file_start));

    fs::create_symlink("reports/not-yet.xls", folder / "dangling.xls");
    EXPECT_EQ(save_at(folder / "dangling.xls"), "");
    EXPECT_TRUE(fs::exists(folder / "reports" / "not-yet.xls"));
}

TEST(close, leaves_the_other_names_of_an_older_file_their_content)
{
    const temporary_folder folder;
    write_file(folder / "a.xls", "old");
    fs::create_hard_link(folder / "a.xls", folder / "b.xls");
    EXPECT_EQ(save_at(folder / "a.xls"), "");
    EXPECT_THAT(content_of(folder / "a.xls"), StartsWith(compound_file_start));
    EXPECT_EQ(content_of(folder / "b.xls"), "old");
}

TEST(close, refuses_a_circle_of_links)
{
    const temporary_folder folder;
    fs::create_symlink("b.xls", folder / "a.xls");
    fs::create_symlink("a.xls", folder / "b.xls");
    EXPECT_THAT(save_at(folder / "a.xls"), HasSubstr("links"));
    EXPECT_THAT(folder.names(), ElementsAre("a.xls", "b.xls"));
}

TEST(close, refuses_a_read_only_file)
{
    const temporary_folder folder;
    write_file(folder / "a.xls", "old");
    fs::permissions(folder / "a.xls", fs::perms{0444});
    EXPECT_EQ(save_at(folder / "a.xls"),
              refusal_of(folder / "a.xls",
                         "there is a file of this name that is read-only. Choose another name or unlock the "
                         "file."));
    EXPECT_EQ(content_of(folder / "a.xls"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.xls"));
}

TEST(close, refuses_what_is_no_file)
{
    const temporary_folder folder;
    fs::create_directory(folder / "a.xls");
    EXPECT_EQ(save_at(folder / "a.xls"),
              refusal_of(folder / "a.xls", "there is a folder of this name. Choose another name."));
    EXPECT_EQ(
        save_at("/dev/null"),
        refusal_of("/dev/null", "there is something of this name that is not a file. Choose another name."));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(close, says_that_the_folder_is_missing)
{
    const temporary_folder folder;
    EXPECT_EQ(save_at(folder / "none/a.xls"),
              refusal_of(folder / "none/a.xls", "its folder does not exist. Choose another folder."));
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(close, says_that_the_folder_takes_no_files)
{
    const temporary_folder folder;
    write_file(folder / "a.xls", "old");
    fs::permissions(folder / "a.xls", fs::perms{0666});
    fs::permissions(folder.path(), fs::perms{0555});
    EXPECT_EQ(as_nobody([&] { return save_at(folder / "a.xls"); }),
              refusal_of(folder / "a.xls", "its folder does not allow new files. Choose another folder."));
    EXPECT_EQ(content_of(folder / "a.xls"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.xls"));
}

TEST(close, leaves_the_old_file_when_the_new_one_may_not_be_as_large)
{
    const temporary_folder folder;
    write_file(folder / "a.xls", "old");
    fs::permissions(folder.path(), fs::perms{0777});
    fs::permissions(folder / "a.xls", fs::perms{0666});
    const auto full = as_nobody([&] {
        const rlimit small{.rlim_cur = 100000, .rlim_max = 100000};
        setrlimit(RLIMIT_FSIZE, &small);
        return save_at(folder / "a.xls", 60000);
    });
    EXPECT_THAT(full, HasSubstr("larger than files may be"));
    EXPECT_EQ(content_of(folder / "a.xls"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.xls"));
}

TEST(close, leaves_the_old_file_when_the_disk_is_full)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only the superuser can mount a small disk";
    const temporary_folder folder;
    const auto answer = in_a_process([&]() -> std::string {
        if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
            || mount("tmpfs", folder.path().c_str(), "tmpfs", 0, "size=256k") != 0)
            return "no disk";
        write_file(folder / "a.xls", "old");
        const auto refusal = save_at(folder / "a.xls", 60000);
        return refusal + "\n" + content_of(folder / "a.xls") + "\n" + testing::PrintToString(folder.names());
    });
    if (answer == "no disk")
        GTEST_SKIP() << "no disk can be mounted here";
    EXPECT_THAT(answer, AllOf(HasSubstr("the disk is full"), EndsWith("\nold\n{ \"a.xls\" }")));
}

TEST(close, can_be_tried_again_after_a_failure)
{
    const temporary_folder folder;
    xls::workbook book(folder / "later/a.xls");
    book.add_worksheet("All Reels").write_string(0, 0, "a");
    EXPECT_THROW(book.close(), xls::workbook_error);
    fs::create_directory(folder / "later");
    book.close();
    EXPECT_EQ(read_back(folder / "later/a.xls").size(), 2U);
}

TEST(close, says_that_the_name_is_too_long)
{
    const temporary_folder folder;
    const auto path = folder / (std::string(252, 'x') + ".xls");
    EXPECT_EQ(save_at(path), refusal_of(path, "its name is too long. Choose a shorter name."));
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(close, lets_its_caller_act_and_refuse_before_the_file_takes_its_place)
{
    const temporary_folder folder;
    write_file(folder / "a.xls", "old");
    xls::workbook book(folder / "a.xls");
    book.add_worksheet("All Reels");
    EXPECT_THROW(book.close([] { throw std::runtime_error("no"); }), std::runtime_error);
    EXPECT_THAT(folder.names(), ElementsAre("a.xls"));
    std::string seen;
    book.close([&] { seen = content_of(folder / "a.xls"); });
    EXPECT_EQ(seen, "old");
    EXPECT_THAT(content_of(folder / "a.xls"), StartsWith(compound_file_start));
}

TEST(check_target, refuses_what_close_would_and_touches_nothing)
{
    const temporary_folder folder;
    write_file(folder / "a.xls", "old");
    xls::check_target(folder / "a.xls");
    xls::check_target(folder / "b.xls");
    EXPECT_EQ(content_of(folder / "a.xls"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.xls"));
    try {
        xls::check_target(folder / "none/a.xls");
        FAIL() << "not refused";
    } catch (const xls::workbook_error& error) {
        EXPECT_EQ(error.what(),
                  refusal_of(folder / "none/a.xls", "its folder does not exist. Choose another folder."));
    }
}

TEST(close, touches_nothing_when_a_sheet_is_too_long)
{
    const temporary_folder folder;
    write_file(folder / "a.xls", "old");
    EXPECT_THAT(save_at(folder / "a.xls", 65537), HasSubstr("65,537 rows"));
    EXPECT_EQ(content_of(folder / "a.xls"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("a.xls"));
}

TEST(saved_file, vanishes_unless_it_is_published)
{
    const temporary_folder folder;
    {
        const xls::saved_file file(folder / "a.xls");
        EXPECT_EQ(folder.names().size(), 1U);
    }
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(saved_file, says_that_the_folder_went_away)
{
    const temporary_folder folder;
    fs::create_directory(folder / "reports");
    xls::saved_file file(folder / "reports/a.xls");
    fs::remove_all(folder / "reports");
    try {
        file.publish();
        FAIL() << "published";
    } catch (const xls::workbook_error& error) {
        EXPECT_THAT(error.what(), HasSubstr("folder does not exist"));
    }
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(saved_file, finishes_before_a_signal_ends_the_program)
{
    const temporary_folder folder;
    fs::permissions(folder.path(), fs::perms{0777});
    const auto child = fork();
    if (child == 0) {
        {
            xls::saved_file file(folder / "a.xls");
            raise(SIGTERM);
            std::fputs("whole", file.stream());
            file.publish();
        }
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(content_of(folder / "a.xls"), "whole");
    EXPECT_THAT(folder.names(), ElementsAre("a.xls"));
}
