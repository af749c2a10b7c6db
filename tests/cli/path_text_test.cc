#include "report/path_text.h"

#include <gtest/gtest.h>

namespace {

using Steps = std::vector<std::string_view>;

TEST(PathText, a_slash_within_keys_parts_no_steps) {
  const std::vector<std::pair<std::string_view, Steps>> rows{
      {"/", {""}},
      {"/mpls", {"mpls"}},
      {"/a/b{1 2}/c", {"a", "b{1 2}", "c"}},
      {"/a/b{ge-1/1/1}/c", {"a", "b{ge-1/1/1}", "c"}},
      {R"(/a/b{"x}/y" z}/c)", {"a", R"(b{"x}/y" z})", "c"}},
      {R"(/a/b{"x\"}/y"}/c)", {"a", R"(b{"x\"}/y"})", "c"}},
      {R"(/a/b{"x\\"}/c)", {"a", R"(b{"x\\"})", "c"}},
      {"/a/b{never/closed", {"a", "b{never/closed"}},
      {R"(/a/b{"x\)", {"a", R"(b{"x\)"}},
  };
  for (const auto &[path, steps] : rows) EXPECT_EQ(report::path_steps(path), steps) << path;
}

TEST(PathText, a_path_beside_another_is_what_they_do_not_share) {
  struct Row {
    std::string_view path, other, beside;
  };
  for (const auto &[path, other, beside] : std::vector<Row>{
           {"/a/vpn{x}/dot1q", "/a/vpn{x}", "dot1q"},
           {"/a/vpn{x}/bridge-domain/dot1q", "/a/vpn{x}/bridge-domain/access-interface{ge-1}", "dot1q"},
           {"/a/vpn{x}", "/a/vpn{xy}", "vpn{x}"},
           {"/a/vpn{x}", "/a/vpn{x}", "vpn{x}"},
           {"/a/vpn{x}", "/a/vpn{x}/dot1q", "vpn{x}"},
           {"/config/vlan{1}", "/mpls/l2vpn-config", "/config/vlan{1}"},
       }) {
    EXPECT_EQ(report::path_beside(path, other), beside) << path << " beside " << other;
  }
}

}  // namespace
