#include "tests/diagnosis/change_parts.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "element/datastore/path.h"

namespace brute_force {
namespace {

using diagnosis::ChangeStatus;
using element::Node;
using element::NodeKind;
using element::Path;

bool is_vpn(const Node &node) { return node.schema->name == "vpn" && node.is_entry(); }

/// A leaf, or a range, which has no leafs but its keys.
bool is_value(const Node &node) { return node.schema->kind == NodeKind::leaf || (node.is_entry() && !is_thing(node)); }

bool is_same_place(const Node &a, const Node &b) {
  return a.schema == b.schema && element::compare_keys(a.keys, b.keys) == 0;
}

const element::Nodes &children_of(const Node *node) {
  static const element::Nodes none;
  return node == nullptr ? none : node->children;
}

const Node *twin_of(const Node &node, const element::Nodes &others) {
  const auto twin =
      std::find_if(others.begin(), others.end(), [&](const Node &other) { return is_same_place(node, other); });
  return twin == others.end() ? nullptr : &*twin;
}

Path step_into(Path path, const Node &node) {
  if (node.is_entry()) {
    path.back().keys = node.keys;
  } else {
    path.push_back({node.schema, {}});
  }
  return path;
}

using Visit = std::function<void(const Node *before, const Node *after)>;

void for_each_pair(const Node *before, const Node *after, const Visit &visit) {
  for (const Node &child : children_of(before)) visit(&child, twin_of(child, children_of(after)));
  for (const Node &child : children_of(after)) {
    if (twin_of(child, children_of(before)) == nullptr) visit(nullptr, &child);
  }
}

/// Collects the parts, and builds the candidate without those that are taken back.
class PartWalk {
 public:
  PartWalk(const Configurations &commit, std::set<Part> reverted) : commit_(commit), reverted_(std::move(reverted)) {}

  Configurations run() {
    Configurations result{commit_.running, element::Tree(commit_.running.schema())};
    for_each_pair(&commit_.running.root(), &commit_.candidate.root(), [&](const Node *before, const Node *after) {
      walk(before, after, {}, nullptr, result.candidate.root());
    });
    result.candidate.sort();
    return result;
  }

  std::vector<Part> parts;

 private:
  struct Owner {
    std::string path;
    bool is_vpn = false;
    bool stays = false;
  };

  void walk(const Node *before, const Node *after, const Path &around, const Owner *owner, Node &parent) {
    const Node &node = after != nullptr ? *after : *before;
    const Path path = step_into(around, node);
    if (is_thing(node)) {
      walk_entry(before, after, path, parent);
    } else if (is_value(node)) {
      const Node *kept = value_kept(before, after, path, *owner);
      if (kept != nullptr) parent.children.push_back(*kept);
    } else {
      copy(before, after, path, owner, parent);
    }
  }

  void copy(const Node *before, const Node *after, const Path &path, const Owner *owner, Node &parent) {
    const Node &node = after != nullptr ? *after : *before;
    Node result{node.schema, node.keys, node.value, {}};
    for_each_pair(before, after, [&](const Node *old, const Node *now) { walk(old, now, path, owner, result); });
    if (!holds_nothing(result)) parent.children.push_back(std::move(result));
  }

  void walk_entry(const Node *before, const Node *after, const Path &path, Node &parent) {
    const Owner owner{to_text(path), is_vpn(after != nullptr ? *after : *before),
                      before != nullptr && after != nullptr};
    if (after == nullptr) {
      if (note({ChangeStatus::removed, owner.path})) parent.children.push_back(*before);
      return;
    }
    if (before == nullptr && note({ChangeStatus::added, owner.path})) return note_below(*after, path);
    copy(before, after, path, &owner, parent);
  }

  /// What is in an added entry that is taken back goes with it.
  void note_below(const Node &node, const Path &around) {
    for (const Node &child : node.children) {
      const Path path = step_into(around, child);
      if (is_thing(child)) note({ChangeStatus::added, to_text(path)});
      note_below(child, path);
    }
  }

  const Node *value_kept(const Node *before, const Node *after, const Path &path, const Owner &owner) {
    const bool is_same = before != nullptr && after != nullptr && before->value == after->value;
    if (!owner.stays || is_same) return after;
    return note({status_of(before, after, owner), owner.is_vpn ? to_text(path) : owner.path}) ? before : after;
  }

  static ChangeStatus status_of(const Node *before, const Node *after, const Owner &owner) {
    if (!owner.is_vpn || (before != nullptr && after != nullptr)) return ChangeStatus::changed;
    return before == nullptr ? ChangeStatus::added : ChangeStatus::removed;
  }

  /// Whether the part is taken back.
  bool note(const Part &part) {
    if (std::find(parts.begin(), parts.end(), part) == parts.end()) parts.push_back(part);
    return reverted_.count(part) != 0;
  }

  const Configurations &commit_;
  const std::set<Part> reverted_;
};

}  // namespace

std::vector<Part> parts_of(const Configurations &commit) {
  PartWalk walk(commit, {});
  walk.run();
  return walk.parts;
}

Configurations taken_back(const Configurations &commit, const std::set<Part> &parts) {
  PartWalk walk(commit, parts);
  Configurations result = walk.run();
  for (const Part &part : parts) {
    if (std::find(walk.parts.begin(), walk.parts.end(), part) == walk.parts.end()) {
      throw std::logic_error("the commit has no such part: " + part.path);
    }
  }
  return result;
}

bool is_closed(const std::vector<Part> &all, const std::set<Part> &parts) {
  return std::all_of(all.begin(), all.end(), [&parts](const Part &part) {
    if (part.status != ChangeStatus::added || parts.count(part) != 0) return true;
    return std::none_of(parts.begin(), parts.end(), [&part](const Part &outer) {
      return outer.status == ChangeStatus::added && part.path.starts_with(outer.path + "/");
    });
  });
}

}  // namespace brute_force
