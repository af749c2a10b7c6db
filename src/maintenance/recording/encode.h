#ifndef MAINTENANCE_RECORDING_ENCODE_H
#define MAINTENANCE_RECORDING_ENCODE_H

#include <string>

#include "maintenance/recording/recording.h"

namespace recording {

/// The bytes of a file that decode() makes the same recording of.
std::string encode(const Recording &recording);

}  // namespace recording

#endif
