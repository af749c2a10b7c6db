#include <fmt/format.h>

#include "maintenance/commits/commit_lines.h"
#include "maintenance/comparison/comparison.h"
#include "report/escape/markdown.h"

namespace maintenance {
namespace {

using report::to_markdown;

std::string cell(const std::vector<std::string> &lines) {
  std::string text;
  for (const std::string &line : lines) text += (text.empty() ? "" : "<br>") + to_markdown(line);
  return text;
}

void write_section(std::ostream &out, const ChangeGroup &group) {
  out << fmt::format("\n### {} {}: {}\n\n", to_markdown(group.change.rule), to_markdown(group.change.direction),
                     commits_text(group.commits));
  if (!group.reason.empty()) out << "Accepted: " << to_markdown(group.reason) << "\n\n";
  if (!group.shown) return;
  const ShownChange &shown = *group.shown;
  if (shown.commit) {
    out << fmt::format("{}, shrunk from {} nodes to {}:\n\n", to_markdown(shown.origin), shown.nodes_before,
                       shown.nodes_after);
    for (const std::string &line : commit_lines(*shown.commit)) out << "    " << line << '\n';
  } else {
    out << to_markdown(shown.origin) << ":\n";
  }
  out << fmt::format("\n| OLD | NEW |\n|---|---|\n| {} | {} |\n", cell(shown.old_lines), cell(shown.new_lines));
}

}  // namespace

void write_markdown(std::ostream &out, const Comparison &comparison) {
  out << fmt::format("## Two builds\n\n{}\n", to_markdown(sum_line(comparison)));
  for (const ChangeGroup &group : comparison.groups) write_section(out, group);
  const CorpusStatistics &corpus = comparison.corpus;
  out << fmt::format("\n### Corpus, with OLD\n\n{}: {} accepted, {} accepted with warnings, {} rejected\n\n",
                     commits_text(corpus.commits), counted(corpus.accepted), counted(corpus.accepted_with_warnings),
                     counted(corpus.rejected));
  out << "| Rule | Rejected | Warned | Told |\n|---|--:|--:|--:|\n";
  for (const auto &[id, reach] : corpus.rules) {
    out << fmt::format("| {} | {} | {} | {} |\n", to_markdown(id), counted(reach.rejected), counted(reach.warned),
                       counted(reach.told));
  }
  for (const std::string &id : corpus.not_reached()) out << fmt::format("| {} | 0 | 0 | 0 |\n", to_markdown(id));
  for (const std::string &line : comparison.unused_lines) {
    out << fmt::format("\nAccepted change that did not show: {}\n", to_markdown(line));
  }
}

}  // namespace maintenance
