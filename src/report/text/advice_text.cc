#include "report/text/advice_text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

#include "report/escape/printable.h"
#include "report/text/node_text.h"

namespace report {
namespace {

using Parts = std::vector<PartReport>;

std::string node_text(const NodeReport &node, const std::string &what, const FilePlace *place, const TextStyle &style) {
  const std::string sign = node.status == ChangeStatus::in_force ? "" : mark(node, style) + " ";
  return fmt::format("{}{}{}{}{}", sign, printable(node.path), what.empty() ? "" : ":", what, in_brackets(place));
}

/// One change in place is told as such, several with the entry in which they are.
std::string part_text(const PartReport &part, const TextStyle &style) {
  const std::vector<NodeReport> &details = part.details;
  const NodeReport &node = details.size() == 1 ? details.front() : part.node;
  if (details.size() < 2) return node_text(node, printable(values_of(node)), place_of(node), style);
  return node_text(part.node, " " + nodes_text(details, part.node.path, true), place_of(details.front()), style);
}

/// At least as many as are needed are told, so that what is told can be done.
void write_parts(std::ostream &out, const Parts &parts, std::size_t needed, const TextStyle &style) {
  const auto write = [&](const PartReport &part) { out << "     " << part_text(part, style) << '\n'; };
  write_list(out, "     ", parts, write, needed);
}

/// Sets of several parts, each with its number.
void write_sets(std::ostream &out, const std::vector<Parts> &sets, const TextStyle &style) {
  std::size_t number = 0;
  write_list(out, "     ", sets, [&](const Parts &parts) {
    const std::string lead = fmt::format("     {}) ", ++number);
    const std::string indent(lead.size(), ' ');
    for (const PartReport &part : parts) {
      out << (&part == &parts.front() ? lead : indent) << part_text(part, style) << '\n';
    }
  });
}

/// What is in force was never given: there is nothing to take back.
const char *verb_for(const Parts &parts) {
  return !parts.empty() && parts.front().node.status == ChangeStatus::in_force ? "remove" : "take back";
}

void write_alternatives(std::ostream &out, std::string_view lead, const std::vector<Parts> &sets,
                        const TextStyle &style) {
  const bool is_single = std::all_of(sets.begin(), sets.end(), [](const Parts &parts) { return parts.size() == 1; });
  const char *verb = verb_for(sets.front());
  if (sets.size() == 1 && is_single) {
    out << lead << ' ' << verb << ' ' << part_text(sets.front().front(), style) << '\n';
  } else if (sets.size() == 1) {
    out << lead << fmt::format(" {} these {}:\n", verb, grouped(sets.front().size()));
    write_parts(out, sets.front(), sets.front().size(), style);
  } else if (is_single) {
    Parts choices;
    for (const Parts &parts : sets) choices.push_back(parts.front());
    out << lead << fmt::format(" {} any one of these {}:\n", verb, grouped(sets.size()));
    write_parts(out, choices, 1, style);
  } else {
    out << lead << fmt::format(" {} any one of these {} sets, the whole of it:\n", verb, grouped(sets.size()));
    write_sets(out, sets, style);
  }
}

/// "A; B; and 4 more".
std::string joined(const std::vector<std::string> &items) {
  const std::size_t shown = std::min<std::size_t>(items.size(), kLongestList);
  const std::string rest = shown == items.size() ? "" : fmt::format("; and {} more", grouped(items.size() - shown));
  return fmt::format("{}{}", fmt::join(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(shown), "; "), rest);
}

std::string joined(const Parts &parts) {
  std::vector<std::string> texts;
  for (const PartReport &part : parts) texts.push_back(part_text(part, TextStyle(false)));
  return joined(texts);
}

std::string alternatives_line(const std::vector<Parts> &sets) {
  const bool is_single = std::all_of(sets.begin(), sets.end(), [](const Parts &parts) { return parts.size() == 1; });
  const char *verb = verb_for(sets.front());
  if (sets.size() == 1 && is_single) return fmt::format("{} {}", verb, joined(sets.front()));
  if (sets.size() == 1) return fmt::format("{} these {}: {}", verb, grouped(sets[0].size()), joined(sets[0]));
  std::vector<std::string> texts;
  for (const Parts &parts : sets) {
    texts.push_back(is_single ? joined(parts) : fmt::format("{}) {}", texts.size() + 1, joined(parts)));
  }
  return fmt::format("{} any one of these {}: {}", verb,
                     grouped(sets.size()) + (is_single ? "" : " sets, the whole of it"), joined(texts));
}

/// "211, 209 or 212".
std::string any_of(const std::vector<std::string> &values) {
  if (values.empty()) return {};
  const auto last = values.end() - 1;
  return fmt::format("{}{}{}", fmt::join(values.begin(), last, ", "), values.size() > 1 ? " or " : "", *last);
}

std::string repair_text(const RepairReport &repair) {
  const std::string where = printable(repair.path) + in_brackets(repair.place ? &*repair.place : nullptr);
  const std::string values = printable(any_of(repair.values));
  switch (repair.kind) {
    case RepairKind::free_vlans:
      return fmt::format("change {} to what is free on {}: {}", where,
                         repair.on_all_ports ? "every port of the VPN" : "this port", values);
    case RepairKind::free_pw_ids:
      return fmt::format("change {} to a pw-id that is free towards this neighbour: {}", where, values);
    case RepairKind::interface_name:
      return fmt::format("rename {} to an interface that the element has: {}", where, values);
    case RepairKind::two_commits:
      return fmt::format("make {} commits of it, one after the other: {}", values,
                         printable(repair.command.empty() ? "vpnval plan" : repair.command));
  }
  return {};
}

}  // namespace

bool has_advice(const AdviceReport &advice) { return advice.enough != 0 || !advice.alternatives.empty(); }

void write_advice(std::ostream &out, std::string_view lead, const AdviceReport &advice, const TextStyle &style) {
  if (advice.enough != 0) {
    out << lead
        << fmt::format(" {} any {} of these {}:\n", verb_for(advice.choices), grouped(advice.enough),
                       grouped(advice.choices.size()));
    write_parts(out, advice.choices, advice.enough, style);
  } else if (!advice.alternatives.empty()) {
    write_alternatives(out, lead, advice.alternatives, style);
  }
}

std::string advice_line(const AdviceReport &advice) {
  if (advice.enough != 0) {
    return fmt::format("{} any {} of these {}: {}", verb_for(advice.choices), grouped(advice.enough),
                       grouped(advice.choices.size()), joined(advice.choices));
  }
  return advice.alternatives.empty() ? "" : alternatives_line(advice.alternatives);
}

void write_repairs(std::ostream &out, const std::vector<RepairReport> &repairs) {
  for (const RepairReport &repair : repairs) out << "      or: " << repair_text(repair) << '\n';
}

}  // namespace report
