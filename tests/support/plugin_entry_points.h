#ifndef TESTS_SUPPORT_PLUGIN_ENTRY_POINTS_H
#define TESTS_SUPPORT_PLUGIN_ENTRY_POINTS_H

#include <cstdio>

/// The entry points of a validation library but `validate`, for libraries with answers that a test wants. Included by
/// the one source of each.
extern "C" {

int lib_init(void **state) {
  *state = nullptr;
  return 0;
}

int get_validation_point(char *buffer, int length) {
  std::snprintf(buffer, static_cast<std::size_t>(length), "vpn_app_validation");
  return 0;
}

int lib_finish(void ** /*state*/) { return 0; }
}

#endif
