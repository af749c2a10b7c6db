#include "config_validate_vpls/vpls_access_checks.h"
#include "tests/unit/access_test.h"

namespace {

using scripted::i32;
using scripted::text;
using scripted::u32;

constexpr const char *kRejected =
    "vpls-group north vpn red interface eth-1 is already assigned to multicast igmp snooping 7";

class VplsIgmpSnoopingTest : public AccessTest {
 protected:
  std::int32_t verdict() {
    return config_validate_vpls_access_igs(sock(), tctx(), "vpls-group north", "vpn red", "eth-1");
  }

  // Multicast router interfaces that are none of the element's, in front of all others.
  void add_others(int count) {
    for (int i = 0; i < count; ++i) add_router_interface(1, 5000 + i);
  }

  const std::string table = "/KZ-MGMD-ROUTER-MIB/mgmdRouterInterfaceTable/mgmdRouterInterfaceEntry";
};

TEST_F(VplsIgmpSnoopingTest, without_router_interfaces_nothing_else_is_read) {
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.calls(), Calls{std::string("maapi_num_instances ") + kRouterInterfaces});
}

TEST_F(VplsIgmpSnoopingTest, refuses_a_router_interface) {
  add_router_interface(7, 1001);
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.calls(),
            (Calls{std::string("maapi_num_instances ") + kRouterInterfaces, "limid_from_intfname eth-1",
                   "limid_to_ifindex 101", std::string("maapi_init_cursor ") + kRouterInterfaces,
                   "maapi_get_objects " + table + " 64x2", std::string("confd_trans_seterr ") + kRejected,
                   "maapi_destroy_cursor " + table}));
}

TEST_F(VplsIgmpSnoopingTest, accepts_another_port) {
  add_router_interface(7, 1002);
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.error(), "");
}

TEST_F(VplsIgmpSnoopingTest, names_the_first_instance) {
  add_router_interface(9, 1001);
  add_router_interface(7, 1001);
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.error(), kRejected);
}

struct BatchCase {
  int others;
  std::size_t fetches_to_find;
  std::size_t fetches_without;
};

TEST_F(VplsIgmpSnoopingTest, the_table_is_read_in_batches_of_64) {
  for (const BatchCase &row : {BatchCase{63, 1, 1}, {64, 2, 2}, {127, 2, 2}, {128, 3, 3}}) {
    SCOPED_TRACE(row.others);
    platform.list(kRouterInterfaces, 2);
    add_others(row.others);
    platform.forget_calls();
    EXPECT_EQ(verdict(), 0);
    EXPECT_EQ(platform.count("maapi_get_objects"), row.fetches_without);

    add_router_interface(7, 1001);
    platform.forget_calls();
    EXPECT_EQ(verdict(), -1);
    EXPECT_EQ(platform.count("maapi_get_objects"), row.fetches_to_find);
  }
}

TEST_F(VplsIgmpSnoopingTest, accepts_when_a_read_fails) {
  add_others(64);
  add_router_interface(7, 1001);
  for (const char *function :
       {"maapi_num_instances", "limid_from_intfname", "limid_to_ifindex", "maapi_init_cursor", "maapi_get_objects"}) {
    SCOPED_TRACE(function);
    fail_only(function, 1);
    EXPECT_EQ(verdict(), 0);
  }
  fail_only("maapi_get_objects", 2);
  EXPECT_EQ(verdict(), 0) << "the second batch";
  EXPECT_EQ(platform.error(), "");
}

TEST_F(VplsIgmpSnoopingTest, instance_and_ifindex_are_integers) {
  platform.list(kRouterInterfaces, 2, {{i32(7), u32(1001)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpls", "(&v[1])->type == C_INT32");
  platform.list(kRouterInterfaces, 2, {{u32(7), i32(1001)}});
  EXPECT_BROKEN_MODEL(verdict(), "config_validate_vpls", "(&v[0])->type == C_INT32");
  platform.list(kRouterInterfaces, 2, {{u32(7), i32(1002)}});
  EXPECT_EQ(verdict(), 0) << "the instance is used only for the message";
}

}  // namespace
