#ifndef DIAGNOSIS_REPAIR_SEARCH_H
#define DIAGNOSIS_REPAIR_SEARCH_H

#include <set>
#include <string>
#include <vector>

#include "diagnosis/candidate_edit.h"
#include "diagnosis/finding.h"
#include "diagnosis/grouping.h"
#include "diagnosis/resource_users.h"
#include "diagnosis/search_context.h"

namespace diagnosis {

/// Finds values of the candidate that can be changed instead of taking something back. What the commit leaves alone is
/// not changed. Each value is asked about before it is told: the finding must be gone, beside what is party of no other
/// finding and beside parties of others that agree with each other, and the whole must draw nothing new.
class RepairSearch {
 public:
  /// All that is referred to must outlive the search.
  RepairSearch(const SearchContext &context, const FoundConflicts &conflicts, const std::vector<ConflictGroup> &groups,
               const element::Profile &profile);

  /// What repairs the group's finding; fewer than there are where the oracle ends the search.
  std::vector<Repair> for_group(std::size_t group);

 private:
  /// A value that may help, with what is near the changed entry then and was not before.
  struct Proposal {
    std::vector<element::Value> values;
    std::string text;
    NumberSet newly_near;
  };

  void add_vlans(std::uint32_t party);
  void add_vlans(const l2vpn::Vpn &vpn, const l2vpn::PortClaim &claim);
  void add_member_vlans(std::uint32_t party);
  bool is_shared(const l2vpn::PortClaim &claim);
  void add_pw_ids(std::uint32_t party);
  void add_names(std::uint32_t party);
  std::vector<l2vpn::VlanRange> taken_on(const std::vector<std::string> &ports);
  void add(Repair repair, const std::vector<Proposal> &proposals);
  bool is_touched(const std::string &path) const;
  bool is_gone(const NumberSet &entries, const NumberSet &messages, const CandidateEdit &edit);
  bool helps(const CandidateEdit &edit, const NumberSet &newly_near);
  bool brings_nothing_new(const NumberSet &entries, const CandidateEdit &edit);
  std::vector<NumberSet> surroundings(const CandidateEdit &edit, const NumberSet &newly_near);
  std::optional<NumberSet> ask(const NumberSet &entries, const CandidateEdit &edit);

  const SearchContext &context_;
  const FoundConflicts &conflicts_;
  const std::vector<ConflictGroup> &groups_;
  const element::Profile &profile_;
  ResourceUsers users_;
  NumberSet messages_;  ///< of all conflicts

  // The group at hand:
  std::size_t group_ = 0;
  NumberSet entries_;           ///< of its conflicts
  NumberSet own_messages_;      ///< of its conflicts
  std::set<std::string> seen_;  ///< the paths that were looked at
  std::vector<Repair> repairs_;
};

}  // namespace diagnosis

#endif
