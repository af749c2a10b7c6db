#include "maintenance/queue/explanation.h"

#include <algorithm>
#include <cstdint>

#include "element/datastore/transaction.h"
#include "report/findings.h"

namespace queue {
namespace {

/// The parties of one rejection are not worth more.
constexpr std::uint64_t kMostCallsEach = 500;

host::Verdict verdict_of(const Step &step) {
  host::Verdict verdict;
  verdict.decision =
      step.outcome == StepOutcome::rejected ? host::Decision::rejected : host::Decision::accepted_with_warnings;
  verdict.points = step.messages;
  return verdict;
}

class Explainer {
 public:
  Explainer(const QueueInputs &inputs, const host::Plugin &plugin, host::HostSession &session,
            const diagnosis::Options &options, StepOracle &oracle)
      : inputs_(inputs), plugin_(plugin), session_(session), options_(options), oracle_(oracle) {}

  /// What stands behind some changes that were accepted one after the other.
  struct Base {
    element::ConfigurationFile configuration;
    std::filesystem::path file;
  };

  Base base() const { return {inputs_.running, inputs_.running_file}; }

  Base behind(const Base &base, std::size_t change) const {
    const QueuedChange &applied_change = inputs_.changes[change];
    return {applied(base.configuration, base.file, applied_change), applied_change.file};
  }

  StepReport explain(const Base &base, std::size_t change, const Step &step, bool with_parties) const {
    StepReport report{step.outcome, {}, step.misfit};
    if (step.messages.empty()) return report;
    const Base after = behind(base, change);
    const host::Verdict verdict = verdict_of(step);
    diagnosis::Diagnosis diagnosis;
    if (with_parties && step.outcome == StepOutcome::rejected) diagnosis = diagnose(base, after, verdict);
    report::CommitReport commit;
    report::add_findings(commit, diagnosis, verdict, inputs_.running.tree.schema(),
                         {inputs_.element_file, base.file, after.file, {}},
                         {base.configuration.source, after.configuration.source});
    // What the device would say next is of no interest here.
    std::erase_if(commit.findings, [](const report::Finding &finding) { return !finding.from_device; });
    report.findings = std::move(commit.findings);
    return report;
  }

 private:
  diagnosis::Diagnosis diagnose(const Base &base, const Base &after, const host::Verdict &verdict) const {
    if (oracle_.has_ended()) return {};
    diagnosis::Options options = options_;
    options.all_findings = false;
    options.with_repairs = false;
    options.budget = oracle_.left();
    options.budget.calls = std::min(options.budget.calls, kMostCallsEach);
    if (options_.progress) {
      options.progress = [this](std::uint64_t calls, std::size_t) { options_.progress(oracle_.calls() + calls, 0); };
    }
    const auto transaction =
        element::make_transaction(base.configuration.tree, after.configuration.tree, session_.profile());
    diagnosis::Diagnosis found = diagnosis::diagnose(plugin_, session_, *transaction, verdict, options);
    oracle_.add_calls(found.calls);
    return found;
  }

  const QueueInputs &inputs_;
  const host::Plugin &plugin_;
  host::HostSession &session_;
  const diagnosis::Options &options_;
  StepOracle &oracle_;
};

PairReport explained(const Pair &pair, const Explainer &explainer) {
  PairReport report{pair.kind, pair.first, pair.second, {}, {}, {}};
  if (!pair.differs.empty()) report.differs = element::to_text(pair.differs);
  const Explainer::Base base = explainer.base();
  report.second_on_first =
      explainer.explain(explainer.behind(base, pair.first), pair.second, pair.second_on_first, true);
  if (pair.kind == PairKind::needs) return report;
  report.first_on_second =
      explainer.explain(explainer.behind(base, pair.second), pair.first, pair.first_on_second, true);
  return report;
}

bool is_excluded_by_order(const Queue &queue, std::size_t change) {
  return std::any_of(queue.pairs.begin(), queue.pairs.end(), [&](const Pair &pair) {
    if (pair.kind != PairKind::exclusive || (pair.first != change && pair.second != change)) return false;
    const std::size_t other = pair.first == change ? pair.second : pair.first;
    return std::find(queue.order.begin(), queue.order.end(), other) != queue.order.end();
  });
}

void explain_order(const Queue &queue, const Explainer &explainer, QueueReport &report) {
  Explainer::Base base = explainer.base();
  for (std::size_t i = 0; i < queue.order.size(); ++i) {
    report.steps.push_back(explainer.explain(base, queue.order[i], queue.steps[i], false));
    base = explainer.behind(base, queue.order[i]);
  }
  for (std::size_t i = 0; i < queue.left_out.size(); ++i) {
    const std::size_t change = queue.left_out[i];
    const bool is_told = is_excluded_by_order(queue, change) || queue.alone[change].outcome != StepOutcome::accepted;
    report.left_out_steps.push_back(explainer.explain(base, change, queue.left_out_steps[i], !is_told));
  }
}

}  // namespace

QueueReport explained(const Queue &queue, const QueueInputs &inputs, const host::Plugin &plugin,
                      host::HostSession &session, const diagnosis::Options &options, StepOracle &oracle) {
  const Explainer explainer(inputs, plugin, session, options, oracle);
  QueueReport report;
  report.element = inputs.element_file;
  report.running = inputs.running_file;
  report.plugin_file = plugin.file().string();
  report.build_id = plugin.build_id();
  for (const QueuedChange &change : inputs.changes) report.names.push_back(change.name);
  for (std::size_t i = 0; i < queue.alone.size(); ++i) {
    report.alone.push_back(explainer.explain(explainer.base(), i, queue.alone[i], true));
  }
  for (const Pair &pair : queue.pairs) report.pairs.push_back(explained(pair, explainer));
  report.pairs_asked = queue.pairs_asked;
  report.pairs_possible = queue.pairs_possible;
  report.order = queue.order;
  report.left_out = queue.left_out;
  explain_order(queue, explainer, report);
  report.proof = queue.proof;
  report.sets_asked = queue.sets_asked;
  return report;
}

}  // namespace queue
