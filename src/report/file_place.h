#ifndef REPORT_FILE_PLACE_H
#define REPORT_FILE_PLACE_H

#include <filesystem>

#include "element/datastore/path.h"
#include "element/input/configuration_source.h"
#include "report/finding.h"

namespace report {

/// Where a node of a configuration stands, which was read from `file` and what its source names further: the first of
/// these that has it. `file` without a line where none has.
FilePlace place_of(const element::Path &path, const std::filesystem::path &file,
                   const element::ConfigurationSource &source);

}  // namespace report

#endif
