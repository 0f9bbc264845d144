// SPDX-License-Identifier: MIT
#pragma once

#include "platform/audio_tag_reader.h"

#include <array>
#include <optional>
#include <string_view>

namespace tallyframe {

/// What `mdls` is asked for.
inline constexpr std::array<const char*, 8> mdls_attributes = {
    "kMDItemAlbum",        "kMDItemAudioTrackNumber", "kMDItemAuthors",       "kMDItemComposer",
    "kMDItemMusicalGenre", "kMDItemProducer",         "kMDItemRecordingYear", "kMDItemTitle"};

/// The tags that `mdls -raw` has printed: the values of the attributes in their order, each followed by a NUL
/// character, empty when the file lacks it. The authors are a list: a line "(", a line for each name in
/// double quotes (all but the last with a comma), a line ")". Nothing when it has printed nothing.
std::optional<audio_tags> tags_in_mdls_output(std::string_view output);

} // namespace tallyframe
