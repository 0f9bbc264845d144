// SPDX-License-Identifier: MIT
//
//     SST        +-------------+--------------+--------+--------+ ...
//                | cells: u32  | texts: u32   | text 0 | text 1 |
//                +-------------+--------------+--------+--------+ ...
//     text       +-------------+--------------+------------------+
//                | units: u16  | 16 bit?: u8  | units (u8 / u16) |
//                +-------------+--------------+------------------+
//
// A record holds 8224 bytes. The table goes on in CONTINUE records, broken either between two texts or
// between two units of one text; then the CONTINUE record starts with that text's "16 bit?" byte again:
//
//     SST        ... | units: u16 | 16 bit? | units  |
//     CONTINUE                    | 16 bit? | units  | next text | ...
//
// A text's first three bytes stay together with its first units, and so do the halves of a surrogate pair:
// some readers decode each piece by itself.
//
//     EXTSST     +---------------------------+ then for every so many-th text:
//                | texts in a bucket: u16    | stream position: u32, position in its record: u16, 0: u16
//                +---------------------------+
#include "workbook/records/shared_strings.h"

#include "workbook/records/record.h"
#include "workbook/records/unicode.h"
#include "workbook/workbook.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>
#include <utility>

namespace xls {

namespace {

constexpr std::size_t text_header_size = 3;

/// An entry of shared_strings is the text's number and its size, both u32, and the text.
constexpr std::size_t entry_head_size = 8;

template <class Word>
std::uint64_t word_at(std::string_view text, std::size_t offset)
{
    Word word = 0;
    std::memcpy(&word, text.data() + offset, sizeof(word));
    return word;
}

std::uint64_t mixed(std::uint64_t hash, std::uint64_t word)
{
    constexpr std::uint64_t odd = 0x9E3779B97F4A7C15;
    const auto product = (hash ^ word) * odd;
    return product ^ product >> 32;
}

/// Hashes 16 bytes at a time. The last 16 may overlap those before them, so that texts of nearly the same
/// length take the same branches: profiles show the standard library's hash waiting at its branches.
std::uint64_t hash_of(std::string_view text)
{
    constexpr std::size_t step = 16;
    const auto size = text.size();
    std::uint64_t hash = size;
    if (size >= step) {
        for (std::size_t offset = 0; offset + step < size; offset += step)
            hash = mixed(mixed(hash, word_at<std::uint64_t>(text, offset)),
                         word_at<std::uint64_t>(text, offset + 8));
        hash = mixed(hash, word_at<std::uint64_t>(text, size - 16));
        return mixed(hash, word_at<std::uint64_t>(text, size - 8));
    }
    if (size >= 8)
        return mixed(mixed(hash, word_at<std::uint64_t>(text, 0)), word_at<std::uint64_t>(text, size - 8));
    if (size >= 4)
        return mixed(mixed(hash, word_at<std::uint32_t>(text, 0)), word_at<std::uint32_t>(text, size - 4));
    for (const char byte : text)
        hash = mixed(hash, static_cast<std::uint8_t>(byte));
    return hash;
}

template <class Unit>
void write_text(byte_writer& out, continued_record& table, std::basic_string_view<Unit> units)
{
    constexpr std::uint8_t is_wide = sizeof(Unit) == 2;
    out.u16(static_cast<std::uint16_t>(units.size()));
    out.u8(is_wide);
    while (true) {
        auto count = std::min(units.size(), table.room() / sizeof(Unit));
        if constexpr (is_wide)
            if (count < units.size() && is_high_surrogate(units[count - 1]))
                --count;
        for (const auto unit : units.substr(0, count)) {
            if constexpr (is_wide)
                out.u16(unit);
            else
                out.u8(static_cast<std::uint8_t>(unit));
        }
        units.remove_prefix(count);
        if (units.empty())
            return;
        table.next();
        out.u8(is_wide);
    }
}

/// Room for a text's header and its first units, so that the first piece is never empty.
template <class Unit>
constexpr std::size_t least_room = text_header_size + 2 * sizeof(Unit);

} // namespace

shared_strings::added shared_strings::add(std::string_view text)
{
    ++uses_;
    const auto hash = hash_of(text);
    if (const auto found = slot_of(text, hash).text_start)
        return {entry_at(found).number, false};
    if (text.size() <= text_limit && is_ascii(text))
        return {insert(text, hash), false};

    // Only valid texts are kept, so that what was found above needed no look at its bytes.
    const auto valid = valid_utf8(text, text_limit);
    const auto valid_hash = hash_of(valid.utf8);
    if (const auto found = slot_of(valid.utf8, valid_hash).text_start)
        return {entry_at(found).number, false};
    return {insert(valid.utf8, valid_hash), valid.cut};
}

shared_strings::stored_text shared_strings::entry_at(std::size_t text_start) const
{
    std::array<std::uint32_t, 2> number_and_size{};
    std::memcpy(number_and_size.data(), entries_.data() + text_start - entry_head_size, entry_head_size);
    return {number_and_size[0], {entries_.data() + text_start, number_and_size[1]}};
}

template <class Visitor>
void shared_strings::for_each(Visitor visit) const
{
    for (auto start = entry_head_size; start < entries_.size() + entry_head_size;) {
        const auto entry = entry_at(start);
        visit(entry, start);
        start += entry.text.size() + entry_head_size;
    }
}

shared_strings::slot& shared_strings::slot_of(std::string_view text, std::uint64_t hash)
{
    const auto mask = slots_.size() - 1;
    const auto short_hash = static_cast<std::uint32_t>(hash >> 32);
    for (auto position = hash & mask;; position = (position + 1) & mask) {
        auto& candidate = slots_[position];
        if (candidate.text_start == 0
            || (candidate.hash == short_hash && entry_at(candidate.text_start).text == text))
            return candidate;
    }
}

std::uint32_t shared_strings::insert(std::string_view text, std::uint64_t hash)
{
    if (entries_.size() + entry_head_size + text.size() > std::numeric_limits<std::uint32_t>::max())
        throw workbook_error("The texts of the workbook take more than 4 GB, which no .xls file holds.");
    if (2 * (size_ + 1) > slots_.size())
        double_slots();
    const auto number = static_cast<std::uint32_t>(size_++);
    const std::array<std::uint32_t, 2> number_and_size{number, static_cast<std::uint32_t>(text.size())};
    const auto* const head = reinterpret_cast<const char*>(number_and_size.data());
    auto& free = slot_of(text, hash);
    entries_.insert(entries_.end(), head, head + entry_head_size);
    free = {static_cast<std::uint32_t>(hash >> 32), static_cast<std::uint32_t>(entries_.size())};
    entries_.insert(entries_.end(), text.begin(), text.end());
    return number;
}

void shared_strings::double_slots()
{
    slots_.assign(2 * slots_.size(), {});
    for_each([&](const stored_text& entry, std::size_t start) {
        const auto hash = hash_of(entry.text);
        slot_of(entry.text, hash) = {static_cast<std::uint32_t>(hash >> 32),
                                     static_cast<std::uint32_t>(start)};
    });
}

std::vector<std::uint32_t> shared_strings::drop_unused(const std::vector<std::uint32_t>& uses)
{
    shared_strings kept;
    std::vector<std::uint32_t> new_numbers(size());
    for_each([&](const stored_text& entry, std::size_t) {
        if (uses[entry.number] != 0)
            new_numbers[entry.number] = kept.insert(entry.text, hash_of(entry.text));
        kept.uses_ += uses[entry.number];
    });
    *this = std::move(kept);
    return new_numbers;
}

void shared_strings::write(byte_writer& out) const
{
    struct bucket {
        std::size_t stream_position;
        std::size_t record_position;
    };
    const auto bucket_size = std::max<std::size_t>(8, size() / 1024 + 1); // one EXTSST record holds them
    std::vector<bucket> buckets;
    {
        continued_record table(out, record_id::sst);
        out.u32(static_cast<std::uint32_t>(uses_));
        out.u32(static_cast<std::uint32_t>(size()));
        const auto put = [&](std::uint32_t number, auto units) {
            if (table.room() < least_room<typename decltype(units)::value_type>)
                table.next();
            if (number % bucket_size == 0)
                buckets.push_back({out.size(), table.position()});
            write_text(out, table, units);
        };
        for_each([&](const stored_text& entry, std::size_t) {
            if (is_ascii(entry.text)) {
                put(entry.number, entry.text);
            } else if (const auto wide = to_utf16(entry.text); fits_in_bytes(wide)) {
                std::string narrow;
                std::ranges::transform(wide, std::back_inserter(narrow),
                                       [](char16_t unit) { return static_cast<char>(unit); });
                put(entry.number, std::string_view(narrow));
            } else {
                put(entry.number, std::u16string_view(wide));
            }
        });
    }
    const record positions(out, record_id::ext_sst);
    out.u16(static_cast<std::uint16_t>(bucket_size));
    for (const auto& bucket : buckets) {
        out.u32(static_cast<std::uint32_t>(bucket.stream_position));
        out.u16(static_cast<std::uint16_t>(bucket.record_position));
        out.u16(0);
    }
}

} // namespace xls
