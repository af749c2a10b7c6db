#include "maintenance/queue/step_oracle.h"

#include <utility>

#include "element/datastore/transaction.h"
#include "element/input/input_error.h"

namespace queue {
namespace {

/// What the device says: it stops at its first rejection.
Step step_of(const host::Verdict &verdict) {
  Step step;
  step.outcome = verdict.decision == host::Decision::rejected ? StepOutcome::rejected : StepOutcome::accepted;
  step.messages = verdict.points;
  return step;
}

}  // namespace

StepOracle::StepOracle(const host::Plugin &plugin, host::HostSession &session, const element::Tree &running,
                       const std::vector<QueuedChange> &changes, const diagnosis::Options &options)
    : plugin_(plugin), session_(session), changes_(changes), projector_(session.profile()), budget_(options) {
  projector_.keep(running, running);
}

Step StepOracle::ask(const element::Tree &before, std::size_t change, std::optional<element::Tree> *after) {
  if (has_ended()) return {};
  try {
    element::Tree candidate = applied(before, changes_[change]);
    Step step = ask_library(before, candidate);
    if (step.outcome == StepOutcome::accepted && after != nullptr) after->emplace(std::move(candidate));
    return step;
  } catch (const element::InputError &error) {
    return {StepOutcome::does_not_fit, {}, error.what()};
  }
}

element::Tree StepOracle::after(const element::Tree &before, std::size_t change) const {
  return edited(before, changes_[change]);
}

Step StepOracle::ask_library(const element::Tree &before, element::Tree candidate) {
  budget_.start_call();
  try {
    const auto transaction = element::make_transaction(before, std::move(candidate), projector_);
    return step_of(host::validate_commit(plugin_, session_, *transaction, {.keep_accepted = false}));
  } catch (const host::ContractError &error) {
    budget_.end_with_violation(error.what());
    return {};
  }
}

}  // namespace queue
