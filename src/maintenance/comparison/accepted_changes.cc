#include "maintenance/comparison/accepted_changes.h"

#include <fmt/format.h>

#include <sstream>

#include "element/input/input_error.h"
#include "element/input/input_text.h"

namespace maintenance {
namespace {

bool fits(const std::string &pattern, const std::string &text) { return pattern == "*" || pattern == text; }

std::string without_blanks_around(const std::string &text) {
  const std::size_t begin = text.find_first_not_of(" \t\r");
  return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

}  // namespace

void AcceptedChanges::read(const std::filesystem::path &file) { parse(element::read_input(file), file.string()); }

void AcceptedChanges::parse(std::string_view text, const std::string &origin) {
  std::istringstream stream{std::string(text)};
  std::size_t number = 0;
  for (std::string line; std::getline(stream, line);) {
    const std::string place = fmt::format("{}:{}", origin, ++number);
    const std::string content = without_blanks_around(line);
    if (content.empty() || content.front() == '#') continue;
    const std::size_t mark = content.find('#');
    Line read{place, {}, mark == std::string::npos ? "" : without_blanks_around(content.substr(mark + 1))};
    std::istringstream words(content.substr(0, mark));
    std::string more;
    words >> read.change.rule >> read.change.direction;
    if (read.change.direction.empty() || read.reason.empty() || words >> more) {
      throw element::InputError(
          fmt::format("{}: \"{}\" is no accepted change; expected RULE DIRECTION # REASON", place, content));
    }
    lines_.push_back(std::move(read));
  }
}

std::string AcceptedChanges::reason_of(const AnswerChange &change) {
  for (Line &line : lines_) {
    if (!fits(line.change.rule, change.rule) || !fits(line.change.direction, change.direction)) continue;
    line.is_used = true;
    return line.reason;
  }
  return {};
}

std::vector<std::string> AcceptedChanges::unused() const {
  std::vector<std::string> unused;
  for (const Line &line : lines_) {
    if (!line.is_used) unused.push_back(fmt::format("{}: {} {}", line.place, line.change.rule, line.change.direction));
  }
  return unused;
}

}  // namespace maintenance
