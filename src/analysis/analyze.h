// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "analysis/document_additions.h"
#include "analysis/report_scope.h"
#include "analysis/sequence_header.h"
#include "document/document_index.h"
#include "document/track_checkboxes.h"
#include "document/xml_node.h"
#include "media/media_catalogues.h"
#include "run/diagnostics.h"
#include "run/figure_style.h"
#include "run/progress.h"

#include <optional>

namespace tallyframe {

/// What to analyse.
struct analysis_subject {
    xml_node sequence; ///< none: the clips of all bins
    report_scope scope = report_scope::video_audio;
    std::optional<stand_ins> missing = {}; ///< for what the sequence lacks; without them that is a failure
    figure_style figures = figure_style::comparable;
};

/// Analyses a sequence of the document, or the clips of all bins when it is none.
///
/// Tracks of a kind that is out of `scope` give no records. Every track is walked whatever its check box; the
/// check boxes are saved, emptied and filled again track by track. `catalogues`: of this document, from
/// earlier analyses or new. `additions`: what earlier analyses of the document have added to it, or new; this
/// one adds to them files for clips that are nested sequences, and the values of keyframed scales joined.
///
/// Writes the diagnostics of the walk to `out`. Calls `display.begin` once and `display.advance` for each
/// file element, marker of the sequence and item; closing the display is the caller's.
///
/// Throws analysis_error: "This sequence has no timebase" for a rate that is none of those supported, or a
/// sentence that names the element that is missing, its item and its track. What display throws (a user's
/// stop) passes through.
analysis_result analyze(const document_index& index, const analysis_subject& subject,
                        document_additions& additions, media_catalogues& catalogues,
                        track_checkboxes& video_checkboxes, track_checkboxes& audio_checkboxes,
                        diagnostics& out, progress& display);

} // namespace tallyframe
