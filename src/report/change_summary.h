#ifndef REPORT_CHANGE_SUMMARY_H
#define REPORT_CHANGE_SUMMARY_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "element/datastore/difference.h"

namespace report {

/// Objects of one kind that a commit touches.
struct ObjectChanges {
  std::size_t added = 0;
  std::size_t changed = 0;  ///< stay, and a leaf or entry of their own does not
  std::size_t removed = 0;
};

/// How many of the objects that an operator counts in a commit touches. What stands in a VPN counts by itself: a new
/// attachment changes no VPN. A removed VPN removes its attachments and neighbours.
struct ChangeSummary {
  ObjectChanges vpns;
  ObjectChanges attachments;
  ObjectChanges neighbors;  ///< backup neighbours, too
  ObjectChanges members;    ///< static members of VLANs
  bool is_nothing = true;   ///< nothing of the operator's changes, of these kinds or another

  /// Objects of all kinds that are removed.
  std::size_t removed() const { return vpns.removed + attachments.removed + neighbors.removed + members.removed; }
};

ChangeSummary summarize_changes(const element::Change &root);

/// The kinds with their names in a text and in a document.
struct ObjectKind {
  ObjectChanges ChangeSummary::*changes;
  std::string_view plural;
  std::string_view field;
};
inline constexpr std::array<ObjectKind, 4> kObjectKinds{{{&ChangeSummary::vpns, "VPNs", "vpns"},
                                                         {&ChangeSummary::attachments, "attachments", "attachments"},
                                                         {&ChangeSummary::neighbors, "neighbours", "neighbors"},
                                                         {&ChangeSummary::members, "members", "members"}}};

/// "summary: VPNs 1 added, 2 removed; members 1 changed", without kinds of which nothing changes; "summary: nothing to
/// commit", or "summary: no VPN, attachment, neighbour or member is touched" where it is something else that changes.
std::string change_summary_text(const ChangeSummary &summary);

/// "in force: VPNs 12, attachments 30, neighbours 8, members 0": of a commit that adds all there is.
std::string in_force_text(const ChangeSummary &summary);

}  // namespace report

#endif
