#include <gtest/gtest.h>

#include "config_validate_vpn/handlers.h"
#include "config_validate_vpn/shared/validation_keepalive.h"
#include "tests/support/printers.h"

std::int32_t validation_keepalive(confd_trans_ctx *tctx) {
  EXPECT_EQ(tctx, &scripted::Platform::active().context());
  scripted::Platform::active().enter("keep-alive");
  return -1;
}

namespace {

using scripted::i32;
using scripted::text;
using scripted::u32;
using Calls = std::vector<std::string>;

constexpr const char *kMembers = "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
const std::string kMemberTable =
    "/KZ-VLAN-MANAGER-MIB:KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";

class KeepaliveOrderTest : public scripted::PlatformTest {
 protected:
  /// The calls without those before the first that begins so.
  Calls calls_from(const std::string &beginning) {
    Calls calls = platform.calls();
    auto at = calls.begin();
    while (at != calls.end() && !at->starts_with(beginning)) ++at;
    return {at, calls.end()};
  }
};

TEST_F(KeepaliveOrderTest, a_membership_commit_asks_once_before_the_members_and_once_for_each) {
  platform.entry("/internal/int-vpws-intf-app", {text("H"), text("W"), u32(1), text("eth-1-1"), u32(7)}, 5);
  platform.list(kMembers, 3, {{u32(1), i32(8), i32(5)}, {u32(1), i32(9), i32(5)}});
  EXPECT_EQ(config_validate_vlm(platform.socket(), &platform.context(), nullptr, nullptr), 0);
  const std::string next = std::string("maapi_get_next ") + kMembers;
  EXPECT_EQ(calls_from("maapi_num_instances /internal/int-ldp-intf-l3"),
            (Calls{"maapi_num_instances /internal/int-ldp-intf-l3", "keep-alive", "maapi_init_cursor " + kMemberTable,
                   next, "keep-alive", "maapi_keypath_diff_iterate " + kMemberTable + "{1 8 5}", next, "keep-alive",
                   "maapi_keypath_diff_iterate " + kMemberTable + "{1 9 5}", next}));
  expected_leaks = {std::string("cursor on ") + kMembers};
}

TEST_F(KeepaliveOrderTest, a_membership_commit_without_access_interfaces_asks_for_none) {
  platform.list(kMembers, 3, {{u32(1), i32(8), i32(5)}});
  EXPECT_EQ(config_validate_vlm(platform.socket(), &platform.context(), nullptr, nullptr), 0);
  EXPECT_EQ(platform.count("keep-alive"), 0U);
}

TEST_F(KeepaliveOrderTest, a_peer_commit_asks_before_the_count_each_collection_and_the_exchange) {
  EXPECT_EQ(config_validate_vpn_peer(platform.socket(), &platform.context(), nullptr, nullptr), 0);
  Calls order;
  for (const std::string &call : platform.calls()) {
    if (call == "keep-alive" || call.starts_with("maapi_num") || call.starts_with("maapi_init") ||
        call.starts_with("cdb_num")) {
      order.push_back(call);
    }
  }
  EXPECT_EQ(order, (Calls{"keep-alive", "maapi_num_instances /KZ-PWE3-MIB:KZ-PWE3-MIB/pwTable/pwEntry", "keep-alive",
                          "maapi_init_cursor /internal/int-vpws-tunnel-idx", "keep-alive",
                          "maapi_init_cursor /internal/int-sub-vpls-vpn-nbr", "keep-alive",
                          "cdb_num_instances /internal/int-vpws-tunnel-idx",
                          "cdb_num_instances /internal/int-sub-vpls-vpn-nbr"}));
}

TEST_F(KeepaliveOrderTest, an_interface_kind_commit_asks_first) {
  scripted::KeyPath key_path({{scripted::tag(1)}, {text("eth-1-1")}, {}, {}, {text("V")}, {}, {text("G")}});
  EXPECT_EQ(config_validate_vpn_access_interface_type(platform.socket(), &platform.context(), key_path.get(), nullptr),
            0);
  EXPECT_EQ(platform.calls()[0], "keep-alive");
  EXPECT_EQ(platform.count("keep-alive"), 1U);
}

}  // namespace
