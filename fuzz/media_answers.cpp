// SPDX-License-Identifier: MIT
// Any bytes as what a helper, or the program, says over their socket.
#include "fuzz/promise.h"
#include "media_files/media_protocol.h"

#include <cstdint>
#include <exception>

namespace tallyframe::fuzz {

namespace {

void understand(const message& received)
{
    promise(received.content.size() <= most_content_bytes, "no message is longer than it may be");
    if (const auto file = file_in(received)) {
        promise(file->expected.size() <= most_expected_times, "no file has more times than it may");
        for (const media_time time : file->expected)
            promise(time.timescale > 0, "a time has a scale");
        promise(file_in(message_of(*file)) == file, "a file is sent as it came");
    }
    if (const auto question = question_in(received))
        promise(question->width > 0 && question->width <= largest_picture_side, "a width is one");
    const auto tags = tags_in(received);
    promise(!tags || tags_in(message_of(tags->tags))->tags == tags->tags, "tags are sent as they came");
    const auto facts = facts_in(received);
    promise(!facts || facts_in(message_of(facts->facts))->facts == facts->facts,
            "facts are sent as they came");
    const auto answer = picture_in(received);
    if (!answer || !answer->picture)
        return;
    const jpeg_picture& picture = *answer->picture;
    promise(picture.width > 0 && picture.height > 0, "a picture has a size");
    promise(picture.bytes.size() >= 4 && picture.bytes[0] == 0xFF && picture.bytes[1] == 0xD8,
            "a picture is a JPEG file");
}

void receive(std::string_view bytes)
{
    incoming_messages incoming;
    try {
        for (std::size_t at = 0; at < bytes.size(); at += 1000) {
            incoming.add(bytes.substr(at, 1000));
            while (const auto received = incoming.next())
                understand(*received);
        }
    } catch (const std::exception&) { // whoever says that is not spoken to any more
    }
}

} // namespace

} // namespace tallyframe::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    tallyframe::fuzz::receive({reinterpret_cast<const char*>(data), size});
    return 0;
}
