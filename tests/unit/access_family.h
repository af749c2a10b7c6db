#ifndef TESTS_UNIT_ACCESS_FAMILY_H
#define TESTS_UNIT_ACCESS_FAMILY_H

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpls/vpls_access_checks.h"
#include "config_validate_vpws/config_validate_vpws.h"
#include "config_validate_vpws/vpws_access_checks.h"
#include "tests/support/rule_message.h"
#include "tests/unit/access_test.h"

// What VPLS and VPWS differ in, for tests of what they share.

using ServicePorts = std::unordered_map<std::string, bool>;

struct VplsFamily {
  using Attachment = Vpls;
  static constexpr const char *kArea = "config_validate_vpls";
  static constexpr const char *kAttachments = "/internal/int-sub-vpls-vpn-ac";
  static constexpr const char *kGroup = "vpls-group north";
  static constexpr const char *kVpn = "vpn red";
  static constexpr const char *kOtherGroup = "vpws-group west";  ///< a VPN of the other family
  static constexpr const char *kOtherVpn = "vpn blue";
  static constexpr std::size_t kCountOfRanges = 3;  ///< which maapi_num_instances counts an attachment's ranges

  /// The keys under which the walk meets Attachment{}.
  static scripted::Values keys() {
    return {scripted::text("north"), scripted::text("red"), scripted::u32(1), scripted::text("eth-1")};
  }
  static std::string encapsulation(const std::string &interface) {
    return "/internal/int-vpls-group{north}/int-vpls-vpn{red 1}/int-vpls-bd/int-vpls-ac{" + interface +
           "}/int-vpls-encap/int-vpls-encap-";
  }
  /// The operator's node whose change is that of Attachment{}.
  static std::string changed_node() { return "/mpls/l2vpn-config/l2vpn/vpls-group{north}/vpn{red}/bridge-domain"; }

  static std::int32_t validate(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot, std::int32_t maximum,
                               ServicePorts &service_ports) {
    return config_validate_vpls_access_dot1q(sock, tctx, snapshot, maximum, service_ports);
  }
  static bool has_range(int sock, confd_trans_ctx *tctx, const maapi_cursor &entry) {
    return vpls_has_encapsulation_dot1q(sock, tctx, entry);
  }
  static bool has_untagged(int sock, confd_trans_ctx *tctx, const maapi_cursor &entry) {
    return vpls_has_encapsulation_untagged(sock, tctx, entry);
  }
  static std::int32_t validate_encapsulation(int sock, confd_trans_ctx *tctx, std::string interface, std::uint32_t vlan,
                                             bool untagged, bool dot1q, st_val_acc_dot1q_vpn_t &snapshot) {
    std::string group = kGroup;
    std::string vpn = kVpn;
    return config_validate_vpls_access_encap(sock, tctx, group, vpn, 1, interface, vlan, untagged, dot1q, snapshot);
  }
};

struct VpwsFamily {
  using Attachment = Vpws;
  static constexpr const char *kArea = "config_validate_vpws";
  static constexpr const char *kAttachments = "/internal/int-vpws-intf-app";
  static constexpr const char *kGroup = "vpws-group west";
  static constexpr const char *kVpn = "vpn blue";
  static constexpr const char *kOtherGroup = "vpls-group north";
  static constexpr const char *kOtherVpn = "vpn red";
  static constexpr std::size_t kCountOfRanges = 2;

  static scripted::Values keys() {
    return {scripted::text("west"), scripted::text("blue"), scripted::u32(7), scripted::text("eth-1"),
            scripted::u32(0)};
  }
  static std::string encapsulation(const std::string &interface) {
    return "/internal/int-vpws-intf-encap{west blue 7 " + interface + "}/int-vpws-encap-";
  }
  static std::string changed_node() {
    return "/mpls/l2vpn-config/l2vpn/vpws-group{west}/vpn{blue}/access-interface{eth-1}";
  }

  static std::int32_t validate(int sock, confd_trans_ctx *tctx, st_val_acc_dot1q_vpn_t &snapshot, std::int32_t,
                               ServicePorts &service_ports) {
    return config_validate_vpws_access_dot1q(sock, tctx, snapshot, service_ports);
  }
  static bool has_range(int sock, confd_trans_ctx *tctx, const maapi_cursor &entry) {
    return vpws_has_encapsulation_dot1q(sock, tctx, entry);
  }
  static bool has_untagged(int sock, confd_trans_ctx *tctx, const maapi_cursor &entry) {
    return vpws_has_encapsulation_untagged(sock, tctx, entry);
  }
  static std::int32_t validate_encapsulation(int sock, confd_trans_ctx *tctx, std::string interface, std::uint32_t vlan,
                                             bool untagged, bool dot1q, st_val_acc_dot1q_vpn_t &snapshot) {
    std::string group = kGroup;
    std::string vpn = kVpn;
    return config_validate_vpws_access_encap(sock, tctx, group, vpn, 7, interface, vlan, untagged, dot1q, snapshot);
  }
};

using AccessFamilies = ::testing::Types<VplsFamily, VpwsFamily>;

/// The walk of one family's access interfaces.
template <class Family>
class AccessInterfacesOf : public AccessTest {
 protected:
  /// What a walk leaves when the n-th call of a function fails.
  struct FailureCase {
    const char *function;
    std::size_t nth;
    std::map<std::string, Claims> recorded;
    bool is_changed;
  };

  /// How messages name a VPN of this family.
  static std::string named(const std::string &vpn) { return std::string(Family::kGroup) + " vpn " + vpn; }

  /// How messages name the VPN of Attachment{}, and the VPN of the other family.
  static std::string this_vpn() { return std::string(Family::kGroup) + " " + Family::kVpn; }
  static std::string other_vpn() { return std::string(Family::kOtherGroup) + " " + Family::kOtherVpn; }

  std::int32_t verdict() { return Family::validate(sock(), tctx(), snapshot, maximum, service_ports); }

  void expect_accepted() {
    EXPECT_EQ(verdict(), 0);
    EXPECT_EQ(platform.errors(), std::vector<std::string>{});
  }
  void expect_rejected(const std::string &message) {
    EXPECT_EQ(verdict(), -1);
    EXPECT_EQ(platform.errors(), std::vector<std::string>{message});
  }
  /// No failure of these calls rejects or leaves something open.
  void expect_failures_to_leave(const std::vector<FailureCase> &rows) {
    for (const FailureCase &row : rows) {
      SCOPED_TRACE(std::string(row.function) + " " + std::to_string(row.nth));
      snapshot = {};
      fail_only(row.function, row.nth);
      expect_accepted();
      EXPECT_EQ(recorded(), row.recorded);
      EXPECT_EQ(snapshot.mop_map.size(), row.is_changed ? 1U : 0U);
      EXPECT_EQ(platform.leaks(), std::vector<std::string>{});
    }
  }

  std::int32_t maximum = 16;  ///< access interfaces of a VPLS VPN; VPWS has no such limit
};

/// The check of one attachment's encapsulation, of Attachment{} unless a test sets its interface.
template <class Family>
class AccessEncapsulationOf : public AccessTest {
 protected:
  using Attachment = typename Family::Attachment;

  /// The cursor's entry as the walk hands it over.
  struct Entry : maapi_cursor {
    Entry() : maapi_cursor{} {
      n = static_cast<int>(values.size());
      for (std::size_t i = 0; i < values.size(); ++i) keys[i] = scripted::borrowed(values[i]);
    }
    scripted::Values values = Family::keys();
  };

  struct RecordCase {
    const char *name;
    std::uint32_t vlan;
    bool untagged;
    Ranges ranges;
    Claims recorded;
  };

  static std::string this_vpn() { return std::string(Family::kGroup) + " " + Family::kVpn; }
  static std::string other_vpn() { return std::string(Family::kOtherGroup) + " " + Family::kOtherVpn; }
  static std::string record_name() { return "eth-1 " + this_vpn(); }

  std::int32_t verdict(std::uint32_t vlan, bool has_untagged, bool has_dot1q) {
    return Family::validate_encapsulation(sock(), tctx(), interface, vlan, has_untagged, has_dot1q, snapshot);
  }
  void expect_rejected(std::uint32_t vlan, bool has_untagged, bool has_dot1q, const std::string &message) {
    const std::size_t before = platform.errors().size();
    EXPECT_EQ(verdict(vlan, has_untagged, has_dot1q), -1);
    EXPECT_EQ(platform.errors().size(), before + 1) << "one message";
    EXPECT_EQ(platform.error(), message);
  }
  void set_ranges(std::vector<scripted::Values> ranges) { platform.list(kRanges, 2, std::move(ranges)); }

  /// Each attachment alone is accepted, and recorded with just these claims.
  void expect_records(const std::vector<RecordCase> &rows) {
    for (const RecordCase &row : rows) {
      SCOPED_TRACE(row.name);
      snapshot = {};
      set_ranges({});
      add(Attachment{.vlan = row.vlan, .untagged = row.untagged, .ranges = row.ranges});
      EXPECT_EQ(verdict(row.vlan, row.untagged, !row.ranges.empty()), 0);
      EXPECT_EQ(platform.error(), "");
      EXPECT_EQ(recorded(), (std::map<std::string, Claims>{{record_name(), row.recorded}}));
    }
  }

  const std::string kRanges = Family::encapsulation("eth-1") + "dot1q-range";
  const std::string kUntagged = Family::encapsulation("eth-1") + "untagged";
  std::string interface = "eth-1";
};

#endif
