#ifndef DIAGNOSIS_DESCRIPTION_H
#define DIAGNOSIS_DESCRIPTION_H

#include "diagnosis/finding.h"
#include "diagnosis/search_context.h"

namespace diagnosis {

/// The entry as the whole commit has it, with its own leafs and ranges and the leafs of its VPN.
Party describe_party(const Entries &entries, std::uint32_t entry);

/// A part of the change, with what changes in place.
ChangePart describe_part(const Entries &entries, const RevertibleChanges &changes, std::uint32_t part);

/// The group of conflicts as a finding, without advice and repairs.
Finding describe_finding(const SearchContext &context, const FoundConflicts &conflicts,
                         const std::vector<std::size_t> &group);

}  // namespace diagnosis

#endif
