// SPDX-License-Identifier: MIT
#include "sequence_to_spreadsheet/save_excel.h"

#include "media_files/thumbnail_folder.h"
#include "sequence_to_spreadsheet/kept_thumbnails.h"
#include "sheets/audio_tags.h"
#include "sheets/counted_media.h"
#include "sheets/documented_facts.h"
#include "sheets/report.h"
#include "sheets/thumbnails.h"
#include "writers/xls_writer.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tallyframe {

namespace {

std::optional<thumbnail_run> thumbnails_from(const media_services& media, const report_options& options,
                                             media_locator& locator, diagnostics& out)
{
    if (!options.inpoint_thumbnail_jpegs || media.pictures == nullptr || media.folder == nullptr)
        return std::nullopt;
    return thumbnail_run{.pictures = *media.pictures,
                         .locator = locator,
                         .out = out,
                         .folder = media.folder->path(),
                         .thumbnail_width = options.thumbnail_width,
                         .thumbnail_height = std::nullopt,
                         .cleanup_jpegs = {},
                         .current_thumbnail_clip = std::nullopt};
}

/// What a report looks at media with.
struct media_readers {
    media_readers(const media_services& media, const report_options& options, diagnostics& out,
                  progress& display)
        : is_asked_for(media.is_asked_for), locator(media.locator), tags(locator, media.tags),
          thumbnails(thumbnails_from(media, options, locator, out))
    {
        if (media.probe != nullptr)
            inspection.emplace(media_inspection{locator, *media.probe, display});
    }
    media_readers(const media_readers&) = delete;
    media_readers& operator=(const media_readers&) = delete;

    bool is_asked_for;
    counted_media locator;
    audio_tag_catalogue tags;
    std::optional<thumbnail_run> thumbnails;
    std::optional<media_inspection> inspection;

    account losses() const
    {
        account lost;
        if (is_asked_for)
            lost += locator.losses();
        if (thumbnails)
            lost += thumbnails->lost;
        return lost;
    }
};

/// The rows that were to have a picture, where there is no folder to make it in.
account pictures_without_a_place(const report_services& services, const report_options& options,
                                 const report_rows& rows)
{
    account lost;
    const media_services* media = services.media;
    if (!options.inpoint_thumbnail_jpegs || media == nullptr || media->pictures == nullptr
        || media->folder != nullptr)
        return lost;
    for (const clip_record* clip : rows.clip_data_array) {
        if (clip->image_time)
            lost.add(loss_kind::unmade_pictures);
    }
    return lost;
}

std::vector<int> ticks_of(const track_checkboxes& checkboxes)
{
    return checkboxes.current.value_or(std::vector<int>());
}

/// Writes the report, and keeps or deletes the pictures.
account write_report(const file_format& format, const writing& what, const analysis_result& analysis,
                     const report_options& options, const report_services& services,
                     const thumbnail_run* thumbnails)
{
    if (thumbnails != nullptr && options.keep_thumbnails) {
        const illustrated_report made = write_with_thumbnails(format, what, analysis, *services.media);
        if (services.desktop != nullptr)
            services.desktop->open_folder(made.pictures);
        return made.lost;
    }
    account lost = format.write(what);
    if (thumbnails != nullptr)
        delete_thumbnails(*thumbnails);
    return lost;
}

} // namespace

account save_excel(const analysis_result& analysis, const track_checkboxes& video_checkboxes,
                   const track_checkboxes& audio_checkboxes, const report_options& options,
                   const std::filesystem::path& path, const report_services& services)
{
    std::optional<media_readers> media;
    if (services.media != nullptr)
        media.emplace(*services.media, options, services.out, services.display);
    thumbnail_run* thumbnails = media && media->thumbnails ? &*media->thumbnails : nullptr;
    if (media && media->is_asked_for)
        media->locator.expect(documented_media_of(analysis.media_files));
    const report made = make_report(analysis, {ticks_of(video_checkboxes), ticks_of(audio_checkboxes)},
                                    options, media ? &media->tags : nullptr, thumbnails,
                                    media && media->inspection ? &*media->inspection : nullptr);
    services.display.begin(static_cast<std::int64_t>(progress_steps(made)) + 1); // one for the saving
    if (thumbnails != nullptr)
        prepare_thumbnails(made.rows->clip_data_array, *thumbnails);

    account lost = write_report(xls_workbooks,
                                {.sheets = made.sheets,
                                 .colors = colors_of(options),
                                 .title = analysis.is_sequence ? analysis.sequence_name : "Bin Clips",
                                 .path = path,
                                 .out = services.out,
                                 .display = services.display},
                                analysis, options, services, thumbnails);
    if (media)
        lost += media->losses();
    lost += pictures_without_a_place(services, options, *made.rows);
    services.display.end();
    return lost;
}

} // namespace tallyframe
