// SPDX-License-Identifier: MIT
#pragma once

#include "document/document_index.h"
#include "document/xml_input.h"
#include "document/xml_node.h"
#include "run/account.h"
#include "run/diagnostics.h"
#include "run/progress.h"

#include <string>

namespace tallyframe {

struct parsed_xml {
    xml_document document;
    std::string first_node_name; ///< "xmeml" for a proper export
    bool no_updatebehavior; ///< Final Cut Pro 7 writes that element, Premiere Pro does not
    document_index index; ///< of `document`, made on the way
    account losses; ///< what its repair took from it; empty for one without an error
};

/// Loads an interchange document.
///
/// Where the parser complains, bad characters (bytes that are not UTF-8, control characters, DEL) are removed
/// and the document is parsed again: first without those in the lines that it complained about, then, if it
/// still does, without those in any line. A document mended so has no line breaks any more. Shows
/// "Fixing bad characters in the XML file...\n" before that, unless gui_mode is false. Writes each error of
/// the third parse to `out`, one a line ("12:40: ERROR: what is wrong").
///
/// Where the third parse finds it not well-formed, only the bytes that cannot stand in it are taken out, or,
/// of a document without any UTF-8 beyond ASCII, read as Windows-1252; such a document keeps its line breaks.
///
/// Throws load_error: fatal_error when that does not help either; not_xmeml when it
/// has no element at all (one without any error may have any root); refused, with a sentence, when the file
/// cannot be read or the document goes beyond the parser's limits (elements nested 256 deep, 10
/// million bytes in one text or brought by entities, a document type that is costly to follow, 1,000
/// attributes in one tag, 100 namespaces at one place).
parsed_xml parse_xml(const xml_input& input, diagnostics& out, progress& display);

/// One line, without a line break, that tells which XML library is at work.
std::string xml_library_version();

} // namespace tallyframe
