#include "report/passed_over.h"

#include <fmt/format.h>

#include <vector>

namespace report {
namespace {

PassedOverCount count(const element::PassedOver &passed_over) {
  return {passed_over.nodes(), passed_over.count_modules()};
}

std::string count_in(const PassedOverCount &count, std::string_view configuration) {
  return fmt::format("{} of {} in {}", count_text(count.nodes, "node"), count_text(count.modules, "module"),
                     configuration);
}

}  // namespace

PassedOver count_passed_over(const InputSources &sources) {
  return {count(sources.running.passed_over), count(sources.candidate.passed_over)};
}

std::string passed_over_text(const PassedOver &passed_over) {
  if (passed_over.is_nothing()) return "";
  std::vector<std::string> parts;
  if (passed_over.running.nodes != 0) parts.push_back(count_in(passed_over.running, "running"));
  if (passed_over.candidate.nodes != 0) parts.push_back(count_in(passed_over.candidate, "candidate"));
  return fmt::format("passed over: {}", fmt::join(parts, ", "));
}

std::string count_text(std::size_t count, std::string_view name) {
  return fmt::format("{} {}{}", count, name, count == 1 ? "" : "s");
}

}  // namespace report
