#include "host/seam/seam.h"

#include <stdexcept>

#include "confd_maapi.h"
#include "tests/host/served_element.h"

namespace {

using host::SeamFunction;

TEST(Seam, NamesEachFunctionAsTheHeadersDoes) {
  EXPECT_EQ(name(SeamFunction::confd_free_value), "confd_free_value");
  EXPECT_EQ(name(SeamFunction::maapi_get_objects), "maapi_get_objects");
  EXPECT_EQ(name(SeamFunction::cdb_session_start), "cdb_session_start");
  EXPECT_EQ(name(SeamFunction::valid_intfname), "valid_intfname");
  EXPECT_THROW(name(SeamFunction::count), std::out_of_range);
}

TEST(Seam, IsActiveWhileItLivesAndTheOnlyOne) {
  const element::Profile profile;
  {
    host::Seam seam(profile);
    EXPECT_EQ(host::Seam::active(), &seam);
    EXPECT_THROW(host::Seam{profile}, std::logic_error);
    EXPECT_EQ(host::Seam::active(), &seam);
  }
  EXPECT_EQ(host::Seam::active(), nullptr);
}

class CountedCalls : public host_test::ServedElement {
 protected:
  int exists() { return maapi_exists(sock, thandle, "/internal"); }
};

TEST_F(CountedCalls, EveryCallIsInTheAccount) {
  serve();
  exists();
  exists();
  maapi_cursor mc{};
  maapi_init_cursor(sock, thandle, &mc, "/internal/int-vpws-group");
  EXPECT_EQ(seam.account.open_cursors, 1);
  maapi_destroy_cursor(&mc);
  maapi_destroy_cursor(&mc);
  EXPECT_EQ(seam.account.open_cursors, 0);
  const auto calls = [this](SeamFunction function) { return seam.account.calls[static_cast<std::size_t>(function)]; };
  EXPECT_EQ(calls(SeamFunction::maapi_exists), 2U);
  EXPECT_EQ(calls(SeamFunction::maapi_init_cursor), 1U);
  EXPECT_EQ(calls(SeamFunction::maapi_destroy_cursor), 2U);
  EXPECT_EQ(calls(SeamFunction::maapi_get_next), 0U);
}

TEST_F(CountedCalls, TheNthMayFailOrAllFromItOn) {
  serve();
  seam.fault = {SeamFunction::maapi_exists, 2, false};
  EXPECT_EQ(exists(), 1);
  EXPECT_EQ(exists(), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_OS);
  EXPECT_EQ(exists(), 1);
  seam.fault = {SeamFunction::maapi_exists, 5, true};
  EXPECT_EQ(exists(), 1);
  EXPECT_EQ(exists(), -1);
  EXPECT_EQ(exists(), -1);
  seam.fault = {};
  EXPECT_EQ(exists(), 1);
}

}  // namespace
