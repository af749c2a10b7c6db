#include <gtest/gtest.h>

#include "config_validate_comn/daemon/model_tags.h"
#include "config_validate_comn/snapshot/snapshot_loading.h"

namespace {

constexpr const char *kVpls = "vpls-group north";
constexpr const char *kVpws = "vpws-group west";

struct PathCase {
  std::uint32_t tag;
  const char *group;
  const char *path;
};

const std::vector<PathCase> path_cases{
    {model_tag::dot1q, kVpls, "/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain/dot1q"},
    {model_tag::dot1q, kVpws, "/mpls/l2vpn-config/l2vpn/vpws-group{west}/vpn{red}/access-interface{eth-1}/dot1q"},
    {model_tag::bridge_domain, kVpls, "/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain"},
    {model_tag::bridge_domain, kVpws, "/mpls/l2vpn-config/l2vpn/vpls-group{west}/vpn{red}/bridge-domain"},
    {model_tag::access_interface, kVpls,
     "/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain/access-interface{eth-1}"},
    {model_tag::access_interface, kVpws, "/mpls/l2vpn-config/l2vpn/vpws-group{west}/vpn{red}/access-interface{eth-1}"},
    {model_tag::pw_id, kVpls, ""},
    {0, kVpws, ""},
    // The family's keyword counts anywhere in the group's name.
    {model_tag::access_interface, "vpws-group vpls-group x",
     "/mpls/l2vpn-config/l2vpn/vpls-group{vpls-group x}/vpn{red}/bridge-domain/access-interface{eth-1}"},
};

TEST(AccessConfigPathTest, is_the_nodes_path_in_the_familys_tree) {
  for (const PathCase &row : path_cases) {
    EXPECT_EQ(build_vpn_access_config_path(static_cast<std::int32_t>(row.tag), row.group, "vpn red", "eth-1"), row.path)
        << row.tag << " of " << row.group;
  }
}

TEST(AccessConfigPathTest, tags_are_those_of_the_data_model) {
  EXPECT_EQ(model_tag::dot1q, 1929881563U);
  EXPECT_EQ(model_tag::bridge_domain, 1939333436U);
  EXPECT_EQ(model_tag::access_interface, 323130157U);
}

TEST(AccessConfigPathTest, is_cut_at_511_characters) {
  const std::string whole = "/mpls/l2vpn-config/l2vpn/vpls-group{" + std::string(600, 'g');
  EXPECT_EQ(build_vpn_access_config_path(static_cast<std::int32_t>(model_tag::bridge_domain),
                                         "vpls-group " + std::string(600, 'g'), "vpn red", "eth-1"),
            whole.substr(0, 511));
}

}  // namespace
