#ifndef HOST_RUN_COMMIT_H
#define HOST_RUN_COMMIT_H

#include <cstdint>
#include <string>
#include <vector>

#include "element/datastore/transaction.h"
#include "host/run/plugin.h"
#include "host/seam/seam.h"

namespace host {

/// A plug-in broke the seam's contract: an answer other than accept, reject or warn, or something left open. what()
/// names the point and the fault.
class ContractError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What one validation point answered.
struct PointVerdict {
  std::string point;
  std::string path;         ///< of the node under validation
  std::int32_t result = 0;  ///< 0 accept, -1 reject, -3 accept with a warning
  std::string text;         ///< message or warning; empty when accepted
};

enum class Decision { accepted, accepted_with_warnings, rejected };

struct Verdict {
  Decision decision = Decision::accepted;
  std::vector<PointVerdict> points;  ///< those that were asked, in order
  std::size_t points_fired = 0;      ///< more than were asked where a rejection ended the commit
  Account account;                   ///< of the whole commit
};

struct CommitOptions {
  bool all_points = false;  ///< ask the remaining points after a rejection
};

/// Fires the transaction's validation points at the library, as the element does when an operator commits.
/// Throws ContractError.
Verdict validate_commit(const Plugin &plugin, Seam &seam, const element::Transaction &transaction,
                        const CommitOptions &options = {});

}  // namespace host

#endif
