// SPDX-License-Identifier: MIT
// Any bytes as a sound with tags, of any kind that the library knows.
#include "fuzz/fuzzed_file.h"
#include "fuzz/promise.h"
#include "media_files/media_protocol.h"
#include "media_files/tag_readers.h"

#include <cstdint>

namespace tallyframe::fuzz {

namespace {

constexpr const char* names[] = {"a.mp3", "a.m4a", "a.flac", "a.ogg", "a.wav", "a.aiff",
                                 "a.wv",  "a.ape", "a.asf",  "a.mpc", "a",     "a.opus"};

void read(const media_file& file)
{
    const std::optional<audio_tags> tags = tags_in_file(file);
    const std::optional<tags_answer> answer = tags_in(message_of(tags));
    promise(answer && answer->tags == tags, "tags reach the other side as they are");
    if (!tags)
        return;
    for (const std::string* text : {&tags->song_title, &tags->album, &tags->authors, &tags->composer})
        promise(text->find('\n') == std::string::npos, "a tag is one line");
}

} // namespace

} // namespace tallyframe::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    tallyframe::fuzz::read(tallyframe::fuzz::file_of(data, size, tallyframe::fuzz::names));
    return 0;
}
