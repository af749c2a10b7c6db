#include "report/text/findings_text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string_view>
#include <vector>

#include "report/escape/printable.h"
#include "report/text/advice_text.h"
#include "report/text/explanation_text.h"
#include "report/text/node_text.h"
#include "rules/rule.h"

namespace report {
namespace {

bool is_wanted(const SearchReport &search) { return search.budget_calls != 0 && search.budget_seconds > 0; }

void write_numbered(std::ostream &out, std::size_t number, const Finding &finding, const TextStyle &style) {
  out << number << ". ";
  write_headline(out, finding, style);
  if (!finding.suppressed) write_explanation(out, finding, style);
}

bool is_same(const AdviceReport &a, const AdviceReport &b) {
  const auto paths = [](const AdviceReport &advice) {
    std::vector<std::string> found{std::to_string(advice.enough)};
    for (const auto &parts : advice.alternatives) {
      for (const PartReport &part : parts) found.push_back(part.node.path);
      found.emplace_back();
    }
    for (const PartReport &part : advice.choices) found.push_back(part.node.path);
    return found;
  };
  return paths(a) == paths(b);
}

/// Of a commit with one finding it says nothing that the finding does not.
bool has_advice_for_all(const CommitReport &commit) {
  const bool is_known = commit.findings.size() == 1 && is_same(commit.advice, commit.findings[0].advice);
  return has_advice(commit.advice) && !is_known;
}

std::string_view lead_for_all(const CommitReport &commit) {
  if (commit.is_audit) return "for none to be left:";
  const bool has_warnings = std::any_of(commit.findings.begin(), commit.findings.end(),
                                        [](const Finding &finding) { return finding.is_warning; });
  return has_warnings ? "for the commit to be accepted without a warning:" : "for the commit to be accepted:";
}

void write_advice_for_all(std::ostream &out, const CommitReport &commit, const TextStyle &style) {
  if (!has_advice_for_all(commit)) return;
  out << '\n';
  write_advice(out, lead_for_all(commit), commit.advice, style);
}

/// Commands to copy and run.
void write_hints(std::ostream &out, const CommitReport &commit) {
  std::set<std::string_view> rules;
  for (const Finding &finding : commit.findings) rules.insert(finding.rule);
  rules.erase("");
  const bool may_hide = !commit.search.all_faults && count_open(commit.findings, false) != 0;
  if (rules.empty() && !may_hide) return;
  out << '\n';
  if (!rules.empty()) out << fmt::format("why: vpnval explain {}\n", fmt::join(rules, " "));
  // The way back has no arguments of its own.
  if (!may_hide || commit.input_arguments.empty()) return;
  out << fmt::format("what else is wrong, if anything: vpnval check --all-faults {}\n", commit.input_arguments);
}

/// "there may be further findings of vpn-limit".
std::string further_findings(const SearchReport &search) {
  const bool is_any = search.unproven_rules.empty() || search.unproven_rules.size() == rules::all_rules().size();
  if (is_any) return "there may be further findings";
  return fmt::format("there may be further findings of {}", fmt::join(search.unproven_rules, ", "));
}

std::string bound_text(const SearchReport &search) {
  switch (search.end) {
    case SearchEnd::complete:
      break;
    case SearchEnd::call_budget:
      return fmt::format("budget of {} library calls used", grouped(search.budget_calls));
    case SearchEnd::time_budget:
      return fmt::format("budget of {} s used", search.budget_seconds);
    case SearchEnd::interrupted:
      return "interrupted";
    case SearchEnd::contract_violation:
      return "the library broke its contract on a smaller commit: " + printable(search.contract_violation);
  }
  return {};
}

}  // namespace

void write_findings(std::ostream &out, const CommitReport &commit, const TextStyle &style) {
  const bool searched = is_wanted(commit.search);
  std::vector<Finding> shown;
  std::copy_if(commit.findings.begin(), commit.findings.end(), std::back_inserter(shown),
               [searched](const Finding &finding) { return searched || finding.suppressed || !finding.rule.empty(); });
  if (shown.empty()) return;

  const auto next = std::stable_partition(shown.begin(), shown.end(), [](const Finding &f) { return f.from_device; });
  const auto from_device = static_cast<std::size_t>(next - shown.begin());
  out << fmt::format("\n{}: {}\n", commit.is_audit ? "faults in force" : "what the device says", from_device);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (i == from_device) out << fmt::format("\nwhat it would say next: {}\n", shown.size() - from_device);
    out << '\n';
    write_numbered(out, i + 1, shown[i], style);
  }
  if (!searched) return write_hints(out, commit);
  write_advice_for_all(out, commit, style);
  if (is_proven_complete(commit.search)) out << "\nnothing else is wrong\n";
  const std::string end = search_end_text(commit.search);
  if (!end.empty()) out << '\n' << end << '\n';
  write_hints(out, commit);
}

std::string advice_for_all_line(const CommitReport &commit) {
  return has_advice_for_all(commit) ? fmt::format("{} {}", lead_for_all(commit), advice_line(commit.advice)) : "";
}

std::string search_end_text(const SearchReport &search) {
  if (!is_wanted(search)) return {};
  if (search.end == SearchEnd::complete) {
    const bool is_told = search.all_faults && !search.unproven_rules.empty();
    if (is_told) return "not everything was looked at: " + further_findings(search);
    return search.has_all_repairs ? "" : "search stopped: not every value that may be changed was asked about";
  }
  std::string text = "search stopped: " + bound_text(search);
  if (search.all_faults) text += "; " + further_findings(search);
  if (search.end == SearchEnd::call_budget || search.end == SearchEnd::time_budget) text += "; --budget sets the bound";
  return text;
}

}  // namespace report
