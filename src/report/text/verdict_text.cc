#include "report/text/verdict_text.h"

#include <fmt/format.h>

#include <sstream>
#include <string_view>

#include "report/decision_text.h"
#include "report/escape/printable.h"
#include "report/profile_faults.h"

namespace report {
namespace {

std::string sign(ChangeMark mark, const TextStyle &style) {
  switch (mark) {
    case ChangeMark::added:
      return style(Accent::added, "+");
    case ChangeMark::removed:
      return style(Accent::removed, "-");
    case ChangeMark::changed:
      return style(Accent::changed, "~");
  }
  return "?";
}

std::string values_text(const ListedChange &change) {
  if (change.old_value && change.new_value) return fmt::format(": {} -> {}", *change.old_value, *change.new_value);
  if (change.old_value) return ": " + *change.old_value;
  if (change.new_value) return ": " + *change.new_value;
  return {};
}

std::string answer(const host::PointVerdict &point, const TextStyle &style) {
  const std::string_view text = answer_text(point);
  if (point.answer == host::Answer::rejected) return style(Accent::rejected, text);
  return point.answer == host::Answer::warned ? style(Accent::warning, text) : std::string(text);
}

std::string decision(host::Decision decision, const TextStyle &style) {
  const std::string_view text = decision_text(decision);
  if (decision == host::Decision::rejected) return style(Accent::rejected, text);
  return decision == host::Decision::accepted ? std::string(text) : style(Accent::warning, text);
}

void write_line(std::ostream &out, std::string_view indent, const std::string &sign, std::string_view text) {
  out << indent << sign << ' ' << printable(text) << '\n';
}

/// An audit tells of those that accept by their number alone.
void write_points(std::ostream &out, const CheckReport &report, const TextStyle &style) {
  out << fmt::format("validation points fired: {}\n", report.verdict.points_fired);
  for (const host::PointVerdict &point : report.verdict.points) {
    if (report.commit.is_audit && point.answer == host::Answer::accepted) continue;
    out << fmt::format("  {} at {}: {}", point.point, printable(point.path), answer(point, style));
    if (!point.text.empty()) out << ": " << style(Accent::message, printable(point.text));
    out << '\n';
  }
}

void write_trace(std::ostream &out, const std::vector<std::string> &trace) {
  out << fmt::format("\ntrace: {}\n", trace.size());
  for (const std::string &text : trace) {
    std::istringstream lines(text);
    lines.exceptions(std::ios::badbit);  // else it would be cut where memory runs out
    for (std::string line; std::getline(lines, line);) out << "  " << printable(line) << '\n';
  }
}

}  // namespace

void write_summary_of_change(std::ostream &out, const CheckReport &report, const TextStyle &style) {
  out << (report.commit.is_audit ? in_force_text(report.summary) : change_summary_text(report.summary)) << '\n';
  if (!report.commit.refusal.empty()) out << refusal_text(report.commit, style) << '\n';
}

std::string refusal_text(const CommitReport &commit, const TextStyle &style) {
  return style(Accent::rejected, "refused") + ": " + commit.refusal;
}

void write_changes(std::ostream &out, const std::vector<ListedChange> &changes, const TextStyle &style) {
  out << fmt::format("changes: {}\n", changes.size());
  std::string_view object;
  for (const ListedChange &change : changes) {
    const std::string values = values_text(change);
    if (change.path == change.object) {
      write_line(out, "", sign(change.mark, style), change.path + values);
    } else {
      if (change.object != object) write_line(out, "", sign(ChangeMark::changed, style), change.object);
      write_line(out, "  ", sign(change.mark, style), change.path.substr(change.object.size() + 1) + values);
    }
    object = change.object;
  }
  out << '\n';
}

void write_verdict(std::ostream &out, const CheckReport &report, const TextStyle &style) {
  write_points(out, report, style);
  if (report.with_trace) write_trace(out, report.verdict.statistics.trace);
  const PointCounts counts = count_points(report.verdict);
  out << fmt::format("\n{}: {} of {} points asked, {} accepted, {} with a warning, {} rejected\n",
                     report.commit.is_audit ? "audit" : "commit " + decision(report.verdict.decision, style),
                     report.verdict.points.size(), report.verdict.points_fired, counts.accepted, counts.warned,
                     counts.rejected);
  for (const MissingLimit &limit : report.commit.missing_limits) {
    out << style(Accent::warning, to_text(limit, report.commit.element)) << '\n';
  }
  for (const UnreadableName &name : report.commit.unreadable) out << style(Accent::warning, to_text(name)) << '\n';
  out << fmt::format("decided by {}, build id {}\n", printable(report.plugin_file), report.build_id);
}

}  // namespace report
