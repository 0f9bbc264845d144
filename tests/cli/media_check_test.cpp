// SPDX-License-Identifier: MIT
#include "cli/arguments.h"
#include "cli/parsed_report.h"
#include "cli/run.h"
#include "support/made_media.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"
#include "support/xmeml_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>

namespace tallyframe::cli {

namespace {

using namespace testing_support;
using testing::ElementsAre;
using testing::HasSubstr;

class media_command : public testing::Test {
protected:
    int run_with(std::vector<std::string> flags)
    {
        std::ostringstream out;
        std::ostringstream err;
        flags.insert(flags.begin(), {"media", "cut.xml"});
        const int code = run(flags, out, err);
        out_ = out.str();
        err_ = err.str();
        return code;
    }

    /// A second of film, 160 × 96 at 25 frames a second.
    std::string film(const std::string& name) const
    {
        return media_
            .make(name, {"-f", "lavfi", "-i", "color=s=160x96:r=25", "-frames:v", "25", "-c:v", "mpeg4"})
            .string();
    }

    static clip clip_of(const std::string& path, std::int64_t start, std::int64_t duration = 25)
    {
        return clip("Clip")
            .at(start, start + 20)
            .in_out(0, 20)
            .duration(duration)
            .file({.path = path,
                   .duration = duration,
                   .with = "<media><video><samplecharacteristics><width>160</width><height>96</height>"
                           "</samplecharacteristics></video></media>"});
    }

    static void write_cut(const std::vector<track_item>& items)
    {
        write_file("cut.xml", xmeml().sequence("Cut").video_track(items).text());
    }

    std::string out_;
    std::string err_;
    made_media media_;

private:
    scratch_folder folder_;
};

TEST_F(media_command, is_content_when_all_that_is_used_is_there)
{
    const std::string path = film("film.mov");
    write_cut({clip_of(path, 0), clip_of(path, 20)});
    EXPECT_EQ(run_with({}), done);
    const std::string bytes = std::to_string(std::filesystem::file_size(path));
    EXPECT_EQ(err_, "");
    EXPECT_EQ(out_.substr(0, out_.find("1 media file.")),
              "ok          " + path + "\n            2 clips: 00:00:00:00-00:00:00:19\n");
    EXPECT_THAT(out_, HasSubstr(" bytes) to copy.\n"));
}

TEST_F(media_command, fails_when_a_file_is_missing)
{
    write_cut({clip_of("/Volumes/Rushes/no\nsuch.mov", 0)});
    EXPECT_EQ(run_with({}), failed);
    EXPECT_EQ(out_,
              "missing     /Volumes/Rushes/no<U+000A>such.mov\n"
              "            1 clip: 00:00:00:00-00:00:00:19\n"
              "1 media file: 1 missing. 0 bytes to copy.\n");
}

TEST_F(media_command, fails_when_frames_or_handles_are_missing)
{
    write_cut({clip_of(film("film.mov"), 0)});
    EXPECT_EQ(run_with({"--handles", "6"}), failed);
    EXPECT_THAT(out_,
                HasSubstr("\n            6 frames are missing at its start, 1 frame is missing at its end\n"
                          "1 media file: 1 too short. "));
}

TEST_F(media_command, tells_in_what_a_file_differs)
{
    write_cut({clip_of(film("film.mov"), 0, 100)});
    EXPECT_EQ(run_with({}), done);
    EXPECT_THAT(out_,
                HasSubstr("\n            duration: 00:00:01:00 in the file, 00:00:04:00 in the document\n"
                          "1 media file: 1 differs. "));
}

TEST_F(media_command, finds_media_that_has_moved)
{
    const std::filesystem::path path = film("film.mov");
    write_cut({clip_of("/Volumes/Rushes/FILM.mov", 0)});
    EXPECT_EQ(run_with({"--media-search", path.parent_path().string()}), done);
    EXPECT_THAT(out_, HasSubstr("ok          " + path.string()));
    EXPECT_EQ(run_with({"--media-map", "/volumes/rushes=" + path.parent_path().string()}), done);
    EXPECT_EQ(err_, "");
    EXPECT_EQ(run_with({"--media-map", "/Volumes/Music=/nowhere"}), failed);
    EXPECT_EQ(err_,
              "tallyframe: 1 mapping of media folders leads to a folder that is not there "
              "(/Volumes/Music=/nowhere).\n");
}

TEST_F(media_command, takes_of_two_films_of_one_name_the_one_that_the_document_describes)
{
    const std::filesystem::path right = film("film.mov");
    const std::filesystem::path place = right.parent_path();
    std::filesystem::create_directories(place / "a");
    std::filesystem::create_directories(place / "b");
    std::filesystem::rename(right, place / "b" / "film.mov");
    media_.make("a/film.mov",
                {"-f", "lavfi", "-i", "color=s=160x96:r=25", "-frames:v", "50", "-c:v", "mpeg4"});
    write_cut({clip_of("/Volumes/Rushes/film.mov", 0)});
    EXPECT_EQ(run_with({"--media-search", place.string()}), done);
    EXPECT_THAT(out_, HasSubstr("ok          " + (place / "b" / "film.mov").string()));
    EXPECT_EQ(err_, "");
    std::filesystem::copy_file(place / "b" / "film.mov", place / "film.mov");
    EXPECT_EQ(run_with({"--media-search", place.string()}), done);
    EXPECT_EQ(err_,
              "tallyframe: 1 media file was found more than once, nothing told which is meant, and the "
              "first was taken ("
                  + (place / "b" / "film.mov").string() + " or " + (place / "film.mov").string() + ").\n");
}

TEST_F(media_command, writes_json)
{
    const std::string path = film("film.mov");
    write_cut({clip_of(path, 0), clip_of("/missing.mov", 20)});
    EXPECT_EQ(run_with({"--json"}), failed);
    const auto whole = nlohmann::json::parse(out_);
    const auto& there = whole.at("files").at(0);
    EXPECT_EQ(there.at("status"), "ok");
    EXPECT_EQ(there.at("found"), path);
    EXPECT_EQ(there.at("clips"), 1);
    EXPECT_EQ(there.at("ranges").at(0).at("first"), 0);
    EXPECT_EQ(there.at("ranges").at(0).at("last"), 19);
    EXPECT_EQ(there.at("file").at("seconds"), 1);
    EXPECT_EQ(there.at("file").at("rate"), 25);
    EXPECT_EQ(there.at("document").at("frame_size"), "160 × 96");
    EXPECT_TRUE(whole.at("files").at(1).at("found").is_null());
    EXPECT_TRUE(whole.at("files").at(1).at("file").at("seconds").is_null());
    EXPECT_EQ(whole.at("totals").at("missing"), 1);
    EXPECT_EQ(whole.at("totals").at("bytes"), std::filesystem::file_size(path));
}

TEST_F(media_command, writes_a_table)
{
    write_cut({clip_of("/missing, too.mov", 0)});
    EXPECT_EQ(run_with({"--csv"}), failed);
    EXPECT_THAT(out_, testing::StartsWith("Status,File Name,Clips,Used Ranges,Missing Frames,"));
    EXPECT_THAT(
        out_,
        testing::EndsWith("\r\nmissing,\"missing, too.mov\",1,00:00:00:00-00:00:00:19,,,00:00:01:00,,25,"
                          ",160 × 96,,00:00:00:00,,,,,\"/missing, too.mov\"\r\n"));
}

TEST_F(media_command, adds_up_the_entries_of_a_document)
{
    write_file("cut.xml",
               xmeml()
                   .sequence("One", {.uuid = "1"})
                   .video_track({clip_of("/a.mov", 0)})
                   .sequence("Two", {.uuid = "2"})
                   .video_track({clip_of("/b.mov", 0), clip_of("/a.mov", 20)})
                   .text());
    EXPECT_EQ(run_with({}), wrong_usage);
    EXPECT_EQ(run_with({"--all"}), failed);
    EXPECT_EQ(out_,
              "missing     /a.mov\n"
              "            2 clips: 00:00:00:00-00:00:00:19\n"
              "missing     /b.mov\n"
              "            1 clip: 00:00:00:00-00:00:00:19\n"
              "2 media files: 2 missing. 0 bytes to copy.\n");
    EXPECT_EQ(run_with({"--sequence", "2", "--tracks", "none"}), done);
    EXPECT_EQ(out_, "0 media files. 0 bytes to copy.\n");
}

TEST_F(media_command, says_why_a_document_offers_nothing)
{
    write_file("cut.xml", R"(<?xml version="1.0"?><xmeml version="5"></xmeml>)");
    EXPECT_EQ(run_with({}), failed);
    EXPECT_THAT(err_, HasSubstr("offers nothing to report"));
}

TEST(media_arguments, add_the_sheet_of_the_check)
{
    EXPECT_FALSE(parsed({}).options.media_sheet);
    const report_request request = parsed({"--media-sheet", "--handles", "12"});
    EXPECT_TRUE(request.options.media_sheet);
    EXPECT_EQ(request.options.media_handles, 12);
    EXPECT_THROW(parsed({"--handles", "12"}), usage_error) << "there is nothing that would want them";
}

TEST(media_arguments, refuse_handles_that_are_no_number_of_frames)
{
    for (const char* text : {"-1", "12.5", "a", "1000001"}) {
        try {
            parse_arguments({"media", "cut.xml", std::string("--handles=") + text});
            FAIL() << text;
        } catch (const usage_error& error) {
            EXPECT_EQ(error.what(),
                      "--handles: \"" + std::string(text)
                          + "\" is no number of frames. Write a whole number from 0 to 1000000, such as "
                            "--handles 12.");
        }
    }
}

TEST(media_arguments, choose_one_form_of_the_check)
{
    EXPECT_EQ(parse_arguments({"media", "cut.xml", "--json"}).media.value().as, media_request::format::json);
    EXPECT_THROW(parse_arguments({"media", "cut.xml", "--json", "--csv"}), usage_error);
    const media_request request =
        parse_arguments({"media", "cut.xml", "--item", "3", "--tracks", "V1", "--enabled-only"})
            .media.value();
    EXPECT_EQ(request.subject.item.position, 3U);
    EXPECT_THAT(request.subject.tracks.value(), ElementsAre("V1"));
    EXPECT_TRUE(request.subject.options.report_enabled_only);
}

} // namespace

} // namespace tallyframe::cli
