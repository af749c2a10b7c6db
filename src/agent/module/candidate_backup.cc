#include "agent/module/candidate_backup.h"

#include <memory>
#include <utility>

namespace agent {
namespace {

struct FreeValue {
  void operator()(val_value_t *value) const { val_free_value(value); }
};

}  // namespace

CandidateBackup::CandidateBackup()
    : config_(cfg_get_config_id(NCX_CFGID_CANDIDATE)),
      root_(config_ == nullptr || config_->root == nullptr ? nullptr : val_clone(config_->root)),
      was_changed_(config_ != nullptr && cfg_get_dirty_flag(config_) != FALSE) {}

CandidateBackup::~CandidateBackup() {
  if (root_ != nullptr) val_free_value(root_);
}

void CandidateBackup::restore() {
  static std::unique_ptr<val_value_t, FreeValue> replaced;
  replaced.reset(std::exchange(config_->root, std::exchange(root_, nullptr)));
  if (!was_changed_) config_->flags &= ~static_cast<uint32>(CFG_FL_DIRTY);
}

}  // namespace agent
