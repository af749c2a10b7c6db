#include "element/profile/profile.h"

#include <filesystem>
#include <fstream>

#include "element/input/input_error.h"
#include "temporary_file.h"

namespace {

using element::parse_profile;
using element::Profile;

std::string error_of(const std::string &text) {
  try {
    parse_profile(text, "element.json");
  } catch (const element::FileError &) {
    return "FileError";
  } catch (const element::InputError &error) {
    return error.what();
  }
  return "";
}

std::string interfaces(const std::string &entries) { return R"({"interfaces": [)" + entries + "]}"; }

std::string card(const std::string &fields) { return R"({"card": {)" + fields + R"(}, "interfaces": []})"; }

TEST(Profile, holds_card_and_interfaces) {
  const Profile profile = parse_profile(R"({
    "card": {"vpn-max": 128, "access-ports": 0, "selective-encapsulation-vlan-entries": 512,
             "selective-encapsulation-vlan-ranges": 4294967295},
    "interfaces": [{"name": "gigabit-ethernet-1/1/1", "logical-id": 0, "ifindex": 1},
                   {"name": "gigabit-ethernet-1/1/2", "logical-id": 4294967295, "ifindex": 2147483647}]})",
                                        "element.json");
  EXPECT_EQ(profile.card.vpn_max, 128U);
  EXPECT_EQ(profile.card.access_ports, 0U);
  EXPECT_EQ(profile.card.selective_encapsulation_vlan_entries, 512U);
  EXPECT_EQ(profile.card.selective_encapsulation_vlan_ranges, 4294967295U);
  ASSERT_EQ(profile.interfaces().size(), 2U);
  EXPECT_EQ(profile.interfaces()[1].name, "gigabit-ethernet-1/1/2");
  EXPECT_EQ(profile.interfaces()[1].logical_id, 4294967295U);
  EXPECT_EQ(profile.interfaces()[1].ifindex, 2147483647);
}

TEST(Profile, each_limit_may_be_absent) {
  const Profile no_card = parse_profile(interfaces(""), "element.json");
  EXPECT_FALSE(no_card.card.vpn_max);
  EXPECT_FALSE(no_card.card.access_ports);
  EXPECT_FALSE(no_card.card.selective_encapsulation_vlan_entries);
  EXPECT_FALSE(no_card.card.selective_encapsulation_vlan_ranges);

  const Profile one_limit = parse_profile(card(R"("access-ports": 64)"), "element.json");
  EXPECT_FALSE(one_limit.card.vpn_max);
  EXPECT_EQ(one_limit.card.access_ports, 64U);
}

TEST(Profile, finds_interfaces_by_each_identity) {
  const Profile profile({}, {{"a", 1, 1001}, {"b", 2, 1002}});
  const Profile copy = profile;
  ASSERT_NE(copy.by_name("b"), nullptr);
  EXPECT_EQ(copy.by_name("b")->ifindex, 1002);
  ASSERT_NE(copy.by_logical_id(2), nullptr);
  EXPECT_EQ(copy.by_logical_id(2)->name, "b");
  ASSERT_NE(copy.by_ifindex(1002), nullptr);
  EXPECT_EQ(copy.by_ifindex(1002)->name, "b");
  EXPECT_EQ(copy.by_name("c"), nullptr);
  EXPECT_EQ(copy.by_logical_id(1001), nullptr);
  EXPECT_EQ(copy.by_ifindex(1), nullptr);
}

TEST(Profile, names_the_field_that_is_wrong) {
  const std::string one = R"({"name": "a", "logical-id": 1, "ifindex": 1001})";
  const std::string expected_name = "; expected text of 1..63 bytes";
  const std::vector<std::pair<std::string, std::string>> rows{
      {"[]", "element.json: [] found; expected an object with the fields card, interfaces"},
      {"{}", "element.json: interfaces: missing field; expected an array of interfaces"},
      {R"({"interfaces": {}})", "element.json: interfaces: {} found; expected an array of interfaces"},
      {R"({"interfaces": [], "ports": 1})", "element.json: ports: unknown field; expected one of card, interfaces"},
      {R"({"card": 1, "interfaces": []})",
       "element.json: card: 1 found; expected an object with the fields vpn-max, access-ports, "
       "selective-encapsulation-vlan-entries, selective-encapsulation-vlan-ranges"},
      {card(R"("vpn-min": 1)"),
       "element.json: card/vpn-min: unknown field; expected one of vpn-max, access-ports, "
       "selective-encapsulation-vlan-entries, selective-encapsulation-vlan-ranges"},
      {card(R"("vpn-max": "128")"), "element.json: card/vpn-max: \"128\" found; expected a number of 0..4294967295"},
      {card(R"("vpn-max": null)"), "element.json: card/vpn-max: null found; expected a number of 0..4294967295"},
      {card(R"("access-ports": -1)"), "element.json: card/access-ports: -1 found; expected a number of 0..4294967295"},
      {card(R"("access-ports": 1.5)"),
       "element.json: card/access-ports: 1.5 found; expected a number of 0..4294967295"},
      {card(R"("vpn-max": 4294967296)"),
       "element.json: card/vpn-max: 4294967296 found; expected a number of 0..4294967295"},
      {interfaces("7"),
       "element.json: interfaces/0: 7 found; expected an object with the fields name, logical-id, ifindex"},
      {interfaces(R"({"logical-id": 1, "ifindex": 1001})"),
       "element.json: interfaces/0/name: missing field" + expected_name},
      {interfaces(R"({"name": "a", "ifindex": 1001})"),
       "element.json: interfaces/0/logical-id: missing field; expected a number of 0..4294967295"},
      {interfaces(R"({"name": "a", "logical-id": 1})"),
       "element.json: interfaces/0/ifindex: missing field; expected a number of 1..2147483647"},
      {interfaces(R"({"name": "a", "logical-id": 1, "ifindex": 1, "mtu": 9})"),
       "element.json: interfaces/0/mtu: unknown field; expected one of name, logical-id, ifindex"},
      {interfaces(R"({"name": 5, "logical-id": 1, "ifindex": 1})"),
       "element.json: interfaces/0/name: 5 found" + expected_name},
      {interfaces(R"({"name": "", "logical-id": 1, "ifindex": 1})"),
       "element.json: interfaces/0/name: \"\" found" + expected_name},
      {interfaces(R"({"name": ")" + std::string(64, 'n') + R"(", "logical-id": 1, "ifindex": 1})"),
       "element.json: interfaces/0/name: \"" + std::string(64, 'n') + "\" found" + expected_name},
      {interfaces(R"({"name": "a", "logical-id": true, "ifindex": 1})"),
       "element.json: interfaces/0/logical-id: true found; expected a number of 0..4294967295"},
      {interfaces(one + R"(, {"name": "b", "logical-id": 2, "ifindex": 0})"),
       "element.json: interfaces/1/ifindex: 0 found; expected a number of 1..2147483647"},
      {interfaces(one + R"(, {"name": "b", "logical-id": 2, "ifindex": 2147483648})"),
       "element.json: interfaces/1/ifindex: 2147483648 found; expected a number of 1..2147483647"},
  };
  for (const auto &[text, error] : rows) EXPECT_EQ(error_of(text), error) << text;
}

TEST(Profile, identities_are_unique) {
  const std::string one = R"({"name": "a", "logical-id": 1, "ifindex": 1001}, )";
  const std::vector<std::pair<std::string, std::string>> rows{
      {R"({"name": "b", "logical-id": 1001, "ifindex": 1})", ""},
      {R"({"name": "a", "logical-id": 2, "ifindex": 1002})",
       "element.json: interfaces/1/name: a is that of interfaces/0 already; expected one of its own"},
      {R"({"name": "b", "logical-id": 1, "ifindex": 1002})",
       "element.json: interfaces/1/logical-id: 1 is that of interfaces/0 already; expected one of its own"},
      {R"({"name": "b", "logical-id": 2, "ifindex": 1001})",
       "element.json: interfaces/1/ifindex: 1001 is that of interfaces/0 already; expected one of its own"},
  };
  for (const auto &[second, error] : rows) EXPECT_EQ(error_of(interfaces(one + second)), error) << second;
}

TEST(Profile, malformed_json_is_placed) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"",
       "element.json:1:1: syntax error while parsing value - unexpected end of input; "
       "expected '[', '{', or a literal"},
      {"{\n  \"interfaces\": [}\n",
       "element.json:2:18: syntax error while parsing value - unexpected '}'; expected '[', '{', or a literal"},
      {"{\"interfaces\": []}\nx",
       "element.json:2:1: syntax error while parsing value - invalid literal; "
       "last read: '\"interfaces\": []}<U+000A>x'; expected end of input"},
      {"{\"interfaces\": [\"\xff\"]}", "element.json:1: byte \\xff; expected text in UTF-8"},
  };
  for (const auto &[text, error] : rows) EXPECT_EQ(error_of(text), error) << text;
}

TEST(Profile, field_given_twice_is_refused) {
  EXPECT_EQ(error_of(R"({"interfaces": [], "interfaces": []})"),
            "element.json:1: member interfaces is given twice in one object, first on line 1; expected it once");
  EXPECT_EQ(error_of(R"({"card": {}, "interfaces": [{"name": "card", "logical-id": 1, "ifindex": 1}]})"), "");
}

TEST(Profile, number_beyond_all_ranges_is_refused) {
  EXPECT_EQ(error_of(card(R"("vpn-max": 1e999)")),
            "element.json:1:26: number overflow parsing '1e999'; expected well-formed JSON");
}

TEST(Profile, file_is_read_and_named) {
  const TemporaryFile file("{\"interfaces\": 1}");
  try {
    element::read_profile(file.path());
    FAIL() << "the profile was accepted";
  } catch (const element::InputError &error) {
    EXPECT_EQ(error.what(), file.path().string() + ": interfaces: 1 found; expected an array of interfaces");
  }
}

TEST(Profile, unreadable_file_is_told_apart) {
  EXPECT_THROW(element::read_profile("no-such-profile.json"), element::FileError);
}

}  // namespace
