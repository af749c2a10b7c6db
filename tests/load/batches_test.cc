// The library that ships reads lists in batches of 64 from a host that stands behind it: whole commits around the
// batches' edges.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "element/datastore/transaction.h"
#include "host/run/commit.h"
#include "tests/host/served_element.h"
#include "tests/support/build_under_test.h"

namespace {

using host::Decision;
using host::SeamFunction;

constexpr int kMaxEntries = 129;
constexpr int kOtherPort = kMaxEntries + 1;

std::string interface_name(int number) { return "gigabit-ethernet-1/1/" + std::to_string(number); }

// Three digits, so that the names' order is the numbers'.
std::string vpn_name(int number) { return "V" + std::to_string(1000 + number).substr(1); }

element::Profile card_with_ports() {
  std::vector<element::Interface> interfaces;
  for (int i = 1; i <= kOtherPort; ++i) {
    interfaces.push_back({interface_name(i), static_cast<std::uint32_t>(1000 + i), i});
  }
  element::CardLimits limits;
  limits.vpn_max = 1000;
  limits.access_ports = 1000;
  return {limits, std::move(interfaces)};
}

/// What a commit costs where a list has `entries` of them. A batch that is full does not tell that it was the last, so
/// the agent is asked once more; the running configuration is counted first.
std::uint64_t agent_fetches(int entries) { return static_cast<std::uint64_t>(entries / 64 + 1); }
std::uint64_t running_fetches(int entries) { return static_cast<std::uint64_t>((entries + 63) / 64); }

class Batches : public ::testing::TestWithParam<int> {
 protected:
  void commit() {
    transaction_ = element::make_transaction(running, candidate, profile_);
    verdict_ = host::validate_commit(plugin_, session_, *transaction_);
  }

  void expect_accepted() {
    commit();
    EXPECT_EQ(verdict_.decision, Decision::accepted) << verdict_.points.back().text;
  }

  void expect_rejected(const std::string &text) {
    commit();
    EXPECT_EQ(verdict_.decision, Decision::rejected);
    EXPECT_EQ(verdict_.points.back().text, text);
  }

  std::uint64_t calls(SeamFunction function) const {
    return verdict_.statistics.calls[static_cast<std::size_t>(function)];
  }

  void expect_agent_fetches(std::uint64_t count) const { EXPECT_EQ(calls(SeamFunction::maapi_get_objects), count); }

  element::Tree running{host_test::schema()};
  element::Tree candidate{host_test::schema()};

 private:
  const element::Profile profile_ = card_with_ports();
  host::HostSession session_{profile_};
  const host::Plugin plugin_{plugin_file()};
  std::unique_ptr<element::Transaction> transaction_;
  host::Verdict verdict_;
};

class VpwsNames : public Batches {
 protected:
  void SetUp() override {
    candidate.put("/mpls/l2vpn-config/l2vpn/vpws-group{G}");
    for (int i = 1; i <= GetParam(); ++i) add_vpn(vpn_name(i));
  }

  void add_vpn(const std::string &name) { candidate.put("/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{" + name + "}"); }
};

TEST_P(VpwsNames, are_read_to_the_last) {
  expect_accepted();
  expect_agent_fetches(agent_fetches(GetParam()));
}

TEST_P(VpwsNames, an_invalid_name_after_them_is_found) {
  add_vpn("~");
  expect_rejected(
      "VPWS Group name G VPN name ~ contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -, @, <>, &, "
      "=, :, ., (), +)");
  // The batch that holds it is the last that is read.
  expect_agent_fetches(running_fetches(GetParam() + 1));
}

class SnoopingTable : public Batches {
 protected:
  void SetUp() override {
    for (int i = 1; i <= GetParam(); ++i) {
      const std::string entry = "/base:config/igmp-snooping{7}/interface{" + interface_name(i) + "}";
      running.put(entry);
      candidate.put(entry);
    }
  }

  void attach(const std::string &interface) {
    const std::string bridge_domain = "/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain";
    candidate.put(bridge_domain + "/dot1q", std::uint16_t{100});
    candidate.put(bridge_domain + "/access-interface{" + interface + "}");
  }
};

TEST_P(SnoopingTable, is_read_to_the_last) {
  attach(interface_name(kOtherPort));
  expect_accepted();
  expect_agent_fetches(GetParam() == 0 ? 0 : agent_fetches(GetParam()));
}

class SnoopedPort : public SnoopingTable {};

TEST_P(SnoopedPort, of_the_last_entry_is_found) {
  const std::string port = interface_name(GetParam());
  attach(port);
  expect_rejected("vpls-group G vpn V interface " + port + " is already assigned to multicast igmp snooping 7");
  expect_agent_fetches(running_fetches(GetParam()));
}

/// One family has as many pseudowires as the parameter tells, each in a VPN of its own and all towards one neighbour;
/// the other has one, towards the same, whose pw-id the commit changes.
class Pseudowires : public Batches {
 protected:
  struct Family {
    std::string group;
    std::string neighbor;  ///< below a VPN
  };

  static constexpr std::uint32_t kOther = 1;

  static std::uint32_t pw_id(int number) { return static_cast<std::uint32_t>(100 + number); }

  static std::string pw_path(const Family &family, const std::string &vpn) {
    return "/mpls/l2vpn-config/l2vpn/" + family.group + "/vpn{" + vpn + "}/" + family.neighbor + "{10.0.0.1}";
  }

  void fill(const Family &family, const Family &other) {
    for (int i = 1; i <= GetParam(); ++i) {
      running.put(pw_path(family, vpn_name(i)) + "/pw-id", pw_id(i));
      candidate.put(pw_path(family, vpn_name(i)) + "/pw-id", pw_id(i));
    }
    running.put(pw_path(other, "other") + "/pw-id", kOther);
    set_other(other, kOther + 1);
  }

  void set_other(const Family &other, std::uint32_t pw_id) { candidate.put(pw_path(other, "other") + "/pw-id", pw_id); }

  void expect_running_fetches(std::uint64_t count) const { EXPECT_EQ(calls(SeamFunction::cdb_get_objects), count); }

  void are_read_to_the_last(const Family &family, const Family &other, std::uint64_t other_fetches) {
    fill(family, other);
    expect_accepted();
    expect_agent_fetches(agent_fetches(GetParam()) + other_fetches);
    expect_running_fetches(running_fetches(GetParam()) + running_fetches(1));
  }

  void last_repeats_first(const Family &family, const Family &other) {
    fill(family, other);
    candidate.put(pw_path(family, vpn_name(GetParam())) + "/pw-id", pw_id(1));
    expect_rejected("The PW ID 101 must be unique per neighbor");
    expect_running_fetches(0);
  }

  void takes_pw_id_of_last(const Family &family, const Family &other) {
    fill(family, other);
    const std::string last = vpn_name(GetParam());
    candidate.erase(pw_path(family, last));
    set_other(other, pw_id(GetParam()));
    const std::string id = std::to_string(pw_id(GetParam()));
    expect_rejected("The PW ID " + id + " was formerly assigned to VPN " + last + " from Group G. Delete VPN " + last +
                    ", its neighbor or backup-neighbor before applying changes");
    expect_running_fetches(running_fetches(GetParam()) + running_fetches(1));
  }

  const Family vpws{"vpws-group{G}", "neighbor"};
  const Family vpls{"vpls-group{G}", "vfi/neighbor"};
};

TEST_P(Pseudowires, of_vpws_are_read_to_the_last) { are_read_to_the_last(vpws, vpls, agent_fetches(1)); }

// The changed VPWS VPN has its name checked as well.
TEST_P(Pseudowires, of_vpls_are_read_to_the_last) {
  are_read_to_the_last(vpls, vpws, agent_fetches(1) + agent_fetches(1));
}

class RepeatedPwId : public Pseudowires {};

TEST_P(RepeatedPwId, of_the_last_vpws_is_found) { last_repeats_first(vpws, vpls); }
TEST_P(RepeatedPwId, of_the_last_vpls_is_found) { last_repeats_first(vpls, vpws); }

class MovedPwId : public Pseudowires {};

TEST_P(MovedPwId, of_the_last_running_vpws_is_found) { takes_pw_id_of_last(vpws, vpls); }
TEST_P(MovedPwId, of_the_last_running_vpls_is_found) { takes_pw_id_of_last(vpls, vpws); }

const auto kEntries = ::testing::Values(0, 1, 63, 64, 65, 127, 128, kMaxEntries);
const auto kOneOrMore = ::testing::Values(1, 63, 64, 65, 127, 128, kMaxEntries);
const auto kTwoOrMore = ::testing::Values(2, 63, 64, 65, 127, 128, kMaxEntries);

INSTANTIATE_TEST_SUITE_P(Entries, VpwsNames, kEntries);
INSTANTIATE_TEST_SUITE_P(Entries, SnoopingTable, kEntries);
INSTANTIATE_TEST_SUITE_P(Entries, SnoopedPort, kOneOrMore);
INSTANTIATE_TEST_SUITE_P(Entries, Pseudowires, kEntries);
INSTANTIATE_TEST_SUITE_P(Entries, RepeatedPwId, kTwoOrMore);
INSTANTIATE_TEST_SUITE_P(Entries, MovedPwId, kOneOrMore);

}  // namespace
