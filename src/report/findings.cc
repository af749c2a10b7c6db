#include "report/findings.h"

#include <algorithm>
#include <utility>

#include "element/input/source_lines.h"
#include "rules/rule.h"

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

/// The parts to choose from where so many are enough, else the first alternative.
std::vector<diagnosis::ChangePart> advised(const diagnosis::Advice &advice) {
  if (advice.enough != 0) return advice.choices;
  return advice.alternatives.empty() ? std::vector<diagnosis::ChangePart>{} : advice.alternatives.front();
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

class Source {
 public:
  Source(const std::filesystem::path &file, const element::ConfigurationText &text)
      : file_(file.string()), lines_(text) {}

  FilePlace place_of(const element::Path &path) const { return {file_, lines_.line_of(path).value_or(0)}; }

 private:
  std::string file_;
  element::SourceLines lines_;
};

class FindingMaker {
 public:
  FindingMaker(const element::Schema &schema, const InputFiles &files, const InputTexts &texts)
      : schema_(schema), running_(files.running, texts.running), candidate_(files.candidate, texts.candidate) {}

  Finding make(const diagnosis::Finding &fault, bool from_device) const {
    Finding finding = make_bare(fault.verdict, from_device);
    for (const auto &part : outermost(advised(fault.advice))) finding.change.push_back(node(part));
    for (const auto &party : fault.parties) finding.parties.push_back(this->party(party));
    finding.enough = fault.advice.enough;
    finding.in_running = fault.is_preexisting;
    finding.complete = fault.is_minimal;
    if (const FilePlace *place = touched_place(finding)) finding.place = *place;
    return finding;
  }

  /// What the verdict alone tells.
  Finding make_bare(const host::PointVerdict &verdict, bool from_device) const {
    const rules::Rule *rule = rules::rule_of_message(verdict.point, verdict.text);
    Finding finding;
    if (rule != nullptr) finding.rule = rule->id;
    finding.is_warning = verdict.answer == host::Answer::warned;
    finding.from_device = from_device;
    finding.point = verdict.point;
    finding.path = verdict.path;
    finding.message = verdict.text;
    finding.complete = false;
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

  /// In the candidate: the first detail that the commit changes of the first party, or that party; else the first part
  /// of the change.
  static const FilePlace *touched_place(const Finding &finding) {
    const auto is_in_candidate = [](const NodeReport &node) {
      return node.status != ChangeStatus::unchanged && node.candidate;
    };
    const auto first = [&](const std::vector<NodeReport> &nodes) {
      const auto found = std::find_if(nodes.begin(), nodes.end(), is_in_candidate);
      return found == nodes.end() ? nullptr : &*found->candidate;
    };
    for (const PartyReport &party : finding.parties) {
      if (!is_in_candidate(party.node)) continue;
      const FilePlace *detail = party.node.status == ChangeStatus::changed ? first(party.details) : nullptr;
      return detail != nullptr ? detail : &*party.node.candidate;
    }
    return first(finding.change);
  }

  const element::Schema &schema_;
  Source running_;
  Source candidate_;
};

// A point that validates the whole configuration names the first node that fired it, which a reduced commit may lack.
bool is_same(const host::PointVerdict &a, const host::PointVerdict &b) {
  return a.answer == b.answer && a.point == b.point && a.text == b.text;
}

/// The rejection comes first here, whatever was said before it.
std::vector<host::PointVerdict> messages_of(const host::Verdict &verdict) {
  std::vector<host::PointVerdict> messages;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.answer == host::Answer::warned) messages.push_back(point);
    if (point.answer == host::Answer::rejected) messages.insert(messages.begin(), point);
  }
  return messages;
}

}  // namespace

std::vector<Finding> make_findings(const diagnosis::Diagnosis &diagnosis, const host::Verdict &verdict,
                                   const element::Schema &schema, const InputFiles &files, const InputTexts &texts) {
  const std::vector<host::PointVerdict> messages = messages_of(verdict);
  if (messages.empty()) return {};

  const FindingMaker maker(schema, files, texts);
  std::vector<Finding> findings;
  // The same message may be drawn a second time behind the first: only the first is the device's.
  std::vector<const diagnosis::Finding *> left;
  for (const diagnosis::Finding &fault : diagnosis.findings) left.push_back(&fault);
  for (const host::PointVerdict &message : messages) {
    const auto fault =
        std::find_if(left.begin(), left.end(), [&message](const auto *f) { return is_same(f->verdict, message); });
    if (fault == left.end()) {
      findings.push_back(maker.make_bare(message, true));
    } else {
      findings.push_back(maker.make(**fault, true));
      findings.back().path = message.path;
      left.erase(fault);
    }
  }
  for (const diagnosis::Finding *fault : left) findings.push_back(maker.make(*fault, false));
  return findings;
}

}  // namespace report
