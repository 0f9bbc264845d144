// SPDX-License-Identifier: MIT
#pragma once

#include "analysis/clip_record.h"

#include <optional>
#include <string>

namespace tallyframe {

/// The markup of all links of an audio clip, empty for one without links; nothing for other records. It is
/// made of the document, which must still be loaded.
std::optional<std::string> link_xml(const clip_record& clip);

} // namespace tallyframe
