// SPDX-License-Identifier: MIT
#include "sheets/audio_tags.h"

#include "document/text_values.h"

#include <vector>

namespace tallyframe {

namespace {

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> pieces;
    while (true) {
        const std::size_t end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return pieces;
        text.remove_prefix(end + 1);
    }
}

/// "7/12" is track 7; a text without a number counts as 0, an empty one as no number at all.
std::optional<double> leading_whole_number(std::string_view text)
{
    if (text.empty())
        return std::nullopt;
    return static_cast<double>(leading_integer(text));
}

/// The names of a list: every line between the one that opens it and the one that closes it. The comma that
/// the list puts after a name stays, so that two names read "A,, B".
std::string joined_authors(std::string_view list)
{
    const std::vector<std::string_view> lines = split(list, '\n');
    std::string joined;
    for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
        std::string name(lines[i]);
        std::erase(name, '"');
        if (i > 1)
            joined += ", ";
        joined += trimmed(name);
    }
    return joined;
}

} // namespace

std::optional<audio_tags> parse_audio_tags(std::string_view raw)
{
    if (raw.empty())
        return std::nullopt;
    const std::vector<std::string_view> values = split(raw, '\0');
    const auto value = [&](std::size_t position) {
        return position < values.size() ? values[position] : std::string_view();
    };
    return audio_tags{
        .song_title = std::string(value(7)),
        .album = std::string(value(0)),
        .track_number = leading_whole_number(value(1)),
        .year = leading_whole_number(value(6)),
        .musical_genre = std::string(value(4)),
        .authors = joined_authors(value(2)),
        .composer = std::string(value(3)),
        .producer = std::string(value(5)),
    };
}

const audio_tags* audio_tag_catalogue::tags_of(const clip_record& record)
{
    if (record.track.find('A') == std::string::npos || !record.path)
        return nullptr;
    // A double quote in a path has always ended the query early: such rows have no tags in any list.
    if (record.path->find('"') != std::string::npos)
        return nullptr;

    const auto [entry, is_new] = by_path_.try_emplace(*record.path);
    if (is_new) {
        if (const auto file = locator_.locate(*record.path))
            entry->second = parse_audio_tags(reader_.raw_tags(*file));
    }
    return entry->second ? &*entry->second : nullptr;
}

} // namespace tallyframe
