// SPDX-License-Identifier: MIT
#include "sheets/audio_tags.h"

namespace tallyframe {

const audio_tags* audio_tag_catalogue::tags_of(const clip_record& record)
{
    if (record.place.track.find('A') == std::string::npos || !record.path)
        return nullptr;
    // A double quote in a path has always ended the query early: such rows have no tags in any list.
    if (record.path->find('"') != std::string::npos)
        return nullptr;

    const auto [entry, is_new] = by_path_.try_emplace(*record.path);
    if (is_new) {
        if (const auto file = locator_.locate(*record.path))
            entry->second = reader_.tags_of(*file);
    }
    return entry->second ? &*entry->second : nullptr;
}

} // namespace tallyframe
