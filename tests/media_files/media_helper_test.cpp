// SPDX-License-Identifier: MIT
#include "media_files/media_helper.h"
#include "media_files/program_folders.h"
#include "run/failures.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <string>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

/// The next answer; nothing when the helper is of no use any more.
std::optional<message> answer_of(media_helper& helper)
{
    while (true) {
        pollfd awaited = helper.awaited();
        poll(&awaited, 1, 20);
        const bool is_well = helper.exchange();
        if (std::optional<message> answer = helper.next_answer())
            return answer;
        if (!is_well)
            return std::nullopt;
    }
}

/// What the helper says of a file that is neither sound nor film.
std::optional<message> answer_about(media_helper& helper, const std::filesystem::path& file)
{
    helper.open(media_file(file), {});
    helper.ask({message_kind::read_tags, {}});
    return answer_of(helper);
}

/// A program that does not do what a helper does.
std::filesystem::path impostor(const temporary_folder& folder, const std::string& commands)
{
    const auto file = write_file(folder.path() / "impostor", "#!/bin/sh\n" + commands);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return file;
}

class media_helper_ : public testing::Test {
protected:
    temporary_folder folder;
    std::filesystem::path file = write_file(folder.path() / "text.mov", "I am no film.");
};

TEST_F(media_helper_, answers_about_one_file_after_the_other)
{
    media_helper helper(media_program(), {});
    for (int i = 0; i < 3; ++i) {
        helper.open(media_file(file), {{1, 25}});
        helper.ask(message_of(picture_question{{1, 25}, 320}));
        helper.ask({message_kind::read_tags, {}});
        EXPECT_EQ(answer_of(helper), message_of(std::optional<jpeg_picture>()));
        EXPECT_EQ(answer_of(helper)->kind, message_kind::tags);
        EXPECT_EQ(helper.unanswered(), 0U);
    }
}

TEST_F(media_helper_, can_no_longer_be_looked_into_or_leave_a_core)
{
    media_helper helper(media_program(), {});
    answer_about(helper, file);
    const std::string process = "/proc/" + std::to_string(helper.process());
    std::string status;
    std::getline(std::ifstream(process + "/status"), status, '\0');
    EXPECT_NE(status.find("Seccomp:\t2"), std::string::npos) << status;
    EXPECT_NE(status.find("NoNewPrivs:\t1"), std::string::npos) << status;
    std::string limits;
    std::getline(std::ifstream(process + "/limits"), limits, '\0');
    EXPECT_NE(limits.find("Max core file size        0                    0"), std::string::npos) << limits;
}

TEST_F(media_helper_, is_of_no_use_when_it_was_ended)
{
    media_helper helper(media_program(), {});
    ASSERT_TRUE(answer_about(helper, file));
    kill(helper.process(), SIGKILL);
    EXPECT_EQ(answer_about(helper, file), std::nullopt);
}

TEST_F(media_helper_, is_of_no_use_when_it_is_silent_and_does_nothing)
{
    helper_limits limits;
    limits.silence = std::chrono::milliseconds(100);
    media_helper helper(media_program(), limits);
    ASSERT_TRUE(answer_about(helper, file));
    kill(helper.process(), SIGSTOP);
    EXPECT_EQ(answer_about(helper, file), std::nullopt);
}

TEST_F(media_helper_, has_a_limit_on_its_processor_time)
{
    helper_limits limits;
    limits.processor_time = std::chrono::seconds(0);
    media_helper helper(impostor(folder, "while true; do :; done\n"), limits);
    EXPECT_EQ(answer_about(helper, file), std::nullopt);
}

TEST_F(media_helper_, is_of_no_use_when_it_says_what_no_helper_says)
{
    const char* sayings[] = {
        "exit 0\n",
        // Its standard input is the socket: it can be written to as well.
        "printf '\\377\\377\\377\\377\\005' >&0; exec sleep 20\n", // four gigabytes of picture
        "printf '\\000\\000\\000\\000\\003\\000\\000\\000\\000\\003' >&0; exec sleep 20\n", // ready, twice
        "printf '\\000\\000\\000\\000\\002' >&0; exec sleep 20\n", // a question
        "printf '\\000\\000\\000\\000\\006\\000\\000\\000\\000\\006' >&0; exec sleep 20\n", // an answer too
                                                                                            // many
    };
    for (const char* saying : sayings) {
        media_helper helper(impostor(folder, saying), {});
        const std::optional<message> answer = answer_about(helper, file);
        EXPECT_TRUE(!answer || !answer_of(helper)) << saying;
    }
}

TEST_F(media_helper_, says_that_it_cannot_be_started)
{
    try {
        media_helper helper(folder.path() / "none", {});
        FAIL();
    } catch (const failure& refused) {
        EXPECT_STREQ(refused.what(),
                     "The part of the program that reads media files (tallyframe-media) cannot be started. "
                     "Install Tallyframe again, or report without thumbnails and tags. (No such file or "
                     "directory)");
    }
}

} // namespace
