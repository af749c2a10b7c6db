// What a call that fails leaves behind.

#include "confd_cdb.h"
#include "qnconfd.h"
#include "tests/conformance/conformance_test.h"

namespace conformance {
namespace {

class FailuresTest : public ConformanceTest {
 protected:
  /// Entries in one list, and a cursor on the first.
  void stand_on_the_first_of(int count) {
    for (int i = 1; i <= count; ++i) stage->put(kMembers, {u32(1), i32(i), i32(1001)});
    stage->open();
    maapi_init_cursor(sock(), handle(), &mc, "%s", kMembers);
    maapi_get_next(&mc);
    ASSERT_EQ(mc.n, 3);
  }

  void TearDown() override {
    maapi_destroy_cursor(&mc);
    ConformanceTest::TearDown();
  }

  maapi_cursor mc{};
};

TEST_F(FailuresTest, a_count_and_an_existence_answer_minus_one) {
  stand_on_the_first_of(2);
  stage->fail_next("maapi_num_instances");
  EXPECT_EQ(maapi_num_instances(sock(), handle(), "%s", kMembers), -1);
  EXPECT_EQ(maapi_num_instances(sock(), handle(), "%s", kMembers), 2);
  stage->fail_next("maapi_exists");
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s{1 1 1001}", kMembers), -1);
  EXPECT_EQ(maapi_exists(sock(), handle(), "%s{1 1 1001}", kMembers), 1);
}

TEST_F(FailuresTest, a_failed_move_leaves_the_cursor_on_no_entry) {
  stand_on_the_first_of(3);
  stage->fail_next("maapi_get_next");
  EXPECT_EQ(maapi_get_next(&mc), -1);
  EXPECT_EQ(mc.n, 0);
}

TEST_F(FailuresTest, a_failed_search_leaves_the_cursor_on_no_entry) {
  stand_on_the_first_of(3);
  confd_value_t keys[] = {scripted::borrowed(u32(1))};
  stage->fail_next("maapi_find_next");
  EXPECT_EQ(maapi_find_next(&mc, CONFD_FIND_NEXT, keys, 1), -1);
  EXPECT_EQ(mc.n, 0);
}

TEST_F(FailuresTest, a_failed_fetch_fills_nothing_and_leaves_the_cursor_where_it_is) {
  stand_on_the_first_of(3);
  ReadValues values(6);
  int entries = 2;
  stage->fail_next("maapi_get_objects");
  EXPECT_EQ(maapi_get_objects(&mc, values.data(), 3, &entries), -1);
  EXPECT_EQ(entries, 2);
  EXPECT_EQ(values.filled(), Values{});
  EXPECT_EQ(keys_of(mc), (Values{u32(1), i32(1), i32(1001)}));
}

TEST_F(FailuresTest, a_cursor_that_failed_to_initialise_yields_nothing_and_may_be_destroyed) {
  stage->put(kMembers, {u32(1), i32(1), i32(1001)});
  stage->open();
  mc.n = 3;
  stage->fail_next("maapi_init_cursor");
  EXPECT_EQ(maapi_init_cursor(sock(), handle(), &mc, "%s", kMembers), -1);
  EXPECT_EQ(mc.n, 0);
  EXPECT_EQ(stage->left_open(), 0U);
  maapi_get_next(&mc);
  EXPECT_EQ(mc.n, 0);
  ReadValues values(3);
  int entries = 1;
  EXPECT_EQ(maapi_get_objects(&mc, values.data(), 3, &entries), -1);
  EXPECT_EQ(values.filled(), Values{});
}

TEST_F(FailuresTest, a_cursor_that_was_never_initialised_may_be_destroyed) {
  stage->open();
  maapi_cursor never{};
  maapi_destroy_cursor(&never);
  EXPECT_EQ(stage->left_open(), 0U);
}

TEST_F(FailuresTest, a_cursor_may_be_destroyed_twice) {
  stand_on_the_first_of(1);
  maapi_destroy_cursor(&mc);
  maapi_destroy_cursor(&mc);
  EXPECT_EQ(stage->left_open(), 0U);
}

TEST_F(FailuresTest, a_failed_element_read_leaves_the_output) {
  stage->put("/internal/int-sub-vpls-vpn-bd", {text("south"), text("red"), u32(4)}, {{"int-vpls-bd-vlan", u32(100)}});
  stage->put("/internal/int-vpws-intf-encap", {text("north"), text("east"), u32(1), text("gigabit-1")},
             {{"int-vpws-encap-untagged", enum_value(1)}});
  stage->open();
  const char *vlan_path = "/internal/int-sub-vpls-vpn-bd{south red 4}/int-vpls-bd-vlan";
  std::uint32_t number = 77;
  stage->fail_next("maapi_get_u_int32_elem");
  EXPECT_EQ(maapi_get_u_int32_elem(sock(), handle(), &number, "%s", vlan_path), -1);
  EXPECT_EQ(number, 77U);
  EXPECT_NE(confd_errno, CONFD_ERR_NOEXISTS) << "a failed read is told from a leaf that is not set";

  ReadValues values(1);
  stage->fail_next("maapi_get_elem");
  EXPECT_EQ(maapi_get_elem(sock(), handle(), values.data(), "%s", vlan_path), -1);
  EXPECT_TRUE(values.is_untouched(0));

  std::int32_t untagged = 77;
  stage->fail_next("maapi_get_enum_value_elem");
  EXPECT_EQ(maapi_get_enum_value_elem(sock(), handle(), &untagged, "%s",
                                      "/internal/int-vpws-intf-encap{north east 1 gigabit-1}/int-vpws-encap-untagged"),
            -1);
  EXPECT_EQ(untagged, 77);
}

confd_iter_ret count_call(confd_hkeypath_t *, confd_iter_op, confd_value_t *, confd_value_t *, void *state) {
  ++*static_cast<int *>(state);
  return ITER_RECURSE;
}

TEST_F(FailuresTest, a_failed_iteration_calls_nobody) {
  stage->create_entry(kMembers, {u32(1), i32(100), i32(1001)}, {});
  stage->open();
  int calls = 0;
  stage->fail_next("maapi_keypath_diff_iterate");
  EXPECT_EQ(maapi_keypath_diff_iterate(sock(), handle(), count_call, 0, &calls, "%s", kMembers), -1);
  EXPECT_EQ(calls, 0);
}

TEST_F(FailuresTest, a_failed_object_read_fills_nothing) {
  stand_on_the_first_of(1);
  ReadValues values(3);
  stage->fail_next("maapi_get_object");
  EXPECT_EQ(maapi_get_object(sock(), handle(), values.data(), 3, "%s{1 1 1001}", kMembers), -1);
  EXPECT_EQ(values.filled(), Values{});
}

TEST_F(FailuresTest, a_session_that_fails_to_start_reads_nothing) {
  stand_on_the_first_of(1);
  QnConfdInterface *instance = qnconfd_instance_get(stage->context().vcb_opaque);
  stage->fail_next("cdb_session_start");
  const QnConfdCdbSessionBase session(instance, CDB_RUNNING, true);
  EXPECT_EQ(cdb_num_instances(session.Socket(), "%s", kMembers), -1);
  EXPECT_EQ(stage->left_open(), 1U) << "the cursor alone";
}

TEST_F(FailuresTest, a_refused_time_out_answers_minus_one) {
  stage->open();
  stage->fail_next("confd_data_set_timeout");
  EXPECT_EQ(confd_data_set_timeout(&stage->context(), 120), -1);
  EXPECT_EQ(stage->timeouts(), std::vector<int>{});
}

}  // namespace
}  // namespace conformance
