#include "cli/input/foreign_nodes.h"

#include <fmt/format.h>

#include "report/escape/printable.h"
#include "report/passed_over.h"

namespace cli {
namespace {

void list_modules(std::ostream &out, const element::PassedOver &passed_over) {
  for (const element::ForeignModule &module : passed_over.modules) {
    out << fmt::format("  {}:{}: {} of {}\n", report::printable(module.file), module.line,
                       report::count_text(module.nodes, "node"), report::printable(module.name));
  }
}

}  // namespace

element::ReadOptions read_options(const InputArguments &input) {
  element::ReadOptions options;
  options.refuse_foreign = input.strict;
  return options;
}

void tell_foreign_nodes(std::ostream &out, const InputArguments &input, const report::InputSources &sources) {
  const std::string line = report::passed_over_text(report::count_passed_over(sources));
  if (line.empty()) return;
  out << line << '\n';
  if (!input.list_foreign) return;
  list_modules(out, sources.running.passed_over);
  list_modules(out, sources.candidate.passed_over);
}

}  // namespace cli
