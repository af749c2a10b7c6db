#include "host/run/unreadable_names.h"

#include <algorithm>
#include <set>

namespace host {

namespace {

// The plug-in formats paths into buffers of 512 characters, the terminating zero included.
constexpr std::size_t kLongestPath = 511;

void add_names(const element::Node &node, std::set<std::string> &names) {
  if (node.schema != nullptr && node.schema->derived) return;
  for (const element::Value &key : node.keys) {
    if (const auto *text = std::get_if<std::string>(&key); text != nullptr && !text->empty()) names.insert(*text);
  }
  for (const element::Node &child : node.children) add_names(child, names);
}

bool has_special_character(std::string_view name) { return name.find_first_of(" {}\"\\") != std::string_view::npos; }

/// The path was cut at its greatest length, within the name or behind it.
bool is_cut_off_at(std::string_view path, std::string_view name) {
  if (path.size() < kLongestPath) return false;
  if (path.find(name) != std::string_view::npos) return true;
  const std::size_t before_last_key = path.find_last_of("{ ");
  if (before_last_key == std::string_view::npos) return false;
  const std::string_view last_key = path.substr(before_last_key + 1);
  return !last_key.empty() && name.substr(0, last_key.size()) == last_key;
}

}  // namespace

UnreadableNames::UnreadableNames(const element::Transaction &transaction) {
  std::set<std::string> names;
  add_names(transaction.running.root(), names);
  add_names(transaction.candidate.root(), names);
  names_.assign(names.begin(), names.end());
  std::stable_sort(names_.begin(), names_.end(), [](const auto &a, const auto &b) { return a.size() > b.size(); });
}

std::string UnreadableNames::cause_of(const UnreadablePath &path) const {
  for (const std::string &name : names_) {
    const bool is_held = has_special_character(name) && path.path.find(name) != std::string::npos;
    const bool is_key = std::find(path.keys.begin(), path.keys.end(), name) != path.keys.end();
    if (!is_key && (is_held || is_cut_off_at(path.path, name))) return name;
  }
  return {};
}

}  // namespace host
