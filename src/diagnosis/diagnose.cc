#include "diagnosis/diagnose.h"

#include <algorithm>
#include <utility>

#include "diagnosis/advice_search.h"
#include "diagnosis/confirmation.h"
#include "diagnosis/conflict_search.h"
#include "diagnosis/description.h"
#include "diagnosis/exhaustive_search.h"
#include "diagnosis/grouping.h"
#include "diagnosis/limit_search.h"

namespace diagnosis {
namespace {

// What a conflict is confirmed with is the whole of so small a commit, of a larger one what is near.
constexpr std::uint32_t kFewEntries = 200;

class Diagnoser {
 public:
  Diagnoser(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &transaction,
            const Options &options)
      : options_(options),
        tree_(transaction),
        entries_(tree_),
        changes_(entries_),
        oracle_(plugin, session, entries_, changes_, messages_, options),
        context_{entries_, changes_, messages_, oracle_, nullptr} {}

  Diagnosis run(const host::Verdict &verdict) {
    find_conflicts(verdict);
    join_limits(context_, conflicts_);
    const std::vector<ConflictGroup> groups = group_conflicts(context_, conflicts_);
    AdviceSearch advice(context_, conflicts_, groups);
    advice.for_each();
    Diagnosis diagnosis;
    for (std::size_t group = 0; group < groups.size(); ++group) {
      diagnosis.findings.push_back(describe_finding(context_, conflicts_, groups[group]));
      diagnosis.findings.back().advice = describe_advice(context_, advice.for_each()[group]);
    }
    if (!groups.empty()) diagnosis.advice = describe_advice(context_, advice.for_all());
    mark_device_findings(verdict, diagnosis.findings);
    if (!options_.all_findings) {
      std::erase_if(diagnosis.findings, [](const Finding &finding) { return !finding.from_device; });
    }
    finish(diagnosis);
    return diagnosis;
  }

 private:
  // Every set of a few entries can be asked about; of many entries what is near each other, and then the whole.
  void find_conflicts(const host::Verdict &verdict) {
    const std::uint64_t most = std::min(options_.enumerated_sets, options_.budget.calls);
    if (entries_.size() < 32 && count_closed_sets(entries_, most + 1) <= most) {
      context_.is_enumerated = true;
      conflicts_ = find_all_by_enumeration(context_);
      for (FoundConflict &conflict : conflicts_) find_triggers(context_, conflict);
      drop_mended(context_, conflicts_);
      return;
    }
    locality_.emplace(entries_);
    if (entries_.size() > kFewEntries) context_.locality = &*locality_;
    ConflictSearch search(context_, *locality_);
    for (const Message &said : device_messages(verdict)) search.find(messages_.number_of(said.verdict));
    if (options_.all_findings) search.find_all();
    conflicts_ = search.conflicts();
    is_proven_ = search.is_proven();
    drop_mended(context_, conflicts_);
  }

  void finish(Diagnosis &diagnosis) const {
    diagnosis.calls = oracle_.calls();
    diagnosis.end = oracle_.end();
    diagnosis.contract_violation = oracle_.contract_violation();
    if (is_proven_ && diagnosis.end == SearchEnd::complete) return;
    for (const rules::Rule &rule : rules::all_rules()) diagnosis.unproven_rules.emplace_back(rule.id);
  }

 private:
  /// What the device says comes first, in its words.
  void mark_device_findings(const host::Verdict &verdict, std::vector<Finding> &findings) {
    auto place = findings.begin();
    for (const Message &said : device_messages(verdict)) {
      const std::uint32_t message = messages_.number_of(said.verdict);
      const auto says_it = [&](const Finding &finding) {
        return std::any_of(finding.conflicts.begin(), finding.conflicts.end(),
                           [&](const Conflict &conflict) { return messages_.number_of(conflict.verdict) == message; });
      };
      const auto found = std::find_if(place, findings.end(), says_it);
      if (found == findings.end()) continue;
      found->from_device = true;
      found->verdict = said.verdict;
      found->rule = said.rule_id();
      std::rotate(place, found, found + 1);
      ++place;
    }
  }

  const Options &options_;
  MergedTree tree_;
  Entries entries_;
  RevertibleChanges changes_;
  Messages messages_;
  Oracle oracle_;
  SearchContext context_;
  std::optional<Locality> locality_;
  bool is_proven_ = true;
  FoundConflicts conflicts_;
};

}  // namespace

Diagnosis diagnose(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &transaction,
                   const host::Verdict &verdict, const Options &options) {
  return Diagnoser(plugin, session, transaction, options).run(verdict);
}

}  // namespace diagnosis
