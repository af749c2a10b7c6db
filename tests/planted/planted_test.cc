// Commits with faults of different kinds planted in them: each is found, once, with what draws it.
//
// Every commit comes from a seed, which a failure prints. PLANTED_SEED=N in the environment begins with that seed,
// PLANTED_COMMITS=N draws so many for each message.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>

#include "diagnosis/change_units.h"
#include "diagnosis/diagnose.h"
#include "element/input/configuration.h"
#include "rules/rule.h"
#include "tests/element/written_configuration.h"
#include "tests/planted/background.h"
#include "tests/planted/judged_element.h"
#include "tests/planted/planted_commit.h"

namespace planted {
namespace {

using diagnosis::ChangePart;
using diagnosis::Diagnosis;
using diagnosis::Fault;
using diagnosis::ItemSet;
using diagnosis::Standing;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::uint32_t kCommitsOfARule = 2;
#else
constexpr std::uint32_t kCommitsOfARule = 6;
#endif

std::uint32_t number_from_environment(const char *name, std::uint32_t otherwise) {
  const char *text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

std::uint32_t first_seed() {
  static const std::uint32_t seed = number_from_environment("PLANTED_SEED", std::random_device()());
  return seed;
}

/// A thousand pseudowires take their time.
std::uint32_t commits_of(const std::string &rule) {
  const std::uint32_t few = rule == "pseudowire-limit" ? 1 : kCommitsOfARule;
  return number_from_environment("PLANTED_COMMITS", few);
}

std::string rule_of(const host::PointVerdict &answer) {
  const rules::Rule *rule = rules::rule_of_message(answer.point, answer.text);
  return rule == nullptr ? "no rule" : std::string(rule->id);
}

std::string rule_of(const Fault &fault) { return rule_of(fault.verdict); }

std::string name_of(Standing standing) {
  const char *const names[] = {"unchanged", "added", "changed", "removed"};
  return names[static_cast<std::size_t>(standing)];
}

std::string said(const host::PointVerdict &answer) {
  return answer.point + " " + (answer.answer == host::Answer::rejected ? "rejected" : "warned") + " " + answer.text;
}

using Texts = std::multiset<std::string>;

Texts without(Texts all, const Texts &gone) {
  for (const std::string &text : gone) {
    if (const auto found = all.find(text); found != all.end()) all.erase(found);
  }
  return all;
}

/// A commit, what the library says of it, and what is found in it.
class Diagnosed {
 public:
  explicit Diagnosed(PlantedCommit commit)
      : commit_(std::move(commit)),
        places_(*commit_.transaction),
        units_(places_),
        verdict_(element_.judge(*commit_.transaction)),
        found_(element_.diagnose(*commit_.transaction, {.all_faults = true, .budget = {}, .progress = {}})) {}

  void expect_each_planted_fault_once() const;
  void expect_what_the_device_says_first() const;
  void expect_parties() const;
  void expect_accepted_when_taken_back();
  void expect_enough_to_keep_limit();
  void expect_smallest_commits_to_draw();

 private:
  const Planted &planted_as(const Fault &fault) const;
  ItemSet units_at(const std::vector<ChangePart> &parts) const;
  host::Verdict judge(const ItemSet &units) { return judge(units_.shapes(units)); }
  host::Verdict judge(const diagnosis::Shapes &shapes) {
    return element_.judge(*element::make_transaction(places_.running(shapes), places_.candidate(shapes), profile()));
  }
  ItemSet rest_without(const std::vector<const Fault *> &faults) const;
  std::set<std::string> rules_drawn(const ItemSet &units);

  JudgedElement &element_ = JudgedElement::instance();
  PlantedCommit commit_;
  diagnosis::Places places_;
  diagnosis::ChangeUnits units_;
  host::Verdict verdict_;
  Diagnosis found_;
};

const Planted &Diagnosed::planted_as(const Fault &fault) const {
  return *std::find_if(commit_.faults.begin(), commit_.faults.end(),
                       [&](const Planted &planted) { return planted.rule == rule_of(fault); });
}

void Diagnosed::expect_each_planted_fault_once() const {
  Texts planted;
  Texts found;
  for (const Planted &fault : commit_.faults) planted.insert(fault.rule + ": " + fault.text.value_or(""));
  for (const Fault &fault : found_.faults) {
    const auto same_rule = std::find_if(commit_.faults.begin(), commit_.faults.end(),
                                        [&](const Planted &one) { return one.rule == rule_of(fault); });
    const bool has_any_text = same_rule != commit_.faults.end() && !same_rule->text;
    found.insert(rule_of(fault) + ": " + (has_any_text ? "" : fault.verdict.text));
    EXPECT_TRUE(fault.complete);
  }
  EXPECT_EQ(without(found, planted), Texts{}) << "found, not planted";
  EXPECT_EQ(without(planted, found), Texts{}) << "planted, not found";
  EXPECT_TRUE(found_.complete);
}

void Diagnosed::expect_what_the_device_says_first() const {
  Lines device;
  Lines first;
  for (const host::PointVerdict &answer : spoken(verdict_)) device.push_back(said(answer));
  for (std::size_t i = 0; i < std::min(device.size(), found_.faults.size()); ++i) {
    first.push_back(said(found_.faults[i].verdict));
  }
  EXPECT_EQ(first, device);
}

/// What a limit's message says is configured.
std::size_t configured_in(const std::string &text) {
  const std::string before = "Attempt to configure ";
  return std::stoul(text.substr(text.find(before) + before.size()));
}

std::string vpn_of(const diagnosis::Party &party) { return party.group + " vpn " + party.vpn; }

/// How many of the things that the limit counts stand among the parties.
std::size_t counted_by(const std::string &rule, const Fault &fault) {
  std::set<std::string> counted;
  for (const diagnosis::Party &party : fault.parties) {
    if (fault.smallest.candidate.find(to_text(party.path)) == nullptr) continue;
    if (rule == "vpn-limit") counted.insert(vpn_of(party));
    if (rule == "pseudowire-limit" && !party.neighbor.empty()) counted.insert(to_text(party.path));
    if (rule == "access-interface-limit") counted.insert(vpn_of(party) + party.interface);
    if (!rule.starts_with("encapsulation")) continue;
    for (const diagnosis::Detail &detail : party.details) {
      if (fault.smallest.candidate.find(to_text(detail.path)) != nullptr) counted.insert(to_text(detail.path));
    }
  }
  return counted.size();
}

void Diagnosed::expect_parties() const {
  for (const Fault &fault : found_.faults) {
    SCOPED_TRACE(fault.verdict.text);
    const bool touched_first = std::is_partitioned(fault.parties.begin(), fault.parties.end(), [](const auto &party) {
      return party.standing != Standing::unchanged;
    });
    EXPECT_TRUE(touched_first);
    const Planted &planted = planted_as(fault);
    if (planted.parties.empty()) {
      EXPECT_EQ(counted_by(planted.rule, fault), configured_in(fault.verdict.text));
      continue;
    }
    Texts expected;
    Texts named;
    for (const ExpectedParty &party : planted.parties) expected.insert(party.path + " " + name_of(party.standing));
    for (const auto &party : fault.parties) named.insert(to_text(party.path) + " " + name_of(party.standing));
    EXPECT_EQ(without(named, expected), Texts{}) << "named, not expected";
    EXPECT_EQ(without(expected, named), Texts{}) << "expected, not named";
  }
}

ItemSet Diagnosed::units_at(const std::vector<ChangePart> &parts) const {
  std::set<std::string> paths;
  for (const ChangePart &part : parts) paths.insert(to_text(part.path));
  ItemSet units(units_.size(), false);
  for (std::size_t unit = 0; unit < units.size(); ++unit) {
    units[unit] = paths.count(to_text(places_.path_of(units_.place(unit)))) != 0;
  }
  return units;
}

/// Without all parts of these faults, and without what a limit's parts stand in and nothing else does.
ItemSet Diagnosed::rest_without(const std::vector<const Fault *> &faults) const {
  const diagnosis::Items &items = units_.items();
  ItemSet gone(units_.size(), false);
  ItemSet stood_in(units_.size(), false);
  for (const Fault *fault : faults) {
    gone = diagnosis::either(gone, with_dependents(items, units_at(fault->change)));
    if (fault->enough != 0) stood_in = diagnosis::either(stood_in, units_at(fault->scaffold));
  }
  for (std::size_t unit = units_.size(); unit-- > 0;) {
    ItemSet left(units_.size(), false);
    left[unit] = stood_in[unit];
    left = diagnosis::without(with_dependents(items, left), gone);
    gone[unit] = gone[unit] || diagnosis::count(left) == 1;
  }
  gone.flip();
  return gone;
}

void Diagnosed::expect_accepted_when_taken_back() {
  std::vector<const Fault *> all;
  for (const Fault &fault : found_.faults) {
    EXPECT_FALSE(fault.change.empty());
    all.push_back(&fault);
  }
  Lines answers;
  for (const host::PointVerdict &answer : spoken(judge(rest_without(all)))) answers.push_back(said(answer));
  EXPECT_EQ(answers, Lines{});
}

std::set<std::string> Diagnosed::rules_drawn(const ItemSet &units) {
  std::set<std::string> rules;
  for (const host::PointVerdict &answer : spoken(judge(units))) rules.insert(rule_of(answer));
  return rules;
}

// What was found before it is taken back, so that it hides nothing; another limit would take too much with it.
void Diagnosed::expect_enough_to_keep_limit() {
  const auto is_limit = [&](const Fault &fault) { return planted_as(fault).parties.empty(); };
  if (std::count_if(found_.faults.begin(), found_.faults.end(), is_limit) != 1) return;
  const auto limit = std::find_if(found_.faults.begin(), found_.faults.end(), is_limit);
  std::vector<const Fault *> before;
  for (auto fault = found_.faults.begin(); fault != limit; ++fault) before.push_back(&*fault);
  const ItemSet rest = rest_without(before);
  EXPECT_EQ(rules_drawn(rest).count(rule_of(*limit)), 1U);
  const auto enough = static_cast<std::ptrdiff_t>(limit->enough == 0 ? limit->change.size() : limit->enough);
  const ItemSet last = with_dependents(units_.items(), units_at({limit->change.end() - enough, limit->change.end()}));
  EXPECT_EQ(rules_drawn(diagnosis::without(rest, last)).count(rule_of(*limit)), 0U);
}

element::Tree read_back(const element::Tree &tree) {
  if (tree.root().children.empty()) return tree;
  element::Tree read = element::parse_configuration(test_schema(), written_as_json(tree, 0).text, "smallest.json");
  EXPECT_EQ(print(read), print(tree));
  return read;
}

bool says(const host::Verdict &verdict, const host::PointVerdict &answer) {
  return std::any_of(verdict.points.begin(), verdict.points.end(),
                     [&answer](const auto &point) { return said(point) == said(answer); });
}

void Diagnosed::expect_smallest_commits_to_draw() {
  for (const Fault &fault : found_.faults) {
    SCOPED_TRACE(fault.verdict.text);
    EXPECT_TRUE(says(judge(diagnosis::either(units_at(fault.change), units_at(fault.scaffold))), fault.verdict));
    const auto smallest =
        element::make_transaction(read_back(fault.smallest.running), read_back(fault.smallest.candidate), profile());
    EXPECT_TRUE(says(element_.judge(*smallest), fault.verdict));
  }
}

class PlantedFaults : public testing::TestWithParam<std::string> {};

TEST_P(PlantedFaults, are_all_found_once_with_what_draws_them) {
  for (std::uint32_t i = 0; i < commits_of(GetParam()); ++i) {
    const std::uint32_t seed = first_seed() + i;
    SCOPED_TRACE("PLANTED_SEED=" + std::to_string(seed));
    Diagnosed commit(draw_commit(GetParam(), seed));
    commit.expect_each_planted_fault_once();
    if (HasFailure()) return;
    commit.expect_what_the_device_says_first();
    commit.expect_parties();
    commit.expect_accepted_when_taken_back();
    commit.expect_enough_to_keep_limit();
    commit.expect_smallest_commits_to_draw();
    if (HasFailure()) return;
  }
}

std::vector<std::string> planted_rules() {
  std::vector<std::string> rules;
  for (const PlantKind &kind : plant_kinds()) rules.emplace_back(kind.rule);
  return rules;
}

std::string test_name(const testing::TestParamInfo<std::string> &info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Rules, PlantedFaults, testing::ValuesIn(planted_rules()), test_name);

TEST(PlantedRules, are_all_but_the_one_that_no_commit_draws) {
  std::set<std::string> rules;
  for (const rules::Rule &rule : rules::all_rules()) rules.emplace(rule.id);
  // The element never asks with a path that holds no node name.
  EXPECT_EQ(rules.erase("interface-information"), 1U);
  const std::vector<std::string> planted = planted_rules();
  EXPECT_EQ(std::set<std::string>(planted.begin(), planted.end()), rules);
  EXPECT_EQ(planted.size(), rules.size());
}

TEST(PlantedBackground, is_accepted_without_a_warning) {
  for (std::uint32_t i = 0; i < 100; ++i) {
    const std::uint32_t seed = first_seed() + i;
    SCOPED_TRACE("PLANTED_SEED=" + std::to_string(seed));
    Supply supply(seed);
    Draft draft;
    put_background(draft, supply);
    JudgedElement &element = JudgedElement::instance();
    const host::Verdict verdict = element.judge(*element.transaction(draft));
    EXPECT_GT(verdict.points_fired, 0u);
    for (const host::PointVerdict &answer : spoken(verdict)) ADD_FAILURE() << said(answer);
  }
}

}  // namespace
}  // namespace planted
