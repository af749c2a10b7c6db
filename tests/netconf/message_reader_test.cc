#include "netconf/message_reader.h"

#include <gtest/gtest.h>

#include "tests/netconf/scripted_transport.h"

namespace {

using netconf::Framing;
using netconf::MessageReader;

/// The next message, read so many bytes at once.
std::string next_message(MessageReader &reader, std::size_t at_once = 4096) {
  std::string message;
  std::string piece(at_once, '\0');
  while (const std::size_t count = reader.read(piece.data(), piece.size())) message.append(piece, 0, count);
  return message;
}

/// What is said of the stream, or "" where a message could be read.
std::string fault_of(const std::string &stream, Framing framing, const std::string &reason = "") {
  ScriptedTransport transport(stream, std::string::npos, reason);
  MessageReader reader(transport);
  reader.set_framing(framing);
  try {
    next_message(reader);
  } catch (const netconf::SessionError &error) {
    return error.what();
  }
  return "";
}

using Messages = std::vector<std::string>;

Messages messages_of(const std::string &stream, Framing framing, std::size_t count, std::size_t at_once) {
  ScriptedTransport transport(stream, at_once);
  MessageReader reader(transport);
  reader.set_framing(framing);
  Messages messages;
  for (std::size_t i = 0; i < count; ++i) messages.push_back(next_message(reader, i % 2 == 0 ? 1 : 4096));
  return messages;
}

// What looks like a mark's begin belongs to the message.
TEST(MessageReader, finds_marks_however_the_stream_is_torn) {
  const Messages messages{"<a/>", "]]>]]", "]]]>]]]>]", "", "<b>]]></b>\n"};
  std::string stream;
  for (const std::string &message : messages) stream += framed(message, Framing::end_of_message);
  for (std::size_t at_once = 1; at_once <= stream.size(); ++at_once) {
    EXPECT_EQ(messages_of(stream, Framing::end_of_message, messages.size(), at_once), messages) << at_once;
  }
}

TEST(MessageReader, joins_chunks_however_the_stream_is_torn) {
  const std::string stream =
      "\n#1\na\n#3\n\n#2\n#12\n\nbcdefghijkl\n##\n"
      "\n#2\n##\n##\n"
      "\n\n\n#4\n]]>]\n#2\n]>\n##\n";
  for (std::size_t at_once = 1; at_once <= stream.size(); ++at_once) {
    EXPECT_EQ(messages_of(stream, Framing::chunks, 3, at_once), (Messages{"a\n#2\nbcdefghijkl", "##", "]]>]]>"}))
        << at_once;
  }
}

TEST(MessageReader, changes_the_framing_between_two_messages) {
  ScriptedTransport transport("<hello/>]]>]]>\n#2\nok\n##\n");
  MessageReader reader(transport);
  EXPECT_EQ(next_message(reader), "<hello/>");
  reader.set_framing(Framing::chunks);
  EXPECT_EQ(next_message(reader), "ok");
}

TEST(MessageReader, reads_back_what_is_framed) {
  const std::string huge(10'000'000, 'x');
  for (const Framing framing : {Framing::chunks, Framing::end_of_message}) {
    ScriptedTransport transport(framed(huge, framing) + framed("next", framing), 60'000);
    MessageReader reader(transport);
    reader.set_framing(framing);
    EXPECT_EQ(next_message(reader, 1 << 16) == huge, true);
    EXPECT_EQ(next_message(reader), "next");
  }
}

TEST(MessageReader, the_longest_chunk_is_the_one_that_the_protocol_allows) {
  EXPECT_EQ(fault_of("\n#4294967295\nabc", Framing::chunks), "the connection ended inside a message");
}

TEST(MessageReader, a_header_that_is_none_is_shown) {
  const std::vector<std::pair<std::string, std::string>> headers{
      {"a", "a"},  // no line feed
      {"#1\na", "#"},
      {"\na", "\\x0aa"},  // no sign
      {"\n ", "\\x0a "},
      {"\n\r\n#1\na", "\\x0a\\x0d"},
      {"\n#\na", "\\x0a#\\x0a"},         // no length
      {"\n#0\n\n##\n", "\\x0a#0\\x0a"},  // a chunk is not empty
      {"\n#01\na", "\\x0a#01\\x0a"},     // a leading zero
      {"\n#+1\na", "\\x0a#+"},           // no digit
      {"\n#-1\na", "\\x0a#-"},
      {"\n# 1\na", "\\x0a# "},
      {"\n#1 \na", "\\x0a#1 "},
      {"\n#1\r\na", "\\x0a#1\\x0d"},
      {"\n#0x1\na", "\\x0a#0x"},
      {"\n#4294967296\na", "\\x0a#4294967296\\x0a"},  // too long
      {"\n#42949672950\na", "\\x0a#42949672950"},
      {"\n##\n", "\\x0a##"},                     // no chunk before the end
      {"\n#1\na\n###\n", "\\x0a###"},            // no line feed behind the end
      {"\n#1\nab", "b"},                         // longer than its header says
      {"\n#1\na\n\n#1\nb\n##\n", "\\x0a\\x0a"},  // a line too many inside a message
      {"\n#1\na\n]]>]]>", "\\x0a]"},             // the other framing
      {std::string("\n#\0\n", 4), "\\x0a#\\x00"},
  };
  for (const auto &[stream, shown] : headers) {
    EXPECT_EQ(fault_of(stream, Framing::chunks),
              "\"" + shown +
                  "\" in place of a chunk's header; expected \"#LENGTH\" on a line of its own, LENGTH from 1 to "
                  "4294967295, or \"##\" behind a message's last chunk");
  }
}

TEST(MessageReader, an_end_of_the_connection_is_told_with_its_reason) {
  const std::string inside = "the connection ended inside a message";
  for (const char *stream : {"a", "]", "]]>]]"}) EXPECT_EQ(fault_of(stream, Framing::end_of_message), inside) << stream;
  for (const char *stream : {"\n#3\nab", "\n#3\nabc", "\n#3\nabc\n#", "\n#3\nabc\n##"}) {
    EXPECT_EQ(fault_of(stream, Framing::chunks), inside) << stream;
  }
  EXPECT_EQ(fault_of("", Framing::chunks), "the connection ended");
  EXPECT_EQ(fault_of("", Framing::end_of_message, "ssh: no route"), "the connection ended: ssh: no route");
}

}  // namespace
