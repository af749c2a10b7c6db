#include "tests/support/datastore.h"

#include <algorithm>
#include <utility>

#include "tests/support/key_path.h"

namespace scripted {

namespace {

Path without_last_keys(Path path) {
  path.back().keys.clear();
  return path;
}

template <typename Map>
bool has_key_with_prefix(const Map &map, const std::string &prefix) {
  const auto at = map.lower_bound(prefix);
  return at != map.end() && at->first.starts_with(prefix);
}

Values first_values(const Values &row, std::size_t count) {
  if (row.size() < count) throw PathError("a row has fewer values than its list has keys");
  return {row.begin(), row.begin() + static_cast<std::ptrdiff_t>(count)};
}

std::vector<std::string> key_texts(const Values &row, std::size_t count) {
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < count; ++i) texts.push_back(to_text(row[i]));
  return texts;
}

}  // namespace

void KeyCounts::learn(const Path &list, std::size_t keys) {
  const auto [known, is_new] = counts_.emplace(node_text(list), keys);
  if (known->second != keys) throw PathError("another number of keys than before for " + known->first);
}

void KeyCounts::learn_ancestors(const Path &path) {
  Path node;
  for (const Step &step : path) {
    node.push_back(step);
    if (!step.keys.empty()) learn(node, step.keys.size());
  }
}

std::size_t KeyCounts::of(const Path &list) const {
  const auto known = counts_.find(node_text(list));
  return known == counts_.end() ? 0 : known->second;
}

bool KeyCounts::fit(const Path &path) const {
  Path node;
  for (const Step &step : path) {
    node.push_back(step);
    if (step.keys.empty()) continue;
    const std::size_t known = of(node);
    if (known != 0 && known != step.keys.size()) return false;
  }
  return true;
}

Values List::keys(std::size_t row) const { return first_values(rows[row], key_count); }

void Datastore::list(std::string_view path_text, std::size_t key_count, std::vector<Values> rows) {
  const Path path = parse_path(path_text);
  counts_.learn_ancestors(path);
  counts_.learn(path, key_count);
  List &list = lists_[to_text(path)];
  list = {key_count, std::move(rows)};
  std::stable_sort(list.rows.begin(), list.rows.end(), [&](const Values &a, const Values &b) {
    return compare(first_values(a, key_count), first_values(b, key_count)) < 0;
  });
}

void Datastore::entry(std::string_view list_path, Values values, std::size_t key_count) {
  const Path path = parse_path(list_path);
  if (key_count == 0) key_count = counts_.of(path);
  if (key_count == 0) key_count = values.size();
  const List *known = find_list(path);
  if (known == nullptr) {
    list(list_path, key_count, {std::move(values)});
    return;
  }
  std::vector<Values> &rows = lists_[to_text(path)].rows;
  const Values keys = first_values(values, key_count);
  const auto place = std::upper_bound(rows.begin(), rows.end(), keys, [&](const Values &a, const Values &b) {
    return compare(a, first_values(b, key_count)) < 0;
  });
  rows.insert(place, std::move(values));
}

void Datastore::leaf(std::string_view path_text) { leaf(path_text, tag(tag_of(parse_path(path_text).back().name))); }

void Datastore::leaf(std::string_view path_text, Value value) {
  const Path path = parse_path(path_text);
  counts_.learn_ancestors(path);
  leafs_[to_text(path)] = std::move(value);
}

void Datastore::object(std::string_view path_text, Values values) {
  const Path path = parse_path(path_text);
  counts_.learn_ancestors(path);
  objects_[to_text(path)] = std::move(values);
}

const List *Datastore::find_list(const Path &path) const {
  const auto found = lists_.find(to_text(path));
  return found == lists_.end() ? nullptr : &found->second;
}

const Value *Datastore::find_leaf(const Path &path) const {
  const auto found = leafs_.find(to_text(path));
  return found == leafs_.end() ? nullptr : &found->second;
}

const Values *Datastore::find_object(const Path &path) const {
  const auto found = objects_.find(to_text(path));
  return found == objects_.end() ? find_entry(path) : &found->second;
}

const Values *Datastore::find_entry(const Path &path) const {
  const std::vector<std::string> &keys = path.back().keys;
  if (keys.empty()) return nullptr;
  const List *list = find_list(without_last_keys(path));
  if (list == nullptr) return nullptr;
  for (const Values &row : list->rows) {
    if (key_texts(row, list->key_count) == keys) return &row;
  }
  return nullptr;
}

bool Datastore::has_something_below(const std::string &path_text) const {
  for (const char *next : {"/", "{"}) {
    const std::string prefix = path_text + next;
    if (has_key_with_prefix(leafs_, prefix) || has_key_with_prefix(objects_, prefix) ||
        has_key_with_prefix(lists_, prefix)) {
      return true;
    }
  }
  return false;
}

bool Datastore::exists(const Path &path) const {
  const List *list = find_list(path);
  if (list != nullptr && !list->rows.empty()) return true;
  return find_leaf(path) != nullptr || find_object(path) != nullptr || has_something_below(to_text(path));
}

}  // namespace scripted
