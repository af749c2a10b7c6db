#include "config_validate_comn/daemon/interface_identifiers.h"

#include "tests/support/printers.h"

namespace {

using InterfaceIdentifiersTest = scripted::PlatformTest;

TEST_F(InterfaceIdentifiersTest, go_from_name_to_ifindex_and_back) {
  platform.interface("eth-1", 0xFFFFFFFF, -5);

  EXPECT_EQ(get_limid_by_intf_name("eth-1"), 0xFFFFFFFF);
  EXPECT_EQ(get_ifindex_by_limid(0xFFFFFFFF), -5);
  EXPECT_EQ(get_limid_by_ifindex(-5), 0xFFFFFFFF);
  EXPECT_EQ(get_intf_name_by_limid(0xFFFFFFFF), "eth-1");
  EXPECT_EQ(platform.calls(), (std::vector<std::string>{"limid_from_intfname eth-1", "limid_to_ifindex 4294967295",
                                                        "limid_from_ifindex -5", "limid_to_intfname 4294967295"}));
}

TEST_F(InterfaceIdentifiersTest, an_unknown_identifier_yields_nothing) {
  EXPECT_EQ(get_limid_by_intf_name("eth-9"), 0U);
  EXPECT_EQ(get_ifindex_by_limid(9), 0);
  EXPECT_EQ(get_limid_by_ifindex(9), 0U);
  EXPECT_EQ(get_intf_name_by_limid(9), "");
}

TEST_F(InterfaceIdentifiersTest, a_name_has_at_most_63_characters) {
  platform.interface(std::string(63, 'a'), 1, 1);
  platform.interface(std::string(64, 'b'), 2, 2);

  EXPECT_EQ(get_intf_name_by_limid(1), std::string(63, 'a'));
  EXPECT_EQ(get_intf_name_by_limid(2), std::string(63, 'b'));
}

}  // namespace
