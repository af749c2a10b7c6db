// What the checks of both families' encapsulations share.

#include <new>

#include "tests/unit/access_family.h"

namespace {

using scripted::i32;
using scripted::u32;

template <class Family>
class AccessEncapsulation : public AccessEncapsulationOf<Family> {
 protected:
  using Entry = typename AccessEncapsulationOf<Family>::Entry;

  bool has_range() { return Family::has_range(this->sock(), this->tctx(), Entry()); }
  bool has_untagged() { return Family::has_untagged(this->sock(), this->tctx(), Entry()); }
};

TYPED_TEST_SUITE(AccessEncapsulation, AccessFamilies);

TYPED_TEST(AccessEncapsulation, a_range_is_an_encapsulation) {
  EXPECT_FALSE(this->has_range());
  this->set_ranges({{u32(10), u32(20)}});
  EXPECT_TRUE(this->has_range());
  this->fail_only("maapi_num_instances", 1);
  EXPECT_FALSE(this->has_range());
  EXPECT_EQ(this->platform.calls(), Calls{"maapi_num_instances " + this->kRanges});
}

TYPED_TEST(AccessEncapsulation, untagged_is_an_encapsulation) {
  EXPECT_FALSE(this->has_untagged());
  this->platform.leaf(this->kUntagged, scripted::enum_value(2));
  EXPECT_FALSE(this->has_untagged());
  this->platform.leaf(this->kUntagged, scripted::enum_value(1));
  this->platform.forget_calls();
  EXPECT_TRUE(this->has_untagged());
  EXPECT_EQ(this->platform.calls(),
            (Calls{"maapi_exists " + this->kUntagged, "maapi_get_enum_value_elem " + this->kUntagged}));
}

TYPED_TEST(AccessEncapsulation, what_the_attachment_holds_is_recorded) {
  this->expect_records({
      {"port-based", 0, false, {}, {{{0, 0}}, false}},
      {"basic VLAN", 100, false, {}, {{{100, 100}}, false}},
      {"untagged", 0, true, {}, {{{0, 0}}, true}},
      {"untagged, and the basic VLAN turns the flag off", 100, true, {}, {{{0, 0}, {100, 100}}, false}},
      {"ranges", 0, false, {{10, 20}, {30, 30}}, {{{10, 20}, {30, 30}}, true}},
      {"ranges and basic VLAN", 5, false, {{10, 20}}, {{{5, 5}, {10, 20}}, true}},
      {"untagged, basic VLAN and range", 5, true, {{10, 20}}, {{{0, 0}, {5, 5}, {10, 20}}, true}},
      {"a basic VLAN inside a range", 100, false, {{50, 150}}, {{{50, 150}, {100, 100}}, true}},
  });
}

TYPED_TEST(AccessEncapsulation, without_an_encapsulation_nothing_is_read) {
  EXPECT_EQ(this->verdict(100, false, false), 0);
  EXPECT_EQ(this->platform.calls(), Calls{});
}

TYPED_TEST(AccessEncapsulation, a_range_of_a_changed_attachment_holds_no_static_member) {
  this->set_ranges({{u32(10), u32(20)}});
  this->add_static_member(15, 1001);
  EXPECT_EQ(this->verdict(0, false, true), 0) << "unchanged";

  this->snapshot = {};
  this->record_change(TypeParam::kGroup, TypeParam::kVpn, "eth-1");
  this->expect_rejected(0, false, true, message_of("access-static-member", {this->this_vpn(), "eth-1", "15"}));
  EXPECT_EQ(this->recorded(), (std::map<std::string, Claims>{}));
}

TYPED_TEST(AccessEncapsulation, a_range_must_not_meet_another_vpns) {
  this->set_ranges({{u32(10), u32(20)}});
  this->record_vlan(TypeParam::kOtherGroup, TypeParam::kOtherVpn, "eth-1", 21);
  EXPECT_EQ(this->verdict(0, false, true), 0);

  this->snapshot = {};
  this->record_vlan(TypeParam::kOtherGroup, TypeParam::kOtherVpn, "eth-1", 20);
  this->expect_rejected(0, false, true,
                        message_of("access-same-dot1q", {this->this_vpn(), this->other_vpn(), "eth-1"}));
}

TYPED_TEST(AccessEncapsulation, ranges_that_cannot_be_read_are_accepted_unrecorded) {
  this->set_ranges({{u32(10), u32(20)}});
  for (const char *function : {"maapi_init_cursor", "maapi_get_objects"}) {
    SCOPED_TRACE(function);
    this->fail_only(function, 1);
    EXPECT_EQ(this->verdict(10, true, true), 0);
    EXPECT_EQ(this->recorded(), (std::map<std::string, Claims>{}));
  }
}

TYPED_TEST(AccessEncapsulation, ranges_that_went_between_the_count_and_the_fetch_are_not_recorded) {
  this->set_ranges({{u32(10), u32(20)}});
  this->platform.count_as(this->kRanges, 2);
  EXPECT_EQ(this->verdict(5, false, true), 0);
  EXPECT_EQ(this->recorded(), (std::map<std::string, Claims>{{this->record_name(), {{{5, 5}, {10, 20}}, true}}}));
}

TYPED_TEST(AccessEncapsulation, a_failed_count_leaves_by_exception) {
  this->set_ranges({{u32(10), u32(20)}});
  this->fail_only("maapi_num_instances", 1);
  EXPECT_THROW(this->verdict(5, false, true), std::bad_array_new_length);
  EXPECT_EQ(this->platform.calls(), Calls{"maapi_num_instances " + this->kRanges}) << "before the cursor is opened";
}

TYPED_TEST(AccessEncapsulation, the_ranges_are_read_in_this_order) {
  this->set_ranges({{u32(10), u32(20)}});
  EXPECT_EQ(this->verdict(5, true, true), 0);
  const std::string &ranges = this->kRanges;
  EXPECT_EQ(this->platform.calls(), (Calls{"maapi_num_instances " + ranges, "maapi_init_cursor " + ranges,
                                           "maapi_get_objects " + ranges + " 1x2", "maapi_destroy_cursor " + ranges}));
}

TYPED_TEST(AccessEncapsulation, bounds_are_numbers_without_sign) {
  this->set_ranges({{i32(10), u32(20)}});
  EXPECT_BROKEN_MODEL(this->verdict(5, false, true), TypeParam::kArea, "(&v[0])->type == C_UINT32");
  this->set_ranges({{u32(10), i32(20)}});
  EXPECT_BROKEN_MODEL(this->verdict(5, false, true), TypeParam::kArea, "(&v[1])->type == C_UINT32");
}

TYPED_TEST(AccessEncapsulation, the_path_of_the_ranges_is_cut_at_511_characters) {
  this->interface = std::string(600, 'i');
  EXPECT_THROW(this->verdict(5, false, true), std::bad_array_new_length) << "what is left is no path";
  EXPECT_EQ(this->platform.calls(),
            Calls{"maapi_num_instances " + TypeParam::encapsulation(this->interface).substr(0, 511)});
}

}  // namespace
