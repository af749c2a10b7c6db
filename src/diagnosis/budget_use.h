#ifndef DIAGNOSIS_BUDGET_USE_H
#define DIAGNOSIS_BUDGET_USE_H

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "diagnosis/diagnose.h"

namespace diagnosis {

/// What a search has used of its budget, and why it ended. Whoever asks the library on a budget has one.
class BudgetUse {
 public:
  /// The time runs from here on. The options must outlive it.
  explicit BudgetUse(const Options &options);

  /// The search must end, whatever it is doing: the time is over, the user interrupts, or it has ended before.
  bool has_ended();

  /// No question may be asked: the search has ended, or ends now because the calls are used up.
  bool is_used_up();

  /// Tells the progress, with the findings so far, and counts a call of the library.
  void start_call(std::size_t findings = 0);

  /// Counts calls that another search made on the same budget.
  void add_calls(std::uint64_t calls) { calls_ += calls; }

  /// The search ends because the library broke its contract.
  void end_with_violation(const std::string &what);

  /// What is left; never less than nothing.
  Budget left() const;

  std::uint64_t calls() const { return calls_; }
  SearchEnd end() const { return end_; }
  const std::string &contract_violation() const { return contract_violation_; }

 private:
  std::chrono::steady_clock::time_point now() const;

  const Options &options_;
  std::chrono::steady_clock::time_point begin_;
  std::uint64_t calls_ = 0;
  SearchEnd end_ = SearchEnd::complete;
  std::string contract_violation_;
};

}  // namespace diagnosis

#endif
