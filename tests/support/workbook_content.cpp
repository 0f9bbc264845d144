// SPDX-License-Identifier: MIT
#include "support/workbook_content.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace tallyframe::testing_support {

namespace {

struct pipe_closer {
    void operator()(std::FILE* pipe) const { pclose(pipe); }
};

std::string output_of(const std::string& command)
{
    const std::unique_ptr<std::FILE, pipe_closer> pipe(popen(command.c_str(), "r"));
    std::string output;
    for (int byte = std::fgetc(pipe.get()); byte != EOF; byte = std::fgetc(pipe.get()))
        output += static_cast<char>(byte);
    return output;
}

sheet_content sheet_of(const nlohmann::json& json)
{
    sheet_content sheet;
    sheet.name = json["name"];
    sheet.frozen = {json["frozen"][0], json["frozen"][1]};
    for (const auto& column : json["columns"]) {
        sheet.widths[column[0]] = column[1];
        sheet.column_looks[column[0]] = column[2];
    }
    for (const auto& cell : json["cells"])
        sheet.cells[{cell[0], cell[1]}] = {cell[2], cell[3], cell[4]};
    return sheet;
}

} // namespace

cell_content sheet_content::cell(std::size_t row, std::size_t column) const
{
    const auto found = cells.find({row, column});
    return found == cells.end() ? cell_content() : found->second;
}

std::size_t sheet_content::row_count() const
{
    return cells.empty() ? 0 : cells.rbegin()->first.first + 1;
}

std::vector<std::string> sheet_content::row(std::size_t row) const
{
    std::vector<std::string> texts;
    for (const auto& [place, content] : cells) {
        if (place.first != row)
            continue;
        texts.resize(place.second, "-");
        texts.push_back(content.text);
    }
    return texts;
}

std::vector<std::string> sheet_content::column(std::size_t column) const
{
    std::vector<std::string> texts;
    for (std::size_t row = 0; row < row_count(); ++row) {
        const cell_content content = cell(row, column);
        texts.push_back(content.kind.empty() ? "-" : content.text);
    }
    return texts;
}

std::vector<std::string> sheet_content::looks(std::size_t row) const
{
    std::vector<std::string> looks;
    for (const auto& [place, content] : cells) {
        if (place.first == row && std::find(looks.begin(), looks.end(), content.look) == looks.end())
            looks.push_back(content.look);
    }
    return looks;
}

std::vector<std::string> workbook_content::names() const
{
    std::vector<std::string> names;
    for (const sheet_content& sheet : sheets)
        names.push_back(sheet.name);
    return names;
}

const sheet_content& workbook_content::sheet(const std::string& name) const
{
    for (const sheet_content& sheet : sheets) {
        if (sheet.name == name)
            return sheet;
    }
    throw std::out_of_range("the workbook has no sheet \"" + name + "\"");
}

workbook_content read_workbook(const std::filesystem::path& file)
{
    const std::string output = output_of(XLRD_PYTHON " " READ_WORKBOOK_SCRIPT " '" + file.string() + "'");
    if (output.empty())
        throw std::runtime_error("xlrd cannot read " + file.string());
    workbook_content content;
    for (const auto& sheet : nlohmann::json::parse(output))
        content.sheets.push_back(sheet_of(sheet));
    return content;
}

} // namespace tallyframe::testing_support
