#include "tests/diagnosis/random_commits.h"

#include <gtest/gtest.h>

#include "tests/diagnosis/drawn_commit.h"
#include "tests/diagnosis/judged_element.h"
#include "tests/diagnosis/seeds.h"
#include "tests/element/print.h"

namespace {

constexpr std::size_t kMostEntries = 12;

}  // namespace

void for_each_commit(std::uint32_t commits, const std::function<void(const brute_force::Configurations &)> &test) {
  for (std::uint32_t i = 0; i < commits_to_draw(commits); ++i) {
    const std::uint32_t seed = first_seed() + i;
    const brute_force::Configurations commit = drawn::draw_commit(seed, kMostEntries).configurations();
    SCOPED_TRACE("DIAGNOSIS_SEED=" + std::to_string(seed) + "\n" + text_of(commit));
    test(commit);
    if (testing::Test::HasFailure()) return;
  }
}

std::string text_of(const brute_force::Configurations &commit) {
  std::string text = "running:\n";
  for (const std::string &line : print(commit.running)) text += "  " + line + "\n";
  text += "candidate:\n";
  for (const std::string &line : print(commit.candidate)) text += "  " + line + "\n";
  return text;
}

diagnosis::Budget ample() { return {.calls = 1'000'000, .time = std::chrono::hours(24)}; }

diagnosis::Diagnosis diagnose(const brute_force::Configurations &commit) {
  return JudgedElement::instance().diagnose(commit, {.with_repairs = false, .budget = ample()});
}
