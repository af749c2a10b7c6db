#ifndef TESTS_DIAGNOSIS_HIDDEN_COMPLAINTS_H
#define TESTS_DIAGNOSIS_HIDDEN_COMPLAINTS_H

#include <set>

#include "tests/diagnosis/correction_search.h"

namespace brute_force {

/// Tells the complaints that a changed value brings from those that were hidden before.
///
/// A complaint was hidden behind one with which it shares a party, and which the value mends, where it is also drawn by
/// the commit without the value: parts of the change are taken back, none of them a removal or at a party of the
/// complaint, and with them the complaint goes that hid it.
class HiddenComplaints {
 public:
  /// `before` are the commit's complaints. All that is referred to must outlive this.
  HiddenComplaints(const Configurations &commit, const std::set<Complaint> &before)
      : commit_(commit), before_(before), search_(commit) {}

  /// The complaints with the value in the candidate, but for those that were hidden. `value` is how the value begins in
  /// the candidate's lines.
  std::set<Complaint> without_hidden(const std::set<Complaint> &after, const std::string &value);

 private:
  bool is_hidden(const Complaint &complaint, const std::set<Complaint> &mended, const std::string &value);

  const Configurations &commit_;
  const std::set<Complaint> &before_;
  CorrectionSearch search_;
};

}  // namespace brute_force

#endif
