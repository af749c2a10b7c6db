#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "config_validate_comn/snapshot/snapshot_queries.h"
#include "tests/property/naive_access.h"
#include "tests/property/recordings.h"
#include "tests/support/access_printers.h"

namespace {

// The range that is asked for belongs to one of the VPNs on the interface or to none: it makes no difference.
void expect_naive_answer(bool malformed) {
  const crowd of{3, 1};
  const std::string interface = interface_name(0);
  const auto vpns = *rc::gen::container<std::vector<group_vpn_id_t>>(any_vpn(of));
  st_val_acc_dot1q_vpn_t snapshot;
  for (const group_vpn_id_t &vpn : vpns) {
    set_vpn_access(vpn.group_name, vpn.vpn_name, interface, VLAN_CFG_ENCAP, *any_range(malformed), snapshot);
  }

  const st_acc_dot1q_range_t range = *any_range(malformed);
  const naive::answer_t expected = naive::overlapping_vpn(interface, range, snapshot);
  const group_vpn_id_t untouched{"untouched", "untouched", VPN_TYPE_VPWS};
  group_vpn_id_t other = untouched;
  RC_ASSERT(has_vpn_dot1q_range_overlap(interface, range, snapshot, other) == expected.has_value());
  RC_ASSERT(other == expected.value_or(untouched));
  RC_CLASSIFY(expected.has_value(), "overlap");
}

RC_GTEST_PROP(RangeOverlapProperty, equals_the_comparison_vlan_by_vlan, ()) { expect_naive_answer(false); }

RC_GTEST_PROP(RangeOverlapProperty, a_range_whose_minimum_is_above_its_maximum_holds_no_vlan, ()) {
  expect_naive_answer(true);
}

}  // namespace
