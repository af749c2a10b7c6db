#include "config_validate_vpls/qnconfd_cdb_session.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "tests/support/printers.h"

namespace {

using Calls = std::vector<std::string>;

class QnConfdCdbSessionTest : public scripted::PlatformTest {
 protected:
  QnConfdInterface *instance() { return qnconfd_instance_get(platform.middleware()); }
};

TEST_F(QnConfdCdbSessionTest, lasts_as_long_as_the_object) {
  {
    const QnConfdCdbSession session(instance(), CDB_RUNNING);
    EXPECT_EQ(platform.leaks().size(), 1U) << "a session is open";
    EXPECT_EQ(cdb_num_instances(session.Socket(), "/internal/int-vpws-tunnel-idx"), 0) << "and can be read through";
  }
  EXPECT_EQ(platform.calls(), (Calls{"qnconfd_instance_get", "cdb_session_start 1 true",
                                     "cdb_num_instances /internal/int-vpws-tunnel-idx", "cdb_session_end"}));
}

TEST_F(QnConfdCdbSessionTest, ends_when_an_exception_passes) {
  try {
    const QnConfdCdbSession session(instance(), CDB_RUNNING);
    throw std::runtime_error("passes");
  } catch (const std::runtime_error &) {
    EXPECT_EQ(platform.count("cdb_session_end"), 1U);
  }
}

TEST_F(QnConfdCdbSessionTest, ends_when_destroyed_through_its_base) {
  const std::unique_ptr<QnConfdCdbSessionBase> session = std::make_unique<QnConfdCdbSession>(instance(), CDB_RUNNING);
  EXPECT_NE(dynamic_cast<QnConfdCdbSession *>(session.get()), nullptr);
}

}  // namespace
