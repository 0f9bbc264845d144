// SPDX-License-Identifier: MIT
#include "report/media_use.h"
#include "support/records.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallyframe {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing_support::clip;

class media_use_list_ : public testing::Test {
protected:
    std::size_t file(const std::string& path, double rate = 25)
    {
        file_record record;
        record.path = path;
        record.fcp_rate = frame_rate{rate, false};
        record.video_format = "";
        analysis_.media_files.push_back(record);
        return analysis_.media_files.size() - 1;
    }

    void show(std::size_t media_file, std::optional<used_frames> frames)
    {
        clip_record record = clip("Clip", "V1", 0, 9);
        record.media_file = media_file;
        record.media_frames = frames;
        clips_.push_back(record);
    }

    std::vector<media_use> uses() const
    {
        std::vector<const clip_record*> clips;
        for (const clip_record& record : clips_)
            clips.push_back(&record);
        media_use_list list;
        list.add(analysis_, clips);
        return list.finished();
    }

    analysis_result analysis_;

private:
    std::vector<clip_record> clips_;
};

TEST_F(media_use_list_, joins_ranges_that_overlap_or_touch)
{
    const std::size_t a = file("/a.mov");
    for (const used_frames range : {used_frames{50, 59}, {0, 9}, {10, 19}, {55, 70}, {0, 3}, {72, 80}})
        show(a, range);
    ASSERT_THAT(uses(), SizeIs(1));
    EXPECT_EQ(uses().front().clip_count, 6U);
    EXPECT_THAT(uses().front().ranges,
                ElementsAre(used_frames{0, 19}, used_frames{50, 70}, used_frames{72, 80}));
}

TEST_F(media_use_list_, lists_files_as_they_are_met_and_each_path_once)
{
    const std::size_t first = file("/b.mov");
    const std::size_t second = file("/a.mov");
    const std::size_t again = file("/b.mov", 50);
    show(first, used_frames{0, 9});
    show(second, used_frames{0, 9});
    show(again, used_frames{40, 59});
    const std::vector<media_use> all = uses();
    ASSERT_THAT(all, SizeIs(2));
    EXPECT_EQ(all[0].path(), "/b.mov");
    EXPECT_EQ(all[1].path(), "/a.mov");
    EXPECT_THAT(all[0].ranges, ElementsAre(used_frames{0, 9}, used_frames{20, 29}))
        << "at 25 frames a second";
}

TEST_F(media_use_list_, takes_still_pictures_without_a_range)
{
    show(file("/still.png"), std::nullopt);
    ASSERT_THAT(uses(), SizeIs(1));
    EXPECT_THAT(uses().front().ranges, IsEmpty());
}

TEST_F(media_use_list_, leaves_out_what_is_no_file_on_a_disk)
{
    show(file(""), used_frames{0, 9});
    const std::size_t generated = file("Color Matte");
    analysis_.media_files[generated].video_format.reset();
    show(generated, used_frames{0, 9});
    EXPECT_THAT(uses(), IsEmpty());
}

} // namespace

} // namespace tallyframe
