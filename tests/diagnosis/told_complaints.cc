#include "tests/diagnosis/told_complaints.h"

#include "tests/diagnosis/told_findings.h"

namespace brute_force {

std::set<Complaint> told_complaints(const diagnosis::Finding &finding) {
  const Message message = message_of(finding.verdict);
  std::set<Complaint> complaints;
  if (is_of_counting_rule(message) || is_of_listing_rule(message)) {
    std::set<std::string> parties;
    for (const diagnosis::Party &party : finding.parties) parties.insert(to_text(party.path));
    return {{message, parties}};
  }
  for (const diagnosis::Conflict &conflict : finding.conflicts) {
    complaints.insert({message_of(conflict.verdict), party_paths(finding, conflict)});
  }
  return complaints;
}

}  // namespace brute_force
