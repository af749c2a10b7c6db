#ifndef DIAGNOSIS_ORDER_REPAIR_H
#define DIAGNOSIS_ORDER_REPAIR_H

#include <optional>

#include "diagnosis/finding.h"
#include "diagnosis/search_context.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"

namespace diagnosis {

struct OrderRepair {
  std::optional<Repair> repair;
  bool is_searched = true;  ///< false: the search was ended before it was sure that there is none
};

/// The repair that commits the change in several steps, where the order is all that is wrong with every rejection; its
/// value is the number of steps. Half of what is left of the oracle's budget is spent at most. A plan whose steps draw
/// a message that the whole does not is none.
OrderRepair find_order_repair(const host::Plugin &plugin, host::HostSession &session,
                              const element::Transaction &transaction, const SearchContext &context,
                              const FoundConflicts &conflicts, const Options &options);

}  // namespace diagnosis

#endif
