// What the VLAN manager and the multicast router say about a VLAN of a changed access interface, for both families.

#include <iterator>

#include "tests/unit/access_family.h"

namespace {

using Messages = std::vector<std::string>;

struct Case {
  const char *name;
  bool is_router_interface;
  bool is_member;
  std::int32_t mop;
  en_vpn_match_type_t match;
  bool is_snooping_asked;
  std::string message;  ///< empty: accepted
};

class AccessVlanManager : public AccessTest {
 protected:
  void prepare(const Case &row) {
    platform.list(kRouterInterfaces, 2);
    platform.list(kMembers, 3);
    if (row.is_router_interface) add_router_interface(7, 1001);
    if (row.is_member) add_static_member(10, 1001);
    platform.forget_calls();
    messages_before_ = std::ssize(platform.errors());
  }
  void expect(const Case &row, std::int32_t result, bool is_anything_read) {
    EXPECT_EQ(result, row.message.empty() ? 0 : -1);
    Messages messages = platform.errors();
    messages.erase(messages.begin(), messages.begin() + messages_before_);
    EXPECT_EQ(messages, row.message.empty() ? Messages{} : Messages{row.message});
    EXPECT_EQ(!platform.calls().empty(), is_anything_read);
  }

  std::string interface = "eth-1";
  st_acc_dot1q_range_t range{10, 10};

 private:
  std::ptrdiff_t messages_before_ = 0;
};

TEST_F(AccessVlanManager, of_vpls_asks_for_snooping_first_also_where_port_based) {
  std::string group = "vpls-group north";
  std::string vpn = "vpn red";
  const std::string snooping = message_of("access-igmp-snooping", {group + " " + vpn, "eth-1", "7"});
  const std::string member = message_of("access-static-member", {group + " " + vpn, "eth-1", "10"});
  for (const Case &row : {
           Case{"neither", false, false, MOP_CREATED, VPN_MATCH_DOT1Q, true, ""},
           Case{"member", false, true, MOP_CREATED, VPN_MATCH_DOT1Q, true, member},
           Case{"router interface", true, false, MOP_CREATED, VPN_MATCH_DOT1Q, true, snooping},
           Case{"both: snooping first", true, true, MOP_MODIFIED, VPN_MATCH_DOT1Q, true, snooping},
           Case{"snooping not asked for", true, true, MOP_CREATED, VPN_MATCH_DOT1Q, false, member},
           Case{"unchanged", true, true, 0, VPN_MATCH_DOT1Q, true, ""},
           Case{"port-based member", false, true, MOP_CREATED, VPN_MATCH_PORT_BASED, true, ""},
           Case{"port-based router interface", true, false, MOP_CREATED, VPN_MATCH_PORT_BASED, true, snooping},
       }) {
    SCOPED_TRACE(row.name);
    prepare(row);
    const std::int32_t result = config_validate_vpls_access_vlm(sock(), tctx(), group, vpn, interface, range, row.mop,
                                                                row.match, row.is_snooping_asked);
    expect(row, result, row.mop != 0);
  }
}

TEST_F(AccessVlanManager, of_vpws_asks_only_for_members_and_not_where_port_based) {
  std::string group = "vpws-group west";
  std::string vpn = "vpn blue";
  const std::string member = message_of("access-static-member", {group + " " + vpn, "eth-1", "10"});
  for (const Case &row : {
           Case{"no member", true, false, MOP_CREATED, VPN_MATCH_DOT1Q, false, ""},
           Case{"member", true, true, MOP_CREATED, VPN_MATCH_DOT1Q, false, member},
           Case{"unchanged member", true, true, 0, VPN_MATCH_DOT1Q, false, ""},
           Case{"port-based member", true, true, MOP_CREATED, VPN_MATCH_PORT_BASED, false, ""},
       }) {
    SCOPED_TRACE(row.name);
    prepare(row);
    const std::int32_t result =
        config_validate_vpws_access_vlm(sock(), tctx(), group, vpn, interface, range, row.mop, row.match);
    expect(row, result, row.mop != 0 && row.match != VPN_MATCH_PORT_BASED);
  }
}

}  // namespace
