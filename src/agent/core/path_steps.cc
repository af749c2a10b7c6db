#include "agent/core/path_steps.h"

namespace agent {
namespace {

class StepReader {
 public:
  explicit StepReader(std::string_view path) : rest_(path) {}

  std::vector<PathStep> read() {
    std::vector<PathStep> steps;
    while (!rest_.empty()) {
      const char c = take();
      if (c == '/') {
        steps.emplace_back();
      } else if (steps.empty()) {
        return {};
      } else if (c == '{') {
        take_keys(steps.back().keys);
      } else {
        steps.back().name += c;
      }
    }
    return steps;
  }

 private:
  char take() {
    const char c = rest_.front();
    rest_.remove_prefix(1);
    return c;
  }

  void take_keys(std::vector<std::string> &keys) {
    keys.emplace_back();
    bool is_quoted = false;
    while (!rest_.empty()) {
      char c = take();
      if (c == '"') {
        is_quoted = !is_quoted;
        continue;
      }
      if (!is_quoted && c == '}') return;
      if (!is_quoted && c == ' ') {
        keys.emplace_back();
        continue;
      }
      if (is_quoted && c == '\\' && !rest_.empty()) c = take();
      keys.back() += c;
    }
  }

  std::string_view rest_;
};

}  // namespace

std::vector<PathStep> path_steps(std::string_view path) { return StepReader(path).read(); }

}  // namespace agent
