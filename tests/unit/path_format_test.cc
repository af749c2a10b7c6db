#include "config_validate_comn/daemon/path_format.h"

#include <gtest/gtest.h>

namespace {

TEST(PathFormatTest, fills_the_template) {
  EXPECT_EQ(format_path("/list{%s %u}/leaf", "north", 4294967295U), "/list{north 4294967295}/leaf");
}

TEST(PathFormatTest, is_cut_at_511_characters) {
  EXPECT_EQ(format_path("/%s", std::string(510, 'a').c_str()), "/" + std::string(510, 'a'));
  EXPECT_EQ(format_path("/%s", std::string(511, 'a').c_str()), "/" + std::string(510, 'a'));
}

TEST(PathFormatTest, joins_pieces_as_the_template_does) {
  EXPECT_EQ(join_path({"/list{", "north", " ", decimal_t(4294967295U), "}/", "leaf"}), "/list{north 4294967295}/leaf");
  EXPECT_EQ(join_path({"/list{", decimal_t(0), "}"}), "/list{0}");
  EXPECT_EQ(join_path({"/", "", "a"}), "/a");
  EXPECT_EQ(join_path({"/", std::string_view("north\0pole", 10), "/a"}), "/north/a") << "a text ends at its zero byte";
}

TEST(PathFormatTest, joined_pieces_are_cut_at_511_characters) {
  EXPECT_EQ(join_path({"/", std::string(510, 'a')}), "/" + std::string(510, 'a'));
  EXPECT_EQ(join_path({"/", std::string(511, 'a'), "b"}), "/" + std::string(510, 'a'));
}

TEST(PathFormatTest, as_a_format_a_path_has_its_percent_signs_doubled) {
  EXPECT_EQ(as_path_format("/list{north}/leaf"), "/list{north}/leaf");
  EXPECT_EQ(as_path_format("/list{50%}/vpn{%s%n}"), "/list{50%%}/vpn{%%s%%n}");
  EXPECT_EQ(as_path_format("/%%"), "/%%%%");
}

// The path was cut before: its signs are doubled beyond that length.
TEST(PathFormatTest, as_a_format_a_path_may_be_twice_as_long) {
  const std::string path = format_path("/%s", std::string(600, '%').c_str());
  EXPECT_EQ(as_path_format(path), "/" + std::string(1020, '%'));
}

}  // namespace
