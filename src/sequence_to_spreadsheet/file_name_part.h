// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tallyframe {

/// What disks take as the name of a file, in bytes.
inline constexpr std::size_t longest_file_name = 255;

/// The title with all that no file name may hold, on any system, replaced. A longer one is cut at whole
/// characters: at 100 of them, and at that many bytes.
std::string file_name_part(std::string_view title, std::size_t most_bytes = longest_file_name);

/// "NAME - TITLE" and `ending` (a number, say): the name of the workbook of one entry of a document, before
/// its `extension`. The title, and then the document's name, are cut so that disks take the name of the
/// workbook, and that of the folder where its pictures are kept.
std::string entry_file_name(std::string_view document_name, std::string_view title,
                            std::string_view ending = {}, std::string_view extension = ".xls");

} // namespace tallyframe
