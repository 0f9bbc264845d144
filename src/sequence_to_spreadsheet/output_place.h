// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

// What a host asks before it lets a report of a document be written somewhere. Neither throws.

namespace tallyframe {

/// Whether a workbook at that path would replace the document: it is the same file, under whatever name or
/// link.
bool replaces_document(const std::filesystem::path& workbook, const std::filesystem::path& document);

/// Whether the document lies in the folder where the workbook's pictures are kept, so that one of them could
/// replace it.
bool keeps_thumbnails_around_document(const std::filesystem::path& workbook,
                                      const std::filesystem::path& document);

} // namespace tallyframe
