#include "config_validate_comn/snapshot/snapshot_queries.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <functional>

#include "config_validate_comn/config_validate_comn.h"
#include "tests/property/naive_access.h"
#include "tests/property/recordings.h"
#include "tests/support/access_printers.h"
#include "tests/support/platform.h"

namespace {

const group_vpn_id_t kUntouched{"untouched", "untouched", VPN_TYPE_VPWS};

// What is asked after a sequence of recordings is no part of what a failure is narrowed down to.
template <typename T>
T draw(rc::Gen<T> gen) {
  return *rc::gen::noShrink(std::move(gen));
}

using named_query_t = std::function<bool(group_vpn_id_t &other)>;

void expect_answer(const named_query_t &query, const naive::answer_t &expected) {
  group_vpn_id_t other = kUntouched;
  RC_ASSERT(query(other) == expected.has_value());
  RC_ASSERT(other == expected.value_or(kUntouched));
}

void expect_naive_answers_on(const std::string &interface, const st_val_acc_dot1q_vpn_t &snapshot) {
  const st_acc_dot1q_range_t range = draw(any_range(true));
  expect_answer([&](auto &other) { return has_vpn_dot1q_range_overlap(interface, range, snapshot, other); },
                naive::overlapping_vpn(interface, range, snapshot));
  expect_answer([&](auto &other) { return has_port_based_vpn_in_interface(snapshot, interface, other); },
                naive::port_based_vpn(interface, snapshot));
  expect_answer([&](auto &other) { return has_modified_port_based_vpn_in_interface(snapshot, interface, other); },
                naive::modified_port_based_vpn(interface, snapshot));
  expect_answer([&](auto &other) { return has_encapsulation_untagged_in_interface(interface, snapshot, other); },
                naive::untagged_vpn(interface, snapshot));
  RC_ASSERT(has_vlan_based_vpn_in_interface(snapshot.intf_map, interface) ==
            naive::has_vlan_based_vpn(interface, snapshot));
}

void expect_naive_answers(const crowd &of, const st_val_acc_dot1q_vpn_t &snapshot) {
  expect_naive_answers_on(draw(any_interface({1, of.interfaces + 1})), snapshot);
  RC_ASSERT(has_interface_with_encapsulation(snapshot.intf_map) == naive::has_encapsulation(snapshot));
  RC_ASSERT(has_modified_port_based_vpn(snapshot) == naive::has_modified_port_based_vpn(snapshot));
}

// The rule records before it compares, so the naive answer is read off the same map afterwards.
void expect_naive_agreement(const crowd &of, st_val_acc_dot1q_vpn_t &snapshot, confd_trans_ctx &context) {
  group_vpn_id_t vpn = draw(any_vpn(of));
  std::string interface = draw(any_interface(of));
  const bool encap_cfg = draw(rc::gen::arbitrary<bool>());
  const std::int32_t verdict = config_validate_vpn_access_encapsulation(0, &context, interface, vpn.group_name,
                                                                        vpn.vpn_name, encap_cfg, snapshot);
  RC_ASSERT(snapshot.intf_map.at(interface).at(vpn).encap_cfg == encap_cfg);
  RC_ASSERT(verdict == (naive::disagrees_on_encapsulation(vpn, encap_cfg, snapshot) ? -1 : 0));
}

// A record or interface that a test or a tool puts into the map itself.
void fill_by_hand(const recording &one, st_val_acc_dot1q_vpn_t &snapshot) {
  acc_intf_vpn_info_t record;
  record.dot1q_ranges.insert(one.range);
  record.encap_cfg = one.is_encap;
  snapshot.intf_map[one.interface].emplace(make_group_vpn_id(one.group, one.vpn), record);
}

void expect_naive_answers_throughout(const crowd &of) {
  scripted::Platform platform;
  st_val_acc_dot1q_vpn_t snapshot;
  int recorded = 0;
  for (const recording &one : *many_recordings(of)) {
    one.apply(snapshot);
    if (++recorded % 10 != 0) continue;
    expect_naive_answers(of, snapshot);
    expect_naive_agreement(of, snapshot, platform.context());
  }
  expect_naive_answers(of, snapshot);
}

RC_GTEST_PROP(SnapshotQueriesProperty, equal_the_walk_on_few_vpns, ()) { expect_naive_answers_throughout({5, 5}); }

RC_GTEST_PROP(SnapshotQueriesProperty, equal_the_walk_on_a_port_with_many_vpns, ()) {
  expect_naive_answers_throughout({90, 2});
}

RC_GTEST_PROP(SnapshotQueriesProperty, equal_the_walk_on_a_port_with_many_ranges_of_few_vpns, ()) {
  expect_naive_answers_throughout({3, 1});
}

RC_GTEST_PROP(SnapshotQueriesProperty, equal_the_walk_on_a_vpn_with_many_interfaces, ()) {
  expect_naive_answers_throughout({2, 90});
}

RC_GTEST_PROP(SnapshotQueriesProperty, equal_the_walk_on_a_port_that_was_partly_filled_by_hand, ()) {
  const crowd of{90, 2};
  st_val_acc_dot1q_vpn_t snapshot;
  int recorded = 0;
  for (const recording &one : *many_recordings(of)) {
    if (++recorded % 7 == 0) {
      fill_by_hand(one, snapshot);
    } else {
      one.apply(snapshot);
    }
    if (recorded % 5 == 0) expect_naive_answers(of, snapshot);
  }
}

RC_GTEST_PROP(SnapshotQueriesProperty, agreement_equals_the_walk_where_interfaces_were_filled_by_hand, ()) {
  const crowd of{2, 90};
  scripted::Platform platform;
  st_val_acc_dot1q_vpn_t snapshot;
  int recorded = 0;
  for (const recording &one : *many_recordings(of)) {
    if (++recorded % 7 == 0 && snapshot.intf_map.count(one.interface) == 0) {
      fill_by_hand(one, snapshot);
    } else {
      one.apply(snapshot);
    }
    if (recorded % 5 == 0) expect_naive_agreement(of, snapshot, platform.context());
  }
}

}  // namespace
