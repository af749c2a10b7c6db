#include "diagnosis/revertible_changes.h"

#include <algorithm>
#include <numeric>

namespace diagnosis {
namespace {

bool is_vpn(const MergedNode &node) { return node.is_thing() && node.schema->name == "vpn"; }

}  // namespace

RevertibleChanges::RevertibleChanges(const Entries &entries)
    : entries_(entries), tree_(entries.tree()), part_of_(tree_.size(), kNone) {
  walk(0, tree_.size());
}

void RevertibleChanges::walk(std::uint32_t begin, std::uint32_t end) {
  for (std::uint32_t number = begin; number < end;) {
    const MergedNode &node = tree_[number];
    const bool is_whole = node.is_thing() || node.is_leaf();
    if (is_whole && (node.before == nullptr || node.after == nullptr)) {
      add_subtree(number, status_of(node), kNone);
      number = node.end;
      continue;
    }
    if (node.is_leaf() && node.is_changed()) add_subtree(number, ChangeStatus::changed, kNone);
    if (!node.is_thing() || is_vpn(node)) {
      ++number;
      continue;
    }
    add_changes_in_place(number);
    for (std::uint32_t inner = number + 1; inner < node.end; ++inner) {
      if (!tree_[inner].is_thing()) continue;
      walk(inner, tree_[inner].end);
      inner = tree_[inner].end - 1;
    }
    number = node.end;
  }
}

// With an addition come its leafs and ranges; the things in it are parts of their own. A removal takes all along.
void RevertibleChanges::add_subtree(std::uint32_t number, ChangeStatus status, std::uint32_t parent) {
  const std::uint32_t part = size();
  parts_.push_back({status, number, parent, 0});
  part_of_[number] = part;
  for (std::uint32_t inner = number + 1; inner < tree_[number].end;) {
    if (status == ChangeStatus::added && tree_[inner].is_thing()) {
      add_subtree(inner, status, part);
      inner = tree_[inner].end;
    } else {
      part_of_[inner++] = part;
    }
  }
  parts_[part].end = size();
}

void RevertibleChanges::add_changes_in_place(std::uint32_t number) {
  const std::uint32_t part = size();
  bool has_changes = false;
  for (std::uint32_t inner = number + 1; inner < tree_[number].end;) {
    const MergedNode &node = tree_[inner];
    if (node.is_thing()) {
      inner = node.end;
      continue;
    }
    const bool is_changed = node.is_changed();
    has_changes = has_changes || is_changed;
    const std::uint32_t end = is_changed ? node.end : inner + 1;
    for (; inner < end; ++inner) part_of_[inner] = is_changed ? part : kNone;
  }
  if (has_changes) parts_.push_back({ChangeStatus::changed, number, kNone, part + 1});
}

NumberSet RevertibleChanges::all() const {
  NumberSet set(size());
  std::iota(set.begin(), set.end(), 0U);
  return set;
}

NumberSet RevertibleChanges::parts_at(std::uint32_t entry) const {
  NumberSet parts;
  const auto add_own = [&](std::uint32_t thing) {
    const std::uint32_t number = entries_[thing].node;
    if (part_of_[number] != kNone) parts.push_back(part_of_[number]);
    for (std::uint32_t inner = number + 1; inner < tree_[number].end;) {
      if (tree_[inner].is_thing()) {
        inner = tree_[inner].list_end;
        continue;
      }
      if (part_of_[inner] != kNone) parts.push_back(part_of_[inner]);
      ++inner;
    }
  };
  for (std::uint32_t thing = entry; thing != kNone; thing = entries_[thing].parent) add_own(thing);
  normalise(parts);
  return parts;
}

ChangeStatus RevertibleChanges::status_without(const NumberSet &taken_back, std::uint32_t entry) const {
  const std::uint32_t number = entries_[entry].node;
  const auto is_back = [&](std::uint32_t node) {
    return part_of_[node] == kNone || contains(taken_back, part_of_[node]);
  };
  const ChangeStatus status = status_of(tree_[number]);
  if (status != ChangeStatus::unchanged) return is_back(number) ? ChangeStatus::unchanged : status;
  for (std::uint32_t inner = number + 1; inner < tree_[number].end;) {
    if (tree_[inner].is_thing()) {
      inner = tree_[inner].list_end;
      continue;
    }
    if (tree_[inner].is_changed() && !is_back(inner)) return ChangeStatus::changed;
    ++inner;
  }
  return ChangeStatus::unchanged;
}

NumberSet RevertibleChanges::gone_without(const NumberSet &taken_back) const {
  NumberSet gone;
  for (const std::uint32_t part : taken_back) {
    const MergedNode &node = tree_[parts_[part].node];
    if (node.is_thing() && node.before == nullptr) gone.push_back(node.entry);
  }
  normalise(gone);
  return gone;
}

NumberSet RevertibleChanges::closure(const NumberSet &set) const {
  NumberSet closed;
  std::uint32_t end = 0;
  for (const std::uint32_t part : set) {
    for (std::uint32_t inner = std::max(part, end); inner < parts_[part].end; ++inner) closed.push_back(inner);
    end = std::max(end, parts_[part].end);
  }
  return closed;
}

NumberSet RevertibleChanges::outermost(const NumberSet &set) const {
  NumberSet outer;
  for (const std::uint32_t part : set) {
    if (parts_[part].parent == kNone || !contains(set, parts_[part].parent)) outer.push_back(part);
  }
  return outer;
}

ChangeStatus status_of(const MergedNode &node) {
  if (node.before == nullptr) return ChangeStatus::added;
  if (node.after == nullptr) return ChangeStatus::removed;
  return node.is_changed() ? ChangeStatus::changed : ChangeStatus::unchanged;
}

ChangeStatus status_of(const Entries &entries, std::uint32_t entry) {
  const MergedTree &tree = entries.tree();
  const std::uint32_t number = entries[entry].node;
  const ChangeStatus status = status_of(tree[number]);
  if (status != ChangeStatus::unchanged) return status;
  for (std::uint32_t inner = number + 1; inner < tree[number].end;) {
    if (tree[inner].is_thing()) {
      inner = tree[inner].list_end;
    } else if (tree[inner++].is_changed()) {
      return ChangeStatus::changed;
    }
  }
  return ChangeStatus::unchanged;
}

}  // namespace diagnosis
