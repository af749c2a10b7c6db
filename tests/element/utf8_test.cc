#include "element/input/utf8.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <utility>
#include <vector>

namespace {

using element::find_invalid_utf8;
using element::replace_invalid_utf8;
using element::take_character;
using element::to_utf8;

const std::string replacement = "\xef\xbf\xbd";

TEST(Utf8, finds_the_first_byte_that_begins_no_character) {
  const std::vector<std::pair<std::string, std::optional<std::size_t>>> rows{
      {"", std::nullopt},
      {"a\x7f\n", std::nullopt},
      {"\xc2\x80\xdf\xbf", std::nullopt},
      {"\xe0\xa0\x80\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbf", std::nullopt},
      {"\xf0\x90\x80\x80\xf3\xbf\xbf\xbf\xf4\x8f\xbf\xbf", std::nullopt},
      {"a\x80", 1U},             // continues nothing
      {"a\xc1\xbf", 1U},         // longer than need be
      {"\xe0\x9f\xbf", 0U},      // the same
      {"\xf0\x8f\xbf\xbf", 0U},  // the same
      {"\xed\xa0\x80", 0U},      // surrogate
      {"\xf4\x90\x80\x80", 0U},  // beyond the last character
      {"\xf5\x80\x80\x80", 0U},  // the same
      {"ab\xc3", 2U},            // cut off
      {"ab\xe2\x82", 2U},        // the same
      {"ab\xe2\x82"
       "c",
       2U},  // broken off
      {"ab\xf0\x9f\x98"
       "c",
       2U},  // the same
  };
  for (const auto &[text, place] : rows) EXPECT_EQ(find_invalid_utf8(text), place) << testing::PrintToString(text);
}

TEST(Utf8, each_invalid_byte_is_replaced) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"", ""},
      {"na\xc3\xafve", "na\xc3\xafve"},
      {"a\xffz", "a" + replacement + "z"},
      {"\xe2\x82", replacement + replacement},
      {"\xed\xa0\x80.", replacement + replacement + replacement + "."},
  };
  for (const auto &[text, valid] : rows) EXPECT_EQ(replace_invalid_utf8(text), valid) << testing::PrintToString(text);
}

TEST(Utf8, characters_are_taken_one_by_one) {
  std::string_view text = "a\xc3\xaf\xe2\x82\xac\xf0\x9f\x98\x80\xf0\x9f";
  for (const char32_t code : {U'a', U'\u00ef', U'\u20ac', U'\U0001f600', U'\ufffd', U'\ufffd'}) {
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(take_character(text), code);
  }
  EXPECT_TRUE(text.empty());
}

TEST(Utf8, what_is_no_code_point_has_no_bytes) {
  EXPECT_EQ(to_utf8(0xd800), "");
  EXPECT_EQ(to_utf8(0x110000), "");
  EXPECT_EQ(to_utf8(0), std::string(1, '\0'));
}

RC_GTEST_PROP(Utf8Property, code_points_are_written_and_taken_alike, ()) {
  const char32_t code = *rc::gen::suchThat(rc::gen::inRange<char32_t>(0, 0x110000),
                                           [](char32_t drawn) { return drawn < 0xd800 || drawn > 0xdfff; });
  const std::string text = to_utf8(code);
  RC_ASSERT(!find_invalid_utf8(text));
  std::string_view rest = text;
  RC_ASSERT(take_character(rest) == code);
  RC_ASSERT(rest.empty());
}

RC_GTEST_PROP(Utf8Property, a_replaced_text_is_the_row_of_its_characters, ()) {
  const auto text = *rc::gen::container<std::string>(
      rc::gen::element('a', '\x80', '\xbf', '\xc3', '\xe0', '\xe2', '\xed', '\xf0', '\x9f', '\xff'));
  std::string row;
  for (std::string_view rest = text; !rest.empty();) row += to_utf8(take_character(rest));
  RC_ASSERT(replace_invalid_utf8(text) == row);
}

}  // namespace
