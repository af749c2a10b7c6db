#include "report/path_pattern.h"

#include <algorithm>
#include <string>
#include <vector>

#include "report/path_text.h"

namespace report {
namespace {

/// Remembers the last "*" alone: what an earlier one could stand for makes no difference.
bool fits_text(std::string_view text, std::string_view pattern) {
  constexpr std::size_t none = std::string_view::npos;
  std::size_t t = 0;
  std::size_t p = 0;
  std::size_t star = none;
  std::size_t star_text = 0;
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      star_text = t;
    } else if (p < pattern.size() && pattern[p] == text[t]) {
      ++p;
      ++t;
    } else if (star != none) {
      p = star + 1;
      t = ++star_text;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', p) == none;
}

/// Keys without their quotes, and without the backslashes that those need.
std::string unquoted(std::string_view keys) {
  std::string text;
  bool is_quoted = false;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (keys[i] == '"') {
      is_quoted = !is_quoted;
      continue;
    }
    if (keys[i] == '\\' && is_quoted && i + 1 < keys.size()) ++i;
    text += keys[i];
  }
  return text;
}

bool fits_step(std::string_view step, std::string_view pattern) {
  const std::size_t keys = std::min(step.find('{'), step.size());
  const std::size_t pattern_keys = std::min(pattern.find('{'), pattern.size());
  return fits_text(step.substr(0, keys), pattern.substr(0, pattern_keys)) &&
         fits_text(unquoted(step.substr(keys)), unquoted(pattern.substr(pattern_keys)));
}

}  // namespace

bool fits_pattern(std::string_view path, std::string_view pattern) {
  const std::vector<std::string_view> steps = path_steps(path);
  const std::vector<std::string_view> patterns = path_steps(pattern);
  return std::equal(steps.begin(), steps.end(), patterns.begin(), patterns.end(), fits_step);
}

}  // namespace report
