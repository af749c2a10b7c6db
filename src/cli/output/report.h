#ifndef CLI_OUTPUT_REPORT_H
#define CLI_OUTPUT_REPORT_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "cli/findings/decided_commit.h"
#include "cli/input/input_files.h"
#include "cli/output/change_list.h"
#include "host/run/commit.h"

namespace cli {

/// What `check` found out, for every output format.
struct Report {
  InputFiles inputs;
  std::string plugin_file;  ///< the file that decided
  std::string build_id;
  std::vector<ListedChange> changes;
  host::Verdict verdict;
  bool with_trace = false;
  std::vector<Finding> findings;  ///< what the device says first
  SearchAccount search;
  std::vector<std::string> unused_suppressions;  ///< "FILE:LINE: RULE PATH"
};

/// The points that were asked, by answer.
struct PointCounts {
  std::size_t accepted = 0;
  std::size_t warned = 0;
  std::size_t rejected = 0;
};

PointCounts count_points(const host::Verdict &verdict);

/// "accepted", "warning" or "rejected".
std::string_view answer_text(const host::PointVerdict &point);

}  // namespace cli

#endif
