#include "cli/text_output.h"

#include <fmt/format.h>

#include <sstream>
#include <string_view>

#include "cli/decision_text.h"
#include "cli/printable.h"

namespace cli {
namespace {

char sign(ChangeMark mark) {
  switch (mark) {
    case ChangeMark::added:
      return '+';
    case ChangeMark::removed:
      return '-';
    case ChangeMark::changed:
      return '~';
  }
  return '?';
}

std::string values_text(const ListedChange &change) {
  if (change.old_value && change.new_value) return fmt::format(": {} -> {}", *change.old_value, *change.new_value);
  if (change.old_value) return ": " + *change.old_value;
  if (change.new_value) return ": " + *change.new_value;
  return {};
}

void write_line(std::ostream &out, std::string_view indent, char sign, std::string_view text) {
  out << indent << sign << ' ' << printable(text) << '\n';
}

void write_points(std::ostream &out, const host::Verdict &verdict) {
  out << fmt::format("validation points fired: {}\n", verdict.points_fired);
  for (const host::PointVerdict &point : verdict.points) {
    out << fmt::format("  {} at {}: {}", point.point, printable(point.path), answer_text(point));
    if (!point.text.empty()) out << ": " << printable(point.text);
    out << '\n';
  }
}

void write_trace(std::ostream &out, const std::vector<std::string> &trace) {
  out << fmt::format("\ntrace: {}\n", trace.size());
  for (const std::string &text : trace) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) out << "  " << printable(line) << '\n';
  }
}

}  // namespace

void write_changes(std::ostream &out, const std::vector<ListedChange> &changes) {
  out << fmt::format("changes: {}\n", changes.size());
  std::string_view object;
  for (const ListedChange &change : changes) {
    const std::string values = values_text(change);
    if (change.path == change.object) {
      write_line(out, "", sign(change.mark), change.path + values);
    } else {
      if (change.object != object) write_line(out, "", '~', change.object);
      write_line(out, "  ", sign(change.mark), change.path.substr(change.object.size() + 1) + values);
    }
    object = change.object;
  }
  out << '\n';
}

void write_verdict(std::ostream &out, const Report &report) {
  write_points(out, report.verdict);
  if (report.with_trace) write_trace(out, report.verdict.account.trace);
  const PointCounts counts = count_points(report.verdict);
  out << fmt::format("\ncommit {}: {} of {} points asked, {} accepted, {} with a warning, {} rejected\n",
                     decision_text(report.verdict.decision), report.verdict.points.size(), report.verdict.points_fired,
                     counts.accepted, counts.warned, counts.rejected);
  out << fmt::format("decided by {}, build id {}\n", printable(report.plugin_file), report.build_id);
}

}  // namespace cli
