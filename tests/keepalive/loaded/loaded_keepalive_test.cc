// The keep-alive of the library that ships, asked for through its entry points.

#include <gtest/gtest.h>

#include "confd_dp.h"
#include "element/datastore/transaction.h"
#include "element/profile/profile.h"
#include "element/schema/schema.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"
#include "tests/support/build_under_test.h"
#include "tests/support/fake_clock.h"

namespace {

using scripted::FakeClock;

struct Commit {
  double second;
  const char *point;
};

/// Validates an empty configuration at these moments and prints the time-outs that the library asked for.
[[noreturn]] void validate_at(const std::vector<Commit> &commits) {
  const element::Schema schema;
  const element::Transaction transaction{element::Tree(schema), element::Tree(schema)};
  const element::Profile profile;
  host::HostSession session(profile);
  session.serve(&transaction);
  const host::Plugin plugin(plugin_file());
  for (const Commit &commit : commits) {
    FakeClock::set(commit.second);
    std::string point = commit.point;
    confd_trans_ctx context{};
    context.thandle = session.transaction_handle();
    context.vcb_opaque = session.middleware();
    context.validate_opaque = point.data();
    std::fprintf(stderr, "%d", plugin.validate(&context, nullptr, nullptr));
  }
  std::fprintf(stderr, ", extended by");
  for (const int seconds : session.statistics.timeouts) std::fprintf(stderr, " %d", seconds);
  std::fprintf(stderr, " and no more\n");
  std::exit(0);
}

TEST(LoadedKeepaliveTest, extends_after_37_seconds_whichever_point_asks) {
  ASSERT_TRUE(FakeClock::works());
  const testing::ExitedWithCode done(0);
  EXPECT_EXIT(validate_at({{0, "vpn_peer_valp"}, {10, "vpn_peer_valp"}}), done, "00, extended by and no more");
  EXPECT_EXIT(validate_at({{0, "vpn_peer_valp"}, {36, "vpn_access_valp"}}), done, "00, extended by and no more");
  EXPECT_EXIT(validate_at({{0, "vpn_peer_valp"}, {37, "vpn_access_valp"}}), done, "00, extended by 120 and no more");
  EXPECT_EXIT(
      validate_at({{0, "vpn_access_valp"}, {37, "vpn_peer_valp"}, {73, "vpn_peer_valp"}, {74, "vpn_peer_valp"}}), done,
      "0000, extended by 120 120 and no more");
}

TEST(LoadedKeepaliveTest, a_point_that_asks_for_no_time_does_not_start_the_interval) {
  EXPECT_EXIT(validate_at({{0, "no_such_valp"}, {37, "vpn_peer_valp"}}), testing::ExitedWithCode(0),
              "00, extended by and no more");
}

}  // namespace

int main(int argc, char **argv) {
  FakeClock::restart_program_under(clock_preload(), argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
