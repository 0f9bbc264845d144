// SPDX-License-Identifier: MIT
#include "sheets/thumbnails.h"

#include "run/failures.h"
#include "run/log.h"
#include "text/shortened.h"

#include <fmt/format.h>

#include <algorithm>
#include <climits>
#include <exception>
#include <memory>
#include <system_error>

namespace tallyframe {

namespace {

constexpr double points_per_pixel = 0.75;

/// What reading a clip's frame came to: a frame of the wanted width, or a picture that still has to be
/// scaled.
struct obtained_frame {
    std::optional<jpeg_picture> frame;
    std::shared_ptr<media_image> image;
    bool file_is_there = false;
    bool is_placeholder = false;
};

void print(diagnostics& out, std::string_view text)
{
    out.write(text);
    out.write("\n");
}

int bitmap_width(const thumbnail_run& run)
{
    return static_cast<int>(run.thumbnail_width);
}

media_time time_of(const rational& seconds)
{
    return {seconds.numerator, seconds.denominator};
}

/// "0002 Name.jpg" for the first row under the header: rows as a user counts them, so that two clips of one
/// name get a file each. What no file's name can hold is replaced.
std::string jpeg_name(const clip_record& clip, std::size_t row)
{
    constexpr std::string_view ending = ".jpg";
    constexpr std::string_view ellipsis = "…";
    const std::string number = fmt::format("{:04} ", row + 1);
    std::string name = clip.name.value_or("");
    std::replace(name.begin(), name.end(), '/', '_');
    const std::size_t room = NAME_MAX - number.size() - ending.size();
    if (name.size() > room)
        name = shortened(name, room - ellipsis.size());
    return fmt::format("{}{}{}", number, name, ending);
}

/// A still picture where the system only reads assets.
std::shared_ptr<media_image> still_image(const std::filesystem::path& file, const thumbnail_run& run)
{
    std::shared_ptr<media_image> image = run.pictures.image_by_reference(file);
    if (!image->is_valid())
        print(run.out, "This NSImage is not valid!!!");
    else if (!image->has_representations())
        print(run.out, "This NSImage has no representations!!!");
    else {
        print(run.out, "This NSImage has a representation");
        return image;
    }
    return nullptr;
}

void read_from_asset(const std::filesystem::path& file, media_time time, const thumbnail_run& run,
                     obtained_frame& obtained)
{
    const std::shared_ptr<media_asset> asset = run.pictures.asset_with_url(file);
    if (run.pictures.is_mojave_or_later() && (!asset || asset->track_count() == 0)) {
        if (std::shared_ptr<media_image> still = still_image(file, run))
            obtained.image = std::move(still);
        return;
    }
    if (!asset)
        return;
    obtained.frame = asset->frame_at(time, bitmap_width(run));
    if (!obtained.frame)
        obtained.frame = asset->frame_at({0, 1}, bitmap_width(run));
}

void take_placeholder(const char* name, const thumbnail_run& run, obtained_frame& obtained)
{
    obtained.image = run.pictures.image_by_reference(run.pictures.resource_directory() / name);
    obtained.is_placeholder = true;
}

void read_from_movie(const std::filesystem::path& file, media_time time, const thumbnail_run& run,
                     obtained_frame& obtained)
{
    const opened_movie opened = run.pictures.movie_with_url(file);
    if (!opened.movie || opened.error)
        return;
    movie_frame frame = opened.movie->frame_at(time);
    if (!frame.image || frame.error)
        frame = opened.movie->frame_at({0, 1000});
    if (frame.image && !frame.error)
        obtained.image = std::move(frame.image);
    else
        take_placeholder("Problem.png", run, obtained);
}

/// Fills `obtained` step by step, so that a failure on the way leaves what there was before it.
void obtain_frame(const std::string& path, media_time time, const thumbnail_run& run,
                  obtained_frame& obtained)
{
    const std::optional<std::filesystem::path> file = run.locator.locate(path);
    if (!file) {
        log(run.out, "OFFLINE media");
        take_placeholder("Missing.png", run, obtained);
        return;
    }
    obtained.file_is_there = true;
    obtained.image = run.pictures.image_by_reference(*file);
    if (run.pictures.is_yosemite_or_later())
        read_from_asset(*file, time, run, obtained);
    if (!obtained.frame && !run.pictures.is_mojave_or_later())
        read_from_movie(*file, time, run, obtained);
}

std::optional<jpeg_picture> scaled_image(media_image* image, const thumbnail_run& run)
{
    const std::shared_ptr<const image_content> data =
        image != nullptr ? image->tiff_representation() : nullptr;
    if (!data) {
        print(run.out, "TIFFRepresentation is nil!!!");
        return std::nullopt;
    }
    const std::unique_ptr<image_source> source = run.pictures.image_source_with_data(data);
    if (!source) {
        print(run.out, "CGImageSourceCreateWithData is nil!!!");
        return std::nullopt;
    }
    std::optional<jpeg_picture> scaled = source->scaled_bitmap(bitmap_width(run));
    if (!scaled)
        print(run.out, "CGImageSourceCreateThumbnailAtIndex is nil!!!");
    return scaled;
}

void write_jpeg(const jpeg_picture& picture, const std::filesystem::path& jpeg, thumbnail_run& run)
{
    run.thumbnail_height = picture.height;
    run.pictures.write_to_file(picture.bytes, jpeg);
}

/// "Interview, row 2": as a user counts them.
std::string row_of(const clip_record& clip, std::size_t row)
{
    return fmt::format("{}, row {}", clip.name.value_or(""), row + 1);
}

void note_unreadable(const std::string& path, thumbnail_run& run)
{
    if (run.unreadable_files.insert(path).second)
        run.lost.add(loss_kind::unreadable_media, 1, path);
}

std::optional<row_picture> make_picture(const clip_record& clip, std::size_t row, thumbnail_run& run)
{
    const std::string& path = *run.current_thumbnail_clip;
    const rational& time = *clip.image_time;
    log(run.out, fmt::format("thumbnail: {} @ {}/{}", path, time.numerator, time.denominator));

    obtained_frame obtained;
    try {
        obtain_frame(path, time_of(time), run, obtained);
    } catch (const run_cancelled&) {
        throw;
    } catch (const std::exception&) {
        log(run.out, "RESCUE from thumbnailing");
    }
    const std::optional<jpeg_picture> picture =
        obtained.frame ? std::move(obtained.frame) : scaled_image(obtained.image.get(), run);
    if (obtained.file_is_there && (!picture || obtained.is_placeholder))
        note_unreadable(path, run);
    const std::filesystem::path jpeg = run.folder / jpeg_name(clip, row);
    if (picture)
        write_jpeg(*picture, jpeg, run);
    if (!std::filesystem::exists(jpeg))
        return std::nullopt;
    if (obtained.is_placeholder)
        run.lost.add(obtained.file_is_there ? loss_kind::unreadable_pictures : loss_kind::missing_pictures, 1,
                     row_of(clip, row));
    const double points = static_cast<double>(*run.thumbnail_height) * points_per_pixel;
    return row_picture{jpeg, points, obtained.is_placeholder};
}

} // namespace

void prepare_thumbnails(std::span<const clip_record* const> clips, thumbnail_run& run)
{
    std::vector<expected_frame> frames;
    for (const clip_record* clip : clips) {
        if (!clip->image_time || !clip->path)
            continue;
        if (auto file = run.locator.locate(*clip->path))
            frames.push_back({std::move(*file), time_of(*clip->image_time), bitmap_width(run)});
    }
    run.pictures.prepare(frames);
}

std::optional<row_picture> make_thumbnail(const clip_record& clip, std::size_t row, thumbnail_run& run)
{
    run.current_thumbnail_clip = clip.path.value_or("");
    log(run.out, "----------");
    log(run.out, *run.current_thumbnail_clip);
    if (!run.thumbnail_height)
        run.thumbnail_height = run.thumbnail_width;
    std::optional<row_picture> made;
    try {
        if (clip.image_time)
            made = make_picture(clip, row, run);
    } catch (const run_cancelled&) {
        throw;
    } catch (const std::exception& error) {
        log(run.out, fmt::format("no thumbnail: {}", error.what()));
    }
    run.current_thumbnail_clip.reset();
    if (made)
        run.cleanup_jpegs.push_back(made->jpeg);
    if (!made && clip.image_time)
        run.lost.add(loss_kind::absent_pictures, 1, row_of(clip, row));
    return made;
}

void delete_thumbnails(const thumbnail_run& run)
{
    for (const std::filesystem::path& jpeg : run.cleanup_jpegs) {
        std::error_code unseen;
        std::filesystem::remove(jpeg, unseen);
    }
}

} // namespace tallyframe
