#include "config_validate_comn/daemon/interface_encapsulation.h"

#include <new>

#include "tests/unit/access_test.h"

namespace {

using scripted::enum_value;
using scripted::text;
using scripted::u32;

constexpr const char *kUntagged = "/internal/encap/untagged";
constexpr const char *kRanges = "/internal/encap/range";

class InterfaceEncapsulationTest : public AccessTest {
 protected:
  bool untagged() { return is_configured_untagged(sock(), tctx(), kUntagged); }
};

TEST_F(InterfaceEncapsulationTest, untagged_is_the_setting_one) {
  for (const auto &[setting, is_untagged] : std::map<int, bool>{{0, false}, {1, true}, {2, false}}) {
    SCOPED_TRACE(setting);
    platform.leaf(kUntagged, enum_value(setting));
    EXPECT_EQ(untagged(), is_untagged);
  }
}

TEST_F(InterfaceEncapsulationTest, a_leaf_that_is_not_there_is_not_read) {
  EXPECT_FALSE(untagged());
  EXPECT_EQ(platform.calls(), Calls{std::string("maapi_exists ") + kUntagged});
}

TEST_F(InterfaceEncapsulationTest, a_failed_read_is_not_untagged) {
  platform.leaf(kUntagged, enum_value(1));
  for (const char *function : {"maapi_exists", "maapi_get_enum_value_elem"}) {
    SCOPED_TRACE(function);
    fail_only(function, 1);
    EXPECT_FALSE(untagged());
  }
  fail_only("maapi_exists", 1);
  untagged();
  EXPECT_EQ(platform.count("maapi_get_enum_value_elem"), 0U) << "a failed existence check says no";
}

TEST_F(InterfaceEncapsulationTest, ranges_are_read_at_once) {
  platform.list(kRanges, 2, {{u32(10), u32(20)}, {u32(30), u32(40)}});
  {
    const encap_ranges_t ranges(sock(), tctx(), kRanges);
    ASSERT_TRUE(ranges.is_read());
    ASSERT_EQ(ranges.size(), 2);
    EXPECT_EQ(ranges.entry(0)[0].val.u32, 10U);
    EXPECT_EQ(ranges.entry(1)[1].val.u32, 40U);
    EXPECT_EQ(platform.count("maapi_destroy_cursor"), 0U);
  }
  const std::string list = kRanges;
  EXPECT_EQ(platform.calls(), (Calls{"maapi_num_instances " + list, "maapi_init_cursor " + list,
                                     "maapi_get_objects " + list + " 2x2", "maapi_destroy_cursor " + list}));
}

TEST_F(InterfaceEncapsulationTest, a_list_without_ranges_is_read_as_none) {
  const encap_ranges_t ranges(sock(), tctx(), kRanges);
  EXPECT_TRUE(ranges.is_read());
  EXPECT_EQ(ranges.size(), 0);
}

TEST_F(InterfaceEncapsulationTest, ranges_that_went_between_the_count_and_the_fetch_are_not_there) {
  platform.list(kRanges, 2, {{u32(10), u32(20)}});
  platform.count_as(kRanges, 3);
  const encap_ranges_t ranges(sock(), tctx(), kRanges);
  EXPECT_TRUE(ranges.is_read());
  ASSERT_EQ(ranges.size(), 1);
  EXPECT_EQ(ranges.entry(0)[0].val.u32, 10U);
  EXPECT_EQ(calls_of({"maapi_get_objects"}), Calls{std::string("maapi_get_objects ") + kRanges + " 3x2"});
}

TEST_F(InterfaceEncapsulationTest, a_failed_fetch_is_told_and_closes_its_cursor) {
  platform.list(kRanges, 2, {{u32(10), u32(20)}});
  for (const char *function : {"maapi_init_cursor", "maapi_get_objects"}) {
    SCOPED_TRACE(function);
    fail_only(function, 1);
    EXPECT_FALSE(encap_ranges_t(sock(), tctx(), kRanges).is_read());
    EXPECT_EQ(platform.leaks(), std::vector<std::string>{});
  }
}

TEST_F(InterfaceEncapsulationTest, a_failed_count_throws_before_the_cursor_is_opened) {
  fail_only("maapi_num_instances", 1);
  EXPECT_THROW(encap_ranges_t(sock(), tctx(), kRanges), std::bad_array_new_length);
  EXPECT_EQ(platform.calls(), Calls{std::string("maapi_num_instances ") + kRanges});
}

}  // namespace
