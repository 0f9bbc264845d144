// SPDX-License-Identifier: MIT
#include "media_files/mdls_tag_reader.h"

#include "media_files/mdls_output.h"

#include <vector>

namespace tallyframe {

std::optional<audio_tags> mdls_tag_reader::tags_of(const std::filesystem::path& file)
{
    std::vector<std::string> arguments;
    for (const char* attribute : mdls_attributes)
        arguments.insert(arguments.end(), {"-name", attribute});
    // A relative path may begin like an option.
    const std::filesystem::path path = file.is_absolute() ? file : "." / file;
    arguments.insert(arguments.end(), {"-raw", "-nullMarker", "", path.string()});
    return tags_in_mdls_output(output_of(program_, arguments, limits_).value_or(""));
}

std::optional<audio_tags> remembered_tags::tags_of(const std::filesystem::path& file)
{
    const auto [entry, is_new] = by_file_.try_emplace(file.string());
    if (is_new)
        entry->second = reader_.tags_of(file);
    return entry->second;
}

} // namespace tallyframe
