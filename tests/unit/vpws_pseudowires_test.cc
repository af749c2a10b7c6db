#include <gtest/gtest.h>

#include "config_validate_vpws/config_validate_vpws.h"
#include "tests/support/broken_model.h"
#include "tests/support/printers.h"
#include "tests/support/pseudowires.h"

namespace {

using scripted::absent;
using scripted::Pw;
using scripted::pw_map;
using scripted::text;
using scripted::u32;
using scripted::Values;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

const Pw pw{"north", "east", "10.0.0.1", 100};

class VpwsPseudowiresTest : public scripted::PlatformTest {
 protected:
  std::int32_t exchange(const Pw &committing, const std::vector<Pw> &running) {
    return config_validate_vpws_pw_id_exchange(platform.socket(), &platform.context(), pw_map(running),
                                               scripted::record(committing));
  }

  std::int32_t collect_committing() {
    val_pw_map_t map;
    return config_validate_vpws_unique_pw_id(platform.socket(), &platform.context(), map);
  }

  std::int32_t collect_running() {
    val_pw_map_t map;
    return fill_config_vpws_peer_running(platform.socket(), &platform.context(), map);
  }

  void set_pw_id(const char *kind, const Pw &of, std::uint32_t pw_id) {
    platform.change(scripted::vpws_pw_id_path(of, kind), MOP_VALUE_SET, u32(pw_id));
  }
};

TEST_F(VpwsPseudowiresTest, TakesTheFourValuesThatDescribeAPseudowire) {
  const Values values{text("north"), u32(5), u32(scripted::address_word("10.0.0.1")), u32(100), u32(77), text("east")};
  platform.list(scripted::kVpwsTunnelList, 4, {values});
  val_pw_map_t map;
  EXPECT_EQ(config_validate_vpws_unique_pw_id(platform.socket(), &platform.context(), map), 0);
  EXPECT_EQ(map, pw_map({{"north", "east", "10.0.0.1", 100}}));
}

struct BrokenCase {
  Values values;  ///< right up to the value that the assertion names, wrong from there on, in the order of assertion
  const char *assertion;
};

const std::vector<BrokenCase> broken_cases{
    {{u32(1), u32(1), scripted::ipv4("10.0.0.1"), text(""), absent(), u32(1)}, "(&values[2])->type == C_UINT32"},
    {{u32(1), u32(1), u32(1), text(""), absent(), u32(1)}, "(&values[3])->type == C_UINT32"},
    {{u32(1), u32(1), u32(1), u32(1), absent(), u32(1)}, "(&values[0])->type == C_BUF"},
    {{text("G"), u32(1), u32(1), u32(1), absent(), u32(1)}, "(&values[5])->type == C_BUF"},
};

TEST_F(VpwsPseudowiresTest, AValueOfAnotherTypeStopsTheProcess) {
  for (const BrokenCase &row : broken_cases) {
    SCOPED_TRACE(row.assertion);
    platform.list(scripted::kVpwsTunnelList, 4, {row.values});
    platform.running().list(scripted::kVpwsTunnelList, 4, {row.values});
    EXPECT_BROKEN_MODEL(collect_committing(), "config_validate_vpws", row.assertion);
    EXPECT_BROKEN_MODEL(collect_running(), "config_validate_vpws", row.assertion);
  }
}

class VpwsExchangeTest : public VpwsPseudowiresTest, public ::testing::WithParamInterface<const char *> {
 protected:
  const char *kind = GetParam();
};

INSTANTIATE_TEST_SUITE_P(Kinds, VpwsExchangeTest, ::testing::Values("neighbor", "backup-neighbor"),
                         [](const auto &tested) {
                           return std::string(tested.param) == "neighbor" ? "Neighbor" : "BackupNeighbor";
                         });

TEST_P(VpwsExchangeTest, RejectsANewPwIdThatTheNeighborHasInTheRunningConfiguration) {
  set_pw_id(kind, pw, 20);
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 20}}), -1);
  EXPECT_EQ(platform.errors(), Texts{"The PW ID 20 was formerly assigned to VPN B from Group G1. Delete VPN B, its "
                                     "neighbor or backup-neighbor before applying changes"});
}

TEST_P(VpwsExchangeTest, AcceptsANewPwIdThatOnlyAnotherNeighborHas) {
  set_pw_id(kind, pw, 20);
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.2", 20}, {"G1", "B", "10.0.0.1", 21}}), 0);
  EXPECT_EQ(platform.errors(), Texts{});
}

TEST_P(VpwsExchangeTest, RejectsANewPwIdThatThePseudowireItselfHasInTheRunningConfiguration) {
  set_pw_id(kind, pw, 100);
  EXPECT_EQ(exchange(pw, {pw}), -1);
  EXPECT_EQ(platform.errors(), Texts{"The PW ID 100 was formerly assigned to VPN east from Group north. Delete VPN "
                                     "east, its neighbor or backup-neighbor before applying changes"});
}

TEST_P(VpwsExchangeTest, LooksAtTheLeafOfThisNeighborOnly) {
  set_pw_id(kind, {"north", "east", "10.0.0.2", 0}, 20);
  set_pw_id(kind, {"north", "west", "10.0.0.1", 0}, 20);
  set_pw_id(kind, {"south", "east", "10.0.0.1", 0}, 20);
  platform.change(scripted::vpls_pw_id_path(pw), MOP_VALUE_SET, u32(20));
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 20}}), 0);
}

TEST_P(VpwsExchangeTest, LooksAtTheFirstChangeOnly) {
  platform.change(scripted::vpws_pw_id_path(pw, kind) + "/below", MOP_DELETED);
  set_pw_id(kind, pw, 20);
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 20}}), 0);
}

TEST_P(VpwsExchangeTest, TakesAChangeWithoutAValueForNone) {
  platform.change(scripted::vpws_pw_id_path(pw, kind), MOP_VALUE_SET);
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 20}}), 0);
}

TEST_P(VpwsExchangeTest, ANewPwIdOfAnotherTypeStopsTheProcess) {
  platform.change(scripted::vpws_pw_id_path(pw, kind), MOP_VALUE_SET, scripted::i32(20));
  const std::string iterator = kind == std::string("neighbor") ? "vpws_vpn_peer_iter" : "vpws_vpn_bkp_peer_iter";
  EXPECT_DEATH(exchange(pw, {}), "config_validate_vpws/.*" +
                                     scripted::literally(iterator + ": Assertion `(newv)->type == C_UINT32' failed"));
}

// Together with the fixed parts a name of this length fills the path's 511 characters.
TEST_P(VpwsExchangeTest, APathThatIsTooLongIsCutAndNamesNoChange) {
  const std::string fixed = "/mpls/l2-vpn:l2vpn-config/l2vpn/vpws-group{}/vpn{e}/" + std::string(kind) + "{10.0.0.1}";
  Pw longest{std::string(511 - fixed.size(), 'g'), "e", "10.0.0.1", 100};
  set_pw_id(kind, longest, 20);
  EXPECT_EQ(exchange(longest, {{"G1", "B", "10.0.0.1", 20}}), -1);

  longest.group += 'g';
  set_pw_id(kind, longest, 20);
  EXPECT_EQ(exchange(longest, {{"G1", "B", "10.0.0.1", 20}}), 0);
}

TEST_F(VpwsPseudowiresTest, AsksForTheNeighborThenForTheBackupNeighbor) {
  EXPECT_EQ(exchange(pw, {}), 0);
  EXPECT_EQ(platform.calls(),
            (Calls{"maapi_keypath_diff_iterate "
                   "/mpls/l2-vpn:l2vpn-config/l2vpn/vpws-group{north}/vpn{east}/neighbor{10.0.0.1}/pw-id",
                   "maapi_keypath_diff_iterate "
                   "/mpls/l2-vpn:l2vpn-config/l2vpn/vpws-group{north}/vpn{east}/backup-neighbor{10.0.0.1}/pw-id"}));
}

TEST_F(VpwsPseudowiresTest, DoesNotAskForTheBackupNeighborAfterARejection) {
  set_pw_id("neighbor", pw, 20);
  set_pw_id("backup-neighbor", pw, 30);
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 20}, {"G1", "C", "10.0.0.1", 30}}), -1);
  EXPECT_EQ(platform.error(),
            "The PW ID 20 was formerly assigned to VPN B from Group G1. Delete VPN B, its neighbor "
            "or backup-neighbor before applying changes");
  EXPECT_EQ(platform.count("maapi_keypath_diff_iterate"), 1U);
}

TEST_F(VpwsPseudowiresTest, ABackupNeighborsPwIdCountsWhenTheNeighborsIsFree) {
  set_pw_id("neighbor", pw, 20);
  set_pw_id("backup-neighbor", pw, 30);
  EXPECT_EQ(exchange(pw, {{"G1", "C", "10.0.0.1", 30}}), -1);
  EXPECT_EQ(platform.error(),
            "The PW ID 30 was formerly assigned to VPN C from Group G1. Delete VPN C, its neighbor "
            "or backup-neighbor before applying changes");
}

TEST_F(VpwsPseudowiresTest, DoesNotLookAtThePwIdThatThePseudowireCarries) {
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 100}}), 0);
}

TEST_F(VpwsPseudowiresTest, LooksUpPwId0WithoutAChange) {
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.2", 0}}), 0);
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 0}}), -1);
  EXPECT_EQ(platform.error(),
            "The PW ID 0 was formerly assigned to VPN B from Group G1. Delete VPN B, its neighbor or "
            "backup-neighbor before applying changes");
}

// A reset would look up pw-id 0, which the running configuration has.
TEST_F(VpwsPseudowiresTest, KeepsTheNeighborsNewPwIdForTheBackupNeighborsLookUp) {
  set_pw_id("neighbor", pw, 20);
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 0}}), 0);
}

TEST_F(VpwsPseudowiresTest, LooksUpPwId0BeforeTheBackupNeighborsNewPwId) {
  set_pw_id("backup-neighbor", pw, 20);
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 0}}), -1);
}

TEST_F(VpwsPseudowiresTest, AFailedIterationIsNoChange) {
  set_pw_id("neighbor", pw, 20);
  set_pw_id("backup-neighbor", pw, 20);
  const std::vector<Pw> running{{"G1", "B", "10.0.0.1", 20}};
  platform.fail_from("maapi_keypath_diff_iterate", 1);
  EXPECT_EQ(exchange(pw, running), 0);

  platform.forget_calls();
  platform.fail("maapi_keypath_diff_iterate", 1);
  EXPECT_EQ(exchange(pw, running), -1) << "the backup neighbour's is still seen";
}

}  // namespace
