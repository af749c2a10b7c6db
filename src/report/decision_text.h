#ifndef REPORT_DECISION_TEXT_H
#define REPORT_DECISION_TEXT_H

#include <string_view>

#include "host/run/commit.h"

namespace report {

/// For readers: "accepted with warnings".
std::string_view decision_text(host::Decision decision);

/// For programs: "accepted-with-warnings".
std::string_view decision_name(host::Decision decision);

}  // namespace report

#endif
