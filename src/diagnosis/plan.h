#ifndef DIAGNOSIS_PLAN_H
#define DIAGNOSIS_PLAN_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "diagnosis/diagnose.h"
#include "element/datastore/tree.h"
#include "host/run/commit.h"

namespace diagnosis {

/// The most commits that a plan has.
inline constexpr std::size_t kMostSteps = 3;

/// A commit in steps.
struct Plan {
  /// What each step leaves, operator's nodes alone; the last is the candidate. Each is accepted on the one before, the
  /// first on the running configuration. Empty: no plan was found.
  std::vector<element::Tree> stages;

  /// The library rejects the candidate even where nothing was before, with a message that the running configuration
  /// does not draw: its order is not all that is wrong. No plan is looked for then.
  std::optional<host::PointVerdict> own_fault;

  std::size_t parts_tried = 0;  ///< no plan: of so many parts of the change, every split was asked about; 0: of none
  std::uint64_t calls = 0;      ///< how often the library was asked
  SearchEnd end = SearchEnd::complete;
  std::string contract_violation;  ///< what the library did against its contract, or empty
};

/// Looks for at most kMostSteps commits that the library accepts one after the other and that lead to the candidate.
/// The fewest steps win; then that which changes least in the first ones. An accepted transaction is a plan of one
/// step. Of the options, `budget`, `now`, `progress` and `is_interrupted` are used. Leaves the session as it was.
Plan find_plan(const host::Plugin &plugin, host::HostSession &session, const element::Transaction &transaction,
               const Options &options);

}  // namespace diagnosis

#endif
