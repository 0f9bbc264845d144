// SPDX-License-Identifier: MIT
#include "platform/media_tools/tag_readers.h"

#include <taglib/fileref.h>
#include <taglib/tpropertymap.h>

#include <algorithm>

namespace tallyframe {

namespace {

/// A value as one line: what separates values and lines in the raw form cannot stand in it.
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

std::string list_of(const TagLib::StringList& names)
{
    if (names.isEmpty())
        return {};
    std::string list = "(\n";
    for (const TagLib::String& name : names) {
        const bool is_last = &name == &names.back();
        list += "    \"" + one_line(name) + (is_last ? "\"\n" : "\",\n");
    }
    return list + ")";
}

} // namespace

std::string taglib_tag_reader::raw_tags(const std::filesystem::path& file)
{
    const TagLib::FileRef media(file.c_str(), false);
    if (media.isNull())
        return {};
    const TagLib::PropertyMap properties = media.file()->properties();
    const std::string values[] = {
        value_of(properties, "ALBUM"), value_of(properties, "TRACKNUMBER"),
        list_of(properties["ARTIST"]), value_of(properties, "COMPOSER"),
        value_of(properties, "GENRE"), value_of(properties, "PRODUCER"),
        value_of(properties, "DATE"),  value_of(properties, "TITLE"),
    };
    std::string raw;
    for (const std::string& value : values)
        raw += value + '\0';
    return raw;
}

std::string mdls_tag_reader::raw_tags(const std::filesystem::path& file)
{
    std::vector<std::string> arguments;
    for (const char* attribute :
         {"kMDItemAlbum", "kMDItemAudioTrackNumber", "kMDItemAuthors", "kMDItemComposer",
          "kMDItemMusicalGenre", "kMDItemProducer", "kMDItemRecordingYear", "kMDItemTitle"}) {
        arguments.insert(arguments.end(), {"-name", attribute});
    }
    // A relative path may begin like an option.
    const std::filesystem::path path = file.is_absolute() ? file : "." / file;
    arguments.insert(arguments.end(), {"-raw", "-nullMarker", "", path.string()});
    return output_of(program_, arguments, limits_).value_or("");
}

std::string remembered_tags::raw_tags(const std::filesystem::path& file)
{
    const auto [entry, is_new] = by_file_.try_emplace(file.string());
    if (is_new)
        entry->second = reader_->raw_tags(file);
    return entry->second;
}

std::unique_ptr<audio_tag_reader> tag_reader_of_this_system()
{
    if (auto program = program_on_path("mdls"))
        return std::make_unique<mdls_tag_reader>(std::move(*program));
    return std::make_unique<taglib_tag_reader>();
}

} // namespace tallyframe
