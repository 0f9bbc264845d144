// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/byte_writer.h"

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

    std::size_t size() const { return offsets_.size() - 1; }
    std::string_view text(std::uint32_t index) const;

    /// Drops the texts that no cell uses any more. `uses`: for each text the cells that show it. Answers
    /// each kept text's new number.
    std::vector<std::uint32_t> drop_unused(const std::vector<std::uint32_t>& uses);

    /// Appends SST, its CONTINUE records and EXTSST. `out` starts where the workbook stream starts, since
    /// EXTSST holds stream positions.
    void write(byte_writer& out) const;

private:
    struct slot {
        std::uint32_t hash = 0;
        std::uint32_t number = 0; ///< 1 more than the text's; 0: free
    };

    slot& slot_of(std::string_view text, std::uint64_t hash);
    std::uint32_t insert(std::string_view text, std::uint64_t hash);
    void rehash(std::size_t slots);

    std::vector<char> texts_; ///< all texts, end to end
    std::vector<std::uint32_t> offsets_{0}; ///< where each text starts in texts_, and where the last ends
    std::vector<slot> slots_{1024};
    std::uint64_t uses_ = 0; ///< cells with a text
};

} // namespace xls
