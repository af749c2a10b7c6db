#ifndef MAINTENANCE_QUEUE_STEP_ORACLE_H
#define MAINTENANCE_QUEUE_STEP_ORACLE_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "diagnosis/budget_use.h"
#include "element/projection/projection.h"
#include "maintenance/queue/queued_change.h"

namespace queue {

/// What becomes of a change as a commit of its own.
enum class StepOutcome {
  accepted,  ///< with warnings or without
  rejected,
  does_not_fit,  ///< the edit cannot be applied, or the data model does not allow what it makes
  not_asked      ///< the search had ended
};

struct Step {
  StepOutcome outcome = StepOutcome::not_asked;
  std::vector<host::PointVerdict> messages;  ///< the rejection, and the warnings before it
  std::string misfit;                        ///< does_not_fit: why, "FILE:LINE: PATH: ...; expected ..."
};

/// Asks the library about changes, each a commit of its own, as often and as long as the budget allows.
class StepOracle {
 public:
  /// All that is referred to must outlive the oracle.
  StepOracle(const host::Plugin &plugin, host::HostSession &session, const element::Tree &running,
             const std::vector<QueuedChange> &changes, const diagnosis::Options &options);

  /// Asks about the commit of a change, by its index, to an element that has the configuration. Where it is accepted
  /// and `after` is not null, `*after` is set to what it leaves.
  Step ask(const element::Tree &before, std::size_t change, std::optional<element::Tree> *after = nullptr);

  /// What a change leaves that is accepted, without another call of the library. Throws element::InputError where the
  /// change does not fit.
  element::Tree after(const element::Tree &before, std::size_t change) const;

  /// The search must end, because the budget is used up, a signal has come, or the library broke its contract.
  bool has_ended() { return budget_.is_used_up(); }

  /// Counts calls that another search made on the same budget.
  void add_calls(std::uint64_t calls) { budget_.add_calls(calls); }

  /// What is left of the budget.
  diagnosis::Budget left() const { return budget_.left(); }

  std::uint64_t calls() const { return budget_.calls(); }
  diagnosis::SearchEnd end() const { return budget_.end(); }
  const std::string &contract_violation() const { return budget_.contract_violation(); }

 private:
  Step ask_library(const element::Tree &before, element::Tree candidate);

  const host::Plugin &plugin_;
  host::HostSession &session_;
  const std::vector<QueuedChange> &changes_;
  element::Projector projector_;
  diagnosis::BudgetUse budget_;
};

}  // namespace queue

#endif
