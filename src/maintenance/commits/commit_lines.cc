#include "maintenance/commits/commit_lines.h"

#include <fmt/format.h>

#include "diagnosis/merged_tree.h"
#include "element/datastore/transaction.h"
#include "report/escape/printable.h"

namespace maintenance {
namespace {

using diagnosis::MergedNode;
using diagnosis::MergedTree;

std::string value_text(const MergedNode &node) {
  const std::string now = element::to_text(node.node().value);
  if (now.empty()) return {};
  const bool is_other = node.before != nullptr && node.after != nullptr && node.is_changed();
  return is_other ? fmt::format(": {} -> {}", element::to_text(node.before->value), now) : " = " + now;
}

/// The node needs no line: the path of a node below it, with the same mark, names it.
bool is_shown_below(const MergedTree &tree, std::uint32_t number) {
  const MergedNode &node = tree[number];
  if (node.is_bare()) return true;
  if (node.is_leaf() || node.end == number + 1) return false;
  for (std::uint32_t child = number + 1; child < node.end; ++child) {
    const MergedNode &below = tree[child];
    if (!below.is_bare() && (below.before == nullptr) == (node.before == nullptr) &&
        (below.after == nullptr) == (node.after == nullptr)) {
      return true;
    }
  }
  return false;
}

char mark_of(const MergedNode &node) {
  if (node.before == nullptr) return '+';
  if (node.after == nullptr) return '-';
  return node.is_changed() ? '~' : ' ';
}

}  // namespace

std::vector<std::string> commit_lines(const Commit &commit) {
  const element::Transaction transaction(commit.running, commit.candidate);
  const MergedTree tree(transaction);
  std::vector<std::string> lines;
  for (std::uint32_t number = 0; number < tree.size(); ++number) {
    if (is_shown_below(tree, number)) continue;
    const std::string text = element::to_text(tree.path_of(number)) + value_text(tree[number]);
    lines.push_back(fmt::format("{} {}", mark_of(tree[number]), report::printable(text)));
  }
  return lines;
}

std::string commit_text(const Commit &commit) {
  std::string text;
  for (const std::string &line : commit_lines(commit)) text += line + '\n';
  return text;
}

}  // namespace maintenance
