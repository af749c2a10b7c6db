#include "config_validate_vpn/drivers/vpn_peer.h"

#include <gtest/gtest.h>

#include "config_validate_vpn/handlers.h"
#include "tests/support/broken_model.h"
#include "tests/support/printers.h"
#include "tests/support/pseudowires.h"
#include "tests/support/rule_message.h"

namespace {

using scripted::Pw;
using scripted::u32;
using scripted::Values;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::string>;

/// One commit on a platform of its own.
class Commit {
 public:
  void configure_vpws(const Pw &pw) { add(platform.candidate(), scripted::kVpwsTunnelList, scripted::vpws_tunnel(pw)); }
  void configure_vpls(const Pw &pw) {
    add(platform.candidate(), scripted::kVplsNeighborList, scripted::vpls_neighbor(pw));
  }
  void run_vpws(const Pw &pw) { add(platform.running(), scripted::kVpwsTunnelList, scripted::vpws_tunnel(pw)); }
  void run_vpls(const Pw &pw) { add(platform.running(), scripted::kVplsNeighborList, scripted::vpls_neighbor(pw)); }
  void set_vpws_pw_id(const Pw &of) { platform.change(scripted::vpws_pw_id_path(of), MOP_VALUE_SET, u32(of.pw_id)); }
  void set_vpls_pw_id(const Pw &of) { platform.change(scripted::vpls_pw_id_path(of), MOP_VALUE_SET, u32(of.pw_id)); }

  void fill_pseudowire_table(std::uint32_t count) {
    std::vector<Values> rows;
    for (std::uint32_t id = 1; id <= count; ++id) rows.push_back({u32(id)});
    platform.list(scripted::kPseudowireTable, 1, rows);
  }

  std::int32_t verdict() { return config_validate_vpn_peer(platform.socket(), &platform.context(), nullptr, nullptr); }

  scripted::Platform platform;

 private:
  static void add(scripted::Datastore &datastore, const char *list, Values values) {
    datastore.entry(list, std::move(values), scripted::kPwListKeys);
  }
};

class VpnPeerTest : public ::testing::Test {
 protected:
  void TearDown() override {
    EXPECT_EQ(commit.platform.leaks(), Texts{});
    EXPECT_EQ(commit.platform.misuses(), Texts{});
  }

  Commit commit;
  scripted::Platform &platform = commit.platform;
};

const std::string kCountTable = std::string("maapi_num_instances ") + scripted::kPseudowireTable;

Calls reading_of(const std::string &list) {
  return {"maapi_init_cursor " + list, "maapi_get_objects " + list + " 64x6", "maapi_destroy_cursor " + list};
}

Calls running_of(const std::string &list) {
  return {"qnconfd_instance_get", "cdb_session_start 1 true", "cdb_num_instances " + list,
          "cdb_get_objects " + list + " 1x6 from 0", "cdb_session_end"};
}

Calls exchange_of(const Pw &pw) {
  const std::string ask = "maapi_keypath_diff_iterate ";
  return {ask + scripted::vpws_pw_id_path(pw), ask + scripted::vpws_pw_id_path(pw, "backup-neighbor"),
          ask + scripted::vpls_pw_id_path(pw)};
}

Calls joined(const std::vector<Calls> &parts) {
  Calls all;
  for (const Calls &part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

TEST_F(VpnPeerTest, an_accepted_commit_reads_vpws_before_vpls_in_every_step) {
  const Pw east{"north", "east", "10.0.0.1", 100};
  const Pw west{"south", "west", "10.0.0.1", 200};
  commit.configure_vpls(east);
  commit.configure_vpws(west);
  commit.run_vpls({"north", "east", "10.0.0.1", 101});
  commit.run_vpws(west);
  commit.set_vpls_pw_id(east);

  EXPECT_EQ(commit.verdict(), 0);
  EXPECT_EQ(platform.calls(), joined({{kCountTable},
                                      reading_of(scripted::kVpwsTunnelList),
                                      reading_of(scripted::kVplsNeighborList),
                                      running_of(scripted::kVpwsTunnelList),
                                      running_of(scripted::kVplsNeighborList),
                                      exchange_of(east),
                                      exchange_of(west),
                                      {"qnmw_trace_register_category vpn-validation-debug", "zlog"}}));
  EXPECT_EQ(platform.count("confd_free_value"), 8U);
}

TEST_F(VpnPeerTest, too_many_pseudowires_end_the_commit_before_anything_is_read) {
  commit.fill_pseudowire_table(1025);
  EXPECT_EQ(commit.verdict(), -1);
  EXPECT_EQ(platform.errors(), Texts{message_of("pseudowire-limit", {"1025", "1024"})});
  EXPECT_EQ(platform.count("maapi_init_cursor"), 0U);
}

TEST_F(VpnPeerTest, a_repeated_vpws_pw_id_ends_the_commit_before_vpls_is_read) {
  commit.configure_vpws({"north", "east", "10.0.0.1", 7, 1});
  commit.configure_vpws({"north", "west", "10.0.0.1", 7, 2});
  EXPECT_EQ(commit.verdict(), -1);
  EXPECT_EQ(platform.errors(), Texts{message_of("pw-id-twice", {"7"})});
  EXPECT_EQ(platform.calls(), joined({{kCountTable},
                                      {"maapi_init_cursor /internal/int-vpws-tunnel-idx",
                                       "maapi_get_objects /internal/int-vpws-tunnel-idx 64x6",
                                       "confd_trans_seterr The PW ID 7 must be unique per neighbor",
                                       "maapi_destroy_cursor /internal/int-vpws-tunnel-idx"}}));
}

TEST_F(VpnPeerTest, a_pw_id_that_vpws_and_vpls_use_towards_one_neighbor_is_reported_by_vpls) {
  commit.configure_vpws({"north", "east", "10.0.0.1", 100});
  commit.configure_vpls({"south", "west", "10.0.0.1", 100});
  EXPECT_EQ(commit.verdict(), -1);
  EXPECT_EQ(platform.errors(), Texts{message_of("pw-id-twice", {"100"})});
  EXPECT_EQ(platform.calls().back(), "maapi_destroy_cursor /internal/int-sub-vpls-vpn-nbr");
  EXPECT_EQ(platform.count("cdb_session_start"), 0U);
}

TEST_F(VpnPeerTest, the_same_pw_id_towards_two_neighbors_is_accepted) {
  commit.configure_vpws({"north", "east", "10.0.0.1", 100});
  commit.configure_vpls({"south", "west", "10.0.0.2", 100});
  EXPECT_EQ(commit.verdict(), 0);
}

TEST_F(VpnPeerTest, a_swap_of_two_pw_ids_is_rejected_at_the_first_in_map_order) {
  commit.run_vpws({"G", "A", "10.0.0.1", 10, 1});
  commit.run_vpws({"G", "B", "10.0.0.1", 20, 2});
  for (const Pw &pw : {Pw{"G", "A", "10.0.0.1", 20, 1}, Pw{"G", "B", "10.0.0.1", 10, 2}}) {
    commit.configure_vpws(pw);
    commit.set_vpws_pw_id(pw);
  }
  EXPECT_EQ(commit.verdict(), -1);
  EXPECT_EQ(platform.errors(), Texts{message_of("pw-id-moved", {"10", "A", "G", "A"})});
}

TEST_F(VpnPeerTest, a_pw_id_that_moves_to_another_vpn_is_rejected_though_its_owner_is_deleted) {
  commit.run_vpws({"G", "B", "10.0.0.1", 20});
  const Pw moved{"H", "A", "10.0.0.1", 20};
  commit.configure_vpls(moved);
  commit.set_vpls_pw_id(moved);
  EXPECT_EQ(commit.verdict(), -1);
  EXPECT_EQ(platform.errors(), Texts{message_of("pw-id-moved", {"20", "B", "G", "B"})});
}

TEST_F(VpnPeerTest, nothing_survives_a_commit) {
  const Pw east{"north", "east", "10.0.0.1", 100};
  commit.configure_vpls(east);
  commit.run_vpls(east);
  EXPECT_EQ(commit.verdict(), 0);
  EXPECT_EQ(commit.verdict(), 0) << "the pseudowire does not meet itself in a map that was kept";
  EXPECT_EQ(platform.trace().size(), 2U);
}

TEST_F(VpnPeerTest, the_key_path_and_the_value_are_not_used) {
  scripted::KeyPath key_path({});
  confd_value_t value = scripted::borrowed(u32(1));
  EXPECT_EQ(config_validate_vpn_peer(platform.socket(), &platform.context(), key_path.get(), &value), 0);
}

// What a failed call makes of a commit.

const std::string kFormerlyA = message_of("pw-id-moved", {"10", "A", "H", "A"});
const std::string kFormerlyB = message_of("pw-id-moved", {"500", "B", "H", "B"});

/// Pseudowires that stay as they are, so many of either family.
void configure_bystanders(Commit &commit, std::uint32_t count) {
  for (std::uint32_t i = 1; i <= count; ++i) {
    const Pw vpws{"G", "bystander", "10.0.0.9", i, i};
    const Pw vpls{"G", "bystander", "10.0.0.8", i, i};
    commit.configure_vpws(vpws);
    commit.run_vpws(vpws);
    commit.configure_vpls(vpls);
    commit.run_vpls(vpls);
  }
}

/// Both families take over a pw-id: VPWS that of A, reported first, and VPLS that of B. All four stand in the second
/// batch of their list.
void configure_two_take_overs(Commit &commit) {
  configure_bystanders(commit, 64);
  commit.run_vpws({"H", "A", "10.0.0.1", 10, 65});
  commit.run_vpls({"H", "B", "10.0.0.1", 500, 65});
  const Pw new_vpws{"N", "new-vpws", "10.0.0.1", 10, 66};
  const Pw new_vpls{"N", "new-vpls", "10.0.0.1", 500, 66};
  commit.configure_vpws(new_vpws);
  commit.set_vpws_pw_id(new_vpws);
  commit.configure_vpls(new_vpls);
  commit.set_vpls_pw_id(new_vpls);
}

void expect_nothing_left(const scripted::Platform &platform) {
  EXPECT_EQ(platform.leaks(), Texts{});
  EXPECT_EQ(platform.misuses(), Texts{});
}

struct FailureCase {
  const char *function;
  std::size_t nth;
  std::string message;
};

/// VPWS not read, in either configuration: B is reported instead of A. VPLS not read: A as without a failure.
const std::vector<FailureCase> failure_cases{
    {"maapi_num_instances", 1, kFormerlyA},  {"maapi_init_cursor", 1, kFormerlyB},
    {"maapi_init_cursor", 2, kFormerlyA},    {"maapi_get_objects", 1, kFormerlyB},
    {"maapi_get_objects", 2, kFormerlyB},    {"maapi_get_objects", 3, kFormerlyA},
    {"maapi_get_objects", 4, kFormerlyA},    {"qnconfd_instance_get", 1, kFormerlyB},
    {"qnconfd_instance_get", 2, kFormerlyA}, {"cdb_session_start", 1, kFormerlyB},
    {"cdb_session_start", 2, kFormerlyA},    {"cdb_num_instances", 1, kFormerlyB},
    {"cdb_num_instances", 2, kFormerlyA},    {"maapi_keypath_diff_iterate", 1, kFormerlyB},
};

TEST(VpnPeerFailures, a_failed_read_of_one_family_leaves_the_others_verdict) {
  for (const FailureCase &row : failure_cases) {
    SCOPED_TRACE(std::string(row.function) + " " + std::to_string(row.nth));
    Commit commit;
    configure_two_take_overs(commit);
    commit.platform.fail(row.function, row.nth);
    EXPECT_EQ(commit.verdict(), -1);
    EXPECT_EQ(commit.platform.errors(), Texts{row.message});
    expect_nothing_left(commit.platform);
  }
}

TEST(VpnPeerFailures, reads_that_fail_throughout_accept) {
  for (const char *function : {"maapi_init_cursor", "maapi_get_objects", "qnconfd_instance_get", "cdb_session_start",
                               "cdb_num_instances", "maapi_keypath_diff_iterate"}) {
    SCOPED_TRACE(function);
    Commit commit;
    configure_two_take_overs(commit);
    commit.platform.fail_from(function, 1);
    EXPECT_EQ(commit.verdict(), 0);
    EXPECT_EQ(commit.platform.errors(), Texts{});
    expect_nothing_left(commit.platform);
  }
}

TEST(VpnPeerFailures, a_running_batch_that_cannot_be_read_stops_the_process) {
  Commit commit;
  configure_two_take_overs(commit);
  for (const std::size_t nth : {1U, 2U}) {
    commit.platform.fail("cdb_get_objects", nth);
    EXPECT_BROKEN_MODEL(commit.verdict(), "config_validate_vpws", "(&values[2])->type == C_UINT32");
  }
  for (const std::size_t nth : {3U, 4U}) {
    commit.platform.fail("cdb_get_objects", nth);
    EXPECT_BROKEN_MODEL(commit.verdict(), "config_validate_vpls", "(&values[0])->type == C_BUF");
  }
}

/// How often an accepted commit uses each function.
std::map<std::string, std::size_t> uses_of_functions() {
  Commit commit;
  configure_bystanders(commit, 3);
  EXPECT_EQ(commit.verdict(), 0);
  std::map<std::string, std::size_t> uses;
  for (const std::string &call : commit.platform.calls()) ++uses[call.substr(0, call.find(' '))];
  return uses;
}

TEST(VpnPeerFailures, no_single_failure_rejects_what_is_accepted_or_leaves_anything_open) {
  std::map<std::string, std::size_t> uses = uses_of_functions();
  ASSERT_EQ(uses.erase("cdb_get_objects"), 1U) << "its failure stops the process";

  for (const auto &[function, count] : uses) {
    for (std::size_t nth = 1; nth <= count; ++nth) {
      SCOPED_TRACE(function + " " + std::to_string(nth));
      Commit commit;
      configure_bystanders(commit, 3);
      commit.platform.fail(function, nth);
      EXPECT_EQ(commit.verdict(), 0);
      EXPECT_EQ(commit.platform.errors(), Texts{});
      expect_nothing_left(commit.platform);
    }
  }
}

}  // namespace
