#ifndef REPORT_PLAN_REPORT_H
#define REPORT_PLAN_REPORT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/run/commit.h"
#include "report/change_list.h"
#include "report/commit_report.h"
#include "report/input_files.h"
#include "report/passed_over.h"

namespace report {

/// A commit of several that lead to the candidate one after the other.
struct PlanStep {
  std::string name;    ///< "1"
  std::string folder;  ///< where its files are
  std::vector<ListedChange> changes;
};

/// What a search for steps came to.
struct PlanReport {
  InputFiles inputs;
  PassedOver passed_over;
  std::optional<InputSources> foreign;  ///< whose modules are to be listed, where that was asked for
  std::string plugin_file;
  std::string build_id;
  std::vector<PlanStep> steps;                  ///< none: no steps were found, and what follows tells why
  std::optional<host::PointVerdict> own_fault;  ///< the candidate is rejected whatever was before
  std::size_t parts_tried = 0;                  ///< every split of so many parts was asked about; 0: of none
  std::uint64_t calls = 0;                      ///< how often the library was asked
  std::uint64_t budget_calls = 0;
  double budget_seconds = 0;
  SearchEnd end = SearchEnd::complete;
  std::string contract_violation;  ///< what the library did against its contract, or empty
};

/// Why there are no steps.
enum class NoStepsReason { contract_violation, own_fault, interrupted, budget, no_split, too_many_parts };

/// Precondition: the report has no steps.
NoStepsReason no_steps_reason(const PlanReport &report);

/// The reason in words, in one line and not yet fit to be printed.
std::string no_steps_text(const PlanReport &report);

}  // namespace report

#endif
