#include "report/path_pattern.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Row {
  std::string_view path, pattern;
};

TEST(PathPattern, a_star_stands_for_any_text_within_a_name_or_keys) {
  for (const auto &[path, pattern] : std::vector<Row>{
           {"/a/vpn{east}", "/a/vpn{east}"},
           {"/a/vpn{east}", "/a/vpn{*}"},
           {"/a/vpn{east}", "/a/vpn{*a*t}"},
           {"/a/vpn{east}", "/a/vpn{east*}"},
           {"/a/vpn{east}", "/*/v*n{e**t}"},
           {"/a/vpn{abab}", "/a/vpn{*ab}"},
           {"/a/access-interface{ge-1/1/1}", "/a/access-interface{ge-1/*}"},
           {"/a/dot1q-range{100 200}", "/a/dot1q-range{100 *}"},
           {"/a/dot1q-range{100 200}", "/a/dot1q-range{*}"},
           {R"(/a/vpn{"east side"})", R"(/a/vpn{"east side"})"},
           {R"(/a/vpn{"east side"})", "/a/vpn{east*}"},
           {R"(/a/vpn{"say \"hi\""})", "/a/vpn{say*hi*}"},
           {"/a/vpn{a*b}", "/a/vpn{a*b}"},
       }) {
    EXPECT_TRUE(report::fits_pattern(path, pattern)) << path << " and " << pattern;
  }
}

TEST(PathPattern, a_star_leads_out_of_no_step) {
  for (const auto &[path, pattern] : std::vector<Row>{
           {"/a/vpn{east}", "/a/vpn{west}"},
           {"/a/vpn{east}", "/a/vpn{eas}"},
           {"/a/vpn{east}", "/a/vpn{*b}"},
           {"/a/vpn{east}", "/a/vpn"},
           {"/a/vpn{east}", "/a/*"},
           {"/a/vpn{east}", "/*"},
           {"/a/vpn{east}/dot1q", "/a/vpn{east}"},
           {"/a/vpn{east}", "/a/vpn{east}/dot1q"},
           {"/a/vpn{east}/dot1q", "/a/vpn{*}"},
           {"/a/b/c", "/a/*c"},
           {"/a/vpn{east}", ""},
       }) {
    EXPECT_FALSE(report::fits_pattern(path, pattern)) << path << " and " << pattern;
  }
}

}  // namespace
