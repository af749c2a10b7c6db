#include "diagnosis/plan.h"

#include <algorithm>
#include <set>
#include <utility>

#include "diagnosis/messages.h"
#include "diagnosis/split_search.h"
#include "diagnosis/step_oracle.h"

namespace diagnosis {
namespace {

// So few parts have 729 stages, each of which can be asked about.
constexpr std::size_t kMostSplitParts = 6;

/// The rejection of the candidate alone that the running configuration alone does not draw.
std::optional<host::PointVerdict> find_own_fault(StepOracle &oracle, const MergedTree &tree) {
  const std::optional<host::Verdict> wanted = oracle.ask_on_nothing(tree.candidate());
  if (!wanted || wanted->decision != host::Decision::rejected) return std::nullopt;
  const std::optional<host::Verdict> in_force = oracle.ask_on_nothing(tree.running());
  if (!in_force) return std::nullopt;
  Messages messages;
  const NumberSet known = messages.numbers_of(*in_force);
  for (const host::PointVerdict &answer : wanted->points) {
    if (answer.answer == host::Answer::rejected && !contains(known, messages.number_of(answer))) return answer;
  }
  return std::nullopt;
}

/// The parts of the change that have to do with a finding of the whole commit.
NumberSet parts_involved(const Diagnosis &diagnosis, const Entries &entries, const RevertibleChanges &changes) {
  std::set<std::string> paths;
  for (const Finding &finding : diagnosis.findings) {
    for (const Party &party : finding.parties) paths.insert(to_text(party.path));
    for (const Party &party : finding.triggers) paths.insert(to_text(party.path));
  }
  NumberSet parts;
  for (std::uint32_t entry = 0; entry < entries.size(); ++entry) {
    if (paths.contains(to_text(entries.tree().path_of(entries[entry].node)))) {
      parts = united(parts, changes.parts_at(entry));
    }
  }
  return parts;
}

class Planner {
 public:
  Planner(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &transaction,
          const Options &options)
      : plugin_(plugin),
        session_(session),
        transaction_(transaction),
        options_(options),
        tree_(transaction),
        entries_(tree_),
        changes_(entries_),
        stages_(entries_, changes_),
        oracle_(plugin, session, tree_, stages_, options) {}

  Plan run() {
    Plan plan;
    SplitSearch search(stages_, changes_, oracle_);
    // A commit without a change is one step, too, which is asked no question.
    Steps steps = changes_.size() == 0 ? Steps{stages_.last()} : search.find_one_step();
    if (steps.empty()) plan.own_fault = find_own_fault(oracle_, tree_);
    if (steps.empty() && !plan.own_fault) steps = search.find_by_status();
    if (steps.empty() && !plan.own_fault) steps = find_by_parts(search, plan);
    for (const Stage &stage : steps) plan.stages.push_back(stages_.tree(stage));
    plan.calls += oracle_.calls();
    if (plan.end == SearchEnd::complete) plan.end = oracle_.end();
    if (plan.contract_violation.empty()) plan.contract_violation = oracle_.contract_violation();
    return plan;
  }

 private:
  Steps find_by_parts(SplitSearch &search, Plan &plan) {
    if (oracle_.has_ended()) return {};
    const NumberSet parts = changes_.size() > kMostSplitParts ? find_parts(plan) : changes_.all();
    if (parts.size() > kMostSplitParts) return {};
    Steps steps = search.find_among(parts);
    // Where the search for the parts has ended early, there may be more of them.
    if (!steps.empty()) plan.end = SearchEnd::complete;
    if (steps.empty() && plan.end == SearchEnd::complete && !oracle_.has_ended()) plan.parts_tried = parts.size();
    return steps;
  }

  /// The parts that are involved in what is wrong. Half of what is left of the budget goes into finding them.
  NumberSet find_parts(Plan &plan) {
    Options options = options_;
    options.with_repairs = false;
    options.budget.calls = (options.budget.calls - oracle_.calls()) / 2;
    options.budget.time /= 2;
    const host::Verdict verdict = host::validate_commit(plugin_, session_, transaction_);
    const Diagnosis diagnosis = diagnose(plugin_, session_, transaction_, verdict, options);
    oracle_.add_calls(diagnosis.calls + 1);
    plan.end = diagnosis.end;
    plan.contract_violation = diagnosis.contract_violation;
    return parts_involved(diagnosis, entries_, changes_);
  }

  const host::Plugin &plugin_;
  host::HostSession &session_;
  const element::Transaction &transaction_;
  const Options &options_;
  MergedTree tree_;
  Entries entries_;
  RevertibleChanges changes_;
  Stages stages_;
  StepOracle oracle_;
};

}  // namespace

Plan find_plan(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &transaction,
               const Options &options) {
  return Planner(plugin, session, transaction, options).run();
}

}  // namespace diagnosis
