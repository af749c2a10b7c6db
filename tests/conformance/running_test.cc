#include "confd_cdb.h"
#include "qnconfd.h"
#include "tests/conformance/conformance_test.h"

namespace conformance {
namespace {

class RunningTest : public ConformanceTest {
 protected:
  /// Groups 0, 1, 2, ... in the running configuration; one more in the candidate.
  void put_groups(unsigned count) {
    for (unsigned i = 0; i < count; ++i)
      stage->put_in_running(kTunnels, keys(i), {{"role", u32(0)}, {"vpn", text("east")}});
    for (unsigned i = 0; i <= count; ++i)
      stage->put_in_candidate(kTunnels, keys(i), {{"role", u32(0)}, {"vpn", text("east")}});
    stage->open();
  }

  static Values keys(unsigned i) { return {text("north"), u32(1), u32(7), u32(i)}; }

  QnConfdInterface *instance() { return qnconfd_instance_get(stage->context().vcb_opaque); }
};

TEST_F(RunningTest, a_session_reads_the_running_configuration) {
  put_groups(2);
  EXPECT_EQ(maapi_num_instances(sock(), handle(), "%s", kTunnels), 3);
  const QnConfdCdbSessionBase session(instance(), CDB_RUNNING, true);
  EXPECT_GE(session.Socket(), 0);
  EXPECT_EQ(cdb_num_instances(session.Socket(), "%s", kTunnels), 2);
  EXPECT_EQ(cdb_num_instances(session.Socket(), "/internal/int-vpws-group{%s}/int-vpws", "south"), 0);
}

TEST_F(RunningTest, a_session_is_open_as_long_as_it_lives) {
  put_groups(1);
  int socket = -1;
  {
    const QnConfdCdbSessionBase session(instance(), CDB_RUNNING, true);
    socket = session.Socket();
    EXPECT_EQ(stage->left_open(), 1U);
  }
  EXPECT_EQ(stage->left_open(), 0U);
  EXPECT_EQ(cdb_num_instances(socket, "%s", kTunnels), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_NOSESSION);
}

TEST_F(RunningTest, objects_are_read_from_an_index_on_in_list_order) {
  put_groups(5);
  const QnConfdCdbSessionBase session(instance(), CDB_RUNNING, true);
  ReadValues values(12);
  EXPECT_EQ(cdb_get_objects(session.Socket(), values.data(), 6, 2, 2, "%s", kTunnels), CONFD_OK);
  EXPECT_EQ(values.filled(), (Values{text("north"), u32(1), u32(7), u32(2), u32(0), text("east"), text("north"), u32(1),
                                     u32(7), u32(3), u32(0), text("east")}));
  EXPECT_EQ(stage->left_open(), 5U) << "the session and four texts";
}

TEST_F(RunningTest, the_last_objects_are_read_whole) {
  put_groups(5);
  const QnConfdCdbSessionBase session(instance(), CDB_RUNNING, true);
  ReadValues values(6);
  EXPECT_EQ(cdb_get_objects(session.Socket(), values.data(), 6, 4, 1, "%s", kTunnels), CONFD_OK);
  EXPECT_EQ(values.at(3), u32(4));
}

TEST_F(RunningTest, asking_past_the_end_is_an_error_and_fills_nothing) {
  put_groups(5);
  const QnConfdCdbSessionBase session(instance(), CDB_RUNNING, true);
  ReadValues values(12);
  EXPECT_EQ(cdb_get_objects(session.Socket(), values.data(), 6, 4, 2, "%s", kTunnels), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_NOEXISTS);
  EXPECT_EQ(values.filled(), Values{});
  EXPECT_EQ(cdb_get_objects(session.Socket(), values.data(), 6, 5, 1, "%s", kTunnels), -1);
  EXPECT_EQ(values.filled(), Values{});
}

}  // namespace
}  // namespace conformance
