#ifndef REPORT_CHECK_REPORT_H
#define REPORT_CHECK_REPORT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/run/commit.h"
#include "report/change_list.h"
#include "report/change_summary.h"
#include "report/commit_report.h"
#include "report/input_files.h"

namespace report {

/// What `check` found out, for every output format.
struct CheckReport {
  CommitReport commit;  ///< decision and unreadable names are set with the verdict
  InputFiles inputs;
  std::string plugin_file;  ///< the file that decided
  std::string build_id;
  std::vector<ListedChange> changes;
  ChangeSummary summary;
  host::Verdict verdict;
  std::optional<host::Verdict> rollback;  ///< on the way back, where it was asked for; see CommitReport::rollback
  bool with_trace = false;
  std::optional<InputSources> foreign;  ///< whose modules are to be listed, where that was asked for
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

}  // namespace report

#endif
