#include "maintenance/comparison/corpus_statistics.h"

#include <set>

#include "rules/rule.h"

namespace maintenance {
namespace {

std::size_t &count_of(CorpusStatistics &statistics, host::Decision decision) {
  switch (decision) {
    case host::Decision::accepted:
      return statistics.accepted;
    case host::Decision::accepted_with_warnings:
      return statistics.accepted_with_warnings;
    case host::Decision::rejected:
      break;
  }
  return statistics.rejected;
}

}  // namespace

void CorpusStatistics::add(const Answer &answer) {
  ++commits;
  if (answer.end == AnswerEnd::not_decided) {
    ++not_decided;
    if (first_not_decided.empty()) first_not_decided = answer.failure;
  } else if (answer.end != AnswerEnd::answered) {
    ++failed;
  } else {
    ++count_of(*this, answer.decision);
  }
  std::set<std::string> counted;
  for (const host::PointVerdict &point : answer.points) {
    const std::string id = rule_id_of(point);
    if (id.empty() || !counted.insert(id).second) continue;
    ++(point.answer == host::Answer::rejected ? rules[id].rejected : rules[id].warned);
  }
  if (const host::PointVerdict *words = words_of(answer)) ++rules[rule_id_of(*words)].told;
}

std::vector<std::string> CorpusStatistics::not_reached() const {
  std::vector<std::string> ids;
  for (const ::rules::Rule &rule : ::rules::all_rules()) {
    if (!rules.contains(rule.id)) ids.push_back(rule.id);
  }
  return ids;
}

}  // namespace maintenance
