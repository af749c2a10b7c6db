#include "report/escape/printable.h"

#include <gtest/gtest.h>

namespace {

TEST(Printable, text_stays_as_it_is_and_control_characters_become_escapes) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"", ""},
      {"vpn e-line {x} \"y\" ~", "vpn e-line {x} \"y\" ~"},
      {"Zürich €", "Zürich €"},
      {"a\nb", "a\\nb"},
      {"a\tb", "a\\x09b"},
      {"\x1b[31mred", "\\x1b[31mred"},
      {"a\x7f", "a\\x7f"},
      {"a\xc2\x9b"
       "b",
       "a\\x9bb"},
      {"a\xc2\xa0", "a\xc2\xa0"},
      {"\u202eabc\u2066\u061c\u2028", "\\u202eabc\\u2066\\u061c\\u2028"},
      {"cut \xc2", "cut \xc2"},
  };
  for (const auto &[text, expected] : rows) EXPECT_EQ(report::printable(text), expected);
}

}  // namespace
