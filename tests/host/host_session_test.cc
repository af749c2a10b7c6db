#include "host/seam/host_session.h"

#include <stdexcept>

#include "confd_maapi.h"
#include "tests/host/served_element.h"

namespace {

using host::SeamFunction;

TEST(HostSession, names_each_function_as_the_headers_does) {
  EXPECT_EQ(name(SeamFunction::confd_free_value), "confd_free_value");
  EXPECT_EQ(name(SeamFunction::maapi_get_objects), "maapi_get_objects");
  EXPECT_EQ(name(SeamFunction::cdb_session_start), "cdb_session_start");
  EXPECT_EQ(name(SeamFunction::valid_intfname), "valid_intfname");
  EXPECT_THROW(name(SeamFunction::count), std::out_of_range);
}

TEST(HostSession, is_active_while_it_lives_and_the_only_one) {
  const element::Profile profile;
  {
    host::HostSession session(profile);
    EXPECT_EQ(host::HostSession::active(), &session);
    EXPECT_THROW(host::HostSession{profile}, std::logic_error);
    EXPECT_EQ(host::HostSession::active(), &session);
  }
  EXPECT_EQ(host::HostSession::active(), nullptr);
}

class CountedCalls : public host_test::ServedElement {
 protected:
  int exists() { return maapi_exists(sock, thandle, "/internal"); }
};

TEST_F(CountedCalls, every_call_is_in_the_account) {
  serve();
  exists();
  exists();
  maapi_cursor mc{};
  maapi_init_cursor(sock, thandle, &mc, "/internal/int-vpws-group");
  EXPECT_EQ(session.statistics.open_cursors, 1);
  maapi_destroy_cursor(&mc);
  maapi_destroy_cursor(&mc);
  EXPECT_EQ(session.statistics.open_cursors, 0);
  const auto calls = [this](SeamFunction function) {
    return session.statistics.calls[static_cast<std::size_t>(function)];
  };
  EXPECT_EQ(calls(SeamFunction::maapi_exists), 2U);
  EXPECT_EQ(calls(SeamFunction::maapi_init_cursor), 1U);
  EXPECT_EQ(calls(SeamFunction::maapi_destroy_cursor), 2U);
  EXPECT_EQ(calls(SeamFunction::maapi_get_next), 0U);
}

TEST_F(CountedCalls, the_nth_may_fail_or_all_from_it_on) {
  serve();
  session.injected_failure = {SeamFunction::maapi_exists, 2, false};
  EXPECT_EQ(exists(), 1);
  EXPECT_EQ(exists(), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_OS);
  EXPECT_EQ(exists(), 1);
  session.injected_failure = {SeamFunction::maapi_exists, 5, true};
  EXPECT_EQ(exists(), 1);
  EXPECT_EQ(exists(), -1);
  EXPECT_EQ(exists(), -1);
  session.injected_failure = {};
  EXPECT_EQ(exists(), 1);
}

}  // namespace
