#include "fm.h"
#include "limid.h"
#include "tests/host/served_element.h"

namespace {

using host::SeamFunction;
using Read = int (*)(const fm_slot_t *, std::uint32_t *);

class FeatureModel : public host_test::ServedElement {
 protected:
  struct Limit {
    Read read;
    std::optional<std::uint32_t> element::CardLimits::*limit;
    SeamFunction function;
  };

  const std::vector<Limit> limits{{fm_scalar_card_hal_vpn_vpn_max_limit, &element::CardLimits::vpn_max,
                                   SeamFunction::fm_scalar_card_hal_vpn_vpn_max_limit},
                                  {fm_scalar_card_vpn_mgr_access_ports, &element::CardLimits::access_ports,
                                   SeamFunction::fm_scalar_card_vpn_mgr_access_ports},
                                  {fm_scalar_card_selective_encapsulation_max_vlan_entries,
                                   &element::CardLimits::selective_encapsulation_vlan_entries,
                                   SeamFunction::fm_scalar_card_selective_encapsulation_max_vlan_entries},
                                  {fm_scalar_card_selective_encapsulation_max_vlan_ranges,
                                   &element::CardLimits::selective_encapsulation_vlan_ranges,
                                   SeamFunction::fm_scalar_card_selective_encapsulation_max_vlan_ranges}};
};

TEST_F(FeatureModel, tells_each_limit_that_the_card_has) {
  fm_slot_t slot{};
  ASSERT_EQ(fm_init(), 0);
  ASSERT_EQ(fm_local_slot(&slot), 0);
  std::uint32_t expected = 100;
  for (const Limit &limit : limits) {
    std::uint32_t value = 77;
    EXPECT_NE(limit.read(&slot, &value), 0) << name(limit.function);
    EXPECT_EQ(value, 77U) << name(limit.function);
    profile.card.*limit.limit = ++expected;
    EXPECT_EQ(limit.read(&slot, &value), 0) << name(limit.function);
    EXPECT_EQ(value, expected) << name(limit.function);
    fail_next(limit.function);
    value = 77;
    EXPECT_NE(limit.read(&slot, &value), 0) << name(limit.function);
    EXPECT_EQ(value, 77U) << name(limit.function);
  }
}

TEST_F(FeatureModel, has_a_card_in_the_local_slot_only) {
  profile.card.vpn_max = 128;
  fm_slot_t slot{};
  std::uint32_t value = 77;
  EXPECT_NE(fm_scalar_card_hal_vpn_vpn_max_limit(&slot, &value), 0);
  fail_next(SeamFunction::fm_local_slot);
  EXPECT_NE(fm_local_slot(&slot), 0);
  EXPECT_EQ(slot.slot, 0U);
  EXPECT_EQ(fm_local_slot(&slot), 0);
  EXPECT_EQ(fm_scalar_card_hal_vpn_vpn_max_limit(&slot, &value), 0);
  ++slot.slot;
  EXPECT_NE(fm_scalar_card_hal_vpn_vpn_max_limit(&slot, &value), 0);
}

TEST_F(FeatureModel, may_fail_to_start) {
  fail_next(SeamFunction::fm_init);
  EXPECT_NE(fm_init(), 0);
  EXPECT_EQ(fm_init(), 0);
}

class Identifiers : public host_test::ServedElement {};

TEST_F(Identifiers, lead_from_an_interface_to_its_numbers_and_back) {
  limid_t limid = 0;
  std::int32_t ifindex = 0;
  char name[64] = "";
  EXPECT_EQ(limid_from_intfname("ten-gigabit-ethernet-1/2/1", &limid), 0);
  EXPECT_EQ(limid, 2U);
  EXPECT_EQ(limid_to_ifindex(limid, &ifindex), 0);
  EXPECT_EQ(ifindex, 1002);
  EXPECT_EQ(limid_from_ifindex(1001, &limid), 0);
  EXPECT_EQ(limid_to_intfname(limid, name, sizeof name), 0);
  EXPECT_STREQ(name, "gigabit-ethernet-1/1/1");
  EXPECT_TRUE(valid_intfname("gigabit-ethernet-1/1/1"));
  EXPECT_FALSE(valid_intfname("gigabit-ethernet-1/1/10"));
}

TEST_F(Identifiers, a_name_that_does_not_fit_is_not_cut) {
  char name[32] = "untouched";
  EXPECT_NE(limid_to_intfname(1, name, 22), 0);
  EXPECT_STREQ(name, "untouched");
  EXPECT_EQ(limid_to_intfname(1, name, 23), 0);
  EXPECT_STREQ(name, "gigabit-ethernet-1/1/1");
}

TEST_F(Identifiers, a_failed_conversion_leaves_the_output_alone) {
  limid_t limid = 77;
  std::int32_t ifindex = 77;
  char name[64] = "untouched";
  fail_next(SeamFunction::limid_from_intfname);
  EXPECT_NE(limid_from_intfname("gigabit-ethernet-1/1/1", &limid), 0);
  fail_next(SeamFunction::limid_from_ifindex);
  EXPECT_NE(limid_from_ifindex(1001, &limid), 0);
  fail_next(SeamFunction::limid_to_ifindex);
  EXPECT_NE(limid_to_ifindex(1, &ifindex), 0);
  fail_next(SeamFunction::limid_to_intfname);
  EXPECT_NE(limid_to_intfname(1, name, sizeof name), 0);
  fail_next(SeamFunction::valid_intfname);
  EXPECT_FALSE(valid_intfname("gigabit-ethernet-1/1/1"));
  EXPECT_EQ(limid, 77U);
  EXPECT_EQ(ifindex, 77);
  EXPECT_STREQ(name, "untouched");
}

TEST(CardWithoutElement, knows_nothing) {
  fm_slot_t slot{};
  limid_t limid = 0;
  EXPECT_NE(fm_init(), 0);
  EXPECT_NE(fm_local_slot(&slot), 0);
  EXPECT_NE(limid_from_ifindex(1001, &limid), 0);
  EXPECT_FALSE(valid_intfname("gigabit-ethernet-1/1/1"));
}

}  // namespace
