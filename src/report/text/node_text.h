#ifndef REPORT_TEXT_NODE_TEXT_H
#define REPORT_TEXT_NODE_TEXT_H

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "report/finding.h"
#include "report/text/text_style.h"

namespace report {

/// A list that is longer is for a program to read.
inline constexpr std::size_t kLongestList = 8;

/// "1,017".
std::string grouped(std::uint64_t number);

/// What the commit does to a node, as one character: "+", "-", "~" or a blank.
std::string mark(const NodeReport &node, const TextStyle &style);

/// " (FILE:LINE)"; nothing for null.
std::string in_brackets(const FilePlace *place);

/// " 210", " 210 -> 211" of a leaf with a value.
std::string values_of(const NodeReport &node);

/// The nodes in one line, what the commit touches first, by their names beside `entry`: "dot1q 210, dot1q-range{1 5}".
/// `with_marks`: each after what the commit does to it. A long list is cut.
std::string nodes_text(std::vector<NodeReport> nodes, const std::string &entry, bool with_marks);

/// Calls `write` with each item; a long list is cut, and a line says by how many.
template <typename Items, typename Writer>
void write_list(std::ostream &out, std::string_view indent, const Items &items, Writer write, std::size_t needed = 0) {
  const std::size_t most = std::max(kLongestList, needed);
  // A line for one more is as good as the line that says so.
  const std::size_t shown = items.size() == most + 1 ? items.size() : std::min(items.size(), most);
  for (std::size_t i = 0; i < shown; ++i) write(items[i]);
  if (items.size() > shown) out << indent << fmt::format("... and {} more\n", grouped(items.size() - shown));
}

}  // namespace report

#endif
