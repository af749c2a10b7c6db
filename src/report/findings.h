#ifndef REPORT_FINDINGS_H
#define REPORT_FINDINGS_H

#include "diagnosis/finding.h"
#include "element/schema/schema.h"
#include "host/run/commit.h"
#include "report/commit_report.h"
#include "report/input_files.h"

namespace report {

/// Adds the findings of a commit and the advice for all of them: what the device says of it (its verdict, with one
/// rejection at most), the rejection before the warnings, whether or not a search has explained it; then what the
/// device would say next. `texts` are what was read from `files`; they are parsed for lines only where there is a
/// finding.
void add_findings(CommitReport &commit, const diagnosis::Diagnosis &diagnosis, const host::Verdict &verdict,
                  const element::Schema &schema, const InputFiles &files, const InputSources &sources);

}  // namespace report

#endif
