#include "cli/command_line/near_names.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace cli {
namespace {

constexpr std::size_t kMostNames = 3;

/// How many characters must be typed, deleted or replaced to make one text of the other.
std::size_t distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char character : from) {
    std::size_t diagonal = row[0]++;
    for (std::size_t at = 1; at < row.size(); ++at) {
      const std::size_t replaced = diagonal + (character == to[at - 1] ? 0 : 1);
      diagonal = row[at];
      row[at] = std::min({row[at] + 1, row[at - 1] + 1, replaced});
    }
  }
  return row.back();
}

/// A part of a name is near it, however short, but for a letter or two.
bool is_part(std::string_view name, std::string_view wanted) {
  return wanted.size() > 2 && name.find(wanted) != std::string_view::npos;
}

}  // namespace

std::string did_you_mean(std::string_view wanted, const std::vector<std::string> &names) {
  std::vector<std::pair<std::size_t, std::string_view>> near;
  for (const std::string &name : names) {
    if (wanted.size() > 2 * name.size() || wanted.empty()) continue;
    const std::size_t far = distance(wanted, name);
    if (far <= 1 + name.size() / 5 || is_part(name, wanted)) near.emplace_back(far, name);
  }
  if (near.empty()) return {};
  std::stable_sort(near.begin(), near.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
  near.resize(std::min(near.size(), kMostNames));
  std::vector<std::string_view> texts;
  for (const auto &[far, name] : near) texts.push_back(name);
  const std::string_view last = texts.back();
  texts.pop_back();
  return fmt::format("; did you mean {}{}{}?", fmt::join(texts, ", "), texts.empty() ? "" : " or ", last);
}

}  // namespace cli
