// SPDX-License-Identifier: MIT
#include "media_files/folder_search.h"

#include "media_files/folder_reader.h"
#include "run/log.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <system_error>
#include <utility>

namespace tallyframe {

namespace {

namespace fs = std::filesystem;

class folder_walk {
public:
    folder_walk(file_index& index, progress& display) : index_(index), display_(display) { }

    void walk(const fs::path& root)
    {
        message_ = "Searching " + root.string();
        links_ = {root};
        while (!links_.empty()) {
            fs::path start = std::move(links_.back());
            links_.pop_back();
            list(std::move(start));
        }
    }

    const std::map<fs::path, std::error_code>& unread() const { return unread_; }

private:
    /// All below a folder, apart from what links lead to: these wait.
    void list(fs::path start)
    {
        std::vector<fs::path> files;
        std::vector<fs::path> links;
        std::vector<fs::path> folders = {std::move(start)};
        while (!folders.empty()) {
            const fs::path folder = std::move(folders.back());
            folders.pop_back();
            read(folder, files, folders, links);
        }
        std::sort(files.begin(), files.end());
        for (fs::path& file : files)
            index_.add(std::move(file));
        std::sort(links.begin(), links.end(), std::greater<>()); // the first is taken first
        links_.insert(links_.end(), links.begin(), links.end());
    }

    void read(const fs::path& folder, std::vector<fs::path>& files, std::vector<fs::path>& folders,
              std::vector<fs::path>& links)
    {
        folder_reader entries(folder);
        if (!entries.error() && !seen_.insert(entries.identity()).second)
            return;
        while (const std::optional<folder_entry> entry = entries.next()) {
            display_.show_message(message_);
            fs::path path = folder / entry->name;
            if (entry->is == folder_entry::kind::link)
                follow(std::move(path), files, links);
            else if (entry->is == folder_entry::kind::folder)
                folders.push_back(std::move(path));
            else if (entry->is == folder_entry::kind::file)
                files.push_back(std::move(path));
        }
        if (entries.error())
            unread_.emplace(folder, entries.error());
    }

    static void follow(fs::path link, std::vector<fs::path>& files, std::vector<fs::path>& links)
    {
        std::error_code unseen;
        const fs::file_status status = fs::status(link, unseen);
        if (fs::is_directory(status))
            links.push_back(std::move(link));
        else if (fs::is_regular_file(status))
            files.push_back(std::move(link));
    }

    file_index& index_;
    progress& display_;
    std::string message_;
    std::vector<fs::path> links_;
    std::set<std::pair<dev_t, ino_t>> seen_;
    std::map<fs::path, std::error_code> unread_;
};

} // namespace

found_files files_below(const std::vector<fs::path>& folders, diagnostics& out, progress& display)
{
    found_files found;
    folder_walk search(found.index, display);
    for (const fs::path& folder : folders)
        search.walk(folder);
    found.index.finish();
    display.show_message({});
    for (const auto& [folder, error] : search.unread()) {
        log(out, "media: cannot search " + folder.string() + ": " + error.message());
        found.lost.add(loss_kind::unread_folders, 1, folder.string());
    }
    return found;
}

} // namespace tallyframe
