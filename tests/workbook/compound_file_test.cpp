// SPDX-License-Identifier: MIT
#include "workbook/file/compound_file.h"
#include "workbook/md5_text.h"
#include "workbook/workbook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <system_error>
#include <utility>

namespace {

/// A stream of that many bytes, handed on in parts.
void write_bytes(std::size_t size, const xls::byte_sink& sink)
{
    constexpr std::size_t most = 100'000;
    std::vector<std::uint8_t> part;
    for (std::size_t at = 0; at < size; at += part.size()) {
        part.resize(std::min(most, size - at));
        for (std::size_t i = 0; i < part.size(); ++i)
            part[i] = static_cast<std::uint8_t>((at + i) % 251);
        sink(part);
    }
}

xls::compound_content content_of(std::size_t size)
{
    return {.title = "Reel 1",
            .application = "Tallyframe",
            .workbook_size = size,
            .write_workbook = [size](const xls::byte_sink& sink) { write_bytes(size, sink); }};
}

struct known_file {
    std::size_t workbook_size;
    std::size_t size;
    const char* md5;
};

/// As libgsf, which shares nothing with the code under test, lays them out.
constexpr known_file known_files[] = {
    {1, 2560, "79075bf393c95669e189a899850fe19f"},
    {64, 2560, "bbd82ee31ec33eab2c7b2d04a3c83f18"},
    {4095, 6656, "8a3ba8c7846919d7258afae1c0a6a8b7"}, // in pieces
    {4096, 6656, "e05043d6d412284155c3d22d1cd07c4d"}, // in sectors
    {65'000, 68'096, "aa477b22d56f28818c14f2fc67f57d37"}, // two sectors of the table
    {7'086'080, 7'143'936, "e22bebddbbeb7f19250069eee16e0efb"}, // the table that the header can list
    {7'086'592, 7'145'472, "7009fd5b0e7c337c913caaf47803dfef"}, // a sector more
    {15'500'000, 15'625'728, "72e4b5fe185b2b243adcbfc4d6e5c9da"}, // a list of two sectors
};

TEST(compound_file, is_laid_out_as_others_do_it)
{
    for (const known_file& file : known_files) {
        const auto bytes = xls::compound_file_bytes(content_of(file.workbook_size));
        EXPECT_EQ(bytes.size(), file.size);
        EXPECT_EQ(md5_text(bytes), file.md5) << "a workbook of " << file.workbook_size << " bytes";
    }
}

TEST(compound_file, leaves_out_empty_properties)
{
    auto content = content_of(5000);
    content.title = content.application = "";
    EXPECT_EQ(md5_text(xls::compound_file_bytes(content)), "5a60fa8d7dc67e05089fc04070f7cbf2");
}

struct closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using file_ptr = std::unique_ptr<std::FILE, closer>;

TEST(compound_file, is_the_same_on_the_disk)
{
    const file_ptr file(std::tmpfile());
    xls::write_compound_file(file.get(), content_of(65'000));
    std::vector<std::uint8_t> bytes(70'000);
    std::rewind(file.get());
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    EXPECT_EQ(bytes, xls::compound_file_bytes(content_of(65'000)));
}

TEST(compound_file, tells_why_the_disk_did_not_take_it)
{
    const file_ptr full(std::fopen("/dev/full", "wb"));
    try {
        xls::write_compound_file(full.get(), content_of(100));
        ADD_FAILURE() << "the disk is full";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code().value(), ENOSPC);
    }
}

TEST(compound_file, refuses_a_file_that_does_not_hold_all_of_it)
{
    const file_ptr lost(std::fopen("/dev/null", "wb"));
    EXPECT_THROW(xls::write_compound_file(lost.get(), content_of(100)), std::system_error);
}

TEST(compound_file, refuses_a_workbook_of_another_size_than_it_was_to_have)
{
    for (const std::size_t size : {99U, 101U, 5000U}) {
        auto content = content_of(100);
        content.write_workbook = content_of(size).write_workbook;
        try {
            xls::compound_file_bytes(content);
            ADD_FAILURE() << size << " bytes instead of 100";
        } catch (const xls::workbook_error& error) {
            EXPECT_STREQ(error.what(),
                         "The workbook came out incomplete and was not saved. Save it once more.");
        }
    }
}

} // namespace
