#ifndef HOST_RUN_COMMIT_H
#define HOST_RUN_COMMIT_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "element/datastore/transaction.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"

namespace host {

/// The plug-in broke the contract of a validation call: it answered something other than accept, reject or warn, gave
/// no text with a rejection or warning, threw an exception, or kept a value or a session. what() names the validation
/// point and what was wrong.
class ContractError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class Answer { accepted, warned, rejected };

/// What one validation point answered.
struct PointVerdict {
  std::string point;
  std::string path;  ///< of the node under validation
  Answer answer = Answer::accepted;
  std::string text;  ///< message or warning; empty when accepted
};

enum class Decision { accepted, accepted_with_warnings, rejected };

/// A question of the library that the platform could not read, because of a character in, or the length of, a name that
/// the operator gave. The call failed, or, where the name has quotes, asked for the name without them: the rule did not
/// look at what the name stands for.
struct UnreadableQuestion {
  std::string point;     ///< the validation point that asked
  std::string function;  ///< the platform function
  std::string path;      ///< as the library gave it
  std::string name;      ///< the operator's name
};

struct Verdict {
  Decision decision = Decision::accepted;
  std::vector<PointVerdict> points;            ///< those that were asked and kept, in order
  std::size_t points_fired = 0;                ///< more than were asked where a rejection ended the commit
  CallStatistics statistics;                   ///< of the whole commit
  std::vector<UnreadableQuestion> unreadable;  ///< in the order in which they were asked
};

struct CommitOptions {
  bool all_points = false;    ///< ask the remaining points after a rejection
  bool keep_accepted = true;  ///< tell of points that accepted, too, which takes time in a large commit
};

/// Fires the transaction's validation points at the library, as the element does when an operator commits.
/// Throws ContractError.
Verdict validate_commit(const Plugin &plugin, HostSession &session, const element::Transaction &transaction,
                        const CommitOptions &options = {});

}  // namespace host

#endif
