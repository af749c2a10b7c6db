#ifndef DIAGNOSIS_SPLIT_SEARCH_H
#define DIAGNOSIS_SPLIT_SEARCH_H

#include <vector>

#include "diagnosis/stages.h"
#include "diagnosis/step_oracle.h"

namespace diagnosis {

/// What each step leaves, the last stage included; empty: nothing was found.
using Steps = std::vector<Stage>;

/// Splits a change into commits that the library accepts one after the other.
class SplitSearch {
 public:
  /// All must outlive the search.
  SplitSearch(const Stages &stages, const RevertibleChanges &changes, StepOracle &oracle);

  Steps find_one_step();

  /// Two or three steps that treat all additions alike, and all changes and all removals: removals first, say. Then as
  /// little as possible is done early. The number of questions is in proportion to what the first steps must do.
  Steps find_by_status();

  /// Two or three steps through any stages in which the parts are in any state, and all others in the same: complete
  /// unless the oracle has ended. The number of questions is exponential in that of the parts.
  Steps find_among(const NumberSet &parts);

 private:
  std::vector<Stage> stages_by_status() const;
  std::vector<Stage> stages_among(const NumberSet &parts) const;
  Steps find_through(const std::vector<Stage> &stages);
  Steps find_three_steps(const std::vector<Stage> &stages);
  bool is_plan(const Steps &steps);
  void defer_parts(Steps &steps);
  void defer_parts(Steps &steps, std::size_t step);

  const Stages &stages_;
  const RevertibleChanges &changes_;
  StepOracle &oracle_;
};

}  // namespace diagnosis

#endif
