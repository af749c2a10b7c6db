#ifndef TESTS_DIAGNOSIS_JUDGED_ELEMENT_H
#define TESTS_DIAGNOSIS_JUDGED_ELEMENT_H

#include <memory>
#include <vector>

#include "diagnosis/diagnose.h"
#include "diagnosis/plan.h"
#include "element/datastore/transaction.h"
#include "tests/diagnosis/merged_entries.h"

/// An element with few ports and small limits, with the library that ships; one in a process, for the library reads
/// the card's limits once.
class JudgedElement {
 public:
  static constexpr std::uint32_t kVpnLimit = 4;
  static constexpr std::uint32_t kAccessInterfaceLimit = 3;
  static constexpr std::uint32_t kEncapsulationVlanLimit = 4;
  static constexpr std::uint32_t kEncapsulationRangeLimit = 3;

  static JudgedElement &instance();

  const element::Profile &profile() const { return profile_; }

  /// What the element's applications derive is added.
  std::unique_ptr<element::Transaction> transaction(const brute_force::Configurations &commit) const;

  /// As the device asks: a rejection ends the commit.
  host::Verdict judge(const brute_force::Configurations &commit);

  /// What every point answers.
  std::vector<host::PointVerdict> ask_all_points(const brute_force::Configurations &commit);

  diagnosis::Diagnosis diagnose(const brute_force::Configurations &commit, const diagnosis::Options &options);

  diagnosis::Plan find_plan(const brute_force::Configurations &commit, const diagnosis::Options &options);

  /// How often the library was asked, by whomever.
  std::uint64_t questions() const { return questions_; }

 private:
  JudgedElement();

  const element::Profile profile_;
  host::HostSession session_;
  const host::Plugin plugin_;
  std::uint64_t questions_ = 0;
};

#endif
