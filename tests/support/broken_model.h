#ifndef TESTS_SUPPORT_BROKEN_MODEL_H
#define TESTS_SUPPORT_BROKEN_MODEL_H

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace scripted {

/// The text as a pattern that matches just it.
inline std::string literally(std::string_view text) {
  std::string pattern;
  for (const char c : text) {
    if (std::string_view("\\^$.|?*+()[]{}").find(c) != std::string_view::npos) pattern += '\\';
    pattern += c;
  }
  return pattern;
}

}  // namespace scripted

/// The statement stops the process on a value of an unexpected type, with the assertion's text and the name of the area
/// in the file's: EXPECT_BROKEN_MODEL(rule(...), "config_validate_comn", "(&mc.keys[1])->type == C_INT32").
#define EXPECT_BROKEN_MODEL(statement, area, assertion) \
  EXPECT_DEATH(statement, std::string(area) + "/.*Assertion `" + ::scripted::literally(assertion) + "' failed")

#endif
