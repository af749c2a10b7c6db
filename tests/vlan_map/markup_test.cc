#include "report/escape/markup.h"

#include <gtest/gtest.h>

namespace {

using report::to_markup;

const std::string replacement = "\xef\xbf\xbd";

TEST(Markup, text_is_content_and_attribute_value) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"", ""},
      {"gigabit-ethernet-1/1/1", "gigabit-ethernet-1/1/1"},
      {"caf\xc3\xa9 \xe6\x9d\xb1\xe4\xba\xac \xf0\x9f\x94\xa5",
       "caf\xc3\xa9 \xe6\x9d\xb1\xe4\xba\xac \xf0\x9f\x94\xa5"},
      {"</script>", "&lt;/script&gt;"},
      {"]]>", "]]&gt;"},
      {"<!--", "&lt;!--"},
      {"a\" onload='b'&amp;", "a&quot; onload=&#39;b&#39;&amp;amp;"},
  };
  for (const auto &[text, markup] : rows) EXPECT_EQ(to_markup(text), markup);
}

TEST(Markup, only_the_named_characters_become_references) {
  EXPECT_EQ(to_markup("VPN's <a> & \"b\"", "&<>\""), "VPN's &lt;a&gt; &amp; &quot;b&quot;");
  EXPECT_EQ(to_markup("'\x01\xff", ""), "'\\x01" + replacement);
}

TEST(Markup, what_would_not_show_is_written_as_an_escape) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {std::string("a\0b", 3), "a\\x00b"}, {"\n\t\r", "\\n\\x09\\x0d"},
      {"\x1b[31m\x7f", "\\x1b[31m\\x7f"},  {"\xc2\x85", "\\x85"},
      {"\xe2\x80\xae", "\\u202e"},         {"\xe2\x81\xa6", "\\u2066"},
      {"\xe2\x80\x8f", "\\u200f"},         {"\xd8\x9c", "\\u061c"},
      {"\xef\xbf\xbe", "\\ufffe"},         {"\xe2\x80\xa8", "\\u2028"},
      {"\xf0\x9f\xbf\xbf", "\\u1ffff"},
  };
  for (const auto &[text, markup] : rows) EXPECT_EQ(to_markup(text), markup);
}

TEST(Markup, bytes_that_are_not_utf_8_are_replaced) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"a\xff"
       "b",
       "a" + replacement + "b"},
      {"\x80", replacement},
      {"\xc3", replacement},
      {"\xe6\x9d", replacement + replacement},
      {"\xc0\xbc", replacement + replacement},                    // "<" in two bytes
      {"\xe0\x80\xbc", replacement + replacement + replacement},  // and in three
      {"\xed\xa0\x80", replacement + replacement + replacement},  // half of a pair of UTF-16
      {"\xf4\x90\x80\x80", replacement + replacement + replacement + replacement},
      {"\xf0\x9f<b>", replacement + replacement + "&lt;b&gt;"},
  };
  for (const auto &[text, markup] : rows) EXPECT_EQ(to_markup(text), markup);
}

}  // namespace
