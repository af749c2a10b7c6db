#include "maintenance/commands/recording_file.h"

#include <fmt/format.h>

#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "maintenance/recording/decode.h"
#include "maintenance/transcript/json.h"

namespace maintenance {

recording::Recording read_recording(const std::string &file) {
  const std::string bytes = element::read_input(file);
  try {
    return recording::decode(bytes);
  } catch (const recording::DecodeError &error) {
    throw element::InputError(fmt::format("{}: {}", file, error.what()));
  }
}

recording::Recording read_recording_json(const std::string &file) {
  const std::string document = element::read_input(file);
  try {
    return transcript::from_json(document);
  } catch (const transcript::JsonError &error) {
    throw element::InputError(fmt::format("{}: {}", file, error.what()));
  }
}

}  // namespace maintenance
