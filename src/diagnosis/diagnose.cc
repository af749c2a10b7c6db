#include "diagnosis/diagnose.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "diagnosis/advice_search.h"
#include "diagnosis/confirmation.h"
#include "diagnosis/conflict_search.h"
#include "diagnosis/description.h"
#include "diagnosis/exhaustive_search.h"
#include "diagnosis/grouping.h"
#include "diagnosis/limit_search.h"
#include "diagnosis/order_repair.h"
#include "diagnosis/repair_search.h"

namespace diagnosis {
namespace {

// What a conflict is confirmed with is the whole of so small a commit, of a larger one what is near.
constexpr std::uint32_t kFewEntries = 200;

class Diagnoser {
 public:
  Diagnoser(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &transaction,
            const Options &options)
      : plugin_(plugin),
        session_(session),
        transaction_(transaction),
        options_(options),
        tree_(transaction),
        entries_(tree_),
        changes_(entries_),
        oracle_(plugin, session, entries_, changes_, messages_, options),
        context_{entries_, changes_, messages_, oracle_, nullptr} {}

  Diagnosis run(const host::Verdict &verdict) {
    find_conflicts(verdict);
    join_limits_of_groups();
    const std::vector<ConflictGroup> groups = group_conflicts(context_, conflicts_);
    AdviceSearch advice(context_, conflicts_, groups);
    advice.for_each();
    Diagnosis diagnosis;
    for (std::size_t group = 0; group < groups.size(); ++group) {
      diagnosis.findings.push_back(describe_finding(context_, conflicts_, groups[group]));
      diagnosis.findings.back().advice = describe_advice(context_, advice.for_each()[group]);
    }
    if (!groups.empty()) diagnosis.advice = describe_advice(context_, advice.for_all());
    diagnosis.end = oracle_.end();
    if (options_.with_repairs) add_repairs(verdict, groups, diagnosis);
    mark_device_findings(verdict, diagnosis.findings);
    if (!options_.all_findings) {
      std::erase_if(diagnosis.findings, [](const Finding &finding) { return !finding.from_device; });
    }
    finish(verdict, diagnosis);
    return diagnosis;
  }

 private:
  // Every set of a few entries can be asked about; of many entries what is near each other, and then the whole.
  void find_conflicts(const host::Verdict &verdict) {
    if (is_enumerable()) {
      context_.is_enumerated = true;
      conflicts_ = find_all_by_enumeration(context_, entries_.all());
      for (FoundConflict &conflict : conflicts_) {
        find_triggers(context_, conflict);
        conflict.is_minimal = !oracle_.has_ended();
      }
    } else {
      search_conflicts(verdict);
    }
    has_asked_all_ = !oracle_.has_ended();
    FoundConflicts kept = conflicts_;
    drop_mended(context_, kept);
    if (oracle_.has_ended()) add_points_of(conflicts_);
    conflicts_ = std::move(kept);
  }

  bool is_enumerable() const {
    // The empty set is not asked about.
    const std::uint64_t most = std::min(options_.enumerated_sets, options_.budget.calls + 1);
    return entries_.size() <= kMostMaskedEntries && count_closed_sets(entries_, entries_.all(), most + 1) <= most;
  }

  void search_conflicts(const host::Verdict &verdict) {
    locality_.emplace(entries_, [this] { return oracle_.has_ended(); });
    if (entries_.size() > kFewEntries) context_.locality = &*locality_;
    ConflictSearch search(context_, *locality_);
    for (const Message &said : device_messages(verdict)) search.find(messages_.number_of(said.verdict));
    if (options_.all_findings) search.find_all();
    conflicts_ = search.conflicts();
    unfinished_points_ = search.unfinished_points();
  }

  void add_points_of(const FoundConflicts &conflicts) {
    for (const FoundConflict &conflict : conflicts) {
      unfinished_points_.insert(messages_[conflict.message].verdict.point);
    }
  }

  /// A limit may be joined of what was found in parts, which takes questions.
  void join_limits_of_groups() {
    const bool had_ended = oracle_.has_ended();
    join_limits(context_, conflicts_);
    if (!oracle_.has_ended()) return;
    for (FoundConflict &conflict : conflicts_) {
      if (!messages_[conflict.message].counts()) continue;
      conflict.is_minimal = false;
      if (!had_ended) unfinished_points_.insert(messages_[conflict.message].verdict.point);
    }
  }

  /// The end of the search for repairs ends no other.
  void add_repairs(const host::Verdict &verdict, const std::vector<ConflictGroup> &groups, Diagnosis &diagnosis) {
    std::vector<Finding> &findings = diagnosis.findings;
    RepairSearch search(context_, conflicts_, groups, session_.profile());
    for (std::size_t group = 0; group < groups.size(); ++group) {
      if (is_told(verdict, findings[group])) findings[group].repairs = search.for_group(group);
    }
    const OrderRepair order = find_order_repair(plugin_, session_, transaction_, context_, conflicts_, options_);
    for (Finding &finding : findings) {
      if (order.repair && finding.verdict.answer == host::Answer::rejected) finding.repairs.push_back(*order.repair);
    }
    diagnosis.has_all_repairs = oracle_.end() == SearchEnd::complete && order.is_searched;
    if (oracle_.end() == SearchEnd::contract_violation) diagnosis.end = SearchEnd::contract_violation;
  }

  void finish(const host::Verdict &verdict, Diagnosis &diagnosis) const {
    diagnosis.calls = oracle_.calls();
    diagnosis.contract_violation = oracle_.contract_violation();
    for (const rules::Rule &rule : rules::all_rules()) {
      const bool is_unasked = !has_asked_all_ && !is_accepted_by_device(verdict, rule.point);
      if (is_unasked || unfinished_points_.count(rule.point) != 0) diagnosis.unproven_rules.push_back(rule.id);
    }
  }

  /// A point that accepts the whole commit leaves nothing to find. A point answers for all its nodes before the next.
  static bool is_accepted_by_device(const host::Verdict &verdict, const std::string &point) {
    bool is_asked = verdict.points.size() == verdict.points_fired;
    for (const host::PointVerdict &answer : verdict.points) {
      if (answer.point != point) continue;
      if (answer.answer != host::Answer::accepted) return false;
      is_asked = true;
    }
    return is_asked;
  }

  bool says(const Finding &finding, const Message &said) {
    return std::any_of(finding.conflicts.begin(), finding.conflicts.end(), [&](const Conflict &conflict) {
      return messages_.number_of(conflict.verdict) == messages_.number_of(said.verdict);
    });
  }

  bool is_told(const host::Verdict &verdict, const Finding &finding) {
    const auto answers = device_messages(verdict);
    return options_.all_findings ||
           std::any_of(answers.begin(), answers.end(), [&](const Message &said) { return says(finding, said); });
  }

  /// What the device says comes first, in its words.
  void mark_device_findings(const host::Verdict &verdict, std::vector<Finding> &findings) {
    auto place = findings.begin();
    for (const Message &said : device_messages(verdict)) {
      const auto found =
          std::find_if(place, findings.end(), [&](const Finding &finding) { return says(finding, said); });
      if (found == findings.end()) continue;
      found->from_device = true;
      found->verdict = said.verdict;
      found->rule = said.rule_id();
      std::rotate(place, found, found + 1);
      ++place;
    }
  }

  const host::Plugin &plugin_;
  host::HostSession &session_;
  const element::Transaction &transaction_;
  const Options &options_;
  MergedTree tree_;
  Entries entries_;
  RevertibleChanges changes_;
  Messages messages_;
  Oracle oracle_;
  SearchContext context_;
  std::optional<Locality> locality_;
  bool has_asked_all_ = false;
  std::set<std::string> unfinished_points_;
  FoundConflicts conflicts_;
};

}  // namespace

Diagnosis diagnose(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &transaction,
                   const host::Verdict &verdict, const Options &options) {
  return Diagnoser(plugin, session, transaction, options).run(verdict);
}

}  // namespace diagnosis
