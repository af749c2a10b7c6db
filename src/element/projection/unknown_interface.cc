#include "element/projection/unknown_interface.h"

#include <fmt/format.h>

#include <utility>

#include "element/input/input_text.h"

namespace element {
namespace {

std::string message(const Path &path, const std::string &fault, const std::string &configuration) {
  return fmt::format("{}{}: {}; expected {}",
                     configuration.empty() ? "" : configuration + " configuration: ", one_line(to_text(path)), fault,
                     UnknownInterface::expected);
}

}  // namespace

UnknownInterface::UnknownInterface(Path at, const std::string &fault, const std::string &configuration)
    : InputError(message(at, fault, configuration)),
      path_(std::move(at)),
      fault_(fault),
      is_in_running_(configuration == "running") {}

}  // namespace element
