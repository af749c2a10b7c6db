#include "cli/output/text_output.h"

#include <fmt/format.h>

#include <sstream>
#include <string_view>

#include "cli/output/decision_text.h"
#include "cli/text/printable.h"
#include "confd_lib.h"

namespace cli {
namespace {

std::string sign(ChangeMark mark, const Paint &paint) {
  switch (mark) {
    case ChangeMark::added:
      return paint(Accent::added, "+");
    case ChangeMark::removed:
      return paint(Accent::removed, "-");
    case ChangeMark::changed:
      return paint(Accent::changed, "~");
  }
  return "?";
}

std::string values_text(const ListedChange &change) {
  if (change.old_value && change.new_value) return fmt::format(": {} -> {}", *change.old_value, *change.new_value);
  if (change.old_value) return ": " + *change.old_value;
  if (change.new_value) return ": " + *change.new_value;
  return {};
}

std::string answer(const host::PointVerdict &point, const Paint &paint) {
  const std::string_view text = answer_text(point);
  if (point.result == CONFD_ERR) return paint(Accent::rejected, text);
  return point.result == CONFD_VALIDATION_WARN ? paint(Accent::warning, text) : std::string(text);
}

std::string decision(host::Decision decision, const Paint &paint) {
  const std::string_view text = decision_text(decision);
  if (decision == host::Decision::rejected) return paint(Accent::rejected, text);
  return decision == host::Decision::accepted ? std::string(text) : paint(Accent::warning, text);
}

void write_line(std::ostream &out, std::string_view indent, const std::string &sign, std::string_view text) {
  out << indent << sign << ' ' << printable(text) << '\n';
}

void write_points(std::ostream &out, const host::Verdict &verdict, const Paint &paint) {
  out << fmt::format("validation points fired: {}\n", verdict.points_fired);
  for (const host::PointVerdict &point : verdict.points) {
    out << fmt::format("  {} at {}: {}", point.point, printable(point.path), answer(point, paint));
    if (!point.text.empty()) out << ": " << paint(Accent::message, printable(point.text));
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

void write_changes(std::ostream &out, const std::vector<ListedChange> &changes, const Paint &paint) {
  out << fmt::format("changes: {}\n", changes.size());
  std::string_view object;
  for (const ListedChange &change : changes) {
    const std::string values = values_text(change);
    if (change.path == change.object) {
      write_line(out, "", sign(change.mark, paint), change.path + values);
    } else {
      if (change.object != object) write_line(out, "", sign(ChangeMark::changed, paint), change.object);
      write_line(out, "  ", sign(change.mark, paint), change.path.substr(change.object.size() + 1) + values);
    }
    object = change.object;
  }
  out << '\n';
}

void write_verdict(std::ostream &out, const Report &report, const Paint &paint) {
  write_points(out, report.verdict, paint);
  if (report.with_trace) write_trace(out, report.verdict.account.trace);
  const PointCounts counts = count_points(report.verdict);
  out << fmt::format("\ncommit {}: {} of {} points asked, {} accepted, {} with a warning, {} rejected\n",
                     decision(report.verdict.decision, paint), report.verdict.points.size(),
                     report.verdict.points_fired, counts.accepted, counts.warned, counts.rejected);
  out << fmt::format("decided by {}, build id {}\n", printable(report.plugin_file), report.build_id);
}

}  // namespace cli
