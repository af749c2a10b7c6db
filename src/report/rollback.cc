#include "report/rollback.h"

namespace report {

std::string rollback_name(const std::string &name) { return name + ", the way back"; }

std::vector<CommitReport> with_rollbacks(const std::vector<CommitReport> &commits) {
  std::vector<CommitReport> all;
  for (const CommitReport &commit : commits) {
    all.push_back(commit);
    all.insert(all.end(), commit.rollback.begin(), commit.rollback.end());
  }
  return all;
}

}  // namespace report
