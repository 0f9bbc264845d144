// SPDX-License-Identifier: MIT
// Documents that are made to crash, to fill the memory or to look around outside of them.
#include "document/sequence_catalogue.h"
#include "run/failures.h"
#include "support/parsed_text.h"
#include "support/temporary_folder.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <fstream>
#include <random>

namespace tallyframe {

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::ThrowsMessage;
using testing_support::parsed_text;

const std::string small_document =
    "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE xmeml>\n"
    "<xmeml version=\"5\">\n<bin><children><clip id=\"Caf\xC3\xA9\"><media/><labels/>"
    "</clip></children></bin>\n<sequence id=\"s\"><uuid>U-1</uuid><name>A &amp; B &#13;"
    "</name>\n<media><video><track><clipitem><file id=\"f\"/><![CDATA[<x>]]></clipitem>"
    "</track></video></media></sequence>\n<!-- end --></xmeml>\n";

/// Loads and asks everything; what matters is that it comes back, with a result or with a load failure.
bool loads(const std::string& text)
{
    try {
        const parsed_xml parsed = parsed_text(text);
        (void)sequence_catalogue(parsed.index);
        (void)parsed.document.root().text();
        (void)parsed.document.root().markup();
        return true;
    } catch (const load_error&) {
        return false;
    }
}

TEST(hostile_documents, may_end_anywhere)
{
    ASSERT_TRUE(loads(small_document));
    for (std::size_t length = 0; length + 10 < small_document.size(); ++length)
        EXPECT_FALSE(loads(small_document.substr(0, length))) << length;
}

TEST(hostile_documents, may_hold_any_byte_anywhere)
{
    std::mt19937 random(7); // the same bytes in every run
    std::uniform_int_distribution<int> byte(0, 255);
    for (std::size_t position = 0; position < small_document.size(); ++position) {
        for (const int value : {0x00, 0x0A, 0x22, 0x26, 0x3C, 0x3E, 0xC3, 0xE9, 0xF4, 0xFF, byte(random)}) {
            std::string damaged = small_document;
            damaged[position] = static_cast<char>(value);
            loads(damaged);
        }
    }
}

TEST(hostile_documents, may_lack_any_stretch)
{
    for (std::size_t position = 0; position < small_document.size(); ++position) {
        for (const std::size_t length : {1U, 5U, 40U}) {
            std::string damaged = small_document;
            damaged.erase(position, length);
            loads(damaged);
        }
    }
}

TEST(hostile_documents, may_bring_an_error_in_each_of_many_lines)
{
    std::string text = "<xmeml>";
    for (int i = 0; i < 5'000; ++i)
        text += "<a b='1' b='2'>\xFF&c;</a>\n";
    EXPECT_FALSE(loads(text + "</xmeml>"));
}

TEST(hostile_documents, read_no_file)
{
    const testing_support::temporary_folder folder;
    const std::filesystem::path secret = folder.path() / "secret.txt";
    std::ofstream(secret) << "do not tell";
    const std::string url = "file://" + secret.string();
    const parsed_xml parsed = parsed_text("<!DOCTYPE xmeml SYSTEM \"" + url + "\" [<!ENTITY e SYSTEM \"" + url
                                          + "\">]><xmeml><name>a&e;b</name></xmeml>");
    EXPECT_EQ(parsed.document.root().text_of("name"), "ab");
    EXPECT_THAT(
        [&] {
            parsed_text("<!DOCTYPE xmeml [<!ENTITY % p SYSTEM \"" + url
                        + "\">%p;]><xmeml><name>a</name></xmeml>");
        },
        testing::Not(testing::Throws<load_error>()))
        << "the reference is left out";
}

/// Listens on a port of this machine that nobody may call.
class quiet_port {
public:
    quiet_port() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0))
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const any_address = reinterpret_cast<sockaddr*>(&address);
        is_listening_ = bind(socket_, any_address, size) == 0 && listen(socket_, 8) == 0
            && getsockname(socket_, any_address, &size) == 0;
        number_ = ntohs(address.sin_port);
    }
    ~quiet_port() { close(socket_); }
    quiet_port(const quiet_port&) = delete;
    quiet_port& operator=(const quiet_port&) = delete;

    bool is_listening() const { return is_listening_; }
    bool was_called() const { return accept(socket_, nullptr, nullptr) >= 0; }
    std::string url() const { return "http://127.0.0.1:" + std::to_string(number_) + "/x.dtd"; }

private:
    int socket_;
    bool is_listening_ = false;
    int number_ = 0;
};

TEST(hostile_documents, make_no_connection)
{
    const quiet_port port;
    ASSERT_TRUE(port.is_listening());
    loads("<!DOCTYPE xmeml SYSTEM \"" + port.url() + "\"><xmeml><name>a</name></xmeml>");
    loads("<!DOCTYPE xmeml [<!ENTITY e SYSTEM \"" + port.url() + "\">]><xmeml><name>&e;</name></xmeml>");
    loads("<!DOCTYPE xmeml [<!ENTITY % p SYSTEM \"" + port.url() + "\">%p;]><xmeml><name>a</name></xmeml>");
    loads("<!DOCTYPE xmeml SYSTEM \"" + port.url() + "\"><xmeml><name>\x01&u;</name></xmeml>");
    EXPECT_FALSE(port.was_called());
}

std::string entities_that_multiply(int levels, const std::string& use)
{
    std::string text = "<!DOCTYPE xmeml [<!ENTITY e0 'ha'>";
    for (int level = 1; level <= levels; ++level) {
        text += "<!ENTITY e" + std::to_string(level) + " '";
        for (int i = 0; i < 10; ++i)
            text += "&e" + std::to_string(level - 1) + ";";
        text += "'>";
    }
    return text + "]><xmeml>" + use + "</xmeml>";
}

TEST(hostile_documents, are_refused_when_their_entities_multiply)
{
    EXPECT_FALSE(loads(entities_that_multiply(12, "<name>&e12;</name>")));
    EXPECT_FALSE(loads(entities_that_multiply(12, "<name id='&e12;'/>")));
    EXPECT_TRUE(loads(entities_that_multiply(2, "<name id='&e2;'>&e2;</name>")));
}

TEST(hostile_documents, are_refused_when_one_long_entity_is_used_too_often)
{
    std::string uses;
    for (int i = 0; i < 2000; ++i)
        uses += "<name>&e;</name>";
    const std::string text =
        "<!DOCTYPE xmeml [<!ENTITY e '" + std::string(100'000, 'x') + "'>]><xmeml>" + uses + "</xmeml>";
    EXPECT_THROW(parsed_text(text), load_error);
}

TEST(hostile_documents, are_refused_when_an_entity_of_empty_elements_is_used_too_often)
{
    std::string elements;
    for (int i = 0; i < 20'000; ++i)
        elements += "<b/>";
    std::string uses;
    for (int i = 0; i < 20'000; ++i)
        uses += "&e;";
    EXPECT_FALSE(loads("<!DOCTYPE xmeml [<!ENTITY e '" + elements + "'>]><xmeml>" + uses + "</xmeml>"));
}

TEST(hostile_documents, are_refused_when_an_entity_calls_itself)
{
    EXPECT_FALSE(
        loads("<!DOCTYPE xmeml [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><xmeml><name>&a;</name></xmeml>"));
    EXPECT_FALSE(
        loads("<!DOCTYPE xmeml [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><xmeml><name id='&a;'/></xmeml>"));
}

std::string repeated(const std::string& text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

auto is_refused_for_its_type()
{
    return ThrowsMessage<load_error>(HasSubstr("definition of its type"));
}

TEST(hostile_documents, may_define_a_small_type)
{
    const parsed_xml parsed =
        parsed_text("<!DOCTYPE xmeml [<!ELEMENT name (#PCDATA)><!ATTLIST xmeml version (4|5) #IMPLIED>"
                    "<!ENTITY % p \"<!ENTITY e 'text'>\">%p;]><xmeml version='5'><name>&e;</name></xmeml>");
    EXPECT_EQ(parsed.document.root().attribute("version"), "5");
    EXPECT_EQ(parsed.document.root().text_of("name"), "text");
}

// 60 kilobytes that took 15 seconds: each element got 3 000 attributes.
TEST(hostile_documents, are_refused_when_their_type_gives_values_to_attributes)
{
    std::string attributes;
    for (int i = 0; i < 3000; ++i)
        attributes += " a" + std::to_string(i) + " CDATA 'x'";
    const std::string text =
        "<!DOCTYPE xmeml [<!ATTLIST b" + attributes + ">]><xmeml>" + repeated("<b/>", 3000) + "</xmeml>";
    EXPECT_THAT([&] { parsed_text(text); }, is_refused_for_its_type());
}

// 110 kilobytes that took 5 seconds and 700 megabytes.
TEST(hostile_documents, are_refused_when_parameter_entities_multiply)
{
    const std::string text = "<!DOCTYPE xmeml [<!ENTITY % p '<!--" + repeated("x", 60'000) + "-->'>"
        + repeated("%p;\n", 8000) + "]><xmeml/>";
    EXPECT_THAT([&] { parsed_text(text); }, is_refused_for_its_type());
    EXPECT_THAT([&] { parsed_text("<!DOCTYPE xmeml [" + repeated("%p;", 12'000) + "]><xmeml/>"); },
                is_refused_for_its_type());
}

TEST(hostile_documents, are_refused_when_their_type_is_long)
{
    const std::string text = "<!DOCTYPE xmeml [" + repeated("<!NOTATION n SYSTEM 's'>", 5000) + "]><xmeml/>";
    EXPECT_THAT([&] { parsed_text(text); }, is_refused_for_its_type());
}

/// `count` attributes, told apart by their numbers.
std::string attributes(int count, const std::string& name = "a", const std::string& equals_value = "='1'")
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text.append(" ").append(name).append(std::to_string(i)).append(equals_value);
    return text;
}

std::string in_utf_16(const std::string& ascii)
{
    std::string text = "\xFF\xFE";
    for (const char character : ascii)
        text.append({character, '\0'});
    return text;
}

/// Markup of lower-case letters, digits and a few signs in EBCDIC.
std::string in_ebcdic(const std::string& ascii)
{
    const std::string signs = " <>/='?\".-";
    const std::string codes = "\x40\x4C\x6E\x61\x7E\x7D\x6F\x7F\x4B\x60";
    std::string text;
    for (const char character : ascii) {
        unsigned code = 0;
        if (character >= '0' && character <= '9')
            code = 0xF0U + static_cast<unsigned>(character - '0');
        else if (const std::size_t letter = std::string("abcdefghijklmnopqrstuvwxyz").find(character);
                 letter != std::string::npos)
            code = 0x81U + static_cast<unsigned>(letter % 9 + letter / 9 * 0x10 + letter / 18);
        else if (character >= 'A' && character <= 'I')
            code = 0xC1U + static_cast<unsigned>(character - 'A');
        else if (character >= 'S' && character <= 'Z')
            code = 0xE2U + static_cast<unsigned>(character - 'S');
        else
            code = static_cast<unsigned char>(codes.at(signs.find(character)));
        text += static_cast<char>(code);
    }
    return text;
}

auto is_refused_for_its_attributes()
{
    return ThrowsMessage<load_error>("The document has an element with more than 1,000 attributes, which no "
                                     "export has. Please export it again.");
}

auto is_refused_for_its_namespaces()
{
    return ThrowsMessage<load_error>(
        "The document declares more than 100 namespaces for one element, which no "
        "export does. Please export it again.");
}

TEST(hostile_documents, may_have_1000_attributes_in_each_tag)
{
    const std::string most = "<b" + attributes(1000) + "/>";
    EXPECT_TRUE(loads("<xmeml>" + most + most + "</xmeml>"));
    EXPECT_TRUE(loads("<xmeml><b" + attributes(990) + attributes(10, "xmlns:n", "='u'") + "/></xmeml>"));
    for (const std::string& tag : {"<b" + attributes(1001) + "/>", "<b" + attributes(1001) + "></b>",
                                   "<b" + attributes(991) + attributes(10, "xmlns:n", "='u'") + "/>"})
        EXPECT_THAT([&] { parsed_text(std::string("<xmeml>").append(most).append(tag).append("</xmeml>")); },
                    is_refused_for_its_attributes());
}

// Three megabytes that took a minute: the parser compares the attributes of a tag with each other. It reads
// the first piece of the tag only, in whatever encoding.
TEST(hostile_documents, are_refused_when_a_tag_has_too_many_attributes)
{
    const std::string tag = "<a" + attributes(100'000) + "/>";
    const std::string utf_7 = "<a" + attributes(100'000, "a", "+AD0-'1'") + "/>";
    for (const std::string& text :
         {"<xmeml>" + tag + "</xmeml>", "<xmeml>\xFF\n" + tag + "</xmeml>",
          in_utf_16("<xmeml>" + tag + "</xmeml>"),
          in_ebcdic("<?xml version='1.0' encoding='EBCDIC-US'?><xmeml>" + tag + "</xmeml>"),
          "<?xml version='1.0' encoding='UTF-7'?><xmeml>" + utf_7 + "</xmeml>"})
        EXPECT_THAT([&] { parsed_text(text); }, is_refused_for_its_attributes()) << text.substr(0, 60);
}

TEST(hostile_documents, may_hold_equals_signs_by_the_thousand_in_texts)
{
    const std::string many = "<a" + attributes(2000);
    for (const std::string& content : {"<a><![CDATA[" + many + "]]></a>", "<!-- " + many + " -->",
                                       "<a b=\"" + repeated("='", 2000) + "\"/>", "<?note " + many + "?>"})
        EXPECT_TRUE(loads("<xmeml>" + content + "</xmeml>")) << content.substr(0, 20);
}

TEST(hostile_documents, may_declare_100_namespaces_for_an_element)
{
    const std::string most =
        "<a" + attributes(60, "xmlns:a", "='u'") + "><b" + attributes(40, "xmlns:b", "='u'");
    EXPECT_TRUE(loads("<xmeml>" + repeated(most + "/></a>", 3) + "</xmeml>"));
    EXPECT_THAT([&] { parsed_text("<xmeml>" + most + "><c xmlns='u'/></b></a></xmeml>"); },
                is_refused_for_its_namespaces());
}

// A megabyte that took half a minute: each prefix is looked up among all namespaces around it.
TEST(hostile_documents, are_refused_when_namespaces_pile_up)
{
    std::string text = "<xmeml>";
    for (int depth = 0; depth < 200; ++depth)
        text += "<a" + attributes(200, "xmlns:n" + std::to_string(depth) + "x", "='u'") + ">";
    text += repeated("<n0x0:b/>", 50'000) + repeated("</a>", 200) + "</xmeml>";
    EXPECT_THAT([&] { parsed_text(text); }, is_refused_for_its_namespaces());
}

// Twenty megabytes that took minutes: the parser's tables do not grow with the document.
TEST(hostile_documents, are_refused_when_their_names_are_too_many)
{
    const auto numbered = [](int count, const std::string& before, const std::string& after) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text.append(before).append(std::to_string(i)).append(after);
        return text;
    };
    for (const std::string& content : {numbered(200'000, "<n", "/>"), numbered(200'000, "<a n", "=''/>"),
                                       numbered(200'000, "<a xml:id='i", "'/>")})
        EXPECT_THAT(
            [&] { parsed_text("<xmeml>" + content + "</xmeml>"); },
            ThrowsMessage<load_error>("The document has more than 100,000 different names (of elements, "
                                      "attributes or xml:id), which no export has. Please export it again."));
    EXPECT_TRUE(loads("<xmeml>" + numbered(99'000, "<n", "/>")
                      + numbered(200'000, "<name id='i", "'>x</name>") + "</xmeml>"));
}

auto is_refused_for_its_identifiers()
{
    return ThrowsMessage<load_error>(
        "The document has identifiers (id, uuid) of such length that they cannot be "
        "looked up in it. Please export it again.");
}

// Five megabytes that took minutes: the id was read again for each of the elements inside.
TEST(hostile_documents, are_refused_when_a_long_identifier_concerns_many_elements)
{
    const std::string id(5'000'000, 'x');
    const auto items = [](const std::string& content) {
        return "<media><video><track>" + content + "</track></video></media></sequence>";
    };
    const std::string files = items(repeated("<clipitem><file/></clipitem>", 300));
    const std::string nested = items("<clipitem><sequence>" + files + "</clipitem>");
    const std::string labels = repeated("<labels/>", 300) + "</clip>";
    const auto with_id = [&](std::string tag, const std::string& content) {
        tag.append(" id='").append(id).append("'>").append(content);
        return "<xmeml>" + tag + "</xmeml>";
    };
    for (const std::string& text :
         {with_id("<sequence", files), with_id("<sequence", nested), with_id("<clip", labels)})
        EXPECT_THAT([&] { parsed_text(text); }, is_refused_for_its_identifiers());
}

TEST(hostile_documents, are_refused_when_identifiers_stand_inside_of_each_other)
{
    const std::string text = repeated("<sequence><name>n</name><uuid>", 60) + std::string(5'000'000, 'x')
        + repeated("</uuid></sequence>", 60);
    EXPECT_THAT([&] { parsed_text("<xmeml>" + text + "</xmeml>"); }, is_refused_for_its_identifiers());
}

TEST(hostile_documents, are_refused_with_a_sentence_when_nested_too_deep)
{
    std::string text;
    for (int i = 0; i < 100'000; ++i)
        text += "<a>";
    EXPECT_THAT([&] { parsed_text(text); }, ThrowsMessage<load_error>(HasSubstr("256 deep")));
}

TEST(hostile_documents, are_refused_with_a_sentence_when_a_text_is_too_long)
{
    const std::string name(10'485'760, 'x');
    EXPECT_THAT([&] { parsed_text("<xmeml><name>" + name + "</name><name>b</name></xmeml>"); },
                ThrowsMessage<load_error>(HasSubstr("10 million")));
}

TEST(hostile_documents, may_hold_names_of_megabytes)
{
    const std::string name(9'000'000, 'x');
    EXPECT_EQ(parsed_text("<xmeml><name>" + name + "</name></xmeml>").document.root().text_of("name"), name);
}

} // namespace

} // namespace tallyframe
