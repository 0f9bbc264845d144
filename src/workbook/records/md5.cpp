// SPDX-License-Identifier: MIT
//
//     the bytes | 80 | 00 ... up to 56 bytes of the last block | how many bits there are: u64
//
// This fills blocks of 64 bytes. Each is stirred into a state of four words in 64 steps.
#include "workbook/records/md5.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>

namespace xls {

namespace {

constexpr std::size_t block_size = 64;
constexpr std::size_t step_count = 64;

using state_words = std::array<std::uint32_t, 4>;
using block_words = std::array<std::uint32_t, 16>;

/// |sin(1)|, |sin(2)| ... as fractions of 2^32.
std::array<std::uint32_t, step_count> sines()
{
    constexpr double scale = 4294967296.0;
    std::array<std::uint32_t, step_count> table{};
    for (std::size_t step = 0; step < step_count; ++step)
        table[step] = static_cast<std::uint32_t>(std::fabs(std::sin(static_cast<double>(step + 1))) * scale);
    return table;
}

block_words words_of(byte_view block)
{
    block_words words{};
    for (std::size_t i = 0; i < block_size; ++i)
        words[i / 4] |= static_cast<std::uint32_t>(block[i]) << (8 * (i % 4));
    return words;
}

/// What a step mixes in: a function of three words of the state, and a word of the block.
std::uint32_t mixed(std::size_t step, const state_words& state, const block_words& block)
{
    const auto [a, b, c, d] = state;
    switch (step / 16) {
    case 0:
        return ((b & c) | (~b & d)) + block[step];
    case 1:
        return ((d & b) | (~d & c)) + block[(5 * step + 1) % 16];
    case 2:
        return (b ^ c ^ d) + block[(3 * step + 5) % 16];
    default:
        return (c ^ (b | ~d)) + block[7 * step % 16];
    }
}

void stir_in(state_words& state, byte_view block)
{
    static const std::array<std::uint32_t, step_count> table = sines();
    constexpr std::array<std::array<int, 4>, 4> turns{
        {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}}};
    const auto words = words_of(block);
    auto stirred = state;
    for (std::size_t step = 0; step < step_count; ++step) {
        const auto sum = stirred[0] + mixed(step, stirred, words) + table[step];
        const auto turned = std::rotl(sum, turns[step / 16][step % 4]);
        stirred = {stirred[3], stirred[1] + turned, stirred[1], stirred[2]};
    }
    for (std::size_t i = 0; i < state.size(); ++i)
        state[i] += stirred[i];
}

} // namespace

std::array<std::uint8_t, 16> md5(byte_view bytes)
{
    state_words state{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
    const auto bits = little_endian(static_cast<std::uint64_t>(bytes.size()) * 8);
    for (; bytes.size() >= block_size; bytes = bytes.subspan(block_size))
        stir_in(state, bytes.first(block_size));

    std::array<std::uint8_t, 2 * block_size> tail{};
    std::ranges::copy(bytes, tail.begin());
    tail[bytes.size()] = 0x80;
    const auto tail_size = bytes.size() + 1 + bits.size() <= block_size ? block_size : 2 * block_size;
    std::ranges::copy(bits, tail.begin() + static_cast<std::ptrdiff_t>(tail_size - bits.size()));
    for (std::size_t at = 0; at < tail_size; at += block_size)
        stir_in(state, byte_view(tail).subspan(at, block_size));

    std::array<std::uint8_t, 16> digest{};
    for (std::size_t i = 0; i < digest.size(); ++i)
        digest[i] = static_cast<std::uint8_t>(state[i / 4] >> (8 * (i % 4)));
    return digest;
}

} // namespace xls
