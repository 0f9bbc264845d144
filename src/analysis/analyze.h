// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/analysis_result.h"
#include "document/document_index.h"
#include "document/track_checkboxes.h"
#include "document/xml_node.h"
#include "platform/diagnostics.h"
#include "platform/progress.h"

#include <string_view>

namespace tallyframe {

/// Analyses the sequence with that uuid, or the clips of all bins when the document has no such sequence.
///
/// `import_video_audio_preference`: "video + audio", "video" or "audio"; tracks of a kind that it does not
/// name give no records. Every track is walked whatever its check box; the check boxes are saved, emptied and
/// filled again track by track. Changes the document in two ways that stay while it is loaded: references to
/// files in nested-sequence clips, and keyframed scale values joined.
///
/// Writes the diagnostics of the walk to `out`. Calls `display.begin` once and `display.advance` for each
/// file element, marker of the sequence and item; closing the display is the caller's.
///
/// Throws analysis_error: "This sequence has no timebase" for a rate that is none of those supported, or a
/// sentence that names the element that is missing, its item and its track. What display throws (a user's
/// stop) passes through.
analysis_result analyze(document_index& index, std::string_view uuid,
                        std::string_view import_video_audio_preference, track_checkboxes& video_checkboxes,
                        track_checkboxes& audio_checkboxes, diagnostics& out, progress& display);

} // namespace tallyframe
