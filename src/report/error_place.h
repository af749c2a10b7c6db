#ifndef REPORT_ERROR_PLACE_H
#define REPORT_ERROR_PLACE_H

#include <string>
#include <string_view>
#include <vector>

#include "report/finding.h"

namespace report {

/// Where an input error stands: messages begin with "FILE:LINE: ", or "FILE: " where no line is known. The file is one
/// of `files`; nothing else, as a message about a folder, has a place.
FilePlace error_place(std::string_view message, const std::vector<std::string> &files);

}  // namespace report

#endif
