// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/records/byte_writer.h"
#include "workbook/records/picture_file.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace xls {

/// Identifiers of shapes are dealt out to the sheets in clusters.
inline constexpr std::size_t shapes_in_cluster = 1024;

/// The shapes of one sheet: a group that stands for the sheet, and its pictures. None if it has no pictures.
struct sheet_shapes {
    std::uint32_t drawing; ///< the sheet's number among those with pictures, from 1; 0: none
    std::uint32_t first_shape; ///< identifier of the group; the pictures' follow
    std::uint32_t count; ///< group included
};

/// The pictures of all sheets, equal ones kept once.
class picture_store {
public:
    /// Answers the picture's number, from 1.
    std::uint32_t add(picture_file file);

    std::size_t size() const { return pictures_.size(); }

    /// `sheets`: all of the workbook, in their order. Appends MSODRAWINGGROUP and its CONTINUE records.
    void write(byte_writer& out, const std::vector<sheet_shapes>& sheets) const;

private:
    using digest = std::array<std::uint8_t, 16>;
    struct stored_picture {
        picture_file file;
        digest identifier;
        std::uint32_t uses;
    };

    std::vector<stored_picture> pictures_;
    std::map<digest, std::uint32_t> numbers_;
};

} // namespace xls
