#include "config_validate_vpn/entry_points.h"

#include <gtest/gtest.h>

#include <cstring>

#include "config_validate_vpn/shared/platform_limits.h"
#include "tests/support/printers.h"

namespace {

using Calls = std::vector<std::string>;

struct NameCase {
  std::int32_t length;
  const char *written;  ///< up to the terminating zero; null: nothing is written
};

const std::vector<NameCase> name_cases{
    {64, "vpn_app_validation"},
    {19, "vpn_app_validation"},
    {18, "vpn_app_validatio"},
    {8, "vpn_app"},
    {1, ""},
    {0, nullptr},
    {-1, nullptr},
    {INT32_MIN, nullptr},
};

TEST(ValidationPointNameTest, is_cut_to_the_buffer) {
  for (const NameCase &row : name_cases) {
    SCOPED_TRACE(row.length);
    const std::string untouched(64, '#');
    std::string buffer = untouched;
    EXPECT_EQ(get_validation_point(buffer.data(), row.length), 0);

    std::string expected = untouched;
    if (row.written != nullptr) std::strcpy(expected.data(), row.written);
    EXPECT_EQ(buffer, expected) << "nothing behind the terminating zero is touched";
  }
}

class LibInitTest : public scripted::PlatformTest {
 protected:
  LibInitTest() { platform_limits = {}; }
  ~LibInitTest() override { platform_limits = {}; }

  const Calls reads_vpn_limit{"fm_init", "fm_local_slot", "fm_scalar_card_hal_vpn_vpn_max_limit"};
  const Calls reads_access_limit{"fm_init", "fm_local_slot", "fm_scalar_card_vpn_mgr_access_ports"};
  void *state = nullptr;
};

Calls operator+(Calls first, const Calls &second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST_F(LibInitTest, reads_both_limits_the_vpn_limit_first) {
  platform.limits.vpn_max = 128;
  platform.limits.access_ports = 64;
  EXPECT_EQ(lib_init(&state), 0);
  EXPECT_EQ(platform_limits.vpn_max, 128U);
  EXPECT_EQ(platform_limits.vpls_max_ac_itf, 64U);
  EXPECT_EQ(platform.calls(), reads_vpn_limit + reads_access_limit);
}

TEST_F(LibInitTest, zeroes_the_hosts_word) {
  int something = 0;
  state = &something;
  EXPECT_EQ(lib_init(&state), 0);
  EXPECT_EQ(state, nullptr);
  EXPECT_EQ(lib_finish(&state), 0);
}

TEST_F(LibInitTest, reads_a_limit_only_once) {
  platform.limits = {128, 64, {}, {}};
  lib_init(&state);
  platform.forget_calls();

  platform.limits = {256, 32, {}, {}};
  EXPECT_EQ(lib_init(&state), 0);
  EXPECT_EQ(platform.calls(), Calls{});
  EXPECT_EQ(platform_limits.vpn_max, 128U);
  EXPECT_EQ(platform_limits.vpls_max_ac_itf, 64U);
}

TEST_F(LibInitTest, reads_a_zero_limit_only_once) {
  platform.limits = {0, 0, {}, {}};
  lib_init(&state);
  platform.forget_calls();
  lib_init(&state);
  EXPECT_EQ(platform.calls(), Calls{});
  EXPECT_EQ(platform_limits.vpn_max, 0U);
}

TEST_F(LibInitTest, reads_a_limit_anew_that_was_not_read) {
  platform.limits = {{}, 64, {}, {}};
  EXPECT_EQ(lib_init(&state), 0);
  EXPECT_EQ(platform_limits.vpn_max, kLimitNotRead);
  EXPECT_EQ(platform_limits.vpls_max_ac_itf, 64U);
  platform.forget_calls();

  platform.limits.vpn_max = 128;
  EXPECT_EQ(lib_init(&state), 0);
  EXPECT_EQ(platform.calls(), reads_vpn_limit);
  EXPECT_EQ(platform_limits.vpn_max, 128U);
}

TEST_F(LibInitTest, looks_at_no_status) {
  platform.limits = {128, 64, {}, {}};
  platform.fail("fm_init", 1);
  platform.fail("fm_local_slot", 2);
  EXPECT_EQ(lib_init(&state), 0);
  EXPECT_EQ(platform.calls(), reads_vpn_limit + reads_access_limit);
  EXPECT_EQ(platform_limits.vpn_max, 128U) << "a failed fm_init does not stop the read";
  EXPECT_EQ(platform_limits.vpls_max_ac_itf, kLimitNotRead) << "the card answers for its own slot only";
}

TEST(LibFinishTest, tells_whether_the_host_altered_the_word) {
  int something = 0;
  void *state = nullptr;
  EXPECT_EQ(lib_finish(&state), 0);
  state = &something;
  EXPECT_EQ(lib_finish(&state), -1);
  EXPECT_EQ(state, &something);
}

class ValidateTest : public scripted::PlatformTest {
 protected:
  ValidateTest() { platform_limits.vpn_max = 0; }
  ~ValidateTest() override { platform_limits = {}; }

  /// One VPN more than allowed, so that a call that reaches the count rule is rejected.
  std::int32_t verdict_at(const char *point) {
    platform.list("/KZ-VPLS-MIB:KZ-VPLS-MIB/vplsConfigTable/vplsConfigEntry", 1, {{scripted::u32(1)}});
    platform.set_point(point);
    platform.context().v_opaque = &private_data;
    return validate(&platform.context(), nullptr, nullptr);
  }

  int private_data = 0;
};

TEST_F(ValidateTest, calls_the_points_handler_with_the_socket_of_the_middleware) {
  EXPECT_EQ(verdict_at("vpn_overflow_valp"), -1);
  EXPECT_EQ(platform.error(), "Maximum number of VPNs has been exceeded. Attempt to configure 1 of 0 allowed");
  EXPECT_EQ(platform.context().v_opaque, nullptr);
  ASSERT_FALSE(platform.calls().empty());
  EXPECT_EQ(platform.calls().front(), "qnconfd_maapi_socket_get");
}

TEST_F(ValidateTest, a_name_that_only_begins_with_a_points_name_reaches_it) {
  EXPECT_EQ(verdict_at("vpn_overflow_valp2"), -1);
}

TEST_F(ValidateTest, accepts_an_unknown_point_without_a_word) {
  for (const char *point : {"", "vpn_overflow_val", "no_such_valp"}) {
    SCOPED_TRACE(point);
    platform.forget_calls();
    EXPECT_EQ(verdict_at(point), 0);
    EXPECT_EQ(platform.errors(), Calls{});
    EXPECT_EQ(platform.context().v_opaque, &private_data);
    EXPECT_EQ(platform.calls(), Calls{"qnconfd_maapi_socket_get"}) << "asked for before the name is looked up";
  }
}

TEST_F(ValidateTest, hands_a_failed_socket_to_the_handler_as_it_is) {
  platform.fail("qnconfd_maapi_socket_get", 1);
  EXPECT_EQ(verdict_at("vpn_overflow_valp"), 0) << "-1 and -1 VPNs are not more than 0";
  EXPECT_EQ(platform.count("maapi_num_instances"), 2U);
}

}  // namespace
