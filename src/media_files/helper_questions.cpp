// SPDX-License-Identifier: MIT
#include "media_files/helper_questions.h"

#include "run/failures.h"

#include <poll.h>

#include <utility>

namespace tallyframe {

namespace {

/// How long Ctrl-C and Cancel wait at most.
constexpr int milliseconds_between_looks = 100;

constexpr int most_tries = 2;

} // namespace

helper_questions::helper_questions(std::filesystem::path program, const helper_limits& limits,
                                   progress& display)
    : program_(std::move(program)), limits_(limits), display_(display)
{
}

std::optional<message> helper_questions::answer_about(const media_file& file, message_kind question)
{
    for (int i = 0; i < most_tries; ++i) {
        if (std::optional<message> answer = answer_of_one_helper(file, question))
            return answer;
        helper_.reset();
    }
    return std::nullopt;
}

bool helper_questions::start()
{
    try {
        helper_ = std::make_unique<media_helper>(program_, limits_);
        return true;
    } catch (const failure&) {
        return false;
    }
}

std::optional<message> helper_questions::answer_of_one_helper(const media_file& file, message_kind question)
{
    if (!helper_ && !start())
        return std::nullopt;
    helper_->open(file, {});
    helper_->ask({question, {}});
    while (true) {
        pollfd awaited = helper_->awaited();
        poll(&awaited, 1, milliseconds_between_looks);
        display_.leave_if_cancelled();
        const bool is_well = helper_->exchange();
        if (std::optional<message> answer = helper_->next_answer())
            return answer;
        if (!is_well)
            return std::nullopt;
    }
}

} // namespace tallyframe
