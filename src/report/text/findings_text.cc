#include "report/text/findings_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <string_view>

#include "report/escape/printable.h"
#include "report/path_text.h"

namespace report {
namespace {

/// A list that is longer is for a program to read.
constexpr std::size_t kLongestList = 8;

/// "1,017".
std::string grouped(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, 1, ',');
  return digits;
}

bool is_wanted(const SearchReport &search) { return search.budget_calls != 0 && search.budget_seconds > 0; }

std::string mark(const NodeReport &node, const TextStyle &style) {
  if (node.status == ChangeStatus::added) return style(Accent::added, "+");
  if (node.status == ChangeStatus::removed) return style(Accent::removed, "-");
  return node.status == ChangeStatus::changed ? style(Accent::changed, "~") : " ";
}

std::string values_of(const NodeReport &node) {
  const bool is_changed = node.old_value && node.new_value && node.status != ChangeStatus::unchanged;
  if (is_changed) return fmt::format(": {} -> {}", *node.old_value, *node.new_value);
  if (node.old_value) return ": " + *node.old_value;
  return node.new_value ? ": " + *node.new_value : "";
}

std::string in_brackets(const FilePlace *place) {
  return place == nullptr ? "" : fmt::format(" ({})", printable(to_text(*place)));
}

template <typename Items, typename Writer>
void write_list(std::ostream &out, std::string_view indent, const Items &items, Writer write) {
  // A line for one more is as good as the line that says so.
  const std::size_t shown = items.size() == kLongestList + 1 ? items.size() : std::min(items.size(), kLongestList);
  for (std::size_t i = 0; i < shown; ++i) write(items[i]);
  if (items.size() > shown) out << indent << fmt::format("... and {} more\n", grouped(items.size() - shown));
}

void write_node(std::ostream &out, std::string_view indent, const NodeReport &node, std::string_view path,
                const TextStyle &style) {
  const std::string text = std::string(path) + values_of(node);
  out << indent << mark(node, style) << ' ' << printable(text) << in_brackets(place_of(node)) << '\n';
}

void write_party(std::ostream &out, const PartyReport &party, const TextStyle &style) {
  out << "     " << mark(party.node, style) << ' ' << printable(title_of(party)) << ": " << status_text(party.node)
      << in_brackets(place_of(party.node)) << '\n';
  // What the commit touches must not be what a long list leaves out.
  std::vector<NodeReport> details = party.details;
  std::stable_partition(details.begin(), details.end(),
                        [](const NodeReport &d) { return d.status != ChangeStatus::unchanged; });
  const std::string_view indent = "         ";
  write_list(out, indent, details, [&](const NodeReport &detail) {
    write_node(out, indent, detail, path_beside(detail.path, party.node.path), style);
  });
}

/// What is to be taken back, without the entries above it that were added for nothing else: empty, they do no harm. In
/// schema order an entry is followed by what stands below it.
std::vector<NodeReport> parts_to_go(const Finding &finding) {
  if (finding.enough != 0) return finding.change;
  std::vector<NodeReport> parts;
  for (const NodeReport &part : finding.change) {
    if (!parts.empty() && part.path.starts_with(parts.back().path + "/")) parts.pop_back();
    parts.push_back(part);
  }
  return parts;
}

std::string take_back(bool is_warning, std::size_t parts, std::uint64_t enough) {
  const std::string begin = is_warning ? "to be rid of it, take back" : "take back";
  if (parts == 1) return begin + ":";
  if (enough == 0 || enough >= parts) return fmt::format("{} these {}:", begin, grouped(parts));
  return fmt::format("{} any {} of these {}:", begin, grouped(enough), grouped(parts));
}

void write_numbered(std::ostream &out, std::size_t number, const Finding &finding, const TextStyle &style) {
  out << number << ". ";
  write_headline(out, finding, style);
  if (!finding.suppressed) write_explanation(out, finding, style);
}

void write_hints(std::ostream &out, const std::vector<Finding> &findings, const SearchReport &search) {
  std::set<std::string_view> rules;
  for (const Finding &finding : findings) rules.insert(finding.rule);
  rules.erase("");
  const bool may_hide = !search.all_faults && count_open(findings, false) != 0;
  if (rules.empty() && !may_hide) return;
  out << '\n';
  if (rules.size() == 1) out << "why, and what to do: vpnval explain " << *rules.begin() << '\n';
  if (rules.size() > 1) out << "why, and what to do: vpnval explain RULE, with what stands in brackets\n";
  if (may_hide) out << "what else is wrong, if anything: vpnval check --all-faults\n";
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

void write_explanation(std::ostream &out, const Finding &finding, const TextStyle &style) {
  if (finding.parties.empty() && finding.change.empty()) {
    out << "   at " << printable(finding.path) << in_brackets(&finding.place) << '\n';
    return;
  }
  out << "   involved:\n";
  write_list(out, "     ", finding.parties, [&](const PartyReport &party) { write_party(out, party, style); });
  if (finding.in_running) {
    out << "   the running configuration has this fault: mend it there, or take back what makes the device look at it\n";
  }
  const std::vector<NodeReport> parts = parts_to_go(finding);
  out << "   " << take_back(finding.is_warning, parts.size(), finding.enough) << '\n';
  const std::string_view indent = "     ";
  write_list(out, indent, parts, [&](const NodeReport &part) { write_node(out, indent, part, part.path, style); });
  if (!finding.complete) out << "   the search ended before it was sure that nothing smaller draws this message\n";
}

void write_findings(std::ostream &out, const std::vector<Finding> &findings, const SearchReport &search,
                    const TextStyle &style) {
  const bool searched = is_wanted(search);
  std::vector<Finding> shown;
  std::copy_if(findings.begin(), findings.end(), std::back_inserter(shown),
               [searched](const Finding &finding) { return searched || finding.suppressed; });
  if (shown.empty()) return;

  const auto hidden = std::stable_partition(shown.begin(), shown.end(), [](const Finding &f) { return f.from_device; });
  const auto from_device = static_cast<std::size_t>(hidden - shown.begin());
  out << fmt::format("\nwhat the device says: {}\n", from_device);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (i == from_device) out << fmt::format("\nhidden behind it: {}\n", shown.size() - from_device);
    out << '\n';
    write_numbered(out, i + 1, shown[i], style);
  }
  if (!searched) return;
  if (search.all_faults && search.end == SearchEnd::complete && from_device == shown.size()) {
    out << "\nhidden behind it: nothing, the rest of the commit is accepted\n";
  }
  if (search.end != SearchEnd::complete) out << '\n' << search_end_text(search) << '\n';
  write_hints(out, shown, search);
}

std::string search_end_text(const SearchReport &search) {
  if (search.end == SearchEnd::complete || !is_wanted(search)) return {};
  if (search.end == SearchEnd::contract_violation) {
    return fmt::format(
        "search stopped: the library broke its contract on a smaller commit: {}; there may be "
        "further faults",
        printable(search.contract_violation));
  }
  const std::string bound = search.end == SearchEnd::call_budget
                                ? fmt::format("{} library calls", grouped(search.budget_calls))
                                : fmt::format("{} s", search.budget_seconds);
  return fmt::format("search stopped: budget of {} used; {}; --budget sets the bound", bound,
                     search.all_faults ? "there may be further faults, and less than is listed may draw a message"
                                       : "less than is listed may draw the message");
}

}  // namespace report
