#ifndef HEADROOM_VALIDATOR_H
#define HEADROOM_VALIDATOR_H

#include <optional>
#include <set>
#include <string>

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
  /// Both must outlive the validator.
  Validator(const host::Plugin &plugin, const element::Tree &running) : plugin_(plugin), running_(running) {}

  /// The verdict on the commit from the running configuration to the trial's candidate: the answers of all triggered
  /// points, or of those up to the first rejection.
  host::Verdict decide(const TrialCommit &trial, bool all_points) const;

  /// The first rejection by a point that is not in `ignored`; nothing if these points accept.
  std::optional<Answer> rejection(const TrialCommit &trial, const Points &ignored) const;

 private:
  const host::Plugin &plugin_;
  const element::Tree &running_;
};

/// A point's answer with the rule that its message belongs to.
Answer answer_of(const host::PointVerdict &verdict);

}  // namespace headroom

#endif
