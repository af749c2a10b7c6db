// A pseudowire must not take over a pw-id that its neighbour has in the running configuration, whichever of the three
// leafs sets it.

#include <gtest/gtest.h>

#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpws/config_validate_vpws.h"
#include "tests/support/broken_model.h"
#include "tests/support/printers.h"
#include "tests/support/pseudowires.h"
#include "tests/support/rule_message.h"

namespace {

using scripted::Pw;
using scripted::u32;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

struct VplsNeighborLeaf {
  static constexpr const char *kArea = "config_validate_vpls";
  static constexpr const char *kIterator = "vpls_vpn_peer_iter";
  static constexpr auto exchange = config_validate_vpls_pw_id_exchange;
  static std::string path(const Pw &pw) { return scripted::vpls_pw_id_path(pw); }
  static std::string path_in_other_family(const Pw &pw) { return scripted::vpws_pw_id_path(pw); }
};

struct VpwsLeaf {
  static constexpr const char *kArea = "config_validate_vpws";
  static constexpr auto exchange = config_validate_vpws_pw_id_exchange;
  static std::string path_in_other_family(const Pw &pw) { return scripted::vpls_pw_id_path(pw); }
};

struct VpwsNeighborLeaf : VpwsLeaf {
  static constexpr const char *kIterator = "vpws_vpn_peer_iter";
  static std::string path(const Pw &pw) { return scripted::vpws_pw_id_path(pw, "neighbor"); }
};

struct VpwsBackupNeighborLeaf : VpwsLeaf {
  static constexpr const char *kIterator = "vpws_vpn_bkp_peer_iter";
  static std::string path(const Pw &pw) { return scripted::vpws_pw_id_path(pw, "backup-neighbor"); }
};

const Pw pw{"north", "east", "10.0.0.1", 100};

template <class Leaf>
class PwIdExchange : public scripted::PlatformTest {
 protected:
  std::int32_t exchange(const Pw &committing, const std::vector<Pw> &running) {
    return Leaf::exchange(platform.socket(), &platform.context(), scripted::pw_map(running),
                          scripted::record(committing));
  }
  void set_pw_id(const Pw &of, std::uint32_t pw_id) { platform.change(Leaf::path(of), MOP_VALUE_SET, u32(pw_id)); }
};

using Leafs = ::testing::Types<VplsNeighborLeaf, VpwsNeighborLeaf, VpwsBackupNeighborLeaf>;
TYPED_TEST_SUITE(PwIdExchange, Leafs);

TYPED_TEST(PwIdExchange, rejects_a_new_pw_id_that_the_neighbor_has_in_the_running_configuration) {
  this->set_pw_id(pw, 200);
  EXPECT_EQ(this->exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), -1);
  EXPECT_EQ(this->platform.errors(),
            Texts{"The PW ID 200 was formerly assigned to VPN V1 from Group G1. Delete VPN V1, its neighbor or "
                  "backup-neighbor before applying changes"});
}

TYPED_TEST(PwIdExchange, accepts_a_new_pw_id_that_only_another_neighbor_has) {
  this->set_pw_id(pw, 200);
  EXPECT_EQ(this->exchange(pw, {{"G1", "V1", "10.0.0.2", 200}, {"G1", "V1", "10.0.0.1", 201}}), 0);
  EXPECT_EQ(this->platform.errors(), Texts{});
}

TYPED_TEST(PwIdExchange, rejects_a_new_pw_id_that_the_pseudowire_itself_has_in_the_running_configuration) {
  this->set_pw_id(pw, 100);
  EXPECT_EQ(this->exchange(pw, {pw}), -1);
  EXPECT_EQ(this->platform.errors(), Texts{message_of("pw-id-moved", {"100", "east", "north", "east"})});
}

TYPED_TEST(PwIdExchange, does_not_look_at_the_pw_id_that_the_pseudowire_carries) {
  EXPECT_EQ(this->exchange(pw, {{"G1", "V1", "10.0.0.1", 100}}), 0);
}

TYPED_TEST(PwIdExchange, looks_up_pw_id_0_without_a_change) {
  EXPECT_EQ(this->exchange(pw, {{"G1", "V1", "10.0.0.2", 0}}), 0);
  EXPECT_EQ(this->exchange(pw, {{"G1", "V1", "10.0.0.1", 0}}), -1);
  EXPECT_EQ(this->platform.errors(), Texts{message_of("pw-id-moved", {"0", "V1", "G1", "V1"})});
}

TYPED_TEST(PwIdExchange, looks_at_the_leaf_of_this_neighbor_only) {
  this->set_pw_id({"north", "east", "10.0.0.2", 0}, 200);
  this->set_pw_id({"north", "west", "10.0.0.1", 0}, 200);
  this->set_pw_id({"south", "east", "10.0.0.1", 0}, 200);
  this->platform.change(TypeParam::path_in_other_family(pw), MOP_VALUE_SET, u32(200));
  EXPECT_EQ(this->exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), 0);
}

TYPED_TEST(PwIdExchange, looks_at_the_first_change_only) {
  this->platform.change(TypeParam::path(pw) + "/below", MOP_DELETED);
  this->set_pw_id(pw, 200);
  EXPECT_EQ(this->exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), 0);
}

TYPED_TEST(PwIdExchange, takes_a_change_without_a_value_for_none) {
  this->platform.change(TypeParam::path(pw), MOP_VALUE_SET);
  EXPECT_EQ(this->exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), 0);
}

TYPED_TEST(PwIdExchange, a_new_pw_id_of_another_type_stops_the_process) {
  this->platform.change(TypeParam::path(pw), MOP_VALUE_SET, scripted::i32(200));
  const std::string assertion = std::string(TypeParam::kIterator) + ": Assertion `(newv)->type == C_UINT32' failed";
  EXPECT_DEATH(this->exchange(pw, {}), std::string(TypeParam::kArea) + "/.*" + scripted::literally(assertion));
}

// Together with the fixed parts a name of this length fills the path's 511 characters.
TYPED_TEST(PwIdExchange, a_path_that_is_too_long_is_cut_and_names_no_change) {
  const std::string with_leaf = TypeParam::path({"", "e", "10.0.0.1", 0});
  const std::string fixed = with_leaf.substr(0, with_leaf.size() - std::string("/pw-id").size());
  Pw longest{std::string(511 - fixed.size(), 'g'), "e", "10.0.0.1", 100};
  this->set_pw_id(longest, 200);
  EXPECT_EQ(this->exchange(longest, {{"G1", "V1", "10.0.0.1", 200}}), -1);

  longest.group += 'g';
  this->set_pw_id(longest, 200);
  EXPECT_EQ(this->exchange(longest, {{"G1", "V1", "10.0.0.1", 200}}), 0);
}

class VplsPwIdExchange : public PwIdExchange<VplsNeighborLeaf> {};

TEST_F(VplsPwIdExchange, asks_for_the_neighbor) {
  EXPECT_EQ(exchange(pw, {}), 0);
  EXPECT_EQ(platform.calls(), Calls{"maapi_keypath_diff_iterate "
                                    "/mpls/l2-vpn:l2vpn-config/l2vpn/mpls-l2vpn-vpls:vpls-group{north}/vpn{east}/vfi/"
                                    "neighbor{10.0.0.1}/pw-id"});
}

TEST_F(VplsPwIdExchange, a_failed_iteration_is_no_change) {
  set_pw_id(pw, 200);
  platform.fail("maapi_keypath_diff_iterate", 1);
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), 0);
  EXPECT_EQ(exchange(pw, {{"G1", "V1", "10.0.0.1", 200}}), -1);
}

class VpwsPwIdExchange : public PwIdExchange<VpwsNeighborLeaf> {
 protected:
  void set_backup_pw_id(std::uint32_t pw_id) {
    platform.change(VpwsBackupNeighborLeaf::path(pw), MOP_VALUE_SET, u32(pw_id));
  }
};

TEST_F(VpwsPwIdExchange, asks_for_the_neighbor_then_for_the_backup_neighbor) {
  EXPECT_EQ(exchange(pw, {}), 0);
  EXPECT_EQ(platform.calls(),
            (Calls{"maapi_keypath_diff_iterate "
                   "/mpls/l2-vpn:l2vpn-config/l2vpn/vpws-group{north}/vpn{east}/neighbor{10.0.0.1}/pw-id",
                   "maapi_keypath_diff_iterate "
                   "/mpls/l2-vpn:l2vpn-config/l2vpn/vpws-group{north}/vpn{east}/backup-neighbor{10.0.0.1}/pw-id"}));
}

TEST_F(VpwsPwIdExchange, does_not_ask_for_the_backup_neighbor_after_a_rejection) {
  set_pw_id(pw, 20);
  set_backup_pw_id(30);
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 20}, {"G1", "C", "10.0.0.1", 30}}), -1);
  EXPECT_EQ(platform.error(), message_of("pw-id-moved", {"20", "B", "G1", "B"}));
  EXPECT_EQ(platform.count("maapi_keypath_diff_iterate"), 1U);
}

TEST_F(VpwsPwIdExchange, a_backup_neighbors_pw_id_counts_when_the_neighbors_is_free) {
  set_pw_id(pw, 20);
  set_backup_pw_id(30);
  EXPECT_EQ(exchange(pw, {{"G1", "C", "10.0.0.1", 30}}), -1);
  EXPECT_EQ(platform.error(), message_of("pw-id-moved", {"30", "C", "G1", "C"}));
}

// A reset would look up pw-id 0, which the running configuration has.
TEST_F(VpwsPwIdExchange, keeps_the_neighbors_new_pw_id_for_the_look_up_of_the_backup_neighbors) {
  set_pw_id(pw, 20);
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 0}}), 0);
}

TEST_F(VpwsPwIdExchange, looks_up_pw_id_0_before_the_backup_neighbors_new_pw_id) {
  set_backup_pw_id(20);
  EXPECT_EQ(exchange(pw, {{"G1", "B", "10.0.0.1", 0}}), -1);
}

TEST_F(VpwsPwIdExchange, a_failed_iteration_is_no_change) {
  set_pw_id(pw, 20);
  set_backup_pw_id(20);
  const std::vector<Pw> running{{"G1", "B", "10.0.0.1", 20}};
  platform.fail_from("maapi_keypath_diff_iterate", 1);
  EXPECT_EQ(exchange(pw, running), 0);

  platform.forget_calls();
  platform.fail("maapi_keypath_diff_iterate", 1);
  EXPECT_EQ(exchange(pw, running), -1) << "the backup neighbour's is still seen";
}

}  // namespace
