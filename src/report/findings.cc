#include "report/findings.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "diagnosis/messages.h"
#include "report/file_place.h"

namespace report {
namespace {

ChangeStatus status_of(diagnosis::ChangeStatus standing) {
  switch (standing) {
    case diagnosis::ChangeStatus::unchanged:
      return ChangeStatus::unchanged;
    case diagnosis::ChangeStatus::added:
      return ChangeStatus::added;
    case diagnosis::ChangeStatus::changed:
      return ChangeStatus::changed;
    case diagnosis::ChangeStatus::removed:
      return ChangeStatus::removed;
  }
  return ChangeStatus::unchanged;
}

RepairKind kind_of(diagnosis::RepairKind kind) {
  switch (kind) {
    case diagnosis::RepairKind::free_vlans:
      return RepairKind::free_vlans;
    case diagnosis::RepairKind::free_pw_ids:
      return RepairKind::free_pw_ids;
    case diagnosis::RepairKind::interface_name:
      return RepairKind::interface_name;
    case diagnosis::RepairKind::two_commits:
      return RepairKind::two_commits;
  }
  return RepairKind::two_commits;
}

bool is_below(const element::Path &inner, const element::Path &outer) {
  const auto is_same_step = [](const element::PathStep &a, const element::PathStep &b) {
    return a.schema == b.schema && a.keys == b.keys;
  };
  return inner.size() > outer.size() && std::equal(outer.begin(), outer.end(), inner.begin(), is_same_step);
}

/// Without what goes with another part, for an entry takes along all it holds.
std::vector<diagnosis::ChangePart> outermost(const std::vector<diagnosis::ChangePart> &parts) {
  std::vector<diagnosis::ChangePart> outer;
  for (const diagnosis::ChangePart &part : parts) {
    const auto holds_it = [&part](const diagnosis::ChangePart &other) { return is_below(part.path, other.path); };
    if (std::none_of(parts.begin(), parts.end(), holds_it)) outer.push_back(part);
  }
  return outer;
}

/// A configuration's file, and what is known of it.
class Source {
 public:
  Source(std::filesystem::path file, const element::ConfigurationSource &source)
      : file_(std::move(file)), source_(source) {}

  FilePlace place_of(const element::Path &path) const { return report::place_of(path, file_, source_); }

 private:
  std::filesystem::path file_;
  const element::ConfigurationSource &source_;
};

class FindingMaker {
 public:
  FindingMaker(const element::Schema &schema, const InputFiles &files, const InputSources &sources)
      : schema_(schema), running_(files.running, sources.running), candidate_(files.candidate, sources.candidate) {}

  Finding make(const diagnosis::Finding &found, bool from_device) const {
    Finding finding = make_bare(found.verdict, found.rule, from_device);
    for (const auto &party : found.parties) finding.parties.push_back(this->party(party));
    for (const auto &trigger : found.triggers) finding.triggers.push_back(party(trigger));
    for (const auto &[verdict, parties, triggers] : found.conflicts) {
      finding.conflicts.push_back({verdict.point, verdict.path, verdict.text, parties, triggers});
    }
    finding.is_preexisting = found.is_preexisting;
    finding.is_minimal = found.is_minimal;
    finding.enough = found.enough;
    finding.enough_at_most = found.enough_at_most;
    finding.advice = advice(found.advice);
    for (const auto &repair : found.repairs) finding.repairs.push_back(this->repair(repair));
    if (const FilePlace *place = touched_place(finding)) finding.place = *place;
    return finding;
  }

  AdviceReport advice(const diagnosis::Advice &found) const {
    AdviceReport advice;
    for (const diagnosis::CorrectionSet &set : found.alternatives) advice.alternatives.push_back(parts(set));
    advice.enough = found.enough;
    advice.choices = parts(found.choices);
    advice.is_minimal = found.is_minimal;
    advice.has_all_alternatives = found.has_all_alternatives;
    return advice;
  }

  /// What the verdict alone tells.
  Finding make_bare(const host::PointVerdict &verdict, const std::string &rule, bool from_device) const {
    Finding finding;
    finding.rule = rule;
    finding.is_warning = verdict.answer == host::Answer::warned;
    finding.from_device = from_device;
    finding.point = verdict.point;
    finding.path = verdict.path;
    finding.message = verdict.text;
    finding.place = candidate_.place_of(element::parse_path(schema_, verdict.path));
    return finding;
  }

 private:
  NodeReport node(diagnosis::ChangeStatus standing, const element::Path &path) const {
    NodeReport node;
    node.status = status_of(standing);
    node.path = element::to_text(path);
    if (standing != diagnosis::ChangeStatus::added) node.running = running_.place_of(path);
    if (standing != diagnosis::ChangeStatus::removed) node.candidate = candidate_.place_of(path);
    return node;
  }

  template <typename Part>
  NodeReport node(const Part &part) const {
    NodeReport node = this->node(part.status, part.path);
    node.old_value = part.old_value;
    node.new_value = part.new_value;
    return node;
  }

  PartyReport party(const diagnosis::Party &party) const {
    PartyReport found{node(party.status, party.path), party.group, party.vpn, party.interface, party.neighbor, {}};
    for (const diagnosis::Detail &detail : party.details) found.details.push_back(node(detail));
    return found;
  }

  std::vector<PartReport> parts(const std::vector<diagnosis::ChangePart> &found) const {
    std::vector<PartReport> parts;
    for (const diagnosis::ChangePart &part : outermost(found)) {
      parts.push_back({node(part), {}});
      for (const diagnosis::Detail &detail : part.details) parts.back().details.push_back(node(detail));
    }
    return parts;
  }

  RepairReport repair(const diagnosis::Repair &found) const {
    RepairReport repair{kind_of(found.kind), "", std::nullopt, found.values, found.on_all_ports};
    if (found.path.empty()) return repair;
    repair.path = element::to_text(found.path);
    repair.place = candidate_.place_of(found.path);
    return repair;
  }

  static bool is_changed_in_candidate(const NodeReport &node) {
    return node.status != ChangeStatus::unchanged && node.candidate;
  }

  /// In the candidate: the first detail that the commit changes of the first party, or that party; else of a trigger,
  /// else what is advised to take back.
  static const FilePlace *touched_place(const Finding &finding) {
    for (const std::vector<PartyReport> *entries : {&finding.parties, &finding.triggers}) {
      for (const PartyReport &entry : *entries) {
        if (!is_changed_in_candidate(entry.node)) continue;
        const auto detail = std::find_if(entry.details.begin(), entry.details.end(), is_changed_in_candidate);
        const bool is_within = entry.node.status == ChangeStatus::changed && detail != entry.details.end();
        return is_within ? &*detail->candidate : &*entry.node.candidate;
      }
    }
    for (const std::vector<PartReport> &parts : finding.advice.alternatives) {
      for (const PartReport &part : parts) {
        if (is_changed_in_candidate(part.node)) return &*part.node.candidate;
      }
    }
    return nullptr;
  }

  const element::Schema &schema_;
  Source running_;
  Source candidate_;
};

// A point that validates the whole configuration names the first node that fired it, which a reduced commit may lack.
bool is_same(const host::PointVerdict &a, const host::PointVerdict &b) {
  return a.answer == b.answer && a.point == b.point && a.text == b.text;
}

/// Conflicts of one finding may each have a message.
bool says(const diagnosis::Finding &finding, const host::PointVerdict &message) {
  return std::any_of(finding.conflicts.begin(), finding.conflicts.end(),
                     [&message](const diagnosis::Conflict &conflict) { return is_same(conflict.verdict, message); });
}

/// Command lines for what other commands do, where the commit has arguments of its own.
void add_commands(CommitReport &commit) {
  if (commit.input_arguments.empty()) return;
  for (Finding &finding : commit.findings) {
    for (RepairReport &repair : finding.repairs) {
      if (repair.kind != RepairKind::two_commits) continue;
      repair.command = fmt::format("vpnval plan {} -o steps", commit.input_arguments);
    }
  }
}

}  // namespace

void add_findings(CommitReport &commit, const diagnosis::Diagnosis &diagnosis, const host::Verdict &verdict,
                  const element::Schema &schema, const InputFiles &files, const InputSources &sources) {
  const std::vector<diagnosis::Message> messages = diagnosis::device_messages(verdict);
  if (messages.empty()) return;

  const FindingMaker maker(schema, files, sources);
  // The same message may be drawn a second time behind the first: only the first is the device's.
  std::vector<const diagnosis::Finding *> left;
  for (const diagnosis::Finding &found : diagnosis.findings) left.push_back(&found);
  for (const diagnosis::Message &said : messages) {
    const host::PointVerdict &message = said.verdict;
    const auto found =
        std::find_if(left.begin(), left.end(), [&message](const auto *f) { return is_same(f->verdict, message); });
    if (found != left.end()) {
      commit.findings.push_back(maker.make(**found, true));
      commit.findings.back().path = message.path;
      left.erase(found);
    } else if (std::none_of(diagnosis.findings.begin(), diagnosis.findings.end(),
                            [&message](const diagnosis::Finding &finding) { return says(finding, message); })) {
      commit.findings.push_back(maker.make_bare(message, said.rule_id(), true));
    }
  }
  for (const diagnosis::Finding *found : left) commit.findings.push_back(maker.make(*found, false));
  commit.advice = maker.advice(diagnosis.advice);
  add_commands(commit);
}

}  // namespace report
