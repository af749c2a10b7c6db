#ifndef MAINTENANCE_QUEUE_QUEUE_REPORT_H
#define MAINTENANCE_QUEUE_QUEUE_REPORT_H

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "maintenance/queue/queue_search.h"
#include "report/commit_report.h"

namespace queue {

/// What became of a change, as it is told.
struct StepReport {
  StepOutcome outcome = StepOutcome::not_asked;
  std::vector<report::Finding> findings;  ///< the rejection, with its parties where they were looked for, and warnings
  std::string misfit;                     ///< does_not_fit: why
};

struct PairReport {
  PairKind kind = PairKind::exclusive;
  std::size_t first = 0;
  std::size_t second = 0;
  StepReport second_on_first;
  StepReport first_on_second;
  std::string differs;  ///< order_matters: path of the first node that differs
};

/// What `vpnval queue` found out, for every format. Changes are named by their index.
struct QueueReport {
  std::string element;
  std::string running;
  std::string plugin_file;
  std::string build_id;
  std::vector<std::string> names;  ///< of the changes
  std::vector<StepReport> alone;   ///< of each change
  std::vector<PairReport> pairs;
  std::size_t pairs_asked = 0;
  std::size_t pairs_possible = 0;
  std::vector<std::size_t> order;
  std::vector<StepReport> steps;  ///< of `order`
  std::vector<std::size_t> left_out;
  std::vector<StepReport> left_out_steps;
  Proof proof = Proof::none;
  std::size_t sets_asked = 0;
  std::uint64_t calls = 0;
  std::uint64_t budget_calls = 0;
  double budget_seconds = 0;
  report::SearchEnd end = report::SearchEnd::complete;
  std::string contract_violation;
};

/// "all 5 changes go through in this order", or how many do and how sure it is that no more can; one line.
std::string sum_text(const QueueReport &report);

/// "accepted", "accepted with warnings", "rejected", "does not fit" or "not asked".
std::string outcome_text(const StepReport &step);

/// What is wrong with a step that is not accepted: "[RULE] MESSAGE", or why it does not fit. One line, not yet fit to
/// be printed.
std::string reason_text(const StepReport &step);

/// The rejection with its rule, message and parties; null where there is none.
const report::Finding *rejection_of(const StepReport &step);

void write_text(std::ostream &out, const QueueReport &report);
void write_markdown(std::ostream &out, const QueueReport &report);

/// One JSON document; docs/queue.schema.json describes it.
void write_json(std::ostream &out, const QueueReport &report);

}  // namespace queue

#endif
