#include "report/text/node_text.h"

#include "report/escape/printable.h"
#include "report/path_text.h"

namespace report {

std::string grouped(std::uint64_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, 1, ',');
  return digits;
}

std::string mark(const NodeReport &node, const TextStyle &style) {
  if (node.status == ChangeStatus::added) return style(Accent::added, "+");
  if (node.status == ChangeStatus::removed) return style(Accent::removed, "-");
  return node.status == ChangeStatus::changed ? style(Accent::changed, "~") : " ";
}

std::string in_brackets(const FilePlace *place) {
  return place == nullptr ? "" : fmt::format(" ({})", printable(to_text(*place)));
}

std::string values_of(const NodeReport &node) {
  const bool is_changed = node.old_value && node.new_value && node.status != ChangeStatus::unchanged;
  if (is_changed) return fmt::format(" {} -> {}", *node.old_value, *node.new_value);
  if (node.old_value) return " " + *node.old_value;
  return node.new_value ? " " + *node.new_value : "";
}

std::string nodes_text(std::vector<NodeReport> nodes, const std::string &entry, bool with_marks) {
  const auto is_touched = [](const NodeReport &node) { return node.status != ChangeStatus::unchanged; };
  std::stable_partition(nodes.begin(), nodes.end(), is_touched);
  std::string text;
  for (std::size_t i = 0; i < std::min(nodes.size(), kLongestList); ++i) {
    if (i != 0) text += ", ";
    if (with_marks && is_touched(nodes[i])) text += mark(nodes[i], TextStyle(false)) + " ";
    text += printable(std::string(path_beside(nodes[i].path, entry)) + values_of(nodes[i]));
  }
  if (nodes.size() > kLongestList) text += fmt::format(" and {} more", grouped(nodes.size() - kLongestList));
  return text;
}

}  // namespace report
