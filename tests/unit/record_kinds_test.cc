#include "config_validate_comn/snapshot/record_kinds.h"

#include <gtest/gtest.h>

#include "config_validate_comn/snapshot/snapshot_queries.h"
#include "tests/support/access_printers.h"

namespace {

struct KindCase {
  acc_intf_vpn_info_t record;
  bool port_based;
  bool untagged;
};

const std::vector<KindCase> kind_cases{
    {{{{0, 0}}, false}, true, false},
    {{{{5, 5}}, false}, false, false},
    {{{{0, 0}, {5, 5}}, false}, false, false},
    {{{{0, 5}}, false}, true, false},
    {{{{0, 0}}, true}, false, true},
    {{{{0, 0}, {5, 5}}, true}, false, true},
    {{{{5, 5}}, true}, false, false},
    {{{{0, 5}}, true}, false, false},
    // The range that came first for the minimum 0 stays.
    {{{{0, 5}, {0, 0}}, true}, false, false},
    {{{}, false}, false, false},
    {{{}, true}, false, false},
};

TEST(RecordKindsTest, follow_from_the_flag_and_the_ranges) {
  for (const KindCase &row : kind_cases) {
    SCOPED_TRACE(::testing::Message() << row.record);
    EXPECT_EQ(is_port_based(row.record), row.port_based);
    EXPECT_EQ(is_interface_vpn_port_based(row.record), row.port_based);
    EXPECT_EQ(is_untagged(row.record), row.untagged);
    EXPECT_EQ(has_encapsulation_untagged(row.record), row.untagged);
  }
}

struct BasicInfoCase {
  std::uint32_t basic_vlan;
  bool untagged;
  bool port_based;
};

const std::vector<BasicInfoCase> basic_info_cases{
    {0, false, true},
    {0, true, false},
    {7, false, false},
    {7, true, false},
};

TEST(RecordKindsTest, an_attachment_without_vlan_that_is_not_untagged_will_be_port_based) {
  for (const BasicInfoCase &row : basic_info_cases) {
    EXPECT_EQ(is_interface_vpn_port_based_through_basic_info(row.basic_vlan, row.untagged), row.port_based)
        << row.basic_vlan << ' ' << row.untagged;
  }
}

}  // namespace
