#include "diagnosis/budget_use.h"

#include <algorithm>

namespace diagnosis {

BudgetUse::BudgetUse(const Options &options) : options_(options), begin_(now()) {}

std::chrono::steady_clock::time_point BudgetUse::now() const {
  return options_.now ? options_.now() : std::chrono::steady_clock::now();
}

bool BudgetUse::has_ended() {
  if (end_ != SearchEnd::complete) return true;
  if (now() - begin_ >= options_.budget.time) end_ = SearchEnd::time;
  if (options_.is_interrupted && options_.is_interrupted()) end_ = SearchEnd::interrupted;
  return end_ != SearchEnd::complete;
}

bool BudgetUse::is_used_up() {
  if (has_ended()) return true;
  if (calls_ >= options_.budget.calls) end_ = SearchEnd::calls;
  return end_ != SearchEnd::complete;
}

void BudgetUse::start_call(std::size_t findings) {
  if (options_.progress) options_.progress(calls_, findings);
  ++calls_;
}

void BudgetUse::end_with_violation(const std::string &what) {
  end_ = SearchEnd::contract_violation;
  contract_violation_ = what;
}

Budget BudgetUse::left() const {
  const auto used = std::chrono::duration_cast<std::chrono::milliseconds>(now() - begin_);
  return {options_.budget.calls - std::min(calls_, options_.budget.calls),
          options_.budget.time - std::min(used, options_.budget.time)};
}

}  // namespace diagnosis
