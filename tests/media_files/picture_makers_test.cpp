// SPDX-License-Identifier: MIT
#include "media_files/picture_makers.h"
#include "media_files/program_folders.h"
#include "run/failures.h"
#include "support/kept_diagnostics.h"
#include "support/made_media.h"
#include "support/small_files.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

constexpr int width = 160;

/// Does something to the makers' processes whenever the run looks whether it is to stop.
class disturbing_progress final : public progress {
public:
    void begin(std::int64_t) override { }
    void advance(std::string_view) override { }
    void show_message(std::string_view) override { }
    void spin(std::string_view) override { }
    void end() override { }
    void leave_if_cancelled() override { disturb(); }

    std::function<void()> disturb = [] {};
};

class picture_makers_ : public testing::Test {
protected:
    /// Three films, whose frames rows ask for in an order that goes to and fro.
    std::vector<expected_frame> rows(std::size_t count = 60)
    {
        std::vector<std::filesystem::path> films;
        const auto film = media.film("0.mp4", "25", 100, long_gop);
        for (int i = 1; i <= 3; ++i) {
            films.push_back(media.folder() / (std::to_string(i) + ".mp4"));
            std::error_code is_there;
            std::filesystem::create_hard_link(film, films.back(), is_there);
        }
        std::mt19937 numbers(1);
        std::vector<expected_frame> frames;
        for (std::size_t i = 0; i < count; ++i)
            frames.push_back(
                {films[numbers() % films.size()], {static_cast<int>(numbers() % 100), 25}, width});
        return frames;
    }

    makers_settings settings(std::size_t helpers) const
    {
        makers_settings chosen = {media_program(), helpers, {}};
        chosen.limits.silence = std::chrono::milliseconds(300);
        return chosen;
    }

    static std::vector<std::optional<jpeg_picture>> pictures_of(picture_makers& makers,
                                                                const std::vector<expected_frame>& rows)
    {
        makers.plan(rows);
        std::vector<std::optional<jpeg_picture>> pictures;
        for (const expected_frame& row : rows)
            pictures.push_back(makers.picture({row.file.string(), row.time, row.width}));
        return pictures;
    }

    made_media media;
    kept_diagnostics out;
    disturbing_progress display;
};

TEST_F(picture_makers_, give_the_same_bytes_whatever_their_number)
{
    const auto frames = rows();
    picture_makers one(settings(1), out, display);
    const auto pictures = pictures_of(one, frames);
    for (const auto& picture : pictures)
        ASSERT_TRUE(picture);
    for (const std::size_t helpers : {2, 4}) {
        picture_makers several(settings(helpers), out, display);
        EXPECT_EQ(pictures_of(several, frames), pictures) << helpers;
    }
}

TEST_F(picture_makers_, start_nothing_before_a_picture_is_asked_for)
{
    const auto frames = rows();
    picture_makers makers(settings(2), out, display);
    makers.plan(frames);
    EXPECT_TRUE(makers.processes().empty());
    EXPECT_EQ(makers.picture({"/none.mov", {0, 1}, width}), std::nullopt);
}

TEST_F(picture_makers_, give_what_was_not_planned_as_well)
{
    const auto frames = rows(10);
    picture_makers makers(settings(2), out, display);
    const auto pictures = pictures_of(makers, frames);
    EXPECT_EQ(makers.picture({frames[3].file.string(), frames[3].time, width}), pictures[3]) << "once more";
}

TEST_F(picture_makers_, keep_few_bytes_ahead_and_give_the_same_pictures)
{
    const auto frames = rows();
    picture_makers usual(settings(2), out, display);
    const auto pictures = pictures_of(usual, frames);
    for (const std::size_t bytes : {0, 2'000, 20'000}) {
        for (const std::size_t helpers : {1, 2}) {
            makers_settings small = settings(helpers);
            small.most_bytes_ahead = bytes;
            picture_makers makers(small, out, display);
            EXPECT_EQ(pictures_of(makers, frames), pictures) << bytes;
        }
    }
}

TEST_F(picture_makers_, are_replaced_when_they_are_ended_or_stopped)
{
    const auto frames = rows();
    picture_makers undisturbed(settings(2), out, display);
    const auto pictures = pictures_of(undisturbed, frames);
    std::mt19937 numbers(1);
    int hits = 0;
    for (int run = 0; run < 10; ++run) {
        picture_makers makers(settings(2), out, display);
        int hits_left = 2; // over the same picture they would cost it
        display.disturb = [&] {
            if (hits_left == 0 || numbers() % 8 != 0)
                return;
            for (const pid_t process : makers.processes()) {
                kill(process, numbers() % 3 == 0 ? SIGSTOP : SIGKILL);
                ++hits;
            }
            --hits_left;
        };
        const auto disturbed = pictures_of(makers, frames);
        display.disturb = [] {};
        for (std::size_t i = 0; i < pictures.size(); ++i)
            EXPECT_TRUE(disturbed[i] == pictures[i] || !disturbed[i]) << "run " << run << ", row " << i;
    }
    EXPECT_GT(hits, 0);
}

TEST_F(picture_makers_, give_up_a_file_that_costs_several_helpers)
{
    makers_settings hopeless = settings(1);
    hopeless.program = "/bin/false";
    picture_makers makers(hopeless, out, display);
    const auto frames = rows(30);
    for (const auto& picture : pictures_of(makers, frames))
        EXPECT_EQ(picture, std::nullopt);
    EXPECT_NE(out.text.find("media: given up, it cannot be read: " + frames[0].file.string() + "\n"),
              std::string::npos)
        << out.text;
}

TEST_F(picture_makers_, leave_when_the_user_stops_though_a_helper_hangs)
{
    const auto frames = rows();
    makers_settings patient = settings(1);
    patient.limits.silence = std::chrono::seconds(60);
    picture_makers makers(patient, out, display);
    makers.plan(frames);
    makers.picture({frames[0].file.string(), frames[0].time, width});
    kill(makers.processes().at(0), SIGSTOP);
    display.disturb = [] { throw run_cancelled(); };
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THROW(for (const expected_frame& frame
                      : frames) makers.picture({frame.file.string(), frame.time, width}),
                 run_cancelled);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
}

} // namespace
