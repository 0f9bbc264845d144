// SPDX-License-Identifier: MIT
#include "media_files/report_media.h"

#include "media_files/helper_thumbnailer.h"
#include "media_files/program_folders.h"
#include "run/failures.h"

#include <sys/sysinfo.h>
#include <unistd.h>

#include <algorithm>
#include <thread>

namespace tallyframe {

namespace {

/// Files that decode side by side; each decoder may use several processors as well.
constexpr unsigned most_helpers = 8;

/// Less is not enough for the largest films that are in use: rather one helper than several.
constexpr std::uint64_t memory_for_a_helper = 1ULL << 30U;

/// Less is not enough for any film.
constexpr std::uint64_t least_limit = 128U << 20U;

std::uint64_t memory_of_this_machine()
{
    struct sysinfo machine = {};
    return sysinfo(&machine) == 0 ? std::uint64_t{machine.totalram} * machine.mem_unit : 0;
}

std::optional<mdls_tag_reader> system_tag_reader(progress& display)
{
    const std::optional<std::filesystem::path> mdls = program_on_path("mdls");
    if (!mdls)
        return std::nullopt;
    output_limits limits;
    limits.look = [&display] { display.leave_if_cancelled(); };
    return mdls_tag_reader(*mdls, limits);
}

/// As many helpers as there are processors, as long as each has memory for the largest films.
makers_settings settings_of_makers(std::uint64_t most_memory)
{
    const std::uint64_t memory = most_memory != 0 ? most_memory : memory_of_this_machine() / 4;
    const std::uint64_t processors = std::clamp(std::thread::hardware_concurrency(), 1U, most_helpers);
    makers_settings settings = {media_program(), 1, {}};
    settings.helpers = std::clamp<std::uint64_t>(memory / memory_for_a_helper, 1, processors);
    settings.limits.memory = std::max(memory / settings.helpers, least_limit);
    return settings;
}

std::unique_ptr<picture_store> store_of_this_user()
{
    const std::optional<std::filesystem::path> cache = user_cache_folder();
    return cache ? std::make_unique<picture_store>(*cache / "tallyframe" / "pictures", media_program())
                 : nullptr;
}

std::unique_ptr<thumbnailer> made_thumbnailer(const media_choice& choice, diagnostics& out, progress& display)
{
    if (access(media_program().c_str(), X_OK) != 0)
        throw failure(
            "The part of the program that makes thumbnails is missing. Install Tallyframe again, or "
            "report without thumbnails. ("
            + media_program().string() + ")");
    return std::make_unique<helper_thumbnailer>(
        resource_folder(),
        std::make_unique<picture_makers>(settings_of_makers(choice.most_memory), out, display),
        choice.uses_store ? store_of_this_user() : nullptr);
}

} // namespace

report_media::report_media(const media_choice& choice, diagnostics& out, progress& display)
    : wants_pictures_(choice.wants_pictures), keeps_pictures_(choice.keeps_pictures),
      is_asked_for_(choice.wants_pictures || !choice.map.empty() || !choice.search.empty()
                    || choice.checks_files),
      questions_(media_program(), {}, display), probe_(questions_),
      locator_(choice.map, choice.search, out, display, &probe_), system_tags_(system_tag_reader(display)),
      tags_in_files_(questions_),
      tags_(system_tags_ ? static_cast<audio_tag_reader&>(*system_tags_) : tags_in_files_),
      pictures_(wants_pictures_ ? made_thumbnailer(choice, out, display) : nullptr)
{
}

std::optional<thumbnail_folder> report_media::folder_for(const std::filesystem::path& workbook) const
{
    if (!wants_pictures_)
        return std::nullopt;
    return keeps_pictures_ ? thumbnail_folder::beside(workbook) : thumbnail_folder::temporary();
}

media_services report_media::services(std::optional<thumbnail_folder>& folder)
{
    return {locator_, tags_, pictures_.get(), folder ? &*folder : nullptr, is_asked_for_, &probe_};
}

account report_media::losses() const
{
    account lost = locator_.losses();
    lost += tags_in_files_.losses();
    return lost;
}

} // namespace tallyframe
