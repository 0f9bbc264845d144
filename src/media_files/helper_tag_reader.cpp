// SPDX-License-Identifier: MIT
#include "media_files/helper_tag_reader.h"

#include <utility>

namespace tallyframe {

std::optional<audio_tags> helper_tag_reader::tags_of(const std::filesystem::path& file)
{
    const media_file opened(file);
    if (!opened.is_open())
        return std::nullopt;
    const std::optional<message> answer = questions_.answer_about(opened, message_kind::read_tags);
    std::optional<tags_answer> said =
        answer && answer->kind == message_kind::tags ? tags_in(*answer) : std::nullopt;
    if (said)
        return std::move(said->tags);
    lost_.add(loss_kind::unread_tags, 1, file.string());
    return std::nullopt;
}

} // namespace tallyframe
