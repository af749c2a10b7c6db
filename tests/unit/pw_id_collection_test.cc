// What an entry of each family's list of pseudowires gives, and which of its values must have their types.

#include <gtest/gtest.h>

#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpws/config_validate_vpws.h"
#include "tests/support/broken_model.h"
#include "tests/support/printers.h"
#include "tests/support/pseudowires.h"

namespace {

using scripted::absent;
using scripted::ipv4;
using scripted::text;
using scripted::u32;
using scripted::Values;

struct BrokenEntry {
  Values values;  ///< right up to the value that the assertion names, wrong from there on, in the order of assertion
  const char *assertion;
};

struct VplsNeighbors {
  static constexpr const char *kArea = "config_validate_vpls";
  static constexpr const char *kList = scripted::kVplsNeighborList;
  static constexpr auto collect_committing = config_validate_vpls_unique_pw_id;
  static constexpr auto collect_running = fill_config_vpls_peer_running;

  static Values entry() { return {text("north"), text("east"), u32(5), ipv4("10.0.0.1"), u32(77), u32(100)}; }
  static std::vector<BrokenEntry> broken_entries() {
    return {
        {{u32(1), u32(1), u32(1), u32(1), absent(), text("")}, "(&values[0])->type == C_BUF"},
        {{text("G"), u32(1), u32(1), u32(1), absent(), text("")}, "(&values[1])->type == C_BUF"},
        {{text("G"), text("V"), u32(1), u32(1), absent(), text("")}, "(&values[3])->type == C_IPV4"},
        {{text("G"), text("V"), u32(1), ipv4("10.0.0.1"), absent(), text("")}, "(&values[5])->type == C_UINT32"},
    };
  }
};

struct VpwsTunnels {
  static constexpr const char *kArea = "config_validate_vpws";
  static constexpr const char *kList = scripted::kVpwsTunnelList;
  static constexpr auto collect_committing = config_validate_vpws_unique_pw_id;
  static constexpr auto collect_running = fill_config_vpws_peer_running;

  static Values entry() {
    return {text("north"), u32(5), u32(scripted::address_word("10.0.0.1")), u32(100), u32(77), text("east")};
  }
  static std::vector<BrokenEntry> broken_entries() {
    return {
        {{u32(1), u32(1), ipv4("10.0.0.1"), text(""), absent(), u32(1)}, "(&values[2])->type == C_UINT32"},
        {{u32(1), u32(1), u32(1), text(""), absent(), u32(1)}, "(&values[3])->type == C_UINT32"},
        {{u32(1), u32(1), u32(1), u32(1), absent(), u32(1)}, "(&values[0])->type == C_BUF"},
        {{text("G"), u32(1), u32(1), u32(1), absent(), u32(1)}, "(&values[5])->type == C_BUF"},
    };
  }
};

template <class Family>
class PwIdCollection : public scripted::PlatformTest {
 protected:
  std::int32_t collect_committing() {
    return Family::collect_committing(this->platform.socket(), &this->platform.context(), map);
  }
  std::int32_t collect_running() {
    return Family::collect_running(this->platform.socket(), &this->platform.context(), map);
  }

  val_pw_map_t map;
};

using PwFamilies = ::testing::Types<VplsNeighbors, VpwsTunnels>;
TYPED_TEST_SUITE(PwIdCollection, PwFamilies);

TYPED_TEST(PwIdCollection, takes_the_four_values_that_describe_a_pseudowire) {
  this->platform.list(TypeParam::kList, scripted::kPwListKeys, {TypeParam::entry()});
  EXPECT_EQ(this->collect_committing(), 0);
  EXPECT_EQ(this->map, scripted::pw_map({{"north", "east", "10.0.0.1", 100}}));
}

TYPED_TEST(PwIdCollection, a_value_of_another_type_stops_the_process) {
  for (const BrokenEntry &row : TypeParam::broken_entries()) {
    SCOPED_TRACE(row.assertion);
    this->platform.list(TypeParam::kList, scripted::kPwListKeys, {row.values});
    this->platform.running().list(TypeParam::kList, scripted::kPwListKeys, {row.values});
    EXPECT_BROKEN_MODEL(this->collect_committing(), TypeParam::kArea, row.assertion);
    EXPECT_BROKEN_MODEL(this->collect_running(), TypeParam::kArea, row.assertion);
  }
}

}  // namespace
