// The same commit is explained the same, however it is written and whatever its VPNs are called.

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "element/input/configuration.h"
#include "tests/diagnosis/drawn_commit.h"
#include "tests/diagnosis/random_commits.h"
#include "tests/diagnosis/seeds.h"
#include "tests/diagnosis/told_findings.h"
#include "tests/element/print.h"
#include "tests/element/written_configuration.h"

namespace {

using brute_force::Configurations;
using diagnosis::Diagnosis;

std::vector<std::string> texts_in_order(const Diagnosis &found) {
  std::vector<std::string> texts;
  for (const diagnosis::Finding &finding : found.findings) texts.push_back(brute_force::finding_text(finding).text());
  return texts;
}

/// A configuration of nothing has no element to write.
element::Tree written_and_read(const element::Tree &tree, std::uint32_t seed, bool is_xml) {
  if (tree.root().children.empty()) return tree;
  const WrittenConfiguration written = is_xml ? written_as_xml(tree, seed) : written_as_json(tree, seed);
  return element::parse_configuration(test_schema(), written.text, "written");
}

TEST(SameCommit, in_another_order_or_format_has_the_same_findings) {
  std::uint32_t seed = first_seed();
  for_each_commit(15, [&seed](const Configurations &commit) {
    const std::vector<std::string> texts = texts_in_order(diagnose(commit));
    for (const bool is_xml : {true, false}) {
      ++seed;
      const Configurations read{written_and_read(commit.running, seed, is_xml),
                                written_and_read(commit.candidate, seed, !is_xml)};
      EXPECT_EQ(texts_in_order(diagnose(read)), texts);
    }
  });
}

constexpr std::size_t kMostEntriesDrawn = 12;

constexpr std::string_view kPrefix = "z_";

/// The order of names stays, and which is the beginning of which.
drawn::Network with_prefix(const drawn::Network &network) {
  drawn::Network result = network;
  result.vpns.clear();
  for (const auto &[name, vpn] : network.vpns) {
    result.vpns[{name.family, name.group, std::string(kPrefix) + name.name}] = vpn;
  }
  return result;
}

std::string without_prefix(std::string text) {
  for (std::size_t at = text.find(kPrefix); at != std::string::npos; at = text.find(kPrefix, at)) {
    text.erase(at, kPrefix.size());
  }
  return text;
}

std::vector<std::string> in_text_order(std::vector<std::string> texts) {
  std::sort(texts.begin(), texts.end());
  return texts;
}

TEST(SameCommit, with_its_vpns_renamed_has_the_same_findings) {
  for (std::uint32_t i = 0; i < commits_to_draw(15) && !HasFailure(); ++i) {
    SCOPED_TRACE("DIAGNOSIS_SEED=" + std::to_string(first_seed() + i));
    const drawn::Commit commit = drawn::draw_commit(first_seed() + i, kMostEntriesDrawn);
    const drawn::Commit other{with_prefix(commit.running), with_prefix(commit.candidate)};
    std::vector<std::string> texts = texts_in_order(diagnose(other.configurations()));
    for (std::string &text : texts) text = without_prefix(text);
    EXPECT_EQ(in_text_order(texts), in_text_order(texts_in_order(diagnose(commit.configurations()))));
  }
}

/// Where the name of a VPN stands in the order of all of them decides for these rules, as for the element: which VPN is
/// looked at first, which of two is taken first, which of several is named.
const std::set<std::string> kRulesOfOrder{"vpls-service-port-mixed", "access-untagged-twice", "access-same-dot1q",
                                          "tls-beside-vpws"};

using NewNames = std::map<std::string, std::string>;

/// Two letters each, in the other order than the names.
NewNames in_reverse_order(const drawn::Commit &commit) {
  std::set<std::string> names;
  for (const drawn::Network *network : {&commit.running, &commit.candidate}) {
    for (const auto &[name, vpn] : network->vpns) names.insert(name.name);
  }
  NewNames renamed;
  char letter = 'z';
  for (const std::string &name : names) renamed[name] = std::string{'_', letter--} + name;
  return renamed;
}

drawn::Network renamed(const drawn::Network &network, const NewNames &names) {
  drawn::Network result = network;
  result.vpns.clear();
  for (const auto &[name, vpn] : network.vpns) result.vpns[{name.family, name.group, names.at(name.name)}] = vpn;
  return result;
}

/// The rule and the parties of each finding, under the names of before.
std::multiset<std::string> rules_and_parties(const Diagnosis &found, const NewNames &names) {
  std::multiset<std::string> texts;
  for (const diagnosis::Finding &finding : found.findings) {
    const std::string rule = brute_force::finding_text(finding).rule;
    if (kRulesOfOrder.count(rule) != 0) continue;
    std::set<std::string> parties;
    for (const diagnosis::Party &party : finding.parties) {
      std::string path = to_text(party.path);
      for (const auto &[name, new_name] : names) {
        const std::size_t at = path.find("vpn{" + new_name + "}");
        if (at != std::string::npos) path.replace(at + 4, new_name.size(), name);
      }
      parties.insert(path);
    }
    texts.insert(fmt::format("{}: {}", rule, fmt::join(parties, " ")));
  }
  return texts;
}

TEST(SameCommit, with_its_vpns_in_another_order_has_the_same_findings) {
  for (std::uint32_t i = 0; i < commits_to_draw(60) && !HasFailure(); ++i) {
    SCOPED_TRACE("DIAGNOSIS_SEED=" + std::to_string(first_seed() + i));
    const drawn::Commit commit = drawn::draw_commit(first_seed() + i, kMostEntriesDrawn);
    const NewNames names = in_reverse_order(commit);
    const drawn::Commit other{renamed(commit.running, names), renamed(commit.candidate, names)};
    EXPECT_EQ(rules_and_parties(diagnose(other.configurations()), names),
              rules_and_parties(diagnose(commit.configurations()), names));
  }
}

}  // namespace
