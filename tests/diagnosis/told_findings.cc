#include "tests/diagnosis/told_findings.h"

#include <algorithm>
#include <map>

namespace brute_force {
namespace {

std::vector<std::string> paths_of(const std::vector<diagnosis::Party> &parties) {
  std::set<std::string> paths;
  for (const diagnosis::Party &party : parties) paths.insert(to_text(party.path));
  return {paths.begin(), paths.end()};
}

}  // namespace

std::set<std::string> party_paths(const diagnosis::Finding &finding, const diagnosis::Conflict &conflict) {
  std::set<std::string> paths;
  for (const std::size_t party : conflict.parties) paths.insert(to_text(finding.parties.at(party).path));
  return paths;
}

std::set<std::string> trigger_paths(const diagnosis::Finding &finding, const diagnosis::Conflict &conflict) {
  std::set<std::string> paths;
  for (const std::size_t trigger : conflict.triggers) paths.insert(to_text(finding.triggers.at(trigger).path));
  return paths;
}

FindingText finding_text(const diagnosis::Finding &finding) {
  FindingText text;
  const Message message = message_of(finding.verdict);
  text.rule = message.rule;
  text.standing = finding.is_preexisting ? "in force" : "new";
  if (is_of_counting_rule(message) || is_of_listing_rule(message)) {
    if (finding.enough_at_most != 0) text.rule += ", number not certain";
    text.lines.push_back(conflict_line(message, finding.enough, paths_of(finding.parties), paths_of(finding.triggers)));
    return text;
  }
  std::map<std::pair<Message, std::set<std::string>>, std::set<std::string>> triggers;
  for (const diagnosis::Conflict &conflict : finding.conflicts) {
    triggers[{message_of(conflict.verdict), party_paths(finding, conflict)}].merge(trigger_paths(finding, conflict));
  }
  for (const auto &[conflict, looked_at_for] : triggers) {
    text.lines.push_back(conflict_line(conflict.first, 0, {conflict.second.begin(), conflict.second.end()},
                                       {looked_at_for.begin(), looked_at_for.end()}));
  }
  std::sort(text.lines.begin(), text.lines.end());
  return text;
}

}  // namespace brute_force
