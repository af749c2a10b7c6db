#include "element/input/xml_reader.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <functional>

#include "element/input/input_error.h"
#include "temporary_file.h"

namespace {

using Lines = std::vector<std::string>;

/// What is told, a line each: "<3 {urn:a}b {urn:c}d='e'", "text", ">". Parts of a text are joined.
class Written : public element::XmlEvents {
 public:
  void start(const element::XmlElement &element) override {
    write_text();
    std::string line = fmt::format("<{} {{{}}}{}", element.line(), element.name_space(), element.name());
    for (const auto &[name_space, name, value] : element.attributes()) {
      line += fmt::format(" {{{}}}{}='{}'", name_space, name, value);
    }
    lines.push_back(line);
  }
  void text(std::string_view part) override { text_ += part; }
  void end() override {
    write_text();
    lines.emplace_back(">");
  }

  Lines lines;

 private:
  void write_text() {
    if (!text_.empty()) lines.push_back(text_);
    text_.clear();
  }

  std::string text_;
};

Lines read(const std::string &text) {
  element::InputPieces input(text, "file");
  Written events;
  try {
    read_xml(input, events);
  } catch (const element::InputError &error) {
    return {error.what()};
  }
  return events.lines;
}

std::string chunks(const std::string &text, std::size_t size) {
  std::string framed;
  for (std::size_t at = 0; at < text.size(); at += size) {
    const std::string chunk = text.substr(at, size);
    framed += fmt::format("\n#{}\n{}", chunk.size(), chunk);
  }
  return framed + "\n##\n";
}

TEST(XmlReader, prefixes_and_attributes_are_resolved) {
  EXPECT_EQ(read("<a xmlns='urn:a' xmlns:p='urn:p' x='1' p:y='&lt;2'>\n<p:b\n/>\n<c xmlns=''/></a>"),
            (Lines{"<1 {urn:a}a {}x='1' {urn:p}y='<2'", "\n", "<2 {urn:p}b", ">", "\n", "<4 {}c", ">", ">"}));
}

TEST(XmlReader, references_and_sections_are_text) {
  EXPECT_EQ(read("<a>&lt;&#228;<!-- no -->\r\n<![CDATA[&<]]></a>"), (Lines{"<1 {}a", "<\xc3\xa4\n&<", ">"}));
}

TEST(XmlReader, documents_in_a_row) {
  const Lines both{"<1 {}a", ">", "<2 {}b", "x", ">"};
  for (const char *between : {"\n", "]]>]]>\n", "\n]]>]]>", "\n<?xml version='1.0'?>", "<!-- -->\n", " \n <?x?>"}) {
    EXPECT_EQ(read(std::string("<a></a>") + between + "<b>x</b>\n]]>]]>\n<!-- end -->"), both) << between;
  }
  EXPECT_EQ(read("\xef\xbb\xbf\n <?xml version='1.0' encoding='latin1'?><a>\xc3\xa4</a>"),
            (Lines{"<2 {}a", "\xc3\xa4", ">"}));
}

TEST(XmlReader, chunks_of_any_size_keep_the_lines_of_the_file) {
  const std::string text = "<a>\n<b c='\xc3\xa4'/>\n<d/></a>";
  EXPECT_EQ(read(chunks(text, 100)), (Lines{"<3 {}a", "\n", "<4 {}b {}c='\xc3\xa4'", ">", "\n", "<5 {}d", ">", ">"}));
  // Two lines are added before each byte.
  EXPECT_EQ(read(chunks("<a>\n<b/></a>", 1)), (Lines{"<3 {}a", "\n", "<12 {}b", ">", ">"}));
  EXPECT_EQ(read(chunks("<a/>", 3) + chunks("<b/>", 2)), (Lines{"<3 {}a", ">", "<9 {}b", ">"}));
}

TEST(XmlReader, chunks_that_are_not_whole) {
  const std::string expected =
      ": chunk of NETCONF's framing that does not end where its length says; expected \"#LENGTH\" on a line of its own, "
      "and \"##\" behind the last chunk";
  const std::vector<std::pair<const char *, int>> rows{
      {"\n#4\n<a/>", 3},       {"\n#9\n<a>", 3},     {"\n#3\n<a/>\n##\n", 3},    {"\n#x\n<a/>\n##\n", 3},
      {"\n#0\n<a/>\n##\n", 3}, {"#\n<a/>\n##\n", 2}, {"\n#99999999999\n<a/>", 3}};
  for (const auto &[text, line] : rows) EXPECT_EQ(read(text), Lines{fmt::format("file:{}{}", line, expected)}) << text;
}

TEST(XmlReader, nothing_to_tell) {
  for (const char *text : {"", " \n", "<!-- a -->", "<?xml version='1.0'?>", "]]>]]>"}) EXPECT_EQ(read(text), Lines());
}

TEST(XmlReader, what_is_not_well_formed) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"<a>\n<b></a>", "file:2: mismatched tag; expected </b>"},
      {"<a>\n<b>\n", "file:3: the text ends inside an element; expected </b>"},
      {"<a/>\n<b", "file:2: unclosed token; expected well-formed XML"},
      {"<a/>\ntext", "file:2: text outside of all elements; expected an element"},
      {"<a/>\n]]><b/>", "file:2: text outside of all elements; expected an element"},
      {"<a>\n<b x='1' x='2'/></a>", "file:2: duplicate attribute; expected well-formed XML"},
      {"<a>\n<p:b/></a>", "file:2: unbound prefix; expected well-formed XML"},
      {"<a>\n&b;</a>", "file:2: undefined entity; expected well-formed XML"},
      {"<a>\n\x01</a>", "file:2: not well-formed (invalid token); expected well-formed XML"},
      {"\n<!DOCTYPE a>\n<a/>", "file:2: document type declaration; expected XML without one"},
      {"<a>\n\xff</a>", "file:2: byte \\xff; expected text in UTF-8"},
      {"<a>\n\xe2\x82", "file:2: byte \\xe2; expected text in UTF-8"},
      {std::string("<a>\n\0</a>", 8), "file:2: zero byte; expected text in UTF-8"},
  };
  for (const auto &[text, fault] : rows) EXPECT_EQ(read(text), Lines{fault}) << text;
}

TEST(XmlReader, nesting_and_tokens_are_bounded) {
  std::string nested;
  for (int i = 0; i < 101; ++i) nested += "<a>\n";
  EXPECT_EQ(read(nested), Lines{"file:101: nested deeper than 100 elements; expected fewer"});
  const std::string comment(std::size_t{1} << 20, 'x');
  EXPECT_EQ(read("<a>\n<!--" + comment.substr(9) + "--></a>"), (Lines{"<1 {}a", "\n", ">"}));
  EXPECT_EQ(read("<a>\n<!--" + comment + comment + "--></a>"),
            Lines{"file:2: tag or comment of more than 1048576 bytes; expected a shorter one"});
}

TEST(XmlReader, pieces_of_a_file_cut_nothing) {
  std::string text = "<a>";
  Lines expected{"<1 {}a"};
  for (std::size_t i = 0; i < 30'000; ++i) {
    text += "\n<b\xc3\xa4 c='\xe2\x82\xac'>\xf0\x9f\x98\x80</b\xc3\xa4>";
    expected.insert(expected.end(),
                    {"\n", fmt::format("<{} {{}}b\xc3\xa4 {{}}c='\xe2\x82\xac'", i + 2), "\xf0\x9f\x98\x80", ">"});
  }
  text += "</a>";
  expected.emplace_back(">");
  EXPECT_EQ(read(text), expected);
  const TemporaryFile file(text);
  element::InputPieces input(file.path());
  Written events;
  EXPECT_EQ(read_xml(input, events), 1U);
  EXPECT_EQ(events.lines, expected);
}

TEST(XmlReader, exceptions_of_the_receiver_pass) {
  class Refusing : public Written {
    void end() override { throw std::runtime_error("no more"); }
  };
  element::InputPieces input("<a><b/><b/></a>", "file");
  Refusing events;
  EXPECT_THROW(read_xml(input, events), std::runtime_error);
  EXPECT_EQ(events.lines.size(), 2U);
}

}  // namespace
