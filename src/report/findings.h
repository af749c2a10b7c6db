#ifndef REPORT_FINDINGS_H
#define REPORT_FINDINGS_H

#include <vector>

#include "diagnosis/finding.h"
#include "element/schema/schema.h"
#include "host/run/commit.h"
#include "report/finding.h"
#include "report/input_files.h"

namespace report {

/// The findings of a commit: what the device says of it (its verdict, with one rejection at most), the rejection before
/// the warnings, whether or not a search has explained it; then what the search found behind it. `texts` are what was
/// read from `files`; they are parsed for lines only where there is a finding.
std::vector<Finding> make_findings(const diagnosis::Diagnosis &diagnosis, const host::Verdict &verdict,
                                   const element::Schema &schema, const InputFiles &files, const InputTexts &texts);

}  // namespace report

#endif
