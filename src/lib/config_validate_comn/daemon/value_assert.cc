#include "config_validate_comn/daemon/value_assert.h"

#include <cstdio>
#include <cstdlib>

void value_assert_fail(const char *text, const char *file, unsigned line, const char *function) {
  std::fprintf(stderr, "%s:%u: %s: Assertion `%s' failed.\n", file, line, function, text);
  std::fflush(stderr);
  std::abort();
}
