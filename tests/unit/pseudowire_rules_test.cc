#include "config_validate_comn/rules/pseudowire_rules.h"

#include <gtest/gtest.h>

#include "config_validate_vpls/config_validate_vpls.h"
#include "config_validate_vpls/qnconfd_cdb_session.h"
#include "config_validate_vpws/config_validate_vpws.h"
#include "tests/support/broken_model.h"
#include "tests/support/printers.h"
#include "tests/support/pseudowires.h"

namespace {

using scripted::Pw;
using scripted::pw_map;
using Calls = std::vector<std::string>;

/// What the collectors of one family are asked through, and what their list looks like.
struct Family {
  const char *name;
  const char *list;
  scripted::Values (*row)(const Pw &pw);
  std::int32_t (*collect_committing)(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &committing);
  std::int32_t (*collect_running)(std::int32_t sock, confd_trans_ctx *tctx, val_pw_map_t &running);
  const char *area;
  const char *first_assertion;
};

const Family vpls{"Vpls",
                  scripted::kVplsNeighborList,
                  scripted::vpls_neighbor,
                  config_validate_vpls_unique_pw_id,
                  fill_config_vpls_peer_running,
                  "config_validate_vpls",
                  "(&values[0])->type == C_BUF"};

const Family vpws{"Vpws",
                  scripted::kVpwsTunnelList,
                  scripted::vpws_tunnel,
                  config_validate_vpws_unique_pw_id,
                  fill_config_vpws_peer_running,
                  "config_validate_vpws",
                  "(&values[2])->type == C_UINT32"};

class PseudowireListTest : public scripted::PlatformTest, public ::testing::WithParamInterface<Family> {
 protected:
  /// The same number of pseudowires, with the same keys, in either configuration.
  std::vector<Pw> numbered(std::uint32_t count) {
    std::vector<Pw> pws;
    for (std::uint32_t i = 1; i <= count; ++i) pws.push_back({"north", "east", "10.0.0.1", i, i});
    return pws;
  }

  void configure(scripted::Datastore &datastore, const std::vector<Pw> &pws) {
    std::vector<scripted::Values> rows;
    for (const Pw &pw : pws) rows.push_back(family.row(pw));
    datastore.list(family.list, scripted::kPwListKeys, rows);
  }

  std::int32_t collect_committing() {
    return family.collect_committing(platform.socket(), &platform.context(), committing);
  }
  std::int32_t collect_running() { return family.collect_running(platform.socket(), &platform.context(), running); }

  const Family &family = GetParam();
  const std::string list = GetParam().list;
  val_pw_map_t committing;
  val_pw_map_t running;
};

INSTANTIATE_TEST_SUITE_P(Families, PseudowireListTest, ::testing::Values(vpls, vpws),
                         [](const auto &family) { return family.param.name; });

struct BatchCase {
  std::uint32_t entries;
  std::size_t fetches;             ///< of the transaction
  std::vector<std::string> reads;  ///< of the running configuration: entries and first index
};

const std::vector<BatchCase> batch_cases{
    {0, 1, {}},
    {1, 1, {"1x6 from 0"}},
    {63, 1, {"63x6 from 0"}},
    {64, 2, {"64x6 from 0"}},
    {65, 2, {"64x6 from 0", "1x6 from 64"}},
    {127, 2, {"64x6 from 0", "63x6 from 64"}},
    {128, 3, {"64x6 from 0", "64x6 from 64"}},
    {129, 3, {"64x6 from 0", "64x6 from 64", "1x6 from 128"}},
};

TEST_P(PseudowireListTest, reads_the_transaction_in_batches_until_the_list_ends) {
  for (const BatchCase &row : batch_cases) {
    SCOPED_TRACE(row.entries);
    configure(platform.candidate(), numbered(row.entries));
    committing.clear();
    platform.forget_calls();

    EXPECT_EQ(collect_committing(), 0);
    EXPECT_EQ(committing, pw_map(numbered(row.entries)));
    Calls expected{"maapi_init_cursor " + list};
    expected.insert(expected.end(), row.fetches, "maapi_get_objects " + list + " 64x6");
    expected.push_back("maapi_destroy_cursor " + list);
    EXPECT_EQ(platform.calls(), expected);
    EXPECT_EQ(platform.count("confd_free_value"), 2 * row.entries);
  }
}

TEST_P(PseudowireListTest, reads_the_running_configuration_in_batches_and_never_past_its_end) {
  for (const BatchCase &row : batch_cases) {
    SCOPED_TRACE(row.entries);
    configure(platform.running(), numbered(row.entries));
    running.clear();
    platform.forget_calls();

    EXPECT_EQ(collect_running(), 0);
    EXPECT_EQ(running, pw_map(numbered(row.entries)));
    Calls expected{"qnconfd_instance_get", "cdb_session_start 1 true", "cdb_num_instances " + list};
    for (const std::string &read : row.reads) expected.push_back("cdb_get_objects " + list + " " + read);
    expected.push_back("cdb_session_end");
    EXPECT_EQ(platform.calls(), expected);
    EXPECT_EQ(platform.count("confd_free_value"), 2 * row.entries);
  }
}

TEST_P(PseudowireListTest, reads_each_configuration_from_its_own_datastore) {
  configure(platform.candidate(), {{"north", "east", "10.0.0.1", 1}});
  configure(platform.running(), {{"south", "west", "10.0.0.2", 2}});
  EXPECT_EQ(collect_committing(), 0);
  EXPECT_EQ(collect_running(), 0);
  EXPECT_EQ(committing, pw_map({{"north", "east", "10.0.0.1", 1}}));
  EXPECT_EQ(running, pw_map({{"south", "west", "10.0.0.2", 2}}));
}

TEST_P(PseudowireListTest, adds_to_what_the_map_holds) {
  configure(platform.candidate(), {{"north", "east", "10.0.0.1", 1}});
  configure(platform.running(), {{"north", "east", "10.0.0.1", 1}});
  committing = running = pw_map({{"south", "west", "10.0.0.1", 2}});
  EXPECT_EQ(collect_committing(), 0);
  EXPECT_EQ(collect_running(), 0);
  EXPECT_EQ(committing, pw_map({{"north", "east", "10.0.0.1", 1}, {"south", "west", "10.0.0.1", 2}}));
  EXPECT_EQ(running, committing);
}

TEST_P(PseudowireListTest, rejects_a_pw_id_that_the_neighbor_already_has_in_the_map) {
  configure(platform.candidate(), {{"north", "east", "10.0.0.1", 100}});
  committing = pw_map({{"south", "west", "10.0.0.1", 100}});
  EXPECT_EQ(collect_committing(), -1);
  EXPECT_EQ(platform.errors(), std::vector<std::string>{"The PW ID 100 must be unique per neighbor"});
  EXPECT_EQ(committing, pw_map({{"south", "west", "10.0.0.1", 100}})) << "the first user stays";
}

TEST_P(PseudowireListTest, accepts_the_same_pw_id_towards_another_neighbor) {
  configure(platform.candidate(), {{"north", "east", "10.0.0.2", 100}});
  committing = pw_map({{"south", "west", "10.0.0.1", 100}});
  EXPECT_EQ(collect_committing(), 0);
  EXPECT_EQ(committing.size(), 2U);
}

TEST_P(PseudowireListTest, accepts_another_pw_id_towards_the_same_neighbor) {
  configure(platform.candidate(), {{"north", "east", "10.0.0.1", 101}});
  committing = pw_map({{"south", "west", "10.0.0.1", 100}});
  EXPECT_EQ(collect_committing(), 0);
  EXPECT_EQ(committing.size(), 2U);
}

TEST_P(PseudowireListTest, rejects_the_second_use_in_the_list_and_keeps_what_stood_before_it) {
  configure(platform.candidate(), {{"north", "east", "10.0.0.1", 7, 1},
                                   {"north", "west", "10.0.0.1", 8, 2},
                                   {"south", "east", "10.0.0.1", 7, 3},
                                   {"south", "west", "10.0.0.1", 9, 4}});
  EXPECT_EQ(collect_committing(), -1);
  EXPECT_EQ(platform.errors(), std::vector<std::string>{"The PW ID 7 must be unique per neighbor"});
  EXPECT_EQ(committing, pw_map({{"north", "east", "10.0.0.1", 7}, {"north", "west", "10.0.0.1", 8}}));
  EXPECT_EQ(platform.count("confd_free_value"), 8U) << "those after the second use are freed too";
}

TEST_P(PseudowireListTest, stops_reading_at_the_batch_that_holds_the_second_use) {
  std::vector<Pw> pws = numbered(200);
  pws[64].pw_id = 64;
  configure(platform.candidate(), pws);
  EXPECT_EQ(collect_committing(), -1);
  EXPECT_EQ(
      platform.calls(),
      (Calls{"maapi_init_cursor " + list, "maapi_get_objects " + list + " 64x6", "maapi_get_objects " + list + " 64x6",
             "confd_trans_seterr The PW ID 64 must be unique per neighbor", "maapi_destroy_cursor " + list}));
  EXPECT_EQ(platform.count("confd_free_value"), 256U);
}

TEST_P(PseudowireListTest, a_duplicate_in_the_running_configuration_is_no_error_and_the_first_stays) {
  configure(platform.running(), {{"north", "east", "10.0.0.1", 7, 1}, {"south", "east", "10.0.0.1", 7, 2}});
  EXPECT_EQ(collect_running(), 0);
  EXPECT_EQ(platform.errors(), std::vector<std::string>{});
  EXPECT_EQ(running, pw_map({{"north", "east", "10.0.0.1", 7}}));

  running = pw_map({{"west", "west", "10.0.0.1", 7}});
  EXPECT_EQ(collect_running(), 0);
  EXPECT_EQ(running, pw_map({{"west", "west", "10.0.0.1", 7}}));
}

TEST_P(PseudowireListTest, a_failed_fetch_ends_the_transactions_list_and_accepts) {
  std::vector<Pw> pws = numbered(129);
  pws[128].pw_id = 1;
  configure(platform.candidate(), pws);
  for (const std::size_t nth : {1U, 2U, 3U}) {
    SCOPED_TRACE(nth);
    committing.clear();
    platform.forget_calls();
    platform.fail("maapi_get_objects", nth);
    EXPECT_EQ(collect_committing(), 0);
    EXPECT_EQ(committing.size(), 64 * (nth - 1)) << "the batches before it are in the map";
    EXPECT_EQ(platform.count("maapi_get_objects"), nth);
    EXPECT_EQ(platform.count("confd_free_value"), 2 * 64 * (nth - 1));
  }
}

TEST_P(PseudowireListTest, a_cursor_that_cannot_be_opened_reads_nothing) {
  configure(platform.candidate(), numbered(3));
  platform.fail("maapi_init_cursor", 1);
  EXPECT_EQ(collect_committing(), 0);
  EXPECT_EQ(committing, val_pw_map_t{});
}

TEST_P(PseudowireListTest, a_running_configuration_that_cannot_be_counted_holds_nothing) {
  configure(platform.running(), numbered(3));
  for (const char *function : {"qnconfd_instance_get", "cdb_session_start", "cdb_num_instances"}) {
    SCOPED_TRACE(function);
    platform.forget_calls();
    platform.fail(function, 1);
    EXPECT_EQ(collect_running(), 0);
    EXPECT_EQ(running, val_pw_map_t{});
    EXPECT_EQ(platform.count("cdb_get_objects"), 0U);
    EXPECT_EQ(platform.count("cdb_session_end"), 1U);
  }
}

// The second batch lies where the first one lay: only values that were reset tell that nothing was read.
TEST_P(PseudowireListTest, a_running_batch_that_cannot_be_read_stops_the_process) {
  configure(platform.running(), numbered(128));
  for (const std::size_t nth : {1U, 2U}) {
    SCOPED_TRACE(nth);
    platform.fail("cdb_get_objects", nth);
    EXPECT_BROKEN_MODEL(collect_running(), family.area, family.first_assertion);
  }
}

/// How many values were freed when each entry was read.
std::vector<std::size_t> freed_at_reads;

st_peer_info_t note_freed(const confd_value_t *values) {
  freed_at_reads.push_back(scripted::Platform::active().count("confd_free_value"));
  return {"", "", 0, values[3].val.u32};
}

class PseudowireValuesTest : public scripted::PlatformTest {
 protected:
  void configure(scripted::Datastore &datastore) {
    const std::vector<scripted::Values> rows{scripted::vpws_tunnel({"north", "east", "10.0.0.1", 1}),
                                             scripted::vpws_tunnel({"north", "west", "10.0.0.1", 2})};
    datastore.list(list.path, scripted::kPwListKeys, rows);
    freed_at_reads.clear();
  }

  const pw_list_t list{scripted::kVpwsTunnelList, {0, 5}, note_freed};
  val_pw_map_t pws;
};

TEST_F(PseudowireValuesTest, of_a_running_pseudowire_are_freed_before_the_next_is_read) {
  configure(platform.running());
  const QnConfdCdbSession session(qnconfd_instance_get(platform.middleware()), CDB_RUNNING);
  add_running_pws(session.Socket(), list, pws);
  EXPECT_EQ(freed_at_reads, (std::vector<std::size_t>{0, 2}));
}

TEST_F(PseudowireValuesTest, of_a_committing_pseudowire_are_freed_with_its_batch) {
  configure(platform.candidate());
  EXPECT_EQ(add_committing_pws(platform.socket(), &platform.context(), list, pws), 0);
  EXPECT_EQ(freed_at_reads, (std::vector<std::size_t>{0, 0}));
  EXPECT_EQ(platform.count("confd_free_value"), 4U);
}

class PwIdAssignedTest : public scripted::PlatformTest {
 protected:
  std::int32_t verdict(const char *peer, std::uint32_t pw_id) {
    return config_validate_pw_id_not_assigned(&platform.context(), running, scripted::address_word(peer), pw_id);
  }

  const val_pw_map_t running = pw_map({{"north", "east", "10.0.0.1", 200}, {"south", "west", "10.0.0.2", 300}});
};

TEST_F(PwIdAssignedTest, rejects_a_pw_id_that_the_neighbor_has_and_names_its_owner) {
  EXPECT_EQ(verdict("10.0.0.1", 200), -1);
  EXPECT_EQ(platform.errors(),
            std::vector<std::string>{"The PW ID 200 was formerly assigned to VPN east from Group north. Delete VPN "
                                     "east, its neighbor or backup-neighbor before applying changes"});
}

TEST_F(PwIdAssignedTest, accepts_a_pw_id_that_only_another_neighbor_has) {
  EXPECT_EQ(verdict("10.0.0.2", 200), 0);
  EXPECT_EQ(verdict("10.0.0.1", 300), 0);
  EXPECT_EQ(verdict("10.0.0.1", 0), 0);
  EXPECT_EQ(platform.errors(), std::vector<std::string>{});
}

struct ChangeCase {
  const char *name;
  confd_iter_op op;
  scripted::Value last_element;
  bool has_value;
  bool is_set;
};

const std::vector<ChangeCase> change_cases{
    {"new value of pw-id", MOP_VALUE_SET, scripted::tag(0x1b61cee1), true, true},
    {"new value of another leaf", MOP_VALUE_SET, scripted::tag(0x1b61cee2), true, false},
    {"an entry's key with the tag's number", MOP_VALUE_SET, scripted::u32(0x1b61cee1), true, false},
    {"set without a value", MOP_VALUE_SET, scripted::tag(0x1b61cee1), false, false},
    {"created", MOP_CREATED, scripted::tag(0x1b61cee1), true, false},
    {"deleted", MOP_DELETED, scripted::tag(0x1b61cee1), true, false},
    {"modified", MOP_MODIFIED, scripted::tag(0x1b61cee1), true, false},
    {"moved", MOP_MOVED_AFTER, scripted::tag(0x1b61cee1), true, false},
    {"attribute set", MOP_ATTR_SET, scripted::tag(0x1b61cee1), true, false},
};

TEST(PwIdChange, is_a_value_set_of_the_leaf_pw_id) {
  const confd_value_t value = scripted::borrowed(scripted::u32(20));
  for (const ChangeCase &row : change_cases) {
    SCOPED_TRACE(row.name);
    scripted::KeyPath key_path({{row.last_element}});
    EXPECT_EQ(is_pw_id_set(key_path.get(), row.op, row.has_value ? &value : nullptr), row.is_set);
  }
}

TEST(PeerText, is_dotted_notation_in_the_order_of_the_bytes) {
  EXPECT_EQ(get_peer_text(scripted::address_word("10.0.0.2")), "10.0.0.2");
  EXPECT_EQ(get_peer_text(scripted::address_word("255.255.255.254")), "255.255.255.254");
  EXPECT_EQ(get_peer_text(0), "0.0.0.0");
}

}  // namespace
