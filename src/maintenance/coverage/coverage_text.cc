#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <set>

#include "maintenance/cost/library_steps.h"
#include "maintenance/coverage/coverage_report.h"
#include "report/escape/printable.h"
#include "report/passed_over.h"
#include "report/text/node_text.h"

namespace coverage {
namespace {

class CoverageText {
 public:
  CoverageText(std::ostream &out, const CoverageReport &report) : out_(out), report_(report) {}

  void write() {
    const Cells empty = report_.empty();
    out_ << fmt::format("{} fill {}; {} expected, {} empty\n", report::count_text(report_.commits, "commit"),
                        report::count_text(report_.filled.size(), "cell"), report_.expected.size(), empty.size());
    write_rules();
    write_calls();
    write_empty(empty);
  }

 private:
  std::size_t count_of(const std::string &rule, const std::string &outcome) const {
    const auto found = report_.filled.find({rule, "", "", "", "", outcome});
    return found == report_.filled.end() ? 0 : found->second.commits;
  }

  void write_rules() {
    std::set<std::string> rules;
    for (const Cell &cell : report_.expected) rules.insert(cell.rule);
    for (const auto &[cell, filled] : report_.filled) rules.insert(cell.rule);
    rules.erase("");
    out_ << "\n   draws  on failure  passes  rule\n";
    for (const std::string &rule : rules) {
      out_ << fmt::format("  {:>6}  {:>10}  {:>6}  {}\n", report::grouped(count_of(rule, "draws")),
                          report::grouped(count_of(rule, "draws-on-failure")),
                          report::grouped(count_of(rule, "passes")), rule);
    }
  }

  /// A line for each platform function of a step: which uses were made to fail, and what the point answered.
  void write_calls() {
    out_ << "\nplatform calls that were made to fail, and what the point answered:\n";
    std::string step;
    for (auto cell = report_.filled.begin(); cell != report_.filled.end();) {
      const Cell &first = cell->first;
      if (!first.rule.empty()) {
        ++cell;
        continue;
      }
      if (first.point + first.step != step) write_step(first);
      step = first.point + first.step;
      std::vector<std::string> uses;
      for (; cell != report_.filled.end() && is_of_same_function(cell->first, first); ++cell) {
        uses.push_back(cell->first.use + " " + cell->first.outcome);
      }
      out_ << fmt::format("    {}: {}\n", first.function, fmt::join(uses, ", "));
    }
  }

  static bool is_of_same_function(const Cell &a, const Cell &b) {
    return a.point == b.point && a.step == b.step && a.function == b.function;
  }

  void write_step(const Cell &cell) {
    const auto rules = cost::rules_of_function(cell.step);
    out_ << fmt::format("  {}, {}{}\n", cell.point, cell.step,
                        rules.empty() ? "" : fmt::format(" [{}]", fmt::join(rules, ", ")));
  }

  void write_empty(const Cells &empty) {
    if (!empty.empty()) out_ << "\nempty cells:\n";
    for (const Cell &cell : empty) out_ << "  " << to_line(cell) << '\n';
    if (report_.drawn != 0) {
      out_ << fmt::format("\ndrawn in search of commits for them: {}, found: {}\n", report_.drawn,
                          report_.found.size());
    }
    for (const FillingCommit &found : report_.found) {
      out_ << "  " << report::printable(found.name) << ": " << to_line(found.cell) << '\n';
    }
  }

  std::ostream &out_;
  const CoverageReport &report_;
};

}  // namespace

void CoverageReport::add(const std::string &name, const Cells &cells) {
  ++commits;
  for (const Cell &cell : cells) {
    Filled &entry = filled[cell];
    if (entry.commits++ == 0) entry.first = name;
  }
}

Cells CoverageReport::empty() const {
  Cells cells;
  std::copy_if(expected.begin(), expected.end(), std::inserter(cells, cells.end()),
               [this](const Cell &cell) { return !filled.contains(cell); });
  return cells;
}

void write_text(std::ostream &out, const CoverageReport &report) { CoverageText(out, report).write(); }

void write_cells(std::ostream &out, const CoverageReport &report) {
  for (const auto &[cell, filled] : report.filled) out << to_line(cell) << '\n';
}

}  // namespace coverage
