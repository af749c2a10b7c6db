#include "report/change_summary.h"

#include <fmt/format.h>

#include <vector>

#include "l2vpn/paths.h"

namespace report {
namespace {

using element::Change;
using element::Node;
using element::SchemaNode;

/// The kind of a list's entries; null for a list whose entries are not counted.
ObjectChanges ChangeSummary::*kind_of(const SchemaNode &list) {
  if (list.name == l2vpn::name::vpn) return &ChangeSummary::vpns;
  if (list.name == l2vpn::name::access_interface) return &ChangeSummary::attachments;
  if (list.name == l2vpn::name::neighbor || list.name == l2vpn::name::backup_neighbor) return &ChangeSummary::neighbors;
  const bool is_member = list.name == l2vpn::name::interface && list.parent->name == l2vpn::name::vlan;
  return is_member ? &ChangeSummary::members : nullptr;
}

class Summarizer {
 public:
  ChangeSummary summary;

  void add_all(const std::vector<Change> &changes, bool &is_owner_changed) {
    for (const Change &change : changes) {
      if (!change.schema->derived) add(change, is_owner_changed);
    }
  }

 private:
  /// `is_owner_changed` is set where the change is one of the object around it.
  void add(const Change &change, bool &is_owner_changed) {
    summary.is_nothing = false;
    const auto kind = change.is_entry() ? kind_of(*change.schema) : nullptr;
    if (kind == nullptr) {
      if (change.kind != element::ChangeKind::below && change.kind != element::ChangeKind::modified) {
        is_owner_changed = true;
      }
      if (change.after == nullptr) return add_removed(*change.before);
      return add_all(change.children, is_owner_changed);
    }
    ObjectChanges &changes = summary.*kind;
    if (change.after == nullptr) {
      ++changes.removed;
      return add_removed(*change.before);
    }
    bool is_changed = false;
    add_all(change.children, is_changed);
    if (change.before == nullptr) {
      ++changes.added;
    } else if (is_changed) {
      ++changes.changed;
    }
  }

  /// What a removed node held.
  void add_removed(const Node &node) {
    for (const Node &below : node.children) {
      const auto kind = below.is_entry() ? kind_of(*below.schema) : nullptr;
      if (kind != nullptr) ++(summary.*kind).removed;
      add_removed(below);
    }
  }
};

std::string text_of(std::string_view kind, const ObjectChanges &changes) {
  std::vector<std::string> parts;
  if (changes.added != 0) parts.push_back(fmt::format("{} added", changes.added));
  if (changes.changed != 0) parts.push_back(fmt::format("{} changed", changes.changed));
  if (changes.removed != 0) parts.push_back(fmt::format("{} removed", changes.removed));
  return parts.empty() ? "" : fmt::format("{} {}", kind, fmt::join(parts, ", "));
}

}  // namespace

ChangeSummary summarize_changes(const Change &root) {
  Summarizer summarizer;
  bool is_no_object_changed = false;
  summarizer.add_all(root.children, is_no_object_changed);
  return summarizer.summary;
}

std::string in_force_text(const ChangeSummary &summary) {
  std::vector<std::string> parts;
  for (const ObjectKind &kind : kObjectKinds) {
    parts.push_back(fmt::format("{} {}", kind.plural, (summary.*kind.changes).added));
  }
  return fmt::format("in force: {}", fmt::join(parts, ", "));
}

std::string change_summary_text(const ChangeSummary &summary) {
  if (summary.is_nothing) return "summary: nothing to commit";
  std::vector<std::string> parts;
  for (const ObjectKind &kind : kObjectKinds) {
    std::string text = text_of(kind.plural, summary.*kind.changes);
    if (!text.empty()) parts.push_back(std::move(text));
  }
  if (parts.empty()) return "summary: no VPN, attachment, neighbour or member is touched";
  return fmt::format("summary: {}", fmt::join(parts, "; "));
}

}  // namespace report
