// SPDX-License-Identifier: MIT
#include "media_files/helper_media_probe.h"

#include <utility>

namespace tallyframe {

std::optional<media_facts> helper_media_probe::facts_of(const std::filesystem::path& file)
{
    const media_file opened(file);
    if (!opened.is_open())
        return std::nullopt;
    const std::optional<message> answer = questions_.answer_about(opened, message_kind::read_facts);
    std::optional<facts_answer> said =
        answer && answer->kind == message_kind::facts ? facts_in(*answer) : std::nullopt;
    return said ? std::move(said->facts) : std::nullopt;
}

} // namespace tallyframe
