#ifndef AGENT_CORE_ANSWER_H
#define AGENT_CORE_ANSWER_H

#include <string>
#include <vector>

#include "process/child.h"

namespace agent {

/// One message of the library, as texts.
struct Finding {
  std::string rule;  ///< empty: of no rule that is known
  std::string point;
  std::string path;  ///< of the node under validation, as vpnval writes it
  std::string message;
  std::vector<std::string> parties;
  std::vector<std::string> take_back;
  std::vector<std::string> instead;
};

enum class Decision { accepted, accepted_with_warnings, rejected, undecided };

/// What the library says of a commit.
struct Answer {
  Decision decision = Decision::undecided;
  std::vector<Finding> findings;  ///< that of the decision first; at least one unless it is accepted or undecided
  std::string failure;            ///< why it is undecided
  std::string document;           ///< what vpnval printed
};

/// Reads what a process left that ran vpnval check --format json on one commit.
Answer read_answer(const process::Result &result);

}  // namespace agent

#endif
