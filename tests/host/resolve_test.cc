#include "host/seam/resolve.h"

#include "tests/host/served_element.h"

namespace {

using host_test::schema;

int reason(const char *format, ...) {
  host::ResolvedPath path;
  std::va_list arguments;
  va_start(arguments, format);
  const int result = path.resolve(schema(), format, arguments);
  va_end(arguments);
  return result;
}

TEST(Resolve, module_prefixes_may_be_left_out_and_must_be_right) {
  EXPECT_EQ(reason("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}"), 0);
  EXPECT_EQ(reason("/mpls/l2-vpn:l2vpn-config/l2vpn/mpls-l2vpn-vpls:vpls-group{G}/vpn{V}/vfi/neighbor{10.0.0.1}"), 0);
  EXPECT_EQ(reason("/mpls:mpls/l2-vpn:l2vpn-config/l2-vpn:l2vpn"), 0);
  EXPECT_EQ(reason("/KZ-VPLS-MIB:KZ-VPLS-MIB/vplsConfigTable/vplsConfigEntry"), 0);
  EXPECT_EQ(reason("/base:mpls"), CONFD_ERR_BADPATH);
  EXPECT_EQ(reason("/mpls/mpls:l2vpn-config"), CONFD_ERR_BADPATH);
  EXPECT_EQ(reason("/mpls/l2vpn-config/l2vpn/l2-vpn:vpls-group{G}"), CONFD_ERR_BADPATH);
}

TEST(Resolve, names_are_the_data_models) {
  EXPECT_EQ(reason("/"), 0);
  EXPECT_EQ(reason("/internal"), 0);
  EXPECT_EQ(reason("/internals"), CONFD_ERR_BADPATH);
  EXPECT_EQ(reason("/vpls-group{G}"), CONFD_ERR_BADPATH);
  EXPECT_EQ(reason("/internal/int-vpws-group{G}/name/x"), CONFD_ERR_BADPATH);
  EXPECT_EQ(reason("internal"), CONFD_ERR_BADPATH);
}

TEST(Resolve, a_list_has_all_its_keys_or_none) {
  EXPECT_EQ(reason("/internal/int-sub-vpls-vpn-ac"), 0);
  EXPECT_EQ(reason("/internal/int-sub-vpls-vpn-ac{G V 1 I}"), 0);
  EXPECT_EQ(reason("/internal/int-sub-vpls-vpn-ac{%s V 1 I}", "G x"), 0);
  EXPECT_EQ(reason("/internal/int-sub-vpls-vpn-ac{G x V 1 I}"), CONFD_ERR_BADPATH);
  EXPECT_EQ(reason("/internal/int-sub-vpls-vpn-ac{G V 1}"), CONFD_ERR_BADPATH);
  EXPECT_EQ(reason("/internal/int-sub-vpls-vpn-ac{}"), CONFD_ERR_BADPATH);
  EXPECT_EQ(reason("/internal{x}"), CONFD_ERR_BADPATH);
  EXPECT_EQ(reason("/internal/int-vpws-group/int-vpws"), CONFD_ERR_BADPATH);
  EXPECT_EQ(reason("/internal/int-vpws-group{G}/int-vpws"), 0);
}

TEST(Resolve, keys_are_of_their_types) {
  EXPECT_EQ(reason("/base:config/service-port{%u}", 4294967295U), 0);
  EXPECT_EQ(reason("/base:config/service-port{4294967296}"), CONFD_ERR_BADTYPE);
  EXPECT_EQ(reason("/base:config/service-port{%d}", -1), CONFD_ERR_BADTYPE);
  EXPECT_EQ(reason("/base:config/service-port{abc}"), CONFD_ERR_BADTYPE);
  EXPECT_EQ(reason("/base:config/service-port{%s}", ""), CONFD_ERR_BADTYPE);
  EXPECT_EQ(reason("/internal/int-sub-vpls-vpn-nbr{G V 1 10.0.0.1}"), 0);
  EXPECT_EQ(reason("/internal/int-sub-vpls-vpn-nbr{G V 1 10.0.0}"), CONFD_ERR_BADTYPE);
  EXPECT_EQ(reason("/KZ-MGMD-ROUTER-MIB/mgmdRouterInterfaceTable/mgmdRouterInterfaceEntry{1 -7}"), 0);
}

TEST(Resolve, keys_of_a_tree_compare_with_fewer_before_more) {
  const std::string group = "G";
  const confd_value_t wanted[]{host_test::buf(group), host_test::u32(5)};
  using Keys = std::vector<element::Value>;
  EXPECT_EQ(host::compare_keys(wanted, 2, Keys{std::string("G"), 5U}), 0);
  EXPECT_LT(host::compare_keys(wanted, 1, Keys{std::string("G"), 5U}), 0);
  EXPECT_GT(host::compare_keys(wanted, 2, Keys{std::string("G")}), 0);
  EXPECT_GT(host::compare_keys(wanted, 2, Keys{std::string("G"), 4U}), 0);
  EXPECT_LT(host::compare_keys(wanted, 2, Keys{std::string("G"), 6U}), 0);
  EXPECT_LT(host::compare_keys(wanted, 2, Keys{std::string("GA"), 1U}), 0);
}

}  // namespace
