#ifndef MAINTENANCE_COMPARISON_CORPUS_STATISTICS_H
#define MAINTENANCE_COMPARISON_CORPUS_STATISTICS_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "maintenance/commits/answer.h"

namespace maintenance {

/// How often a rule speaks in a corpus, counted by commits.
struct RuleReach {
  std::size_t rejected = 0;  ///< commits that it rejects, maybe behind another rejection
  std::size_t warned = 0;
  std::size_t told = 0;  ///< commits in which its message is the first that the operator is told
};

/// What a corpus reaches with a library.
struct CorpusStatistics {
  std::size_t commits = 0;
  std::size_t accepted = 0;
  std::size_t accepted_with_warnings = 0;
  std::size_t rejected = 0;
  std::size_t failed = 0;         ///< the library failed
  std::size_t not_decided = 0;    ///< the configurations do not fit the element
  std::string first_not_decided;  ///< why; empty where there is none
  std::map<std::string, RuleReach> rules;

  void add(const Answer &answer);

  /// The rules that no commit draws, in the order of the rules.
  std::vector<std::string> not_reached() const;
};

}  // namespace maintenance

#endif
