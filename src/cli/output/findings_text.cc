#include "cli/output/findings_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <string_view>

#include "cli/text/path_text.h"
#include "cli/text/printable.h"

namespace cli {
namespace {

/// A list that is longer is for a program to read.
constexpr std::size_t kLongestList = 8;

/// "1,017".
std::string grouped(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, 1, ',');
  return digits;
}

bool is_wanted(const SearchAccount &search) { return search.budget_calls != 0 && search.budget_seconds > 0; }

std::string mark(const FoundNode &node, const Paint &paint) {
  if (node.standing == "added") return paint(Accent::added, "+");
  if (node.standing == "removed") return paint(Accent::removed, "-");
  return node.standing == "changed" ? paint(Accent::changed, "~") : " ";
}

std::string values_of(const FoundNode &node) {
  const bool is_changed = node.old_value && node.new_value && node.standing != "unchanged";
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

void write_node(std::ostream &out, std::string_view indent, const FoundNode &node, std::string_view path,
                const Paint &paint) {
  const std::string text = std::string(path) + values_of(node);
  out << indent << mark(node, paint) << ' ' << printable(text) << in_brackets(place_of(node)) << '\n';
}

void write_party(std::ostream &out, const FoundParty &party, const Paint &paint) {
  out << "     " << mark(party.node, paint) << ' ' << printable(title_of(party)) << ": " << standing_text(party.node)
      << in_brackets(place_of(party.node)) << '\n';
  // What the commit touches must not be what a long list leaves out.
  std::vector<FoundNode> details = party.details;
  std::stable_partition(details.begin(), details.end(), [](const FoundNode &d) { return d.standing != "unchanged"; });
  const std::string_view indent = "         ";
  write_list(out, indent, details, [&](const FoundNode &detail) {
    write_node(out, indent, detail, path_beside(detail.path, party.node.path), paint);
  });
}

/// What is to be taken back, without the entries above it that were added for nothing else: empty, they do no harm. In
/// schema order an entry is followed by what stands below it.
std::vector<FoundNode> parts_to_go(const Finding &finding) {
  if (finding.enough != 0) return finding.change;
  std::vector<FoundNode> parts;
  for (const FoundNode &part : finding.change) {
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

void write_numbered(std::ostream &out, std::size_t number, const Finding &finding, const Paint &paint) {
  out << number << ". ";
  write_headline(out, finding, paint);
  if (!finding.suppressed) write_explanation(out, finding, paint);
}

void write_hints(std::ostream &out, const std::vector<Finding> &findings, const SearchAccount &search) {
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

void write_headline(std::ostream &out, const Finding &finding, const Paint &paint) {
  out << (finding.is_warning ? paint(Accent::warning, "warning") : paint(Accent::rejected, "rejected"));
  if (!finding.rule.empty()) out << " [" << finding.rule << ']';
  out << ": " << paint(Accent::message, printable(finding.message)) << '\n';
  if (!finding.suppressed) return;
  out << "   suppressed by " << printable(to_text(finding.suppressed->by)) << ": "
      << printable(finding.suppressed->reason) << '\n';
  if (!finding.is_warning) out << "   the device rejects the commit all the same\n";
}

void write_explanation(std::ostream &out, const Finding &finding, const Paint &paint) {
  if (finding.parties.empty() && finding.change.empty()) {
    out << "   at " << printable(finding.path) << in_brackets(&finding.place) << '\n';
    return;
  }
  out << "   involved:\n";
  write_list(out, "     ", finding.parties, [&](const FoundParty &party) { write_party(out, party, paint); });
  if (finding.in_running) {
    out << "   the running configuration has this fault: mend it there, or take back what makes the device look at it\n";
  }
  const std::vector<FoundNode> parts = parts_to_go(finding);
  out << "   " << take_back(finding.is_warning, parts.size(), finding.enough) << '\n';
  const std::string_view indent = "     ";
  write_list(out, indent, parts, [&](const FoundNode &part) { write_node(out, indent, part, part.path, paint); });
  if (!finding.complete) out << "   the search ended before it was sure that nothing smaller draws this message\n";
}

void write_findings(std::ostream &out, const std::vector<Finding> &findings, const SearchAccount &search,
                    const Paint &paint) {
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
    write_numbered(out, i + 1, shown[i], paint);
  }
  if (!searched) return;
  if (search.all_faults && search.ended_by.empty() && from_device == shown.size()) {
    out << "\nhidden behind it: nothing, the rest of the commit is accepted\n";
  }
  if (!search.ended_by.empty()) out << '\n' << search_end_text(search) << '\n';
  write_hints(out, shown, search);
}

std::string search_end_text(const SearchAccount &search) {
  if (search.ended_by.empty() || !is_wanted(search)) return {};
  if (search.ended_by == "breach") {
    return fmt::format(
        "the search ended early, for the library broke its contract on a smaller commit: {}; there may be "
        "further faults",
        printable(search.breach));
  }
  const std::string bound = search.ended_by == "calls"
                                ? fmt::format("{} calls of the library are made", grouped(search.budget_calls))
                                : fmt::format("{} s are over", search.budget_seconds);
  return fmt::format("the search ended early, for its {}: {}; --budget sets the bound", bound,
                     search.all_faults ? "there may be further faults, and less than is listed may draw a message"
                                       : "less than is listed may draw the message");
}

}  // namespace cli
