#include <fmt/format.h>

#include <set>

#include "maintenance/commits/commit_lines.h"
#include "maintenance/comparison/comparison.h"
#include "report/escape/printable.h"

namespace maintenance {
namespace {

using report::printable;

std::string rules_text(const Comparison &comparison) {
  std::vector<std::string> rules;
  for (const ChangeGroup &group : comparison.groups) {
    if (rules.empty() || rules.back() != group.change.rule) rules.push_back(group.change.rule);
  }
  return rules.empty() ? "none" : fmt::format("{}", fmt::join(rules, ", "));
}

void write_group(std::ostream &out, const ChangeGroup &group) {
  out << fmt::format("\n{} {}: {}{}\n", group.change.rule, group.change.direction, commits_text(group.commits),
                     group.reason.empty() ? "" : ", accepted: " + printable(group.reason));
  if (!group.shown) return;
  const ShownChange &shown = *group.shown;
  if (shown.commit) {
    out << fmt::format("  {}, shrunk from {} nodes to {}:\n", printable(shown.origin), shown.nodes_before,
                       shown.nodes_after);
    for (const std::string &line : commit_lines(*shown.commit)) out << "    " << line << '\n';
  } else {
    out << fmt::format("  {}:\n", printable(shown.origin));
  }
  for (const std::string &line : shown.old_lines) out << "  OLD " << printable(line) << '\n';
  for (const std::string &line : shown.new_lines) out << "  NEW " << printable(line) << '\n';
}

void write_corpus(std::ostream &out, const CorpusStatistics &corpus) {
  out << fmt::format("\ncorpus, with OLD: {}: {} accepted, {} accepted with warnings, {} rejected",
                     commits_text(corpus.commits), counted(corpus.accepted), counted(corpus.accepted_with_warnings),
                     counted(corpus.rejected));
  if (corpus.failed != 0) out << fmt::format(", {} on which it fails", counted(corpus.failed));
  if (corpus.not_decided != 0) {
    out << fmt::format(", {} that cannot be decided ({})", counted(corpus.not_decided),
                       printable(corpus.first_not_decided));
  }
  out << fmt::format("\n  {:<36} {:>9} {:>9} {:>9}\n", "commits that draw a rule", "rejected", "warned", "told");
  for (const auto &[id, reach] : corpus.rules) {
    out << fmt::format("  {:<36} {:>9} {:>9} {:>9}\n", id, counted(reach.rejected), counted(reach.warned),
                       counted(reach.told));
  }
  const std::vector<std::string> missing = corpus.not_reached();
  out << fmt::format("  drawn by no commit: {}\n",
                     missing.empty() ? "none" : fmt::format("{}", fmt::join(missing, ", ")));
}

}  // namespace

std::string counted(std::size_t number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, ",");
  return text;
}

std::string commits_text(std::size_t number) { return counted(number) + (number == 1 ? " commit" : " commits"); }

std::string sum_line(const Comparison &comparison) {
  std::string text =
      fmt::format("{} of {} verdicts changed", counted(comparison.changed), counted(comparison.corpus.commits));
  const char *separator = ": ";
  for (const auto &[direction, count] : comparison.directions) {
    text += fmt::format("{}{} {}", separator, counted(count), direction);
    separator = ", ";
  }
  text += fmt::format("; rules: {}; OLD against OLD: {}", rules_text(comparison), counted(comparison.unsteady));
  if (comparison.is_void()) {
    text += fmt::format(", so the comparison is void: OLD gives two answers to {}", comparison.first_unsteady);
  }
  return text;
}

void write_text(std::ostream &out, const Comparison &comparison) {
  out << printable(sum_line(comparison)) << '\n';
  for (const auto &[name, library] : {std::pair("OLD", &comparison.old_library), {"NEW", &comparison.new_library}}) {
    out << fmt::format("{} {}, build id {}\n", name, printable(library->file), library->build_id);
  }
  for (const ChangeGroup &group : comparison.groups) write_group(out, group);
  write_corpus(out, comparison.corpus);
  for (const std::string &line : comparison.unused_lines) {
    out << fmt::format("accepted change that did not show: {}\n", printable(line));
  }
}

}  // namespace maintenance
