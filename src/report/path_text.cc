#include "report/path_text.h"

#include <algorithm>
#include <cstddef>

namespace report {
namespace {

/// Where the keys end that begin at the brace `at`: after the closing one. A quoted key may hold braces.
std::size_t end_of_keys(std::string_view path, std::size_t at) {
  bool is_quoted = false;
  for (++at; at < path.size(); ++at) {
    if (path[at] == '"') is_quoted = !is_quoted;
    if (path[at] == '\\' && is_quoted) ++at;
    if (at < path.size() && path[at] == '}' && !is_quoted) return at + 1;
  }
  return path.size();
}

std::size_t end_of_step(std::string_view path, std::size_t at) {
  while (at < path.size() && path[at] != '/') at = path[at] == '{' ? end_of_keys(path, at) : at + 1;
  return at;
}

}  // namespace

std::vector<std::string_view> path_steps(std::string_view path) {
  std::vector<std::string_view> steps;
  std::size_t at = 0;
  while (at < path.size()) {
    if (path[at] == '/') ++at;
    const std::size_t end = end_of_step(path, at);
    steps.push_back(path.substr(at, end - at));
    at = end;
  }
  return steps;
}

std::string_view path_beside(std::string_view path, std::string_view other) {
  const std::vector<std::string_view> steps = path_steps(path);
  const std::vector<std::string_view> others = path_steps(other);
  const auto [first, unused] = std::mismatch(steps.begin(), steps.end(), others.begin(), others.end());
  if (first == steps.begin()) return path;
  const std::string_view from = first == steps.end() ? steps.back() : *first;
  return path.substr(static_cast<std::size_t>(from.data() - path.data()));
}

}  // namespace report
