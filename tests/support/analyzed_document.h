// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analyze.h"
#include "document/track_checkboxes.h"
#include "support/counting_progress.h"
#include "support/kept_diagnostics.h"
#include "support/parsed_text.h"
#include "support/xmeml_builder.h"

#include <string>
#include <string_view>

namespace tallyframe::testing_support {

/// A document with its analysis and all that a host has been told meanwhile.
struct analyzed_document {
    parsed_xml parsed;
    document_additions additions;
    track_checkboxes video_checkboxes, audio_checkboxes;
    kept_diagnostics out;
    counting_progress display;
    analysis_result result;

    explicit analyzed_document(std::string_view text, std::string_view uuid = "uuid-1",
                               report_scope scope = report_scope::video_audio,
                               figure_style figures = figure_style::comparable);
    explicit analyzed_document(const xmeml& builder, std::string_view uuid = "uuid-1",
                               report_scope scope = report_scope::video_audio,
                               figure_style figures = figure_style::comparable)
        : analyzed_document(builder.text(), uuid, scope, figures)
    {
    }

    void analyze_again(std::string_view uuid = "uuid-1", report_scope scope = report_scope::video_audio,
                       figure_style figures = figure_style::comparable);
};

/// The records alone.
inline analysis_result analysis_of(const xmeml& builder, std::string_view uuid = "uuid-1",
                                   report_scope scope = report_scope::video_audio)
{
    return analyzed_document(builder, uuid, scope).result;
}

inline analysis_result exact_analysis_of(const xmeml& builder)
{
    return analyzed_document(builder, "uuid-1", report_scope::video_audio, figure_style::exact).result;
}

} // namespace tallyframe::testing_support
