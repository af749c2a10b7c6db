#ifndef TESTS_DIAGNOSIS_SEEDED_FAULTS_EXPLAINED_SEEDS_H
#define TESTS_DIAGNOSIS_SEEDED_FAULTS_EXPLAINED_SEEDS_H

#include <set>
#include <string>
#include <vector>

#include "tests/diagnosis/change_parts.h"
#include "tests/diagnosis/message.h"
#include "tests/diagnosis/seeded_faults/judged_element.h"
#include "tests/diagnosis/seeded_faults/seeded_commit.h"

namespace seeded {

/// A commit, what the library says of it, and what is found in it.
class ExplainedSeeds {
 public:
  explicit ExplainedSeeds(SeededCommit commit);

  void expect_findings();

  /// What to take back, for each finding and for all, makes the library accept it.
  void expect_advice_to_help();

 private:
  using Paths = std::set<std::string>;

  void expect_each_fault_once() const;
  void expect_what_the_device_says_first() const;
  void expect_parties() const;
  void expect_parties_to_draw();
  void expect_smallest_commits_to_draw();

  const SeededFault &seeded_as(const diagnosis::Finding &finding) const;
  std::set<brute_force::Message> answers(const brute_force::Configurations &commit);
  std::set<brute_force::Message> answers_about(const Paths &paths);

  JudgedElement &element_ = JudgedElement::instance();
  SeededCommit commit_;
  host::Verdict verdict_;
  diagnosis::Diagnosis found_;
};

}  // namespace seeded

#endif
