#ifndef CLI_OUTPUT_DECISION_TEXT_H
#define CLI_OUTPUT_DECISION_TEXT_H

#include <string_view>

#include "host/run/commit.h"

namespace cli {

/// For readers: "accepted with warnings".
std::string_view decision_text(host::Decision decision);

/// For programs: "accepted-with-warnings".
std::string_view decision_name(host::Decision decision);

}  // namespace cli

#endif
