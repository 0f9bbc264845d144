// SPDX-License-Identifier: MIT
#include "media_files/tag_readers.h"

#include "media_files/chunk_tags.h"
#include "media_files/tag_values.h"

#include <taglib/aifffile.h>
#include <taglib/apetag.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/id3v2tag.h>
#include <taglib/infotag.h>
#include <taglib/mpegfile.h>
#include <taglib/textidentificationframe.h>
#include <taglib/tiostream.h>
#include <taglib/tpropertymap.h>
#include <taglib/wavfile.h>
#include <taglib/xiphcomment.h>

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

namespace tallyframe {

namespace {

/// A library that looks for tags all through a file finds them in its first parts, or there are none: so many
/// bytes are read at most, and then the file has ended.
constexpr std::uint64_t most_bytes_read = 64U << 20U;

/// How the library reads a media file: through its descriptor, and never writing.
class media_stream final : public TagLib::IOStream {
public:
    media_stream(const media_file& file, const std::function<void()>& advance)
        : file_(file), advance_(advance)
    {
    }

    TagLib::FileName name() const override { return file_.name().c_str(); }
    bool isOpen() const override { return file_.is_open(); }
    bool readOnly() const override { return true; }
    long length() override { return static_cast<long>(file_.size()); }
    long tell() const override { return at_; }

    TagLib::ByteVector readBlock(unsigned long length) override
    {
        advance_();
        const std::uint64_t left =
            at_ < this->length() ? static_cast<std::uint64_t>(this->length() - at_) : 0;
        const std::uint64_t count = std::min({std::uint64_t{length}, left, most_bytes_read - bytes_read_});
        TagLib::ByteVector block(static_cast<unsigned int>(count), '\0');
        const std::size_t got =
            file_.read(static_cast<std::uint64_t>(at_),
                       {reinterpret_cast<std::uint8_t*>(block.data()), static_cast<std::size_t>(count)});
        block.resize(static_cast<unsigned int>(got));
        bytes_read_ += got;
        at_ += static_cast<long>(got);
        return block;
    }

    void seek(long offset, Position from) override
    {
        const long start = from == Beginning ? 0 : from == Current ? at_ : length();
        at_ = std::max(0L, start + std::clamp(offset, -start, LONG_MAX - start));
    }

    void writeBlock(const TagLib::ByteVector&) override { }
    void insert(const TagLib::ByteVector&, unsigned long, unsigned long) override { }
    void removeBlock(unsigned long, unsigned long) override { }
    void truncate(long) override { }

private:
    const media_file& file_;
    const std::function<void()>& advance_;
    long at_ = 0;
    std::uint64_t bytes_read_ = 0;
};

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
TagLib::PropertyMap properties_of_stream(TagLib::IOStream& bytes)
{
    TagLib::MPEG::File stream(&bytes, TagLib::ID3v2::FrameFactory::instance(), false);
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

std::optional<audio_tags> tags_in_file(const media_file& file, const std::function<void()>& advance)
{
    if (!file.is_open())
        return std::nullopt;
    media_stream stream(file, advance);
    const TagLib::FileRef media(&stream, false);
    const std::optional<TagLib::PropertyMap> chunks = chunk_tags(stream);
    const bool is_stream = media.isNull() && is_bare_stream(file.name());
    if (media.isNull() && !chunks && !is_stream)
        return std::nullopt;
    TagLib::PropertyMap properties;
    if (!media.isNull())
        properties = properties_of(*media.file());
    if (is_stream)
        properties = properties_of_stream(stream);
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

} // namespace tallyframe
