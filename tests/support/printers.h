#ifndef TESTS_SUPPORT_PRINTERS_H
#define TESTS_SUPPORT_PRINTERS_H

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/support/platform.h"

namespace scripted {

inline bool operator==(const TraceCall &a, const TraceCall &b) {
  return a.category == b.category && a.file == b.file && a.file_length == b.file_length && a.function == b.function &&
         a.function_length == b.function_length && a.line == b.line && a.level == b.level && a.text == b.text;
}

inline void PrintTo(const TraceCall &call, std::ostream *out) {
  *out << call.category << ' ' << call.file << '(' << call.file_length << ") " << call.function << '('
       << call.function_length << ") line " << call.line << " level " << call.level << ": " << call.text;
}

/// A test with a platform of its own, which fails when something is left open or was misused.
class PlatformTest : public ::testing::Test {
 protected:
  void TearDown() override {
    EXPECT_EQ(platform.leaks(), expected_leaks);
    EXPECT_EQ(platform.misuses(), std::vector<std::string>{});
  }

  Platform platform;
  std::vector<std::string> expected_leaks;  ///< what is left open on purpose, "cursor on /internal/..."
};

}  // namespace scripted

#endif
