// SPDX-License-Identifier: MIT
#pragma once

#include "media/file_record.h"
#include "platform/media_locator.h"

#include <optional>
#include <vector>

namespace tallyframe {

/// Frames a second of a rate, NTSC rates as what they are rounded from. Nothing for what is no rate.
std::optional<double> exact_rate(const std::optional<frame_rate>& rate);

/// What a document says of a media file, in the terms in which files speak of themselves. Sound alone has no
/// rate of its own: what a document gives there is the sequence's. The start is left out: the document counts
/// it in frames.
media_facts facts_in_document(const file_record& file);

/// The same of all files that have a path.
std::vector<documented_media> documented_media_of(const std::vector<file_record>& files);

} // namespace tallyframe
