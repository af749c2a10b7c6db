#ifndef TESTS_DIAGNOSIS_FOLLOWED_ADVICE_TOLD_STEPS_H
#define TESTS_DIAGNOSIS_FOLLOWED_ADVICE_TOLD_STEPS_H

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace followed {

/// Paths of nodes that are to become again as they are in the running configuration.
using Steps = std::vector<std::string>;

/// What to take back, as one format tells it: the first of the alternatives, or the first ones of the choices.
struct ToldSteps {
  std::vector<Steps> of_findings;  ///< in the order in which they are told; empty where nothing helps
  Steps for_all;                   ///< empty: those of the only finding
};

/// Of the JSON document of one commit.
ToldSteps steps_in_json(const nlohmann::json &verdict);

/// Of the text of one commit; read as it is printed, with nothing else known. Throws std::runtime_error for a line of
/// advice that is none of the known ones, and for a list that is cut.
ToldSteps steps_in_text(const std::string &text);

}  // namespace followed

#endif
