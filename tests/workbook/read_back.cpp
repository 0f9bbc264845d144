// SPDX-License-Identifier: MIT
#include "workbook/read_back.h"

#include "support/temporary_folder.h"

#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>

namespace fs = std::filesystem;

std::vector<std::string> read_back(const fs::path& file)
{
    struct closer {
        void operator()(std::FILE* pipe) const { pclose(pipe); }
    };
    const auto command = std::string(XLRD_PYTHON " " READ_BACK_SCRIPT " '") + file.string() + "'";
    const std::unique_ptr<std::FILE, closer> pipe(popen(command.c_str(), "r"));
    std::string output;
    for (int byte = std::fgetc(pipe.get()); byte != EOF; byte = std::fgetc(pipe.get()))
        output += static_cast<char>(byte);
    std::vector<std::string> lines;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::vector<std::string> read_back(xls::workbook& book)
{
    const tallyframe::testing_support::temporary_folder folder;
    const auto path = folder / "book.xls";
    const auto bytes = book.to_bytes();
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return read_back(path);
}

std::vector<std::string> lines_of(const std::vector<std::string>& lines, const std::string& start)
{
    std::vector<std::string> found;
    for (const auto& line : lines)
        if (line.starts_with(start))
            found.push_back(line.substr(start.size()));
    return found;
}
