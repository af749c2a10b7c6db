#include <fmt/format.h>
#include <fmt/ranges.h>

#include <map>
#include <set>

#include "maintenance/cost/library_steps.h"
#include "maintenance/coverage/coverage_report.h"
#include "report/escape/markup.h"
#include "report/passed_over.h"

namespace coverage {
namespace {

using report::to_markup;

constexpr const char *kHead = R"(<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Coverage of the validation library</title>
<style>
  body { font: 15px/1.4 system-ui, sans-serif; margin: 1.5em; color: #1b1f24; background: #fff; }
  table { border-collapse: collapse; margin: 0.5em 0 1.5em; }
  th, td { border: 1px solid #8c959f; padding: 0.2em 0.6em; text-align: left; vertical-align: top; }
  td.n { text-align: right; }
  td.empty { background: #ffd7d5; font-weight: bold; }
  code { font-size: 13px; }
</style>
)";

/// The cell of a table for what fills a cell; an expected one that is empty says so in words as well as by colour.
std::string table_cell(const CoverageReport &report, const Cell &cell) {
  const auto found = report.filled.find(cell);
  if (found != report.filled.end()) {
    return fmt::format("<td class=\"n\" title=\"{}\">{}</td>", to_markup(found->second.first), found->second.commits);
  }
  return report.expected.contains(cell) ? "<td class=\"empty\">empty</td>" : "<td></td>";
}

Cells all_cells(const CoverageReport &report) {
  Cells cells = report.expected;
  for (const auto &[cell, filled] : report.filled) cells.insert(cell);
  return cells;
}

void write_rules(std::ostream &out, const CoverageReport &report, const Cells &cells) {
  std::set<std::string> rules;
  for (const Cell &cell : cells) rules.insert(cell.rule);
  rules.erase("");
  out << "<h2>Rules</h2>\n<p>Commits that draw the rule's message, that draw it where a platform call fails, and whose point accepts.</p>\n"
         "<table><tr><th>rule</th><th>draws</th><th>draws on failure</th><th>passes</th></tr>\n";
  for (const std::string &rule : rules) {
    out << "<tr><td>" << to_markup(rule) << "</td>" << table_cell(report, {rule, "", "", "", "", "draws"})
        << table_cell(report, {rule, "", "", "", "", "draws-on-failure"})
        << table_cell(report, {rule, "", "", "", "", "passes"}) << "</tr>\n";
  }
  out << "</table>\n";
}

/// The rows of the failed calls: point, step, function and use.
void write_calls(std::ostream &out, const CoverageReport &report, const Cells &cells) {
  out << "<h2>Failed platform calls</h2>\n<p>Commits by what the point answers where the call fails.</p>\n"
         "<table><tr><th>point</th><th>step</th><th>rules</th><th>function</th><th>use</th><th>accepted</th>"
         "<th>warning</th><th>rejected</th><th>stopped</th></tr>\n";
  std::set<Cell> rows;
  for (const Cell &cell : cells) {
    if (cell.rule.empty()) rows.insert({"", cell.point, cell.step, cell.function, cell.use, ""});
  }
  for (Cell row : rows) {
    out << fmt::format("<tr><td>{}</td><td><code>{}</code></td><td>{}</td><td><code>{}</code></td><td>{}</td>",
                       to_markup(row.point), to_markup(row.step), fmt::join(cost::rules_of_function(row.step), ", "),
                       to_markup(row.function), to_markup(row.use));
    for (const char *outcome : {"accepted", "warning", "rejected", "stopped"}) {
      row.outcome = outcome;
      out << table_cell(report, row);
    }
    out << "</tr>\n";
  }
  out << "</table>\n";
}

}  // namespace

void write_page(std::ostream &out, const CoverageReport &report) {
  const Cells cells = all_cells(report);
  out << kHead << "<h1>Coverage of the validation library</h1>\n"
      << fmt::format("<p>{} fill {}; {} expected, {} empty. Library {}, build id {}.</p>\n",
                     report::count_text(report.commits, "commit"), report::count_text(report.filled.size(), "cell"),
                     report.expected.size(), report.empty().size(), to_markup(report.plugin_file),
                     to_markup(report.build_id));
  write_rules(out, report, cells);
  write_calls(out, report, cells);
  out << "</html>\n";
}

}  // namespace coverage
