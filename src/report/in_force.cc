#include "report/in_force.h"

#include <vector>

namespace report {
namespace {

void mark_in_force(NodeReport &node) {
  if (node.status == ChangeStatus::added) node.status = ChangeStatus::in_force;
}

/// A party or a part.
template <typename Entry>
void mark_all(std::vector<Entry> &entries) {
  for (Entry &entry : entries) {
    mark_in_force(entry.node);
    for (NodeReport &detail : entry.details) mark_in_force(detail);
  }
}

void mark_all(AdviceReport &advice) {
  for (std::vector<PartReport> &parts : advice.alternatives) mark_all(parts);
  mark_all(advice.choices);
}

}  // namespace

void tell_as_in_force(CommitReport &commit) {
  for (Finding &finding : commit.findings) {
    finding.from_device = true;
    std::erase_if(finding.repairs, [](const RepairReport &repair) { return repair.kind == RepairKind::two_commits; });
    mark_all(finding.parties);
    mark_all(finding.triggers);
    mark_all(finding.advice);
  }
  mark_all(commit.advice);
}

}  // namespace report
