// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/workbook.h"

#include <filesystem>
#include <string>
#include <vector>

/// A folder of its own under the system's temporary folder, removed at the end.
class temporary_folder {
public:
    temporary_folder();
    ~temporary_folder();
    temporary_folder(const temporary_folder&) = delete;
    temporary_folder& operator=(const temporary_folder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
    const std::filesystem::path& path() const { return path_; }
    std::vector<std::string> names() const; ///< of what is in it, sorted

private:
    std::filesystem::path path_;
};

/// The lines that read_back.py prints of a file.
std::vector<std::string> read_back(const std::filesystem::path& file);

/// Closes the workbook in memory and reads those bytes back.
std::vector<std::string> read_back(xls::workbook& book);

/// Those of the lines that start so, without that start.
std::vector<std::string> lines_of(const std::vector<std::string>& lines, const std::string& start);
