#include <gtest/gtest.h>

#include <stdexcept>

#include "config_validate_comn/daemon/guards.h"
#include "tests/support/printers.h"

namespace {

using scripted::text;
using scripted::u32;
using Texts = std::vector<std::string>;

constexpr const char *kList = "/internal/int-vpws-group{north}/int-vpws";
using batch_t = scoped_batch<2, 1>;

class ScopedBatchTest : public scripted::PlatformTest {
 protected:
  void configure(std::uint32_t entries) {
    for (std::uint32_t id = 1; id <= entries; ++id) {
      const scripted::Values values{text("vpn" + std::to_string(1000 + id)), u32(id)};
      platform.entry(kList, values, 2);
    }
    maapi_init_cursor(platform.socket(), platform.thandle(), &mc, kList);
  }

  void TearDown() override {
    maapi_destroy_cursor(&mc);
    PlatformTest::TearDown();
  }

  maapi_cursor mc{};
};

TEST_F(ScopedBatchTest, holds_no_entry_and_no_type_before_a_read) {
  const batch_t batch({0});
  EXPECT_EQ(batch.count(), 0);
  for (int i = 0; i < kBatchEntries; ++i) {
    EXPECT_EQ(batch.entry(i)[0].type, C_NOEXISTS);
    EXPECT_EQ(batch.entry(i)[1].type, C_NOEXISTS);
  }
}

TEST_F(ScopedBatchTest, frees_the_owned_value_of_every_entry_read) {
  configure(3);
  {
    batch_t batch({0});
    EXPECT_TRUE(batch.fetch(mc));
    EXPECT_EQ(batch.count(), 3);
    EXPECT_EQ(batch.entry(2)[1].val.u32, 3U);
    EXPECT_EQ(platform.count("confd_free_value"), 0U);
  }
  EXPECT_EQ(platform.count("confd_free_value"), 3U);
}

TEST_F(ScopedBatchTest, frees_what_is_left_when_entries_were_freed_before) {
  configure(3);
  {
    batch_t batch({0});
    EXPECT_TRUE(batch.fetch(mc));
    batch.free_next();
    batch.free_next();
    EXPECT_EQ(platform.count("confd_free_value"), 2U);
    EXPECT_EQ(platform.leaks(), (Texts{"cursor on /internal/int-vpws-group{north}/int-vpws", "value vpn1003"}));
  }
  EXPECT_EQ(platform.count("confd_free_value"), 3U);
}

TEST_F(ScopedBatchTest, frees_when_an_exception_passes) {
  configure(2);
  try {
    batch_t batch({0});
    EXPECT_TRUE(batch.fetch(mc));
    throw std::runtime_error("passes");
  } catch (const std::runtime_error &) {
    EXPECT_EQ(platform.count("confd_free_value"), 2U);
  }
}

TEST_F(ScopedBatchTest, holds_nothing_to_free_after_a_failed_read) {
  configure(2);
  platform.fail("maapi_get_objects", 1);
  {
    batch_t batch({0});
    EXPECT_FALSE(batch.fetch(mc));
    EXPECT_EQ(batch.count(), 0);
  }
  EXPECT_EQ(platform.count("confd_free_value"), 0U);
}

}  // namespace
