#include <gtest/gtest.h>

#include "config_validate_vpn/drivers/vpn_peer.h"
#include "tests/support/printers.h"
#include "tests/support/pseudowires.h"

namespace {

using scripted::u32;
using scripted::Values;
using Calls = std::vector<std::string>;

class PwOverflowTest : public scripted::PlatformTest {
 protected:
  void configure(std::uint32_t pseudowires) {
    std::vector<Values> rows;
    for (std::uint32_t id = 1; id <= pseudowires; ++id) rows.push_back({u32(id)});
    platform.list(scripted::kPseudowireTable, 1, rows);
  }

  std::int32_t verdict() { return config_validate_pw_overflow(platform.socket(), &platform.context()); }
};

TEST_F(PwOverflowTest, accepts_up_to_1024_pseudowires) {
  for (const std::uint32_t pseudowires : {0U, 1U, 1023U, 1024U}) {
    SCOPED_TRACE(pseudowires);
    configure(pseudowires);
    EXPECT_EQ(verdict(), 0);
  }
  EXPECT_EQ(platform.errors(), std::vector<std::string>{});
}

TEST_F(PwOverflowTest, rejects_the_1025th) {
  configure(1025);
  EXPECT_EQ(verdict(), -1);
  EXPECT_EQ(platform.error(),
            "Maximum number of neighbors has been exceeded. Attempt to configure 1025 of 1024 allowed");
}

TEST_F(PwOverflowTest, accepts_when_the_count_fails) {
  configure(1025);
  platform.fail("maapi_num_instances", 1);
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.errors(), std::vector<std::string>{});
}

TEST_F(PwOverflowTest, counts_the_pseudowire_table_once_and_reads_nothing_else) {
  configure(3);
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.calls(), Calls{std::string("maapi_num_instances ") + scripted::kPseudowireTable});
}

}  // namespace
