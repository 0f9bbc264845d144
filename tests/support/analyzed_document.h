// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analyze.h"
#include "document/document_index.h"
#include "document/track_checkboxes.h"
#include "document/xml_node.h"
#include "support/parsed_document.h"
#include "support/recording_hosts.h"
#include "support/xmeml_builder.h"

#include <string>
#include <string_view>

namespace tallyframe::testing {

/// A document with its analysis and all that a host has been told meanwhile.
struct analyzed_document {
    xml_document document;
    document_index index;
    track_checkboxes video_checkboxes, audio_checkboxes;
    recording_diagnostics out;
    recording_progress display;
    analysis_result result;

    explicit analyzed_document(std::string_view text, std::string_view uuid = "uuid-1",
                               std::string_view scope = "video + audio");
    explicit analyzed_document(const xmeml& builder, std::string_view uuid = "uuid-1",
                               std::string_view scope = "video + audio")
        : analyzed_document(builder.text(), uuid, scope)
    {
    }

    void analyze_again(std::string_view uuid = "uuid-1", std::string_view scope = "video + audio");
};

/// The records alone.
inline analysis_result analysis_of(const xmeml& builder, std::string_view uuid = "uuid-1",
                                   std::string_view scope = "video + audio")
{
    return analyzed_document(builder, uuid, scope).result;
}

} // namespace tallyframe::testing
