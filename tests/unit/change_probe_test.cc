// get_vpn_mop: what a commit changes at or below a path.

#include "config_validate_comn/daemon/model_tags.h"
#include "config_validate_comn/snapshot/snapshot_loading.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::u32;

class ChangeProbeTest : public AccessTest {
 protected:
  static constexpr const char *kInterface =
      "/mpls/l2vpn-config/l2vpn/vpws-group{west}/vpn{blue}/access-interface{eth-1}";

  std::int32_t probe() { return get_vpn_mop(sock(), tctx(), kInterface); }
};

TEST_F(ChangeProbeTest, an_untouched_path_has_no_operation) {
  platform.change("/mpls/l2vpn-config/l2vpn/vpws-group{west}/vpn{blue}/access-interface{eth-2}", MOP_CREATED);
  platform.change("/mpls/l2vpn-config/l2vpn/vpws-group{west}/vpn{blue}", MOP_MODIFIED);
  EXPECT_EQ(probe(), 0);
}

TEST_F(ChangeProbeTest, the_first_change_at_or_below_the_path_counts) {
  platform.change("/mpls/l2vpn-config/l2vpn/vpws-group{west}/vpn{blue}", MOP_MODIFIED);
  platform.change(std::string(kInterface) + "/dot1q", MOP_VALUE_SET, u32(5));
  platform.change(kInterface, MOP_DELETED);
  EXPECT_EQ(probe(), MOP_VALUE_SET);
  EXPECT_EQ(platform.calls(), (Calls{std::string("maapi_keypath_diff_iterate ") + kInterface}));
}

TEST_F(ChangeProbeTest, every_operation_is_handed_on) {
  const std::vector<confd_iter_op> operations{MOP_CREATED,   MOP_DELETED,     MOP_MODIFIED,
                                              MOP_VALUE_SET, MOP_MOVED_AFTER, MOP_ATTR_SET};
  scripted::Change &change = platform.change(kInterface, MOP_CREATED);
  for (const confd_iter_op operation : operations) {
    change.op = operation;
    EXPECT_EQ(probe(), operation);
  }
}

// The path is a format for the platform, the names in it are the operator's.
TEST_F(ChangeProbeTest, a_percent_sign_in_a_name_is_part_of_the_name) {
  for (const std::string name : {"%s", "50%", "%n", "%%", "%1$*2$d"}) {
    SCOPED_TRACE(name);
    const std::string path = "/mpls/l2vpn-config/l2vpn/vpls-group{" + name + "}/vpn{" + name + "}/bridge-domain";
    EXPECT_EQ(get_vpn_mop(sock(), tctx(), path), 0);
    platform.change(path, MOP_CREATED);
    EXPECT_EQ(get_vpn_mop(sock(), tctx(), path), MOP_CREATED);
    EXPECT_EQ(platform.calls().back(), "maapi_keypath_diff_iterate " + path);
  }
}

TEST_F(ChangeProbeTest, names_that_differ_in_percent_signs_are_two_names) {
  platform.change("/mpls/l2vpn-config/l2vpn/vpls-group{%%}", MOP_CREATED);
  EXPECT_EQ(get_vpn_mop(sock(), tctx(), "/mpls/l2vpn-config/l2vpn/vpls-group{%}"), 0);
  EXPECT_EQ(get_vpn_mop(sock(), tctx(), "/mpls/l2vpn-config/l2vpn/vpls-group{%%}"), MOP_CREATED);
}

TEST_F(ChangeProbeTest, a_path_of_percent_signs_is_cut_at_511_characters_before_they_are_doubled) {
  const std::string path = build_vpn_access_config_path(static_cast<std::int32_t>(model_tag::bridge_domain),
                                                        "vpls-group " + std::string(600, '%'), "vpn red", "");
  get_vpn_mop(sock(), tctx(), path);
  EXPECT_EQ(path.size(), 511U);
  EXPECT_EQ(platform.calls(), Calls{"maapi_keypath_diff_iterate " + path});
}

TEST_F(ChangeProbeTest, a_failed_iteration_is_no_change) {
  platform.change(kInterface, MOP_CREATED);
  platform.fail("maapi_keypath_diff_iterate", 1);
  EXPECT_EQ(probe(), 0);
}

}  // namespace
