#ifndef AGENT_CORE_ANSWER_H
#define AGENT_CORE_ANSWER_H

#include <string>
#include <vector>

#include "agent/core/data_node.h"
#include "process/child.h"

namespace agent {

/// One message of the library.
struct Finding {
  std::string rule;  ///< empty: of no rule that is known
  std::string path;  ///< of the node under validation, as vpnval writes it
  std::string message;
  bool from_device = true;     ///< false: what the library would say once the others are gone
  std::vector<DataNode> data;  ///< all that is known of it, as children of list "finding" of our YANG module
};

enum class Decision { accepted, accepted_with_warnings, rejected, undecided };

/// Why there is no decision.
enum class Failure {
  undecided,      ///< the library did not answer, or what it said cannot be read
  internal_fault  ///< vpnval does not read what the agent has accepted, though both have the same YANG modules
};

/// What the library says of a commit.
struct Answer {
  Decision decision = Decision::undecided;
  std::vector<Finding> findings;  ///< that of the decision first; at least one unless it is accepted or undecided
  Failure kind = Failure::undecided;
  std::string failure;   ///< why it is undecided
  std::string document;  ///< what vpnval printed
  double seconds = 0;    ///< from the question to the answer
};

/// Reads what a process left that ran vpnval check --format json on one commit of these configuration files.
Answer read_answer(const process::Result &result, const std::vector<std::string> &configurations);

}  // namespace agent

#endif
