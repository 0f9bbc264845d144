// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace xls {

inline constexpr std::size_t text_limit = 32767; ///< UTF-16 units in a cell

/// The texts of all cells, each kept once. Cells refer to them by their number.
class shared_strings {
public:
    struct added {
        std::uint32_t index;
        bool newly_cut; ///< the text was too long, and no cell before had the same one
    };

    /// Takes in the text of one cell (not empty), repaired to valid UTF-8 and cut at text_limit.
    added add(std::string_view text);

    std::size_t size() const { return size_; }

    /// Drops the texts that no cell uses any more. `uses`: for each text the cells that show it. Answers
    /// each kept text's new number.
    std::vector<std::uint32_t> drop_unused(const std::vector<std::uint32_t>& uses);

    /// Appends SST, its CONTINUE records and EXTSST. `out` starts where the workbook stream starts, since
    /// EXTSST holds stream positions.
    void write(byte_writer& out) const;

private:
    /// A place of the hash table, which leads to a text's entry.
    struct slot {
        std::uint32_t hash = 0;
        std::uint32_t text_start = 0; ///< in entries_; 0: the place is free
    };
    struct stored_text {
        std::uint32_t number;
        std::string_view text;
    };

    stored_text entry_at(std::size_t text_start) const;
    template <class Visitor>
    void for_each(Visitor visit) const;
    slot& slot_of(std::string_view text, std::uint64_t hash);
    std::uint32_t insert(std::string_view text, std::uint64_t hash);
    void double_slots();

    std::vector<char> entries_; ///< end to end
    std::vector<slot> slots_{1024};
    std::size_t size_ = 0;
    std::uint64_t uses_ = 0; ///< cells with a text
};

} // namespace xls
