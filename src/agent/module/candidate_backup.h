#ifndef AGENT_MODULE_CANDIDATE_BACKUP_H
#define AGENT_MODULE_CANDIDATE_BACKUP_H

#include "agent/module/yuma.h"

namespace agent {

/// The candidate as it is now, to come back to.
class CandidateBackup {
 public:
  CandidateBackup();
  ~CandidateBackup();
  CandidateBackup(const CandidateBackup &) = delete;
  CandidateBackup &operator=(const CandidateBackup &) = delete;

  bool is_complete() const { return root_ != nullptr; }

  /// Puts it in the place of what the candidate has become. What is replaced lives until the next time: the agent still
  /// has records of the edit that point into it.
  void restore();

 private:
  cfg_template_t *config_;
  val_value_t *root_;
  bool was_changed_;
};

}  // namespace agent

#endif
