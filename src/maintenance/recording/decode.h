#ifndef MAINTENANCE_RECORDING_DECODE_H
#define MAINTENANCE_RECORDING_DECODE_H

#include <stdexcept>
#include <string_view>

#include "maintenance/recording/recording.h"

namespace recording {

/// The bytes are no whole recording; what() says at which byte and what was expected.
class DecodeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The recording that a file's bytes hold. Throws DecodeError, also where the file was torn: its end is missing or its
/// digest is another.
Recording decode(std::string_view bytes);

}  // namespace recording

#endif
