#include "maintenance/coverage/cell.h"

#include <fmt/format.h>

#include <sstream>
#include <vector>

#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "rules/rule.h"

namespace coverage {

std::string to_line(const Cell &cell) {
  if (!cell.rule.empty()) return fmt::format("rule {} {}", cell.rule, cell.outcome);
  return fmt::format("call {} {} {} {} {}", cell.point, cell.step, cell.function, cell.use, cell.outcome);
}

Cell cell_from(std::string_view line, const std::string &origin) {
  std::istringstream in{std::string(line)};
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  if (words.size() == 3 && words[0] == "rule") return {words[1], "", "", "", "", words[2]};
  if (words.size() == 6 && words[0] == "call") return {"", words[1], words[2], words[3], words[4], words[5]};
  throw element::InputError(
      fmt::format("{}: \"{}\" is no cell; expected \"rule RULE OUTCOME\" or \"call POINT STEP FUNCTION USE OUTCOME\"",
                  origin, element::one_line(line)));
}

Cells read_cells(const std::filesystem::path &file) {
  std::istringstream lines(element::read_input(file));
  Cells cells;
  std::size_t number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    const std::string_view content = element::trimmed(line);
    if (!content.empty() && !content.starts_with('#')) {
      cells.insert(cell_from(content, fmt::format("{}:{}", file.string(), number)));
    }
  }
  return cells;
}

Cells rule_cells() {
  Cells cells;
  for (const rules::Rule &rule : rules::all_rules()) {
    cells.insert({rule.id, "", "", "", "", "passes"});
    cells.insert({rule.id, "", "", "", "", rule.examples.empty() ? "draws-on-failure" : "draws"});
  }
  return cells;
}

}  // namespace coverage
