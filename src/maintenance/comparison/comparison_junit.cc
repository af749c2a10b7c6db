#include <fmt/format.h>

#include <algorithm>

#include "maintenance/commits/commit_lines.h"
#include "maintenance/comparison/comparison.h"
#include "report/escape/markup.h"

namespace maintenance {
namespace {

using report::to_markup;

std::string details(const ChangeGroup &group) {
  if (!group.shown) return {};
  std::string text = to_markup(group.shown->origin) + '\n';
  if (group.shown->commit) {
    text += fmt::format("shrunk from {} nodes to {}\n", group.shown->nodes_before, group.shown->nodes_after);
    for (const std::string &line : commit_lines(*group.shown->commit)) text += to_markup(line) + '\n';
  }
  for (const std::string &line : group.shown->old_lines) text += "OLD " + to_markup(line) + '\n';
  for (const std::string &line : group.shown->new_lines) text += "NEW " + to_markup(line) + '\n';
  return text;
}

void write_case(std::ostream &out, const ChangeGroup &group) {
  out << fmt::format("    <testcase classname=\"{}\" name=\"{}\">\n", to_markup(group.change.rule),
                     to_markup(group.change.direction));
  const std::string message = commits_text(group.commits);
  if (group.reason.empty()) {
    out << fmt::format("      <failure message=\"{}\">{}</failure>\n", message, details(group));
  } else {
    out << fmt::format("      <skipped message=\"{}: {}\"/>\n", message, to_markup(group.reason));
  }
  out << "    </testcase>\n";
}

}  // namespace

void write_junit(std::ostream &out, const Comparison &comparison) {
  const auto &groups = comparison.groups;
  const auto skipped = static_cast<std::size_t>(
      std::count_if(groups.begin(), groups.end(), [](const ChangeGroup &group) { return !group.reason.empty(); }));
  const std::string counts = fmt::format("tests=\"{}\" failures=\"{}\" errors=\"{}\" skipped=\"{}\"", groups.size() + 1,
                                         groups.size() - skipped, comparison.is_void() ? 1 : 0, skipped);
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  out << fmt::format("<testsuites {}>\n  <testsuite name=\"vpnval diff\" {}>\n", counts, counts);
  out << "    <testcase classname=\"library\" name=\"OLD against OLD\"";
  if (comparison.is_void()) {
    out << fmt::format(">\n      <error message=\"{}\"/>\n    </testcase>\n", to_markup(sum_line(comparison)));
  } else {
    out << "/>\n";
  }
  for (const ChangeGroup &group : groups) write_case(out, group);
  out << fmt::format("    <system-out>{}</system-out>\n  </testsuite>\n</testsuites>\n",
                     to_markup(sum_line(comparison)));
}

}  // namespace maintenance
