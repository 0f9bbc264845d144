// SPDX-License-Identifier: MIT
#pragma once

#include "media_files/child_process.h"
#include "media_files/pictures/bitmap.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace tallyframe::testing_support {

/// How cameras and exports encode films: key frames are far apart, others lean on frames before and after.
inline const std::vector<std::string> long_gop = {"-c:v", "libx264", "-preset", "veryfast",
                                                  "-g",   "30",      "-bf",     "3"};

/// Frames of 160 × 96 pixels that carry their own number, from 0, as ten bars: bar i is white when bit i is
/// set.
inline std::string numbered_frames(const std::string& rate)
{
    return "color=c=black:s=160x96:r=" + rate
        + ",geq=lum='if(mod(floor(N/pow(2,floor(X/16))),2),235,16)':cb=128:cr=128,format=yuv420p";
}

/// The number that a frame carries, whatever width it was scaled to.
inline int number_of(const bitmap& picture)
{
    constexpr int bars = 10;
    int number = 0;
    for (int bar = 0; bar < bars; ++bar) {
        const int x = (2 * bar + 1) * picture.width / (2 * bars);
        const int y = picture.height / 2;
        const auto brightness =
            picture.rgb.at(3
                           * (static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width)
                              + static_cast<std::size_t>(x)));
        if (brightness > 128)
            number |= 1 << bar;
    }
    return number;
}

/// The colour of the pixel at a place given in hundredths of the picture.
inline std::vector<int> color_at(const bitmap& picture, int x_percent, int y_percent)
{
    const auto x = static_cast<std::size_t>(picture.width * x_percent / 100);
    const auto y = static_cast<std::size_t>(picture.height * y_percent / 100);
    const std::size_t pixel = 3 * (y * static_cast<std::size_t>(picture.width) + x);
    return {picture.rgb.at(pixel), picture.rgb.at(pixel + 1), picture.rgb.at(pixel + 2)};
}

/// Media files made with the ffmpeg program, in a folder that goes with them.
class made_media {
public:
    std::filesystem::path folder() const { return folder_.path(); }

    /// Runs ffmpeg with these arguments and the new file's path after them.
    std::filesystem::path make(const std::string& name, std::vector<std::string> arguments) const
    {
        const auto ffmpeg = program_on_path("ffmpeg");
        if (!ffmpeg)
            throw std::runtime_error("the tests need the ffmpeg program");
        std::filesystem::path file = folder_.path() / name;
        arguments.insert(arguments.begin(), {"-v", "error", "-nostdin", "-y"});
        arguments.push_back(file.string());
        if (!output_of(*ffmpeg, arguments, {std::chrono::minutes(1), 1U << 20U}))
            throw std::runtime_error("ffmpeg could not make " + name);
        return file;
    }

    /// A film of numbered frames.
    std::filesystem::path film(const std::string& name, const std::string& rate, int frames,
                               const std::vector<std::string>& encoding) const
    {
        std::vector<std::string> arguments = {
            "-f", "lavfi", "-i", numbered_frames(rate), "-frames:v", std::to_string(frames)};
        arguments.insert(arguments.end(), encoding.begin(), encoding.end());
        return make(name, std::move(arguments));
    }

private:
    temporary_folder folder_;
};

} // namespace tallyframe::testing_support
