// A port-based VPWS beside a VLAN-based VPLS on one interface.

#include "config_validate_comn/config_validate_comn.h"
#include "tests/unit/access_test.h"

namespace {

class TransparentLanServiceTest : public AccessTest {
 protected:
  std::int32_t verdict() { return config_validate_vpn_access_tls(sock(), tctx(), snapshot); }
};

// A port-based VPWS next to a VLAN-based VPLS on eth-1.
class SharedPortTest : public TransparentLanServiceTest {
 protected:
  SharedPortTest() {
    record_port_based("vpws-group west", "vpn blue", "eth-1");
    record_vlan("vpls-group north", "vpn red", "eth-1", 10);
  }
};

constexpr const char *kSharedPort =
    "All VPLS assigned to interface eth-1 will run as TLS since vpls-group north vpn red has port based TLS behavior";

TEST_F(SharedPortTest, warns_when_the_vpws_changed) {
  record_change("vpws-group west", "vpn blue", "eth-1");
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.calls(), Calls{std::string("confd_trans_seterr ") + kSharedPort});
}

TEST_F(SharedPortTest, warns_when_the_vpls_changed) {
  record_change("vpls-group north", "vpn red", "eth-1");
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(platform.calls(), Calls{std::string("confd_trans_seterr ") + kSharedPort});
}

TEST_F(SharedPortTest, says_nothing_when_neither_changed) {
  record_change("vpls-group north", "vpn red", "eth-2");
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.calls(), Calls{});
}

TEST_F(SharedPortTest, names_the_last_vlan_based_vpls_in_key_order) {
  record_vlan("vpls-group north", "vpn green", "eth-1", 20);
  record_vlan("vpls-group south", "vpn black", "eth-1", 30);
  record_change("vpls-group north", "vpn green", "eth-1");
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(
      platform.error(),
      "All VPLS assigned to interface eth-1 will run as TLS since vpls-group south vpn black has port based TLS behavior");
}

TEST_F(SharedPortTest, names_the_first_interface) {
  record_port_based("vpws-group west", "vpn blue", "eth-0");
  record_vlan("vpls-group north", "vpn red", "eth-0", 10);
  record_change("vpls-group north", "vpn red", "eth-0");
  record_change("vpls-group north", "vpn red", "eth-1");
  EXPECT_EQ(verdict(), -3);
  EXPECT_EQ(
      platform.error(),
      "All VPLS assigned to interface eth-0 will run as TLS since vpls-group north vpn red has port based TLS behavior");
}

TEST_F(TransparentLanServiceTest, the_two_must_share_one_interface) {
  record_port_based("vpws-group west", "vpn blue", "eth-1");
  record_vlan("vpls-group north", "vpn red", "eth-2", 10);
  record_change("vpws-group west", "vpn blue", "eth-1");
  record_change("vpls-group north", "vpn red", "eth-2");
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.error(), "");
}

struct PairCase {
  const char *name;
  const char *groups[2];
  std::uint32_t vlans[2];
};

void PrintTo(const PairCase &row, std::ostream *out) { *out << row.name; }

class OtherPairsTest : public TransparentLanServiceTest, public ::testing::WithParamInterface<PairCase> {};

TEST_P(OtherPairsTest, draw_no_warning) {
  for (int i : {0, 1}) {
    const std::string vpn = "vpn " + std::to_string(i);
    record_vlan(GetParam().groups[i], vpn, "eth-1", GetParam().vlans[i]);
    record_change(GetParam().groups[i], vpn, "eth-1");
  }
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.calls(), Calls{});
}

INSTANTIATE_TEST_SUITE_P(
    Rows, OtherPairsTest,
    ::testing::Values(PairCase{"two VLAN-based VPLS", {"vpls-group a", "vpls-group b"}, {10, 20}},
                      PairCase{"a VLAN-based VPWS and a VLAN-based VPLS", {"vpws-group a", "vpls-group b"}, {10, 20}},
                      PairCase{"a port-based and a VLAN-based VPWS", {"vpws-group a", "vpws-group b"}, {0, 20}},
                      PairCase{"a port-based VPWS and a port-based VPLS", {"vpws-group a", "vpls-group b"}, {0, 0}},
                      PairCase{"a VLAN-based VPWS and a port-based VPLS", {"vpws-group a", "vpls-group b"}, {10, 0}}));

}  // namespace
