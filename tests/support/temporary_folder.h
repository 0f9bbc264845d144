// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace tallyframe::testing_support {

/// A folder of its own for one test; it goes with all that is in it, though nobody may write into it any
/// more.
class temporary_folder {
public:
    temporary_folder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "tallyframe-test-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder can be made");
        path_ = name;
    }
    ~temporary_folder()
    {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    temporary_folder(const temporary_folder&) = delete;
    temporary_folder& operator=(const temporary_folder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

    /// Of what is in it, sorted.
    std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }

private:
    std::filesystem::path path_;
};

/// A temporary folder that is the current one while it lives.
class scratch_folder {
public:
    scratch_folder() { std::filesystem::current_path(folder_.path()); }
    ~scratch_folder()
    {
        std::error_code ignored;
        std::filesystem::current_path(before_, ignored);
    }
    scratch_folder(const scratch_folder&) = delete;
    scratch_folder& operator=(const scratch_folder&) = delete;

    std::vector<std::string> files() const { return folder_.names(); }

private:
    std::filesystem::path before_ = std::filesystem::current_path();
    temporary_folder folder_;
};

} // namespace tallyframe::testing_support
