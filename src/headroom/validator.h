#ifndef HEADROOM_VALIDATOR_H
#define HEADROOM_VALIDATOR_H

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "headroom/report.h"
#include "host/run/plugin.h"

namespace headroom {

/// A candidate with additions, and the element with the ports that the additions use.
struct TrialCommit {
  element::Tree candidate;
  element::Profile profile;
};

/// Names of validation points.
using Points = std::set<std::string>;

/// Has the validation library decide candidates against one running configuration.
class Validator {
 public:
  /// All must outlive the validator. `unreadable` collects the questions that could not be read.
  Validator(const host::Plugin &plugin, const element::Tree &running, std::vector<host::UnreadableQuestion> &unreadable)
      : plugin_(plugin), running_(running), unreadable_(unreadable) {}

  /// The verdict on the commit from the running configuration to the trial's candidate: the answers of all triggered
  /// points, or of those up to the first rejection. Questions that could not be read are collected where they have a
  /// name that no earlier trial had.
  host::Verdict decide(const TrialCommit &trial, bool all_points) const;

  /// The first rejection by a point that is not in `ignored`; nothing if these points accept.
  std::optional<Answer> rejection(const TrialCommit &trial, const Points &ignored) const;

 private:
  const host::Plugin &plugin_;
  const element::Tree &running_;
  std::vector<host::UnreadableQuestion> &unreadable_;
};

/// A point's answer with the rule that its message belongs to.
Answer answer_of(const host::PointVerdict &verdict);

}  // namespace headroom

#endif
