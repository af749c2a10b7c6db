#include "tests/diagnosis/seeded_faults/judged_element.h"

#include "tests/diagnosis/seeded_faults/name_pool.h"
#include "tests/support/build_under_test.h"

namespace seeded {
namespace {

std::unique_ptr<element::Transaction> transaction_of(const brute_force::Configurations &commit) {
  return element::make_transaction(commit.running, commit.candidate, profile());
}

}  // namespace

JudgedElement::JudgedElement() : session_(profile()), plugin_(plugin_file()) {}

JudgedElement &JudgedElement::instance() {
  static JudgedElement element;
  return element;
}

host::Verdict JudgedElement::judge(const brute_force::Configurations &commit, const host::CommitOptions &options) {
  return host::validate_commit(plugin_, session_, *transaction_of(commit), options);
}

diagnosis::Diagnosis JudgedElement::diagnose(const brute_force::Configurations &commit,
                                             const diagnosis::Options &options) {
  const auto transaction = transaction_of(commit);
  return diagnosis::diagnose(plugin_, session_, *transaction, host::validate_commit(plugin_, session_, *transaction),
                             options);
}

std::vector<host::PointVerdict> spoken(const host::Verdict &verdict) {
  std::vector<host::PointVerdict> answers;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.answer == host::Answer::accepted) continue;
    answers.insert(point.answer == host::Answer::rejected ? answers.begin() : answers.end(), point);
  }
  return answers;
}

}  // namespace seeded
