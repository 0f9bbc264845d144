// SPDX-License-Identifier: MIT
#include "media_files/thumbnail_folder.h"

#include "run/failures.h"
#include "text/visible_text.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace tallyframe {

namespace fs = std::filesystem;

namespace {

constexpr const char* replaced_pictures = "replaced";

[[noreturn]] void refuse_place(const fs::path& place, const std::string& reason)
{
    throw failure("The report was not saved. Its thumbnails cannot be kept in " + visible_name(place.string())
                  + ": " + reason);
}

std::string reason_of(const std::error_code& error)
{
    return error.message() + ". Choose another name or folder for the workbook.";
}

/// A new folder that nobody else may look into; its name starts with `name`. Empty: errno says why.
fs::path private_folder(const fs::path& parent, const std::string& name)
{
    std::string path = (parent / (name + ".XXXXXX")).string();
    return mkdtemp(path.data()) != nullptr ? fs::path(path) : fs::path();
}

std::vector<fs::path> names_in(const fs::path& folder, std::error_code& error)
{
    std::vector<fs::path> names;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        names.push_back(entry->path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

/// Whether a file is called as the pictures of reports are: "0002 Clip.jpg".
bool is_picture_name(std::string_view name)
{
    constexpr std::size_t fewest_digits = 4;
    const std::size_t digits = std::min(name.find_first_not_of("0123456789"), name.size());
    return digits >= fewest_digits && name.substr(digits).starts_with(' ') && name.ends_with(".jpg");
}

} // namespace

fs::path place_of_thumbnails(const fs::path& workbook)
{
    return workbook.parent_path() / (workbook.stem().string() + std::string(thumbnails_ending));
}

std::optional<thumbnail_folder> thumbnail_folder::temporary()
{
    std::error_code error;
    const fs::path parent = fs::temp_directory_path(error);
    fs::path path = error ? fs::path() : private_folder(parent, "tallyframe");
    if (path.empty())
        return std::nullopt;
    return thumbnail_folder(std::move(path), {});
}

thumbnail_folder thumbnail_folder::beside(const fs::path& workbook)
{
    std::error_code error;
    fs::path place = fs::absolute(place_of_thumbnails(workbook), error);
    const fs::file_status status = fs::status(place, error);
    if (!fs::status_known(status))
        refuse_place(place, reason_of(error));
    if (fs::exists(status) && !fs::is_directory(status))
        refuse_place(place,
                     "there is a file of this name. Move it, or choose another name for the workbook.");
    // Inside a place that is there: it may be a link to another disk, and it may be closed.
    const fs::path parent = fs::exists(status) ? place : place.parent_path();
    fs::path path = private_folder(parent, ".thumbnails");
    if (path.empty())
        refuse_place(place, reason_of({errno, std::generic_category()}));
    return {std::move(path), std::move(place)};
}

thumbnail_folder::thumbnail_folder(fs::path path, fs::path place)
    : path_(std::move(path)), place_(std::move(place))
{
}

thumbnail_folder::thumbnail_folder(thumbnail_folder&& other) noexcept
    : path_(std::exchange(other.path_, {})), place_(std::exchange(other.place_, {})),
      made_place_(other.made_place_), moves_(std::move(other.moves_))
{
}

thumbnail_folder::~thumbnail_folder()
{
    std::error_code unseen;
    if (!path_.empty())
        fs::remove_all(path_, unseen);
}

fs::path thumbnail_folder::publish(const precious_files& is_precious)
{
    if (place_.empty())
        return path_;
    std::error_code error;
    const std::vector<fs::path> names = names_in(path_, error);
    if (error)
        refuse(reason_of(error));
    for (const fs::path& name : names) {
        const fs::path target = place_ / name;
        if (fs::is_directory(fs::symlink_status(target, error)))
            refuse("there is a folder " + visible_name(name.string())
                   + " in it. Move that, or choose another name for the workbook.");
        if (fs::exists(target, error) && is_precious(target))
            refuse("the file " + visible_name(name.string())
                   + " in it belongs to the timeline. Choose another name for the workbook.");
    }
    made_place_ = fs::create_directory(place_, error);
    if (!error)
        fs::create_directory(path_ / replaced_pictures, error);
    if (!error)
        error = put_away_older_pictures(names, is_precious);
    for (const fs::path& name : names) {
        if (!error)
            error = put_in_place(name);
    }
    if (error)
        refuse(reason_of(error));
    return place_;
}

/// Those that no new picture replaces: a second report may have fewer rows, and other clips in them.
std::error_code thumbnail_folder::put_away_older_pictures(const std::vector<fs::path>& new_names,
                                                          const precious_files& is_precious)
{
    std::error_code error;
    for (const fs::path& name : names_in(place_, error)) {
        const fs::path file = place_ / name;
        if (error || !is_picture_name(name.string())
            || std::binary_search(new_names.begin(), new_names.end(), name)
            || !fs::is_regular_file(fs::symlink_status(file, error)) || is_precious(file))
            continue;
        error = make({file, path_ / replaced_pictures / name});
    }
    return error;
}

std::error_code thumbnail_folder::put_in_place(const fs::path& name)
{
    const fs::path target = place_ / name;
    std::error_code error;
    if (fs::exists(fs::symlink_status(target, error)))
        error = make({target, path_ / replaced_pictures / name});
    else
        error.clear();
    return error ? error : make({path_ / name, target});
}

std::error_code thumbnail_folder::make(const move& wanted)
{
    std::error_code error;
    fs::rename(wanted.from, wanted.to, error);
    if (!error)
        moves_.push_back(wanted);
    return error;
}

std::string thumbnail_folder::take_back()
{
    std::error_code error;
    for (; !moves_.empty() && !error; moves_.pop_back())
        fs::rename(moves_.back().to, moves_.back().from, error);
    if (!error) {
        std::error_code in_use;
        if (made_place_)
            fs::remove(place_, in_use);
        return {};
    }
    return " The folder " + visible_name(place_.string())
        + " holds some of its pictures all the same, and older ones are in "
        + visible_name((std::exchange(path_, {}) / replaced_pictures).string()) + '.';
}

void thumbnail_folder::refuse(const std::string& reason)
{
    refuse_place(place_, reason + take_back());
}

} // namespace tallyframe
