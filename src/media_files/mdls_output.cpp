// SPDX-License-Identifier: MIT
#include "media_files/mdls_output.h"

#include "media_files/tag_values.h"

#include <algorithm>
#include <cstddef>
#include <string>
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

/// The lines between the one that opens the list and the one that closes it.
std::vector<std::string> lines_of_list(std::string_view list)
{
    const std::vector<std::string_view> lines = split(list, '\n');
    if (lines.size() < 2)
        return {};
    return {lines.begin() + 1, lines.end() - 1};
}

} // namespace

std::optional<audio_tags> tags_in_mdls_output(std::string_view output)
{
    if (output.empty())
        return std::nullopt;
    std::vector<std::string_view> values = split(output, '\0');
    values.resize(mdls_attributes.size()); // values beyond the end of the output are empty
    return audio_tags{
        .song_title = std::string(values[7]),
        .album = std::string(values[0]),
        .track_number = number_in_tag(values[1]),
        .year = number_in_tag(values[6]),
        .musical_genre = std::string(values[4]),
        .authors = joined_authors(lines_of_list(values[2])),
        .composer = std::string(values[3]),
        .producer = std::string(values[5]),
    };
}

} // namespace tallyframe
