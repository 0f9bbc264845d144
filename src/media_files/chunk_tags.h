// SPDX-License-Identifier: MIT
#pragma once

#include <taglib/tiostream.h>
#include <taglib/tpropertymap.h>

#include <optional>

namespace tallyframe {

/// The tags of containers that TagLib does not look into: the texts of AIFF, CAF and W64, the user data and
/// the metadata of QuickTime, the tags of Matroska. By TagLib's names of properties: TITLE, ALBUM,
/// TRACKNUMBER, DATE, GENRE, ARTIST, COMPOSER, PRODUCER. Nothing when the file is none of these; only what it
/// needs is read of it.
std::optional<TagLib::PropertyMap> chunk_tags(TagLib::IOStream& file);

} // namespace tallyframe
