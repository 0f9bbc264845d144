// SPDX-License-Identifier: MIT
#include "workbook/md5_text.h"
#include "workbook/records/md5.h"

#include <gtest/gtest.h>

namespace {

std::string md5_of(const std::string& text)
{
    return md5_text({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

TEST(md5, gives_the_digests_of_its_specification)
{
    EXPECT_EQ(md5_of(""), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(md5_of("a"), "0cc175b9c0f1b6a831c399e269772661");
    EXPECT_EQ(md5_of("abc"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(md5_of("message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
    EXPECT_EQ(md5_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"),
              "d174ab98d277d9f5a5611c2c9f419d9f");
    EXPECT_EQ(md5_of("12345678901234567890123456789012345678901234567890123456789012345678901234567890"),
              "57edf4a22be3c955ac49da2e2107b67a");
}

TEST(md5, has_room_for_the_length_in_the_last_block_or_in_one_more)
{
    EXPECT_EQ(md5_of(std::string(55, 'x')), "04364420e25c512fd958a70738aa8f72");
    EXPECT_EQ(md5_of(std::string(56, 'x')), "668a72d5ba17f08e62dabcafad6db14b");
    EXPECT_EQ(md5_of(std::string(64, 'x')), "c1bb4f81d892b2d57947682aeb252456");
}

} // namespace
