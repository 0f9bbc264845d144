// SPDX-License-Identifier: MIT
#include "support/analyzed_document.h"

namespace tallyframe::testing_support {

analyzed_document::analyzed_document(std::string_view text, std::string_view uuid, report_scope scope,
                                     figure_style figures)
    : parsed(parsed_text(std::string(text)))
{
    analyze_again(uuid, scope, figures);
}

void analyzed_document::analyze_again(std::string_view uuid, report_scope scope, figure_style figures)
{
    out = {};
    display = {};
    media_catalogues catalogues;
    result = analyze(parsed.index, {parsed.index.sequence_with_uuid(uuid), scope, {}, figures}, additions,
                     catalogues, video_checkboxes, audio_checkboxes, out, display);
}

} // namespace tallyframe::testing_support
