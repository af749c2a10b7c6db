#ifndef MAINTENANCE_RECORDER_OUTPUT_VALUES_H
#define MAINTENANCE_RECORDER_OUTPUT_VALUES_H

#include <cstddef>

#include "confd_lib.h"

namespace recorder {

/// Finds out which of the caller's values a call of the platform writes: they are marked before the call, and the marks
/// that are left after it are taken back. A value that the platform does not write may hold anything, and is not looked
/// at.
class OutputValues {
 public:
  /// Marks `count` values. With `is_recording` false it does nothing.
  OutputValues(bool is_recording, confd_value_t *values, long count);
  ~OutputValues();
  OutputValues(const OutputValues &) = delete;
  OutputValues &operator=(const OutputValues &) = delete;

  /// After the call: writes the values up to the last one that was written as items, with null for one that was not,
  /// and gives the caller back what it had there.
  void record();

 private:
  void restore();

  confd_value_t *values_;
  std::size_t count_;
  bool is_marked_ = false;
};

}  // namespace recorder

#endif
