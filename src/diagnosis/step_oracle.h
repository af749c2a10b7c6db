#ifndef DIAGNOSIS_STEP_ORACLE_H
#define DIAGNOSIS_STEP_ORACLE_H

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "diagnosis/diagnose.h"
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
  void add_calls(std::uint64_t calls) { calls_ += calls; }

  bool has_ended();
  std::uint64_t calls() const { return calls_; }
  SearchEnd end() const { return end_; }
  const std::string &contract_violation() const { return contract_violation_; }

 private:
  std::chrono::steady_clock::time_point now() const;
  std::optional<host::Verdict> ask(element::Tree running, element::Tree candidate, bool all_points);

  /// A file with the configuration is read back without an error.
  static bool is_readable(const element::Tree &configuration);

  const host::Plugin &plugin_;
  host::HostSession &session_;
  const Stages &stages_;
  const Options &options_;
  element::Projector projector_;
  std::chrono::steady_clock::time_point begin_;
  std::map<std::pair<Stage, Stage>, bool> known_;
  std::uint64_t calls_ = 0;
  SearchEnd end_ = SearchEnd::complete;
  std::string contract_violation_;
};

}  // namespace diagnosis

#endif
