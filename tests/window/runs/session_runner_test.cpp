// SPDX-License-Identifier: MIT
#include "support/temporary_folder.h"
#include "support/xmeml_builder.h"
#include "window/patience.h"
#include "window/runs/session_runner.h"

#include <gmock/gmock.h>

#include <QTest>
#include <fstream>
#include <utility>

using testing::ElementsAre;
using testing::IsEmpty;

namespace tallyframe::window {

namespace {

using testing_support::clip;
using testing_support::xmeml;

namespace fs = std::filesystem;

constexpr auto all_tracks = report_scope::video_audio;

xmeml reel(std::string_view name, std::string_view uuid = "one")
{
    return xmeml()
        .sequence(name, {.uuid = std::string(uuid)})
        .video_track({clip("A")})
        .video_track({clip("B")});
}

/// A runner whose signals are kept.
class session_runner_test : public ::testing::Test {
protected:
    session_runner_test()
    {
        const auto keep = [this](run_kind kind) {
            return [this, kind](const run_outcome& outcome) { ended.emplace_back(kind, outcome); };
        };
        QObject::connect(&runner, &session_runner::started, [this] { ++started; });
        QObject::connect(&runner, &session_runner::opened, keep(run_kind::opening));
        QObject::connect(&runner, &session_runner::analyzed, keep(run_kind::analysis));
        QObject::connect(&runner, &session_runner::saved, keep(run_kind::saving));
    }

    fs::path write(const std::string& name, const std::string& text)
    {
        std::ofstream(folder.path() / name) << text;
        return folder.path() / name;
    }

    fs::path write(const std::string& name, const xmeml& document) { return write(name, document.text()); }

    void wait()
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return !runner.is_running(); }, patience));
    }

    void open(const fs::path& path)
    {
        runner.open(path, all_tracks);
        wait();
    }

    /// Does something before the first step of the next run.
    template <class Action>
    void disturb_next(Action act)
    {
        QObject::connect(&runner, &session_runner::started, &runner, std::move(act),
                         static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::SingleShotConnection));
    }

    std::vector<run_kind> kinds() const
    {
        std::vector<run_kind> found;
        for (const auto& [kind, outcome] : ended)
            found.push_back(kind);
        return found;
    }

    const run_outcome& last() const { return ended.back().second; }

    testing_support::temporary_folder folder;
    no_diagnostics out;
    session_runner runner{out};
    int started = 0;
    std::vector<std::pair<run_kind, run_outcome>> ended;
};

std::string message_of(const std::exception_ptr& failure)
{
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& error) {
        return error.what();
    }
}

} // namespace

TEST_F(session_runner_test, analyzes_the_only_sequence_of_a_document_at_once)
{
    const fs::path document = write("cut.xml", reel("Reel"));
    runner.open(document, all_tracks);
    EXPECT_TRUE(runner.is_running(run_kind::opening));
    EXPECT_NE(runner.display(), nullptr);
    EXPECT_EQ(runner.analyzed_subject(), std::nullopt);
    wait();
    EXPECT_THAT(kinds(), ElementsAre(run_kind::opening));
    EXPECT_TRUE(last().is_good());
    EXPECT_EQ(last().enables_menu, true);
    EXPECT_EQ(runner.display(), nullptr);
    EXPECT_EQ(runner.document(), document);
    EXPECT_EQ(runner.analyzed_subject(), (report_subject{0, all_tracks}));
    EXPECT_EQ(runner.session().analysis.sequence_name, "Reel");
}

TEST_F(session_runner_test, leaves_the_choice_among_several_entries_to_the_user)
{
    open(write("cut.xml", reel("One").sequence("Two", {.uuid = "two"}).video_track({clip("C")})));
    EXPECT_EQ(runner.analyzed_subject(), std::nullopt);
    ASSERT_EQ(runner.session().menu.size(), 2U);
    runner.analyze({1, all_tracks});
    wait();
    EXPECT_THAT(kinds(), ElementsAre(run_kind::opening, run_kind::analysis));
    EXPECT_EQ(runner.analyzed_subject(), (report_subject{1, all_tracks}));
    EXPECT_EQ(runner.session().analysis.sequence_name, "Two");
}

TEST_F(session_runner_test, keeps_what_an_operation_says_until_its_run_is_over)
{
    open(write("cut.xml", reel("Reel")));
    open(write("broken.xml", R"(<?xml version="1.0"?><xmeml version="5"><sequence)"));
    ASSERT_TRUE(last().alert);
    EXPECT_EQ(last().alert->message_text, "This XML file is incomplete or broken");
    EXPECT_EQ(last().alert->informative_text, "Please export the XML file again.");
    EXPECT_FALSE(last().is_good());
    EXPECT_FALSE(last().failure);
    EXPECT_THAT(runner.session().menu, IsEmpty());
    EXPECT_EQ(runner.analyzed_subject(), std::nullopt);
}

TEST_F(session_runner_test, gives_the_failure_that_has_ended_a_run)
{
    open(write("cut.xml",
               reel("Good").sequence("Odd", {.uuid = "two", .timebase = 17}).video_track({clip("C")})));
    runner.analyze({1, all_tracks});
    wait();
    ASSERT_TRUE(last().failure);
    EXPECT_EQ(message_of(last().failure), "This sequence has no timebase");
    EXPECT_EQ(runner.analyzed_subject(), std::nullopt);
}

TEST_F(session_runner_test, keeps_the_users_ticks_where_an_analysis_is_cancelled)
{
    open(write("cut.xml", reel("Reel")));
    runner.set_ticks({1, 0}, {});
    disturb_next([this] { runner.cancel(); });
    runner.analyze({0, all_tracks});
    wait();
    EXPECT_TRUE(last().was_cancelled);
    EXPECT_FALSE(last().is_good());
    EXPECT_EQ(runner.analyzed_subject(), std::nullopt);
    EXPECT_EQ(runner.session().video_tracks_table_checkboxes.current, (std::vector{1, 0}));
}

TEST_F(session_runner_test, follows_the_latest_wish_and_tells_of_no_other)
{
    const fs::path latest = write("latest.xml", reel("Latest"));
    const fs::path first = write("first.xml", reel("First"));
    runner.open(first, all_tracks);
    runner.open(write("second.xml", reel("Second")), all_tracks);
    runner.open(latest, all_tracks);
    wait();
    EXPECT_THAT(kinds(), ElementsAre(run_kind::opening));
    EXPECT_EQ(started, 2) << "the first run ends before the latest begins";
    EXPECT_TRUE(last().is_good());
    EXPECT_EQ(runner.document(), latest);
    EXPECT_EQ(runner.session().analysis.sequence_name, "Latest");
}

TEST_F(session_runner_test, begins_nothing_after_a_run_that_is_cancelled_with_all_that_should_follow)
{
    const fs::path first = write("first.xml", reel("First"));
    const fs::path second = write("second.xml", reel("Second"));
    disturb_next([&] {
        runner.open(second, all_tracks);
        runner.cancel();
    });
    open(first);
    EXPECT_THAT(kinds(), ElementsAre(run_kind::opening));
    EXPECT_EQ(started, 1);
    EXPECT_TRUE(last().was_cancelled);
    EXPECT_EQ(runner.document(), first);
}

TEST_F(session_runner_test, finishes_a_workbook_before_anything_else)
{
    const fs::path document = write("cut.xml", reel("Reel"));
    open(document);
    runner.save(folder.path() / "cut.xls", {}, {});
    runner.open(write("other.xml", reel("Other")), all_tracks);
    EXPECT_TRUE(runner.is_running(run_kind::saving));
    wait();
    EXPECT_THAT(kinds(), ElementsAre(run_kind::opening, run_kind::saving));
    EXPECT_TRUE(last().is_good());
    EXPECT_TRUE(last().losses.is_empty());
    EXPECT_GT(fs::file_size(folder.path() / "cut.xls"), 10'000U);
    EXPECT_EQ(runner.document(), document);
    EXPECT_EQ(runner.analyzed_subject(), (report_subject{0, all_tracks})) << "it can be saved again";
}

TEST_F(session_runner_test, gives_what_a_workbook_lost)
{
    open(write("cut.xml", xmeml().sequence("Reel", {}).video_track({clip(std::string(40'000, 'x'))})));
    runner.save(folder.path() / "cut.xls", {}, {});
    wait();
    EXPECT_EQ(last().losses.of(loss_kind::cut_texts).count, 1U);
    EXPECT_TRUE(last().is_good());
}

TEST_F(session_runner_test, leaves_an_older_workbook_where_the_new_one_is_cancelled)
{
    open(write("cut.xml", reel("Reel")));
    const fs::path workbook = write("cut.xls", "older");
    disturb_next([this] { runner.cancel(); });
    runner.save(workbook, {}, {});
    wait();
    EXPECT_TRUE(last().was_cancelled);
    EXPECT_EQ(fs::file_size(workbook), 5U);
}

} // namespace tallyframe::window
