// Faults seeded among hundreds of VPNs: all are found, and how many questions that takes does not grow with the commit
// as its number of parts does.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/diagnosis/seeded_faults/background.h"
#include "tests/diagnosis/seeded_faults/explained_seeds.h"
#include "tests/diagnosis/seeded_faults/name_pool.h"
#include "tests/diagnosis/seeds.h"
#include "tests/support/build_under_test.h"

namespace seeded {

const std::uint32_t kVpnLimit = 1000;

namespace {

/// A sanitizer makes each question many times slower.
std::size_t background_vpns() { return is_sanitized() ? 100 : 600; }

class LargeCommits : public testing::TestWithParam<std::string> {};

TEST_P(LargeCommits, have_all_faults_found) {
  SCOPED_TRACE("DIAGNOSIS_SEED=" + std::to_string(first_seed()));
  ExplainedSeeds(draw_commit(GetParam(), first_seed(), background_vpns())).expect_findings();
}

std::string test_name(const testing::TestParamInfo<std::string> &info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Rules, LargeCommits,
                         testing::Values("access-same-dot1q", "pw-id-moved", "access-static-member"), test_name);

/// `conflicts` pairs of new VPNs on one VLAN each, among `vpns` clean ones.
brute_force::Configurations commit_with(std::size_t vpns, std::size_t conflicts) {
  NamePool names(7);
  Draft draft;
  put_clean_vpns(draft, names, vpns);
  const std::string port = names.port();
  for (std::size_t i = 0; i < conflicts; ++i) {
    const auto vlan = static_cast<std::uint16_t>(2000 + i);
    for (int twin = 0; twin < 2; ++twin) attach(draft, names, draw_vpn(names), port, vlan_claim(vlan), Arrival::added);
  }
  return {tree_of(draft.running), tree_of(draft.candidate)};
}

std::uint64_t calls_for(const brute_force::Configurations &commit, std::size_t findings) {
  const diagnosis::Diagnosis found = JudgedElement::instance().diagnose(
      commit, {.with_repairs = false, .budget = {.calls = 1'000'000, .time = std::chrono::hours(24)}});
  EXPECT_EQ(found.findings.size(), findings);
  EXPECT_EQ(found.end, diagnosis::SearchEnd::complete);
  return found.calls;
}

std::uint64_t calls_for(std::size_t vpns, std::size_t conflicts) {
  return calls_for(commit_with(vpns, conflicts), conflicts);
}

/// A VPN with as many new neighbours, more than the element allows pseudowires.
brute_force::Configurations commit_with_neighbors(std::size_t neighbors) {
  NamePool names(7);
  Draft draft;
  const Vpn vpn = draw_vpn(names, Family::vpls);
  for (std::size_t i = 0; i < neighbors; ++i) {
    const std::string address = "172.16." + std::to_string(i / 250) + "." + std::to_string(1 + i % 250);
    put(draft, vpn.neighbor(address) + "/pw-id = " + std::to_string(1000 + i), Arrival::added);
  }
  return {tree_of(draft.running), tree_of(draft.candidate)};
}

TEST(Calls, of_one_conflict_grow_with_the_logarithm_of_the_commit) {
  const std::uint64_t few = calls_for(50, 1);
  const std::uint64_t many = calls_for(800, 1);
  EXPECT_LT(many, 200U);
  EXPECT_LT(many, few + 100);
}

TEST(Calls, grow_no_faster_than_the_conflicts) {
  const std::uint64_t five = calls_for(300, 5);
  const std::uint64_t twenty = calls_for(300, 20);
  EXPECT_LT(five / 5, 120U);
  EXPECT_LT(twenty / 20, 2 * five / 5);
}

/// Interrupts the search at the given look, and counts the looks.
diagnosis::Diagnosis interrupted_at(const brute_force::Configurations &commit, std::uint64_t look, std::uint64_t &looks,
                                    std::uint64_t &looks_before_question) {
  diagnosis::Options options{.with_repairs = false, .budget = {.calls = 1'000'000, .time = std::chrono::hours(24)}};
  options.is_interrupted = [&] { return looks++ >= look; };
  options.progress = [&](std::uint64_t calls, std::size_t) {
    looks_before_question = calls == 0 ? looks : looks_before_question;
  };
  return JudgedElement::instance().diagnose(commit, options);
}

// What takes as long as a question is not done without a look at whether the search is over.
TEST(Interruption, is_looked_for_while_a_large_commit_is_read) {
  const brute_force::Configurations commit = commit_with(600, 1);
  constexpr std::uint64_t kNever = 1'000'000'000;
  std::uint64_t looks = 0;
  std::uint64_t before_question = 0;
  EXPECT_EQ(interrupted_at(commit, kNever, looks, before_question).end, diagnosis::SearchEnd::complete);
  EXPECT_GE(before_question, 5U);
  for (std::uint64_t look = 0; look < before_question; ++look) {
    looks = 0;
    const diagnosis::Diagnosis found = interrupted_at(commit, look, looks, before_question);
    EXPECT_EQ(found.end, diagnosis::SearchEnd::interrupted);
    EXPECT_EQ(found.calls, 0U);
    EXPECT_EQ(looks, look + 1) << "nobody asks once the search is over";
  }
}

// Its text tells how many are too many, here 76 and 1,176; that is asked, and not searched for.
TEST(Calls, of_a_limit_grow_no_faster_than_what_it_counts) {
  const std::uint64_t few = calls_for(commit_with_neighbors(1100), 1);
  const std::uint64_t many = calls_for(commit_with_neighbors(2200), 1);
  EXPECT_LT(few, 40U);
  EXPECT_LT(many, few + 60);
}

}  // namespace
}  // namespace seeded
