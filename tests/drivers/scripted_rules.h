#ifndef TESTS_DRIVERS_SCRIPTED_RULES_H
#define TESTS_DRIVERS_SCRIPTED_RULES_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "confd_lib.h"
#include "tests/support/printers.h"

using Steps = std::vector<std::string>;

/// The keep-alive and the rules that replace the plug-in's: what each answers, and which ran.
struct ScriptedRules {
  std::map<std::string, std::int32_t> answers;  ///< by the rule's name; a rule that is not named accepts
  Steps steps;                                  ///< "keep-alive" and names of rules, in the order of their calls

  /// Notes that a rule ran, which must have got the platform's socket and context. Returns the rule's answer.
  std::int32_t run(const std::string &rule, std::int32_t sock, const confd_trans_ctx *tctx);
};

inline ScriptedRules scripted_rules;

/// A platform without a configuration, and rules that all accept.
class DriverTest : public scripted::PlatformTest {
 protected:
  DriverTest() { scripted_rules = {}; }
};

#endif
