#ifndef MAINTENANCE_COMMANDS_RECORDING_FILE_H
#define MAINTENANCE_COMMANDS_RECORDING_FILE_H

#include <string>

#include "maintenance/recording/recording.h"

namespace maintenance {

/// Reads a recording from a file, or from standard input where the name is "-". Throws element::FileError where it
/// cannot be read, element::InputError, which names the file, where it is no whole recording.
recording::Recording read_recording(const std::string &file);

/// The same of a JSON document.
recording::Recording read_recording_json(const std::string &file);

}  // namespace maintenance

#endif
