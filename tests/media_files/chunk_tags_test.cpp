// SPDX-License-Identifier: MIT
#include "media_files/chunk_tags.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <taglib/tbytevectorstream.h>

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

using namespace tallyframe;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

std::string number(std::uint64_t value, unsigned size)
{
    std::string bytes;
    while (size-- > 0)
        bytes += static_cast<char>(value >> (8 * size));
    return bytes;
}

std::string lowest_first(std::uint64_t value, unsigned size)
{
    const std::string bytes = number(value, size);
    return {bytes.rbegin(), bytes.rend()};
}

/// The tags of a file of these bytes; "none of these" when it is of no kind that has them.
std::map<std::string, std::string> tags_in(const std::string& bytes)
{
    TagLib::ByteVectorStream stream(TagLib::ByteVector(bytes.data(), static_cast<unsigned>(bytes.size())));
    const auto tags = chunk_tags(stream);
    if (!tags)
        return {{"none of these", ""}};
    std::map<std::string, std::string> texts;
    for (const auto& [name, values] : *tags)
        texts[name.to8Bit(true)] = values.toString(", ").to8Bit(true);
    return texts;
}

std::string iff_chunk(const std::string& id, const std::string& body)
{
    return id + number(body.size(), 4) + body + std::string(body.size() % 2, '\0');
}

std::string aiff(const std::string& chunks)
{
    return "FORM" + number(4 + chunks.size(), 4) + "AIFF" + chunks;
}

std::string caf_chunk(const std::string& id, const std::string& body)
{
    return id + number(body.size(), 8) + body;
}

std::string atom(const std::string& id, const std::string& body)
{
    return number(8 + body.size(), 4) + id + body;
}

std::string element(const std::string& id, const std::string& body)
{
    return id + number(body.size() | 0x4000U, 2) + body;
}

const std::string riff_end = "\x2E\x91\xCF\x11\xA5\xD6\x28\xDB\x04\xC1\0\0"s;
const std::string wave_end = "\xF3\xAC\xD3\x11\x8C\xD1\0\xC0\x4F\x8E\xDB\x8A"s;
const std::string summary_list = "\xBC\x94\x5F\x92\x5A\x52\xD2\x11\x86\xDC\0\xC0\x4F\x8E\xDB\x8A"s;

std::string w64_chunk(const std::string& id, const std::string& body)
{
    return id + lowest_first(24 + body.size(), 8) + body + std::string((8 - body.size() % 8) % 8, '\0');
}

std::string w64(const std::string& chunks)
{
    return "riff" + riff_end + lowest_first(40 + chunks.size(), 8) + "wave" + wave_end + chunks;
}

TEST(chunk_tags, are_the_texts_of_aiff)
{
    EXPECT_THAT(tags_in(aiff(iff_chunk("COMM", "sound") + iff_chunk("NAME", "Morning")
                             + iff_chunk("AUTH", "Zo\xEB") + iff_chunk("NAME", "Evening"))),
                ElementsAre(Pair("ARTIST", "Zoë"), Pair("TITLE", "Morning")));
}

TEST(chunk_tags, are_the_information_of_caf)
{
    const std::string info = number(4, 4)
        + "title\0Morning\0Track Number\0007\0recorded date\0001999\0mood\0calm\0producer\0Pat\0"s;
    EXPECT_THAT(tags_in("caff\0\1\0\0"s + caf_chunk("desc", "sound") + caf_chunk("info", info)),
                ElementsAre(Pair("DATE", "1999"), Pair("PRODUCER", "Pat"), Pair("TITLE", "Morning"),
                            Pair("TRACKNUMBER", "7")));
    EXPECT_THAT(tags_in("caff\0\1\0\0data\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF sound"s), IsEmpty());
}

TEST(chunk_tags, are_the_summary_of_w64)
{
    const std::string list = lowest_first(3, 4) + "INAM" + lowest_first(10, 4) + "D\0a\0y\0\xE9\0\0\0"s
        + "ISFT" + lowest_first(2, 4) + "x\0"s + "IPRD" + lowest_first(4, 4) + "W\0e\0"s;
    EXPECT_THAT(tags_in(w64(w64_chunk("fmt " + wave_end, "123") + w64_chunk(summary_list, list))),
                ElementsAre(Pair("ALBUM", "We"), Pair("TITLE", "Dayé")));
}

TEST(chunk_tags, are_the_user_data_of_quicktime)
{
    const std::string udta = atom("\xA9nam", number(7, 2) + number(0x55C4, 2) + "Morning")
        + atom("\xA9wrt", number(3, 2) + number(0, 2) + "AnnBo")
        + atom("\xA9"
               "cmt",
               "no tag")
        + number(0, 4);
    EXPECT_THAT(tags_in(atom("ftyp", "qt  ") + atom("mdat", "sound") + atom("moov", atom("udta", udta))),
                ElementsAre(Pair("COMPOSER", "Ann"), Pair("TITLE", "Morning")));
}

TEST(chunk_tags, are_the_metadata_of_quicktime)
{
    const std::string keys = number(0, 4) + number(2, 4) + atom("mdta", "com.apple.quicktime.album")
        + atom("mdta", "com.apple.quicktime.producer");
    const auto item = [](std::uint64_t key, const std::string& text) {
        return atom(number(key, 4), atom("data", number(1, 4) + number(0, 4) + text));
    };
    const std::string meta = atom("hdlr", "mdta") + atom("keys", keys)
        + atom("ilst", item(2, "Pat") + item(1, "Weather") + item(3, "out of range") + item(0, "as well"));
    EXPECT_THAT(tags_in(atom("moov", atom("meta", meta))),
                ElementsAre(Pair("ALBUM", "Weather"), Pair("PRODUCER", "Pat")));
}

TEST(chunk_tags, are_the_tags_of_matroska)
{
    const auto tag = [](const std::string& name, const std::string& text) {
        return element("\x67\xC8", element("\x45\xA3", name) + element("\x44\x87", text));
    };
    const auto level = [](char number) {
        return element("\x63\xC0", element("\x68\xCA", std::string(1, number)));
    };
    const std::string segment = element("\x15\x49\xA9\x66", element("\x7B\xA9", "Morning"))
        + element("\x12\x54\xC3\x67",
                  element("ss", level(50) + tag("TITLE", "Weather") + tag("DATE_RELEASED", "1999"))
                      + element("ss", level(30) + tag("TITLE", "Second") + tag("PART_NUMBER", "7")));
    const auto expected = ElementsAre(Pair("ALBUM", "Weather"), Pair("DATE", "1999"),
                                      Pair("TITLE", "Morning"), Pair("TRACKNUMBER", "7"));
    const std::string head = element("\x1A\x45\xDF\xA3", "matroska");
    EXPECT_THAT(tags_in(head + element("\x18\x53\x80\x67", segment)), expected);
    EXPECT_THAT(tags_in(head + "\x18\x53\x80\x67\x01\xFF\xFF\xFF\xFF\xFF\xFF\xFF" + segment), expected)
        << "a length that was not known when it was written";
}

TEST(chunk_tags, are_not_looked_for_in_other_files)
{
    for (const std::string& bytes : {""s, "RIFF"s, "ID3"s, "text, nothing else"s})
        EXPECT_THAT(tags_in(bytes), ElementsAre(Pair("none of these", ""))) << bytes;
}

TEST(chunk_tags, bear_files_that_are_cut_short_or_lie_about_sizes)
{
    const std::string files[] = {
        aiff(iff_chunk("NAME", "Morning")),
        "caff\0\1\0\0"s + caf_chunk("info", number(1, 4) + "title\0Morning\0"s),
        w64(w64_chunk(summary_list, lowest_first(1, 4) + "INAM" + lowest_first(2, 4) + "x\0"s)),
        atom("moov", atom("udta", atom("\xA9nam", number(7, 2) + number(0, 2) + "Morning"))),
        element("\x1A\x45\xDF\xA3", "") + element("\x18\x53\x80\x67", element("\x15\x49\xA9\x66", "x"))};
    for (const std::string& file : files) {
        for (std::size_t size = 0; size < file.size(); ++size) {
            tags_in(file.substr(0, size));
            for (const char wrong : {'\0', '\xFF', '\x7F'}) {
                std::string changed = file;
                changed[size] = wrong;
                tags_in(changed); // some tags, or none
            }
        }
    }
}

TEST(chunk_tags, are_not_sought_for_ever)
{
    std::string empty_atoms = atom("ftyp", "qt  ");
    for (int i = 0; i < 200'000; ++i)
        empty_atoms += atom("free", "");
    EXPECT_THAT(tags_in(empty_atoms + atom("moov", atom("udta", atom("\xA9nam", "\0\1\0\0x"s)))), IsEmpty());
}

} // namespace
