// What an attachment takes of its port, held against the validation library: the access rules' own snapshot of drawn
// configurations, and that of the rule about static members.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "config_validate_comn/snapshot/access_snapshot.h"
#include "config_validate_comn/snapshot/snapshot_loading.h"
#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpws/config_validate_vpws.h"
#include "element/datastore/transaction.h"
#include "host/seam/host_session.h"
#include "l2vpn/edit.h"
#include "l2vpn/port_claims.h"
#include "tests/element/print.h"

namespace {

using l2vpn::Family;
using l2vpn::PortClaim;

/// Port to VLAN ranges; (0, 0) stands for untagged frames and for the whole port, as in the library.
using Ranges = std::map<std::string, std::set<std::pair<std::uint32_t, std::uint32_t>>>;

Ranges ranges_in(const st_val_acc_dot1q_vpn_t &snapshot) {
  Ranges ranges;
  for (const auto &[interface, vpns] : snapshot.intf_map) {
    for (const auto &[vpn, record] : vpns) {
      for (const auto &range : record.dot1q_ranges) ranges[interface].emplace(range.vlan_min, range.vlan_max);
    }
  }
  return ranges;
}

template <typename IsCounted>
Ranges claimed_ranges(const l2vpn::Configuration &configuration, IsCounted is_counted) {
  Ranges ranges;
  for (const PortClaim &claim : port_claims(configuration)) {
    if (claim.absorbed || !is_counted(claim)) continue;
    const bool is_whole_port = claim.kind == l2vpn::ClaimKind::whole_port;
    ranges[claim.port].emplace(claim.vlans.first, is_whole_port ? 0 : claim.vlans.last);
  }
  return ranges;
}

/// The library within this program, asked about a configuration that is in force.
class Library {
 public:
  explicit Library(const l2vpn::Configuration &configuration)
      : transaction_(element::make_transaction(l2vpn::make_tree(test_schema(), configuration),
                                               l2vpn::make_tree(test_schema(), configuration), profile())) {
    session_.serve(transaction_.get());
    context_.thandle = session_.transaction_handle();
    context_.vcb_opaque = session_.middleware();
  }

  Ranges seen_by_access_rules() {
    st_val_acc_dot1q_vpn_t snapshot;
    std::unordered_map<std::string, bool> service_ports;
    const int sock = session_.maapi_socket();
    EXPECT_EQ(config_validate_vpws_access_dot1q(sock, &context_, snapshot, service_ports), 0);
    EXPECT_EQ(config_validate_vpls_access_dot1q(sock, &context_, snapshot, 1000, service_ports), 0);
    return ranges_in(snapshot);
  }

  Ranges seen_by_membership_rule() {
    st_val_acc_dot1q_vpn_t snapshot;
    const int sock = session_.maapi_socket();
    get_vpn_access(sock, &context_, "vpls-group ", "/internal/int-sub-vpls-vpn-ac", snapshot);
    get_vpn_access(sock, &context_, "vpws-group ", "/internal/int-vpws-intf-app", snapshot);
    return ranges_in(snapshot);
  }

  static std::string port(std::size_t number) { return "ge-" + std::to_string(number); }

 private:
  static const element::Profile &profile() {
    static const element::Profile ports({}, {{port(0), 1, 1}, {port(1), 2, 2}, {port(2), 3, 3}, {port(3), 4, 4}});
    return ports;
  }

  std::unique_ptr<element::Transaction> transaction_;
  host::HostSession session_{profile()};
  confd_trans_ctx context_{};
};

rc::Gen<std::uint32_t> any_vlan() { return rc::gen::element(5U, 10U, 11U, 20U); }

l2vpn::VlanRange any_range() {
  const std::uint32_t first = *any_vlan();
  return {first, first + *rc::gen::element(0U, 1U, 9U)};
}

l2vpn::Attachment any_attachment(const std::string &port) {
  l2vpn::Attachment attachment{.interface = port};
  attachment.untagged = *rc::gen::weightedElement<bool>({{1, true}, {2, false}});
  if (attachment.untagged) return attachment;
  for (int left = *rc::gen::inRange(0, 5); left > 0; --left) attachment.ranges.push_back(any_range());
  return attachment;
}

/// The library refuses a range that begins at the VLAN of its bridge domain.
void drop_ranges_at(l2vpn::Attachment &attachment, std::uint32_t vlan) {
  std::erase_if(attachment.ranges, [vlan](const l2vpn::VlanRange &range) { return range.first == vlan; });
}

l2vpn::Vpn any_vpn(std::size_t number) {
  const bool is_vpls = *rc::gen::arbitrary<bool>();
  const bool has_vlan = *rc::gen::arbitrary<bool>();
  l2vpn::Vpn vpn{{is_vpls ? Family::vpls : Family::vpws, "g", "v" + std::to_string(number)}};
  vpn.attachments = {any_attachment(Library::port(number))};
  if (!has_vlan) return vpn;
  const std::uint32_t vlan = *any_vlan();
  (is_vpls ? vpn.dot1q : vpn.attachments[0].dot1q) = vlan;
  if (is_vpls) drop_ranges_at(vpn.attachments[0], vlan);
  return vpn;
}

/// VPNs that each have a port of their own, so that the library records every one; read back, so in key order.
l2vpn::Configuration any_configuration() {
  l2vpn::Configuration configuration;
  const std::size_t count = *rc::gen::inRange<std::size_t>(1, 5);
  for (std::size_t number = 0; number < count; ++number) configuration.vpns.push_back(any_vpn(number));
  return l2vpn::read_configuration(l2vpn::make_tree(test_schema(), configuration));
}

RC_GTEST_PROP(PortClaimsOfTheLibrary, are_what_the_access_rules_record, ()) {
  const l2vpn::Configuration configuration = any_configuration();
  RC_ASSERT(claimed_ranges(configuration, [](const PortClaim &) { return true; }) ==
            Library(configuration).seen_by_access_rules());
}

RC_GTEST_PROP(PortClaimsOfTheLibrary, are_what_the_rule_about_static_members_records, ()) {
  const l2vpn::Configuration configuration = any_configuration();
  RC_ASSERT(claimed_ranges(configuration, [](const PortClaim &claim) { return !claim.beside_untagged; }) ==
            Library(configuration).seen_by_membership_rule());
}

}  // namespace
