#ifndef DIAGNOSIS_STEP_ORACLE_H
#define DIAGNOSIS_STEP_ORACLE_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "diagnosis/budget_use.h"
#include "diagnosis/stages.h"

namespace diagnosis {

/// Asks the library about commits from one stage to another, as often and as long as the budget allows. The same
/// question is asked once.
class StepOracle {
 public:
  /// All that is referred to must outlive the oracle.
  StepOracle(const host::Plugin &plugin, host::HostSession &session, const MergedTree &tree, const Stages &stages,
             const Options &options);

  /// The library accepts the commit from the one stage to the other, and the data model allows what it leaves. Not
  /// where the search has ended.
  bool accepts(const Stage &from, const Stage &to);

  /// What the library says of a commit to an element that has nothing, all validation points asked.
  std::optional<host::Verdict> ask_on_nothing(const element::Tree &configuration);

  /// Counts calls that another search made on the same budget.
  void add_calls(std::uint64_t calls) { budget_.add_calls(calls); }

  bool has_ended() { return budget_.is_used_up(); }
  std::uint64_t calls() const { return budget_.calls(); }
  SearchEnd end() const { return budget_.end(); }
  const std::string &contract_violation() const { return budget_.contract_violation(); }

 private:
  std::optional<host::Verdict> ask(element::Tree running, element::Tree candidate, bool all_points);

  /// A file with the configuration is read back without an error.
  static bool is_readable(const element::Tree &configuration);

  const host::Plugin &plugin_;
  host::HostSession &session_;
  const Stages &stages_;
  element::Projector projector_;
  BudgetUse budget_;
  std::map<std::pair<Stage, Stage>, bool> known_;
};

}  // namespace diagnosis

#endif
