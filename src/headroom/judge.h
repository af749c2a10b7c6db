#ifndef HEADROOM_JUDGE_H
#define HEADROOM_JUDGE_H

#include <optional>
#include <set>
#include <string>

#include "headroom/report.h"
#include "host/run/plugin.h"

namespace headroom {

/// A candidate with more in it, and the element with the ports that the additions stand on.
struct Load {
  element::Tree candidate;
  element::Profile profile;
};

/// Names of validation points.
using Points = std::set<std::string>;

/// Asks the library about candidates for one running configuration.
class Judge {
 public:
  /// Both must outlive it.
  Judge(const host::Plugin &plugin, const element::Tree &running) : plugin_(plugin), running_(running) {}

  /// The verdict on the step to the load's candidate; of every point that it fires, or up to the first rejection.
  host::Verdict decide(const Load &load, bool all_points) const;

  /// The first rejection, those of the points left out; nothing where the others accept.
  std::optional<Answer> rejection(const Load &load, const Points &left_out) const;

 private:
  const host::Plugin &plugin_;
  const element::Tree &running_;
};

/// What a point said, with its rule.
Answer answer_of(const host::PointVerdict &verdict);

}  // namespace headroom

#endif
