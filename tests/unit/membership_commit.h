#ifndef TESTS_UNIT_MEMBERSHIP_COMMIT_H
#define TESTS_UNIT_MEMBERSHIP_COMMIT_H

#include <cstdint>
#include <string>
#include <vector>

#include "config_validate_vpn/handlers.h"
#include "tests/support/printers.h"

inline constexpr const char *kStaticMembers =
    "/KZ-VLAN-MANAGER-MIB:KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
inline constexpr const char *kLdpUplinks = "/internal/int-ldp-intf-l3";

/// What the walk of the members leaves open when it comes to their end.
inline const std::vector<std::string> kMemberCursor{
    "cursor on /KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry"};

/// An element with the ports eth-1-1 (ifindex 5) and eth-1-2 (ifindex 6), and one commit on it.
class MembershipCommit {
 public:
  MembershipCommit() {
    platform.interface("eth-1-1", 1005, 5);
    platform.interface("eth-1-2", 1006, 6);
  }

  /// VPN V of group G; without a VLAN it takes the whole port.
  void attach_vpls(const std::string &interface, std::uint32_t vlan = 0, const std::string &vpn = "V") {
    platform.entry("/internal/int-sub-vpls-vpn-ac",
                   {scripted::text("G"), scripted::text(vpn), scripted::u32(1), scripted::text(interface)}, 4);
    platform.leaf("/internal/int-sub-vpls-vpn-bd{G " + vpn + " 1}/int-vpls-bd-vlan", scripted::u32(vlan));
  }

  /// VPN W of group H.
  void attach_vpws(const std::string &interface, std::uint32_t vlan = 0) {
    platform.entry(
        "/internal/int-vpws-intf-app",
        {scripted::text("H"), scripted::text("W"), scripted::u32(1), scripted::text(interface), scripted::u32(vlan)},
        5);
  }

  void encapsulate_vpws(const std::string &interface, std::uint32_t first, std::uint32_t last) {
    platform.entry("/internal/int-vpws-intf-encap{H W 1 " + interface + "}/int-vpws-encap-dot1q-range",
                   {scripted::u32(first), scripted::u32(last)}, 2);
  }

  void untag_vpws(const std::string &interface) {
    platform.leaf("/internal/int-vpws-intf-encap{H W 1 " + interface + "}/int-vpws-encap-untagged",
                  scripted::enum_value(1));
  }

  void configure_uplink(const std::string &vlan) {
    platform.entry(kLdpUplinks, {scripted::text("l3-" + vlan), scripted::u32(1), scripted::text(vlan)}, 3);
  }

  /// A member that the transaction does not touch.
  void configure_member(std::int32_t vlan, std::int32_t ifindex) {
    platform.entry(kStaticMembers, {scripted::u32(1), scripted::i32(vlan), scripted::i32(ifindex)}, 3);
  }

  void change_member(std::int32_t vlan, std::int32_t ifindex, confd_iter_op op) {
    configure_member(vlan, ifindex);
    platform.change_entry(kStaticMembers, {scripted::u32(1), scripted::i32(vlan), scripted::i32(ifindex)}, op);
  }

  void add_member(std::int32_t vlan, std::int32_t ifindex) { change_member(vlan, ifindex, MOP_CREATED); }

  std::int32_t verdict() { return config_validate_vlm(platform.socket(), &platform.context(), nullptr, nullptr); }

  scripted::Platform platform;
};

#endif
