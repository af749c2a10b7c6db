#include "config_validate_comn/daemon/path_format.h"

#include <gtest/gtest.h>

namespace {

TEST(PathFormatTest, FillsTheTemplate) {
  EXPECT_EQ(format_path("/list{%s %u}/leaf", "north", 4294967295U), "/list{north 4294967295}/leaf");
}

TEST(PathFormatTest, IsCutAt511Characters) {
  EXPECT_EQ(format_path("/%s", std::string(510, 'a').c_str()), "/" + std::string(510, 'a'));
  EXPECT_EQ(format_path("/%s", std::string(511, 'a').c_str()), "/" + std::string(510, 'a'));
}

TEST(PathFormatTest, AsAFormatAPathHasItsPercentSignsDoubled) {
  EXPECT_EQ(as_path_format("/list{north}/leaf"), "/list{north}/leaf");
  EXPECT_EQ(as_path_format("/list{50%}/vpn{%s%n}"), "/list{50%%}/vpn{%%s%%n}");
  EXPECT_EQ(as_path_format("/%%"), "/%%%%");
}

// The path was cut before: its signs are doubled beyond that length.
TEST(PathFormatTest, AsAFormatAPathMayBeTwiceAsLong) {
  const std::string path = format_path("/%s", std::string(600, '%').c_str());
  EXPECT_EQ(as_path_format(path), "/" + std::string(1020, '%'));
}

}  // namespace
