// SPDX-License-Identifier: MIT
#pragma once

#include "document/xml_node.h"
#include "platform/diagnostics.h"
#include "platform/progress.h"

#include <filesystem>
#include <string>
#include <variant>

namespace tallyframe {

/// The document's file, or its text.
using xml_input = std::variant<std::filesystem::path, std::string>;

struct parsed_xml {
    xml_document document;
    std::string first_node_name; ///< "xmeml" for a proper export
    bool no_updatebehavior; ///< Final Cut Pro 7 writes that element, Premiere Pro does not
};

/// Loads an interchange document, mending bad characters (bytes that are not UTF-8, control characters) line
/// by line where the parser complains. Writes the errors that remain after the mending to `out`; shows
/// "Fixing bad characters in the XML file...\n" unless gui_mode is false.
///
/// Throws load_error with fatal_error_message or not_xmeml_message, or with a sentence when the file cannot
/// be read.
parsed_xml parse_xml(const xml_input& input, diagnostics& out, progress& display);

/// One line that tells which XML library is at work.
std::string xml_library_version();

} // namespace tallyframe
