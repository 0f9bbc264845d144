// SPDX-License-Identifier: MIT
#include "document/parse_xml.h"
#include "run/failures.h"
#include "run/gui_mode.h"
#include "support/counting_progress.h"
#include "support/kept_diagnostics.h"
#include "support/parsed_text.h"
#include "support/small_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

namespace tallyframe {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::ThrowsMessage;

const std::string fixing_message = "Fixing bad characters in the XML file...\n";

class parsing : public testing::Test {
protected:
    void TearDown() override { gui_mode = std::nullopt; }

    parsed_xml parse(std::string text) { return parse_xml(std::move(text), out_, display_); }
    parsed_xml parse_file(const std::filesystem::path& path) { return parse_xml(path, out_, display_); }

    std::string name_in(std::string text) { return name_of(parse(std::move(text))); }
    std::string name_in_file(const std::filesystem::path& path) { return name_of(parse_file(path)); }

    const std::string& printed() const { return out_.text; }
    const std::vector<std::string>& messages() const { return display_.messages; }

private:
    static std::string name_of(const parsed_xml& parsed)
    {
        return parsed.document.root().text_of("name").value_or("no name");
    }

    testing_support::kept_diagnostics out_;
    testing_support::counting_progress display_;
};

class parsing_a_file : public parsing {
protected:
    std::filesystem::path file(const std::string& name, const std::string& content)
    {
        return testing_support::write_file(path(name), content);
    }
    std::filesystem::path path(const std::string& name) const { return folder_.path() / name; }

private:
    testing_support::temporary_folder folder_;
};

std::string bad_lines(int count, const std::string& line)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += line + "\n";
    return text;
}

std::string utf_16(const std::string& latin_1)
{
    std::string text = "\xFF\xFE";
    for (const char character : latin_1)
        text.append({character, '\0'});
    return text;
}

TEST_F(parsing, leaves_a_proper_document_as_it_is)
{
    EXPECT_EQ(name_in("<xmeml>\n <name>two\nlines</name>\n</xmeml>\n"), "two\nlines");
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(printed(), "");
}

TEST_F(parsing, drops_texts_that_only_lay_out_the_markup)
{
    EXPECT_EQ(parse("<xmeml>\n <a>\n  <b/>\n </a>\n</xmeml>").document.root().markup(),
              "<xmeml><a><b/></a></xmeml>");
}

TEST_F(parsing, keeps_those_texts_when_it_mends_a_document)
{
    EXPECT_EQ(parse("<xmeml> <a>\x01\n  <b/> </a></xmeml>").document.root().markup(),
              "<xmeml> <a>  <b/> </a></xmeml>");
}

TEST_F(parsing, drops_a_latin_1_letter_from_a_name)
{
    EXPECT_EQ(name_in("<xmeml>\n<name>Caf\xE9 noir</name>\n</xmeml>"), "Cafoir");
    EXPECT_THAT(messages(), ElementsAre(fixing_message));
    EXPECT_EQ(printed(), "");
}

TEST_F(parsing, drops_control_characters_from_a_name)
{
    EXPECT_EQ(name_in("<xmeml><name>a\fb</name></xmeml>"), "ab");
    EXPECT_EQ(name_in(std::string("<xmeml><name>a\0b</name></xmeml>", 31)), "ab");
    EXPECT_EQ(name_in("<xmeml><name>a\x1B"
                      "b</name></xmeml>"),
              "ab");
}

TEST_F(parsing, cleans_no_line_that_is_in_order)
{
    // DEL is allowed in XML, so that only the line with the bell is cleaned of it.
    EXPECT_EQ(name_in("<xmeml><name>a\x7F\n\ab\x7F\nc\x7F</name></xmeml>"),
              "a\x7F"
              "bc\x7F");
}

TEST_F(parsing, mends_documents_with_many_bad_lines)
{
    EXPECT_EQ(name_in("<xmeml><name>\n" + bad_lines(2000, "x\xFFy") + "</name></xmeml>"), [] {
        std::string expected;
        for (int i = 0; i < 2000; ++i)
            expected += "xy";
        return expected;
    }());
    EXPECT_THAT(messages(), ElementsAre(fixing_message));
}

TEST_F(parsing, finds_bad_lines_behind_line_65535)
{
    // The DEL in front shows that the line was cleaned by its number, and not all lines were.
    const std::string text = "<xmeml><name>\x7F" + std::string(100'000, '\n') + "a\ab</name></xmeml>";
    EXPECT_EQ(name_in(text),
              "\x7F"
              "ab");
}

TEST_F(parsing, joins_the_lines_of_a_mended_document)
{
    EXPECT_EQ(name_in("<xmeml>\n<name>one\ntwo\r\nthree</name>\n<x>\x01</x>\n</xmeml>\n"),
              "onetwo\nthree"); // XML reads the carriage return that stays as a line break
}

TEST_F(parsing, prints_the_errors_that_stay_and_fails)
{
    EXPECT_THAT([&] { parse("<xmeml>\n<name>a</nam>\n</xmeml>"); }, ThrowsMessage<load_error>("fatal error"));
    EXPECT_THAT(printed(), MatchesRegex("(1:[0-9]+: FATAL: [^\n]+\n)+"));
    EXPECT_THAT(printed(), HasSubstr("mismatch"));
}

TEST_F(parsing, prints_errors_that_are_not_fatal_and_goes_on)
{
    EXPECT_EQ(name_in("<xmeml><n:name/><name>a</name></xmeml>"), "a");
    EXPECT_EQ(printed(), "1:15: ERROR: Namespace prefix n on name is not defined\n");
    EXPECT_THAT(messages(), ElementsAre(fixing_message));
}

TEST_F(parsing, fails_for_one_fatal_error_among_others)
{
    EXPECT_THAT([&] { parse("<xmeml><name>&x;</name><n:name/></xmeml>"); },
                ThrowsMessage<load_error>("fatal error"));
    EXPECT_THAT(printed(), MatchesRegex("1:[0-9]+: FATAL: [^\n]+\n1:[0-9]+: ERROR: [^\n]+\n"));
}

TEST_F(parsing, fails_for_a_document_that_was_cut_off)
{
    EXPECT_THAT([&] { parse("<xmeml>\n<name>a</name>\n<sequence>\n"); },
                ThrowsMessage<load_error>("fatal error"));
    EXPECT_THAT(printed(), HasSubstr("FATAL"));
}

TEST_F(parsing, fails_for_what_is_no_xml_at_all)
{
    for (const char* text : {"", "\n\n", " ", "plain text", "\xFF\xFE", "<?xml version='1.0'?>",
                             "<!-- only -->", "<!DOCTYPE xmeml>", "<"})
        EXPECT_THAT([&] { parse(text); }, ThrowsMessage<load_error>("not xmeml")) << text;
}

TEST_F(parsing, takes_a_well_formed_document_of_any_kind)
{
    const parsed_xml parsed = parse("<html><body/></html>");
    EXPECT_EQ(parsed.first_node_name, "html");
    EXPECT_TRUE(parsed.index.sequence_uuids.empty());
}

TEST_F(parsing, names_the_first_node)
{
    EXPECT_EQ(parse("<?xml version=\"1.0\"?>\n<!DOCTYPE xmeml>\n<xmeml/>").first_node_name, "xmeml");
    EXPECT_EQ(parse("<xmeml/>").first_node_name, "xmeml");
    EXPECT_EQ(parse("<!-- x --><xmeml/>").first_node_name, "comment");
}

TEST_F(parsing, tells_premiere_pro_from_final_cut_pro)
{
    EXPECT_TRUE(parse("<xmeml><sequence/></xmeml>").no_updatebehavior);
    EXPECT_FALSE(parse("<xmeml><clip><updatebehavior>add</updatebehavior></clip></xmeml>").no_updatebehavior);
}

TEST_F(parsing, reads_the_ways_in_which_applications_write)
{
    const std::string plain = "<xmeml><name>Zo\xC3\xAB</name></xmeml>";
    EXPECT_EQ(
        name_in("\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!DOCTYPE xmeml>\r\n" + plain),
        "Zo\xC3\xAB");
    EXPECT_EQ(name_in("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><xmeml><name>Zo\xEB</name></xmeml>"),
              "Zo\xC3\xAB");
    EXPECT_EQ(name_in(utf_16("<xmeml><name>Zo\xEB</name></xmeml>")), "Zo\xC3\xAB");
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(parsing, keeps_the_byte_order_mark_out_of_a_mended_document)
{
    EXPECT_EQ(name_in("\xEF\xBB\xBF<xmeml><name>a\ab</name></xmeml>"), "ab");
}

TEST_F(parsing, shows_no_message_on_the_command_line)
{
    const std::string text = "<xmeml><name>a\ab</name></xmeml>";
    gui_mode = false;
    EXPECT_EQ(name_in(text), "ab");
    EXPECT_THAT(messages(), IsEmpty());
    gui_mode = true;
    EXPECT_EQ(name_in(text), "ab");
    EXPECT_THAT(messages(), ElementsAre(fixing_message));
}

TEST_F(parsing, writes_nothing_to_standard_error)
{
    testing::internal::CaptureStderr();
    EXPECT_THROW(parse("<xmeml><name>\xFF</nam>&x;<n:a/>"), load_error);
    EXPECT_THROW(parse_file(std::filesystem::path("/nowhere/a.xml")), load_error);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

class failing_diagnostics final : public diagnostics {
public:
    void write(std::string_view) override { throw std::runtime_error("the pipe is closed"); }
};

TEST_F(parsing, passes_on_what_the_host_throws)
{
    failing_diagnostics out;
    no_progress display;
    EXPECT_THAT([&] { parse_xml(std::string("<xmeml><name></nam></xmeml>"), out, display); },
                ThrowsMessage<std::runtime_error>("the pipe is closed"));
}

// What is said of a document that was mended.

std::vector<std::string> losses_in(const parsed_xml& parsed)
{
    return sentences_of(parsed.losses);
}

TEST_F(parsing, loses_nothing_of_a_proper_document)
{
    EXPECT_TRUE(
        parse("<?xml version='1.0'?>\n<!DOCTYPE xmeml>\n<xmeml>\n <name>two\nlines</name>\n</xmeml>\n")
            .losses.is_empty());
    EXPECT_TRUE(parse(utf_16("<xmeml><name>a</name></xmeml>")).losses.is_empty());
}

TEST_F(parsing, tells_from_which_lines_it_dropped_characters)
{
    EXPECT_THAT(losses_in(parse("<xmeml>\n<name>Caf\xE9 noir\x01</name>\n\n<name>\x02</name></xmeml>")),
                ElementsAre("2 lines of the document held bad characters and were mended (2, 4).",
                            "3 bad characters were dropped from the document."));
}

TEST_F(parsing, reads_latin_1_letters_where_dropping_them_breaks_the_markup)
{
    EXPECT_EQ(name_in("<xmeml>\n<name>two\nlines, Jos\xE9</name>\n</xmeml>"), "two\nlines, José");
    EXPECT_THAT(losses_in(parse("<xmeml><name>Malm\xF6</name></xmeml>")),
                ElementsAre("1 letter of the document, which is not in UTF-8, was read as Windows-1252."));
    EXPECT_THAT(losses_in(parse("<xmeml><name>Malmö, Jos\xE9</name></xmeml>")),
                ElementsAre("1 line of the document held bad characters and was mended (1).",
                            "1 bad character was dropped from the document."));
}

TEST_F(parsing, tells_of_a_hole_that_took_a_clip)
{
    const std::string clip = "<clipitem><name>A</name></clipitem>\n";
    const parsed_xml parsed =
        parse("<xmeml>\n" + clip + std::string(clip.size() - 1, '\0') + "\n" + clip + "</xmeml>");
    EXPECT_EQ(parsed.document.root().all("clipitem").size(), 2U);
    EXPECT_THAT(losses_in(parsed),
                ElementsAre("1 line of the document held bad characters and was mended (3).",
                            "35 bad characters were dropped from the document."));
}

TEST_F(parsing, tells_what_a_bad_character_costs_a_document_in_utf_16)
{
    const parsed_xml parsed = parse(utf_16("<xmeml>\n<name>a\x01</name>\n</xmeml>"));
    EXPECT_EQ(parsed.document.root().text_of("name"), "a");
    EXPECT_EQ(parsed.losses.of(loss_kind::mended_lines).count, 3U);
    EXPECT_GT(parsed.losses.of(loss_kind::dropped_characters).count, 30U);
}

TEST_F(parsing, tells_of_errors_that_it_passes_over)
{
    EXPECT_THAT(
        losses_in(parse("<xmeml>\n<n:name/>\n<name>a</name>\n<n:a/><n:b/></xmeml>")),
        ElementsAre("3 errors of the document were passed over: clips may be missing (line 2, line 4, …)."));
    EXPECT_THAT(losses_in(parse("<!DOCTYPE xmeml SYSTEM 'x.dtd'>\n<xmeml><name>a&b;\x01</name></xmeml>")),
                ElementsAre("1 line of the document held bad characters and was mended (2).",
                            "1 bad character was dropped from the document.",
                            "1 error of the document was passed over: clips may be missing (line 2)."));
}

TEST_F(parsing, tells_of_errors_that_joining_the_lines_made_go_away)
{
    const parsed_xml parsed = parse("<xmeml>\n<name>a</na\nme></xmeml>");
    EXPECT_EQ(parsed.document.root().text_of("name"), "a");
    EXPECT_THAT(losses_in(parsed),
                ElementsAre("2 errors of the document were passed over: clips may be missing (line 3, …)."));
}

// A run that is stopped.

/// How often loading looks at whether to go on; it is stopped at twenty of these looks.
std::int64_t looks_in(const xml_input& input)
{
    const auto load = [&](testing_support::counting_progress& display) {
        testing_support::kept_diagnostics out;
        parse_xml(input, out, display);
    };
    testing_support::counting_progress undisturbed;
    load(undisturbed);
    for (std::int64_t part = 1; part <= 20; ++part) {
        testing_support::counting_progress display;
        display.stop_at_look = std::max<std::int64_t>(1, undisturbed.looks * part / 20);
        EXPECT_THROW(load(display), run_cancelled) << part;
        EXPECT_EQ(display.looks, display.stop_at_look);
    }
    return undisturbed.looks;
}

TEST_F(parsing_a_file, can_be_stopped_at_every_stage)
{
    std::string text = "<xmeml>";
    for (int i = 0; i < 10'000; ++i)
        text += "<name>a</name>";
    const auto reads = static_cast<std::int64_t>(text.size() / 4000);
    EXPECT_GT(looks_in(file("clean.xml", text + "</xmeml>")), reads + 10)
        << "reading, then the walk over all elements";
    EXPECT_GT(looks_in(file("damaged.xml", text + "<name>\x01\n<n:a/>\n\x7F</name></xmeml>")), 3 * reads + 10)
        << "three parses";
    EXPECT_GT(looks_in(text + "</xmeml>"), reads + 10) << "a text";
}

// What is no XML need not be read to its end.

/// A file of `size` bytes that takes no room: a hole behind its beginning.
void make_sparse(const std::filesystem::path& path, std::uintmax_t size)
{
    std::filesystem::resize_file(path, size);
}

TEST_F(parsing_a_file, tells_a_film_by_its_beginning)
{
    const std::filesystem::path film = file("film.mov",
                                            std::string("\0\0\0\x14"
                                                        "ftypqt  \xE9\n\0",
                                                        15));
    make_sparse(film, 3'000'000'000);
    testing_support::kept_diagnostics out;
    testing_support::counting_progress display;
    EXPECT_THAT([&] { parse_xml(film, out, display); }, ThrowsMessage<load_error>("not xmeml"));
    EXPECT_LT(display.looks, 20);
    EXPECT_EQ(out.text, "1:1: FATAL: Start tag expected, '<' not found\n");
}

TEST_F(parsing_a_file, says_the_same_of_a_short_file_and_of_a_long_one_that_is_no_xml)
{
    for (const std::string& beginning : {std::string("plain text <a/>"), std::string("\x01 \xE9\n\r\t x"),
                                         std::string("\xEF\xBB\xBF\xC3\nLog <"), std::string("\0\0", 2)}) {
        const auto said_of = [&](const std::string& text) {
            testing_support::kept_diagnostics out;
            no_progress display;
            EXPECT_THAT([&] { parse_xml(text, out, display); }, ThrowsMessage<load_error>("not xmeml"));
            return out.text;
        };
        EXPECT_EQ(said_of(beginning), said_of(beginning + std::string(1'000'000, '\0'))) << beginning;
    }
}

TEST_F(parsing, finds_a_document_behind_bad_characters)
{
    const std::string document = "<xmeml><name>a</name></xmeml>";
    for (const std::string& before :
         {std::string(100'000, '\0'), std::string("\xE9\n"), std::string("\x01 \xFF\r\n"),
          std::string("\x02\xEF\xBB\xBF"), std::string(65'535, '\x01') + "\xC3\n"})
        EXPECT_EQ(name_in(before + document), "a") << before.substr(0, 10);
}

TEST_F(parsing_a_file, gives_what_its_text_gives)
{
    const std::string proper = "<xmeml>\n<name>a\nb</name>\n</xmeml>\n";
    const std::string damaged = "<xmeml>\n<name>a\nb\x01</name>\n</xmeml>\n";
    EXPECT_EQ(name_in_file(file("proper.xml", proper)), "a\nb");
    EXPECT_EQ(name_in_file(file("damaged.xml", damaged)), "ab");
    EXPECT_EQ(name_in_file(file("with %20 & \"signs\" é.xml", proper)), "a\nb");
}

TEST_F(parsing_a_file, reads_files_longer_than_its_buffers)
{
    std::string text = "<xmeml><name>";
    for (int i = 0; i < 300'000; ++i)
        text += std::to_string(i) + "\n";
    const std::string name = text.substr(13);
    text += "</name></xmeml>";
    EXPECT_EQ(name_in_file(file("long.xml", text)), name);
    std::string joined = name;
    std::erase(joined, '\n');
    EXPECT_EQ(name_in_file(file("long-and-damaged.xml", text.insert(1'000'000, "\x01"))), joined);
}

TEST_F(parsing_a_file, says_what_is_wrong_with_the_file)
{
    EXPECT_THAT([&] { parse_file(path("missing.xml")); },
                ThrowsMessage<load_error>("The document \"" + path("missing.xml").string()
                                          + "\" cannot be read: No such file or directory."));
    EXPECT_THAT([&] { parse_file(path("")); }, ThrowsMessage<load_error>(HasSubstr("it is a folder")));
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    EXPECT_THAT([&] { parse_file(path("pipe")); }, ThrowsMessage<load_error>(HasSubstr("it is not a file")));
    EXPECT_THAT([&] { parse_file(std::filesystem::path("/proc/self/mem")); },
                ThrowsMessage<load_error>(HasSubstr("cannot be read"))); // opens, but does not read
}

TEST_F(parsing_a_file, says_when_the_file_may_not_be_read)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may read every file";
    const std::filesystem::path secret = file("secret.xml", "<xmeml/>");
    std::filesystem::permissions(secret, std::filesystem::perms::none);
    EXPECT_THAT([&] { parse_file(secret); }, ThrowsMessage<load_error>(HasSubstr("Permission denied")));
}

TEST_F(parsing_a_file, fails_for_an_empty_one)
{
    EXPECT_THAT([&] { parse_file(file("empty.xml", "")); }, ThrowsMessage<load_error>("not xmeml"));
}

TEST(xml_library_version, is_one_line)
{
    EXPECT_THAT(xml_library_version(),
                MatchesRegex("libxml2 2\\.[0-9]+\\.[0-9]+ \\(built with 2\\.[0-9.]+\\)"));
}

} // namespace

} // namespace tallyframe
