// SPDX-License-Identifier: MIT
#include "media/media_catalogues.h"
#include "support/counting_progress.h"
#include "support/parsed_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using testing::ElementsAre;
using testing_support::counting_progress;
using testing_support::parsed_text;

constexpr frame_rate rate_25{25, false};
constexpr frame_rate rate_30{30, false};

std::string file_from(const std::string& id, const std::string& reel)
{
    return "<file id='" + id + "'><timecode><reel><name>" + reel + "</name></reel></timecode></file>";
}

TEST(media_catalogues, name_each_reel_once_in_order)
{
    const parsed_xml parsed =
        parsed_text("<xmeml>" + file_from("1", "B") + file_from("2", "A") + file_from("3", "B") + "</xmeml>");
    no_progress display;
    media_catalogues catalogues;
    EXPECT_THAT(catalogues.of(parsed.index.files, rate_25, display).reels, ElementsAre("A", "B"));
}

TEST(media_catalogues, are_read_once_for_each_rate)
{
    const parsed_xml parsed = parsed_text("<xmeml>" + file_from("1", "A") + "</xmeml>");
    no_progress display;
    media_catalogues catalogues;
    const media_catalogue& at_25 = catalogues.of(parsed.index.files, rate_25, display);
    const media_catalogue& at_30 = catalogues.of(parsed.index.files, rate_30, display);
    const media_catalogue& of_bins = catalogues.of(parsed.index.files, std::nullopt, display);
    EXPECT_EQ(at_25.files.find("1")->fcp_rate, rate_25); // the file says none of its own
    EXPECT_EQ(at_30.files.find("1")->fcp_rate, rate_30);
    EXPECT_EQ(of_bins.files.find("1")->fcp_rate, std::nullopt);
    EXPECT_EQ(&catalogues.of(parsed.index.files, rate_25, display), &at_25);
    EXPECT_EQ(&catalogues.of(parsed.index.files, rate_30, display), &at_30);
    EXPECT_EQ(&catalogues.of(parsed.index.files, std::nullopt, display), &of_bins);
}

TEST(media_catalogues, take_a_step_for_each_file_whether_it_is_known_or_not)
{
    const parsed_xml parsed = parsed_text("<xmeml>" + file_from("1", "A") + file_from("2", "B") + "</xmeml>");
    media_catalogues catalogues;
    for (int time = 0; time < 2; ++time) {
        counting_progress display;
        catalogues.of(parsed.index.files, rate_25, display);
        EXPECT_EQ(display.steps, 2);
    }
}

} // namespace

} // namespace tallyframe
