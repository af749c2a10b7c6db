#ifndef CLI_FINDINGS_FINDINGS_H
#define CLI_FINDINGS_FINDINGS_H

#include <vector>

#include "cli/findings/finding.h"
#include "cli/input/input_files.h"
#include "diagnosis/finding.h"
#include "element/schema/schema.h"
#include "host/run/commit.h"

namespace cli {

/// The findings of a commit: what the device says of it (its verdict, with one rejection at most), the rejection before
/// the warnings, whether or not a search has explained it; then what the search found behind it. Reads the
/// configuration files once more where there is anything to find. Throws element::InputError where that fails.
std::vector<Finding> make_findings(const diagnosis::Diagnosis &diagnosis, const host::Verdict &verdict,
                                   const element::Schema &schema, const InputFiles &files);

}  // namespace cli

#endif
