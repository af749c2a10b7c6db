#include "cli/terminal/wrapped_stream.h"

#include <gtest/gtest.h>

#include <sstream>

#include "source_dir.h"
#include "tests/cli/reader.h"
#include "tests/support/build_under_test.h"

namespace {

std::string wrapped(const std::string &text, std::size_t columns) {
  std::ostringstream out;
  cli::WrappedStream stream(out, columns);
  stream << text << std::flush;
  return out.str();
}

TEST(WrappedStream, lines_that_are_longer_are_broken_at_blanks_and_indented) {
  EXPECT_EQ(wrapped("one two three four five six\n", 20), "one two three four\n  five six\n");
  EXPECT_EQ(wrapped("   one two three four five\n", 20), "   one two three\n     four five\n");
  EXPECT_EQ(wrapped("short\n\n  two  blanks\n", 20), "short\n\n  two  blanks\n");
  EXPECT_EQ(wrapped("12345678901234567890\n", 20), "12345678901234567890\n");
}

TEST(WrappedStream, a_word_that_is_longer_stays_whole) {
  const std::string word(30, 'x');
  EXPECT_EQ(wrapped("+ " + word + " y\n", 20), "+\n  " + word + "\n  y\n");
  EXPECT_EQ(wrapped(word + "\n", 20), word + "\n");
}

TEST(WrappedStream, escape_sequences_take_no_room_and_characters_of_several_bytes_one_column) {
  EXPECT_EQ(wrapped("\x1b[1;31mrejected\x1b[0m by theirs\n", 20), "\x1b[1;31mrejected\x1b[0m by theirs\n");
  EXPECT_EQ(wrapped("\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc 123456789\n", 20),
            "\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc 123456789\n");
}

TEST(WrappedStream, without_columns_text_goes_through) {
  const std::string text = "one two three four five six seven eight\n";
  EXPECT_EQ(wrapped(text, 0), text);
  EXPECT_EQ(wrapped(text, 5), text) << "too few to wrap";
}

TEST(WrappedStream, what_is_begun_is_written_with_the_end) {
  std::ostringstream out;
  { cli::WrappedStream(out, 20) << "no end"; }
  EXPECT_EQ(out.str(), "no end");
}

TEST(WrappedStream, the_text_of_check_fits_a_terminal_and_no_file_changes) {
  const std::string command = "env COLUMNS=60 TERM=xterm NO_COLOR=1 " + vpnval_file() +
                              " check " SOURCE_DIR "/examples/access-two-vpns-one-vlan";
  const std::string narrow = run_reader("on_a_terminal.py", command).output;
  EXPECT_NE(narrow.find("1. rejected [access-same-dot1q]: vpls-group campus vpn data\n"), std::string::npos) << narrow;
  EXPECT_NE(run_process(command).output.find("vpls-group campus vpn data and vpws-group branches vpn south must not"),
            std::string::npos);
}

}  // namespace
