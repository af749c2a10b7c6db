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
      result.push_back(point.point + ' ' + element::to_text(point.path));
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

TEST_F(FiredPoints, AreNoneWithoutAChange) {
  put_in_both(kVpws + "/neighbor{10.0.0.1}/pw-id", 1U);
  EXPECT_EQ(fired(), Fired{});
}

TEST_F(FiredPoints, ANewVpwsVpnFiresNamesAndCount) {
  candidate.put(kVpws);
  EXPECT_EQ(fired(), (Fired{"vpn_name_valp /mpls/l2vpn-config/l2vpn/vpws-group{G}", "vpn_overflow_valp " + kVpws}));
}

TEST_F(FiredPoints, ANewVplsVpnFiresTheCountOnly) {
  candidate.put(kVpls);
  EXPECT_EQ(fired(), Fired{"vpn_overflow_valp " + kVpls});
}

TEST_F(FiredPoints, ANeighborFiresOnceForAll) {
  put_in_both(kVpws);
  candidate.put(kVpws + "/neighbor{10.0.0.1}/pw-id", 1U);
  candidate.put(kVpws + "/backup-neighbor{10.0.0.2}/pw-id", 2U);
  EXPECT_EQ(fired(), (Fired{"vpn_name_valp /mpls/l2vpn-config/l2vpn/vpws-group{G}", "vpn_overflow_valp " + kVpws,
                            "vpn_peer_valp " + kVpws + "/neighbor{10.0.0.1}"}));
}

TEST_F(FiredPoints, AnotherPwIdModifiesItsNeighbor) {
  running.put(kVpls + "/vfi/neighbor{10.0.0.1}/pw-id", 1U);
  candidate.put(kVpls + "/vfi/neighbor{10.0.0.1}/pw-id", 2U);
  EXPECT_EQ(fired(), (Fired{"vpn_overflow_valp " + kVpls, "vpn_peer_valp " + kVpls + "/vfi/neighbor{10.0.0.1}"}));
}

TEST_F(FiredPoints, ABridgeDomainFiresForAnythingBelowIt) {
  put_in_both(kVpls + "/bridge-domain/access-interface{I}");
  candidate.put(kVpls + "/bridge-domain/access-interface{I}/encapsulation/untagged");
  EXPECT_EQ(fired(), (Fired{"vpn_overflow_valp " + kVpls, "vpn_access_valp " + kVpls + "/bridge-domain"}));
}

TEST_F(FiredPoints, TheNameOfAVplsAccessInterfaceFiresForEachNewOne) {
  put_in_both(kVpls + "/bridge-domain/access-interface{old}");
  candidate.put(kVpls + "/bridge-domain/access-interface{old}/encapsulation/untagged");
  candidate.put(kVpls + "/bridge-domain/access-interface{a}");
  candidate.put(kVpls + "/bridge-domain/access-interface{b}");
  EXPECT_EQ(fired(), (Fired{"vpn_overflow_valp " + kVpls, "vpn_access_valp " + kVpls + "/bridge-domain",
                            "vpn_access_intf_valp " + kVpls + "/bridge-domain/access-interface{a}/name",
                            "vpn_access_intf_valp " + kVpls + "/bridge-domain/access-interface{b}/name"}));
}

TEST_F(FiredPoints, AVpwsAccessInterfaceFiresItsOwnPointForEachAndTheAccessPointOnce) {
  put_in_both(kVpws + "/access-interface{a}");
  candidate.put(kVpws + "/access-interface{a}/dot1q", std::uint16_t{5});
  candidate.put(kVpws + "/access-interface{b}");
  EXPECT_EQ(fired(),
            (Fired{"vpn_name_valp /mpls/l2vpn-config/l2vpn/vpws-group{G}", "vpn_overflow_valp " + kVpws,
                   "vpn_access_valp " + kVpws + "/access-interface{a}", "vpn_sp_valp " + kVpws + "/access-interface{a}",
                   "vpn_sp_valp " + kVpws + "/access-interface{b}"}));
}

TEST_F(FiredPoints, StandInSchemaOrderVpwsBeforeVpls) {
  candidate.put(kVpls + "/vfi/neighbor{10.0.0.1}/pw-id", 1U);
  candidate.put(kVpws + "/access-interface{I}");
  candidate.put("/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry{1 5 1001}");
  EXPECT_EQ(fired(),
            (Fired{"vpn_name_valp /mpls/l2vpn-config/l2vpn/vpws-group{G}", "vpn_overflow_valp " + kVpws,
                   "vpn_access_valp " + kVpws + "/access-interface{I}", "vpn_sp_valp " + kVpws + "/access-interface{I}",
                   "vpn_peer_valp " + kVpls + "/vfi/neighbor{10.0.0.1}",
                   "vlm_memb_valp /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable"}));
}

TEST_F(FiredPoints, WhatIsDeletedFiresWithWhatItIsDeletedFrom) {
  put_in_both(kVpls);
  put_in_both(kVpws);
  running.put(kVpls + "/bridge-domain/access-interface{I}");
  running.put(kVpws + "/access-interface{I}");
  running.put("/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry{1 5 1001}");
  EXPECT_EQ(fired(), (Fired{"vpn_name_valp /mpls/l2vpn-config/l2vpn/vpws-group{G}", "vpn_overflow_valp " + kVpws,
                            "vpn_access_valp " + kVpls + "/bridge-domain",
                            "vlm_memb_valp /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable"}));
}

TEST_F(FiredPoints, ADeletedGroupFiresNothing) {
  running.put(kVpws + "/neighbor{10.0.0.1}/pw-id", 1U);
  EXPECT_EQ(fired(), Fired{});
}

TEST_F(FiredPoints, OtherApplicationsNodesFireNothing) {
  candidate.put("/base:config/service-port{7}/match/vlan/vlan-id/any");
  candidate.put("/internal/int-vpws-group{G}/int-vpws{V 1}");
  EXPECT_EQ(fired(), Fired{});
}

TEST_F(FiredPoints, AKeyCarriesItsTextAndAnEntryNoValue) {
  candidate.put(kVpls + "/bridge-domain/access-interface{I}");
  const element::Transaction transaction(running, candidate);
  for (const host::TriggeredPoint &point : host::triggered_points(transaction)) {
    const element::Value expected =
        point.point == "vpn_access_intf_valp" ? element::Value(std::string("I")) : element::Value();
    EXPECT_EQ(point.value, expected) << point.point;
  }
}

}  // namespace
