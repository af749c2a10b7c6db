#include "host/run/triggered_points.h"

#include "tests/host/served_element.h"

namespace {

using element::Tree;
using host_test::schema;

class FiredPoints : public ::testing::Test {
 protected:
  /// "point path" of every point that fires, in order.
  std::vector<std::string> fired() {
    const element::Transaction transaction(running, candidate);
    std::vector<std::string> result;
    for (const host::TriggeredPoint &point : host::triggered_points(transaction)) {
      result.push_back(point.point + ' ' + element::to_text(point.path()));
    }
    return result;
  }

  void put_in_both(const std::string &path, const element::Value &value = {}) {
    running.put(path, value);
    candidate.put(path, value);
  }

  Tree running{schema()};
  Tree candidate{schema()};
};

using Fired = std::vector<std::string>;

const std::string kVpls = "/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}";
const std::string kVpws = "/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{V}";

TEST_F(FiredPoints, are_none_without_a_change) {
  put_in_both(kVpws + "/neighbor{10.0.0.1}/pw-id", 1U);
  EXPECT_EQ(fired(), Fired{});
}

TEST_F(FiredPoints, a_new_vpws_vpn_fires_names_and_count) {
  candidate.put(kVpws);
  EXPECT_EQ(fired(), (Fired{"vpn_name_valp /mpls/l2vpn-config/l2vpn/vpws-group{G}", "vpn_overflow_valp " + kVpws}));
}

TEST_F(FiredPoints, a_new_vpls_vpn_fires_the_count_only) {
  candidate.put(kVpls);
  EXPECT_EQ(fired(), Fired{"vpn_overflow_valp " + kVpls});
}

TEST_F(FiredPoints, a_neighbor_fires_once_for_all) {
  put_in_both(kVpws);
  candidate.put(kVpws + "/neighbor{10.0.0.1}/pw-id", 1U);
  candidate.put(kVpws + "/backup-neighbor{10.0.0.2}/pw-id", 2U);
  EXPECT_EQ(fired(), (Fired{"vpn_name_valp /mpls/l2vpn-config/l2vpn/vpws-group{G}", "vpn_overflow_valp " + kVpws,
                            "vpn_peer_valp " + kVpws + "/neighbor{10.0.0.1}"}));
}

TEST_F(FiredPoints, another_pw_id_modifies_its_neighbor) {
  running.put(kVpls + "/vfi/neighbor{10.0.0.1}/pw-id", 1U);
  candidate.put(kVpls + "/vfi/neighbor{10.0.0.1}/pw-id", 2U);
  EXPECT_EQ(fired(), (Fired{"vpn_overflow_valp " + kVpls, "vpn_peer_valp " + kVpls + "/vfi/neighbor{10.0.0.1}"}));
}

TEST_F(FiredPoints, a_bridge_domain_fires_for_anything_below_it) {
  put_in_both(kVpls + "/bridge-domain/access-interface{I}");
  candidate.put(kVpls + "/bridge-domain/access-interface{I}/encapsulation/untagged");
  EXPECT_EQ(fired(), (Fired{"vpn_overflow_valp " + kVpls, "vpn_access_valp " + kVpls + "/bridge-domain"}));
}

TEST_F(FiredPoints, the_name_of_a_vpls_access_interface_fires_for_each_new_one) {
  put_in_both(kVpls + "/bridge-domain/access-interface{old}");
  candidate.put(kVpls + "/bridge-domain/access-interface{old}/encapsulation/untagged");
  candidate.put(kVpls + "/bridge-domain/access-interface{a}");
  candidate.put(kVpls + "/bridge-domain/access-interface{b}");
  EXPECT_EQ(fired(), (Fired{"vpn_overflow_valp " + kVpls, "vpn_access_valp " + kVpls + "/bridge-domain",
                            "vpn_access_intf_valp " + kVpls + "/bridge-domain/access-interface{a}/name",
                            "vpn_access_intf_valp " + kVpls + "/bridge-domain/access-interface{b}/name"}));
}

TEST_F(FiredPoints, a_vpws_access_interface_fires_its_own_point_for_each_and_the_access_point_once) {
  put_in_both(kVpws + "/access-interface{a}");
  candidate.put(kVpws + "/access-interface{a}/dot1q", std::uint16_t{5});
  candidate.put(kVpws + "/access-interface{b}");
  EXPECT_EQ(fired(),
            (Fired{"vpn_name_valp /mpls/l2vpn-config/l2vpn/vpws-group{G}", "vpn_overflow_valp " + kVpws,
                   "vpn_access_valp " + kVpws + "/access-interface{a}", "vpn_sp_valp " + kVpws + "/access-interface{a}",
                   "vpn_sp_valp " + kVpws + "/access-interface{b}"}));
}

TEST_F(FiredPoints, stand_in_schema_order_vpws_before_vpls) {
  candidate.put(kVpls + "/vfi/neighbor{10.0.0.1}/pw-id", 1U);
  candidate.put(kVpws + "/access-interface{I}");
  candidate.put("/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry{1 5 1001}");
  EXPECT_EQ(fired(),
            (Fired{"vpn_name_valp /mpls/l2vpn-config/l2vpn/vpws-group{G}", "vpn_overflow_valp " + kVpws,
                   "vpn_access_valp " + kVpws + "/access-interface{I}", "vpn_sp_valp " + kVpws + "/access-interface{I}",
                   "vpn_peer_valp " + kVpls + "/vfi/neighbor{10.0.0.1}",
                   "vlm_memb_valp /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable"}));
}

TEST_F(FiredPoints, what_is_deleted_fires_with_what_it_is_deleted_from) {
  put_in_both(kVpls);
  put_in_both(kVpws);
  running.put(kVpls + "/bridge-domain/access-interface{I}");
  running.put(kVpws + "/access-interface{I}");
  running.put("/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry{1 5 1001}");
  EXPECT_EQ(fired(), (Fired{"vpn_name_valp /mpls/l2vpn-config/l2vpn/vpws-group{G}", "vpn_overflow_valp " + kVpws,
                            "vpn_access_valp " + kVpls + "/bridge-domain",
                            "vlm_memb_valp /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable"}));
}

TEST_F(FiredPoints, a_deleted_group_fires_nothing) {
  running.put(kVpws + "/neighbor{10.0.0.1}/pw-id", 1U);
  EXPECT_EQ(fired(), Fired{});
}

TEST_F(FiredPoints, other_applications_nodes_fire_nothing) {
  candidate.put("/base:config/service-port{7}/match/vlan/vlan-id/any");
  candidate.put("/internal/int-vpws-group{G}/int-vpws{V 1}");
  EXPECT_EQ(fired(), Fired{});
}

TEST_F(FiredPoints, a_key_carries_its_text_and_an_entry_no_value) {
  candidate.put(kVpls + "/bridge-domain/access-interface{I}");
  const element::Transaction transaction(running, candidate);
  for (const host::TriggeredPoint &point : host::triggered_points(transaction)) {
    const element::Value expected =
        point.point == "vpn_access_intf_valp" ? element::Value(std::string("I")) : element::Value();
    EXPECT_EQ(*point.value, expected) << point.point;
  }
}

}  // namespace
