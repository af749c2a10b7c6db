#include "diagnosis/order_repair.h"

#include <algorithm>
#include <string>
#include <utility>

#include "diagnosis/plan.h"

namespace diagnosis {
namespace {

bool is_rejection(const SearchContext &context, const FoundConflict &conflict) {
  return context.messages[conflict.message].verdict.answer == host::Answer::rejected;
}

/// The candidate's part of the conflict is accepted by an element that has nothing.
bool is_of_order(const SearchContext &context, const FoundConflict &conflict) {
  if (conflict.is_preexisting) return false;
  element::Tree nothing(context.entries.tree().schema());
  const std::optional<NumberSet> answer =
      context.oracle.ask(std::move(nothing), candidate_tree({conflict.entries, {}}, context.entries, context.changes));
  return answer && !contains(*answer, conflict.message);
}

Options share_of_budget(const Oracle &oracle, const Options &options) {
  Options share = options;
  share.with_repairs = false;
  const Budget left = oracle.left();
  share.budget = {left.calls / 2, left.time / 2};
  if (options.progress) {
    share.progress = [&options, made = oracle.calls()](std::uint64_t calls, std::size_t findings) {
      options.progress(made + calls, findings);
    };
  }
  return share;
}

/// Each step as the device would see it, every point asked.
bool brings_nothing_new(const SearchContext &context, const FoundConflicts &conflicts,
                        const std::vector<element::Tree> &stages) {
  NumberSet known;
  for (const FoundConflict &conflict : conflicts) {
    if (!is_rejection(context, conflict)) known.push_back(conflict.message);
  }
  normalise(known);
  const element::Tree *before = &context.entries.tree().running();
  return std::all_of(stages.begin(), stages.end(), [&](const element::Tree &stage) {
    const std::optional<NumberSet> answer = context.oracle.ask(*std::exchange(before, &stage), stage);
    return answer && is_subset(*answer, known);
  });
}

}  // namespace

OrderRepair find_order_repair(const host::Plugin &plugin, host::HostSession &session,
                              const element::Transaction &transaction, const SearchContext &context,
                              const FoundConflicts &conflicts, const Options &options) {
  const auto is_hopeless = [&context](const FoundConflict &conflict) {
    return is_rejection(context, conflict) && !is_of_order(context, conflict);
  };
  const auto is_rejected = [&context](const FoundConflict &conflict) { return is_rejection(context, conflict); };
  if (std::none_of(conflicts.begin(), conflicts.end(), is_rejected)) return {};
  if (std::any_of(conflicts.begin(), conflicts.end(), is_hopeless)) return {};
  if (context.oracle.has_ended()) return {std::nullopt, false};
  const Plan plan = find_plan(plugin, session, transaction, share_of_budget(context.oracle, options));
  context.oracle.add_calls(plan.calls);
  if (plan.stages.size() < 2 || !brings_nothing_new(context, conflicts, plan.stages)) {
    return {std::nullopt, plan.end == SearchEnd::complete};
  }
  Repair repair;
  repair.kind = RepairKind::two_commits;
  repair.values = {std::to_string(plan.stages.size())};
  return {std::move(repair), true};
}

}  // namespace diagnosis
