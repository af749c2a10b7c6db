#include "config_validate_comn/path_format.h"

#include <gtest/gtest.h>

namespace {

TEST(PathFormatTest, FillsTheTemplate) {
  EXPECT_EQ(format_path("/list{%s %u}/leaf", "north", 4294967295U), "/list{north 4294967295}/leaf");
}

TEST(PathFormatTest, IsCutAt511Characters) {
  EXPECT_EQ(format_path("/%s", std::string(510, 'a').c_str()), "/" + std::string(510, 'a'));
  EXPECT_EQ(format_path("/%s", std::string(511, 'a').c_str()), "/" + std::string(510, 'a'));
}

}  // namespace
