#ifndef REPORT_CI_SARIF_RULES_H
#define REPORT_CI_SARIF_RULES_H

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace report {

/// The rule table as SARIF's reporting descriptors, in its order.
nlohmann::ordered_json sarif_rules();

/// A text as SARIF's messages take it: braces doubled, for they name arguments, and no brackets that make a link.
std::string sarif_text(std::string_view text);

}  // namespace report

#endif
