// What text and JSON tell to take back is taken back as it is told, and the commit is decided again: it is accepted, or
// the finding is gone and no new one came.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>

#include "element/input/configuration.h"
#include "source_dir.h"
#include "tests/diagnosis/drawn_commit.h"
#include "tests/diagnosis/followed_advice/committed_folder.h"
#include "tests/diagnosis/judged_element.h"
#include "tests/diagnosis/seeds.h"
#include "tests/diagnosis/small_network.h"
#include "tests/support/build_under_test.h"

namespace followed {
namespace {

namespace fs = std::filesystem;
using brute_force::Configurations;
using nlohmann::json;

/// A conflict as the document tells it. What counts or lists tells more the more there is; it is known by its rule.
struct Told {
  std::string rule;
  std::string message;
  std::set<std::string> parties;

  auto operator<=>(const Told &) const = default;
};

bool is_cumulative(const std::string &rule) { return rule.ends_with("-limit") || rule == "tls-port-based-vpls"; }

std::set<Told> told_of(const json &finding) {
  std::set<Told> told;
  const std::string rule = finding.at("rule");
  if (is_cumulative(rule)) return {{rule, "", {}}};
  for (const json &conflict : finding.at("conflicts")) {
    std::set<std::string> parties;
    for (const json &index : conflict.at("parties")) {
      parties.insert(finding.at("parties").at(index.get<std::size_t>()).at("path"));
    }
    told.insert({rule, conflict.at("message"), parties});
  }
  return told;
}

std::set<Told> all_told(const json &verdict) {
  std::set<Told> all;
  for (const json &finding : verdict.at("findings")) all.merge(told_of(finding));
  return all;
}

std::string list(const Steps &steps) {
  std::string text;
  for (const std::string &step : steps) text += "\n  " + step;
  return text;
}

void expect_followed(const std::string &element, const Configurations &commit, const json &verdict,
                     const ToldSteps &told) {
  const json &findings = verdict.at("findings");
  ASSERT_EQ(told.of_findings.size(), findings.size());
  const std::set<Told> before = all_told(verdict);
  for (std::size_t i = 0; i < findings.size(); ++i) {
    SCOPED_TRACE(findings[i].at("message").get<std::string>() + list(told.of_findings[i]));
    EXPECT_FALSE(told.of_findings[i].empty());
    const std::set<Told> own = told_of(findings[i]);
    const auto left = all_told(CommittedFolder(element, after(commit, told.of_findings[i])).verdict());
    for (const Told &one : left) {
      EXPECT_EQ(own.count(one), 0U) << "still there: " << one.message;
      EXPECT_EQ(before.count(one), 1U) << "new: " << one.rule << ": " << one.message;
    }
  }
  if (findings.empty()) return;
  const Steps &all = told.for_all.empty() ? told.of_findings.front() : told.for_all;
  SCOPED_TRACE("for all findings" + list(all));
  const json accepted = CommittedFolder(element, after(commit, all)).verdict();
  EXPECT_EQ(accepted.at("decision"), "accepted");
  EXPECT_TRUE(accepted.at("findings").empty());
}

void expect_followed_advice(const std::string &element, const Configurations &commit) {
  const CommittedFolder folder(element, commit);
  const json verdict = folder.verdict();
  const std::string text = folder.text();
  {
    SCOPED_TRACE("from the JSON document");
    expect_followed(element, commit, verdict, steps_in_json(verdict));
  }
  SCOPED_TRACE("from the text\n" + text);
  expect_followed(element, commit, verdict, steps_in_text(text));
}

std::string content_of(const fs::path &file) {
  std::ifstream stream(file);
  EXPECT_TRUE(stream) << file;
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> examples() {
  std::vector<std::string> names;
  for (const auto &entry : fs::directory_iterator(SOURCE_DIR "/examples")) {
    if (fs::exists(entry.path() / "candidate.xml")) names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  if (!is_sanitized()) return names;
  // Each starts the program some ten times. Its own code is the same for all.
  std::vector<std::string> every_fourth;
  for (std::size_t i = 0; i < names.size(); i += 4) every_fourth.push_back(names[i]);
  return every_fourth;
}

std::string test_name(const testing::TestParamInfo<std::string> &info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

class Example : public testing::TestWithParam<std::string> {};

TEST_P(Example, gives_advice_that_can_be_followed) {
  static const element::Schema schema;
  const fs::path folder = fs::path(SOURCE_DIR "/examples") / GetParam();
  expect_followed_advice(content_of(folder / "element.json"),
                         {element::read_configuration(schema, folder / "running.xml"),
                          element::read_configuration(schema, folder / "candidate.xml")});
}

INSTANTIATE_TEST_SUITE_P(All, Example, testing::ValuesIn(examples()), test_name);

/// The profile of the element of the random commits.
std::string judged_profile() {
  json interfaces = json::array();
  for (const element::Interface &interface : JudgedElement::instance().profile().interfaces()) {
    interfaces.push_back(
        {{"name", interface.name}, {"logical-id", interface.logical_id}, {"ifindex", interface.ifindex}});
  }
  const json profile{{"card",
                      {{"vpn-max", JudgedElement::kVpnLimit},
                       {"access-ports", JudgedElement::kAccessInterfaceLimit},
                       {"selective-encapsulation-vlan-entries", JudgedElement::kEncapsulationVlanLimit},
                       {"selective-encapsulation-vlan-ranges", JudgedElement::kEncapsulationRangeLimit}}},
                     {"interfaces", interfaces}};
  return profile.dump();
}

/// New VPNs, each on a VLAN that one of the running configuration has.
Configurations many_conflicts(std::uint32_t conflicts) {
  drawn::Network before;
  drawn::Network after;
  for (std::uint32_t i = 0; i < conflicts; ++i) {
    const auto vlan = static_cast<std::uint16_t>(100 + i);
    const drawn::VpnName old{drawn::Family::vpws, "old", "v" + std::to_string(vlan)};
    const drawn::VpnName added{drawn::Family::vpws, "new", "v" + std::to_string(vlan)};
    before.vpns[old].attachments["gigabit-ethernet-1/1/1"].dot1q = vlan;
    after.vpns[old] = before.vpns[old];
    after.vpns[added] = before.vpns[old];
  }
  return {tree_of(before.lines()), tree_of(after.lines())};
}

/// New VPNs without anything, more than the card has room for.
Configurations many_vpns(std::uint32_t vpns) {
  drawn::Network after;
  for (std::uint32_t i = 0; i < vpns; ++i) after.vpns[{drawn::Family::vpls, "g", "v" + std::to_string(i)}] = {};
  return {tree_of({}), tree_of(after.lines())};
}

// Longer lists than a text shows of alternatives.
TEST(LongAdvice, is_told_as_far_as_it_must_be_followed) {
  expect_followed_advice(content_of(fs::path(SOURCE_DIR "/examples/access-two-vpns-one-vlan/element.json")),
                         many_conflicts(10));
  expect_followed_advice(judged_profile(), many_vpns(JudgedElement::kVpnLimit + 10));
}

TEST(RandomCommits, give_advice_that_can_be_followed) {
  for (std::uint32_t i = 0; i < commits_to_draw(16) && !HasFailure(); ++i) {
    const std::uint32_t seed = first_seed() + i;
    SCOPED_TRACE("DIAGNOSIS_SEED=" + std::to_string(seed));
    expect_followed_advice(judged_profile(), drawn::draw_commit(seed, 12).configurations());
  }
}

}  // namespace
}  // namespace followed
