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
#include "workbook/shared_strings.h"

#include "workbook/record.h"
#include "workbook/unicode.h"
#include "workbook/workbook.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <string>

namespace xls {

namespace {

constexpr std::size_t text_header_size = 3;

std::uint64_t hash_of(std::string_view text)
{
    return std::hash<std::string_view>{}(text);
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

std::string_view shared_strings::text(std::uint32_t index) const
{
    return {texts_.data() + offsets_[index], offsets_[index + 1] - offsets_[index]};
}

shared_strings::added shared_strings::add(std::string_view text)
{
    ++uses_;
    const auto hash = hash_of(text);
    if (const auto& found = slot_of(text, hash); found.number != 0)
        return {found.number - 1, false};
    if (text.size() <= text_limit && is_ascii(text))
        return {insert(text, hash), false};

    // Only valid texts are kept, so that what was found above needed no look at its bytes.
    const auto valid = valid_utf8(text, text_limit);
    const auto valid_hash = hash_of(valid.utf8);
    if (const auto& found = slot_of(valid.utf8, valid_hash); found.number != 0)
        return {found.number - 1, false};
    return {insert(valid.utf8, valid_hash), valid.cut};
}

shared_strings::slot& shared_strings::slot_of(std::string_view wanted, std::uint64_t hash)
{
    const auto mask = slots_.size() - 1;
    const auto short_hash = static_cast<std::uint32_t>(hash >> 32);
    for (auto position = hash & mask;; position = (position + 1) & mask) {
        auto& candidate = slots_[position];
        if (candidate.number == 0 || (candidate.hash == short_hash && text(candidate.number - 1) == wanted))
            return candidate;
    }
}

std::uint32_t shared_strings::insert(std::string_view text, std::uint64_t hash)
{
    if (texts_.size() + text.size() > std::numeric_limits<std::uint32_t>::max())
        throw workbook_error("The texts of the workbook take more than 4 GB, which no .xls file holds.");
    if (2 * (size() + 1) > slots_.size())
        rehash(2 * slots_.size());
    texts_.insert(texts_.end(), text.begin(), text.end());
    offsets_.push_back(static_cast<std::uint32_t>(texts_.size()));
    slot_of(text, hash) = {static_cast<std::uint32_t>(hash >> 32), static_cast<std::uint32_t>(size())};
    return static_cast<std::uint32_t>(size() - 1);
}

void shared_strings::rehash(std::size_t slots)
{
    slots_.assign(slots, {});
    const auto mask = slots - 1;
    for (std::uint32_t index = 0; index < size(); ++index) {
        const auto hash = hash_of(text(index));
        auto position = hash & mask;
        while (slots_[position].number != 0)
            position = (position + 1) & mask;
        slots_[position] = {static_cast<std::uint32_t>(hash >> 32), index + 1};
    }
}

std::vector<std::uint32_t> shared_strings::drop_unused(const std::vector<std::uint32_t>& uses)
{
    shared_strings kept;
    std::vector<std::uint32_t> new_index(size());
    for (std::uint32_t index = 0; index < size(); ++index) {
        if (uses[index] != 0)
            new_index[index] = kept.insert(text(index), hash_of(text(index)));
        kept.uses_ += uses[index];
    }
    *this = std::move(kept);
    return new_index;
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
        const auto put = [&](std::uint32_t index, auto units) {
            if (table.room() < least_room<typename decltype(units)::value_type>)
                table.next();
            if (index % bucket_size == 0)
                buckets.push_back({out.size(), table.position()});
            write_text(out, table, units);
        };
        for (std::uint32_t index = 0; index < size(); ++index) {
            const auto utf8 = text(index);
            if (is_ascii(utf8)) {
                put(index, utf8);
            } else if (const auto wide = to_utf16(utf8); fits_in_bytes(wide)) {
                std::string narrow;
                std::ranges::transform(wide, std::back_inserter(narrow),
                                       [](char16_t unit) { return static_cast<char>(unit); });
                put(index, std::string_view(narrow));
            } else {
                put(index, std::u16string_view(wide));
            }
        }
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
