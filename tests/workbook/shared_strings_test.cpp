// SPDX-License-Identifier: MIT
#include "workbook/records/record.h"
#include "workbook/records/shared_strings.h"
#include "workbook/records/unicode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

using testing::ElementsAre;

namespace {

constexpr std::uint16_t sst_id = 0x00FC;
constexpr std::uint16_t continue_id = 0x003C;
constexpr std::uint16_t ext_sst_id = 0x00FF;

struct raw_record {
    std::uint16_t id;
    std::size_t position; ///< of its header
    std::vector<std::uint8_t> body;
};

std::uint32_t number_at(const std::vector<std::uint8_t>& bytes, std::size_t offset, int size)
{
    std::uint32_t number = 0;
    for (int i = size - 1; i >= 0; --i)
        number = number << 8 | bytes.at(offset + static_cast<std::size_t>(i));
    return number;
}

std::vector<raw_record> records_of(const std::vector<std::uint8_t>& bytes)
{
    std::vector<raw_record> records;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto size = number_at(bytes, at + 2, 2);
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at) + 4;
        records.push_back({static_cast<std::uint16_t>(number_at(bytes, at, 2)), at, {begin, begin + size}});
        at += 4 + size;
    }
    return records;
}

struct read_text {
    std::u16string text;
    std::size_t stream_position;
    std::size_t record_position;
};

struct read_table {
    std::uint32_t cells = 0;
    std::vector<read_text> texts;
};

/// Reads the table as a strict reader does: a text's head must not be broken, each piece must decode alone.
class strict_reader {
public:
    explicit strict_reader(const std::vector<raw_record>& records) : records_(records) { }

    read_table read()
    {
        read_table table;
        table.cells = take(4);
        const auto count = take(4);
        for (std::uint32_t i = 0; i < count; ++i)
            table.texts.push_back(text());
        if (at_ != body().size() || record_ + 2 != records_.size())
            throw std::runtime_error("something is left behind the texts");
        return table;
    }

private:
    const std::vector<std::uint8_t>& body() const { return records_.at(record_).body; }

    std::uint32_t take(int size)
    {
        const auto number = number_at(body(), at_, size);
        at_ += static_cast<std::size_t>(size);
        return number;
    }

    void go_on()
    {
        ++record_;
        at_ = 0;
        if (records_.at(record_).id != continue_id)
            throw std::runtime_error("the table breaks off");
    }

    read_text text()
    {
        if (at_ == body().size())
            go_on();
        read_text result{{}, records_[record_].position + 4 + at_, 4 + at_};
        const auto units = take(2);
        auto wide = take(1);
        for (bool first = true; result.text.size() < units; first = false) {
            if (at_ == body().size()) {
                if (first)
                    throw std::runtime_error("no unit stands with the head");
                if (xls::is_high_surrogate(result.text.back()))
                    throw std::runtime_error("a surrogate pair is broken");
                go_on();
                wide = take(1);
            }
            result.text += static_cast<char16_t>(take(wide != 0 ? 2 : 1));
        }
        return result;
    }

    const std::vector<raw_record>& records_;
    std::size_t record_ = 0;
    std::size_t at_ = 0;
};

struct written_table {
    std::vector<raw_record> records;
    read_table table;
};

written_table written(const xls::shared_strings& strings, std::size_t before = 0)
{
    xls::byte_writer out;
    {
        const xls::record something(out, xls::record_id::eof);
        out.zeros(before);
    }
    strings.write(out);
    auto records = records_of({out.view().begin(), out.view().end()});
    records.erase(records.begin());
    auto table = strict_reader(records).read();
    return {std::move(records), std::move(table)};
}

std::string utf8(char32_t character, std::size_t times)
{
    std::string one;
    if (character < 0x80)
        one = {static_cast<char>(character)};
    else if (character < 0x800)
        one = {static_cast<char>(0xC0 | character >> 6), static_cast<char>(0x80 | (character & 0x3F))};
    else if (character < 0x10000)
        one = {static_cast<char>(0xE0 | character >> 12), static_cast<char>(0x80 | (character >> 6 & 0x3F)),
               static_cast<char>(0x80 | (character & 0x3F))};
    else
        one = {static_cast<char>(0xF0 | character >> 18), static_cast<char>(0x80 | (character >> 12 & 0x3F)),
               static_cast<char>(0x80 | (character >> 6 & 0x3F)),
               static_cast<char>(0x80 | (character & 0x3F))};
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += one;
    return all;
}

} // namespace

TEST(shared_strings, keeps_each_text_once)
{
    xls::shared_strings strings;
    EXPECT_EQ(strings.add("Reel 1").index, 0U);
    EXPECT_EQ(strings.add("Reel 2").index, 1U);
    EXPECT_EQ(strings.add("Reel 1").index, 0U);
    const auto table = written(strings).table;
    EXPECT_EQ(table.cells, 3U);
    ASSERT_EQ(table.texts.size(), 2U);
    EXPECT_EQ(table.texts[1].text, u"Reel 2");
}

TEST(shared_strings, takes_texts_for_equal_that_are_so_once_repaired)
{
    xls::shared_strings strings;
    EXPECT_EQ(strings.add("a\xFF").index, strings.add("a\xFE").index);
    EXPECT_EQ(strings.add("a\xEF\xBF\xBD").index, 0U);
    EXPECT_EQ(strings.size(), 1U);
}

TEST(shared_strings, lays_out_8_and_16_bit_texts)
{
    xls::shared_strings strings;
    strings.add("ab");
    strings.add("\u00eb");
    strings.add("\u65e5");
    xls::byte_writer out;
    strings.write(out);
    const auto records = records_of({out.view().begin(), out.view().end()});
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].id, sst_id);
    EXPECT_THAT(records[0].body,
                ElementsAre(3, 0, 0, 0, 3, 0, 0, 0, 2, 0, 0, 'a', 'b', 1, 0, 0, 0xEB, 1, 0, 1, 0xE5, 0x65));
    EXPECT_EQ(records[1].id, ext_sst_id);
    EXPECT_THAT(records[1].body, ElementsAre(8, 0, 12, 0, 0, 0, 12, 0, 0, 0));
}

TEST(shared_strings, finds_texts_again_among_many)
{
    xls::shared_strings strings;
    constexpr std::uint32_t count = 20000;
    for (std::uint32_t i = 0; i < count; ++i)
        ASSERT_EQ(strings.add("Clip " + std::to_string(i)).index, i);
    for (std::uint32_t i = 0; i < count; ++i)
        ASSERT_EQ(strings.add("Clip " + std::to_string(i)).index, i);
    const auto table = written(strings).table;
    EXPECT_EQ(table.cells, 2 * count);
    EXPECT_EQ(table.texts[12345].text, u"Clip 12345");
}

TEST(shared_strings, tells_texts_of_every_length_apart)
{
    xls::shared_strings strings;
    std::uint32_t count = 0;
    for (std::size_t size = 1; size <= 70; ++size)
        for (std::size_t changed = 0; changed < size; ++changed) {
            std::string text(size, 'x');
            text[changed] = 'y';
            ASSERT_EQ(strings.add(text).index, count) << size << ' ' << changed;
            ASSERT_EQ(strings.add(text).index, count++);
        }
}

TEST(shared_strings, breaks_at_legal_places_wherever_the_record_ends)
{
    for (const char32_t before : {U'x', U'\u00eb', U'\u65e5', U'\U0001F3AC'}) {
        for (const char32_t behind : {U'y', U'\u00ff', U'\u672c', U'\U0001F600'}) {
            for (std::size_t length = 1; length <= 20; ++length) {
                // The first text leaves a few bytes more or less in the record.
                const auto units = before < 0x100 ? 8224 - 8 - 3 - length : (8224 - 8 - 3 - length) / 2;
                const auto count = before < 0x10000 ? units : units / 2;
                xls::shared_strings strings;
                strings.add(utf8(before, count));
                strings.add(utf8(behind, 9));
                strings.add("a" + utf8(behind, 5000));
                strings.add("end");
                const auto [records, table] = written(strings);
                ASSERT_EQ(table.texts.size(), 4U);
                EXPECT_EQ(table.texts[0].text, xls::to_utf16(utf8(before, count)));
                EXPECT_EQ(table.texts[1].text, xls::to_utf16(utf8(behind, 9)));
                EXPECT_EQ(table.texts[2].text, xls::to_utf16("a" + utf8(behind, 5000)));
                EXPECT_EQ(table.texts[3].text, u"end");
                for (const auto& record : records)
                    EXPECT_LE(record.body.size(), 8224U);
            }
        }
    }
}

TEST(shared_strings, fills_records_to_the_limit)
{
    xls::shared_strings strings;
    strings.add(std::string(32767, 'x'));
    const auto [records, table] = written(strings);
    ASSERT_EQ(records.size(), 5U);
    EXPECT_EQ(records[0].body.size(), 8224U);
    EXPECT_EQ(records[1].body.size(), 8224U);
    EXPECT_EQ(table.texts[0].text, std::u16string(32767, u'x'));
}

TEST(shared_strings, lists_where_buckets_of_texts_start)
{
    xls::shared_strings strings;
    constexpr std::size_t count = 12000;
    for (std::size_t i = 0; i < count; ++i)
        strings.add("Clip " + utf8(U'\u65e5', i % 50) + std::to_string(i));
    const auto [records, table] = written(strings, 777);
    const auto& positions = records.back();
    ASSERT_EQ(positions.id, ext_sst_id);
    EXPECT_LE(positions.body.size(), 8224U);
    const auto size = number_at(positions.body, 0, 2);
    ASSERT_EQ((positions.body.size() - 2) / 8, (count + size - 1) / size);
    for (std::size_t i = 0, at = 2; i < count; i += size, at += 8) {
        EXPECT_EQ(number_at(positions.body, at, 4), table.texts[i].stream_position);
        EXPECT_EQ(number_at(positions.body, at + 4, 2), table.texts[i].record_position);
    }
}

TEST(shared_strings, drops_texts_that_no_cell_uses)
{
    xls::shared_strings strings;
    for (const auto* text : {"a", "b", "c", "b"})
        strings.add(text);
    EXPECT_THAT(strings.drop_unused({0, 2, 1}), ElementsAre(0, 0, 1));
    EXPECT_EQ(strings.size(), 2U);
    EXPECT_EQ(strings.add("c").index, 1U);
    EXPECT_EQ(strings.add("a").index, 2U);
    const auto table = written(strings).table;
    EXPECT_EQ(table.cells, 5U);
    EXPECT_EQ(table.texts[0].text, u"b");
    EXPECT_EQ(table.texts[2].text, u"a");
}

TEST(shared_strings, cuts_at_the_limit_and_not_amid_a_pair)
{
    xls::shared_strings strings;
    EXPECT_FALSE(strings.add(std::string(32767, 'x')).newly_cut);
    EXPECT_FALSE(strings.add(std::string(32768, 'x')).newly_cut); // cut, but the same text was there
    EXPECT_TRUE(strings.add("\u00eb" + utf8(U'\U0001F3AC', 20000)).newly_cut);
    EXPECT_TRUE(strings.add(utf8(U'\U0001F3AC', 20000)).newly_cut);
    const auto table = written(strings).table;
    ASSERT_EQ(table.texts.size(), 3U);
    EXPECT_EQ(table.texts[0].text.size(), 32767U);
    EXPECT_EQ(table.texts[1].text.size(), 32767U);
    EXPECT_EQ(table.texts[2].text.size(), 32766U);
    EXPECT_FALSE(xls::is_high_surrogate(table.texts[2].text.back()));
}
