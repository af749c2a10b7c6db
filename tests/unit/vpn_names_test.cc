#include "config_validate_comn/snapshot/vpn_names.h"

#include <gtest/gtest.h>

namespace {

struct NameCase {
  const char *name;
  const char *bare_group;
  const char *bare_vpn;
};

const std::vector<NameCase> name_cases{
    {"vpls-group north", "north", "-group north"},
    {"vpws-group west", "west", "-group west"},
    {"vpn red", "", "red"},
    {"vpls-group ", "", "-group "},
    {"vpls-group x", "x", "-group x"},
    {"vpn ", "", ""},
    {"vpn", "", ""},
    {"", "", ""},
    // What the cut characters are does not matter.
    {"hello world!", "!", "o world!"},
};

TEST(VpnNamesTest, the_prefix_is_cut_by_its_length) {
  for (const NameCase &row : name_cases) {
    EXPECT_EQ(bare_group_name(row.name), row.bare_group) << row.name;
    EXPECT_EQ(bare_vpn_name(row.name), row.bare_vpn) << row.name;
  }
}

struct FamilyCase {
  const char *group;
  bool is_vpls;
  bool is_vpws;
};

const std::vector<FamilyCase> family_cases{
    {"vpls-group north", true, false}, {"vpws-group west", false, true}, {"vpls-group vpws-group ", true, true},
    {"vpls-group", false, false},      {"north", false, false},
};

TEST(VpnNamesTest, the_familys_keyword_counts_anywhere) {
  for (const FamilyCase &row : family_cases) {
    EXPECT_EQ(is_vpls_group(row.group), row.is_vpls) << row.group;
    EXPECT_EQ(is_vpws_group(row.group), row.is_vpws) << row.group;
  }
}

}  // namespace
