#ifndef TESTS_DIAGNOSIS_SEEDED_FAULTS_JUDGED_ELEMENT_H
#define TESTS_DIAGNOSIS_SEEDED_FAULTS_JUDGED_ELEMENT_H

#include <vector>

#include "diagnosis/diagnose.h"
#include "host/run/commit.h"
#include "tests/diagnosis/merged_entries.h"

namespace seeded {

/// The element with the library that ships; one in a process.
class JudgedElement {
 public:
  static JudgedElement &instance();

  host::Verdict judge(const brute_force::Configurations &commit, const host::CommitOptions &options = {});
  diagnosis::Diagnosis diagnose(const brute_force::Configurations &commit, const diagnosis::Options &options);

 private:
  JudgedElement();

  host::HostSession session_;
  const host::Plugin plugin_;
};

/// The message or warning on which a commit ends, and the warnings said before; none where it is accepted.
std::vector<host::PointVerdict> spoken(const host::Verdict &verdict);

}  // namespace seeded

#endif
