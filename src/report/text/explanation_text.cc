#include "report/text/explanation_text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

#include "element/profile/nearest_interfaces.h"
#include "report/escape/printable.h"
#include "report/text/advice_text.h"
#include "report/text/node_text.h"

namespace report {
namespace {

/// What the commit does within an entry that stays is to be looked at rather than the entry.
const FilePlace *place_of(const PartyReport &party) {
  const auto is_touched = [](const NodeReport &detail) { return detail.status != ChangeStatus::unchanged; };
  const auto detail = std::find_if(party.details.begin(), party.details.end(), is_touched);
  const bool is_within = party.node.status == ChangeStatus::changed && detail != party.details.end();
  const FilePlace *place = is_within ? report::place_of(*detail) : nullptr;
  return place != nullptr ? place : report::place_of(party.node);
}

/// The parties that are at odds, of conflicts that do not differ in their triggers alone. Empty where that says
/// nothing: of one conflict, of a limit, or where each party draws the message alone.
std::set<std::vector<std::size_t>> several_conflicts(const Finding &finding) {
  std::set<std::vector<std::size_t>> conflicts;
  for (const ConflictReport &conflict : finding.conflicts) {
    conflicts.insert(conflict.parties);
  }
  const bool is_any_of_several =
      std::any_of(conflicts.begin(), conflicts.end(), [](const auto &parties) { return parties.size() > 1; });
  if (finding.enough != 0 || conflicts.size() < 2 || !is_any_of_several) return {};
  return conflicts;
}

void write_parties(std::ostream &out, const Finding &finding, const TextStyle &style) {
  out << "   involved:\n";
  const bool is_numbered = !several_conflicts(finding).empty();
  std::size_t number = 0;
  write_list(out, "     ", finding.parties, [&](const PartyReport &party) {
    out << "     ";
    if (is_numbered) out << fmt::format("{}) ", ++number);
    write_party(out, party, style);
  });
}

void write_fault_in_force(std::ostream &out, const Finding &finding, const TextStyle &style) {
  if (finding.is_preexisting) out << "   the running configuration has this fault\n";
  if (finding.triggers.empty()) return;
  out << "   makes the library look:\n";
  write_list(out, "     ", finding.triggers, [&](const PartyReport &trigger) {
    out << "     ";
    write_party(out, trigger, style);
  });
}

}  // namespace

void write_headline(std::ostream &out, const Finding &finding, const TextStyle &style) {
  out << (finding.is_warning ? style(Accent::warning, "warning") : style(Accent::rejected, "rejected"));
  if (!finding.rule.empty()) out << " [" << finding.rule << ']';
  out << ": " << style(Accent::message, printable(finding.message)) << '\n';
  if (!finding.suppressed) return;
  out << "   suppressed by " << printable(to_text(finding.suppressed->by)) << ": "
      << printable(finding.suppressed->reason) << '\n';
  if (!finding.is_warning) out << "   the device rejects the commit all the same\n";
}

void write_party(std::ostream &out, const PartyReport &party, const TextStyle &style) {
  const std::string details = nodes_text(party.details, party.node.path, party.node.status == ChangeStatus::changed);
  out << mark(party.node, style) << ' ' << printable(title_of(party)) << ": " << status_text(party.node)
      << (party.near_interfaces ? ", " + printable(element::not_in_profile(*party.near_interfaces)) : "")
      << (details.empty() ? "" : ", ") << details << in_brackets(place_of(party)) << '\n';
}

void write_to_do(std::ostream &out, const Finding &finding, const TextStyle &style) {
  const std::string_view lead = finding.is_warning ? "   to be rid of it:" : "   to do:";
  if (finding.is_preexisting) out << lead << " mend the fault in the running configuration first\n";
  if (has_advice(finding.advice)) {
    write_advice(out, finding.is_preexisting ? "      or:" : lead, finding.advice, style);
  } else if (!finding.is_preexisting && !finding.advice.has_all_alternatives) {
    out << lead << " the search was ended before it found what to take back; see --budget\n";
  } else if (!finding.is_preexisting) {
    out << lead << " no part of the change was found that helps when it is taken back\n";
  }
  write_repairs(out, finding.repairs);
}

std::string conflicts_line(const Finding &finding) {
  const std::set<std::vector<std::size_t>> conflicts = several_conflicts(finding);
  std::vector<std::string> texts;
  for (const std::vector<std::size_t> &parties : conflicts) {
    if (texts.size() == kLongestList) break;
    std::set<std::size_t> numbers;
    for (const std::size_t party : parties) numbers.insert(party + 1);
    texts.push_back(fmt::format("{}", fmt::join(numbers, ", ")));
  }
  if (texts.empty()) return {};
  const std::size_t left = conflicts.size() - texts.size();
  const std::string rest = left == 0 ? "" : fmt::format("; and {} more", grouped(left));
  return fmt::format("in conflict: {}{}", fmt::join(texts, "; "), rest);
}

void write_explanation(std::ostream &out, const Finding &finding, const TextStyle &style) {
  if (finding.conflicts.empty()) {
    out << "   at " << printable(finding.path) << in_brackets(&finding.place) << '\n';
    return;
  }
  write_parties(out, finding, style);
  write_fault_in_force(out, finding, style);
  write_to_do(out, finding, style);
  const std::string conflicts = conflicts_line(finding);
  if (!conflicts.empty()) out << "   " << conflicts << '\n';
  if (!finding.is_minimal) out << "   the search ended before it was sure that every party is needed\n";
}

}  // namespace report
