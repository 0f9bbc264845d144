// SPDX-License-Identifier: MIT
#include "media_files/tag_readers.h"

#include "media_files/mdls_output.h"
#include "media_files/tag_values.h"

#include <taglib/fileref.h>
#include <taglib/tpropertymap.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <vector>

namespace tallyframe {

namespace {

/// A text as it fits into one line of a cell.
std::string one_line(const TagLib::String& text)
{
    std::string line = text.to8Bit(true);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\0' || c == '\n' || c == '\r'; }, ' ');
    return line;
}

std::string value_of(const TagLib::PropertyMap& properties, const char* name)
{
    return one_line(properties[name].toString(", "));
}

/// Each but the last with the comma behind it that a printed list has.
std::vector<std::string> lines_of(const TagLib::StringList& names)
{
    std::vector<std::string> lines;
    for (const TagLib::String& name : names)
        lines.push_back(one_line(name) + (&name == &names.back() ? "" : ","));
    return lines;
}

} // namespace

std::optional<audio_tags> taglib_tag_reader::tags_of(const std::filesystem::path& file)
{
    errno = 0;
    const TagLib::FileRef media(file.c_str(), false);
    if (media.isNull() && errno == ENOMEM)
        throw std::bad_alloc();
    if (media.isNull())
        return std::nullopt;
    const TagLib::PropertyMap properties = media.file()->properties();
    return audio_tags{
        .song_title = value_of(properties, "TITLE"),
        .album = value_of(properties, "ALBUM"),
        .track_number = number_in_tag(value_of(properties, "TRACKNUMBER")),
        .year = number_in_tag(value_of(properties, "DATE")),
        .musical_genre = value_of(properties, "GENRE"),
        .authors = joined_authors(lines_of(properties["ARTIST"])),
        .composer = value_of(properties, "COMPOSER"),
        .producer = value_of(properties, "PRODUCER"),
    };
}

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
        entry->second = reader_->tags_of(file);
    return entry->second;
}

std::unique_ptr<audio_tag_reader> tag_reader_of_this_system()
{
    if (auto program = program_on_path("mdls"))
        return std::make_unique<mdls_tag_reader>(std::move(*program));
    return std::make_unique<taglib_tag_reader>();
}

} // namespace tallyframe
