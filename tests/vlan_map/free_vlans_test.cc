#include "vlan_map/free_vlans.h"

#include <gtest/gtest.h>

#include "tests/vlan_map/drawn_map.h"

namespace {

std::string free_on(const Lines &running, const Lines &candidate) {
  return free_text(map_of(running, candidate).ports[0]);
}

TEST(FreeVlans, are_those_that_nothing_takes_after_the_commit) {
  const std::string range = on_vpws("ge-1") + "/encapsulation/dot1q-range";
  EXPECT_EQ(free_on({}, {}), "1-4094");
  EXPECT_EQ(free_on({}, {on_vpws("ge-1") + "/dot1q = 5"}), "1-4, 6-4094");
  EXPECT_EQ(free_on({}, {on_vpws("ge-1") + "/dot1q = 1"}), "2-4094");
  EXPECT_EQ(free_on({}, {on_vpws("ge-1") + "/dot1q = 4094"}), "1-4093");
  EXPECT_EQ(free_on({on_vpws("ge-1") + "/dot1q = 5"}, {}), "1-4094");
  EXPECT_EQ(free_on({on_vpws("ge-1") + "/dot1q = 5"}, {on_vpws("ge-1") + "/dot1q = 9"}), "1-8, 10-4094");
  EXPECT_EQ(free_on({}, {on_vpws("ge-1") + "/encapsulation/untagged"}), "1-4094");
  EXPECT_EQ(free_on({}, {on_vpws("ge-1")}), "none");
  EXPECT_EQ(free_on({}, {range + "{10 19}", range + "{21 29}", domain + "/dot1q = 15", on_vpls("ge-1")}),
            "1-9, 20, 30-4094");
}

TEST(FreeVlans, of_many_spans_the_widest_are_told) {
  Lines ranges;
  for (int i = 1; i <= 14; ++i) {
    const int first = i * i;
    ranges.push_back(on_vpws("ge-1") + "/encapsulation/dot1q-range{" + std::to_string(first) + " " +
                     std::to_string(first) + "}");
  }
  EXPECT_EQ(
      free_on({}, ranges),
      "10-15, 17-24, 26-35, 37-48, 50-63, 65-80, 82-99, 101-120, 122-143, 145-168, 170-195, 197-4094 and 2 narrower "
      "spans");
}

}  // namespace
