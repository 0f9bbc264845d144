// SPDX-License-Identifier: MIT
#include "media_files/picture_store.h"

#include "media_files/media_file.h"
#include "media_files/media_protocol.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace tallyframe {

namespace {

/// The folder's folders: each is looked after for itself, so that no run has to look at all of the store.
constexpr std::uint64_t shelf_count = 64;

constexpr std::string_view unfinished = ".unfinished-";

/// Whoever left it is not at it any more.
constexpr auto oldest_unfinished = std::chrono::hours(1);

std::uint64_t hash_of(std::string_view text)
{
    std::uint64_t hash = 0xCBF29CE484222325U; // FNV-1a
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    return hash;
}

/// Changes when the file does; nothing when there is none.
std::optional<std::string> identity_of(const std::filesystem::path& file)
{
    struct stat found = {};
    if (stat(file.c_str(), &found) != 0 || !S_ISREG(found.st_mode))
        return std::nullopt;
    std::error_code unknown;
    const std::filesystem::path whole = std::filesystem::absolute(file, unknown);
    return fmt::format("{}\n{} {}.{} {}", whole.string(), found.st_size, found.st_mtim.tv_sec,
                       found.st_mtim.tv_nsec, found.st_ino);
}

bool write_whole(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

std::string content_of(const media_file& file)
{
    std::vector<std::uint8_t> bytes(std::min<std::uint64_t>(file.size(), most_content_bytes));
    bytes.resize(file.read(0, bytes));
    return {bytes.begin(), bytes.end()};
}

} // namespace

std::optional<std::filesystem::path> user_cache_folder()
{
    // NOLINTBEGIN(concurrency-mt-unsafe): nobody sets them
    const char* chosen = std::getenv("XDG_CACHE_HOME");
    const char* home = std::getenv("HOME");
    // NOLINTEND(concurrency-mt-unsafe)
    if (chosen != nullptr && std::filesystem::path(chosen).is_absolute())
        return chosen;
    if (home != nullptr && std::filesystem::path(home).is_absolute())
        return std::filesystem::path(home) / ".cache";
    return std::nullopt;
}

picture_store::picture_store(std::filesystem::path folder, const std::filesystem::path& maker,
                             std::uint64_t most_bytes)
    : folder_(std::move(folder)), maker_(identity_of(maker).value_or("")), most_bytes_(most_bytes)
{
}

picture_store::~picture_store()
{
    for (const std::filesystem::path& shelf : changed_shelves_) {
        try {
            trim(shelf);
        } catch (const std::exception&) { // the next run may
        }
    }
}

std::optional<jpeg_picture> picture_store::find(const picture_key& key)
{
    const std::optional<entry> kept = entry_of(key);
    if (!kept)
        return std::nullopt;
    const media_file file(kept->place);
    message stored = {message_kind::picture, content_of(file)};
    if (!stored.content.starts_with(kept->description))
        return std::nullopt;
    stored.content.erase(0, kept->description.size());
    std::optional<picture_answer> answer = picture_in(stored);
    if (!answer)
        return std::nullopt;
    futimens(file.descriptor(), nullptr); // used now
    return std::move(answer->picture);
}

bool picture_store::contains(const picture_key& key)
{
    const std::optional<entry> kept = entry_of(key);
    return kept && access(kept->place.c_str(), R_OK) == 0;
}

void picture_store::keep(const picture_key& key, const jpeg_picture& picture)
{
    const std::optional<entry> kept = entry_of(key);
    if (!kept)
        return;
    const std::filesystem::path shelf = kept->place.parent_path();
    std::error_code failed;
    if (std::filesystem::create_directories(shelf, failed))
        std::filesystem::permissions(shelf, std::filesystem::perms::owner_all, failed);
    std::string name = fmt::format("{}/{}XXXXXX", shelf.string(), unfinished);
    const file_descriptor file(mkostemp(name.data(), O_CLOEXEC));
    if (!file.is_open())
        return;
    changed_shelves_.insert(shelf);
    const bool is_whole =
        write_whole(file.number(), kept->description + message_of(std::optional(picture)).content);
    if (!is_whole || std::rename(name.c_str(), kept->place.c_str()) != 0)
        unlink(name.c_str());
}

std::optional<picture_store::entry> picture_store::entry_of(const picture_key& key)
{
    auto identity = identities_.find(key.file);
    if (identity == identities_.end())
        identity = identities_.emplace(key.file, identity_of(key.file).value_or("")).first;
    if (identity->second.empty() || maker_.empty())
        return std::nullopt;
    std::string description = fmt::format("{}\n{}\n{}/{} {}\n", maker_, identity->second, key.time.value,
                                          key.time.timescale, key.width);
    const std::uint64_t hash = hash_of(description);
    return entry{folder_ / fmt::format("{:02x}", hash % shelf_count) / fmt::format("{:016x}", hash),
                 std::move(description)};
}

void picture_store::trim(const std::filesystem::path& shelf) const
{
    struct kept_file {
        std::filesystem::file_time_type used;
        std::uint64_t size;
        std::filesystem::path path;
    };
    const auto now = std::filesystem::file_time_type::clock::now();
    std::vector<kept_file> files;
    std::uint64_t bytes = 0;
    std::error_code unseen;
    for (auto file = std::filesystem::directory_iterator(shelf, unseen);
         file != std::filesystem::directory_iterator(); file.increment(unseen)) {
        const auto used = file->last_write_time(unseen);
        const bool is_unfinished = file->path().filename().string().starts_with(unfinished);
        if (is_unfinished && now - used > oldest_unfinished)
            std::filesystem::remove(file->path(), unseen);
        if (is_unfinished)
            continue;
        files.push_back({used, file->file_size(unseen), file->path()});
        bytes += files.back().size;
    }
    std::sort(files.begin(), files.end(),
              [](const kept_file& a, const kept_file& b) { return a.used < b.used; });
    const std::uint64_t most = most_bytes_ / shelf_count;
    for (const kept_file& oldest : files) {
        if (bytes <= most)
            break;
        std::filesystem::remove(oldest.path, unseen);
        bytes -= oldest.size;
    }
}

} // namespace tallyframe
