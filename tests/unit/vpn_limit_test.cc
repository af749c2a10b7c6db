#include <gtest/gtest.h>

#include "config_validate_vpn/drivers/vpn_num_instances.h"
#include "config_validate_vpn/handlers.h"
#include "config_validate_vpn/shared/platform_limits.h"
#include "tests/support/printers.h"
#include "tests/support/rule_message.h"

namespace {

using scripted::u32;
using scripted::Values;
using Calls = std::vector<std::string>;

constexpr const char *kVplsTable = "/KZ-VPLS-MIB:KZ-VPLS-MIB/vplsConfigTable/vplsConfigEntry";
constexpr const char *kVpwsTable = "/KZ-VPWS-MIB:KZ-VPWS-MIB/vpwsConfigTable/vpwsConfigEntry";

class VpnOverflowTest : public scripted::PlatformTest {
 protected:
  ~VpnOverflowTest() override { platform_limits = {}; }

  void configure(std::uint32_t vpls, std::uint32_t vpws) {
    platform.list(kVplsTable, 1, ids(vpls));
    platform.list(kVpwsTable, 1, ids(vpws));
  }

  std::int32_t verdict() {
    return config_validate_vpn_overflow(platform.socket(), &platform.context(), nullptr, nullptr);
  }

 private:
  static std::vector<Values> ids(std::uint32_t count) {
    std::vector<Values> rows;
    for (std::uint32_t id = 1; id <= count; ++id) rows.push_back({u32(id)});
    return rows;
  }
};

struct OverflowCase {
  const char *name;
  std::uint32_t limit;
  std::uint32_t vpls;
  std::uint32_t vpws;
  const char *message;  ///< empty: accepted
};

const std::vector<OverflowCase> overflow_cases{
    {"at the limit", 128, 100, 28, ""},
    {"one above", 128, 100, 29, "Maximum number of VPNs has been exceeded. Attempt to configure 129 of 128 allowed"},
    {"VPLS alone at the limit", 3, 3, 0, ""},
    {"VPLS alone above", 3, 4, 0, "Maximum number of VPNs has been exceeded. Attempt to configure 4 of 3 allowed"},
    {"VPWS alone above", 3, 0, 4, "Maximum number of VPNs has been exceeded. Attempt to configure 4 of 3 allowed"},
    {"none with none allowed", 0, 0, 0, ""},
    {"one with none allowed", 0, 0, 1, "Maximum number of VPNs has been exceeded. Attempt to configure 1 of 0 allowed"},
    {"largest signed limit", 0x7FFFFFFF, 1, 1, ""},
    {"a limit beyond it is negative", 0x80000000, 0, 0,
     "Maximum number of VPNs has been exceeded. Attempt to configure 0 of -2147483648 allowed"},
    {"limit never read, no VPN", kLimitNotRead, 0, 0,
     "Maximum number of VPNs has been exceeded. Attempt to configure 0 of -1 allowed"},
    {"limit never read, one VPN", kLimitNotRead, 1, 0,
     "Maximum number of VPNs has been exceeded. Attempt to configure 1 of -1 allowed"},
};

TEST_F(VpnOverflowTest, compares_the_sum_of_both_families_with_the_limit) {
  for (const OverflowCase &row : overflow_cases) {
    SCOPED_TRACE(row.name);
    configure(row.vpls, row.vpws);
    platform_limits.vpn_max = row.limit;
    const std::size_t messages_before = platform.errors().size();

    const bool is_rejected = *row.message != '\0';
    EXPECT_EQ(verdict(), is_rejected ? -1 : 0);
    EXPECT_EQ(platform.errors().size(), messages_before + (is_rejected ? 1 : 0));
    if (is_rejected) {
      EXPECT_EQ(platform.error(), row.message);
    }
  }
}

TEST_F(VpnOverflowTest, counts_vpls_then_vpws_and_nothing_else) {
  configure(1, 1);
  platform_limits.vpn_max = 2;
  EXPECT_EQ(verdict(), 0);
  EXPECT_EQ(platform.calls(), (Calls{std::string("maapi_num_instances ") + kVplsTable,
                                     std::string("maapi_num_instances ") + kVpwsTable}));
}

TEST_F(VpnOverflowTest, a_failed_count_is_added_as_minus_one) {
  configure(5, 3);
  platform_limits.vpn_max = 2;
  platform.fail("maapi_num_instances", 1);
  EXPECT_EQ(verdict(), 0) << "-1 + 3 is not above 2";

  platform.forget_calls();
  platform.fail("maapi_num_instances", 2);
  EXPECT_EQ(verdict(), -1) << "5 + -1 is above 2";
  EXPECT_EQ(platform.error(), message_of("vpn-limit", {"4", "2"}));
}

TEST_F(VpnOverflowTest, one_failed_count_is_not_above_an_unread_limit_and_none_is) {
  configure(0, 0);
  platform.fail("maapi_num_instances", 1);
  EXPECT_EQ(verdict(), 0) << "-1 + 0 is not above -1";

  platform.forget_calls();
  platform.fail_from("maapi_num_instances", 1);
  EXPECT_EQ(verdict(), 0) << "-2 is not above -1";
  EXPECT_EQ(platform.errors(), std::vector<std::string>{});
}

TEST_F(VpnOverflowTest, counts_one_family_by_its_table) {
  configure(7, 4);
  EXPECT_EQ(get_vpn_num_instances(platform.socket(), &platform.context(), vpn_app::Vpls), 7);
  EXPECT_EQ(get_vpn_num_instances(platform.socket(), &platform.context(), vpn_app::Vpws), 4);

  platform.fail_from("maapi_num_instances", 1);
  EXPECT_EQ(get_vpn_num_instances(platform.socket(), &platform.context(), vpn_app::Vpls), -1);
}

TEST_F(VpnOverflowTest, a_type_that_is_no_family_counts_nothing_and_reads_nothing) {
  configure(7, 4);
  for (const int type : {0, 3}) {
    EXPECT_EQ(get_vpn_num_instances(platform.socket(), &platform.context(), static_cast<vpn_app::VpnType>(type)), 0);
  }
  EXPECT_EQ(platform.calls(), Calls{});
}

}  // namespace
