#ifndef MAINTENANCE_QUEUE_EXPLANATION_H
#define MAINTENANCE_QUEUE_EXPLANATION_H

#include <string>
#include <vector>

#include "element/input/configuration.h"
#include "maintenance/queue/queue_report.h"
#include "maintenance/queue/queue_search.h"

namespace queue {

/// What a queue was read from.
struct QueueInputs {
  const element::ConfigurationFile &running;
  std::string running_file;
  std::string element_file;
  const std::vector<QueuedChange> &changes;
};

/// The report of a queue. Rejections of a change alone, of a pair, and of a change that is left out though no pair
/// excludes it have their parties, which are searched for with what is left of the oracle's budget. Once that is used
/// up, findings have their message alone.
QueueReport explained(const Queue &queue, const QueueInputs &inputs, const host::Plugin &plugin,
                      host::HostSession &session, const diagnosis::Options &options, StepOracle &oracle);

}  // namespace queue

#endif
