// SPDX-License-Identifier: MIT
//
//     block   | row 0                        | row 1        | ... | row 31 |
//             | record | record | ... record | record | ... |     |        |
//             ^ rows[0].begin                ^ rows[1].begin
#include "workbook/records/cell_table.h"

#include <algorithm>
#include <limits>

namespace xls {

namespace {

constexpr std::size_t no_record = std::numeric_limits<std::size_t>::max();
constexpr std::size_t last_column_size = sizeof(std::uint16_t);

/// Appends the blanks of a run from column `first` to before `end`, one record each.
void append_blanks(std::vector<std::uint8_t>& out, const records::cell_view& run, std::size_t first,
                   std::size_t end)
{
    for (auto column = first; column < end; ++column) {
        const auto xf = run.xf(column - run.first_column());
        const auto record = records::blank({run.row(), static_cast<std::uint16_t>(column), xf});
        out.insert(out.end(), record.begin(), record.end());
    }
}

} // namespace

void row_block::put_number(std::size_t offset, std::uint16_t number)
{
    std::ranges::copy(little_endian(number), cells_.begin() + static_cast<std::ptrdiff_t>(offset));
}

void row_block::open(std::size_t row)
{
    for (; opened_ <= row; ++opened_)
        rows_[opened_] = {static_cast<std::uint32_t>(cells_.size()), 0, 0};
}

void row_block::append(std::size_t row, records::cell_place place, byte_view record)
{
    auto& end = rows_[row].end_column;
    if (end == 0)
        rows_[row].first_column = place.column;
    end = static_cast<std::uint16_t>(place.column + 1);
    last_record_ = cells_.size();
    cells_.insert(cells_.end(), record.begin(), record.end());
}

bool row_block::append_to_blanks(std::size_t row, records::cell_place place)
{
    if (row + 1 != opened_ || last_record_ == no_record || last_record_ < rows_[row].begin
        || rows_[row].end_column != place.column)
        return false;
    const auto run = records::cell_at(cells_, last_record_);
    if (run.id() == record_id::mul_blank)
        cells_.resize(cells_.size() - last_column_size);
    else if (run.id() != record_id::blank)
        return false;
    for (const auto number : {place.xf, place.column}) {
        const auto bytes = little_endian(number);
        cells_.insert(cells_.end(), bytes.begin(), bytes.end());
    }
    const auto size = cells_.size() - last_record_ - record_header_size;
    put_number(last_record_, static_cast<std::uint16_t>(record_id::mul_blank));
    put_number(last_record_ + sizeof(record_id), static_cast<std::uint16_t>(size));
    ++rows_[row].end_column;
    return true;
}

bool row_block::splice(std::size_t row, records::cell_place place, byte_view record)
{
    const auto row_end = begin(row + 1);
    auto offset = begin(row);
    while (offset < row_end && records::cell_at(cells_, offset).last_column() < place.column)
        offset += records::cell_at(cells_, offset).bytes.size();

    std::vector<std::uint8_t> pieces;
    std::size_t replaced = 0;
    if (offset < row_end && records::cell_at(cells_, offset).first_column() <= place.column) {
        // The cell is there already, perhaps amid a run of blanks, which falls apart.
        const auto old = records::cell_at(cells_, offset);
        append_blanks(pieces, old, old.first_column(), place.column);
        pieces.insert(pieces.end(), record.begin(), record.end());
        append_blanks(pieces, old, place.column + 1U, old.last_column() + 1U);
        replaced = old.bytes.size();
    } else {
        pieces.assign(record.begin(), record.end());
    }
    const auto at = cells_.begin() + static_cast<std::ptrdiff_t>(offset);
    cells_.insert(cells_.erase(at, at + static_cast<std::ptrdiff_t>(replaced)), pieces.begin(), pieces.end());

    for (auto later = row + 1; later < opened_; ++later)
        rows_[later].begin += static_cast<std::uint32_t>(pieces.size() - replaced);
    auto& [row_begin, first, end] = rows_[row];
    first = end == 0 ? place.column : std::min(first, place.column);
    end = std::max(end, static_cast<std::uint16_t>(place.column + 1));
    last_record_ = no_record;
    return replaced != 0;
}

void cell_table::put(records::cell_place place, byte_view record)
{
    auto& block = block_of(place.row);
    const auto row = place.row % rows_per_block;
    block.open(row);
    if (row + 1 == block.opened_ && place.column >= block.rows_[row].end_column)
        block.append(row, place, record);
    else
        has_replaced_cells_ |= block.splice(row, place, record);
}

void cell_table::put_blank(records::cell_place place)
{
    if (!block_of(place.row).append_to_blanks(place.row % rows_per_block, place))
        put(place, records::blank(place));
}

row_block& cell_table::block_of(std::size_t row)
{
    const auto number = row / rows_per_block;
    if (number >= blocks_.size()) {
        const auto size = blocks_.empty() ? 0 : blocks_.back().cells_.size();
        blocks_.resize(number + 1);
        blocks_.back().cells_.reserve(size);
    }
    return blocks_[number];
}

} // namespace xls
