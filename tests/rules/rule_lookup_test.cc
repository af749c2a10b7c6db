// Which rule a message belongs to, whatever the names in it hold.

#include <gtest/gtest.h>

#include "rules/message_pattern.h"
#include "rules/rule.h"

namespace {

/// The id of the rule whose message the text is; empty for none.
std::string id_of(std::string_view point, std::string_view text) {
  const rules::Rule *rule = rules::rule_of_message(point, text);
  return rule == nullptr ? "" : std::string(rule->id);
}

struct Row {
  std::string point;
  std::string text;
  std::string id;
};

void expect_ids(const std::vector<Row> &rows) {
  for (const auto &[point, text, id] : rows) EXPECT_EQ(id_of(point, text), id) << text;
}

TEST(RuleLookup, names_may_hold_blanks_and_conversions_or_nothing) {
  expect_ids({
      {"vpn_access_valp", "vpls-group head office vpn data 100% interface is not valid. Verify available interfaces",
       "access-interface-unknown"},
      {"vpn_access_valp", "vpls-group %s vpn %d interface is not valid. Verify available interfaces",
       "access-interface-unknown"},
      {"vpn_access_valp",
       "vpls-group  vpn  and vpws-group  vpn  must not be configured with the same dot1q on interface ",
       "access-same-dot1q"},
      {"vpn_name_valp",
       "VPWS Group name a%sb contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -, @, <>, &, =, :, ., (), +)",
       "vpws-group-name"},
      {"vpn_peer_valp",
       "The PW ID 7 was formerly assigned to VPN  from Group . Delete VPN , its neighbor or backup-neighbor before applying changes",
       "pw-id-moved"},
      {"vpn_sp_valp", "service-port-\n is not valid. Verify available service-port interfaces",
       "vpws-service-port-name"},
  });
}

TEST(RuleLookup, names_may_hold_the_words_of_another_message) {
  expect_ids({
      {"vpn_access_valp",
       "vpls-group a vpn is already assigned to dot1q vlan 5 interface is not valid. Verify available interfaces",
       "access-interface-unknown"},
      {"vpn_access_valp",
       "vpls-group must not be configured with the same dot1q on interface vpn v & vpls-group g vpn w must not be configured to the same interface ge-1 on port-based VPNs",
       "access-port-based-twice"},
      {"vpn_peer_valp",
       "The PW ID 7 was formerly assigned to VPN The PW ID 8 must be unique per neighbor from Group g. Delete VPN The PW ID 8 must be unique per neighbor, its neighbor or backup-neighbor before applying changes",
       "pw-id-moved"},
      {"vpn_name_valp",
       "VPWS Group name a VPN name b contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -, @, <>, &, =, :, ., (), +)",
       "vpws-vpn-name"},
  });
}

TEST(RuleLookup, of_two_that_match_the_one_with_more_of_its_own_words_is_meant) {
  const std::string member = "vlan 5 interface ge-1 is already assigned to mpls l2vpn vpls-group g vpn v";
  expect_ids({
      {"vlm_memb_valp", member, "member-on-port-based-vpn"},
      {"vlm_memb_valp", member + " with the same dot1q. It must be configured to another dot1q vlan",
       "member-same-dot1q"},
      {"vpn_access_valp",
       "All VPLS assigned to interface ge-1 will run as TLS since vpls-group g vpn v has port based TLS behavior",
       "tls-beside-vpws"},
      {"vpn_access_valp",
       "All VPLS assigned to interface ge-1 ge-2 will run as TLS since vpls-group g vpn-name v has port based TLS behavior",
       "tls-port-based-vpls"},
  });
}

TEST(RuleLookup, a_name_that_was_cut_in_the_middle_of_a_character_is_a_name) {
  const std::string cut = std::string(62, 'i') + "\xC3";
  expect_ids({
      {"vlm_memb_valp", "vlan 5 interface " + cut + " is already assigned to mpls l2vpn vpws-group g vpn v",
       "member-on-port-based-vpn"},
      {"vpn_access_valp",
       "vpws-group g vpn v interface " + cut +
           " is already assigned to dot1q vlan 4 and can not be configured on a port-based VPN",
       "access-port-based-static-member"},
  });
}

TEST(RuleLookup, numbers_are_numbers_and_some_are_negative) {
  const std::string limit = "Maximum number of VPNs has been exceeded. Attempt to configure ";
  expect_ids({
      {"vpn_overflow_valp", limit + "5 of 4 allowed", "vpn-limit"},
      {"vpn_overflow_valp", limit + "0 of -1 allowed", "vpn-limit"},
      {"vpn_overflow_valp", limit + "-1 of -2147483648 allowed", "vpn-limit"},
      {"vpn_overflow_valp", limit + " of 4 allowed", ""},
      {"vpn_overflow_valp", limit + "- of 4 allowed", ""},
      {"vpn_overflow_valp", limit + "five of 4 allowed", ""},
      {"vpn_overflow_valp", limit + "5- of 4 allowed", ""},
      {"vpn_peer_valp", "The PW ID 4294967295 must be unique per neighbor", "pw-id-twice"},
      {"vpn_peer_valp", "The PW ID -1 must be unique per neighbor", ""},
  });
}

TEST(RuleLookup, one_text_of_two_points_has_a_rule_for_each) {
  const std::string text =
      "Some MPLS VPN's have access and uplink interfaces in common. In this way those access interfaces will not be able to encapsulate MPLS traffic";
  expect_ids({
      {"vpn_access_valp", text, "access-on-uplink"},
      {"vlm_memb_valp", text, "member-on-uplink"},
      {"vpn_sp_valp", text, ""},
  });
}

TEST(RuleLookup, any_other_text_has_no_rule) {
  expect_ids({
      {"vpn_peer_valp", "", ""},
      {"vpn_peer_valp", "no such message", ""},
      {"vpn_peer_valp", "The PW ID 7 must be unique per neighbor!", ""},
      {"vpn_peer_valp", "Error: The PW ID 7 must be unique per neighbor", ""},
      {"vpn_access_valp", "The PW ID 7 must be unique per neighbor", ""},
      {"", "The PW ID 7 must be unique per neighbor", ""},
  });
}

TEST(MessagePattern, conversions_match_as_little_or_as_much_as_it_takes) {
  const std::vector<std::pair<std::string, std::string>> made{{"%s", ""},       {"%s%s", "a"},  {"%s-%s", "a-b-c"},
                                                              {"%d%d", "12"},   {"%d%s", "12"}, {"%s%d", "a-1"},
                                                              {"100%", "100%"}, {"%x", "%x"}};
  for (const auto &[format, text] : made) EXPECT_TRUE(rules::is_made_by(format, text)) << format << " " << text;

  const std::vector<std::pair<std::string, std::string>> not_made{
      {"", "a"}, {"a", ""}, {"%d", ""}, {"%d%d", "1"}, {"%u", "-1"}, {"%s-", "-a"}, {"%d", "1-"}, {"%d", "--1"}};
  for (const auto &[format, text] : not_made) EXPECT_FALSE(rules::is_made_by(format, text)) << format << " " << text;
}

TEST(MessagePattern, what_stands_in_every_text_is_counted_without_conversions) {
  EXPECT_EQ(rules::literal_length(""), 0u);
  EXPECT_EQ(rules::literal_length("%s%d%u"), 0u);
  EXPECT_EQ(rules::literal_length("%s of %d"), 4u);
  EXPECT_EQ(rules::literal_length("100% x"), 6u);
}

}  // namespace
