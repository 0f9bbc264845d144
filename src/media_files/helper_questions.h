// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/media_helper.h"
#include "run/progress.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace tallyframe {

/// Asks a helper one question after the other. It is started for the first, and anew after one was lost.
class helper_questions {
public:
    /// `display` may stop the run and must outlive this.
    helper_questions(std::filesystem::path program, const helper_limits& limits, progress& display);

    /// The answer to a question about a file that is open; nothing when two helpers were lost over it.
    std::optional<message> answer_about(const media_file& file, message_kind question);

private:
    bool start();
    std::optional<message> answer_of_one_helper(const media_file& file, message_kind question);

    std::filesystem::path program_;
    helper_limits limits_;
    progress& display_;
    std::unique_ptr<media_helper> helper_;
};

} // namespace tallyframe
