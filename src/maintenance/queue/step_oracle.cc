#include "maintenance/queue/step_oracle.h"

#include <algorithm>
#include <utility>

#include "element/datastore/transaction.h"
#include "element/input/input_error.h"

namespace queue {
namespace {

using diagnosis::SearchEnd;

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
    : plugin_(plugin),
      session_(session),
      changes_(changes),
      options_(options),
      projector_(session.profile()),
      begin_(now()) {
  projector_.keep(running, running);
}

std::chrono::steady_clock::time_point StepOracle::now() const {
  return options_.now ? options_.now() : std::chrono::steady_clock::now();
}

bool StepOracle::has_ended() {
  if (end_ != SearchEnd::complete) return true;
  if (calls_ >= options_.budget.calls) end_ = SearchEnd::calls;
  if (now() - begin_ >= options_.budget.time) end_ = SearchEnd::time;
  if (options_.is_interrupted && options_.is_interrupted()) end_ = SearchEnd::interrupted;
  return end_ != SearchEnd::complete;
}

diagnosis::Budget StepOracle::left() const {
  const auto used = std::chrono::duration_cast<std::chrono::milliseconds>(now() - begin_);
  return {options_.budget.calls - std::min(calls_, options_.budget.calls),
          options_.budget.time - std::min(used, options_.budget.time)};
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
  if (options_.progress) options_.progress(calls_, 0);
  ++calls_;
  try {
    const auto transaction = element::make_transaction(before, std::move(candidate), projector_);
    return step_of(host::validate_commit(plugin_, session_, *transaction, {.keep_accepted = false}));
  } catch (const host::ContractError &error) {
    end_ = SearchEnd::contract_violation;
    contract_violation_ = error.what();
    return {};
  }
}

}  // namespace queue
