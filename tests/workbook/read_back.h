// SPDX-License-Identifier: MIT
#pragma once

#include "workbook/workbook.h"

#include <filesystem>
#include <string>
#include <vector>

/// The lines that read_back.py prints of a file.
std::vector<std::string> read_back(const std::filesystem::path& file);

/// Closes the workbook in memory and reads those bytes back.
std::vector<std::string> read_back(xls::workbook& book);

/// Those of the lines that start so, without that start.
std::vector<std::string> lines_of(const std::vector<std::string>& lines, const std::string& start);
