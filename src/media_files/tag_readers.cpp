// SPDX-License-Identifier: MIT
#include "media_files/tag_readers.h"

#include "media_files/chunk_tags.h"
#include "media_files/mdls_output.h"
#include "media_files/tag_values.h"

#include <taglib/aifffile.h>
#include <taglib/apetag.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/infotag.h>
#include <taglib/mpegfile.h>
#include <taglib/textidentificationframe.h>
#include <taglib/tfilestream.h>
#include <taglib/tpropertymap.h>
#include <taglib/wavfile.h>
#include <taglib/xiphcomment.h>

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

/// Takes over the properties that `known` lacks.
void fill_up(TagLib::PropertyMap& known, const TagLib::PropertyMap& others)
{
    for (const auto& [name, texts] : others) {
        if (known[name].toString().stripWhiteSpace().isEmpty())
            known.replace(name, texts);
    }
}

/// Roles that a list of involved people names in lower case, which the library passes over.
TagLib::PropertyMap involved_people(const TagLib::ID3v2::Tag& tag)
{
    TagLib::PropertyMap people;
    for (const TagLib::ID3v2::Frame* frame : tag.frameList("TIPL")) {
        const auto* list = dynamic_cast<const TagLib::ID3v2::TextIdentificationFrame*>(frame);
        if (list == nullptr)
            continue;
        const TagLib::StringList texts = list->fieldList();
        for (unsigned i = 0; i + 1 < texts.size(); i += 2) {
            const TagLib::String role = texts[i].upper();
            if (role == "PRODUCER" || role == "COMPOSER")
                people[role].append(texts[i + 1]);
        }
    }
    return people;
}

// The library's call of this name is not virtual.
template <class Tag>
TagLib::PropertyMap properties_of_tag(const Tag& tag)
{
    return tag.properties();
}

template <>
TagLib::PropertyMap properties_of_tag(const TagLib::ID3v2::Tag& tag)
{
    TagLib::PropertyMap properties = tag.properties();
    fill_up(properties, involved_people(tag));
    return properties;
}

/// What the tags of one file say together: the first that knows a property decides. Those that the file does
/// not have are null.
template <class... Tags>
TagLib::PropertyMap joined(const Tags*... tags)
{
    TagLib::PropertyMap properties;
    (fill_up(properties, tags != nullptr ? properties_of_tag(*tags) : TagLib::PropertyMap()), ...);
    return properties;
}

/// A file may carry tags of several kinds, of which the library gives only those of the first.
TagLib::PropertyMap properties_of(TagLib::File& file)
{
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(&file))
        return joined(mpeg->ID3v2Tag(), mpeg->APETag(), mpeg->ID3v1Tag());
    if (auto* wav = dynamic_cast<TagLib::RIFF::WAV::File*>(&file))
        return joined(wav->ID3v2Tag(), wav->InfoTag());
    if (auto* flac = dynamic_cast<TagLib::FLAC::File*>(&file))
        return joined(flac->xiphComment(), flac->ID3v2Tag(), flac->ID3v1Tag());
    if (auto* aiff = dynamic_cast<TagLib::RIFF::AIFF::File*>(&file))
        return joined(aiff->tag());
    return file.properties();
}

bool is_bare_stream(const std::filesystem::path& file)
{
    return TagLib::String(file.extension().string()).upper() == ".AAC";
}

/// The tags in front of and behind a stream that has no container.
TagLib::PropertyMap properties_of_stream(const std::filesystem::path& file)
{
    TagLib::MPEG::File stream(file.c_str(), false);
    return properties_of(stream);
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
    TagLib::FileStream bytes(file.c_str(), true);
    const std::optional<TagLib::PropertyMap> chunks = chunk_tags(bytes);
    const bool is_stream = media.isNull() && is_bare_stream(file) && bytes.isOpen();
    if (media.isNull() && !chunks && !is_stream)
        return std::nullopt;
    TagLib::PropertyMap properties;
    if (!media.isNull())
        properties = properties_of(*media.file());
    if (is_stream)
        properties = properties_of_stream(file);
    if (chunks)
        fill_up(properties, *chunks);
    TagLib::PropertyMap year;
    year.insert("DATE", properties["YEAR"]);
    fill_up(properties, year);
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
