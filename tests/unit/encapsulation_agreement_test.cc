#include "config_validate_comn/config_validate_comn.h"
#include "tests/unit/access_test.h"

namespace {

constexpr const char *kMessage =
    "vpls-group north vpn red: with 'bridge-domain qinq', all access interfaces must have 'encapsulation dot1q'";

struct Existing {
  const char *group;
  const char *vpn;
  const char *interface;
  bool encap_cfg;
};

struct AgreementCase {
  const char *name;
  std::vector<Existing> existing;
  bool has_encapsulation;
  bool accepted;
};

const std::vector<AgreementCase> agreement_cases{
    {"the first interface of the VPN decides: with", {}, true, true},
    {"the first interface of the VPN decides: without", {}, false, true},
    {"both with", {{"vpls-group north", "vpn red", "eth-1", true}}, true, true},
    {"both without", {{"vpls-group north", "vpn red", "eth-1", false}}, false, true},
    {"without after with", {{"vpls-group north", "vpn red", "eth-1", true}}, false, false},
    {"with after without", {{"vpls-group north", "vpn red", "eth-1", false}}, true, false},
    {"an interface later by name differs", {{"vpls-group north", "vpn red", "eth-3", false}}, true, false},
    {"its own earlier flag is overwritten first", {{"vpls-group north", "vpn red", "eth-2", false}}, true, true},
    {"another VPN of the group differs", {{"vpls-group north", "vpn blue", "eth-1", false}}, true, true},
    {"the VPN of another group differs", {{"vpls-group south", "vpn red", "eth-1", false}}, true, true},
    {"a VPWS VPN of the same name differs", {{"vpws-group north", "vpn red", "eth-2", false}}, true, true},
};

/// Where the walk would be long the answer is the same: `bystanders` is the number of interfaces of another VPN.
class EncapsulationAgreementTest : public AccessTest, public ::testing::WithParamInterface<int> {
 protected:
  EncapsulationAgreementTest() {
    for (int i = 0; i < GetParam(); ++i) {
      set_vpn_encap_cfg("vpls-group other", "vpn other", "bystander-" + std::to_string(i), i % 2 == 0, snapshot);
    }
  }

  std::int32_t verdict(bool has_encapsulation) {
    std::string group = "vpls-group north";
    std::string vpn = "vpn red";
    std::string interface = "eth-2";
    return config_validate_vpn_access_encapsulation(sock(), tctx(), interface, group, vpn, has_encapsulation, snapshot);
  }
};

TEST_P(EncapsulationAgreementTest, all_interfaces_of_a_vpn_have_an_encapsulation_or_none) {
  const st_val_acc_dot1q_vpn_t bystanders = snapshot;
  for (const AgreementCase &row : agreement_cases) {
    SCOPED_TRACE(row.name);
    snapshot = bystanders;
    for (const Existing &one : row.existing) {
      set_vpn_encap_cfg(one.group, one.vpn, one.interface, one.encap_cfg, snapshot);
    }
    const std::size_t messages_before = platform.errors().size();
    EXPECT_EQ(verdict(row.has_encapsulation), row.accepted ? 0 : -1);
    EXPECT_EQ(platform.errors().size(), messages_before + (row.accepted ? 0 : 1));
    if (!row.accepted) {
      EXPECT_EQ(platform.error(), kMessage);
    }

    const Claims own = recorded().at("eth-2 vpls-group north vpn red");
    EXPECT_EQ(own.encap_cfg, row.has_encapsulation) << "the flag is recorded whatever the verdict";
    EXPECT_EQ(own.ranges, Ranges{});
  }
}

TEST_P(EncapsulationAgreementTest, the_configuration_is_not_read) {
  verdict(true);
  EXPECT_EQ(platform.calls(), Calls{});
}

// The maps are the callers' to write: what is in them counts, also beside the functions that record.
TEST_P(EncapsulationAgreementTest, an_interface_that_a_caller_put_into_the_map_counts) {
  snapshot.intf_map["eth-9"][make_group_vpn_id("vpls-group north", "vpn red")].encap_cfg = true;
  EXPECT_EQ(verdict(true), 0);
  EXPECT_EQ(verdict(false), -1);
  EXPECT_EQ(platform.error(), kMessage);
}

TEST_P(EncapsulationAgreementTest, ranges_of_the_interface_stay) {
  record_vlan("vpls-group north", "vpn red", "eth-2", 10);
  EXPECT_EQ(verdict(true), 0);
  EXPECT_EQ(recorded().at("eth-2 vpls-group north vpn red"), (Claims{{{10, 10}}, true}));
}

INSTANTIATE_TEST_SUITE_P(FewAndManyInterfaces, EncapsulationAgreementTest, ::testing::Values(0, 30));

}  // namespace
