#include "host/seam/resolve.h"

#include <algorithm>

#include "host/seam/agent_values.h"

namespace host {

namespace {

using element::NodeKind;

bool is_key(const element::SchemaNode &leaf) {
  return leaf.parent->kind == NodeKind::list && leaf.position < leaf.parent->key_count;
}

template <typename Entries, typename KeysOf>
auto lower_bound(const Entries &entries, const confd_value_t *keys, std::size_t count, KeysOf keys_of) {
  return std::partition_point(entries.begin(), entries.end(),
                              [&](const auto &entry) { return compare_keys(keys, count, keys_of(entry)) > 0; });
}

const std::vector<element::Value> &keys_of(const element::Node &entry) { return entry.keys; }

const std::vector<element::Value> &keys_of(const element::Change &entry) { return entry.keys(); }

/// The first entry of a list in key order that has these keys, or null. It is looked for where the hint says, one entry
/// further, and then among all.
template <typename Entry, typename Entries>
const Entry *find_entry(const Entries &entries, const confd_value_t *keys, std::size_t count, std::size_t &hint) {
  const auto is_at = [&](std::size_t place) {
    return place < entries.size() && compare_keys(keys, count, keys_of(entries[place])) == 0;
  };
  if (is_at(hint)) return &entries[hint];
  if (is_at(hint + 1)) return &entries[++hint];
  const auto found = lower_bound(
      entries, keys, count, [](const Entry &entry) -> const auto & { return keys_of(entry); });
  const auto place = static_cast<std::size_t>(found - entries.begin());
  if (!is_at(place)) return nullptr;
  hint = place;
  return &entries[place];
}

/// Goes down a tree name by name; what is missing on the way stays missing.
class Descent {
 public:
  Descent(const element::Node &root, LookupHints &hints) : place_{&root, nullptr, true}, hints_(hints) {}

  void go(const ResolvedPath::Step &step, const confd_value_t *keys) {
    if (step.schema->kind == NodeKind::leaf && is_key(*step.schema)) return go_to_key(*step.schema);
    const element::Node *above = place_.node;
    place_.node = above == nullptr ? nullptr : above->find(*step.schema);
    switch (step.schema->kind) {
      case NodeKind::container:
        if (step.schema->presence) place_.exists = place_.node != nullptr;
        return;
      case NodeKind::leaf:
        place_.value = place_.node == nullptr ? nullptr : set_value(place_.node->value);
        place_.exists = place_.value != nullptr;
        return;
      case NodeKind::list:
        if (step.has_keys && place_.node != nullptr) place_.node = entry_of(*place_.node, keys);
        place_.exists = place_.node != nullptr && (step.has_keys || !place_.node->children.empty());
    }
  }

  const Place &place() const { return place_; }

 private:
  // The entry may be hand-written, with fewer keys than its list has.
  void go_to_key(const element::SchemaNode &key) {
    const element::Node *entry = place_.node;
    place_.node = nullptr;
    const bool has_key = entry != nullptr && key.position < entry->keys.size();
    place_.value = has_key ? set_value(entry->keys[key.position]) : nullptr;
    place_.exists = place_.value != nullptr;
  }

  const element::Node *entry_of(const element::Node &list, const confd_value_t *keys) {
    return find_entry<element::Node>(list.children, keys, list.schema->key_count, hints_.of(&list));
  }

  static const element::Value *set_value(const element::Value &value) {
    return std::holds_alternative<std::monostate>(value) ? nullptr : &value;
  }

  Place place_;
  LookupHints &hints_;
};

const element::Change *child_of(const element::Change &change, const element::SchemaNode &schema) {
  const auto found =
      std::partition_point(change.children.begin(), change.children.end(),
                           [&](const element::Change &child) { return child.schema->position < schema.position; });
  return found != change.children.end() && found->schema == &schema ? &*found : nullptr;
}

const element::Change *entry_of(const element::Change &list, const confd_value_t *keys, LookupHints &hints) {
  return find_entry<element::Change>(list.children, keys, list.schema->key_count, hints.of(&list));
}

}  // namespace

int ResolvedPath::resolve(const element::Schema &schema, const char *format, std::va_list arguments) {
  if (!text_.format(format, arguments)) return CONFD_ERR_BADPATH;
  target_ = &schema.root();
  const FormattedPath::Part *part = text_.begin();
  const bool is_root = part->text.empty() && !part->is_key;
  if (is_root) return 0;

  while (part != text_.end()) {
    const FormattedPath::Part *name = part++;
    if (const int reason = add_name(*name); reason != 0) return reason;
    const FormattedPath::Part *first_key = part;
    while (part != text_.end() && part->is_key) ++part;
    if (!name->has_braces) continue;
    if (const int reason = add_keys(first_key, static_cast<std::size_t>(part - first_key)); reason != 0) return reason;
  }
  return 0;
}

int ResolvedPath::add_name(const FormattedPath::Part &name) {
  if (is_list()) return CONFD_ERR_BADPATH;
  target_ = target_->child(name.text);
  if (target_ == nullptr) return CONFD_ERR_BADPATH;
  steps_.push_back({target_, static_cast<std::uint32_t>(keys_.size()), false});
  return 0;
}

int ResolvedPath::add_keys(const FormattedPath::Part *first, std::size_t count) {
  if (target_->kind != NodeKind::list || count != target_->key_count) return CONFD_ERR_BADPATH;
  steps_[steps_.size() - 1].has_keys = true;
  for (std::size_t i = 0; i < count; ++i) {
    const element::SchemaNode &leaf = *target_->children[i];
    const std::string_view text = first[i].text;
    if (leaf.type == element::ValueType::text) {
      keys_.push_back(borrowed_text(text));
      continue;
    }
    const std::optional<element::Value> key = element::value_from_text(leaf, text);
    if (!key) return CONFD_ERR_BADTYPE;
    keys_.push_back(borrowed_value(*key, leaf));
  }
  return 0;
}

bool ResolvedPath::is_list() const { return target_->kind == NodeKind::list && !steps_[steps_.size() - 1].has_keys; }

bool ResolvedPath::is_object() const { return target_->kind != NodeKind::leaf && !is_list(); }

Place locate(const element::Tree &tree, const ResolvedPath &path, LookupHints &hints) {
  Descent descent(tree.root(), hints);
  for (const ResolvedPath::Step &step : path) descent.go(step, path.keys(step));
  return descent.place();
}

int compare_keys(const confd_value_t *wanted, std::size_t count, const std::vector<element::Value> &keys) {
  const std::size_t common = std::min(count, keys.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (const int order = compare(wanted[i], keys[i]); order != 0) return order;
  }
  if (count == keys.size()) return 0;
  return count < keys.size() ? -1 : 1;
}

std::size_t first_not_before(const element::Nodes &entries, const confd_value_t *keys, std::size_t count) {
  const auto found = lower_bound(
      entries, keys, count, [](const element::Node &entry) -> const auto & { return entry.keys; });
  return static_cast<std::size_t>(found - entries.begin());
}

ChangeTrail locate(const element::Change &root, const ResolvedPath &path, LookupHints &hints) {
  ChangeTrail trail;
  const element::Change *change = &root;
  for (const ResolvedPath::Step &step : path) {
    change = child_of(*change, *step.schema);
    if (change != nullptr) trail.push_back(change);
    if (change != nullptr && step.has_keys) {
      change = entry_of(*change, path.keys(step), hints);
      if (change != nullptr) trail.push_back(change);
    }
    if (change == nullptr) {
      trail.clear();
      break;
    }
  }
  return trail;
}

}  // namespace host
