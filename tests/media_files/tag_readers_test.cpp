// SPDX-License-Identifier: MIT
#include "media_files/tag_readers.h"
#include "support/made_media.h"
#include "support/small_files.h"

#include <gtest/gtest.h>
#include <taglib/apetag.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/infotag.h>
#include <taglib/mpegfile.h>
#include <taglib/textidentificationframe.h>
#include <taglib/tpropertymap.h>
#include <taglib/wavfile.h>
#include <taglib/xiphcomment.h>

using namespace tallyframe;
using namespace tallyframe::testing_support;

namespace {

struct tagged_kind {
    const char* name;
    std::vector<std::string> encoding;
    audio_tags tags;
};

class tags_in_file_of_kind : public testing::TestWithParam<tagged_kind> { };

TEST_P(tags_in_file_of_kind, gives_each_value)
{
    const made_media media;
    std::vector<std::string> arguments = {"-f",        "lavfi",
                                          "-i",        "sine=duration=0.2",
                                          "-metadata", "title=Morning \"Light\"",
                                          "-metadata", "album=Weather",
                                          "-metadata", "artist=Zoë Keene",
                                          "-metadata", "composer=Ann Lee",
                                          "-metadata", "genre=Ambient",
                                          "-metadata", "date=1999",
                                          "-metadata", "track=7/12"};
    arguments.insert(arguments.end(), GetParam().encoding.begin(), GetParam().encoding.end());
    const auto file = media.make(GetParam().name, arguments);
    EXPECT_EQ(tags_in_file(file), GetParam().tags);
}

audio_tags all_values()
{
    return {.song_title = "Morning \"Light\"",
            .album = "Weather",
            .track_number = 7,
            .year = 1999,
            .musical_genre = "Ambient",
            .authors = "Zoë Keene",
            .composer = "Ann Lee",
            .producer = ""};
}

/// The chunks of a WAV file have a place for each but the composer.
audio_tags all_values_of_chunks()
{
    audio_tags values = all_values();
    values.composer = "";
    return values;
}

/// ffmpeg gives a .mov neither a composer nor a track.
audio_tags all_values_of_user_data()
{
    audio_tags values = all_values();
    values.composer = "";
    values.track_number.reset();
    return values;
}

/// Of an AIFF file without ID3, ffmpeg names the title alone.
audio_tags all_values_of_text_chunks()
{
    audio_tags title_alone;
    title_alone.song_title = "Morning \"Light\"";
    return title_alone;
}

INSTANTIATE_TEST_SUITE_P(kinds, tags_in_file_of_kind,
                         testing::Values(tagged_kind{"song.mp3", {}, all_values()},
                                         tagged_kind{"song.m4a", {}, all_values()},
                                         tagged_kind{"song.flac", {}, all_values()},
                                         tagged_kind{"song.ogg", {"-c:a", "libvorbis"}, all_values()},
                                         tagged_kind{"song.aiff", {"-write_id3v2", "1"}, all_values()},
                                         tagged_kind{"song.caf", {}, all_values()},
                                         tagged_kind{"song.mka", {}, all_values()},
                                         tagged_kind{"song.aac", {"-write_id3v2", "1"}, all_values()},
                                         tagged_kind{"song.mov", {}, all_values_of_user_data()},
                                         tagged_kind{"song.aifc", {}, all_values_of_text_chunks()},
                                         tagged_kind{"song.wav", {}, all_values_of_chunks()}),
                         [](const testing::TestParamInfo<tagged_kind>& tested) {
                             return std::string(tested.param.name).substr(5);
                         });

TEST(tags_in_file, joins_all_authors_in_one_line)
{
    const made_media media;
    const auto file = media.make("song.flac", {"-f", "lavfi", "-i", "sine=duration=0.2"});
    TagLib::FileRef song(file.c_str());
    TagLib::PropertyMap properties;
    properties["ARTIST"] = TagLib::StringList("\"Zoe\" ").append("Two\nLines").append(" Bo ");
    song.file()->setProperties(properties);
    song.save();
    audio_tags authors_alone;
    authors_alone.authors = "Zoe ,, Two Lines,, Bo";
    EXPECT_EQ(tags_in_file(file), authors_alone);
}

/// A song with these tags, written by TagLib into one that ffmpeg has made.
template <class File, class Write>
audio_tags tags_written(const std::string& name, Write write)
{
    const made_media media;
    const auto path = media.make(name, {"-f", "lavfi", "-i", "sine=duration=0.2", "-bitexact"});
    {
        File file(path.c_str());
        write(file);
    }
    return tags_in_file(path).value();
}

TEST(tags_in_file, fills_up_what_the_newer_tag_of_an_mp3_lacks)
{
    const audio_tags tags = tags_written<TagLib::MPEG::File>("song.mp3", [](TagLib::MPEG::File& file) {
        file.ID3v2Tag(true)->setTitle("The whole title, which is longer than thirty letters");
        file.ID3v1Tag(true)->setTitle("The whole title, which is long");
        file.ID3v1Tag(true)->setAlbum("Weather");
        file.ID3v1Tag(true)->setYear(1999);
        file.APETag(true)->setArtist("Zoe Keene");
        file.save(TagLib::MPEG::File::AllTags, TagLib::File::StripNone, TagLib::ID3v2::v4,
                  TagLib::File::DoNotDuplicate);
    });
    EXPECT_EQ(tags.song_title, "The whole title, which is longer than thirty letters");
    EXPECT_EQ(tags.album, "Weather");
    EXPECT_EQ(tags.year, 1999);
    EXPECT_EQ(tags.authors, "Zoe Keene");
    EXPECT_EQ(tags.track_number, std::nullopt);
    EXPECT_EQ(tags.musical_genre, "");
}

TEST(tags_in_file, fills_up_what_the_newer_tag_of_a_wav_file_lacks)
{
    const audio_tags tags =
        tags_written<TagLib::RIFF::WAV::File>("song.wav", [](TagLib::RIFF::WAV::File& file) {
            file.ID3v2Tag()->setTitle("Morning");
            file.InfoTag()->setTitle("Evening");
            file.InfoTag()->setAlbum("Weather");
            file.save();
        });
    EXPECT_EQ(tags.song_title, "Morning");
    EXPECT_EQ(tags.album, "Weather");
}

TEST(tags_in_file, knows_the_producer_in_any_letter_case)
{
    for (const auto version : {TagLib::ID3v2::v3, TagLib::ID3v2::v4}) { // IPLS and TIPL
        for (const char* role : {"producer", "Producer", "PRODUCER"}) {
            const audio_tags tags =
                tags_written<TagLib::MPEG::File>("song.mp3", [&](TagLib::MPEG::File& file) {
                    auto* people = new TagLib::ID3v2::TextIdentificationFrame("TIPL", TagLib::String::UTF8);
                    people->setText(
                        TagLib::StringList("mix").append("Bo").append(role).append("Pat Smith").append("x"));
                    file.ID3v2Tag(true)->addFrame(people);
                    file.save(TagLib::MPEG::File::ID3v2, TagLib::File::StripNone, version,
                              TagLib::File::DoNotDuplicate);
                });
            EXPECT_EQ(tags.producer, "Pat Smith") << role;
        }
    }
}

TEST(tags_in_file, takes_the_year_where_a_song_has_no_date)
{
    const audio_tags tags = tags_written<TagLib::FLAC::File>("song.flac", [](TagLib::FLAC::File& file) {
        file.xiphComment(true)->addField("YEAR", "1999");
        file.save();
    });
    EXPECT_EQ(tags.year, 1999);
}

TEST(tags_in_file, gives_empty_values_for_a_file_without_tags)
{
    const made_media media;
    const auto file = media.make("plain.wav", {"-f", "lavfi", "-i", "sine=duration=0.2", "-bitexact"});
    EXPECT_EQ(tags_in_file(file), audio_tags());
}

TEST(tags_in_file, gives_empty_values_for_a_broken_file)
{
    const temporary_folder folder;
    const auto file = write_file(folder.path() / "text.wav", "not a sound");
    EXPECT_EQ(tags_in_file(file), audio_tags());
}

TEST(tags_in_file, knows_nothing_of_other_files)
{
    const temporary_folder folder;
    EXPECT_EQ(tags_in_file(write_file(folder.path() / "text.txt", "not a sound")), std::nullopt);
    EXPECT_EQ(tags_in_file(folder.path() / "none.mp3"), std::nullopt);
}

} // namespace
