// SPDX-License-Identifier: MIT
#pragma once

#include "platform/media_facts.h"

namespace tallyframe {

/// What the module is asked for by name: fills `facts`; false when the file is no media that can be read.
using media_facts_function = bool(const char* file, media_facts& facts);
inline constexpr const char* media_facts_name = "tallyframe_media_facts";

} // namespace tallyframe

extern "C" tallyframe::media_facts_function tallyframe_media_facts;
