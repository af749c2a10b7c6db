#include "confd_maapi.h"
#include "qnconfd.h"
#include "tests/host/served_element.h"

namespace {

using host::SeamFunction;
using host_test::shown;

class Cdb : public host_test::ServedElement {
 protected:
  void SetUp() override {
    for (const char *entry : {"{A V 1}", "{B V 2}", "{C V 3}"}) {
      running.put("/internal/int-sub-vpls-vpn-bd" + std::string(entry) + "/int-vpls-bd-vlan", 100U);
    }
    candidate.put("/internal/int-vpws-group{G}");
    serve();
  }

  QnConfdInterface *instance() { return qnconfd_instance_get(session.middleware()); }
};

TEST_F(Cdb, reads_the_running_configuration) {
  const QnConfdCdbSessionBase cdb(instance(), CDB_RUNNING, true);
  EXPECT_EQ(cdb_num_instances(cdb.Socket(), "/internal/int-sub-vpls-vpn-bd"), 3);
  EXPECT_EQ(cdb_num_instances(cdb.Socket(), "/internal/int-vpws-group"), 0);
  EXPECT_EQ(maapi_num_instances(sock, thandle, "/internal/int-sub-vpls-vpn-bd"), 0);
}

TEST_F(Cdb, reads_exactly_the_entries_that_are_asked_for) {
  const QnConfdCdbSessionBase cdb(instance(), CDB_RUNNING, true);
  confd_value_t values[8];
  EXPECT_EQ(cdb_get_objects(cdb.Socket(), values, 4, 1, 2, "/internal/int-sub-vpls-vpn-bd"), CONFD_OK);
  EXPECT_EQ(shown(values[0]), "C_BUF B");
  EXPECT_EQ(shown(values[4]), "C_BUF C");
  EXPECT_EQ(shown(values[7]), "C_UINT32 100");
  for (confd_value_t &value : values) confd_free_value(&value);
}

TEST_F(Cdb, asking_past_the_end_or_for_nonsense_fills_nothing) {
  const QnConfdCdbSessionBase cdb(instance(), CDB_RUNNING, true);
  confd_value_t values[8]{};
  struct Row {
    int n, first, count, reason;
  };
  for (const Row &row :
       {Row{4, 2, 2, CONFD_ERR_NOEXISTS}, Row{4, 3, 1, CONFD_ERR_NOEXISTS}, Row{4, 0, 4, CONFD_ERR_NOEXISTS},
        Row{4, -1, 1, CONFD_ERR_BADTYPE}, Row{4, 0, -1, CONFD_ERR_BADTYPE}, Row{-1, 0, 1, CONFD_ERR_BADTYPE}}) {
    confd_errno = 0;
    EXPECT_EQ(cdb_get_objects(cdb.Socket(), values, row.n, row.first, row.count, "/internal/int-sub-vpls-vpn-bd"), -1);
    EXPECT_EQ(confd_errno, row.reason) << row.n << ' ' << row.first << ' ' << row.count;
    EXPECT_EQ(values[0].type, 0);
  }
  EXPECT_EQ(cdb_get_objects(cdb.Socket(), values, 4, 3, 0, "/internal/int-sub-vpls-vpn-bd"), CONFD_OK);
}

TEST_F(Cdb, only_a_list_as_a_whole_is_read) {
  const QnConfdCdbSessionBase cdb(instance(), CDB_RUNNING, true);
  for (const char *path : {"/internal", "/internal/int-sub-vpls-vpn-bd{A V 1}", "/nowhere"}) {
    confd_errno = 0;
    EXPECT_EQ(cdb_num_instances(cdb.Socket(), "%s", path), -1) << path;
    EXPECT_EQ(confd_errno, CONFD_ERR_BADPATH) << path;
  }
}

TEST_F(Cdb, a_socket_is_known_while_its_session_lasts) {
  int socket = 0;
  {
    const QnConfdCdbSessionBase cdb(instance(), CDB_RUNNING, true);
    socket = cdb.Socket();
    const QnConfdCdbSessionBase other(instance(), CDB_RUNNING, true);
    EXPECT_NE(other.Socket(), socket);
    EXPECT_EQ(session.statistics.open_sessions, 2);
  }
  const QnConfdCdbSessionBase later(instance(), CDB_RUNNING, true);
  EXPECT_NE(later.Socket(), socket);
  EXPECT_EQ(cdb_num_instances(socket, "/internal/int-sub-vpls-vpn-bd"), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_NOSESSION);
  EXPECT_EQ(maapi_exists(later.Socket(), thandle, "/internal"), -1) << "a CDB socket leads to no transaction";
}

TEST_F(Cdb, a_session_that_cannot_start_reads_nothing) {
  fail_next(SeamFunction::cdb_session_start);
  const QnConfdCdbSessionBase failed(instance(), CDB_RUNNING, true);
  const QnConfdCdbSessionBase without_instance(nullptr, CDB_RUNNING, true);
  const QnConfdCdbSessionBase of_another_database(instance(), CDB_STARTUP, true);
  for (const auto *cdb : {&failed, &without_instance, &of_another_database}) {
    EXPECT_EQ(cdb_num_instances(cdb->Socket(), "/internal/int-sub-vpls-vpn-bd"), -1);
    EXPECT_EQ(confd_errno, CONFD_ERR_NOSESSION);
  }
  EXPECT_EQ(session.statistics.open_sessions, 0);
}

TEST_F(Cdb, without_a_transaction_there_is_nothing_to_read) {
  const QnConfdCdbSessionBase cdb(instance(), CDB_RUNNING, true);
  session.serve(nullptr);
  EXPECT_EQ(cdb_num_instances(cdb.Socket(), "/internal/int-sub-vpls-vpn-bd"), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_NOSESSION);
}

TEST_F(Cdb, a_failed_call_fills_nothing) {
  const QnConfdCdbSessionBase cdb(instance(), CDB_RUNNING, true);
  confd_value_t value{};
  fail_next(SeamFunction::cdb_get_objects);
  EXPECT_EQ(cdb_get_objects(cdb.Socket(), &value, 1, 0, 1, "/internal/int-sub-vpls-vpn-bd"), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_OS);
  EXPECT_EQ(value.type, 0);
  fail_next(SeamFunction::cdb_num_instances);
  EXPECT_EQ(cdb_num_instances(cdb.Socket(), "/internal/int-sub-vpls-vpn-bd"), -1);
}

}  // namespace
