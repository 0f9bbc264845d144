// SPDX-License-Identifier: MIT
//
//     AIFF        "FORM" size: u32 "AIFF" | id: 4, size: u32, body, to an even end | ...
//                 NAME and AUTH hold a text
//     CAF         "caff", 4 bytes         | id: 4, size: i64, body | ...             size -1: to the end
//                 info                    count: u32 | name 0 text 0 | ...
//     W64         id: 16, size, id: 16    | id: 16, size with this head: u64, body, to a multiple of 8 | ...
//                 summary list            count: u32 | id: 4, size: u32, text in UTF-16 | ...
//     QuickTime   size with this head: u32, id: 4, body | ...                        size 1: a u64 follows
//                 moov > udta > ©nam      size: u16, language: u16, text | ...
//                 moov > meta > keys      0: u32 | count: u32 | size with this head: u32, "mdta", name | ...
//                             > ilst > n  "data" atom: kind: u32, language: u32, text
//     Matroska    id, size, body | ...    both of 1 to 8 bytes: as many as their first byte has leading zeros
//                 Segment > Info > Title
//                 Segment > Tags > Tag > Targets > level; > SimpleTag > name, text
//
// Numbers stand with their highest byte first, those of W64 with their lowest.
#include "media_files/chunk_tags.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tallyframe {

namespace {

using namespace std::string_view_literals;

using offset = std::int64_t;

/// A part of a file and what it holds.
struct chunk {
    std::string id;
    offset body = 0;
    offset end = 0;
    offset next = 0; ///< where the chunk behind it starts
};

/// Reads little at a time, and not for ever: a file may be full of empty chunks.
class chunked_file {
public:
    explicit chunked_file(TagLib::IOStream& file) : file_(file), length_(file.length()) { }

    offset length() const { return length_; }

    /// As much of it as there is.
    std::string bytes(offset at, offset size)
    {
        constexpr offset most = 1 << 16;
        if (at < 0 || at >= length_ || size <= 0)
            return {};
        file_.seek(static_cast<long>(at));
        const TagLib::ByteVector read = file_.readBlock(static_cast<unsigned long>(std::min(size, most)));
        return {read.data(), read.size()};
    }

    std::string bytes_of(const chunk& part) { return bytes(part.body, part.end - part.body); }

    bool may_go_on() { return --chunks_left_ > 0; }

private:
    TagLib::IOStream& file_;
    offset length_;
    int chunks_left_ = 100'000;
};

/// Nothing when the bytes are too few, or the number too large to be a size.
std::optional<offset> number_in(std::string_view bytes, std::size_t at, std::size_t size,
                                bool lowest_first = false)
{
    if (at > bytes.size() || size > bytes.size() - at)
        return std::nullopt;
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[at + (lowest_first ? size - 1 - i : i)]);
        number = number << 8U | byte;
    }
    return number <= INT64_MAX ? std::optional(static_cast<offset>(number)) : std::nullopt;
}

/// The chunk at a place, which ends where the one around it does at the latest.
using head_reader = std::optional<chunk>(chunked_file& file, offset at, offset end);

chunk chunk_of(std::string id, offset body, offset size, offset end, offset multiple)
{
    const offset own_end = size <= end - body ? body + size : end;
    return {std::move(id), body, own_end, own_end + (multiple - (own_end - body) % multiple) % multiple};
}

std::optional<chunk> iff_head(chunked_file& file, offset at, offset end)
{
    const std::string head = file.bytes(at, 8);
    const auto size = number_in(head, 4, 4);
    return size ? std::optional(chunk_of(head.substr(0, 4), at + 8, *size, end, 2)) : std::nullopt;
}

std::optional<chunk> caf_head(chunked_file& file, offset at, offset end)
{
    const std::string head = file.bytes(at, 12);
    if (head.size() < 12)
        return std::nullopt;
    return chunk_of(head.substr(0, 4), at + 12, number_in(head, 4, 8).value_or(end), end, 1);
}

std::optional<chunk> w64_head(chunked_file& file, offset at, offset end)
{
    constexpr offset head_size = 24;
    const std::string head = file.bytes(at, head_size);
    const auto size = number_in(head, 16, 8, true);
    if (!size || *size < head_size)
        return std::nullopt;
    return chunk_of(head.substr(0, 16), at + head_size, *size - head_size, end, 8);
}

std::optional<chunk> atom_head(chunked_file& file, offset at, offset end)
{
    const std::string head = file.bytes(at, 16);
    const auto short_size = number_in(head, 0, 4);
    const bool is_long = short_size == 1;
    const offset head_size = is_long ? 16 : 8;
    const auto size = is_long ? number_in(head, 8, 8) : short_size == 0 ? end - at : short_size;
    if (head.size() < 8 || !size || *size < head_size)
        return std::nullopt;
    return chunk_of(head.substr(4, 4), at + head_size, *size - head_size, end, 1);
}

/// How many bytes a number of Matroska has.
std::size_t length_of_number(std::string_view bytes, std::size_t at)
{
    std::size_t length = 1;
    for (unsigned bit = 0x80; bit != 0 && at < bytes.size(); bit >>= 1U, ++length) {
        if ((static_cast<unsigned char>(bytes[at]) & bit) != 0)
            break;
    }
    return length;
}

std::optional<chunk> element_head(chunked_file& file, offset at, offset end)
{
    const std::string head = file.bytes(at, 12);
    const std::size_t id_length = length_of_number(head, 0);
    const std::size_t size_length = length_of_number(head, id_length);
    const auto marked_size = number_in(head, id_length, size_length);
    if (id_length > 4 || size_length > 8 || !marked_size)
        return std::nullopt;
    const offset mark = offset{1} << (7 * size_length);
    const offset size = *marked_size - mark;
    const bool is_unknown = size == mark - 1;
    return chunk_of(head.substr(0, id_length), at + static_cast<offset>(id_length + size_length),
                    is_unknown ? end : size, end, 1);
}

void for_each_chunk(chunked_file& file, head_reader* head, offset from, offset to,
                    const std::function<void(const chunk&)>& visit)
{
    const offset end = std::min(to, file.length());
    while (from < end && file.may_go_on()) {
        const std::optional<chunk> found = head(file, from, end);
        if (!found || found->next <= from)
            return;
        visit(*found);
        from = found->next;
    }
}

struct tag_name {
    std::string_view in_file; ///< lower case where a file may write it in any
    const char* property;
};

constexpr tag_name aiff_names[] = {{"NAME", "TITLE"}, {"AUTH", "ARTIST"}};

constexpr tag_name info_names[] = {{"INAM", "TITLE"},       {"IPRD", "ALBUM"},    {"IPRT", "TRACKNUMBER"},
                                   {"ITRK", "TRACKNUMBER"}, {"ICRD", "DATE"},     {"IGNR", "GENRE"},
                                   {"IMUS", "COMPOSER"},    {"IPRO", "PRODUCER"}, {"IART", "ARTIST"}};

constexpr tag_name quicktime_names[] = {{"\xA9nam", "TITLE"},
                                        {"\xA9"
                                         "alb",
                                         "ALBUM"},
                                        {"\xA9trk", "TRACKNUMBER"},
                                        {"\xA9"
                                         "day",
                                         "DATE"},
                                        {"\xA9gen", "GENRE"},
                                        {"\xA9"
                                         "ART",
                                         "ARTIST"},
                                        {"\xA9wrt", "COMPOSER"},
                                        {"\xA9"
                                         "com",
                                         "COMPOSER"},
                                        {"\xA9prd", "PRODUCER"}};

/// Words for tags, as CAF, Matroska and QuickTime's keys have them.
constexpr tag_name words[] = {{"title", "TITLE"},
                              {"album", "ALBUM"},
                              {"track number", "TRACKNUMBER"},
                              {"track", "TRACKNUMBER"},
                              {"part_number", "TRACKNUMBER"},
                              {"year", "DATE"},
                              {"date", "DATE"},
                              {"recorded date", "DATE"},
                              {"date_released", "DATE"},
                              {"date_recorded", "DATE"},
                              {"creationdate", "DATE"},
                              {"genre", "GENRE"},
                              {"artist", "ARTIST"},
                              {"author", "ARTIST"},
                              {"composer", "COMPOSER"},
                              {"producer", "PRODUCER"}};

template <std::size_t Count>
const char* property_of(std::string_view name, const tag_name (&names)[Count])
{
    const auto* const found = std::find_if(std::begin(names), std::end(names),
                                           [&](const tag_name& known) { return known.in_file == name; });
    return found != std::end(names) ? found->property : nullptr;
}

std::string lower_case(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return text;
}

/// UTF-8, or what old programs wrote before there was any.
TagLib::String text_in(std::string_view bytes)
{
    const std::string text(bytes.substr(0, bytes.find('\0')));
    const TagLib::String read(text, TagLib::String::UTF8);
    return read.isEmpty() ? TagLib::String(text, TagLib::String::Latin1) : read;
}

/// Keeps what a file says first.
void add(TagLib::PropertyMap& tags, const char* property, const TagLib::String& text)
{
    if (property != nullptr && !text.isEmpty() && !tags.contains(property))
        tags.insert(property, text);
}

TagLib::PropertyMap aiff_tags(chunked_file& file)
{
    TagLib::PropertyMap tags;
    for_each_chunk(file, iff_head, 12, file.length(), [&](const chunk& part) {
        if (const char* property = property_of(part.id, aiff_names))
            add(tags, property, text_in(file.bytes_of(part)));
    });
    return tags;
}

TagLib::PropertyMap caf_tags(chunked_file& file)
{
    TagLib::PropertyMap tags;
    for_each_chunk(file, caf_head, 8, file.length(), [&](const chunk& part) {
        if (part.id != "info")
            return;
        const std::string info = file.bytes_of(part);
        std::vector<std::string_view> texts;
        for (std::size_t at = 4; at < info.size(); at += texts.back().size() + 1)
            texts.push_back(std::string_view(info).substr(at, info.find('\0', at) - at));
        for (std::size_t i = 0; i + 1 < texts.size(); i += 2)
            add(tags, property_of(lower_case(std::string(texts[i])), words), text_in(texts[i + 1]));
    });
    return tags;
}

TagLib::PropertyMap w64_tags(chunked_file& file)
{
    constexpr auto summary_list = "\xBC\x94\x5F\x92\x5A\x52\xD2\x11\x86\xDC\x00\xC0\x4F\x8E\xDB\x8A"sv;
    TagLib::PropertyMap tags;
    for_each_chunk(file, w64_head, 40, file.length(), [&](const chunk& part) {
        if (part.id != summary_list)
            return;
        const std::string list = file.bytes_of(part);
        std::size_t at = 4;
        while (const auto size = number_in(list, at + 4, 4, true)) {
            const std::string text = list.substr(at + 8, static_cast<std::size_t>(*size));
            const TagLib::ByteVector units(text.data(), static_cast<unsigned>(text.size() / 2 * 2));
            add(tags, property_of(std::string_view(list).substr(at, 4), info_names),
                TagLib::String(units, TagLib::String::UTF16LE));
            at += 8 + static_cast<std::size_t>(*size);
        }
    });
    return tags;
}

/// The names that the items of QuickTime's metadata are numbered by, from 1.
std::vector<std::string> quicktime_keys(chunked_file& file, const chunk& part)
{
    std::vector<std::string> keys;
    for_each_chunk(file, atom_head, part.body + 8, part.end, [&](const chunk& key) {
        std::string name = lower_case(file.bytes_of(key));
        if (constexpr auto front = "com.apple.quicktime."sv; name.starts_with(front))
            name.erase(0, front.size());
        keys.push_back(std::move(name));
    });
    return keys;
}

void add_quicktime_metadata(chunked_file& file, const chunk& meta, TagLib::PropertyMap& tags)
{
    std::vector<std::string> keys;
    for_each_chunk(file, atom_head, meta.body, meta.end, [&](const chunk& part) {
        if (part.id == "keys")
            keys = quicktime_keys(file, part);
        if (part.id != "ilst")
            return;
        for_each_chunk(file, atom_head, part.body, part.end, [&](const chunk& item) {
            const auto number = static_cast<std::size_t>(number_in(item.id, 0, 4).value_or(0));
            const std::optional<chunk> data = atom_head(file, item.body, item.end);
            if (number >= 1 && number <= keys.size() && data && data->id == "data")
                add(tags, property_of(keys[number - 1], words),
                    text_in(file.bytes(data->body + 8, data->end - data->body - 8)));
        });
    });
}

TagLib::PropertyMap quicktime_tags(chunked_file& file)
{
    TagLib::PropertyMap tags;
    for_each_chunk(file, atom_head, 0, file.length(), [&](const chunk& movie) {
        if (movie.id != "moov")
            return;
        for_each_chunk(file, atom_head, movie.body, movie.end, [&](const chunk& part) {
            if (part.id == "meta")
                add_quicktime_metadata(file, part, tags);
            if (part.id != "udta")
                return;
            for_each_chunk(file, atom_head, part.body, part.end, [&](const chunk& text) {
                const char* property = property_of(text.id, quicktime_names);
                const std::string bytes = property != nullptr ? file.bytes_of(text) : std::string();
                if (const auto size = number_in(bytes, 0, 2); size && bytes.size() > 4)
                    add(tags, property,
                        text_in(std::string_view(bytes).substr(4, static_cast<std::size_t>(*size))));
            });
        });
    });
    return tags;
}

constexpr auto segment = "\x18\x53\x80\x67"sv;
constexpr auto info = "\x15\x49\xA9\x66"sv;
constexpr auto segment_title = "\x7B\xA9"sv;
constexpr auto all_tags = "\x12\x54\xC3\x67"sv;
constexpr auto tag = "ss"sv; // 73 73
constexpr auto targets = "\x63\xC0"sv;
constexpr auto target_level = "\x68\xCA"sv;
constexpr auto simple_tag = "\x67\xC8"sv;
constexpr auto simple_tag_name = "\x45\xA3"sv;
constexpr auto simple_tag_text = "\x44\x87"sv;

void add_simple_tag(chunked_file& file, const chunk& part, bool is_of_album, TagLib::PropertyMap& tags)
{
    std::string name;
    std::string text;
    for_each_chunk(file, element_head, part.body, part.end, [&](const chunk& element) {
        if (element.id == simple_tag_name)
            name = lower_case(file.bytes_of(element));
        if (element.id == simple_tag_text)
            text = file.bytes_of(element);
    });
    const bool is_album_title = is_of_album && name == "title";
    add(tags, is_album_title ? "ALBUM" : property_of(name, words), text_in(text));
}

void add_matroska_tags(chunked_file& file, const chunk& part, TagLib::PropertyMap& tags)
{
    for_each_chunk(file, element_head, part.body, part.end, [&](const chunk& each) {
        if (each.id != tag)
            return;
        constexpr offset album = 50;
        offset level = album;
        for_each_chunk(file, element_head, each.body, each.end, [&](const chunk& element) {
            if (element.id == targets) {
                for_each_chunk(file, element_head, element.body, element.end, [&](const chunk& target) {
                    const std::string number = file.bytes_of(target);
                    if (target.id == target_level)
                        level = number_in(number, 0, number.size()).value_or(album);
                });
            }
            if (element.id == simple_tag)
                add_simple_tag(file, element, level >= album, tags);
        });
    });
}

TagLib::PropertyMap matroska_tags(chunked_file& file)
{
    TagLib::PropertyMap tags;
    for_each_chunk(file, element_head, 0, file.length(), [&](const chunk& whole) {
        if (whole.id != segment)
            return;
        for_each_chunk(file, element_head, whole.body, whole.end, [&](const chunk& part) {
            if (part.id == all_tags)
                add_matroska_tags(file, part, tags);
            if (part.id != info)
                return;
            for_each_chunk(file, element_head, part.body, part.end, [&](const chunk& element) {
                if (element.id == segment_title)
                    add(tags, "TITLE", text_in(file.bytes_of(element)));
            });
        });
    });
    return tags;
}

struct container {
    std::string_view mark;
    std::size_t at; ///< where in the file the mark stands
    TagLib::PropertyMap (*tags)(chunked_file& file);
};

constexpr container containers[] = {{"AIFF", 8, aiff_tags},
                                    {"AIFC", 8, aiff_tags},
                                    {"caff", 0, caf_tags},
                                    {"riff\x2E\x91\xCF\x11", 0, w64_tags},
                                    {"ftyp", 4, quicktime_tags},
                                    {"moov", 4, quicktime_tags},
                                    {"mdat", 4, quicktime_tags},
                                    {"wide", 4, quicktime_tags},
                                    {"free", 4, quicktime_tags},
                                    {"skip", 4, quicktime_tags},
                                    {"\x1A\x45\xDF\xA3", 0, matroska_tags}};

} // namespace

std::optional<TagLib::PropertyMap> chunk_tags(TagLib::IOStream& file)
{
    chunked_file chunks(file);
    const std::string start = chunks.bytes(0, 16);
    for (const container& known : containers) {
        if (start.size() > known.at && std::string_view(start).substr(known.at).starts_with(known.mark))
            return known.tags(chunks);
    }
    return std::nullopt;
}

} // namespace tallyframe
