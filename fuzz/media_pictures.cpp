// SPDX-License-Identifier: MIT
// Any bytes as a film or a still.
#include "fuzz/fuzzed_file.h"
#include "fuzz/promise.h"
#include "media_files/media_protocol.h"
#include "media_files/pictures/clip_picture.h"

#include <chrono>
#include <cstdint>
#include <exception>

namespace tallyframe::fuzz {

namespace {

constexpr const char* names[] = {"a.mov", "a.mp4", "a.avi", "a.mkv", "a.mxf", "a.ts",
                                 "a.mpg", "a.tga", "a.png", "a.pct", "a.h264"};
constexpr int width = 64;

void make_pictures(const media_file& file)
{
    no_diagnostics out;
    media_reader reader(out, std::chrono::seconds(5));
    const expected_frame frames[] = {{file.name(), {1, 25}, width}, {file.name(), {3, 1}, width}};
    reader.expect(frames);
    for (const expected_frame& frame : frames) {
        std::optional<jpeg_picture> picture;
        try {
            picture = clip_picture(reader, file, frame.time, width);
        } catch (const std::exception&) { // as the helper has it: no picture
        }
        const std::optional<picture_answer> answer = picture_in(message_of(picture));
        promise(answer && answer->picture == picture, "a picture reaches the other side as it is");
        promise(!picture || picture->width <= width, "no picture is wider than was asked for");
    }
}

} // namespace

} // namespace tallyframe::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    tallyframe::fuzz::make_pictures(tallyframe::fuzz::file_of(data, size, tallyframe::fuzz::names));
    return 0;
}
