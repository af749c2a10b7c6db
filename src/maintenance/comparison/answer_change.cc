#include "maintenance/comparison/answer_change.h"

#include <fmt/format.h>

#include <algorithm>

namespace maintenance {
namespace {

using host::PointVerdict;

std::string_view end_text(AnswerEnd end) {
  switch (end) {
    case AnswerEnd::answered:
      return "answered";
    case AnswerEnd::died:
      return "died";
    case AnswerEnd::broke_contract:
      return "broke-contract";
    case AnswerEnd::not_decided:
      return "not-decided";
    case AnswerEnd::not_loaded:
      return "not-loaded";
    case AnswerEnd::diverged:
      return "diverged";
  }
  return {};
}

std::string_view answer_text(host::Answer answer) {
  switch (answer) {
    case host::Answer::accepted:
      return "accepted";
    case host::Answer::warned:
      return "warned";
    case host::Answer::rejected:
      return "rejected";
  }
  return {};
}

bool is_same(const PointVerdict &one, const PointVerdict &other) {
  return one.point == other.point && one.path == other.path && one.answer == other.answer && one.text == other.text;
}

AnswerChange change_between(const PointVerdict &before, const PointVerdict &after) {
  const std::string old_rule = rule_id_of(before);
  const std::string new_rule = rule_id_of(after);
  if (before.answer == after.answer && old_rule == new_rule) return {old_rule, "text"};
  std::string direction = fmt::format("{}->{}", answer_text(before.answer), answer_text(after.answer));
  if (old_rule.empty() || new_rule.empty() || old_rule == new_rule) {
    return {new_rule.empty() ? old_rule : new_rule, direction};
  }
  return {old_rule, direction + ":" + new_rule};
}

void add(std::vector<AnswerChange> &changes, AnswerChange change) {
  if (std::find(changes.begin(), changes.end(), change) == changes.end()) changes.push_back(std::move(change));
}

/// How often a validation asks for more time depends on how fast this machine is.
bool is_compared(std::size_t function) {
  return function != static_cast<std::size_t>(host::SeamFunction::confd_data_set_timeout);
}

std::string_view function_name(std::size_t function) { return name(static_cast<host::SeamFunction>(function)); }

void add_calls(const Answer &before, const Answer &after, std::vector<AnswerChange> &changes) {
  for (std::size_t function = 0; function < before.calls.size(); ++function) {
    if (!is_compared(function) || before.calls[function] == after.calls[function]) continue;
    const char *how = before.calls[function] < after.calls[function] ? "more" : "fewer";
    add(changes, {"calls", fmt::format("{}:{}", function_name(function), how)});
  }
}

std::string point_line(const PointVerdict &point) {
  std::string where = fmt::format("{} at {}: {}", point.point, point.path, answer_text(point.answer));
  if (point.answer == host::Answer::accepted) return where;
  return fmt::format("{} [{}]: {}", where, rule_id_of(point), point.text);
}

void add_trace_lines(const Answer &answer, const Answer &other, std::vector<std::string> &lines) {
  for (const std::string &line : answer.trace) {
    if (std::find(other.trace.begin(), other.trace.end(), line) == other.trace.end()) lines.push_back("trace: " + line);
  }
  lines.push_back(fmt::format("trace: {} lines", answer.trace.size()));
}

/// "accepted", "accepted with warnings", "rejected" or how it failed.
std::string decision_text(const Answer &answer) {
  if (answer.end != AnswerEnd::answered) return std::string(end_text(answer.end));
  switch (answer.decision) {
    case host::Decision::accepted:
      return "accepted";
    case host::Decision::accepted_with_warnings:
      return "accepted with warnings";
    case host::Decision::rejected:
      return "rejected";
  }
  return {};
}

/// What the operator is told: the points up to the first rejection that say something.
std::vector<PointVerdict> told(const Answer &answer) {
  std::vector<PointVerdict> told;
  for (const PointVerdict &point : answer.points) {
    if (point.answer != host::Answer::accepted) told.push_back(point);
    if (point.answer == host::Answer::rejected) break;
  }
  return told;
}

}  // namespace

std::vector<AnswerChange> changes_between(const Answer &before, const Answer &after, const CompareOptions &options) {
  std::vector<AnswerChange> changes;
  if (before.end != after.end || before.failure != after.failure) {
    return {{"library", fmt::format("{}->{}", end_text(before.end), end_text(after.end))}};
  }
  // Which points are triggered depends on the commit alone.
  const std::size_t points = std::min(before.points.size(), after.points.size());
  for (std::size_t i = 0; i < points; ++i) {
    if (!is_same(before.points[i], after.points[i])) add(changes, change_between(before.points[i], after.points[i]));
  }
  if (options.trace && before.trace != after.trace) add(changes, {"trace", "lines"});
  if (options.calls) add_calls(before, after, changes);
  return changes;
}

std::string verdict_direction(const Answer &before, const Answer &after) {
  const std::string old_text = decision_text(before);
  const std::string new_text = decision_text(after);
  if (old_text != new_text) return fmt::format("{} -> {}", old_text, new_text);
  if (before.failure != after.failure) return "other failure";
  const std::vector<PointVerdict> old_told = told(before);
  const std::vector<PointVerdict> new_told = told(after);
  if (!std::equal(old_told.begin(), old_told.end(), new_told.begin(), new_told.end(), is_same)) return "other words";
  const bool is_behind =
      !std::equal(before.points.begin(), before.points.end(), after.points.begin(), after.points.end(), is_same);
  return is_behind ? "behind the first rejection" : "trace or calls";
}

std::vector<std::string> differing_lines(const Answer &answer, const Answer &other, const CompareOptions &options) {
  if (answer.end != AnswerEnd::answered) return {answer.failure};
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < answer.points.size(); ++i) {
    if (i < other.points.size() && is_same(answer.points[i], other.points[i])) continue;
    lines.push_back(point_line(answer.points[i]));
  }
  if (options.trace && answer.trace != other.trace) add_trace_lines(answer, other, lines);
  for (std::size_t function = 0; options.calls && function < answer.calls.size(); ++function) {
    if (!is_compared(function) || answer.calls[function] == other.calls[function]) continue;
    lines.push_back(fmt::format("{}: {} calls", function_name(function), answer.calls[function]));
  }
  return lines;
}

}  // namespace maintenance
