#include "element/json_members.h"

#include <algorithm>
#include <string>
#include <vector>

namespace element {
namespace {

/// One past the closing quote of the string that opens at `open`.
std::size_t string_end(std::string_view json, std::size_t open) {
  std::size_t place = json.find_first_of("\"\\", open + 1);
  while (place != std::string_view::npos && json[place] == '\\') place = json.find_first_of("\"\\", place + 2);
  return place == std::string_view::npos ? json.size() : place + 1;
}

bool is_member_name(std::string_view json, std::size_t end) {
  const std::size_t next = json.find_first_not_of(" \t\r\n", end);
  return next != std::string_view::npos && json[next] == ':';
}

std::string_view without_module(std::string_view name) { return name.substr(name.find(':') + 1); }

/// The names seen in each object that is open. The data model knows a handful of names below a node, so rows stay
/// short.
class OpenObjects {
 public:
  void open() { names_.emplace_back(); }
  void close() { names_.pop_back(); }

  /// False when the innermost object has a member of this name already.
  bool add(std::string_view name) {
    std::vector<std::string_view> &names = names_.back();
    if (std::find(names.begin(), names.end(), name) != names.end()) return false;
    names.push_back(name);
    return true;
  }

 private:
  std::vector<std::vector<std::string_view>> names_;
};

}  // namespace

std::optional<std::size_t> find_repeated_member(std::string_view json) {
  OpenObjects objects;
  for (std::size_t place = 0; place < json.size(); ++place) {
    if (json[place] == '{') objects.open();
    if (json[place] == '}') objects.close();
    if (json[place] != '"') continue;
    const std::size_t end = string_end(json, place);
    const std::string_view text = json.substr(place + 1, end - place - 2);
    if (is_member_name(json, end) && !objects.add(without_module(text))) return place;
    place = end - 1;
  }
  return std::nullopt;
}

}  // namespace element
