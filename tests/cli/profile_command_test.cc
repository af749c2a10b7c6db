#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "element/profile/profile.h"
#include "tests/cli/commit_folder.h"

namespace {

const std::string kMadeUp =
    "not known: logical-ids, made up; the library looks at nothing but whether they are the same\n"
    "not known: service ports that the data does not list; add those that a VPN may take\n";
const std::string kNoCard =
    "not known: card/vpn-max, card/access-ports, card/selective-encapsulation-vlan-entries, "
    "card/selective-encapsulation-vlan-ranges; without them the library refuses what they bound\n";

class ProfileCommand : public testing::Test {
 protected:
  ProfileCommand() {
    folder.write("state.json", R"({"ietf-interfaces:interfaces": {"interface": [
{"name": "ge-1", "type": "iana-if-type:ethernetCsmacd", "if-index": 2},
{"name": "lo0", "type": "iana-if-type:softwareLoopback", "if-index": 9},
{"name": "ge-2", "type": "iana-if-type:ieee8023adLag"}]}})");
    folder.write("cards.json", R"({"small": {"vpn-max": 4, "access-ports": 2, "selective-encapsulation-vlan-entries": 3,
"selective-encapsulation-vlan-ranges": 1}, "unknown": {}})");
  }

  Outcome run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"profile", folder.file("state.json")});
    return run_with_answers(arguments);
  }

  const CommitFolder folder;
};

TEST_F(ProfileCommand, writes_the_profile_and_says_what_it_could_not_know) {
  const Outcome outcome = run({"--card", "small", "--cards", folder.file("cards.json")});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, R"({
  "card": {
    "vpn-max": 4,
    "access-ports": 2,
    "selective-encapsulation-vlan-entries": 3,
    "selective-encapsulation-vlan-ranges": 1
  },
  "interfaces": [
    {"name": "ge-1", "logical-id": 1, "ifindex": 2},
    {"name": "ge-2", "logical-id": 2, "ifindex": 1}
  ]
}
)");
  EXPECT_EQ(outcome.err,
            "left out: 1 interface of type softwareLoopback, which is no port: lo0\n"
            "not known: the ifindex of 1 interface, made up: ge-2\n" +
                kMadeUp);
  EXPECT_EQ(element::parse_profile(outcome.out, "").interfaces().size(), 2u);
}

TEST_F(ProfileCommand, without_a_card_its_limits_are_missing) {
  const Outcome outcome = run({"-o", folder.file("made.json")});
  EXPECT_EQ(outcome.out, "");
  EXPECT_TRUE(outcome.err.ends_with(kMadeUp + kNoCard)) << outcome.err;
  EXPECT_FALSE(element::read_profile(folder.file("made.json")).card.vpn_max);
  EXPECT_EQ(element::parse_profile(run({"--card", folder.file("element.json")}).out, "").card.vpn_max, 128u);
}

TEST_F(ProfileCommand, puts_several_files_together) {
  folder.write("more.xml", R"(<interfaces xmlns="urn:ietf:params:xml:ns:yang:ietf-interfaces">
<interface><name>ge-2</name><if-index>5</if-index></interface>
<interface><name>)" + std::string(64, 'x') +
                               R"(</name></interface><interface><name>p</name></interface></interfaces>)");
  const Outcome outcome = run({folder.file("more.xml")});
  EXPECT_TRUE(
      outcome.out.ends_with("{\"name\": \"ge-1\", \"logical-id\": 1, \"ifindex\": 2},\n"
                            "    {\"name\": \"ge-2\", \"logical-id\": 2, \"ifindex\": 5},\n"
                            "    {\"name\": \"p\", \"logical-id\": 3, \"ifindex\": 1}\n  ]\n}\n"))
      << outcome.out;
  EXPECT_NE(outcome.err.find("left out: 1 interface with a name of more than 63 bytes: " + std::string(64, 'x') +
                             "\nnot known: the type of 1 interface, kept as a port: p\n"),
            std::string::npos)
      << outcome.err;
}

TEST_F(ProfileCommand, tells_what_is_wrong_and_what_was_expected) {
  const std::string cards = folder.file("cards.json");
  EXPECT_EQ(run({"--cards", cards}).err, "vpnval: --cards without --card; expected the card's name\n");
  EXPECT_EQ(run({"--cards", cards, "--card", "big"}).err,
            "vpnval: " + cards + ": no card \"big\"; expected one of small, unknown\n");
  folder.write("cards.json", R"({"small": {"vpn-max": -1}})");
  EXPECT_EQ(run({"--cards", cards, "--card", "small"}).err,
            "vpnval: " + cards + ": small/vpn-max: -1 found; expected a number of 0..4294967295\n");
  folder.write("cards.json", "[]");
  EXPECT_EQ(run({"--cards", cards, "--card", "small"}).err,
            "vpnval: " + cards + ": [] found; expected an object with a member for each card\n");
  folder.write("state.json", "{}");
  EXPECT_EQ(run({}).err, "vpnval: " + folder.file("state.json") +
                             ": no interface of ietf-interfaces; expected operational data of /interfaces\n");
  EXPECT_EQ(run({}).status, 65);
}

TEST_F(ProfileCommand, refuses_an_if_index_of_two_interfaces_and_two_of_one) {
  const std::string other = folder.file("other.json");
  folder.write("other.json", R"({"ietf-interfaces:interfaces": {"interface": [{"name": "ge-3", "if-index": 2}]}})");
  EXPECT_EQ(run({other}).err,
            "vpnval: " + other + ":1: if-index 2 of interface ge-3 is that of ge-1 already; expected one of its own\n");
  folder.write("other.json", R"({"ietf-interfaces:interfaces": {"interface": [{"name": "ge-1", "if-index": 3}]}})");
  EXPECT_EQ(run({other}).err,
            "vpnval: " + other + ":1: if-index 3 of interface ge-1 is 2 in a file before; expected one of its own\n");
}

}  // namespace
