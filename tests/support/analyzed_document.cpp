// SPDX-License-Identifier: MIT
#include "support/analyzed_document.h"

namespace tallyframe::testing_support {

analyzed_document::analyzed_document(std::string_view text, std::string_view uuid, std::string_view scope)
    : parsed(parsed_text(std::string(text)))
{
    analyze_again(uuid, scope);
}

void analyzed_document::analyze_again(std::string_view uuid, std::string_view scope)
{
    out = {};
    display = {};
    result = analyze(parsed.index, uuid, scope, video_checkboxes, audio_checkboxes, out, display);
}

} // namespace tallyframe::testing_support
