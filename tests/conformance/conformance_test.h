#ifndef TESTS_CONFORMANCE_CONFORMANCE_TEST_H
#define TESTS_CONFORMANCE_CONFORMANCE_TEST_H

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "confd_maapi.h"
#include "tests/conformance/stage.h"
#include "tests/support/value.h"

namespace conformance {

using scripted::absent;
using scripted::enum_value;
using scripted::i32;
using scripted::ipv4;
using scripted::text;
using scripted::u32;

inline constexpr const char *kMembers =
    "/KZ-VLAN-MANAGER-MIB:KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";
inline constexpr const char *kVpwsVpns = "/internal/int-vpws-group{north}/int-vpws";
inline constexpr const char *kTunnels = "/internal/int-vpws-tunnel-idx";
inline constexpr const char *kVpwsGroups = "/mpls/l2vpn-config/l2vpn/vpws-group";

/// A fact of the seam, shown on the host that the program is linked with.
class ConformanceTest : public ::testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(stage->left_open(), 0U) << "cursors, sessions and values"; }

  void begin_anew() {
    EXPECT_EQ(stage->left_open(), 0U);
    stage = nullptr;
    stage = make_stage();
  }

  int sock() { return stage->socket(); }
  int handle() { return stage->context().thandle; }

  /// The keys of the entry that a cursor stands on; none where it stands on none.
  static Values keys_of(const maapi_cursor &mc) {
    Values keys;
    for (int k = 0; k < mc.n; ++k) keys.push_back(scripted::from_platform(mc.keys[k]));
    return keys;
  }

  /// Every entry's keys, in the order in which a cursor visits them.
  std::vector<Values> visit(const char *list) {
    std::vector<Values> visited;
    maapi_cursor mc{};
    EXPECT_EQ(maapi_init_cursor(sock(), handle(), &mc, "%s", list), CONFD_OK);
    for (maapi_get_next(&mc); mc.n != 0; maapi_get_next(&mc)) visited.push_back(keys_of(mc));
    maapi_destroy_cursor(&mc);
    return visited;
  }

  std::unique_ptr<Stage> stage = make_stage();
};

/// What a value is marked with that no read has filled.
inline constexpr std::int64_t kUntouched = -77;

/// Values that a read fills: marked before, so that what was not filled shows, and given back at the end.
class ReadValues {
 public:
  explicit ReadValues(std::size_t count) : values_(count) {
    for (confd_value_t &value : values_) {
      value.type = C_INT64;
      value.val.i64 = kUntouched;
    }
  }
  ~ReadValues() {
    for (confd_value_t &value : values_) confd_free_value(&value);
  }
  ReadValues(const ReadValues &) = delete;
  ReadValues &operator=(const ReadValues &) = delete;

  confd_value_t *data() { return values_.data(); }

  Value at(std::size_t index) const { return scripted::from_platform(values_[index]); }

  /// The values that were filled, from the first on.
  Values filled() const {
    Values filled;
    for (std::size_t i = 0; i < values_.size() && !is_untouched(i); ++i) filled.push_back(at(i));
    return filled;
  }

  bool is_untouched(std::size_t index) const {
    return values_[index].type == C_INT64 && values_[index].val.i64 == kUntouched;
  }

 private:
  std::vector<confd_value_t> values_;
};

}  // namespace conformance

#endif
