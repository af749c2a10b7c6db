#include <gtest/gtest.h>

#include "config_validate_comn/snapshot/access_index.h"
#include "tests/support/access_printers.h"

namespace {

using Ranges = std::vector<st_acc_dot1q_range_t>;

struct MeetCase {
  const char *name;
  Ranges claimed;
  st_acc_dot1q_range_t range;
  bool meets;
};

const std::vector<MeetCase> meet_cases{
    {"nothing claimed", {}, {1, 4094}, false},
    {"the same VLAN", {{10, 10}}, {10, 10}, true},
    {"shared end", {{20, 30}}, {10, 20}, true},
    {"one below", {{21, 30}}, {10, 20}, false},
    {"shared start", {{5, 10}}, {10, 20}, true},
    {"one above", {{5, 9}}, {10, 20}, false},
    {"inside", {{1, 4094}}, {100, 200}, true},
    {"around", {{150, 150}}, {100, 200}, true},
    {"in a gap", {{1, 99}, {201, 300}}, {100, 200}, false},
    {"gap filled later", {{1, 99}, {201, 300}, {150, 160}}, {100, 200}, true},
    {"behind a range that covers later ones", {{1, 500}, {2, 3}, {10, 20}}, {400, 410}, true},
    {"a range that bridges two", {{1, 10}, {20, 30}, {8, 22}}, {15, 15}, true},
    {"beside bridged ranges", {{1, 10}, {20, 30}, {8, 22}}, {31, 40}, false},
    {"a range that covers two", {{10, 11}, {20, 21}, {5, 25}}, {12, 19}, true},
    {"the untagged claim holds no VLAN", {{0, 0}}, {0, 10}, false},
    {"VLAN 0 in a range", {{0, 5}}, {0, 3}, true},
    {"a minimum above the maximum holds no VLAN", {{10, 5}}, {1, 4094}, false},
    {"4095 and beyond", {{4095, 5000}}, {4096, 4096}, true},
    {"up to the largest number", {{4294967295, 4294967295}}, {4294967294, 4294967295}, true},
};

TEST(VlanSetTest, meet_a_range_that_shares_a_vlan) {
  for (const MeetCase &row : meet_cases) {
    vlan_set_t claims;
    for (const st_acc_dot1q_range_t &range : row.claimed) claims.add(range);
    EXPECT_EQ(claims.meets(row.range), row.meets) << row.name;
  }
}

}  // namespace
