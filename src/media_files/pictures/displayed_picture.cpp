// SPDX-License-Identifier: MIT
#include "media_files/pictures/displayed_picture.h"

extern "C" {
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace tallyframe {

namespace {

constexpr int bytes_per_pixel = 3;

/// The scaler may read and write some bytes past the last line's end.
constexpr std::size_t scaler_overrun = 64;

/// Lines of a picture in memory, in whatever pixel format.
struct pixel_lines {
    std::array<const std::uint8_t*, 4> data = {};
    std::array<int, 4> line_bytes = {};
    picture_size size;
    AVPixelFormat format = AV_PIX_FMT_NONE;
    int color_space = SWS_CS_DEFAULT;
    bool full_range = false;
};

/// Standard definition came with one set of colour coefficients, high definition with another; files that
/// do not say which follow their size.
int color_space_of(const AVFrame& frame)
{
    if (frame.colorspace != AVCOL_SPC_UNSPECIFIED && frame.colorspace != AVCOL_SPC_RGB)
        return frame.colorspace;
    return frame.width >= 1280 || frame.height >= 720 ? SWS_CS_ITU709 : SWS_CS_ITU601;
}

bool is_gray(AVPixelFormat format)
{
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(format);
    constexpr int most_components = 2; // with transparency
    return descriptor->nb_components <= most_components
        && (descriptor->flags & (AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_RGB)) == 0;
}

pixel_lines lines_of(const AVFrame& frame, const track_display& track)
{
    pixel_lines lines;
    std::copy_n(frame.data, lines.data.size(), lines.data.begin());
    std::copy_n(frame.linesize, lines.line_bytes.size(), lines.line_bytes.begin());
    lines.size = {frame.width, frame.height};
    lines.format = static_cast<AVPixelFormat>(frame.format);
    lines.color_space = color_space_of(frame);
    lines.full_range = frame.color_range == AVCOL_RANGE_JPEG
        || (frame.color_range == AVCOL_RANGE_UNSPECIFIED && track.gray_is_full_range
            && is_gray(lines.format));
    return lines;
}

/// Every second line, from the one that is shown first.
pixel_lines first_field(pixel_lines lines, bool top_field_first)
{
    for (std::size_t plane = 0; plane < lines.data.size(); ++plane) {
        if (!top_field_first && lines.data[plane] != nullptr)
            lines.data[plane] += lines.line_bytes[plane];
        lines.line_bytes[plane] *= 2;
    }
    lines.size.height = lines.size.height / 4 * 2; // even, so that halved colour planes split evenly as well
    return lines;
}

first_lines first_lines_of(const AVFrame& frame, const track_display& track, const AVPixFmtDescriptor& format)
{
    if (frame.height < 4 || (format.flags & AV_PIX_FMT_FLAG_PAL) != 0)
        return first_lines::all;
    if (frame.interlaced_frame == 0)
        return track.first;
    return frame.top_field_first != 0 ? first_lines::upper : first_lines::lower;
}

bool is_reasonable(picture_size size)
{
    return size.width > 0 && size.height > 0
        && std::int64_t{size.width} * size.height <= largest_frame_pixels;
}

scaler_ptr scaler_to_rgb(const pixel_lines& from, picture_size to)
{
    scaler_ptr scaler(sws_alloc_context());
    if (!scaler)
        return nullptr;
    const std::pair<const char*, std::int64_t> settings[] = {
        {"srcw", from.size.width},
        {"srch", from.size.height},
        {"src_format", from.format},
        {"dstw", to.width},
        {"dsth", to.height},
        {"dst_format", AV_PIX_FMT_RGB24},
        {"sws_flags", SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT},
    };
    for (const auto& [name, value] : settings) {
        if (av_opt_set_int(scaler.get(), name, value, 0) < 0)
            return nullptr;
    }
    if (av_opt_set(scaler.get(), "alphablend", "uniform_color", 0) < 0)
        return nullptr;
    if (sws_init_context(scaler.get(), nullptr, nullptr) < 0)
        return nullptr;
    const int* coefficients = sws_getCoefficients(from.color_space);
    constexpr int neutral = 1 << 16;
    // It refuses formats without such details, RGB among them, which need none.
    sws_setColorspaceDetails(scaler.get(), coefficients, from.full_range ? 1 : 0, coefficients, 1, 0, neutral,
                             neutral);
    return scaler;
}

std::optional<bitmap> scaled_to_rgb(const pixel_lines& from, picture_size to)
{
    if (!is_reasonable(from.size) || !is_reasonable(to) || sws_isSupportedInput(from.format) == 0)
        return std::nullopt;
    const scaler_ptr scaler = scaler_to_rgb(from, to);
    if (!scaler)
        return std::nullopt;

    bitmap picture{to.width, to.height, {}};
    const std::size_t length = std::size_t(to.width) * std::size_t(to.height) * bytes_per_pixel;
    picture.rgb.resize(length + scaler_overrun);
    std::uint8_t* const planes[4] = {picture.rgb.data(), nullptr, nullptr, nullptr};
    const int line_bytes[4] = {to.width * bytes_per_pixel, 0, 0, 0};
    // The number of lines that it answers is not to be trusted: 0 for some ways through transparency.
    if (sws_scale(scaler.get(), from.data.data(), from.line_bytes.data(), 0, from.size.height, planes,
                  line_bytes)
        < 0)
        return std::nullopt;
    picture.rgb.resize(length);
    return picture;
}

bitmap turned(const bitmap& stored, const orientation& turn)
{
    bitmap picture{
        turn.swaps_axes ? stored.height : stored.width, turn.swaps_axes ? stored.width : stored.height, {}};
    picture.rgb.reserve(stored.rgb.size() + scaler_overrun);
    for (int line = 0; line < picture.height; ++line) {
        for (int column = 0; column < picture.width; ++column) {
            int x = turn.mirrors_x ? picture.width - 1 - column : column;
            int y = turn.mirrors_y ? picture.height - 1 - line : line;
            if (turn.swaps_axes)
                std::swap(x, y);
            const auto pixel = stored.rgb.begin() + (std::ptrdiff_t{y} * stored.width + x) * bytes_per_pixel;
            picture.rgb.insert(picture.rgb.end(), pixel, pixel + bytes_per_pixel);
        }
    }
    return picture;
}

int rounded(double pixels)
{
    constexpr double most = 1 << 24;
    return static_cast<int>(std::lround(std::clamp(pixels, 1.0, most)));
}

orientation frame_orientation(const AVFrame& frame, const track_display& track)
{
    const AVFrameSideData* matrix = av_frame_get_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX);
    if (matrix == nullptr || matrix->size < 9 * sizeof(std::int32_t))
        return track.turned;
    return orientation_of(reinterpret_cast<const std::int32_t*>(matrix->data));
}

} // namespace

orientation orientation_of(const std::int32_t* display_matrix)
{
    // x' = a x + c y, y' = b x + d y
    const std::int64_t a = display_matrix[0];
    const std::int64_t b = display_matrix[1];
    const std::int64_t c = display_matrix[3];
    const std::int64_t d = display_matrix[4];
    if (std::abs(a) >= std::abs(b))
        return {false, a < 0, d < 0};
    return {true, c < 0, b < 0};
}

picture_size displayed_size(const AVFrame& frame, const track_display& track)
{
    const AVRational aspect =
        track.sample_aspect_ratio.num > 0 ? track.sample_aspect_ratio : frame.sample_aspect_ratio;
    const double stretch = aspect.num > 0 && aspect.den > 0 ? av_q2d(aspect) : 1.0;
    picture_size size{rounded(frame.width * stretch), frame.height};
    if (frame_orientation(frame, track).swaps_axes)
        std::swap(size.width, size.height);
    return size;
}

std::optional<bitmap> displayed_picture(const AVFrame& frame, const track_display& track, picture_size size)
{
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    if (format == nullptr)
        return std::nullopt;
    pixel_lines lines = lines_of(frame, track);
    const first_lines first = first_lines_of(frame, track, *format);
    if (first != first_lines::all)
        lines = first_field(lines, first == first_lines::upper);

    const orientation turn = frame_orientation(frame, track);
    if (turn.swaps_axes)
        std::swap(size.width, size.height);
    std::optional<bitmap> stored = scaled_to_rgb(lines, size);
    if (!stored || turn == orientation{})
        return stored;
    return turned(*stored, turn);
}

picture_size size_of_width(picture_size full, int width)
{
    return {width, rounded(double{1} * width * full.height / full.width)};
}

picture_size size_within(picture_size full, int side)
{
    const int longer = std::max(full.width, full.height);
    if (longer <= side)
        return full;
    const double scale = double{1} * side / longer;
    return {rounded(full.width * scale), rounded(full.height * scale)};
}

std::optional<bitmap> resized(const bitmap& picture, picture_size size)
{
    if (size.width == picture.width && size.height == picture.height)
        return picture;
    pixel_lines lines;
    lines.data[0] = picture.rgb.data();
    lines.line_bytes[0] = picture.width * bytes_per_pixel;
    lines.size = {picture.width, picture.height};
    lines.format = AV_PIX_FMT_RGB24;
    return scaled_to_rgb(lines, size);
}

} // namespace tallyframe
