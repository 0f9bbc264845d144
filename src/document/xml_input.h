// SPDX-License-Identifier: MIT
#pragma once

#include "document/tolerant_parser.h"
#include "run/progress.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

// What reads here looks every few kilobytes at whether the run is still wanted, and throws run_cancelled when
// it is not. A file that cannot be read is a load_error.

namespace tallyframe {

/// The document's file, or its text.
using xml_input = std::variant<std::filesystem::path, std::string>;

/// The bytes of a document as they are. `input` and `display` must live as long.
byte_source bytes_of(const xml_input& input, progress& display);

/// All of them.
std::string whole_text(const xml_input& input, progress& display);

/// The lines of a text joined with nothing between them. `text` and `display` must live as long.
byte_source lines_joined(std::string_view text, progress& display);

/// The clean characters of a document, without line breaks, up to the first one that is no blank, when that
/// cannot begin a tag: then nothing behind it makes the document XML, and a film need not be read to its end.
/// Nothing when a tag may follow.
std::optional<std::string> beginning_without_tag(const xml_input& input, progress& display);

} // namespace tallyframe
