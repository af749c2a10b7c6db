#include <gtest/gtest.h>

#include "config_validate_vpls/config_validate_vpls.h"
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

class VplsPseudowiresTest : public scripted::PlatformTest {
 protected:
  std::int32_t exchange(const Pw &committing, const std::vector<Pw> &running) {
    return config_validate_vpls_pw_id_exchange(platform.socket(), &platform.context(), pw_map(running),
                                               scripted::record(committing));
  }

  std::int32_t collect_committing() {
    val_pw_map_t map;
    return config_validate_vpls_unique_pw_id(platform.socket(), &platform.context(), map);
  }

  std::int32_t collect_running() {
    val_pw_map_t map;
    return fill_config_vpls_peer_running(platform.socket(), &platform.context(), map);
  }

  void set_pw_id(const Pw &of, std::uint32_t pw_id) {
    platform.change(scripted::vpls_pw_id_path(of), MOP_VALUE_SET, u32(pw_id));
  }
};

TEST_F(VplsPseudowiresTest, TakesTheFourValuesThatDescribeAPseudowire) {
  const Values values{text("north"), text("east"), u32(5), scripted::ipv4("10.0.0.1"), u32(77), u32(100)};
  platform.list(scripted::kVplsNeighborList, 4, {values});
  val_pw_map_t map;
  EXPECT_EQ(config_validate_vpls_unique_pw_id(platform.socket(), &platform.context(), map), 0);
  EXPECT_EQ(map, pw_map({{"north", "east", "10.0.0.1", 100}}));
}

struct BrokenCase {
  Values values;  ///< right up to the value that the assertion names, wrong from there on, in the order of assertion
  const char *assertion;
};

const std::vector<BrokenCase> broken_cases{
    {{u32(1), u32(1), u32(1), u32(1), absent(), text("")}, "(&values[0])->type == C_BUF"},
    {{text("G"), u32(1), u32(1), u32(1), absent(), text("")}, "(&values[1])->type == C_BUF"},
    {{text("G"), text("V"), u32(1), u32(1), absent(), text("")}, "(&values[3])->type == C_IPV4"},
    {{text("G"), text("V"), u32(1), scripted::ipv4("10.0.0.1"), absent(), text("")}, "(&values[5])->type == C_UINT32"},
};

TEST_F(VplsPseudowiresTest, AValueOfAnotherTypeStopsTheProcess) {
  for (const BrokenCase &row : broken_cases) {
    SCOPED_TRACE(row.assertion);
    platform.list(scripted::kVplsNeighborList, 4, {row.values});
    platform.running().list(scripted::kVplsNeighborList, 4, {row.values});
    EXPECT_BROKEN_MODEL(collect_committing(), "config_validate_vpls", row.assertion);
    EXPECT_BROKEN_MODEL(collect_running(), "config_validate_vpls", row.assertion);
  }
}

TEST_F(VplsPseudowiresTest, RejectsANewPwIdThatTheNeighborHasInTheRunningConfiguration) {
  set_pw_id(pw, 200);
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), -1);
  EXPECT_EQ(platform.errors(), Texts{"The PW ID 200 was formerly assigned to VPN V1 from Group G1. Delete VPN V1, its "
                                     "neighbor or backup-neighbor before applying changes"});
}

TEST_F(VplsPseudowiresTest, AcceptsANewPwIdThatOnlyAnotherNeighborHas) {
  set_pw_id(pw, 200);
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.2", 200}, {"G1", "V1", "10.0.0.1", 201}}), 0);
  EXPECT_EQ(platform.errors(), Texts{});
}

TEST_F(VplsPseudowiresTest, RejectsANewPwIdThatThePseudowireItselfHasInTheRunningConfiguration) {
  set_pw_id(pw, 100);
  EXPECT_EQ(exchange(pw, {pw}), -1);
  EXPECT_EQ(platform.errors(), Texts{"The PW ID 100 was formerly assigned to VPN east from Group north. Delete VPN "
                                     "east, its neighbor or backup-neighbor before applying changes"});
}

TEST_F(VplsPseudowiresTest, DoesNotLookAtThePwIdThatThePseudowireCarries) {
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.1", 100}}), 0);
}

TEST_F(VplsPseudowiresTest, LooksUpPwId0WithoutAChange) {
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.2", 0}}), 0);
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.1", 0}}), -1);
  EXPECT_EQ(platform.errors(), Texts{"The PW ID 0 was formerly assigned to VPN V1 from Group G1. Delete VPN V1, its "
                                     "neighbor or backup-neighbor before applying changes"});
}

TEST_F(VplsPseudowiresTest, LooksAtTheLeafOfThisNeighborOnly) {
  set_pw_id({"north", "east", "10.0.0.2", 0}, 200);
  set_pw_id({"north", "west", "10.0.0.1", 0}, 200);
  set_pw_id({"south", "east", "10.0.0.1", 0}, 200);
  platform.change(scripted::vpws_pw_id_path(pw), MOP_VALUE_SET, u32(200));
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), 0);
  EXPECT_EQ(platform.calls(), Calls{"maapi_keypath_diff_iterate "
                                    "/mpls/l2-vpn:l2vpn-config/l2vpn/mpls-l2vpn-vpls:vpls-group{north}/vpn{east}/vfi/"
                                    "neighbor{10.0.0.1}/pw-id"});
}

TEST_F(VplsPseudowiresTest, LooksAtTheFirstChangeOnly) {
  platform.change(scripted::vpls_pw_id_path(pw) + "/below", MOP_DELETED);
  set_pw_id(pw, 200);
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), 0);
}

TEST_F(VplsPseudowiresTest, TakesAChangeWithoutAValueForNone) {
  platform.change(scripted::vpls_pw_id_path(pw), MOP_VALUE_SET);
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), 0);
}

TEST_F(VplsPseudowiresTest, ANewPwIdOfAnotherTypeStopsTheProcess) {
  platform.change(scripted::vpls_pw_id_path(pw), MOP_VALUE_SET, scripted::i32(200));
  EXPECT_DEATH(exchange(pw, {}),
               "config_validate_vpls/.*" +
                   scripted::literally("vpls_vpn_peer_iter: Assertion `(newv)->type == C_UINT32' failed"));
}

TEST_F(VplsPseudowiresTest, AFailedIterationIsNoChange) {
  set_pw_id(pw, 200);
  platform.fail("maapi_keypath_diff_iterate", 1);
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), 0);
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), -1);
}

// Together with the fixed parts a name of this length fills the path's 511 characters.
TEST_F(VplsPseudowiresTest, APathThatIsTooLongIsCutAndNamesNoChange) {
  const std::string fixed =
      "/mpls/l2-vpn:l2vpn-config/l2vpn/mpls-l2vpn-vpls:vpls-group{}/vpn{e}/vfi/neighbor{10.0.0.1}";
  Pw longest{std::string(511 - fixed.size(), 'g'), "e", "10.0.0.1", 100};
  set_pw_id(longest, 200);
  EXPECT_EQ(exchange(longest, {{"G1", "V1", "10.0.0.1", 200}}), -1);

  longest.group += 'g';
  set_pw_id(longest, 200);
  EXPECT_EQ(exchange(longest, {{"G1", "V1", "10.0.0.1", 200}}), 0);
}

}  // namespace
