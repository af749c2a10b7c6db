// What is left of every limit, on cards of many kinds, and the proof: the test fills the commit up in its own way, on
// ports that the element has, and asks the real library on both sides of each number.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/headroom/limits_cases.h"
#include "tests/headroom/network.h"
#include "tests/support/build_under_test.h"

namespace headroom_test {
namespace {

/// A row as "interface-ranges ge-2: 2 used, 6 of 8 left", with the standing where it is not a plain number.
std::string shown(const Json &row) {
  const auto number = [&row](const char *field) {
    return row.contains(field) ? std::to_string(row.at(field).get<std::int64_t>()) : "?";
  };
  std::string text = row.at("limit").get<std::string>();
  if (row.contains("vpn")) text += " " + row.at("vpn").get<std::string>();
  if (row.contains("interface")) text += " " + row.at("interface").get<std::string>();
  text += ": " + number("used") + " used, " + number("left") + " of " + number("allowed") + " left";
  const auto standing = row.at("standing").get<std::string>();
  if (standing == "measured") return text;
  return text + ", " + standing + (row.contains("stop") ? " by " + row.at("stop").at("rule").get<std::string>() : "");
}

std::vector<std::string> shown_rows(const Json &document) {
  std::vector<std::string> rows;
  for (const Json &row : document.at("elements").at(0).at("limits")) rows.push_back(shown(row));
  return rows;
}

/// Where the next range of two VLANs can begin that nobody has.
std::uint32_t next_free(const l2vpn::Attachment &access_interface) {
  std::uint32_t last = 2999;
  for (const l2vpn::VlanRange &range : access_interface.ranges) last = std::max(last, range.first);
  return last + 2;
}

bool has_encapsulation(const l2vpn::Attachment &port) { return port.untagged || !port.ranges.empty(); }

/// More ports of a VPLS VPN, such as go with those that it has.
void add_ports(l2vpn::Vpn &vpls, int count) {
  const bool with_encapsulation = std::ranges::any_of(vpls.attachments, has_encapsulation);
  for (int i = 0; i < count; ++i) {
    l2vpn::Attachment &port = port_of(vpls, vpls.transparent_lan_service ? service_port(2 + i) : ge(20 + i));
    if (with_encapsulation) add_vlans(port, 4000, 1);
  }
}

void add_one(Network &network, const std::string &limit, const std::string &interface, int index) {
  const auto number = static_cast<std::uint32_t>(index);
  if (limit == "vpns") network.vpws("extra-" + std::to_string(index));
  if (limit == "pseudowires") network.add_neighbor_somewhere(1000 + index);
  if (limit == "encapsulation-vlans") add_vlans(network.port_with_ranges(ge(20)), 1 + number, 1);
  if (limit == "encapsulation-ranges") add_ranges(network.port_with_ranges(ge(20 + index / 8)), 1 + number % 8 * 2, 1);
  if (limit == "interface-ranges") {
    l2vpn::Attachment &port = network.port_with_ranges(interface);
    add_ranges(port, next_free(port), 1);
  }
}

/// The test's own way to put so many more of what the row counts into a network: on ports from "ge-20" on, which no
/// case uses, and in a VPN that is there where there is one.
void fill_up(Network &network, const Json &row, int more) {
  const auto limit = row.at("limit").get<std::string>();
  const std::string interface = row.value("interface", "");
  const std::string vpn = row.value("vpn", "");
  for (int i = 0; i < more; ++i) add_one(network, limit, interface, i);
  if (vpn.empty()) return;
  l2vpn::Vpn &vpls = network.vpls(vpn.substr(vpn.rfind(' ') + 1));
  if (limit == "access-interfaces") add_ports(vpls, more);
  if (limit == "bridge-mtu") vpls.bridge_mtu = vpls.bridge_mtu.value_or(0) + static_cast<std::uint32_t>(more);
}

Json points_of_fuller(const Commit &commit, const Network &candidate, const Json &row, int more) {
  Network fuller = candidate;
  fill_up(fuller, row, more);
  return commit.points(fuller);
}

/// Accepted at the number, rejected with the limit's own message one above; where the candidate itself is rejected, by
/// the limit's own point.
void prove(const Commit &commit, const Network &candidate, bool is_accepted, const Json &row) {
  const int left = row.at("left").get<int>();
  const auto point = row.at("stop").at("point").get<std::string>();
  const Json full = points_of_fuller(commit, candidate, row, left);
  EXPECT_EQ(rejection(full, is_accepted ? "" : point), Message()) << shown(row);
  const Json overfull = points_of_fuller(commit, candidate, row, left + 1);
  EXPECT_EQ(rejection(overfull, point), row.at("stop").at("message").get<std::string>()) << shown(row);
}

/// What is above the limit is said of the candidate, or of the next thing to be added where it touches nothing that
/// is counted.
void prove_exceeded(const Commit &commit, const Network &candidate, const Json &row) {
  EXPECT_EQ(row.at("left"), row.at("allowed").get<int>() - row.at("used").get<int>()) << shown(row);
  EXPECT_LT(row.at("left"), 0);
  const auto point = row.at("stop").at("point").get<std::string>();
  Message message = rejection(commit.points(candidate), point);
  if (!message) message = rejection(points_of_fuller(commit, candidate, row, 1), point);
  EXPECT_EQ(message, row.at("stop").at("message").get<std::string>()) << shown(row);
}

class Limits : public testing::TestWithParam<Case> {};

TEST_P(Limits, are_as_listed_and_every_number_is_proven) {
  const Case &test = GetParam();
  Network running;
  test.running(running);
  Network candidate;
  test.candidate(candidate);
  const Commit commit(test.card, running, candidate);
  const Json document = commit.headroom();
  const bool is_accepted = document.at("elements").at(0).at("decision") != "rejected";
  EXPECT_EQ(is_accepted, !rejection(commit.points(candidate)));
  EXPECT_EQ(shown_rows(document), test.rows);
  // Each proof is two checks by the program, which other tests run with a sanitizer.
  if (is_sanitized()) return;
  for (const Json &row : document.at("elements").at(0).at("limits")) {
    const auto standing = row.at("standing").get<std::string>();
    if (standing != "measured" && standing != "exceeded") continue;
    if (standing == "measured") prove(commit, candidate, is_accepted, row);
    if (standing == "exceeded") prove_exceeded(commit, candidate, row);
  }
}

INSTANTIATE_TEST_SUITE_P(Cards, Limits, testing::ValuesIn(limits_cases()),
                         [](const auto &test) { return test.param.name; });

}  // namespace
}  // namespace headroom_test
