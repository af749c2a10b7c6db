#include "confd_dp.h"
#include "qnconfd.h"
#include "qnmw_trace.h"
#include "tests/host/served_element.h"

namespace {

using host::SeamFunction;

class Middleware : public host_test::ServedElement {};

TEST_F(Middleware, an_instance_leads_to_the_transactions_socket) {
  EXPECT_EQ(qnconfd_maapi_socket_get(session.middleware()), sock);
  EXPECT_NE(qnconfd_instance_get(session.middleware()), nullptr);
  int other = 0;
  EXPECT_EQ(qnconfd_maapi_socket_get(&other), -1);
  EXPECT_EQ(qnconfd_maapi_socket_get(nullptr), -1);
  EXPECT_EQ(qnconfd_instance_get(&other), nullptr);
}

TEST_F(Middleware, its_calls_may_fail) {
  fail_next(SeamFunction::qnconfd_maapi_socket_get);
  EXPECT_EQ(qnconfd_maapi_socket_get(session.middleware()), -1);
  fail_next(SeamFunction::qnconfd_instance_get);
  EXPECT_EQ(qnconfd_instance_get(session.middleware()), nullptr);
}

class Errors : public host_test::ServedElement {};

TEST_F(Errors, a_text_stays_until_another_transaction_is_served) {
  serve();
  confd_trans_ctx first{};
  confd_trans_ctx second{};
  confd_trans_seterr(&first, "%s is %d", "first", 1);
  for (int i = 0; i < 100; ++i) confd_trans_seterr(&second, "second %d", i);
  EXPECT_STREQ(first.error.str, "first is 1");
  EXPECT_STREQ(second.error.str, "second 99");
  confd_trans_seterr(&first, "%s", "");
  EXPECT_STREQ(first.error.str, "");
}

TEST_F(Errors, time_outs_are_kept) {
  confd_trans_ctx context{};
  EXPECT_EQ(confd_data_set_timeout(&context, 120), CONFD_OK);
  fail_next(SeamFunction::confd_data_set_timeout);
  EXPECT_EQ(confd_data_set_timeout(&context, 60), -1);
  EXPECT_EQ(session.statistics.timeouts, std::vector<int>{120});
}

class Trace : public host_test::ServedElement {
 protected:
  static void write(zlog_category_t *category, const char *text) {
    zlog(category, "file.cc", 7, "function", 8, 1, 12, "\n%s", text);
  }
};

TEST_F(Trace, goes_to_its_category_in_order) {
  zlog_category_t *category = qnmw_trace_register_category("one");
  zlog_category_t *other = qnmw_trace_register_category("two");
  EXPECT_NE(category, other);
  EXPECT_EQ(qnmw_trace_register_category("one"), category);
  write(category, "first");
  write(other, "second");
  EXPECT_EQ(session.statistics.trace, (std::vector<std::string>{"one: \nfirst", "two: \nsecond"}));
}

TEST_F(Trace, without_a_category_goes_nowhere) {
  fail_next(SeamFunction::qnmw_trace_register_category);
  zlog_category_t *none = qnmw_trace_register_category("one");
  EXPECT_EQ(none, nullptr);
  write(none, "lost");
  EXPECT_EQ(session.statistics.trace, std::vector<std::string>{});
  EXPECT_EQ(session.statistics.calls[static_cast<std::size_t>(SeamFunction::zlog)], 1U);
}

TEST(PlatformWithoutElement, answers_that_there_is_none) {
  confd_trans_ctx context{};
  confd_trans_seterr(&context, "%s", "nobody hears");
  EXPECT_EQ(context.error.str, nullptr);
  EXPECT_EQ(confd_data_set_timeout(&context, 120), -1);
  EXPECT_EQ(qnconfd_maapi_socket_get(&context), -1);
  EXPECT_EQ(qnconfd_instance_get(&context), nullptr);
  EXPECT_EQ(qnmw_trace_register_category("one"), nullptr);
  const QnConfdCdbSessionBase cdb(nullptr, CDB_RUNNING, true);
  EXPECT_EQ(cdb.Socket(), -1);
}

}  // namespace
