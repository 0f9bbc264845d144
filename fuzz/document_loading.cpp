// SPDX-License-Identifier: MIT
// Any bytes as a document: loaded, mended, listed; or refused with a load_error. What was loaded is what the
// XML library's own tree of those bytes has.
#include "document/character_repair.h"
#include "document/parse_xml.h"
#include "document/sequence_catalogue.h"
#include "fuzz/promise.h"
#include "run/failures.h"
#include "run/gui_mode.h"
#include "support/library_tree.h"
#include "text/utf8.h"

#include <cstdint>
#include <string>

namespace tallyframe::fuzz {

namespace {

void mend(std::string text)
{
    dropped_characters dropped;
    no_progress display;
    clean_all_lines(text, dropped, display);
    for (std::string_view rest = text; !rest.empty(); rest.remove_prefix(declared_length(rest)))
        promise(is_clean_character(rest.substr(0, declared_length(rest))), "a mended text is clean");
}

void load(const std::string& text)
{
    no_diagnostics out;
    no_progress display;
    const parsed_xml parsed = parse_xml(text, out, display);
    promise(bool(parsed.document.root()), "a loaded document has a root");
    promise(!parsed.first_node_name.empty(), "a loaded document's first node has a name");
    for (const xml_node uuid : parsed.index.sequence_uuids)
        promise(bool(parsed.index.sequence_with_uuid(uuid.text())), "a sequence is found by its uuid");
    const std::size_t entries = sequence_catalogue(parsed.index).size();
    promise(entries >= parsed.index.sequence_uuids.size(), "every sequence with a uuid is in the menu");
}

void compare(const std::string& text)
{
    for (const blank_texts blanks : {blank_texts::dropped, blank_texts::kept}) {
        const std::string difference = testing_support::difference_from_library_tree(text, blanks);
        promise(difference.empty(), ("the library's tree says the same, but: " + difference).c_str());
    }
}

} // namespace

} // namespace tallyframe::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace tallyframe;
    gui_mode = false;
    const std::string text(reinterpret_cast<const char*>(data), size);
    fuzz::mend(text);
    fuzz::compare(text);
    try {
        fuzz::load(text);
    } catch (const load_error&) { // a refusal is a good answer; anything else that is thrown is a finding
    }
    return 0;
}
