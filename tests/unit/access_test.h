#ifndef TESTS_UNIT_ACCESS_TEST_H
#define TESTS_UNIT_ACCESS_TEST_H

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "config_validate_comn/snapshot/access_snapshot.h"
#include "tests/support/broken_model.h"
#include "tests/support/printers.h"

using Calls = std::vector<std::string>;
using Ranges = std::vector<std::pair<std::uint32_t, std::uint32_t>>;

/// One record of a snapshot as the tests compare it: its ranges, and whether its last one is of an encapsulation.
struct Claims {
  Ranges ranges;
  bool encap_cfg = false;

  bool operator==(const Claims &) const = default;
};

inline void PrintTo(const Claims &claims, std::ostream *out) {
  for (const auto &[first, last] : claims.ranges) *out << '(' << first << ", " << last << ") ";
  *out << (claims.encap_cfg ? "encapsulation" : "basic");
}

/// One access interface of a VPLS VPN, as the VPLS application derives it. Tests name what they are about.
struct Vpls {
  std::string group = "north";
  std::string vpn = "red";
  std::uint32_t id = 1;
  std::string interface = "eth-1";
  std::uint32_t vlan = 0;
  std::int32_t tls = 2;
  bool untagged = false;
  Ranges ranges = {};
};

/// The same for VPWS.
struct Vpws {
  std::string group = "west";
  std::string vpn = "blue";
  std::uint32_t id = 7;
  std::string interface = "eth-1";
  std::uint32_t vlan = 0;
  bool untagged = false;
  Ranges ranges = {};
};

/// An element with the interfaces eth-1 to eth-4 (ifindex 1001 to 1004) and service-port-1 and -2 (1011, 1012), and a
/// snapshot.
class AccessTest : public scripted::PlatformTest {
 protected:
  static constexpr const char *kMembers =
      "/KZ-VLAN-MANAGER-MIB:KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
  static constexpr const char *kRouterInterfaces =
      "/KZ-MGMD-ROUTER-MIB:KZ-MGMD-ROUTER-MIB/mgmdRouterInterfaceTable/mgmdRouterInterfaceEntry";
  static constexpr const char *kVplsAttachments = "/internal/int-sub-vpls-vpn-ac";
  static constexpr const char *kVpwsAttachments = "/internal/int-vpws-intf-app";
  static constexpr const char *kUplinks = "/internal/int-ldp-intf-l3";

  AccessTest() {
    for (std::uint32_t i = 1; i <= 4; ++i) add_interface("eth-" + std::to_string(i), i);
    for (std::uint32_t i = 1; i <= 2; ++i) add_interface("service-port-" + std::to_string(i), 10 + i);
    platform.list(kMembers, 3);
    platform.list(kRouterInterfaces, 2);
    platform.list(kVplsAttachments, 4);
    platform.list(kVpwsAttachments, 5);
    platform.list(kUplinks, 3);
  }

  int sock() const { return platform.socket(); }
  confd_trans_ctx *tctx() { return &platform.context(); }

  // The configuration.

  void add(const Vpls &a) {
    const std::string bd = bridge_domain(a);
    platform.entry(kVplsAttachments,
                   {scripted::text(a.group), scripted::text(a.vpn), scripted::u32(a.id), scripted::text(a.interface)});
    platform.entry(bd + "/int-vpls-ac", {scripted::text(a.interface)}, 1);
    platform.object(bd, {scripted::u32(a.vlan), scripted::enum_value(a.tls)});
    const std::string vpns = "/internal/int-vpls-group{" + a.group + "}/int-vpls-vpn";
    if (known_vpns_.insert(vpns + a.vpn).second) {
      platform.entry(vpns, {scripted::text(a.vpn), scripted::u32(a.id)}, 2);
    }
    add_encapsulation(bd + "/int-vpls-ac{" + a.interface + "}/int-vpls-encap/int-vpls-encap", a.untagged, a.ranges);
  }

  void add(const Vpws &a) {
    platform.entry(kVpwsAttachments, {scripted::text(a.group), scripted::text(a.vpn), scripted::u32(a.id),
                                      scripted::text(a.interface), scripted::u32(a.vlan)});
    add_encapsulation(encap_entry(a) + "/int-vpws-encap", a.untagged, a.ranges);
  }

  /// The transaction adds the access interface.
  void add_changed(const Vpls &a) {
    add(a);
    platform.change("/mpls/l2vpn-config/l2vpn/vpls-group{" + a.group + "}/vpn{" + a.vpn +
                        "}/bridge-domain/access-interface{" + a.interface + "}",
                    MOP_CREATED);
  }
  void add_changed(const Vpws &a) {
    add(a);
    platform.change(
        "/mpls/l2vpn-config/l2vpn/vpws-group{" + a.group + "}/vpn{" + a.vpn + "}/access-interface{" + a.interface + "}",
        MOP_CREATED);
  }

  static std::string bridge_domain(const Vpls &a) {
    return "/internal/int-vpls-group{" + a.group + "}/int-vpls-vpn{" + a.vpn + " " + std::to_string(a.id) +
           "}/int-vpls-bd";
  }
  static std::string encap_entry(const Vpws &a) {
    return "/internal/int-vpws-intf-encap{" + a.group + " " + a.vpn + " " + std::to_string(a.id) + " " + a.interface +
           "}";
  }

  void add_static_member(std::int32_t vlan, std::int32_t ifindex) {
    platform.entry(kMembers, {scripted::u32(1), scripted::i32(vlan), scripted::i32(ifindex)});
  }
  void add_router_interface(std::int32_t instance, std::int32_t ifindex) {
    platform.entry(kRouterInterfaces, {scripted::i32(instance), scripted::i32(ifindex)});
  }
  void add_uplink(std::string_view interface, std::uint32_t index, std::string_view vlan) {
    platform.entry(kUplinks, {scripted::text(interface), scripted::u32(index), scripted::text(vlan)});
  }

  // The snapshot.

  void record(const std::string &group, const std::string &vpn, const std::string &interface, vlan_cfg_type_t source,
              st_acc_dot1q_range_t range) {
    set_vpn_access(group, vpn, interface, source, range, snapshot);
  }
  void record_port_based(const std::string &group, const std::string &vpn, const std::string &interface) {
    record(group, vpn, interface, VLAN_CFG_BASIC, {0, 0});
  }
  void record_vlan(const std::string &group, const std::string &vpn, const std::string &interface, std::uint32_t vlan) {
    record(group, vpn, interface, VLAN_CFG_BASIC, {vlan, vlan});
  }
  void record_change(const std::string &group, const std::string &vpn, const std::string &interface) {
    set_vpn_mop(group, vpn, interface, MOP_CREATED, snapshot);
  }

  /// What the snapshot holds, "eth-1 vpls-group north vpn red" -> claims.
  std::map<std::string, Claims> recorded() const {
    std::map<std::string, Claims> all;
    for (const auto &[interface, vpns] : snapshot.intf_map) {
      for (const auto &[id, record] : vpns) {
        Claims &claims = all[interface + " " + id.group_name + " " + id.vpn_name];
        for (const st_acc_dot1q_range_t &range : record.dot1q_ranges) {
          claims.ranges.emplace_back(range.vlan_min, range.vlan_max);
        }
        claims.encap_cfg = record.encap_cfg;
      }
    }
    return all;
  }

  /// The calls that were made to any of these functions.
  Calls calls_of(const std::set<std::string> &functions) const {
    Calls calls;
    for (const std::string &call : platform.calls()) {
      if (functions.contains(call.substr(0, call.find(' ')))) calls.push_back(call);
    }
    return calls;
  }

  /// From now on the n-th call of this function fails, and no other call.
  void fail_only(const std::string &function, std::size_t nth) {
    platform.fail(failing_, 0);
    platform.forget_calls();
    platform.fail(function, nth);
    failing_ = function;
  }

  st_val_acc_dot1q_vpn_t snapshot;
  std::unordered_map<std::string, bool> service_ports;

 private:
  void add_interface(const std::string &name, std::uint32_t number) {
    platform.interface(name, 100 + number, static_cast<std::int32_t>(1000 + number));
  }

  void add_encapsulation(const std::string &prefix, bool untagged, const Ranges &ranges) {
    if (untagged) platform.leaf(prefix + "-untagged", scripted::enum_value(1));
    for (const auto &[first, last] : ranges) {
      platform.entry(prefix + "-dot1q-range", {scripted::u32(first), scripted::u32(last)});
    }
  }

  std::set<std::string> known_vpns_;
  std::string failing_;
};

#endif
