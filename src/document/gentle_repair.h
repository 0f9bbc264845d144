// SPDX-License-Identifier: MIT
#pragma once

#include "document/character_repair.h"
#include "run/progress.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tallyframe {

/// A text that was mended with as little loss as can be.
struct gently_mended_text {
    std::string text;
    dropped_characters dropped; ///< bytes that are no UTF-8, one by one, and control characters
    std::size_t reread = 0; ///< bytes that were read as letters of Windows-1252
};

/// Takes only the bytes out of a document that cannot stand in one, where the usual repair takes those along
/// that a bad byte declares, and the line breaks. Of a document without a single letter beyond ASCII in UTF-8
/// bytes are read as Windows-1252 (whose upper half is Latin-1, with quotes and dashes), and dropped only
/// where that has none.
gently_mended_text gently_mended(std::string_view text, progress& display);

/// Whether a document may be read so: it is told to be in UTF-8, or not told to be in anything else.
bool may_be_utf8(std::string_view text);

} // namespace tallyframe
