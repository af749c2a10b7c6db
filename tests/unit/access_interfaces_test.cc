// What the walks of both families' access interfaces share.

#include <new>

#include "tests/unit/access_family.h"

namespace {

using scripted::i32;
using scripted::text;
using scripted::u32;

template <class Family>
class AccessInterfaces : public AccessInterfacesOf<Family> {};

TYPED_TEST_SUITE(AccessInterfaces, AccessFamilies);

TYPED_TEST(AccessInterfaces, without_attachments_the_snapshot_stays_empty) {
  this->expect_accepted();
  EXPECT_EQ(this->recorded(), (std::map<std::string, Claims>{}));
  const std::string list = TypeParam::kAttachments;
  EXPECT_EQ(this->platform.calls(),
            (Calls{"maapi_init_cursor " + list, "maapi_get_next " + list, "maapi_destroy_cursor " + list}));
}

TYPED_TEST(AccessInterfaces, every_attachment_is_recorded) {
  using Attachment = typename TypeParam::Attachment;
  this->add_changed(Attachment{.vpn = "yellow", .interface = "eth-1"});
  this->add(Attachment{.vpn = "green", .id = 8, .interface = "eth-2", .vlan = 100});
  this->add(Attachment{.vpn = "black", .id = 9, .interface = "eth-2", .untagged = true, .ranges = {{10, 20}}});
  this->expect_accepted();
  EXPECT_EQ(this->recorded(), (std::map<std::string, Claims>{
                                  {"eth-1 " + this->named("yellow"), {{{0, 0}}, false}},
                                  {"eth-2 " + this->named("green"), {{{100, 100}}, false}},
                                  {"eth-2 " + this->named("black"), {{{0, 0}, {10, 20}}, true}},
                              }));
  EXPECT_EQ(this->snapshot.mop_map,
            (decltype(this->snapshot.mop_map){{{TypeParam::kGroup, "vpn yellow", "eth-1"}, MOP_CREATED}}));
  EXPECT_EQ(this->snapshot.tls_map, decltype(this->snapshot.tls_map){});
}

TYPED_TEST(AccessInterfaces, the_element_must_have_the_interface) {
  this->add(typename TypeParam::Attachment{.interface = "eth-9"});
  this->expect_rejected(message_of("access-interface-unknown", {this->this_vpn()}));
  EXPECT_EQ(this->recorded(), (std::map<std::string, Claims>{}));
}

TYPED_TEST(AccessInterfaces, the_vlan_of_a_changed_attachment_is_no_static_member) {
  this->add_static_member(100, 1001);
  this->add(typename TypeParam::Attachment{.vlan = 100});
  this->expect_accepted();
  this->snapshot = {};
  this->platform.change(TypeParam::changed_node(), MOP_MODIFIED);
  this->expect_rejected(message_of("access-static-member", {this->this_vpn(), "eth-1", "100"}));
}

TYPED_TEST(AccessInterfaces, two_port_based_vpns_must_not_share_an_interface) {
  using Attachment = typename TypeParam::Attachment;
  this->add(Attachment{.vpn = "green", .id = 7});
  this->add(Attachment{.vpn = "black", .id = 8, .interface = "eth-2"});
  this->expect_accepted();
  this->snapshot = {};
  this->add(Attachment{.vpn = "yellow", .id = 9});
  this->expect_rejected(message_of("access-port-based-twice", {this->named("yellow"), this->named("green"), "eth-1"}));
}

TYPED_TEST(AccessInterfaces, two_vpns_must_not_share_a_vlan_of_an_interface) {
  using Attachment = typename TypeParam::Attachment;
  this->add(Attachment{.vpn = "green", .id = 7, .vlan = 100});
  this->add(Attachment{.vpn = "black", .id = 8, .vlan = 101});
  this->expect_accepted();
  this->snapshot = {};
  this->add(Attachment{.vpn = "yellow", .id = 9, .vlan = 100});
  this->expect_rejected(message_of("access-same-dot1q", {this->named("yellow"), this->named("green"), "eth-1"}));
}

TYPED_TEST(AccessInterfaces, a_vpn_of_the_other_family_must_not_have_the_vlan_either) {
  this->record_vlan(TypeParam::kOtherGroup, TypeParam::kOtherVpn, "eth-1", 99);
  this->add(typename TypeParam::Attachment{.vlan = 100});
  this->expect_accepted();
  this->snapshot = {};
  this->record_vlan(TypeParam::kOtherGroup, TypeParam::kOtherVpn, "eth-1", 100);
  this->expect_rejected(message_of("access-same-dot1q", {this->this_vpn(), this->other_vpn(), "eth-1"}));
}

TYPED_TEST(AccessInterfaces, an_attachment_that_occurs_twice_conflicts_with_itself) {
  using Attachment = typename TypeParam::Attachment;
  this->add(Attachment{.id = 1, .vlan = 100});
  this->add(Attachment{.id = 2, .vlan = 100});
  this->expect_rejected(message_of("access-same-dot1q", {this->this_vpn(), this->this_vpn(), "eth-1"}));
}

TYPED_TEST(AccessInterfaces, one_vpn_may_have_an_interface_untagged) {
  using Attachment = typename TypeParam::Attachment;
  this->add(Attachment{.vpn = "green", .id = 7, .ranges = {{10, 20}}});
  this->add(Attachment{.vpn = "black", .id = 8, .untagged = true});
  this->expect_accepted();
  this->snapshot = {};
  this->add(Attachment{.vpn = "yellow", .id = 9, .untagged = true});
  this->expect_rejected(message_of("access-untagged-twice", {"eth-1", this->named("yellow"), this->named("black")}));
}

TYPED_TEST(AccessInterfaces, a_service_port_is_shared_only_by_vlan) {
  using Attachment = typename TypeParam::Attachment;
  const ServicePorts by_vlan{{"service-port-1", false}};
  this->add(Attachment{.vpn = "green", .id = 7, .interface = "service-port-1", .vlan = 100});
  this->add(Attachment{.vpn = "black", .id = 8, .interface = "service-port-1", .vlan = 200});
  this->expect_accepted();
  EXPECT_EQ(this->service_ports, by_vlan);
  this->snapshot = {};
  this->service_ports.clear();
  this->add(Attachment{.vpn = "yellow", .id = 9, .interface = "service-port-1"});
  this->expect_rejected(message_of("service-port-mixed-use", {"service-port-1"}));
  EXPECT_EQ(this->service_ports, by_vlan);
}

TYPED_TEST(AccessInterfaces, a_failed_check_of_the_name_rejects) {
  this->add(typename TypeParam::Attachment{});
  this->fail_only("valid_intfname", 1);
  this->expect_rejected(message_of("access-interface-unknown", {this->this_vpn()}));
}

TYPED_TEST(AccessInterfaces, ranges_that_cannot_be_counted_leave_by_exception) {
  this->add(typename TypeParam::Attachment{.ranges = {{20, 30}}});
  this->fail_only("maapi_num_instances", TypeParam::kCountOfRanges);
  EXPECT_THROW(this->verdict(), std::bad_array_new_length);
  EXPECT_EQ(this->platform.leaks(), std::vector<std::string>{});
  EXPECT_EQ(this->platform.error(), "");
}

TYPED_TEST(AccessInterfaces, the_keys_of_an_attachment_have_their_types) {
  const auto break_model_with = [this](std::size_t key, const scripted::Value &value) {
    scripted::Values keys = TypeParam::keys();
    keys[key] = value;
    this->platform.list(TypeParam::kAttachments, keys.size(), {keys});
  };
  break_model_with(0, u32(1));
  EXPECT_BROKEN_MODEL(this->verdict(), TypeParam::kArea, "(&mc.keys[0])->type == C_BUF");
  break_model_with(1, u32(1));
  EXPECT_BROKEN_MODEL(this->verdict(), TypeParam::kArea, "(&mc.keys[1])->type == C_BUF");
  break_model_with(2, i32(1));
  EXPECT_BROKEN_MODEL(this->verdict(), TypeParam::kArea, "(&mc.keys[2])->type == C_UINT32");
  break_model_with(3, u32(1));
  EXPECT_BROKEN_MODEL(this->verdict(), TypeParam::kArea, "(&mc.keys[3])->type == C_BUF");
}

TYPED_TEST(AccessInterfaces, numbers_among_the_keys_are_used_after_the_name_was_found_valid) {
  scripted::Values keys = TypeParam::keys();
  keys[2] = i32(1);
  keys[3] = text("eth-9");
  if (keys.size() > 4) keys[4] = i32(0);
  this->platform.list(TypeParam::kAttachments, keys.size(), {keys});
  this->expect_rejected(message_of("access-interface-unknown", {this->this_vpn()}));
}

}  // namespace
