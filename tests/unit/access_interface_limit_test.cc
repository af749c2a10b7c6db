#include "config_validate_vpls/config_validate_vpls.h"
#include "tests/unit/access_test.h"

namespace {

constexpr const char *kAccessList = "/internal/int-vpls-group{north}/int-vpls-vpn{red 1}/int-vpls-bd/int-vpls-ac";

class VplsMaxAccessInterfacesTest : public AccessTest {
 protected:
  bool is_exceeded(std::int32_t maximum) {
    return config_validate_vpls_max_access_interfaces(sock(), tctx(), "north", "red", 1, maximum);
  }
  void configure(int count) {
    platform.list(kAccessList, 1);
    for (int i = 1; i <= count; ++i) platform.entry(kAccessList, {scripted::text("eth-" + std::to_string(i))});
  }
};

TEST_F(VplsMaxAccessInterfacesTest, as_many_as_the_maximum_pass) {
  configure(2);
  EXPECT_FALSE(is_exceeded(2));
  EXPECT_EQ(platform.calls(), Calls{std::string("maapi_num_instances ") + kAccessList});
}

TEST_F(VplsMaxAccessInterfacesTest, one_more_exceeds_it) {
  configure(3);
  EXPECT_TRUE(is_exceeded(2));
  EXPECT_EQ(platform.errors(),
            std::vector<std::string>{
                "Maximum number of access-interfaces has been exceeded. Attempt to configure 3 of 2 allowed"});
}

TEST_F(VplsMaxAccessInterfacesTest, a_maximum_that_was_never_read_is_exceeded_by_none) {
  configure(0);
  EXPECT_TRUE(is_exceeded(-1));
  EXPECT_EQ(platform.error(),
            "Maximum number of access-interfaces has been exceeded. Attempt to configure 0 of -1 allowed");
}

TEST_F(VplsMaxAccessInterfacesTest, a_failed_count_is_taken_as_the_number_it_is) {
  configure(3);
  fail_only("maapi_num_instances", 1);
  EXPECT_FALSE(is_exceeded(-1));
}

TEST_F(VplsMaxAccessInterfacesTest, an_id_beyond_the_signed_numbers_is_written_as_a_negative_one) {
  config_validate_vpls_max_access_interfaces(sock(), tctx(), "north", "red", 0xFFFFFFFF, 1);
  EXPECT_EQ(platform.calls(),
            Calls{"maapi_num_instances /internal/int-vpls-group{north}/int-vpls-vpn{red -1}/int-vpls-bd/int-vpls-ac"});
}

}  // namespace
